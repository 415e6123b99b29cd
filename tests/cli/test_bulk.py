import ctypes
import fcntl
import json
import os
import pty
import signal
import struct
import subprocess
import termios
import time

import program


class Bulk(program.Case):
    def store(self, count, folder="store"):
        """So many different contracts, in folders, two of which have contracts of the same names."""
        root = self.folder / folder
        for number in range(count):
            name = f"{'ab'[number % 2]}/{number // 2}.docx"
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            program.make_document(root / name, f"P “**Buyer {chr(65 + number)}**” means Acorn {number}.\n"
                                               f"P The Buyer {chr(65 + number)} pays.\n" * 3)
        return root

    def results(self, folder):
        folder = self.folder / folder
        return {str(path.relative_to(folder)): path.read_bytes() for path in folder.rglob("*") if path.is_file()}

    def lines(self, text):
        """Reports, without what no two runs have in common."""
        reports = [json.loads(line) for line in text.splitlines()]
        for report in reports:
            del report["seconds"]
        return reports

    def start(self, *arguments):
        process = subprocess.Popen([program.KELVARIN, *map(str, arguments)], stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=self.environment(),
                                   cwd=self.folder)
        self.addCleanup(process.communicate)
        return process

    def sanitized(self):
        with open(program.KELVARIN, "rb") as file:
            return b"__asan_init" in file.read()


class Inputs(Bulk):
    def test_a_folder_stands_for_the_documents_in_it_and_below_it(self):
        root = self.store(4)
        program.make_document(root / "Capital.DOCX")
        program.make_document(root / "macro.docm")
        for aside in ("~$0.docx", ".hidden.docx", "notes.txt"):
            (root / aside).write_text("no document")
        (root / ".git").mkdir()
        program.make_document(root / ".git/c.docx")
        (root / "loop").symlink_to(root)
        result = self.check("index", "store", "--out-dir", "out", "--report", "-")
        names = ["Capital.DOCX", "a/0.docx", "a/1.docx", "b/0.docx", "b/1.docx", "macro.docm"]
        self.assertEqual(sorted(self.results("out")), names)
        self.assertEqual([report["file"] for report in self.lines(result.out)], ["store/" + name for name in names])
        self.assertEqual([report["output"] for report in self.lines(result.out)], ["out/" + name for name in names])

    def test_a_list_names_files_and_folders(self):
        self.store(2)
        self.document("first one.docx")
        (self.folder / "@odd.docx").write_bytes((self.folder / "first one.docx").read_bytes())
        (self.folder / "list").write_text("first one.docx\r\n\nstore\n./@odd.docx\n")
        self.check("index", "@list", "--out-dir", "out")
        self.assertEqual(sorted(self.results("out")), ["@odd.docx", "a/0.docx", "b/0.docx", "first one.docx"])
        self.assertIn("missing", self.check("index", "@missing", "--out-dir", "out2", status=3).err)
        self.assertFalse((self.folder / "out2").exists())

    def test_two_inputs_with_the_same_name_need_a_base(self):
        self.store(2)
        names = ("store/a/0.docx", "store/b/0.docx")
        result = self.check("index", *names, "--out-dir", "out", status=2)
        self.assertRegex(result.err, "same name.*--base")
        self.assertFalse((self.folder / "out").exists())
        self.check("index", *names, "--out-dir", "out", "--base", "store")
        self.assertEqual(sorted(self.results("out")), ["a/0.docx", "b/0.docx"])
        self.check("index", *names, "--out-dir", "out2", "--base", "store/a", status=2)
        self.check("index", *names, "--in-place", "--base", "store", status=2)

    def test_a_file_that_is_named_twice_is_worked_on_once(self):
        self.store(2)
        result = self.check("index", "store", "./store/a/0.docx", "--out-dir", "out", "--base", "store", "--report", "-")
        self.assertEqual(len(result.out.splitlines()), 2)

    def test_results_inside_of_the_input_folder_are_no_input(self):
        root = self.store(2)
        self.check("index", "store", "--out-dir", "store/out")
        self.check("index", "store", "--out-dir", "store/out", "--force")
        self.assertEqual(sorted(self.results("store/out")), ["a/0.docx", "b/0.docx"])
        before = self.results("store")
        self.assertIn("--in-place", self.check("index", "store", "--out-dir", "store", "--force", status=2).err)
        self.assertEqual(self.results("store"), before)
        self.assertTrue(root.exists())

    def test_a_folder_without_documents_is_a_failure_of_its_own(self):
        self.store(2)
        (self.folder / "empty").mkdir()
        result = self.check("index", "empty", "store", "--out-dir", "out", "--report", "-", status=3)
        self.assertIn("kelvarin: empty: holds no Word documents", result.err)
        self.assertEqual([report["status"] for report in self.lines(result.out)], ["failed", "done", "done"])

    def test_a_folder_can_be_worked_on_in_place(self):
        self.store(3)
        self.check("index", "store", "--in-place", "--jobs", "2")
        for name in self.results("store"):
            self.assertIsNotNone(self.inspect(self.folder / "store" / name)["index"])
        self.check("remove", "store", "--in-place")
        for name in self.results("store"):
            self.assertIsNone(self.inspect(self.folder / "store" / name)["index"])


