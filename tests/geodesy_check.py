"""The tables of ellipsoids and datums against those of PROJ, as far as PROJ has them."""
import re
import sqlite3
from pathlib import Path

SOURCE = (Path(__file__).resolve().parents[1] / "src/geo/Geodesy.cpp").read_text("utf-8")
ELLIPSOIDS = [(name, *map(float, figures)) for name, *figures in
              re.findall(r'\{"([^"]+)", ([\d.]+), ([\d.]+), ([\d.]+)\}', SOURCE)]
DATUMS = re.findall(r'\{"([^"]+)", (\d+)\}', SOURCE)
METRE, FLATTENING = 0.001, 1e-7
SAME_FAMILY = 0.2  # metres; the national variants of one ellipsoid
# Agreed otherwise here, or PROJ takes a national definition from another family.
DIFFERENT = {"Cape Canaveral", "Carthage", "Hong Kong 1963", "Schwarzeck", "Timbalai 1948"}

proj = sqlite3.connect("file:/usr/share/proj/proj.db?mode=ro", uri=True)
known = proj.execute("""SELECT semi_major_axis * conv_factor AS a, semi_minor_axis * conv_factor, inv_flattening, e.name
    FROM ellipsoid e JOIN unit_of_measure u ON u.auth_name = uom_auth_name AND u.code = uom_code""").fetchall()
shapes = [(a, b or a - a / inverse, inverse or (a / (a - b) if a != b else 0)) for a, b, inverse, _ in known if b or inverse]
axes = {name: a for a, _, _, name in known}
datums = proj.execute("""WITH named AS (SELECT name, auth_name, code FROM geodetic_datum UNION
        SELECT alt_name, auth_name, code FROM alias_name WHERE table_name = 'geodetic_datum')
    SELECT named.name, e.name FROM named JOIN geodetic_datum d USING (auth_name, code)
    JOIN ellipsoid e ON e.auth_name = ellipsoid_auth_name AND e.code = ellipsoid_code""").fetchall()


def plain(name):
    return re.sub(r"[^a-z0-9]", "", name.lower())


faults = [f"no ellipsoid of PROJ is {name}" for name, *wanted in ELLIPSOIDS
          if not any(all(abs(x - y) < most for x, y, most in zip(wanted, shape, (METRE, METRE, FLATTENING))) for shape in shapes)]
compared = [(name, ELLIPSOIDS[int(number) - 1], {axes[ellipsoid] for other, ellipsoid in datums if plain(other) == plain(name)})
            for name, number in DATUMS if name not in DIFFERENT]
faults += [f"{name} is not on {ellipsoid[0]}" for name, ellipsoid, theirs in compared
           if theirs and not any(abs(ellipsoid[1] - a) < SAME_FAMILY for a in theirs)]
print(f"{len(ELLIPSOIDS)} ellipsoids and {sum(bool(theirs) for *_, theirs in compared)} of {len(DATUMS)} datums compared")
raise SystemExit("\n".join(faults) or not compared)
