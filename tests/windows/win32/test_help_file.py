#!/usr/bin/env python3
"""test_help_file.py HELP.chm: the numbers that forms ask the viewer for lead to pages that are in the file."""

import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(__file__).resolve().parents[3]
# What the menu "Help" and the buttons say, in the words of the pages.
TITLES = {7: "Getting started", 11: "Create an index", 12: "Delete an index", 13: "Remove highlighting", 14: "Update an index",
          15: "Save and load lists of terms", 16: "About formatting defined terms", 17: "Options", 18: "The document window"}


class HelpFile(unittest.TestCase):
    def setUp(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(["chmls", "extractall", sys.argv[1], folder], check=True, stdout=subprocess.DEVNULL,
                           stderr=subprocess.DEVNULL)
            root = pathlib.Path(folder)
            self.parts = {str(path.relative_to(root)): path.read_bytes() for path in root.rglob("*") if path.is_file()}

    def topics(self):
        """The page of each number, as the file has them."""
        numbers, names = self.parts["#IVB"], self.parts["#STRINGS"]
        self.assertEqual(struct.unpack_from("<I", numbers)[0], len(numbers) - 4)
        return {number: names[at:names.index(b"\0", at)].decode() for number, at in struct.iter_unpack("<II", numbers[4:])}

    def test_each_number_leads_to_a_page_of_the_file_with_its_title(self):
        topics = self.topics()
        self.assertEqual(set(topics), set(TITLES))
        for number, page in topics.items():
            with self.subTest(number=number):
                self.assertIn(page, self.parts.keys())
                text = self.parts[page].decode()
                self.assertEqual(re.findall("<h1>(.*?)</h1>", text), [TITLES[number]])

    def test_forms_ask_for_no_other_numbers(self):
        header = (SOURCE / "dialogs/modHelpLinks.h").read_text()
        asked = {int(number) for number in re.findall(r"^  kHelp\w+ = (\d+),$", header, re.MULTILINE)}
        self.assertEqual(asked - {0}, set(self.topics()))

    def test_the_contents_and_the_links_of_pages_lead_to_pages_of_the_file(self):
        contents = self.parts["Kelvarin3Help.hhc"].decode()
        listed = re.findall(r'name="Name" value="(.*?)"><param name="Local" value="(.*?)"', contents)
        topics = self.topics()
        self.assertEqual(sorted(listed), sorted((TITLES[number], page) for number, page in topics.items()))
        for name, page in self.parts.items():
            if not name.endswith(".html"):
                continue
            for link in re.findall(r'(?:href|src)="([^"#:]+)', page.decode()):
                self.assertIn(link, self.parts.keys(), name)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
