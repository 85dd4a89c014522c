"""Counts the instructions of the main actions, and fails when one takes a tenth more than in the
table counts.json beside this.

    counts_test.py PROGRAM "BUILD_TYPE FLAGS COMPILER VERSION PROCESSOR" [--renew]

A table is of one kind of build and compiler; of another nothing is known, and the test is skipped.
--renew writes what is counted now into the table: do so when an action does more than it did, and
say in the commit why.
"""

import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

TABLE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "counts.json")
SKIPPED = 77
MOST_GROWTH = 1.1
ALLOWED_BUILDS = ("RelWithDebInfo", "Release")


def count(program, action, folder):
    out = os.path.join(folder, "callgrind.out")
    ended = subprocess.run(
        ["valgrind", "--tool=callgrind", "--instr-atstart=no", "--collect-atstart=no",
         f"--callgrind-out-file={out}", program, action],
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    collected = re.search(r"Collected : (\d+)", ended.stdout)
    if ended.returncode != 0 or collected is None or int(collected.group(1)) == 0:
        sys.exit(f"{action} could not be counted:\n{ended.stdout}")
    return int(collected.group(1))


def count_all(program):
    actions = subprocess.run([program], stdout=subprocess.PIPE, text=True, check=True)
    with tempfile.TemporaryDirectory() as folder:
        return {action: count(program, action, folder)
                for action in actions.stdout.splitlines()}


def read_table():
    with open(TABLE, encoding="utf-8") as file:
        return json.load(file)


def renew(key, counts):
    table = read_table() if os.path.exists(TABLE) else {}
    table[key] = counts
    with open(TABLE, "w", encoding="utf-8") as file:
        json.dump(table, file, indent=1, sort_keys=True)
        file.write("\n")


def skip(reason):
    print("Skipped: " + reason)
    sys.exit(SKIPPED)


def compare(known, counts, how_to_renew):
    grown = 0
    for action, now in counts.items():
        before = known.get(action)
        growth = now / before if before else 0
        print(f"{action:16} {now:>12,} instructions, {growth:5.2f} times the table's")
        if before is None or growth > MOST_GROWTH:
            grown += 1
    if set(known) != set(counts) or grown:
        sys.exit(f"Not as in the table, or grown by more than a tenth: {grown}. When that is meant:"
                 f"\n  {how_to_renew}")


def main():
    program, key = sys.argv[1:3]
    if shutil.which("valgrind") is None:
        skip("valgrind is not installed.")
    if not key.startswith(ALLOWED_BUILDS):
        skip(f"a build like this one is not optimised: {key}.")
    if "--renew" in sys.argv:
        renew(key, count_all(program))
        return
    known = read_table().get(key)
    if known is None:
        skip(f"nothing is known of {key}; --renew enters it.")
    compare(known, count_all(program), " ".join(sys.argv[:1] + [program, f'"{key}"', "--renew"]))


if __name__ == "__main__":
    main()
