import json

import program

OPTIONS = {"form": "frmKVXOptions", "do": [{"click": "cmdOK"}]}
TERMS = {"form": "frmKVX_COM", "do": [{"click": "cmdOK"}]}
TITLE = "Mis-matched double quotes"
YES, NO = {"message": TITLE, "press": "Yes"}, {"message": TITLE, "press": "No"}
CANNOT = {"message": "Cannot index", "press": "OK"}
QUOTES = "“”\""
GREEN = ('X <w:p><w:r><w:t xml:space="preserve">The author has </w:t></w:r><w:r><w:rPr><w:highlight w:val="green"/></w:rPr>'
         '<w:t>“Green”</w:t></w:r></w:p>\n')

ODD = """
P “**Buyer**” means Acorn and “**Seller** means Bramble.
P The Buyer pays the Seller.
"""


class QuoteBalance(program.Case):
    def run_index(self, answers, lines, status, settings=None, out="out.docx"):
        self.document(lines=lines)
        (self.folder / "answers.json").write_text(json.dumps({"answers": answers}))
        more = []
        if settings is not None:
            (self.folder / "my.ini").write_bytes("[Defaults]\r\n".encode() + "".join(
                f"{key}={value}\r\n" for key, value in {"SearchType": "SearchFlagged", **settings}.items()).encode())
            more = ["--settings", "my.ini"]
        self.check("run", "index", "contract.docx", "--answers", "answers.json", "--strict", "--transcript", "log.jsonl",
                   "-o", out, "--force", *more, status=status)
        return self.events(self.folder / "log.jsonl")

    def messages(self, events):
        return [event for event in events if event["event"] == "message"]

    def highlighted(self, path):
        """The highlighted characters, marks of paragraphs left out, by story and position."""
        shown = self.inspect(path)
        texts = {story["type"]: story["text"] for story in shown["stories"]}
        return {(mark["story"], place): (texts[mark["story"]][place], mark["color"])
                for mark in shown["highlights"] for place in range(mark["start"], mark["end"])
                if texts[mark["story"]][place] != "\r"}

    def test_two_open_and_one_close_curly_quote_stop_the_search(self):
        events = self.run_index([OPTIONS, NO, NO, CANNOT], ODD, 1)
        shown = self.messages(events)
        self.assertEqual([(m["title"], m["icon"], m["buttons"]) for m in shown],
                         [(TITLE, "exclamation", "YesNo"), (TITLE, "question", "YesNo"),
                          ("Cannot index", "critical", "OK")])
        self.assertIn("in your document's main body?", shown[0]["text"])
        self.assertTrue(shown[2]["text"].startswith("Please go through your document"))
        self.assertNotIn("frmKVX_COM", [event.get("name") for event in events])
        self.assertEqual(program.canonical(self.folder / "out.docx"), program.canonical(self.folder / "contract.docx"))

    def test_the_default_answers_stop_the_search_too(self):
        self.document(lines=ODD)
        result = self.check("index", "contract.docx", "-o", "out.docx", status=1)
        self.assertIn("Cannot index", result.err)
        self.assertFalse((self.folder / "out.docx").exists())

    def test_a_difference_of_two_passes(self):
        events = self.run_index([OPTIONS, TERMS], "P “Buyer” and “Seller and “Third Party.\nP The Buyer.", 0)
        self.assertEqual(self.messages(events), [])

    def test_progress_is_shown_while_the_quotes_are_checked(self):
        events = self.run_index([OPTIONS, NO, NO, CANNOT], ODD, 1)
        kinds = [(event["event"], event.get("shown"), event.get("lines", [""])[0]) for event in events
                 if event["event"] in ("progress", "message")]
        self.assertEqual([kind for kind in kinds if kind[0] == "progress"][0][1], True)
        self.assertIn(("progress", None, "Checking quotation marks"), kinds)
        self.assertLess(max(i for i, kind in enumerate(kinds) if kind[0] == "progress"),
                        min(i for i, kind in enumerate(kinds) if kind[0] == "message"))

    def test_of_one_kind_of_quote_on_both_sides_there_must_be_an_even_number(self):
        one_kind = {"OpenQuote": 171, "CloseQuote": 171}
        events = self.run_index([OPTIONS, NO, NO, CANNOT], "P «Buyer« and «Seller.", 1, settings=one_kind)
        self.assertIn("main body", self.messages(events)[0]["text"])
        events = self.run_index([OPTIONS, TERMS], "P «Buyer« and «Seller«.\nP The Buyer.", 0, settings=one_kind)
        self.assertEqual(self.messages(events), [])

    def test_highlighting_of_one_kind_can_be_removed_too(self):
        one_kind = {"OpenQuote": 171, "CloseQuote": 171}
        self.run_index([OPTIONS, YES, CANNOT], "P «Buyer« and «Seller.", 1, settings=one_kind)
        marked = self.highlighted(self.folder / "out.docx")
        self.assertEqual([character for character, _ in marked.values()], ["«"] * 3)
        self.check("remove", "out.docx", "-o", "back.docx")
        self.assertEqual(program.canonical(self.folder / "back.docx"), program.canonical(self.folder / "contract.docx"))

    def test_straight_quotes_of_the_settings_file_give_way_to_the_pair_that_the_options_dialog_offers(self):
        straight = {"OpenQuote": 34, "CloseQuote": 34}
        events = self.run_index([OPTIONS, TERMS], 'P "Buyer", "Seller" and 1" more.\nP The Buyer.', 0, settings=straight)
        self.assertEqual(self.messages(events), [])
        self.assertIn(b"OpenQuote=147", (self.folder / "my.ini").read_bytes())

    def test_guillemets_pass_whatever_their_counts(self):
        codes = {"OpenQuote": 171, "CloseQuote": 187}
        events = self.run_index([OPTIONS, TERMS], "P «Buyer» and «Seller.\nP The Buyer.", 0, settings=codes)
        self.assertEqual(self.messages(events), [])

    def test_footnotes_and_endnotes_are_named_and_empty_ones_are_not(self):
        for kind, name in (("fn", "footnotes"), ("en", "endnotes")):
            events = self.run_index([OPTIONS, NO, NO, CANNOT], f"P “Buyer”[[{kind}: Odd “here.]] is the Buyer.", 1)
            self.assertIn(f"in your document's {name}?", self.messages(events)[0]["text"])
        events = self.run_index([OPTIONS, TERMS], "P “Buyer” is the Buyer.", 0)
        self.assertEqual(self.messages(events), [])

    def test_yes_highlights_every_double_quote_and_removing_gives_the_document_back(self):
        lines = ODD + 'P And "straight" ones.[[fn: A “note”.]]\n' + GREEN
        events = self.run_index([OPTIONS, YES, CANNOT], lines, 1)
        note = self.messages(events)[-1]["text"]
        self.assertTrue(note.startswith("Double quotes have been highlighted in your document's main body.  You can"))
        self.assertIn("\r\n\r\nTools > Kelvarin > Remove highlighting only\r\n\r\nPlease go through", note)
        marked = self.highlighted(self.folder / "out.docx")
        self.assertEqual({character for character, color in marked.values() if color == 7}, set(QUOTES))
        self.assertEqual({story for story, _ in marked}, {1})
        # The author's green reaches from the quotes over the word between them.
        self.assertEqual({color for character, color in marked.values()}, {7, 4})
        self.assertEqual({color for character, color in marked.values() if character in QUOTES}, {7})
        text = self.inspect(self.folder / "out.docx")["stories"][0]["text"]
        self.assertEqual(sum(color == 7 for _, color in marked.values()), sum(map(text.count, QUOTES)))
        operations = [event["operation"] for event in events if event["event"] == "marker"]
        self.assertEqual(operations, ["OptionChanged"] * 4 + ["FinishDocument"])
        self.check("remove", "out.docx", "-o", "back.docx")
        self.assertEqual(program.canonical(self.folder / "back.docx"), program.canonical(self.folder / "contract.docx"))

    def test_the_next_run_starts_without_the_highlighting_of_quotes(self):
        self.run_index([OPTIONS, YES, CANNOT], ODD, 1)
        self.check("index", "out.docx", "--open-quote", "171", "--close-quote", "187", "--only-added", "--add", "Buyer",
                   "-o", "next.docx")
        marked = self.highlighted(self.folder / "next.docx")
        self.assertEqual({character for character, _ in marked.values()} & set("“”"), set())

    def test_the_cursor_and_words_option_come_back_after_highlighting(self):
        self.document(lines=ODD)
        for replace in (True, False):
            state = {"options": {"AutoFormatAsYouTypeReplaceQuotes": replace},
                     "cursor": {"story": 1, "start": 4, "end": 9}}
            (self.folder / "answers.json").write_text(json.dumps({"state": state, "answers": [OPTIONS, YES, CANNOT]}))
            self.check("run", "index", "contract.docx", "--answers", "answers.json", "--strict", "--transcript",
                       "log.jsonl", status=1)
            end = self.events(self.folder / "log.jsonl")[-1]
            self.assertEqual(end["options"]["AutoFormatAsYouTypeReplaceQuotes"], replace)
            self.assertEqual(end["cursor"], {"story": 1, "start": 4, "end": 4})

    def test_other_quotes_are_chosen_saved_and_searched_for(self):
        change = {"form": "frmKVXChangeQuotes", "do": [{"set": "cmbOpenQuote", "to": 3},
                                                       {"set": "cmbCloseQuote", "to": 4}, {"click": "cmdOK"}]}
        lines = "P «Buyer» pays and “Seller sells.\nP The Buyer."
        events = self.run_index([OPTIONS, NO, YES, change, TERMS], lines, 0, settings={})
        form = next(event for event in events if event["event"] == "form" and event["name"] == "frmKVXChangeQuotes")
        self.assertEqual(form["controls"]["cmbOpenQuote"]["itemData"], [147, 148, 132, 171, 187])
        self.assertEqual(form["controls"]["cmbCloseQuote"]["items"], ["“", "”", "„", "«", "»"])
        self.assertEqual((form["controls"]["cmbOpenQuote"]["listIndex"], form["controls"]["cmbCloseQuote"]["listIndex"]),
                         (0, 1))
        end = next(event for event in events if event["event"] == "formEnd" and event["name"] == "frmKVXChangeQuotes")
        self.assertEqual(end["result"], "OK")
        terms = next(event for event in events if event["event"] == "form" and event["name"] == "frmKVX_COM")
        self.assertEqual(terms["controls"]["lstTermsInDoc"]["items"], ["Buyer"])
        self.assertEqual(terms["controls"]["cmbOpenQuote"]["listIndex"], 3)
        self.assertIn(b"OpenQuote=171", (self.folder / "my.ini").read_bytes())

    def test_cancelling_the_choice_of_quotes_ends_without_a_note(self):
        change = {"form": "frmKVXChangeQuotes", "do": [{"click": "cmdCancel"}]}
        shown = self.messages(self.run_index([OPTIONS, NO, YES, change, CANNOT], ODD, 1))
        self.assertTrue(shown[-1]["text"].startswith("Please go through"))

    def test_quotes_in_text_boxes_are_not_counted(self):
        box = ('X <w:p><w:r><w:pict><v:shape xmlns:v="urn:schemas-microsoft-com:vml"><v:textbox><w:txbxContent><w:p><w:r>'
               "<w:t>An “odd one.</w:t></w:r></w:p></w:txbxContent></v:textbox></v:shape></w:pict></w:r></w:p>\n")
        events = self.run_index([OPTIONS, TERMS], box + "P “Buyer” is the Buyer.", 0)
        self.assertIn(5, [story["type"] for story in self.inspect(self.folder / "contract.docx")["stories"]])
        self.assertEqual(self.messages(events), [])


if __name__ == "__main__":
    program.main()
