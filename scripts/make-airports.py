#!/usr/bin/env python3
"""Makes an airport file for Quillon from the weather stations of Debian's weather-util-data.

Usage: make-airports.py OUTPUT
"""
import ast
import configparser
import gzip
import math
import re
import sys

STATIONS = "/usr/share/weather-util/stations.gz"

# Northway (Alaska) is listed on the eastern hemisphere, Fort Huachuca (Arizona) 16 degrees too far north.
MISPLACED = {"PAOR", "KFHU"}


def read_stations(path):
    """ICAO code and position (latitude, longitude in radians; None if unknown) of every station."""
    stations = configparser.ConfigParser(interpolation=None)
    with gzip.open(path, "rt", encoding="utf-8") as text:
        stations.read_file(text)
    for name in stations.sections():
        yield name.upper(), ast.literal_eval(stations[name].get("location", "None"))


def is_airport(icao, position):
    """Whether it has a four-character code and lies on the globe; 0, 0 stands for an unknown position."""
    if not re.fullmatch("[A-Z][A-Z0-9]{3}", icao) or icao in MISPLACED or position is None:
        return False
    latitude, longitude = position
    return abs(latitude) <= math.pi / 2 and abs(longitude) <= math.pi and (latitude, longitude) != (0, 0)


def coordinate(radians, letters, width):
    """Hemisphere, whole degrees, "*", minutes, "." and whole seconds, such as W073*46.00."""
    minutes, seconds = divmod(round(abs(math.degrees(radians)) * 3600), 60)
    degrees, minutes = divmod(minutes, 60)
    return f"{letters[radians < 0]}{degrees:0{width}}*{minutes:02}.{seconds:02}"


def airport_lines(stations):
    # Quillon never looks at the first line.
    yield "ICAO,latitude,longitude"
    for icao, position in sorted(station for station in stations if is_airport(*station)):
        latitude, longitude = position
        yield f"{icao},{coordinate(latitude, 'NS', 2)},{coordinate(longitude, 'EW', 3)}"


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with open(sys.argv[1], "w", encoding="ascii", newline="\r\n") as output:
        for line in airport_lines(read_stations(STATIONS)):
            print(line, file=output)


if __name__ == "__main__":
    main()
