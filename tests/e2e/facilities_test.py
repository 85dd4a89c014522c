"""Facilities: typed in, picked, deleted, remembered."""

from datetime import date

from desk import MONTH_WINDOW
from desk_test import DeskTest, main


class FacilitiesTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.start()

    def add(self, typed):
        self.desk.write_name(typed)
        self.desk.key("Return")

    def facilities(self):
        return self.sql("SELECT Name FROM Rooms ORDER BY ID;")

    def wait_for_facility(self, name):
        self.desk.wait(lambda: name in self.desk.labels(), f'"{name}" above the month')

    def test_a_new_name_and_enter_adds_a_facility(self):
        before = self.facilities()
        self.add("squash court")
        self.assert_message("Do you want to add a new Facility called Squash Court?")
        self.assertEqual(["Yes", "No"], self.desk.answers())
        self.desk.press("Yes")
        self.wait_for_facility("Squash Court")
        self.assertEqual(before + ["Squash Court"], self.facilities())

    def test_what_matches_is_offered_while_a_name_is_typed(self):
        self.desk.write_name("TCHE")
        self.desk.find("Kitchen", "list item")
        self.desk.key("Escape")
        self.assertEqual("TCHE", self.desk.combo_text())
        self.desk.write_name("tch")
        self.desk.wait(lambda: self.is_offered("Kitchen"), "the match")
        self.desk.key("Down", "Return")
        self.wait_for_facility("Kitchen")
        self.assertEqual("Kitchen", self.desk.combo_text())

    def is_offered(self, name):
        return any(one.name == name and one.role == "list item" and one.is_showing
                   for one in self.desk.front_window().everything())

    def test_answering_no_brings_the_old_name_back(self):
        before = self.facilities()
        self.add("squash court")
        self.desk.message()
        self.desk.press("No")
        self.desk.wait(lambda: self.desk.combo_text() == "Main Hall", "the old name in the combo")
        self.assertEqual(before, self.facilities())

    def test_a_deleted_facility_takes_its_bookings_with_it(self):
        self.desk.choose("Kitchen")
        self.desk.click("Delete Facility")
        self.assert_message("Are you Sure you want to Delete Kitchen and All Events associated "
                            "with it?")
        kitchen = self.sql("SELECT ID FROM Rooms WHERE Name = 'Kitchen';")[0]
        self.assertNotEqual([], self.sql(f"SELECT * FROM Reserv WHERE RmID = {kitchen};"))
        self.desk.press("Yes")
        self.wait_for_facility("Main Hall")
        self.assertNotIn("Kitchen", self.facilities())
        self.assertEqual([], self.sql(f"SELECT * FROM Reserv WHERE RmID = {kitchen};"))

    def test_a_typed_name_is_booked_for_the_facility_that_is_shown(self):
        self.sql("DELETE FROM Reserv;")
        self.desk.write_name("Kitchen")
        self.desk.open_day(date.today())
        self.desk.drag_slots(19, 19)
        self.desk.message()
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        self.assertEqual(["Main Hall"], self.sql("SELECT Name FROM Rooms JOIN Reserv ON ID = RmID;"))
        self.desk.close_day()
        self.assertEqual("Main Hall", self.desk.combo_text())

    def test_a_half_typed_name_does_not_stay_in_the_list(self):
        self.desk.choose("Kitchen")
        self.desk.write_name("kit")
        self.desk.click("Delete Facility")
        self.assert_message_has("Delete Kitchen")
        self.assertEqual("Kitchen", self.text_behind())
        self.desk.press("Yes")
        self.wait_for_facility("Main Hall")
        self.assertNotIn("Kitchen", self.desk.combo_items())

    def text_behind(self):
        """The text of the facility box while a message box stands before it."""
        month = next(one for one in self.desk.windows() if one.name == MONTH_WINDOW)
        combo = self.desk.first("combo box", month)
        return next(one for one in combo.everything() if one.role == "text").text

    def test_the_facility_picked_last_comes_back_at_the_next_start(self):
        self.desk.choose("Garden Room")
        self.wait_for_facility("Garden Room")
        self.desk.__exit__()
        self.start()
        self.wait_for_facility("Garden Room")


if __name__ == "__main__":
    main()
