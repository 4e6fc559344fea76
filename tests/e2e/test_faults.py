"""Failing simulators, unusable files, being killed: how the real Quillon.exe copes.

The jobs share four Wine prefixes. Runs some of them; --all runs every one, 200 kills and half an hour (or
HAND_MINUTES) of random input, and prints the figures; Faults.test_NAME runs one.
"""
import contextlib
import os
import random
import shutil
import signal
import sys
import time
import unittest
from itertools import cycle, islice

from hostile_server import HostileServer, make_tone
from session import Session
from world import hand, spoiling
from world.feeds import FEEDS
from world.processes import wait_until
from world.sound import Ear
from world.station import Stations

TORONTO, LONDON, NEW_YORK = FEEDS
OK, CANCEL = "IDOK", "IDCANCEL"
DEFAULTS = b" 50 \r\nCom2Stby\r\n 15 \r\n 25 \r\n 9 \r\n"
MINE, MINE_SAVED = DEFAULTS.replace(b"50", b"12").replace(b" ", b""), DEFAULTS.replace(b"50", b"12")
OLD_BACKUP = b"old backup"
NEW_LINE = b"EGLL|Added|http://127.0.0.1:1/x|120.00\r\n"
ALL = "--all" in sys.argv


def silent(station, seconds):
    """Whatever the simulator does, the window lives. Waits that long; the allowance is for a busy machine."""
    worst = station.silence(seconds)
    assert worst < 1, worst
    return f"silent for {worst:.2f} s at worst"


def in_flight(fault, ends=True):
    """Quillon ends once the link's retries are used up, or carries on as if nothing had happened."""
    def job(station):
        station.fly()
        station.await_tuned()
        station.settings.unlink()
        station.copilot.ask("kill UIPCMAIN" if fault == "killed" else f"fault {fault}")
        if ALL or fault != "hang=3000":
            station.try_to("command mnuFSUPIC", "command TuneFeed")  # which ask, too
        words = silent(station, 140 if ends else 10)
        assert (station.quillon.poll() is not None) == ends
        if not ends:
            station.copilot.ask("fault none")
            station.await_tuned()
            station.copilot.ask("close QuillonMain")
        station.has_ended_well()
        assert station.settings.read_bytes() == DEFAULTS
        return words + (", ends" if ends else ", goes on")
    return job


def at_start(*options):
    """Quillon looks for the simulator until it behaves."""
    def job(station):
        station.fly(*options)
        words = ""
        if "--fault" in options:
            station.copilot.await_text("panel 3", "Looking for the simulator ...", 40)
            words = silent(station, 3)
            station.copilot.ask("fault none")
        station.await_tuned()
        station.close_quillon()
        return words
    return job


def kept_mapping(station):
    """Quillon follows the radio although the server holds on to the shared area."""
    station.fly("--fault", "keep-mapping")
    for feed in (TORONTO, LONDON) * 6:  # longer than a few answers
        station.copilot.ask(f"tune com2stby {feed.frequency}")
        station.copilot.await_text("panel 2", feed.frequency)
    words = silent(station, 1)
    station.close_quillon()
    return words


def hung_at_start(station):
    """While the first question waits, the splash and the window live and commands work."""
    station.start_simulator("--fault", "hang=30000")
    station.quillon = station.start("Quillon.exe")
    words = silent(station, 8)
    station.copilot.await_text("panel 3", "Waiting for the simulator ...")
    station.copilot.ask("click optManual")
    station.copilot.await_text("title", "Quillon - Manual", 1)
    asked = time.monotonic()
    station.close_quillon()
    return f"{words}, ended after {time.monotonic() - asked:.1f} s"


def hung_and_left(station):
    """Muting and quitting do not wait for the simulator's answer."""
    station.fly()
    station.await_tuned()
    station.settings.unlink()
    station.copilot.ask("fault hang=30000")
    station.copilot.await_text("panel 3", "Waiting for the simulator ...")
    station.copilot.ask("key 9")
    station.copilot.await_text("panel 1", "Muted", 2)
    asked = time.monotonic()
    station.copilot.ask("close QuillonMain")
    station.has_ended_well()
    took = time.monotonic() - asked
    assert took < 2, took
    assert station.settings.read_bytes() == DEFAULTS
    return f"ended after {took:.1f} s"


