"""Random input to Quillon and its surroundings, and the system resources that Quillon uses meanwhile."""
import random
import time
from pathlib import Path

from .feeds import FEEDS
from .processes import wait_until

OK, CANCEL, NO, TAB = "IDOK", "IDCANCEL", "IDNO", 9
COM2_STANDBY = "optCom2Stby"

ACTIONS = [f"tune com2stby {frequency}" for frequency in ("122.80", *(feed.frequency for feed in FEEDS))]
ACTIONS += [f"command {name}" for name in (
    "mnuSearch", "mnuCitySearch", "SearchAgain", "mnuSelComm", "mnuRange", "mnuRecordedChatter", "mnuFSUPIC", "mnuSetMute",
    "mnuAddATC", "mnuBackup", "mnuRestore", "ProgramFolders", "AboutBox", "PlayFeed", "TuneFeed")]
ACTIONS += [f"click {name}" for name in (
    "optAuto", "optManual", "StripPlay", "StripPause", "StripStop", "optCom1", COM2_STANDBY, "cmdComClose", "cmdClose2")]
ACTIONS += [f"{what} {number}" for what in ("rowclick", "rowdouble", "header") for number in (1, 2, 3)]
ACTIONS += ["pause 0", "pause 1", "fly 43.7 -79.6", "fly 51.4 -0.4", f"key {TAB}", "pick IdCboMin 3"]

MEASURED = ("resident MB", "threads", "open files", "handles", "windows", "drawing objects")


def clear_boxes(station, buttons):
    def cleared(boxes):
        if boxes:
            station.try_to(*(f"press {button}" for button in buttons))
        return boxes == ""

    station.copilot.await_text("boxes", cleared, 60)


def measure(station):
    """The MEASURED figures while Quillon is idle."""
    def quiet():
        station.try_to("click optAuto", "command mnuSelComm", f"click {COM2_STANDBY}", "click cmdComClose",
                       f"key {TAB}")  # in case it is muted
        clear_boxes(station, (CANCEL, NO, OK))
        time.sleep(4)  # between two polls; a session may still be ending
        return station.copilot.ask("title") == "Quillon -S"

    station.try_to("pause 0", "tune com2stby 122.80")
    wait_until("quiet", quiet, 90)
    process = Path(f"/proc/{station.quillon.pid}")
    status = dict(line.split(":\t", 1) for line in (process / "status").read_text().splitlines())
    return [int(status["VmRSS"].split()[0]) // 1024, int(status["Threads"]), len(list((process / "fd").iterdir())),
            *map(int, station.copilot.ask("objects").split())]


def play(station, minutes, frequencies=(), seed=1):
    """Does random things at random moments, and tunes to these frequencies, too; returns the measurements, about one a
    minute, before each of which another program writes the catalogue."""
    for frequency in frequencies:  # the system loads libraries for https, once, and keeps them
        station.try_to(f"tune com2stby {frequency}")
        time.sleep(3)
    chance, samples = random.Random(seed), []
    actions = ACTIONS + [f"tune com2stby {frequency}" for frequency in frequencies]
    end = time.monotonic() + 60 * minutes
    while time.monotonic() < end:
        for _ in range(100):
            station.try_to(chance.choice(actions))
            time.sleep(chance.uniform(0, 0.5))
            clear_boxes(station, chance.sample((OK, CANCEL, NO), 3))
        with station.catalogue.open("ab") as file:
            file.write(b"// another program was here\r\n")
        samples.append(measure(station))
    return samples


def grows(samples):
    """Names the figures that were larger in the second half of the run than in the first."""
    half = len(samples) // 2
    largest = zip(MEASURED, map(max, zip(*samples[:half])), map(max, zip(*samples[half:])))
    return [name for name, before, after in largest if after > before * 1.05 + 2]
