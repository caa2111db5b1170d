"""The program under test: a copy of the bundle, folders of its own, a scripted tool, the process."""
import json
import os
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

from desktop import dies_with_the_test
from waiting import children_of, lives, until


class Program:
    """A person's account with the program installed in it. `tool` stands in for ffmpeg."""

    def __init__(self, desktop, bundle, tool):
        self.desktop = desktop
        self.home = Path(tempfile.mkdtemp(dir=desktop.folder, prefix="home-"))
        self.bundle = self.home / "program"
        self.movies = self.home / "movies"
        self.bin = self.home / "bin"
        self.process = None
        self.starts = 0
        for folder in (self.bundle / "resources", self.movies, self.bin):
            folder.mkdir(parents=True)
        # The program finds its bundle by its own path, so it cannot be a link.
        shutil.copy2(Path(bundle) / "decant", self.bundle / "decant")
        for entry in (Path(bundle) / "resources").iterdir():
            if entry.name != "ffmpeg":
                (self.bundle / "resources" / entry.name).symlink_to(entry)
        (self.bundle / "resources" / "ffmpeg").symlink_to(tool)
        self.environment = dict(desktop.environment, HOME=str(self.home), LANGUAGE="en", LANG="C.UTF-8",
                                PATH=os.pathsep.join([str(self.bin), "/usr/bin", "/bin"]),
                                QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_STYLE_OVERRIDE="Fusion")
        del self.environment["NO_AT_BRIDGE"]
        for name, folder in (("XDG_CONFIG_HOME", "config"), ("XDG_DATA_HOME", "data"), ("XDG_CACHE_HOME", "cache")):
            self.environment[name] = str(self.home / folder)

    def movie(self, name, content=b"movie"):
        path = self.movies / name
        path.write_bytes(content)
        return path

    def scenario(self, text):
        """Scripts the tool; see tests/support/fakeffmpeg/README.md."""
        (self.bundle / "resources" / "ffmpeg.scenario").write_text(text, encoding="utf-8")

    def mark(self, name):
        """The file by which a scenario announces a step, or waits for the go-ahead."""
        return self.bundle / "resources" / name

    def calls(self, role):
        """The argument lists that the tool was called with in that role."""
        log = self.bundle / "resources" / "ffmpeg.scenario.calls"
        if not log.exists():
            return []
        calls = [json.loads(line) for line in log.read_text(encoding="utf-8").splitlines()]
        return [call["arguments"] for call in calls if call["role"] == role]

    def set(self, **settings):
        for key, value in settings.items():
            self.run("settings", "set", key, str(value), check=True)

    def setting(self, key):
        return self.run("settings", "get", key, check=True).stdout.strip()

    def run(self, *arguments, check=False, **environment):
        """Runs the program to its end."""
        return subprocess.run([self.bundle / "decant", *map(str, arguments)], env=self.environment | environment,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=60, check=check)

    def start(self, *arguments, **environment):
        """Starts the window."""
        process = self.start_another(*arguments, **environment)
        self.process = process
        return process

    def start_beside(self, executable, kind):
        """Starts a program of the tests that shows a window of this account's bundle."""
        self.process = self._start([executable, self.bundle, kind], self.environment)
        return self.process

    def start_another(self, *arguments, without=(), **environment):
        variables = {name: value for name, value in (self.environment | environment).items() if name not in without}
        return self._start([self.bundle / "decant", *map(str, arguments)], variables)

    def _start(self, command, variables):
        self.starts += 1
        with open(self.home / f"output-{self.starts}", "wb") as output:
            return subprocess.Popen(command, env=variables, stdin=subprocess.DEVNULL, stdout=output,
                                    stderr=subprocess.STDOUT, cwd=self.movies, preexec_fn=dies_with_the_test)

    def output(self):
        texts = [file.read_text(errors="replace") for file in sorted(self.home.glob("output-*"))]
        return "".join(texts)

    def ended(self, process=None):
        """The status by which it ends, waited for; none of its children may be left."""
        process = process or self.process
        status = until(lambda: (process.poll(), True) if process.poll() is not None else None, "the program's end")[0]
        left = [pid for pid in children_of(os.getpid()) if self._is_tool(pid)]
        assert not left, f"left behind: {left}"
        return status

    def tools(self):
        """The processes of the tool that run."""
        return [pid for pid in children_of(os.getpid()) if self._is_tool(pid)]

    def _is_tool(self, pid):
        try:
            return b"resources/ffmpeg" in Path(f"/proc/{pid}/cmdline").read_bytes() and lives(pid)
        except OSError:
            return False

    def close(self):
        if self.process and self.process.poll() is None:
            for pid in children_of(self.process.pid) + [self.process.pid]:
                try:
                    os.kill(pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
            self.process.wait()
