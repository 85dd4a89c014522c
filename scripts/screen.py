"""A virtual screen with a window manager, a mouse and a keyboard, all of its own.

Programs started on it see nothing of the user's desktop, settings or session, and the screen ends
nothing but what it started. One process can have one screen: the accessibility library is bound to
the first one that it meets.
"""

import contextlib
import os
import re
import select
import shutil
import subprocess
import tempfile
import time
import unittest

PATIENCE = 20.0  # seconds; a busy machine needs some of them, a broken program all
_PAUSE = 0.02  # seconds between two looks
_KEY_PAUSE = 0.12  # seconds in which nobody presses a key that he has let go again
_CLICK_PAUSE = 0.45  # seconds within which a second click at the same place is a double click
_SAME_PLACE = 12  # pixels of a usual screen, either way; a hand does not move less between two
_DOUBLE_CLICK = 0.4  # seconds within which two clicks surely are one
_TOO_QUICK_FOR_A_HAND = 0.08  # seconds


class GaveUp(AssertionError):
    """What was waited for did not come about."""


class TooBusy(unittest.SkipTest):
    """The machine was too slow just then for what a hand does quickly: nothing can be said."""


def wait_until(condition, what, patience=PATIENCE, passing=()):
    """The first true result of condition(). Exceptions of the kinds `passing` count as not yet."""
    deadline = time.monotonic() + patience
    trouble = None
    while True:
        try:
            result = condition()
            if result:
                return result
        except passing as error:
            trouble = error
        if time.monotonic() > deadline:
            because = f" ({trouble})" if trouble else ""
            raise GaveUp(f"waited {patience:.0f} s in vain for {what}{because}")
        time.sleep(_PAUSE)


