"""What an assistive program writes counts like what is typed, and it hears what others see."""

from desk import date_text
from desk_test import DeskTest, main


class AssistiveTest(DeskTest):
    def test_a_name_that_it_writes_is_booked(self):
        day = self.free_day("Main Hall")
        self.start()
        self.desk.open_day(day)
        self.desk.name_field().set_text("Ann Assisted")
        self.desk.drag_slots(19, 21)
        self.assert_message("Reservation for Ann Assisted From  9:00A To 10:30A.\n"
                            "Select OK to Book or Cancel to Cancel")
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        self.assertEqual(["19|21"], self.sql("SELECT TimeFrom, TimeTo FROM Reserv "
                                             "WHERE Event = 'Ann Assisted';"))

    def test_the_heading_of_the_day_is_found_by_its_name(self):
        day = self.free_day("Main Hall")
        self.start()
        self.desk.open_day(day)
        heading = self.desk.find(f"Main Hall, {day:%A}", "label")
        left, top, width, height = heading.box
        window_left, window_top, window_width, _ = self.desk.front_window().box
        self.assertTrue(window_left < left and left + width <= window_left + window_width)
        self.assertTrue(window_top <= top and height > 0)

    def test_the_line_at_the_foot_is_found_by_its_name(self):
        day = self.free_day("Main Hall")
        self.start()
        self.desk.open_day(day)
        self.desk.write_name("Ann Assisted")
        self.desk.drag_slots(19, 21)
        self.assert_message_has("Reservation for Ann Assisted")
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        line = (f"Booked: Main Hall, {date_text(day)},  9:00A-10:30A Ann Assisted"
                "   Undo (Ctrl+Z)")
        self.desk.find(line, "label")
        self.desk.close_day()
        self.desk.find(line, "label")

    def test_a_facility_that_it_writes_is_added(self):
        self.start()
        self.desk.click_on(self.desk.name_field())
        self.desk.name_field().set_text("squash court")
        self.desk.key("Return")
        self.assert_message("Do you want to add a new Facility called Squash Court?")


if __name__ == "__main__":
    main()
