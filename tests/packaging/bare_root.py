"""Installs the Debian package in a bare root, has an ordinary user book there, and removes it again:
what he has booked stays.

    bare_root.py PACKAGE [ROOT]

A bare root of this machine's Debian is made with debootstrap, or ROOT is copied, one that was made so.
Needs root. What was mounted goes with the name space of its own in which this runs.
"""

import os
import pathlib
import shutil
import sqlite3
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
TREE = HERE.parent.parent
USER = "office"


def step(what):
    print(f"  {what}", flush=True)


def run(*command, **options):
    return subprocess.run(command, check=True, text=True, **options)


def suite():
    return subprocess.run(["sh", "-c", '. /etc/os-release && echo "$VERSION_CODENAME"'], check=True,
                          text=True, stdout=subprocess.PIPE).stdout.strip()


def repository():
    """That from which this machine takes its packages."""
    targets = subprocess.run(["apt-get", "indextargets", "--format", "$(REPO_URI)"], check=True,
                             text=True, stdout=subprocess.PIPE).stdout.split()
    return [targets[0]] if targets else []


class BareRoot:
    def __init__(self, folder):
        self.folder = folder

    def path(self, name):
        return self.folder / name.lstrip("/")

    def make(self, ready_made):
        self.folder.chmod(0o755)
        if ready_made:
            step(f"Copying {ready_made}")
            run("cp", "-a", f"{ready_made}/.", self.folder)
        else:
            step(f"Making a bare Debian {suite()}")
            run("debootstrap", "--variant=minbase", suite(), self.folder, *repository(),
                stdout=subprocess.DEVNULL)
        shutil.copy("/etc/resolv.conf", self.path("/etc/resolv.conf"))
        for name in ("proc", "dev"):
            run("mount", "--rbind", f"/{name}", self.path(name))

    def call(self, *command, **options):
        """Runs a command in the root, with nothing of this machine's environment."""
        environment = {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LANG": "C.UTF-8",
                       "DEBIAN_FRONTEND": "noninteractive"}
        return run("chroot", self.folder, *command, env=environment, **options)

    def as_user(self, *command):
        return self.call("su", USER, "-c", " ".join(command), stdout=subprocess.PIPE).stdout

    def install(self, *packages):
        self.call("apt-get", "update", stdout=subprocess.DEVNULL)
        self.call("apt-get", "install", "-y", "-q", "--no-install-recommends", *packages,
                  stdout=subprocess.DEVNULL)


def packages_for(purpose):
    lines = (TREE / "packaging/packages").read_text(encoding="utf-8").splitlines()
    return [line.split()[1] for line in lines if line.split()[:1] == [purpose]]


def expect(is_so, what):
    if not is_so:
        raise AssertionError(what)


def try_package(root, package):
    step("Installing the package")
    shutil.copy(package, root.path("/package.deb"))
    root.install("/package.deb")
    expect(root.path("/usr/bin/veyra-calendar").exists(), "the package has brought no program")
    root.install(*packages_for("screen"))
    root.call("useradd", "--create-home", USER)

    step("Booking as an ordinary user, on a virtual display")
    shutil.copytree(TREE / "scripts", root.path("/opt/scripts"))
    shutil.copy(HERE / "first_day.py", root.path("/opt/first_day.py"))
    print(root.as_user("python3", "-B", "/opt/first_day.py", "/opt/scripts"), end="")
    expect("Ann Smith" in root.as_user("veyra-data", "list"), "the companion does not list the booking")

    step("Removing the package")
    root.call("apt-get", "purge", "-y", "-q", "veyra-calendar", stdout=subprocess.DEVNULL)
    left = [name for name in ("/usr/bin/veyra-calendar", "/usr/libexec/veyra-calendar")
            if root.path(name).exists()]
    expect(not left, f"the package has left {left}")
    calendar = root.path(f"/home/{USER}/.local/share/veyra-calendar/Calendar.mdb")
    bookings = sqlite3.connect(calendar).execute(
        "SELECT Name, Event, TimeFrom, TimeTo FROM Reserv JOIN Rooms ON RmID = Rooms.ID").fetchall()
    expect(bookings == [("Hall", "Ann Smith", 19, 21)], f"the calendar holds {bookings}")
    step(f"What was booked is there: {bookings[0]}")


def main():
    if os.environ.get("VEYRA_OWN_MOUNTS") is None:
        os.execvpe("unshare", ["unshare", "--mount", sys.executable, "-B", *sys.argv],
                   {**os.environ, "VEYRA_OWN_MOUNTS": "1"})
    package, *ready_made = sys.argv[1:]
    folder = pathlib.Path(tempfile.mkdtemp(prefix="veyra-bare-root-"))
    try:
        root = BareRoot(folder)
        root.make(ready_made[0] if ready_made else None)
        try_package(root, package)
    finally:
        for name in ("proc", "dev"):
            subprocess.run(["umount", "--recursive", "--lazy", folder / name], check=False)
        run("rm", "-rf", "--one-file-system", folder)


if __name__ == "__main__":
    main()
