#!/usr/bin/env python3
"""Compares decant with a bare loop of the ffmpeg calls that it makes, and watches its memory.

usage: bench/compare.py [BUNDLE] [--rounds N] [--conversions N] [--large-gib X]

BUNDLE is build/release/bundle unless given. The calls are recorded from a run of decant itself, so both
sides do the same work; then the two sides run in turn, A B A B …, in one session, and ratios are taken pair
by pair. Prints the table of docs/performance.md. Needs about 3 GiB in the temporary folder.
"""
import argparse
import json
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

TICKS = os.sysconf("SC_CLK_TCK")


def run(command, **options):
    subprocess.run(command, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, **options)


class Bench:
    def __init__(self, bundle, folder):
        self.bundle = Path(bundle).resolve()
        self.folder = Path(folder)
        self.ffmpeg = os.path.realpath(self.bundle / "resources/ffmpeg")
        self.environment = dict(os.environ, HOME=folder, XDG_CONFIG_HOME=folder + "/config",
                                XDG_DATA_HOME=folder + "/data", LC_ALL="C.UTF-8")
        self.environment.pop("DBUS_SESSION_BUS_ADDRESS", None)
        self.environment.pop("DISPLAY", None)

    def make_movie(self, path, seconds, audio, size="320x180", rate="500k"):
        run([self.ffmpeg, "-y", "-f", "lavfi", "-i", f"testsrc2=duration={seconds}:size={size}:rate=25",
             "-f", "lavfi", "-i", f"sine=frequency=330:duration={seconds}", "-c:v", "libx264", "-preset",
             "ultrafast", "-b:v", rate, "-pix_fmt", "yuv420p", "-c:a", audio, "-ac", "2", str(path)])

    def recorded_calls(self, movies, output):
        """The arguments of every call that decant makes for these movies, in the order of their start."""
        copy = self.folder / "recording"
        shutil.copytree(self.bundle, copy, symlinks=True)
        log = self.folder / "calls"
        tool = copy / "resources/ffmpeg"
        tool.unlink()
        tool.write_text('#!/bin/bash\nprintf "%s\\0" "$#" "$@" >>"' + str(log) + '"\nexec ' + self.ffmpeg +
                        ' "$@"\n')
        tool.chmod(0o755)
        run([str(copy / "decant"), "convert", "-o", str(output), "--", *map(str, movies)],
            env=self.environment)
        parts = log.read_bytes().split(b"\0")[:-1]
        calls = []
        while parts:
            count = int(parts[0])
            calls.append(parts[1:count + 1])
            parts = parts[count + 1:]
        shutil.rmtree(copy)
        log.unlink()
        return calls

    def bare_loop(self, calls):
        """A shell script of the same calls, one after the other."""
        script = self.folder / "bare.sh"
        quoted = lambda text: b"'" + text.replace(b"'", b"'\\''") + b"'"
        with open(script, "wb") as out:
            for call in calls:
                out.write(self.ffmpeg.encode() + b" " + b" ".join(map(quoted, call)) +
                          b" </dev/null >/dev/null 2>&1\n")
        return ["/bin/sh", str(script)]

    def decant(self, movies, output):
        return [str(self.bundle / "decant"), "convert", "-o", str(output), "--", *map(str, movies)]


def emptied(folder):
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir()
    return folder


def timed(command, environment):
    begin = time.monotonic()
    subprocess.run(command, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, check=False)
    return time.monotonic() - begin


def paired(bench, movies, output, rounds):
    """Ratios decant / bare loop, pair by pair, after one warm-up of each."""
    calls = bench.recorded_calls(movies, emptied(output))
    ours, bare = bench.decant(movies, output), bench.bare_loop(calls)
    pairs = []
    for number in range(rounds + 1):
        emptied(output)
        a = timed(ours, bench.environment)
        if len(list(output.iterdir())) != len(movies):
            sys.exit("decant did not convert every movie")
        emptied(output)
        b = timed(bare, bench.environment)
        if number:
            pairs.append((a, b))
    return len(calls), pairs


