import json
import re
import zipfile

import program


class Remove(program.Case):
    def test_a_document_that_was_never_indexed_is_written_as_it_is(self):
        for sample in sorted(program.SAMPLES.glob("*.docx")):
            out = self.folder / sample.name
            self.check("remove", sample, "-o", out)
            self.assertEqual(out.read_bytes(), sample.read_bytes(), sample.name)

    def test_index_then_remove_gives_the_xml_back(self):
        for sample in sorted(program.SAMPLES.glob("*.docx")):
            indexed, out = self.folder / ("i" + sample.name), self.folder / sample.name
            self.check("index", sample, "-o", indexed)
            self.assertNotEqual(program.parts(indexed), program.parts(sample))
            self.check("remove", indexed, "-o", out)
            before, after = program.canonical(sample), program.canonical(out)
            self.assertEqual(list(before), list(after), sample.name)
            for name, content in before.items():
                self.assertEqual(after[name], content, f"{sample.name}: {name}")

    def test_the_lists_go_with_the_index_wherever_it_stands(self):
        for sample in sorted(program.SAMPLES.glob("*.docx")):
            for place in ("start", "end"):
                indexed, out = self.folder / ("i" + sample.name), self.folder / sample.name
                self.check("index", sample, "-o", indexed, "--add", "Wombat", "--at", place, "--columns", "1", "--force")
                self.assertIn("NOT FOUND\rWombat\r", self.inspect(indexed)["stories"][0]["text"])
                self.check("remove", indexed, "-o", out, "--force")
                self.assertEqual(program.canonical(sample), program.canonical(out), f"{sample.name} {place}")

    def test_progress_and_calls_come_in_their_order(self):
        self.document()
        self.check("index", "contract.docx", "-o", "indexed.docx")
        result = self.check("remove", "indexed.docx", "-o", "out.docx", "--transcript", "log.jsonl", "--progress")
        self.assertIn("Removing index entries", result.err)
        self.check_steps(self.without_menu(self.events(self.folder / "log.jsonl")))

    def test_all_steps_run_on_a_document_that_was_never_indexed_and_the_cursor_ends_on_the_first_page(self):
        self.document(lines="P The Buyer pays.\nN\nP The second page.\n")
        (self.folder / "answers.json").write_text('{"state":{"cursor":{"story":1,"start":22,"end":25}},"answers":[]}')
        self.check("run", "remove", "contract.docx", "-o", "out.docx", "--answers", "answers.json", "--transcript",
                   "log.jsonl")
        events = self.without_menu(self.events(self.folder / "log.jsonl"))
        self.check_steps(events)
        self.assertEqual((self.folder / "contract.docx").read_bytes(), (self.folder / "out.docx").read_bytes())

    def check_steps(self, events):
        """All steps of a removal, one after the other, and the cursor at the document's start."""
        self.assertEqual([event["operation"] for event in events if event["event"] == "marker"],
                         ["RemoveIndexEntries", "RemoveIndex", "RemoveTermHighlighting"])
        steps = [event for event in events if event["event"] == "progress" and "shown" not in event]
        self.assertEqual([event["lines"][0] for event in steps],
                         ["Removing index entries", "Removing index", "Removing highlighting from indexed terms"])
        self.assertEqual({event["caption"] for event in steps}, {"Please wait"})
        calls = [event["member"] for event in events if event["event"] == "word"]
        self.assertEqual(calls, ["Application.ScreenUpdating", "UndoClear", "UndoClear", "UndoClear", "Selection.GoTo",
                                 "Application.ScreenUpdating", "ScreenRefresh", "Selection.GoTo"])
        self.assertEqual(events[-1]["cursor"], {"story": 1, "start": 0, "end": 0})

    def test_the_bookmark_of_the_page_start_goes(self):
        self.document(lines="P A [[bm IndexPageStart|place]] for it.")
        self.check("remove", "contract.docx", "-o", "out.docx", "--transcript", "log.jsonl")
        self.assertEqual(self.inspect(self.folder / "out.docx")["bookmarks"], [])
        lines = [event["lines"][0] for event in self.events(self.folder / "log.jsonl") if event["event"] == "progress"]
        self.assertIn("Finishing", lines)

    def test_a_protected_document_is_told_of_and_not_written(self):
        self.document()
        self.check("index", "contract.docx", "-o", "indexed.docx")
        self.set("indexed.docx", '<w:documentProtection w:edit="readOnly" w:enforcement="1"/>')
        for command in ("remove", "unhighlight", "update", "index"):
            result = self.check(command, "indexed.docx", "-o", "out.docx", status=1)
            self.assertIn("Error: 4605", result.err, command)
            self.assertFalse((self.folder / "out.docx").exists(), command)

    def test_the_terms_of_a_protected_document_are_listed(self):
        self.document()
        for kind in ("readOnly", "comments", "forms"):
            self.set("contract.docx", f'<w:documentProtection w:edit="{kind}" w:enforcement="1"/>')
            self.assertEqual(self.check("terms", "contract.docx").out, "Buyer\nSeller\n")
            self.document()

    def test_a_read_only_file_is_not_changed_in_place_and_said_to_be_so(self):
        file = self.document()
        before = file.read_bytes()
        file.chmod(0o444)
        for command in ("index", "remove", "unhighlight", "update"):
            result = self.check(command, "contract.docx", "--in-place", status=3)
            self.assertIn("contract.docx cannot be written: it is read-only", result.err, command)
            self.assertEqual(file.read_bytes(), before, command)
            self.check(command, "contract.docx", "-o", f"{command}.docx")

    def set(self, name, setting):
        """Puts a setting into a document."""
        content = program.parts(self.folder / name)
        settings = content["word/settings.xml"].decode()
        end = settings.index(">", settings.index("<w:settings")) + 1
        content["word/settings.xml"] = (settings[:end] + setting + settings[end:]).encode()
        with zipfile.ZipFile(self.folder / name, "w", zipfile.ZIP_DEFLATED) as package:
            for part, data in content.items():
                package.writestr(part, data)

    def test_without_a_document_nothing_happens(self):
        self.document()
        for command in ("remove", "unhighlight", "update"):
            (self.folder / "answers.json").write_text('{"state":{"noDocument":true},"answers":[]}')
            self.check("run", command, "contract.docx", "--answers", "answers.json", "--transcript", "log.jsonl")
            events = self.without_menu(self.events(self.folder / "log.jsonl"))
            self.assertEqual([event["event"] for event in events], ["state"], command)

    def test_indexing_again_shows_the_same_document(self):
        self.document()
        self.check("index", "contract.docx", "-o", "once.docx")
        self.check("index", "once.docx", "-o", "twice.docx")
        self.assertEqual(self.inspect(self.folder / "once.docx"), self.inspect(self.folder / "twice.docx"))

    def test_where_changes_are_tracked_indexing_again_is_indexing_once_and_removing_gives_the_document_back(self):
        self.document()
        self.set("contract.docx", "<w:trackRevisions/>")
        for name, result in (("contract", "once"), ("once", "twice")):
            self.check("index", f"{name}.docx", "-o", f"{result}.docx")
        self.check("remove", "twice.docx", "-o", "removed.docx")
        indexed = program.canonical(self.folder / "once.docx")["word/document.xml"]
        own = '<w:ins w:author="Kelvarin" w:date="[^"]*" w:id="[0-9]+">'
        refused = re.sub(f"{own}.*?</w:ins>", "", indexed)
        self.assertNotIn("instrText", refused)
        self.assertNotIn("NOT USED", refused)
        # Each entry is one insertion, and so is each list, with the marks of its paragraphs.
        self.assertEqual(len(re.findall(f'{own}<w:r><w:fldChar w:fldCharType="begin"></w:fldChar></w:r><w:r>'
                                        '<w:instrText xml:space="preserve"> XE', indexed)), 6)
        paragraphs = program.parts(self.folder / "contract.docx")["word/document.xml"].decode().count("</w:p>")
        self.assertEqual(indexed.count("</w:p>") - paragraphs, len(re.findall(f"<w:rPr>{own}</w:ins>", indexed)))
        # The hour of the second run is another.
        dates = re.compile('w:date="[^"]*"')
        again = program.canonical(self.folder / "twice.docx")["word/document.xml"]
        self.assertEqual(dates.sub("", again), dates.sub("", indexed))
        self.assertEqual(program.canonical(self.folder / "removed.docx"), program.canonical(self.folder / "contract.docx"))


