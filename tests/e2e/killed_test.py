"""The program is killed in the middle of what it was told to do. Whatever was done by then, and all
that it had told the operator, is in the file when it is started again, nothing else has changed, and
the rest can be done.

The moments are chosen at random; VEYRA_SEED=N chooses those of a former run again.
"""

import os
import random
from datetime import date, timedelta

from desk import date_text
from desk_test import DeskTest, main

DATES = 60
FIRST_SLOT, LAST_SLOT = 19, 21
NAME, NEW_NAME = "Chess Club", "Chess and Tea Club"
SLOW = "(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 60000) " \
       "SELECT MAX(i) FROM n)"
OTHERS = "SELECT * FROM Reserv WHERE Event NOT LIKE 'Chess%' ORDER BY DateOfRes;"


class KilledTest(DeskTest):
    """Only the Kitchen is booked. Each row takes so long to write that there is time to look and to
    kill in the middle."""

    def setUp(self):
        super().setUp()
        seed = int(os.environ.get("VEYRA_SEED") or random.randrange(10**6))
        print(f"VEYRA_SEED={seed}", end=" ", flush=True)
        self.random = random.Random(seed)
        self.day = date.today().replace(day=15)
        self.sql("DELETE FROM Reserv; WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 "
                 f"FROM n WHERE i < {DATES - 1}) INSERT INTO Reserv (RmID, Event, DateOfRes, "
                 f"TimeFrom, TimeTo) SELECT ID, 'Supper', date('{self.day}', i || ' days'), 40, 41 "
                 "FROM n, Rooms WHERE Name = 'Kitchen';")
        self.sql("".join(f"CREATE TRIGGER Slow{change} AFTER {change} ON Reserv "
                         f"BEGIN SELECT {SLOW}; END;" for change in ("Insert", "Update", "Delete")))

    def planned(self):
        return [(self.day + timedelta(days=n)).isoformat() for n in range(DATES)]

    def dates_of(self, name):
        return self.sql(f"SELECT DateOfRes FROM Reserv WHERE Event = '{name}' ORDER BY DateOfRes;")

    def count(self, what):
        return int(self.sql(f"SELECT COUNT(*) FROM {what};")[0])

    def kill_in_the_middle(self, of, done):
        """Kills the program in the middle of the row after some of so many. Returns how many were
        done before."""
        enough = self.random.randrange(of // 6 + 1, of * 2 // 3 + 1)
        seen = self.desk.wait(lambda: (now := done()) >= enough and now, "the moment of the kill")
        self.kill()
        return seen

    def kill(self):
        self.desk.process.kill()
        self.desk.process.wait()

    def start_again(self):
        self.start()
        self.assertEqual(["ok"], self.sql("PRAGMA integrity_check;"))

    def test_a_series_that_is_booked_renamed_and_deleted(self):
        others = self.sql(OTHERS)
        self.start()
        self.begin_series()
        seen = self.kill_in_the_middle(DATES, lambda: len(self.dates_of(NAME)))
        self.start_again()
        booked = self.dates_of(NAME)
        self.assertEqual(self.planned()[:len(booked)], booked)
        self.assertLessEqual(seen, len(booked))
        self.assertLess(len(booked), DATES)
        self.assertEqual(["1"], self.sql("SELECT COUNT(DISTINCT MultKey) FROM Reserv "
                                         f"WHERE Event = '{NAME}';"))
        self.assertIn(f" 9:00A-10:30A {NAME}", self.desk.lines_of(self.day))

        self.begin_renaming()
        seen = self.kill_in_the_middle(len(booked), lambda: len(self.dates_of(NEW_NAME)))
        self.start_again()
        self.assertLessEqual(seen, len(self.dates_of(NEW_NAME)))
        self.assertEqual(booked, sorted(self.dates_of(NAME) + self.dates_of(NEW_NAME)))

        self.begin_deletion()
        left = len(booked)
        seen = self.kill_in_the_middle(
            left, lambda: left - self.count("Reserv WHERE Event LIKE 'Chess%'"))
        self.start_again()
        still_there = self.dates_of(NAME) + self.dates_of(NEW_NAME)
        self.assertLessEqual(len(still_there), left - seen)
        self.assertLessEqual(set(still_there), set(booked))

        self.sql("DROP TRIGGER SlowDelete;")
        # It may have come to its end just before it was killed.
        if still_there:
            self.day = date.fromisoformat(min(still_there))
            self.turn_to(self.day)
            self.begin_deletion()
            self.assert_message(f"{len(still_there)} Bookings Deleted.")
        self.assertEqual([], self.dates_of(NAME) + self.dates_of(NEW_NAME))
        self.assertEqual(others, self.sql(OTHERS))

    def test_a_facility_that_is_deleted(self):
        others = self.sql("SELECT * FROM Rooms WHERE Name <> 'Kitchen' ORDER BY ID;")
        bookings = self.count("Reserv")
        self.start()
        self.desk.choose("Kitchen")
        self.delete_facility()
        seen = self.kill_in_the_middle(bookings, lambda: bookings - self.count("Reserv"))
        self.start_again()
        self.assertEqual(["Kitchen"], self.sql("SELECT Name FROM Rooms WHERE Active = 1;"))
        self.assertLessEqual(self.count("Reserv"), bookings - seen)
        self.assertLess(0, self.count("Reserv"))
        self.sql("DROP TRIGGER SlowDelete;")
        self.delete_facility()
        self.desk.wait(lambda: "Main Hall" in self.desk.labels(), "another facility")
        self.assertEqual(0, self.count("Reserv"))
        self.assertEqual([row.rsplit("|", 1)[0] for row in others],
                         [row.rsplit("|", 1)[0] for row in
                          self.sql("SELECT * FROM Rooms ORDER BY ID;")])

    def test_a_single_booking_behind_each_message(self):
        self.start()
        steps = ((self.book, "1 Booking(s) Made.", [NAME]),
                 (self.rename, "Booking Name Changed.", [NEW_NAME]),
                 (self.delete, "Booking Deleted.", []))
        for step, message, names in steps:
            self.desk.choose("Main Hall")
            self.desk.open_day(self.day)
            step()
            self.assert_message(message)
            self.kill()
            self.start_again()
            self.assertEqual(names, self.sql("SELECT Event FROM Reserv WHERE Event LIKE 'Chess%';"))

    def book(self):
        self.desk.write_name(NAME)
        self.desk.drag_slots(FIRST_SLOT, LAST_SLOT)
        self.assert_message_has("Reservation for")
        self.desk.press("OK")

    def rename(self):
        self.ask_for_name()

    def delete(self):
        self.desk.click_slot(FIRST_SLOT)
        self.assert_message_has("Delete this Booking for")
        self.desk.press("Yes")

    def ask_for_name(self):
        self.desk.click_slot(FIRST_SLOT)
        self.assert_message_has("Delete this Booking for")
        self.desk.press("No")
        self.assert_message_has("Edit the Booking Name of")
        self.desk.press("Yes")
        self.assert_message_has("Enter a New Booking Name")
        self.desk.key("ctrl+a")
        self.desk.type(NEW_NAME)
        self.desk.key("Return")

    def begin_series(self):
        self.desk.choose("Main Hall")
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
        self.book()

    def begin_renaming(self):
        self.desk.open_day(self.day)
        self.ask_for_name()
        self.assert_message_has("Change the Name on All")
        self.desk.press("Yes")

    def begin_deletion(self):
        self.desk.open_day(self.day)
        self.delete()
        self.assert_message_has("Delete All of them")
        self.desk.press("Yes")

    def delete_facility(self):
        self.desk.click("Delete Facility")
        self.assert_message_has("Delete Kitchen")
        self.desk.press("Yes")

    def turn_to(self, day):
        months = (day.year - date.today().year) * 12 + day.month - date.today().month
        for _ in range(months):
            title = self.desk.month_title()
            self.desk.click("Next =>")
            self.desk.wait(lambda: self.desk.month_title() != title, "the next month")


if __name__ == "__main__":
    main()
