#!/usr/bin/python3
"""Takes pictures of every window on screens of several sizes, scales and themes, and puts them on contact
sheets, one for each kind of screen, to be looked at. The windows are worked from the keyboard alone.

    scripts/contact_sheet.py BUILD_FOLDER SHEET_FOLDER [KIND...]

KIND is a name of KINDS below; all are taken unless some are named. The pictures of a sheet, each as large
as its screen, lie beside it in a folder of its name. The calendar must be built. Those of Wayland need the
packages weston and qt6-wayland.
"""

import contextlib
import dataclasses
import os
import shutil
import subprocess
import sys
import tempfile
from datetime import date

from desk import Desk, date_text
from pictures import make_calendar
from screen import Screen, pixels_of, wait_until


@dataclasses.dataclass
class Kind:
    """A kind of screen, and of desktop on it."""

    width: int  # in pixels, as the height
    height: int
    scale: float = 1  # of everything
    theme: str = "light"
    font: int = 0  # the desktop's, in points; that of every desktop where it is 0
    wayland: bool = False
    language: str = ""  # as Desk has it


KINDS = {
    "smallest": Kind(1024, 600),
    "usual": Kind(1280, 800),
    "usual_dark": Kind(1280, 800, theme="dark"),
    "large_text": Kind(1280, 800, font=15),
    "at_150": Kind(1920, 1080, scale=1.5),
    "at_200": Kind(2048, 1280, scale=2),
    "at_200_dark": Kind(2048, 1280, scale=2, theme="dark"),
    "large": Kind(3840, 2160),
    "large_at_200": Kind(3840, 2160, scale=2),
    "german": Kind(1280, 800, language="de"),
    "german_smallest": Kind(1024, 600, language="de"),
    "german_at_200": Kind(2048, 1280, scale=2, language="de"),
    "wayland": Kind(1280, 800, wayland=True),
    "wayland_dark": Kind(1280, 800, theme="dark", wayland=True),
    "wayland_smallest": Kind(1024, 600, wayland=True),
}
SIX_WEEKS = date(2026, 8, 1)  # a Saturday, in a month of 31 days
CROWDED = {4: 1, 5: 5, 6: 40}  # day of that month: bookings
LONGEST = "Wolfgang-Maximilian Wimmersberger-Hohenwarth, Wwww"  # fifty characters, wide ones
LONGEST_FACILITY = "Grand Assembly and Wedding Hall on the Waterfront"
DARK = {"BackgroundNormal": "35,38,41", "ForegroundNormal": "239,240,241",
        "BackgroundAlternate": "49,54,59", "ForegroundInactive": "161,169,177"}


def fill(data):
    """Adds to the sample a month of six weeks with days that are empty and crowded, for a facility with a
    long name."""
    lines = [f"INSERT INTO Rooms (Name, Active) VALUES ('{LONGEST_FACILITY}', 0);"]
    for day, count in CROWDED.items():
        for slot in range(1, count + 1):
            name = LONGEST if slot % 2 else "Choir"
            lines += ["INSERT INTO Reserv (RmID, Event, DateOfRes, TimeFrom, TimeTo) SELECT ID, "
                      f"'{name}', '{SIX_WEEKS.replace(day=day).isoformat()}', {slot + 8}, {slot + 8} "
                      f"FROM Rooms WHERE Name = '{LONGEST_FACILITY}';"]
    subprocess.run(["sqlite3", "-bail", os.path.join(data, "Calendar.mdb")], input="\n".join(lines),
                   text=True, check=True)


def set_up_desktop(screen, kind):
    """The variables with which the program takes on the theme and the font. It reads them as desktops
    keep them."""
    lines = []
    if kind.theme == "dark":
        lines += [f"[Colors:{part}]\n" + "\n".join(f"{name}={color}" for name, color in DARK.items())
                  for part in ("Window", "View", "Button", "Tooltip")]
        lines += ["[Colors:Selection]\nBackgroundNormal=61,174,233\nForegroundNormal=252,252,252"]
    if kind.font:
        font = f"Sans Serif,{kind.font},-1,5,50,0,0,0,0,0"
        lines += [f"[General]\nfont={font}\nmenuFont={font}\ntoolBarFont={font}"]
    if not lines:
        return {}
    folder = os.path.join(screen.environment["HOME"], ".config")
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, "kdeglobals"), "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")
    return {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}


