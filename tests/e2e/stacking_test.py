"""Windows that wait for another one: that one stays in front, and they share their fate."""

import os
import shutil
from datetime import date

from desk import MONTH_WINDOW, date_text
from desk_test import PROGRAM, DeskTest, main

SETTINGS, ABOUT = "Calendar Color Settings", "Veyra About"
MULTIPLE_DAYS = "Multiple Day Booking"


class StackingTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.start()
        self.viewer = f"  {date_text(date.today())} Day Viewer"
        self.day = f"  {date_text(date.today())} Bookings"

    def open_settings(self):
        self.desk.click("Settings")
        self.desk.front_window(SETTINGS)

    def open_about(self):
        self.desk.click("Help")
        self.desk.click("About")
        self.desk.front_window(ABOUT)

    def open_viewer(self):
        self.desk.click_on(self.desk.day_cell(date.today()), 3)
        self.desk.front_window(self.viewer)

    def open_multiple_days(self):
        self.desk.open_day(date.today())
        self.desk.click("Multiple Booking")
        self.desk.front_window(MULTIPLE_DAYS)

    def open_day_from_viewer(self):
        self.open_viewer()
        self.desk.click_on(self.desk.first("list"), 3)
        self.desk.front_window(self.day)

    def test_settings_stay_above_the_month(self):
        self.open_settings()
        self.stays_in_front(SETTINGS, MONTH_WINDOW)

    def test_the_about_box_stays_above_the_month(self):
        self.open_about()
        self.stays_in_front(ABOUT, MONTH_WINDOW)

    def test_the_viewer_stays_above_the_month(self):
        self.open_viewer()
        self.stays_in_front(self.viewer, MONTH_WINDOW)

    def test_a_day_opened_from_the_viewer_stays_above_the_month(self):
        self.open_day_from_viewer()
        self.stays_in_front(self.day, MONTH_WINDOW)

    def test_the_multiple_day_window_stays_above_the_day(self):
        self.open_multiple_days()
        self.stays_in_front(MULTIPLE_DAYS, self.day)

    def test_it_does_so_for_a_second_day_too(self):
        self.open_multiple_days()
        self.desk.click("Close")
        self.desk.front_window(self.day)
        self.desk.close_day()
        self.open_multiple_days()
        self.stays_in_front(MULTIPLE_DAYS, self.day)

    def test_the_owner_takes_its_window_along_when_it_is_minimised(self):
        self.open_settings()
        self.desk.screen.minimise(MONTH_WINDOW)
        self.are_minimised(MONTH_WINDOW, SETTINGS)
        self.desk.screen.activate(MONTH_WINDOW)
        self.are_back(MONTH_WINDOW, SETTINGS)
        self.desk.front_window(SETTINGS)

    def test_the_day_takes_the_multiple_day_window_along(self):
        self.open_multiple_days()
        self.desk.screen.minimise(self.day)
        self.are_minimised(self.day, MULTIPLE_DAYS)
        self.desk.screen.activate(self.day)
        self.are_back(self.day, MULTIPLE_DAYS)
        self.desk.front_window(MULTIPLE_DAYS)

    def test_a_window_that_another_waits_for_takes_that_one_along(self):
        self.open_viewer()
        self.desk.screen.minimise(self.viewer)
        self.are_minimised(self.viewer, MONTH_WINDOW)
        self.desk.screen.activate(self.viewer)
        self.are_back(self.viewer, MONTH_WINDOW)

    def test_such_a_window_asks_for_no_minimise_button(self):
        self.assertTrue(self.desk.screen.asks_for_minimise_button(MONTH_WINDOW))
        for open_window, title in ((self.open_settings, SETTINGS), (self.open_about, ABOUT),
                                   (self.open_viewer, self.viewer)):
            open_window()
            self.assertFalse(self.desk.screen.asks_for_minimise_button(title), title)
            self.desk.key("Escape")
            self.desk.wait_for_month_window()
        self.open_multiple_days()
        self.assertTrue(self.desk.screen.asks_for_minimise_button(self.day))
        self.assertFalse(self.desk.screen.asks_for_minimise_button(MULTIPLE_DAYS))

    def are_minimised(self, *titles):
        for title in titles:
            self.desk.wait(lambda: self.desk.screen.is_minimised(title), f"{title} to be minimised")

    def are_back(self, *titles):
        for title in titles:
            self.desk.wait(lambda: not self.desk.screen.is_minimised(title), f"{title} to be back")

    def stays_in_front(self, title, owner):
        """Also after the operator has turned to the owner by its contents and by its title."""
        for turn_to_owner in (self.click_into, self.desk.screen.activate):
            turn_to_owner(owner)
            self.desk.front_window(title)
            self.assertTrue(self.desk.screen.is_above(title, owner))

    def click_into(self, title):
        """Near its lower left corner, which no window covers that stands over its middle."""
        window = next(one for one in self.desk.windows() if one.name == title)
        x, y, _, height = window.box
        self.desk.screen.click(x + 4 * self.desk.screen.scale,
                               y + height - 4 * self.desk.screen.scale)


class IconTest(DeskTest):
    def test_every_window_has_the_programs_icon(self):
        for name in ("VeyraCalendar.chm", "veyra-help-reader"):
            shutil.copy(os.path.join(os.path.dirname(PROGRAM), name), self.file(name))
        self.start()
        self.desk.key("F1")
        self.seen("Veyra Calendar Help")
        self.assertEqual("frame", self.desk.front_window().role)
        self.desk.key("Escape")
        self.seen(MONTH_WINDOW)
        self.desk.click("Settings")
        self.seen(SETTINGS)
        self.desk.key("Escape")
        self.desk.wait_for_month_window()
        self.desk.click("Help")
        self.desk.click("About")
        self.seen(ABOUT)
        self.desk.key("Escape")
        self.desk.wait_for_month_window()
        self.desk.click("Delete Facility")
        self.desk.message()
        self.seen("Veyra Calendar")
        self.desk.press("No")
        self.desk.click_on(self.desk.day_cell(date.today()), 3)
        self.seen(f"  {date_text(date.today())} Day Viewer")
        self.desk.key("Escape")
        self.desk.wait_for_month_window()
        self.desk.open_day(date.today())
        self.seen(f"  {date_text(date.today())} Bookings")
        self.desk.click("Multiple Booking")
        self.seen(MULTIPLE_DAYS)

    def seen(self, title):
        self.desk.front_window(title)
        self.assertTrue(self.desk.screen.has_icon(title), title)


if __name__ == "__main__":
    main()
