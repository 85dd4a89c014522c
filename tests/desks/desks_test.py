"""Twenty desks book, rename and delete in the same few rooms and days, while the server is ended as
by a loss of power and started again, and some of the desks are killed."""

import collections
import os
import unittest

from office import Office

DESKS = 20
KILLED = 3
ACTIONS = int(os.environ.get("VEYRA_ACTIONS", "60"))

OVERLAPS = """SELECT count(*) FROM veyra."Reserv" a JOIN veyra."Reserv" b
  ON a."RmID" = b."RmID" AND a."DateOfRes" = b."DateOfRes" AND a.veyra_row < b.veyra_row
  AND a."TimeFrom" <= b."TimeTo" AND a."TimeTo" >= b."TimeFrom" """


class Disturbance:
    """Ends the server once, when half of the desks' work is done, and kills the first desks."""

    def __init__(self, office, desks):
        self._office = office
        self._desks = desks
        self._actions = 0
        self.has_come = False

    def heard(self, desk, line):
        if line.startswith("away"):
            desk.go_on()
        self._actions += line.startswith("done")
        if not self.has_come and self._actions > DESKS * ACTIONS / 4:
            self.has_come = True
            for killed in self._desks[:KILLED]:
                killed.process.kill()
            self._office.stop_server()
            self._office.start_server_again()


class DesksTest(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        with Office(os.environ["VEYRA_DESK"], os.environ["VEYRA_DATA"]) as office:
            cls.desks = office.open_desks(DESKS, ACTIONS)
            disturbance = Disturbance(office, cls.desks)
            for desk in cls.desks:
                desk.go_on()
            office.attend(disturbance.heard)
            cls.was_disturbed = disturbance.has_come
            cls.overlaps = office.sql(OVERLAPS)
            cls.names = [row[0] for row in office.sql('SELECT "Event" FROM veyra."Reserv"')]
        cls.rows = [name.split()[0] for name in cls.names]
        print(collections.Counter(" ".join(line.split()[:2] if line[:4] != "away" else ["away"])
                                  for desk in cls.desks for line in desk.said))

    def told(self, word, action):
        return {booking for desk in self.desks for booking in desk.told(word, action)}

    def test_no_half_hour_is_booked_twice(self):
        self.assertEqual([["0"]], self.overlaps)

    def test_every_booking_that_was_reported_as_saved_is_there(self):
        missing = self.told("done", "book") - self.told("tries", "delete") - set(self.rows)
        self.assertEqual(set(), missing)

    def test_no_booking_is_there_twice(self):
        self.assertEqual(len(set(self.rows)), len(self.rows))

    def test_no_booking_is_there_that_was_refused_or_deleted(self):
        for word, action in [("taken", "book"), ("done", "delete")]:
            self.assertEqual(set(), self.told(word, action) & set(self.rows), word)

    def test_every_name_is_one_that_a_desk_gave(self):
        given = {line.split(" ", 2)[2] for desk in self.desks for line in desk.said
                 if line.startswith(("tries book ", "tries rename "))}
        self.assertEqual(set(), set(self.names) - given)

    def test_the_desks_stood_in_each_others_way_and_were_disturbed(self):
        self.assertTrue(self.was_disturbed)
        self.assertLess(0, len(self.told("taken", "book")))
        self.assertLess(0, len(self.told("done", "rename")))

    def test_all_desks_but_the_killed_ones_came_to_their_end(self):
        self.assertEqual([], [desk.name for desk in self.desks[KILLED:]
                              if desk.said[-1] != "ended"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
