#!/usr/bin/env python3
"""Shows that taking the index away gives a document back, and that indexing twice is indexing once.

round_trip.py KELVARIN FILE.docx...

Each file is indexed with the default settings, and once more with its three commonest words as terms. After "remove" the
canonical XML of every part has to equal the original's, and every other part its bytes; a second "index" has to give the
first one's document. Files that the program refuses are listed and left out. Exit status 1 when anything differs.
"""

import io
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import zipfile
from collections import Counter
from xml.etree import ElementTree


def parts(path):
    with zipfile.ZipFile(path) as package:
        for name in package.namelist():
            content = package.read(name)
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
        return subprocess.run([self.program, command, str(source), "-o", str(target), "--force", "--quiet", "--settings",
                               str(settings), *options], capture_output=True, text=True, check=False)


def common_words(program, path):
    result = subprocess.run([program, "inspect", str(path)], capture_output=True, text=True, check=False)
    if result.returncode != 0:
        return []
    words = Counter()
    for story in json.loads(result.stdout)["stories"]:
        if story["type"] < 4:
            words.update(re.findall(r"[^\W\d_]{2,}", story["text"]))
    return [word for word, _ in words.most_common(3)]


def check(run, path, options, tally):
    first, second, back = (run.folder / name for name in ("first.docx", "second.docx", "back.docx"))
    indexed = run("index", path, first, *options)
    if indexed.returncode != 0:
        tally["refused"] += 1
        if indexed.returncode != 1 or "No terms" not in indexed.stderr:
            print(f"{path}: {indexed.stderr.strip()}")
        return True
    tally["indexed"] += 1
    removed = run("remove", first, back)
    if removed.returncode != 0:
        print(f"{path}: remove: exit {removed.returncode}: {removed.stderr.strip()}")
        return False
    found = difference(path, back)
    if found:
        print(f"{path}: remove: {found}")
        return False
    tally["came back"] += 1
    again = run("index", first, second, *options)
    found = difference(first, second) if again.returncode == 0 else again.stderr.strip()
    if found:
        print(f"{path}: index again: {found}")
        return False
    tally["same again"] += 1
    return True


def main():
    tally, good = Counter(), True
    with tempfile.TemporaryDirectory() as folder:
        run = Runner(sys.argv[1], folder)
        for path in sys.argv[2:]:
            good &= check(run, path, [], tally)
            words = common_words(sys.argv[1], path)
            if words:
                good &= check(run, path, ["--only-added"] + [o for w in words for o in ("--add", w)], tally)
    print(", ".join(f"{name} {number}" for name, number in tally.items()))
    sys.exit(0 if good else 1)


if __name__ == "__main__":
    main()
