#!/usr/bin/env python3
"""Counts the occurrences of terms in the plain text of .docx files, without the program's own code, and compares.

count_occurrences.py KELVARIN FILE.docx...

Each file is indexed with the default settings. For every chosen term the marks that the program reports, the entries in
the result and the occurrences counted here have to be the same number. An occurrence is a whole word sequence in the main text, a
footnote or an endnote, outside of fields, tracked deletions, hidden text and text boxes; it belongs to the longest
term at its place. Straight and curly quotation marks and apostrophes are the same. Exit status 1 when a number differs.
"""

import json
import pathlib
import posixpath
import re
import subprocess
import sys
import tempfile
import unicodedata
import zipfile
from collections import Counter
from xml.etree import ElementTree

BARRIER = "\n"  # nothing runs across it


def local(element):
    return element.tag.rpartition("}")[2] if isinstance(element.tag, str) else ""


def value(element, name):
    return next((v for k, v in element.attrib.items() if k.rpartition("}")[2] == name), "")


class Text:
    """The text of a story with fields taken out: those without a result are nothing, others are a barrier."""

    def __init__(self):
        self.parts = []
        self.open = []  # per open field: whether its result has begun

    def add(self, text):
        if not self.open:
            self.parts.append(text)

    def field(self, kind):
        if kind == "begin":
            self.open.append(False)
        elif kind == "separate" and self.open:
            self.open[-1] = True
        elif kind == "end" and self.open and self.open.pop():
            self.add(BARRIER)


def is_on(element):
    return element is not None and value(element, "val") not in ("0", "false", "off")


def child(element, name):
    return next((c for c in element if local(c) == name), None)


def read_run(run, text):
    properties = child(run, "rPr")
    hidden = properties is not None and is_on(child(properties, "vanish"))
    for item in run:
        name = local(item)
        if name == "fldChar":
            text.field(value(item, "fldCharType"))
        elif hidden and name in ("t", "tab", "br", "noBreakHyphen", "softHyphen"):
            text.add(BARRIER)
        elif name == "t":
            content = item.text or ""
            if item.attrib.get("{http://www.w3.org/XML/1998/namespace}space") != "preserve":
                content = content.strip(" \t\r\n")
            text.add(content)
        elif name == "noBreakHyphen":
            text.add("-")
        elif name in ("tab", "ptab", "br", "cr", "sym", "drawing", "pict", "object", "footnoteReference",
                      "endnoteReference", "footnoteRef", "endnoteRef", "AlternateContent", "ruby"):
            text.add(BARRIER)


def read(element, text):
    for item in element:
        name = local(item)
        if name == "r":
            read_run(item, text)
        elif name == "fldSimple":
            text.add(BARRIER)
        elif name == "p":
            read(item, text)
            text.add(BARRIER)
        elif name == "AlternateContent":
            branch = child(item, "Choice")
            read(branch if branch is not None else child(item, "Fallback"), text)
        elif name not in ("del", "moveFrom", "sdtPr", "pPr", "tblPr", "trPr", "tcPr"):
            read(item, text)


def related(package, main, ending):
    folder, file = posixpath.split(main)
    rels = posixpath.join(folder, "_rels", file + ".rels")
    if rels not in package.namelist():
        return None
    for relation in ElementTree.fromstring(package.read(rels)):
        if relation.get("Type", "").endswith(ending):
            target = relation.get("Target")
            return target.lstrip("/") if target.startswith("/") else posixpath.normpath(posixpath.join(folder, target))
    return None


def stories(path):
    with zipfile.ZipFile(path) as package:
        main = next(r.get("Target").lstrip("/") for r in ElementTree.fromstring(package.read("_rels/.rels"))
                    if r.get("Type").endswith("/officeDocument"))
        root = ElementTree.fromstring(package.read(main))
        text = Text()
        read(child(root, "body"), text)
        yield "".join(text.parts)
        for kind in ("footnote", "endnote"):
            part = related(package, main, "/" + kind + "s")
            if part not in package.namelist():
                continue
            used = {value(e, "id") for e in root.iter() if local(e) == kind + "Reference"}
            text = Text()
            for note in ElementTree.fromstring(package.read(part)):
                if value(note, "id") in used:
                    read(note, text)
            yield "".join(text.parts)


def plain(text):
    return re.sub("[\u00ad\u001f]", "", text).replace("\u00a0", " ").replace("\u2011", "-").replace("\u001e", "-")


def straight(text):
    return re.sub("[\u2018\u2019]", "'", re.sub("[\u201c\u201d]", '"', text))


def is_word(character):
    return character.isalnum() or unicodedata.category(character).startswith("M")


def count(text, terms):
    forms = {}
    for term in terms:
        for form in (plain(term), plain(term).upper()):
            forms.setdefault(form, term)
    for term in terms:  # what is spelt exactly as a term is that term
        forms[plain(term)] = term
    alike = {}
    for form, term in forms.items():
        alike.setdefault(straight(form), {})[form] = term
    found = []
    reading = straight(text)
    for form, terms_of in alike.items():
        if not form:
            continue
        for match in re.finditer("(?=" + re.escape(form) + ")", reading):
            begin, end = match.start(), match.start() + len(form)
            if (begin and is_word(text[begin - 1])) or (end < len(text) and is_word(text[end])):
                continue
            term = terms_of.get(text[begin:end], next(iter(terms_of.values())))
            found.append((-len(form), begin, end, term))
    taken = bytearray(len(text))
    counts = Counter()
    for _, begin, end, term in sorted(found):
        if not any(taken[begin:end]):
            taken[begin:end] = b"\1" * (end - begin)
            counts[term] += 1
    return counts


def compare(program, path, folder):
    out = str(pathlib.Path(folder) / "out.docx")
    settings = str(pathlib.Path(folder) / "kvx.ini")
    run = subprocess.run([program, "index", path, "-o", out, "--force", "--quiet", "--settings", settings, "--report",
                          "-"], capture_output=True, text=True, check=False)
    if run.returncode == 1 and "Cannot index" in run.stderr:
        print(f"{path}: not indexed, since its quotation marks do not pair up")
        return 0
    if run.returncode != 0:
        print(f"{path}: exit {run.returncode}: {run.stderr.strip()}")
        return 1
    report = json.loads(run.stdout)
    inspected = json.loads(subprocess.run([program, "inspect", out], capture_output=True, text=True, check=True).stdout)
    entries = Counter(e["text"] for e in inspected["entries"] if e["type"] == "DefinedTermsIndex")
    expected = Counter()
    for story in stories(path):
        expected += count(plain(story), report["chosen"])
    faults = 0
    for row in report["terms"]:
        term = row["term"]
        if not row["count"] == expected[term] == entries[plain(term)]:
            faults += 1
            print(f"{path}: {term!r}: marked {row['count']}, entries {entries[plain(term)]}, counted {expected[term]}")
    print(f"{path}: {len(report['terms'])} terms, {sum(expected.values())} occurrences, {faults} differences")
    return 1 if faults else 0


def main():
    with tempfile.TemporaryDirectory() as folder:
        sys.exit(max([compare(sys.argv[1], path, folder) for path in sys.argv[2:]], default=0))


if __name__ == "__main__":
    main()
