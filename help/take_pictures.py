#!/usr/bin/python3
"""Takes the pictures of the help from the program itself, on a virtual screen, in each language.

    help/take_pictures.py BUILD_FOLDER/app

Another language keeps those only that differ from the English. Run help/compile afterwards.
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile
from datetime import date

HELP = pathlib.Path(__file__).resolve().parent
PICTURES = HELP / "topics" / "pictures"
LANGUAGES = ["de"]  # beside English
sys.path.insert(0, str(HELP.parent / "scripts"))

from desk import Desk, date_text  # noqa: E402
from screen import Screen  # noqa: E402

FACILITIES = ["Main Hall", "Meeting Room", "Swimming Pool"]
GUESTS = ["Ann Example", "Carlos Medina", "Dana Smith", "Liam Fairbrother", "Priya Raghavan"]
SCREEN = (1024, 620)  # low, for the day window is nearly as high as the screen
RIGHT_BUTTON = 3
WIDTH = 720  # pixels: what a page is wide in the help window
BESIDE_TEXT = 12

# Day of the month, first and last slot, name: a month that is neither empty nor crowded.
BOOKINGS = [
    (2, 19, 21, "Yoga"), (3, 37, 40, "Choir"), (4, 21, 24, "Toddler Group"), (6, 25, 28, "Lunch"),
    (9, 19, 21, "Yoga"), (10, 19, 24, "First Aid"), (10, 37, 40, "Choir"), (12, 33, 36, "Chess"),
    (13, 28, 34, "Dana Smith"), (16, 19, 21, "Yoga"), (17, 37, 40, "Choir"),
    (18, 15, 18, "Blood Donors"), (18, 21, 24, "Liam Fairbrother"), (20, 37, 44, "Quiz Night"),
    (21, 20, 32, "Smith Wedding"), (23, 19, 21, "Yoga"), (24, 37, 40, "Choir"),
    (26, 33, 36, "Chess"), (27, 28, 34, "Birthday"),
]
BOOKED_DAY = 18  # the day that is opened


def sql_text(text):
    return "'" + text.replace("'", "''") + "'"


def run_sql(file, statements):
    subprocess.run(["sqlite3", "-bail", file], input="\n".join(statements), text=True, check=True)


def make_data(program_folder, data_folder):
    """A calendar of this month, made for the pictures."""
    subprocess.run([program_folder / "veyra-data", "new", data_folder], check=True,
                   stdout=subprocess.DEVNULL)
    rooms = [f"INSERT INTO Rooms (Name, Active) VALUES ({sql_text(name)}, {int(i == 0)});"
             for i, name in enumerate(FACILITIES)]
    bookings = [
        "INSERT INTO Reserv (RmID, Event, DateOfRes, TimeFrom, TimeTo) SELECT ID, "
        f"{sql_text(name)}, '{date.today().replace(day=day).isoformat()}', {first}, {last} "
        f"FROM Rooms WHERE Name = {sql_text(FACILITIES[0])};"
        for day, first, last, name in BOOKINGS]
    run_sql(data_folder / "Calendar.mdb", ["DELETE FROM Reserv; DELETE FROM Rooms;"] + rooms +
            bookings)
    run_sql(data_folder / "Veyra.mdb", ["DELETE FROM Guest;"] + [
        f"INSERT INTO Guest (Name) VALUES ({sql_text(name)});" for name in GUESTS])


def make_application_folder(program_folder, folder):
    shutil.copy(program_folder / "veyra-calendar", folder)
    make_data(program_folder, folder / "data")
    (folder / "path.txt").write_bytes(f"{folder / 'data'}\r\n{folder / 'data'}\r\n".encode())


class Camera:
    """Takes pictures of the desk's front window into a folder."""

    def __init__(self, desk, folder):
        self._desk = desk
        self._folder = folder

    def take(self, name, width=WIDTH, left_margin=0):
        """With no more colours than the window needs, so that the help file stays small. `left_margin`:
        pixels as white as the page, which parts no text from a picture that stands beside it."""
        picture = self._folder / f"{name}.png"
        self._desk.picture(picture)
        subprocess.run(["convert", picture, "-resize", f"{width}x>", "-background", "white", "-splice",
                        f"{left_margin}x0", "-strip", "+dither", "-colors", "255", "-define",
                        "png:compression-level=9", picture], check=True)


def take_booking(desk, camera):
    """The windows on the road of a booking."""
    desk.write_name(GUESTS[0])
    camera.take("day", left_margin=BESIDE_TEXT)
    desk.drag_slots(26, 28)
    desk.message()
    camera.take("booking_question")
    desk.press("Cancel")
    desk.click_slot(22)
    desk.message()
    camera.take("delete_question")
    desk.press("No")
    desk.message()
    desk.press("No")


def take_many_days(desk, camera):
    day_window = desk.front_window().name
    desk.click("Multiple Booking")
    desk.front_window("Multiple Day Booking")
    desk.click("Mon")
    desk.click("Wed")
    desk.click_on(desk.find("To", "text"))
    desk.type(date_text(date(date.today().year, 12, 24)))
    camera.take("many_days")
    desk.click("Close")
    desk.message()
    desk.press("OK")
    desk.front_window(day_window)


def take_day_viewer(desk, camera):
    desk.click_on(desk.day_cell(date.today().replace(day=BOOKED_DAY)), RIGHT_BUTTON)
    desk.front_window(f"  {date_text(date.today().replace(day=BOOKED_DAY))} Day Viewer")
    camera.take("day_viewer", 560)
    desk.key("alt+F4")
    desk.wait_for_month_window()


def take_colours(desk, camera):
    desk.click("Settings")
    desk.front_window("Calendar Color Settings")
    camera.take("colours")
    desk.key("alt+F4")
    desk.wait_for_month_window()


def take_all(desk, camera):
    desk.wait_for_month_window()
    camera.take("month")
    take_day_viewer(desk, camera)
    take_colours(desk, camera)
    desk.open_day(date.today().replace(day=BOOKED_DAY))
    take_booking(desk, camera)
    take_many_days(desk, camera)
    desk.close_day()


def take_language(screen, program_folder, language, pictures):
    """Fills the folder `pictures`."""
    pictures.mkdir()
    with tempfile.TemporaryDirectory(prefix="veyra-pictures-") as folder:
        make_application_folder(program_folder, pathlib.Path(folder))
        with Desk(screen, folder, language) as desk:
            take_all(desk, Camera(desk, pictures))


def keep(taken, folder, shared=None):
    """Makes the folder hold what was taken, but for what is the same in `shared`."""
    shutil.rmtree(folder, ignore_errors=True)
    for picture in sorted(taken.iterdir()):
        if shared and picture.read_bytes() == (shared / picture.name).read_bytes():
            continue
        folder.mkdir(exist_ok=True)
        shutil.copyfile(picture, folder / picture.name)
        print(f"{(folder / picture.name).relative_to(HELP)}: {picture.stat().st_size} bytes")


def main():
    program_folder = pathlib.Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory(prefix="veyra-taken-") as taken, Screen(*SCREEN) as screen:
        taken = pathlib.Path(taken)
        for language in ["", *LANGUAGES]:
            take_language(screen, program_folder, language, taken / f"in_{language}")
        keep(taken / "in_", PICTURES)
        for language in LANGUAGES:
            keep(taken / f"in_{language}", HELP / f"topics_{language}" / "pictures", taken / "in_")


if __name__ == "__main__":
    main()
