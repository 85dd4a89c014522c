"""Installs the programs as a package would and starts them as a user who may not write there.

    installed_test.py CMAKE BUILD_FOLDER
"""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

CMAKE, BUILD = sys.argv[1:3]
LONGEST_WAIT = 30


def install(component, prefix):
    subprocess.run([CMAKE, "--install", BUILD, "--component", component, "--prefix", prefix],
                   check=True, stdout=subprocess.DEVNULL)


def files_in(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if not path.is_dir()}


class Machine(unittest.TestCase):
    """A folder with the programs, another with a user's home."""

    def setUp(self):
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="veyra-installed-"))
        self.addCleanup(self.remove)
        self.root.chmod(0o755)
        self.home = self.root / "home"
        self.home.mkdir()
        # Root may write anywhere: the user is another one then.
        self.user = {}
        if os.getuid() == 0:
            self.user = {"user": 65534, "group": 65534, "extra_groups": []}
            os.chown(self.home, 65534, 65534)

    def remove(self):
        for folder in self.root.rglob("*"):
            if folder.is_dir() and not folder.is_symlink():
                folder.chmod(0o755)
        shutil.rmtree(self.root)

    def start(self, program, *arguments, **more):
        environment = {"HOME": str(self.home), "PATH": "/usr/bin:/bin", "LANG": "C.UTF-8",
                       "QT_QPA_PLATFORM": "offscreen", "XDG_RUNTIME_DIR": str(self.home)}
        return subprocess.Popen([program, *arguments], env=environment, cwd=self.home,
                                text=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                **self.user, **more)

    def run_it(self, program, *arguments):
        process = self.start(program, *arguments)
        out, err = process.communicate(timeout=LONGEST_WAIT)
        return process.returncode, out, err

    def run_calendar_until(self, program, is_up):
        """Starts the calendar, ends it once `is_up`, and returns its exit status."""
        process = self.start(program)
        deadline = time.monotonic() + LONGEST_WAIT
        while not is_up():
            self.assertIsNone(process.poll(), "the calendar ended by itself")
            self.assertLess(time.monotonic(), deadline, "the calendar does not come up")
            time.sleep(0.05)
        process.send_signal(signal.SIGTERM)
        process.communicate(timeout=LONGEST_WAIT)
        return process.returncode


class InstalledForAll(Machine):
    def setUp(self):
        super().setUp()
        self.prefix = self.root / "usr"
        install("system", self.prefix)
        (self.prefix / "libexec/veyra-calendar").chmod(0o555)
        self.calendar = self.prefix / "bin/veyra-calendar"
        self.companion = self.prefix / "bin/veyra-data"
        self.folder = self.home / ".local/share/veyra-calendar"

    def is_open(self):
        return (self.folder / "Calendar.mdb-open").exists()

    def test_all_that_belongs_to_it_is_there(self):
        self.assertLessEqual({
            "bin/veyra-calendar", "bin/veyra-data", "libexec/veyra-calendar/VeyraCalendar.chm",
            "libexec/veyra-calendar/VeyraCalendar_de.chm",
            "libexec/veyra-calendar/veyra-calendar", "libexec/veyra-calendar/veyra-data",
            "libexec/veyra-calendar/veyra-help-reader", "libexec/veyra-calendar/veyra-ical.so",
            "share/applications/veyra-calendar.desktop",
            "share/bash-completion/completions/veyra-data", "share/doc/veyra-calendar/copyright",
            "share/doc/veyra-calendar/changelog.gz",
            "share/icons/hicolor/scalable/apps/veyra-calendar.svg",
            "share/man/man1/veyra-calendar.1.gz", "share/man/man1/veyra-data.1.gz",
            "share/metainfo/com.example.VeyraCalendar.metainfo.xml"}, files_in(self.prefix))

    def test_the_first_start_makes_the_user_an_empty_calendar(self):
        status = self.run_calendar_until(self.calendar, self.is_open)
        self.assertEqual(0, status)
        self.assertEqual(f"{self.folder}\r\n" * 2,
                         (self.folder / "path.txt").read_bytes().decode())
        self.assertEqual({"Calendar.mdb", "Veyra.mdb", "path.txt"}, files_in(self.folder))
        self.assertEqual((0, ""), self.run_it(self.companion, "check")[::2])

    def test_the_second_start_leaves_what_is_there(self):
        self.run_calendar_until(self.calendar, self.is_open)
        data = self.home / "elsewhere"
        self.assertEqual(0, self.run_it(self.companion, "new", str(data), "--sample")[0])
        named = f"{data}\r\n"
        (self.folder / "path.txt").write_text(named, newline="")
        self.run_calendar_until(self.calendar, (data / "Calendar.mdb-open").exists)
        self.assertEqual(named, (self.folder / "path.txt").read_bytes().decode())

    def test_the_companion_names_the_users_own_path_file(self):
        status, _, err = self.run_it(self.companion, "list")
        self.assertEqual(2, status)
        self.assertIn(str(self.folder / "path.txt"), err)

    def test_a_path_file_beside_the_program_holds_for_everybody(self):
        data = self.home / "office"
        self.assertEqual(0, self.run_it(self.companion, "new", str(data))[0])
        (self.prefix / "libexec/veyra-calendar").chmod(0o755)
        (self.prefix / "libexec/veyra-calendar/path.txt").write_text(f"{data}\n")
        (self.prefix / "libexec/veyra-calendar").chmod(0o555)
        self.run_calendar_until(self.calendar, (data / "Calendar.mdb-open").exists)
        self.assertFalse(self.folder.exists())


class Portable(Machine):
    def test_everything_lies_in_one_folder(self):
        folder = self.home / "calendar"
        install("portable", folder)
        if self.user:
            subprocess.run(["chown", "-R", "65534:65534", folder], check=True)
        self.assertEqual(0, self.run_it(folder / "veyra-data", "new", str(folder / "data"))[0])
        (folder / "path.txt").write_text(f"{folder}/data\n")
        self.run_calendar_until(folder / "veyra-calendar",
                                (folder / "data/Calendar.mdb-open").exists)
        self.assertFalse((self.home / ".local").exists())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
