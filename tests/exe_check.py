"""Reads the headers and imports of a built Quillon.exe: what it loads before its first line can run."""
import re
import subprocess
import sys
import unittest

# Windows takes these from its own folder whatever lies beside the program; comctl32, too, as the manifest names it.
KNOWN = {"advapi32.dll", "comctl32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll",
         "shell32.dll", "user32.dll", "ws2_32.dll"}
MOST_BYTES = 1_500_000
EXE = sys.argv.pop(1)


class Exe(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        tool = "x86_64-w64-mingw32-objdump"
        cls.headers = subprocess.run([tool, "-p", EXE], check=True, capture_output=True, text=True).stdout
        with open(EXE, "rb") as file:
            cls.content = file.read()

    def test_nothing_that_lies_beside_it_is_loaded_at_its_start(self):
        imported = {name.lower() for name in re.findall(r"DLL Name: (\S+)", self.headers)}
        self.assertEqual(imported - KNOWN, set())
        self.assertIn("SetDefaultDllDirectories", self.headers)

    def test_its_headers_ask_for_windows_10_and_every_protection(self):
        for line in ("MajorSubsystemVersion\t10", "MajorOSystemVersion\t10", "HIGH_ENTROPY_VA", "DYNAMIC_BASE",
                     "NX_COMPAT"):
            self.assertIn(line, self.headers)

    def test_it_notices_a_smashed_stack_and_an_index_out_of_bounds(self):
        for text in (b"stack smashing detected", b"__n < this->size()"):
            self.assertIn(text, self.content)

    def test_it_stays_small(self):
        self.assertLess(len(self.content), MOST_BYTES)


if __name__ == "__main__":
    unittest.main()
