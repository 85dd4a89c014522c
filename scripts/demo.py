"""Shows the calendar at work where nobody can see it: books one slot by mouse on a virtual screen
and leaves a picture of the day and of the month in the application folder.

    python3 demo.py APP_FOLDER
"""

import os
import sys
from datetime import date, timedelta

from desk import Desk, date_text
from screen import Screen

HALF_HOURS = 3
FIRST_CHOICE, LAST_CHOICE = 17, 43  # 8:00 AM to 9:00 PM: when a front desk is asked for a room


class Demo:
    def __init__(self, app_folder):
        self.app_folder = app_folder
        self.doing = "starting a virtual screen"

    def run(self):
        with Screen(1920, 1080) as screen:
            self._say("starting the calendar on a virtual screen")
            with Desk(screen, self.app_folder) as desk:
                desk.wait_for_month_window()
                day, slot = self._open_free_day(desk)
                self._book(desk, day, slot)
                self._take_pictures(desk, day)

    def _say(self, doing):
        self.doing = doing
        print(f"  {doing[0].upper()}{doing[1:]}", flush=True)

    def _open_free_day(self, desk):
        """Opens day after day, from today on, until one has room."""
        day = date.today()
        while True:
            self._say(f"opening {date_text(day)} with a click")
            desk.open_day(day)
            names = desk.slots()
            for slot in range(FIRST_CHOICE, LAST_CHOICE - HALF_HOURS + 1):
                if not any(names[slot:slot + HALF_HOURS]):
                    return day, slot
            self._say("finding it full, so closing it again")
            desk.close_day()
            day = self._turn_to_next(desk, day)

    def _turn_to_next(self, desk, day):
        tomorrow = day + timedelta(days=1)
        if tomorrow.month != day.month:
            self._say("turning to the next month")
            desk.click("Next =>")
            desk.day_cell(tomorrow)
        return tomorrow

    def _book(self, desk, day, slot):
        guests = desk.combo_items()
        if guests:
            self._say(f"picking {guests[day.day % min(8, len(guests))]} from the list of guests")
            desk.choose(guests[day.day % min(8, len(guests))])
        self._say(f"dragging over {HALF_HOURS} half hours from {desk.time_of(slot)}")
        desk.drag_slots(slot, slot + HALF_HOURS - 1)
        self._say(f"answering OK to: {' '.join(desk.message().split())}")
        desk.press("OK")
        answer = desk.message()
        if answer != "1 Booking(s) Made.":
            raise RuntimeError(f"the calendar answered: {answer}")
        self._say(f"reading the answer: {answer}")
        desk.press("OK")

    def _take_pictures(self, desk, day):
        self._say("taking a picture of the day")
        desk.picture(os.path.join(self.app_folder, "day.png"))
        desk.close_day()
        self._say("taking a picture of the month")
        desk.picture(os.path.join(self.app_folder, "month.png"))


def main():
    demo = Demo(sys.argv[1])
    try:
        demo.run()
    except Exception as error:  # whatever it was: the step that failed is what helps
        print(f"\nrun: this step failed: {demo.doing}\n  {error}", file=sys.stderr)
        return 1
    print(f"\nIt works: one slot booked. See for yourself:\n"
          f"  {demo.app_folder}/day.png\n  {demo.app_folder}/month.png")
    return 0


if __name__ == "__main__":
    sys.exit(main())
