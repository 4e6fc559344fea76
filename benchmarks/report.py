#!/usr/bin/env python3
"""Puts what was measured beside its peers, as a table on the screen and in docs/performance.md.

Usage: report.py PORTABLE.json PROGRAM.json
"""
import json
import os
import sys
import time
from pathlib import Path

DOCUMENT = Path(__file__).resolve().parents[1] / "docs" / "performance.md"
START, END = "<!-- measured -->\n", "<!-- /measured -->\n"


def medians(path):
    """Medians of the processor times, and the counters, by the benchmarks' names."""
    rows = [row for row in json.loads(Path(path).read_text())["benchmarks"] if row["aggregate_name"] == "median"]
    return {row["run_name"]: row for row in rows}


def portable_rows(results):
    def row(what, ours, peer, most):
        mine, other = results[ours], results[peer]
        unit = mine["time_unit"]
        return (what, f"{mine['cpu_time']:.3g} {unit}", f"{peer.split('/')[1]} {other['cpu_time']:.3g} {unit}",
                mine["cpu_time"] / other["cpu_time"], most)

    yield row("geodesic inverse, 100,000 pairs", "geodesic/Quillon", "geodesic/GeographicLib", 0.5)
    yield row("the same", "geodesic/Quillon", "geodesic/PROJ", 0.5)
    difference = max(results[f"geodesic/{name}"]["difference_mm"] for name in ("GeographicLib", "PROJ"))
    yield "largest difference from either", f"{difference:.2g} mm", "-", difference, 1
    yield row("nearest of 200 airports", "nearest/Quillon", "nearest/GeographicLib", 0.5)
    for count in (1000, 10000, 100000):
        yield row(f"loading {count:,} feeds", f"catalogue/Quillon/{count}", f"catalogue/sqlite3/{count}", 0.5)
    for fewer, more in ((1000, 10000), (10000, 100000)):
        times = [results[f"catalogue/Quillon/{count}"]["cpu_time"] for count in (fewer, more)]
        yield f"time from {fewer:,} to {more:,} feeds", f"{times[1] / times[0]:.3g} times", "10 times the lines", \
            times[1] / times[0] / 10, 1
    size = results["catalogue/Quillon/100000"]["bytes_per_feed"]
    yield "memory of a feed", f"{size:.0f} bytes", "-", size, 400
    yield row("sorting 100,000 rows", "sort/Quillon", "sort/stable_sort", 1.3)
    yield row("searching 100,000 rows, in vain", "search/Quillon", "search/find_if", 1.3)
    air, inverses = results["on the air/Quillon"]["cpu_time"], results["on the air/GeographicLib"]["cpu_time"]
    yield "renewing \"On the air\", 100,000 feeds, 6,000 airports", f"{air:.3g} ms", \
        f"GeographicLib, inverses to all {inverses:.3g} ms", air, 5
    yield row("a quiet tick, simulator in a process of its own", "tick/Quillon", "tick/link calls", 1.2)
    yield row("a quiet tick, link that costs nothing", "free tick/Quillon", "free tick/link calls", 1.2)
    for end in ("found", "not found"):
        time_us = results[f"airport/{end}"]["cpu_time"]
        yield f"distance, airport {end} in 50,000 lines", f"{time_us:.2g} us", "-", time_us, 20


def program_rows(results):
    def row(what, ours, peer_text, peer, most, unit="s"):
        return what, f"{results[ours]:.3g} {unit}", f"{peer_text} {peer:.3g} {unit}", results[ours] / peer, most

    bound = results["mpv opens"] + 0.6
    yield row("from the simulator's frequency to sound", "tune", "mpv, half a tick and hand-shake", bound, 1)
    yield row("processor, 60 s of a 64 kbit/s feed", "Quillon cpu", "mpv", results["mpv cpu"], 0.5)
    own = "Quillon cpu without Wine's sound driver"
    results[own] = results["Quillon cpu"] - results["Wine's sound driver cpu"]
    yield row("the same without the threads of Wine's sound driver", own, "mpg123", results["mpg123 cpu"], None)
    yield "wineserver, for all programs in that prefix", f"{results['wineserver cpu']:.3g} s", "-", None, None
    yield row("private memory, playing", "Quillon memory", "mpv", results["mpv memory"], 0.5, "MB")
    yield row("the same", "Quillon memory", "mpg123", results["mpg123 memory"], None, "MB")
    more = (results["start"] - results["empty start"]) * 1000
    yield "start to window, more than an empty program's", f"{more:.0f} ms", \
        f"empty program {results['empty start'] * 1000:.0f} ms", more, 150
    yield "stripped Quillon.exe", f"{results['exe size']:.3g} MB", "-", results["exe size"], 1.5


def line(row):
    what, ours, peer, value, most = row
    reached = "" if most is None else "yes" if value <= most else "**no**"
    shown, limit = ("" if number is None else f"{number:.3g}" for number in (value, most))
    return f"| {what} | {ours} | {peer} | {shown} | {limit} | {reached} |"


def machine():
    text = Path("/proc/cpuinfo").read_text()
    model = next(line.split(":")[1].strip() for line in text.splitlines() if line.startswith("model name"))
    load = os.getloadavg()[1]
    return f"{time.strftime('%Y-%m-%d')}, {os.cpu_count()} x {model}, Debian 12, Wine 8; load of the machine {load:.1f}."


def main():
    rows = [*portable_rows(medians(sys.argv[1])), *program_rows(json.loads(Path(sys.argv[2]).read_text()))]
    head = ["| what | Quillon | beside it | ratio, or figure | at most | reached |", "|---|---|---|---|---|---|"]
    table = "\n".join([machine(), "", *head, *map(line, rows)]) + "\n"
    print(table)
    before, rest = DOCUMENT.read_text().split(START)
    DOCUMENT.write_text(before + START + table + END + rest.split(END)[1])


if __name__ == "__main__":
    main()
