"""The real Quillon.exe, a simulator, a stream server and a sound server, as processes of their own."""
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from world.feeds import FEEDS
from world.world import World

TORONTO, LONDON, NEW_YORK = FEEDS
DISTANCE = "text IdLabel2"


class Flight(unittest.TestCase):
    """One flight; the tests are its legs, in order."""

    @classmethod
    def setUpClass(cls):
        cls.world = World()
        cls.addClassCleanup(cls.world.close)
        cls.world.start_simulator()
        cls.world.start_quillon()
        cls.copilot, cls.ear = cls.world.copilot, cls.world.ear

    def test_1_each_tuned_feed_is_heard_and_shown(self):
        for feed in (TORONTO, LONDON, NEW_YORK, TORONTO):
            with self.subTest(feed.icao):
                self.copilot.tune_at(feed)
                self.ear.await_(feed.icao)
                self.copilot.await_text("title", "Quillon -OK")
                address = self.world.feeds.address(feed)
                self.assertEqual(self.copilot.panels(), [
                    "Playing", feed.frequency, f"{feed.icao} - {feed.city}",
                    address if len(address) <= 28 else "..." + address[-28:]])
                self.copilot.await_text(DISTANCE, "0 NM")
        self.copilot.ask("tune com2stby 122.80")  # which has none
        self.ear.await_("silence")
        self.copilot.await_text("panel 1", "Stopped")

    def test_2_a_feed_tuned_out_of_range_is_not_heard_until_the_aircraft_is_there(self):
        self.copilot.tune_at(TORONTO)
        self.ear.await_(TORONTO.icao)
        self.copilot.ask(f"tune com2stby {NEW_YORK.frequency}")  # the aircraft stays over Toronto
        self.copilot.await_text("title", "Quillon -OR")
        self.assertEqual(self.ear.listens(2), "silence")
        self.assertIn("(Out of Range)", self.copilot.ask(DISTANCE))
        self.copilot.ask("fly %s %s" % NEW_YORK.position)
        self.ear.await_(NEW_YORK.icao)

    def test_3_pausing_the_simulator_pauses_the_feed(self):
        self.copilot.tune_at(LONDON)
        self.ear.await_(LONDON.icao)
        self.copilot.ask("pause 1")
        self.ear.await_("silence")
        self.copilot.await_text("panel 1", "Paused")
        self.copilot.ask("pause 0")
        self.ear.await_(LONDON.icao)

    def test_4_a_channel_of_8_33_khz_is_not_its_neighbour(self):
        self.copilot.ask("tune com2stby 119.725")
        self.copilot.await_text("panel 3", f"{LONDON.icao} - {LONDON.city}")
        self.copilot.ask("tune com2stby 119.715")
        self.copilot.await_text("panel 2", "119.715")
        self.assertEqual(self.copilot.ask("panel 3"), "*")

    def test_5_ends_with_the_simulator_and_saves_the_settings(self):
        settings = self.world.data / "Quillon.ini"
        settings.unlink()
        self.copilot.ask("fault vanish")
        self.assertEqual(self.world.quillon.wait(20), 0)
        self.assertEqual(settings.read_bytes(), b" 50 \r\nCom2Stby\r\n 15 \r\n 25 \r\n 9 \r\n")


if __name__ == "__main__":
    unittest.main(verbosity=2)
