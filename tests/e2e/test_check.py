"""The check of the catalogue by the real Quillon.exe, while a feed plays."""
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from hostile_server import HostileServer, make_tone
from world.feeds import FEEDS
from world.world import SOUNDS, World

ROWS = ('5|CYYZ|broken||1 "|" instead of 3', "2|EGLL refuse|*The server takes no connections", "3|EGLL 404|*(404)",
        "4|EGLL untrusted|*No valid certificate*redirected to https", "6|EGLL mute|*within ten seconds", "7|EGLL gone|*There is no such folder",
        "1|EGLL relative-redirect|*|Redirected to *.end?a=b", *(f"{8 + n}|{feed.icao} *|Plays" for n, feed in enumerate(FEEDS)))


class Check(unittest.TestCase):
    def test_what_answers_is_told_while_a_feed_plays_on(self):
        with World() as world:
            server = HostileServer({"relative-redirect": make_tone(SOUNDS / "hostile-check.mp3", 900)}, world.folder)
            world.start_simulator()
            world.start_quillon()
            copilot, feed = world.copilot, FEEDS[0]
            copilot.ask(f"tune com2stby {feed.frequency}")
            world.ear.await_(feed.icao)
            names = ("relative-redirect", "refuse", "404", "untrusted", None, "mute")
            lines = [f"EGLL|{name}|http://{server.address(name)}|" if name else "CYYZ|broken" for name in names]
            (world.data / "live_atc_feeds.txt").write_text(
                "\r\n".join([*lines, "EGLL|gone|C:\\none\\|", world.feeds.catalogue().split("\n", 1)[1]]), newline="")

            def check(until):
                server.asked.clear()
                copilot.ask("command CheckFeeds")
                return copilot.await_text("field IDC_CHECK_STATE", lambda text: text.startswith(until), 40)

            check("Trying 5 of 9: EGLL mute")
            self.assertEqual(world.ear.listens(2), feed.icao)
            check("Done. Good: 3. Redirected: 1. Failed: 5. Faults in the file: 1.")
            for number, row in enumerate(ROWS, 1):
                shown = copilot.ask(f"row {number} IDC_CHECK_LIST")
                for part in row.split("*"):
                    self.assertIn(part, shown)
            self.assertEqual(world.ear.listens(1), feed.icao)
            check("Trying 5 of 9")
            copilot.ask("press IDCANCEL")
            copilot.await_text("field IDC_CHECK_STATE", lambda text: text.startswith("Cancelled after 4 of 9."))
            check("Trying 5 of 9")
            copilot.ask("close QuillonMain")
            self.assertEqual(world.quillon.wait(8), 0)  # before the address is given up


if __name__ == "__main__":
    unittest.main(verbosity=2)
