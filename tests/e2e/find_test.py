"""Finding a guest's bookings by a part of his name."""

from datetime import date

from desk import date_text
from desk_test import DeskTest, main


class FindTest(DeskTest):
    def test_the_next_booking_of_a_guest_is_found_and_opened(self):
        day = date.today().replace(year=date.today().year + 3, day=17)
        self.sql("INSERT INTO Reserv(RmID, Event, DateOfRes, TimeFrom, TimeTo) SELECT ID, "
                 f"'Quentin Zsolnay', '{day.isoformat()}', 19, 21 FROM Rooms "
                 "WHERE Name = 'Main Hall';")
        self.start()
        self.desk.key("ctrl+f")
        self.desk.front_window("Find a Booking")
        self.desk.type("zsol")
        line = (f"{day:%A}, {date_text(day)},  9:00A-10:30A, Main Hall, Quentin Zsolnay")
        self.desk.wait(lambda: self.desk.has(line), f'"{line}" in the list')
        self.desk.key("Return")
        self.desk.front_window(f"  {date_text(day)} Bookings")
        self.assertEqual("Quentin Zsolnay", self.desk.slots()[19])
        self.desk.close_day()

    def test_escape_leads_back(self):
        self.start()
        self.desk.key("ctrl+f")
        self.desk.front_window("Find a Booking")
        self.desk.type("nobody at all")
        self.desk.wait(lambda: self.desk.has("No booking has such a name."), "the answer")
        self.desk.key("Escape")
        self.desk.wait_for_month_window()


if __name__ == "__main__":
    main()
