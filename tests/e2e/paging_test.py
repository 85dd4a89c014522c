"""Turning the pages of the calendar."""

from calendar import monthrange
from datetime import date

from desk_test import DeskTest, main

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

    def test_a_key_held_down_turns_many_pages_and_every_one_is_whole(self):
        shown = self.desk.screen.hold_key_until(
            "Next", lambda: self.shown_month() >= (self.today.year + 2, 1) and self.shown_month(),
            "January two years on")
        self.desk.wait(lambda: self.has_come_to_rest(), "the pages to come to rest")
        year, month = self.shown_month()
        self.assertGreaterEqual((year, month), shown)
        self.assertEqual(self.days_of(year, month), self.days_shown())

    def shown_month(self):
        name, year = self.desk.wait(self.desk.month_title, "a month title").split()
        return int(year), MONTHS.index(name) + 1

    def has_come_to_rest(self):
        before = self.shown_month(), self.days_shown()
        return before == (self.shown_month(), self.days_shown())

    def days_shown(self):
        names = [one.name for one in self.desk.front_window().everything()
                 if one.role == "list" and one.name.startswith("Bookings on ") and one.is_showing]
        return [name.removeprefix("Bookings on ") for name in names]

    @staticmethod
    def days_of(year, month):
        return [f"{month}/{day}/{year}" for day in range(1, monthrange(year, month)[1] + 1)]

    def turn(self, button, new_title):
        self.desk.click(button)
        self.wait_for_title(new_title)

    def wait_for_title(self, wanted):
        self.desk.wait(lambda: self.desk.month_title() == wanted, f"the month {wanted}")


if __name__ == "__main__":
    main()
