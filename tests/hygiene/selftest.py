#!/usr/bin/env python3
"""Each rule of hygiene.py finds what it is there to find, in a small tree that breaks all of them."""
import sys
import tempfile
from pathlib import Path

import hygiene


def catalogue(*messages):
    """A .ts file of (text, translation) pairs; one without a translation is unfinished."""
    lines = [f"<message><source>{text}</source><translation" +
             (f">{translation}" if translation else ' type="unfinished">') + "</translation></message>"
             for text, translation in messages]
    return f"<TS><context><name>decant</name>{''.join(lines)}</context></TS>"


def form(context, *entries):
    """A .ui file with a menu of these entries."""
    names = [f"action{number}" for number in range(len(entries))]
    actions = [f'<action name="{name}"><property name="text"><string>{entry}</string></property></action>'
               for name, entry in zip(names, entries)]
    added = [f'<addaction name="{name}"/>' for name in names]
    return (f"<ui><class>{context}</class><widget>{''.join(actions)}<string notr='true'>Key</string>"
            f"<widget class='QMenu' name='menu'>{''.join(added)}</widget></widget></ui>")


CATALOGUE = "app/resources/translations/decant_de.ts"
BROKEN = {
    "Ostrak/Ostrak/Core.h": '#include <QWidget>\n#include "Window.h"\n',
    "app/window/Window.h": '#include <QtWidgets/QWidget>\n',
    "app/cli/Window.h": "\n" * 500,
    "tests/unit/tst_a.cpp": "QTest::" + "qWait(5);\n// TO" + "DO later\n",
    "app/cli/Texts.cpp": """localized(u"Missing"_s); worded(u"Un" // adjacent
                              u"finished"_s, u"no text"_s); translatable("%@ of %i"); localized(text);
                              localized(wide ? u"Blank "_s : u"Open -r"_s); localized(uR"(&Menu)"_s);
                              localized(u"a\\nb\\n"_s)""",
    "app/cli/Variable.cpp": "localized(text)",
    "app/conversion/Left.cpp": "const auto now = QDateTime::currentDateTime();\n",
    "app/resources/ui/Form.ui": form("other", "&amp;New", "&amp;Old"),
    CATALOGUE: catalogue(("Unfinished", ""), ("%@ of %i", "%i von %@"), ("Blank ", "Leer"), ("Gone", "Weg"),
                         ("Open -r", "Öffnen"), ("&amp;Menu", "Menü"), ("&amp;New", "&amp;Neu"),
                         ("&amp;Old", "&amp;Nicht mehr neu"),
                         ("a\nb\n", "a\n" + "b" * 81 + "\n")),
}
SOUND = {
    "app/window/Window.h": '#include <QWidget>\n#include "Core.h"\n',
    "Ostrak/Ostrak/Core.h": "#include <QString>\n",
    "app/conversion/Left.cpp": "const auto now = std::chrono::steady_clock::now();\n",
    "app/cli/Texts.cpp": """// localized(u"in a comment"_s)
                            localized(u"%1 \\"and\\" %2\\n\\u2026"_s); translatable("A" "B"); localized(table);
                            localized(u"%@ 1"_s); log(u"no text"_s)""",
    "app/resources/ui/Form.ui": form("decant", "&amp;New", "&amp;Old", "Fish &amp;&amp; Chips"),
    CATALOGUE: catalogue(("%1 \"and\" %2\n…", "%2 und %1\n…"), ("AB", "ab"), ("&amp;New", "&amp;Neu"),
                         ("&amp;Old", "&amp;Alt"), ("Fish &amp;&amp; Chips", "Fisch und Pommes")),
}
EXPECTED = {"layers": 2, "length": 1, "long-includes": 1, "sleeps": 1, "wall-clock": 1, "leftovers": 1,
            "names": 1, "run-bits": 5, "translations": 11}


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
