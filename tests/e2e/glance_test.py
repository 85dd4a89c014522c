"""What is seen at a glance: cut lines, the whole cell of a day, and what others have changed."""

import os
import shutil
import subprocess
import tempfile
from datetime import date

from desk import Desk, date_text
from desk_test import PROGRAM, VEYRA_DATA, DeskTest, main, screen


class GlanceTest(DeskTest):
    def test_a_click_on_the_row_of_the_number_opens_the_day(self):
        day = date.today().replace(day=17)
        self.start()
        x, y, width, _ = self.desk.day_cell(day).box
        self.desk.screen.click(x + width // 2, y - 6 * self.desk.screen.scale)
        self.desk.front_window(f"  {date_text(day)} Bookings")
        self.desk.close_day()

    def test_coming_back_from_another_program_shows_what_has_been_booked(self):
        day = self.free_day("Main Hall")
        self.start()
        number, _ = self.desk.screen.window_in_front()
        with Desk(screen(), self.another_calendar()) as other:
            other.wait_for_month_window()
            self.desk.wait(self.is_left, "the calendar to notice that another program is used")
            self.sql("INSERT INTO Reserv(RmID, Event, DateOfRes, TimeFrom, TimeTo) SELECT ID, "
                     f"'Quentin Zsolnay', '{day.isoformat()}', 19, 21 FROM Rooms "
                     "WHERE Name = 'Main Hall';")
            self.assertNotIn(" 9:00A-10:30A Quentin Zsolnay", self.all_lines_of(day))
            self.desk.screen.activate_number(number)
            self.desk.wait_for_month_window()
            self.desk.wait(lambda: " 9:00A-10:30A Quentin Zsolnay" in self.desk.lines_of(day),
                           "the new booking in the month")

    def test_the_day_says_what_is_dragged_over_and_what_is_booked(self):
        day = self.free_day("Main Hall")
        self.sql("INSERT INTO Reserv(RmID, Event, DateOfRes, TimeFrom, TimeTo) SELECT ID, "
                 f"'Quentin Zsolnay', '{day.isoformat()}', 19, 21 FROM Rooms "
                 "WHERE Name = 'Main Hall';")
        self.start()
        self.desk.open_day(day)
        self.desk.show_slot(22)
        self.desk.show_slot(16)
        free, last = self.desk._slot(16).centre, self.desk._slot(20).centre
        with self.desk.screen.dragging(free, last):
            self.wait_for_words("7:30A-10:00A, 2 h 30 min, taken by Quentin Zsolnay")
        self.desk.press("OK")
        self.desk.front_window(f"  {date_text(day)} Bookings")
        self.desk.screen.move(*self.desk._slot(20).centre)
        self.wait_for_words("Quentin Zsolnay\n9:00A-10:30A, 1 h 30 min")
        self.desk.close_day()

    def is_left(self):
        return not any(window.has_state("ACTIVE") for window in self.desk.windows())

    def wait_for_words(self, words):
        """Waits for what the pointer carries, or what is said of the place that it rests on."""
        self.desk.wait(lambda: any(words in one.name for window in self.desk.windows()
                                   for one in window.everything()), f'"{words}"')

    def all_lines_of(self, day):
        """The lines of a day of the calendar, which is not in front."""
        window = next(one for one in self.desk.windows())
        cell = self.desk.find(f"Bookings on {date_text(day)}", "list", window)
        return [item.name for item in cell.children if item.role == "list item"]

    def another_calendar(self):
        folder = tempfile.mkdtemp(prefix="veyra-app-")
        self.addCleanup(shutil.rmtree, folder)
        shutil.copy(PROGRAM, os.path.join(folder, "veyra-calendar"))
        data = os.path.join(folder, "data")
        subprocess.run([VEYRA_DATA, "new", data, "--sample"], check=True, stdout=subprocess.DEVNULL)
        with open(os.path.join(folder, "path.txt"), "w", encoding="utf-8", newline="") as file:
            file.write(f"{data}\r\n{data}\r\n")
        return folder


if __name__ == "__main__":
    main()
