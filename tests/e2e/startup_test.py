"""Starts that fail: a clear report, and exit status 1. Starts that are odd but go well."""

import os
import sqlite3

from desk_test import DeskTest, main


class StartUpTest(DeskTest):
    def calendar(self):
        return os.path.join(self.data_folder, "Calendar.mdb")

    def report_of_failed_start(self):
        """Starts the program, reads the report and sees it end as failed."""
        self.desk.start()
        report = self.desk.message()
        self.desk.press("OK")
        self.assertEqual(1, self.desk.exit_status())
        return report

    def overwrite(self, name, content):
        with open(self.file(name), "wb") as file:
            file.write(content)

    def read_path_file(self):
        with open(self.file("path.txt"), "rb") as file:
            return file.read().decode()

    def test_a_missing_path_file_is_made_anew(self):
        os.remove(self.file("path.txt"))
        report = self.report_of_failed_start()
        self.assertEqual(f"{self.app_folder}\r\n" * 2, self.read_path_file())
        self.assertIn("/Calendar.mdb", report)

    def test_a_path_file_of_one_line_is_tolerated(self):
        self.overwrite("path.txt", self.data_folder.encode())
        self.start()

    def test_an_empty_path_file(self):
        self.overwrite("path.txt", b"")
        self.assertIn("path.txt", self.report_of_failed_start())

    def test_an_empty_path_file_is_made_anew(self):
        self.overwrite("path.txt", b"")
        self.report_of_failed_start()
        self.assertEqual(f"{self.app_folder}\r\n" * 2, self.read_path_file())

    def test_a_path_file_that_is_a_pipe(self):
        os.remove(self.file("path.txt"))
        os.mkfifo(self.file("path.txt"))
        self.desk.start()
        self.assert_message("FileOpener: Error: 75")
        self.desk.press("OK")
        self.assert_message_has("/Calendar.mdb")

    def test_a_path_file_that_is_no_text(self):
        self.overwrite("path.txt", bytes(range(256)) * 40)
        self.report_of_failed_start()

    def test_a_path_file_of_ten_megabytes(self):
        self.overwrite("path.txt", b"x" * 10_000_000)
        self.assertLess(len(self.report_of_failed_start()), 5000)

    def test_a_missing_data_folder(self):
        self.write_path_file("/nowhere/at all")
        self.assertIn("/nowhere/at all/Calendar.mdb", self.report_of_failed_start())

    def test_a_missing_calendar(self):
        os.remove(self.calendar())
        self.assertIn(self.calendar(), self.report_of_failed_start())
        self.assertFalse(os.path.exists(self.calendar()))

    def test_a_missing_guest_database(self):
        guests = os.path.join(self.data_folder, "Veyra.mdb")
        os.remove(guests)
        self.assertIn(guests, self.report_of_failed_start())
        self.assertFalse(os.path.exists(guests))

    def test_an_empty_calendar_file(self):
        self.overwrite("data/Calendar.mdb", b"")
        self.assertIn(self.calendar(), self.report_of_failed_start())
        self.assertEqual(0, os.path.getsize(self.calendar()))

    def test_a_calendar_that_is_no_database(self):
        self.overwrite("data/Calendar.mdb", b"The calendar has moved to the other computer.\n" * 100)
        self.assertIn(self.calendar(), self.report_of_failed_start())

    def test_a_calendar_that_was_cut_short(self):
        os.truncate(self.calendar(), os.path.getsize(self.calendar()) // 2)
        self.assertIn(self.calendar(), self.report_of_failed_start())

    def test_a_calendar_without_bookings_table(self):
        self.sql("DROP TABLE Reserv;")
        self.assertIn("Reserv", self.report_of_failed_start())

    def test_a_calendar_that_another_program_keeps_locked(self):
        other = sqlite3.connect(self.calendar(), isolation_level=None)
        self.addCleanup(other.close)
        other.execute("PRAGMA locking_mode = EXCLUSIVE")
        other.execute("BEGIN EXCLUSIVE")
        self.assertIn(self.calendar(), self.report_of_failed_start())


class EndTest(DeskTest):
    def test_closing_the_month_window_ends_the_program(self):
        self.start()
        self.desk.key("alt+F4")
        self.assertEqual(0, self.desk.exit_status())


if __name__ == "__main__":
    main()
