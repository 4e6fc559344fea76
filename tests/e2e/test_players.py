"""Which player the real Quillon.exe chooses, and what becomes of the sound when the device disappears."""
import subprocess
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from world.feeds import FEEDS
from world.sound import tone_level
from world.wine import Copilot
from world.world import World


class Players(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.world = World()
        cls.addClassCleanup(cls.world.close)
        cls.world.start_simulator()

    def test_1_wines_control_is_partial_and_plays_files(self):
        file = self.world.folder / "tone.ogg"
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "sine=frequency=900:duration=2,volume=4", file],
                       check=True)
        self.assertEqual(self.world.copilot.ask(f"control Z:{file} 4000"), "partial 3 1 1")
        self.assertGreater(tone_level(self.world.sound.last(5), 900), 0.01)
        self.assertEqual(self.world.copilot.ask("control Z:\\none.wav 200"), "partial 9 1")

    def test_2_without_it_the_built_in_player_plays_and_finds_a_device_that_comes_back(self):
        self.world.prefix.env["WINEDLLOVERRIDES"] += ";wmp=d"
        self.assertEqual(Copilot(self.world.processes, self.world.prefix).ask("control"), "missing")
        self.world.start_quillon()
        copilot, ear, feed = self.world.copilot, self.world.ear, FEEDS[0]
        copilot.ask("fly %s %s" % feed.position)
        copilot.ask(f"tune com2stby {feed.frequency}")
        ear.await_(feed.icao)
        self.world.sound.unplug()
        copilot.await_text("panel 1", "No Connection")
        self.world.sound.plug_in()
        copilot.await_text("panel 1", "Playing", 12)
        self.assertEqual(ear.listens(1), feed.icao)


if __name__ == "__main__":
    unittest.main(verbosity=2)
