import program

LINES = """
P One “**Buyer**”[[fn: A note on the Buyer.]] and a [[bm Here|marked place]].
| Head | Other |
| cell | end |
P Last.
"""


class Inspect(program.Case):
    def test_each_text_has_exactly_its_length(self):
        for sample in sorted(program.SAMPLES.glob("*.docx")):
            for story in self.inspect(sample)["stories"]:
                units = len(story["text"].encode("utf-16-le")) // 2
                self.assertEqual(units, story["length"], f"{sample.name}, story {story['type']}")

    def test_stories_bookmarks_and_fields_are_shown(self):
        shown = self.inspect(self.document(lines=LINES))
        self.assertEqual([story["type"] for story in shown["stories"]], [1, 2])
        text = shown["stories"][0]["text"]
        self.assertTrue(text.startswith("One “Buyer”\x02 and a marked place.\r"))
        self.assertIn("Head\x07Other\x07\x07cell\x07end\x07\x07", text)
        self.assertTrue(text.endswith("Last.\r"))
        here = next(bookmark for bookmark in shown["bookmarks"] if bookmark["name"] == "Here")
        self.assertEqual(text[here["start"]:here["end"]], "marked place")
        self.assertEqual((here["story"], here["page"]), (1, 1))
        self.assertEqual(shown["pages"], 1)
        self.assertIsNone(shown["index"])

    def test_bookmarks_outside_of_the_text_are_shown(self):
        shown = self.inspect(self.document(lines="P The [[bm Here|place]].\nSECTION header=The_[[bm_Head|head]]\nP Last."))
        self.assertEqual([(mark["name"], mark["story"], mark["start"], mark["end"]) for mark in shown["bookmarks"]],
                         [("Head", 7, 4, 8), ("Here", 1, 4, 9)])

    def test_pages_count_through_the_whole_document(self):
        shown = self.inspect(self.document(lines="P [[bm One|first]]\nN\nP [[bm Two|second]]\nN\nP [[bm Three|third]]"))
        pages = {bookmark["name"]: bookmark["page"] for bookmark in shown["bookmarks"]}
        self.assertEqual(pages, {"One": 1, "Two": 2, "Three": 3})
        self.assertEqual(shown["pages"], 3)

    def test_an_indexed_document_shows_entries_highlights_and_index(self):
        self.document(lines=LINES)
        self.check("index", "contract.docx", "-o", "out.docx", "--highlight")
        shown = self.inspect(self.folder / "out.docx")
        self.assertEqual([(entry["text"], entry["story"], entry["page"]) for entry in shown["entries"]],
                         [("Buyer", 1, 1), ("Buyer", 2, 1)])
        text = shown["stories"][0]["text"]
        highlight = shown["highlights"][0]
        self.assertEqual(text[highlight["start"]:highlight["end"]], "Buyer")
        self.assertEqual(highlight["color"], 7)
        self.assertIn("DefinedTermsIndex", shown["index"]["code"])
        self.assertIn("DefinedTermsIndex", [bookmark["name"] for bookmark in shown["bookmarks"]])

    def test_the_transcript_of_looking_is_the_state(self):
        self.document()
        self.check("inspect", "contract.docx", "--transcript", "log.jsonl")
        self.assertEqual([event["event"] for event in self.events(self.folder / "log.jsonl")], ["state"])


if __name__ == "__main__":
    program.main()
