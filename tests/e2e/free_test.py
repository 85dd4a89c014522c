"""Finding a time that is free, and booking it."""

from datetime import date, timedelta

from desk import date_text
from desk_test import DeskTest, main


class FreeTimeTest(DeskTest):
    def setUp(self):
        super().setUp()
        # Three years ahead, where the sample has nothing.
        day = date.today().replace(year=date.today().year + 3, day=1)
        self.saturday = day + timedelta(days=(5 - day.weekday()) % 7)

    def open(self):
        self.start()
        self.desk.key("ctrl+shift+f")
        self.desk.front_window("Free Time")

    def write(self, field, text):
        self.desk.click_on(self.desk.find(field, "text"))
        self.desk.key("ctrl+a")
        self.desk.type(text)

    def test_a_free_saturday_afternoon_is_found_and_booked(self):
        self.sql("INSERT INTO Reserv(RmID, Event, DateOfRes, TimeFrom, TimeTo) SELECT ID, 'Choir', "
                 f"'{self.saturday.isoformat()}', 1, 30 FROM Rooms;")
        self.open()
        self.write("First date", date_text(self.saturday - timedelta(days=3)))
        self.write("Last date", date_text(self.saturday + timedelta(days=3)))
        for weekday in ("Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday"):
            self.desk.click_on(self.desk.find(weekday, "check box"))
        line = f"Saturday, {date_text(self.saturday)},  3:00P-10:00P, Studio"
        self.desk.wait(lambda: self.desk.has(line), f'"{line}" in the list')
        item = self.desk.find(line, "list item")
        self.desk.screen.double_click(*item.centre)
        self.desk.front_window(f"  {date_text(self.saturday)} Bookings")
        # An hour was asked for: the name, then the chosen rows.
        self.desk.write_name("Ann Smith")
        self.desk.tab_to(lambda control: control.role == "table", "the grid")
        self.desk.key("Return")
        self.assert_message("Reservation for Ann Smith From  3:00P To  4:00P.\n"
                            "Select OK to Book or Cancel to Cancel")
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        self.desk.close_day()
        self.assertIn("Studio", self.desk.labels())
        self.assertEqual(["Studio|31|32"], self.sql(
            "SELECT Rooms.Name, TimeFrom, TimeTo FROM Reserv JOIN Rooms ON RmID = ID "
            "WHERE Event = 'Ann Smith';"))

    def test_what_cannot_be_is_said_and_escape_leads_back(self):
        self.open()
        self.write("Last date", "1/1/2001")
        self.desk.wait(lambda: self.desk.has("The dates end before they begin."), "what is wrong")
        self.desk.key("Escape")
        self.desk.wait_for_month_window()


if __name__ == "__main__":
    main()
