"""The list, manual mode and the preferences of the real Quillon.exe, driven by mouse and keyboard messages."""
import re

from session import Session
from world.feeds import FEEDS

TORONTO, LONDON, NEW_YORK = FEEDS
CONTROL, ENTER, ESCAPE, TAB, F3 = 17, 13, 27, 9, 0x72


class ByHand(Session):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start("--lat", "51.477", "--lon", "-0.461")

    def row_of(self, feed):
        numbers = range(1, int(self.copilot.ask("rows")) + 1)
        return next(number for number in numbers if f"|{feed.frequency}|" in self.copilot.ask(f"row {number}"))

    def answer(self, text):
        self.copilot.await_text("boxes", lambda boxes: boxes)
        self.copilot.ask(f"answer {text}")
        self.copilot.ask("press IDOK")
        self.copilot.await_text("boxes", lambda boxes: text not in boxes or "NOT FOUND" in boxes)

    def test_1_headers_sort(self):
        self.copilot.ask("header 3")
        self.copilot.await_text("row 1", lambda row: "|118.00|" in row)
        self.copilot.ask("header 3")
        self.copilot.await_text("row 1", lambda row: f"|{LONDON.frequency}|" in row)

    def test_4_the_keyboard_searches_on_and_picks(self):
        self.copilot.ask("click optManual")
        self.copilot.ask("command mnuSearch")
        self.answer("cyyz")  # the live feed
        self.copilot.ask(f"listkey {F3}")
        self.copilot.ask(f"listkey {ENTER}")
        self.copilot.await_text("panel 3", lambda text: text.startswith(f"{TORONTO.icao} - Wav"))

    def test_5_ctrl_and_a_double_click_tune_the_simulator(self):
        self.copilot.ask("click optAuto")
        self.copilot.await_text("panel 4", lambda text: text in ("*", "Selection Mode: Automatic"))
        self.copilot.ask(f"hold {CONTROL}")
        self.copilot.ask(f"rowdouble {self.row_of(LONDON)}")
        self.copilot.await_text("read 311C 4", "00001972")
        self.copilot.ask(f"release {CONTROL}")
        self.ear.await_(LONDON.icao)

    def test_5b_on_the_air_lists_tunes_and_plays(self):
        def await_first(feed, radio):
            self.copilot.await_text("row 1 IDC_AIR_LIST", lambda row: re.fullmatch(
                rf"0 NM\|\d{{3}}\|{feed.icao}\|{feed.city}\|{feed.frequency}\|{radio}", row))

        self.copilot.ask("command OnTheAir")
        await_first(LONDON, "Playing")
        self.copilot.ask("fly %s %s" % NEW_YORK.position)
        await_first(NEW_YORK, "")
        self.copilot.ask("rowdouble 1 IDC_AIR_LIST")
        self.copilot.await_text("read 311C 4", "00001910")
        self.ear.await_(NEW_YORK.icao)
        await_first(NEW_YORK, "Playing")
        self.copilot.ask("click optManual")
        self.copilot.ask("fly %s %s" % TORONTO.position)
        await_first(TORONTO, "")
        self.copilot.ask("middle IDC_AIR_PICTURE")  # the airport's dot is under the aircraft
        self.copilot.ask(f"key {ENTER}")
        self.ear.await_(TORONTO.icao)
        self.copilot.ask(f"key {ESCAPE}")
        self.copilot.await_text("boxes", "")
        self.copilot.ask("click optAuto")
        self.copilot.tune_at(LONDON)
        self.ear.await_(LONDON.icao)

    def test_6_the_range_reaches_label_and_sound(self):
        self.copilot.ask("fly 51.9 -0.461")  # 25 miles away
        self.copilot.ask("command mnuRange")
        self.answer("5")
        self.copilot.await_text("text IdLabel2", lambda text: text.endswith("NM (Out of Range)"))
        self.ear.await_("silence")
        self.copilot.ask("command mnuRange")
        self.answer("0")
        self.ear.await_(LONDON.icao)
        self.copilot.await_text("text IdLabel2", lambda text: text.endswith(" NM"))

    def test_7_radio_and_gaps_are_chosen_in_their_frames(self):
        self.copilot.ask("command mnuSelComm")
        self.copilot.await_text("visible optCom1", "1")
        self.copilot.ask("click optCom1")
        self.copilot.ask("tune com1 119.10")
        self.copilot.ask("fly %s %s" % NEW_YORK.position)
        self.ear.await_(NEW_YORK.icao)
        self.copilot.ask("click cmdComClose")
        self.copilot.await_text("visible optCom1", "0")
        self.copilot.ask("command mnuRecordedChatter")
        self.copilot.await_text("visible IdCboMin", "1")
        self.copilot.ask("pick IdCboMin 2")
        self.copilot.ask("pick IdCboMax 30")
        self.copilot.ask("click cmdClose2")
        self.copilot.await_text("visible IdCboMin", "0")

    def test_8_the_status_dialog_shows_the_link(self):
        self.copilot.ask("command mnuRecordedChatter")
        self.copilot.ask(f"key {TAB}")  # what loses the focus then says so while the dialog is being created
        self.copilot.ask("command mnuFSUPIC")
        self.copilot.box("Com1 Freq:      119.10", "FlightSim:  FSX", press="IDOK")
        self.assertEqual(self.copilot.ask("call-while-waiting"), "blocked")

    def test_9_a_restart_keeps_the_settings(self):
        self.copilot.ask("move QuillonMain 20 20 700 600")
        self.end_quillon()
        self.assertEqual((self.data / "Quillon.ini").read_bytes(), b" 0 \r\nCom1\r\n 7 \r\n 40 \r\n 9 \r\n")
        self.assertRegex((self.data / "Quillon.state").read_bytes(),
                         rb"volume=100\r\nuser-agent=\r\nwindow=700 600\r\ncolumns=700 3500 800 2400\r\n")
        self.world.start_quillon()
        for frame in ("mnuSelComm", "mnuRecordedChatter"):
            self.copilot.ask(f"command {frame}")
        self.copilot.await_text("text IdCboMin", "7")
        self.assertEqual(self.copilot.ask("text IdCboMax"), "40")
        self.assertEqual(self.copilot.ask("checked optCom1"), "1")
        self.ear.await_(NEW_YORK.icao)
