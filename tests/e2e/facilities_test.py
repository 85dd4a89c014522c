"""Facilities: typed in, picked, deleted, remembered."""

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
        self.assertEqual("Do you want to add a new Facility called Squash Court?",
                         self.desk.message())
        self.assertEqual(["Yes", "No"], self.desk.answers())
        self.desk.press("Yes")
        self.wait_for_facility("Squash Court")
        self.assertEqual(before + ["Squash Court"], self.facilities())

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
        self.assertEqual("Are you Sure you want to Delete Kitchen and All Events associated with "
                         "it?", self.desk.message())
        kitchen = self.sql("SELECT ID FROM Rooms WHERE Name = 'Kitchen';")[0]
        self.assertNotEqual([], self.sql(f"SELECT * FROM Reserv WHERE RmID = {kitchen};"))
        self.desk.press("Yes")
        self.wait_for_facility("Main Hall")
        self.assertNotIn("Kitchen", self.facilities())
        self.assertEqual([], self.sql(f"SELECT * FROM Reserv WHERE RmID = {kitchen};"))

    def test_the_facility_picked_last_comes_back_at_the_next_start(self):
        self.desk.choose("Garden Room")
        self.wait_for_facility("Garden Room")
        self.desk.__exit__()
        self.start()
        self.wait_for_facility("Garden Room")


if __name__ == "__main__":
    main()
