"""A double click where one click is enough does what the one click does, and nothing more."""

import time
from datetime import date, timedelta

from desk import MONTH_WINDOW, date_text
from desk_test import DeskTest, main, screen

QUICK, SLOW = 40, 250  # ms between the clicks: before the new window stands, and after
TO_THE_KEYBOARD = 0.6  # seconds that a hand takes from the mouse


class DoubleClickTest(DeskTest):
    """In Main Hall every slot of every day is booked for Wedding, except the last one."""

    def setUp(self):
        super().setUp()
        first = date.today().replace(day=1)
        column_of_first = (first.weekday() + 1) % 7
        self.in_the_middle = first.replace(day=8 + (3 - column_of_first) % 7)  # a Wednesday
        self.at_the_edge = first.replace(day=8 + (0 - column_of_first) % 7)  # a Sunday
        self.sql("DELETE FROM Reserv; UPDATE Rooms SET Active = (Name = 'Main Hall'); WITH RECURSIVE n(i) AS "
                 "(SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 27) "
                 "INSERT INTO Reserv (RmID, Event, DateOfRes, TimeFrom, TimeTo) "
                 f"SELECT ID, 'Wedding', date('{first.isoformat()}', i || ' days'), 1, 47 "
                 "FROM n, Rooms WHERE Name = 'Main Hall';")
        self.before = self.rows()
        self.start()

    def test_on_a_day_over_a_slot_of_the_window_that_opens(self):
        for delay in (QUICK, SLOW):
            x, y = self.double_click_day(self.in_the_middle, 1, delay)
            self.wait_for_day(self.in_the_middle)
            left, top, width, height = self.desk.first("table").box
            self.assertTrue(left < x < left + width and top < y < top + height)
            self.the_day_window_alone_has_the_keyboard()
            self.desk.close_day()

    def test_on_a_day_beside_the_window_that_opens(self):
        for delay in (QUICK, SLOW):
            self.double_click_day(self.at_the_edge, 1, delay)
            self.wait_for_day(self.at_the_edge)
            self.the_day_window_alone_has_the_keyboard()
            self.desk.close_day()

    def test_with_the_right_button_over_and_beside_the_viewer(self):
        for day in (self.in_the_middle, self.at_the_edge):
            for delay in (QUICK, SLOW):
                self.double_click_day(day, 3, delay)
                self.viewer_has_the_keyboard(day)
                self.desk.key("Escape")
                self.desk.wait_for_month_window()
        self.assertEqual(self.before, self.rows())

    def test_on_a_slot_over_an_answer_of_the_question(self):
        self.desk.open_day(self.in_the_middle)
        slot = self.desk.first("table").cell(20, 1)
        self.desk.click_on(slot)
        answers = [self.desk.find(answer).centre for answer in self.desk.answers()]
        self.desk.press("No")
        self.desk.press("No")
        self.wait_for_day(self.in_the_middle)
        left, _, width, _ = slot.box
        places = [(x, y) for x, y in answers if left < x < left + width]
        self.assertTrue(places, answers)
        for place in places:
            screen().double_click(*place)
            self.assert_message("Do You wand to Delete this Booking for Wedding?")
            self.desk.key("Escape")
            self.assert_message("Do You wand to Edit the Booking Name of Wedding?")
            self.desk.key("Escape")
            self.wait_for_day(self.in_the_middle)
        self.assertEqual(self.before, self.rows())

    def test_on_close_over_a_day_of_the_month_behind(self):
        self.desk.open_day(self.in_the_middle)
        place = self.desk.find("Close").centre
        screen().double_click(*place)
        self.desk.wait_for_month_window()
        # Time enough for a second window to come up: that of the next press.
        self.double_click_day(self.in_the_middle, 3, QUICK)
        self.viewer_has_the_keyboard(self.in_the_middle)

    def test_a_button_let_go_over_the_window_that_it_opened(self):
        x, y = self.place_of(self.in_the_middle)
        title = f"  {date_text(self.in_the_middle)} Bookings"
        screen().hold_button_until(x, y, 1, lambda: self.desk.front_window(title), "the day window")
        self.the_day_window_alone_has_the_keyboard()

    def test_a_second_click_that_is_none_of_a_double_click_counts(self):
        self.desk.open_day(self.in_the_middle)
        self.desk.click_on(self.desk.first("table").cell(20, 1))
        self.assert_message("Do You wand to Delete this Booking for Wedding?")

    def rows(self):
        return self.sql("SELECT * FROM Reserv ORDER BY DateOfRes, TimeFrom;")

    def test_on_a_grey_day_of_the_date_picker(self):
        first = date.today().replace(day=1)
        self.desk.open_day(first)
        self.desk.click("Multiple Booking")
        self.desk.front_window("Multiple Day Booking")
        to = self.desk.find("To", "text")
        screen().double_click(*to.centre)
        self.desk.find("Close Calendar")
        grey = [one for one in self.desk.front_window().everything() if one.role == "table cell"][-1]
        screen().double_click(*grey.centre)
        last_shown = first - timedelta(days=(first.weekday() + 1) % 7 or 7) + timedelta(days=41)
        self.desk.wait(lambda: to.text == date_text(last_shown), "that day in the field")

    def double_click_day(self, day, button, delay):
        x, y = self.place_of(day)
        screen().double_click(x, y, button, delay)
        start = time.monotonic()
        self.desk.wait(lambda: time.monotonic() > start + TO_THE_KEYBOARD, "the hand to move on")
        return x, y

    def place_of(self, day):
        x, y, width, height = self.desk.day_cell(day).box
        return x + width // 2, y + height // 2

    def wait_for_day(self, day):
        self.desk.front_window(f"  {date_text(day)} Bookings")

    def the_day_window_alone_has_the_keyboard(self):
        self.desk.type("Quick")
        self.desk.wait(lambda: self.desk.combo_text() == "Quick", "the typed name")
        self.assertEqual(1, len(self.desk.windows()))
        self.assertEqual(self.before, self.rows())

    def viewer_has_the_keyboard(self, day):
        title = f"  {date_text(day)} Day Viewer"
        self.desk.front_window(title)
        self.desk.key("End")
        self.desk.wait(lambda: any(one.role == "list item" and one.has_state("FOCUSED")
                                   for one in self.desk.front_window(title).everything()),
                       "a line with the focus")
        self.assertEqual({MONTH_WINDOW, title}, {window.name for window in self.desk.windows()})


if __name__ == "__main__":
    main()
