"""A day in large type, and the way from there to a booking and back."""

from desk import date_text
from desk_test import DeskTest, main


class DayViewerTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.day = self.free_day("Main Hall")
        self.start()

    def test_a_booking_made_by_way_of_the_viewer_is_in_it_afterwards(self):
        self.open_viewer()
        self.desk.click_on(self.list(), 3)
        self.desk.front_window(f"  {date_text(self.day)} Bookings")
        self.desk.write_name("Vera View")
        self.desk.drag_slots(19, 21)
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        self.desk.click("Close")

        self.wait_for_viewer()
        self.assertIn(" 9:00A-10:30A Vera View", self.lines())
        self.desk.key("Escape")
        self.desk.wait_for_month_window()
        title = self.desk.month_title()
        self.desk.click("Next =>")
        self.desk.wait(lambda: self.desk.month_title() != title, "the next month")

    def test_the_lines_picked_with_shift_are_shown_one_by_one(self):
        self.sql("INSERT INTO Reserv (RmID, Event, DateOfRes, TimeFrom, TimeTo) "
                 f"SELECT ID, 'First of all', '{self.day.isoformat()}', 1, 1 FROM Rooms "
                 "WHERE Name = 'Main Hall';"
                 "INSERT INTO Reserv (RmID, Event, DateOfRes, TimeFrom, TimeTo) "
                 f"SELECT ID, 'Second', '{self.day.isoformat()}', 2, 2 FROM Rooms "
                 "WHERE Name = 'Main Hall';")
        self.open_viewer()
        first, second = self.items()[:2]
        self.desk.click_on(first)
        self.assert_message("12:00A-12:30A First of all")
        self.desk.press("OK")
        self.wait_for_viewer()
        self.desk.screen.click_with("shift", *second.centre)
        for line in ("12:00A-12:30A First of all", "12:30A- 1:00A Second"):
            self.assert_message(line)
            self.desk.press("OK")
        self.wait_for_viewer()

    def test_the_title_bar_gives_the_month_window_its_input_back(self):
        self.open_viewer()
        self.desk.key("alt+F4")
        self.desk.wait_for_month_window()
        self.desk.open_day(self.day)

    def test_keys_lead_there_and_on(self):
        cell = self.desk.tab_to(lambda one: one.name.startswith("Bookings on "), "a day cell")
        day = cell.name.removeprefix("Bookings on ")
        self.desk.key("shift+F10")
        self.desk.front_window(f"  {day} Day Viewer")
        self.desk.key("shift+F10")
        self.desk.front_window(f"  {day} Bookings")

    def open_viewer(self):
        self.desk.click_on(self.desk.day_cell(self.day), 3)
        self.wait_for_viewer()

    def wait_for_viewer(self):
        self.desk.front_window(f"  {date_text(self.day)} Day Viewer")

    def list(self):
        return self.desk.find(f"Bookings on {date_text(self.day)}", "list")

    def items(self):
        return [one for one in self.list().children if one.role == "list item"]

    def lines(self):
        return [item.name for item in self.items()]


if __name__ == "__main__":
    main()
