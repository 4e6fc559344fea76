"""Makes docs/screenshot.png: Quillon plays a live feed beside the practice simulator."""
import subprocess

from world.feeds import FEEDS
from world.world import ROOT, World

LONDON = FEEDS[1]
PICTURE = ROOT / "docs" / "screenshot.png"


def main():
    with World() as world:
        world.start_simulator("--com2stby", LONDON.frequency, "--lat", str(LONDON.position[0]),
                              "--lon", str(LONDON.position[1]))
        world.start_quillon()
        world.set_side_by_side()
        world.ear.await_(LONDON.icao)
        world.copilot.await_text("title", "Quillon -OK")
        world.copilot.await_text("text IdLabel2", "0 NM")
        world.screenshot(PICTURE)
    # The black screen around the windows becomes transparent and is cut off.
    subprocess.run(["convert", PICTURE, "-alpha", "set", "-fill", "none", "-floodfill", "+0+0", "black", "-trim",
                    "+repage", PICTURE], check=True)


if __name__ == "__main__":
    main()