def others(station):
    """Two simulators at once, and one restarted between two ticks."""
    station.fly()
    station.await_tuned()
    first = station.copilot.ask("pid UIPCMAIN")
    second = station.start("PracticeSim.exe", "--com2stby", LONDON.frequency)
    station.copilot.await_text("pid UIPCMAIN", lambda pid: pid != first, 20)  # its window opens above the other
    station.simulator.kill()
    station.await_tuned(LONDON)
    station.quillon.send_signal(signal.SIGSTOP)
    second.kill()
    second.wait()
    station.start("PracticeSim.exe", "--com2stby", NEW_YORK.frequency)
    station.copilot.ask("wait UIPCMAIN 20000")
    station.quillon.send_signal(signal.SIGCONT)
    station.await_tuned(NEW_YORK)
    station.close_quillon()


def unusable(spoil, error, readable=False):
    """Nothing that was there is lost; each message says which file and why."""
    def job(station):
        before = {station.catalogue: station.catalogue.read_bytes(), station.backup: OLD_BACKUP, station.settings: MINE}
        with spoiling.small_disk(station) if spoil is spoiling.fill_disk else contextlib.nullcontext():
            for path, content in before.items():
                path.write_bytes(content)
            check(station, before)

    def check(station, before):
        (station.data / "Airport.dat").touch()
        station.start_quillon()
        station.open_add_dialog()
        before[station.catalogue] = station.catalogue.read_bytes()
        for path in before:
            spoil(station, path)
        station.add(NEW_LINE)
        station.copilot.box("Opening ", "live_atc_feeds.txt", error, NEW_LINE.decode().strip(), press=OK)
        station.copilot.box("Add Feed", press=CANCEL)
        for title in () if readable else ("Load User Frequency Error", "LoadList Error"):
            station.copilot.box(title, "live_atc_feeds.txt", error, press=OK)
        station.back_up()
        station.copilot.box("Backup Error", "ive_" if readable else "live_atc_feeds.txt", error, press=OK)
        station.copilot.ask("close QuillonMain")
        station.copilot.box("Write QuillonATC.ini error", "Quillon.ini", error, press=OK)
        station.copilot.ask("lock")
        station.has_ended_well()
        now = [path.read_bytes() for path in station.data.parent.glob("Quillon*/*") if path.is_file()]
        assert all(content in now for content in before.values())
        assert not list(station.data.parent.glob("Quillon*/*.new"))
    return job


def deep(station):
    """Recordings are played from a folder whose path is longer than Windows usually allows."""
    folder = station.data.joinpath("ATC", *("long" * 15 for _ in range(5)))
    shutil.copytree(station.data / "ATC" / "CYYZ_T", folder)
    line = f"CYYZ|Wav - Deep|{station.windows_path(folder)}\\|{TORONTO.frequency}\r\n"
    station.catalogue.write_bytes(line.encode())
    station.fly()
    ear = Ear(station.base.sound, {number: 2200 + 100 * number for number in (1, 2, 3)})
    wait_until("a recording", lambda: ear.hears() in (1, 2, 3), 40)
    station.close_quillon()


def kill_once(station, stage, seconds):
    """Every file is wholly old or wholly new. Returns whether one was new."""
    lines = b"".join(b"// %07d\r\n" % number for number in range(200_000)) + station.feeds.catalogue().encode()
    for path, content in ((station.catalogue, lines), (station.settings, MINE), (station.backup, OLD_BACKUP)):
        path.write_bytes(content)
    if stage == "start":
        station.settings.unlink()
        station.quillon = station.start("Quillon.exe")
        seconds *= 10
    else:
        station.start_quillon()
        lines = station.catalogue.read_bytes()
    if stage == "add":
        station.open_add_dialog()
        station.add(NEW_LINE)
    elif stage == "backup":
        station.back_up()
    elif stage == "exit":
        station.copilot.ask("close QuillonMain")
    time.sleep(seconds)
    station.quillon.kill()
    station.quillon.wait()
    catalogue, backup = station.catalogue.read_bytes(), station.backup.read_bytes()
    settings = station.settings.read_bytes() if station.settings.exists() else None
    added = catalogue[len(lines):]
    assert catalogue.startswith(lines)
    assert added in (b"", NEW_LINE) or stage == "start" and added.endswith(b"Los Angeles-Tower|\r\n"), added
    assert settings in ((None, DEFAULTS) if stage == "start" else (MINE, MINE_SAVED)), settings
    assert backup in (OLD_BACKUP, lines)
    return bool(added) or settings in (DEFAULTS, MINE_SAVED) or backup == lines


