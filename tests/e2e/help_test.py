"""The help: every way to it, beside windows that go on working."""

import os
import shutil
from datetime import date

from desk import date_text
from desk_test import PROGRAM, DeskTest, main

HELP = "Veyra Calendar Help"


class HelpTest(DeskTest):
    def setUp(self):
        super().setUp()
        for name in ("VeyraCalendar.chm", "veyra-help-reader"):
            shutil.copy(os.path.join(os.path.dirname(PROGRAM), name), self.file(name))

    def test_each_item_of_the_menu_opens_its_topic(self):
        self.start()
        for item, topic in (("Contents", "Veyra Calendar Help"), ("Overview", "Overview"),
                            ("Calendar Help", "The month window")):
            self.desk.click("Help")
            self.desk.click(item)
            self.wait_for_topic(topic)
            self.close_help()

    def test_f1_opens_the_topic_of_the_window_in_front(self):
        self.start()
        self.desk.key("F1")
        self.wait_for_topic("The month window")
        self.close_help()

        self.desk.click_on(self.desk.day_cell(date.today()), 3)
        self.desk.front_window(f"  {date_text(date.today())} Day Viewer")
        self.desk.key("F1")
        self.wait_for_topic("The day viewer")
        self.desk.key("Escape")
        self.desk.front_window(f"  {date_text(date.today())} Day Viewer")
        self.desk.key("Escape")
        self.desk.wait_for_month_window()

        self.desk.open_day(date.today())
        self.desk.key("F1")
        self.wait_for_topic("Veyra Calendar Help")
        self.desk.key("Escape")
        self.desk.front_window(f"  {date_text(date.today())} Bookings")
        self.desk.close_day()

        self.desk.click("Settings")
        self.desk.front_window("Calendar Color Settings")
        self.desk.key("F1")
        self.wait_for_topic("Veyra Calendar Help")

    def test_f1_opens_the_help_from_windows_without_a_menu(self):
        self.start()
        self.desk.click("Help")
        self.desk.click("About")
        self.desk.front_window("Veyra About")
        self.desk.key("F1")
        self.wait_for_topic("Veyra Calendar Help")
        self.desk.key("Escape")
        self.desk.front_window("Veyra About")
        self.desk.click("Exit")
        self.desk.wait_for_month_window()

        self.desk.open_day(date.today())
        self.desk.click("Multiple Booking")
        self.desk.front_window("Multiple Day Booking")
        self.desk.key("F1")
        self.wait_for_topic("Veyra Calendar Help")

    def test_the_windows_go_on_working_beside_the_help(self):
        self.start()
        self.desk.key("F1")
        self.wait_for_topic("The month window")
        month = next(one for one in self.desk.windows() if one.name != HELP)
        x, y, width, height = month.box
        self.desk.screen.click(x + width - 4 * self.desk.screen.scale,
                               y + height - 40 * self.desk.screen.scale)
        self.desk.wait_for_month_window()
        title = self.desk.month_title()
        self.desk.key("Page_Down")
        self.desk.wait(lambda: self.desk.month_title() != title, "the next month")
        self.assertEqual(2, len(self.desk.windows()))

    def test_without_a_help_file_nothing_happens(self):
        os.remove(self.file("VeyraCalendar.chm"))
        self.start()
        self.desk.key("F1")
        self.desk.open_day(date.today())
        self.assertEqual(1, len(self.desk.windows()))

    def wait_for_topic(self, heading):
        window = self.desk.front_window(HELP)
        page = self.desk.find("Help page", window=window)
        self.desk.wait(lambda: page.text.lstrip().startswith(heading), f"the topic {heading}")

    def close_help(self):
        self.desk.key("Escape")
        self.desk.wait_for_month_window()


if __name__ == "__main__":
    main()
