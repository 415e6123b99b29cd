#!/usr/bin/env python3
"""Writes a long contract for measuring: make_contract.py PAGES TERMS OUT.docx

The text is put together from clauses of our own with about 50 occurrences of defined terms a page, in the XML that word
processors write: revision numbers, proofing marks, formatting on every run, some 7 words a run and 40 bytes a word, which is
the middle of what contracts published as Word documents show. The same numbers give the same file.
"""

import pathlib
import random
import sys
from xml.sax.saxutils import escape

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "samples"))
from docx_writer import HEADER, NAMESPACES, RELATIONSHIP, TYPE, numbering_xml, styles_xml, write_package  # noqa: E402

FIRST = """Accepted Additional Adjusted Approved Base Central Common Completed Current Deferred Disputed Excluded External
Final Initial Interim Licensed Listed Local Minimum Notified Permitted Primary Quarterly Related Retained Secured Shared
Standard Supplied""".split()
SECOND = """Asset Budget Charge Claim Contractor Delivery Equipment Event Facility Guarantee Instalment Loss Manual Notice
Payment Period Permit Price Record Report Service Site Test Works""".split()
PARAGRAPHS_A_PAGE = 10.5
OPENINGS = ["", "Subject to the {}, ", "Unless the {} says otherwise, ", "From the date of the {}, ",
            "For as long as the {} lasts, ", "At the cost of the holder of the {}, ", "Save for the {}, ",
            "Where the {} so requires, "]
CLAUSES = [
    "the party that holds the {} shall keep each {} in good order and shall give the other a copy of every {} within ten days of being asked for it, with a note of the {} to which it belongs",
    "no {} may be assigned, charged or shared before the {} has been paid in full and the {} has been handed over at the place named in the schedule, against a receipt for the {}",
    "each {} is to be measured against the {} for the month in which it falls, and the difference is added to the next {} or taken from it, so that the {} comes out even at the end of the year",
    "if the {} is late by more than five working days, the other party may withhold as much of the {} as is fair, until the {} has been put right and a fresh {} has been given",
    "the {} does not cover damage which the holder of the {} could have prevented with ordinary care, or which was known when the {} was signed and is written down in the {}",
    "every {} is kept for seven years, together with the {} that explains it, and may be seen by an auditor on three days' notice who has undertaken to keep the {} confidential, as the {} provides",
    "a dispute about the {} is first discussed by the managers of both parties, who shall meet at the site of the {} and try to agree on a {} before either of them relies on the {}",
    "neither party is liable for a delay caused by weather, by a strike in which its own staff take no part or by an order of a public body, so long as it gives a {} at once, keeps the {} as low as it can and resumes the {} when the {} allows",
    "the sum shown in the {} is the whole price of the {}, and nothing more is due for travel, for materials or for the {} of anyone whom the supplier brings in under the {}",
]


def terms(count):
    names = [f"{first} {second}" for second in SECOND for first in FIRST]
    random.Random(7).shuffle(names)
    return names[:count]


FONT = '<w:rFonts w:ascii="Liberation Serif" w:hAnsi="Liberation Serif" w:cs="Liberation Serif"/>'
SIZE = '<w:sz w:val="24"/><w:szCs w:val="24"/><w:lang w:val="en-GB"/>'


class Writer:
    def __init__(self, seed):
        self.random = random.Random(seed)
        self.paragraphs = []

    def run(self, text, bold=False):
        return (f'<w:r w:rsidR="00{self.random.randrange(1 << 24):06X}"><w:rPr>{FONT}{"<w:b/>" if bold else ""}{SIZE}</w:rPr>'
                f'<w:t xml:space="preserve">{escape(text)}</w:t></w:r>') if text else ""

    def runs(self, text):
        """Divided at any place, as after editing."""
        out, at = [], 0
        while at < len(text):
            end = at + self.random.randrange(10, 80)
            out.append(self.run(text[at:end]))
            if self.random.random() < 0.05:
                out.append('<w:proofErr w:type="gramEnd"/>')
            at = end
        return "".join(out)

    def paragraph(self, style, content):
        number = f"{self.random.randrange(1 << 28):08X}"
        self.paragraphs.append(f'<w:p w:rsidR="00A31B7C" w:rsidRDefault="00{number[:6]}" w:rsidP="00{number[2:]}"><w:pPr>'
                               f'<w:pStyle w:val="{style}"/><w:rPr>{FONT}{SIZE}</w:rPr></w:pPr>{content}</w:p>')


def make(pages, count, path):
    chosen = terms(count)
    writer = Writer(pages * 1000 + count)
    pick = writer.random
    writer.paragraph("Title", writer.run("Framework Agreement"))
    writer.paragraph("Heading1", writer.run("Definitions"))
    for term in chosen:
        writer.paragraph("Definition", writer.run("“") + writer.run(term, bold=True)
                         + writer.runs(f"”: what the schedule describes under that name, as it stands from time to time, with "
                                       f"whatever belongs to it by clause {pick.randrange(2, 90)}."))
    # The definitions count as one page for 20 terms.
    for number in range(max(1, round((pages - count / 20) * PARAGRAPHS_A_PAGE))):
        if number % 60 == 0:
            writer.paragraph("Heading1", writer.run(f"Group {number // 60 + 2}"))
        text = pick.choice(OPENINGS) + CLAUSES[number % len(CLAUSES)]
        text = text.format(*pick.sample(chosen, text.count("{}")))
        writer.paragraph("Clause2", writer.runs(text[0].upper() + text[1:] + "."))
    document = (HEADER + f"<w:document {NAMESPACES}><w:body>{''.join(writer.paragraphs)}<w:sectPr>"
                '<w:pgSz w:w="11906" w:h="16838"/><w:pgMar w:top="1440" w:right="1440" w:bottom="1440" w:left="1440" '
                'w:header="708" w:footer="708" w:gutter="0"/></w:sectPr></w:body></w:document>')
    parts = {"word/document.xml": (document, TYPE + "document.main+xml"),
             "word/styles.xml": (styles_xml(), TYPE + "styles+xml"),
             "word/numbering.xml": (numbering_xml(0), TYPE + "numbering+xml"),
             "word/settings.xml": (HEADER + f"<w:settings {NAMESPACES}/>", TYPE + "settings+xml")}
    relations = [(f"rId{number}", RELATIONSHIP + kind, kind + ".xml")
                 for number, kind in enumerate(("styles", "numbering", "settings"), 1)]
    write_package(path, "Framework Agreement", parts, relations)


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    make(int(sys.argv[1]), int(sys.argv[2]), sys.argv[3])
