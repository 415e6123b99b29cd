import json
import os
import subprocess

import program


class Output(program.Case):
    def test_the_input_is_never_written(self):
        file = self.document()
        before, time = file.read_bytes(), file.stat().st_mtime_ns
        self.check("index", file, "-o", "out.docx")
        self.assertEqual(file.read_bytes(), before)
        self.assertEqual(file.stat().st_mtime_ns, time)
        self.assertNotEqual((self.folder / "out.docx").read_bytes(), before)

    def test_in_place_replaces_the_input_and_keeps_its_permissions(self):
        file = self.document()
        before = file.read_bytes()
        file.chmod(0o640)
        self.check("index", file, "--in-place")
        self.assertNotEqual(file.read_bytes(), before)
        self.assertEqual(file.stat().st_mode & 0o777, 0o640)
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), ["contract.docx", "home", "tmp"])

    def test_a_result_does_not_replace_the_input_without_in_place(self):
        file = self.document()
        before = file.read_bytes()
        for arguments in (("-o", file), ("-o", file, "--force"), ("--out-dir", self.folder, "--force")):
            self.assertIn("--in-place", self.check("index", file, *arguments, status=2).err)
        (self.folder / "link.docx").symlink_to(file)
        self.check("index", file, "-o", "link.docx", "--force", status=2)
        self.assertEqual(file.read_bytes(), before)

    def test_an_existing_file_is_replaced_only_with_force(self):
        file = self.document()
        out = self.folder / "out.docx"
        out.write_text("precious")
        result = self.check("index", file, "-o", out, status=3)
        self.assertIn("--force", result.err)
        self.assertEqual(out.read_text(), "precious")
        self.check("index", file, "-o", out, "--force")
        self.assertIsNotNone(self.inspect(out)["index"])

    def test_a_run_that_stops_writes_nothing(self):
        file = self.document(lines="P Nothing is defined here.")
        result = self.check("index", file, "-o", "out.docx", status=1)
        self.assertIn("kelvarin: ", result.err)
        self.assertFalse((self.folder / "out.docx").exists())

    def test_a_folder_that_cannot_take_the_result_is_status_3(self):
        file = self.document()
        self.check("index", file, "-o", "missing/out.docx", status=3)
        (self.folder / "file").write_text("")
        self.check("index", file, "--out-dir", "file", status=3)
        (self.folder / "folder.docx").mkdir()
        self.check("index", file, "-o", "folder.docx", "--force", status=3)

    def test_a_result_that_cannot_be_written_leaves_the_transcript_of_its_run(self):
        file = self.document()
        for command in (("index", file), ("run", "index", file), ("remove", file)):
            self.check(*command, "-o", "missing/out.docx", "--transcript", "log.jsonl", status=3)
            events = self.events(self.folder / "log.jsonl")
            self.assertIn("RemoveIndexEntries", [event.get("operation") for event in events])
            self.assertEqual([event["event"] for event in events].count("state"), 1)
            self.assertEqual(events[-1]["event"], "state")

    def test_standard_output_that_cannot_be_written_is_status_3(self):
        file = self.document()
        for arguments in (("--help",), ("--version",), ("index", "--help"), ("terms", file), ("inspect", file), ("check", file),
                          ("check", "--json", file), ("remove", file, "-o", "out.docx", "--report", "-")):
            with open("/dev/full", "w") as full:
                result = subprocess.run([program.KELVARIN, *arguments], stdout=full, stderr=subprocess.PIPE, text=True,
                                        cwd=self.folder, env=self.environment())
            self.assertEqual(result.returncode, 3, arguments)
            self.assertIn("standard output cannot be written", result.stderr)

    def test_a_file_that_cannot_be_opened_leaves_a_state_without_a_document(self):
        (self.folder / "bad.docx").write_bytes(b"no document")
        self.check("index", "bad.docx", "-o", "out.docx", "--transcript", "log.jsonl", status=3)
        events = self.events(self.folder / "log.jsonl")
        self.assertEqual([event["event"] for event in events], ["state"])
        self.assertTrue(events[0]["noDocument"])

    def test_names_with_blanks_and_odd_bytes_work(self):
        name = os.fsdecode(b"a b \xff \xc3\xa9.docx")
        self.document(name)
        self.check("index", name, "--out-dir", "out dir")
        self.assertTrue((self.folder / "out dir" / name).exists())


class SeveralFiles(program.Case):
    def setUp(self):
        super().setUp()
        self.document("a.docx")
        (self.folder / "b.docx").write_text("no document")
        self.document("c.docx", lines="P Nothing is defined here.")
        self.document("d.docx")

    def test_one_failure_does_not_stop_the_rest(self):
        for jobs in ("1", "3"):
            out = "out" + jobs
            result = self.check("index", "a.docx", "b.docx", "c.docx", "d.docx", "--out-dir", out, "--jobs", jobs,
                                "--report", "-", status=3)
            self.assertEqual(sorted(path.name for path in (self.folder / out).iterdir()), ["a.docx", "d.docx"])
            reports = [json.loads(line) for line in result.out.splitlines()]
            self.assertEqual([(report["file"], report["status"]) for report in reports],
                             [("a.docx", "done"), ("b.docx", "failed"), ("c.docx", "stopped"), ("d.docx", "done")])
            self.assertIn("kelvarin: b.docx: ", result.err)
            self.assertIn("kelvarin: c.docx: ", result.err)
            self.assertNotIn("a.docx", result.err)

    def test_the_status_is_the_highest(self):
        self.check("index", "a.docx", "d.docx", "--out-dir", "o1")
        self.check("index", "a.docx", "c.docx", "--out-dir", "o2", status=1)
        self.check("index", "c.docx", "missing.docx", "--out-dir", "o3", status=3)

    def test_each_result_is_what_the_file_gives_alone(self):
        self.check("index", "a.docx", "d.docx", "--out-dir", "together", "--jobs", "2")
        self.check("index", "a.docx", "-o", "alone.docx")
        self.assertEqual((self.folder / "together/a.docx").read_bytes(), (self.folder / "alone.docx").read_bytes())

    def test_nothing_is_written_over_what_is_read_or_written_otherwise(self):
        before = self.document().read_bytes()
        (self.folder / "link.json").symlink_to("contract.docx")
        for arguments in (["--report", "contract.docx"], ["--transcript", "./contract.docx"], ["--settings", "contract.docx"],
                          ["--report", "link.json"], ["--report", "out.docx"], ["--transcript", "sub/../out.docx"],
                          ["--report", "log", "--transcript", "log"], ["--settings", "log", "--report", "log"]):
            result = self.check("index", "contract.docx", "-o", "out.docx", "--force", *arguments, status=2)
            self.assertIn("would replace", result.err)
            self.assertEqual((self.folder / "contract.docx").read_bytes(), before)
            self.assertFalse((self.folder / "out.docx").exists())
        answers = self.folder / "answers.json"
        answers.write_text('{"answers": []}')
        self.check("run", "index", "contract.docx", "--answers", answers, "--report", answers, status=2)
        self.assertEqual(answers.read_text(), '{"answers": []}')


if __name__ == "__main__":
    program.main()
