"""The month on paper, by way of a real print service.

Where the print service or the PDF reader is not installed nothing is tested, and the test says so by
its exit status, 77.
"""

import os
import re
import subprocess
import sys
import unittest

import print_queue
from desk import MONTH_WINDOW, date_text
from desk_test import DeskTest, main, screen
from screen import wait_until

SKIPPED = 77
WEEKDAYS = "Sunday Monday Tuesday Wednesday Thursday Friday Saturday".split()
CONTROLS = ("Next =>", "<= Previous", "Print", "Delete Facility")
COMPLETE = "Print Complete, Click on Form to get Controls back."
GONE = ('The printer "FrontDesk" is no longer there.\nClick on the month to get the buttons back, '
        "then print again on another printer, or into a PDF file.")

_queue = None


def setUpModule():
    global _queue
    _queue = print_queue.PrintQueue()
    _queue.__enter__()
    unittest.addModuleCleanup(_queue.__exit__)
    screen().environment["CUPS_SERVER"] = _queue.address


def text_of(pdf):
    return subprocess.run(["pdftotext", "-layout", pdf, "-"], check=True, text=True,
                          stdout=subprocess.PIPE).stdout


class PrintingTest(DeskTest):
    def setUp(self):
        super().setUp()
        _queue.add_printer()
        self.jobs_before = len(_queue.jobs())
        self.start()
        self.desk.choose("Main Hall")
        self.title = self.desk.month_title()

    def test_the_page_comes_out_of_the_printer(self):
        shown = self.lines_shown()
        self.print_month()
        page = text_of(self.new_job())
        words = page.split()
        self.assertEqual(1, page.count(self.title))
        self.assertEqual([1] * 7, [words.count(weekday) for weekday in WEEKDAYS])
        self.assertEqual([1] * 28, [words.count(str(day)) for day in range(1, 29)])
        self.assertTrue(shown)
        for times in shown:
            self.assertEqual(shown.count(times), page.count(times), times)

    def test_the_controls_are_away_until_the_title_is_clicked(self):
        self.print_month()
        self.assertEqual([False] * 4, [self.desk.has(name) for name in CONTROLS])
        self.desk.click(self.title)
        self.desk.wait(lambda: all(self.desk.has(name) for name in CONTROLS), "the controls")

    def test_the_controls_are_away_until_a_key_is_pressed(self):
        self.print_month()
        self.assertEqual([False] * 4, [self.desk.has(name) for name in CONTROLS])
        self.desk.key("Escape")
        self.desk.wait(lambda: all(self.desk.has(name) for name in CONTROLS), "the controls")

    def test_a_key_held_on_a_day_is_the_click_that_ends_the_printed_layout(self):
        self.print_month()
        self.desk.tab_to(lambda one: one.name.startswith("Bookings on "), "a day")
        self.desk.screen.hold_key("Return", 1.5)
        self.assertEqual([MONTH_WINDOW], [window.name for window in self.desk.windows()])
        self.desk.key("Return")
        self.desk.wait(lambda: self.desk.front_window().name.endswith(" Bookings"), "the day")

    def test_cancelling_prints_nothing(self):
        self.open_dialog()
        self.desk.key("Escape")
        self.assert_message("Calendar Printing Canceled")
        self.desk.press("OK")
        self.assertEqual([True] * 4, [self.desk.has(name) for name in CONTROLS])
        self.assertEqual(self.jobs_before, len(_queue.jobs()))

    def test_a_printer_that_vanishes_is_reported(self):
        self.open_dialog()
        _queue.remove_printer()
        self.confirm()
        self.assert_message(GONE)
        self.the_controls_come_back()

    def test_a_printer_that_takes_nothing_is_reported(self):
        self.open_dialog()
        _queue.refuse_jobs()
        self.confirm()
        said = self.assert_message_has("has not taken the page: ")
        self.assertRegex(said, '^The printer "FrontDesk" has not taken the page: .+')
        self.the_controls_come_back()

    def test_a_job_that_cannot_be_written_is_reported(self):
        """The folder for temporary files takes no file."""
        self.desk.__exit__()
        screen().environment["TMPDIR"] = "/proc/self"
        self.addCleanup(screen().environment.pop, "TMPDIR")
        self.start()
        self.open_dialog()
        self.confirm()
        self.assert_message_has("has not taken the page")
        self.the_controls_come_back()

    def test_without_a_printer_a_file_is_offered(self):
        _queue.remove_printer()
        self.open_dialog()
        path = self.file("month.pdf")
        field = next(one for one in self.desk.front_window().everything()
                     if one.role == "text" and one.is_showing and one.text.endswith(".pdf"))
        self.desk.click_on(field)
        self.desk.key("ctrl+a")
        self.desk.type(path)
        self.desk.wait(lambda: field.text == path, "the name of the file")
        self.confirm()
        self.assert_message(COMPLETE)
        self.assertEqual(1, text_of(path).count(self.title))

    def test_control_p_in_the_viewer_prints_the_day(self):
        day = self.free_day("Main Hall")
        self.desk.click_on(self.desk.day_cell(day), 3)
        self.desk.front_window(f"  {date_text(day)} Day Viewer")
        self.desk.key("ctrl+p")
        self.confirm()
        self.assert_message("Print Complete.")
        self.desk.press("OK")
        self.assertIn(f"{day:%A, %B} {day.day}, {day.year}", text_of(self.new_job()))
        self.desk.front_window(f"  {date_text(day)} Day Viewer")

    def test_control_shift_p_prints_a_week(self):
        self.desk.tab_to(lambda one: one.name.startswith("Bookings on "), "a day")
        self.desk.key("ctrl+shift+p")
        self.confirm()
        self.assert_message("Print Complete.")
        self.desk.press("OK")
        page = text_of(self.new_job())
        self.assertEqual([1] * 7, [page.count(weekday) for weekday in WEEKDAYS])
        self.assertEqual([True] * 4, [self.desk.has(name) for name in CONTROLS])

    def test_control_p_prints_the_month(self):
        self.desk.tab_to(lambda one: one.name.startswith("Bookings on "), "a day")
        self.desk.key("ctrl+p")
        self.confirm()
        self.assert_message(COMPLETE)
        self.desk.press("OK")
        self.assertEqual(1, text_of(self.new_job()).count(self.title))

    def open_dialog(self):
        self.desk.click("Print")
        return self.desk.front_window("Print")

    def confirm(self):
        dialog = self.desk.front_window("Print")
        self.desk.click_on(self.desk.find("Print", "push button", dialog))

    def print_month(self):
        self.open_dialog()
        self.confirm()
        self.assert_message(COMPLETE)
        self.desk.press("OK")

    def new_job(self):
        return wait_until(lambda: _queue.jobs()[self.jobs_before:], "the job")[0]

    def the_controls_come_back(self):
        self.desk.press("OK")
        self.assertEqual([False] * 4, [self.desk.has(name) for name in CONTROLS])
        self.desk.click(self.title)
        self.desk.wait(lambda: all(self.desk.has(name) for name in CONTROLS), "the controls")

    def lines_shown(self):
        """The times of all bookings whose lines are in sight; the names may be cut."""
        window = self.desk.wait_for_month_window()
        times = []
        for cell in window.everything():
            if cell.role == "list" and cell.name.startswith("Bookings on ") and cell.is_showing:
                times += [re.match(r".{13}", item.name)[0].strip() for item in cell.children
                          if item.role == "list item" and item.is_showing]
        return times


if __name__ == "__main__":
    if print_queue.missing():
        print(f"SKIPPED: {', '.join(print_queue.missing())} not installed")
        sys.exit(SKIPPED)
    main()
