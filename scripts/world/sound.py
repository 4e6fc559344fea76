"""A sound server without a sound card, and an ear that listens to it."""
import array
import math
import os
import subprocess
import time

from .processes import wait_until

RATE = 22050


class SoundServer:
    """PulseAudio with one null sink, whose monitor is recorded from the start."""

    def __init__(self, processes, folder):
        self.folder = folder
        self.folder.mkdir(mode=0o700)
        self.env = {"XDG_RUNTIME_DIR": str(folder), "PULSE_SERVER": f"unix:{folder}/socket", "HOME": str(folder),
                    "XDG_CONFIG_HOME": str(folder)}
        processes.start("pulseaudio", [
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "--disable-shm=yes",
            "-L", f"module-native-protocol-unix socket={folder}/socket auth-anonymous=1"], {**os.environ, **self.env})
        wait_until("the sound server", lambda: self.control("info").returncode == 0, 10)
        self.processes = processes
        self.recording = folder / "heard.raw"
        self.modules = {}
        self.plug_in()

    def control(self, *arguments):
        return subprocess.run(["pactl", *arguments], env={**os.environ, **self.env}, capture_output=True)

    def plug_in(self, sink="q", name="Speakers"):
        module = self.control("load-module", "module-null-sink", f"sink_name={sink}", "rate=44100",
                              f"sink_properties=device.description={name}")
        self.modules[sink] = module.stdout.decode().strip()
        if sink == "q":
            self.record(self.recording, RATE)

    def record(self, path, rate=44100, sink="q"):
        """Records what a sink plays, from now on, behind what is in the file."""
        with open(path, "ab") as file:
            self.processes.start("parec", ["parec", "-d", f"{sink}.monitor", "--format=s16le", f"--rate={rate}",
                                           "--channels=1", "--latency-msec=20"], {**os.environ, **self.env}, stdout=file)
        return path

    def unplug(self, sink="q"):
        """Removes a sound device; nothing is heard of it until plug_in()."""
        self.control("unload-module", self.modules.pop(sink)).check_returncode()

    def last(self, seconds):
        """The most recent sound, as samples."""
        size = 2 * int(RATE * seconds)
        with open(self.recording, "rb") as file:
            end = file.seek(0, os.SEEK_END) // 2 * 2
            file.seek(max(0, end - size))
            return array.array("h", file.read(size))


def level(samples):
    """Root mean square, 0 to 1."""
    return math.sqrt(sum(s * s for s in samples) / len(samples)) / 32768 if samples else 0


def tone_level(samples, tone):
    """Amplitude of one frequency (Goertzel's algorithm), 0 to 1."""
    if not samples:
        return 0
    turn = 2 * math.cos(2 * math.pi * tone / RATE)
    one = two = 0.0
    for sample in samples:
        one, two = sample + turn * one - two, one
    power = one * one + two * two - turn * one * two
    return 2 * math.sqrt(max(power, 0)) / len(samples) / 32768


SILENCE = 0.002


class Ear:
    """Tells which feed is audible."""

    def __init__(self, server, tones):
        self.server = server
        self.tones = tones  # name -> Hz

    def hears(self, seconds=0.4):
        """A feed's name, "silence", or "something else"."""
        samples = self.server.last(seconds)
        if level(samples) < SILENCE:
            return "silence"
        levels = sorted(((tone_level(samples, tone), name) for name, tone in self.tones.items()), reverse=True)
        (first, name), (second, _) = levels[:2]
        return name if first > 3 * second and first > 0.01 else "something else"

    def listens(self, seconds):
        """Listens for that time from now on; returns what hears() says of it."""
        end = self.server.recording.stat().st_size + 2 * int(RATE * seconds)
        wait_until("the recording", lambda: self.server.recording.stat().st_size >= end, seconds + 5)
        return self.hears(seconds)

    def await_(self, name, seconds=10):
        """Waits until `name` is heard; returns how many seconds that took."""
        start = time.monotonic()
        try:
            wait_until(name, lambda: self.hears() == name, seconds)
        except TimeoutError:
            raise AssertionError(f"expected to hear {name} within {seconds} s, heard {self.hears(1)}") from None
        return time.monotonic() - start
