"""The colours of the month window: tried for a run, saved for good."""

import os
import re
import subprocess

from desk_test import DeskTest, main

DARK_BLUE, RED = "#0000C0", "#FF0000"


class ColorSettingsTest(DeskTest):
    def test_colors_in_use_for_now_are_gone_after_a_restart(self):
        self.start()
        self.wait_for_header(DARK_BLUE)
        self.pick_red_header("Tempory Use Colors")
        self.wait_for_header(RED)
        self.assertEqual(["12582912"], self.stored_header())
        self.restart()
        self.wait_for_header(DARK_BLUE)

    def test_saved_colors_are_there_after_a_restart(self):
        self.start()
        self.pick_red_header("Save New Colors")
        self.wait_for_header(RED)
        self.assertEqual(["255"], self.stored_header())
        self.restart()
        self.wait_for_header(RED)

    def test_the_palette_works_from_the_keyboard(self):
        self.start()
        self.open_settings()
        self.desk.tab_to(lambda one: one.name == "BackGround Color" and one.role == "radio button",
                         "the roles")
        self.desk.key("Down")
        self.desk.tab_to(lambda one: one.name.startswith("Color #"), "the palette")
        self.desk.key("Right", "Down", "Down")
        self.desk.wait(lambda: (one := self.desk.focused()) and one.name == f"Color {RED}",
                       "the focus on red")
        self.desk.key("space")
        self.desk.tab_to(lambda one: one.name == "Save New Colors", "the button that saves")
        self.desk.key("Return")
        self.desk.wait(lambda: self.stored_header() == ["255"], "the new colour in the row")

    def open_settings(self):
        self.desk.click("Settings")
        self.desk.front_window("Calendar Color Settings")

    def pick_red_header(self, button):
        self.open_settings()
        self.desk.click_on(self.desk.find("Header Color", "radio button"))
        self.desk.click(f"Color {RED}")
        self.desk.click(button)
        self.desk.key("Escape")
        self.desk.wait_for_month_window()

    def restart(self):
        self.desk.key("alt+F4")
        self.assertEqual(0, self.desk.exit_status())
        self.start()

    def stored_header(self):
        return self.sql("SELECT HeaderTxt FROM Settings WHERE ID = 1;")

    def wait_for_header(self, color):
        self.desk.wait(lambda: self.header_colors() == {color}, f"the title in {color}")

    def header_colors(self):
        """Which of the two colours the title of the month has on the screen."""
        x, y, width, height = self.desk.find(self.desk.month_title(), "label").box
        picture = self.file("screen.png")
        self.desk.picture(picture, window_only=False)
        told = subprocess.run(["convert", picture, "-crop", f"{width}x{height}+{x}+{y}",
                               "-format", "%c", "histogram:info:-"],
                              check=True, stdout=subprocess.PIPE, text=True).stdout
        os.remove(picture)
        return {DARK_BLUE, RED} & set(re.findall(r"#[0-9A-F]{6}\b", told))


if __name__ == "__main__":
    main()
