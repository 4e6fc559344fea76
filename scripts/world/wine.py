"""A Wine prefix of one's own, and programs in it."""
import os
import subprocess
from pathlib import Path

from .processes import wait_until

ROOT = Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "windows"


class Prefix:
    """A copy of the template prefix that shares its system files."""

    def __init__(self, folder, env):
        self.folder = folder
        template = ROOT / "build" / "wine-template"
        subprocess.run([ROOT / "scripts" / "wine.sh"], check=True)
        if not folder.exists():
            subprocess.run(["cp", "-al", template, folder], check=True)
        home = folder.parent / "home"
        (home / ".local/share").mkdir(parents=True, exist_ok=True)  # without it there is no recycle bin
        self.env = {**os.environ, **env, "WINEPREFIX": str(folder), "HOME": str(home), "LC_ALL": "C.UTF-8",
                    "WINEDEBUG": "-all", "WINEARCH": "win64",
                    "WINEDLLOVERRIDES": "mscoree,mshtml=;winemenubuilder.exe=d"}
        self.env.pop("XDG_DATA_HOME", None)
        # Keeps the server alive between programs; Debian's wrapper would let it go with the last one.
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

    def close(self):
        subprocess.run(["wineserver", "-k"], env=self.env)
        subprocess.run(["wineserver", "-w"], env=self.env, timeout=30)


class Copilot:
    """The program that flies the practice simulator and reads Quillon's window, one line at a time."""

    def __init__(self, processes, prefix):
        self.process = processes.start("copilot", prefix.command("Copilot.exe"), prefix.env,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def ask(self, command):
        self.process.stdin.write((command + "\n").encode())
        self.process.stdin.flush()
        answer = self.process.stdout.readline().decode().rstrip("\r\n")
        if answer.startswith("error:"):
            raise RuntimeError(f"{command}: {answer}")
        return answer

    def panels(self):
        return [self.ask(f"panel {number}") for number in range(1, 5)]

    def await_text(self, command, expected, seconds=8):
        """Waits until the answer to a command is as expected (a text, or a test of the answer)."""
        answers = [""]

        def as_expected():
            answers[0] = self.ask(command)
            return expected(answers[0]) if callable(expected) else answers[0] == expected

        try:
            wait_until(command, as_expected, seconds)
        except TimeoutError:
            raise AssertionError(f"{command}: expected {expected!r}, still {answers[0]!r}") from None
        return answers[0]