class Failures(Bulk):
    def test_a_worker_that_dies_has_a_report_and_stops_nobody(self):
        root = self.store(4)
        # The list of terms is a pipe that nobody writes to: who reads it waits until it is killed.
        os.mkfifo(root / "a/1.docx.wait")
        result = self.check("index", "store", "--out-dir", "out", "--jobs", "2", "--report", "-")
        self.assertEqual(len(self.results("out")), 4)
        process = self.start("index", "store", "--out-dir", "out2", "--load", root / "a/1.docx.wait", "--jobs", "2",
                             "--report", "-")
        deadline = time.monotonic() + 20
        killed = set()
        # No more than the workers: a sanitizer looks for leaks in a child of its own.
        while process.poll() is None and len(killed) < 4 and time.monotonic() < deadline:
            for child in children(process.pid) - killed:
                os.kill(child, signal.SIGKILL)
                killed.add(child)
            time.sleep(0.01)
        out, err = process.communicate()
        self.assertEqual(process.returncode, 3)
        reports = self.lines(out.decode())
        self.assertEqual([report["status"] for report in reports], ["failed"] * 4)
        for report in reports:
            self.assertIn("killed", report["messages"][0]["text"])
        self.assertEqual(err.decode().count("killed"), 4)
        self.assertTrue(result.out)

    def test_a_file_that_takes_too_long_is_given_up(self):
        root = self.store(2)
        os.mkfifo(root / "list")
        result = self.check("index", "store", "--out-dir", "out", "--load", root / "list", "--time-limit", "1",
                            "--jobs", "2", status=3)
        self.assertEqual(result.err.count("longer than 1 seconds (--time-limit)"), 2)
        self.assertEqual([path.name for path in self.temporary.iterdir()], [])

    def test_a_time_limit_holds_for_one_file_too(self):
        os.mkfifo(self.folder / "list")
        result = self.check("index", self.document(), "-o", "out.docx", "--load", "list", "--time-limit", "1", status=3)
        self.assertIn("longer than 1 seconds (--time-limit)", result.err)
        self.assertFalse((self.folder / "out.docx").exists())

    def test_a_file_that_needs_too_much_memory_stops_nobody(self):
        root = self.store(2)
        start, end = ("<?xml version='1.0'?><w:document xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/"
                      "main'><w:body>", "</w:body></w:document>")
        rewrite(root / "a/0.docx", start + "<w:p><w:r><w:t>x</w:t></w:r></w:p>" * 4_000_000 + end)

        def limit():
            import resource
            resource.setrlimit(resource.RLIMIT_AS, (700 << 20, 700 << 20))
        if self.sanitized():
            self.skipTest("a sanitizer needs more address space than that")
        result = self.kelvarin("index", "store", "--out-dir", "out", "--report", "-", prepare=limit)
        self.assertEqual(result.status, 3, result.err)
        self.assertEqual([report["status"] for report in self.lines(result.out)], ["failed", "done"])


