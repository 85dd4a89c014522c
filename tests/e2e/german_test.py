"""The program on a German desktop."""

import os
import shutil

from desk import date_text
from desk_test import PROGRAM, DeskTest, main


class GermanTest(DeskTest):
    def start_in_german(self):
        self.start(LC_ALL="", LANG="de_DE.UTF-8")

    def test_the_windows_speak_german(self):
        self.start_in_german()
        self.desk.key("ctrl+f")
        self.desk.front_window("Buchung suchen")
        self.desk.type("nobody at all")
        self.desk.wait(lambda: self.desk.has("Keine Buchung hat einen solchen Namen."),
                       "the answer")
        self.desk.key("Escape")
        self.desk.wait_for_month_window()

    def test_the_questions_of_the_design_stay_english(self):
        self.start_in_german()
        self.desk.choose("Main Hall")
        day = self.free_day("Main Hall")
        self.desk.click_on(self.desk.find(f"Buchungen am {date_text(day)}", "list"))
        self.desk.front_window(f"  {date_text(day)} Bookings")
        self.desk.write_name("Ann Example")
        self.desk.drag_slots(19, 21)
        self.assert_message("Reservation for Ann Example From  9:00A To 10:30A.\n"
                            "Select OK to Book or Cancel to Cancel")
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.press("OK")

    def test_a_report_is_german(self):
        self.start_in_german()
        self.desk.key("ctrl+z")
        self.assert_message("Es gibt nichts rückgängig zu machen.")
        self.desk.press("OK")

    def test_f1_opens_the_german_help_at_the_topic_of_the_window(self):
        for name in ("VeyraCalendar.chm", "VeyraCalendar_de.chm", "veyra-help-reader"):
            shutil.copy(os.path.join(os.path.dirname(PROGRAM), name), self.file(name))
        self.start_in_german()
        self.desk.key("F1")
        window = self.desk.front_window("Hilfe zu Veyra Calendar")
        page = self.desk.find("Hilfeseite", window=window)
        self.desk.wait(lambda: page.text.lstrip().startswith("Das Monatsfenster"), "the topic")
        self.assertIn("die früheste zuerst", page.text)


if __name__ == "__main__":
    main()
