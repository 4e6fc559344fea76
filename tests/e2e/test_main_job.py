"""The real Quillon.exe, a simulator, a stream server and a sound server, as processes of their own."""
from hostile_server import HostileServer, make_tone
from session import Session
from world.feeds import FEEDS
from world.world import SOUNDS

TORONTO, LONDON, NEW_YORK = FEEDS
DISTANCE = "text IdLabel2"
CHANNELS = {"125.30": 500, "125.305": 900, "125.31": 1300, "125.315": 1900, "125.030": 2800}  # and their tones, Hz
# What is shown and heard of each tuned channel, with 8.33 kHz and on a module that has lost the last digit.
TOLD_APART = {"125.300": ("125.30", "125.30"), "125.305": ("125.305", "125.305"), "125.310": ("125.310", "125.31"),
              "125.315": ("125.315", "125.315"), "125.030": ("125.030", "125.030")}
AS_BEFORE = {"125.315": ("125.31", "125.31"), "125.030": ("125.30", "125.30"), "125.310": ("125.31", "125.31"),
             "125.305": ("125.30", "125.30")}


class Flight(Session):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.add_channels()
        cls.start()

    @classmethod
    def add_channels(cls):
        sounds = {f"mp3-{number}": make_tone(SOUNDS / f"channel-{tone}.mp3", tone)
                  for number, tone in enumerate(CHANNELS.values())}
        server = HostileServer(sounds, cls.world.folder)
        with open(cls.data / "live_atc_feeds.txt", "a") as catalogue:
            for name, channel in zip(sounds, CHANNELS):
                catalogue.write(f"CYYZ|{channel}|http://{server.address(name)}|{channel}\r\n")
        cls.ear.tones.update(CHANNELS)

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
        self.assertEqual(self.copilot.panels()[1:], ["122.80", "*", "*"])

    def test_2_out_of_range_is_silent_until_the_aircraft_is_back(self):
        self.copilot.tune_at(LONDON)
        self.ear.await_(LONDON.icao)
        self.copilot.ask("fly %s %s" % NEW_YORK.position)
        self.ear.await_("silence")
        self.copilot.await_text("title", "Quillon -OR")
        self.assertIn("(Out of Range)", self.copilot.ask(DISTANCE))
        self.copilot.ask("fly %s %s" % LONDON.position)
        self.ear.await_(LONDON.icao)

    def test_3_a_feed_tuned_out_of_range_is_not_heard_at_all(self):
        self.copilot.tune_at(TORONTO)
        self.ear.await_(TORONTO.icao)
        self.copilot.ask(f"tune com2stby {NEW_YORK.frequency}")  # the aircraft stays over Toronto
        self.copilot.await_text("title", "Quillon -OR")
        self.assertEqual(self.ear.listens(2), "silence")

    def test_4_pausing_the_simulator_pauses_the_feed(self):
        self.copilot.tune_at(LONDON)
        self.ear.await_(LONDON.icao)
        self.copilot.ask("pause 1")
        self.ear.await_("silence")
        self.copilot.await_text("panel 1", "Paused")
        self.copilot.ask("pause 0")
        self.ear.await_(LONDON.icao)

    def hear_channels(self, expected):
        for tuned, (shown, heard) in expected.items():
            with self.subTest(tuned):
                self.copilot.ask(f"tune com2stby {tuned}")
                self.copilot.await_text("panel 2", shown)
                self.ear.await_(heard)
                self.assertEqual(self.copilot.ask("panel 3"), f"CYYZ - {heard}")

    def test_5_channels_of_8_33_khz_are_told_apart(self):
        self.copilot.ask("fly %s %s" % TORONTO.position)
        self.hear_channels(TOLD_APART)
        self.copilot.ask("rowclick 5")  # 125.305
        self.copilot.ask("command TuneFeed")
        self.copilot.await_text("read 5D0 4", f"{125_305_000:08X}")
        self.ear.await_("125.305")
        self.assertEqual(self.ear.listens(3), "125.305")
        self.assertEqual(self.copilot.panels()[1:3], ["125.305", "CYYZ - 125.305"])

    def test_6_an_old_module_flies_as_before(self):
        self.copilot.ask("write 3308 2 7")
        self.copilot.ask("write 3304 4 39990000")
        self.hear_channels(AS_BEFORE)
        self.copilot.ask("rowclick 5")
        self.copilot.ask("command TuneFeed")
        self.copilot.await_text("panel 3", "The radio rejected 125.305")
        self.copilot.await_text("panel 3", "CYYZ - 125.30", 15)
        self.assertEqual(self.copilot.ask("boxes"), "")

    def test_7_ends_with_the_simulator_and_saves_the_settings(self):
        settings = self.data / "Quillon.ini"
        settings.unlink()
        self.copilot.ask("fault vanish")
        self.assertEqual(self.world.quillon.wait(20), 0)
        self.assertEqual(settings.read_bytes(), b" 50 \r\nCom2Stby\r\n 15 \r\n 25 \r\n 9 \r\n")

    def test_8_of_stations_that_share_a_frequency_the_one_in_range_is_heard(self):
        (self.data / "Quillon.state").write_text("shared-frequencies=yes")
        with open(self.data / "live_atc_feeds.txt", "a") as catalogue:
            for feed in FEEDS:
                catalogue.write(f"{feed.icao}|Shared {feed.icao}|{self.world.feeds.address(feed)}|126.00\r\n")
        self.start("--com2stby", "126.00")
        for feed in (NEW_YORK, LONDON, TORONTO):
            self.copilot.ask("fly %s %s" % feed.position)
            self.ear.await_(feed.icao)
            self.copilot.await_text("panel 3", f"{feed.icao} - Shared {feed.icao}")
        self.assertEqual(self.copilot.ask("boxes"), "")
        self.end_quillon()
