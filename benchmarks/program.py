#!/usr/bin/env python3
"""Measures the real Quillon.exe under Wine beside the players and the program that people would use instead.

Usage: program.py RESULTS.json
"""
import array
import itertools
import json
import os
import socket
import statistics
import subprocess
import sys
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "scripts"))
from world.feeds import FEEDS, make_sound
from world.processes import wait_until
from world.sound import RATE
from world.wine import BUILD
from world.world import World

TORONTO = FEEDS[0]
FREQUENCY, NO_FEED = "119.00", "122.80"
TUNES, STARTS, PLAYS, PLAY_SECONDS = 15, 9, 3, 60


class Bench:
    def __init__(self, world):
        self.world = world
        self.url = self.start_feed()
        self.write_catalogue(f"{TORONTO.icao}|{TORONTO.city}|{self.url}|{FREQUENCY}\r\n")
        world.start_simulator()
        self.env = {**os.environ, **world.env}

    def start_feed(self):
        """A live feed of 64 kbit/s."""
        sound, mount = self.world.folder / "feed.mp3", "feed"
        make_sound(sound, TORONTO.speech, TORONTO.tone, 20, "-ar", "44100", "-b:a", "64k")
        address = f"127.0.0.1:{self.world.feeds.port}/{mount}"
        self.world.processes.start("source-64", [
            "ffmpeg", "-v", "error", "-re", "-stream_loop", "-1", "-i", sound, "-c", "copy", "-f", "mp3",
            "-content_type", "audio/mpeg", f"icecast://source:demo@{address}"])
        return "http://" + address

    def write_catalogue(self, text):
        (self.world.data / "live_atc_feeds.txt").write_text(text)

    def start_players(self):
        """All of them run and are silent; a play is one command."""
        world, pipe = self.world, str(self.world.folder / "mpv")
        world.start_quillon()
        self.mpv = world.processes.start("mpv", [
            "mpv", "--no-config", "--no-video", "--idle", "--ao=pulse", "--really-quiet",
            f"--input-ipc-server={pipe}"], self.env)
        self.mpg123 = world.processes.start("mpg123", ["mpg123", "-R", "-o", "pulse"], self.env, stdin=subprocess.PIPE)
        self.control = socket.socket(socket.AF_UNIX)
        wait_until("mpv", lambda: self.control.connect_ex(pipe) == 0, 10)

    def tell_mpv(self, *command):
        self.control.sendall(json.dumps({"command": command}).encode() + b"\n")

    def tell_mpg123(self, command):
        self.mpg123.stdin.write(command.encode() + b"\n")
        self.mpg123.stdin.flush()

    def tune(self, frequency):
        self.world.copilot.ask(f"tune com2stby {frequency}")

    def seconds_to_sound(self, start):
        recording, loud = self.world.sound.recording, 200
        start()
        heard_before = recording.stat().st_size // 2  # the command is through by now, and nothing comes of it at once

        def onset():
            sound = array.array("h")
            with open(recording, "rb") as file:
                file.seek(2 * heard_before)
                data = file.read()
            sound.frombytes(data[:len(data) // 2 * 2])
            return next((i + 1 for i, sample in enumerate(sound) if abs(sample) > loud), None)

        return wait_until("sound", onset, 15) / RATE

    def measure_tuning(self):
        """Ticks come once a second, so tuning happens at moments that are spread evenly over one."""
        ours, mpvs = [], []
        for tune in range(TUNES):
            for results, start, stop in (
                    (ours, lambda: self.tune(FREQUENCY), lambda: self.tune(NO_FEED)),
                    (mpvs, lambda: self.tell_mpv("loadfile", self.url), lambda: self.tell_mpv("stop"))):
                self.world.ear.await_("silence", 15)
                time.sleep(0.7)
                time.sleep((tune / TUNES - time.time()) % 1)
                results.append(self.seconds_to_sound(start))
                stop()
        return {"tune": statistics.median(ours), "mpv opens": statistics.median(mpvs)}

    def measure_playing(self):
        self.tune(FREQUENCY)
        self.tell_mpv("loadfile", self.url)
        self.tell_mpg123("LOAD " + self.url)
        time.sleep(5)
        processes = {"Quillon": self.process_of("Quillon.exe"), "wineserver": self.process_of("wineserver"),
                     "mpv": self.mpv.pid, "mpg123": self.mpg123.pid}
        runs = []
        for _ in range(PLAYS):
            before = {name: thread_times(pid) for name, pid in processes.items()}
            time.sleep(PLAY_SECONDS)
            run = {}
            for name, pid in processes.items():
                spent = {task: (comm, end - before[name].get(task, (comm, 0))[1])
                         for task, (comm, end) in thread_times(pid).items()}
                run[name] = sum(seconds for _, seconds in spent.values())
                if name == "Quillon":
                    run["Wine's sound driver"] = sum(s for comm, s in spent.values() if comm.startswith("winepulse"))
            runs.append(run)
        result = {f"{name} cpu": statistics.median(run[name] for run in runs) for name in runs[0]}
        return result | {f"{name} memory": private_megabytes(pid) for name, pid in processes.items()}

    def process_of(self, name):
        """The newest process of that name in our prefix."""
        prefix = f"WINEPREFIX={self.world.prefix.folder}".encode()
        found = []
        for entry in Path("/proc").glob("[0-9]*"):
            try:
                if name.encode() in (entry / "cmdline").read_bytes() and prefix in (entry / "environ").read_bytes():
                    found.append(int(entry.name))
            except OSError:
                pass  # it has ended
        return max(found)

    def measure_start(self):
        """Until the window could be used if it did not wait for the splash to be read, which ends with a second."""
        copilot, feeds, airports = self.world.copilot, 10_000, 6_000
        self.write_catalogue("".join(f"K{i:04}|Springfield {i}|http://feeds.example/{i}|{200_000 + i if i % 2 else ''}\r\n"
                                     for i in range(feeds)))
        lines = (self.world.data / "Airport.dat").read_text().splitlines()
        (self.world.data / "Airport.dat").write_text("\r\n".join(itertools.islice(itertools.cycle(lines), airports)))
        empty = self.build_empty_window()
        ours, empties = [], []
        for _ in range(STARTS):
            start = time.monotonic()
            program = self.world.start("Quillon.exe")
            while self.rows_shown() < feeds:
                time.sleep(0.005)
            loaded = time.monotonic() - start
            copilot.ask("wait QuillonMain 20000")
            ours.append(loaded + time.time() % 1)
            self.close("QuillonMain", program)
            start = time.monotonic()
            program = self.world.start(str(empty))
            copilot.ask("wait EmptyWindow 20000")
            empties.append(time.monotonic() - start)
            self.close("EmptyWindow", program)
        return {"start": statistics.median(ours), "empty start": statistics.median(empties)}

    def rows_shown(self):
        try:
            return int(self.world.copilot.ask("rows"))
        except RuntimeError:  # no window yet
            return 0

    def build_empty_window(self):
        program = self.world.folder / "EmptyWindow.exe"
        subprocess.run(["x86_64-w64-mingw32-g++-posix", "-O2", "-s", "-static", "-municode", "-mwindows", "-DUNICODE",
                        HERE / "EmptyWindow.cpp", "-o", program], check=True)
        return program

    def close(self, window_class, program):
        self.world.copilot.ask(f"close {window_class}")
        program.wait(20)


def thread_times(pid):
    """Name and seconds on a processor of each thread."""
    times = {}
    for task in Path(f"/proc/{pid}/task").iterdir():
        times[task.name] = ((task / "comm").read_text().strip(), int((task / "schedstat").read_text().split()[0]) / 1e9)
    return times


def private_megabytes(pid):
    """Memory that no other process shares and no file backs."""
    fields = dict(line.split(":", 1) for line in Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()[1:])
    return int(fields["Anonymous"].split()[0]) / 1024


def main():
    with World() as world:
        bench = Bench(world)
        results = {"exe size": (BUILD / "Quillon.exe").stat().st_size / 1e6} | bench.measure_start()
        bench.write_catalogue(f"{TORONTO.icao}|{TORONTO.city}|{bench.url}|{FREQUENCY}\r\n")
        bench.start_players()
        results |= bench.measure_tuning() | bench.measure_playing()
    Path(sys.argv[1]).write_text(json.dumps(results, indent=2))
    print(json.dumps(results, indent=2))


if __name__ == "__main__":
    main()
