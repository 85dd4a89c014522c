#!/usr/bin/python3
"""Holds that what the documents name is there: files, folders, pictures, and names of the sources.

    scripts/check_docs.py DOCUMENT...

Run it at the root of the tree. Looks at what stands between backquotes and at what links lead to. Prints
a line for each name that leads nowhere; ends with 1 when there is any.
"""

import pathlib
import re
import sys

FLOORS = ("app", "data", "forms", "help", "logic", "tests", "tools")
QUOTED = re.compile(r"`([^`\n]+)`")
LINK = re.compile(r"\]\(([^)#:]+)\)")
PATH = re.compile(r"[\w.-]+(/[\w.-]+)*/?")
NAME = re.compile(r"[A-Za-z]\w*(::\w+)*")
TOP_LEVEL = {path.name for path in pathlib.Path(".").iterdir() if not path.name.startswith("build")}


def words_of_sources():
    words = set()
    for floor in FLOORS:
        for path in pathlib.Path(floor).rglob("*"):
            if path.suffix in (".h", ".cpp"):
                words.update(re.findall(r"\w+", path.read_text(encoding="utf-8")))
    return words


def is_path(text):
    return bool(PATH.fullmatch(text)) and text.split("/")[0] in TOP_LEVEL


def is_name(text):
    """A name of the sources has a capital within, as in frmDay, or is qualified."""
    return bool(NAME.fullmatch(text)) and ("::" in text or re.search("[a-z][A-Z]|^[A-Z][a-z]", text))


def leads_nowhere(text, words):
    if is_path(text):
        return not pathlib.Path(text).exists()
    return is_name(text) and not words.issuperset(text.split("::"))


def main():
    words = words_of_sources()
    lost = []
    looked_at = 0
    for document in sys.argv[1:]:
        lines = pathlib.Path(document).read_text(encoding="utf-8").splitlines()
        for number, line in enumerate(lines, 1):
            for text in QUOTED.findall(line):
                looked_at += is_path(text) or bool(is_name(text))
                if leads_nowhere(text, words):
                    lost.append(f"{document}:{number}: {text} is not there")
            for target in LINK.findall(line):
                looked_at += 1
                if not (pathlib.Path(document).parent / target).exists():
                    lost.append(f"{document}:{number}: the link to {target} leads nowhere")
    print("\n".join(lost) if lost else f"{looked_at} files and names, all of them there")
    return 1 if lost else 0


if __name__ == "__main__":
    sys.exit(main())
