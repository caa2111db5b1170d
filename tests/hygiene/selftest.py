#!/usr/bin/env python3
"""Each rule of hygiene.py finds what it is there to find, in a small tree that breaks all of them."""
import sys
import tempfile
from pathlib import Path

import hygiene

BROKEN = {
    "Ostrak/Ostrak/Core.h": '#include <QWidget>\n#include "Window.h"\n',
    "app/window/Window.h": '#include <QtWidgets/QWidget>\n',
    "app/cli/Window.h": "\n" * 500,
    "tests/unit/tst_a.cpp": "QTest::" + "qWait(5);\n// TO" + "DO later\n",
}
SOUND = {
    "app/window/Window.h": '#include <QWidget>\n#include "Core.h"\n',
    "Ostrak/Ostrak/Core.h": "#include <QString>\n",
}
EXPECTED = {"layers": 2, "length": 1, "long-includes": 1, "sleeps": 1, "leftovers": 1, "names": 1,
            "run-bits": 5}


def tree(folder, files):
    for name, text in files.items():
        path = Path(folder) / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
    return Path(folder)


def main():
    failed = 0
    with tempfile.TemporaryDirectory() as broken, tempfile.TemporaryDirectory() as sound:
        tree(broken, BROKEN)
        tree(sound, SOUND)
        for rule, expected in EXPECTED.items():
            found = list(hygiene.RULES[rule](Path(broken)))
            if len(found) != expected:
                print(f"{rule}: found {len(found)} instead of {expected}: {found}")
                failed = 1
            quiet = list(hygiene.RULES[rule](Path(sound))) if rule != "run-bits" else []
            if quiet:
                print(f"{rule}: speaks up where nothing is wrong: {quiet}")
                failed = 1
    return failed


if __name__ == "__main__":
    sys.exit(main())