class WaylandScreen(Screen):
    """A Wayland desktop in a window that fills a virtual screen. A program there knows the places of
    its controls within their windows only: the mouse cannot be led to them."""

    def _set_up(self):
        super()._set_up()
        settings = os.path.join(self.environment["HOME"], "weston.ini")
        with open(settings, "w", encoding="utf-8") as file:
            file.write("[shell]\nlocking=false\nanimation=none\nstartup-animation=none\n"
                       "close-animation=none\n[input-method]\npath=\n")
        socket = "wayland-sheet"
        self.start(["weston", "--backend=x11-backend.so", "--use-pixman",
                    f"--width={self.width}", f"--height={self.height}",
                    f"--socket={socket}", f"--config={settings}", "--idle-time=0"])
        wait_until(lambda: os.path.exists(os.path.join(self.environment["XDG_RUNTIME_DIR"], socket)),
                   "the Wayland desktop")
        # It has the keyboard once the mouse has been seen in it.
        wait_until(self.window_in_front, "its window")
        self.move(self.width // 2, 0)
        self.move(0, 0)
        self.environment.update(QT_QPA_PLATFORM="wayland", WAYLAND_DISPLAY=socket)


class Sheet:
    """Opens one window after another and takes a picture of each."""

    def __init__(self, desk, folder):
        self._desk = desk
        self._folder = folder
        self.taken = []

    def take(self, name):
        path = self._path(name)
        self._desk.picture(path, window_only=False)
        self.taken.append(path)

    def _path(self, name):
        return os.path.join(self._folder, f"{len(self.taken):02}_{name}.png")

    def _press_and_take(self, key, name):
        """For what a key brings up that no assistive program is told of."""
        path = self._path(name)
        self._desk.picture(path, window_only=False)
        before = pixels_of(path)
        self._desk.key(key)
        self._desk.wait(lambda: self._desk.picture(path, window_only=False) or pixels_of(path) != before,
                        f"what {key} brings up")
        self.taken.append(path)

    def all_windows(self):
        self.months()
        self.days()
        self.small_windows()
        self.help()

    def months(self):
        self._desk.wait_for_month_window()
        self.take("month")
        self._desk.key("ctrl+g")
        self._desk.message()
        self.take("go to")
        self._desk.key("ctrl+a")
        self._desk.type("no day")
        self._desk.key("Return")
        self._desk.message(lambda text: "\n" in text)
        self.take("no date")
        self._desk.key("Return")
        self._desk.message(lambda text: "\n" not in text)
        self._desk.key("Escape")
        self._desk.wait_for_month_window()
        self._desk.key(f"ctrl+{self._desk.combo_items().index(LONGEST_FACILITY) + 1}")
        self._go_to(SIX_WEEKS.replace(day=5))
        self.take("six weeks")
        self._desk.key("alt+d")
        self._desk.message()
        self.take("delete facility")
        self._close()

    def days(self):
        day = SIX_WEEKS.replace(day=5)
        title = f"  {date_text(day)} Bookings"
        self._open("Return", title)
        self.take("five bookings")
        self._open("alt+m", "Multiple Day Booking")
        self._desk.key("alt+w")
        self._desk.wait(lambda: self._desk.find("Wed", "check box").has_state("CHECKED"), "the Wednesday")
        self.take("several days")
        self._open("alt+c", title)
        self._desk.key("alt+s", "alt+g", "ctrl+a")
        self._desk.type(LONGEST)
        self._desk.tab_to(lambda one: one.role == "table", "the grid")
        self._desk.key("Home", *["Down"] * 15, *["shift+Down"] * 3, "Return")
        self._desk.message()
        self.take("question")
        self._desk.key("Return")
        self._desk.message(lambda text: "\n" not in text)
        self._open("Return", title)
        self._close("alt+c")
        self._desk.key("ctrl+z")
        self._desk.message()
        self.take("undo")
        self._close()
        self._go_to(SIX_WEEKS.replace(day=6))
        self._open("Menu", f"  {date_text(SIX_WEEKS.replace(day=6))} Day Viewer")
        self.take("day viewer")
        self._close()

    def small_windows(self):
        self._open("ctrl+f", self._desk.phrase("Find a Booking"))
        self._desk.type("wolf")
        self._desk.wait(lambda: self._desk.first("text").text == "wolf", "the text in the field")
        self._desk.wait(lambda: any(one.role == "list item" and "Wolf" in one.name
                                    for one in self._desk.front_window().everything()), "the bookings")
        self.take("find")
        self._close()
        self._open("ctrl+shift+f", self._desk.phrase("Free Time"))
        self.take("free time")
        self._close()
        self._desk.key("ctrl+b")
        board = self._desk.phrase("Day Board: %1", "")
        self._desk.front_window(is_wanted=lambda one: one.name.startswith(board))
        self.take("board")
        self._close()
        self._open("alt+s", "Calendar Color Settings")
        self.take("colours")
        self._close()
        self._open("ctrl+p", "Print")
        self.take("print")
        self._desk.key("Escape")
        self._desk.message()
        self._close("Return")

    def help(self):
        self._desk.tab_to(lambda one: one.name == "Print", "the button for printing")
        self._press_and_take("Menu", "calendar menu")
        self._desk.key("Escape")
        self._desk.key("alt+h")
        self._desk.find("About", "menu item")
        self.take("menu")
        self._open("a", "Veyra About")
        self.take("about")
        self._close()
        self._desk.key("F1")
        self._desk.front_window(is_wanted=self._has_page)
        self.take("help")

    def _has_page(self, window):
        return any(one.name == self._desk.phrase("Help page") for one in window.everything())

    def _go_to(self, day):
        """Chooses a day of the month window."""
        self._desk.key("ctrl+g")
        self._desk.message()
        self._desk.key("ctrl+a")
        self._desk.type(date_text(day))
        self._desk.key("Return")
        name = self._desk.phrase("Bookings on %1", date_text(day))
        self._desk.wait(lambda: (one := self._desk.focused()) and one.name == name,
                        "the focus on that day")

    def _open(self, key, title):
        self._desk.key(key)
        self._desk.front_window(title)

    def _close(self, key="Escape"):
        self._desk.key(key)
        self._desk.wait_for_month_window()


def take_kind(build, sheets, name):
    kind = KINDS[name]
    with contextlib.ExitStack() as stack:
        folder = stack.enter_context(tempfile.TemporaryDirectory(prefix="veyra-sheet-"))
        fill(os.path.join(make_calendar(build, folder), "data"))
        kind_of_screen = WaylandScreen if kind.wayland else Screen
        screen = stack.enter_context(kind_of_screen(kind.width / kind.scale, kind.height / kind.scale,
                                                    kind.scale))
        desk = Desk(screen, folder, kind.language)
        stack.callback(desk.__exit__)
        desk.start(**set_up_desktop(screen, kind))
        sheet = Sheet(desk, emptied(os.path.join(sheets, name)))
        try:
            sheet.all_windows()
        finally:
            put_together(sheet.taken, os.path.join(sheets, f"{name}.png"), (kind.width, kind.height))


def emptied(folder):
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    return folder


def put_together(pictures, path, size):
    """Three in a row, in their own size unless that is huge."""
    share = min(1.0, 1280 / size[0])
    shown = f"{round(size[0] * share)}x{round(size[1] * share)}"
    # Each is scaled as it is read: all of a large screen together are more than the program may hold.
    labels = [word for picture in pictures
              for word in ("-label", os.path.basename(picture)[3:-4].replace("_", " "),
                           f"{picture}[{shown}]")]
    subprocess.run(["montage", *labels, "-tile", "3x", "-geometry", f"{shown}+6+6", "-background",
                    "#808080", path], check=True)
    print(f"{path}: {len(pictures)} pictures", flush=True)


def main():
    build, sheets, *kinds = sys.argv[1:]
    build, sheets = os.path.abspath(build), os.path.abspath(sheets)
    os.makedirs(sheets, exist_ok=True)
    if len(kinds) == 1:
        take_kind(build, sheets, kinds[0])
        return 0
    # A process can have one screen only.
    results = [subprocess.run([sys.executable, "-B", __file__, build, sheets, kind], check=False)
               for kind in kinds or KINDS]
    return max(result.returncode for result in results)


if __name__ == "__main__":
    sys.exit(main())
