"""Buttons, menus and fields by their Alt keys; their captions are heard without a sign."""

from datetime import date

from desk import MONTH_WINDOW, date_text
from desk_test import DeskTest, main
from paging_test import title


class AltKeysTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.today = date.today()
        self.start()

    def test_in_the_month_window(self):
        self.desk.key("alt+n")
        self.wait_for_month(self.month_after(self.today))
        self.desk.key("alt+p")
        self.wait_for_month((self.today.year, self.today.month))
        self.desk.key("alt+f")
        self.wait_for_focus("Facility")
        for caption in ("Next =>", "<= Previous", "Print", "Delete Facility"):
            self.assertTrue(self.desk.has(caption), caption)
        self.desk.key("alt+d")
        self.assert_message_has("Are you Sure you want to Delete Main Hall")
        self.desk.key("Escape")
        self.desk.front_window(MONTH_WINDOW)
        self.desk.key("alt+r")
        self.desk.front_window("Print")

    def test_of_the_menus(self):
        self.desk.key("alt+h")
        self.desk.key("a")
        self.desk.front_window("Veyra About")
        self.desk.key("Escape")
        self.desk.front_window(MONTH_WINDOW)
        self.desk.key("alt+s")
        self.desk.front_window("Calendar Color Settings")
        self.desk.key("alt+e")
        self.desk.wait(lambda: self.desk.find("Header Color", "radio button").has_state("CHECKED"),
                       "the header colour chosen")

    def test_in_the_day_window_and_its_plan(self):
        day = self.today.replace(day=17)
        self.desk.open_day(day)
        self.desk.key("alt+s")
        self.wait_for_focus("Single Booking")
        self.desk.key("alt+g")
        self.wait_for_focus("Guest/Event")
        self.desk.key("alt+m")
        self.desk.front_window("Multiple Day Booking")
        self.desk.key("alt+u")
        self.desk.wait(lambda: self.desk.find("Tue", "check box").has_state("CHECKED"),
                       "the ticked Tuesday")
        self.desk.key("alt+t")
        self.wait_for_focus("To")
        self.desk.key("alt+k")
        self.desk.wait(lambda: self.desk.find("Sun", "check box").has_state("CHECKED"),
                       "all days ticked")
        self.desk.key("alt+c")
        self.desk.front_window(f"  {date_text(day)} Bookings")
        self.desk.key("alt+c")
        self.desk.wait_for_month_window()

    def wait_for_month(self, month):
        self.desk.wait(lambda: self.desk.month_title() == title(*month), f"the month {month}")

    def wait_for_focus(self, name):
        def has_it():
            return any(one.name == name and one.has_state("FOCUSED")
                       for one in self.desk.front_window().everything())

        self.desk.wait(has_it, f"{name} to have the focus")

    @staticmethod
    def month_after(day):
        return (day.year + 1, 1) if day.month == 12 else (day.year, day.month + 1)


if __name__ == "__main__":
    main()
