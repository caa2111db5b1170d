"""A desktop of the test's own: display, window manager, session bus, accessibility bus, no other's."""
import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

from waiting import children_of, until

SUBREAPER = 36  # PR_SET_CHILD_SUBREAPER of <sys/prctl.h>
DEATH_SIGNAL = 1  # PR_SET_PDEATHSIG
LIBC = ctypes.CDLL(None)

BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:path={0}/bus</listen>
<policy context="default"><allow send_destination="*" eavesdrop="true"/>
<allow eavesdrop="true"/><allow own="*"/></policy></busconfig>
"""

# Where a window opens is fixed, so that none covers another.
OPENBOX = """<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
<focus><focusNew>yes</focusNew></focus>
<theme><animateIconify>no</animateIconify></theme>
<desktops><number>1</number><popupTime>0</popupTime></desktops>
<applications>
<application name="dragsource"><position force="yes"><x>1080</x><y>20</y></position></application>
<application name="decant" type="normal"><position force="yes"><x>20</x><y>40</y></position></application>
</applications></openbox_config>
"""


def dies_with_the_test():
    LIBC.prctl(DEATH_SIGNAL, signal.SIGKILL)


class Desktop:
    """Started once a test program. Everything it starts is below `folder` and ends with it."""

    def __init__(self, size="1400x900", dpi=96):
        # What loses its parent becomes a child of this process and is seen, and ended, here.
        LIBC.prctl(SUBREAPER, 1)
        self.folder = Path(tempfile.mkdtemp(prefix="decant-e2e-"))
        self.processes = []
        runtime = self.folder / "runtime"
        runtime.mkdir(mode=0o700)
        self.environment = {
            "PATH": os.pathsep.join([str(self.folder / "bin"), "/usr/local/bin", "/usr/bin", "/bin"]),
            "HOME": str(self.folder), "XDG_RUNTIME_DIR": str(runtime), "LC_ALL": "C.UTF-8",
            "XDG_CONFIG_HOME": str(self.folder / "desktop-config"), "NO_AT_BRIDGE": "1",
            "XDG_DATA_DIRS": "/usr/local/share:/usr/share",
        }
        for name, value in os.environ.items():
            if name.endswith("SAN_OPTIONS") or name in ("GCOV_ERROR_FILE", "LLVM_PROFILE_FILE"):
                self.environment[name] = value
        (self.folder / "bin").mkdir()
        try:
            self._start_display(size, dpi)
            self._start_buses()
        except BaseException:
            self.close()
            raise

    def start(self, *command, **more):
        """Starts a program of the desktop; what it says is kept in a file of its name."""
        name = Path(command[0]).name
        log = open(self.folder / f"{name}.log", "ab")
        with log:
            more.setdefault("stdout", log)
            process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stderr=log, env=self.environment,
                                       preexec_fn=dies_with_the_test, **more)
        self.processes.append(process)
        return process

    def _start_display(self, size, dpi):
        reader, writer = os.pipe()
        self.start("Xvfb", "-displayfd", str(writer), "-screen", "0", size + "x24", "-dpi", str(dpi),
                   "-nolisten", "tcp", "-noreset", pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader, encoding="ascii") as told:
            number = told.readline().strip()
        assert number, "Xvfb did not start:\n" + (self.folder / "Xvfb.log").read_text()
        self.environment["DISPLAY"] = ":" + number
        (self.folder / "openbox.xml").write_text(OPENBOX, encoding="utf-8")
        self.start("openbox", "--config-file", str(self.folder / "openbox.xml"))
        until(lambda: b"0x" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "the window manager")

    def _start_buses(self):
        configuration = self.folder / "bus.conf"
        configuration.write_text(BUS.format(self.folder), encoding="utf-8")
        bus = self.start("dbus-daemon", "--nofork", "--print-address", f"--config-file={configuration}",
                         stdout=subprocess.PIPE)
        self.bus_address = bus.stdout.readline().decode().strip()
        bus.stdout.close()
        assert self.bus_address, "dbus-daemon did not start"
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.bus_address
        self.start("/usr/libexec/at-spi-bus-launcher", "--launch-immediately")
        self.bus_answer = lambda *call: self.run("gdbus", "call", "--session", "--timeout", "5", *call)
        until(lambda: b"unix:" in self.bus_answer("--dest", "org.a11y.Bus", "--object-path", "/org/a11y/bus",
                                                  "--method", "org.a11y.Bus.GetAddress"), "the accessibility bus")

    def run(self, *command, check=False, **more):
        """What a short command of the desktop prints."""
        return subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL, capture_output=True,
                              check=check, timeout=30, **more).stdout

    def mock(self, script, *kinds):
        """Starts the mocked services of that script on the bus; gives the file that their calls go to."""
        log = Path(tempfile.mkdtemp(dir=self.folder)) / "calls"
        service = self.start("/usr/bin/python3", "-B", str(script), self.bus_address, str(log), *kinds,
                             stdout=subprocess.PIPE)
        told = service.stdout.readline()
        service.stdout.close()
        assert told == b"ready\n", (self.folder / "python3.log").read_text()
        return service, log

    def windows(self, title, pid):
        """Numbers of the windows that a process shows and whose title matches."""
        return self.run("xdotool", "search", "--all", "--onlyvisible", "--pid", str(pid),
                        "--name", title).decode().split()

    def close(self):
        for process in reversed(self.processes):
            process.kill()
            process.wait()
        for child in children_of(os.getpid()):
            try:
                os.kill(child, signal.SIGKILL)
            except ProcessLookupError:
                pass
        shutil.rmtree(self.folder, ignore_errors=True)
