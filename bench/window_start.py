#!/usr/bin/env python3
"""Times the way to the first paint of the window, and its memory, beside two plain Qt windows.

usage: bench/window_start.py [BUILD] [--rounds N]

BUILD is build/release unless given; its targets decant, empty_window and bare_window are built. Each program is
started on an X server of its own kind, Xvfb, without a window manager; the first paint is the moment when the
server's picture stops being black. The programs take turns, and ratios are taken round by round. Prints the
table of docs/performance.md. Needs xvfb and dbus.
"""
import argparse
import mmap
import os
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

WIDTH, HEIGHT = 800, 700
PATIENCE = 20  # seconds


class Screen:
    """An X server whose picture can be read from a file."""

    def __init__(self, folder):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-fbdir", folder,
             "-nolisten", "tcp"], pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as announced:
            self.display = ":" + announced.readline().strip()
        with open(Path(folder) / "Xvfb_screen0", "rb") as picture:
            self.picture = mmap.mmap(picture.fileno(), 0, prot=mmap.PROT_READ)
        # A strip across the upper left, where a window without a window manager stands.
        start = len(self.picture) - WIDTH * HEIGHT * 4
        self.strip = slice(start + 30 * WIDTH * 4, start + 34 * WIDTH * 4)
        self.black = self.picture[self.strip]

    def is_black(self):
        return self.picture[self.strip] == self.black

    def end(self):
        self.server.terminate()
        self.server.wait()


def wait_until(holds, what):
    end = time.monotonic() + PATIENCE
    while not holds():
        if time.monotonic() > end:
            raise SystemExit(f"bench/window_start.py: {what} did not come")


def pss(pid):
    for line in Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1]) / 1024
    raise SystemExit("bench/window_start.py: the kernel tells no Pss")


def start(screen, command, environment):
    """Seconds to the first paint, and MiB a moment later."""
    wait_until(screen.is_black, "the end of the window before")
    begun = time.perf_counter()
    program = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    try:
        wait_until(lambda: not screen.is_black(), f"the window of {command[0]}")
        seconds = time.perf_counter() - begun
        time.sleep(0.5)
        return seconds, pss(program.pid)
    finally:
        program.terminate()
        program.wait()


def bus(folder):
    daemon = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address=1"],
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, cwd=folder)
    return daemon, daemon.stdout.readline().strip()


def table(samples):
    rows = ["| window | first paint | times the bare | times the empty | memory (PSS) | times the bare | times the empty |",
            "|---|---|---|---|---|---|---|"]
    for name, values in samples.items():
        cells = []
        for part, unit, scale in ((0, "ms", 1000), (1, "MB", 1)):
            own = [value[part] for value in values]
            cells.append(f"{statistics.median(own) * scale:.0f} {unit}")
            for other in ("bare", "empty"):
                ratio = statistics.median(a[part] / b[part] for a, b in zip(values, samples[other]))
                cells.append(f"{ratio:.2f}")
        rows.append(f"| {name} | " + " | ".join(cells) + " |")
    return "\n".join(rows)


def main():
    parser = argparse.ArgumentParser(usage="bench/window_start.py [BUILD] [--rounds N]")
    parser.add_argument("build", nargs="?", default=Path(__file__).parent.parent / "build/release", type=Path)
    parser.add_argument("--rounds", type=int, default=15)
    options = parser.parse_args()
    bundle = options.build.resolve() / "bundle"
    commands = {"decant": [bundle / "decant"],
                "bare": [options.build.resolve() / "bench/bare_window", bundle / "resources"],
                "empty": [options.build.resolve() / "bench/empty_window"]}
    with tempfile.TemporaryDirectory() as folder:
        screen = Screen(folder)
        daemon, address = bus(folder)
        runtime = Path(folder) / "runtime"
        runtime.mkdir(mode=0o700)
        environment = dict(os.environ, DISPLAY=screen.display, HOME=folder, XDG_CONFIG_HOME=folder + "/config",
                           XDG_DATA_HOME=folder + "/data", XDG_RUNTIME_DIR=str(runtime), LC_ALL="C.UTF-8",
                           DBUS_SESSION_BUS_ADDRESS=address, QT_QPA_PLATFORM="xcb")
        samples = {name: [] for name in commands}
        try:
            for number in range(options.rounds + 1):
                for name, command in commands.items():
                    sample = start(screen, [str(part) for part in command], environment)
                    if number > 0:  # the first round only warms the caches
                        samples[name].append(sample)
        finally:
            daemon.terminate()
            daemon.wait()
            screen.end()
    print(table(samples))


if __name__ == "__main__":
    main()
