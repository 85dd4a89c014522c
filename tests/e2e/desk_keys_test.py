"""The month window's keys beside its fixed controls, and the menu of its background."""

from datetime import date

from desk import date_text
from desk_test import DeskTest, main
from paging_test import title


class DeskKeysTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.start()

    def test_home_comes_back_to_today(self):
        today = date.today()
        self.desk.key("Next", "Next", "Home")
        self.wait_for_month(today)
        self.wait_for_focus_on(today)

    def test_a_date_is_gone_to_and_what_is_none_is_asked_for_again(self):
        self.desk.key("ctrl+g")
        self.type_date("2/30/2031")
        self.assert_message('"2/30/2031" is not a date.\nEnter it again, for example 3/15/2014.')
        self.desk.key("Return")
        self.type_date("Dec 24, 2031")
        self.wait_for_month(date(2031, 12, 24))
        self.wait_for_focus_on(date(2031, 12, 24))

    def test_control_and_a_digit_pick_a_facility(self):
        names = self.desk.combo_items()
        for number, name in enumerate(names[:9], start=1):
            self.desk.key(f"ctrl+{number}")
            self.desk.wait(lambda name=name: self.desk.combo_text() == name, f"{name} in the box")

    def test_the_menu_of_the_background_by_mouse_and_by_key(self):
        today = date.today()
        self.desk.key("Next")
        self.desk.click("Sunday", button=3)
        self.desk.key("Down", "Return")
        self.wait_for_month(today)
        self.desk.key("Next")
        self.desk.tab_to(lambda one: one.name == "Print", "the button Print")
        self.desk.key("Menu", "Down", "Return")
        self.wait_for_month(today)

    def test_the_menu_stays_away_from_days(self):
        self.desk.click_on(self.desk.day_cell(date.today()), button=3)
        self.desk.front_window(f"  {date_text(date.today())} Day Viewer")

    def type_date(self, text):
        self.desk.front_window("Go to a Date")
        self.desk.key("ctrl+a")
        self.desk.type(text)
        self.desk.wait(lambda: self.desk.first("text").text == text, f"{text} in the box")
        self.desk.key("Return")

    def wait_for_month(self, day):
        wanted = title(day.year, day.month)
        self.desk.wait(lambda: self.desk.month_title() == wanted, f"the month {wanted}")

    def wait_for_focus_on(self, day):
        name = f"Bookings on {date_text(day)}"
        self.desk.wait(lambda: (one := self.desk.focused()) and one.name == name,
                       f"the focus on {day}")


if __name__ == "__main__":
    main()
