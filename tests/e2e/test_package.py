"""What users download: the installer, the program it installs, and the portable zip."""
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
from world.processes import wait_until
from world.wine import Copilot
from world.world import World


def made(pattern):
    return max((ROOT / "dist").glob(pattern), key=lambda path: path.stat().st_mtime)


class Package(unittest.TestCase):
    """The life of one installation, in order."""

    @classmethod
    def setUpClass(cls):
        subprocess.run([ROOT / "package", "x64"], check=True, stdout=subprocess.DEVNULL, timeout=300)
        cls.setup = made("QuillonSetup-*-x64.exe")
        cls.world = World()
        cls.addClassCleanup(cls.world.close)
        cls.copilot = cls.world.copilot = Copilot(cls.world.processes, cls.world.prefix)
        cls.data = cls.world.data
        shutil.rmtree(cls.data)
        cls.programs = cls.data.parents[1] / "Local/Programs/Quillon"
        menu = cls.data.parent / "Microsoft/Windows/Start Menu/Programs"
        cls.link, cls.help_link = menu / "Quillon.lnk", menu / "Quillon Help.lnk"

    def walk(self, program, *pages):
        """Walks through the program's boxes, each recognised by a text and left by a button."""
        process = self.world.start(str(program))
        for text, button in pages:
            self.copilot.await_text("boxes", lambda shown: text in shown, 20)
            self.copilot.ask(f"press {button}")
        return process

    def close(self):
        self.copilot.ask("close QuillonMain")
        with self.assertRaises((RuntimeError, TimeoutError)):
            wait_until("its end", lambda: not self.copilot.ask("pid QuillonMain"), 10)

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
        self.assertEqual(self.world.ear.hears(), "silence")
        self.copilot.ask("rowclick 6")
        wait_until("recorded chatter", lambda: self.world.ear.hears() != "silence", 10)

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

    def test_4_unzipped_it_offers_what_is_missing_and_takes_it_up_at_once(self):
        shutil.rmtree(self.data)
        shutil.unpack_archive(made("Quillon-*-x64.zip"), self.world.folder)
        self.walk(next(self.world.folder.glob("Quillon-*-x64")) / "Quillon.exe", ("Welcome to Quillon", 6))
        self.hear_recording()
        self.close()


if __name__ == "__main__":
    unittest.main(verbosity=2)
