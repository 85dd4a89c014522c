"""The calendar makes the day's first copy of itself when the data folder has a folder "backups"."""

import os
import shutil
import subprocess
from datetime import date

from desk_test import VEYRA_DATA, DeskTest, main

SLOW_COMPANION = """#!/bin/sh
echo "$@" > '{folder}/begun'
read line < '{folder}/go'
exec '{companion}' "$@"
"""


class DailyBackupTest(DeskTest):
    made_with = ()

    def setUp(self):
        super().setUp()
        self.day = self.free_day("Main Hall")
        if self.made_with:
            shutil.rmtree(self.data_folder)
            self.data("new", self.data_folder, "--sample", *self.made_with)
        self.copy = os.path.join(self.data_folder, "backups", f"Calendar-{date.today()}.mdb")
        shutil.copy(VEYRA_DATA, self.file("veyra-data"))

    def data(self, *words):
        ended = subprocess.run([VEYRA_DATA, *words], check=False, stdout=subprocess.PIPE, text=True)
        self.assertEqual(0, ended.returncode, ended.stdout)
        return ended.stdout

    def make_folder(self):
        os.mkdir(os.path.dirname(self.copy))

    def wait_for_copy(self):
        self.desk.wait(lambda: os.path.exists(self.copy), "the day's first copy")

    def bookings_of(self, calendar):
        """The bookings in a file, as CSV."""
        folder = self.file("looked-at")
        shutil.rmtree(folder, ignore_errors=True)
        os.mkdir(folder)
        shutil.copy(calendar, os.path.join(folder, "Calendar.mdb"))
        return self.data("export", "-", folder, "--format", "csv")

    def book(self, name):
        self.desk.open_day(self.day)
        self.desk.write_name(name)
        self.desk.drag_slots(19, 21)
        self.assert_message_has(f"Reservation for {name}")
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        self.desk.close_day()

    def let_go(self):
        """The slow companion goes on, if it is there and waits."""
        try:
            descriptor = os.open(self.file("go"), os.O_WRONLY | os.O_NONBLOCK)
        except OSError:
            return
        os.write(descriptor, b"go\n")
        os.close(descriptor)

    def end(self):
        self.desk.process.terminate()
        self.assertEqual(0, self.desk.exit_status())

    def test_the_first_start_of_a_day_makes_a_whole_copy(self):
        self.make_folder()
        before = self.data("export", "-", self.data_folder, "--format", "csv")
        self.start()
        self.wait_for_copy()
        self.data("check", self.copy)
        self.assertEqual(before, self.bookings_of(self.copy))
        self.assertEqual([os.path.basename(self.copy)], os.listdir(os.path.dirname(self.copy)))

    def test_a_later_start_leaves_it_as_it_is(self):
        self.make_folder()
        self.start()
        self.wait_for_copy()
        self.book("Later")
        self.end()
        os.remove(self.file("veyra-data"))
        with open(self.file("veyra-data"), "w", encoding="utf-8") as script:
            script.write(f"#!/bin/sh\n'{VEYRA_DATA}' \"$@\"\necho ended > '{self.file('ended')}'\n")
        os.chmod(self.file("veyra-data"), 0o755)
        self.start()
        self.desk.wait(lambda: os.path.exists(self.file("ended")), "the companion to end")
        self.assertNotIn("Later", self.bookings_of(self.copy))

    def test_the_copy_does_not_hold_the_desk_up(self):
        self.make_folder()
        os.mkfifo(self.file("go"))
        self.addCleanup(self.let_go)
        os.remove(self.file("veyra-data"))
        with open(self.file("veyra-data"), "w", encoding="utf-8") as script:
            script.write(SLOW_COMPANION.format(folder=self.app_folder, companion=VEYRA_DATA))
        os.chmod(self.file("veyra-data"), 0o755)
        self.start()
        self.desk.wait(lambda: os.path.exists(self.file("begun")), "the companion")
        self.book("Meanwhile")
        self.assertFalse(os.path.exists(self.copy))
        self.let_go()
        self.wait_for_copy()
        self.assertIn("Meanwhile", self.bookings_of(self.copy))

    def test_without_the_folder_no_copy_is_made(self):
        self.start()
        self.book("Alone")
        self.end()
        self.assertFalse(os.path.exists(self.copy))


class DailyBackupOfAccessFilesTest(DailyBackupTest):
    made_with = ("--access",)


if __name__ == "__main__":
    main()
