"""Veyra Calendar on a virtual screen, worked like a front desk works it: with mouse and keyboard.

    with Screen() as screen, Desk(screen, "/path/to/application-folder") as desk:
        desk.choose("Studio")                       # in the one combo of the front window
        desk.open_day(date(2026, 11, 24))
        desk.drag_slots(19, 21)
        print(desk.message())
        desk.press("OK")

Controls are found by what a screen reader would call them, and worked where they are to be seen.
Everything waits for what it needs and gives up with a report; nothing sleeps for luck.
"""

import os
import re
import subprocess
import warnings

from screen import GaveUp, end, wait_until
from translations import ROOT, messages

MONTH_WINDOW = "Veyra Scheduler Calendar"
_BOXES = ("alert", "dialog")


def date_text(day):
    """3/5/2026: as the program writes a date."""
    return f"{day.month}/{day.day}/{day.year}"


def phrases_of(language):
    """The program's English texts with those of a language; none for ""."""
    return messages(ROOT / "translations" / f"veyra_{language}.ts") if language else {}


class Control:
    """A control on the screen, as the accessibility bus describes it. Nothing is remembered: each
    question goes to the program, and raises GLib.Error when the control is gone."""

    def __init__(self, accessible, scale=1):
        """`scale`: pixels of the screen for each that the bus tells of."""
        self._accessible = accessible
        self._scale = scale

    name = property(lambda self: self._accessible.get_name())

    @property
    def role(self):
        """What kind of control it is; newer libraries call a push button just a button."""
        name = self._accessible.get_role_name()
        return "push button" if name == "button" else name

    @property
    def box(self):
        """Left, top, width and height in pixels of the screen."""
        extents = self._accessible.get_extents(_atspi.CoordType.SCREEN)
        return tuple(round(self._scale * length) for length in
                     (extents.x, extents.y, extents.width, extents.height))

    @property
    def centre(self):
        x, y, width, height = self.box
        return x + width // 2, y + height // 2

    @property
    def children(self):
        count = self._accessible.get_child_count()
        found = (self._accessible.get_child_at_index(i) for i in range(count))
        return [Control(child, self._scale) for child in found if child]

    @property
    def description(self):
        """What is said after the name."""
        return self._accessible.get_description()

    @property
    def labels(self):
        """The names of the labels that belong to it."""
        relations = self._accessible.get_relation_set()
        return [relation.get_target(place).get_name() for relation in relations
                if relation.get_relation_type() == _atspi.RelationType.LABELLED_BY
                for place in range(relation.get_n_targets())]

    @property
    def text(self):
        """What an edit field holds."""
        return _atspi.Text.get_text(self._accessible, 0, -1)

    def set_text(self, text):
        """Writes into an edit field as an assistive program does, past the keyboard."""
        _atspi.EditableText.set_text_contents(self._accessible, text)

    def has_state(self, state):
        return self._accessible.get_state_set().contains(getattr(_atspi.StateType, state))

    @property
    def is_showing(self):
        return self.has_state("SHOWING")

    def everything(self):
        """This control and all within it, the outer ones first."""
        level = [self]
        while level:
            yield from level
            level = [child for control in level for child in control.children]

    def cell(self, row, column):
        """Of a table; both counted from 0."""
        cell = _atspi.Table.get_accessible_at(self._accessible, row, column)
        return Control(cell, self._scale)


