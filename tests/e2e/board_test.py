"""The day board: all facilities of one day side by side."""

from datetime import date

from desk import date_text
from desk_test import DeskTest, main


class BoardTest(DeskTest):
    def setUp(self):
        super().setUp()
        # Three years ahead, where the sample has nothing.
        self.day = date.today().replace(year=date.today().year + 3, day=17)
        self.title = f"Day Board: {self.day:%A}, {date_text(self.day)}"

    def open(self):
        self.start()
        self.desk.key("ctrl+g")
        self.desk.message()
        self.desk.key("ctrl+a")
        self.desk.type(date_text(self.day))
        self.desk.key("Return")
        self.desk.wait(lambda: self.desk.month_title() == f"{self.day:%B %Y}", "the month")
        self.desk.key("ctrl+b")
        self.desk.front_window(self.title)

    def test_a_cell_leads_to_the_day_and_shows_what_was_booked_there(self):
        self.sql("INSERT INTO Reserv(RmID, Event, DateOfRes, TimeFrom, TimeTo) SELECT ID, 'Choir', "
                 f"'{self.day.isoformat()}', 19, 20 FROM Rooms WHERE Name = 'Studio';")
        self.open()
        self.desk.find("Studio, 9:00 AM, Choir")
        self.desk.find("Kitchen, 9:00 AM, free")
        self.desk.click("Kitchen, 10:00 AM, free")
        self.desk.front_window(f"  {date_text(self.day)} Bookings")
        self.desk.write_name("Ann Smith")
        self.desk.tab_to(lambda control: control.role == "table", "the grid")
        self.desk.key("Return")
        self.assert_message("Reservation for Ann Smith From 10:00A To 10:30A.\n"
                            "Select OK to Book or Cancel to Cancel")
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        self.desk.key("Escape")
        self.desk.front_window(self.title)
        self.desk.find("Kitchen, 10:00 AM, Ann Smith")
        self.desk.key("Next")
        after = self.day.replace(day=18)
        self.desk.front_window(f"Day Board: {after:%A}, {date_text(after)}")
        self.desk.find("Kitchen, 10:00 AM, free")
        self.desk.key("Escape")
        self.desk.wait_for_month_window()
        self.assertIn("Kitchen", self.desk.labels())


if __name__ == "__main__":
    main()
