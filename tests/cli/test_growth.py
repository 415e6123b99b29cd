import os
import subprocess

import program
from test_hostile import body, package, slowness, W

OFFICE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
RELATIONSHIPS = "http://schemas.openxmlformats.org/package/2006/relationships"


def paragraph(content):
    return f"<w:p>{content}</w:p>"


def run(text):
    return f'<w:r><w:t xml:space="preserve">{text}</w:t></w:r>'


def mark(kind):
    return f'<w:r><w:fldChar w:fldCharType="{kind}"/></w:r>'


def part(kind, content):
    """A part beside the main one, and what relates it."""
    return {f"word/{kind}.xml": f"<w:{kind} {W}>{content}</w:{kind}>",
            "word/_rels/document.xml.rels": f'<Relationships xmlns="{RELATIONSHIPS}"><Relationship Id="rId1" '
                                            f'Type="{OFFICE}/{kind}" Target="{kind}.xml"/></Relationships>'}


DEFINED = paragraph(run("“Buyer” means the buyer."))


class Growth(program.Case):
    """Four times as much takes about four times the time: a step that took the square would take sixteen."""

    def seconds(self, *arguments):
        """Of the processor, for the program itself."""
        best = None
        for _ in range(3):
            process = subprocess.Popen([program.KELVARIN, *arguments], cwd=self.folder, env=self.environment(),
                                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
            with process:
                error = process.stderr.read()
                _, ended, usage = os.wait4(process.pid, 0)
                process.returncode = os.waitstatus_to_exitcode(ended)
            self.assertEqual(process.returncode, 0, error)
            taken = usage.ru_utime + usage.ru_stime
            best = taken if best is None else min(best, taken)
        return best

    def grows_in_proportion(self, many, count, extra=lambda number: ()):
        """@param many blocks so many times"""
        count //= slowness()
        taken = []
        for number in (count, 4 * count):
            (self.folder / "contract.docx").write_bytes(package(body(DEFINED + many(number)), extra(number)))
            steps = [self.seconds("index", "contract.docx", "-o", "out.docx", "--force", "--quiet", "--pages", "layout"),
                     self.seconds("update", "out.docx", "-o", "updated.docx", "--force", "--quiet"),
                     self.seconds("remove", "out.docx", "-o", "removed.docx", "--force", "--quiet"),
                     self.seconds("check", "contract.docx")]
            taken.append(steps)
        for name, few, more in zip(("index", "update", "remove", "check"), *taken):
            # What a run costs in any case does not grow.
            self.assertLess(more, 8 * few + 0.1, f"{name}: {few:.2f} s, {more:.2f} s")

    def test_paragraphs(self):
        self.grows_in_proportion(lambda number: paragraph(run("The Buyer pays.")) * number, 4_000)

    def test_terms(self):
        self.grows_in_proportion(lambda number: "".join(paragraph(run(f"“Item {i}x” is {i}; Item {i}x.")) for i in range(number)),
                                 1_500)

    def test_terms_in_a_paragraph(self):
        self.grows_in_proportion(
            lambda number: paragraph("".join(run(f"He (the “Item {i}x”) and Item {i}xs, item {i}x, an Agent{i} Unit of an Agent{i} Unit ")
                                             for i in range(number))) + paragraph(""), 1_000)

    def test_occurrences_in_a_paragraph(self):
        self.grows_in_proportion(lambda number: paragraph(run("the Buyer and ") * number), 2_000)

    def test_fields(self):
        field = mark("begin") + "<w:r><w:instrText> REF x </w:instrText></w:r>" + mark("separate") + run("Buyer") + mark("end")
        self.grows_in_proportion(lambda number: paragraph(field) * number, 2_000)

    def test_bookmarks(self):
        self.grows_in_proportion(
            lambda number: "".join(paragraph(f'<w:bookmarkStart w:id="{i}" w:name="b{i}"/>' + run("Buyer")
                                             + f'<w:bookmarkEnd w:id="{i}"/>') for i in range(number)), 2_000)

    def test_bookmarks_of_one_id_without_end(self):
        self.grows_in_proportion(
            lambda number: "".join(paragraph(f'<w:bookmarkStart w:id="1" w:name="b{i}"/>' + run("Buyer")) for i in range(number)),
            2_000)

    def test_rows(self):
        cell = "<w:tc>" + paragraph(run("Buyer")) + "</w:tc>"
        self.grows_in_proportion(lambda number: "<w:tbl>" + f"<w:tr>{cell}{cell}</w:tr>" * number + "</w:tbl>" + paragraph(""), 1_000)

    def test_tracked_insertions(self):
        self.grows_in_proportion(
            lambda number: paragraph("".join(f'<w:ins w:id="{i}" w:author="A">' + run("the Buyer ") + "</w:ins>"
                                             for i in range(number))), 1_000)

    def test_sections(self):
        section = "<w:p><w:pPr><w:sectPr/></w:pPr>" + run("Buyer") + "</w:p>"
        self.grows_in_proportion(lambda number: section * number, 1_000)

    def test_sections_with_headers_of_their_own(self):
        def section(i):
            reference = f'<w:headerReference xmlns:r="{OFFICE}" w:type="default" r:id="rId{i}"/>'
            return f'<w:p><w:pPr><w:sectPr>{reference}</w:sectPr></w:pPr>{run("Buyer")}</w:p>'

        def headers(number):
            parts = {f"word/header{i}.xml": f"<w:hdr {W}>{paragraph(run(f'Part {i}'))}</w:hdr>" for i in range(number)}
            relations = "".join(f'<Relationship Id="rId{i}" Type="{OFFICE}/header" Target="header{i}.xml"/>' for i in range(number))
            parts["word/_rels/document.xml.rels"] = f'<Relationships xmlns="{RELATIONSHIPS}">{relations}</Relationships>'
            return parts

        self.grows_in_proportion(lambda number: "".join(section(i) for i in range(number)), 500, headers)

    def test_styles(self):
        def styles(number):
            return part("styles", "".join(f'<w:style w:type="paragraph" w:styleId="S{i}"><w:name w:val="Style {i}"/><w:basedOn '
                                          f'w:val="S{i // 2}"/></w:style>' for i in range(1, number)))

        self.grows_in_proportion(
            lambda number: "".join(f'<w:p><w:pPr><w:pStyle w:val="S{i}"/></w:pPr>{run("Buyer")}</w:p>' for i in range(number)),
            1_000, styles)

    def test_lists(self):
        def lists(number):
            level = '<w:lvl w:ilvl="0"><w:numFmt w:val="lowerRoman"/><w:lvlText w:val="%1."/></w:lvl>'
            return part("numbering",
                        "".join(f'<w:abstractNum w:abstractNumId="{i}">{level}</w:abstractNum>' for i in range(number))
                        + "".join(f'<w:num w:numId="{i + 1}"><w:abstractNumId w:val="{i}"/></w:num>' for i in range(number)))

        self.grows_in_proportion(
            lambda number: "".join(f'<w:p><w:pPr><w:numPr><w:ilvl w:val="0"/><w:numId w:val="{i + 1}"/></w:numPr></w:pPr>'
                                   f'{run("Buyer")}</w:p>' for i in range(number)), 1_000, lists)

    def test_footnotes(self):
        def footnotes(number):
            return part("footnotes", "".join(f'<w:footnote w:id="{i}">{paragraph(run("the Buyer"))}</w:footnote>'
                                             for i in range(number)))

        self.grows_in_proportion(
            lambda number: "".join(paragraph(run("Buyer") + f'<w:r><w:footnoteReference w:id="{i}"/></w:r>') for i in range(number)),
            1_000, footnotes)

    def test_pictures_beside_text(self):
        picture = ('<w:r><w:drawing><wp:anchor xmlns:wp="http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing">'
                   '<wp:positionV relativeFrom="page"/><wp:extent cx="914400" cy="914400"/><wp:wrapSquare wrapText="bothSides"/>'
                   '</wp:anchor></w:drawing></w:r>')
        self.grows_in_proportion(lambda number: paragraph(picture + run("the Buyer ")) * number, 1_000)


if __name__ == "__main__":
    program.main()
