"""An exported month as two other programs read it, and their files as the calendar takes them."""

import datetime
import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

try:
    import icalendar
except ImportError:
    icalendar = None

VEYRA_DATA = os.environ.get("VEYRA_DATA", "")
KHAL_CONFIG = """[calendars]
[[desk]]
path = {folder}/events
[locale]
local_timezone = Europe/Berlin
default_timezone = Europe/Berlin
timeformat = %H:%M
dateformat = %Y-%m-%d
longdateformat = %Y-%m-%d
datetimeformat = %Y-%m-%d %H:%M
longdatetimeformat = %Y-%m-%d %H:%M
[sqlite]
path = {folder}/khal.db
"""


def veyra_data(*words):
    return subprocess.run([VEYRA_DATA, *words], check=False, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True)


class OtherCalendarsTest(unittest.TestCase):
    """Of a calendar that is a SQLite file."""

    made_with = ()

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="veyra-exchange-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.assertEqual(0, veyra_data("new", self.file("data"), "--sample", *self.made_with).returncode)
        first = datetime.date.today().replace(day=1)
        self.first, self.last = first, (first + datetime.timedelta(days=31)).replace(day=1)
        self.last -= datetime.timedelta(days=1)
        exported = veyra_data("export", self.file("month.ics"), self.file("data"),
                              "--from", self.first.isoformat(), "--to", self.last.isoformat())
        self.assertEqual(0, exported.returncode, exported.stderr)
        self.bookings = self.listed("data")
        self.assertLess(50, len(self.bookings))

    def file(self, name):
        return os.path.join(self.folder, name)

    def listed(self, data):
        """The month's bookings: facility, name, begin, end."""
        listed = json.loads(veyra_data("list", self.file(data), "--json", "--from",
                                       self.first.isoformat(), "--to", self.last.isoformat()).stdout)
        return sorted((row["facility"], row["name"], f"{row['date']} {row['from']}", self.end_of(row))
                      for row in listed)

    @staticmethod
    def end_of(row):
        if row["to"] != "24:00":
            return f"{row['date']} {row['to']}"
        next_day = datetime.date.fromisoformat(row["date"]) + datetime.timedelta(days=1)
        return f"{next_day.isoformat()} 00:00"

    def empty_calendar(self):
        """A calendar with the same facilities and no bookings."""
        shutil.copytree(self.file("data"), self.file("empty"))
        self.delete_bookings(self.file("empty"))
        self.assertEqual([], self.listed("empty"))

    def delete_bookings(self, folder):
        subprocess.run(["sqlite3", os.path.join(folder, "Calendar.mdb"), "DELETE FROM Reserv"], check=True)

    def test_icalendar_reads_the_same_bookings(self):
        self.need_icalendar()
        with open(self.file("month.ics"), "rb") as file:
            calendar = icalendar.Calendar.from_ical(file.read())
        events = [(str(event["CATEGORIES"].cats[0]), str(event["SUMMARY"]),
                   event["DTSTART"].dt.strftime("%Y-%m-%d %H:%M"),
                   event["DTEND"].dt.strftime("%Y-%m-%d %H:%M"))
                  for event in calendar.walk("VEVENT")]
        self.assertEqual(self.bookings, sorted(events))
        uids = [str(event["UID"]) for event in calendar.walk("VEVENT")]
        self.assertEqual(len(uids), len(set(uids)))

    def test_a_file_of_icalendar_comes_in_right(self):
        self.need_icalendar()
        with open(self.file("month.ics"), "rb") as file:
            calendar = icalendar.Calendar.from_ical(file.read())
        written = icalendar.Calendar()
        written.add("prodid", "-//other//")
        written.add("version", "2.0")
        for event in calendar.walk("VEVENT"):
            copy = icalendar.Event()
            copy.add("uid", str(event["UID"]))
            copy.add("dtstamp", datetime.datetime(2026, 1, 1, tzinfo=datetime.timezone.utc))
            copy.add("dtstart", event["DTSTART"].dt)
            copy.add("duration", event["DTEND"].dt - event["DTSTART"].dt)
            copy.add("summary", str(event["SUMMARY"]))
            copy.add("location", str(event["LOCATION"]))
            written.add_component(copy)
        with open(self.file("other.ics"), "wb") as file:
            file.write(written.to_ical())
        self.empty_calendar()
        imported = veyra_data("import", self.file("other.ics"), self.file("empty"))
        self.assertEqual(0, imported.returncode, imported.stdout + imported.stderr)
        self.assertEqual(self.bookings, self.listed("empty"))

    def test_khal_reads_the_same_bookings(self):
        self.khal_import()
        shown = self.khal("list", "--format",
                          "{location}|{title}|{start-date-full} {start-time-full}|"
                          "{end-date-full} {end-time-full}",
                          "--day-format", "", "--notstarted", self.first.isoformat(),
                          f"{(self.last - self.first).days + 1}d")
        events = sorted(tuple(line.strip().split("|")) for line in shown.splitlines() if line.strip())
        self.assertEqual(self.bookings, events)

    def test_the_files_of_khal_come_in_right(self):
        self.khal_import()
        self.empty_calendar()
        for file in pathlib.Path(self.file("events")).glob("*.ics"):
            imported = veyra_data("import", str(file), self.file("empty"))
            self.assertEqual(0, imported.returncode, imported.stdout + imported.stderr)
        self.assertEqual(self.bookings, self.listed("empty"))

    def need_icalendar(self):
        if icalendar is None:
            self.skipTest("python3-icalendar is not installed")

    def khal_import(self):
        if shutil.which("khal") is None:
            self.skipTest("khal is not installed")
        os.mkdir(self.file("events"))
        with open(self.file("khal.conf"), "w", encoding="utf-8") as config:
            config.write(KHAL_CONFIG.format(folder=self.folder))
        self.khal("import", "--batch", "-a", "desk", self.file("month.ics"))

    def khal(self, *words):
        environment = dict(os.environ, LC_ALL="C.UTF-8", HOME=self.folder, TZ="Europe/Berlin")
        return subprocess.run(["khal", "-c", self.file("khal.conf"), *words], check=True,
                              stdout=subprocess.PIPE, text=True, env=environment).stdout


class OtherCalendarsOfAccessFilesTest(OtherCalendarsTest):
    """Of a calendar that is an Access file, which is emptied as a SQLite file and made one again."""

    made_with = ("--access",)

    def delete_bookings(self, folder):
        self.assertEqual(0, veyra_data("convert", folder).returncode)
        super().delete_bookings(folder)
        converted = veyra_data("convert", "--to", "access", folder)
        self.assertEqual(0, converted.returncode, converted.stderr)
        with open(os.path.join(folder, "Calendar.mdb"), "rb") as file:
            self.assertIn(b"Standard Jet DB", file.read(64))


if __name__ == "__main__":
    unittest.main(verbosity=2)
