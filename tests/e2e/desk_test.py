"""What the tests in real windows share: a fresh application folder for each, and one screen."""

import os
import shutil
import subprocess
import tempfile
import unittest
from datetime import date, timedelta

from desk import Desk
from screen import Screen

PROGRAM = os.environ.get("VEYRA_CALENDAR", "")  # the two programs as built
VEYRA_DATA = os.environ.get("VEYRA_DATA", "")
PICTURES = os.environ.get("VEYRA_PICTURES", "")  # where a failed test leaves what it saw

_screen = None


def screen():
    """The screen of this run, made when first asked for."""
    global _screen
    if _screen is None:
        _screen = Screen(scale=int(os.environ.get("VEYRA_SCALE", "1")))
        _screen.__enter__()
        unittest.addModuleCleanup(_screen.__exit__)
    return _screen


class DeskTest(unittest.TestCase):
    """Each test has an application folder with a sample calendar, and a desk not yet started."""

    def setUp(self):
        self.app_folder = tempfile.mkdtemp(prefix="veyra-app-")
        self.addCleanup(shutil.rmtree, self.app_folder)
        shutil.copy(PROGRAM, os.path.join(self.app_folder, "veyra-calendar"))
        self.data_folder = os.path.join(self.app_folder, "data")
        subprocess.run([VEYRA_DATA, "new", self.data_folder, "--sample"], check=True,
                       stdout=subprocess.DEVNULL)
        self.write_path_file(self.data_folder)
        self.desk = Desk(screen(), self.app_folder)
        self.addCleanup(self.desk.__exit__)

    def leave_picture(self):
        if PICTURES:
            os.makedirs(PICTURES, exist_ok=True)
            picture = os.path.join(PICTURES, f"{self.id()}.png")
            self.desk.picture(picture, window_only=False)
            print(f"What was on the screen then: {picture}")

    def start(self, **environment):
        """Starts the program and waits for its month."""
        self.desk.start(**environment)
        self.desk.wait_for_month_window()

    # Messages

    def assert_message(self, text):
        """Waits for a message box that says exactly this."""
        self.desk.message(lambda said: said == text)

    def assert_message_has(self, part):
        """Waits for a message box that says this among other things, and returns all of it."""
        return self.desk.message(lambda said: part in said)

    # Files

    def file(self, *names):
        return os.path.join(self.app_folder, *names)

    def write_path_file(self, folder):
        with open(self.file("path.txt"), "w", encoding="utf-8", newline="") as file:
            file.write(f"{folder}\r\n{folder}\r\n")

    def free_day(self, facility):
        """A day of this month on which the facility is free from 9:00 to 10:30 AM."""
        taken = self.sql("SELECT DISTINCT DateOfRes FROM Reserv JOIN Rooms ON RmID = Rooms.ID "
                         f"WHERE Rooms.Name = '{facility}' AND TimeFrom <= 21 AND TimeTo >= 19;")
        first = date.today().replace(day=1)
        days = (first + timedelta(days=n) for n in range(28))
        return next(day for day in days if day.isoformat() not in taken)

    def sql(self, statement):
        """The rows that the sqlite3 shell gives for the calendar, each a text such as "3|Pool"."""
        result = subprocess.run(["sqlite3", os.path.join(self.data_folder, "Calendar.mdb")],
                                input=statement, check=True, stdout=subprocess.PIPE, text=True)
        return result.stdout.splitlines()


class _Result(unittest.TextTestResult):
    """Leaves a picture of what a failed test had on the screen."""

    def addFailure(self, test, err):
        super().addFailure(test, err)
        test.leave_picture()

    def addError(self, test, err):
        super().addError(test, err)
        if isinstance(test, DeskTest):
            test.leave_picture()


def main():
    unittest.main(testRunner=unittest.TextTestRunner(resultclass=_Result, verbosity=2))
