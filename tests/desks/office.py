"""An office of many desks: a private server, a calendar on it, and desks as processes."""

import os
import pathlib
import selectors
import shutil
import subprocess
import tempfile

SERVER = pathlib.Path(__file__).resolve().parent.parent / "postgres" / "server"


class Desk:
    """A process that acts on the calendar, and every line that it has said."""

    def __init__(self, program, calendar, name, number, actions, *apart):
        arguments = [program, calendar, name, number, actions, *apart]
        self.name = name
        self.said = []
        self.process = subprocess.Popen(
            [str(argument) for argument in arguments],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0)
        self._half_line = b""

    def go_on(self):
        """Lets it begin, or try again; says nothing to one that has ended."""
        try:
            self.process.stdin.write(b"\n")
        except BrokenPipeError:
            pass

    def listen(self):
        """Reads what it says now, and returns the whole lines; None when it has ended."""
        data = os.read(self.process.stdout.fileno(), 65536)
        if not data:
            return None
        *lines, self._half_line = (self._half_line + data).split(b"\n")
        self.said += [line.decode() for line in lines]
        return self.said[len(self.said) - len(lines):]

    def told(self, word, action):
        """The bookings of which it said that: ("done", "book")."""
        return [line.split()[2] for line in self.said if line.split()[:2] == [word, action]]


class Office:
    """The server and the calendar's folder. Both go with it."""

    def __init__(self, desk_program, data_program):
        self._desk_program = desk_program
        self._desks = []
        self.folder = tempfile.mkdtemp(prefix="veyra-office-")
        self.server = tempfile.mktemp(prefix="veyra-pg-", dir="/tmp")
        subprocess.run([SERVER, "start", self.server, str(os.getpid())], check=True)
        self.uri = f"postgresql://veyra@/postgres?host={self.server}"
        subprocess.run([data_program, "new", self.folder, "--shared", self.uri], check=True,
                       stdout=subprocess.DEVNULL)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for desk in self._desks:
            desk.process.kill()
            desk.process.communicate()
        self.stop_server()
        shutil.rmtree(self.folder)

    def open_desks(self, count, actions, *apart):
        """Starts so many desks, and returns them when all have the calendar open."""
        calendar = os.path.join(self.folder, "Calendar.mdb")
        self._desks = [Desk(self._desk_program, calendar, f"d{number}", number, actions, *apart)
                       for number in range(count)]
        for desk in self._desks:
            while "ready" not in desk.said:
                if desk.listen() is None:
                    raise AssertionError(f"{desk.name} has ended at its start")
        return self._desks

    def attend(self, heard):
        """Calls heard(desk, line) for each line of any desk, until all have ended."""
        with selectors.DefaultSelector() as selector:
            for desk in self._desks:
                selector.register(desk.process.stdout, selectors.EVENT_READ, desk)
            while selector.get_map():
                for key, _ in selector.select():
                    lines = key.data.listen()
                    if lines is None:
                        selector.unregister(key.fileobj)
                    for line in lines or []:
                        heard(key.data, line)

    def stop_server(self):
        """As a loss of power would."""
        subprocess.run([SERVER, "stop", self.server], check=True)

    def start_server_again(self):
        subprocess.run([SERVER, "again", self.server], check=True)

    def sql(self, text):
        """The rows that a statement gives, each a list of texts."""
        answer = subprocess.run(
            ["psql", "-X", "-q", "-A", "-t", "-F", "\t", "-v", "ON_ERROR_STOP=1", "-h", self.server,
             "-U", "veyra", "-d", "postgres", "-c", text],
            check=True, stdout=subprocess.PIPE, encoding="utf-8").stdout
        return [line.split("\t") for line in answer.splitlines()]
