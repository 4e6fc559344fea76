"""A private Wine prefix, and programs in it."""
import os
import shutil
import subprocess
from pathlib import Path

from .ids import numbered
from .processes import wait_until

ROOT = Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / os.environ.get("QUILLON_BUILD", "windows")


def clone(template, folder):
    """Copies what programs write to; the system's files, some 700 MB, are shared."""
    drive = folder / "drive_c"
    for name in ("users", "ProgramData"):
        shutil.copytree(template / "drive_c" / name, drive / name, symlinks=True)
    for name in ("Program Files", "Program Files (x86)"):
        (drive / name).mkdir()
    (drive / "windows").symlink_to(template / "drive_c" / "windows")
    (folder / "dosdevices").mkdir()
    (folder / "dosdevices" / "c:").symlink_to("../drive_c")
    (folder / "dosdevices" / "z:").symlink_to("/")
    for path in [*template.glob("*.reg"), template / ".update-timestamp"]:
        shutil.copy2(path, folder)


class Prefix:
    """A Wine prefix for one world."""

    def __init__(self, folder, env):
        self.folder = folder
        template = ROOT / "build" / "wine-template"
        subprocess.run([ROOT / "scripts" / "wine.sh"], check=True)
        clone(template, folder)
        home = folder.parent / "home"
        (home / ".local/share").mkdir(parents=True, exist_ok=True)  # without it there is no recycle bin
        self.env = {**os.environ, **env, "WINEPREFIX": str(folder), "HOME": str(home), "LC_ALL": "C.UTF-8",
                    "WINEDEBUG": "-all", "WINEARCH": os.environ.get("WINEARCH", "win64"),
                    "TZ": "IST-5:30",  # where local and universal time differ
                    "WINEDLLOVERRIDES": "mscoree,mshtml=;winemenubuilder.exe=d"}
        self.env.pop("XDG_DATA_HOME", None)
        self.env.setdefault("XAUTHORITY", os.path.expanduser("~/.Xauthority"))  # the user's screen asks for it
        # Keeps the server alive between programs; Debian's wrapper would end it with the last one.
        subprocess.run(["wineserver", "-p120"], env=self.env, check=True)

    @property
    def data_folder(self):
        users = [user for user in (self.folder / "drive_c/users").iterdir() if user.name != "Public"]
        return users[0] / "AppData/Roaming/Quillon"

    def command(self, program, *arguments):
        path = BUILD / program
        return ["wine", path if path.exists() else program, *arguments]

    def run(self, program, *arguments):
        return subprocess.run(self.command(program, *arguments), env=self.env, capture_output=True, text=True, timeout=60)

    def use_browser(self):
        """Replaces the web browser with a script; returns the file to which it appends each address."""
        opened, browser = self.folder / "opened", self.folder / "browser"
        browser.write_text(f'#!/bin/sh\necho "$1" >> {opened}\n')
        browser.chmod(0o755)
        page = r"HKCR\.html", r"HKCR\quillonpage\shell\open\command"  # without mshtml nothing opens pages
        self.run("reg", "add", r"HKCU\Software\Wine\WineBrowser", "/v", "Browsers", "/d", str(browser), "/f")
        self.run("reg", "add", page[0], "/ve", "/d", "quillonpage", "/f")
        self.run("reg", "add", page[1], "/ve", "/d", 'winebrowser "%1"', "/f")
        return opened

    def close(self):
        subprocess.run(["wineserver", "-k"], env=self.env)
        subprocess.run(["wineserver", "-w"], env=self.env, timeout=30)


class Copilot:
    """The program that flies the practice simulator and reads Quillon's window, one command per line."""

    def __init__(self, processes, prefix):
        self.process = processes.start("copilot", prefix.command("Copilot.exe"), prefix.env,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def ask(self, command):
        self.process.stdin.write((numbered(command) + "\n").encode())
        self.process.stdin.flush()
        answer = self.process.stdout.readline().decode().rstrip("\r\n")
        if answer.startswith("error:"):
            raise RuntimeError(f"{command}: {answer}")
        return answer

    def panels(self):
        return [self.ask(f"panel {number}") for number in range(1, 5)]

    def tune_at(self, feed):
        """Flies to a feed's airport and tunes to it there."""
        self.ask("fly %s %s" % feed.position)
        self.ask(f"tune com2stby {feed.frequency}")

    def box(self, *texts, press=None):
        """Waits until the boxes show all these texts; `press` is the button that then closes the topmost."""
        boxes = self.await_text("boxes", lambda now: all(text in now for text in texts), 15)
        if press:
            self.ask(f"press {press}")
            self.await_text("boxes", lambda now: now != boxes)

    def await_text(self, command, expected, seconds=10):
        """Asks until the answer is as expected (a text, or a predicate), and returns it."""
        answers = [""]

        def as_expected():
            try:
                answers[0] = self.ask(command)
            except RuntimeError as error:  # the window is opening or closing
                answers[0] = str(error)
            return expected(answers[0]) if callable(expected) else answers[0] == expected

        try:
            wait_until(command, as_expected, seconds)
        except TimeoutError:
            raise AssertionError(f"{command}: expected {expected!r}, still {answers[0]!r}") from None
        return answers[0]
