"""What users download: the installer, the program it installs, and the portable zip."""
import os
import shutil
import subprocess
import sys
import time
from pathlib import Path

from session import ROOT, Session
from world.feeds import FEEDS
from world.processes import wait_until


def made(pattern):
    return max((ROOT / "dist").glob(pattern), key=lambda path: path.stat().st_mtime)


class Package(Session):
    """The life of one installation, and of what is unzipped, in order."""

    @classmethod
    def setUpClass(cls):
        subprocess.run([ROOT / "package", "x64"], check=True, stdout=subprocess.DEVNULL, timeout=300)
        cls.setup = made("QuillonSetup-*-x64.exe")
        super().setUpClass()
        shutil.rmtree(cls.data)
        cls.programs = cls.data.parents[1] / "Local/Programs/Quillon"
        menu = cls.data.parent / "Microsoft/Windows/Start Menu/Programs"
        cls.link, cls.help_link = menu / "Quillon.lnk", menu / "Quillon Help.lnk"

    def walk(self, program, *pages):
        """Walks through the program's boxes, each recognised by a text and left by a button."""
        process = self.world.start(str(program))
        for text, button in pages:
            self.copilot.box(text)
            self.copilot.ask(f"press {button}")
        return process

    def close(self):
        self.copilot.ask("close QuillonMain")
        self.await_end()

    def await_end(self):
        wait_until("the end of its process", lambda: not self.process_lives(), 10)  # it outlives the window a little

    def process_lives(self):
        for process in Path("/proc").glob("[0-9]*"):
            try:
                ours = str(self.world.prefix.folder).encode() in (process / "environ").read_bytes()
                if ours and b"Quillon.exe" in (process / "cmdline").read_bytes():
                    return True
            except OSError:
                pass  # it has ended, or is another user's
        return False

    def hear_recording(self):
        self.copilot.ask("wait QuillonMain 20000")
        self.copilot.ask("click optManual")
        self.copilot.await_text("rows", "8")
        self.assertEqual(self.ear.hears(), "silence")
        self.copilot.ask("rowclick 6")
        wait_until("recorded chatter", lambda: self.ear.hears() != "silence", 10)

    def test_1_started_from_the_menu_it_plays_chatter_without_a_simulator_and_cannot_be_replaced_meanwhile(self):
        self.assertEqual(self.world.start(str(self.setup), "/S").wait(60), 0)
        self.assertTrue(self.help_link.exists())
        subprocess.run(["wine", "start", "/unix", self.link], env=self.world.prefix.env, check=True, timeout=60)
        self.hear_recording()
        before = (self.programs / "Quillon.exe").stat()
        self.assertEqual(self.world.start(str(self.setup), "/S").wait(60), 2)
        self.assertEqual(self.walk(self.setup, ("License", 1), ("Location", 1), ("Quillon is running", 2),
                                   ("Aborted", 2)).wait(20), 2)
        self.assertEqual((self.programs / "Quillon.exe").stat(), before)
        self.close()

    def test_2_installed_over_by_its_pages_it_leaves_the_users_files_alone(self):
        (self.data / "live_atc_feeds.txt").write_bytes(b"EGLL|Mine|http://feeds.example/|119.72\r\n")
        (self.programs / "Quillon.exe").write_bytes(b"old")
        deleted = next(self.data.glob("ATC/*/*.wav"))
        deleted.unlink()
        self.walk(self.setup, ("License", 1), ("Location", 1), ("Complete", 1))
        self.copilot.ask("wait QuillonMain 20000")  # the last page starts it
        self.assertEqual(self.copilot.ask("row 1"), "EGLL|Mine|119.72|http://feeds.example/")
        self.assertFalse(deleted.exists())
        self.close()

    def test_3_uninstalled_by_its_pages_it_leaves_the_users_files_only(self):
        self.walk(self.programs / "uninstall.exe", ("Components", 1), ("Complete", 1))
        gone = (self.programs, self.link, self.help_link)
        wait_until("the end of the program", lambda: not any(path.exists() for path in gone), 20)
        self.assertIn(b"Mine", (self.data / "live_atc_feeds.txt").read_bytes())
        self.assertTrue((self.data / "Quillon.ini").exists())

    def unzip(self, name):
        """What a user has after unpacking the zip into a new folder."""
        folder = self.world.folder / name
        shutil.unpack_archive(made("Quillon-*-x64.zip"), folder)
        return next(folder.glob("Quillon-*-x64"))

    def keys(self, window, *keys):
        """Presses keys once the window with that title is the active one; "=..." is typed."""
        def screen(*command):
            return subprocess.run(["xdotool", *command], env=self.world.prefix.env, capture_output=True,
                                  text=True, timeout=20).stdout

        wait_until(window, lambda: window in screen("getactivewindow", "getwindowname"), 20)
        for key in keys:
            screen(*(("type", "--delay", "100", key[1:]) if key[0] == "=" else ("key", key)))

    def files(self, *folders):
        return {path: path.stat().st_mtime_ns for folder in folders for path in folder.rglob("*") if path.is_file()}

    def test_4_unzipped_it_is_used_by_keyboard_alone_and_keeps_everything_in_its_own_folder(self):
        shutil.rmtree(self.data)
        program = self.unzip("A stick of Zo\u00eb's")
        before = self.files(program, self.data.parents[2])
        start = time.monotonic()
        self.world.start(str(program / "Quillon.exe"))
        self.keys("Welcome to Quillon", "Return")
        self.keys("Quillon", "alt+f", "a")
        self.keys("Add Feed", "=EGKK", "Tab", "=London - Gatwick Tower", "Tab", "Home", "shift+End",
                  "=" + self.world.feeds.address(FEEDS[1]), "Tab", "Tab", "=124.22", "Return")
        self.copilot.await_text("field IDC_ADDED", lambda text: "EGKK on 124.22" in text)
        self.keys("Add Feed", "Escape")
        self.keys("Quillon", "=EGKK", "Menu", "p")
        self.ear.await_(FEEDS[1].icao, 20)
        print(f"The first sound came after {time.monotonic() - start:.0f} s.", file=sys.stderr)
        self.copilot.await_text("panel 3", "EGKK - London - Gatwick Tower", 3)  # not what to do next
        self.keys("Quillon", "alt+f", "b")
        self.keys("Confirmation", "y")
        self.keys("Success", "Return")
        self.keys("Quillon", "alt+F4")
        self.await_end()
        written = {path for path, time in self.files(program, self.data.parents[2]).items() if before.get(path) != time}
        self.assertEqual({path.name for path in written if path.suffix != ".wav"}, {
            "live_atc_feeds.txt", "live_atc_feeds.bak", "Airport.dat", "Quillon.ini", "Quillon.state", "Trace.log", "Events.log"})
        self.assertEqual([path for path in written if program / "Data" not in path.parents], [])
        self.assertFalse(self.data.exists())
        self.assertNotEqual(self.world.prefix.run("reg", "query", r"HKCU\Software\Quillon").returncode, 0)

    def test_5_where_its_own_folder_cannot_be_written_to_it_says_so_and_does_as_if_installed(self):
        program = self.unzip("A disc")
        mount = ["mount", "-t", "tmpfs", "-o", "ro", "tmpfs", program / "Data"]
        subprocess.run(mount if os.geteuid() == 0 else ["chmod", "555", program / "Data"], check=True)
        self.addCleanup(subprocess.run, ["umount", "-l", program / "Data"], stderr=subprocess.DEVNULL)
        self.walk(program / "Quillon.exe", ("cannot write", "IDOK"), ("Welcome to Quillon", "IDYES"))
        self.hear_recording()
        self.close()
        self.assertIn(rb"\AppData\Roaming\Quillon\ATC\CYYZ_T", (self.data / "live_atc_feeds.txt").read_bytes())

    def test_6_an_empty_folder_of_its_own_takes_a_copy(self):
        program = self.unzip("A disk")
        before = self.files(self.data)
        self.walk(program / "Quillon.exe", ("Copy your feeds", "IDYES"))
        self.hear_recording()
        self.close()
        self.assertEqual(self.files(self.data), before)
        self.assertIn(rb"|ATC\CYYZ_T|", (program / "Data/live_atc_feeds.txt").read_bytes())
