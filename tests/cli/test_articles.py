import json
import re

import program

OPTIONS = {"form": "frmKVXOptions", "do": [{"click": "cmdOK"}]}
TERMS = {"form": "frmKVX_COM", "do": [{"click": "cmdOK"}]}
FORM = "frmKVXRemoveArticles"
TRACKING = "<w:trackRevisions/>"

ARTICLES = """
P “the **Bank**” lends to the "a Borrower"[[fn: Also “the Bank”.]][[en: And “The Bank” here.]].
P “Then” and “Theory” and “The Royal Bank of Ruritania” are others. The Bank, a Borrower.
"""


def tick(*terms):
    return {"form": FORM, "do": [{"select": "lstTerms", "items": list(terms), "on": True}, {"click": "cmdOK"}]}


class ArticlesCase(program.Case):
    def run_index(self, answers, lines=ARTICLES, status=0, settings="", command="index"):
        document = program.docx_writer.Document("Test")
        document.settings = settings
        document.add(lines)
        document.save(self.folder / "contract.docx")
        (self.folder / "answers.json").write_text(json.dumps({"answers": answers}))
        self.check("run", command, "contract.docx", "--answers", "answers.json", "--strict", "--transcript", "log.jsonl",
                   "-o", "out.docx", "--force", status=status)
        return self.events(self.folder / "log.jsonl")

    def form(self, events, name):
        return next(event for event in events if event["event"] == "form" and event["name"] == name)

    def listed(self, events):
        return self.form(events, "frmKVX_COM")["controls"]["lstTermsInDoc"]["items"]

    def texts(self, path):
        """The texts of the stories, without fields and as a reader sees them."""
        return {story["type"]: re.sub("\x13[^\x15]*\x15", "", story["text"])
                for story in self.inspect(path)["stories"]}


