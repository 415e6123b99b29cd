#!/usr/bin/env python3
"""Shows that an index has the pages that its entries stand on, once it is in.

index_pages.py KELVARIN libreoffice|layout|auto FILE.docx...

Each file is indexed in one column, with pages by LibreOffice or by the program's own layout. A copy of the result gets a bookmark at every
entry, in its XML and without the program; LibreOffice's PDF of the copy, or `inspect`, tells their pages, and the sections of the file what
is printed on them. Every term in the index has to have exactly these. LibreOffice names no places in floating tables: what stands there is
counted and may add pages to its term. Where a file holds no terms, or its quotes do not pair up, its three commonest words are indexed.
Exit status 1 when anything differs, 77 when LibreOffice is asked for and not installed.
"""

import html
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import zipfile
from collections import Counter, defaultdict

NO_LIBREOFFICE = 77
SEPARATOR = "@@"
ENTRY = re.compile(r'<w:r><w:fldChar w:fldCharType="begin"/></w:r><w:r><w:instrText[^>]*> XE "((?:[^"\\]|\\.)*)" '
                   r'\\f "DefinedTermsIndex"')
# What ends a section, and what a section says of its page numbers.
SECTION = re.compile(r"<w:sectPr\b.*?</w:sectPr>|<w:sectPr\b[^>]*/>", re.S)
ROMAN = [(1000, "m"), (900, "cm"), (500, "d"), (400, "cd"), (100, "c"), (90, "xc"), (50, "l"), (40, "xl"), (10, "x"),
         (9, "ix"), (5, "v"), (4, "iv"), (1, "i")]


def bookmark(name, number):
    return f'<w:bookmarkStart w:id="{1000000 + number}" w:name="{name}"/><w:bookmarkEnd w:id="{1000000 + number}"/>'


def mark(source, target):
    """Copies a result, with bookmarks. @return the terms of the entries, and the sections' properties, in order"""
    terms, sections = [], []

    def mark_entry(match):
        text = re.sub(r"\\(.)", r"\1", html.unescape(match[1]))
        terms.append(text.strip())
        return bookmark(f"occurrence{len(terms) - 1}", len(terms)) + match[0]

    def mark_sections(xml):
        """A bookmark in the first paragraph of each section."""
        out, start = [], 0
        for match in SECTION.finditer(xml):
            piece = xml[start:match.end()]
            sections.append(match[0])
            name = bookmark(f"section{len(sections) - 1}", 500000 + len(sections))
            # Behind the paragraph's own properties, which have to stand first; those that hold the section's do not count.
            body = piece.find("<w:body>") + len("<w:body>") if "<w:body>" in piece else 0
            first = re.compile(r"<w:p(?: [^>]*)?>(?:<w:pPr>(?:(?!</w:pPr>).)*</w:pPr>|<w:pPr/>)?(?!<w:sectPr)", re.S).search(
                piece, body)
            if first and not piece[first.start():first.end()].endswith("/>") and first.end() <= len(piece) - len(match[0]):
                piece = piece[:first.end()] + name + piece[first.end():]
            out.append(piece)
            start = match.end()
        return "".join(out) + xml[start:]

    with zipfile.ZipFile(source) as package, zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as copy:
        for name in package.namelist():
            content = package.read(name)
            if name in ("word/document.xml", "word/footnotes.xml", "word/endnotes.xml"):
                xml = content.decode("utf-8")
                xml = ENTRY.sub(mark_entry, xml)
                if name == "word/document.xml":
                    # What a section was before a tracked change is nothing to a reader.
                    xml = mark_sections(re.sub(r"<w:sectPrChange\b.*?</w:sectPrChange>", "", xml, flags=re.S))
                content = xml.encode("utf-8")
            copy.writestr(name, content)
    return terms, sections


def pages_of(pdf):
    """The pages of the named destinations, as LibreOffice writes them."""
    objects = re.search(rb"/Type/Pages\b.*?/Kids\[([^\]]*)\]", pdf, re.S)[1]
    numbers = {int(number): page for page, number in enumerate(re.findall(rb"(\d+) 0 R", objects), 1)}
    return {name.decode(): numbers[int(page)]
            for name, page in re.findall(rb"/((?:occurrence|section)\d+)\[(\d+) 0 R/", pdf)}


def by_libreoffice(copy, folder):
    subprocess.run(["soffice", "--headless", f"-env:UserInstallation=file://{folder}/profile", "--convert-to",
                    'pdf:writer_pdf_Export:{"ExportBookmarksToPDFDestination":{"type":"boolean","value":"true"}}',
                    "--outdir", folder, copy], capture_output=True, timeout=300, check=True)
    return pages_of((folder / "copy.pdf").read_bytes())