class Resuming(Bulk):
    COUNT = 10

    def interrupt(self, command, how, done):
        """Starts the command, ends it by a signal when so many results are there, and says how it ended."""
        process = self.start(*command)
        out = self.folder / "out"
        while process.poll() is None and len(list(out.rglob("*.docx"))) < done:
            time.sleep(0.002)
        if process.poll() is None:
            process.send_signal(how)
        process.communicate()
        return process.returncode

    def times(self):
        return {path: path.stat().st_mtime_ns for path in (self.folder / "out").rglob("*.docx")}

    def test_an_interrupted_run_goes_on_and_comes_to_the_same(self):
        self.store(self.COUNT)
        whole = self.check("index", "store", "--out-dir", "whole", "--report", "-")
        expected = self.results("whole")
        for how in (signal.SIGINT, signal.SIGTERM, signal.SIGKILL):
            command = ("index", "store", "--out-dir", "out", "--jobs", "2", "--report", "report.jsonl")
            self.assertEqual(self.interrupt(command, how, 4), -how)
            self.assertFalse((self.folder / "report.jsonl").exists())
            before = self.times()
            self.assertGreaterEqual(len(before), 4)
            self.assertLess(len(before), self.COUNT)
            # What was cut off in the middle stays behind only until the run goes on.
            self.check(*command)
            self.assertEqual(list(self.temporary.iterdir()), [])
            self.assertEqual(list(self.folder.rglob(".kvx-*")), [])
            self.assertEqual(self.results("out"), expected)
            untouched = [path for path, time_ in self.times().items() if before.get(path) == time_]
            self.assertGreaterEqual(len(untouched), len(before) - 2)
            reports = self.lines((self.folder / "report.jsonl").read_text())
            for report in reports:
                report["output"] = report["output"].replace("out/", "whole/")
            self.assertEqual(reports, self.lines(whole.out))
            subprocess.run(["rm", "-r", "out", "report.jsonl"], cwd=self.folder, check=True)

    def test_what_a_killed_process_left_is_swept_though_nobody_asked_how_it_ended(self):
        """Processes that lose theirs become those of the test, which takes no notice of them."""
        become_parent = 36
        self.assertEqual(ctypes.CDLL(None).prctl(become_parent, 1, 0, 0, 0), 0)
        self.addCleanup(ctypes.CDLL(None).prctl, become_parent, 0, 0, 0, 0)
        self.store(self.COUNT)
        command = ("index", "store", "--out-dir", "out", "--jobs", "2", "--journal", "done.jsonl")
        self.assertEqual(self.interrupt(command, signal.SIGKILL, 2), -signal.SIGKILL)
        begun = {}
        for line in (self.folder / "done.jsonl").read_text().splitlines(keepends=True):
            record = json.loads(line) if line.endswith("\n") else {}
            if "begun" in record:
                begun[record["begun"]] = record["process"]
            begun.pop(record.get("done"), None)
        self.assertGreaterEqual(len(begun), 1)
        for file, process in begun.items():
            (self.folder / "out" / file.split("/")[-2] / f".kvx-{process}-99.tmp").write_bytes(b"left")
        self.check(*command)
        self.assertEqual(list((self.folder / "out").rglob(".kvx-*")), [])

    def test_a_run_in_place_goes_on_with_a_journal(self):
        self.store(self.COUNT)
        self.store(self.COUNT, "out")
        self.check("index", "store", "--in-place")
        command = ("index", "out", "--in-place", "--journal", "done.jsonl")
        process = self.start(*command)
        while process.poll() is None and (not (self.folder / "done.jsonl").exists()
                                          or (self.folder / "done.jsonl").read_text().count('"done"') < 3):
            time.sleep(0.002)
        process.kill()
        process.communicate()
        before = self.times()
        self.check(*command)
        self.assertEqual(self.results("out"), self.results("store"))
        self.assertGreaterEqual(len([path for path, time_ in self.times().items() if before[path] == time_]), 3)
        # Once more: there is nothing left to do.
        before = self.times()
        self.check(*command)
        self.assertEqual(self.times(), before)

    def test_a_journal_holds_for_one_file_too(self):
        file = self.document()
        command = ("index", file, "--in-place", "--journal", "done.jsonl")
        self.check(*command)
        before = file.stat().st_mtime_ns
        self.check(*command)
        self.assertEqual(file.stat().st_mtime_ns, before)

    def test_a_journal_that_is_kept_lets_a_run_do_what_is_new_changed_or_failed(self):
        root = self.store(4)
        (root / "a/1.docx").write_text("no document")
        command = ("index", "store", "--out-dir", "out", "--journal", "done.jsonl", "--report", "-")
        self.check(*command, status=3)
        before = self.times()
        program.make_document(root / "a/1.docx")
        program.make_document(root / "b/1.docx", program.TWO_TERMS + "P More.")
        program.make_document(root / "new.docx")
        result = self.check(*command)
        changed = {path.relative_to(self.folder / "out").as_posix()
                   for path, time_ in self.times().items() if before.get(path) != time_}
        self.assertEqual(changed, {"a/1.docx", "b/1.docx", "new.docx"})
        self.assertEqual([report["status"] for report in self.lines(result.out)], ["done"] * 5)

    def test_a_result_that_somebody_changed_is_not_replaced(self):
        self.store(2)
        command = ("index", "store", "--out-dir", "out", "--journal", "done.jsonl")
        self.check(*command)
        (self.folder / "out/a/0.docx").write_text("precious")
        self.assertIn("--force", self.check(*command, status=3).err)
        self.assertEqual((self.folder / "out/a/0.docx").read_text(), "precious")

    def test_other_options_or_settings_do_everything_anew(self):
        self.store(2)
        command = ("index", "store", "--out-dir", "out", "--journal", "done.jsonl", "--force")
        self.check(*command)
        for more in (("--columns", "3"), ("--columns", "3", "--no-highlight")):
            before = self.times()
            self.assertIn("other options", self.check(*command, *more).err)
            self.assertFalse(set(before.items()) & set(self.times().items()))
        self.user_file().write_bytes(self.user_file().read_bytes().replace(b"IndexCols=2", b"IndexCols=1"))
        self.assertIn("other options", self.check(*command, *more).err)
        self.assertEqual(self.check(*command, *more).err, "")

    def test_a_finished_run_leaves_nothing_but_results(self):
        self.store(2)
        self.check("index", "store", "--out-dir", "out")
        self.assertEqual(sorted(self.results("out")), ["a/0.docx", "b/0.docx"])
        self.assertEqual(list(self.temporary.iterdir()), [])
        self.assertIn("--force", self.check("index", "store", "--out-dir", "out", status=3).err)

    def test_a_report_may_lie_among_the_results(self):
        self.store(2)
        self.check("index", "store", "--out-dir", "out", "--no-resume", "--report", "out/report.jsonl")
        self.assertEqual(sorted(self.results("out")), ["a/0.docx", "b/0.docx", "report.jsonl"])

    def test_two_runs_do_not_share_a_journal(self):
        root = self.store(2)
        os.mkfifo(root / "list")
        command = ("index", "store", "--out-dir", "out", "--load", root / "list")
        process = self.start(*command)
        while not list(self.folder.glob("out/.kelvarin-*.journal")):
            time.sleep(0.005)
        time.sleep(0.05)
        self.assertIn("another run", self.check(*command, status=3).err)
        process.kill()

    def test_a_journal_whose_first_line_was_being_written_is_begun_anew(self):
        self.store(2)
        command = ("index", "store", "--out-dir", "out", "--journal", "done", "--force")
        self.check(*command)
        journal = self.folder / "done"
        journal.write_bytes(journal.read_bytes().partition(b"\n")[0])
        self.check(*command)
        before = self.times()
        self.check(*command)
        self.assertEqual(self.times(), before)

    def test_a_journal_that_is_none_is_left_alone(self):
        self.store(2)
        for content in ("precious\n", '{"a": 1}\n'):
            (self.folder / "done").write_text(content)
            self.check("index", "store", "--out-dir", "out", "--journal", "done", status=3)
            self.assertEqual((self.folder / "done").read_text(), content)
        self.check("index", "store", "--out-dir", "out", "--journal", "store/a/0.docx", status=2)


