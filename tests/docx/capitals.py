#!/usr/bin/env python3
"""Says how good the search for capitalised words is: capitals.py KELVARIN [--sample] FILE.docx...

Two figures. First, of the terms that the files themselves define in quotes, begin with a capital and use elsewhere, the share
that the search offers; the terms are read from the plain text without the program's own code. Second, of the candidates
that stand capitalised for their own sake ("only": null), the share that are terms or names, by the labels in
capitals_labels.tsv: those of 200 candidates, drawn by the least SHA-256 of a fixed seed, a key of the file and the text, so
that a change of some candidates leaves the others in the sample. Labels: term, name, no.

With --sample the sample is printed with its contexts, to be labelled. Exit status 1 when a figure misses its aim (95 and 70
percent) or a candidate of the sample of labelled files has no label; figures that the files do not allow are not held to it.
"""

import csv
import hashlib
import json
import pathlib
import re
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import count_occurrences  # noqa: E402

LABELS = pathlib.Path(__file__).resolve().parent / "capitals_labels.tsv"
SEED = "capitals 1"
SAMPLE = 200
LEAST_OFFERED, LEAST_TRUE = 0.95, 0.70
QUOTES = '"“”„«»'
MOST_WORDS = 8  # a longer text in quotes is a sentence that is quoted


def file_key(path):
    return hashlib.sha256(path.read_bytes()).hexdigest()[:12]


def candidates(program, path):
    with tempfile.TemporaryDirectory() as folder:
        command = [program, "terms", str(path), "--search", "capitals", "--json", "--quiet", "--settings", f"{folder}/kvx.ini"]
        return json.loads(subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout)


def defined_terms(path):
    """The terms in quotes that begin with a capital and stand at least once more in the text, whole and as they are spelt."""
    text = count_occurrences.plain("\n".join(count_occurrences.stories(path)))
    terms = set()
    for quoted in re.findall(f"[{QUOTES}]([^{QUOTES}\n]+)[{QUOTES}]", text):
        term = re.sub(r"^(?:an?|any|the) ", "", quoted, flags=re.IGNORECASE).strip(" ,.;:")
        if re.match("[A-Z]", term) and term.count(" ") < MOST_WORDS:
            terms.add(term)
    return sorted(term for term in terms
                  if len(re.findall(r"(?<!\w)" + re.escape(term) + r"(?!\w)", text)) > 1)


def sample(offered):
    """@param offered (key, candidate) of all files"""
    def rank(item):
        key, candidate = item
        return hashlib.sha256("\0".join((SEED, key, candidate["term"])).encode()).hexdigest()
    return sorted(offered, key=rank)[:SAMPLE]


def read_labels():
    with LABELS.open(encoding="utf-8", newline="") as file:
        return {(row["file"], row["candidate"]): row["label"] for row in csv.DictReader(file, delimiter="\t")}


def main():
    arguments = [argument for argument in sys.argv[1:] if argument != "--sample"]
    if len(arguments) < 2:
        sys.exit(__doc__)
    program, paths = arguments[0], [pathlib.Path(name) for name in arguments[1:]]
    defined = offered_terms = 0
    offered = []
    for path in paths:
        found = candidates(program, path)
        terms = defined_terms(path)
        missing = sorted(set(terms) - {item["term"] for item in found})
        defined += len(terms)
        offered_terms += len(terms) - len(missing)
        offered += [(file_key(path), item) for item in found if item["only"] is None]
        if "--sample" in sys.argv:
            continue
        print(f"{path.name}: {len(found)} candidates, {sum(item['only'] is None for item in found)} for their own sake; "
              f"{len(terms)} terms in quotes are used, {len(missing)} of them not offered"
              + "".join(f"\n  {term}" for term in missing))
    drawn = sample(offered)
    if "--sample" in sys.argv:
        for key, item in sorted(drawn, key=lambda entry: (entry[0], entry[1]["term"])):
            print("\t".join((key, item["term"], str(item["occurrences"]), item["sentence"] or "")))
        return
    ok = True
    if defined:
        share = offered_terms / defined
        ok = ok and share >= LEAST_OFFERED
        print(f"terms in quotes that are offered: {offered_terms} of {defined}, {share:.1%} (aim: {LEAST_OFFERED:.0%})")
    labels = read_labels()
    known = {key for key, _ in labels}
    if any(key in known for key, _ in drawn):
        labelled = [labels.get((key, item["term"])) for key, item in drawn]
        unlabelled = labelled.count(None)
        true = sum(label in ("term", "name") for label in labelled)
        share = true / len(labelled)
        ok = ok and share >= LEAST_TRUE and not unlabelled
        print(f"candidates for their own sake that are terms or names: {true} of {len(labelled)}, {share:.1%} "
              f"(aim: {LEAST_TRUE:.0%})" + (f"; {unlabelled} have no label and count as none" if unlabelled else ""))
    sys.exit(0 if ok else 1)


if __name__ == "__main__":
    main()
