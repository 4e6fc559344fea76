#!/usr/bin/env python3
"""Makes the first contents of a new user's data folder: a catalogue, airports and recorded chatter.

Usage: make-starter.py FOLDER
"""
import subprocess
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
SCRIPTS = HERE.parent / "scripts"
sys.path.insert(0, str(SCRIPTS))
from world.feeds import RECORDINGS, speak


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    catalogue = (HERE / "live_atc_feeds.txt").read_text(encoding="ascii")
    (folder / "live_atc_feeds.txt").write_text(catalogue, encoding="ascii", newline="\r\n")
    subprocess.run([SCRIPTS / "make-airports.py", folder / "Airport.dat"], check=True)
    for name, texts in RECORDINGS.items():
        (folder / "ATC" / name).mkdir(parents=True, exist_ok=True)
        for number, text in enumerate(texts, 1):
            # Radio speech has so narrow a band that a telephone's sampling rate is enough.
            speak(folder / "ATC" / name / f"message {number}.wav", text, f"en+m{number}", "-ar", "8000")


if __name__ == "__main__":
    main()