class Articles(ArticlesCase):
    def cancelled(self, lines=ARTICLES, settings="", answer=None):
        """The document after a run that moved quotes and was then cancelled: nothing else changed."""
        cancel = {"form": "frmKVX_COM", "do": [{"click": "cmdCancel"}]}
        return self.run_index([OPTIONS, answer or tick("the Bank"), cancel], lines, 1, settings)

    def test_terms_that_begin_with_an_article_are_offered_in_the_documents_order(self):
        events = self.run_index([OPTIONS, {"form": FORM, "do": [{"click": "cmdCancel"}]}, TERMS])
        controls = self.form(events, FORM)["controls"]
        self.assertEqual(controls["lstTerms"]["items"],
                         ["the Bank", "a Borrower", "The Royal Bank of Ruritania", "The Bank"])
        self.assertEqual(controls["lstTerms"]["selected"], [])
        self.assertIn("Don't tick any terms that include the article as part of a name", controls["txtInstrux"]["text"])

    def test_cancel_changes_nothing_and_keeps_the_terms_as_found(self):
        events = self.run_index([OPTIONS, {"form": FORM, "do": [{"click": "cmdCancel"}]},
                                 {"form": "frmKVX_COM", "do": [{"click": "cmdCancel"}]}], status=1)
        self.assertIn("the Bank", self.listed(events))
        self.assertEqual(program.canonical(self.folder / "out.docx"), program.canonical(self.folder / "contract.docx"))
        end = next(event for event in events if event["event"] == "formEnd" and event["name"] == FORM)
        self.assertEqual(end["result"], "Cancel")

    def test_without_such_terms_nothing_is_offered(self):
        events = self.run_index([OPTIONS, TERMS], "P “Then” is “Theory”.")
        self.assertNotIn(FORM, [event.get("name") for event in events])

    def test_ticked_terms_are_moved_in_text_footnotes_and_endnotes_with_their_style(self):
        events = self.cancelled(answer=tick("the Bank", "a Borrower"))
        texts = self.texts(self.folder / "out.docx")
        self.assertIn("the “Bank” lends to the a \"Borrower\"", texts[1])
        self.assertIn("Also the “Bank”.", texts[2])
        self.assertIn("And The “Bank” here.", texts[3])
        self.assertIn("“The Royal Bank of Ruritania”", texts[1])
        self.assertEqual(self.listed(events), ["Bank", "Borrower", "The Royal Bank of Ruritania", "Then", "Theory"])

    def test_the_replacement_is_one_call_a_story_with_straight_quotes(self):
        events = self.cancelled()
        puts = [(event["member"], event["value"]) for event in events if event["event"] == "word"
                and event["member"].startswith(("Find.", "Replacement."))]
        at = puts.index(("Find.Text", "\"the Bank"))
        self.assertEqual(puts[at:at + 6], [("Find.Text", "\"the Bank"), ("Replacement.Text", "the \"Bank"),
                                           ("Find.Forward", True), ("Find.Wrap", 1), ("Find.Format", False),
                                           ("Find.Execute", {"Replace": 2})])
        self.assertEqual(puts.count(("Find.Execute", {"Replace": 2})), 3)

    def test_only_the_quote_moves_and_keeps_its_formatting(self):
        quote = '<w:r><w:rPr><w:i/></w:rPr><w:t>“</w:t></w:r>'
        def paragraph(before, between):
            return f'<w:p>{before}<w:r><w:t xml:space="preserve">the </w:t></w:r>{between}<w:r><w:rPr><w:b/></w:rPr>' \
                   '<w:t>Bank</w:t></w:r><w:r><w:t>” lends.</w:t></w:r></w:p>'
        self.cancelled("X " + paragraph(quote, "") + "\nP The end.")
        body = program.parts(self.folder / "out.docx")["word/document.xml"].decode()
        self.assertIn(paragraph("", quote), body)

    def test_with_tracked_changes_the_move_is_one_deletion_and_one_insertion(self):
        events = self.cancelled(settings=TRACKING)
        self.assertIn("Bank", self.listed(events))
        body = program.parts(self.folder / "out.docx")["word/document.xml"].decode()
        original = program.parts(self.folder / "contract.docx")["word/document.xml"].decode()
        deleted = re.findall(r"<w:del .*?</w:del>", body)
        inserted = re.findall(r"<w:ins .*?</w:ins>", body)
        self.assertEqual([len(deleted), len(inserted)], [1, 1])
        for revision in deleted + inserted:
            self.assertEqual(re.findall(r"<w:(?:t|delText)[ >][^<]*", revision)[0][-1], "“")
            self.assertIn('w:author="Kelvarin"', revision)
            self.assertRegex(revision, r'w:date="\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ"')
        numbers = re.findall(r'<w:(?:del|ins|bookmarkStart) [^>]*w:id="(\d+)"', body)
        self.assertEqual(len(numbers), len(set(numbers)))
        def words(xml):
            return "".join(re.findall(r"<w:(?:t|delText)(?: [^>]*)?>([^<]*)", xml))
        self.assertEqual(words(re.sub(r"<w:ins .*?</w:ins>", "", body)), words(original))
        self.assertIn("the “Bank” lends", words(re.sub(r"<w:del .*?</w:del>", "", body)))

    def test_tracked_moves_are_marked_and_taken_back_like_others(self):
        events = self.run_index([OPTIONS, tick("the Bank", "a Borrower"), TERMS], settings=TRACKING)
        self.assertIn("Bank", self.listed(events))
        entries = {entry["text"] for entry in self.inspect(self.folder / "out.docx")["entries"]}
        self.assertLessEqual({"Bank", "Borrower"}, entries)

    def test_a_term_that_is_its_article_alone_cannot_be_moved(self):
        lines = "P “the” and “a Borrower”.\nP The Borrower."
        self.run_index([OPTIONS, tick("the", "a Borrower"), {"message": "Error moving quotes", "press": "OK"}, TERMS],
                       lines, status=1)
        text = self.texts(self.folder / "out.docx")[1]
        self.assertIn("“the” and a “Borrower”", text)

    def test_a_quote_is_not_moved_into_the_result_of_a_field(self):
        field = ('<w:r><w:fldChar w:fldCharType="begin"/></w:r><w:r><w:instrText xml:space="preserve"> DOCPROPERTY Bank </w:instrText></w:r>'
                 '<w:r><w:fldChar w:fldCharType="separate"/></w:r><w:r><w:t>Bank</w:t></w:r>'
                 '<w:r><w:fldChar w:fldCharType="end"/></w:r>')
        entry = ('<w:r><w:fldChar w:fldCharType="begin"/></w:r><w:r><w:instrText xml:space="preserve"> XE "Bank" </w:instrText></w:r>'
                 '<w:r><w:fldChar w:fldCharType="end"/></w:r>')
        simple = '<w:fldSimple w:instr=" DOCPROPERTY Bank "><w:r><w:t>Bank</w:t></w:r></w:fldSimple>'

        def text(term):
            return f'X <w:p><w:r><w:t xml:space="preserve">“the </w:t></w:r>{term}<w:r><w:t>” lends.</w:t></w:r></w:p>\n'

        for term, moved in [(field, "the “\x13 DOCPROPERTY Bank \x14Bank\x15”"),
                            (simple, "the “\x13 DOCPROPERTY Bank \x14Bank\x15”"),
                            (entry + field, "the \x13 XE \"Bank\" \x15“\x13 DOCPROPERTY Bank \x14Bank\x15”"),
                            (entry + "<w:r><w:t>Bank</w:t></w:r>", "the \x13 XE \"Bank\" \x15“Bank”")]:
            self.cancelled(text(term))
            self.assertIn(moved, self.inspect(self.folder / "out.docx")["stories"][0]["text"])

    def test_other_quotes_are_never_moved(self):
        codes = {"form": "frmKVXOptions", "do": [{"set": "cmbOpenQuote", "to": 3}, {"set": "cmbCloseQuote", "to": 4},
                                                 {"click": "cmdOK"}]}
        events = self.run_index([codes, tick("the Bank"), TERMS], "P «the Bank» lends.\nP The Bank.")
        self.assertIn("«the Bank» lends", self.texts(self.folder / "out.docx")[1])
        self.assertEqual(self.listed(events), ["the Bank"])

    def test_a_caret_in_a_term_is_no_code(self):
        self.run_index([OPTIONS, tick("the A^p Rate"), TERMS], "P “the A^p Rate” counts.\nP A^p Rate.")
        self.assertIn("the “A^p Rate” counts", self.texts(self.folder / "out.docx")[1])

    def test_a_refresh_offers_what_is_left(self):
        terms = {"form": "frmKVX_COM", "do": [{"click": "cmdRefresh"}, {"click": "cmdOK"}]}
        events = self.run_index([OPTIONS, tick("the Bank"), terms, {"message": "Save document", "press": "OK"},
                                 tick("a Borrower")])
        forms = [event for event in events if event["event"] == "form" and event["name"] == FORM]
        self.assertEqual(forms[1]["controls"]["lstTerms"]["items"], ["a Borrower", "The Royal Bank of Ruritania"])
        entries = {entry["text"] for entry in self.inspect(self.folder / "out.docx")["entries"]}
        self.assertIn("Borrower", entries)

    def test_fix_articles_ticks_what_can_be_moved(self):
        long = "the " + "x" * 252
        self.document(lines=f"P “the Bank” and “a Borrower” and “the” and “{long}”.\nP Bank, Borrower.")
        report = self.report("index", "contract.docx", "-o", "out.docx", "--fix-articles")
        self.assertEqual(report["found"], ["Bank", "Borrower", "the", long])
        self.assertIn("the “Bank” and a “Borrower” and “the”", self.texts(self.folder / "out.docx")[1])
        self.assertEqual(self.report("index", "contract.docx", "-o", "out.docx", "--force")["found"][:2],
                         ["a Borrower", "the"])

    def test_terms_prints_them_as_they_would_stand(self):
        file = self.document(lines="P “the Bank” lends.")
        before = file.read_bytes()
        self.assertEqual(self.check("terms", file).out, "the Bank\n")
        self.assertEqual(self.check("terms", file, "--fix-articles").out, "Bank\n")
        self.assertEqual(file.read_bytes(), before)


