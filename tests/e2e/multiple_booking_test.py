"""A booking on several days at once: made around what is taken, renamed, deleted."""

from datetime import date, timedelta

from desk import date_text
from desk_test import DeskTest, main

NAME, NEW_NAME = "Chess Club", "Chess and Tea Club"


class MultipleBookingTest(DeskTest):
    """Mondays and Wednesdays over five weeks, of which the second Monday and the third Wednesday
    are taken: one by the facility itself, one by another, which counts as well."""

    def setUp(self):
        super().setUp()
        first = date.today().replace(day=1)
        self.first = first + timedelta(days=-first.weekday() % 7)
        self.last = self.first + timedelta(days=34)
        self.taken = [self.first + timedelta(days=7), self.first + timedelta(days=16)]
        weeks = [self.first + timedelta(days=7 * week) for week in range(5)]
        planned = [day for monday in weeks for day in (monday, monday + timedelta(days=2))]
        self.free = [day for day in planned if day not in self.taken]
        self.sql("DELETE FROM Reserv;")
        for day, facility in zip(self.taken, ("Main Hall", "Studio")):
            self.sql("INSERT INTO Reserv (RmID, Event, DateOfRes, TimeFrom, TimeTo) "
                     f"SELECT ID, 'Taken', '{day.isoformat()}', 21, 24 FROM Rooms "
                     f"WHERE Name = '{facility}';")
        self.start()

    def test_the_life_of_a_group(self):
        self.book_mondays_and_wednesdays()
        self.assertEqual([day.isoformat() for day in self.free], self.dates_of(NAME))
        keys = self.sql(f"SELECT DISTINCT CAST(MultKey AS INTEGER) FROM Reserv "
                        f"WHERE Event = '{NAME}';")
        self.assertEqual(1, len(keys), keys)
        self.assertRegex(keys[0], r"^20\d{12}$")
        self.rename_all()
        self.delete_the_first_only()
        self.delete_the_rest()

    def book_mondays_and_wednesdays(self):
        self.desk.open_day(self.first)
        self.desk.write_name(NAME)
        self.plan()
        self.assert_message("10 Days will be Scheduled for the Times Selected.")
        self.desk.press("OK")
        self.wait_for_day()

        self.desk.drag_slots(19, 21)
        self.assert_message(
            "There are 2 Conflicts.\n"
            f"Monday - {date_text(self.taken[0])}\n"
            f"Wednesday - {date_text(self.taken[1])}\n"
            "All that will be set are the remaining 8 Bookings without Conflicts.")
        self.desk.press("OK")
        self.assert_message(
            f"Reservation for {NAME} From  9:00A To 10:30A\n"
            f"for 8 Booking(s) between {date_text(self.first)} and {date_text(self.last)}\n"
            "Select OK to Book or Cancel to Cancel")
        self.desk.press("OK")
        self.assert_message("8 Booking(s) Made.")
        self.desk.press("OK")
        self.wait_for_day()
        self.desk.close_day()

    def plan(self):
        self.desk.click("Multiple Booking")
        self.desk.front_window("Multiple Day Booking")
        for weekday in ("Mon", "Wed"):
            self.desk.click(weekday)
        self.assertEqual(date_text(self.first), self.desk.find("From", "text").text)
        self.desk.click_on(self.desk.find("To", "text"))
        self.desk.type(date_text(self.last))
        self.desk.click("Close")

    def rename_all(self):
        self.desk.open_day(self.first)
        self.desk.click_slot(20)
        self.assert_message(f"Do You wand to Delete this Booking for {NAME}?")
        self.desk.press("No")
        self.assert_message(f"Do You wand to Edit the Booking Name of {NAME}?")
        self.desk.press("Yes")
        self.assert_message("Enter a New Booking Name (Limited to 50 Characters)")
        self.desk.key("ctrl+a")
        self.desk.type(NEW_NAME)
        self.desk.key("Return")
        self.assert_message("This has Multiple Bookings. Do you want to Change the Name on All of "
                            "them?")
        self.desk.press("Yes")
        self.assert_message("8 Bookings Name Changed.")
        self.desk.press("OK")
        self.wait_for_day()
        self.assertEqual([day.isoformat() for day in self.free], self.dates_of(NEW_NAME))

    def delete_the_first_only(self):
        self.ask_to_delete()
        self.desk.press("No")
        self.assert_message("Booking Deleted.")
        self.desk.press("OK")
        self.wait_for_day()
        self.assertEqual([day.isoformat() for day in self.free[1:]], self.dates_of(NEW_NAME))
        self.desk.close_day()

    def delete_the_rest(self):
        self.desk.open_day(self.free[1])
        self.ask_to_delete()
        self.desk.press("Yes")
        self.assert_message("7 Bookings Deleted.")
        self.desk.press("OK")
        self.assertEqual([], self.dates_of(NEW_NAME))
        self.assertEqual([day.isoformat() for day in self.taken], self.dates_of("Taken"))

    def ask_to_delete(self):
        self.desk.click_slot(20)
        self.assert_message(f"Do You wand to Delete this Booking for {NEW_NAME}?")
        self.desk.press("Yes")
        self.assert_message("This has Multiple Bookings. Do you want to Delete All of them?")

    def wait_for_day(self):
        self.desk.front_window(f"  {date_text(self.first)} Bookings")

    def dates_of(self, name):
        return self.sql(f"SELECT DateOfRes FROM Reserv WHERE Event = '{name}' "
                        "ORDER BY DateOfRes;")


