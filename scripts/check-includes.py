#!/usr/bin/env python3
"""Checks our includes: arrows between rooms point down, <windows.h> stays in its rooms, modules form no circle."""
import re
import sys
from graphlib import CycleError, TopologicalSorter
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
# Rooms of one floor do not include each other; above win32/system stand two towers.
ORDER = ("runtime < state < ports < radio < settings simlink catalogue geo player < playback < app < win32/system",
         "win32/system < win32/net < win32/sound < win32",
         "win32/system < win32/window < win32/print < win32")
WITH_WINDOWS = ("src/win32/", "practice/", "benchmarks/EmptyWindow.cpp")


def rooms_below():
    """Each room with all those that it may include."""
    below = {"runtime": set()}
    for chain in ORDER:
        floors = [floor.split() for floor in chain.split(" < ")]
        for lower, upper in zip(floors, floors[1:]):
            for room in upper:
                below.setdefault(room, set()).update(lower, *(below[other] for other in lower))
    return below


def room_of(path):
    top, *rest = path.split("/")[:-1]
    return "/".join([top, *rest[:1]]) if top == "win32" else top


def faults_of(name, included, below):
    """Faults of one file and what it includes, both as paths from the root and from src."""
    if "windows.h" in map(str.lower, included) and not name.startswith(WITH_WINDOWS):
        yield f"{name}: only {', '.join(WITH_WINDOWS)} include <windows.h>"
    if not name.startswith("src/"):
        return
    room = room_of(name.removeprefix("src/"))
    if room not in below:
        yield f"{name}: the room {room} has no place in ORDER"
    for header in included:
        if (ROOT / "src" / header).exists():
            other = room_of(header)
            if other != room and other not in below.get(room, ()):
                yield f"{name}: {room} must not include {header}"
        elif (ROOT / name).parent.joinpath(header).exists():
            yield f"{name}: write the path of {header} from src"


def main():
    below, modules, faults = rooms_below(), {}, []
    files = [path for folder in ("src", "practice", "benchmarks", "tests") for path in (ROOT / folder).rglob("*")]
    for path in sorted(path for path in files if path.suffix in (".h", ".cpp")):
        name = path.relative_to(ROOT).as_posix()
        included = re.findall(r'^\s*#\s*include\s*[<"]([^">]+)[">]', path.read_text("utf-8"), re.MULTILINE)
        faults += faults_of(name, included, below)
        module = name.removeprefix("src/").rpartition(".")[0]
        modules.setdefault(module, set()).update({other.rpartition(".")[0] for other in included} - {module})
    try:
        TopologicalSorter(modules).prepare()
    except CycleError as circle:
        faults.append("A circle of modules: " + " < ".join(circle.args[1]))
    sys.exit("\n".join(faults) or 0)


if __name__ == "__main__":
    main()
