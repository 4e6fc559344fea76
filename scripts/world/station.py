"""Several Quillons side by side, each in a Wine prefix of its own, sharing one screen and one sound server."""
import queue
import shutil
import time
from concurrent.futures import ThreadPoolExecutor

from .feeds import FEEDS
from .wine import Copilot, Prefix
from .world import World

INTERNATIONAL = r"HKCU\Control Panel\International"
SEPARATORS = {"sDecimal": ",", "sThousand": "."}  # the user's own, which Quillon replaces while it runs


class Station(World):
    """A Wine prefix on another world's screen; each job finds fresh files in it."""

    def __init__(self, base):
        self.base = base
        super().__init__()

    def open(self, _):
        self.env, self.feeds = self.base.env, self.base.feeds
        self.prefix = Prefix(self.folder / "prefix", self.env)
        self.data = self.prefix.data_folder
        self.catalogue, self.settings, self.backup = (
            self.data / name for name in ("live_atc_feeds.txt", "Quillon.ini", "live_atc_feeds.bak"))

    def windows_path(self, path):
        return "C:\\" + str(path.relative_to(self.prefix.folder / "drive_c")).replace("/", "\\")

    def work(self, job):
        for folder in self.data.parent.glob("Quillon*"):
            shutil.rmtree(folder)
        self.fill_data_folder()
        self.copilot = Copilot(self.processes, self.prefix)
        self.copilot.ask("ping")
        for name, text in SEPARATORS.items():
            self.prefix.run("reg", "add", INTERNATIONAL, "/v", name, "/d", text, "/f")
        try:
            return job(self)
        finally:
            self.processes.close()

    def fly(self, *options):
        """Starts a simulator over Toronto, tuned to its tower, and Quillon."""
        self.simulator = self.start_simulator("--com2stby", FEEDS[0].frequency, *options)
        self.start_quillon()

    def await_tuned(self, feed=FEEDS[0]):
        self.copilot.await_text("panel 2", feed.frequency, 40)
        self.copilot.await_text("panel 3", f"{feed.icao} - {feed.city}")

    def open_add_dialog(self):
        self.copilot.ask("command mnuAddATC")
        self.copilot.box("Add Feed")

    def add(self, line):
        for field, text in zip(("ICAO", "CITY", "URL", "FREQ"), line.decode().strip().split("|")):
            self.copilot.ask(f"field IDC_TXT_{field} ={text}")
        self.copilot.ask("press IDOK")

    def back_up(self):
        self.copilot.ask("command mnuBackup")
        self.copilot.box("Please confirm", press="IDYES")

    def try_to(self, *commands):
        for command in commands:
            try:
                self.copilot.ask(command)
            except RuntimeError:
                pass  # there is no such button, or the window is closing

    def silence(self, seconds):
        """For how long at worst, in seconds, a message to the window waits; until the program ends or for `seconds`."""
        start = time.monotonic()
        worst = 0
        while self.quillon.poll() is None and time.monotonic() - start < seconds:
            worst = max(worst, int(self.copilot.ask("silence 500")) / 1000)
        return worst

    def close_quillon(self):
        self.copilot.ask("close QuillonMain")
        self.has_ended_well()

    def has_ended_well(self):
        assert self.quillon.wait(20) == 0
        values = self.prefix.run("reg", "query", INTERNATIONAL).stdout.split()
        for name, text in SEPARATORS.items():
            assert values[values.index(name) + 2] == text, values


class Stations:
    """Runs jobs, which are functions of a station, on several stations at once."""

    def __init__(self, base, count):
        self.all = [Station(base) for _ in range(count)]
        self.free = queue.Queue()
        for station in self.all:
            self.free.put(station)
        self.pool = ThreadPoolExecutor(count)

    def submit(self, job):
        def run():
            station = self.free.get()
            try:
                return station.work(job)
            finally:
                self.free.put(station)
        return self.pool.submit(run)

    def close(self):
        self.pool.shutdown(cancel_futures=True)
        for station in self.all:
            station.close()
