"""A short software licence written the way real files come: by many hands, with every kind of formatting in the way.

Each paragraph's comment says what is awkward about it.
"""

from docx_writer import HEADER, NAMESPACES, RELATIONSHIP, TYPE, W, R, field, run, styles_xml, write_package

EXTRA = ('xmlns:mc="http://schemas.openxmlformats.org/markup-compatibility/2006" '
         'xmlns:wp="http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing" '
         'xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" '
         'xmlns:wps="http://schemas.microsoft.com/office/word/2010/wordprocessingShape" '
         'xmlns:w14="http://schemas.microsoft.com/office/word/2010/wordml" '
         'xmlns:v="urn:schemas-microsoft-com:vml" mc:Ignorable="w14"')
AUTHOR = 'w:author="Reviewer" w:date="2025-02-03T09:00:00Z"'
NOBREAK, SOFT_HYPHEN_CHARACTER, EN_SPACE = "\u00a0", "\u00ad", "\u2002"
YELLOW, GREEN = '<w:highlight w:val="yellow"/>', '<w:highlight w:val="green"/>'


def paragraph(*content, properties=""):
    return f"<w:p>{f'<w:pPr>{properties}</w:pPr>' if properties else ''}{''.join(content)}</w:p>"


def heading(text):
    return paragraph(run(text), properties='<w:pStyle w:val="Heading1"/>')


def split(text, *properties):
    """One run a character, with the properties in turn, the way spell checkers and slow typists leave it."""
    properties = properties or ("",)
    return "".join(run(character, properties[i % len(properties)]) for i, character in enumerate(text))


def inserted(content, number):
    return f'<w:ins w:id="{number}" {AUTHOR}>{content}</w:ins>'


def deleted(text, number):
    return (f'<w:del w:id="{number}" {AUTHOR}><w:r><w:delText xml:space="preserve">{text}</w:delText></w:r></w:del>')


def content_control(content, title):
    return (f'<w:sdt><w:sdtPr><w:alias w:val="{title}"/><w:tag w:val="{title}"/></w:sdtPr>'
            f"<w:sdtContent>{content}</w:sdtContent></w:sdt>")


def bookmark(number, name, content):
    return f'<w:bookmarkStart w:id="{number}" w:name="{name}"/>{content}<w:bookmarkEnd w:id="{number}"/>'


def table(*rows):
    columns = max(len(row) for row in rows)
    body = "".join("<w:tr>" + "".join(f'<w:tc><w:tcPr><w:tcW w:w="0" w:type="auto"/></w:tcPr>{cell}</w:tc>'
                                      for cell in row) + "</w:tr>" for row in rows)
    return ('<w:tbl><w:tblPr><w:tblStyle w:val="TableGrid"/><w:tblW w:w="0" w:type="auto"/></w:tblPr><w:tblGrid>'
            + '<w:gridCol w:w="3000"/>' * columns + f"</w:tblGrid>{body}</w:tbl>")


def text_box():
    """Stored twice, as a drawing and as the picture of older readers; a reader takes one of them."""
    inside = paragraph(run("Note: the “Escrow Copy” of the Software is kept by the Custodian."))
    box = f"<w:txbxContent>{inside}</w:txbxContent>"
    drawing = ('<w:drawing><wp:inline distT="0" distB="0" distL="0" distR="0"><wp:extent cx="3600000" cy="720000"/>'
               '<wp:docPr id="1" name="Note"/><a:graphic><a:graphicData '
               'uri="http://schemas.microsoft.com/office/word/2010/wordprocessingShape"><wps:wsp><wps:cNvSpPr txBox="1"/>'
               '<wps:spPr><a:xfrm><a:off x="0" y="0"/><a:ext cx="3600000" cy="720000"/></a:xfrm><a:prstGeom prst="rect">'
               '<a:avLst/></a:prstGeom><a:ln w="9525"><a:solidFill><a:srgbClr val="000000"/></a:solidFill></a:ln></wps:spPr>'
               f"<wps:txbx>{box}</wps:txbx><wps:bodyPr/></wps:wsp></a:graphicData></a:graphic></wp:inline></w:drawing>")
    picture = f'<w:pict><v:shape id="Note" style="width:283pt;height:57pt"><v:textbox>{box}</v:textbox></v:shape></w:pict>'
    return (f'<w:r><mc:AlternateContent><mc:Choice Requires="wps">{drawing}</mc:Choice><mc:Fallback>{picture}'
            "</mc:Fallback></mc:AlternateContent></w:r>")


