#!/usr/bin/env python3
"""Rules about the sources that a compiler does not hold. Each prints what breaks it and exits with 1.

usage: hygiene.py RULE SOURCE_FOLDER
"""
import os
import re
import sys
from pathlib import Path

from translations import translations

HARD_CAP = 400  # lines of a source file; more means that it tells two things

# Which folders a folder may include from, besides itself. The arrows point one way.
ARROWS = {
    "Ostrak/Platform": [],
    "Ostrak/Ostrak": ["Ostrak/Platform"],
    "Ostrak/Platform/Real": ["Ostrak/Ostrak", "Ostrak/Platform"],
    "Ostrak/Network": ["Ostrak/Ostrak", "Ostrak/Platform"],
    "Ostrak/Desktop": ["Ostrak/Ostrak", "Ostrak/Platform"],
    "Ostrak/Fetch": ["Ostrak/Desktop", "Ostrak/Network", "Ostrak/Ostrak", "Ostrak/Platform"],
    "Ostrak/Web": ["Ostrak/Desktop"],
    "app/probe": ["Ostrak/Ostrak", "Ostrak/Platform"],
    "app/conversion": ["app/probe", "Ostrak/Ostrak", "Ostrak/Platform"],
    "app/controller": ["app/conversion", "app/probe", "Ostrak/Ostrak", "Ostrak/Platform"],
    "app/cli": ["app/controller", "app/conversion", "app/probe", "Ostrak/Ostrak", "Ostrak/Platform"],
    "app/window": ["app/controller", "app/conversion", "app/probe", "Ostrak/Desktop", "Ostrak/Ostrak",
                   "Ostrak/Platform"],
}
WINDOWLESS = ["Ostrak/Ostrak", "Ostrak/Platform", "Ostrak/Network", "app/probe", "app/conversion",
              "app/controller", "app/cli"]
WINDOW_HEADERS = re.compile(r"^Q(Widget|Application|GuiApplication|MainWindow|Dialog|MessageBox|FileDialog|"
                            r"Menu|Label|PushButton|Icon|Pixmap|Image|Font|Color|DesktopServices)$")
INCLUDE = re.compile(r'^\s*#include\s+([<"])([^>"]+)[>"]')


def sources(root, *tops):
    for top in tops:
        for path in sorted((root / top).rglob("*")):
            if path.suffix in (".cpp", ".h") and path.is_file():
                yield path


def room(relative):
    """The folder of ARROWS that a file lies in: the longest that its path begins with."""
    fitting = [folder for folder in ARROWS if relative.startswith(folder + "/")]
    return max(fitting, key=len) if fitting else None


def includes(path):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        found = INCLUDE.match(line)
        if found:
            yield number, found.group(1), found.group(2)


def layers(root):
    """Includes follow the arrows, and no room without windows sees a widget."""
    owner = {}
    for path in sources(root, "Ostrak", "app"):
        relative = path.relative_to(root).as_posix()
        if path.suffix == ".h" and room(relative):
            owner[path.name] = room(relative)
    for path in sources(root, "Ostrak", "app"):
        relative = path.relative_to(root).as_posix()
        here = room(relative)
        if not here:
            continue
        for number, kind, name in includes(path):
            there = owner.get(os.path.basename(name))
            if kind == '"' and there and there != here and there not in ARROWS[here]:
                yield f"{relative}:{number}: {here} must not include {name} of {there}"
            if here in WINDOWLESS and WINDOW_HEADERS.match(name):
                yield f"{relative}:{number}: a room without windows includes <{name}>"


def length(root):
    """No file grows past the hard cap."""
    for path in sources(root, "Ostrak", "app", "tests", "bench", "fuzz"):
        count = len(path.read_text(encoding="utf-8").splitlines())
        if count > HARD_CAP:
            yield f"{path.relative_to(root)}: {count} lines, at most {HARD_CAP}"


def long_includes(root):
    """<QtWidgets/QWidget> compiles where only Qt Core is linked; <QWidget> shows the missing arrow."""
    for path in sources(root, "Ostrak", "app", "tests", "bench", "fuzz"):
        for number, _, name in includes(path):
            if re.match(r"Qt[A-Z][A-Za-z]+/", name):
                yield f"{path.relative_to(root)}:{number}: write <{name.split('/', 1)[1]}>"


def sleeps(root):
    """Tests wait for a condition, never for time."""
    pattern = re.compile(r"\bsleep_" + r"for\b|\bqSleep\b|QThread::u?m?sleep|\bqWait\(|\busleep\(|\bnanosleep\(")
    for path in sources(root, "tests"):
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            if pattern.search(line):
                yield f"{path.relative_to(root)}:{number}: {line.strip()}"


def wall_clock(root):
    """Progress, time left and waiting are measured by a clock that nobody sets: the system's may jump."""
    pattern = re.compile(r"\b(system_clock|currentDateTime(Utc)?|currentTime|currentMSecsSinceEpoch|"
                         r"currentSecsSinceEpoch|gettimeofday|CLOCK_REALTIME)\b|\bstd::time\(")
    for path in sources(root, "app"):
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            if pattern.search(line):
                yield f"{path.relative_to(root)}:{number}: {line.strip()}"


def leftovers(root):
    """Nothing is skipped, nothing is left for later."""
    pattern = re.compile("|".join(["Q" + "SKIP", "TO" + "DO", "FIX" + "ME", r"\bX" + r"XX\b"]))
    for path in sources(root, "Ostrak", "app", "tests", "bench", "fuzz"):
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            if pattern.search(line):
                yield f"{path.relative_to(root)}:{number}: {line.strip()}"


def names(root):
    """A header stands for one thing: no two rooms have one of the same name."""
    seen = {}
    for path in sources(root, "Ostrak", "app"):
        if path.suffix == ".h":
            if path.name in seen:
                yield f"{path.relative_to(root)}: {seen[path.name]} has that name too"
            seen[path.name] = path.relative_to(root)


def run_bits(root):
    """What README and CI call can be called."""
    for name in ["scripts/setup", "scripts/run", "scripts/test", "scripts/check", ".ci/run"]:
        if not os.access(root / name, os.X_OK):
            yield f"{name}: missing, or without its run bit"


RULES = {"layers": layers, "length": length, "long-includes": long_includes, "sleeps": sleeps,
         "wall-clock": wall_clock, "leftovers": leftovers, "names": names, "run-bits": run_bits,
         "translations": translations}


def main():
    if len(sys.argv) != 3 or sys.argv[1] not in RULES:
        print(__doc__, "rules:", ", ".join(RULES), file=sys.stderr)
        return 2
    broken = list(RULES[sys.argv[1]](Path(sys.argv[2])))
    print("\n".join(broken))
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
