"""From the start to the first booking, the way a newcomer goes."""

from desk_test import DeskTest, main


class FirstBookingTest(DeskTest):
    def test_a_newcomer_books_a_slot(self):
        day = self.free_day("Studio")
        self.start()
        self.desk.choose("Studio")
        self.desk.open_day(day)
        self.desk.write_name("Ann Example")

        self.desk.drag_slots(19, 21)
        self.assert_message("Reservation for Ann Example From  9:00A To 10:30A.\n"
                            "Select OK to Book or Cancel to Cancel")
        self.assertEqual(["OK", "Cancel"], self.desk.answers())
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")

        self.assertEqual(["Ann Example"] * 3, self.desk.slots()[19:22])
        self.assertEqual([f"Studio|Ann Example|{day.isoformat()}|19|21|"],
                         self.sql("SELECT Rooms.Name, Event, DateOfRes, TimeFrom, TimeTo, MultKey "
                                  "FROM Reserv JOIN Rooms ON RmID = Rooms.ID "
                                  "WHERE Event = 'Ann Example';"))
        self.desk.close_day()
        self.assertIn(" 9:00A-10:30A Ann Example", self.desk.lines_of(day))

    def test_cancel_books_nothing(self):
        day = self.free_day("Main Hall")
        bookings = self.sql("SELECT * FROM Reserv;")
        self.start()
        self.desk.open_day(day)
        self.desk.drag_slots(21, 19)
        self.desk.message()
        self.desk.press("Cancel")
        self.desk.close_day()
        self.assertEqual(bookings, self.sql("SELECT * FROM Reserv;"))

    def test_a_drag_over_a_booking_is_refused(self):
        day = self.free_day("Main Hall")
        self.sql("INSERT INTO Reserv (RmID, Event, DateOfRes, TimeFrom, TimeTo) "
                 f"SELECT ID, 'Taken', '{day.isoformat()}', 20, 21 FROM Rooms "
                 "WHERE Name = 'Main Hall';")
        self.start()
        self.desk.open_day(day)
        self.desk.drag_slots(19, 21)
        self.assert_message("There is already a Booking on 2 of the Time Slot(s).")
        self.desk.press("OK")


if __name__ == "__main__":
    main()
