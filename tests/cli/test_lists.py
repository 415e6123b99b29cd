import fcntl
import json

import program

LOAD = {"click": "cmdLoadSavedList"}
SAVE_FOUND = {"click": ["cmdSaveList", 0]}
SAVE_ADDED = {"click": ["cmdSaveList", 1]}
IN_USE = "The filename you specified is in use or not available.  Please try again."


class Lists(program.Case):
    def setUp(self):
        super().setUp()
        self.document()
        self.list = self.folder / "terms.txt"

    def run_terms(self, steps, *answers, state=None):
        """Steps in the terms dialog, which is then cancelled; the transcript."""
        content = {"answers": [{"form": "frmKVX_COM", "do": [*steps, {"click": "cmdCancel"}]}, *answers]}
        if state is not None:
            content["state"] = state
        (self.folder / "answers.json").write_text(json.dumps(content))
        self.check("run", "index", "contract.docx", "--answers", "answers.json", "--transcript", "log.jsonl", status=1)
        return self.events(self.folder / "log.jsonl")

    def load(self, path):
        return {"file": "Load terms list", "path": str(path)}

    def save(self, path):
        return {"file": "Save terms list", "path": str(path)}

    def messages(self, events):
        return [(event["title"], event["text"]) for event in events if event["event"] == "message"]

    def added(self, events):
        ended = [event for event in events if event["event"] == "formEnd" and event["name"] == "frmKVX_COM"]
        return ended[0]["controls"]["lstAddTerms"]["items"]

    def test_what_a_loaded_list_adds_is_indexed(self):
        self.list.write_bytes(b"money\r\nLast words\r\nBuyer\r\n")
        report = self.report("index", "contract.docx", "-o", "out.docx", "--load", "terms.txt")
        self.assertEqual(sorted(report["chosen"]), ["Buyer", "Last words", "Seller", "money"])
        texts = {entry["text"] for entry in self.inspect(self.folder / "out.docx")["entries"]}
        self.assertEqual(texts, {"Buyer", "Seller", "money", "Last words"})

    def test_a_list_that_an_editor_on_linux_wrote_is_one_term_a_line(self):
        self.list.write_bytes(b"money\nLast words\nzebra\n")
        report = self.report("index", "contract.docx", "-o", "out.docx", "--load", "terms.txt")
        self.assertEqual(sorted(report["chosen"]), ["Buyer", "Last words", "Seller", "money", "zebra"])
        self.assertEqual(report["notFound"], ["zebra"])

    def test_a_loaded_list_goes_with_added_and_without_found_terms(self):
        self.list.write_bytes(b"money\r\n")
        report = self.report("index", "contract.docx", "-o", "out.docx", "--load", self.list, "--add", "good",
                             "--add", "money", "--only-added")
        self.assertEqual(sorted(report["chosen"]), ["good", "money"])

    def test_a_list_that_cannot_be_read_ends_the_program(self):
        result = self.check("index", "contract.docx", "-o", "out.docx", "--load", "missing.txt", status=3)
        self.assertIn("missing.txt cannot be read", result.err)
        self.assertFalse((self.folder / "out.docx").exists())
        self.assertFalse((self.folder / "missing.txt").exists())

    def test_a_list_with_another_extension_indexes_nothing(self):
        (self.folder / "terms.csv").write_bytes(b"money\r\n")
        result = self.check("index", "contract.docx", "-o", "out.docx", "--load", "terms.csv", status=1)
        self.assertIn("terms.csv is not a text file (*.txt) and cannot be loaded. Please try again.", result.err)
        self.assertIn("the term list terms.csv was not loaded", result.err)
        self.assertFalse((self.folder / "out.docx").exists())

    def test_many_files_can_load_one_list_at_the_same_time(self):
        self.list.write_bytes(b"money\r\n")
        names = [f"c{number}.docx" for number in range(6)]
        for name in names:
            self.document(name)
        self.check("index", *names, "--out-dir", "out", "--load", "terms.txt", "--jobs", "3")

    def test_the_list_is_not_written_over(self):
        self.list.write_bytes(b"money\r\n")
        result = self.check("index", "contract.docx", "-o", "terms.txt", "--force", "--load", "terms.txt", status=2)
        self.assertIn("--load", result.err)

    def test_a_saved_list_is_one_term_a_line(self):
        events = self.run_terms([SAVE_FOUND], self.save(self.list))
        self.assertEqual(self.list.read_bytes(), b"Buyer\r\nSeller\r\n")
        event = next(event for event in events if event["event"] == "file")
        self.assertEqual(event, {"event": "file", "mode": "save", "title": "Save terms list",
                                 "filter": "Text file (.txt)\0*.txt", "fileName": "", "path": str(self.list)})

    def test_a_list_saved_and_loaded_in_one_run(self):
        steps = [{"set": "txtAddTerm", "to": "Acme, Inc."}, {"click": "cmdAddTerm"},
                 {"set": "txtAddTerm", "to": "Caf\u00e9 \u201cX\u201d"}, {"click": "cmdAddTerm"}, SAVE_ADDED, LOAD]
        events = self.run_terms(steps, self.save("terms.txt"), self.load("terms.txt"))
        self.assertEqual(self.list.read_bytes(), "Acme, Inc.\r\nCaf\u00e9 \u201cX\u201d\r\n".encode("cp1252"))
        self.assertEqual(self.added(events), ["Acme, Inc.", "Caf\u00e9 \u201cX\u201d", "Acme", "Inc."])

    def test_what_the_code_page_lacks_is_written_as_near_as_it_can_be(self):
        steps = [{"set": "txtAddTerm", "to": "\u03a9-Ger\u00e4t \u4e2d"}, {"click": "cmdAddTerm"}, SAVE_ADDED, LOAD]
        events = self.run_terms(steps, self.save(self.list), self.load(self.list))
        self.assertEqual(self.list.read_bytes(), b"O-Ger\xe4t ?\r\n")
        self.assertEqual(self.added(events), ["\u03a9-Ger\u00e4t \u4e2d", "O-Ger\u00e4t ?"])
        self.assertEqual(self.messages(events), [])

    def test_bytes_that_stand_for_no_character_come_back_as_they_were(self):
        self.list.write_bytes(b"a\x81\x8d\x8f\x90\x9dz\r\n")
        copy = self.folder / "copy.txt"
        self.run_terms([LOAD, SAVE_ADDED], self.load(self.list), self.save(copy))
        self.assertEqual(copy.read_bytes(), self.list.read_bytes())

    def test_a_locked_file_is_neither_loaded_nor_saved_to(self):
        self.list.write_bytes(b"money\r\n")
        with open(self.list, "rb+") as locked:
            fcntl.flock(locked, fcntl.LOCK_EX)
            for steps, answer in (([LOAD], self.load(self.list)), ([SAVE_FOUND], self.save(self.list))):
                events = self.run_terms(steps, answer)
                self.assertEqual(self.messages(events), [("File in use/not available", IN_USE)])
                self.assertEqual([event["path"] for event in events if event["event"] == "file"], [str(self.list), ""])
        self.assertEqual(self.list.read_bytes(), b"money\r\n")

    def test_a_folder_that_cannot_be_written_to_is_refused(self):
        events = self.run_terms([SAVE_FOUND], self.save("/proc/terms.txt"))
        self.assertEqual(self.messages(events), [("File in use/not available", IN_USE)])

    def test_a_folder_that_cannot_be_made_is_reported(self):
        (self.folder / "file").write_bytes(b"")
        events = self.run_terms([SAVE_FOUND], self.save(self.folder / "file/terms.txt"))
        self.assertEqual(self.messages(events), [("List not saved", "Error:  76 Path not found\r\n\r\nCould not save to "
                                                  "the specified folder or filename.  Please try again.")])

    def test_a_file_without_write_permission_is_loaded_and_never_replaced(self):
        self.list.write_bytes(b"money\r\n")
        self.list.chmod(0o444)
        events = self.run_terms([LOAD, SAVE_FOUND], self.load(self.list), self.save(self.list))
        self.assertEqual(self.added(events), ["money"])
        self.assertEqual(self.messages(events), [("List not saved", "Error:  75 Path/File access error\r\n\r\nCould not "
                                                  "save to the specified folder or filename.  Please try again.")])
        self.assertEqual(self.list.read_bytes(), b"money\r\n")

    def test_a_full_disk_leaves_the_old_list(self):
        mount = self.small_disk("8k")
        target = mount / "terms.txt"
        target.write_bytes(b"old\r\n")
        (mount / "rest").write_bytes(b"x" * 4096)
        events = self.run_terms([SAVE_FOUND], self.save(target))
        self.assertEqual(self.messages(events), [("List not saved", "Error:  61 Disk full\r\n\r\nCould not save to the "
                                                  "specified folder or filename.  Please try again.")])
        self.assertEqual(target.read_bytes(), b"old\r\n")
        self.assertEqual(sorted(path.name for path in mount.iterdir()), ["rest", "terms.txt"])

    def test_saving_makes_folders(self):
        target = self.folder / "one/two/terms.txt"
        self.run_terms([SAVE_FOUND], self.save(target))
        self.assertEqual(target.read_bytes(), b"Buyer\r\nSeller\r\n")

    def test_cancelling_the_question_leaves_an_empty_file(self):
        self.list.write_bytes(b"old\r\n")
        self.run_terms([{"click": ["lstTermsInDoc", 0]}, SAVE_FOUND], self.save(self.list),
                       {"message": "Save all or selected?", "press": "Cancel"})
        self.assertEqual(self.list.read_bytes(), b"")


if __name__ == "__main__":
    program.main()
