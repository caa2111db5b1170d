"""What is wrong with the translations: a text without one, or one that does not do the text's work."""
import importlib.machinery
import importlib.util
import re
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts/translations"
PLACEHOLDER = re.compile(r"%(?:%|@|\d|[-0-9.]*(?:ll|l)?[a-zA-Z])|\[APPNAME\]")
OPTION = re.compile(r"(?<![\w-])--?[a-z]+(?:-[a-z]+)*")
MNEMONIC = re.compile(r"&(?!&)(\w)")
COMPLETE = "decant_de.ts"  # other languages may lag behind
HELP_WIDTH = 80  # columns of a terminal


def load_script():
    sys.dont_write_bytecode = True
    loader = importlib.machinery.SourceFileLoader("translations_script", str(SCRIPT))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


def mnemonics(text):
    return [letter.lower() for letter in MNEMONIC.findall(text.replace("&&", ""))]


def differences(text, translation):
    """Why the translation cannot stand where the text stands."""
    ordered = [PLACEHOLDER.findall(each) for each in (text, translation)]
    if "%1" in text:
        ordered = [sorted(each) for each in ordered]  # numbered ones may change places
    if ordered[0] != ordered[1]:
        yield f"has the placeholders {ordered[1]} instead of {ordered[0]}"
    blanks = [re.fullmatch(r"(\s*).*?(\s*)", each, re.DOTALL).groups() for each in (text, translation)]
    if blanks[0] != blanks[1]:
        yield "begins or ends with other blanks or line breaks"
    if sorted(OPTION.findall(text)) != sorted(OPTION.findall(translation)):
        yield "names other options"
    if len(mnemonics(text)) != len(mnemonics(translation)):
        yield f"has the mnemonics {mnemonics(translation)} instead of {mnemonics(text)}"
    if text.count("\n") > 1 and max(map(len, text.splitlines())) <= HELP_WIDTH:
        if max(map(len, translation.splitlines())) > HELP_WIDTH:
            yield "has a line that a terminal breaks"


def menus(form):
    """The texts of each menu and menu bar of a form."""
    tree = ElementTree.parse(form)
    shown = {}
    for kind, wanted in (("action", "text"), ("widget", "title")):
        for element in tree.iter(kind):
            for each in element.findall("property"):
                if each.get("name") == wanted:
                    shown[element.get("name")] = each.findtext("string")
    for widget in tree.iter("widget"):
        if widget.get("class") in ("QMenu", "QMenuBar"):
            entries = [shown.get(entry.get("name")) for entry in widget.findall("addaction")]
            yield widget.get("name"), [entry for entry in entries if entry]


def unmarked(script, root):
    """Calls that are given a variable, in files that mark no texts of tables."""
    for path in script.code_files(root):
        source = path.read_text(encoding="utf-8")
        defines = re.search(r"\b(?:localized|worded|translatable)\(const ", source)
        if not defines and "translatable(" not in source and [] in list(script.marked(source)):
            yield f"{path.relative_to(root)}: a text reaches localized() that no translatable() marks"


def translations(root):
    """Every text has a finished translation that keeps its placeholders, options and blanks."""
    script = load_script()
    texts = script.extracted(root)
    yield from unmarked(script, root)
    for form in sorted((root / "app/resources/ui").glob("*.ui")):
        if ElementTree.parse(form).findtext("class") != script.CONTEXT:
            yield f"{form.relative_to(root)}: its class, the context of its texts, is not {script.CONTEXT}"
    for path in sorted({root / script.CATALOGUES / COMPLETE, *(root / script.CATALOGUES).glob("*.ts")}):
        name = path.relative_to(root)
        known = script.catalogue(path) if path.exists() else {}
        for text in texts if path.name == COMPLETE else []:
            if not known.get(text):
                yield f"{name}: no finished translation of {text!r}; scripts/translations adds it"
        for text in known.keys() - texts.keys():
            yield f"{name}: nothing says {text!r}; scripts/translations drops it"
        for text, translation in known.items():
            for difference in differences(text, translation) if translation else []:
                yield f"{name}: the translation of {text!r} {difference}"
        for form in sorted((root / "app/resources/ui").glob("*.ui")):
            for menu, entries in menus(form):
                letters = [letter for entry in entries for letter in mnemonics(known.get(entry) or "")]
                for letter in sorted({letter for letter in letters if letters.count(letter) > 1}):
                    yield f"{name}: {menu} of {form.name} has the mnemonic {letter!r} twice"
