"""The list on paper: printed by the real Quillon.exe through the system's print dialog, read back as PDF."""
import re
import subprocess

from session import Session
from world.printing import PrintServer

COLUMN = 559 / 120  # points: A4 within this printer's margins of 18 points


class Printing(Session):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.printer = PrintServer(cls.world)
        cls.world.start_simulator()

    def show(self, rows):
        waves = rf"C:\users\{self.data.parts[-4]}\AppData\Roaming\Quillon\ATC\CYYZ_T|"
        lines = ["// CYYZ|Wav - Toronto ON - Tower Pearson Intl|" + waves]  # so that Quillon adds no rows of its own
        lines += [f"Q{row:03}|Zürich, Łódź|http://Feed/{'x' * row}|{100 + row / 100:.2f}" for row in range(rows)]
        (self.data / "live_atc_feeds.txt").write_bytes("".join(line + "\r\n" for line in lines).encode())
        self.world.start_quillon()
        self.addCleanup(self.end_quillon)

    def print_list(self, outcome):
        self.copilot.ask("command mnuPrint")
        self.copilot.box("Print Listing|The List will print as", press="IDYES")
        self.copilot.await_text("boxes", lambda text: text.startswith(outcome), 20)
        self.copilot.ask("press IDOK")

    def check(self, pdf, rows, total):
        text, boxes = (subprocess.check_output(["pdftotext", option, pdf, "-"], text=True, encoding="utf-8")
                       for option in ("-layout", "-bbox"))
        pages = text.split("\f")[:-1]
        printed = [[int(row) for row in re.findall(r"Q(\d+) +Zürich, Łódź ", page)] for page in pages]
        self.assertEqual(printed, [list(range(rows))[start:start + 55] for start in range(0, rows + 1, 55)])
        for number, page in enumerate(pages, 1):
            self.assertRegex(page, rf"Page: {number:02} of {total} +[A-Z][a-z]+ \d\d, \d{{4}} \S \d+:\d\d [AP]M")
        for what, column in (("Q\\d+", 8), ("Zürich,", 18), (r"\d+\.\d\d", 60), (r"\S+//\S+", 70), ("Page:", 55)):
            places = re.findall(rf'xMin="([\d.]+)" yMin="[\d.]+" xMax="[\d.]+" yMax="([\d.]+)">{what}<', boxes)
            self.assertEqual(len(places), len(pages) if what == "Page:" else rows)
            for left, bottom in places:
                self.assertAlmostEqual(float(left), 18 + (column - 1) * COLUMN, delta=1.5, msg=what)
                self.assertLess(float(bottom), 842 - 36)

    def test_pages_rows_and_columns(self):
        for rows, total in ((0, 0), (55, 1), (63, 2), (100, 3)):
            self.show(rows)
            self.print_list("Print|")
            self.check(self.printer.next_pdf(), rows, total)
            self.doCleanups()

    def test_what_keeps_a_list_from_being_printed(self):
        self.show(20000)
        self.print_list("Print|")
        self.copilot.await_text("boxes", lambda text: re.fullmatch(r"Print Listing\|Printing page \d+ of 364", text))
        self.copilot.ask("press IDCANCEL")
        self.copilot.await_text("boxes", "")
        self.doCleanups()
        self.printer.run("lpadmin", "-x", self.printer.QUEUE)
        self.show(1)
        self.print_list(r"Print Data Errors|Choosing Printer\r\nError 482 There is no printer to print on.")
        self.copilot.await_text("boxes", "")
        self.assertEqual(self.printer.documents(), [])
