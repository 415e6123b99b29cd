"""Writes Word documents from marked-up lines, with the standard library alone and the same bytes every time.

A line is a code, a blank and a text. Codes: T title, C centred, P body, D definition, 1 to 4 the levels of the clauses,
S a schedule's heading (on a new page), H a part's heading, W W2 W3 the levels of a schedule's paragraphs, N a new page,
| a table row (cells between bars; the first row of a table is its heading), X verbatim XML of the body,
TOC a table of contents of the clauses and schedules, SECTION the end of a section and its settings.
In a text: **bold**, //italic//, [[fn: footnote]], [[en: endnote]], [[ref NAME|shown]] a cross-reference,
[[bm NAME|text]] a bookmark over a text, ~ is a non-breaking space.
"""

import re
import zipfile
from xml.sax.saxutils import escape

W = "http://schemas.openxmlformats.org/wordprocessingml/2006/main"
R = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
NAMESPACES = f'xmlns:w="{W}" xmlns:r="{R}"'
HEADER = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
TYPE = "application/vnd.openxmlformats-officedocument.wordprocessingml."
RELATIONSHIP = R + "/"

STYLES = [
    # id, name, based on, paragraph properties, run properties
    ("Normal", "Normal", None, '<w:spacing w:after="160" w:line="276" w:lineRule="auto"/><w:jc w:val="both"/>', ""),
    ("Title", "Title", "Normal", '<w:spacing w:before="240" w:after="360"/><w:jc w:val="center"/>',
     '<w:b/><w:sz w:val="36"/>'),
    ("Centred", "Centred", "Normal", '<w:jc w:val="center"/>', ""),
    ("Heading1", "heading 1", "Normal",
     '<w:keepNext/><w:numPr><w:ilvl w:val="0"/><w:numId w:val="1"/></w:numPr><w:spacing w:before="320"/>'
     '<w:outlineLvl w:val="0"/>', '<w:b/><w:caps/>'),
    ("Clause2", "Clause 2", "Normal", '<w:numPr><w:ilvl w:val="1"/><w:numId w:val="1"/></w:numPr>', ""),
    ("Clause3", "Clause 3", "Normal", '<w:numPr><w:ilvl w:val="2"/><w:numId w:val="1"/></w:numPr>', ""),
    ("Clause4", "Clause 4", "Normal", '<w:numPr><w:ilvl w:val="3"/><w:numId w:val="1"/></w:numPr>', ""),
    ("Definition", "Definition", "Normal", '<w:ind w:left="720"/>', ""),
    ("Body", "Clause Body", "Normal", '<w:ind w:left="720"/>', ""),
    ("ScheduleHeading", "Schedule Heading", "Normal",
     '<w:keepNext/><w:pageBreakBefore/><w:spacing w:after="240"/><w:jc w:val="center"/><w:outlineLvl w:val="0"/>',
     "<w:b/>"),
    ("PartHeading", "Part Heading", "Normal", '<w:keepNext/><w:spacing w:before="240"/><w:jc w:val="center"/>', "<w:b/>"),
    ("Header", "header", "Normal", '<w:tabs><w:tab w:val="right" w:pos="9026"/></w:tabs><w:spacing w:after="0"/>',
     '<w:sz w:val="18"/>'),
    ("Footer", "footer", "Normal", '<w:spacing w:after="0"/><w:jc w:val="center"/>', '<w:sz w:val="18"/>'),
    ("FootnoteText", "footnote text", "Normal", '<w:spacing w:after="0" w:line="240" w:lineRule="auto"/>',
     '<w:sz w:val="18"/>'),
    ("EndnoteText", "endnote text", "Normal", '<w:spacing w:after="60" w:line="240" w:lineRule="auto"/>',
     '<w:sz w:val="18"/>'),
    ("TOC1", "toc 1", "Normal", '<w:tabs><w:tab w:val="left" w:pos="720"/></w:tabs><w:spacing w:after="80"/>'
     '<w:jc w:val="left"/>', ""),
]
TABLE_BORDERS = "".join(f'<w:{side} w:val="single" w:sz="4" w:space="0" w:color="auto"/>'
                        for side in ("top", "left", "bottom", "right", "insideH", "insideV"))
