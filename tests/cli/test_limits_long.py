import io
import json
import time
import zipfile

import program
from test_hostile import RELATIONS, TYPES, W, body

MIB = 1 << 20


def stored(*document, extra=()):
    """A package whose parts are not packed: packing so much would take longer than the test."""
    parts = {"[Content_Types].xml": [TYPES], "_rels/.rels": [RELATIONS], "word/document.xml": document}
    parts.update(extra)
    out = io.BytesIO()
    with zipfile.ZipFile(out, "w", zipfile.ZIP_STORED) as archive:
        for name, pieces in parts.items():
            with archive.open(name, "w") as part:
                for piece in pieces:
                    part.write(piece.encode("utf-8"))
    return out.getvalue()


class LongLimits(program.Case):
    """What takes long to be refused, or to be done: each says how long, and with how much memory."""

    def measured(self, *arguments, status=0):
        start = time.monotonic()
        result = self.check(*arguments, status=status)
        print(f"{self.id().split('.')[-1]}: {time.monotonic() - start:.1f} s, {result.peak // MIB} MiB")
        return result

    def refused(self, message):
        result = self.measured("index", "large.docx", "-o", "out.docx", "--pages", "file", status=3)
        self.assertEqual(len(result.err.splitlines()), 1)
        self.assertIn("kelvarin: large.docx: " + message, result.err)
        self.assertFalse((self.folder / "out.docx").exists())

    def test_parts_of_more_than_384_mib_together(self):
        words = "".join(f"{number * 7919 % 1000003} " for number in range(40_000))
        times = (130 * MIB) // len(words)

        def large(root, content):
            start, end = content.split("@")
            return [f'<?xml version="1.0"?><w:{root} {W}>{start}'] + [words] * times + [f"{end}</w:{root}>"]

        text = "<w:p><w:r><w:t>@</w:t></w:r></w:p>"
        types = TYPES
        relations = '<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
        extra = {}
        for number, kind in enumerate(("footnotes", "endnotes")):
            types = types.replace("</Types>", f'<Override PartName="/word/{kind}.xml" ContentType="application/vnd.openxmlformats-'
                                  f'officedocument.wordprocessingml.{kind}+xml"/></Types>')
            relations += (f'<Relationship Id="rId{number}" Type="http://schemas.openxmlformats.org/officeDocument/2006/'
                          f'relationships/{kind}" Target="{kind}.xml"/>')
            extra[f"word/{kind}.xml"] = large(kind, f'<w:{kind[:-1]} w:id="2">{text}</w:{kind[:-1]}>')
        extra["word/_rels/document.xml.rels"] = [relations + "</Relationships>"]
        extra["[Content_Types].xml"] = [types]
        notes = "<w:p><w:r><w:footnoteReference w:id=\"2\"/><w:endnoteReference w:id=\"2\"/></w:r></w:p>"
        (self.folder / "large.docx").write_bytes(stored(*large("document", f"<w:body>{notes}{text}</w:body>"), extra=extra))
        self.refused("is not accepted: \"word/")

    def test_more_than_8_million_elements(self):
        start, end = body("@").split("@")
        piece = "".join(f'<w:p w:x="{number * 7919 % 1000003}"/>' for number in range(100_000))
        (self.folder / "large.docx").write_bytes(stored(start, *[piece] * 81, end))
        self.refused("is damaged or not accepted: word/document.xml has too many elements")

    def test_1_000_000_runs_in_a_paragraph_are_none_too_many(self):
        one = '<w:r><w:t xml:space="preserve">@</w:t></w:r>'
        runs = one.replace("@", "“Buyer” is the Buyer, ") + one.replace("@", "a ") * 1_000_000
        (self.folder / "large.docx").write_bytes(stored(body(f"<w:p>{runs}</w:p>")))
        self.measured("index", "large.docx", "-o", "out.docx", "--pages", "file")
        self.measured("remove", "out.docx", "-o", "again.docx")
        with zipfile.ZipFile(self.folder / "again.docx") as again:
            self.assertEqual(again.read("word/document.xml").decode("utf-8"), body(f"<w:p>{runs}</w:p>"))

    def test_10_000_pages_are_none_too_many(self):
        pages = "".join(f"<w:p><w:pPr><w:pageBreakBefore/></w:pPr><w:r><w:t>“Term {page % 500}x” and the Buyer.</w:t></w:r></w:p>"
                        + "<w:p><w:r><w:t>Text that fills the page is of no account here.</w:t></w:r></w:p>" * 20 for page in range(10_000))
        (self.folder / "large.docx").write_bytes(stored(body(pages)))
        for source in ("file", "layout"):
            self.measured("index", "large.docx", "-o", f"{source}.docx", "--pages", source, "--report", f"{source}.json")
            report = json.loads((self.folder / f"{source}.json").read_text(encoding="utf-8"))
            self.assertGreaterEqual(report["pages"], 10_000)
            self.assertEqual(len(report["chosen"]), 500)

    def test_what_would_become_larger_than_256_mib_is_not_written(self):
        # Less than that before it is marked.
        start, end = body("@").split("@")
        piece = "".join(f"<w:p><w:r><w:t>“Buyer” {number * 7919 % 1000003}</w:t></w:r></w:p>" for number in range(100_000))
        (self.folder / "large.docx").write_bytes(stored(start, *[piece] * 9, end))
        self.refused("would become too large: \"word/document.xml\" more than 256 MiB")


if __name__ == "__main__":
    program.main()
