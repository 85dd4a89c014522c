#!/usr/bin/python3
"""Keeps the translations of the program's texts.

    scripts/translations.py update          brings translations/*.ts up to date with the sources
    scripts/translations.py check [ROOT]    says what is wrong with them

A text that is new in the sources comes into the files unfinished, one that is gone is taken out. To
begin a new language, write LANGUAGE in "update LANGUAGE", "fr" for instance.

"check" prints a line for each text that a file lacks, holds though it is gone, holds unfinished, or
translates with other places (%1) than the English has, and ends with 1 when there is any. A text
whose first value is written as a literal is not found by lupdate as it is looked up.
"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
ROOMS = ["app", "forms", "help", "logic", "data", "tools"]
PLACE = re.compile(r"%[1-9]")


def lupdate():
    """Qt's own folder of tools is not on the path."""
    found = shutil.which("lupdate", path="/usr/lib/qt6/bin") or shutil.which("lupdate")
    return found or sys.exit("lupdate is missing: install the package qt6-l10n-tools")


def update(root, file):
    """What it says of classes that it does not look for is no fault."""
    subprocess.run(
        [lupdate(), "-silent", "-no-obsolete", "-no-sort", "-locations", "none",
         "-extensions", "cpp,h", "-tr-function-alias", "tr+=Tr", *ROOMS, "-ts", file],
        cwd=root, check=True, stderr=subprocess.DEVNULL)


def messages(file):
    """Each English text with its translation; None for one that is not finished."""
    found = {}
    for message in xml.etree.ElementTree.parse(file).iter("message"):
        translation = message.find("translation")
        finished = translation.get("type") is None and translation.text
        found[message.findtext("source")] = translation.text if finished else None
    return found


def with_literal(file):
    """The texts whose first value lupdate takes for a comment."""
    for message in xml.etree.ElementTree.parse(file).iter("message"):
        if message.find("comment") is not None:
            yield message.findtext("source")


def faults(root, file):
    held = messages(file)
    with tempfile.TemporaryDirectory() as folder:
        fresh = pathlib.Path(folder) / file.name
        update(root, fresh)
        needed = messages(fresh)
        yield from (f"has a literal as its first value: {text}" for text in with_literal(fresh))
    yield from (f"lacks: {text}" for text in needed if text not in held)
    yield from (f"is gone: {text}" for text in held if text not in needed)
    for text, translation in held.items():
        if translation is None:
            yield f"is not finished: {text}"
        elif set(PLACE.findall(text)) != set(PLACE.findall(translation)):
            yield f"has other places: {text}"


def check(root):
    wrong = [f"{file.name}: {fault}" for file in sorted((root / "translations").glob("*.ts"))
             for fault in faults(root, file)]
    print("\n".join(wrong) if wrong else "The translations are complete.")
    return 1 if wrong else 0


def main(arguments):
    if arguments[:1] == ["check"]:
        return check(pathlib.Path(arguments[1]).resolve() if len(arguments) > 1 else ROOT)
    if arguments[:1] != ["update"]:
        sys.exit(__doc__)
    files = [ROOT / "translations" / f"veyra_{language}.ts" for language in arguments[1:]]
    for file in files or sorted((ROOT / "translations").glob("*.ts")):
        update(ROOT, file)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
