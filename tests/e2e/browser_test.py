"""The link of the about box: what the surroundings say of a browser does nothing but open or fail."""

import os

from desk_test import DeskTest, main
from screen import wait_until

LINK = "https://veyra-calendar.example/"


class BrowserTest(DeskTest):
    def setUp(self):
        super().setUp()
        self.programs = self.file("programs")
        os.mkdir(self.programs)

    def offer_opener(self, script):
        """A program that the desktop opens links with."""
        opener = os.path.join(self.programs, "xdg-open")
        with open(opener, "w", encoding="utf-8") as file:
            file.write(f"#!/bin/sh\n{script}\n")
        os.chmod(opener, 0o755)

    def click_link(self, **environment):
        self.start(PATH=self.programs, **environment)
        self.desk.click("Help")
        self.desk.click("About")
        self.desk.front_window("Veyra About")
        self.desk.click(LINK)

    def assert_goes_on(self):
        self.desk.front_window("Veyra About")
        self.desk.click("Exit")
        self.desk.wait_for_month_window()

    def test_gets_the_address_and_nothing_else(self):
        told = self.file("told")
        self.offer_opener(f"printf '%s|' \"$@\" > '{told}.new'; /bin/mv '{told}.new' '{told}'")
        self.click_link()
        wait_until(lambda: os.path.exists(told), "the browser")
        with open(told, encoding="utf-8") as file:
            self.assertEqual(f"{LINK}|", file.read())
        self.assert_goes_on()

    def test_that_fails_is_no_obstacle(self):
        called = self.file("called")
        self.offer_opener(f": > '{called}'; exit 4")
        self.click_link()
        wait_until(lambda: os.path.exists(called), "the browser")
        self.assert_goes_on()

    def test_that_never_ends_is_no_obstacle(self):
        called = self.file("called")
        self.offer_opener(f"echo $$ > '{called}'; exec /bin/sleep 60")
        self.click_link()
        wait_until(lambda: os.path.exists(called), "the browser")
        self.assert_goes_on()

    def test_that_is_a_command_for_a_shell_is_none(self):
        witness = self.file("witness")
        for command in (f"/bin/sh -c '/bin/touch {witness}'", f";/bin/touch {witness};",
                        f"$(/bin/touch {witness})", f"/bin/touch {witness} %s"):
            with self.subTest(command):
                self.click_link(BROWSER=command, DEFAULT_BROWSER=command)
                self.assert_message_has("There is no web browser on this machine")
                self.desk.press("OK")
                self.assert_goes_on()
                self.desk.__exit__()
                self.assertFalse(os.path.exists(witness))


if __name__ == "__main__":
    main()
