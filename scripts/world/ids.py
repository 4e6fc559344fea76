"""The numbers of Quillon's controls and commands, by the names that its headers give them."""
import re
from pathlib import Path

SRC = Path(__file__).resolve().parents[2] / "src"
HEADERS = [*sorted(SRC.glob("win32/**/*Ids.h")), *SRC.glob("app/Commands.h")]
NAME = r"I[Dd](?:[A-Z]\w*|C_\w+)"


def read(text):
    """The numbers in a header of enumerators and #defines."""
    ids, number = {}, 0
    for name, value in re.findall(rf"^\s*(?:#define\s+)?({NAME})[\s=]*(\d*)\b", text, re.MULTILINE):
        number = int(value) if value else number + 1
        ids[name] = number
    return ids


IDS = {"IDOK": 1, "IDCANCEL": 2, "IDYES": 6, "IDNO": 7}
for header in HEADERS:
    IDS.update(read(header.read_text("utf-8")))


def numbered(command):
    """The command with numbers in place of names; IdOptCom1+3 is the third after IdOptCom1."""
    return re.sub(rf"\b({NAME})(?:\+(\d+))?\b", lambda found: str(IDS[found[1]] + int(found[2] or 0)), command)
