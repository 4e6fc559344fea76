#!/usr/bin/env python3
"""Runs clang-tidy over src and practice. The native and the windows build folder must have been configured.

Nearly all of its time goes to the standard headers, so the files of a folder are read as one translation unit. If
that finds something, or does not compile because two files use the same name, each half is tried on its own.

Usage: check-tidy.py CLANG-TIDY
"""
import json
import os
import subprocess
import sys
from collections import defaultdict
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from tempfile import TemporaryDirectory

ROOT = Path(__file__).resolve().parents[1]


def run(build, file, *options):
    """Returns what clang-tidy finds in the file; the folder `build` holds the command that compiles it."""
    # clang does not know every warning of GCC.
    command = [sys.argv[1], "-p", build, "--quiet", "--extra-arg=-Wno-unknown-warning-option", *options, file]
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    return result.stdout if result.returncode else ""


def check_together(entries, options):
    with TemporaryDirectory(dir=ROOT / "build") as folder:
        unit = Path(folder) / "unit.cpp"
        unit.write_text("".join(f'#include "{entry["file"]}"\n' for entry in entries))
        command = {**entries[0], "file": str(unit), "command": entries[0]["command"].replace(entries[0]["file"], str(unit))}
        (Path(folder) / "compile_commands.json").write_text(json.dumps([command]))
        return run(folder, unit, "--checks=-bugprone-suspicious-include", *options)


def check(build, entries, options):
    if len(entries) == 1:
        return run(build, entries[0]["file"], *options)
    if not check_together(entries, options):
        return ""
    middle = len(entries) // 2
    return check(build, entries[:middle], options) + check(build, entries[middle:], options)


def check_build(preset, rooms, *options):
    build, folders = ROOT / "build" / preset, defaultdict(list)
    for entry in json.loads((build / "compile_commands.json").read_text()):
        if entry["file"].endswith(".cpp") and entry["file"].startswith(tuple(f"{ROOT}/{room}/" for room in rooms)):
            folders[Path(entry["file"]).parent].append(entry)
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        largest_first = sorted(folders.values(), key=len, reverse=True)
        return "".join(pool.map(lambda entries: check(build, entries, options), largest_first))


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    # clang reads the cross compiler's commands but has to be told where its C++ headers are.
    headers = subprocess.check_output(["x86_64-w64-mingw32-g++-posix", "-print-file-name=include/c++"], text=True).strip()
    findings = check_build("native", ["src"])
    findings += check_build("windows", ["src/win32", "practice"], f"--extra-arg=-isystem{headers}",
                            f"--extra-arg=-isystem{headers}/x86_64-w64-mingw32")
    sys.exit(findings or 0)


if __name__ == "__main__":
    main()