def body():
    hyphen = "<w:r><w:softHyphen/></w:r>"
    nobreak_hyphen = "<w:r><w:noBreakHyphen/></w:r>"
    return [
        # A title with a line break inside.
        paragraph(run("Software Licence"), "<w:r><w:br/></w:r>", run("and Support Terms"),
                  properties='<w:pStyle w:val="Title"/>'),
        # A definition split over runs of one character, in which the bold is not everywhere the same.
        paragraph(run("These terms are made between Tollgate Systems Limited (the "), split("“Licensor”", "<w:b/>"),
                  run(") and the customer named in the order (the "), run("“"), run("Lic", "<w:b/>"),
                  '<w:proofErr w:type="spellStart"/>', run("ens", "<w:b/><w:i/>"), '<w:proofErr w:type="spellEnd"/>',
                  run("ee", "<w:b/>"), run("”"), run(").")),
        heading("Definitions"),
        # Straight quotes, angle quotes and single quotes beside the curly ones.
        paragraph(run('"Order" means an order form that both sides have signed; «Site» means the Licensee’s premises at '
                      "which the Software is used; ‘Territory’ means the United Kingdom.")),
        # A term inserted with tracking, one deleted with tracking, and one of which a part was replaced.
        paragraph(run("“"), inserted(run("Software", "<w:b/>"), 201), run("” means the programs in the Order. "),
                  deleted("“Obsolete Term” means nothing any more. ", 202), run("“Support "), deleted("Hours", 203),
                  inserted(run("Period"), 204), run("” means the time for which fees were paid.")),
        # Hidden text around and inside.
        paragraph(run("“Documentation” means the manuals"), run(" (“Hidden Term”: drafting note, not to be printed)", "<w:vanish/>"),
                  run(" that the Licensor publishes for the Software.")),
        # A content control over a term, one in a run of text, and one around a whole paragraph.
        paragraph(run("“"), content_control(run("Commencement Date"), "date-term"), run("” means "),
                  content_control(run("1 March 2025"), "date"), run(", from which the Support Period runs.")),
        content_control(paragraph(run("“Fee” means the price in the Order, which is due on the Commencement Date.")), "fee"),
        # A smart tag, a hyperlink and custom XML around terms.
        paragraph(run("“"), '<w:smartTag w:uri="urn:example:tags" w:element="term">' + run("Custodian") + "</w:smartTag>",
                  run("” means the body named at "), '<w:hyperlink w:anchor="CustodianPlace">' + run("the end of the Order")
                  + "</w:hyperlink>", run(".")),
        # Non-breaking and other blanks, soft hyphens in both forms, non-breaking hyphens, a tab and a symbol.
        paragraph(run(f"“Third{NOBREAK}Party{NOBREAK}Code” means code of others. The Third Party Code is listed in the Docu"),
                  hyphen, run("mentation, and the Third Party Co"), hyphen, run(f"de changes. Docu{SOFT_HYPHEN_CHARACTER}mentation "
                  f"of Third{EN_SPACE}Party Code is not the Licensor’s. “Read"), nobreak_hyphen,
                  run("Only Copy” means a back-up."), "<w:r><w:tab/></w:r>", run("A Read"), nobreak_hyphen,
                  run("Only Copy is free "), '<w:r><w:sym w:font="Symbol" w:char="F0D4"/></w:r>', run(".")),
        heading("The licence"),
        # The author's own highlighting over terms, across their edges and next to them, in two colours.
        paragraph(run("The "), run("Licensor", YELLOW), run(" grants the "), run("Licensee the right to use the Sof", GREEN),
                  run("tware at the Site during the Support Period. The "), run("Fee", GREEN), run(" "),
                  run("is not repayable, and the ", YELLOW), run("Order", YELLOW + "<w:shd w:val=\"clear\" w:fill=\"DDDDDD\"/>"),
                  run(" prevails.")),
        # Bookmarks that begin and end inside terms, and overlap.
        paragraph(run("The "), '<w:bookmarkStart w:id="11" w:name="FirstHalf"/>', run("Docu"),
                  '<w:bookmarkStart w:id="12" w:name="SecondHalf"/>', run("men"), '<w:bookmarkEnd w:id="11"/>', run("tation"),
                  '<w:bookmarkEnd w:id="12"/>', run(" may be copied at the "), bookmark(13, "WholeTerm", run("Site")),
                  run(".")),
        # The author's own index entry and index, a simple field, a complex one with formatting, and one inside another.
        paragraph(run("The Licensee"), '<w:r><w:fldChar w:fldCharType="begin"/></w:r><w:r><w:instrText xml:space="preserve"> '
                  'XE "Licensee:duties" </w:instrText></w:r><w:r><w:fldChar w:fldCharType="end"/></w:r>',
                  run(" shall keep the Software safe. Printed on "),
                  '<w:fldSimple w:instr=" DATE \\@ &quot;d MMMM yyyy&quot; ">' + run("3 February 2025") + "</w:fldSimple>",
                  run(" for "), field("IF 1 = 1 \"the Licensee\" \"nobody\"", run("the Licensee")), run(", see "),
                  field("REF WholeTerm \\h", run("Site")), run(".")),
        # Half a term in another font, small capitals, capitals by formatting and capitals by typing.
        paragraph(run("The "), run("Docu", '<w:rFonts w:ascii="DejaVu Sans" w:hAnsi="DejaVu Sans"/>'), run("mentation", "<w:smallCaps/>"),
                  run(" and the "), run("Software", "<w:caps/>"), run(" are the property of the Licensor. THE SOFTWARE IS SUPPLIED AS "
                  "IT IS. THE LICENSOR GIVES NO OTHER WARRANTY.")),
        # A possessive, a plural, a longer term that holds a shorter one, and a term inside a longer word.
        paragraph(run("The Licensor’s staff may enter the Site. “Support” means help by telephone; Support Period and Supports are "
                      "other words, and so are Orders, Reorder and Sites. An Order-based price is not a Fee.")),
        # A text box that is stored twice.
        paragraph(text_box()),
        # A nested table with terms in its inner cells.
        table([paragraph(run("Item")), paragraph(run("Who pays the Fee"))],
              [paragraph(run("Software")),
               table([paragraph(run("First year")), paragraph(run("Licensee"))],
                     [paragraph(run("“Later Years”")), paragraph(run("Licensee, if the Support Period goes on"))])
               + paragraph(run("Support"))]),
        paragraph(),
        # Two notes, one of them with a definition of its own.
        paragraph(run("The Licensee may move the Software to another Site"), '<w:r><w:rPr><w:rStyle w:val="FootnoteReference"/>'
                  '</w:rPr><w:footnoteReference w:id="1"/></w:r>', run(" or to the cloud"),
                  '<w:r><w:rPr><w:rStyle w:val="EndnoteReference"/></w:rPr><w:endnoteReference w:id="1"/></w:r>', run(".")),
        # A paragraph mark that was deleted with tracking, and a moved sentence.
        paragraph(run("The Licensor may end these terms"), properties=f'<w:rPr><w:del w:id="205" {AUTHOR}/></w:rPr>'),
        paragraph(run(" if the Fee is not paid. "),
                  f'<w:moveFromRangeStart w:id="206" w:name="move1" {AUTHOR}/><w:moveFrom w:id="207" {AUTHOR}>'
                  + run("The Custodian is told. ") + '</w:moveFrom><w:moveFromRangeEnd w:id="206"/>',
                  run("The Licensee then removes the Software. "),
                  f'<w:moveToRangeStart w:id="208" w:name="move1" {AUTHOR}/><w:moveTo w:id="209" {AUTHOR}>'
                  + run("The Custodian is told. ") + '</w:moveTo><w:moveToRangeEnd w:id="208"/>'),
        # A comment over a term, a page break the word processor rendered, and one the author made.
        paragraph('<w:commentRangeStart w:id="0"/>', run("The Custodian"), '<w:commentRangeEnd w:id="0"/>'
                  '<w:r><w:commentReference w:id="0"/></w:r>', run(" holds the Escrow Copy."), '<w:r><w:br w:type="page"/></w:r>',
                  run("The Escrow Copy is renewed "), "<w:r><w:lastRenderedPageBreak/></w:r>", run("with each release.")),
        paragraph(bookmark(14, "CustodianPlace", run("The Custodian’s office is in Derby.")), "<w:r><w:cr/></w:r>",
                  run("Characters beyond the first plane: \U0001d4de\u0301 “Ω-Licence” and “Café Use”, the latter with a "
                      "combining accent as Cafe\u0301 Use.")),
        # The author's own index, of the author's own entries.
        paragraph(field("INDEX \\c \"1\" \\z \"2057\"", run("Licensee, duties, 1"))),
        '<w:sectPr><w:headerReference w:type="default" r:id="rId1"/><w:pgSz w:w="11906" w:h="16838"/><w:pgMar w:top="1440" '
        'w:right="1440" w:bottom="1440" w:left="1440" w:header="708" w:footer="708" w:gutter="0"/></w:sectPr>',
    ]


