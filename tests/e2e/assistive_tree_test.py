"""What a screen reader finds in every window: where each line and cell stands, what each control is for, and
the order in which the Tab key visits them."""

from datetime import date

from desk import date_text
from desk_test import DeskTest, main

TIME = r"\d{1,2}:\d\d (AM|PM)|12:00 Noon"
TIMES = r" ?\d{1,2}:\d\d[AP]- ?\d{1,2}:\d\d[AP]"
NEEDS_A_NAME = ("push button", "radio button", "check box", "text", "list", "table", "scroll bar",
                "combo box", "menu item", "list item", "table cell")
# Parts of a control, which nothing is done with but through that.
PARTS = ("scroll bar", "push button")


class AssistiveTreeTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.today = date.today()
        self.sql("DELETE FROM Reserv;")
        self.sql("INSERT INTO Reserv (RmID, Event, DateOfRes, TimeFrom, TimeTo) SELECT ID, 'Ann Smith', "
                 f"'{self.today.isoformat()}', 19, 21 FROM Rooms WHERE Name = 'Main Hall';")
        self.start()
        self.desk.day_cell(self.today)

    def controls(self):
        return [one for one in self.desk.front_window().everything() if one.is_showing]

    def of_role(self, role):
        return [one for one in self.controls() if one.role == role]

    def assert_all_are_named(self):
        for one in self.controls():
            is_part = one.role in PARTS and not one.has_state("FOCUSABLE")
            if one.role in NEEDS_A_NAME and not is_part:
                self.assertTrue(one.name.strip() or one.labels, f"a {one.role} at {one.box} has no name")

    def assert_boxes_have_labels(self, labels):
        self.assertEqual(labels, [one.labels for one in self.of_role("combo box")])

    def open(self, key, title):
        self.desk.key(key)
        self.desk.front_window(title)

    def test_the_month_says_whose_lines_they_are(self):
        self.assert_all_are_named()
        self.assert_boxes_have_labels([["Facility"]])
        lines = [one for one in self.desk.day_cell(self.today).everything() if one.role == "list item"]
        self.assertEqual([" 9:00A-10:30A Ann Smith"], [one.name for one in lines])
        self.assertEqual(f"Main Hall, Bookings on {date_text(self.today)}", lines[0].description)
        self.assertEqual("Main Hall", self.desk.day_cell(self.today).description)

    def test_every_half_hour_says_when_it_is_and_who_has_it(self):
        self.desk.open_day(self.today)
        self.assert_all_are_named()
        self.assert_boxes_have_labels([["Guest/Event"]])
        grid = self.desk.first("table")
        place = f"Main Hall, {self.today:%A}, {date_text(self.today)} Bookings"
        self.assertEqual(("9:00 AM, Ann Smith", place),
                         (grid.cell(18, 1).name, grid.cell(18, 1).description))
        for row in range(48):
            cell = grid.cell(row, 1)
            self.assertRegex(cell.name, rf"^({TIME}), (free|Ann Smith)$")
            self.assertEqual(place, cell.description)
        self.desk.click("Multiple Booking")
        self.desk.front_window("Multiple Day Booking")
        self.assert_all_are_named()

    def test_the_day_viewer_says_whose_lines_they_are(self):
        self.desk.click_on(self.desk.day_cell(self.today), 3)
        self.desk.front_window(f"  {date_text(self.today)} Day Viewer")
        self.assert_all_are_named()
        self.assertEqual([f"Main Hall, Bookings on {date_text(self.today)}"],
                         [one.description for one in self.of_role("list item")])

    def test_what_is_found_says_facility_date_time_and_name(self):
        self.open("ctrl+f", "Find a Booking")
        self.desk.type("ann")
        line = self.desk.wait(lambda: next((one.name for one in self.of_role("list item")), None),
                              "the booking")
        self.assertEqual(f"{self.today:%A}, {date_text(self.today)},  9:00A-10:30A, Main Hall, Ann Smith",
                         line)
        self.assert_all_are_named()

    def test_free_times_say_facility_date_and_time(self):
        self.open("ctrl+shift+f", "Free Time")
        self.assert_all_are_named()
        self.assert_boxes_have_labels([["Length"], ["between"], ["and"]])
        free = next(one for one in self.of_role("list") if one.name == "Free times")
        for line in free.children:
            if line.role == "list item":
                self.assertRegex(line.name, rf"^[A-Z][a-z]+day, \d+/\d+/\d+, {TIMES}, \w")

    def test_every_cell_of_the_board_says_facility_date_time_and_name(self):
        self.desk.key("ctrl+b")
        self.desk.front_window(is_wanted=lambda one: one.name.startswith("Day Board"))
        self.assert_all_are_named()
        day = f"{self.today:%A}, {date_text(self.today)}"
        cells = self.of_role("table cell")
        self.assertIn("Main Hall, 9:00 AM, Ann Smith", [one.name for one in cells])
        for cell in cells:
            self.assertRegex(cell.name, rf"^[\w ]+, ({TIME}), (free|Ann Smith)$")
            self.assertEqual(day, cell.description)

    def test_the_colours_and_the_about_box_are_named(self):
        self.desk.click("Settings")
        self.desk.front_window("Calendar Color Settings")
        self.assert_all_are_named()
        self.desk.key("Escape")
        self.desk.wait_for_month_window()
        self.desk.click("Help")
        self.desk.click("About")
        self.desk.front_window("Veyra About")
        self.assert_all_are_named()
        self.desk.click("Exit")
        self.desk.wait_for_month_window()

    def test_a_box_is_an_alert_that_holds_its_question(self):
        self.desk.key("ctrl+g")
        self.assertRegex(self.desk.message(), r"^Date, for example ")
        self.assert_all_are_named()
        self.desk.press("Cancel")
        self.desk.open_day(self.today)
        self.desk.drag_slots(24, 25)
        self.desk.message()
        self.assertEqual("alert", self.desk.front_window().role)
        self.assert_all_are_named()

    def test_the_tab_key_goes_down_the_day_window(self):
        self.desk.open_day(self.today)
        visited = []

        def is_visited(control):
            visited.append(control.box[1])
            return control.name == "Close"

        self.desk.tab_to(is_visited, "the button that closes")
        self.assertEqual(sorted(visited), visited)
        self.assertGreater(len(visited), 3)


if __name__ == "__main__":
    main()
