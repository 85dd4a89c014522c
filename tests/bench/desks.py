"""How many bookings desks make on one server, beside pgbench with the same inserts by as many
clients; then what a month and a booking take one desk among all of them.

    tests/bench/desks.py BUILD_FOLDER [--desks 20] [--rows 0]

BUILD_FOLDER is a build with VEYRA_BENCH. --rows fills the calendar before. A private server is
made for it, which goes afterwards.
"""

import argparse
import os
import pathlib
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tests" / "desks"))

from office import Office  # noqa: E402

BOOKINGS = 6000
RUNS = 3

COLUMNS = '"RmID", "Event", "DateOfRes", "TimeFrom", "TimeTo", "MultKey"'
INSERT = f"""\\set n :n + 1
\\set slot 1 + :n % 48
\\set room 1 + :client_id
\\set day :first + :n / 48
INSERT INTO veyra."Reserv" ({COLUMNS})
  VALUES (:room, 'guest', date '2030-01-01' + :day::int, :slot, :slot, 0);
"""

FILL = f"""ALTER TABLE veyra."Reserv" DISABLE TRIGGER USER;
INSERT INTO veyra."Reserv" ({COLUMNS})
  SELECT 1 + i % 500, 'Guest number ' || i, date '1999-01-01' + (i / 500 % 20000)::int,
    1 + i / 10000000 * 2, 2 + i / 10000000 * 2, 1 FROM generate_series(0, @rows - 1) AS i;
ALTER TABLE veyra."Reserv" ENABLE TRIGGER USER;
ANALYZE veyra."Reserv";"""


def newest_pgbench():
    """Where the server's own programs lie; they are on no path."""
    return sorted(pathlib.Path("/usr/lib/postgresql").glob("*/bin/pgbench"))[-1]


def bookings_of_desks(office, count):
    """How many bookings a second so many desks make."""
    each = BOOKINGS // count
    desks = office.open_desks(count, each, "apart")
    begun = time.monotonic()
    for desk in desks:
        desk.go_on()
    office.attend(lambda desk, line: None)
    lasted = time.monotonic() - begun
    made = sum(len(desk.told("done", "book")) for desk in desks)
    if made != each * count:
        raise SystemExit(f"{made} bookings instead of {each * count}")
    office.sql("DELETE FROM veyra.\"Reserv\" WHERE \"MultKey\" = 0")
    return made / lasted


def bookings_of_pgbench(office, count, run):
    """The same by pgbench, on other days."""
    script = os.path.join(office.folder, "insert.sql")
    pathlib.Path(script).write_text(INSERT, encoding="utf-8")
    answer = subprocess.run(
        [newest_pgbench(), "-n", "-M", "prepared", "-c", str(count), "-j", "2",
         "-t", str(BOOKINGS // count), "-D", "n=-1", "-D", f"first={10000 * (run + 1)}",
         "-f", script,
         "-h", office.server, "-U", "veyra", "postgres"],
        check=True, stdout=subprocess.PIPE, encoding="utf-8").stdout
    tps = [line for line in answer.splitlines() if line.startswith("tps = ")]
    return float(tps[-1].split()[2])


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--desks", type=int, default=20)
    parser.add_argument("--rows", type=int, default=0)
    options = parser.parse_args()
    with Office(options.build / "bench" / "desk", options.build / "app" / "veyra-data") as office:
        office.sql(FILL.replace("@rows", str(options.rows)))
        for run in range(RUNS):
            yardstick = bookings_of_pgbench(office, options.desks, run)
            desks = bookings_of_desks(office, options.desks)
            print(f"{options.desks} desks: {desks:.0f} bookings a second; pgbench:"
                  f" {yardstick:.0f}; ratio {desks / yardstick:.2f}", flush=True)
        office.open_desks(options.desks, 1)
        print(f"One desk among {options.desks} others that have the calendar open:", flush=True)
        subprocess.run([options.build / "bench" / "shared_month"], check=True,
                       env={**os.environ,
                            "VEYRA_CALENDAR": os.path.join(office.folder, "Calendar.mdb")})


if __name__ == "__main__":
    main()