PARAGRAPH_STYLES = {"T": "Title", "C": "Centred", "P": "Normal", "B": "Body", "D": "Definition", "1": "Heading1",
                    "2": "Clause2", "3": "Clause3", "4": "Clause4", "S": "ScheduleHeading", "H": "PartHeading"}
INLINE = re.compile(r"(\*\*|//|\[\[(?:fn|en): (?:[^\]]|\](?!\]))*\]\]|\[\[(?:ref|bm) [^|\]]+\|[^\]]*\]\])")


def styles_xml():
    out = [HEADER, f"<w:styles {NAMESPACES}><w:docDefaults><w:rPrDefault><w:rPr>"
           '<w:rFonts w:ascii="Liberation Serif" w:hAnsi="Liberation Serif" w:eastAsia="Liberation Serif" '
           'w:cs="Liberation Serif"/><w:sz w:val="22"/><w:szCs w:val="22"/>'
           '<w:lang w:val="en-GB" w:eastAsia="en-GB" w:bidi="ar-SA"/></w:rPr></w:rPrDefault><w:pPrDefault/>'
           "</w:docDefaults>"]
    for style, name, base, paragraph, run in STYLES:
        default = ' w:default="1"' if style == "Normal" else ""
        out.append(f'<w:style w:type="paragraph"{default} w:styleId="{style}"><w:name w:val="{name}"/>')
        if base:
            out.append(f'<w:basedOn w:val="{base}"/>')
        out.append(f"<w:qFormat/><w:pPr>{paragraph}</w:pPr>" + (f"<w:rPr>{run}</w:rPr>" if run else "") + "</w:style>")
    for style, name in (("FootnoteReference", "footnote reference"), ("EndnoteReference", "endnote reference")):
        out.append(f'<w:style w:type="character" w:styleId="{style}"><w:name w:val="{name}"/>'
                   '<w:rPr><w:vertAlign w:val="superscript"/></w:rPr></w:style>')
    out.append('<w:style w:type="table" w:default="1" w:styleId="TableNormal"><w:name w:val="Normal Table"/><w:tblPr>'
               '<w:tblInd w:w="0" w:type="dxa"/><w:tblCellMar><w:left w:w="108" w:type="dxa"/>'
               '<w:right w:w="108" w:type="dxa"/></w:tblCellMar></w:tblPr></w:style>'
               '<w:style w:type="table" w:styleId="TableGrid"><w:name w:val="Table Grid"/><w:basedOn w:val="TableNormal"/>'
               f"<w:tblPr><w:tblBorders>{TABLE_BORDERS}</w:tblBorders></w:tblPr></w:style></w:styles>")
    return "".join(out)


def numbering_xml(schedules):
    """List 1 numbers the clauses; each schedule's part has a list of its own, so that it starts at 1."""
    def levels(formats):
        return "".join(
            f'<w:lvl w:ilvl="{i}"><w:start w:val="1"/><w:numFmt w:val="{kind}"/>'
            + (f'<w:pStyle w:val="{style}"/>' if style else "")
            + f'<w:lvlText w:val="{text}"/><w:lvlJc w:val="left"/><w:pPr><w:ind w:left="{left}" w:hanging="720"/></w:pPr>'
            "</w:lvl>" for i, (kind, style, text, left) in enumerate(formats))
    clauses = levels([("decimal", "Heading1", "%1.", 720), ("decimal", "Clause2", "%1.%2", 720),
                      ("lowerLetter", "Clause3", "(%3)", 1440), ("lowerRoman", "Clause4", "(%4)", 2160)])
    paragraphs = levels([("decimal", "", "%1.", 720), ("lowerLetter", "", "(%2)", 1440), ("lowerRoman", "", "(%3)", 2160)])
    out = [HEADER, f"<w:numbering {NAMESPACES}>",
           f'<w:abstractNum w:abstractNumId="1"><w:multiLevelType w:val="multilevel"/>{clauses}</w:abstractNum>',
           f'<w:abstractNum w:abstractNumId="2"><w:multiLevelType w:val="multilevel"/>{paragraphs}</w:abstractNum>',
           '<w:num w:numId="1"><w:abstractNumId w:val="1"/></w:num>']
    for number in range(schedules):
        out.append(f'<w:num w:numId="{number + 2}"><w:abstractNumId w:val="2"/>'
                   '<w:lvlOverride w:ilvl="0"><w:startOverride w:val="1"/></w:lvlOverride></w:num>')
    out.append("</w:numbering>")
    return "".join(out)


