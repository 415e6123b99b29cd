import io
import time
import zipfile

import program
from test_hostile import GOOD, body, package


class Limits(program.Case):
    """The limits that the README states, with their messages."""

    def refused(self, message):
        start = time.monotonic()
        result = self.check("index", "large.docx", "-o", "out.docx", status=3)
        self.assertLess(time.monotonic() - start, 20)
        self.assertEqual(len(result.err.splitlines()), 1)
        self.assertIn("kelvarin: large.docx: " + message, result.err)
        self.assertFalse((self.folder / "out.docx").exists())

    def test_a_file_of_two_gigabytes(self):
        with open(self.folder / "large.docx", "wb") as file:
            file.write(package(GOOD))
            file.truncate(2 << 30)
        self.refused("is too large for a Word document: more than 512 MiB")

    def test_a_part_of_more_than_256_mib(self):
        # Of words, so that it is no bomb by its ratio.
        start, end = body("@").split("@")
        words = "".join(f"<w:p><w:r><w:t>{number * 7919 % 1000003}</w:t></w:r></w:p>" for number in range(40_000))
        (self.folder / "large.docx").write_bytes(package([start] + [words] * 180 + [end]))
        self.refused("is not accepted: \"word/document.xml\" is too large when unpacked: more than 256 MiB, or 300 times")

    def test_more_than_20_000_parts(self):
        out = io.BytesIO(package(GOOD))
        with zipfile.ZipFile(out, "a") as file:
            for number in range(20_000):
                file.writestr(f"x{number}.bin", b"")
        (self.folder / "large.docx").write_bytes(out.getvalue())
        self.refused("is not accepted: it has more than 20,000 parts")

    def test_elements_in_more_than_4_000_levels(self):
        (self.folder / "large.docx").write_bytes(package(body("<w:sdt>" * 4001 + "</w:sdt>" * 4001)))
        self.refused("is damaged or not accepted: word/document.xml is nested too deeply")

    def test_more_than_1_000_fields_in_one_another(self):
        def nested(depth):
            mark = "<w:r><w:fldChar w:fldCharType=\"{}\"/></w:r>"
            return package(body("<w:p>" + (mark.format("begin") + mark.format("separate")) * depth
                                + "<w:r><w:t>“Buyer” is the Buyer</w:t></w:r>" + mark.format("end") * depth + "</w:p>"))
        (self.folder / "large.docx").write_bytes(nested(1001))
        self.refused("is damaged or not accepted: word/document.xml has too many fields in one another")
        (self.folder / "large.docx").write_bytes(nested(1000))
        self.check("inspect", "large.docx")

    def test_more_than_100_000_attributes_in_an_element(self):
        attributes = " ".join(f'a{number}=""' for number in range(100_001))
        (self.folder / "large.docx").write_bytes(package(body(f"<w:p {attributes}/>")))
        self.refused("is damaged or not accepted: word/document.xml has too many attributes in one element")

    def test_20_000_terms_are_none_too_many(self):
        paragraphs = "".join(f"<w:p><w:r><w:t>“Term {number}x” means {number}; Term {number}x.</w:t></w:r></w:p>"
                             for number in range(20_000))
        (self.folder / "large.docx").write_bytes(package(body(paragraphs)))
        found = self.check("terms", "large.docx").out
        self.assertEqual(len(found.splitlines()), 20_000)
        report = self.report("index", "large.docx", "-o", "out.docx", "--pages", "file")
        self.assertEqual({term["count"] for term in report["terms"]}, {2})

    def test_a_paragraph_of_100_000_runs_is_none_too_long(self):
        runs = "<w:r><w:t xml:space=\"preserve\">“Buyer” is the Buyer, </w:t></w:r>" + "<w:r><w:t xml:space=\"preserve\">a </w:t></w:r>" * 100_000
        (self.folder / "large.docx").write_bytes(package(body(f"<w:p>{runs}</w:p>")))
        self.check("index", "large.docx", "-o", "out.docx", "--pages", "file")


if __name__ == "__main__":
    program.main()
