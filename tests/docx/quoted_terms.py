#!/usr/bin/env python3
"""Compares the quoted terms of .docx files with a list that a reader would make, and explains every difference.

quoted_terms.py KELVARIN FILE.docx...

The reader's list is made from the plain text, without the program's own code: what stands in a paragraph between an opening and a
closing quotation mark of one style. The program's list differs from it by rules, which are applied here one by one:

  next quote     any quotation mark opens, and the next one closes, over paragraphs too; so one that stands alone, or a straight one
                 that means inches, shifts the pairs behind it
  earlier story  a term that an earlier story gave ends the list of the story in which it comes again
  odd quotes     a story whose opening and closing curly marks differ by an odd number stops the search

A difference that no rule explains is printed, and the exit status is 1.
"""

import json
import re
import subprocess
import sys
import tempfile
import zipfile
from collections import Counter
from xml.etree import ElementTree

from count_occurrences import child, is_on, local, related, value

CELL = "\x07"
NOTE_OR_COMMENT = "\x02\x05"  # at its ends no part of a term
CHARACTERS = {"tab": "\t", "ptab": "\t", "cr": "\v", "noBreakHyphen": "\x1e", "softHyphen": "\x1f", "sym": "(",
              "footnoteReference": "\x02", "endnoteReference": "\x02", "footnoteRef": "\x02", "endnoteRef": "\x02",
              "commentReference": "\x05"}
BREAKS = {"page": "\f", "column": "\x0e"}
UNSEEN = {"del", "moveFrom", "pPr", "rPr", "sdtPr", "tblPr", "trPr", "tcPr", "sectPr", "txbxContent", "AlternateContent",
          "instrText", "drawing", "pict", "object"}


class Story:
    """A story as its reader sees it: results of fields in, their codes, deletions and hidden text out."""

    def __init__(self):
        self.parts = []
        self.fields = []  # per open field: whether its code is being read

    def add(self, text):
        if not any(self.fields):
            self.parts.append(text)

    def field(self, kind):
        if kind == "begin":
            self.fields.append(True)
        elif self.fields and kind == "separate":
            self.fields[-1] = False
        elif self.fields and kind == "end":
            self.fields.pop()

    def read(self, element):
        for item in element:
            name = local(item)
            if name == "r":
                self.read_run(item)
            elif name == "tc":
                self.read(item)
                if self.parts and self.parts[-1] == "\r":
                    self.parts.pop()
                self.add(CELL)
            elif name not in UNSEEN:
                self.read(item)
                if name == "p":
                    self.add("\r")
                elif name == "tr":
                    self.add(CELL)

    def read_run(self, run):
        properties = child(run, "rPr")
        if properties is not None and is_on(child(properties, "vanish")):
            return
        for item in run:
            name = local(item)
            if name == "fldChar":
                self.field(value(item, "fldCharType"))
            elif name == "t":
                text = item.text or ""
                preserved = item.attrib.get("{http://www.w3.org/XML/1998/namespace}space") == "preserve"
                self.add(text if preserved else text.strip(" \t\r\n"))
            elif name == "br":
                self.add(BREAKS.get(value(item, "type"), "\v"))
            elif name in CHARACTERS:
                self.add(CHARACTERS[name])
            elif name in ("drawing", "pict", "object"):
                # What floats stands nowhere in the text.
                if name != "drawing" or child(item, "inline") is not None:
                    self.add("\x01")

    def text(self):
        return "".join(self.parts)


def stories(path):
    with zipfile.ZipFile(path) as package:
        main = next(r.get("Target").lstrip("/") for r in ElementTree.fromstring(package.read("_rels/.rels"))
                    if r.get("Type").endswith("/officeDocument"))
        root = ElementTree.fromstring(package.read(main))
        story = Story()
        story.read(child(root, "body"))
        yield story.text()
        for kind in ("footnote", "endnote"):
            part = related(package, main, "/" + kind + "s")
            if part not in package.namelist():
                continue
            order = [value(e, "id") for e in root.iter() if local(e) == kind + "Reference"]
            notes = {value(note, "id"): note for note in ElementTree.fromstring(package.read(part))}
            story = Story()
            for number in order:
                if number in notes:
                    story.read(notes[number])
            yield story.text()


def readers_list(texts):
    """What stands between an opening and a closing mark of one style in a paragraph or cell."""
    terms = set()
    for text in texts:
        for paragraph in re.split(f"[\r{CELL}]", text):
            for quoted in re.findall("“([^“”]+)”", paragraph) + re.findall('"([^"]+)"', paragraph):
                terms.add(quoted.strip(NOTE_OR_COMMENT))
    return terms - {""}


def next_quote_closes(text):
    found = re.findall(f'["“”]([^"“”{CELL}]*)["“”]', text)
    return [term for term in dict.fromkeys(text.strip(NOTE_OR_COMMENT) for text in found) if term]


def merge(lists):
    """The lists of the stories as one, and what the rule of the earlier story left out."""
    merged, left_out = [], []
    for terms in lists:
        known = next((i for i, term in enumerate(terms) if term in merged), len(terms))
        left_out += [term for term in terms[known:] if term not in merged]
        merged += terms[:known]
    return merged, left_out


def odd_story(texts):
    return any((text.count("“") - text.count("”")) % 2 for text in texts)


def compare(program, path, folder):
    run = subprocess.run([program, "terms", path, "--json", "--settings", f"{folder}/kvx.ini"], capture_output=True, text=True,
                         check=False)
    texts = list(stories(path))
    if run.returncode == 1 and "Cannot index" in run.stderr:
        good = odd_story(texts)
        print(f"{path}: stopped" + (", odd quotes" if good else ", unexplained"))
        return good
    if run.returncode != 0:
        print(f"{path}: exit {run.returncode}: {run.stderr.strip()}")
        return False
    program_list = [row["term"] for row in json.loads(run.stdout)]
    merged, left_out = merge([next_quote_closes(text) for text in texts])
    reader = readers_list(texts)
    faults = set(program_list) ^ set(merged)
    unexplained = [f"{'listed' if term in program_list else 'not listed'}: {term!r}" for term in sorted(faults)]
    if program_list != sorted(program_list, key=lambda term: term.encode("utf-16-be")):
        unexplained.append("not in order")
    if odd_story(texts):
        unexplained.append("odd quotes did not stop it")
    rules = Counter()
    for term in sorted((reader ^ set(program_list)) - faults):
        rule = "earlier story" if term in left_out else "next quote"
        rules[rule] += 1
        print(f"    {rule}: {'only the reader has' if term in reader else 'only the program has'} {term[:100]!r}")
    for line in unexplained:
        print(f"    unexplained: {line}")
    told = ", ".join(f"{count} by {rule}" for rule, count in rules.items()) or "none"
    print(f"{path}: the reader has {len(reader)} terms, the program {len(program_list)}; differences: {told}; "
          f"{len(unexplained)} unexplained")
    return not unexplained


def main():
    with tempfile.TemporaryDirectory() as folder:
        results = [compare(sys.argv[1], path, folder) for path in sys.argv[2:]]
    sys.exit(0 if all(results) else 1)


if __name__ == "__main__":
    main()