def by_layout(kelvarin, way, copy):
    shown = json.loads(subprocess.run([kelvarin, "inspect", "--pages", way, copy], capture_output=True, check=True).stdout)
    return {mark["name"]: mark["page"] for mark in shown["bookmarks"] if re.match(r"(occurrence|section)\d", mark["name"])}


def label(number, kind):
    if kind not in ("lowerRoman", "upperRoman"):
        return {"lowerLetter": chr(96 + number), "upperLetter": chr(64 + number)}.get(kind, str(number))
    roman = ""
    for value, letters in ROMAN:
        while number >= value:
            roman, number = roman + letters, number - value
    return roman.upper() if kind == "upperRoman" else roman


def labels_of(sections, pages, count):
    """What is printed on each page."""
    starts = []
    for number, section in enumerate(sections):
        start, kind = (re.search(rf'<w:pgNumType[^>]*w:{what}="(\w+)"', section) for what in ("start", "fmt"))
        page = pages.get(f"section{number}", 1 if not starts else starts[-1][0])
        shared = starts and re.search(r'<w:type w:val="continuous"/>', section)
        # A page belongs to the section that begins it.
        starts.append((page, page + bool(shared), int(start[1]) if start else None, kind[1] if kind else "decimal"))
    labels, number, current = {}, 0, "decimal"
    for page in range(1, count + 1):
        number += 1
        for begun, first, start, kind in starts:
            if first == page:
                current = kind
                number = number if start is None else start + (page - begun)
        labels[page] = label(number, current)
    return labels


def commonest_words(kelvarin, file):
    shown = json.loads(subprocess.run([kelvarin, "inspect", file], capture_output=True, check=True).stdout)
    words = Counter(re.findall(r"\b[a-z]{4,}\b", shown["stories"][0]["text"]))
    return [word for word, _ in words.most_common(3)]


def compare(kelvarin, way, file, folder):
    """@return the numbers of terms and of entries without a place, and what differs; nothing when the file is refused"""
    result, copy, report = folder / "result.docx", folder / "copy.docx", folder / "report.json"
    command = [kelvarin, "index", file, "-o", result, "--force", "--pages", way, "--columns", "1", "--no-tab",
               "--separator", SEPARATOR, "--report", report, "--quiet"]
    if subprocess.run(command, capture_output=True).returncode != 0:
        # With no kind of search nothing is asked of the quotes.
        settings = folder / "no-search.ini"
        settings.write_bytes(b"[Defaults]\r\nSearchType=None\r\n")
        words = commonest_words(kelvarin, file)
        adding = ["--settings", settings, *(argument for word in words for argument in ("--add", word))]
        if not words or subprocess.run([*command, *adding], capture_output=True).returncode != 0:
            return None
    terms, sections = mark(result, copy)
    pages = by_libreoffice(copy, folder) if way == "libreoffice" else by_layout(kelvarin, way, copy)
    shown = json.loads(subprocess.run([kelvarin, "inspect", result], capture_output=True, check=True).stdout)
    labels = labels_of(sections, pages, max(pages.values()))
    found, lost = defaultdict(set), Counter()
    for number, term in enumerate(terms):
        page = pages.get(f"occurrence{number}")
        if page is None:
            lost[term] += 1
        else:
            found[term].add(page)
    wanted = {term: [labels[page] for page in sorted(found[term])] for term in terms}
    printed = {}
    for paragraph in shown["index"]["paragraphs"]:
        term, _, numbers = paragraph.rpartition(SEPARATOR)
        printed[term.strip()] = numbers.split(", ")
    differing = []
    for term, labels_found in wanted.items():
        if printed.get(term) == labels_found or (lost[term] and set(labels_found) <= set(printed.get(term, []))):
            continue
        differing.append(f"{term}: printed {printed.get(term)}, stands on {labels_found}")
    differing += [f"{term}: printed without an entry" for term in printed if term not in wanted]
    return len(wanted), sum(lost.values()), differing


def main():
    if len(sys.argv) < 4 or sys.argv[2] not in ("libreoffice", "layout", "auto"):
        sys.exit(__doc__)
    way = sys.argv[2]
    if way == "libreoffice" and shutil.which("soffice") is None:
        print("LibreOffice is not installed: nothing was compared")
        sys.exit(NO_LIBREOFFICE)
    kelvarin = str(pathlib.Path(sys.argv[1]).resolve())
    compared = terms = lost = refused = faults = 0
    for file in sys.argv[3:]:
        with tempfile.TemporaryDirectory() as folder:
            found = compare(kelvarin, way, file, pathlib.Path(folder))
        if found is None:
            refused += 1
            print(f"{file}: refused")
            continue
        compared += 1
        terms += found[0]
        lost += found[1]
        faults += len(found[2])
        for line in found[2]:
            print(f"{file}: {line}")
    print(f"compared {compared} files with {terms} terms ({lost} entries without a place), refused {refused}, "
          f"{faults} terms differ")
    sys.exit(1 if faults or not terms else 0)


main()
