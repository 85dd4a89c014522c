"""What veyra-data takes for an answer, each beside what the sqlite3 shell takes for the same rows.

    companion_bench.py /path/to/veyra-data

Each program is a process of its own, started anew for every run; both take turns. Printed is the
best of the runs, which is the one that other work on the machine disturbed least.
"""

import os
import subprocess
import sys
import tempfile
import time

RUNS = 15
ROOMS = 50
MONTH = ("SELECT Rooms.Name, DateOfRes, TimeFrom, TimeTo, Event FROM Reserv"
         " JOIN Rooms ON Rooms.ID = RmID WHERE RmID = 3"
         " AND DateOfRes BETWEEN '2014-03-01' AND '2014-03-31' ORDER BY DateOfRes, TimeFrom")
EVERYTHING = "SELECT * FROM Reserv"


def make_calendar(veyra_data, folder, bookings):
    """A calendar with so many bookings that do not overlap, spread over rooms and 4,000 days."""
    subprocess.run([veyra_data, "new", folder], check=True, stdout=subprocess.DEVNULL)
    subprocess.run([veyra_data, "journal", "off", folder], check=True, stdout=subprocess.DEVNULL)
    sql = f"""
        BEGIN;
        WITH n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {ROOMS})
        INSERT INTO Rooms(Name, Active) SELECT 'Room ' || i, i = 1 FROM n;
        WITH n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < {bookings} - 1)
        INSERT INTO Reserv(RmID, Event, DateOfRes, TimeFrom, TimeTo)
        SELECT i % {ROOMS} + 1, 'Guest number ' || i,
               date('2012-01-01', (i / {ROOMS} % 4000) || ' days'),
               i / {ROOMS} / 4000 * 2 + 1, i / {ROOMS} / 4000 * 2 + 2
        FROM n;
        COMMIT;"""
    subprocess.run(["sqlite3", calendar(folder)], input=sql, text=True, check=True)


def calendar(folder):
    return os.path.join(folder, "Calendar.mdb")


def seconds_of(command):
    begin = time.monotonic()
    subprocess.run(command, stdout=subprocess.DEVNULL, check=True)
    return time.monotonic() - begin


def compare(what, command, yardstick, runs=RUNS):
    """Prints how long both take, and how many times the yardstick the command does."""
    pairs = [(seconds_of(command), seconds_of(yardstick)) for _ in range(runs)]
    ours, theirs = (min(times) for times in zip(*pairs))
    print(f"{what:52} {1000 * ours:9.1f} ms {1000 * theirs:9.1f} ms {ours / theirs:7.2f}")


def main():
    veyra_data = sys.argv[1]
    print(f"{'':52} {'veyra-data':>12} {'sqlite3':>12} {'ratio':>7}")
    with tempfile.TemporaryDirectory() as temporary:
        for bookings in (100_000, 1_000_000):
            folder = os.path.join(temporary, str(bookings))
            make_calendar(veyra_data, folder, bookings)
            compare(f"list a month of one room out of {bookings:,}",
                    [veyra_data, "list", folder, "--facility", "Room 3", "--month", "--on",
                     "3/1/2014"],
                    ["sqlite3", calendar(folder), MONTH])
            compare(f"check {bookings:,}, beside reading them", [veyra_data, "check", folder],
                    ["sqlite3", calendar(folder), EVERYTHING],
                    runs=5)


if __name__ == "__main__":
    main()
