import json
import pathlib
import re

import program

OPTIONS = {"form": "frmKVXOptions", "do": [{"click": "cmdOK"}]}
TERMS = {"form": "frmKVX_COM", "do": [{"click": "cmdCancel"}]}


def chooser(*steps):
    return {"form": "frmKVXSearchChooser", "do": [*steps, {"click": "cmdOK"}]}


class Prompts(program.Case):
    new_user = True

    def setUp(self):
        super().setUp()
        self.document()
        self.settings = self.folder / "kvx.ini"

    def run_index(self, answers, *arguments, state=None, status=1):
        content = {"answers": answers}
        if state is not None:
            content["state"] = state
        (self.folder / "answers.json").write_text(json.dumps(content))
        self.check("run", "index", "contract.docx", "--answers", "answers.json", "--transcript", "log.jsonl", "--settings",
                   self.settings, *arguments, status=status)
        return self.events(self.folder / "log.jsonl")

    def forms(self, events):
        return [event["name"] for event in events if event["event"] == "form"]

    def setting(self, key):
        text = self.settings.read_bytes().decode("cp1252")
        return re.search(rf"(?m)^{key}=(.*?)\r$", text).group(1)

    def test_a_first_run_shows_the_prompts_before_the_options(self):
        events = self.run_index([], status=0)
        self.assertEqual(self.forms(events)[:4], ["frmKVXSearchChooser", "frmKVXFormatInstrux", "frmKVXShowHelp",
                                                  "frmKVXOptions"])
        self.assertEqual({key: self.setting(key) for key in ("ShowSearchChooser", "ShowFormatReminder", "ShowHelp")},
                         dict.fromkeys(("ShowSearchChooser", "ShowFormatReminder", "ShowHelp"), "True"))
        ends = {event["name"]: event for event in events if event["event"] == "formEnd"}
        self.assertEqual(ends["frmKVXSearchChooser"]["result"], "Cancel")
        self.assertEqual(ends["frmKVXShowHelp"]["result"], "No")
        self.assertFalse([event for event in events if event["event"] in ("help", "open")])

    def test_prompts_that_were_switched_off_do_not_come_again(self):
        off = {"set": "chkDontShow", "to": 1}
        self.run_index([chooser(off), {"form": "frmKVXFormatInstrux", "do": [off, {"click": "cmdOK"}]},
                        {"form": "frmKVXShowHelp", "do": [off, {"click": "cmdNo"}]}, OPTIONS, TERMS], "--strict")
        self.assertEqual(self.forms(self.run_index([OPTIONS, TERMS], "--strict"))[0], "frmKVXOptions")

    def test_the_chosen_search_type_shows_in_the_options(self):
        events = self.run_index([chooser({"set": "optSearchType", "to": 1}),
                                 {"form": "frmKVXOptions", "do": [{"click": "cmdCancel"}]}])
        options = next(event for event in events if event["event"] == "form" and event["name"] == "frmKVXOptions")
        self.assertEqual([element["value"] for element in options["controls"]["optSearchType"]], [False, True])
        self.assertFalse(options["controls"]["cmbOpenQuote"]["enabled"])
        self.assertEqual(self.setting("SearchType"), "SearchInitCaps")

    def test_ticking_and_clearing_the_help_offers_box_leaves_it_on(self):
        self.run_index([{"form": "frmKVXShowHelp", "do": [{"set": "chkDontShow", "to": 1}, {"close": True}]}], status=0)
        self.assertEqual(self.setting("ShowHelp"), "False")
        self.settings.write_bytes(self.settings.read_bytes().replace(b"ShowHelp=False", b"ShowHelp=True"))
        self.run_index([{"form": "frmKVXShowHelp", "do": [{"set": "chkDontShow", "to": 1}, {"set": "chkDontShow", "to": 0},
                                                          {"click": "cmdNo"}]}], status=0)
        self.assertEqual(self.setting("ShowHelp"), "True")

    def test_help_and_questions_open_where_the_add_in_lies(self):
        folder = self.folder / "addin"
        folder.mkdir()
        (folder / "kvxfaq.htm").write_text("x")
        steps = [{"menu": "cmdUpdate"}, {"f1": "chkBold"}, {"menu": "cmdFAQ"}, {"click": "lblFAQClick"},
                 {"click": "cmdCancel"}]
        events = self.run_index([{"form": "frmKVXShowHelp", "do": [{"click": "cmdYes"}]},
                                 {"form": "frmKVXOptions", "do": steps}], state={"addInFolder": str(folder)})
        help_file = f"{folder}//Kelvarin3Help.chm"
        self.assertEqual([event for event in events if event["event"] in ("help", "open")], [
            {"event": "help", "file": help_file, "command": 15, "data": 7},
            {"event": "help", "file": help_file, "command": 15, "data": 14},
            {"event": "help", "file": help_file, "command": 15, "data": 7},
            {"event": "open", "verb": "Open", "path": str(folder / "kvxfaq.htm")},
            {"event": "open", "verb": "Open", "path": str(folder / "kvxfaq.htm")}])

    def test_without_a_local_page_the_makers_questions_are_opened(self):
        events = self.run_index([{"form": "frmKVXOptions", "do": [{"menu": "cmdFAQ"}, {"click": "cmdCancel"}]}],
                                state={"addInFolder": str(self.folder)})
        opened = [event["path"] for event in events if event["event"] == "open"]
        self.assertEqual(len(opened), 1)
        self.assertTrue(opened[0].startswith("https://"))

    def test_missing_instructions_are_reported(self):
        steps = [{"menu": "cmdInstructionsA4"}, {"menu": "cmdInstructionsLetter"}, {"click": "cmdCancel"}]
        events = self.run_index([{"form": "frmKVXOptions", "do": steps}], state={"addInFolder": str(self.folder)})
        self.assertEqual([event["title"] for event in events if event["event"] == "message"], ["File not found"] * 2)

    def test_the_program_comes_with_its_help_and_instructions(self):
        folder = pathlib.Path(program.KELVARIN).resolve().parent
        steps = [{"menu": "cmdFAQ"}, {"menu": "cmdInstructionsA4"}, {"menu": "cmdInstructionsLetter"}, {"click": "cmdCancel"}]
        events = self.run_index([{"form": "frmKVXOptions", "do": steps}])
        self.assertEqual([event["path"] for event in events if event["event"] == "open"],
                         [str(folder / name)
                          for name in ("kvxfaq.htm", "KVX Instructions A4.pdf", "KVX Instructions LTR.pdf")])
        for name in ("KVX Instructions A4.pdf", "KVX Instructions LTR.pdf"):
            self.assertTrue((folder / name).read_bytes().startswith(b"%PDF-"), name)
        boxes = {name: re.search(rb"/MediaBox \[0 0 (\d+)", (folder / name).read_bytes()).group(1)
                 for name in ("KVX Instructions A4.pdf", "KVX Instructions LTR.pdf")}
        self.assertEqual(boxes, {"KVX Instructions A4.pdf": b"595", "KVX Instructions LTR.pdf": b"612"})

    def test_every_topic_has_a_page_and_every_link_leads_somewhere(self):
        folder = pathlib.Path(program.KELVARIN).resolve().parent
        pages = [*(folder / "Kelvarin3Help").glob("*.html"), folder / "kvxfaq.htm"]
        names = {page.name for page in pages}
        self.assertLessEqual({"index.html", *(f"topic{number}.html" for number in (7, *range(11, 19)))}, names)
        for page in pages:
            for target in re.findall(r'href="([^"]+)"', page.read_text(encoding="utf-8")):
                self.assertTrue((page.parent / target).is_file(), f"{page.name}: {target}")


