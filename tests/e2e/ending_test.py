"""Ends from outside: whatever is going on, the calendar that was open is one whole file again."""

import os
import signal
import sqlite3
import subprocess
import sys
import time
from datetime import date

from desk_test import DeskTest, main, screen
from screen import end, wait_until

CLOSED = ["Calendar.mdb", "Veyra.mdb"]


class ClosedFiles(DeskTest):
    """What is left beside the data."""

    def files(self):
        return sorted(os.listdir(self.data_folder))

    def calendar(self):
        return os.path.join(self.data_folder, "Calendar.mdb")

    def assert_ends_properly(self, status=0):
        self.assertEqual(status, self.desk.exit_status())
        self.assertEqual(CLOSED, self.files())
        self.assertEqual(["ok"], self.sql("PRAGMA integrity_check;"))
        self.assertEqual(CLOSED, self.files())


class AtWork(ClosedFiles):
    """A booking is about to be made."""

    def ask_for_a_booking(self):
        """Leaves the question on the screen, and returns the day."""
        self.desk.choose("Studio")
        day = self.free_day("Studio")
        self.desk.open_day(day)
        self.desk.drag_slots(19, 21)
        self.assert_message_has("Reservation for")
        return day

    def bookings_on(self, day):
        return self.sql(f"SELECT TimeFrom FROM Reserv WHERE DateOfRes = '{day.isoformat()}' "
                        "AND Event = 'No Title';")


class EndingTest(AtWork):
    def hold(self):
        """Another program in the middle of a change."""
        other = sqlite3.connect(self.calendar(), isolation_level=None)
        self.addCleanup(other.close)
        other.execute("BEGIN IMMEDIATE")
        return other

    def wait_for_sign(self):
        text = self.desk.progress()
        self.assertTrue(text.startswith("Waiting for another program …"), text)
        return text

    def test_each_signal_closes_the_calendar(self):
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            with self.subTest(number):
                self.start()
                self.assertNotEqual(CLOSED, self.files())
                self.desk.process.send_signal(number)
                self.assert_ends_properly()

    def test_a_booking_is_kept(self):
        self.start()
        day = self.ask_for_a_booking()
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.desk.process.terminate()
        self.assert_ends_properly()
        self.assertEqual(["19"], self.bookings_on(day))

    def test_an_open_question_is_answered_as_if_it_was_closed(self):
        self.start()
        day = self.ask_for_a_booking()
        self.desk.process.terminate()
        self.assert_ends_properly()
        self.assertEqual([], self.bookings_on(day))

    def test_an_open_report_of_a_failed_start_is_no_obstacle(self):
        os.remove(os.path.join(self.data_folder, "Veyra.mdb"))
        self.desk.start()
        self.desk.message()
        self.desk.process.terminate()
        self.assertEqual(1, self.desk.exit_status())
        self.assertEqual(["Calendar.mdb"], self.files())

    def test_a_signal_that_was_ignored_stays_ignored(self):
        handler = signal.signal(signal.SIGHUP, signal.SIG_IGN)
        try:
            self.start()
        finally:
            signal.signal(signal.SIGHUP, handler)
        self.desk.process.send_signal(signal.SIGHUP)
        self.ask_for_a_booking()
        self.desk.process.terminate()
        self.assert_ends_properly()

    def test_the_wait_for_another_program_has_a_sign_and_can_be_cancelled(self):
        self.start()
        day = self.ask_for_a_booking()
        self.hold()
        self.desk.press("OK")
        self.assertIn(self.calendar(), self.wait_for_sign())
        self.leave_picture_of("waiting")
        self.desk.click("Cancel")
        self.assert_message_has("You did not want to wait")
        self.assertEqual([], self.bookings_on(day))

    def test_the_wait_ends_by_itself_when_the_file_is_free(self):
        self.start()
        day = self.ask_for_a_booking()
        other = self.hold()
        self.desk.press("OK")
        self.wait_for_sign()
        other.execute("ROLLBACK")
        self.assert_message("1 Booking(s) Made.")
        self.assertEqual(["19"], self.bookings_on(day))

    def test_a_wait_is_no_obstacle(self):
        self.start()
        self.ask_for_a_booking()
        other = self.hold()
        self.desk.press("OK")
        self.wait_for_sign()
        began = time.monotonic()
        self.desk.process.terminate()
        self.assertEqual(0, self.desk.exit_status())
        self.assertLess(time.monotonic() - began, 4)
        other.execute("ROLLBACK")
        other.close()
        # The note about the log stays when the other program is the last to close the file.
        logs = [name for name in self.files() if name.endswith(("-wal", "-shm", "-journal"))]
        self.assertEqual([], logs)

    def test_a_locked_calendar_at_the_start_has_the_sign_too(self):
        other = sqlite3.connect(self.calendar(), isolation_level=None)
        self.addCleanup(other.close)
        other.execute("PRAGMA locking_mode = EXCLUSIVE")
        other.execute("BEGIN EXCLUSIVE")
        self.desk.start()
        self.wait_for_sign()
        self.desk.click("Cancel")
        self.assert_message_has("You did not want to wait")
        self.desk.press("OK")
        self.assertEqual(1, self.desk.exit_status())

    def leave_picture_of(self, name):
        folder = os.environ.get("VEYRA_SHOW")
        if folder:
            subprocess.run(["import", "-window", "root", os.path.join(folder, f"{name}.png")],
                           env=screen().environment, check=True)