class PlanTest(DeskTest):
    """The multiple-day window itself."""

    def setUp(self):
        super().setUp()
        self.start()
        self.day = date.today()
        self.desk.open_day(self.day)
        self.desk.click("Multiple Booking")
        self.desk.front_window("Multiple Day Booking")

    def test_it_says_what_the_plan_comes_to(self):
        self.sql("DELETE FROM Reserv;")
        taken = self.day + timedelta(days=7)
        self.sql("INSERT INTO Reserv (RmID, Event, DateOfRes, TimeFrom, TimeTo) "
                 f"SELECT ID, 'Taken', '{taken.isoformat()}', 21, 24 FROM Rooms "
                 "WHERE Name = 'Studio';")
        self.desk.click("Close")
        self.desk.front_window(f"  {date_text(self.day)} Bookings")
        self.desk.drag_slots(21, 23)
        self.desk.message()
        self.desk.key("Escape")
        self.desk.front_window(f"  {date_text(self.day)} Bookings")
        self.desk.click("Multiple Booking")
        self.desk.front_window("Multiple Day Booking")
        self.desk.click(self.day.strftime("%a"))
        self.desk.click_on(self.desk.find("To", "text"))
        self.desk.type(date_text(self.day + timedelta(days=28)))
        self.desk.wait(lambda: "5 dates, 1 of them taken" in self.desk.labels(), "the count")
        self.desk.key("ctrl+a")
        self.desk.type("3/29/2226")
        self.desk.wait(lambda: "Is this meant? It ends in 2226." in self.desk.labels(), "the mark")

    def test_a_date_is_picked_with_two_double_clicks(self):
        self.desk.screen.double_click(*self.desk.find("To", "text").centre)
        calendar = self.desk.wait(lambda: next(
            (one for one in self.desk.front_window().everything()
             if one.role == "table cell" and one.name == "15" and one.is_showing), None), "the 15th")
        self.desk.screen.double_click(*calendar.centre)
        wanted = date_text(self.day.replace(day=15))
        self.desk.wait(lambda: self.desk.find("To", "text").text == wanted, "the 15th in the field")
        self.assertEqual(date_text(self.day), self.desk.find("From", "text").text)
        self.assertFalse(self.desk.has("Close Calendar"))

    def test_it_stands_beside_the_day_window(self):
        windows = {window.name: window.box for window in self.desk.windows()}
        x, _, width, _ = windows[f"  {date_text(self.day)} Bookings"]
        left, _, plan_width, _ = windows["Multiple Day Booking"]
        self.assertTrue(left >= x + width or left + plan_width <= x, windows)

    def test_the_title_bar_counts_as_close(self):
        self.desk.key("alt+F4")
        self.desk.front_window(f"  {date_text(self.day)} Bookings")
        self.desk.wait(lambda: self.desk.find("Single Booking").has_state("CHECKED"),
                       "the fallback to a single booking")
        self.desk.close_day()

    def test_escape_loses_nothing(self):
        self.desk.click("Mon")
        self.desk.click_on(self.desk.find("To", "text"))
        self.desk.key("F4")
        self.desk.wait(lambda: self.desk.has("Close Calendar"), "the picker")
        self.desk.key("Escape", "Escape")
        self.desk.wait(lambda: self.desk.has("Mon"), "the weekdays")
        self.assertTrue(self.desk.find("Mon").has_state("CHECKED"))
        self.assertEqual("Multiple Day Booking", self.desk.front_window().name)


if __name__ == "__main__":
    main()
