#!/usr/bin/env python3
"""Shows that taking the index away gives a document back, and that indexing twice is indexing once.

round_trip.py [--jobs N] [--tracked] [--pass quoted|capitals|words]... KELVARIN FILE-OR-FOLDER...

Each file is indexed three times: with the default settings, with the search for capitalised words, and with its three
commonest words as terms, since most files hold no quotes; --tracked lets each file track its changes first. After "remove" the canonical XML of every part has to equal the
original's, and every other part its bytes; a second "index" has to give the first one's document. The table at the end
says for each way how many files were indexed at all, how many of those were marked, came back, and were the same when
indexed again. Files that the program refuses are listed with its reason. Exit status 1 when anything differs.
"""

import argparse
import concurrent.futures
import io
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import zipfile
import zlib
from collections import Counter
from xml.etree import ElementTree

PASSES = ("quoted", "capitals", "words")
COLUMNS = ("files", "refused", "no terms", "indexed", "marked", "came back", "same again")
DOCUMENTS = {".docx", ".docm", ".dotx", ".dotm"}


def content_of(package, path, name):
    """A part's bytes; those of one whose checksum is wrong too."""
    try:
        return package.read(name)
    except (zipfile.BadZipFile, zlib.error, NotImplementedError):
        info = package.getinfo(name)
        with open(path, "rb") as file:
            file.seek(info.header_offset + 26)
            lengths = file.read(4)
            file.seek(int.from_bytes(lengths[:2], "little") + int.from_bytes(lengths[2:], "little"), 1)
            return file.read(info.compress_size)


def parts(path):
    with zipfile.ZipFile(path) as package:
        for name in package.namelist():
            content = content_of(package, path, name)
            if name.endswith((".xml", ".rels")):
                try:
                    content = ElementTree.canonicalize(from_file=io.BytesIO(content), with_comments=True).encode()
                except ElementTree.ParseError:
                    pass
            yield name, content


def difference(first, second):
    a, b = dict(parts(first)), dict(parts(second))
    for name in sorted(a.keys() | b.keys()):
        if a.get(name) == b.get(name):
            continue
        if name not in a or name not in b:
            return f"{name} is only in one of them"
        x, y = a[name].decode("utf8", "replace"), b[name].decode("utf8", "replace")
        at = next((i for i in range(min(len(x), len(y))) if x[i] != y[i]), min(len(x), len(y)))
        return f"{name} differs at {at}:\n    {x[max(0, at - 60):at + 120]!r}\n    {y[max(0, at - 60):at + 120]!r}"
    return None


class Runner:
    def __init__(self, program, folder):
        self.program = program
        self.folder = pathlib.Path(folder)

    def __call__(self, command, source, target, *options):
        settings = self.folder / "kvx.ini"
        settings.unlink(missing_ok=True)
        # Tracked changes of two runs have one date.
        return subprocess.run([self.program, command, str(source), "-o", str(target), "--force", "--quiet", "--settings",
                               str(settings), *options], capture_output=True, text=True, check=False,
                              env={**os.environ, "SOURCE_DATE_EPOCH": "1767323045"})

    def inspect(self, path):
        result = subprocess.run([self.program, "inspect", str(path)], capture_output=True, text=True, check=False)
        return json.loads(result.stdout) if result.returncode == 0 else None


def common_words(run, path):
    shown = run.inspect(path)
    words = Counter()
    for story in shown["stories"] if shown else []:
        if story["type"] < 4:
            words.update(re.findall(r"[^\W\d_]{2,}", story["text"]))
    return [word for word, _ in words.most_common(3)]


def options_of(run, way, path):
    """The options of a way to index; None where it does not fit the file."""
    if way == "quoted":
        return ["--search", "quoted"]
    if way == "capitals":
        return ["--search", "capitals"]
    words = common_words(run, path)
    # A search for quoted terms would refuse the file whose quotes do not pair up.
    return ["--search", "capitals", "--only-added"] + [option for word in words for option in ("--add", word)] if words else None


