"""The demonstration behind ./run."""
import os
import sys

from world.feeds import FEEDS
from world.world import ROOT, World

TORONTO, LONDON, NEW_YORK = FEEDS
SHOTS = ROOT / "build" / "screenshots"


def main():
    if os.environ.get("DISPLAY"):
        stay_open()
        return 0
    SHOTS.mkdir(parents=True, exist_ok=True)
    with World() as world:
        print("Starting the practice simulator and Quillon ...", flush=True)
        world.start_simulator()
        world.start_quillon()
        world.set_side_by_side()
        return Tour(world).fly()


def stay_open():
    with World(user_session=True) as world:
        world.start_simulator()
        quillon = world.start_quillon()
        world.set_side_by_side()
        print("Fly the practice simulator: tune COM2 standby to one of these, and listen.")
        for feed in FEEDS:
            print(f"  {feed.frequency}  {feed.icao}  {feed.city}, at {feed.position[0]}, {feed.position[1]}")
        print("Quillon stays open until you close it.", flush=True)
        quillon.wait()


class Tour:
    """A short flight whose every leg is checked by ear and eye."""

    def __init__(self, world):
        self.world = world
        self.copilot = world.copilot
        self.missed = 0

    def fly(self):
        print(f"{'leg':<34} {'heard':<10} {'caption':<13} panels and distance")
        legs = [
            ("over Toronto, tuned to 118.70", self.tune(TORONTO), TORONTO.icao, "Quillon -OK"),
            ("over London, tuned to 119.72", self.tune(LONDON), LONDON.icao, "Quillon -OK"),
            ("tuned to 122.80, no feed", lambda: self.copilot.ask("tune com2stby 122.80"), "silence", "Quillon -S"),
            ("back to 119.72", self.tune(LONDON), LONDON.icao, "Quillon -OK"),
            ("flown out of range, to New York", self.fly_to(NEW_YORK), "silence", "Quillon -OR"),
            ("back over London", self.fly_to(LONDON), LONDON.icao, "Quillon -OK"),
            ("simulator paused", lambda: self.copilot.ask("pause 1"), "silence", "Quillon -P"),
            ("and flying again", lambda: self.copilot.ask("pause 0"), LONDON.icao, "Quillon -OK"),
        ]
        for number, (leg, act, heard, caption) in enumerate(legs, 1):
            act()
            self.observe(number, leg, heard, caption)
        print(f"Screenshots: {SHOTS}")
        print("The tour saw what it should." if not self.missed else f"{self.missed} legs were not as they should be.")
        return 1 if self.missed else 0

    def fly_to(self, feed):
        return lambda: self.copilot.ask("fly %s %s" % feed.position)

    def tune(self, feed):
        return lambda: self.copilot.tune_at(feed)

    def observe(self, number, leg, heard, caption):
        verdict = ""
        try:
            self.world.ear.await_(heard)
            self.copilot.await_text("title", caption)
        except AssertionError as failure:
            self.missed += 1
            verdict = f"  <-- {failure}"
        self.world.screenshot(SHOTS / f"leg-{number}.png")
        shown = " | ".join([*self.copilot.panels(), self.copilot.ask("text IdLabel2")])
        print(f"{leg:<34} {self.world.ear.hears():<10} {self.copilot.ask('title'):<13} {shown}{verdict}", flush=True)


if __name__ == "__main__":
    try:
        sys.exit(main())
    except KeyboardInterrupt:  # the world turns SIGTERM and SIGHUP into this, too
        sys.exit("Stopped.")