def run(text, properties=""):
    properties = f"<w:rPr>{properties}</w:rPr>" if properties else ""
    return f'<w:r>{properties}<w:t xml:space="preserve">{escape(text)}</w:t></w:r>' if text else ""


def field(code, result, properties=""):
    """A complex field."""
    properties = f"<w:rPr>{properties}</w:rPr>" if properties else ""
    character = '<w:r>' + properties + '<w:fldChar w:fldCharType="%s"/></w:r>'
    return (character % "begin" + f'<w:r>{properties}<w:instrText xml:space="preserve"> {escape(code)} </w:instrText></w:r>'
            + character % "separate" + result + character % "end")


class Document:
    def __init__(self, title):
        self.title = title
        self.body = []
        self.parts = {}  # name: (xml, content type)
        self.relations = []  # (id, type, target)
        self.footnotes = []
        self.endnotes = []
        self.bookmarks = 0
        self.lists = 0
        self.table = []
        self.headings = []
        self.settings = ""

    # --- text ---------------------------------------------------------------------------------------------------

    def inline(self, text):
        text = text.replace("~", "\u00a0")
        out, bold, italic = [], False, False
        for piece in INLINE.split(text):
            properties = ("<w:b/>" if bold else "") + ("<w:i/>" if italic else "")
            if piece == "**":
                bold = not bold
            elif piece == "//":
                italic = not italic
            elif piece.startswith("[[fn: "):
                out.append(self.note("footnote", self.footnotes, piece[6:-2]))
            elif piece.startswith("[[en: "):
                out.append(self.note("endnote", self.endnotes, piece[6:-2]))
            elif piece.startswith("[[ref "):
                name, shown = piece[6:-2].split("|")
                out.append(field(f"REF {name} \\r \\h", run(shown, properties), properties))
            elif piece.startswith("[[bm "):
                name, shown = piece[5:-2].split("|")
                self.bookmarks += 1
                out.append(f'<w:bookmarkStart w:id="{self.bookmarks}" w:name="{name}"/>{run(shown, properties)}'
                           f'<w:bookmarkEnd w:id="{self.bookmarks}"/>')
            else:
                out.append(run(piece, properties))
        return "".join(out)

    def note(self, kind, notes, text):
        style = kind.capitalize()
        notes.append(f'<w:{kind} w:id="{len(notes) + 1}"><w:p><w:pPr><w:pStyle w:val="{style}Text"/></w:pPr>'
                     f'<w:r><w:rPr><w:rStyle w:val="{style}Reference"/></w:rPr><w:{kind}Ref/></w:r>'
                     + self.inline(" " + text) + f"</w:p></w:{kind}>")
        return (f'<w:r><w:rPr><w:rStyle w:val="{style}Reference"/></w:rPr>'
                f'<w:{kind}Reference w:id="{len(notes)}"/></w:r>')

    def paragraph(self, style, text, extra=""):
        self.body.append(f'<w:p><w:pPr><w:pStyle w:val="{style}"/>{extra}</w:pPr>{self.inline(text)}</w:p>')

    # --- lines --------------------------------------------------------------------------------------------------

    def add(self, lines):
        for line in lines.strip("\n").split("\n"):
            if not line.strip():
                continue
            code, _, text = line.partition(" ")
            if code != "|":
                self.end_table()
            if code == "|":
                self.table.append([cell.strip() for cell in text.strip().strip("|").split("|")])
            elif code in ("W", "W2", "W3"):
                level = int(code[1:] or 1) - 1
                self.paragraph("Normal", text, f'<w:numPr><w:ilvl w:val="{level}"/><w:numId w:val="{self.lists + 1}"/></w:numPr>')
            elif code == "N":
                self.body.append('<w:p><w:r><w:br w:type="page"/></w:r></w:p>')
            elif code == "X":
                self.body.append(text)
            elif code == "TOC":
                self.body.append("@TOC@")
            elif code == "SECTION":
                self.end_section(**dict(word.split("=", 1) for word in text.split()))
            else:
                if code in ("S", "H"):
                    self.lists += 1
                if code in ("1", "S"):
                    self.headings.append((code, text))
                self.paragraph(PARAGRAPH_STYLES[code], text)
        self.end_table()

    def end_table(self):
        if not self.table:
            return
        rows, self.table = self.table, []
        columns = max(len(row) for row in rows)
        width = 9026 // columns
        out = ['<w:tbl><w:tblPr><w:tblStyle w:val="TableGrid"/><w:tblW w:w="5000" w:type="pct"/></w:tblPr><w:tblGrid>',
               f'<w:gridCol w:w="{width}"/>' * columns, "</w:tblGrid>"]
        for number, row in enumerate(rows):
            out.append("<w:tr><w:trPr><w:cantSplit/>" + ("<w:tblHeader/>" if number == 0 else "") + "</w:trPr>")
            for cell in row:
                text = f"**{cell}**" if number == 0 else cell
                out.append(f'<w:tc><w:tcPr><w:tcW w:w="{width}" w:type="dxa"/></w:tcPr><w:p><w:pPr><w:spacing w:after="60"/>'
                           f'<w:jc w:val="left"/></w:pPr>{self.inline(text)}</w:p></w:tc>')
            out.append("</w:tr>")
        out.append('</w:tbl><w:p><w:pPr><w:spacing w:after="120"/></w:pPr></w:p>')
        self.body.append("".join(out))

    # --- sections -----------------------------------------------------------------------------------------------

    def part(self, name, xml, kind):
        self.parts[f"word/{name}.xml"] = (HEADER + xml, TYPE + kind + "+xml")
        self.relations.append((f"rId{len(self.relations) + 1}", RELATIONSHIP + re.sub(r"\d", "", name), name + ".xml"))
        return self.relations[-1][0]

    def section_properties(self, header="", footer="", format="", start="", title="", landscape="", kind=""):
        out = ["<w:sectPr>"]
        if header:
            name = f"header{sum('header' in part for part in self.parts) + 1}"
            text = self.inline(header.replace("_", " ")).replace("\t", "</w:t><w:tab/><w:t>")
            relation = self.part(name, f'<w:hdr {NAMESPACES}><w:p><w:pPr><w:pStyle w:val="Header"/></w:pPr>{text}</w:p></w:hdr>',
                                 "header")
            out.append(f'<w:headerReference w:type="default" r:id="{relation}"/>')
        if footer:
            name = f"footer{sum('footer' in part for part in self.parts) + 1}"
            before, _, after = footer.replace("_", " ").partition("#")
            text = self.inline(before) + field("PAGE", run("1")) + self.inline(after)
            relation = self.part(name, f'<w:ftr {NAMESPACES}><w:p><w:pPr><w:pStyle w:val="Footer"/></w:pPr>{text}</w:p></w:ftr>',
                                 "footer")
            out.append(f'<w:footerReference w:type="default" r:id="{relation}"/>')
        if kind:
            out.append(f'<w:type w:val="{kind}"/>')
        size = ('<w:pgSz w:w="16838" w:h="11906" w:orient="landscape"/>' if landscape
                else '<w:pgSz w:w="11906" w:h="16838"/>')
        out.append(size + '<w:pgMar w:top="1440" w:right="1440" w:bottom="1440" w:left="1440" w:header="708" w:footer="708" '
                   'w:gutter="0"/>')
        if format or start:
            out.append("<w:pgNumType" + (f' w:fmt="{format}"' if format else "") + (f' w:start="{start}"' if start else "")
                       + "/>")
        out.append("<w:titlePg/>" if title else "")
        out.append("</w:sectPr>")
        return "".join(out)

    def end_section(self, **settings):
        self.body.append(f"<w:p><w:pPr>{self.section_properties(**settings)}</w:pPr></w:p>")

    def contents(self):
        """The table of contents without page numbers, as its \\n switch asks for."""
        out, clause = [], 0
        for number, (code, text) in enumerate(self.headings):
            shown = re.sub(r"\[\[bm [^|]+\|([^\]]*)\]\]", r"\1", text)
            if code == "1":
                clause += 1
                shown = f"{clause}.\t{shown}"
            begin = end = ""
            if number == 0:
                begin = ('<w:r><w:fldChar w:fldCharType="begin"/></w:r><w:r><w:instrText xml:space="preserve"> '
                         'TOC \\n \\o "1-1" \\t "Schedule Heading,1" </w:instrText></w:r>'
                         '<w:r><w:fldChar w:fldCharType="separate"/></w:r>')
            if number == len(self.headings) - 1:
                end = '<w:r><w:fldChar w:fldCharType="end"/></w:r>'
            text = run(shown).replace("\t", '</w:t><w:tab/><w:t xml:space="preserve">')
            out.append(f'<w:p><w:pPr><w:pStyle w:val="TOC1"/></w:pPr>{begin}{text}{end}</w:p>')
        return "".join(out)

    # --- package ------------------------------------------------------------------------------------------------

    def notes_xml(self, kind, notes):
        special = "".join(f'<w:{kind} w:type="{name}" w:id="{number}"><w:p><w:r><w:{mark}/></w:r></w:p></w:{kind}>'
                          for name, number, mark in (("separator", -1, "separator"),
                                                     ("continuationSeparator", 0, "continuationSeparator")))
        return f"<w:{kind}s {NAMESPACES}>{special}{''.join(notes)}</w:{kind}s>"

    def save(self, path, **last_section):
        self.end_table()
        last = self.section_properties(**last_section)
        if self.footnotes:
            self.part("footnotes", self.notes_xml("footnote", self.footnotes), "footnotes")
        if self.endnotes:
            self.part("endnotes", self.notes_xml("endnote", self.endnotes), "endnotes")
        self.part("styles", styles_xml()[len(HEADER):], "styles")
        self.part("numbering", numbering_xml(self.lists)[len(HEADER):], "numbering")
        notes = ""
        for kind, texts in (("footnote", self.footnotes), ("endnote", self.endnotes)):
            if texts:
                notes += f'<w:{kind}Pr><w:{kind} w:id="-1"/><w:{kind} w:id="0"/></w:{kind}Pr>'
        self.part("settings", f"<w:settings {NAMESPACES}>{self.settings}<w:characterSpacingControl w:val=\"doNotCompress\"/>"
                  f"{notes}<w:compat><w:compatSetting w:name=\"compatibilityMode\" "
                  'w:uri="http://schemas.microsoft.com/office/word" w:val="15"/></w:compat></w:settings>', "settings")
        body = "".join(self.body).replace("@TOC@", self.contents())
        self.parts["word/document.xml"] = (
            HEADER + f"<w:document {NAMESPACES}><w:body>{body}{last}</w:body></w:document>", TYPE + "document.main+xml")
        write_package(path, self.title, self.parts, self.relations)


