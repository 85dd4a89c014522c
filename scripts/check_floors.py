#!/usr/bin/python3
"""Holds the shape of the house: which folder may include which, and no circles.

    scripts/check_floors.py [ROOT]

Prints a line for each include that runs the wrong way, and each circle of files; ends with 1 when
there is any.
"""

import pathlib
import re
import shutil
import subprocess
import sys

# Each room with the rooms that it may include, beside itself. A file belongs to the longest name
# that its path begins with.
ROOMS = {
    "data": [],
    "data/sqlite": ["data"],
    "data/sqlite/salvage": ["data", "data/sqlite"],
    "data/access/format": ["data"],
    "data/access/pages": ["data", "data/access/format"],
    "data/access/read": ["data", "data/access/format", "data/access/pages"],
    "data/access/write": ["data", "data/access/format", "data/access/pages", "data/access/read"],
    "data/access/check": ["data", "data/access/format", "data/access/pages", "data/access/read",
                          "data/access/write"],
    "data/access/salvage": ["data", "data/access/format", "data/access/pages", "data/access/read",
                            "data/access/write"],
    "data/access": ["data", "data/access/format", "data/access/pages", "data/access/read",
                    "data/access/write", "data/access/check"],
    "data/postgres": ["data"],
    "logic": ["data"],
    "help": ["data", "logic", "forms/widgets"],
    "tools": ["data", "logic"],
    "tools/care": ["data", "logic", "tools"],
    "tools/exchange": ["data", "logic", "tools"],
    "tools/companion": ["data", "logic", "tools", "tools/care", "tools/exchange"],
    "forms": ["data", "logic"],
    "forms/widgets": ["data", "logic", "forms"],
    "forms/print": ["data", "logic", "forms", "forms/widgets"],
    "forms/month": ["data", "logic", "forms", "forms/print", "forms/widgets"],
    "app": ["data", "logic", "help", "forms"],
}
WINDOWS = ["about", "board", "day", "dayviewer", "find", "free", "multiday", "settings"]
for window in WINDOWS:
    ROOMS[f"forms/{window}"] = ["data", "logic", "forms", "forms/widgets"]
ROOMS["app"] += [room for room in ROOMS if room.startswith("forms/")]

# The doors of the engines, which stores are opened and made by.
DOORS = {
    "data/announced_store.cpp": ["data/access"],
    "data/open_store.cpp": ["data/sqlite", "data/access", "data/postgres"],
    "data/create_store.cpp": ["data/sqlite", "data/access", "data/access/write"],
    "data/shared_calendar.cpp": ["data/postgres"],
    "data/salvage_file.cpp": ["data/sqlite/salvage", "data/access/salvage"],
}

# The floors that know no Qt, but for the files named qt_*.
QT_FLOORS = ("app/",)
INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<(Q[^>]+|Qt[^>]*)>)', re.MULTILINE)


def room_of(path):
    fitting = [room for room in ROOMS if path.startswith(room + "/")]
    return max(fitting, key=len, default=None)


def may_include(path, room, target_room):
    if target_room == room or target_room in ROOMS[room]:
        return True
    return target_room in DOORS.get(path, [])


def may_know_qt(path):
    return path.startswith(QT_FLOORS) or pathlib.PurePath(path).name.startswith("qt_")


def tracked(root):
    """None where there is no git, or no history."""
    if shutil.which("git") is None:
        return None
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "*.h", "*.cpp"], cwd=root,
                            check=False, capture_output=True, text=True)
    return listed.stdout.split() if listed.returncode == 0 else None


def sources(root):
    names = tracked(root)
    if names is None:
        names = [str(path.relative_to(root)) for path in root.rglob("*") if path.suffix in (".h", ".cpp")]
    return [name for name in names if room_of(name) and (root / name).exists()]


def wrong_ways(path, included, qt_included):
    room = room_of(path)
    for target in included:
        target_room = room_of(target)
        if target_room is None:
            yield f"{path} includes {target}, which is on no floor of the program"
        elif not may_include(path, room, target_room):
            yield f"{path} includes {target}: {room} may not use {target_room}"
    if qt_included and not may_know_qt(path):
        yield f"{path} includes <{qt_included[0]}>: only qt_* files and app/ know Qt"


def circles(graph):
    """The circles of files that include each other, each once."""
    state, trail, found = {}, [], []

    def visit(path):
        state[path] = "open"
        trail.append(path)
        for target in graph.get(path, []):
            if state.get(target) == "open":
                found.append(" -> ".join(trail[trail.index(target):] + [target]))
            elif target not in state:
                visit(target)
        trail.pop()
        state[path] = "done"

    for path in graph:
        if path not in state:
            visit(path)
    return found


def units(graph):
    """The same arrows between a header and its source taken as one."""
    joined = {}
    for path, targets in graph.items():
        unit = path.rsplit(".", 1)[0]
        joined.setdefault(unit, set()).update(target.rsplit(".", 1)[0] for target in targets)
    return {unit: sorted(targets - {unit}) for unit, targets in joined.items()}


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve()
    graph, problems = {}, []
    for path in sources(root):
        matches = INCLUDE.findall((root / path).read_text(encoding="utf-8"))
        own = [match[0] for match in matches if match[0]]
        graph[path] = [target for target in own if room_of(target)]
        problems += wrong_ways(path, own, [match[1] for match in matches if match[1]])
    problems += [f"a circle: {circle}" for circle in circles(units(graph))]
    print("\n".join(problems) if problems else f"{len(graph)} files, no arrow that runs the wrong way")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