class Menu(program.Case):
    NAMES = [("&Kelvarin", "KVXMenu"), ("&Find and index", "KVXIndexTag"), ("&Remove indexing", "RemoveIndexTag"),
             ("Remove &highlighting only", "RemoveHighlightTag"), ("&Update index", "UpdateTag")]

    def menu(self, state):
        self.document()
        (self.folder / "answers.json").write_text(json.dumps(
            {"state": state, "answers": [{"form": "frmKVXOptions", "do": [{"click": "cmdCancel"}]}]}))
        self.check("run", "index", "contract.docx", "--answers", "answers.json", "--transcript", "log.jsonl", status=1)
        events = self.events(self.folder / "log.jsonl")
        return [(event["action"], event["caption"], event["tag"]) for event in events if event["event"] == "menu"], events

    def test_the_menu_is_added_first_and_deleted_last(self):
        menu, events = self.menu({})
        self.assertEqual(menu, [("add", *names) for names in self.NAMES] + [("delete", *self.NAMES[0])])
        self.assertEqual([event["event"] for event in events[:5]], ["menu"] * 5)
        self.assertEqual([(event["event"], event.get("member")) for event in events[-4:]],
                         [("menu", None), ("word", "CustomizationContext.Save"), ("word", "CustomizationContext.Saved"),
                          ("state", None)])

    def test_a_second_word_and_one_that_is_driven_from_outside_get_no_menu(self):
        self.assertEqual(self.menu({"wordProcesses": 2})[0], [])
        # What another connection left would go all the same; there is none.
        self.assertEqual(self.menu({"connectMode": 2})[0], [])


if __name__ == "__main__":
    program.main()
