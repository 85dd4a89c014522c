"""Turning the pages of the calendar."""

import unittest
from datetime import date

from desk_test import DeskTest

MONTHS = ("January February March April May June July August September October November "
          "December").split()


def title(year, month):
    return f"{MONTHS[month - 1]} {year}"


class PagingTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.today = date.today()
        self.start()

    def test_the_month_of_today_comes_first(self):
        self.wait_for_title(title(self.today.year, self.today.month))

    def test_next_goes_over_the_end_of_the_year(self):
        for month in range(self.today.month + 1, 13):
            self.turn("Next =>", title(self.today.year, month))
        self.turn("Next =>", title(self.today.year + 1, 1))
        self.turn("<= Previous", title(self.today.year, 12))

    def test_previous_goes_over_the_beginning_of_the_year(self):
        for month in range(self.today.month - 1, 0, -1):
            self.turn("<= Previous", title(self.today.year, month))
        self.turn("<= Previous", title(self.today.year - 1, 12))
        self.turn("Next =>", title(self.today.year, 1))

    def turn(self, button, new_title):
        self.desk.click(button)
        self.wait_for_title(new_title)

    def wait_for_title(self, wanted):
        self.desk.wait(lambda: self.desk.month_title() == wanted, f"the month {wanted}")


if __name__ == "__main__":
    unittest.main(verbosity=2)