def cpu_of(pid):
    """Own seconds, and those of children that have ended."""
    fields = Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / TICKS, (int(fields[13]) + int(fields[14])) / TICKS


def memory_of(pid):
    for line in Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1]) / 1024
    return 0.0


def watched(bench, movies, output):
    """CPU and memory (PSS, MiB) of decant while it converts; memory at each finished file."""
    command = bench.decant(movies, output)
    command.insert(2, "--json")
    child = subprocess.Popen(command, env=bench.environment, stdin=subprocess.DEVNULL,
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    memory, start_up, last = [], None, (0.0, 0.0)
    for line in child.stdout:
        event = json.loads(line)["event"]
        try:
            if event == "queued" and start_up is None:
                start_up = cpu_of(child.pid)[0]
            if event == "finished":
                memory.append(memory_of(child.pid))
            last = cpu_of(child.pid)
        except (FileNotFoundError, ProcessLookupError):
            pass
    child.wait()
    return last[0] - (start_up or 0.0), last[1], memory


def row(name, pairs, bar):
    ratios = sorted(a / b for a, b in pairs)
    print(f"| {name} | {statistics.median(a for a, _ in pairs):.2f} s | "
          f"{statistics.median(b for _, b in pairs):.2f} s | {ratios[0]:.3f} / "
          f"**{statistics.median(ratios):.3f}** / {ratios[-1]:.3f} | ≤ {bar} |", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("bundle", nargs="?", default=Path(__file__).parent.parent / "build/release/bundle")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--conversions", type=int, default=1000)
    parser.add_argument("--large-gib", type=float, default=1.0)
    given = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        bench = Bench(given.bundle, folder)
        output = Path(folder, "out")

        movies = []
        for number, audio in enumerate(["aac", "ac3", "libmp3lame", "flac", "libvorbis"] * 6):
            movies.append(Path(folder, f"Episode {number:02}.mkv"))
            bench.make_movie(movies[-1], 20, audio)
        print("| work | decant | bare loop | ratio: least / median / most | bar |\n|---|---|---|---|---|")
        calls, pairs = paired(bench, movies, output, given.rounds)
        row(f"30 small files ({calls} calls of ffmpeg)", pairs, 1.05)

        part, large = Path(folder, "part.mkv"), Path(folder, "Large.mkv")
        bench.make_movie(part, 60, "ac3", "1280x720", "7M")
        times = int(given.large_gib * 2**30 / part.stat().st_size) + 1
        run([bench.ffmpeg, "-y", "-stream_loop", str(times), "-i", str(part), "-c", "copy", str(large)])
        calls, pairs = paired(bench, [large], output, given.rounds)
        row(f"one file of {large.stat().st_size / 2**30:.2f} GiB", pairs, 1.01)
        large.unlink()

        print("\n| decant itself | measured | bar |\n|---|---|---|")
        own, children, _ = watched(bench, movies, emptied(output))
        print(f"| CPU beyond start-up, of its children's | {own:.2f} s of {children:.2f} s = "
              f"{100 * own / children:.2f} % | ≤ 1 % |", flush=True)
        tiny = Path(folder, "tiny.mkv")
        bench.make_movie(tiny, 1, "ac3")
        many = []
        for number in range(given.conversions):
            many.append(Path(folder, f"t{number:04}.mkv"))
            os.link(tiny, many[-1])
        _, _, memory = watched(bench, many, emptied(output))
        tenth = max(1, len(memory) // 10)
        print(f"| memory (PSS) over {len(memory)} conversions | at most {max(memory):.1f} MiB; first tenth "
              f"{statistics.median(memory[:tenth]):.1f}, last tenth {statistics.median(memory[-tenth:]):.1f} "
              "| ≤ 40 MB, flat |")


if __name__ == "__main__":
    main()
