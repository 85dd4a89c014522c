"""A backup is put in the place of the calendar: while it is open, and after it was killed."""

import os
import shutil

from desk_test import DeskTest, main

SET_ASIDE = " set aside "


class RestoreTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.calendar = self.file("data", "Calendar.mdb")
        self.backup = self.file("backup.mdb")
        shutil.copyfile(self.calendar, self.backup)
        self.day = self.free_day("Main Hall")
        self.start()

    def book(self, name):
        self.desk.write_name(name)
        self.desk.drag_slots(19, 21)
        self.assert_message_has(f"Reservation for {name}")
        self.desk.press("OK")

    def book_and_close(self, name):
        self.desk.open_day(self.day)
        self.book(name)
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        self.desk.close_day()

    def report_then(self, answer):
        """Reads the report of the lost file, answers the offer to open it anew, and returns the
        report."""
        report = self.desk.message()
        self.desk.press("OK")
        self.assert_message("Open the calendar file anew now?")
        self.desk.press(answer)
        return report

    def names(self):
        return self.sql("SELECT Event FROM Reserv WHERE Event LIKE '%Restore%' ORDER BY Event;")

    def expect_sound(self):
        self.assertEqual(["ok"], self.sql("PRAGMA integrity_check;"))

    def set_aside(self):
        return [name for name in os.listdir(self.data_folder) if SET_ASIDE in name]

    def test_a_backup_moved_there_while_it_is_open_is_opened_anew(self):
        self.book_and_close("Anna Restore")
        self.desk.open_day(self.day)
        os.replace(self.backup, self.calendar)
        self.desk.drag_slots(23, 24)
        self.assertIn("replaced by another one", self.report_then("Yes"))
        self.assert_message_has(SET_ASIDE)
        self.desk.press("OK")
        self.desk.wait(lambda: "Anna Restore" not in self.desk.slots(), "the rows of the backup")
        self.book("Ben Restore")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        self.desk.close_day()
        self.assertEqual(["Ben Restore"], self.names())
        self.expect_sound()

    def test_a_backup_copied_over_it_while_it_is_open_stays_whole(self):
        self.book_and_close("Anna Restore")
        shutil.copyfile(self.backup, self.calendar)
        self.desk.click("Next =>")
        self.assert_message_has("overwritten")
        self.desk.press("OK")
        self.desk.press("Yes")
        self.assert_message_has(SET_ASIDE)
        self.desk.press("OK")
        self.desk.wait_for_month_window()
        self.assertEqual([], self.names())
        self.expect_sound()

    def test_no_booking_is_taken_by_a_calendar_that_is_gone(self):
        self.desk.open_day(self.day)
        os.remove(self.calendar)
        self.book("Anna Restore")
        self.assertIn("removed, moved or renamed", self.report_then("No"))
        self.assertFalse(os.path.exists(self.calendar))

    def restore_after_a_kill(self, restore):
        self.book_and_close("Anna Restore")
        self.desk.process.kill()
        self.desk.process.wait()
        restore(self.backup, self.calendar)
        self.desk.start()
        self.assert_message_has(SET_ASIDE)
        self.desk.press("OK")
        self.desk.wait_for_month_window()
        self.assertEqual([], self.names())
        self.book_and_close("Ben Restore")
        self.assertEqual(["Ben Restore"], self.names())
        self.expect_sound()
        self.assertEqual(1, len(self.set_aside()))

    def test_a_backup_copied_back_after_a_kill(self):
        self.restore_after_a_kill(shutil.copyfile)

    def test_a_backup_moved_back_after_a_kill(self):
        self.restore_after_a_kill(os.replace)

    def test_a_killed_calendar_goes_on_with_all_its_bookings(self):
        self.book_and_close("Anna Restore")
        self.desk.process.kill()
        self.desk.process.wait()
        self.start()
        self.assertIn(" 9:00A-10:30A Anna Restore", self.desk.lines_of(self.day))


if __name__ == "__main__":
    main()
