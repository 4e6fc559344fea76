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
    """The command with numbers in place of names."""
    return re.sub(r"\b[A-Za-z]\w+", lambda found: str(IDS.get(found[0], found[0])), command)