def write_package(path, title, parts, relations, main_relation=RELATIONSHIP + "officeDocument"):
    """The parts of a document with what every package needs around them. The zip says 1980 as its time."""
    package = "http://schemas.openxmlformats.org/package/2006/"
    parts = dict(parts)
    parts["docProps/core.xml"] = (
        HEADER + f'<cp:coreProperties xmlns:cp="{package}metadata/core-properties" '
        'xmlns:dc="http://purl.org/dc/elements/1.1/" xmlns:dcterms="http://purl.org/dc/terms/" '
        f'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"><dc:title>{escape(title)}</dc:title>'
        "<dc:creator>Kelvarin samples</dc:creator></cp:coreProperties>",
        "application/vnd.openxmlformats-package.core-properties+xml")
    types = "".join(f'<Override PartName="/{name}" ContentType="{kind}"/>' for name, (_, kind) in parts.items())
    files = {
        "[Content_Types].xml": HEADER + f'<Types xmlns="{package}content-types">'
        '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
        f'<Default Extension="xml" ContentType="application/xml"/>{types}</Types>',
        "_rels/.rels": HEADER + f'<Relationships xmlns="{package}relationships">'
        f'<Relationship Id="rId1" Type="{main_relation}" Target="word/document.xml"/>'
        f'<Relationship Id="rId2" Type="{package}relationships/metadata/core-properties" Target="docProps/core.xml"/>'
        "</Relationships>",
        "word/_rels/document.xml.rels": HEADER + f'<Relationships xmlns="{package}relationships">' + "".join(
            f'<Relationship Id="{number}" Type="{kind}" Target="{target}"/>' for number, kind, target in relations)
        + "</Relationships>",
    }
    files.update({name: xml for name, (xml, _) in parts.items()})
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as out:
        for name, xml in files.items():
            entry = zipfile.ZipInfo(name, date_time=(1980, 1, 1, 0, 0, 0))
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            entry.create_system = 3
            out.writestr(entry, xml.encode("utf-8"))