class Desk:
    """The program in `app_folder`, started and, at the end, ended; on a desktop of that language, such
    as "de", which must have a translation."""

    def __init__(self, screen, app_folder, language=""):
        self.screen = screen
        self.app_folder = app_folder
        self.language = language
        self._translations = phrases_of(language)
        self.process = None
        _load_atspi()

    def __enter__(self):
        self.start()
        return self

    def __exit__(self, *_):
        if self.process:
            end(self.process)

    def start(self, **environment):
        """Starts the program, in the screen's environment and this; returns at once."""
        self.process = self.screen.start(
            [os.path.join(self.app_folder, "veyra-calendar")],
            env={**self.screen.environment, "LANGUAGE": self.language, **environment})

    def exit_status(self):
        """Waits for the program to end by itself."""
        return wait_until(lambda: (self.process.poll() is not None and [self.process.returncode]),
                          "the program's end")[0]

    def phrase(self, english, *values):
        """A text of the program in the language of the desktop; the values stand for %1, %2 and so on."""
        text = self._translations.get(english, english)
        return re.sub("%([1-9])", lambda place: values[int(place.group(1)) - 1], text)

    # Windows

    def windows(self):
        """The program's windows that are on the screen."""
        for application in Control(_atspi.get_desktop(0), self.screen.scale).children:
            if application._accessible.get_process_id() == self.process.pid:
                return [window for window in application.children if window.is_showing]
        return []

    def front_window(self, title=None, is_wanted=None):
        """Waits for a window to be in front and to stand still, and returns it."""
        before = None

        def find():
            nonlocal before
            for window in self.windows():
                if ((title is None or window.name == title)
                        and window.has_state("ACTIVE")
                        and (is_wanted is None or is_wanted(window))):
                    box, before = before, window.box
                    return window if window.box == box else None
            return None

        wanted = f'window "{title}"' if title else "box" if is_wanted else "window"
        return self.wait(find, f"the {wanted} in front")

    def picture(self, path, window_only=True):
        self.screen.picture(path, window_only)

    # Controls of the front window

    def find(self, name, role=None, window=None):
        """Waits for the control of that name and returns it."""
        def look():
            for control in (window or self.front_window()).everything():
                if control.name == name and role in (None, control.role) and control.is_showing:
                    return control
            return None

        return self.wait(look, f'"{name}" on the screen')

    def first(self, role, window=None):
        """Waits for the first control of that role and returns it."""
        def look():
            controls = (window or self.front_window()).everything()
            return next((one for one in controls if one.role == role and one.is_showing), None)

        return self.wait(look, f"a {role} on the screen")

    def has(self, name):
        """Whether the front window shows such a control now."""
        return any(one.name == name and one.is_showing for one in self.front_window().everything())

    def labels(self):
        """The texts of the front window's labels."""
        return [one.name for one in self.front_window().everything()
                if one.role == "label" and one.is_showing]

    def click(self, name, button=1):
        """Clicks the control of that name in its middle."""
        self.click_on(self.find(name), button)

    def click_on(self, control, button=1):
        self.screen.click(*control.centre, button)

    def key(self, *keys):
        self.screen.key(*keys)

    def type(self, text):
        self.screen.type(text)

    def focused(self):
        """The control that the keyboard goes to, or None for the moment."""
        # The current cell of a table says that it has the focus even when the table has not.
        claims = ("frame", "filler", "table cell", "list item")
        return next((one for one in self.front_window().everything()
                     if one.has_state("FOCUSED") and one.role not in claims), None)

    def tab_to(self, is_wanted, what):
        """Presses Tab until is_wanted(control) is true for the control that has the focus."""
        for _ in range(70):
            control = self.wait(self.focused, "a control with the focus")
            if is_wanted(control):
                return control
            place = control.box
            self.key("Tab")
            self.wait(lambda: (now := self.focused()) and now.box != place, "the focus to move on")
        raise GaveUp(f"{what} cannot be reached with Tab")

    # Message boxes. Those that only tell how far an action is come and go between them.

    def message(self, is_wanted=lambda text: True):
        """Waits for a message box whose text is_wanted, and returns that, its lines parted by "\\n".
        After a key or a click the box in front may still be the one before."""
        seen = []

        def read():
            text = _text_of(self.front_window(is_wanted=_asks))
            seen[:] = [text]
            return text if text and is_wanted(text) else None

        try:
            return self.wait(read, "the message")
        except GaveUp as trouble:
            raise GaveUp(f"{trouble}; the box says {seen}") from None

    def progress(self):
        """Waits for a box that tells how far an action is or what is waited for, and returns its
        text."""
        return self.wait(lambda: _text_of(self.front_window(is_wanted=_tells_progress)),
                         "the sign of progress")

    def answers(self):
        """The buttons of the message box in front."""
        return self.wait(lambda: [one.name for one in self.front_window(is_wanted=_asks).everything()
                                  if one.role == "push button"], "the buttons of the box")

    def press(self, button):
        """Presses a button of the message box in front, and waits until the box is gone; the
        program may be gone with it."""
        box = self.front_window(is_wanted=_asks)
        self.click_on(self.find(button, "push button", box))

        def is_gone():
            try:
                return self.process.poll() is not None or not box.is_showing
            except _glib.Error:
                return True

        wait_until(is_gone, f'the box to go after "{button}"')

    # The month window

    def wait_for_month_window(self):
        return self.front_window(MONTH_WINDOW)

    def month_title(self):
        """"March 2026"."""
        return next((text for text in self.labels() if re.fullmatch(r"[A-Z][a-z]+ \d+", text)), "")

    def day_cell(self, day):
        return self.find(self.phrase("Bookings on %1", date_text(day)), "list")

    def lines_of(self, day):
        """The lines of a day cell."""
        return [item.name for item in self.day_cell(day).children if item.role == "list item"]

    def combo_text(self):
        """The text of the front window's combo."""
        return self.name_field().text

    def combo_items(self):
        """The list of the front window's combo."""
        return [one.name for one in self.first("combo box").everything() if one.role == "list item"]

    def choose(self, item):
        """Opens the list of the front window's combo by mouse and clicks an item."""
        combo = self.first("combo box")
        x, y, width, height = combo.box
        self.screen.click(x + width - round(8 * self.screen.scale), y + height // 2)
        entry = self.wait(
            lambda: next((one for one in combo.everything()
                          if one.role == "list item" and one.name == item
                          and one.is_showing and one.box[0] >= x), None),
            f'"{item}" in the open list')
        # A long entry is wider than the list shows.
        left, top, _, entry_height = entry.box
        self.screen.click(left + width // 2, top + entry_height // 2)
        self.wait(lambda: self.combo_text() == item, f'"{item}" in the combo')

    def write_name(self, text):
        """Types a text into the front window's combo, in place of what it holds."""
        self.click_on(self.name_field())
        self.key("ctrl+a")
        self.type(text)
        self.wait(lambda: self.combo_text() == text, f'"{text}" in the combo')

    def name_field(self):
        """What is typed in of the front window's combo."""
        return next(one for one in self.first("combo box").everything() if one.role == "text")

    # The day window

    def open_day(self, day):
        """Clicks a day cell and waits for its day window."""
        x, y, width, _ = self.day_cell(day).box
        self.screen.click(x + width // 2, y + round(10 * self.screen.scale))
        return self.front_window(f"  {date_text(day)} Bookings")

    def close_day(self):
        self.click("Close")
        return self.wait_for_month_window()

    def slots(self):
        """The names in the rows of the day grid by slot; entry 0 is empty."""
        return guests_of(self._grid(), self.phrase("free"))

    def time_of(self, slot):
        """What the time column says: "9:30 AM"."""
        return self._grid().cell(slot - 1, 0).name

    def drag_slots(self, first, last):
        """Presses the mouse on one row of the day grid and lets go on another."""
        self.show_slot(last)
        self.show_slot(first)
        self.screen.drag(self._slot(first).centre, self._slot(last).centre)

    def slot_place(self, slot):
        """The middle of a row of the day grid."""
        return self._slot(slot).centre

    def click_slot(self, slot):
        self.show_slot(slot)
        self.click_on(self._slot(slot))

    def show_slot(self, slot):
        """Turns the wheel over the grid until the whole row is to be seen."""
        grid = self._grid()

        def look():
            x, y, width, height = grid.box
            _, top, _, row_height = self._slot(slot).box
            header = grid.cell(0, 0).box[3] + 4
            if y + header <= top and top + row_height <= y + height - 2:
                return True
            self.screen.wheel(x + width // 2, y + height // 2, down=top >= y + header)
            return False

        self.wait(look, f"slot {slot} in sight")

    def _grid(self):
        return self.first("table")

    def _slot(self, slot):
        return self._grid().cell(slot - 1, 1)

    # Waiting

    def wait(self, condition, what):
        """Waits until condition() is true, and returns what it gave. A control that vanishes while
        it is looked at counts as not yet. Gives up when the program ends."""
        def look():
            if self.process.poll() is not None:
                raise GaveUp(f"the program ended with status {self.process.returncode} while "
                             f"{what} was awaited:\n{self.screen.log()}")
            return condition()

        return wait_until(look, what, passing=(_glib.Error,))


def guests_of(grid, free="free"):
    """The names in the rows of a day grid by slot; entry 0 is empty. A screen reader says "9:00 AM, Ann
    Smith" of a row, and "9:00 AM, free"."""
    names = [grid.cell(row, 1).name.split(", ", 1)[1] for row in range(48)]
    return [""] + ["" if name == free else name for name in names]


def _tells_progress(window):
    return window.role == "dialog" and any(one.role == "progress bar" for one in window.everything())


def _asks(window):
    return window.role in _BOXES and not _tells_progress(window)


def _text_of(box):
    """What its first label says; a box without an icon has an empty label in its place."""
    texts = (one.name for one in box.everything() if one.role == "label")
    return next((text for text in texts if text), "").replace("\r\n", "\n")


_atspi = None
_glib = None


def _load_atspi():
    """The accessibility library reads the environment when it is loaded, so not before a screen
    stands. It is told to remember nothing, lest it describe windows that have changed since."""
    global _atspi, _glib
    if _atspi is None:
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi, GLib
        warnings.filterwarnings("ignore", category=DeprecationWarning)
        Atspi.init()
        Atspi.set_timeout(2000, 5000)
        Atspi.Accessible.set_cache_mask(Atspi.get_desktop(0), Atspi.Cache.NONE)
        _atspi, _glib = Atspi, GLib
