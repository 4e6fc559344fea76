"""The complete world: screen, sound, feeds, Wine prefix, practice simulator and Quillon."""
import atexit
import os
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

from .feeds import FEEDS, FeedServer, make_recordings
from .processes import Processes
from .sound import Ear, SoundServer
from .wine import ROOT, Copilot, Prefix

SOUNDS = ROOT / "build" / "sounds"


class World:
    """With `user_session`, on the screen and sound of whoever runs it; otherwise both are virtual."""

    def __init__(self, user_session=False):
        self.folder = Path(tempfile.mkdtemp(prefix="quillon-"))
        self.folder.chmod(0o711)  # Icecast runs as another user
        self.processes = Processes(self.folder)
        self.prefix = None
        for ending in (signal.SIGTERM, signal.SIGHUP):
            signal.signal(ending, signal.default_int_handler)  # unwinds, unlike closing from within a handler
        atexit.register(self.close)
        try:
            self.open(user_session)
        except BaseException:
            self.close()
            raise

    def open(self, user_session):
        SOUNDS.mkdir(parents=True, exist_ok=True)
        self.env = {}
        if not user_session:
            self.env["DISPLAY"] = self.start_screen()
            self.sound = SoundServer(self.processes, self.folder / "sound")
            self.env.update(self.sound.env)
            self.ear = Ear(self.sound, {feed.icao: feed.tone for feed in FEEDS})
        self.feeds = FeedServer(self.processes, self.folder / "icecast", SOUNDS)
        self.prefix = Prefix(self.folder / "prefix", self.env)
        self.data = self.prefix.data_folder
        self.fill_data_folder()
        self.copilot = Copilot(self.processes, self.prefix)

    def start_screen(self):
        read_end, write_end = os.pipe()
        self.processes.start("xvfb", ["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1280x900x24",
                                      "-nolisten", "tcp"], pass_fds=[write_end])
        os.close(write_end)
        with open(read_end) as answer:
            display = ":" + answer.readline().strip()
        self.processes.start("openbox", ["openbox", "--sm-disable"], {**os.environ, "DISPLAY": display})
        return display

    def fill_data_folder(self):
        self.data.mkdir(parents=True, exist_ok=True)
        (self.data / "live_atc_feeds.txt").write_bytes(self.feeds.catalogue().encode())
        airports = SOUNDS.parent / "Airport.dat"
        if not airports.exists():
            subprocess.run(["python3", ROOT / "scripts" / "make-airports.py", airports], check=True)
        shutil.copy(airports, self.data)
        make_recordings(SOUNDS / "ATC")
        shutil.copytree(SOUNDS / "ATC", self.data / "ATC", dirs_exist_ok=True)

    def start(self, program, *arguments, cwd=None, **more_env):
        return self.processes.start(Path(program).stem, self.prefix.command(program, *arguments),
                                    {**self.prefix.env, **more_env}, cwd=cwd)

    def start_simulator(self, *arguments):
        """Starts the practice simulator over Toronto, tuned to nothing."""
        simulator = self.start("PracticeSim.exe", "--com2stby", "122.80", "--lat", "43.7", "--lon", "-79.6",
                               *arguments)
        window_class = arguments[arguments.index("--class") + 1] if "--class" in arguments else "UIPCMAIN"
        self.copilot.ask(f"wait {window_class} 20000")
        return simulator

    def start_quillon(self, *arguments, **more):
        """Starts Quillon and waits for its main window."""
        self.quillon = self.start("Quillon.exe", *arguments, **more)
        self.copilot.ask("wait QuillonMain 20000")
        return self.quillon

    def close_quillon(self):
        """Returns its exit code."""
        self.copilot.ask("close QuillonMain")
        return self.quillon.wait(20)

    def set_side_by_side(self):
        self.copilot.ask("move QuillonMain 20 20")
        self.copilot.ask("move UIPCMAIN 680 20")

    def screenshot(self, path):
        subprocess.run(["import", "-window", "root", path], env=self.prefix.env, check=True)

    def close(self):
        try:
            if self.prefix:
                self.prefix.close()
        finally:
            self.processes.close()
            shutil.rmtree(self.folder, ignore_errors=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()
