"""What was done last, taken back by Control and Z."""

from desk import date_text
from desk_test import DeskTest, main


class UndoTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.day = self.free_day("Main Hall")
        self.start()

    def book(self):
        self.desk.open_day(self.day)
        self.desk.write_name("Kay Board")
        self.desk.drag_slots(19, 21)
        self.assert_message_has("Reservation for Kay Board")
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        self.wait_for_foot(f"Booked: Main Hall, {date_text(self.day)},  9:00A-10:30A Kay Board"
                           "   Undo (Ctrl+Z)")

    def undo(self):
        self.desk.key("ctrl+z")
        self.assert_message("Do you want to undo the last booking?")
        self.desk.press("Yes")

    def test_in_the_day_window(self):
        self.book()
        self.undo()
        self.desk.front_window(f"  {date_text(self.day)} Bookings")
        self.desk.wait(lambda: self.desk.slots()[19] == "", "the free rows")
        self.wait_for_foot(f"Undone. Booked: Main Hall, {date_text(self.day)},  9:00A-10:30A "
                           "Kay Board")
        self.assertEqual([], self.bookings())

    def test_in_the_month_window_after_another_start(self):
        self.book()
        self.desk.close_day()
        self.desk.key("alt+F4")
        self.assertEqual(0, self.desk.exit_status())
        self.start()
        self.assertIn(" 9:00A-10:30A Kay Board", self.desk.lines_of(self.day))
        self.undo()
        self.desk.wait(lambda: " 9:00A-10:30A Kay Board" not in self.desk.lines_of(self.day),
                       "the booking to go")
        self.assertEqual([], self.bookings())

    def bookings(self):
        return self.sql("SELECT * FROM Reserv WHERE Event = 'Kay Board';")

    def wait_for_foot(self, line):
        self.desk.wait(lambda: self.desk.has(line), f'"{line}" at the foot')


if __name__ == "__main__":
    main()
