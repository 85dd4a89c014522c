"""The program is killed between any two calls that write to its disk, or in the middle of a write,
while it books a series, deletes one, or deletes a facility. When it is started again the calendar is
sound, what was done by then is done, in its order, and nothing is half done.

VEYRA_KILLS=N kills it N times in each of these on each kind of file, spread over all the points.
"""

import csv
import io
import os
import shutil
import subprocess
import tempfile
import unittest
from datetime import date, timedelta

from desk import date_text
from desk_test import VEYRA_DATA, DeskTest, main
from disk_meter import Meter

KILLS = int(os.environ.get("VEYRA_KILLS") or 1)
DISK = os.environ.get("VEYRA_DISK", "")  # the library that counts the calls and kills
DATES = 40
FIRST_SLOT, LAST_SLOT = 12, 13
FROM, TO = "05:30", "06:30"
FACILITY, NAME = "Studio", "Chess Club"


@unittest.skipUnless(DISK, "VEYRA_DISK does not name the library")
class KilledEverywhereTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.day = date.today().replace(day=15)
        self.prepared = tempfile.mkdtemp(prefix="veyra-prepared-")
        self.addCleanup(shutil.rmtree, self.prepared)
        self.meter = Meter(self.file("meter"))

    def planned(self):
        return [(self.day + timedelta(days=n)).isoformat() for n in range(DATES)]

    def data(self, *words, passing=(0,)):
        ended = subprocess.run([VEYRA_DATA, *words], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                               check=False)
        self.assertIn(ended.returncode, passing, ended.stdout)
        return ended.stdout

    def prepare(self, kind, with_series):
        shutil.rmtree(self.data_folder)
        self.data("new", self.data_folder, "--sample", *(["--access"] if kind == "access" else []))
        if with_series:
            series = self.file("series.csv")
            with open(series, "w", encoding="utf-8", newline="") as file:
                lines = csv.writer(file)
                lines.writerow(["Facility", "Date", "From", "To", "Name", "Series"])
                lines.writerows([FACILITY, day, FROM, TO, NAME, "20260305093000"]
                                for day in self.planned())
            self.data("import", series, self.data_folder)
        shutil.rmtree(self.prepared)
        shutil.copytree(self.data_folder, self.prepared)

    def rows(self):
        text = self.data("export", "-", self.data_folder, "--format", "csv")
        return [tuple(row) for row in csv.reader(io.StringIO(text))][1:]

    def facilities(self):
        return self.data("show", os.path.join(self.data_folder, "Calendar.mdb")).split("Rooms", 1)[1].splitlines()[0]

    def begin_anew(self):
        shutil.rmtree(self.data_folder)
        shutil.copytree(self.prepared, self.data_folder)
        self.meter.kill_after(0)
        self.start(LD_PRELOAD=DISK, VEYRA_DISK_FOLDER=self.data_folder,
                   VEYRA_DISK_METER=self.meter.path)
        self.desk.choose(FACILITY)

    def end(self):
        self.desk.process.terminate()
        self.assertEqual(0, self.desk.exit_status())

    def kill_in(self, kind, ask, answer, is_done, check):
        """Kills the program after the question that `ask` leads to was answered; check(rows) returns
        how many rows were done."""
        self.begin_anew()
        ask()
        before = self.meter.steps()
        self.desk.press(answer)
        is_done()
        steps = self.meter.steps() - before
        self.end()
        done = check(self.rows())
        self.assertLess(0, done)
        earlier = 0
        for kill in range(KILLS):
            # A single kill lies in the middle.
            point = 1 + (kill * (steps - 1) // (KILLS - 1) if KILLS > 1 else steps // 2)
            with self.subTest(kind=kind, point=point, of=steps):
                self.begin_anew()
                ask()
                self.meter.kill_after(point)
                self.desk.press(answer)
                self.assertEqual(-9, self.desk.exit_status())
                self.start()
                self.end()
                self.data("check", self.data_folder)
                now = check(self.rows())
                self.assertLessEqual(earlier, now)
                self.assertLessEqual(now, done)
                earlier = now
        print(f"{kind}: {KILLS} kills at {steps} points", end=" ", flush=True)

    def on_each_kind(self, with_series, kill):
        for kind in ("sqlite", "access"):
            self.prepare(kind, with_series)
            kill(kind, self.rows())

    def test_while_a_series_is_booked(self):
        def kill(kind, before):
            def check(rows):
                booked = [row for row in rows if row not in before]
                self.assertEqual(before, [row for row in rows if row in before])
                self.assertEqual(self.planned()[:len(booked)], [row[1] for row in booked])
                self.assertLessEqual(len({row[5] for row in booked}), 1)
                self.assertLessEqual({row[4] for row in booked}, {NAME})
                return len(booked)

            self.kill_in(kind, self.ask_for_series, "OK",
                         lambda: self.assert_message(f"{DATES} Booking(s) Made."), check)

        self.on_each_kind(False, kill)

    def test_while_a_series_is_deleted(self):
        def kill(kind, before):
            def check(rows):
                deleted = [row for row in before if row not in rows]
                self.assertEqual([row for row in before if row in rows], rows)
                self.assertEqual(self.planned()[:len(deleted)], [row[1] for row in deleted])
                self.assertLessEqual({row[4] for row in deleted}, {NAME})
                return len(deleted)

            self.kill_in(kind, self.ask_for_deletion, "Yes",
                         lambda: self.assert_message(f"{DATES} Bookings Deleted."), check)

        self.on_each_kind(True, kill)

    def test_while_a_facility_is_deleted(self):
        def kill(kind, before):
            all_facilities = self.facilities()

            def check(rows):
                deleted = [row for row in before if row not in rows]
                self.assertEqual([row for row in before if row in rows], rows)
                self.assertLessEqual({row[0] for row in deleted}, {FACILITY})
                if FACILITY in {row[0] for row in rows}:
                    self.assertEqual(all_facilities, self.facilities())
                return len(deleted)

            self.kill_in(kind, self.ask_for_deletion_of_facility, "Yes",
                         lambda: self.desk.wait(
                             lambda: FACILITY not in self.desk.labels(), "another facility"), check)

        self.on_each_kind(True, kill)

    def ask_for_series(self):
        self.desk.open_day(self.day)
        self.desk.click("Multiple Booking")
        self.desk.front_window("Multiple Day Booking")
        self.desk.click("Ck ALL")
        self.desk.click_on(self.desk.find("To", "text"))
        self.desk.type(date_text(self.day + timedelta(days=DATES - 1)))
        self.desk.click("Close")
        self.assert_message_has("Days will be Scheduled")
        self.desk.press("OK")
        self.desk.front_window(f"  {date_text(self.day)} Bookings")
        self.desk.write_name(NAME)
        self.desk.drag_slots(FIRST_SLOT, LAST_SLOT)
        self.assert_message_has("Reservation for")

    def ask_for_deletion(self):
        self.desk.open_day(self.day)
        self.desk.click_slot(FIRST_SLOT)
        self.assert_message_has("Delete this Booking for")
        self.desk.press("Yes")
        self.assert_message_has("Delete All of them")

    def ask_for_deletion_of_facility(self):
        self.desk.click("Delete Facility")
        self.assert_message_has(f"Delete {FACILITY}")


if __name__ == "__main__":
    main()
