"""A second start of the calendar, when whoever is in a hurry clicks its icon again."""

import os
import socket
import subprocess
from datetime import date

from desk import Desk
from desk_test import DeskTest, main, screen
from screen import wait_until


class SecondStartTest(DeskTest):
    def start_again(self):
        """Starts the program once more and returns the exit status of that one."""
        again = Desk(screen(), self.app_folder)
        self.addCleanup(again.__exit__)
        again.start()
        return again.exit_status()

    def another_window(self):
        """A window of another program, which then is in front."""
        other = screen().start(["xmessage", "-geometry", "900x600+0+0", "somebody's letter"],
                               env=screen().environment)
        self.addCleanup(other.kill)
        self.desk.wait(lambda: self.window_in_front() == "xmessage", "the other window in front")

    def window_in_front(self):
        found = subprocess.run(["xdotool", "getactivewindow", "getwindowname"],
                               env=screen().environment, stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, text=True, check=False)
        return found.stdout.strip()

    def wait_until_in_front(self, name):
        self.desk.wait(lambda: self.window_in_front().strip() == name, f'"{name}" in front')

    def test_brings_the_window_to_the_front(self):
        self.start()
        self.another_window()
        self.assertEqual(0, self.start_again())
        self.wait_until_in_front("Veyra Scheduler Calendar")

    def test_brings_a_minimised_window_back(self):
        self.start()
        subprocess.run(["xdotool", "getactivewindow", "windowminimize"], check=True,
                       env=screen().environment)
        self.desk.wait(lambda: self.window_in_front() != "Veyra Scheduler Calendar", "no window")
        self.assertEqual(0, self.start_again())
        self.desk.wait_for_month_window()

    def test_brings_the_window_of_the_day_that_is_being_booked(self):
        day = date.today().replace(day=17)
        self.start()
        self.desk.open_day(day)
        name = self.window_in_front()
        self.another_window()
        self.assertEqual(0, self.start_again())
        self.wait_until_in_front(name)

    def test_after_a_kill_is_a_first_start(self):
        self.start()
        self.desk.process.kill()
        self.desk.process.wait()
        self.desk.start()
        self.desk.wait_for_month_window()

    def test_two_starts_at_the_same_moment_are_one_program(self):
        both = [Desk(screen(), self.app_folder) for _ in range(2)]
        for one in both:
            self.addCleanup(one.__exit__)
            one.start()
        wait_until(lambda: [one.process.poll() for one in both].count(0) == 1,
                   "the end of one of the two")
        left = next(one for one in both if one.process.poll() is None)
        left.wait_for_month_window()

    def test_asks_when_another_computer_has_the_calendar_open(self):
        with open(os.path.join(self.data_folder, "Calendar.mdb-open"), "w",
                  encoding="utf-8") as note:
            note.write("Calendar.mdb is in use.\n\nused by: anna on northern-desk, process 4711, "
                       "since 2026-11-21 18:30:12\n\nfile: 1\nsize: 0\nwritten: 0\ncontent: 0\n"
                       "log: 0\nlog is being put into the file: no\n")
        self.assertNotEqual("northern-desk", socket.gethostname())
        self.desk.start()
        self.assert_message_has("anna on northern-desk, since 11/21/2026 18:30")
        self.desk.key("Return")
        self.assertEqual(1, self.desk.exit_status())
        self.desk.start()
        self.assert_message_has("Open it here as well?")
        self.desk.press("Yes")
        self.desk.wait_for_month_window()


if __name__ == "__main__":
    main()
