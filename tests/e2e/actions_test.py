"""What a box says is so: the change behind the message, the booking that is touched, a series that
is stopped."""

from datetime import date, timedelta

from desk import date_text, guests_of
from desk_test import DeskTest, main

BOX = "Veyra Calendar"  # the title of every box


class ActionsTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.sql("DELETE FROM Reserv;")
        self.day = date.today().replace(day=15)
        self.start()

    def slots_behind(self):
        """The names in the day grid while a box stands before it."""
        day = next(window for window in self.desk.windows() if window.name.endswith(" Bookings"))
        return guests_of(self.desk.first("table", day))

    def booked_dates(self):
        return self.sql("SELECT DateOfRes FROM Reserv ORDER BY DateOfRes;")

    def test_the_grid_shows_a_booking_behind_its_message(self):
        self.desk.open_day(self.day)
        self.desk.write_name("Ann Smith")
        self.desk.drag_slots(19, 21)
        self.desk.message()
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.assertEqual(["Ann Smith"] * 3, self.slots_behind()[19:22])

    def test_the_grid_shows_a_deletion_behind_its_message(self):
        self.sql("INSERT INTO Reserv (RmID, Event, DateOfRes, TimeFrom, TimeTo) "
                 f"SELECT ID, 'Ann Smith', '{self.day.isoformat()}', 19, 21 FROM Rooms "
                 "WHERE Name = 'Main Hall';")
        self.desk.open_day(self.day)
        self.desk.click_slot(20)
        self.assert_message("Do You wand to Delete this Booking for Ann Smith?")
        self.assertIn(f"Main Hall, {self.day.strftime('%A')} {date_text(self.day)}, 9:00A-10:30A",
                      self.desk.labels())
        self.desk.press("Yes")
        self.assert_message("Booking Deleted.")
        self.assertEqual([""] * 3, self.slots_behind()[19:22])

    def test_enter_deletes_nothing(self):
        self.desk.click("Delete Facility")
        self.assert_message_has("Delete Main Hall")
        self.desk.key("Return")
        self.desk.wait_for_month_window()
        self.assertEqual(["Main Hall"], self.sql("SELECT Name FROM Rooms WHERE Name = 'Main Hall';"))

    def test_a_series_is_stopped_and_taken_back(self):
        self.begin_a_series_of_slow_writes()
        self.stop_by("Escape")
        self.assertEqual(["Continue", "Undo", "Keep"], self.desk.answers())
        self.assertNotEqual([], self.booked_dates())
        self.desk.press("Undo")
        self.assert_message("The bookings that were made have been deleted again.")
        self.desk.press("OK")
        self.assertEqual([], self.booked_dates())

    def test_a_stopped_series_goes_on_as_one_group(self):
        self.begin_a_series_of_slow_writes()
        self.stop_by("space")
        made = len(self.booked_dates())
        self.sql("DROP TRIGGER Slow;")
        self.desk.press("Continue")
        days = (self.last - self.day).days + 1
        self.assert_message(f"{days} Booking(s) Made.")
        self.assertLess(0, made)
        self.assertLess(made, days)
        self.assertEqual(days, len(set(self.booked_dates())))
        self.assertEqual(["1"], self.sql("SELECT COUNT(DISTINCT MultKey) FROM Reserv;"))

    def begin_a_series_of_slow_writes(self):
        """Each date takes so long to write that the series is under way for some seconds on the
        quickest machine."""
        self.sql("CREATE TRIGGER Slow AFTER INSERT ON Reserv BEGIN SELECT (WITH RECURSIVE n(i) AS "
                 "(SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) SELECT MAX(i) FROM n); "
                 "END;")
        self.last = self.day + timedelta(days=299)
        self.desk.open_day(self.day)
        self.desk.click("Multiple Booking")
        self.desk.front_window("Multiple Day Booking")
        self.desk.click("Ck ALL")
        self.desk.click_on(self.desk.find("To", "text"))
        self.desk.type(date_text(self.last))
        self.desk.click("Close")
        self.assert_message_has("Days will be Scheduled")
        self.desk.press("OK")
        self.desk.front_window(f"  {date_text(self.day)} Bookings")
        self.desk.drag_slots(19, 21)
        self.assert_message_has("Reservation for")
        self.question = self.desk.screen.window_in_front()
        self.desk.press("OK")

    def stop_by(self, key):
        """Stops the series by its box, and waits for the question what is to become of it. Whether
        the box is there the screen is asked: the program is busy, and answers slowly."""
        def box_is_there():
            window = self.desk.screen.window_in_front()
            return window != self.question and window[1] == BOX

        self.desk.wait(box_is_there, "the box with the button")
        self.desk.key(key)
        self.assert_message_has("You stopped it there.")


if __name__ == "__main__":
    main()