class SessionEndTest(AtWork):
    """The user logs out: the desktop's session manager asks its programs to save and to end."""

    def setUp(self):
        super().setUp()
        self.manager = subprocess.Popen(
            [sys.executable, os.path.join(os.path.dirname(__file__), "session_manager.py")],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(self.stop_manager)
        self.address = self.manager.stdout.readline().strip()
        if not self.address:
            self.skipTest(self.manager.stderr.read().strip() or "no session manager")

    def stop_manager(self):
        end(self.manager)
        for pipe in (self.manager.stdin, self.manager.stdout, self.manager.stderr):
            pipe.close()

    def start_in_session(self):
        self.start(SESSION_MANAGER=self.address)
        self.assertEqual("saved", self.manager.stdout.readline().strip())
        self.assertNotEqual(CLOSED, self.files())

    def end_session(self):
        self.manager.stdin.write("end\n")
        self.manager.stdin.flush()

    def test_closes_the_calendar(self):
        self.start_in_session()
        self.end_session()
        self.assert_ends_properly()

    def test_an_open_question_is_no_obstacle(self):
        self.start_in_session()
        day = self.ask_for_a_booking()
        self.end_session()
        self.assert_ends_properly()
        self.assertEqual([], self.bookings_on(day))

    def test_windows_that_wait_for_another_are_no_obstacle(self):
        self.start_in_session()
        self.desk.open_day(date.today())
        self.desk.click("Multiple Booking")
        self.desk.front_window("Multiple Day Booking")
        self.end_session()
        self.assert_ends_properly()

    def test_an_open_message_is_no_obstacle(self):
        self.start_in_session()
        day = self.ask_for_a_booking()
        self.desk.press("OK")
        self.assert_message("1 Booking(s) Made.")
        self.end_session()
        self.assert_ends_properly()
        self.assertEqual(["19"], self.bookings_on(day))


class LostScreenTest(ClosedFiles):
    """The X server that the program is shown on goes."""

    def start_server(self):
        readable, writable = os.pipe()
        server = subprocess.Popen(
            ["Xvfb", "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset", "-displayfd",
             str(writable)], pass_fds=[writable], stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        self.addCleanup(end, server)
        os.close(writable)
        with os.fdopen(readable) as pipe:
            return server, {**screen().environment, "DISPLAY": f":{pipe.readline().strip()}"}

    def start_on(self, environment):
        self.desk.process = subprocess.Popen(
            [os.path.join(self.app_folder, "veyra-calendar")], env=environment,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def xdotool(self, environment, *words):
        return subprocess.run(["xdotool", *words], env=environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, text=True, check=False).stdout.strip()

    def wait_for_window(self, environment, name):
        return wait_until(lambda: self.xdotool(environment, "search", "--onlyvisible", "--name",
                                               name), f"the window {name}")

    def test_closes_the_calendar(self):
        server, environment = self.start_server()
        self.start_on(environment)
        self.wait_for_window(environment, "Veyra Scheduler Calendar")
        self.assertNotEqual(CLOSED, self.files())
        end(server)
        self.assert_ends_properly(status=1)


if __name__ == "__main__":
    main()
