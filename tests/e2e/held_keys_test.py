"""A key that is held down does what one press of it does, and answers no box that it has opened."""

from datetime import date

from desk import MONTH_WINDOW, date_text
from desk_test import DeskTest, main

HELD = 2.5  # seconds, in which a key repeats some forty times
SERIES_KEY = 20260102030405
DELETE = "Do You wand to Delete this Booking for {}?"
EDIT = "Do You wand to Edit the Booking Name of {}?"


class HeldKeysTest(DeskTest):
    """On the tenth Main Hall has a single booking in slot 2 and one of a series of five in slot 4."""

    def setUp(self):
        super().setUp()
        self.day = date.today().replace(day=10)
        self.sql("DELETE FROM Reserv; UPDATE Rooms SET Active = (Name = 'Main Hall');")
        self.book("Single", self.day, 2, "NULL")
        for day in range(10, 15):
            self.book("Series", self.day.replace(day=day), 4, SERIES_KEY)
        self.before = self.rows()
        self.start()

    def test_on_the_rows_of_a_day(self):
        self.open_grid()
        for slot, question in ((2, DELETE.format("Single")), (4, DELETE.format("Series")),
                               (6, "Reservation for No Title From  2:30A To  3:00A.\n"
                                   "Select OK to Book or Cancel to Cancel")):
            self.desk.key("Home", *["Down"] * (slot - 1))
            self.hold("Return")
            self.assert_message(question)
            self.desk.press("No" if "Delete" in question else "Cancel")
            if "Delete" in question:
                self.desk.press("No")
            self.wait_for_day()
        self.assertEqual(self.before, self.rows())

    def test_on_the_first_of_two_questions(self):
        self.open_grid()
        self.desk.key("Home", "Down", "Return")
        self.assert_message(DELETE.format("Single"))
        self.desk.tab_to(lambda one: one.name == "No", "the button No")
        self.hold("Return")
        self.assert_message(EDIT.format("Single"))
        self.assertEqual(["Yes", "No"], sorted(self.desk.answers(), reverse=True))
        self.assertEqual(self.before, self.rows())

    def test_a_press_after_the_release_answers_at_once(self):
        self.open_grid()
        self.desk.key("Home", *["Down"] * 5)
        self.hold("Return")
        self.desk.message()
        self.hold("Return")
        self.assert_message("1 Booking(s) Made.")
        self.desk.key("Return")
        self.wait_for_day()
        self.assertEqual(len(self.before) + 1, len(self.rows()))

    def test_two_presses_too_quick_for_a_hand_are_one(self):
        self.open_grid()
        self.desk.key("Home", *["Down"] * 5)
        self.desk.screen.key_twice("Return")
        self.assert_message_has("Reservation for ")
        self.assertEqual(self.before, self.rows())

    def test_on_delete_facility(self):
        self.desk.key("Tab", "Tab")
        for key in ("Return", "space"):
            self.hold(key)
            self.assert_message_has("Are you Sure you want to Delete Main Hall")
            self.assertEqual(self.before, self.rows())
            self.desk.press("No")
            self.desk.wait_for_month_window()

    def test_in_the_facility_box(self):
        rooms = self.sql("SELECT Name FROM Rooms ORDER BY ID;")
        self.desk.write_name("Zed")
        self.hold("Return")
        self.assert_message("Do you want to add a new Facility called Zed?")
        self.assertEqual(rooms, self.sql("SELECT Name FROM Rooms ORDER BY ID;"))

    def test_on_close_of_the_day_window(self):
        for key in ("Return", "space"):
            self.desk.open_day(self.day)
            self.desk.key("shift+Tab")
            self.hold(key)
            self.desk.wait_for_month_window()
            self.assertEqual([MONTH_WINDOW], [window.name for window in self.desk.windows()])

    def test_on_the_days_of_the_month_and_in_the_viewer(self):
        distance = self.day.day - date.today().day
        if distance:
            self.desk.key(*["Right" if distance > 0 else "Left"] * abs(distance))
        self.hold("shift+F10")
        self.wait_for_viewer()
        self.desk.key("Escape")
        self.desk.wait_for_month_window()
        self.hold("Menu")
        self.wait_for_viewer()
        self.desk.key("Home")
        self.hold("Return")
        self.assert_message_has("Single")
        self.desk.key("Return")
        self.wait_for_viewer()
        self.hold("Escape")
        self.desk.wait_for_month_window()
        self.hold("Return")
        self.wait_for_day()
        self.assertEqual(self.before, self.rows())

    def test_of_the_small_windows(self):
        for key, title in (("ctrl+f", "Find a Booking"), ("ctrl+shift+f", "Free Time"),
                           ("ctrl+g", "Go to a Date"), ("ctrl+p", "Print")):
            self.hold(key)
            self.desk.front_window(title)
            self.assertEqual([MONTH_WINDOW, title], [one.name for one in self.desk.windows()])
            self.desk.key("Escape")
            if title == "Print":
                self.assert_message("Calendar Printing Canceled")
                self.desk.key("Return")
            self.desk.wait_for_month_window()
        self.desk.key("ctrl+f")
        self.desk.front_window("Find a Booking")
        self.desk.type("Single")
        self.desk.wait(lambda: self.desk.first("list").children, "the booking")
        self.hold("Return")
        self.wait_for_day()
        self.assertEqual(self.before, self.rows())

    def test_of_undo_answers_nothing(self):
        self.open_grid()
        self.desk.key("Home", *["Down"] * 5, "Return")
        self.assert_message_has("Reservation for")
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        booked = self.rows()
        self.hold("ctrl+z")
        self.assert_message("Do you want to undo the last booking?")
        self.assertEqual(booked, self.rows())

    def book(self, name, day, slot, key):
        self.sql("INSERT INTO Reserv (RmID, Event, DateOfRes, TimeFrom, TimeTo, MultKey) "
                 f"SELECT ID, '{name}', '{day.isoformat()}', {slot}, {slot}, {key} FROM Rooms "
                 "WHERE Name = 'Main Hall';")

    def rows(self):
        return self.sql("SELECT * FROM Reserv ORDER BY DateOfRes, TimeFrom;")

    def hold(self, key):
        self.desk.screen.hold_key(key, HELD)

    def wait_for_day(self):
        self.desk.front_window(f"  {date_text(self.day)} Bookings")

    def wait_for_viewer(self):
        self.desk.front_window(f"  {date_text(self.day)} Day Viewer")

    def open_grid(self):
        """Opens the day and goes to its grid, past the options."""
        self.desk.open_day(self.day)
        self.desk.key("Tab", "Tab")


if __name__ == "__main__":
    main()
