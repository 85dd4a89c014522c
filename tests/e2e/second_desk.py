"""A desk on a screen of its own, worked by lines on the standard input. One process can have one
screen, so that a test with two desks is two processes.

    second_desk.py APPLICATION-FOLDER YEAR-MONTH-DAY

opens that day and prints "ready"; for each line "FIRST LAST NAME" it books those half hours in that
name by mouse and keyboard and prints "booked". At the end of the input it leaves a picture where the
environment's VEYRA_PICTURE says, and ends.
"""

import os
import sys
from datetime import date

from desk import Desk
from screen import Screen


def book(desk, first, last, name):
    desk.write_name(name)
    desk.drag_slots(int(first), int(last))
    desk.press("OK")
    desk.message(lambda said: said == "1 Booking(s) Made.")
    desk.press("OK")


def main(app_folder, day):
    with Screen() as screen, Desk(screen, app_folder) as desk:
        desk.wait_for_month_window()
        desk.open_day(date.fromisoformat(day))
        print("ready", flush=True)
        for line in sys.stdin:
            book(desk, *line.strip().split(" ", 2))
            print("booked", flush=True)
        if os.environ.get("VEYRA_PICTURE"):
            desk.picture(os.environ["VEYRA_PICTURE"], window_only=False)


if __name__ == "__main__":
    main(*sys.argv[1:])