class Screen:
    """Use as a context manager; what was started on it ends with it. `scale`: pixels of the screen,
    either way, for each pixel of a usual one; its programs draw so much larger."""

    def __init__(self, width=1280, height=800, scale=1):
        self.width, self.height, self.scale = round(width * scale), round(height * scale), scale
        self.environment = {}  # of the programs started on it
        self._started = []
        self._home = None
        self._log = None
        self._last_click = None  # where, with which button and when
        self._last_key = None  # which and when let go

    def __enter__(self):
        self._home = tempfile.mkdtemp(prefix="veyra-screen-")
        self._log = open(os.path.join(self._home, "log.txt"), "w", encoding="utf-8")
        try:
            self._set_up()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self._started):
            end(process)
        self._log.close()
        shutil.rmtree(self._home, ignore_errors=True)

    def _set_up(self):
        kept = {name: os.environ[name] for name in ("PATH", "TZ", "TMPDIR") if name in os.environ}
        self.environment = {
            **kept,
            "HOME": self._home,
            "XDG_RUNTIME_DIR": self._home,
            "LC_ALL": "C.UTF-8",
            "QT_QPA_PLATFORM": "xcb",
            "QT_ACCESSIBILITY": "1",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "QT_SCALE_FACTOR": str(self.scale),
        }
        size = f"{self.width}x{self.height}x24"
        display = self._start_announced(
            ["Xvfb", "-screen", "0", size, "-dpi", "96", "-nolisten", "tcp", "-noreset"],
            "-displayfd {}")
        self.environment["DISPLAY"] = f":{display}"
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_announced(
            ["dbus-daemon", "--session", "--nofork", "--nopidfile"], "--print-address={}")
        self.start(["openbox"])
        wait_until(lambda: self._xdotool("get_num_desktops", check=False), "the window manager")
        # This process looks at the screen too: by the accessibility library, which reads these.
        for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"):
            os.environ[name] = self.environment[name]

    def _start_announced(self, command, option):
        """Starts a server that writes where it is to be found into a pipe; returns what it wrote."""
        readable, writable = os.pipe()
        self.start(command + option.format(writable).split(), pass_fds=[writable])
        os.close(writable)
        with os.fdopen(readable) as pipe:
            if not select.select([pipe], [], [], PATIENCE)[0]:
                raise GaveUp(f"{command[0]} did not start: {self.log()}")
            answer = pipe.readline().strip()
        if not answer:
            raise GaveUp(f"{command[0]} did not start: {self.log()}")
        return answer

    def start(self, command, **options):
        """Starts a program on this screen; it ends with the screen if not earlier."""
        options = {"stdin": subprocess.DEVNULL, "stdout": self._log, "stderr": self._log,
                   "env": self.environment, **options}
        process = subprocess.Popen(command, cwd=self._home, **options)
        self._started.append(process)
        return process

    def log(self):
        """What the programs on this screen have said so far."""
        self._log.flush()
        with open(self._log.name, encoding="utf-8", errors="replace") as log:
            return log.read()

    # The mouse. Places are pixels from the top left corner.

    def click(self, x, y, button=1):
        """Clicks, but never so soon after a click at the same place that both are a double one."""
        if self._last_click:
            last_x, last_y, last_button, since = self._last_click
            moved = max(abs(x - last_x), abs(y - last_y))
            if button == last_button and moved <= _SAME_PLACE * self.scale:
                _wait_since(since, _CLICK_PAUSE)
        self._xdotool("mousemove", x, y, "click", button)
        self._last_click = x, y, button, time.monotonic()

    def double_click(self, x, y, button=1, delay=40):
        """`delay`: milliseconds from the first release to the second press, less a few."""
        self._xdotool("mousemove", x, y)
        with _Within(_DOUBLE_CLICK + delay / 1000):  # It waits after the second click as well.
            self._xdotool("click", "--repeat", 2, "--delay", delay, button)
        self._last_click = x, y, button, time.monotonic()

    def hold_button_until(self, x, y, button, condition, what):
        """Presses a button of the mouse and lets it go when condition() is true."""
        self._xdotool("mousemove", x, y, "mousedown", button)
        try:
            return wait_until(condition, what)
        finally:
            self._xdotool("mouseup", button)

    def click_with(self, key, x, y):
        """Clicks while a key such as "shift" is held down."""
        self._xdotool("mousemove", x, y, "keydown", key, "click", 1, "keyup", key)

    def drag(self, start, end):
        """Presses at one place, moves to the other in steps, and lets go there."""
        steps = 8
        way = [(start[0] + (end[0] - start[0]) * i // steps,
                start[1] + (end[1] - start[1]) * i // steps) for i in range(1, steps + 1)]
        moves = [word for place in way for word in ("mousemove", *place)]
        self._xdotool("mousemove", *start, "mousedown", 1, *moves, "mouseup", 1)

    @contextlib.contextmanager
    def dragging(self, start, end):
        """Within it the mouse is at `end`, its button pressed since `start`."""
        self._xdotool("mousemove", *start, "mousedown", 1, "mousemove", *end)
        try:
            yield
        finally:
            self._xdotool("mouseup", 1)

    def move(self, x, y):
        self._xdotool("mousemove", x, y)

    def wheel(self, x, y, down):
        """Turns the wheel by one notch."""
        self.click(x, y, 5 if down else 4)

    # The keyboard. Keys have their X names: "Return", "shift+Down".

    def type(self, text):
        """Types, but never so soon after a key that one of the letters is that key held down."""
        if self._last_key:
            _wait_since(self._last_key[1], _KEY_PAUSE)
        self._xdotool("type", "--delay", 10, "--", text)

    def key(self, *keys):
        """Presses keys one after the other, the first one not sooner than a hand can."""
        self._wait_for_hand(keys[0])
        self._xdotool("key", "--delay", 10, *keys)
        self._last_key = keys[-1], time.monotonic()

    def key_twice(self, key):
        """Presses a key twice, quicker than a hand can, but so that a box has time to come up."""
        delay = 60
        self._wait_for_hand(key)
        # Each press and each release is followed by half of the delay.
        with _Within(_TOO_QUICK_FOR_A_HAND + 1.5 * delay / 1000):
            self._xdotool("key", "--delay", delay, key, key)
        self._last_key = key, time.monotonic()

    def hold_key_until(self, key, condition, what):
        """Holds a key down, so that it repeats, until condition() is true."""
        self._wait_for_hand(key)
        self._xdotool("keydown", key)
        try:
            return wait_until(condition, what)
        finally:
            self._xdotool("keyup", key)
            self._last_key = key, time.monotonic()

    def hold_key(self, key, seconds):
        """Holds a key down for that long, in which it repeats after the first 0.7 s."""
        start = time.monotonic()
        self.hold_key_until(key, lambda: time.monotonic() - start >= seconds, "the hand to tire")

    def _wait_for_hand(self, key):
        if self._last_key and self._last_key[0] == key:
            _wait_since(self._last_key[1], _KEY_PAUSE)

    # The windows, as the window manager knows them; each by its title, less the blanks around it.

    def is_above(self, title, other):
        order = [name for _, name in self._managed()]
        return order.index(title.strip()) > order.index(other.strip())

    def window_in_front(self):
        """The number and the title of the window that has the keyboard; the screen knows them,
        however busy the program is."""
        number = self._xdotool("getactivewindow", check=False)
        return number, number and self._xdotool("getwindowname", number, check=False).strip()

    def is_minimised(self, title):
        return "Iconic" in self._xprop("-id", self._window(title), "WM_STATE")

    def minimise(self, title):
        self._xdotool("windowminimize", self._window(title))

    def activate(self, title):
        """Turns to a window as by the task bar, which restores a minimised one."""
        self.activate_number(self._window(title))

    def activate_number(self, number):
        """The same, of windows with one title; the number is that of window_in_front."""
        self._xdotool("windowactivate", number)

    def asks_for_minimise_button(self, title):
        """Whether the window wants one; a window that says nothing of its buttons wants all."""
        hints = self._xprop("-id", self._window(title), "-f", "_MOTIF_WM_HINTS", "32x",
                            "_MOTIF_WM_HINTS")
        flags, functions, decorations = map(lambda word: int(word, 16),
                                            re.findall("0x[0-9a-f]+", hints)[:3])
        no_function = flags & 1 and not functions & (1 | 8)
        no_button = flags & 2 and not decorations & (1 | 32)
        return not (no_function and no_button)

    def has_icon(self, title):
        return "Icon (" in self._xprop("-id", self._window(title), "_NET_WM_ICON")

    def _window(self, title):
        return wait_until(lambda: [number for number, name in self._managed() if name == title.strip()],
                          f'the window "{title}"')[-1]

    def _managed(self):
        numbers = re.findall("0x[0-9a-f]+", self._xprop("-root", "_NET_CLIENT_LIST_STACKING"))
        return [(number, self._xdotool("getwindowname", int(number, 16), check=False))
                for number in numbers]

    def _xprop(self, *words):
        result = subprocess.run(["xprop", *words], env=self.environment, text=True, check=False,
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        return result.stdout

    def picture(self, path, window_only=True):
        """Saves what is to be seen, once it stands still but for a caret that blinks: the front window or
        the whole screen."""
        window = ["-window", "root"]
        if window_only:
            window = ["-frame", "-window", self._xdotool("getactivewindow")]

        def take():
            return subprocess.run(["import", *window, "png:-"], env=self.environment, check=True,
                                  stdout=subprocess.PIPE).stdout

        seen = []

        def take_again():
            picture = take()
            seen.append(_pixels(picture))
            return picture if seen[-1] in seen[:-1] else None

        picture = wait_until(take_again, "a still picture")
        with open(path, "wb") as file:
            file.write(picture)

    def _xdotool(self, *words, check=True):
        result = subprocess.run(["xdotool", *map(str, words)], env=self.environment, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
        if check and result.returncode != 0:
            raise RuntimeError(f"xdotool {' '.join(map(str, words))}: {result.stderr.strip()}")
        return result.stdout.strip() if result.returncode == 0 else ""


class _Within:
    """What is done in it counts only when it took less than so many seconds."""

    def __init__(self, seconds):
        self._seconds = seconds

    def __enter__(self):
        self._begun = time.monotonic()

    def __exit__(self, kind, *_):
        took = time.monotonic() - self._begun
        if kind is None and took >= self._seconds:
            raise TooBusy(f"took {took:.2f} s, which had to be less than {self._seconds} s")


def _wait_since(moment, seconds):
    time.sleep(max(0.0, moment + seconds - time.monotonic()))


def end(process):
    """Asks a process to end, insists after a while, and returns its exit status."""
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()
    return process.wait()


def pixels_of(path):
    """The compressed pixels of a picture that was saved, to be compared with those of another."""
    with open(path, "rb") as file:
        return _pixels(file.read())


def _pixels(png):
    """The compressed pixels of a PNG, without the chunks that tell when it was made."""
    at, pixels = 8, b""
    while at < len(png):
        length = int.from_bytes(png[at:at + 4], "big")
        if png[at + 4:at + 8] == b"IDAT":
            pixels += png[at + 8:at + 8 + length]
        at += 12 + length
    return pixels
