"""Two desks, each on a screen of its own, with one calendar on a server: what one books, the other
sees without a key being pressed there."""

import os
import shutil
import subprocess
import sys
import tempfile
import time

from desk import date_text
from desk_test import PICTURES, VEYRA_DATA, DeskTest, main
from screen import wait_until

SERVER = os.environ.get("VEYRA_TEST_SERVER", "")  # starts and stops a private one


class OtherDesksTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.day = self.free_day("Main Hall")
        self.server = tempfile.mktemp(prefix="veyra-pg-", dir="/tmp")
        self.addCleanup(subprocess.run, [SERVER, "stop", self.server], check=False)
        subprocess.run([SERVER, "start", self.server, str(os.getpid())], check=True)
        self.link = f"postgresql://veyra@/postgres?host={self.server}"
        self.tool("share", self.data_folder, self.link)
        self.start()
        self.second = self.start_second_desk()

    def tool(self, *words):
        subprocess.run([VEYRA_DATA, *words], check=True, stdout=subprocess.DEVNULL)

    def start_second_desk(self):
        folder = self.file("second")
        os.makedirs(os.path.join(folder, "data"))
        shutil.copy(self.file("veyra-calendar"), folder)
        shutil.copy(os.path.join(self.data_folder, "Veyra.mdb"), os.path.join(folder, "data"))
        self.tool("link", os.path.join(folder, "data"), self.link)
        with open(os.path.join(folder, "path.txt"), "w", encoding="utf-8") as file:
            file.write(os.path.join(folder, "data") + "\r\n")
        script = os.path.join(os.path.dirname(os.path.abspath(__file__)), "second_desk.py")
        picture = os.path.join(PICTURES, "second-desk.png") if PICTURES else ""
        os.makedirs(PICTURES or self.app_folder, exist_ok=True)
        desk = subprocess.Popen([sys.executable, "-B", "-W", "ignore", script, folder,
                                 self.day.isoformat()],
                                stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                env={**os.environ, "VEYRA_PICTURE": picture})
        self.addCleanup(self.end_second_desk, desk)
        self.assertEqual("ready", desk.stdout.readline().strip())
        return desk

    @staticmethod
    def end_second_desk(desk):
        desk.stdin.close()
        desk.wait(60)
        desk.stdout.close()

    def stored(self, name):
        """Whether a booking of that name is on the server."""
        found = subprocess.run(
            ["psql", "-X", "-A", "-t", "-h", self.server, "-U", "veyra", "-d", "postgres", "-c",
             f'SELECT count(*) FROM veyra."Reserv" WHERE "Event" = \'{name}\''],
            check=True, stdout=subprocess.PIPE, text=True)
        return found.stdout.strip() == "1"

    def book_elsewhere(self, first, last, name, is_seen, what):
        """Has the other desk book, and waits until this one shows it; it is not touched."""
        self.second.stdin.write(f"{first} {last} {name}\n")
        self.second.stdin.flush()
        wait_until(lambda: self.stored(name), "the booking on the server", 60)
        stored = time.monotonic()
        self.desk.wait(is_seen, f"{what} with the booking")
        print(f"{what}: {time.monotonic() - stored:.2f} s after the booking stood on the server")
        self.assertEqual("booked", self.second.stdout.readline().strip())

    def viewer_lines(self):
        lines = self.desk.find(f"Bookings on {date_text(self.day)}", "list")
        return [one.name for one in lines.children if one.role == "list item"]

    def test_a_booking_appears_in_the_month_the_open_day_and_the_viewer_of_the_other_desk(self):
        self.book_elsewhere(19, 19, "Ann First", lambda: " 9:00A- 9:30A Ann First" in
                            self.desk.lines_of(self.day), "the month")
        self.leave_picture_of("month")

        self.desk.open_day(self.day)
        self.book_elsewhere(20, 20, "Bob Second",
                            lambda: self.desk.slots()[20] == "Bob Second", "the open day")
        self.leave_picture_of("day")
        self.desk.close_day()

        self.desk.click_on(self.desk.day_cell(self.day), 3)
        self.desk.front_window(f"  {date_text(self.day)} Day Viewer")
        self.book_elsewhere(21, 21, "Cid Third", lambda: "10:00A-10:30A Cid Third" in
                            self.viewer_lines(), "the viewer")
        self.leave_picture_of("viewer")

    def leave_picture_of(self, what):
        if PICTURES:
            self.desk.picture(os.path.join(PICTURES, f"other-desks-{what}.png"), window_only=False)


if __name__ == "__main__":
    main()
