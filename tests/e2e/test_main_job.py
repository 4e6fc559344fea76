"""The real Quillon.exe, a simulator, a stream server and a sound server, as processes of their own."""
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from hostile_server import HostileServer, make_tone
from world.feeds import FEEDS
from world.world import SOUNDS, World

TORONTO, LONDON, NEW_YORK = FEEDS
DISTANCE = "text IdLabel2"
CHANNELS = {"125.30": 500, "125.305": 900, "125.31": 1300, "125.315": 1900, "125.030": 2800}  # and their tones, Hz
# What is shown and heard of each tuned channel.
TOLD_APART = {"125.300": ("125.30", "125.30"), "125.305": ("125.305", "125.305"), "125.310": ("125.310", "125.31"),
              "125.315": ("125.315", "125.315"), "125.030": ("125.030", "125.030")}


class Flight(unittest.TestCase):
    """One flight; the tests are its legs, in order."""

    @classmethod
    def setUpClass(cls):
        cls.world = World()
        cls.addClassCleanup(cls.world.close)
        cls.add_channels()
        cls.world.start_simulator()
        cls.world.start_quillon()
        cls.copilot, cls.ear = cls.world.copilot, cls.world.ear

    @classmethod
    def add_channels(cls):
        sounds = {f"mp3-{number}": make_tone(SOUNDS / f"channel-{tone}.mp3", tone)
                  for number, tone in enumerate(CHANNELS.values())}
        server = HostileServer(sounds, cls.world.folder)
        with open(cls.world.data / "live_atc_feeds.txt", "a") as catalogue:
            for name, channel in zip(sounds, CHANNELS):
                catalogue.write(f"CYYZ|{channel}|http://{server.address(name)}|{channel}\r\n")
        cls.world.ear.tones.update(CHANNELS)

    def tune(self, feed):
        self.copilot.ask("fly %s %s" % feed.position)
        self.copilot.ask(f"tune com2stby {feed.frequency}")

    def test_1_each_tuned_feed_is_heard_and_shown(self):
        for feed in (TORONTO, LONDON, NEW_YORK, TORONTO):
            with self.subTest(feed.icao):
                self.tune(feed)
                self.ear.await_(feed.icao)
                self.copilot.await_text("title", "Quillon -OK")
                address = self.world.feeds.address(feed)
                self.assertEqual(self.copilot.panels(), [
                    "Playing", feed.frequency, f"{feed.icao} - {feed.city}",
                    address if len(address) <= 28 else "..." + address[-28:]])
                self.copilot.await_text(DISTANCE, "0 NM")

    def test_2_a_frequency_without_a_feed_is_silent(self):
        self.copilot.ask("tune com2stby 122.80")
        self.ear.await_("silence")
        self.copilot.await_text("panel 1", "Stopped")
        self.assertEqual(self.copilot.panels()[1:], ["122.80", "*", "*"])

    def test_3_out_of_range_is_silent_until_the_aircraft_is_back(self):
        self.tune(LONDON)
        self.ear.await_(LONDON.icao)
        self.copilot.ask("fly %s %s" % NEW_YORK.position)
        self.ear.await_("silence")
        self.copilot.await_text("title", "Quillon -OR")
        self.assertIn("(Out of Range)", self.copilot.ask(DISTANCE))
        self.copilot.ask("fly %s %s" % LONDON.position)
        self.ear.await_(LONDON.icao)

    def test_4_a_feed_tuned_out_of_range_is_not_heard_at_all(self):
        self.tune(TORONTO)
        self.ear.await_(TORONTO.icao)
        self.copilot.ask(f"tune com2stby {NEW_YORK.frequency}")  # the aircraft stays over Toronto
        self.copilot.await_text("title", "Quillon -OR")
        self.assertEqual(self.ear.listens(2), "silence")

    def test_5_pausing_the_simulator_pauses_the_feed(self):
        self.tune(LONDON)
        self.ear.await_(LONDON.icao)
        self.copilot.ask("pause 1")
        self.ear.await_("silence")
        self.copilot.await_text("panel 1", "Paused")
        self.copilot.ask("pause 0")
        self.ear.await_(LONDON.icao)

    def test_7a_channels_of_8_33_khz_are_told_apart(self):
        self.copilot.ask("fly %s %s" % TORONTO.position)
        for tuned, (shown, heard) in TOLD_APART.items():
            with self.subTest(tuned):
                self.copilot.ask(f"tune com2stby {tuned}")
                self.copilot.await_text("panel 2", shown)
                self.ear.await_(heard)
                self.assertEqual(self.copilot.ask("panel 3"), f"CYYZ - {heard}")
        self.copilot.ask("rowclick 5")  # 125.305
        self.copilot.ask("command TuneFeed")
        self.copilot.await_text("read 5D0 4", f"{125_305_000:08X}")
        self.ear.await_("125.305")
        self.assertEqual(self.ear.listens(3), "125.305")
        self.assertEqual(self.copilot.panels()[1:3], ["125.305", "CYYZ - 125.305"])

    def test_8_ends_with_the_simulator_and_saves_the_settings(self):
        settings = self.world.data / "Quillon.ini"
        settings.unlink()
        self.copilot.ask("fault vanish")
        self.assertEqual(self.world.quillon.wait(20), 0)
        self.assertEqual(settings.read_bytes(), b" 50 \r\nCom2Stby\r\n 15 \r\n 25 \r\n 9 \r\n")


if __name__ == "__main__":
    unittest.main(verbosity=2)
