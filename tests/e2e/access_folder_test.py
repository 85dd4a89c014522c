"""A data folder of two Access files, as an office that has kept its bookings for years has it."""

import os
import shutil
import subprocess
import unittest

from desk_test import VEYRA_DATA, DeskTest, main


@unittest.skipUnless(shutil.which("mdb-export"), "mdb-export is not installed")
class AccessFolderTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.day = self.free_day("Main Hall")
        shutil.rmtree(self.data_folder)
        subprocess.run([VEYRA_DATA, "new", "--access", self.data_folder, "--sample"], check=True,
                       stdout=subprocess.DEVNULL)
        self.start()

    def test_a_booking_is_in_the_file_for_other_programs(self):
        self.desk.open_day(self.day)
        self.desk.write_name("Anna Access")
        self.desk.drag_slots(19, 21)
        self.assert_message("Reservation for Anna Access From  9:00A To 10:30A.\n"
                            "Select OK to Book or Cancel to Cancel")
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        self.desk.close_day()
        self.assertIn(" 9:00A-10:30A Anna Access", self.desk.lines_of(self.day))
        self.assertEqual([f"{self.day.isoformat()},19,21"], self.rows_of("Anna Access"))

    def test_other_computers_are_told_who_has_it_open_and_it_asks_when_one_has(self):
        note = self.file("data", "Calendar.mdb-open")
        with open(note, encoding="utf-8") as file:
            self.assertIn(f", process {self.desk.process.pid}, since ", file.read())
        self.desk.key("alt+F4")
        self.assertEqual(0, self.desk.exit_status())
        self.assertFalse(os.path.exists(note))
        with open(note, "w", encoding="utf-8") as file:
            file.write("used by: anna on northern-desk, process 4711, since 2026-11-21 18:30:12\n"
                       "file: 0\nsize: 0\nwritten: 0\ncontent: 0\nlog: 0\n"
                       "log is being put into the file: no\n")
        self.desk.start()
        self.assert_message_has("anna on northern-desk, since 11/21/2026 18:30")
        self.desk.press("No")
        self.assertEqual(1, self.desk.exit_status())

    def test_the_guests_are_offered(self):
        self.desk.open_day(self.day)
        self.assertEqual(40, len(self.desk.combo_items()))

    def rows_of(self, name):
        """Date, first and last slot of the bookings of that name, as mdb-export reads them."""
        exported = subprocess.run(
            ["mdb-export", "-H", "-Q", "-D", "%Y-%m-%d", "-T", "%Y-%m-%d",
             self.file("data", "Calendar.mdb"), "Reserv"],
            check=True, stdout=subprocess.PIPE, text=True).stdout
        rows = [line.split(",") for line in exported.splitlines()]
        return [",".join(row[2:5]) for row in rows if row[1] == name]

    def test_a_name_that_the_file_cannot_hold_is_refused_while_it_is_typed(self):
        hint = "This name is 53 characters long; the calendar holds 50."
        self.desk.open_day(self.day)
        self.desk.write_name("X" * 53)
        self.desk.find(hint, "label")
        self.desk.drag_slots(19, 21)
        self.assert_message(hint)
        self.desk.press("OK")
        self.desk.write_name("X" * 50)
        self.desk.wait(lambda: not self.desk.has(hint), "the hint to go")
        self.desk.drag_slots(19, 21)
        self.assertTrue(self.desk.message().startswith(f"Reservation for {'X' * 50} From"))
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")

    def test_a_new_facility_that_it_cannot_hold_is_refused(self):
        hint = "This name is 260 characters long; the calendar holds 255."
        self.desk.click_on(self.desk.name_field())
        self.desk.name_field().set_text("X" * 260)
        self.desk.find(hint, "label")
        self.desk.key("Return")
        self.assert_message(hint)
        self.desk.press("OK")


if __name__ == "__main__":
    main()
