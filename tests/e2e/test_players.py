"""Which player the real Quillon.exe chooses, and what becomes of the sound when the device disappears."""
import array
import statistics
import subprocess
from itertools import groupby, pairwise

from session import Session
from world.feeds import FEEDS
from world.processes import wait_until
from world.sound import level, tone_level
from world.wine import Copilot


def largest_step_at_pauses(samples):
    """Of full scale, within 20 ms; a busy machine may also tear the sound elsewhere."""
    edges, at = [], 0
    for silent, run in groupby(samples, lambda sample: sample == 0):
        length = sum(1 for _ in run)
        edges += [at, at + length] if silent and length > 6000 else []
        at += length
    return max(abs(a - b) for edge in edges for a, b in pairwise(samples[max(0, edge - 882):edge + 882])) / 32768


class Players(Session):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.world.start_simulator()

    def test_1_wines_control_is_partial_and_plays_files(self):
        file = self.world.folder / "tone.ogg"
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "sine=frequency=900:duration=2,volume=4", file],
                       check=True)
        self.assertEqual(self.copilot.ask(f"control Z:{file} 4000"), "partial 3 1 1")
        self.assertGreater(tone_level(self.world.sound.last(5), 900), 0.01)
        self.assertEqual(self.copilot.ask("control Z:\\none.wav 200"), "partial 9 1")

    def test_2_begins_pauses_resumes_ends_and_stops_without_clicks(self):
        """A tone of 440 Hz at half scale, which itself makes no step larger than 0.032."""
        folder, copilot = self.world.folder, self.copilot
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "sine=frequency=440:duration=4,volume=4",
                        "-ar", "44100", folder / "tone.wav"], check=True)
        (folder / "tone.wpl").write_text("<?wpl?><smil><media src='tone.wav'/></smil>")
        catalogue = self.data / "live_atc_feeds.txt"
        feeds = catalogue.read_bytes()
        catalogue.write_text(f"AAAA|Tone|Z:{folder}\\tone.wpl|118.00\r\n")
        self.world.start_quillon()
        copilot.ask("click optManual")
        recording = self.world.sound.record(folder / "tone.raw")

        def samples():
            return array.array("h", recording.read_bytes()[:recording.stat().st_size // 2 * 2])

        def sounds_on(click):
            """Milliseconds that are heard after a click, with what sound server and recorder add."""
            wait_until("the tone", lambda: tone_level(self.world.sound.last(0.3), 440) > 0.3, 5)
            clicked = recording.stat().st_size // 2
            copilot.ask(f"click {click}")
            wait_until("silence", lambda: level(self.world.sound.last(0.2)) == 0, 5)
            return (max(at for at, sample in enumerate(samples()) if sample) - clicked) / 44.1

        copilot.ask("rowclick 1")
        heard = []
        for _ in range(5):
            heard.append(sounds_on("StripPause"))
            copilot.ask("click StripPlay")
        self.assertLess(statistics.median(heard), 60, heard)
        wait_until("the end", lambda: level(self.world.sound.last(0.5)) == 0, 10)
        self.assertAlmostEqual(sum(abs(sample) > 300 for sample in samples()) / 44100, 3.95, delta=0.05)
        copilot.ask("click StripPlay")
        self.assertLess(sounds_on("StripStop"), 250)
        self.assertLess(largest_step_at_pauses(samples()), 0.1)
        self.end_quillon()
        catalogue.write_bytes(feeds)

    def test_3_moves_to_the_chosen_device_and_remembers_it(self):
        sound, copilot, feed = self.world.sound, self.copilot, FEEDS[0]
        sound.plug_in("headset", "A_headset_with_a_name_of_more_than_31_letters")
        recordings = [sound.record(self.world.folder / f"{sink}.raw", sink=sink) for sink in ("q", "headset")]
        state = self.data / "Quillon.state"

        def heard_on():
            def loud(recording):
                return level(array.array("h", recording.read_bytes()[-20000 // 4 * 4:])) > 0.01
            return [loud(recording) for recording in recordings]

        def start():
            self.world.start_quillon()
            copilot.tune_at(feed)

        start()
        wait_until("the default device", lambda: heard_on() == [True, False], 15)
        copilot.ask("command DefaultSoundDevice+3")  # behind those of the sound server and of its first device
        wait_until("the headset", lambda: heard_on() == [False, True], 3)
        copilot.await_text("panel 1", "Playing")
        self.end_quillon()
        self.assertRegex(state.read_text(), r"sound-device=\{.*\nsound-device-name=A_headset.*31_letters")
        start()
        wait_until("the chosen device", lambda: heard_on() == [False, True], 15)
        self.end_quillon()
        sound.unplug("headset")
        state.unlink()

    def test_4_without_it_the_built_in_player_plays_and_finds_a_device_that_comes_back(self):
        self.world.prefix.env["WINEDLLOVERRIDES"] += ";wmp=d"
        self.assertEqual(Copilot(self.world.processes, self.world.prefix).ask("control"), "missing")
        self.world.start_quillon()
        copilot, ear, feed = self.copilot, self.ear, FEEDS[0]
        copilot.tune_at(feed)
        ear.await_(feed.icao)
        self.world.sound.unplug()
        copilot.await_text("panel 1", "No Connection", 15)  # Wine 10 needs some seconds to see it
        self.world.sound.plug_in()
        copilot.await_text("panel 1", "Playing", 12)
        self.assertEqual(ear.listens(1), feed.icao)
