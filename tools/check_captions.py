#!/usr/bin/env python3
"""Checks the caption tables and help tables of the data directory against the
word lists of src/core/shell/caption_words.inc.

The program reads every table by position, so a word missing or added in one
file shifts all the words behind it. This check finds such a file before it is
shipped:

  * every list of caption_words.inc has valid, unique names, and Caption holds
    one unbroken run Msg01 .. Msg61 of the numbered messages;
  * VerbCapt has 24 words and DrawCap 22;
  * every table file <stem>.<LANG> is UTF-8 with CR LF line ends and holds
    exactly one title line plus one line per word of its list, none empty;
  * every language that ships Caption.<LANG> ships all tables and its help;
  * every help file Kelvhelp.<LANG> is a whole number of 128-byte records,
    each 126 bytes of UTF-8 text and CR LF, the first one a topic; all
    languages have the same number of topics, and each topic name is a word
    of that language's tables (the screens find their help topic by a word).

Usage: check_captions.py [repository root]   (default: the parent of tools/)
Exit status 0 when all is well, 1 otherwise.
"""
import os
import re
import sys

MACROS = {
    "KV_CAPTION": "Caption",
    "KV_VERB": "VerbCapt",
    "KV_HX": "HXCapt",
    "KV_AIRCO": "AirCoCap",
    "KV_ESIM": "ESimCap",
    "KV_DRAW": "DrawCap",
    "KV_PED": "PEDcap",
}
FIXED_COUNT = {"VerbCapt": 24, "DrawCap": 22}
MESSAGE_COUNT = 61
RECORD = 128
PRODUCT_NAME = "Kelvaris"

errors = []


def error(text):
    errors.append(text)


def read_lists(inc_path):
    """The names of each list of the include file, in order."""
    lists = {stem: [] for stem in MACROS.values()}
    entry = re.compile(r"^\s*(KV_[A-Z]+)\s*\(\s*([^)\s]*)\s*\)\s*(//.*)?$")
    with open(inc_path, encoding="utf-8") as f:
        for number, line in enumerate(f, start=1):
            text = line.strip()
            if not text or text.startswith("//"):
                continue
            m = entry.match(text)
            if not m or m.group(1) not in MACROS:
                error(f"{inc_path}:{number}: not a word entry: {text}")
                continue
            macro, name = m.group(1), m.group(2)
            if not re.fullmatch(r"[A-Za-z][A-Za-z0-9]*", name):
                error(f"{inc_path}:{number}: {name!r} is not a valid word name")
            lists[MACROS[macro]].append((name, number))
    return lists


def check_lists(lists):
    for stem, entries in lists.items():
        if not entries:
            error(f"list {stem} is empty")
        seen = {}
        for name, line in entries:
            if name in seen:
                error(f"list {stem}: {name} twice (lines {seen[name]} and {line})")
            seen[name] = line
        if stem in FIXED_COUNT and len(entries) != FIXED_COUNT[stem]:
            error(f"list {stem}: {len(entries)} words, must be {FIXED_COUNT[stem]}")

    names = [n for n, _ in lists["Caption"]]
    messages = [i for i, n in enumerate(names) if re.fullmatch(r"Msg\d+", n)]
    expected = [f"Msg{i:02d}" for i in range(1, MESSAGE_COUNT + 1)]
    if not messages:
        error("list Caption: no numbered messages Msg01 .. Msg61")
        return None
    run = [names[i] for i in range(messages[0], messages[0] + MESSAGE_COUNT) if i < len(names)]
    if run != expected or len(messages) != MESSAGE_COUNT:
        error("list Caption: the messages must be one unbroken run Msg01 .. Msg61 in order")
    return messages[0] + 2  # file line of Msg01


def split_lines(path, data):
    """The lines of a CR LF text file; errors for any other line end."""
    try:
        text = data.decode("utf-8")
    except UnicodeDecodeError as e:
        error(f"{path}: not UTF-8 ({e})")
        return None
    if text.startswith("\ufeff"):
        error(f"{path}: begins with a byte-order mark")
        text = text[1:]
    if not text.endswith("\r\n"):
        error(f"{path}: the last line does not end with CR LF")
    lines = text.split("\r\n")
    if lines and lines[-1] == "":
        lines.pop()
    for number, line in enumerate(lines, start=1):
        if "\r" in line or "\n" in line:
            error(f"{path}:{number}: a bare CR or LF inside the line")
    return lines