class Breaks(ArticlesCase):
    WARNING = {"message": "Tabs/returns found in terms", "press": "OK"}

    def test_a_manual_line_break_in_a_term_is_warned_of(self):
        line = "X <w:p><w:r><w:t>“Loan</w:t><w:br/><w:t>Date” and “Bank</w:t><w:tab/><w:t>Day”.</w:t></w:r></w:p>\n"
        events = self.run_index([OPTIONS, self.WARNING, TERMS], line + "P “Bank” lends.\nP The Bank.")
        shown = [event for event in events if event["event"] == "message"]
        self.assertEqual([(m["title"], m["icon"], m["buttons"]) for m in shown],
                         [("Tabs/returns found in terms", "exclamation", "OK")])
        self.assertIn("your defintions are in another", shown[0]["text"])
        self.assertEqual(self.listed(events), ["Bank", "Bank\tDay", "Loan\x0bDate"])
        self.assertEqual(self.form(events, "frmKVX_COM")["controls"]["lstTermsInDoc"]["selected"], [0, 1, 2])

    def test_terms_without_breaks_are_not_warned_of(self):
        events = self.run_index([OPTIONS, TERMS], "P “Bank” lends.\nP The Bank.")
        self.assertEqual([event for event in events if event["event"] == "message"], [])


if __name__ == "__main__":
    program.main()