class Size(Bulk):
    def test_progress_is_told_where_there_is_no_terminal(self):
        self.store(4)
        lines = self.check("index", "store", "--out-dir", "out", "--progress").err.splitlines()
        self.assertEqual(lines[0], "1 of 4 files")
        self.assertRegex(lines[-1], r"^kelvarin: finished: 4 of 4 files, 0:\d\d$")

    def test_a_terminal_has_a_bar_that_is_wiped_for_messages_and_at_the_end(self):
        root = self.store(4)
        (root / "a/0.docx").write_text("no document")
        shown, status = self.shown_on_a_terminal(80, "index", "store", "--out-dir", "out")
        self.assertEqual(status, 3)
        pieces = shown.split("\r\x1b[K")
        self.assertRegex(pieces[1], r"^\[\.{24}\] 0 of 4 files$")
        self.assertEqual([piece for piece in pieces if "0.docx" in piece],
                         ["kelvarin: store/a/0.docx: is not a Word document: it is not a zip archive\r\n"])
        self.assertRegex(pieces[-1], r"^kelvarin: finished: 4 of 4 files, 1 failed, \d:\d\d\r\n$")

    def shown_on_a_terminal(self, columns, *arguments, stdout=subprocess.DEVNULL):
        """What the program writes to standard error on a terminal, and its status."""
        ours, theirs = pty.openpty()
        fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        process = subprocess.Popen([program.KELVARIN, *arguments], stdin=subprocess.DEVNULL, env=self.environment(),
                                   cwd=self.folder, stdout=theirs if stdout is None else stdout, stderr=theirs)
        os.close(theirs)
        shown = b""
        try:
            while piece := os.read(ours, 4096):
                shown += piece
        except OSError:
            pass  # the other side is closed
        os.close(ours)
        return shown.decode(), process.wait()

    def test_a_narrow_terminal_shows_numbers_rather_than_a_bar(self):
        self.store(4)
        for columns, shape in ((36, r"^\d of 4 files"), (8, r"^\d of 4 $")):
            shown, status = self.shown_on_a_terminal(columns, "index", "store", "--out-dir", f"out{columns}")
            self.assertEqual(status, 0, shown)
            drawn = shown.split("\r\x1b[K")[1:-1]
            self.assertGreater(len(drawn), 0)
            for piece in drawn:
                self.assertRegex(piece, shape)
                self.assertLess(len(piece), columns)

    def test_names_give_no_orders_to_a_terminal(self):
        name = "\x1b]0;owned\x07\u009b31m.docx"
        (self.folder / name).write_text("no document")
        self.document("\x1b[2J.docx")
        shown, status = self.shown_on_a_terminal(80, "check", name, "\x1b[2J.docx", "--no-progress", stdout=None)
        self.assertEqual(status, 3)
        self.assertIn("kelvarin: \\u001B]0;owned\\u0007\\u009B31m.docx: is not a Word document", shown)
        self.assertIn("\\u001B[2J.docx: 2 defined terms", shown)
        self.assertNotRegex(shown, "[\x00-\x08\x0b\x0c\x0e-\x1f\x7f-\x9f]")

    def test_names_that_are_no_text_are_told_in_ascii(self):
        name = b"caf\xe9.docx"
        with open(os.fsencode(self.folder) + b"/" + name, "wb") as file:
            file.write(b"no document")
        result = self.kelvarin("check", name.decode("utf-8", "surrogateescape"), "--report", "-")
        self.assertEqual(result.err, "kelvarin: caf\\xE9.docx: is not a Word document: it is not a zip archive\n")
        self.assertEqual(json.loads(result.out)["file"], "caf\\xE9.docx")
        program.make_document(os.fsdecode(os.fsencode(self.folder) + b"/" + name))
        result = self.check("check", ".", "--json")
        self.assertEqual(json.loads(result.out)["file"], "./caf\\xE9.docx")

    def test_an_empty_list_is_told_and_no_failure(self):
        (self.folder / "list").write_text("\n")
        self.assertEqual(self.check("index", "@list", "--out-dir", "out").err, "kelvarin: no files are named\n")
        self.assertEqual(self.check("index", "@list", "--out-dir", "out", "--quiet").err, "")

    def test_memory_does_not_grow_with_the_number_of_files(self):
        if self.sanitized():
            self.skipTest("a sanitizer keeps what was freed")
        # What the children need does not count: it is the program itself that stays for hours.
        (self.folder / "few").write_text("\n".join(f"missing{number}.docx" for number in range(20)))
        (self.folder / "many").write_text("\n".join(f"missing{number}.docx" for number in range(300)))
        peaks = []
        for name in ("few", "many"):
            process = self.start("index", "@" + name, "--out-dir", "out", "--report", "report.jsonl", "--quiet")
            peak = 0
            while process.poll() is None:
                peak = max(peak, resident(process.pid))
                time.sleep(0.005)
            process.communicate()
            self.assertEqual(len((self.folder / "report.jsonl").read_text().splitlines()), {"few": 20, "many": 300}[name])
            peaks.append(peak)
        self.assertGreater(peaks[0], 0)
        self.assertLess(peaks[1] - peaks[0], 4 << 20)


def resident(process):
    try:
        with open(f"/proc/{process}/statm", encoding="ascii") as file:
            return int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE")
    except (OSError, IndexError):
        return 0


def children(process):
    try:
        with open(f"/proc/{process}/task/{process}/children", encoding="ascii") as file:
            return {int(number) for number in file.read().split()}
    except OSError:
        return set()


def rewrite(path, document):
    import zipfile
    parts = program.parts(path)
    parts["word/document.xml"] = document.encode()
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as package:
        for name, content in parts.items():
            package.writestr(name, content)


if __name__ == "__main__":
    program.main()
