"""A print service of our own, with one printer that keeps what it is given.

It listens on a socket in a temporary folder, knows nothing of the machine's own printers and is gone
when the test is. Needs the Debian packages cups-daemon and cups-client.
"""

import glob
import grp
import os
import pwd
import shutil
import subprocess
import tempfile

from screen import end, wait_until

_SERVER_BIN = "/usr/lib/cups"
_PATH = os.environ.get("PATH", "") + ":/usr/sbin:/sbin"

_CUPSD_CONF = """\
Listen {folder}/socket
LogLevel warn
Browsing No
WebInterface No
DefaultAuthType None
<Location />
  Order deny,allow
</Location>
<Location /admin>
  Order deny,allow
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
"""

_CUPS_FILES_CONF = """\
User {user}
Group {group}
ServerRoot {folder}/root
ServerBin {folder}/bin
DataDir /usr/share/cups
DocumentRoot {folder}/root
RequestRoot {folder}/spool
TempDir {folder}/spool/tmp
CacheDir {folder}/cache
StateDir {folder}/state
AccessLog {folder}/access.log
ErrorLog {folder}/error.log
PageLog {folder}/page.log
"""

# A job appears under its own name only when it is whole.
_BACKEND = """\
#!/bin/sh
if [ $# -eq 0 ]; then
  echo 'direct capture "Unknown" "Keeps what it is given"'
  exit 0
fi
cat "${{6:--}}" >"{folder}/jobs/$1.part" && mv "{folder}/jobs/$1.part" "{folder}/jobs/$1.pdf"
"""


def missing():
    """The programs that it takes and this machine lacks."""
    return [name for name in ("cupsd", "lpadmin", "cupsreject", "pdftotext")
            if not shutil.which(name, path=_PATH)]


class PrintQueue:
    """Use as a context manager."""

    def __init__(self, name="FrontDesk"):
        self.name = name
        self._server = None

    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix="veyra-cups-", dir="/tmp")
        try:
            self._lay_out()
            self._start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self.stop()
        shutil.rmtree(self.folder, ignore_errors=True)

    @property
    def address(self):
        """For CUPS_SERVER."""
        return os.path.join(self.folder, "socket")

    def stop(self):
        """Ends the service and waits until it has ended."""
        if self._server:
            end(self._server)
            self._server = None

    def add_printer(self):
        self.run("lpadmin", "-p", self.name, "-E", "-v", "capture:/jobs", "-m", "raw")
        self.run("lpadmin", "-d", self.name)

    def remove_printer(self):
        self.run("lpadmin", "-x", self.name)

    def refuse_jobs(self):
        self.run("cupsreject", self.name)

    def jobs(self):
        """The files of the jobs that have been printed, in their order."""
        return sorted(glob.glob(os.path.join(self.folder, "jobs", "*.pdf")), key=os.path.getmtime)

    def run(self, *command):
        result = subprocess.run(command, env={"PATH": _PATH, "CUPS_SERVER": self.address},
                                text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                check=False)
        if result.returncode != 0:
            raise RuntimeError(f"{' '.join(command)}: {result.stdout}\n{self._log()}")

    def _lay_out(self):
        os.chmod(self.folder, 0o755)  # the service works as another user when we are root
        for name in ("root", "bin/backend", "spool/tmp", "cache", "state", "jobs"):
            os.makedirs(os.path.join(self.folder, name))
        os.chmod(os.path.join(self.folder, "jobs"), 0o777)
        for name in os.listdir(_SERVER_BIN):
            if name != "backend":
                os.symlink(os.path.join(_SERVER_BIN, name), os.path.join(self.folder, "bin", name))
        user = pwd.getpwnam("lp") if os.getuid() == 0 else pwd.getpwuid(os.getuid())
        names = {"folder": self.folder, "user": user.pw_name,
                 "group": grp.getgrgid(user.pw_gid).gr_name}
        self._write("root/cupsd.conf", _CUPSD_CONF.format(**names), 0o644)
        self._write("root/cups-files.conf", _CUPS_FILES_CONF.format(**names), 0o644)
        self._write("bin/backend/capture", _BACKEND.format(**names), 0o755)

    def _write(self, name, text, mode):
        path = os.path.join(self.folder, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        os.chmod(path, mode)

    def _start(self):
        root = os.path.join(self.folder, "root")
        with open(os.path.join(self.folder, "out.log"), "w", encoding="utf-8") as log:
            self._server = subprocess.Popen(
                [shutil.which("cupsd", path=_PATH), "-f", "-c", os.path.join(root, "cupsd.conf"),
                 "-s", os.path.join(root, "cups-files.conf")],
                stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        wait_until(self._answers, f"the print service to answer; {self._log()}")

    def _answers(self):
        if self._server.poll() is not None:
            raise RuntimeError(f"the print service ended at once: {self._log()}")
        result = subprocess.run(["lpstat", "-r"], env={"PATH": _PATH, "CUPS_SERVER": self.address},
                                stdout=subprocess.PIPE, text=True, check=False)
        return "scheduler is running" in result.stdout

    def _log(self):
        texts = []
        for name in ("out.log", "error.log"):
            path = os.path.join(self.folder, name)
            if os.path.exists(path):
                with open(path, encoding="utf-8", errors="replace") as file:
                    texts.append(file.read())
        return "".join(texts)
