"""Names that are offered while one is typed."""

from desk_test import DeskTest, main


class NamesTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.day = self.free_day("Main Hall")
        self.start()
        self.desk.open_day(self.day)
        self.desk.click_on(self.desk.name_field())

    def test_a_match_is_chosen_by_keys_and_booked(self):
        self.desk.type("oladot")
        self.wait_for_matches(["Gu\u00f0r\u00fan \u00d3lad\u00f3ttir"])
        self.assertEqual("oladot", self.desk.combo_text())
        self.desk.key("Down", "Return")
        self.wait_for_name("Gu\u00f0r\u00fan \u00d3lad\u00f3ttir")
        self.wait_for_matches([])
        self.book("Gu\u00f0r\u00fan \u00d3lad\u00f3ttir")

    def test_a_match_is_chosen_by_mouse(self):
        self.desk.type("BRANDT")
        self.wait_for_matches(["Ursula Brandt"])
        self.desk.click_on(self.match("Ursula Brandt"))
        self.wait_for_name("Ursula Brandt")

    def test_what_is_typed_stays_when_no_match_is_chosen(self):
        self.desk.type("Marsh")
        self.wait_for_matches(["Eleanor Marsh"])
        self.desk.key("Escape")
        self.wait_for_matches([])
        self.book("Marsh")

    def test_the_name_used_last_comes_first(self):
        self.desk.type("mat")
        self.wait_for_matches(["Mateo Ib\u00e1\u00f1ez"])
        self.desk.key("Escape", "ctrl+a")
        self.desk.type("Zz Matinee")
        self.book("Zz Matinee")
        self.desk.key("Escape")
        self.desk.wait_for_month_window()
        self.desk.open_day(self.day)
        self.desk.click_on(self.desk.name_field())
        self.desk.key("ctrl+a")
        self.desk.type("mat")
        self.wait_for_matches(["Zz Matinee", "Mateo Ib\u00e1\u00f1ez"])

    def book(self, name):
        self.desk.drag_slots(19, 21)
        self.assert_message_has(f"Reservation for {name} From  9:00A To 10:30A.")
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")
        self.assertEqual([name], self.sql("SELECT Event FROM Reserv JOIN Rooms ON RmID = Rooms.ID "
                                          f"WHERE DateOfRes = '{self.day.isoformat()}' "
                                          "AND Rooms.Name = 'Main Hall' AND TimeFrom = 19;"))

    def list_of_matches(self):
        return next((one for one in self.desk.front_window().everything()
                     if one.role == "list" and one.name == "Matching names" and one.is_showing), None)

    def matches(self):
        found = self.list_of_matches()
        return [one.name for one in found.children if one.role == "list item"] if found else []

    def match(self, name):
        return next(one for one in self.list_of_matches().children if one.name == name)

    def wait_for_matches(self, names):
        self.desk.wait(lambda: self.matches() == names, f"the matches {names}")

    def wait_for_name(self, name):
        self.desk.wait(lambda: self.desk.combo_text() == name, f"{name} in the box")


if __name__ == "__main__":
    main()
