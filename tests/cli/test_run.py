import json
import pathlib
import re
import zipfile

import program

OK = [{"form": "frmKVXOptions", "do": [{"click": "cmdOK"}]}, {"form": "frmKVX_COM", "do": [{"click": "cmdOK"}]}]

CANCELS = [[{"form": "frmKVXOptions", "do": [{"click": "cmdCancel"}]}],
           [OK[0], {"form": "frmKVX_COM", "do": [{"click": "cmdCancel"}]}]]


class Run(program.Case):
    def run_index(self, answers=None, *arguments, state=None, status=0):
        """Runs the command on the document; its transcript."""
        given = []
        if answers is not None:
            content = {"answers": answers}
            if state is not None:
                content["state"] = state
            (self.folder / "answers.json").write_text(json.dumps(content))
            given = ["--answers", "answers.json"]
        self.check("run", "index", "contract.docx", *given, "--transcript", "log.jsonl", *arguments, status=status)
        return self.events(self.folder / "log.jsonl")

    def setUp(self):
        super().setUp()
        self.document()

    def test_without_answers_the_dialogs_are_confirmed(self):
        events = self.run_index(None, "-o", "out.docx")
        self.assertEqual([event["name"] for event in events if event["event"] == "form"],
                         ["frmKVXOptions", "frmKVX_COM", "frmKVXProgressFormKVXClose"])
        self.assertEqual(len(self.inspect(self.folder / "out.docx")["entries"]), 6)

    def test_the_calls_into_the_companion_come_in_their_order(self):
        events = self.run_index(OK)
        operations = [event["operation"] for event in events if event["event"] == "marker"]
        self.assertEqual(operations, [
            "OptionChanged", "AddTerm", "AddTerm",
            "RemoveIndexEntries", "RemoveIndex", "RemoveTermHighlighting",
            "BeginIndexing", "BuildTermTable", "MarkTermInStory", "MarkTermInStory", "MarkTermInStory", "MarkTermInStory",
            "GetUnusedAndMissing", "InsertIndex", "EndIndexing", "FinishDocument"])

    def test_puts_and_calls_into_word_are_listed_in_their_order(self):
        events = self.run_index(OK)
        members = [event["member"] for event in events if event["event"] == "word"]
        def at(member, after=-1):
            return members.index(member, after + 1)
        first_bookmark = at("Bookmarks.Add")
        second_bookmark = at("Bookmarks.Add", first_bookmark)
        fast_save = at("Options.AllowFastSave", second_bookmark)
        collapse = at("Selection.Collapse", fast_save)
        show_all = at("View.ShowAll", collapse)
        hidden = at("View.ShowHiddenText", show_all)
        off = at("Application.ScreenUpdating", hidden)
        on = at("Application.ScreenUpdating", off)
        at("ScreenRefresh", on)
        restore = [event for event in events if event["event"] == "word"
                   and event["member"] in ("Options.CheckSpellingAsYouType", "Options.Pagination")]
        self.assertEqual([event["value"] for event in restore], [True, True])
        added = [event["value"]["name"] for event in events if event.get("member") == "Bookmarks.Add"]
        self.assertEqual(added, ["ReturnHereBK", "IndexBKStart", "IndexBKStart", "DefinedTermsIndexNotUsedList",
                                 "DefinedTermsIndexNotFoundList"])

    def test_the_last_event_is_the_state(self):
        state = self.run_index(OK)[-1]
        self.assertEqual(state["event"], "state")
        self.assertEqual(state["displayOnConnect"], "1")
        self.assertEqual(state["cursor"]["story"], 1)
        self.assertFalse(state["options"]["AllowFastSave"])
        self.assertEqual(state["wordProcesses"], 1)

    def test_a_word_that_never_showed_the_terms_dialog_is_not_shown_at_the_next_connection(self):
        for command in ("remove", "update"):
            (self.folder / "answers.json").write_text(json.dumps({"answers": []}))
            self.kelvarin("run", command, "contract.docx", "--answers", "answers.json", "--transcript", "log.jsonl")
            self.assertEqual(self.events(self.folder / "log.jsonl")[-1]["displayOnConnect"], "0")

    def test_the_state_is_what_the_run_finds(self):
        given = {"view": {"type": 6, "showHiddenText": True}, "options": {"AllowFastSave": True, "Pagination": False},
                 "cursor": {"story": 1, "start": 3, "end": 3}}
        cancel = [{"form": "frmKVXOptions", "do": [{"click": "cmdCancel"}]}]
        state = self.run_index(cancel, state=given, status=1)[-1]
        self.assertEqual(state["view"]["type"], 6)
        self.assertTrue(state["view"]["showHiddenText"])
        self.assertTrue(state["options"]["AllowFastSave"])
        self.assertEqual(state["cursor"], {"story": 1, "start": 3, "end": 3})

    def test_options_that_word_does_not_have_here_are_kept(self):
        given = {"Frobnicate": True, "DefaultTab": 3, "UserName": "x"}
        options = self.run_index(CANCELS[0], state={"options": given}, status=1)[-1]["options"]
        self.assertEqual({name: options[name] for name in given}, given)

    def test_the_state_at_the_end_is_a_state_to_begin_with(self):
        self.run_index(OK, "-o", "out.docx")
        for answers, state in ((CANCELS[0], {"new": True, "attributes": 33}), (CANCELS[0], {"noDocument": True})):
            first = self.run_index(answers, state=state, status=1)[-1]
            self.assertEqual(first["connectMode"], 1)
            self.assertEqual(first["addInFolder"], str(pathlib.Path(program.KELVARIN).resolve().parent))
            self.assertEqual(first["appData"], str(self.home / ".config"))
            self.assertEqual(self.run_index(answers, state=first, status=1)[-1], first)
        self.assertEqual(list(self.home.rglob("*.ini")), [self.user_file()])
        self.assertEqual(self.user_file().read_bytes(), program.SETTINGS)

    def test_an_add_in_that_is_loaded_from_outside_adds_no_menu(self):
        self.assertEqual(self.run_index(CANCELS[0], state={"connectMode": 2}, status=1)[-1]["connectMode"], 2)

    def test_a_cursor_behind_the_last_mark_of_its_story_is_refused(self):
        self.document(lines="P “Buyer”[[fn: The Buyer.]] is the Buyer.")
        for story in self.inspect(self.folder / "contract.docx")["stories"]:
            end = story["length"]
            cursor = {"story": story["type"], "start": end - 1, "end": end}
            self.assertEqual(self.run_index(CANCELS[0], state={"cursor": cursor}, status=1)[-1]["cursor"], cursor)
            cursor["start"] = end
            events = self.run_index(CANCELS[0], "--report", "report.json", state={"cursor": cursor}, status=1)
            self.assertEqual([event["event"] for event in events], ["state"])
            report = json.loads((self.folder / "report.json").read_text())
            self.assertIn("no such place for the cursor", report["messages"][0]["text"])

    def test_the_terms_found_are_given_to_the_companion_with_the_bound_of_their_array(self):
        events = self.run_index(OK)
        arguments = [event["arguments"] for event in events if event.get("operation") == "AddTerm"]
        self.assertEqual([bound for _, bound in arguments], [0, 1])
        self.assertEqual(arguments[0][0], {"story": 1, "start": 1, "end": 6})

    def test_without_a_document_only_its_message_is_shown(self):
        events = self.run_index([], "-o", "out.docx", state={"noDocument": True}, status=1)
        events = self.without_menu(events)
        self.assertEqual([event["event"] for event in events], ["message", "state"])
        self.assertEqual(events[0]["title"], "No document to index")
        self.assertEqual(events[0]["icon"], "information")
        self.assertFalse((self.folder / "out.docx").exists())

    def test_cancelling_leaves_the_document_as_it_was(self):
        for form in ("frmKVXOptions", "frmKVX_COM"):
            self.run_index([{"form": form, "do": [{"click": "cmdCancel"}]}], "-o", "out.docx", "--force", status=1)
            self.assertEqual(program.canonical(self.folder / "out.docx"), program.canonical(self.folder / "contract.docx"), form)

    def test_a_cursor_in_a_footnote_or_table_is_refused(self):
        self.document(lines="P “Buyer”[[fn: The Buyer.]]\n| Head | Other |\n| cell | end |\nP Last.")
        events = self.run_index([], "-o", "out.docx", state={"cursor": {"story": 2, "start": 2, "end": 2}}, status=1)
        self.assertEqual([event["title"] for event in events if event["event"] == "message"], ["Cannot continue"])
        events = self.run_index([], "--at", "after:cell", status=1)
        self.assertEqual([event["title"] for event in events if event["event"] == "message"],
                         ["Cannot continue - inside a table"])
        # run writes what a person would then see.
        self.assertTrue((self.folder / "out.docx").exists())

    def test_strict_stops_at_a_dialog_that_was_not_expected(self):
        (self.folder / "answers.json").write_text(json.dumps({"answers": [OK[1]]}))
        result = self.check("run", "index", "contract.docx", "--answers", "answers.json", "--strict", status=1)
        self.assertIn("frmKVXOptions", result.err)
        self.assertIn("frmKVX_COM", result.err)

    def test_strict_ends_the_run_inside_a_form(self):
        steps = [{"set": "txtAddTerm", "to": "Buyer"}, {"click": "cmdAddTerm"}, {"click": "cmdOK"}]
        terms = {"form": "frmKVX_COM", "do": steps}
        for expected in ([], [{"message": "Nothing deleted", "press": "OK"}]):
            events = self.run_index([OK[0], terms, *expected], "--strict", "-o", "out.docx", "--force", status=1)
            self.assertEqual([event["title"] for event in events if event["event"] == "message"], ["Already on list"])
            self.assertEqual([event["name"] for event in events if event["event"] == "formEnd"],
                             ["frmKVXOptions", "frmKVX_COM", "frmKVXProgressFormKVXClose"])
            self.assertNotIn("BeginIndexing", [event.get("operation") for event in events])
            # The run has cleaned up behind itself.
            shown = self.inspect(self.folder / "out.docx")
            self.assertEqual((shown["entries"], shown["bookmarks"], shown["index"]), ([], [], None))
        events = self.run_index([OK[0], terms, {"message": "Already on list", "press": "OK"},
                                 {"message": "Add term?", "press": "No"}], "--strict")
        self.assertIn("BeginIndexing", [event.get("operation") for event in events])

    def test_answers_left_over_are_an_error_with_strict(self):
        self.run_index(OK, "--strict")
        more = OK + [{"message": "Done", "press": "OK"}]
        self.run_index(more)
        (self.folder / "answers.json").write_text(json.dumps({"answers": more}))
        self.assertIn("Done", self.check("run", "index", "contract.docx", "--answers", "answers.json", "--strict", status=1).err)

    def test_answers_that_are_none_are_status_3(self):
        for content in ("", "no json", "[]", '{"answers": 1}', '{"answers": [{"frobnicate": 1}]}', '{"state": {"options": '
                        '{"Pagination": "x"}}, "answers": []}'):
            (self.folder / "answers.json").write_text(content)
            result = self.check("run", "index", "contract.docx", "--answers", "answers.json", status=3)
            self.assertIn("answers", result.err)
        self.check("run", "index", "contract.docx", "--answers", "missing.json", status=3)

    def test_with_an_index_the_cursor_may_stand_in_a_footnote_or_table(self):
        self.document(lines="P “Buyer”[[fn: The Buyer.]] is a Buyer.\n| Head | Other |\n| cell | end |\nP Last.")
        self.check("index", "contract.docx", "--in-place")
        indexed = self.inspect(self.folder / "contract.docx")
        start = next(mark["start"] for mark in indexed["bookmarks"] if mark["name"] == "DefinedTermsIndex")
        for place, state in (([], {"cursor": {"story": 2, "start": 2, "end": 2}}), (["--at", "after:cell"], None)):
            events = self.run_index(OK, "-o", "out.docx", "--force", *place, state=state)
            self.assertEqual([event for event in events if event["event"] == "message"], [])
            self.assertEqual(events[-1]["cursor"], {"story": 1, "start": start, "end": start})
            self.assertEqual(self.inspect(self.folder / "out.docx"), indexed)

    def test_the_cursor_ends_at_the_index_or_where_the_user_had_it(self):
        given = {"cursor": {"story": 1, "start": 20, "end": 26}}
        cursors = [self.run_index(answers, state=given, status=1)[-1]["cursor"] for answers in CANCELS]
        self.assertEqual(cursors, [given["cursor"], {"story": 1, "start": 20, "end": 20}])
        cursor = self.run_index(OK, "-o", "out.docx", state=given)[-1]["cursor"]
        marks = {mark["name"]: mark for mark in self.inspect(self.folder / "out.docx")["bookmarks"]}
        self.assertFalse({"ReturnHereBK", "IndexBKStart"} & marks.keys())
        start = marks["DefinedTermsIndex"]["start"]
        self.assertNotEqual(start, 20)
        self.assertEqual(cursor, {"story": 1, "start": start, "end": start})

    def test_quotes_that_stopped_pairing_up_leave_the_cursor_and_the_index_where_they_are(self):
        lines = program.TWO_TERMS.replace("P Last", "P “Spare” words.\nP Last")
        self.document(lines=lines)
        self.run_index(OK, "--in-place")
        document = program.parts(self.folder / "contract.docx")
        xml = document["word/document.xml"].decode()
        self.assertEqual(xml.count("” words"), 1)
        with zipfile.ZipFile(self.folder / "contract.docx", "w") as package:
            for name, content in document.items():
                broken = xml.replace("” words", " words") if name == "word/document.xml" else content
                package.writestr(name, broken)
        before = program.canonical(self.folder / "contract.docx")
        for pressed in (["Yes"], ["No", "No"]):
            answers = [OK[0], *({"message": "Mis-matched double quotes", "press": button} for button in pressed),
                       {"message": "Cannot index", "press": "OK"}]
            for start in (7, 180):
                cursor = {"story": 1, "start": start, "end": start + 2}
                events = self.run_index(answers, "--strict", "-o", "out.docx", "--force", state={"cursor": cursor}, status=1)
                self.assertEqual(events[-1]["cursor"], {"story": 1, "start": start, "end": start}, pressed)
                if pressed[0] == "No":
                    self.assertEqual(program.canonical(self.folder / "out.docx"), before)

    def test_a_cursor_inside_an_entry_of_before_comes_back_to_where_the_entry_was(self):
        self.run_index(OK, "--in-place")
        entry = self.inspect(self.folder / "contract.docx")["entries"][0]
        cursor = {"story": 1, "start": entry["start"] + 4, "end": entry["start"] + 4}
        cancelled = self.run_index(CANCELS[1], state={"cursor": cursor}, status=1)
        self.assertEqual(cancelled[-1]["cursor"], {"story": 1, "start": entry["start"], "end": entry["start"]})

    def test_an_index_that_lost_its_bookmark_is_replaced_with_the_cursor_anywhere_in_it(self):
        self.run_index(OK, "--in-place")
        document = program.parts(self.folder / "contract.docx")
        xml = document["word/document.xml"].decode()
        number = re.search(r'<w:bookmarkStart w:id="(\d+)" w:name="DefinedTermsIndex"/>', xml)
        xml = xml.replace(number[0], "").replace(f'<w:bookmarkEnd w:id="{number[1]}"/>', "")
        with zipfile.ZipFile(self.folder / "contract.docx", "w") as package:
            for name, content in document.items():
                package.writestr(name, xml if name == "word/document.xml" else content)
        shown = self.inspect(self.folder / "contract.docx")
        self.assertNotIn("DefinedTermsIndex", [mark["name"] for mark in shown["bookmarks"]])
        text = shown["stories"][0]["text"]
        for place in ("INDEX", "Buyer:", "DEFINED BUT", "NOT FOUND"):
            cursor = {"story": 1, "start": text.index(place) + 2, "end": text.index(place) + 2}
            events = self.run_index(OK, "-o", "out.docx", "--force", state={"cursor": cursor})
            self.assertEqual([event for event in events if event["event"] == "message"], [], place)
            again = self.inspect(self.folder / "out.docx")
            self.assertIsNotNone(again["index"], place)
            self.assertEqual(len(again["entries"]), 6)
            self.assertEqual(again["stories"][0]["text"].count(" INDEX "), 1)

    def test_the_view_of_before_is_the_view_after(self):
        for view in (1, 6):
            for answers, status in ((OK, 0), (CANCELS[0], 1), (CANCELS[1], 1)):
                state = self.run_index(answers, state={"view": {"type": view}}, status=status)[-1]
                self.assertEqual(state["view"]["type"], view, answers)

    def test_an_unknown_search_type_shows_the_terms_dialog_without_a_search(self):
        (self.folder / "my.ini").write_bytes(b"[Defaults]\r\nSearchType=Anything\r\n")
        events = self.run_index(CANCELS[1], "--settings", "my.ini", status=1)
        self.assertEqual([event["name"] for event in events if event["event"] == "form"],
                         ["frmKVXOptions", "frmKVX_COM", "frmKVXProgressFormKVXClose"])
        self.assertEqual([event for event in events if event.get("member") == "Find.Text"], [])

    def test_a_run_without_a_search_replaces_an_earlier_marking(self):
        (self.folder / "my.ini").write_bytes(b"[Defaults]\r\nSearchType=Anything\r\nHighlight=True\r\n")
        steps = [step for term in ("Buyer", "money") for step in ({"set": "txtAddTerm", "to": term}, {"click": "cmdAddTerm"})]
        terms = {"form": "frmKVX_COM", "do": [*steps, {"click": "cmdOK"}]}
        self.check("index", "contract.docx", "-o", "indexed.docx", "--highlight", "--at", "after:good.")
        for name in ("contract.docx", "indexed.docx"):
            (self.folder / "my.json").write_text(json.dumps({"answers": [OK[0], terms]}))
            self.check("run", "index", name, "--answers", "my.json", "--settings", "my.ini", "-o", f"again-{name}",
                       "--at", "after:good.")
        once, twice = (program.canonical(self.folder / f"again-{name}.docx") for name in ("contract", "indexed"))
        self.assertEqual(once, twice)
        self.check("remove", "again-indexed.docx", "-o", "removed.docx")
        self.assertEqual(program.canonical(self.folder / "removed.docx"), program.canonical(self.folder / "contract.docx"))

    def test_without_highlight_the_highlighting_goes_after_marking(self):
        options = {"form": "frmKVXOptions", "do": [{"set": "chkHighlight", "to": 0}, {"click": "cmdOK"}]}
        events = self.run_index([options, OK[1]], "-o", "out.docx")
        shown = self.inspect(self.folder / "out.docx")
        self.assertEqual((shown["highlights"], len(shown["entries"])), ([], 6))
        operations = [event["operation"] for event in events if event["event"] == "marker"]
        self.assertEqual(operations[-3:], ["EndIndexing", "RemoveTermHighlighting", "FinishDocument"])
        places = [event["value"] for event in events if event.get("member") == "Selection.GoTo"]
        index = {"What": -1, "Name": "DefinedTermsIndex"}
        self.assertEqual(places, [index, {"What": 1, "Which": 1}, index])

    def test_a_document_without_notes_is_indexed_in_its_main_text_only(self):
        events = self.run_index(OK)
        self.assertEqual({event["arguments"][4] for event in events if event.get("operation") == "MarkTermInStory"}, {1})
        lines = [json.dumps(event) for event in events if event["event"] == "progress"]
        self.assertTrue(any("Indexing document" in line for line in lines))
        self.assertFalse(any("footnotes" in line or "endnotes" in line for line in lines))


if __name__ == "__main__":
    program.main()
