"""Live audio from a badly behaved server: what the real Quillon.exe shows, and what is heard.

Runs a few behaviours; --all runs every one, and every format of MP3; Hostile.test_NAME runs one.
"""
import re
import sys
import time
import unittest
from collections import namedtuple

from hostile_server import HostileServer, make_tone, trust
from session import Session
from world.processes import wait_until
from world.sound import Ear, level, tone_level
from world.world import SOUNDS

PANELS = {"S": "Stopped", "B": "Buffering", "C": "Connecting", "OK": "Playing", "NC": "No Connection"}

# The caption's suffixes after tuning, as a regular expression; what is heard, in order; for how many seconds this must
# last and within how many it must be reached; how often the address itself may be requested; and the reason shown.
Row = namedtuple("Row", "states heard stays within asked reason", defaults=("tone", 1.5, 10, 1, ""))
AWAY = Row("C ", "", 12, 3, 9)
USELESS = Row("(C |B )*NC ", "", 5, 15, 3)
REFUSED = Row("(C )?NC ", "", 5, 10, 1)
HEARD = Row("(C |B )*OK ")
NO_SOUND = USELESS._replace(reason="Nothing that Quillon can play")
LATER = Row("(C )?OK ", asked=2)
SLOWLY = Row("C (B )?OK ", within=16, asked=2)
LIE = Row("(C |B )*OK ", "tone( silence| tone)*", 5)
GAP = Row("(C )?OK ((B |C )+OK )?", "tone silence tone", asked=2)

# What lame encodes: sampling rate, channels, bit rate or quality; MPEG 2.5, 2 and 1.
FORMATS = ((8000, 1, "-b:a 8k"), (11025, 2, "-b:a 64k"), (12000, 1, "-b:a 24k"), (12000, 2, "-q:a 4"),
           (16000, 1, "-b:a 8k"), (22050, 2, "-b:a 160k"), (24000, 1, "-b:a 32k"), (22050, 1, "-q:a 6"),
           (32000, 2, "-b:a 40k"), (44100, 1, "-b:a 32k"), (48000, 2, "-b:a 320k"), (44100, 2, "-q:a 0"))

ROWS = {
    "refuse": AWAY, "hang-up": AWAY, "endless-head": AWAY, "stranger": AWAY, "empty": AWAY,
    "redirect-loop": AWAY._replace(asked=45), "mute": SLOWLY,
    "slow-head": Row("C OK "), "relative-redirect": HEARD, "icy": HEARD, "chunked": HEARD,
    "tagged": HEARD, "garbage": HEARD._replace(stays=5), "titles": HEARD._replace(stays=5), "nested": HEARD,
    "wpl": HEARD, "404-then-fine": Row("C OK ", asked=3), "untrusted": REFUSED, "401": REFUSED, "410": REFUSED,
    "html": USELESS, "sly-html": USELESS, "endless-playlist": USELESS,
    "aac": HEARD, "aac-mono": HEARD,
    "drip": Row("(C )?B C OK ", within=45, asked=2),
    "length-too-short": Row("(C )?OK( OK| B| S| C)* ", "tone( silence| tone)*", 12, 5, 9),
    "length-too-long": GAP, "close-in-frame": GAP, "reset": GAP,
    "stall": Row("(C )?OK (B )?C OK ", "tone silence tone", within=22, asked=2),
    "tls-mute": SLOWLY, "tls-empty": LATER, "tls-stranger": LATER, "tls-half": LATER, "tls-cut": GAP,
    "tls-damaged": GAP, "aac-garbage": GAP, "adts-short": LIE, "adts-long": LIE, "aac-change": Row("(C )?OK ", "tone other"),
    "adts-endless": NO_SOUND, "adts-reserved": NO_SOUND,
    "mp4": USELESS._replace(reason="No decoder for MP4"), "adif": USELESS._replace(reason="No decoder for AAC in ADIF"),
    "latm": USELESS._replace(reason="No decoder for AAC in LATM"),
    "format-change": Row("(C )?OK ", "tone other"), "silence": Row("(C )?OK ", within=20),
    **{f"mp3-{number}": HEARD for number in range(len(FORMATS))},
    "aac-without-decoder": USELESS._replace(reason="No decoder for AAC"),
}
IN_EVERY_TEST = ("aac", "tls-cut", "garbage", "titles", "nested", "404-then-fine", "untrusted", "reset")
AAC_DECODER = r"HKCR\CLSID\{32d186a7-218f-4c75-8876-dd77273a8999}"
TONES = {name: 440 + 50 * number for number, name in enumerate([*sorted(ROWS, reverse=True), "other"])}
ENCODINGS = {f"mp3-{number}": encoding for number, encoding in enumerate(FORMATS)}
ENCODINGS["other"] = (44100, 2, "-b:a 64k")
AAC = (44100, 2, "-b:a 64k -f adts")
ENCODINGS |= dict.fromkeys((name for name in ROWS if name.startswith(("aac", "adts"))), AAC)
ENCODINGS["latm"] = (44100, 2, "-b:a 64k -f latm")
ENCODINGS["aac-mono"] = ENCODINGS["aac-without-decoder"] = (16000, 1, "-b:a 24k -f adts")


