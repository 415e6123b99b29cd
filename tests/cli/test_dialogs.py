"""The rules of the dialogs, worked from an answers file as a person works them."""

import json

import program

REMINDER = ("Refresh terms list", "You'll need to click the 'Find terms and refresh list' button to refresh the 'Terms "
            "found in document' list.")
CAPITALS = {"set": "optSearchType", "to": 1}
QUOTES = {"set": "optSearchType", "to": 0}
REFRESH = {"click": "cmdRefresh"}
QUOTED_TERMS = ["Buyer", "Seller"]


def add(text):
    return [{"set": "txtAddTerm", "to": text}, {"click": "cmdAddTerm"}]


class Dialogs(program.Case):
    def setUp(self):
        super().setUp()
        self.document()

    def run_index(self, *answers):
        """The transcript of a run whose terms dialog is cancelled."""
        (self.folder / "answers.json").write_text(json.dumps({"answers": answers}))
        self.check("run", "index", "contract.docx", "--answers", "answers.json", "--transcript", "log.jsonl", status=1)
        return self.events(self.folder / "log.jsonl")

    def run_options(self, *steps):
        """Steps in the options dialog, which is then cancelled; its controls at the end."""
        events = self.run_index({"form": "frmKVXOptions", "do": [*steps, {"click": "cmdCancel"}]})
        return self.ended(events, "frmKVXOptions")

    def run_terms(self, steps, *answers):
        """Steps in the terms dialog, which is then cancelled; its controls at the end, and the messages."""
        events = self.run_index({"form": "frmKVX_COM", "do": [*steps, {"click": "cmdCancel"}]}, *answers)
        messages = [(event["title"], event["text"]) for event in events if event["event"] == "message"]
        return self.ended(events, "frmKVX_COM"), messages

    def ended(self, events, name):
        return next(event for event in events if event["event"] == "formEnd" and event["name"] == name)["controls"]

    def load(self, name, content, more=()):
        (self.folder / name).write_bytes(content)
        return self.run_terms([{"click": "cmdLoadSavedList"}, *more],
                              {"file": "Load terms list", "path": str(self.folder / name)},
                              {"file": "Load terms list", "path": str(self.folder / name) if more else ""})

    # Terms

    def test_a_term_that_differs_from_a_found_one_only_in_case_is_added(self):
        controls, messages = self.run_terms(add("BUYER"))
        self.assertEqual(controls["lstAddTerms"]["items"], ["BUYER"])
        self.assertEqual(controls["lstAddTerms"]["selected"], [0])
        self.assertEqual(messages, [])

    def test_a_found_term_with_blanks_around_it_is_refused_and_stays_in_the_box(self):
        controls, messages = self.run_terms(add("  Buyer "))
        self.assertEqual(controls["lstAddTerms"]["items"], [])
        self.assertEqual(controls["txtAddTerm"]["text"], "  Buyer ")
        self.assertEqual(messages, [("Already on list", "Buyer is already in the list of defined terms.")])

    def test_a_blank_term_adds_nothing_and_empties_the_box(self):
        for text in ("", "   "):
            controls, messages = self.run_terms(add(text))
            self.assertEqual(controls["lstAddTerms"]["items"], [])
            self.assertEqual(controls["txtAddTerm"]["text"], "")
            self.assertEqual(messages, [])

    def test_deleting_takes_the_selected_terms_and_no_others(self):
        steps = [*add("Escrow"), *add("Bond"), *add("Charge"), {"select": "lstAddTerms", "items": ["Bond"], "on": False},
                 {"click": "cmdDeleteTerm"}]
        controls, messages = self.run_terms(steps, {"message": "Confirm delete", "press": "Yes"})
        self.assertEqual(controls["lstAddTerms"]["items"], ["Bond"])
        self.assertEqual(messages, [("Confirm delete", "Delete selected term(s) from list?")])

    def test_deleting_is_refused_without_a_selection_and_ends_at_no(self):
        controls, messages = self.run_terms([{"click": "cmdDeleteTerm"}, *add("Escrow"), {"click": "cmdDeleteTerm"}],
                                            {"message": "Nothing deleted", "press": "OK"},
                                            {"message": "Confirm delete", "press": "No"})
        self.assertEqual(controls["lstAddTerms"]["items"], ["Escrow"])
        self.assertEqual(messages[0], ("Nothing deleted", "No items were selected for deletion."))

    def test_refreshing_searches_with_the_saved_search_type(self):
        controls, messages = self.run_terms([CAPITALS, REFRESH])
        self.assertEqual(controls["lstTermsInDoc"]["items"], QUOTED_TERMS)
        self.assertIn(REMINDER, messages)

    def test_set_as_defaults_searches_with_the_chosen_search_type_at_once(self):
        controls, _ = self.run_terms([CAPITALS, {"click": "cmdSetDefaults"}])
        self.assertIn("Acorn Limited", controls["lstTermsInDoc"]["items"])

    def test_ticking_bold_and_going_to_a_list_reminds_and_refreshing_does_not(self):
        bold = {"set": "chkBold", "to": 1}
        self.assertEqual(self.run_terms([bold, {"focus": "lstTermsInDoc"}])[1], [REMINDER])
        self.assertNotIn(REMINDER, self.run_terms([bold, REFRESH])[1])

    # Options

    def test_capitalised_words_grey_quotes_and_index_what_and_quotes_bring_them_back(self):
        for steps, enabled in (([CAPITALS], False), ([CAPITALS, QUOTES], True)):
            for controls in (self.run_options(*steps), self.run_terms(steps)[0]):
                for name in ("lblOpenQuote", "cmbOpenQuote", "lblCloseQuote", "cmbCloseQuote"):
                    self.assertEqual(controls[name]["enabled"], enabled, name)
                self.assertEqual([element["enabled"] for element in controls["optIndexWhat"]], [enabled, enabled])

    def test_clearing_case_sensitive_greys_full_caps_and_leaves_its_tick(self):
        for value, enabled in ((0, False), (1, True)):
            caps = self.run_options({"set": "chkCaseSensitive", "to": 0},
                                    *([{"set": "chkCaseSensitive", "to": 1}] if value else []))["chkIndexCaps"]
            self.assertEqual((caps["enabled"], caps["value"]), (enabled, 1))

    def test_the_tab_follows_the_index_kind_whatever_was_set_before(self):
        definitions, instances = {"set": "optIndexWhat", "to": 1}, {"set": "optIndexWhat", "to": 0}
        ticked, cleared = {"set": "chkTabSep", "to": 1}, {"set": "chkTabSep", "to": 0}
        self.assertEqual(self.run_options(cleared, definitions)["chkTabSep"]["value"], 1)
        self.assertEqual(self.run_options(definitions, ticked, instances)["chkTabSep"]["value"], 0)

    def test_the_columns_box_takes_one_to_four_and_backspace(self):
        def typed(*keys):
            return self.run_options(*({"key": "txtCols", **key} for key in keys))["txtCols"]["text"]
        self.assertEqual(typed({"char": "5"}, {"char": "0"}, {"char": "x"}), "2")
        self.assertEqual(typed({"code": 8}, {"char": "4"}), "4")
        self.assertEqual(typed({"code": 8}), "")

    # Lists

    def test_an_extension_in_capitals_loads(self):
        controls, messages = self.load("TERMS.TXT", b"money\r\n")
        self.assertEqual((controls["lstAddTerms"]["items"], messages), (["money"], []))

    def test_another_extension_is_refused_and_the_dialog_comes_again(self):
        controls, messages = self.load("terms.doc", b"money\r\n")
        self.assertEqual(controls["lstAddTerms"]["items"], [])
        self.assertEqual(messages, [("Not a text file", "terms.doc is not a text file (*.txt) and cannot be loaded.  "
                                     "Please try again.")])

    def test_a_comma_divides_a_line_unless_it_stands_in_quotes(self):
        controls, _ = self.load("terms.txt", b'Alpha, Beta\r\n"Gamma, Delta"\r\n')
        self.assertEqual(controls["lstAddTerms"]["items"], ["Alpha", "Beta", "Gamma, Delta"])
        self.assertEqual(controls["lstAddTerms"]["selected"], [])

    def test_a_list_that_is_loaded_twice_adds_nothing_the_second_time(self):
        controls, _ = self.load("terms.txt", b"money\r\ngood\r\n", more=[{"click": "cmdLoadSavedList"}])
        self.assertEqual(controls["lstAddTerms"]["items"], ["money", "good"])

    def test_with_all_or_none_selected_every_term_is_saved_without_a_question(self):
        for selected in (True, False):
            target = self.folder / f"{selected}.txt"
            _, messages = self.run_terms([{"select": "lstTermsInDoc", "items": "all", "on": selected},
                                          {"click": ["cmdSaveList", 0]}],
                                         {"file": "Save terms list", "path": str(target)})
            self.assertEqual(target.read_bytes(), b"Buyer\r\nSeller\r\n")
            self.assertEqual(messages, [])

    def test_with_some_selected_yes_saves_those_and_no_saves_all(self):
        for press, saved in (("Yes", b"Seller\r\n"), ("No", b"Buyer\r\nSeller\r\n")):
            target = self.folder / f"{press}.txt"
            _, messages = self.run_terms([{"select": "lstTermsInDoc", "items": ["Buyer"], "on": False},
                                          {"click": ["cmdSaveList", 0]}],
                                         {"file": "Save terms list", "path": str(target)},
                                         {"message": "Save all or selected?", "press": press})
            self.assertEqual(target.read_bytes(), saved)
            self.assertEqual(messages, [("Save all or selected?", "Save selected items only?  Click Yes to save only "
                                         "the selected items, click No to save all items in the additional terms "
                                         "list.")])

    # Progress

    def test_progress_ends_full_and_a_line_without_a_total_leaves_the_bar(self):
        (self.folder / "answers.json").write_text(json.dumps({"answers": []}))
        self.check("run", "index", "contract.docx", "--answers", "answers.json", "-o", "out.docx", "--transcript",
                   "log.jsonl")
        events = [event for event in self.events(self.folder / "log.jsonl") if event["event"] == "progress"]
        whole = [event for event in events if event.get("total") and event["completed"] == event["total"]]
        self.assertGreater(len(whole), 0)
        for event in whole:
            self.assertEqual(event["bar"], "100% completed")
        bar = ""
        without = 0
        for event in events:
            if "shown" in event:
                bar = ""
            elif event["total"] == 0:
                self.assertEqual(event["bar"], bar)
                without += 1
            bar = event.get("bar", bar)
        self.assertGreater(without, 0)


if __name__ == "__main__":
    program.main()
