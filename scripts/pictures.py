#!/usr/bin/python3
"""Takes the pictures of the README over a sample calendar, on a screen that nobody sees: the month,
a day, the colours, and an animation of one booking.

    scripts/pictures.py BUILD_FOLDER [PICTURE_FOLDER]

The calendar must be built. The pictures go to docs/ unless another folder is named. They show the
month in which they are taken.
"""

import glob
import os
import shutil
import subprocess
import sys
import tempfile
from datetime import date, timedelta

from desk import Desk, date_text
from screen import Screen

WIDTH, HEIGHT = 1560, 860
BACKGROUND = "#56697c"
GUEST = "Ann Smith"
FACILITY = "Studio"
FIRST, LAST = 19, 22  # 9:00 AM to 11:00 AM
POINTER = ((0, 0), (0, 17), (4, 13), (7, 20), (10, 19), (7, 12), (13, 12))


class Film:
    """Frames of a screen with the mouse pointer drawn in, each with the time that it stays."""

    def __init__(self, screen, folder):
        self._screen = screen
        self._folder = folder
        self._frames = []
        self._pointer = (WIDTH // 2, HEIGHT - 60)

    def hold(self, seconds):
        path = os.path.join(self._folder, f"{len(self._frames):03}.png")
        self._screen.picture(path, window_only=False)
        x, y = self._pointer
        corners = " ".join(f"{x + right},{y + down}" for right, down in POINTER)
        _convert(path, "-fill", "white", "-stroke", "black", "-draw", f"polygon {corners}", path)
        self._frames.append((path, seconds))

    def move(self, place, steps=6):
        """Leads the pointer there; a button that is pressed stays pressed."""
        start = self._pointer
        for step in range(1, steps + 1):
            self._pointer = tuple(a + (b - a) * step // steps for a, b in zip(start, place))
            self._screen.move(*self._pointer)
            self.hold(0.08)

    def save(self, path):
        words = [word for frame, seconds in self._frames
                 for word in ("-delay", str(round(seconds * 100)), frame)]
        _convert("-loop", "0", *words, "-layers", "OptimizePlus", "+dither", "-colors", "64",
                 "-layers", "OptimizeTransparency", path)
        return sum(seconds for _, seconds in self._frames)


def _convert(*words):
    subprocess.run(["convert", *words], check=True)


def make_calendar(build, folder):
    """An application folder with the programs as built and a sample calendar; its name."""
    programs = os.path.join(build, "app")
    for file in (os.path.join(programs, "veyra-calendar"), os.path.join(programs, "veyra-help-reader"),
                 *glob.glob(os.path.join(programs, "VeyraCalendar*.chm"))):
        shutil.copy(file, folder)
    data = os.path.join(folder, "data")
    subprocess.run([os.path.join(programs, "veyra-data"), "new", data, "--sample"], check=True,
                   stdout=subprocess.DEVNULL)
    with open(os.path.join(folder, "path.txt"), "w", encoding="utf-8", newline="") as file:
        file.write(f"{data}\r\n{data}\r\n")
    return folder


def day_with_room(desk):
    """A day of the middle of this month on which FACILITY is free when it is to be booked."""
    day = date.today().replace(day=9)
    while True:
        desk.open_day(day)
        names = desk.slots()
        desk.close_day()
        if not any(names[FIRST:LAST + 1]) and any(names):
            return day
        day += timedelta(days=1)


def busiest_day(desk):
    """The day of the first four weeks whose cell has the most lines."""
    first = date.today().replace(day=1)
    days = [first + timedelta(days=after) for after in range(28)]
    return max(days, key=lambda day: len(desk.lines_of(day)))


def still_pictures(desk, folder):
    desk.wait_for_month_window()
    desk.picture(os.path.join(folder, "month.png"))
    desk.open_day(busiest_day(desk))
    desk.show_slot(40)
    desk.show_slot(17)
    desk.picture(os.path.join(folder, "day.png"))
    desk.close_day()
    desk.click("Settings")
    desk.front_window("Calendar Color Settings")
    desk.picture(os.path.join(folder, "colors.png"))
    desk.key("Escape")
    desk.wait_for_month_window()


def film_booking(desk, film):
    desk.choose(FACILITY)
    day = day_with_room(desk)
    film.hold(1.5)
    x, y, width, _ = desk.day_cell(day).box
    film.move((x + width // 2, y + 10))
    film.hold(0.5)
    desk.open_day(day)
    desk.show_slot(LAST + 4)
    desk.show_slot(FIRST - 2)
    film.hold(1.5)
    film.move(desk.name_field().centre)
    desk.click_on(desk.name_field())
    desk.key("ctrl+a")
    for letter in GUEST:
        desk.type(letter)
        film.hold(0.15)
    desk.wait(lambda: desk.combo_text() == GUEST, "the name")
    film.hold(0.7)
    drag_on_film(desk, film)
    for pause in (2.0, 1.5):
        film.hold(pause)
        film.move(desk.find("OK").centre, steps=4)
        film.hold(0.4)
        desk.press("OK")
    film.hold(1.5)
    film.move(desk.find("Close").centre)
    desk.close_day()
    film.hold(3.0)


def drag_on_film(desk, film):
    places = [desk.slot_place(slot) for slot in range(FIRST, LAST + 1)]
    film.move(places[0])
    film.hold(0.4)
    with desk.screen.dragging(places[0], places[0]):
        for place in places[1:]:
            film.move(place, steps=2)
        film.hold(0.5)


def main():
    build = os.path.abspath(sys.argv[1])
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    pictures = os.path.abspath(sys.argv[2]) if len(sys.argv) > 2 else os.path.join(root, "docs")
    with tempfile.TemporaryDirectory(prefix="veyra-pictures-") as folder:
        app, frames = (os.path.join(folder, name) for name in ("app", "frames"))
        os.mkdir(app)
        os.mkdir(frames)
        make_calendar(build, app)
        with Screen(WIDTH, HEIGHT) as screen, Desk(screen, app) as desk:
            screen.start(["display", "-window", "root", "-size", f"{WIDTH}x{HEIGHT}",
                          f"xc:{BACKGROUND}"])
            still_pictures(desk, pictures)
            film = Film(screen, frames)
            film_booking(desk, film)
            seconds = film.save(os.path.join(pictures, "booking.gif"))
    print(f"month.png, day.png, colors.png and {seconds:.0f} seconds of booking.gif in {pictures}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