def killed(seed, times):
    def job(station):
        chance = random.Random(seed)
        late = sum(kill_once(station, stage, chance.uniform(0.01, 0.15))
                   for stage in islice(cycle(("start", "add", "backup", "exit")), times))
        station.start_quillon()
        station.close_quillon()
        return f"{times} kills, {late} of them after a file was replaced"
    return job


def add_bad_sources(station):
    """Adds a feed for each kind of bad source; returns their frequencies."""
    tone = make_tone(station.folder / "tone.mp3", 500)
    names = ("refuse", "hang-up", "endless-head", "empty", "redirect-loop", "mute", "untrusted", "html", "endless-playlist",
             "garbage", "drip", "stall", "reset", "titles")
    server = HostileServer({name: tone for name in (*names, "none")}, station.folder)
    (station.data / "list.wpl").write_text('<smil><media src="\\\\stranger\\a.mp3"/><media src="\\\\.\\COM1"/></smil>')
    here = station.windows_path(station.data)
    sources = [f"http://{server.address(name)}" for name in names]
    sources += [here + "\\none\\", "\\\\127.0.0.1\\none\\", here + "\\list.wpl", here + "\\ATC\\"]
    feeds = {f"130.{5 * number:02}": source for number, source in enumerate(sources)}
    with station.catalogue.open("a") as file:
        file.writelines(f"CYYZ|Bad|{source}|{frequency}\n" for frequency, source in feeds.items())
    return feeds


def under_a_random_hand(station):
    frequencies = add_bad_sources(station)
    station.fly()
    samples = hand.play(station, float(os.environ.get("HAND_MINUTES", 30)), frequencies)
    station.close_quillon()
    assert not hand.grows(samples), samples
    return f"{hand.MEASURED} {samples[0]} at first, {samples[-1]} at last"


DAMAGED = ("zero", "wrong-version", "no-fade", "unknown-id", "overrun", "size", "offset", "destination")
JOBS = {
    "hand": under_a_random_hand,
    **{f"kill_{seed}": killed(seed, 50 if ALL else 5) for seed in range(4)},
    **{f"flight_{name}": in_flight(name)
       for name in ("hang=3000", "hang=30000", "killed", "vanish", "vanish-in-flight", *DAMAGED)},
    **{f"flight_{name}": in_flight(name, ends=False) for name in ("hang=1000", "old-version")},
    **{f"start_{name}": at_start("--fault", name) for name in DAMAGED},
    "start_wide": at_start("--class", "FS98MAIN"),
    "start_wide-no-fade": at_start("--class", "FS98MAIN", "--fault", "no-fade"),
    "start_hang": hung_at_start, "flight_left": hung_and_left, "keep-mapping": kept_mapping, "others": others, "deep": deep,
    "read-only": unusable(spoiling.read_only, "Error 70 Permission denied", readable=True),
    "locked": unusable(spoiling.lock, "Error 70 Permission denied"),
    "folder": unusable(spoiling.put_folder, "Error 75 Path/File access error"),
    "gone": unusable(spoiling.take_folder, "Error 76 Path not found"),
    "full": unusable(spoiling.fill_disk, "Error 61 Disk full", readable=True),
}
IN_EVERY_TEST = ("kill_0", "kill_1", "flight_hang=3000", "flight_killed", "flight_vanish-in-flight", "flight_overrun",
                 "keep-mapping", "start_hang", "flight_left",
                 "start_zero", "others", "deep", "read-only", "locked", "folder", "gone", "full")
WANTED = [name.removeprefix("Faults.test_") for name in sys.argv[1:] if name != "--all"]
WANTED = [name for name in WANTED or (JOBS if ALL else IN_EVERY_TEST)
          if name != "full" or os.geteuid() == 0]  # only root can mount a small disk


class Faults(Session):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        stations = Stations(cls.world, 4)
        cls.addClassCleanup(stations.close)
        cls.results = {name: stations.submit(JOBS[name]) for name in WANTED}


for job in WANTED:
    setattr(Faults, f"test_{job}", lambda self, name=job: print(self.results[name].result() or "", end=" ... "))

if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], defaultTest=[f"Faults.test_{name}" for name in WANTED], verbosity=2)
