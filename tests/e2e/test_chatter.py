"""Recorded chatter and the mute key of the real Quillon.exe, by what is heard."""
import subprocess
import time

from session import Session
from world.feeds import FEEDS
from world.processes import wait_until
from world.sound import Ear

TORONTO, LONDON, _ = FEEDS
RECORDINGS = {"adpcm_ms": 500, "pcm_mulaw": 900, "pcm_u8": 1300}  # codec and file name -> Hz
TAB, END = 9, 35


class Chatter(Session):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        folder = cls.data / "ATC" / "CYYZ_T"
        for recording in folder.iterdir():
            recording.unlink()
        for name, tone in RECORDINGS.items():
            subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", f"sine=frequency={tone}:duration=1.5",
                            "-c:a", name, folder / f"{name}.WAV"], check=True)
        (cls.data / "Quillon.ini").write_bytes(b" 50 \r\nCom2Stby\r\n 2 \r\n 3 \r\n 9 \r\n")
        cls.start()

    def press(self, key):
        """Not just before the clock's next second: a key still down when it begins counts again."""
        wait_until("the start of a second", lambda: time.time() % 1 < 0.7, 2)
        self.copilot.ask(f"key {key}")

    def test_1_every_recording_is_heard(self):
        self.copilot.ask("fly %s %s" % TORONTO.position)
        self.copilot.ask("tune com2stby 118.00")  # the first free channel, given to the first folder
        ear, heard = Ear(self.world.sound, RECORDINGS), set()
        wait_until("every recording", lambda: heard.add(ear.hears(0.2)) or heard >= set(RECORDINGS), 40)
        self.copilot.await_text("panel 1", lambda text: text.startswith("ATC in ") and text.endswith(" sec"))
        self.assertIn(self.copilot.ask("title"), [f"Quillon -{seconds}" for seconds in range(1, 4)])
        self.assertIn(self.copilot.ask("text IdLabel3"), ("0", "1", "2"))
        self.assertIn(self.copilot.ask("text IdLabel4"), ("2", "3"))

    def test_2_another_key_is_set_in_its_dialog(self):
        self.copilot.ask("command mnuSetMute")
        self.copilot.box("Mute Key")
        self.copilot.ask("press IDC_OPTION4")  # End
        self.copilot.box("Mute Key", press="IDOK")
        self.copilot.tune_at(LONDON)
        self.ear.await_(LONDON.icao)
        self.press(TAB)
        self.ear.listens(1)
        self.ear.await_(LONDON.icao)
        self.press(END)
        self.ear.await_("silence")
        self.assertEqual(self.copilot.ask("title"), "Quillon -Mute")
        self.copilot.await_text("panel 1", "Muted")  # which is answered after the key's second
        self.press(END)
        self.ear.await_(LONDON.icao)
        self.end_quillon()
        self.assertTrue((self.data / "Quillon.ini").read_bytes().endswith(b" 35 \r\n"))