def tone_of(name):
    return make_tone(SOUNDS / f"hostile-{name}-{TONES[name]}.mp3", TONES[name], *ENCODINGS.get(name, ()))


def note(history, what):
    if what not in (history[-1], "something else"):  # heard while a sound begins or ends
        history.append(what)


class Hostile(Session):
    """One session over Toronto; every behaviour has a frequency and a tone of its own."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.server = HostileServer({
            "other": tone_of("other"), "other-aac": make_tone(
                SOUNDS / "hostile-other.aac", TONES["other"], 16000, 1, "-b:a 64k -f adts"),
            "none": make_tone(SOUNDS / "hostile-none.mp3", 0)}, cls.world.folder)
        cls.frequencies = {name: f"{119 + number / 20:.2f}" for number, name in enumerate(ROWS)}
        (cls.data / "live_atc_feeds.txt").write_text("".join(
            f"CYYZ|{name}|http://{cls.server.address(name)}|{cls.frequencies[name]}\r\n" for name in ROWS))
        cls.world.start_simulator()
        trust(cls.world.prefix, cls.server.trusted.certificate)
        cls.world.start_quillon()

    def setUp(self):
        self.copilot.ask("tune com2stby 122.80")
        self.copilot.await_text("panel 3", "*")
        self.copilot.await_text("title", "Quillon -S")

    def shown(self):
        """The caption's suffix; the panel must say the same."""
        suffix = self.copilot.ask("title").removeprefix("Quillon -")
        panel = self.copilot.ask("panel 1")
        if self.copilot.ask("title") != "Quillon -" + suffix:
            return self.shown()  # it changed in between
        self.assertEqual(panel, PANELS[suffix])
        return suffix

    def behave(self, name):
        row = ROWS[name]
        if name == "aac-without-decoder":  # the last row
            self.world.prefix.run("reg", "delete", AAC_DECODER, "/f")
        ear = Ear(self.world.sound, {"tone": TONES[name], "other": TONES["other"]})
        states, heard = ["S"], ["silence"]
        self.server.tones[name.split(".")[0]] = tone_of(name)
        self.copilot.ask(f"tune com2stby {self.frequencies[name]}")
        start = since = time.monotonic()
        while time.monotonic() - since < row.stays:
            note(states, self.shown())
            note(heard, ear.hears(0.3))
            if not (re.fullmatch("S " + row.states, " ".join(states) + " ")
                    and re.fullmatch(f"silence {row.heard}".strip(), " ".join(heard))):
                since = time.monotonic()
                self.assertLess(since - start, row.within, f"{states} {heard}")
            time.sleep(0.05)
        self.assertLessEqual(self.server.asked[name], row.asked)
        self.assertIn(row.reason, self.copilot.ask("panel 3"))
        if heard[-1] == "tone" and "*" not in row.heard:
            wait_until("a clean " + name, lambda: self.purity(TONES[name]) > 0.9, 10)

    def purity(self, tone):
        """1 for the tone alone; less with gaps in it, or debris of what was cut out."""
        samples = self.world.sound.last(1)
        return tone_level(samples, tone) / (level(samples) or 1) / 2 ** 0.5


for behaviour in ROWS:
    setattr(Hostile, f"test_{behaviour}", lambda self, name=behaviour: self.behave(name))

if __name__ == "__main__":
    chosen = ROWS if "--all" in sys.argv and not sys.argv.remove("--all") else IN_EVERY_TEST
    unittest.main(defaultTest=[f"Hostile.test_{name}" for name in chosen], verbosity=2)
