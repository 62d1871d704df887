#!/usr/bin/env python3
"""Builds the factory catalogues of data/ from the source tables in catalogues/.

catalogues/catalogues.json names the catalogues (base, title), the series
choice files and the per-refrigerant compressor lists; catalogues/<BASE>.csv
holds the articles, one row each: the slot, the series name, then the record
fields by number (a header "17 r1" is field 17). Writes for every catalogue
<BASE>N.rdm (900 records of 570 bytes), <BASE>I.rdm (18 series names of 128
bytes) and <BASE>A.rdm (six texts of 128 bytes per group), and katalg.lst,
AddrNeu.LST, Sole.LST and <REFRIGERANT>.LST.

    python3 tools/make_catalogues.py [--out data]
"""
import argparse
import csv
import json
import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
SLOT_CODES = [250, 200, 300, 350, 50, 500, 600, 700, 400, 150, 0, 450, 100, 550, 650, 750, 800, 850]
FIELDS = [(0, 40), (40, 5), (45, 15), (60, 12), (72, 40), (112, 3), (115, 2), (117, 6), (123, 5), (128, 5),
          (133, 4), (137, 6), (143, 6), (149, 5), (154, 5), (159, 6), (165, 5), (170, 5), (175, 10)]
for block in range(5):  # accessory blocks: count, order number, type I, type II
    at = 185 + 77 * block
    FIELDS += [(at, 2), (at + 2, 15), (at + 17, 30), (at + 47, 30)]
RECORD, TEXT = 570, 128
VERSION_MARK = b"\xa7$2000%&"
# The letters of the old DOS code page that the program maps on reading;
# everything else is Windows-1252.
DOS = {"ü": 129, "ä": 132, "Ä": 142, "ö": 148, "Ö": 153, "Ü": 154, "ß": 225, "°": 248}


def oem(text):
    out = bytearray()
    for ch in text:
        if ch in DOS:
            out.append(DOS[ch])
        else:
            out += ch.encode("cp1252")
    return bytes(out)


def record(fields, where):
    r = bytearray(b" " * RECORD)
    for number, text in fields.items():
        offset, length = FIELDS[number - 1]
        b = oem(text)
        if len(b) > length:
            sys.exit(f"{where}: field {number} '{text}' is longer than {length}")
        r[offset:offset + len(b)] = b
    return bytes(r)


def text_record(text, where):
    b = oem(text)
    if len(b) > TEXT:
        sys.exit(f"{where}: text longer than {TEXT}")
    return b + b" " * (TEXT - len(b))


def write(path, content):
    tmp = path + ".tmp"
    with open(tmp, "wb") as f:
        f.write(content)
    os.replace(tmp, path)


def delimited(rows):
    def item(v):
        return str(v) if isinstance(v, int) else '"' + str(v) + '"'
    return "".join(",".join(item(v) for v in row) + "\r\n" for row in rows).encode("utf-8")


def kind_of(base):
    return {"EX": 1, "KP": 2, "VD": 3, "KD": 4, "KA": 5, "MV": 7}.get(base[-2:].upper(), 0)


def build(out):
    with open(os.path.join(HERE, "catalogues", "catalogues.json"), encoding="utf-8") as f:
        source = json.load(f)
    positions = {}  # (base, series) -> record position of the series
    for cat in source["catalogues"]:
        base = cat["base"]
        records = [b" " * RECORD for _ in range(18 * 50)]
        names = [""] * 18
        rows_in_slot = [0] * 18
        with open(os.path.join(HERE, "catalogues", base + ".csv"), encoding="utf-8", newline="") as f:
            for n, row in enumerate(csv.DictReader(f), start=2):
                where = f"{base}.csv line {n}"
                slot = int(row["slot"])
                series = row["series"]
                if names[slot - 1] not in ("", series):
                    sys.exit(f"{where}: slot {slot} holds series '{names[slot - 1]}' already")
                names[slot - 1] = series
                fields = {int(k.split()[0]): v.strip() for k, v in row.items()
                          if k[0].isdigit() and v and v.strip()}
                r = rows_in_slot[slot - 1]
                if r >= 48:
                    sys.exit(f"{where}: more than 48 articles in slot {slot}")
                rows_in_slot[slot - 1] += 1
                position = SLOT_CODES[slot - 1] + 2
                positions[(base, series)] = position
                records[position + r - 1] = record(fields, where)
        kind = kind_of(base)
        records[0] = VERSION_MARK + records[0][len(VERSION_MARK):]
        records[50] = record({1: str(kind)}, base)
        write(os.path.join(out, base + "N.rdm"), b"".join(records))
        write(os.path.join(out, base + "I.rdm"), b"".join(text_record(n, base) for n in names))
        texts = [b" " * TEXT] * (18 * 6)
        for code, lines in cat.get("texts", {}).items():
            for i, line in enumerate(lines[:6]):  # the six texts of a group, in record order
                texts[int(code) // 50 * 6 + i] = text_record(line, base)
        write(os.path.join(out, base + "A.rdm"), b"".join(texts))
    write(os.path.join(out, "katalg.lst"),
          delimited([[c["base"] + "N.rdm", c["title"]] for c in source["catalogues"]]))
    for name in ("AddrNeu.LST", "Sole.LST"):
        rows = []
        for caption, base, series in source[name]:
            rows.append([caption, base + "N.rdm", positions[(base, series)]])
        if len(rows) != 18:
            sys.exit(f"{name}: 18 rows wanted, {len(rows)} given")
        write(os.path.join(out, name), delimited(rows))
    for refrigerant, series_list in source["compressor_lists"].items():
        rows = []
        for base, series in series_list:
            position = positions[(base, series)]
            rows.append([base + "N.rdm", series, (position - 2) // 50 * 66 + 2])
        write(os.path.join(out, refrigerant.upper() + ".LST"), delimited(rows))


if __name__ == "__main__":
    p = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    p.add_argument("--out", default=os.path.join(HERE, "..", "data"))
    build(p.parse_args().out)
