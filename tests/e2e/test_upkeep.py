"""Adding, backing up, restoring and editing feeds with the real Quillon.exe, and its small dialogs."""
import time

from session import Session
from world.feeds import FEEDS
from world.processes import wait_until

TORONTO, LONDON, NEW_YORK = FEEDS
LIVE, RADIO, PLAYLIST, WAVES = "IDC_KIND1", "IDC_KIND1+1", "IDC_KIND1+2", "IDC_KIND4"
CITIES = {LIVE: "", RADIO: "Radio - ", PLAYLIST: "Playlist ", WAVES: "Wav - "}  # what each kind begins with
ENTER, ESCAPE, CONTROL, HOME, SHIFT, DOWN, DELETE, KEY_S = 0x0D, 0x1B, 0x11, 0x24, 0x10, 0x28, 0x2E, 0x53


class Upkeep(Session):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start("--lat", "51.477", "--lon", "-0.461")
        cls.catalogue = cls.data / "live_atc_feeds.txt"
        cls.opened = cls.world.prefix.use_browser()

    def close_by_keyboard(self, title, key=ESCAPE):
        self.copilot.box(title)
        self.copilot.ask(f"key {key}")
        self.copilot.await_text("boxes", lambda boxes: title not in boxes)

    def fill(self, kind, **texts):
        self.copilot.ask(f"press {kind}")
        self.copilot.await_text("field IDC_TXT_CITY", CITIES[kind])
        for name, text in texts.items():
            self.copilot.ask(f"field IDC_TXT_{name} ={text}")
        self.copilot.ask("press IDOK")

    def test_1_a_refusal_is_told(self):
        self.copilot.ask("command mnuAddATC")
        self.copilot.box("Add Feed|")
        self.assertEqual(self.copilot.ask("field IDC_TXT_URL"), "http://feeds.example/")
        self.copilot.ask("field IDC_TXT_URL =http://127.0.0.1:1/?a=b")
        self.copilot.ask("press IDC_TEST")
        self.copilot.await_text("field IDC_TEST_RESULT", "The server takes no connections")
        self.fill(LIVE, ICAO="EGLL", FREQ=TORONTO.frequency)
        self.close_by_keyboard("Available Frequencies")

    def test_2_a_feed_of_each_kind_is_added(self):
        address = self.world.feeds.address
        waves = "C:\\users\\" + self.data.parts[-4] + "\\AppData\\Roaming\\Quillon\\ATC\\"
        (self.data / "list.wpl").write_text(
            f'<smil><body><seq><media src="{address(NEW_YORK)}"/></seq></body></smil>')
        chatter = next(path for path in (self.data / "ATC").iterdir() if path.is_dir()).name
        for kind, city, url, frequency in ((LIVE, "Added Tower", address(TORONTO), "120.00"),
                                           (RADIO, "Radio - Added", address(LONDON), "120.05"),
                                           (PLAYLIST, "Playlist Added", waves[:-4] + "list.wpl", "120.10"),
                                           (WAVES, "Wav - Added", waves + chatter + "\\", "120.15")):
            self.fill(kind, ICAO="EGLL", CITY=city, URL=url, FREQ=frequency)
            self.copilot.await_text("field IDC_TXT_ICAO", "")  # ready for the next
        self.close_by_keyboard("Add Feed")
        for frequency, heard in (("120.00", TORONTO.icao), ("120.05", LONDON.icao), ("120.10", NEW_YORK.icao)):
            self.copilot.ask(f"tune com2stby {frequency}")
            self.ear.await_(heard)
        self.copilot.ask("tune com2stby 120.15")
        self.copilot.await_text("panel 3", "EGLL - Wav - Added")

    def test_3_backup_and_restore_go_through_the_recycle_bin(self):
        mine, backup = self.catalogue.read_bytes(), self.data / "live_atc_feeds.bak"
        self.copilot.ask("command mnuBackup")
        self.close_by_keyboard("Confirmation", ENTER)  # the default is No
        self.assertFalse(backup.exists())
        self.copilot.ask("command mnuBackup")
        self.copilot.box("Please confirm you want to backup", press="IDYES")
        self.close_by_keyboard("Success")
        self.assertEqual(backup.read_bytes(), mine)
        self.assertLess(abs(time.time() - backup.stat().st_mtime), 10)
        self.catalogue.write_bytes(b"EGLL|Spoilt|http://x.example/|118.20\r\n")
        self.copilot.ask("command mnuRestore")
        self.copilot.box("Restoring will move", press="IDYES")
        self.copilot.box("Confirm file deletion", press="IDYES")
        wait_until("the old catalogue", lambda: self.catalogue.exists() and self.catalogue.read_bytes() == mine, 10)
        trash = self.world.folder / "home/.local/share/Trash/files"
        self.assertIn(b"Spoilt", b"".join(path.read_bytes() for path in trash.iterdir()))

    def test_4_notepad_edits_while_the_window_lives(self):
        self.copilot.ask("command mnuEditData")
        self.copilot.ask("wait Notepad 20000")
        self.copilot.await_text("enabled IdFeedList", "0")
        self.copilot.ask("command mnuRange")  # without effect
        rows = self.catalogue.read_bytes().count(b"\n")
        for keys in ((CONTROL, HOME), (SHIFT, DOWN), (DELETE,), (CONTROL, KEY_S)):
            for key in keys[:-1]:
                self.copilot.ask(f"hold {key}")
            self.copilot.ask(f"key {keys[-1]}")
            for key in keys[:-1]:
                self.copilot.ask(f"release {key}")
        wait_until("a shorter file", lambda: self.catalogue.read_bytes().count(b"\n") == rows - 1, 10)
        self.assertEqual(self.copilot.ask("boxes"), "")
        self.copilot.ask("close Notepad")
        self.copilot.await_text("enabled IdFeedList", "1")

    def test_5_small_dialogs_open_and_close_by_keyboard(self):
        self.copilot.ask("command HelpPages")
        wait_until("the help pages", lambda: self.opened.exists() and "help/index.html" in self.opened.read_text(), 10)
        for command, title in (("ProgramFolders", "Program Folders"), ("AboutBox", "About Quillon")):
            self.copilot.ask(f"command {command}")
            self.close_by_keyboard(title)

    def test_6_what_other_programs_write_is_taken_up(self):
        self.copilot.ask("tune com2stby 120.00")
        self.ear.await_(TORONTO.icao)
        self.catalogue.write_bytes(b"ZZZZ|Before all others|http://x.example/|130.55\r\n" + self.catalogue.read_bytes())
        self.copilot.await_text("row 1", "ZZZZ|Before all others|130.55|http://x.example/", seconds=4)
        self.assertIn("Added Tower", self.copilot.ask("panel 3"))
        self.ear.await_(TORONTO.icao)

    def test_7_closing_leaves_notepad_alone(self):
        self.copilot.ask("command mnuEditData")
        self.copilot.ask("wait Notepad 20000")
        self.end_quillon()
        self.copilot.ask("title Notepad")
        self.copilot.ask("close Notepad")
