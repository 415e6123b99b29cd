import json

import program

OPTIONS = {"form": "frmKVXOptions", "do": [{"click": "cmdOK"}]}
REFRESH = {"form": "frmKVX_COM", "do": [{"click": "cmdRefresh"}, {"click": "cmdOK"}]}
SAVE = {"message": "Save document", "press": "OK"}
READ_ONLY = {"message": "Read only document", "press": "OK"}
INVALID = {"message": "Invalid filename", "press": "OK"}
NOT_SAVED = {"message": "Save before continuing", "press": "OK"}
FILTER = "Documents (*.doc)\0*.doc\0Templates (*.dot)\0*.dot\0All files (*.*)\0*.*"


def save_as(path):
    return {"file": "Save As", "path": str(path)}


class Saving(program.Case):
    """A refresh of the list, which is always asked about first."""

    def setUp(self):
        super().setUp()
        self.document()
        self.before = (self.folder / "contract.docx").read_bytes()

    def refresh(self, *answers, state=None, status=0, first=OPTIONS):
        content = {"answers": [first, REFRESH, *answers]}
        if state:
            content["state"] = state
        (self.folder / "answers.json").write_text(json.dumps(content))
        self.check("run", "index", "contract.docx", "--answers", "answers.json", "--strict", "--transcript", "log.jsonl",
                   "-o", "out.docx", "--force", status=status)
        self.assertEqual((self.folder / "contract.docx").read_bytes(), self.before)
        return self.events(self.folder / "log.jsonl")

    def calls(self, events):
        return [(event["member"], event.get("value")) for event in events if event.get("member") in ("Save", "SaveAs")]

    def files(self, events):
        return [event for event in events if event["event"] == "file"]

    def messages(self, events):
        return [event["title"] for event in events if event["event"] == "message"]

    def test_a_first_search_for_quoted_terms_neither_asks_nor_saves(self):
        self.check("run", "index", "contract.docx", "--transcript", "log.jsonl")
        events = self.events(self.folder / "log.jsonl")
        self.assertEqual((self.calls(events), self.messages(events)), ([], []))

    def test_a_document_that_can_be_written_is_saved_after_one_prompt(self):
        events = self.refresh(SAVE)
        self.assertEqual([name for name, _ in self.calls(events)], ["Save"])
        prompt = next(event for event in events if event["event"] == "message")
        self.assertEqual((prompt["icon"], prompt["buttons"]), ("information", "OKCancel"))
        self.assertIn("saved before searching for defined terms.  If", prompt["text"])
        terms = [event for event in events if event["event"] == "formEnd" and event["name"] == "frmKVX_COM"]
        self.assertEqual(terms[0]["controls"]["lstTermsInDoc"]["items"], ["Buyer", "Seller"])

    def test_a_prompt_that_was_answered_with_ok_is_not_told_of(self):
        result = self.check("index", "contract.docx", "-o", "out.docx", "--search", "capitals")
        self.assertEqual(result.err, "")

    def test_a_prompt_that_was_answered_with_ok_is_no_reason_for_a_run_that_stopped(self):
        self.document(lines="P no capitals here.")
        result = self.check("index", "contract.docx", "-o", "out.docx", "--search", "capitals", status=1)
        self.assertIn("no defined terms were found, and none were added", result.err)
        self.assertNotIn("Save document", result.err)

    def test_without_leave_nothing_is_saved_or_searched(self):
        events = self.refresh({"message": "Save document", "press": "Cancel"})
        self.assertEqual(self.calls(events), [])
        self.assertEqual([event for event in events if event["event"] == "status"], [])

    def test_a_read_only_file_is_saved_under_a_new_name(self):
        target = self.folder / "copy.docx"
        events = self.refresh(SAVE, READ_ONLY, save_as(target), state={"attributes": 1})
        self.assertEqual([(name, path.replace("\\", "/")) for name, path in self.calls(events)], [("SaveAs", str(target))])
        dialog = self.files(events)[0]
        self.assertEqual((dialog["mode"], dialog["title"], dialog["fileName"], dialog["filter"], dialog["path"]),
                         ("save", "Save As", "NewDocument", FILTER, str(target)))
        saved = self.inspect(target)
        self.assertEqual(saved["stories"][0]["text"], self.inspect(self.folder / "contract.docx")["stories"][0]["text"])
        self.assertEqual(events[-1]["attributes"], 32)

    def test_a_read_only_file_with_another_attribute_is_saved_in_place(self):
        events = self.refresh(SAVE, state={"attributes": 33})
        self.assertEqual([name for name, _ in self.calls(events)], ["Save"])
        self.assertEqual(events[-1]["attributes"], 33)

    def test_a_new_document_is_saved_under_the_name_that_is_chosen(self):
        events = self.refresh(SAVE, save_as("first.docx"), state={"new": True})
        self.assertEqual(self.files(events)[0]["fileName"], "Document1")
        self.assertTrue((self.folder / "first.docx").exists())
        self.assertNotIn("new", events[-1])

    def test_the_result_may_go_where_the_document_was_saved(self):
        (self.folder / "answers.json").write_text(json.dumps(
            {"state": {"new": True}, "answers": [OPTIONS, REFRESH, SAVE, save_as("out.docx")]}))
        self.check("run", "index", "contract.docx", "--answers", "answers.json", "--strict", "-o", "out.docx")
        self.assertIsNotNone(self.inspect(self.folder / "out.docx")["index"])

    def test_cancelling_the_name_stops_the_search_and_leaves_the_document_new(self):
        events = self.refresh(SAVE, save_as(""), NOT_SAVED, state={"new": True})
        self.assertEqual(self.calls(events), [])
        self.assertTrue(events[-1]["new"])

    def test_a_name_that_cannot_be_is_asked_for_again(self):
        events = self.refresh(SAVE, save_as(self.folder / "nowhere" / "a.docx"), INVALID,
                              save_as(self.folder / "contract.docx"), INVALID, save_as("b.docx"), state={"new": True})
        self.assertEqual(len(self.files(events)), 3)
        self.assertTrue((self.folder / "b.docx").exists())
        self.assertFalse((self.folder / "nowhere").exists())

    def test_of_a_read_only_file_each_further_name_is_asked_for_with_the_reason(self):
        events = self.refresh(SAVE, READ_ONLY, save_as(self.folder / "nowhere" / "a.docx"), INVALID, READ_ONLY,
                              save_as(""), NOT_SAVED, state={"attributes": 1})
        self.assertEqual(self.messages(events),
                         ["Save document", "Read only document", "Invalid filename", "Read only document",
                          "Save before continuing"])

    def test_a_second_refresh_saves_in_place_what_was_saved_under_a_new_name(self):
        twice = {"form": "frmKVX_COM", "do": [{"click": "cmdRefresh"}, {"click": "cmdRefresh"}, {"click": "cmdOK"}]}
        (self.folder / "answers.json").write_text(json.dumps(
            {"state": {"attributes": 1}, "answers": [OPTIONS, twice, SAVE, READ_ONLY, save_as("c.docx"), SAVE]}))
        self.check("run", "index", "contract.docx", "--answers", "answers.json", "--strict", "--transcript", "log.jsonl")
        self.assertEqual([name for name, _ in self.calls(self.events(self.folder / "log.jsonl"))], ["SaveAs", "Save"])

    def test_by_default_a_document_is_saved_and_file_dialogs_are_cancelled(self):
        steps = {"form": "frmKVX_COM", "do": [{"click": "cmdRefresh"}, {"click": "cmdOK"}]}
        for state, titles in (({}, ["Save document"]), ({"new": True}, ["Save document", "Save before continuing"])):
            (self.folder / "answers.json").write_text(json.dumps({"state": state, "answers": [steps]}))
            self.check("run", "index", "contract.docx", "--answers", "answers.json", "--transcript", "log.jsonl")
            self.assertEqual(self.messages(self.events(self.folder / "log.jsonl")), titles)

    def test_the_prompt_names_the_search_type_that_is_chosen_in_the_dialog(self):
        chosen = {"form": "frmKVX_COM", "do": [{"click": ["optSearchType", 1]}, {"click": "cmdRefresh"},
                                               {"click": "cmdOK"}]}
        (self.folder / "answers.json").write_text(json.dumps(
            {"answers": [OPTIONS, chosen, {"message": "Refresh terms list", "press": "OK"}, SAVE]}))
        self.check("run", "index", "contract.docx", "--answers", "answers.json", "--strict", "--transcript", "log.jsonl")
        events = self.events(self.folder / "log.jsonl")
        text = [event["text"] for event in events if event["event"] == "message"][1]
        self.assertIn("searching for capitalized words and phrases.", text)


if __name__ == "__main__":
    program.main()
