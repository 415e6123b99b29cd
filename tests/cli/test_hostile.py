import functools
import io
import time
import zipfile

import program

LIMIT_SECONDS = 2
LIMIT_BYTES = 512 << 20
TYPES = ('<?xml version="1.0"?><Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
         '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
         '<Override PartName="/word/document.xml" ContentType="application/vnd.openxmlformats-officedocument.'
         'wordprocessingml.document.main+xml"/></Types>')
RELATIONS = ('<?xml version="1.0"?><Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
             '<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/'
             'officeDocument" Target="word/document.xml"/></Relationships>')
W = 'xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main"'


def package(document, extra=(), leave_out=()):
    parts = {"[Content_Types].xml": TYPES, "_rels/.rels": RELATIONS, "word/document.xml": document}
    parts.update(extra)
    out = io.BytesIO()
    with zipfile.ZipFile(out, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in parts.items():
            if name in leave_out:
                continue
            with archive.open(name, "w") as part:
                for piece in content if isinstance(content, list) else [content]:
                    part.write(piece.encode("utf-8"))
    return out.getvalue()


def body(content):
    return f'<?xml version="1.0"?><w:document {W}><w:body>{content}</w:body></w:document>'


GOOD = body('<w:p><w:r><w:t>“Buyer” is the Buyer.</w:t></w:r></w:p>')


@functools.cache
def slowness():
    """A sanitizer build is several times slower and larger."""
    with open(program.KELVARIN, "rb") as file:
        return 6 if b"__asan_init" in file.read() else 1


class Hostile(program.Case):
    def refused(self, content):
        """The file gets one clear message and status 3, from every command, in bounded time and memory."""
        (self.folder / "bad.docx").write_bytes(content)
        messages = set()
        for command in (("index", "bad.docx", "-o", "out.docx"), ("remove", "bad.docx", "-o", "out.docx"),
                        ("terms", "bad.docx"), ("inspect", "bad.docx"), ("run", "index", "bad.docx")):
            start = time.monotonic()
            result = self.check(*command, status=3)
            self.assertLess(time.monotonic() - start, LIMIT_SECONDS * slowness())
            self.assertLess(result.peak, LIMIT_BYTES * slowness())
            lines = result.err.splitlines()
            self.assertEqual(len(lines), 1, result.err)
            self.assertRegex(lines[0], r"^kelvarin: bad\.docx: \S")
            self.assertEqual(result.out, "")
            messages.add(lines[0])
        self.assertEqual(len(messages), 1)
        self.assertFalse((self.folder / "out.docx").exists())
        return messages.pop()


    def test_the_good_one_is_taken(self):
        (self.folder / "good.docx").write_bytes(package(GOOD))
        self.check("index", "good.docx", "-o", "out.docx")

    def test_not_a_zip(self):
        self.refused(b"Dear Sir or Madam")
        self.refused(b"")
        self.refused(b"%PDF-1.7\n" + bytes(5000))

    def test_an_encrypted_document(self):
        # What a password makes of a document: a compound file with a stream of that name.
        header = bytes.fromhex("D0CF11E0A1B11AE1") + bytes(504)
        self.assertIn("encrypted", self.refused(header + "EncryptedPackage".encode("utf-16-le") + bytes(4096)))
        self.assertIn("not a Word document", self.refused(header + bytes(4096)))

    def test_truncated(self):
        whole = package(GOOD)
        for size in (10, len(whole) // 2, len(whole) - 10):
            self.refused(whole[:size])

    def test_parts_missing(self):
        for name in ("[Content_Types].xml", "_rels/.rels", "word/document.xml"):
            self.refused(package(GOOD, leave_out=(name,)))

    def test_another_kind_of_office_document(self):
        self.refused(package(GOOD, {"[Content_Types].xml": TYPES.replace("wordprocessingml.document", "spreadsheetml.sheet")}))

    def test_text_in_another_format(self):
        document = body('<w:altChunk r:id="rId9" xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships"/>')
        self.assertIn("keeps its text in another format", self.refused(package(document)))

    def test_a_body_that_holds_nothing_is_an_empty_document(self):
        for content in ("", "<w:sectPr/>", '<w:bookmarkStart w:id="0" w:name="b"/><w:bookmarkEnd w:id="0"/>'):
            (self.folder / "empty.docx").write_bytes(package(body(content)))
            self.assertEqual(self.inspect(self.folder / "empty.docx")["stories"], [{"type": 1, "length": 1, "text": "\r"}])
            self.assertEqual(self.check("terms", "empty.docx").out, "")
            for command in ("remove", "update", "unhighlight"):
                self.check(command, "empty.docx", "-o", "out.docx", "--force")
                self.assertEqual(program.parts(self.folder / "out.docx"), program.parts(self.folder / "empty.docx"))
            self.check("index", "empty.docx", "-o", "out.docx", "--force", "--add", "Buyer")
            self.assertIn("NOT FOUND\rBuyer", self.inspect(self.folder / "out.docx")["stories"][0]["text"])

    def test_a_body_that_ends_with_a_table_has_a_paragraph_behind_it(self):
        table = "<w:tbl><w:tr><w:tc><w:p><w:r><w:t>“Buyer” is the Buyer.</w:t></w:r></w:p></w:tc></w:tr></w:tbl>"
        for end in ("", "<w:sectPr/>", '<w:bookmarkStart w:id="0" w:name="b"/><w:bookmarkEnd w:id="0"/><w:sectPr/>'):
            (self.folder / "table.docx").write_bytes(package(body(table + end)))
            text = "“Buyer” is the Buyer.\a\a"
            self.assertEqual(self.inspect(self.folder / "table.docx")["stories"][0]["text"], text + "\r")
            self.assertEqual(self.check("terms", "table.docx").out, "Buyer\n")
            for command in ("remove", "update", "unhighlight"):
                self.check(command, "table.docx", "-o", "out.docx", "--force")
                self.assertEqual(program.parts(self.folder / "out.docx"), program.parts(self.folder / "table.docx"))
            self.check("index", "table.docx", "-o", "out.docx", "--force")
            shown = self.inspect(self.folder / "out.docx")
            self.assertEqual(shown["index"]["paragraphs"], ["Buyer:  \t1"])
            self.check("remove", "out.docx", "-o", "removed.docx", "--force")
            self.assertEqual(self.inspect(self.folder / "removed.docx")["stories"][0]["text"], text + "\r")

    def test_terms_that_a_damaged_part_hides_are_not_listed_as_none(self):
        relations = RELATIONS.replace("officeDocument\" Target=\"word/document.xml", "theme\" Target=\"theme/theme1.xml")
        document = package(GOOD, {"word/_rels/document.xml.rels": relations, "word/theme/theme1.xml": "<a>" + "theme" * 9 + "</a>"})
        with zipfile.ZipFile(io.BytesIO(document)) as archive:
            theme = archive.getinfo("word/theme/theme1.xml")
        crc = theme.CRC.to_bytes(4, "little")
        (self.folder / "damaged.docx").write_bytes(document.replace(crc, bytes(4)))
        result = self.check("terms", "damaged.docx", "--search", "capitals", status=1)
        self.assertEqual(result.out, "")
        self.assertIn("CRC error", result.err)

    def test_malformed_xml(self):
        for document in ("", "no xml", GOOD[:-20], GOOD.replace("</w:r>", "</w:x>"), GOOD.replace("Buyer", "Bu&yer;"),
                         GOOD.replace("Buyer", "Bu\x01yer")):
            self.refused(package(document))

    def test_an_entity_bomb(self):
        entities = '<!ENTITY a "ha">' + "".join(f'<!ENTITY {name} "{"&" + before + ";" * 1}{("&" + before + ";") * 9}">'
                                                for before, name in zip("abcdefghi", "bcdefghij"))
        self.refused(package(GOOD.replace('<?xml version="1.0"?>', f'<?xml version="1.0"?><!DOCTYPE x [{entities}]>')
                             .replace("Buyer", "&j;")))

    def test_an_external_entity(self):
        secret = self.folder / "secret"
        secret.write_text("secret words")
        self.refused(package(GOOD.replace('<?xml version="1.0"?>',
                                          f'<?xml version="1.0"?><!DOCTYPE x [<!ENTITY e SYSTEM "file://{secret}">]>')
                             .replace("Buyer", "&e;")))

    def test_a_zip_bomb(self):
        # In pieces: what this process holds when it starts the program would count for the program.
        start, end = body("@").split("@")
        self.refused(package([start] + [" " * (1 << 20)] * 300 + [end]))

    def test_a_hundred_thousand_nested_elements(self):
        count = 100_000
        self.refused(package(body("<w:p><w:r><w:t>x</w:t></w:r></w:p>" + "<w:sdt>" * count + "</w:sdt>" * count)))

    def test_a_part_name_that_leaves_the_package(self):
        for name in ("../evil.xml", "word/../../evil.xml", "/etc/evil.xml", "word\\..\\evil.xml"):
            self.refused(package(GOOD, {name: "<x/>"}))

    def test_a_file_that_is_not_there_or_not_a_file(self):
        (self.folder / "folder.docx").mkdir()
        for name in ("missing.docx", "folder.docx"):
            result = self.check("index", name, "-o", "out.docx", status=3)
            self.assertRegex(result.err, rf"^kelvarin: {name}: ")


if __name__ == "__main__":
    program.main()