def note(kind, text):
    special = "".join(f'<w:{kind} w:type="{name}" w:id="{number}"><w:p><w:r><w:{name}/></w:r></w:p></w:{kind}>'
                      for name, number in (("separator", -1), ("continuationSeparator", 0)))
    style = kind.capitalize()
    return (f'<w:{kind}s {NAMESPACES}>{special}<w:{kind} w:id="1">'
            + paragraph(f'<w:r><w:rPr><w:rStyle w:val="{style}Reference"/></w:rPr><w:{kind}Ref/></w:r>', run(" "), text,
                        properties=f'<w:pStyle w:val="{style}Text"/>') + f"</w:{kind}></w:{kind}s>")


def save(path, strict):
    """@param strict in the namespaces of the strict form, which knows neither the old picture of a text box nor the
    smart tag."""
    parts = {
        "header1.xml": ("header", f'<w:hdr {NAMESPACES}>' + paragraph(run("“Header Term” of the Licensor")) + "</w:hdr>"),
        "footnotes.xml": ("footnotes", note("footnote", run("A “Second Site” needs the Licensor’s consent. The Site is not moved "
                                                            "before."))),
        "endnotes.xml": ("endnotes", note("endnote", run("The cloud is no Site, and the Second Site may not be one."))),
        "comments.xml": ("comments", f'<w:comments {NAMESPACES}><w:comment w:id="0" {AUTHOR}>'
                         + paragraph(run("Is the “Comment Term” the Custodian?")) + "</w:comment></w:comments>"),
        "styles.xml": ("styles", styles_xml()[len(HEADER):]),
        "settings.xml": ("settings", f'<w:settings {NAMESPACES}><w:footnotePr><w:footnote w:id="-1"/><w:footnote w:id="0"/>'
                         '</w:footnotePr><w:endnotePr><w:endnote w:id="-1"/><w:endnote w:id="0"/></w:endnotePr></w:settings>'),
    }
    relations = [(f"rId{i + 1}", RELATIONSHIP + kind, name) for i, (name, (kind, _)) in enumerate(parts.items())]
    body_xml = "".join(body())
    if strict:
        start, end = body_xml.index("<mc:Fallback>"), body_xml.index("</mc:AlternateContent>")
        body_xml = body_xml[:start] + body_xml[end:]
        body_xml = body_xml.replace('<w:smartTag w:uri="urn:example:tags" w:element="term">', "").replace("</w:smartTag>", "")
    document = f"<w:document {NAMESPACES} {EXTRA}><w:body>{body_xml}</w:body></w:document>"
    files = {"word/document.xml": (HEADER + document, TYPE + "document.main+xml")}
    files.update({"word/" + name: (HEADER + xml, TYPE + kind + "+xml") for name, (kind, xml) in parts.items()})
    if strict:
        replace = {W: "http://purl.oclc.org/ooxml/wordprocessingml/main",
                   R: "http://purl.oclc.org/ooxml/officeDocument/relationships",
                   "http://schemas.openxmlformats.org/drawingml/2006/": "http://purl.oclc.org/ooxml/drawingml/"}
        for name, (xml, kind) in files.items():
            for old, new in replace.items():
                xml = xml.replace(old, new)
            if name == "word/document.xml":
                xml = xml.replace("<w:document ", '<w:document w:conformance="strict" ', 1)
            files[name] = (xml, kind)
        relations = [(number, kind.replace(R, replace[R]), target) for number, kind, target in relations]
        write_package(path, "Software Licence and Support Terms", files, relations, replace[R] + "/officeDocument")
    else:
        write_package(path, "Software Licence and Support Terms", files, relations)
