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
        self.sql("DELETE FROM Reserv;")
        self.book("Single", self.day, 2, "NULL")
        for day in range(10, 15):
            self.book("Series", self.day.replace(day=day), 4, SERIES_KEY)
        self.before = self.rows()
        self.start()
        self.desk.choose("Main Hall")

    def test_on_the_rows_of_a_day(self):
        self.desk.open_day(self.day)
        self.tab_to_table()
        for slot, question in ((2, DELETE.format("Single")), (4, DELETE.format("Series")),
                               (6, "Reservation for No Title From  2:30A To  3:00A.\n"
                                   "Select OK to Book or Cancel to Cancel")):
            self.desk.key("Home", *["Down"] * (slot - 1))
            self.hold("Return")
            self.assertEqual(question, self.desk.message())
            self.desk.press("No" if "Delete" in question else "Cancel")
            if "Delete" in question:
                self.desk.press("No")
            self.wait_for_day()
        self.assertEqual(self.before, self.rows())

    def test_on_the_first_of_two_questions(self):
        self.desk.open_day(self.day)
        self.tab_to_table()
        self.desk.key("Home", "Down", "Return")
        self.assertEqual(DELETE.format("Single"), self.desk.message())
        self.desk.tab_to(lambda one: one.name == "No", "the button No")
        self.hold("Return")
        self.assertEqual(EDIT.format("Single"), self.desk.message())
        self.assertEqual(["Yes", "No"], sorted(self.desk.answers(), reverse=True))
        self.assertEqual(self.before, self.rows())

    def test_a_press_after_the_release_answers_at_once(self):
        self.desk.open_day(self.day)
        self.tab_to_table()
        self.desk.key("Home", *["Down"] * 5)
        self.hold("Return")
        self.desk.message()
        self.hold("Return")
        self.assertEqual("1 Booking(s) Made.", self.desk.message())
        self.desk.key("Return")
        self.wait_for_day()
        self.assertEqual(len(self.before) + 1, len(self.rows()))

    def test_two_presses_too_quick_for_a_hand_are_one(self):
        self.desk.open_day(self.day)
        self.tab_to_table()
        self.desk.key("Home", *["Down"] * 5, "Return", "Return")
        self.assertTrue(self.desk.message().startswith("Reservation for "))
        self.assertEqual(self.before, self.rows())

    def test_on_delete_facility(self):
        for key in ("Return", "space"):
            self.desk.tab_to(lambda one: one.name == "Delete Facility", "the button")
            self.hold(key)
            self.assertIn("Are you Sure you want to Delete Main Hall", self.desk.message())
            self.assertEqual(self.before, self.rows())
            self.desk.press("No")
            self.desk.wait_for_month_window()

    def test_in_the_facility_box(self):
        rooms = self.sql("SELECT Name FROM Rooms ORDER BY ID;")
        self.desk.write_name("Zed")
        self.hold("Return")
        self.assertEqual("Do you want to add a new Facility called Zed?", self.desk.message())
        self.assertEqual(rooms, self.sql("SELECT Name FROM Rooms ORDER BY ID;"))

    def test_on_close_of_the_day_window(self):
        for key in ("Return", "space"):
            self.desk.open_day(self.day)
            self.desk.tab_to(lambda one: one.name == "Close", "the button Close")
            self.hold(key)
            self.desk.wait_for_month_window()
            self.assertEqual([MONTH_WINDOW], [window.name for window in self.desk.windows()])

    def test_on_the_days_of_the_month_and_in_the_viewer(self):
        self.tab_to_day()
        self.hold("Return")
        self.wait_for_day()
        self.desk.close_day()
        self.tab_to_day()
        self.hold("shift+F10")
        self.desk.front_window(f"  {date_text(self.day)} Day Viewer")
        self.desk.key("Home")
        self.hold("Return")
        self.assertIn("Single", self.desk.message())
        self.desk.key("Return")
        self.desk.front_window(f"  {date_text(self.day)} Day Viewer")
        self.hold("Escape")
        self.desk.wait_for_month_window()
        self.assertEqual(self.before, self.rows())

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

    def tab_to_table(self):
        self.desk.tab_to(lambda one: one.role == "table", "the grid")

    def tab_to_day(self):
        """To the cell of self.day, from the one that Tab comes to."""
        cell = self.desk.tab_to(
            lambda one: one.role == "list" and one.name.startswith("Bookings on "), "a day cell")
        distance = self.day.day - int(cell.name.split("/")[1])
        if distance:
            self.desk.key(*["Right" if distance > 0 else "Left"] * abs(distance))
        self.desk.wait(lambda: (one := self.desk.focused())
                       and one.name == f"Bookings on {date_text(self.day)}", "the focus on the day")


if __name__ == "__main__":
    main()
