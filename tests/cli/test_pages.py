import json
import os
import shutil
import unittest

import program

BROKEN = "P “**Buyer**” is the Buyer.\nN\nP The [[bm Here|Buyer]] again."


class Pages(program.Case):
    """The stand-ins for LibreOffice are scripts in a folder that is searched first."""

    def setUp(self):
        super().setUp()
        self.document(lines=BROKEN)
        self.programs = self.folder / "programs"
        self.programs.mkdir()
        self.path = None

    def environment(self):
        changed = {"PATH": self.path} if self.path is not None else {}
        return {**super().environment(), **changed}

    def stand_in(self, script):
        file = self.programs / "soffice"
        file.write_text("#!/bin/sh\n" + script + "\n")
        file.chmod(0o755)
        self.path = f"{self.programs}:{os.environ['PATH']}"

    def test_without_libreoffice_its_pages_are_refused(self):
        self.path = str(self.programs)
        for command in (("index", "contract.docx", "-o", "out.docx"), ("inspect", "contract.docx"),
                        ("terms", "contract.docx", "--json"), ("check", "contract.docx"),
                        ("run", "index", "contract.docx", "-o", "out.docx")):
            result = self.check(*command, "--pages", "libreoffice", status=1)
            self.assertIn("needs LibreOffice, and none is installed", result.err)
            self.assertEqual(result.out, "")
        self.assertFalse((self.folder / "out.docx").exists())

    def test_a_libreoffice_that_fails_stops_the_run(self):
        for script, said in (("exit 1", "could not lay the document out"),
                             ("for last; do before=$folder; folder=$last; done; echo nothing > $before/document.pdf",
                              "cannot be read: it is no PDF")):
            self.stand_in(script)
            report = self.report("index", "contract.docx", "-o", "out.docx", "--pages", "libreoffice", status=1)
            self.assertIn(said, json.dumps(report["messages"]))
            self.assertFalse((self.folder / "out.docx").exists())
            looked = self.check("inspect", "contract.docx", "--pages", "libreoffice", "--transcript", "log.jsonl", status=1)
            self.assertIn(said, looked.err)
            self.assertEqual([event["event"] for event in self.events(self.folder / "log.jsonl")], ["state"])
        self.assertEqual(list(self.temporary.iterdir()), [])

    def test_the_file_is_asked_unless_told_otherwise(self):
        self.stand_in("exit 1")
        for source in ("auto", "file"):
            self.check("index", "contract.docx", "-o", "out.docx", "--force", "--pages", source)

    @unittest.skipUnless(shutil.which("soffice"), "LibreOffice is not installed")
    def test_libreoffice_tells_the_pages(self):
        report = self.report("index", "contract.docx", "-o", "out.docx", "--columns", "1", "--separator", "=", "--no-tab",
                             "--pages", "libreoffice")
        self.assertEqual((report["pages"], report["pagesFrom"]), (2, "the layout of LibreOffice"))
        self.assertEqual(report["terms"], [{"term": "Buyer", "count": 3, "pages": ["1", "2"]}])
        self.assertEqual(self.inspect(self.folder / "out.docx")["index"]["paragraphs"], ["Buyer=1, 2"])
        shown = json.loads(self.check("inspect", "out.docx", "--pages", "libreoffice").out)
        terms = json.loads(self.check("terms", "contract.docx", "--json", "--pages", "libreoffice").out)
        self.assertEqual([(term["term"], term["page"]) for term in terms], [("Buyer", 1)])
        pages = {mark["name"]: mark["page"] for mark in shown["bookmarks"]}
        self.assertEqual((pages["Here"], shown["pagesFrom"]), (2, "the layout of LibreOffice"))
        self.assertEqual(list(self.temporary.iterdir()), [])


if __name__ == "__main__":
    program.main()
