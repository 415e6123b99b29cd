import json

import program

CAPITALS = {"form": "frmKVXOptions", "do": [{"set": "optSearchType", "to": 1}, {"click": "cmdOK"}]}
OK = {"form": "frmKVX_COM", "do": [{"click": "cmdOK"}]}
CANCEL = {"form": "frmKVX_COM", "do": [{"click": "cmdCancel"}]}
FORM = "frmKVXProgressFormGetCappedList"
BREAK = '<w:r><w:lastRenderedPageBreak/></w:r>'


class Capitals(program.Case):
    def terms(self, lines, *arguments):
        self.document(lines=lines)
        return self.check("terms", "contract.docx", "--search", "capitals", *arguments).out.splitlines()

    def described(self, lines, *arguments):
        self.document(lines=lines)
        listed = json.loads(self.check("terms", "contract.docx", "--search", "capitals", "--json", *arguments).out)
        return {item["term"]: item for item in listed}

    def run_index(self, lines, *answers, status=0, state=None, arguments=()):
        if lines is not None:
            self.document(lines=lines)
        content = {"answers": [CAPITALS, *answers], **({"state": state} if state else {})}
        (self.folder / "answers.json").write_text(json.dumps(content))
        self.check("run", "index", "contract.docx", "--answers", "answers.json", "--transcript", "log.jsonl",
                   "--settings", "my.ini", *arguments, status=status)
        return self.events(self.folder / "log.jsonl")

    def offered(self, events):
        """What the terms dialog lists when it comes."""
        return next(event for event in events if event["event"] == "form" and event["name"] == "frmKVX_COM")["controls"]

    def steps(self, events):
        return [event["lines"][0] for event in events
                if event["event"] == "progress" and event["lines"][0] and event.get("shown") is not False]

    def test_phrases_come_out_whole(self):
        self.assertEqual(self.terms("P under the Stock Purchase Agreement any Events of Default found by the Board of Directors "
                                    "or its Chief Executive Officer affect each share of Series A Preferred Stock"),
                         ["Board of Directors", "Chief Executive Officer", "Events of Default", "Series A Preferred Stock",
                          "Stock Purchase Agreement"])

    def test_ignored_words_alone_yield_an_empty_list(self):
        text = "P The end. This is it. And so on. For now. If not. In time. At once. As is."
        self.assertEqual(self.terms(text), [])
        events = self.run_index(text, OK, CANCEL, status=1)
        controls = self.offered(events)
        self.assertEqual(controls["lstTermsInDoc"]["items"], [])
        self.assertTrue(controls["lblTermsInDoc"]["caption"].startswith("No defined terms were found in this document.  "))
        result = self.check("index", "contract.docx", "-o", "out.docx", "--search", "capitals", status=1)
        self.assertFalse((self.folder / "out.docx").exists())
        self.assertTrue(result.err)

    def test_a_word_on_several_pages_is_listed_once(self):
        text = "P the Agreement\nN\nP the Agreement\nN\nP the Agreement."
        self.assertEqual(self.terms(text), ["Agreement"])
        self.assertEqual(self.described(text)["Agreement"]["occurrences"], 3)

    def test_an_opening_bracket_without_a_closing_one_is_never_offered(self):
        self.assertEqual(self.terms("P see “Schedule (Part” and “Annex [Rule” here, as in “Form (One]” and Deed (Recital"),
                         ["Annex", "Deed", "Form", "One", "Part", "Recital", "Rule", "Schedule"])

    def test_a_closing_bracket_alone_or_a_pair_stays_in_a_term_in_quotes(self):
        self.assertEqual(self.terms("P a “Part)” of “B] Rule” under “Schedule (Two)” and “Deed [Recital]” (Annex)."),
                         ["Annex", "B] Rule", "Deed [Recital]", "Part)", "Schedule (Two)"])

    def test_a_quoted_phrase_is_one_term_whatever_its_apostrophe(self):
        text = "P “Seller’s Knowledge” is what it knows. It is right to Seller's Knowledge."
        found = self.described(text)
        self.assertEqual({term: found[term]["occurrences"] for term in found}, {"Seller’s Knowledge": 2, "It": 1})

    def test_a_quoted_phrase_is_one_term_whatever_its_quotation_marks(self):
        for quoted in ("„Terms and Conditions“", "„Terms and Conditions”", "« Terms and Conditions »", "«\u00a0Terms and Conditions\u00a0»",
                       "»Terms and Conditions«", "”Terms and Conditions”", "“the Terms and Conditions”"):
            found = self.described(f"P {quoted}\nP these Terms and Conditions apply")
            self.assertEqual({term: (item["occurrences"], item["only"]) for term, item in found.items()},
                             {"Terms and Conditions": (2, None)}, quoted)

    def test_a_term_is_whole_where_it_is_used_before_it_is_quoted(self):
        self.assertEqual(self.terms("P on a Change in Control[[fn: no Notice of change is made.]] the seller pays.\n"
                                    "P A “Change in Control” means a sale[[en: a “Notice of change” is one.]]."),
                         ["A", "Change in Control", "Notice of change"])

    def test_a_term_in_quotes_does_not_cut_a_longer_one_apart(self):
        self.assertEqual(self.terms("P the “Purchase Price” is ten.\nP the Purchase Price Adjustment is final, the Purchase Price is not."),
                         ["Purchase Price", "Purchase Price Adjustment"])

    def test_a_separator_is_never_offered_and_what_stands_round_it_is(self):
        self.assertEqual(self.terms("P the “Buyer; Seller” and “Saint: Ives” near St. Malo at Rock; Bay: Cape"),
                         ["Bay", "Buyer", "Cape", "Ives", "Malo", "Rock", "Saint", "Seller", "St"])

    def test_words_behind_initials_are_offered_by_themselves(self):
        self.assertEqual(self.terms("P a “U.S. Person” under the U.S. Bankruptcy Code, with J.P. Morgan Chase Bank\nP E.U. Duties"),
                         ["Bankruptcy Code", "Duties", "E.U.", "J.P.", "Morgan Chase Bank", "Person", "U.S."])

    def test_a_firm_keeps_the_small_initials_behind_its_name(self):
        found = self.described("P The buyer is Fiat S.p.A. and the seller is Enel S.r.l. of Rome. Fiat S.p.A. pays Enel S.r.l. today.")
        self.assertEqual({term: item["occurrences"] for term, item in found.items()},
                         {"Fiat S.p.A.": 2, "Enel S.r.l.": 2, "Rome": 1})

    def test_a_word_with_a_tab_or_line_break_is_never_offered(self):
        text = ('X <w:p><w:r><w:t>a Stock</w:t><w:tab/><w:t>Purchase</w:t><w:br/><w:t>Agreement Agree</w:t><w:tab/><w:t>ment</w:t>'
                '</w:r></w:p>\nP end')
        self.assertEqual(self.terms(text), ["Agreement Agree", "Purchase", "Stock"])

    def test_no_phrase_crosses_a_sentence_a_paragraph_or_a_cell(self):
        self.assertEqual(self.terms("P the Buyer. Seller pays\nP the Company\nP Parent pays\n| Head | Other |\n| Agent | Lender |"),
                         ["Agent", "Buyer", "Company", "Head", "Lender", "Other", "Parent", "Seller"])

    def test_hits_join_over_a_page_boundary(self):
        paragraph = f'<w:p><w:r><w:t xml:space="preserve">the Stock </w:t></w:r>{BREAK}<w:r><w:t>Purchase</w:t></w:r>{BREAK}' \
                    '<w:r><w:t xml:space="preserve"> Agreement of Acme ends</w:t></w:r></w:p>'
        events = self.run_index(f"X {paragraph}\nP end", CANCEL, status=1, arguments=("--pages", "file"))
        self.assertEqual(self.offered(events)["lstTermsInDoc"]["items"], ["Stock Purchase Agreement of Acme"])
        self.assertEqual([step for step in self.steps(events) if step.startswith("Processing ")],
                         [f"Processing main document page {page}" for page in (1, 2, 3)])

    def test_a_word_in_capitals_that_begins_a_footnote_is_found(self):
        events = self.run_index("P the buyer[[fn: ACME is one.]] and seller[[en: Endless.]] agree", CANCEL, status=1)
        self.assertEqual(self.offered(events)["lstTermsInDoc"]["items"], ["ACME", "Endless"])
        steps = self.steps(events)
        self.assertEqual(steps[:2], ["Searching page:  1", "Processing main document page 1"])
        self.assertEqual(steps[2:], ["Searching page:  1", "Processing footnotes page 1", "Searching page:  1",
                                     "Processing endnotes page 1"])

    def test_headers_footers_comments_and_text_boxes_are_not_searched(self):
        box = ('<w:p><w:r><w:pict xmlns:v="urn:schemas-microsoft-com:vml"><v:shape><v:textbox><w:txbxContent><w:p><w:r><w:t>'
               'Boxed</w:t></w:r></w:p></w:txbxContent></v:textbox></v:shape></w:pict></w:r></w:p>')
        self.assertEqual(self.terms(f"X {box}\nP a Buyer"), ["Buyer"])

    def test_words_with_digits_are_ignored_or_not(self):
        text = "P a B2B Agreement, the Series A1 Stock and Form 10-K, “Credit Tier 1”"
        self.assertEqual(self.terms(text), ["Agreement", "Credit Tier", "Form", "Series", "Stock"])
        self.assertEqual(self.terms(text, "--no-ignore-numbers"),
                         ["B2B Agreement", "Credit Tier 1", "Form 10-K", "Series A1 Stock"])
        self.assertEqual(self.check("terms", "contract.docx", "--ignore-numbers").out, "Credit Tier 1\n")

    def test_the_list_is_sorted_by_code_units(self):
        self.assertEqual(self.terms("P the Zeta, an ABC, an Abel and a Beta"), ["ABC", "Abel", "Beta", "Zeta"])

    def test_the_run_goes_in_its_order(self):
        events = self.run_index("P the Buyer pays", OK, arguments=("-o", "out.docx"))
        names = [event.get("name") or event.get("member") or event.get("operation") or event["event"] for event in events]
        def at(name, after=-1):
            return names.index(name, after + 1)
        shown = at(FORM)
        ended = at(FORM, shown)
        search = events[shown + 1:ended]
        self.assertEqual([event["member"] for event in search if event["event"] == "word"],
                         ["Find.Text", "Replacement.Text", "Find.Forward", "Find.Wrap", "Find.Format", "Find.MatchCase",
                          "Find.MatchWholeWord", "Find.MatchWildcards"])
        updates = [event for event in search if event["event"] == "progress" and "shown" not in event]
        self.assertEqual([event["lines"] for event in updates],
                         [["Searching page:  1", "", ""], ["Processing main document page 1", "", ""]])
        self.assertEqual({event["caption"] for event in updates}, {"Please wait"})
        self.assertEqual(updates[-1]["bar"], "100% completed")
        spelling = at("Options.CheckSpellingAsYouType", ended)
        grammar = at("Options.CheckGrammarAsYouType", spelling)
        hidden = at("View.ShowHiddenText", grammar)
        preparing = at("frmKVXProgressFormKVXPreparing", hidden)
        removed = at("RemoveIndexEntries", preparing)
        self.assertEqual([name for name in names[removed:] if name.startswith("Remove")][:3],
                         ["RemoveIndexEntries", "RemoveIndex", "RemoveTermHighlighting"])
        terms = at("frmKVX_COM", removed)
        self.assertLess(terms, at("BeginIndexing"))
        self.assertEqual([entry["text"] for entry in self.inspect(self.folder / "out.docx")["entries"]], ["Buyer"])

    def test_the_label_says_what_was_searched_for(self):
        caption = self.offered(self.run_index("P the Buyer pays", CANCEL, status=1))["lblTermsInDoc"]["caption"]
        self.assertEqual(caption, "The following capitalized words and phrases were found in your document.  Sentences Select "
                                  "which terms you want to index.  You can specify additional terms for indexing in the 'Add "
                                  "terms for indexing' section below.")

    def test_the_list_is_refreshed_by_the_saved_search_type(self):
        refresh = {"form": "frmKVX_COM", "do": [{"set": "optSearchType", "to": 0}, {"click": "cmdRefresh"}, {"click": "cmdCancel"}]}
        events = self.run_index("P the “buyer” and Seller", refresh, status=1)
        self.assertEqual([event["name"] for event in events if event["event"] == "form"].count(FORM), 2)
        ended = [event for event in events if event["event"] == "formEnd" and event["name"] == "frmKVX_COM"][-1]
        self.assertEqual(ended["controls"]["lstTermsInDoc"]["items"], ["Seller"])

    def test_text_of_an_earlier_index_and_its_lists_is_no_candidate(self):
        text = "P the Buyer pays the Seller; the Buyer and Seller agree.\nP the Parent agrees."
        first = self.terms(text)
        self.check("index", "contract.docx", "--search", "capitals", "--in-place", "--add", "Nowhere Found")
        again = self.check("terms", "contract.docx", "--search", "capitals").out.splitlines()
        self.assertEqual(again, first)
        shown = {"view": {"showHiddenText": True, "showAll": True}}
        events = self.run_index(None, CANCEL, status=1, state=shown)
        self.assertEqual(self.offered(events)["lstTermsInDoc"]["items"], first)

    def test_what_was_indexed_is_taken_away_again(self):
        self.document(lines="P the Stock Purchase Agreement[[fn: The Stock Purchase Agreement.]] binds the Buyer.")
        report = self.report("index", "contract.docx", "-o", "out.docx", "--search", "capitals")
        self.assertEqual(report["searchType"], "SearchInitCaps")
        self.assertEqual(report["found"], ["Buyer", "Stock Purchase Agreement"])
        self.assertEqual({term["term"]: term["count"] for term in report["terms"]},
                         {"Buyer": 1, "Stock Purchase Agreement": 2})
        self.check("remove", "out.docx", "-o", "back.docx")
        self.assertEqual(program.canonical(self.folder / "back.docx"), program.canonical(self.folder / "contract.docx"))

    def test_json_tells_where_a_term_stands(self):
        found = self.described("P First words. It binds the Buyer.\nN\nP Here the Buyer pays Acme[[fn: Acme of Utah.]].")
        text = self.inspect(self.folder / "contract.docx")["stories"][0]["text"]
        self.assertEqual(found["Buyer"], {"term": "Buyer", "story": 1, "position": text.index("Buyer"), "page": 1, "occurrences": 2,
                                          "sentence": "It binds the Buyer.", "only": None})
        self.assertEqual(found["Acme of Utah"]["story"], 2)
        self.assertEqual(found["Acme of Utah"]["page"], 2)

    def test_json_says_what_only_begins_a_sentence_or_stands_in_a_heading(self):
        found = self.described("1 Governing Law\nP 1.1 Limitation of Liability. Payment is due: (a) Transfer of it to the Buyer.\n"
                               "P THE GOODS ARE SOLD AS THEY ARE.\nP Make Payment now, since Payments matter. Pay Payments soon.")
        self.assertEqual({term: item["only"] for term, item in found.items()},
                         {"Governing Law": "heading", "Limitation of Liability": "heading", "Payment": "sentenceStart",
                          "Transfer": "sentenceStart", "Buyer": None, "GOODS": "heading", "SOLD": "heading",
                          "ARE": "heading", "THEY": "heading", "Make Payment": None, "Payments": None,
                          "Pay Payments": "sentenceStart"})

    def test_json_cuts_a_long_sentence_short_around_the_term(self):
        names = [f"Name{'abcdefghij'[number % 10]}{'abcdefghij'[number // 10 % 10]}{'abcdefghij'[number // 100]}"
                 for number in range(1000)]
        found = self.described("P of " + ", ".join(names) + " and of the end")
        self.assertEqual(sorted(found), sorted(names))
        for name in names:
            self.assertIn(name, found[name]["sentence"])
            self.assertLess(len(found[name]["sentence"]), 400)
        self.assertTrue(found[names[500]]["sentence"].startswith("… ") and found[names[500]]["sentence"].endswith(" …"))

    def test_json_holds_nothing_that_does_not_show(self):
        self.document(lines="P the first Buyer[[fn: A note.]] pays the Seller. All the rest of it goes to the Parent.")
        self.check("index", "contract.docx", "-o", "indexed.docx", "--add", "first", "--at", "after:Seller.")
        out = self.check("terms", "indexed.docx", "--search", "capitals", "--json").out
        found = {item["term"]: item for item in json.loads(out)}
        self.assertEqual(found["Buyer"]["sentence"], "the first Buyer  pays the Seller.")
        self.assertEqual(found["Parent"]["sentence"], "All the rest of it goes to the Parent.")
        self.assertEqual(found["All"]["only"], "sentenceStart")

    def test_json_tells_of_quoted_terms_too(self):
        self.document(lines="P “Buyer” means Acme. The Buyer pays.\nP “seller” sells")
        listed = json.loads(self.check("terms", "contract.docx", "--json").out)
        self.assertEqual([(item["term"], item["position"], item["occurrences"], item["only"]) for item in listed],
                         [("Buyer", 1, 2, None), ("seller", 37, 1, None)])


if __name__ == "__main__":
    program.main()