class EditedCase(program.Case):
    def edit(self, name, *changes):
        content = program.parts(self.folder / name)
        for old, new in changes:
            self.assertIn(old.encode(), content["word/document.xml"])
            content["word/document.xml"] = content["word/document.xml"].replace(old.encode(), new.encode(), 1)
        with zipfile.ZipFile(self.folder / name, "w", zipfile.ZIP_DEFLATED) as package:
            for part, data in content.items():
                package.writestr(part, data)


class Unhighlight(EditedCase):
    def test_only_the_highlighting_goes(self):
        self.document()
        self.check("index", "contract.docx", "-o", "indexed.docx", "--add", "Wombat")
        result = self.check("unhighlight", "indexed.docx", "-o", "out.docx")
        self.assertIn("Done: Highlighting removed from indexed terms.", result.err)
        before, after = (self.inspect(self.folder / name) for name in ("indexed.docx", "out.docx"))
        self.assertTrue(before["highlights"])
        self.assertEqual(after["highlights"], [])
        for member in ("stories", "entries", "index"):
            self.assertEqual(after[member], before[member])
        self.check("remove", "out.docx", "-o", "clean.docx")
        self.assertEqual(program.canonical(self.folder / "contract.docx"), program.canonical(self.folder / "clean.docx"))

    def test_index_and_lists_before_a_term_that_the_author_highlighted_have_none_of_that(self):
        self.document(lines="P “Buyer” means Acorn.\nP Buyer.")
        run = '<w:r><w:t xml:space="preserve">Buyer.'
        self.edit("contract.docx", (run, run.replace("<w:t", '<w:rPr><w:highlight w:val="cyan"/></w:rPr><w:t')))
        self.check("index", "contract.docx", "-o", "indexed.docx", "--add", "Wombat", "--at", "char:21")
        self.check("unhighlight", "indexed.docx", "-o", "out.docx")
        shown = self.inspect(self.folder / "out.docx")
        text = shown["stories"][0]["text"]
        self.assertLess(text.index("NOT FOUND\rWombat"), text.index("Buyer", text.index("Wombat")))
        self.assertEqual([text[part["start"]:part["end"]].strip() for part in shown["highlights"]], ["Buyer", "."])

    def test_its_message_comes_before_the_screen_is_put_back(self):
        self.document()
        self.check("unhighlight", "contract.docx", "-o", "out.docx", "--transcript", "log.jsonl")
        self.assertEqual(program.parts(self.folder / "contract.docx"), program.parts(self.folder / "out.docx"))
        events = self.without_menu(self.events(self.folder / "log.jsonl"))
        order = [event.get("title") or event.get("member") for event in events
                 if event["event"] in ("message", "word")]
        self.assertEqual(order, ["Application.ScreenUpdating", "UndoClear", "Selection.GoTo", "Done",
                                 "Application.ScreenUpdating", "ScreenRefresh"])
        message = next(event for event in events if event["event"] == "message")
        self.assertEqual((message["icon"], message["buttons"]), ("information", "OK"))


