"""The companion as built is killed between any two calls that write to its disk, or in the middle of
a write, while it makes an Access calendar small again. Afterwards the calendar is the old one or the
new one, whole, with every row; it is booked in, and the next run does what was broken off.

VEYRA_KILLS=N kills it N times, spread over all the points.
"""

import csv
import io
import os
import shutil
import subprocess
import tempfile
import unittest

from disk_meter import Meter

KILLS = int(os.environ.get("VEYRA_KILLS") or 10)
DISK = os.environ["VEYRA_DISK"]  # the library that counts the calls and kills
VEYRA_DATA = os.environ["VEYRA_DATA"]
CHESS = "Facility,Date,From,To,Name\r\nStudio,2031-03-05,09:00,10:00,Chess\r\n"


class KilledCompactTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="veyra-compact-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.meter = Meter(self.file("meter"))
        self.write("chess.csv", CHESS)
        self.data("new", self.file("prepared"), "--sample", "--access")
        self.make_holes()

    def file(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        with open(self.file(name), "w", encoding="utf-8", newline="") as file:
            file.write(text)

    def data(self, *words, passing=(0,), **environment):
        ended = subprocess.run([VEYRA_DATA, *words], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                               env=dict(os.environ, **environment), check=False)
        self.assertIn(ended.returncode, passing, ended.stdout + ended.stderr)
        return ended

    def make_holes(self):
        """A series is booked, which is taken back."""
        rows = "".join(f"Studio,{2030 + n // 28}-01-{n % 28 + 1:02},09:00,10:00,{'Long name ' * 4},7\r\n"
                       for n in range(1400))
        self.write("series.csv", "Facility,Date,From,To,Name,Series\r\n" + rows)
        self.data("import", self.file("series.csv"), self.file("prepared"))
        self.data("undo", self.file("prepared"), "--yes")

    def begin_anew(self):
        shutil.rmtree(self.file("data"), ignore_errors=True)
        shutil.copytree(self.file("prepared"), self.file("data"))

    def compact(self, kill_after=0):
        """How the companion ended: 0, or -9."""
        self.meter.forget()
        self.meter.kill_after(kill_after)
        return self.data("compact", self.file("data"), passing=(0, -9), LD_PRELOAD=DISK,
                         VEYRA_DISK_FOLDER=self.file("data"), VEYRA_DISK_METER=self.file("meter")).returncode

    def contents(self):
        """All bookings and the whole history."""
        rows = self.data("export", "-", self.file("data"), "--format", "csv").stdout
        return sorted(csv.reader(io.StringIO(rows))), self.data("history", self.file("data")).stdout

    def size(self):
        return os.path.getsize(self.file("data/Calendar.mdb"))

    def test_the_old_calendar_is_there_or_the_new_one(self):
        self.begin_anew()
        contents, large = self.contents(), self.size()
        self.assertEqual(0, self.compact())
        steps, small = self.meter.steps(), self.size()
        self.assertLess(small, large)
        self.assertEqual(contents, self.contents())
        sizes = []
        for kill in range(KILLS):
            point = 1 + kill * (steps - 1) // max(KILLS - 1, 1)
            with self.subTest(point=point, of=steps):
                self.begin_anew()
                self.assertEqual(-9, self.compact(point))
                sizes.append(self.size())
                self.data("check", self.file("data/Calendar.mdb"))
                self.assertEqual(contents, self.contents())
                self.data("import", self.file("chess.csv"), self.file("data"))
                self.data("undo", self.file("data"), "--yes")
                self.assertEqual(0, self.compact())
                self.assertEqual(contents[0], self.contents()[0])
                self.assertLessEqual(self.size(), small + 65536)
                self.assertLessEqual({name.split("-")[0] for name in os.listdir(self.file("data"))},
                                     {"Calendar.mdb", "Veyra.mdb", "Calendar"})
        # It was killed before the new one was in its place, and after.
        self.assertEqual({large, small}, set(sizes))
        print(f"{KILLS} kills at {steps} points", end=" ", flush=True)


if __name__ == "__main__":
    unittest.main(verbosity=2)
