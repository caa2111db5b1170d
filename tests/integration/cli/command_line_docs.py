#!/usr/bin/env python3
"""Runs every sample run of docs/command-line.md and holds what it shows against what happens.

usage: command_line_docs.py DOCUMENT BUNDLE

A block that is fenced with ```console holds commands ("$ …"), for each of them what it prints (standard
output and standard error as they come) and its exit status ("status N"). Each block begins in a fresh folder
of samples, with a fresh home. "…" stands for any text within a line, and alone on a line for any lines.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

HOME = "/home/you"
FILMS = "/films"


def ffmpeg(bundle, *arguments):
    subprocess.run([str(bundle / "resources/ffmpeg"), "-v", "error", "-y", "-nostdin", *arguments], check=True)


def picture(size="320x240", seconds=2):
    return ["-f", "lavfi", "-i", f"testsrc=size={size}:rate=25:duration={seconds}"]


def tone(seconds=2, layout="stereo"):
    return ["-f", "lavfi", "-i", f"sine=frequency=440:sample_rate=48000:duration={seconds},"
            f"aformat=channel_layouts={layout}"]


def make_samples(bundle, folder):
    """The samples that the document names."""
    h264 = ["-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt", "yuv420p"]
    (folder / "series").mkdir()
    (folder / "film.srt").write_text("1\n00:00:00,200 --> 00:00:01,500\nGood evening.\n")
    (folder / "notes.txt").write_text("To be watched: film.mkv\n")
    (folder / "broken.mkv").write_text("no movie\n")
    ffmpeg(bundle, *picture(), *tone(), *tone(layout="5.1"), "-i", str(folder / "film.srt"), "-map", "0", "-map", "1",
           "-map", "2", "-map", "3", *h264, "-c:a:0", "aac", "-c:a:1", "ac3", "-c:s", "srt",
           "-metadata:s:a:0", "language=ger", "-metadata:s:a:1", "language=eng", str(folder / "film.mkv"))
    ffmpeg(bundle, *picture(), *h264, str(folder / "silent.mkv"))
    whole = (folder / "silent.mkv").read_bytes()
    (folder / "cut.mkv").write_bytes(whole[:len(whole) * 6 // 10])
    ffmpeg(bundle, *picture("1936x64"), *tone(), *h264, "-c:a", "aac", str(folder / "wide.mkv"))
    ffmpeg(bundle, *picture(), "-c:v", "libvpx", str(folder / "old.webm"))
    for name in ("one.mkv", "two.mkv", ".hidden.mkv"):
        shutil.copy(folder / "silent.mkv", folder / "series" / name)
    # So long that it is still being converted when it is interrupted.
    ffmpeg(bundle, *picture("32x32", 10), *tone(3600), *h264, "-c:a", "flac", "-compression_level", "0",
           str(folder / "long.mkv"))


class Command:
    def __init__(self, line, number):
        self.line, self.number, self.shown, self.status = line, number, [], None


def blocks_of(document):
    """The commands of each block, in order."""
    blocks, block = [], None
    for number, line in enumerate(document.read_text(encoding="utf-8").splitlines(), 1):
        if block is None:
            if line == "```console":
                block = []
        elif line == "```":
            blocks.append(block)
            block = None
        elif line.startswith("$ "):
            block.append(Command(line[2:], number))
        elif re.fullmatch(r"status \d+", line):
            block[-1].status = int(line.split()[1])
        else:
            block[-1].shown.append(line)
    return blocks


def pattern_of(shown):
    """What is shown, as a regular expression for what is printed."""
    parts = []
    for line in shown:
        if line == "…":
            parts.append(r"(?:.*\n)*?")
        else:
            parts.append(r"[^\n]*?".join(re.escape(piece) for piece in line.split("…")) + r"\n")
    return "".join(parts)


class Runner:
    def __init__(self, bundle, scratch):
        self.bundle, self.scratch, self.count = bundle, scratch, 0
        self.samples = scratch / "samples"
        self.samples.mkdir()
        make_samples(bundle, self.samples)

    def run(self, block):
        """What is wrong with a block, as sentences."""
        self.count += 1
        place = self.scratch / f"block{self.count}"
        films, home = place / "films", place / "home"
        shutil.copytree(self.samples, films, copy_function=os.link)
        home.mkdir()
        environment = {key: value for key, value in os.environ.items()
                       if key not in ("DISPLAY", "WAYLAND_DISPLAY", "LANGUAGE", "LC_ALL", "LC_MESSAGES",
                                      "XDG_CONFIG_HOME", "XDG_DATA_HOME")}
        environment.update(HOME=str(home), LANG="C.UTF-8", PATH=f"{self.bundle}:{environment['PATH']}",
                           DBUS_SESSION_BUS_ADDRESS="unix:path=/nonexistent",
                           DBUS_SYSTEM_BUS_ADDRESS="unix:path=/nonexistent")
        for command in block:
            done = subprocess.run(["/bin/bash", "-c", command.line], cwd=films, env=environment, check=False,
                                  stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            printed = done.stdout.decode("utf-8", "backslashreplace")
            for real, shown in ((films, FILMS), (home, HOME), (self.bundle, "/usr/lib/decant")):
                printed = printed.replace(str(real), shown)
            if command.status is None:
                yield f"line {command.number}: no status is given for: {command.line}"
            elif done.returncode != command.status:
                yield f"line {command.number}: status {done.returncode}, not {command.status}: {command.line}"
            if not re.fullmatch(pattern_of(command.shown), printed):
                yield (f"line {command.number}: {command.line}\n--- the document shows\n" + "\n".join(command.shown) +
                       f"\n--- it prints\n{printed}---")


def main():
    document, bundle = Path(sys.argv[1]), Path(sys.argv[2]).resolve()
    blocks = blocks_of(document)
    with tempfile.TemporaryDirectory() as scratch:
        runner = Runner(bundle, Path(scratch).resolve())
        wrong = [sentence for block in blocks for sentence in runner.run(block)]
    commands = sum(len(block) for block in blocks)
    print("\n".join(wrong))
    print(f"{commands} sample runs, {len(wrong)} differ")
    return 1 if wrong or commands == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
