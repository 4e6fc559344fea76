"""The numbers of Quillon's controls and commands, by the names that its headers give them."""
import re
from pathlib import Path

SRC = Path(__file__).resolve().parents[2] / "src"
HEADERS = [*sorted(SRC.glob("win32/**/*Ids.h")), SRC / "app/Commands.h"]

IDS = {"IDOK": 1, "IDCANCEL": 2, "IDYES": 6, "IDNO": 7}
for header in HEADERS:
    named = re.findall(r"^\s*(?:#define\s+)?(\w+)(?: = | )(\d+)\b", header.read_text("utf-8"), re.MULTILINE)
    IDS.update((name, int(number)) for name, number in named)


def numbered(command):
    """The command with numbers in place of names; IDC_KIND1+2 is the second after IDC_KIND1."""
    return re.sub(rf"\b({'|'.join(IDS)})\b(?:\+(\d+))?", lambda found: str(IDS[found[1]] + int(found[2] or 0)), command)