class Update(EditedCase):
    YES = {"message": "Update only?", "press": "Yes"}
    NO = {"message": "Update only?", "press": "No"}

    def run_update(self, name, *answers, status=0):
        (self.folder / "answers.json").write_text(json.dumps({"answers": list(answers)}))
        self.check("run", "update", name, "-o", "out.docx", "--force", "--answers", "answers.json", "--strict",
                   "--transcript", "log.jsonl", status=status)
        return self.without_menu(self.events(self.folder / "log.jsonl"))

    def indexed(self, *options):
        self.document()
        self.check("index", "contract.docx", "-o", "indexed.docx", *options)

    def test_an_edited_document_gets_the_new_state_and_keeps_its_lists(self):
        self.indexed("--columns", "1", "--add", "Wombat")
        self.edit("indexed.docx", ('XE "Seller"', 'XE "Vendor"'), ('XE "Buyer"', 'XE "Buyer" \\x'))
        result = self.check("update", "indexed.docx", "-o", "out.docx")
        self.assertIn("Done: Defined terms index updated.", result.err)
        shown = self.inspect(self.folder / "out.docx")
        self.assertEqual(shown["index"]["paragraphs"], ["Buyer:  \t1", "Seller:  \t1", "Vendor:  \t1"])
        self.assertIn("NOT FOUND\rWombat\r", shown["stories"][0]["text"])

    def test_an_unedited_document_stays_as_it_is(self):
        for columns in ("1", "2"):
            self.indexed("--columns", columns, "--force")
            self.check("update", "indexed.docx", "-o", "out.docx", "--force")
            before, after = (program.canonical(self.folder / name) for name in ("indexed.docx", "out.docx"))
            # A bookmark may have got another number.
            for content in (before, after):
                content["word/document.xml"] = re.sub(r'w:id="\d+"', "", content["word/document.xml"])
            self.assertEqual(before, after)

    def test_the_question_is_asked_and_no_changes_nothing(self):
        self.indexed()
        events = self.run_update("indexed.docx", self.NO)
        question = next(event for event in events if event["event"] == "message")
        self.assertEqual((question["title"], question["icon"], question["buttons"]), ("Update only?", "question", "YesNo"))
        self.assertTrue(question["text"].startswith(
            "Click Yes if you want to update your existing defined terms index without adding additional terms to it."
            "\r\n\r\nIf you want to add terms"))
        self.assertEqual((self.folder / "indexed.docx").read_bytes(), (self.folder / "out.docx").read_bytes())

    def test_yes_updates_once(self):
        self.indexed()
        events = self.run_update("indexed.docx", self.YES, {"message": "Done", "press": "OK"})
        self.assertEqual([event["member"] for event in events if event["event"] == "word"], ["Field.Update"])
        done = [event for event in events if event["event"] == "message"][-1]
        self.assertEqual((done["text"], done["icon"], done["buttons"]), ("Defined terms index updated.", "none", "OK"))

    def test_a_document_without_an_index_is_told_of_and_written_as_it_is(self):
        file = self.document()
        result = self.check("update", file, "-o", "out.docx")
        self.assertIn("No defined terms index found: No defined terms index found. Please re-run Kelvarin to create one.",
                      result.err)
        self.assertEqual(file.read_bytes(), (self.folder / "out.docx").read_bytes())
        events = self.run_update(file, self.YES, {"message": "No defined terms index found", "press": "OK"})
        self.assertEqual([event for event in events if event["event"] == "message"][-1]["icon"], "exclamation")

    def test_an_index_stored_as_one_element_is_updated_replaced_and_removed(self):
        for result in ("", "<w:r><w:t>Old</w:t></w:r>"):
            self.document()
            self.edit("contract.docx", ("<w:sectPr", '<w:p><w:fldSimple w:instr=" INDEX \\f &quot;DefinedTermsIndex&quot; ">'
                                        f"{result}</w:fldSimple></w:p><w:sectPr"))
            for command in ("update", "index", "remove"):
                self.check(command, "contract.docx", "-o", f"{command}.docx", "--force")
            indexes = {command: [field["result"] for field in self.inspect(self.folder / f"{command}.docx")["fields"]
                                 if field["kind"] == "INDEX"] for command in ("update", "index", "remove")}
            self.assertEqual(indexes["update"], ["No index entries found.\r"])
            self.assertEqual(len(indexes["index"]), 1)
            self.assertIn("Buyer", indexes["index"][0])
            self.assertEqual(indexes["remove"], [])

    def test_a_field_that_says_index_in_small_letters_does_not_count(self):
        self.indexed("--columns", "1")
        self.edit("indexed.docx", (" INDEX ", " index "))
        self.run_update("indexed.docx", self.YES, {"message": "No defined terms index found", "press": "OK"})

    def test_of_two_indexes_the_first_in_the_text_is_updated(self):
        self.indexed("--columns", "1", "--at", "start", "--no-not-used", "--no-not-found")
        second = ('<w:p><w:r><w:fldChar w:fldCharType="begin"/></w:r><w:r><w:instrText> INDEX \\f "DefinedTermsIndex" '
                  '</w:instrText></w:r><w:r><w:fldChar w:fldCharType="separate"/></w:r><w:r><w:t>Old</w:t></w:r>'
                  '<w:r><w:fldChar w:fldCharType="end"/></w:r></w:p><w:sectPr')
        self.edit("indexed.docx", ("<w:sectPr", second), ('XE "Seller"', 'XE "Vendor"'))
        self.run_update("indexed.docx", self.YES, {"message": "Done", "press": "OK"})
        fields = [field for field in self.inspect(self.folder / "out.docx")["fields"] if field["kind"] == "INDEX"]
        self.assertIn("Vendor", fields[0]["result"])
        self.assertEqual(fields[1]["result"], "Old")


if __name__ == "__main__":
    program.main()
