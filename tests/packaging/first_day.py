"""The first day of somebody for whom the program was installed: adds a facility, and books by mouse.

    first_day.py SCRIPTS_FOLDER

Run as that user. What he has made then lies in his home.
"""

import os
import sys
from datetime import date

sys.path.insert(0, sys.argv[1])
from desk import Desk  # noqa: E402
from screen import Screen  # noqa: E402


def expect(wanted, found):
    if wanted not in found:
        raise AssertionError(f'"{wanted}" is not in "{found}"')


def answer(desk, text, button):
    expect(text, desk.message())
    desk.press(button)


def main():
    with Screen() as screen:
        desk = Desk(screen, "/usr/bin")
        desk.start(HOME=os.environ["HOME"])
        answer(desk, "Welcome to Veyra Calendar.", "OK")
        desk.wait_for_month_window()
        desk.write_name("Hall")
        desk.key("Return")
        answer(desk, "Do you want to add a new Facility called Hall?", "Yes")
        desk.wait(lambda: "Hall" in desk.labels(), "the facility above the month")
        desk.open_day(date.today())
        desk.write_name("Ann Smith")
        desk.drag_slots(19, 21)
        answer(desk, "Reservation for Ann Smith", "OK")
        answer(desk, "1 Booking(s) Made.", "OK")
        desk.close_day()
        expect(" 9:00A-10:30A Ann Smith", desk.lines_of(date.today()))
        desk.key("alt+F4")
        if desk.exit_status() != 0:
            raise AssertionError("the calendar ended with another status than 0")
    print("Added a facility and booked it by mouse.")


if __name__ == "__main__":
    main()
