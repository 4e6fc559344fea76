"""Starting and ending the real Quillon.exe, with and without what it needs."""
import shutil

from session import Session
from world.feeds import FEEDS
from world.wine import BUILD

TORONTO = FEEDS[0]
INTERNATIONAL = r"HKCU\Control Panel\International"


class Starts(Session):
    def setUp(self):
        self.world.fill_data_folder()

    def separators(self):
        return [self.world.prefix.run("reg", "query", INTERNATIONAL, "/v", name).stdout.split("REG_SZ")[1].strip()
                for name in ("sDecimal", "sThousand")]

    def test_separators_are_changed_for_the_run_only(self):
        for name, text in (("sDecimal", ","), ("sThousand", ".")):
            self.world.prefix.run("reg", "add", INTERNATIONAL, "/v", name, "/d", text, "/f")
        self.world.start_quillon()
        self.assertEqual(self.separators(), [".", ","])
        self.end_quillon()
        self.assertEqual(self.separators(), [",", "."])

    def test_programs_are_never_started_from_the_current_folder(self):
        planted = self.world.folder / "planted"
        planted.mkdir()
        for name in ("msinfo32.exe", "notepad.exe"):
            shutil.copy(BUILD / "PracticeSim.exe", planted / name)
        self.world.start_quillon(cwd=planted)
        self.copilot.ask("command AboutBox")
        self.copilot.box("About Quillon")
        self.copilot.ask("press IDC_SYSTEM_INFO")
        self.copilot.ask("command mnuEditData")
        self.copilot.ask("wait Notepad 20000")
        with self.assertRaises(RuntimeError):
            self.copilot.ask("wait UIPCMAIN 1000")
        self.copilot.ask("close Notepad")
        self.copilot.await_text("enabled IdFeedList", "1")
        self.end_quillon()

    def test_looks_for_a_simulator_and_if_it_is_to_stay_open_for_ten_more(self):
        (self.data / "Quillon.state").write_bytes(b"stay-open=yes\r\n")
        self.world.start_quillon()
        for number in range(11):
            self.copilot.await_text("panel 3", "Looking for the simulator ...", 30)
            self.assertEqual(self.copilot.ask("panel 4"), "*" if number else "Selection Mode: Automatic")
            self.copilot.await_text("title", "Quillon -S", 3)
            self.ear.await_("silence")
            simulator = self.world.start_simulator("--com2stby", TORONTO.frequency, "--sim", str(7 + number % 4))
            self.ear.await_(TORONTO.icao, 15)
            if number % 4 == 3:  # killed while it owes an answer
                self.copilot.ask("fault hang=30000")
                self.copilot.await_text("panel 3", "Waiting for the simulator ...")
            self.copilot.ask("kill UIPCMAIN" if number % 2 else "close UIPCMAIN")
            simulator.wait(20)
        self.end_quillon()

    def test_a_missing_catalogue_is_reported_and_nothing_of_the_users_is_written(self):
        (self.data / "live_atc_feeds.txt").unlink()
        settings = self.data / "Quillon.ini"
        settings.write_bytes(b"12\r\nCom1\r\n20\r\n30\r\n35\r\n")
        self.world.quillon = self.world.start("Quillon.exe")
        self.copilot.box("ATC from load errors", "Opening ", "live_atc_feeds.txt", "Error 53 File not found")
        second = self.world.start("Quillon.exe")
        self.copilot.box("already running")
        self.copilot.ask("press IDOK")  # of the box that came last
        self.assertEqual(second.wait(20), 0)
        self.copilot.ask("press IDOK")
        self.copilot.ask("wait QuillonMain 5000")
        self.end_quillon()
        self.assertEqual(settings.read_bytes(), b"12\r\nCom1\r\n20\r\n30\r\n35\r\n")

    def test_without_a_sound_device_the_state_says_so(self):
        simulator = self.world.start_simulator("--com2stby", TORONTO.frequency)
        self.world.start_quillon(PULSE_SERVER="unix:/nonexistent")
        self.copilot.await_text("panel 1", "No Connection", 15)
        self.end_quillon()
        self.copilot.ask("close UIPCMAIN")
        simulator.wait(20)