def check(run, path, name, way, tally, lines):
    tally["files"] += 1
    first, second, back = (run.folder / name for name in ("first.docx", "second.docx", "back.docx"))
    options = options_of(run, way, path)
    if options is None:
        tally["no terms"] += 1
        return True
    indexed = run("index", path, first, *options)
    if indexed.returncode == 1 and ("nothing was indexed" in indexed.stderr or "o defined terms" in indexed.stderr):
        tally["no terms"] += 1
        return True
    if indexed.returncode != 0:
        tally["refused"] += 1
        lines.append(f"{name}: {way}: refused: {indexed.stderr.strip()}")
        return True
    tally["indexed"] += 1
    tally["marked"] += bool(run.inspect(first)["entries"])
    removed = run("remove", first, back)
    found = difference(path, back) if removed.returncode == 0 else removed.stderr.strip()
    if found:
        lines.append(f"{name}: {way}: remove: {found}")
    else:
        tally["came back"] += 1
    again = run("index", first, second, *options)
    differs = difference(first, second) if again.returncode == 0 else again.stderr.strip()
    if differs:
        lines.append(f"{name}: {way}: index again: {differs}")
    else:
        tally["same again"] += 1
    return not found and not differs


def track_changes(path, folder):
    """A copy of the file that tracks its changes; the file itself where it has no settings."""
    copy = folder / "tracked.docx"
    found = False
    try:
        with zipfile.ZipFile(copy, "w", zipfile.ZIP_DEFLATED) as package:
            with zipfile.ZipFile(path) as original:
                for name in dict.fromkeys(original.namelist()):
                    content = original.read(name)
                    if name == "word/settings.xml":
                        opening = re.search(rb"<(\w+:)?settings\b[^>]*[^/>]>", content)
                        if opening:
                            mark = b"<" + (opening[1] or b"") + b"trackRevisions/>"
                            content = content[:opening.end()] + mark + content[opening.end():]
                            found = True
                    package.writestr(name, content)
    except (OSError, zipfile.BadZipFile, zlib.error, NotImplementedError, RuntimeError, KeyError):
        return path
    return copy if found else path


def check_file(program, path, ways, tracked):
    tallies, lines, good = {way: Counter() for way in ways}, [], True
    with tempfile.TemporaryDirectory() as folder:
        run = Runner(program, folder)
        original = track_changes(path, run.folder) if tracked else path
        for way in ways:
            good &= check(run, original, path, way, tallies[way], lines)
    return tallies, lines, good


def is_offered(program, way):
    """Whether the program knows the way: the search for capitalised words came later than the other."""
    if way != "capitals":
        return True
    result = subprocess.run([program, "terms", "no such file", "--search", way], capture_output=True, check=False)
    return result.returncode != 2


def find_documents(arguments):
    for argument in map(pathlib.Path, arguments):
        if argument.is_dir():
            yield from (path for path in sorted(argument.rglob("*")) if path.suffix.lower() in DOCUMENTS)
        else:
            yield argument


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("files", nargs="+")
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--tracked", action="store_true")
    parser.add_argument("--pass", dest="ways", action="append", choices=PASSES)
    arguments = parser.parse_args()
    ways = [way for way in arguments.ways or PASSES if is_offered(arguments.program, way)]
    tallies, good = {way: Counter() for way in ways}, True
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as workers:
        for file_tallies, lines, file_good in workers.map(
                lambda path: check_file(arguments.program, path, ways, arguments.tracked), find_documents(arguments.files)):
            for way in ways:
                tallies[way].update(file_tallies[way])
            good &= file_good
            for line in lines:
                print(line)
    print(f"{'':10}" + "".join(f"{name:>12}" for name in COLUMNS))
    for way in ways:
        print(f"{way:10}" + "".join(f"{tallies[way][name]:>12}" for name in COLUMNS))
    sys.exit(0 if good else 1)


if __name__ == "__main__":
    main()
