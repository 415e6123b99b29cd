import json
import re

import program

FAULTS = """
P “**Buyer**” means Acorn Limited.
P “**Price**” means the sum of 5.
P “**Price**” means the sum of 6.
P “**Spare Part**” means a part that nobody speaks of.
P “**Site Plan**” means the plan of the site.
P “**Business Day**” means a day on which banks are open.
P “**the Depot**” means the yard at Ropewalk.
P "**Vendor**" means Bramble Limited.
P Every Invoice is sent to the Buyer, with the Price. Each Invoice has a number, and the Vendor signs the Invoice.
P The Vendor shows the Site Plan. The Price is due on a business day, and two Business Days later at the Depot.
P The Buyer signs in the Notice Period.
P A month (the “**Notice Period**”) has to pass before the Notice Period is over. The Depot is closed then.
"""


class Check(program.Case):
    def findings(self, lines, *arguments):
        file = self.document(lines=lines)
        before = file.read_bytes()
        check = json.loads(self.check("check", file, "--json", *arguments).out)
        self.assertEqual(file.read_bytes(), before)
        return check

    def of_kind(self, check, kind):
        return [finding["text"] for finding in check["findings"] if finding["kind"] == kind]

    def test_each_fault_is_found_once(self):
        check = self.findings(FAULTS)
        self.assertEqual({kind: self.of_kind(check, kind) for kind in {finding["kind"] for finding in check["findings"]}}, {
            "definedTwice": ["Price"], "notDefined": ["Invoice"], "notUsed": ["Spare Part"], "usedOnce": ["Site Plan", "Business Days"],
            "usedBefore": ["Notice Period"], "otherCase": ["business day"], "otherNumber": ["Business Days"],
            "article": ["the Depot"], "mixedQuotes": ['"Vendor"']})

    def test_a_definition_may_have_a_note_before_its_closing_mark(self):
        check = self.findings("P “Bank[[fn: Or its successor.]]” means Acorn and “Sum,[[fn: In pounds.]]” means five.\n"
                              "P The Bank pays the Sum.")
        self.assertEqual([(term["term"], term["uses"]) for term in check["defined"]], [("Bank", 1), ("Sum", 1)])

    def test_a_finding_says_where_it_is_and_what_is_said_there(self):
        finding, = [finding for finding in self.findings(FAULTS)["findings"] if finding["kind"] == "usedBefore"]
        self.assertEqual(finding["sentence"], "The Buyer signs in the Notice Period.")
        self.assertEqual(finding["sentence"][finding["begin"]:finding["end"]], "Notice Period")
        self.assertEqual((finding["story"], finding["page"], finding["count"]), (1, 1, 1))
        self.assertEqual(finding["other"]["sentence"], "A month (the “Notice Period”) has to pass before the Notice Period is over.")
        self.assertGreater(finding["other"]["position"], finding["position"])
        story = self.inspect("contract.docx")["stories"][0]["text"]
        self.assertEqual(story[finding["position"]:][:13], "Notice Period")

    def test_a_use_or_a_definition_with_another_apostrophe_is_of_the_same_term(self):
        check = self.findings("""
P “**Seller**” means Acorn.
P “**Seller’s Knowledge**” means what the Seller knows.
P “**Sellers' Agent**” means Bramble.
P To the Seller's Knowledge, to SELLER'S KNOWLEDGE and to Seller’s Knowledge. The Sellers’ Agent acts, and the sellers’ agent signs.
P The Seller and the Sellers’ Agent meet. The sellers' agent pays.
P “**Sellers’ Agent**” means Cork.
""")
        self.assertEqual({item["term"]: item["uses"] for item in check["defined"]},
                         {"Seller": 2, "Seller’s Knowledge": 3, "Sellers' Agent": 2})
        self.assertEqual([(finding["kind"], finding["text"], finding["count"]) for finding in check["findings"]],
                         [("definedTwice", "Sellers’ Agent", 1), ("otherCase", "sellers’ agent", 2)])

    def test_sentences_show_the_numbers_of_clauses_that_are_referred_to(self):
        finding, = self.findings("""
P “**Buyer**” means Acorn under clause [[ref _Ref1|2.1]].
P The Buyer pays. The Buyer is glad.
P By clause [[ref _Ref1|2.1]] and clause [[ref _Ref2|7]] each Invoice, as any Invoice, is due (clause [[ref _Ref2|7]]).
""")["findings"]
        sentence = finding["sentence"]
        self.assertEqual(sentence, "By clause 2.1 and clause 7 each Invoice, as any Invoice, is due (clause 7).")
        self.assertEqual(sentence[finding["begin"]:finding["end"]], "Invoice")
        story = self.inspect("contract.docx")["stories"][0]["text"]
        self.assertEqual(story[finding["position"]:][:7], "Invoice")

    def test_a_contract_without_faults_has_no_findings(self):
        self.assertEqual(self.findings("""
P This agreement is made between Acorn Limited of Ropewalk, London (the “**Buyer**”) and Bramble Limited (“**Seller**”).
P “**Price**” has the meaning given in clause 3; “**Group**” or “**Group Companies**” means the Buyer’s companies.
P Words in the singular include the plural. The Seller’s Group, the Sellers and the Buyer meet.
P The price (the “**Price**”) is paid by the Buyer to the Seller under Section 4 of the Companies Act 2006 in May.
P The Price is final, and the Price is fair. THE BUYER AND THE SELLER AGREE. Buyer and Seller know the Group.
P The London office is in London. The Companies Act applies; the Group is part of it.
""")["findings"], [])

    def test_quotation_marks_without_partners_are_found_and_inches_are_not(self):
        check = self.findings('P “**Pipe**” means a 12" pipe.\nP The Pipe and a Pipe.\nP It says “here.\nP It says “there”.')
        self.assertEqual([(finding["text"], finding["sentence"]) for finding in check["findings"]
                          if finding["kind"] == "unpairedQuotes"], [("“", "It says “here.")])
        self.assertEqual(self.of_kind(check, "notUsed"), [])

    def test_a_stray_quotation_mark_hides_no_definition(self):
        check = self.findings('P It says “here.\nP “**Buyer**” means Acorn.\nP “**Seller**” means Bramble.\nP The Buyer, the Buyer.')
        self.assertEqual([term["term"] for term in check["defined"]], ["Buyer", "Seller"])
        self.assertEqual(self.of_kind(check, "notUsed"), ["Seller"])

    def test_punctuation_inside_of_quotation_marks_is_no_part_of_a_term(self):
        check = self.findings("""
P Acorn Limited (“Company,” “us,” or “we”) and Bramble Limited may be referred to in this deed as “Parties.”
P The Company pays, and the Company is glad. The Parties agree, as Parties do.
""")
        self.assertEqual([(term["term"], term["uses"]) for term in check["defined"]], [("Company", 2), ("Parties", 2)])
        self.assertEqual(check["findings"], [])

    def test_what_also_counts_as_a_term_is_no_second_definition(self):
        check = self.findings("""
P Acorn Limited (the “Buyer”) pays. The Buyer is glad.
P References to the “Buyer” include its heirs. The Buyer agrees.
""")
        self.assertEqual(check["findings"], [])

    def test_words_of_somebody_elses_name_are_no_use_of_a_term(self):
        check = self.findings("""
P The Finnish Companies Act, the Securities Act of 1933 and the Acorn Standard Terms apply to every Acorn Affiliates sell.
P Bramble Limited (the “Company”), its firm (“Acorn”) and every firm that it owns (an “Affiliate”) obey.
P The law of 1933 (the “Securities Act”) binds the Company, as the Securities Act says, Acorn and the Affiliate.
P The Company knows Acorn, and the Affiliate does.
""")
        self.assertEqual([(finding["kind"], finding["text"]) for finding in check["findings"]],
                         [("usedBefore", "Acorn"), ("otherNumber", "Affiliates")])

    def test_small_letters_are_found_in_either_number_but_not_in_headings(self):
        check = self.findings("""
P “**Tag Right**” means a right. “**Security Incident**” means a fault. A Tag Right and a Security Incident.
P Tag rights
P 3. Security incident
P A Security Incident and other security incidents end each Tag Right and each Security Incident.
P Tag rights end.
""")
        self.assertEqual(self.of_kind(check, "otherCase"), ["security incidents", "Tag rights"])

    def test_terms_that_are_not_defined_are_told_from_names(self):
        check = self.findings("""
P Any other Order counts, by the Nordic rules of the Finland Chamber of Commerce, as an OpenSky rule or an Order says.
P It uses the OpenSky software, the Nordic languages, the Standard Form 12 and the Standard Form 13.
P The Advice Unit of the Division of Trade, the Advice Unit of the Division of Law and the Finland Chamber of Commerce agree.
P The applicable Fee is due with any other Fee of the TopCo, and the TopCo pays.
""")
        self.assertEqual(self.of_kind(check, "notDefined"), ["Order", "Fee", "TopCo"])

    def test_terms_that_are_defined_without_quotation_marks_are_not_told_as_undefined(self):
        check = self.findings("""
P Acorn Limited (the Buyer) and each of its firms (each, a Buyer Firm) agree.
P **Completion** means the end of the sale.
P 1.2 **Price**: the sum of 5.
P **Depot**
P means the yard.
P ‘Order’ means a form, also any other Order of the same or another Order.
P In the Depot each Buyer Firm pays the Price to the Escrow Agent. The Buyer is at the Depot, and the Escrow Agent too.
P At the Completion, or after such Completion, the Price is due, each Buyer Firm agrees, and so does any Buyer.
P By clause 3 (Cloud Service) and clause [[ref _Ref1|4]] (Escrow Agent) the Cloud Service ends, as each Cloud Service does.
""")
        self.assertEqual((check["defined"], self.of_kind(check, "notDefined")), ([], ["Escrow Agent", "Cloud Service"]))

    def test_an_indexed_contract_has_the_same_findings(self):
        before = self.findings(FAULTS)
        self.check("index", "contract.docx", "-o", "indexed.docx")
        after = json.loads(self.check("check", "indexed.docx", "--json").out)
        strip = [[{key: value for key, value in finding.items() if key not in ("position", "other", "page")}
                  for finding in check["findings"]] for check in (before, after)]
        self.assertEqual(*strip)

    def test_the_text_names_terms_places_and_sentences(self):
        self.document(lines=FAULTS)
        out = self.check("check", "contract.docx").out
        self.assertEqual(out.splitlines()[0], "contract.docx: 8 defined terms, 10 findings")
        self.assertIn("\n  Defined and not used\n    Spare Part: page 1\n        “Spare Part” means a part that nobody speaks of.\n", out)

    def test_several_contracts_have_a_line_each_and_failures_do_not_stop_them(self):
        (self.folder / "store").mkdir()
        for name in ("a.docx", "b.docx"):
            program.make_document(self.folder / "store" / name, FAULTS)
        (self.folder / "store/bad.docx").write_text("no document")
        result = self.check("check", "store", "--json", "--jobs", "2", "--report", "report.jsonl", "--html", "page.html",
                            status=3)
        self.assertEqual([json.loads(line)["file"] for line in result.out.splitlines()], ["store/a.docx", "store/b.docx"])
        reports = [json.loads(line) for line in (self.folder / "report.jsonl").read_text().splitlines()]
        self.assertEqual([report["status"] for report in reports], ["done", "done", "failed"])
        page = (self.folder / "page.html").read_text()
        self.assertEqual(re.findall(r"<h2[^>]*>([^<]*)</h2>", page), ["store/a.docx", "store/b.docx"])
        self.assertIn("store/bad.docx", page)

    def test_the_page_needs_no_other_file_and_takes_no_orders_from_a_document(self):
        self.document(lines="P “**Buyer <script>alert(1)</script>**” means Acorn & Sons.\nP “**Price**” means <b>5</b>.")
        self.check("check", "contract.docx", "--html", "page.html")
        page = (self.folder / "page.html").read_text()
        self.assertNotRegex(page, r"<script|<b>|<img|<link|@import|url\(|https?://")
        self.assertIn("&lt;b&gt;5&lt;/b&gt;", page)
        self.assertIn("default-src 'none'", page)

    def test_a_page_that_cannot_be_written_is_told_of_before_any_work(self):
        self.document()
        result = self.check("check", "contract.docx", "--html", "nowhere/page.html", status=3)
        self.assertEqual((result.out, result.err),
                         ("", "kelvarin: nowhere/page.html cannot be written: No such file or directory\n"))

    def test_the_page_says_how_many_contracts_it_is_not_about_and_names_its_rows(self):
        self.document()
        (self.folder / "bad\x1b.docx").write_text("no document")
        self.check("check", "contract.docx", "bad\x1b.docx", "--html", "page.html", status=3)
        page = (self.folder / "page.html").read_text()
        self.assertIn("2 contracts, 1 finding, 1 could not be checked", page)
        self.assertIn('<th scope="row">bad\ufffd.docx</th>', page)
        self.assertNotRegex(page, r"<th>|[\x00-\x08\x0b-\x1f]")

    def test_the_page_replaces_no_input(self):
        self.document()
        self.check("check", "contract.docx", "--html", "contract.docx", status=2)

    def test_a_run_goes_on_with_its_journal(self):
        self.document("a.docx", FAULTS)
        self.document("b.docx")
        command = ("check", "a.docx", "b.docx", "--json", "--journal", "done.jsonl")
        first = self.check(*command).out
        journal = (self.folder / "done.jsonl").read_text()
        self.assertEqual(self.check(*command).out, first)
        self.assertEqual((self.folder / "done.jsonl").read_text().count('"done"'), journal.count('"done"'))


if __name__ == "__main__":
    program.main()
