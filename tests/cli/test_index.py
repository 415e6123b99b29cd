import json
import zipfile

import program


class Index(program.Case):
    def test_hidden_text_at_the_edge_of_a_paragraph_hides_no_occurrence(self):
        hidden = "<w:r><w:rPr><w:vanish/></w:rPr><w:t>note</w:t></w:r>"
        for width in range(16):
            self.document(lines=f"""
P “**Buyer**” and “**Seller**” mean what they mean.{"x" * width}
P Paid by the Buyer
X <w:p>{hidden}<w:r><w:t>Seller pays the Buyer</w:t></w:r>{hidden}</w:p>
P Seller.
""")
            report = self.report("index", "contract.docx", "-o", "out.docx", "--force")
            self.assertEqual({term["term"]: term["count"] for term in report["terms"]}, {"Buyer": 3, "Seller": 3}, width)

    def test_the_report_says_what_was_done(self):
        file = self.document()
        report = self.report("index", file, "-o", "out.docx", "--columns", "1")
        self.assertEqual(report["file"], str(file))
        self.assertEqual(report["output"], "out.docx")
        self.assertEqual(report["status"], "done")
        self.assertEqual(report["searchType"], "SearchFlagged")
        self.assertEqual(report["pages"], 1)
        self.assertIn("layout", report["pagesFrom"])
        self.assertEqual(report["found"], ["Buyer", "Seller"])
        self.assertEqual(report["chosen"], ["Buyer", "Seller"])
        # The form in capitals counts for the term.
        self.assertEqual(report["terms"], [{"term": "Buyer", "count": 4, "pages": ["1"]},
                                           {"term": "Seller", "count": 2, "pages": ["1"]}])
        self.assertEqual(report["notUsed"], [])
        self.assertEqual(report["notFound"], [])
        self.assertEqual(report["messages"], [])
        self.assertGreater(report["seconds"], 0)

    def counts(self, lines, *arguments):
        """How often each term is marked, when taking it all away again gives the document back."""
        self.document(lines=lines)
        report = self.report("index", "contract.docx", "-o", "out.docx", "--force", *arguments)
        self.check("remove", "out.docx", "-o", "back.docx", "--force")
        self.assertEqual(program.canonical(self.folder / "back.docx"), program.canonical(self.folder / "contract.docx"))
        counts = {term["term"]: term["count"] for term in report["terms"]}
        entries = [entry["text"] for entry in self.inspect(self.folder / "out.docx")["entries"]]
        self.assertEqual({term: entries.count(term) for term in counts}, counts)
        return counts, report["notUsed"], report["notFound"]

    def test_a_term_is_found_whatever_its_apostrophe(self):
        text = "P “Seller” means S. “Seller’s Knowledge” means what it knows.\nP To the Seller's Knowledge, to SELLER'S KNOWLEDGE."
        for case in ("--case", "--no-case"):
            self.assertEqual(self.counts(text, case), ({"Seller": 1, "Seller’s Knowledge": 3}, ["Seller"], []))
        text = 'P "Sellers\' Agent" means R.\nP The Sellers’ Agent acts. SELLERS’ AGENT.'
        self.assertEqual(self.counts(text), ({"Sellers' Agent": 3}, [], []))

    def test_an_added_term_is_found_as_it_is_typed(self):
        self.assertEqual(self.counts("P the “Buyer”, to the Seller’s Knowledge, to SELLER’S KNOWLEDGE. A Buyer.", "--not-found",
                                     "--add", "Seller's Knowledge"), ({"Buyer": 2, "Seller's Knowledge": 2}, [], []))

    def test_pages_can_rest_on_the_file_or_on_the_layout(self):
        file = self.document(lines="".join(f"P Line {number} of the agreement.\n" for number in range(200)))
        for source, basis in (("file", "estimate"), ("layout", "layout"), ("auto", "layout")):
            shown = self.inspect(file, "--pages", source)
            self.assertIn(basis, shown["pagesFrom"])
            self.assertGreater(shown["pages"], 3)

    def test_the_index_stands_at_the_end_unless_told_otherwise(self):
        self.document()
        for place, before in ((None, "Last words."), ("end", "Last words."), ("start", ""), ("after:Seller", "the Seller")):
            arguments = [] if place is None else ["--at", place]
            self.check("index", "contract.docx", "-o", "out.docx", "--force", "--columns", "1", "--no-highlight", *arguments)
            shown = self.inspect(self.folder / "out.docx")
            main_text = shown["stories"][0]["text"]
            field = next(field for field in shown["fields"] if field["kind"] == "INDEX")
            self.assertLess(field["start"], field["end"])
            if place == "start":
                self.assertEqual(main_text[:field["start"]].strip("\r"), "")
            elif place == "after:Seller":
                self.assertIn("Seller", main_text[:field["start"]])
                self.assertNotIn("Last words", main_text[:field["start"]])
            else:
                self.assertIn("Last words", main_text[:field["start"]])

    def test_a_place_that_the_document_does_not_have_stops_the_run(self):
        self.document()
        for place in ("bookmark:Nowhere", "after:No such text", "char:100000"):
            self.check("index", "contract.docx", "-o", "out.docx", "--at", place, status=1)
            self.assertFalse((self.folder / "out.docx").exists())

    def test_a_bookmark_and_a_character_are_places(self):
        self.document(lines="P A [[bm Here|place]] for it. “Buyer” is the Buyer.")
        for place in ("bookmark:Here", "char:2"):
            self.check("index", "contract.docx", "-o", "out.docx", "--force", "--columns", "1", "--at", place)
            shown = self.inspect(self.folder / "out.docx")
            field = next(field for field in shown["fields"] if field["kind"] == "INDEX")
            self.assertTrue(shown["stories"][0]["text"].startswith("A "))
            self.assertLessEqual(field["start"], 4, place)

    def test_a_bookmark_in_a_header_is_no_place_for_an_index(self):
        self.document(lines="P “Buyer” is the Buyer.\nSECTION header=The_[[bm_Head|head]]\nP Last.")
        result = self.check("index", "contract.docx", "-o", "out.docx", "--at", "bookmark:Head", status=1)
        self.assertIn("Your defined terms index has to be in the main body of your document.", result.err)
        self.assertFalse((self.folder / "out.docx").exists())

    def test_a_place_inside_a_character_is_the_one_behind_it(self):
        self.document(lines="P 😀 “Buyer” is the Buyer and Buyer.\nP Last.")
        cursor = {"story": 1, "start": 1, "end": 1}
        (self.folder / "answers.json").write_text(json.dumps({"state": {"cursor": cursor}, "answers": []}))
        for command, place in ((("index",), ("--at", "char:1")), (("run", "index"), ("--answers", "answers.json"))):
            self.check(*command, "contract.docx", "-o", "out.docx", "--force", *place)
            shown = self.inspect(self.folder / "out.docx")
            text = shown["stories"][0]["text"]
            entries = [entry["start"] for entry in shown["entries"]]
            units = text.encode("utf-16-le")
            self.assertEqual([units[2 * start - 10:2 * start].decode("utf-16-le") for start in entries], ["Buyer"] * 3)
            self.assertTrue(text.startswith("😀\x13 INDEX"), text)
            self.check("remove", "out.docx", "-o", "removed.docx", "--force")
            self.assertEqual(program.canonical(self.folder / "removed.docx"), program.canonical(self.folder / "contract.docx"))

    def test_the_pages_are_those_of_the_document_with_its_index(self):
        terms = [f"Term {chr(65 + one)}{chr(97 + other)}" for one in range(5) for other in range(26)]
        self.document(lines="\nN\n".join(f"P “{term}” is the {term}." for term in terms))
        self.check("index", "contract.docx", "-o", "out.docx", "--at", "start", "--columns", "1", "--separator", "=",
                   "--no-tab")
        shown = self.inspect(self.folder / "out.docx")
        pages = {entry["text"]: entry["page"] for entry in shown["entries"]}
        self.assertGreater(pages[terms[0]], 2)
        self.assertEqual(shown["index"]["paragraphs"], [f"{term}={pages[term]}" for term in terms])

    def test_the_pages_are_those_of_the_document_with_its_lists(self):
        self.document(lines="P “**Buyer**” means Acorn.\nP The Buyer pays.")
        wanted = [argument for number in range(80) for argument in ("--add", f"Nowhere {number}")]
        for highlight in ("--no-highlight", "--highlight"):
            self.check("index", "contract.docx", "-o", "out.docx", "--force", "--at", "start", "--not-found", "--columns", "1",
                       highlight, *wanted)
            self.check("update", "out.docx", "-o", "updated.docx", "--force")
            shown = self.inspect(self.folder / "out.docx")
            page = shown["entries"][0]["page"]
            self.assertGreater(page, 1)
            self.assertEqual(shown["index"]["paragraphs"], [f"Buyer:  \t{page}"])
            self.assertEqual(shown, self.inspect(self.folder / "updated.docx"))
            self.check("remove", "updated.docx", "-o", "back.docx", "--force")
            self.assertEqual(program.canonical(self.folder / "back.docx"), program.canonical(self.folder / "contract.docx"))

    def test_terms_are_added_and_left_out(self):
        self.document()
        def chosen(*arguments):
            report = self.report("index", "contract.docx", "-o", "out.docx", "--force", *arguments)
            return report["chosen"], report["notFound"]
        self.assertEqual(chosen("--exclude", "Buyer"), (["Seller"], []))
        self.assertEqual(chosen("--add", "money"), (["Buyer", "Seller", "money"], []))
        self.assertEqual(chosen("--add", "Wombat", "--add", "Last"), (["Buyer", "Seller", "Wombat", "Last"], ["Wombat"]))
        self.assertEqual(chosen("--only-added", "--add", "Seller"), (["Seller"], []))

    def test_a_found_term_with_blanks_in_its_quotes_is_selected_and_deselected_without_them(self):
        self.document(lines="P “ Buyer ” means Acorn and “Seller” means Bramble.\nP The Buyer pays the Seller.")
        def chosen(*arguments):
            report = self.report("index", "contract.docx", "-o", "out.docx", "--force", *arguments)
            return report["chosen"], report["notFound"], report["messages"]
        self.assertEqual(chosen("--add", "Buyer"), ([" Buyer ", "Seller"], [], []))
        self.assertEqual(chosen("--only-added", "--add", "Buyer"), ([" Buyer "], [], []))
        self.assertEqual(chosen("--exclude", "Buyer"), (["Seller"], [], []))
        self.assertEqual(chosen("--exclude", " Buyer "), (["Seller"], [], []))

    def test_no_term_chosen_stops_the_run(self):
        self.document()
        result = self.check("index", "contract.docx", "-o", "out.docx", "--only-added", status=1)
        self.assertIn("No terms were selected for indexing.", result.err)
        self.assertFalse((self.folder / "out.docx").exists())
        report = self.report("index", "contract.docx", "-o", "out.docx", "--only-added", status=1)
        self.assertEqual((report["status"], report["output"]), ("stopped", None))
        self.assertEqual(report["messages"][0]["title"], "Nothing selected")

    def test_a_run_that_stops_has_its_reason_in_the_report(self):
        nothing = self.document("nothing.docx", "P Nothing is defined here.")
        report = self.report("index", nothing, "-o", "out.docx", status=1)
        self.assertEqual((report["status"], report["messages"]),
                         ("stopped", [{"title": "", "text": "no defined terms were found, and none were added"}]))
        report = self.report("index", nothing, "-o", "out.docx", "--at", "bookmark:Nowhere", status=1)
        self.assertEqual(report["messages"], [{"title": "", "text": 'there is no bookmark "Nowhere"'}])

    def test_the_reported_terms_are_those_of_the_last_search(self):
        self.document(lines="P “**Buyer**” is bold and “Seller” is not; the Buyer pays the Seller.")
        steps = [{"set": "chkBold", "to": 1}, {"click": "cmdRefresh"}, {"click": "cmdOK"}]
        (self.folder / "answers.json").write_text(json.dumps({"answers": [{"form": "frmKVX_COM", "do": steps}]}))
        report = self.report("run", "index", "contract.docx", "--answers", "answers.json")
        self.assertEqual((report["found"], report["chosen"]), (["Buyer"], ["Buyer"]))

    def test_headers_and_text_boxes_are_neither_searched_nor_marked(self):
        box = ('<wps:txbx><w:txbxContent><w:p><w:r><w:t>“Box” for the Buyer and the Wombat</w:t></w:r></w:p>'
               '</w:txbxContent></wps:txbx>')
        document = program.docx_writer.Document("Test")
        document.add("P “**Buyer**” pays the “**Seller**”. The Buyer and the Seller.")
        document.body.append(
            '<w:p><mc:AlternateContent xmlns:mc="http://schemas.openxmlformats.org/markup-compatibility/2006" '
            'xmlns:wps="http://schemas.microsoft.com/office/word/2010/wordprocessingShape" '
            'xmlns:v="urn:schemas-microsoft-com:vml"><mc:Choice Requires="wps"><w:r><w:drawing>' + box + '</w:drawing></w:r>'
            '</mc:Choice><mc:Fallback><w:r><w:pict><v:shape><v:textbox>' + box.replace("wps:txbx>", "v:textbox>")
            .replace("<v:textbox>", "").replace("</v:textbox>", "") + '</v:textbox></v:shape></w:pict></w:r></mc:Fallback>'
            '</mc:AlternateContent></w:p>')
        document.save(self.folder / "contract.docx", header="“Header”_for_the_Buyer_and_the_Dingo")
        before = self.inspect(self.folder / "contract.docx")
        self.assertEqual([story["type"] for story in before["stories"]], [1, 5, 7])
        report = self.report("index", "contract.docx", "-o", "out.docx", "--add", "Wombat", "--add", "Dingo")
        self.assertEqual(report["found"], ["Buyer", "Seller"])
        self.assertEqual([(row["term"], row["count"]) for row in report["terms"]],
                         [("Buyer", 2), ("Seller", 2), ("Wombat", 0), ("Dingo", 0)])
        self.assertEqual(report["notFound"], ["Dingo", "Wombat"])
        after = self.inspect(self.folder / "out.docx")
        self.assertEqual({entry["story"] for entry in after["entries"]}, {1})
        self.assertEqual({highlight["story"] for highlight in after["highlights"]}, {1})
        self.assertEqual(after["stories"][1:], before["stories"][1:])
        parts = [program.parts(self.folder / name)["word/header1.xml"] for name in ("contract.docx", "out.docx")]
        self.assertEqual(parts[0], parts[1])

    def test_options_reach_the_index(self):
        self.document()
        self.check("index", "contract.docx", "-o", "out.docx", "--columns", "1", "--separator", " ... ", "--no-tab",
                   "--no-caps", "--highlight")
        shown = self.inspect(self.folder / "out.docx")
        self.assertEqual(shown["index"]["columns"], 1)
        self.assertEqual(shown["index"]["paragraphs"], ["Buyer ... 1", "Seller ... 1"])
        self.assertEqual([entry["text"] for entry in shown["entries"]].count("Buyer"), 3)
        self.assertTrue(all(entry["type"] == "DefinedTermsIndex" for entry in shown["entries"]))
        self.assertEqual(len(shown["highlights"]), 5)

    def test_the_tab_may_stand_alone_and_is_not_lost_behind_a_longer_separator(self):
        self.document()
        for separator, printed in (("", "\t"), (":", ":\t"), (" see pages ", " see\t")):
            self.check("index", "contract.docx", "-o", "out.docx", "--force", "--columns", "1", "--separator", separator, "--tab")
            self.assertEqual(self.inspect(self.folder / "out.docx")["index"]["paragraphs"],
                             [f"Buyer{printed}1", f"Seller{printed}1"])

    def test_a_document_without_definitions_has_an_empty_index_of_definitions(self):
        self.document(lines="P The Buyer pays.\nP Last words.")
        self.check("index", "contract.docx", "-o", "out.docx", "--what", "definitions", "--add", "Buyer")
        shown = self.inspect(self.folder / "out.docx")
        self.assertEqual((shown["entries"], shown["index"]["paragraphs"]), ([], ["No index entries found."]))
        self.check("remove", "out.docx", "-o", "back.docx")
        self.assertEqual(program.canonical(self.folder / "back.docx"), program.canonical(self.folder / "contract.docx"))

    def test_definitions_only_marks_the_definitions(self):
        self.document()
        self.check("index", "contract.docx", "-o", "out.docx", "--what", "definitions")
        entries = self.inspect(self.folder / "out.docx")["entries"]
        self.assertEqual([entry["text"] for entry in entries], ["Buyer", "Seller"])

    def test_bold_takes_only_bold_terms(self):
        self.document(lines="P “**Buyer**” is bold and “Seller” is not.")
        self.assertEqual(self.report("index", "contract.docx", "-o", "out.docx", "--bold")["found"], ["Buyer"])

    def test_bold_takes_terms_that_the_style_of_their_table_makes_bold(self):
        def cell(text):
            return f"<w:tc><w:p><w:r><w:t>{text}</w:t></w:r></w:p></w:tc>"

        rows = "".join(f"<w:tr>{cell(f'“{term}”')}{cell(f'means an “{other}”.')}</w:tr>"
                       for term, other in [("Buyer", "Acorn"), ("Seller", "Bramble")])
        table = ('<w:tbl><w:tblPr><w:tblStyle w:val="Definitions"/><w:tblLook w:val="0080"/></w:tblPr>'
                 f"<w:tblGrid/>{rows}</w:tbl>")
        file = self.document(lines=f"X {table}\nP The Buyer pays the Seller.")
        content = program.parts(file)
        style = ('<w:style w:type="table" w:styleId="Definitions"><w:tblStylePr w:type="firstCol"><w:rPr><w:b/></w:rPr>'
                 "</w:tblStylePr></w:style></w:styles>")
        content["word/styles.xml"] = content["word/styles.xml"].replace(b"</w:styles>", style.encode())
        with zipfile.ZipFile(file, "w") as package:
            for name, data in content.items():
                package.writestr(name, data)
        self.assertEqual(self.report("index", "contract.docx", "-o", "out.docx", "--bold")["found"], ["Buyer", "Seller"])

    def test_bold_finds_the_same_terms_in_the_result(self):
        self.document(lines="P “**Buyer**” and “**Seller**” are bold and “Agent” is not. The Buyer pays the Seller.")
        first = self.report("index", "contract.docx", "-o", "out.docx", "--bold")
        again = self.report("index", "out.docx", "-o", "again.docx", "--bold")
        self.assertEqual(first["found"], ["Buyer", "Seller"])
        self.assertEqual(again["found"], first["found"])
        self.assertEqual(program.canonical(self.folder / "again.docx"), program.canonical(self.folder / "out.docx"))

    def test_a_term_with_the_mark_of_a_note_or_comment_behind_it_is_no_other_term(self):
        mark = '<w:r><w:commentReference w:id="0"/></w:r>'
        self.document(lines=f'X <w:p><w:r><w:t>The “Bank</w:t></w:r>{mark}<w:r><w:t>” lends.</w:t></w:r></w:p>\n'
                            "P See “Bank”, “Bank[[fn: note.]]”. The Bank pays.")
        report = self.report("index", "contract.docx", "-o", "out.docx")
        self.assertEqual(report["found"], ["Bank"])
        self.assertEqual([term["count"] for term in report["terms"]], [4])
        self.assertEqual(report["notFound"], [])
        self.check("index", "contract.docx", "-o", "none.docx", "--exclude", "Bank", status=1)

    def test_terms_used_once_and_terms_not_found_are_reported(self):
        self.document(lines="P “Buyer” is defined. “Seller” is defined, and the Seller sells.")
        report = self.report("index", "contract.docx", "-o", "out.docx", "--add", "Wombat")
        self.assertEqual(report["notUsed"], ["Buyer"])
        self.assertEqual(report["notFound"], ["Wombat"])

    def test_the_same_input_gives_the_same_bytes(self):
        sample = program.SAMPLES / "share_purchase_agreement.docx"
        self.check("index", sample, "-o", "one.docx")
        self.check("index", sample, "-o", "two.docx")
        self.assertEqual((self.folder / "one.docx").read_bytes(), (self.folder / "two.docx").read_bytes())

    def test_parts_that_did_not_have_to_change_did_not(self):
        sample = program.SAMPLES / "share_purchase_agreement.docx"
        self.check("index", sample, "-o", "out.docx")
        before, after = program.parts(sample), program.parts(self.folder / "out.docx")
        self.assertEqual(set(before), set(after))
        changed = {name for name in before if before[name] != after[name]}
        self.assertLessEqual(changed, {"word/document.xml", "word/footnotes.xml", "word/endnotes.xml", "word/styles.xml"})

    def test_progress_goes_to_standard_error_when_asked_for(self):
        self.document()
        self.assertEqual(self.check("index", "contract.docx", "-o", "out.docx").err, "")
        lines = self.check("index", "contract.docx", "-o", "out2.docx", "--progress").err.splitlines()
        self.assertTrue(any("Indexing document" in line for line in lines), lines)
        self.assertTrue(all(line.startswith("contract.docx: ") for line in lines), lines)
        self.assertEqual(self.check("index", "contract.docx", "-o", "out3.docx", "--progress", "--quiet").err, "")


class Terms(program.Case):
    def test_terms_are_printed_one_a_line(self):
        file = self.document()
        before = file.read_bytes()
        self.assertEqual(self.check("terms", file).out, "Buyer\nSeller\n")
        self.assertIn('"term": "Buyer"', self.check("terms", file, "--json").out)
        self.assertEqual(file.read_bytes(), before)

    def test_the_search_options_of_index_are_taken(self):
        file = self.document(lines="P “**Buyer**” is bold and “Seller” is not; „Tenant“ and „Lessor“ are low.")
        self.assertEqual(self.check("terms", file, "--bold").out, "Buyer\n")
        every = ("--case", "--no-caps", "--highlight", "--no-ignore-numbers", "--search", "quoted")
        self.assertEqual(self.check("terms", file, "--open-quote", "132", "--close-quote", "147", *every).out,
                         "Lessor\nTenant\n")

    def test_a_document_without_terms_prints_nothing(self):
        file = self.document(lines="P Nothing is defined here.")
        self.assertEqual(self.check("terms", file).out, "")


if __name__ == "__main__":
    program.main()