def check_table(path, names):
    with open(path, "rb") as f:
        lines = split_lines(path, f.read())
    if lines is None:
        return []
    if len(lines) != 1 + len(names):
        error(f"{path}: {len(lines)} lines, must be {1 + len(names)} (a title and {len(names)} words)")
    if lines and not lines[0].strip():
        error(f"{path}:1: the title line is empty")
    for number, line in enumerate(lines[1:], start=2):
        word = names[number - 2][0] if number - 2 < len(names) else "(past the list)"
        if not line.strip():
            error(f"{path}:{number}: empty word for {word}")
        elif line != line.strip():
            error(f"{path}:{number}: blanks around the word for {word}")
    return lines[1:]


def check_help(path):
    """The topic names of a help file."""
    with open(path, "rb") as f:
        data = f.read()
    topics = []
    if not data:
        error(f"{path}: empty")
        return topics
    if len(data) % RECORD:
        error(f"{path}: {len(data)} bytes, not a multiple of {RECORD}")
    for n in range(len(data) // RECORD):
        record = data[n * RECORD:(n + 1) * RECORD]
        where = f"{path}: record {n + 1}"
        if record[-2:] != b"\r\n":
            error(f"{where}: does not end with CR LF")
        body = record[:-2]
        if b"\r" in body or b"\n" in body:
            error(f"{where}: a line end inside the text")
        try:
            text = body.decode("utf-8").rstrip(" ")
        except UnicodeDecodeError:
            error(f"{where}: not UTF-8, or a character cut at the end")
            continue
        if n == 0 and not text.startswith("#"):
            error(f"{where}: the first record must open a topic with '#'")
        if text.startswith("#"):
            name = text[1:].strip()
            if not name:
                error(f"{where}: topic without a name")
            topics.append(name)
    return topics


def main():
    root = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), ".."))
    inc = os.path.join(root, "src", "core", "shell", "caption_words.inc")
    data = os.path.join(root, "data")

    lists = read_lists(inc)
    msg_line = check_lists(lists)

    files = os.listdir(data)
    by_lower = {f.lower(): f for f in files}
    languages = sorted({f.split(".", 1)[1] for f in files
                        if re.fullmatch(r"Caption\.[A-Za-z]{3}", f)})
    if not languages:
        error(f"{data}: no Caption.<LANG> file")

    help_topics = {}
    for lang in languages:
        words = set([PRODUCT_NAME])
        for stem, names in lists.items():
            name = by_lower.get(f"{stem}.{lang}".lower())
            if name is None:
                error(f"{data}: {stem}.{lang} missing")
                continue
            words.update(check_table(os.path.join(data, name), names))
        help_name = by_lower.get(f"kelvhelp.{lang}".lower())
        if help_name is None:
            error(f"{data}: Kelvhelp.{lang} missing")
            continue
        topics = check_help(os.path.join(data, help_name))
        help_topics[lang] = topics
        for t in topics:
            if t not in words:
                error(f"{help_name}: topic '{t}' is no word of the {lang} tables")

    # Tables or help of a language without Caption.<LANG> would never be read.
    stems = [s.lower() for s in MACROS.values()] + ["kelvhelp"]
    for f in files:
        stem, _, ext = f.partition(".")
        if stem.lower() in stems and re.fullmatch(r"[A-Za-z]{3}", ext) and ext not in languages:
            error(f"{data}: {f} has no Caption.{ext}")

    counts = {lang: len(t) for lang, t in help_topics.items()}
    if len(set(counts.values())) > 1:
        error(f"help files differ in their number of topics: {counts}")

    for stem, names in lists.items():
        print(f"{stem}: {len(names)} words")
    if msg_line:
        print(f"Caption: Msg01 is line {msg_line} of the file")
    print("languages: " + (", ".join(languages) if languages else "none"))
    for lang, topics in help_topics.items():
        print(f"Kelvhelp.{lang}: {len(topics)} topics")
    if errors:
        for e in errors:
            print("ERROR: " + e, file=sys.stderr)
        print(f"{len(errors)} error(s)", file=sys.stderr)
        return 1
    print("all caption and help tables agree with caption_words.inc")
    return 0


if __name__ == "__main__":
    sys.exit(main())
