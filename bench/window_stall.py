#!/usr/bin/python3
"""Looks for moments in which the window does not answer while it probes and converts.

usage: bench/window_stall.py [BUILD] [--movies N]

BUILD is build/release unless given. The program is started on an X server of its own with movies that are
queued without a question; until all are converted, the object that it has on the session bus is asked what it
can do every 5 ms, which the event loop of the window answers. Prints how long the answers took. The bar is
50 ms for the longest. Needs xvfb, dbus and python3-dbus.
"""
import argparse
import os
import subprocess
import tempfile
import time
from pathlib import Path

import dbus
import dbus.bus

NAME = "org.decant.Decant"
PATIENCE = 300  # seconds


def make_movies(ffmpeg, folder, count):
    first = folder / "0.mkv"
    subprocess.run([ffmpeg, "-loglevel", "error", "-y", "-f", "lavfi", "-i",
                    "testsrc2=duration=30:size=640x360:rate=25", "-f", "lavfi", "-i",
                    "sine=frequency=330:duration=30", "-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt",
                    "yuv420p", "-c:a", "flac", str(first)], check=True, stdin=subprocess.DEVNULL)
    movies = [first]
    for number in range(1, count):
        movies.append(folder / f"{number}.mkv")
        os.link(first, movies[-1])
    return movies


def answers(address, finished):
    """Milliseconds that each answer took, until `finished` holds."""
    bus = dbus.bus.BusConnection(address)
    end = time.monotonic() + PATIENCE
    while not bus.name_has_owner(NAME):
        if time.monotonic() > end:
            raise SystemExit("bench/window_stall.py: the program did not come to the bus")
    proxy = bus.get_object(NAME, "/org/decant/Decant", introspect=False)
    described = dbus.Interface(proxy, "org.freedesktop.DBus.Introspectable")
    described.Introspect()  # waits for the window, which window_start.py times
    times = []
    while not finished():
        if time.monotonic() > end:
            raise SystemExit("bench/window_stall.py: the movies were not converted")
        begun = time.perf_counter()
        described.Introspect()
        times.append((time.perf_counter() - begun) * 1000)
        time.sleep(0.005)
    return times


def main():
    parser = argparse.ArgumentParser(usage="bench/window_stall.py [BUILD] [--movies N]")
    parser.add_argument("build", nargs="?", default=Path(__file__).parent.parent / "build/release", type=Path)
    parser.add_argument("--movies", type=int, default=30)
    options = parser.parse_args()
    bundle = options.build.resolve() / "bundle"
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        (folder / "runtime").mkdir(mode=0o700)
        movies = make_movies(bundle / "resources/ffmpeg", folder, options.movies)
        read, write = os.pipe()
        server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1000x800x24"],
                                  pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        daemon = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address=1"],
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        with os.fdopen(read) as announced:
            display = ":" + announced.readline().strip()
        environment = dict(os.environ, DISPLAY=display, HOME=name, XDG_CONFIG_HOME=name + "/config",
                           XDG_DATA_HOME=name + "/data", XDG_RUNTIME_DIR=name + "/runtime", LC_ALL="C.UTF-8",
                           DBUS_SESSION_BUS_ADDRESS=daemon.stdout.readline().strip(), QT_QPA_PLATFORM="xcb")
        for key in ("AutoAdd", "DefaultDestination"):
            subprocess.run([bundle / "decant", "settings", "set", key, "1"], env=environment, check=True)
        program = subprocess.Popen([str(bundle / "decant"), *map(str, movies)], env=environment)
        try:
            # The files are there from the start of their conversions; the last one done is the list done.
            store = folder / "config/org.decant.Decant.conf"
            done = f"convertedFileCount={options.movies}"
            times = answers(environment["DBUS_SESSION_BUS_ADDRESS"],
                            lambda: store.exists() and done in store.read_text())
        finally:
            for process in (program, daemon, server):
                process.terminate()
                process.wait()
    times.sort()
    print(f"| answers | median | 99 % | longest |\n|---|---|---|---|\n| {len(times)} | "
          f"{times[len(times) // 2]:.1f} ms | {times[len(times) * 99 // 100]:.1f} ms | {times[-1]:.1f} ms |")


if __name__ == "__main__":
    main()
