#!/usr/bin/env python3
"""Writes the factory pipe series of the data directory.

Each series is a list of (name, outside diameter mm, wall mm). From these the
script works out the inside diameter, the permitted pressure by the thin-wall
(Barlow) formula of EN 13480-3 with the material's allowable stress, the
assembly minutes per metre and the prices per metre. data/README.md explains
the figures. Run it from the repository root after changing a series:

  python3 tools/make_pipe_tables.py

Files are CR LF text, every item a quoted string, header "2008","7.01".
"""
import math
import os
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
DATA = os.path.join(ROOT, "data")

INCH = 25.4


def num(v, places=2):
    """Shortest text of a rounded value, point as decimal separator."""
    t = f"{v:.{places}f}".rstrip("0").rstrip(".")
    return t if t not in ("", "-0") else "0"


def pressure(da, s, f, z=1.0, tolerance=0.0):
    """Permitted pressure in bar gauge: p = 2 f z e / (da - e), e the wall less
    its negative tolerance; cut down to whole bar."""
    e = s * (1.0 - tolerance)
    return math.floor(20.0 * f * z * e / (da - e))


def weight(da, s, rho):
    di = da - 2 * s
    return rho * math.pi * (da * da - di * di) / 4e6  # kg/m


# Each series: file names, metal density, allowable stress, tolerance, joint
# factor, minutes per metre (a + b da), material price (euro per kg and a
# fixed part per metre), labour euro per minute.
SERIES = {
    "copper_mm": dict(rho=8940, f=62.9, z=1.0, tol=0.0, tmin=(8.0, 0.25), eur_kg=14.0, eur_m=0.0),
    "copper_inch": dict(rho=8940, f=62.9, z=1.0, tol=0.0, tmin=(8.0, 0.25), eur_kg=14.0, eur_m=0.0),
    "steel": dict(rho=7850, f=150.0, z=1.0, tol=0.125, tmin=(20.0, 0.35), eur_kg=3.5, eur_m=2.0),
    "k65": dict(rho=8910, f=66.0, z=1.0, tol=0.0, tmin=(10.0, 0.30), eur_kg=24.0, eur_m=0.0),
    "stainless": dict(rho=7900, f=147.0, z=0.85, tol=0.0, tmin=(25.0, 0.30), eur_kg=9.0, eur_m=1.0),
    "pe": dict(rho=960, f=8.0, z=1.0, tol=0.0, tmin=(10.0, 0.15), eur_kg=4.0, eur_m=1.0),
}
LABOUR_EUR_PER_MIN = 0.95  # 57 euro an hour

COPPER_MM = [  # EN 12735-1 sizes as stocked for refrigeration
    (6, 1), (8, 1), (10, 1), (12, 1), (15, 1), (16, 1), (18, 1), (22, 1), (28, 1), (35, 1.5),
    (42, 1.5), (54, 2), (64, 2), (76.1, 2), (88.9, 2.5), (108, 2.5)]

COPPER_INCH = [  # ASTM B280, inch OD and wall in inches
    ("1/4'", 0.250, 0.030), ("5/16'", 0.3125, 0.032), ("3/8'", 0.375, 0.030), ("1/2'", 0.500, 0.035),
    ("5/8'", 0.625, 0.040), ("3/4'", 0.750, 0.042), ("7/8'", 0.875, 0.045), ("1 1/8'", 1.125, 0.050),
    ("1 3/8'", 1.375, 0.055), ("1 5/8'", 1.625, 0.060), ("2 1/8'", 2.125, 0.070), ("2 5/8'", 2.625, 0.080),
    ("3 1/8'", 3.125, 0.090), ("3 5/8'", 3.625, 0.100), ("4 1/8'", 4.125, 0.110)]

STEEL = [  # EN 10220 outside diameters, EN 10216-2 standard walls
    (10, 17.2, 1.8), (15, 21.3, 2.0), (20, 26.9, 2.3), (25, 33.7, 2.6), (32, 42.4, 2.6), (40, 48.3, 2.6),
    (50, 60.3, 2.9), (65, 76.1, 2.9), (80, 88.9, 3.2), (100, 114.3, 3.6), (125, 139.7, 4.0),
    (150, 168.3, 4.5), (200, 219.1, 6.3), (250, 273.0, 6.3), (300, 323.9, 7.1)]

K65 = [  # CuFe2P high-pressure tube, inch outside diameters in mm
    (6.35, 0.65), (9.52, 0.85), (12.70, 1.10), (15.88, 1.35), (19.05, 1.60), (22.22, 1.90),
    (28.58, 2.40), (34.93, 2.90), (41.28, 3.40), (53.98, 4.45)]

STAINLESS = [  # EN ISO 1127 sizes, welded tube of 1.4307
    (17.2, 1.6), (21.3, 1.6), (26.9, 1.6), (33.7, 2.0), (42.4, 2.0), (48.3, 2.0), (60.3, 2.0),
    (76.1, 2.0), (88.9, 2.3), (114.3, 2.6), (139.7, 2.9), (168.3, 2.9), (219.1, 3.2)]

PE = [  # PE 100 SDR 11 for brine, ISO 4427 sizes
    (20, 2.0), (25, 2.3), (32, 2.9), (40, 3.7), (50, 4.6), (63, 5.8), (75, 6.8), (90, 8.2),
    (110, 10.0), (125, 11.4), (140, 12.7), (160, 14.6), (180, 16.4), (200, 18.2), (225, 20.5)]


def row(kind, name, da, s):
    p = SERIES[kind]
    di = da - 2 * s
    minutes = round(p["tmin"][0] + p["tmin"][1] * da)
    material = round(weight(da, s, p["rho"]) * p["eur_kg"] + p["eur_m"], 2)
    labour = round(minutes * LABOUR_EUR_PER_MIN, 2)
    total = round(material + labour, 2)
    pzul = pressure(da, s, p["f"], p["z"], p["tol"])
    spare1 = ".3" if da >= 18 else ""
    return [name, num(da), num(di), spare1, ".2", ".5", str(minutes), num(material), num(labour),
            num(total), str(pzul), "0", "0", "0", "0"]


def write(names, rows):
    text = '"2008","7.01"\r\n' + "".join(",".join(f'"{v}"' for v in r) + "\r\n" for r in rows)
    assert len(rows) <= 30
    for n in names:
        with open(os.path.join(DATA, n), "w", newline="", encoding="utf-8") as f:
            f.write(text)


def main():
    def mm(x):
        return round(x * INCH + 1e-9, 2)

    write(["RohrDM.DAT", "RohrDM.STD"],
          [row("copper_mm", f"{num(da, 1)} x {num(s, 1)}", da, s) for da, s in COPPER_MM])
    write(["RohrIN.DAT", "RohrIN.STD"],
          [row("copper_inch", n, mm(d), mm(s)) for n, d, s in COPPER_INCH])
    write(["RohrDS.DAT", "RohrDS.STD"],
          [row("steel", f"DN {dn} ({num(da, 1)} x {num(s, 1)})", da, s) for dn, da, s in STEEL])
    write(["RohrK65.DAT", "RohrK65.STD"],
          [row("k65", f"K65 {num(da)} x {num(s)}", da, s) for da, s in K65])
    write(["ROHRPI.DAT"], [row("stainless", f"SS {num(da, 1)} x {num(s, 1)}", da, s) for da, s in STAINLESS])
    write(["ROHRPII.DAT"], [row("pe", f"GF PE {int(da)} x {num(s, 1)}", da, s) for da, s in PE])
    write(["RohrUSER.DAT"], [])
    return 0


if __name__ == "__main__":
    sys.exit(main())
