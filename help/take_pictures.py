#!/usr/bin/python3
"""Takes the pictures of the help from the program itself, on a virtual screen.

    help/take_pictures.py BUILD_FOLDER/app

Run help/compile afterwards.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
from datetime import date

HELP = pathlib.Path(__file__).resolve().parent
PICTURES = HELP / "topics" / "pictures"
sys.path.insert(0, str(HELP.parent / "scripts"))

from desk import Desk, date_text  # noqa: E402
from screen import Screen  # noqa: E402

FACILITIES = ["Main Hall", "Meeting Room", "Swimming Pool"]
GUESTS = ["Ann Example", "Carlos Medina", "Dana Smith", "Liam Fairbrother", "Priya Raghavan"]
SCREEN = (1024, 620)  # low, for the day window is nearly as high as the screen
RIGHT_BUTTON = 3
WIDTH = 720  # pixels: what a page is wide in the help window

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


def save(desk, name, width=WIDTH):
    """The front window, with no more colours than it needs, so that the help file stays small."""
    picture = PICTURES / f"{name}.png"
    desk.picture(picture)
    subprocess.run(["convert", picture, "-resize", f"{width}x>", "-strip", "+dither", "-colors", "255",
                    "-define", "png:compression-level=9", picture], check=True)


def take_booking(desk):
    """The windows on the road of a booking."""
    desk.write_name(GUESTS[0])
    save(desk, "day")
    desk.drag_slots(26, 28)
    desk.message()
    save(desk, "booking_question")
    desk.press("Cancel")
    desk.click_slot(22)
    desk.message()
    save(desk, "delete_question")
    desk.press("No")
    desk.message()
    desk.press("No")


def take_many_days(desk):
    day_window = desk.front_window().name
    desk.click("Multiple Booking")
    desk.front_window("Multiple Day Booking")
    desk.click("Mon")
    desk.click("Wed")
    desk.click_on(desk.find("To", "text"))
    desk.type(date_text(date(date.today().year, 12, 24)))
    save(desk, "many_days")
    desk.click("Close")
    desk.message()
    desk.press("OK")
    desk.front_window(day_window)


def take_day_viewer(desk):
    desk.click_on(desk.day_cell(date.today().replace(day=BOOKED_DAY)), RIGHT_BUTTON)
    desk.front_window(f"  {date_text(date.today().replace(day=BOOKED_DAY))} Day Viewer")
    save(desk, "day_viewer", 560)
    desk.key("alt+F4")
    desk.wait_for_month_window()


def take_colours(desk):
    desk.click("Settings")
    desk.front_window("Calendar Color Settings")
    save(desk, "colours")
    desk.key("alt+F4")
    desk.wait_for_month_window()


def take_all(desk):
    desk.wait_for_month_window()
    save(desk, "month")
    take_day_viewer(desk)
    take_colours(desk)
    desk.open_day(date.today().replace(day=BOOKED_DAY))
    take_booking(desk)
    take_many_days(desk)
    desk.close_day()


def main():
    program_folder = pathlib.Path(sys.argv[1]).resolve()
    PICTURES.mkdir(exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="veyra-pictures-") as folder:
        make_application_folder(program_folder, pathlib.Path(folder))
        with Screen(*SCREEN) as screen, Desk(screen, folder) as desk:
            take_all(desk)
    for picture in sorted(PICTURES.glob("*.png")):
        print(f"{picture.name}: {os.path.getsize(picture)} bytes")


if __name__ == "__main__":
    main()
