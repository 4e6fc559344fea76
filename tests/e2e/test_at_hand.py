"""Quillon beside a full-screen program: compact, on top, muted by button, in the notification area."""
import re
import subprocess

from session import Session
from world.feeds import FEEDS
from world.ids import IDS
from world.processes import wait_until

TORONTO = FEEDS[0]
ESCAPE, TAB, DOWN = 0x1B, 0x09, 0x28
MARKS = {"OnTopMark": "on-top", "HideWhenMinimisedMark": "hide-when-minimised", "StartMinimisedMark": "start-minimised"}


class AtHand(Session):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.env = cls.world.prefix.env
        cls.world.processes.start("trayer", ["trayer", "--edge", "bottom", "--align", "right", "--width", "10",
                                             "--height", "32"], cls.env)
        cls.start("--com2stby", TORONTO.frequency)

    def remembered(self):
        return dict(re.findall(r"([\w-]+)=(.*)", (self.data / "Quillon.state").read_text()))

    def area(self):
        return [int(number) for number in self.copilot.ask("area").split()]

    def screen(self, *command):
        return subprocess.run(command, env=self.env, capture_output=True, text=True, timeout=20, check=True).stdout

    def restart(self):
        self.end_quillon()
        self.world.start_quillon()
        self.copilot.await_text("title", lambda title: title.endswith("-OK"), 15)

    def place_of(self, window, min_x, min_y):
        """Where to click in the window that matches, beyond these coordinates; None if it is not there."""
        for line in self.screen("xwininfo", "-root", "-tree").splitlines():
            found = re.search(window + r"\+-?\d+\+-?\d+  \+(\d+)\+(\d+)", line)
            if found and int(found[1]) > min_x and int(found[2]) > min_y:
                return int(found[1]) + 10, int(found[2]) + 12
        return None

    def icon(self):
        return self.place_of(r'"explorer.exe".* \d\dx\d\d', 800, 0)

    def click(self, window, button):
        place = wait_until("a place to click", window, 15)
        self.screen("xdotool", "mousemove", *map(str, place), "sleep", "0.3", "click", str(button))

    def test_1_the_mute_button_shows_what_it_does_and_it_is_read_out(self):
        self.ear.await_(TORONTO.icao, 15)
        self.copilot.ask("said")
        self.copilot.ask("click StripMute")
        self.copilot.await_text("checked StripMute", "1")
        self.copilot.await_text("said", "Muted")
        self.assertEqual(self.copilot.panels()[0], "Muted")
        self.ear.await_("silence")
        self.copilot.ask("click StripMute")
        self.copilot.await_text("checked StripMute", "0")
        self.ear.await_(TORONTO.icao, 10)

    def test_2_the_compact_view_leads_back_and_each_view_keeps_its_place(self):
        self.assertEqual(self.tabs()[-1], "IdFeedList")
        self.copilot.ask("move QuillonMain 60 50")
        self.copilot.await_text("area", lambda area: area.startswith("60 50 "))
        self.copilot.ask("command mnuSelComm")
        self.copilot.await_text("visible cmdComClose", "1")
        self.make_compact()
        self.copilot.await_text("visible cmdComClose", "0")
        self.assertEqual(self.tabs(), ["StripPlay", "StripPause", "StripStop", "StripMute", "IdVolume", "CompactView"])
        self.copilot.await_text("text IdCompactFeed", lambda text: text.startswith(TORONTO.icao))
        self.assertTrue(self.copilot.ask("text IdCompactFrequency").startswith(TORONTO.frequency))
        self.copilot.ask("move QuillonMain 300 400")
        self.copilot.await_text("area", lambda area: area.startswith("300 400 "))
        self.restart()
        self.assertEqual(self.area()[:2], [300, 400])
        leaves = (lambda: self.copilot.ask("click CompactView"),
                  lambda: self.press_until(lambda: self.copilot.ask("visible IdFeedList") == "1", ESCAPE),
                  lambda: self.copilot.ask("command mnuRecordedChatter"))
        for leave in leaves:
            self.copilot.await_text("area", lambda area: area.startswith("300 400 "))
            leave()
            self.copilot.await_text("visible IdFeedList", "1")
            self.copilot.await_text("area", lambda area: area.startswith("60 50 "))
            if leave != leaves[-1]:
                self.make_compact()

    def make_compact(self):
        self.copilot.ask("command CompactView")
        wait_until("the compact size", lambda: self.area()[2] <= 420 and self.area()[3] <= 120, 5)

    def press_until(self, done, *keys):
        """Activates the window and presses the keys, once more if the screen lagged behind the window."""
        def pressed():
            self.screen("xdotool", "search", "--onlyvisible", "--name", "^Quillon", "windowactivate", "sleep", "0.5")
            for key in keys:
                self.copilot.ask(f"key {key}")
            return done()
        wait_until("the effect of keys", pressed, 15)

    def tabs(self):
        names = {str(number): name for name, number in IDS.items()}
        return [names[number] for number in self.copilot.ask("tabs").split()]

    def test_3_a_window_off_the_screen_opens_on_it(self):
        self.end_quillon()
        state = self.data / "Quillon.state"
        state.write_text(re.sub(r"(?m)^place=.*$", "place=-5000 40000", state.read_text()))
        self.world.start_quillon()
        left, top, width, height = self.area()
        self.assertTrue(0 <= left and left + width <= 1280 and 0 <= top and top + height <= 900, self.area())

    def test_4_on_top_of_another_window_after_a_restart_too(self):
        self.copilot.ask("command OnTopMark")
        for _ in range(2):
            self.copilot.await_text("ontop", "1")
            self.restart()
        self.copilot.ask("command OnTopMark")

    def test_5_hidden_it_is_found_by_icon_menu_and_second_start(self):
        self.copilot.ask("minimise")
        self.copilot.await_text("area", "minimised")
        self.copilot.ask("command ShowWindow")
        self.copilot.await_text("area", lambda area: " " in area)
        self.assertIsNone(self.icon())
        self.copilot.ask("command HideWhenMinimisedMark")

        def choose_first():
            self.click(self.icon, 3)
            self.click(lambda: self.place_of(r'"quillon.exe".* \d+x\d+', 1000, 600), 1)

        for find in (lambda: self.click(self.icon, 1), choose_first,
                     lambda: self.world.start("Quillon.exe").wait(20)):
            wait_until("the icon", self.icon, 15)
            self.copilot.ask("minimise")
            self.copilot.await_text("area", "hidden")
            find()
            self.copilot.await_text("area", lambda area: " " in area, 15)
        self.copilot.ask("minimise")
        self.copilot.await_text("area", "hidden")
        self.copilot.ask("command mnuRange")  # a box shows it
        self.copilot.box("Reception")
        self.copilot.await_text("area", lambda area: " " in area)
        self.copilot.box("Reception", press="IDCANCEL")

    def test_6_it_starts_minimised_and_all_is_remembered(self):
        for mark in ("OnTopMark", "StartMinimisedMark"):
            self.copilot.ask(f"command {mark}")
        wait_until("the marks", lambda: all(self.remembered()[key] == "yes" for key in MARKS.values()), 10)
        self.end_quillon()
        self.world.quillon = self.world.start("Quillon.exe")
        self.copilot.await_text("title", lambda title: title.endswith("-OK"), 30)
        self.copilot.await_text("area", "hidden")
        self.click(self.icon, 1)
        self.copilot.await_text("area", lambda area: " " in area)

    def test_7_the_volume_takes_keys_and_shows_a_tip(self):
        self.make_compact()
        # Tab mutes as well, for it is the mute key; Escape leads back, and that writes the file.
        self.press_until(lambda: self.remembered()["volume"] == "90", *[TAB] * 4, DOWN, DOWN, ESCAPE)
        self.assertRegex(self.screen("xwininfo", "-root", "-tree"), r'"quillon.exe".* \d\dx[12]\d\+')
