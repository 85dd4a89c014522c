"""Everything from the keyboard: no mouse in this file."""

from datetime import date

from desk import date_text
from desk_test import DeskTest, main


class KeyboardTest(DeskTest):
    def test_a_booking_without_the_mouse(self):
        day = self.free_day("Main Hall")
        self.start()
        self.open_day_by_keys(day)
        self.desk.tab_to(lambda one: one.role in ("combo box", "text"), "the name box")
        self.desk.type("Kay Board")
        self.book_by_keys(19, 21)

        self.assert_message("Reservation for Kay Board From  9:00A To 10:30A.\n"
                            "Select OK to Book or Cancel to Cancel")
        self.desk.key("Return")
        self.assert_message("1 Booking(s) Made.")
        self.desk.key("Return")

        self.desk.front_window(f"  {date_text(day)} Bookings")
        self.desk.tab_to(lambda one: one.name == "Close", "the button Close")
        self.desk.key("space")
        self.desk.wait_for_month_window()
        self.assertIn(" 9:00A-10:30A Kay Board", self.desk.lines_of(day))

    def open_day_by_keys(self, day):
        cell = self.desk.tab_to(self.is_day_cell, "a day cell")
        month, start, _ = map(int, cell.name.removeprefix("Bookings on ").split("/"))
        self.assertEqual(date.today().month, month)
        key = "Right" if day.day > start else "Left"
        self.desk.key(*[key] * abs(day.day - start))
        self.desk.wait(lambda: (one := self.desk.focused())
                       and one.name == f"Bookings on {date_text(day)}", "the focus on that day")
        self.desk.key("Return")
        self.desk.front_window(f"  {date_text(day)} Bookings")

    @staticmethod
    def is_day_cell(control):
        return control.role == "list" and control.name.startswith("Bookings on ")

    def book_by_keys(self, first, last):
        self.desk.tab_to(lambda one: one.role == "table", "the grid")
        self.desk.key("Home", *["Down"] * (first - 1), *["shift+Down"] * (last - first), "Return")


if __name__ == "__main__":
    main()
