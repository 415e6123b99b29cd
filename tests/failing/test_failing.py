"""Runs of the real program in which one request to the system fails: the next piece of memory, or the next call that writes
to a disk. Each ends with a status of its own and a message, with the target whole or as it was, and leaves nothing behind."""

import concurrent.futures
import os
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "cli"))
import program  # noqa: E402

OLD = b"the old file"
# With 1 every request for memory of a run fails once; there are tens of thousands.
EVERY = int(os.environ.get("KVX_FAIL_EVERY", "97"))


class Failing(program.Case):
    def setUp(self):
        super().setUp()
        self.source = self.document()
        self.check("index", self.source, "-o", "indexed.docx", "--pages", "file")
        self.runs = 0

    def run_with(self, kind, at, folder, command):
        """One run in a folder of its own. @return the result, and the number of requests that it made"""
        folder.mkdir(parents=True)
        for name in ("contract.docx", "indexed.docx"):
            (folder / name).write_bytes((self.folder / name).read_bytes())
        (folder / "out.docx").write_bytes(OLD)
        (folder / "tmp").mkdir()
        count = folder.with_suffix(".count")
        environment = self.environment() | {"TMPDIR": str(folder / "tmp"), "LD_PRELOAD": os.environ["FAILING_CALLS"],
                                            "KVX_FAIL": kind, "KVX_FAIL_AT": str(at), "KVX_FAIL_COUNT": str(count)}
        result = self.kelvarin(*command, cwd=folder, environment=environment)
        return result, int(count.read_text()) if count.exists() else None

    def judge(self, kind, at, folder, command, in_place, whole):
        result, _ = self.run_with(kind, at, folder, command)
        told = f"{kind} {at} of {command}: status {result.status}\n{result.err}"
        # What can do without goes on.
        self.assertIn(result.status, (0, 1, 3), told)
        if result.status != 0:
            self.assertTrue(result.err.startswith("kelvarin: "), told)
            self.assertLessEqual(len(result.err.splitlines()), 3, told)
        target = folder / (in_place or "out.docx")
        before = (self.folder / in_place).read_bytes() if in_place else OLD
        # A report that cannot be written makes the result no worse.
        self.assertIn(target.read_bytes(), (whole,) if result.status == 0 else (before, whole), told)
        # Where memory fails while a run is being taken down, its private folder stays.
        taken_down = result.err.endswith("kelvarin: needs more memory than there is\n")
        left = {str(path.relative_to(folder)) for path in folder.rglob("*")
                if not (taken_down and (folder / "tmp") in path.parents)}
        self.assertEqual(left - {"contract.docx", "indexed.docx", "out.docx", "report.json"}, {"tmp"}, told)
        for name in {"contract.docx", "indexed.docx"} - {in_place}:
            self.assertEqual((folder / name).read_bytes(), (self.folder / name).read_bytes(), told)
        return result.status

    def fail_each(self, kind, every, command, in_place=None):
        """@return the statuses that came out"""
        self.runs += 1
        folders = self.folder / f"run {self.runs}"
        result, requests = self.run_with(kind, 0, folders / "0", command)
        self.assertEqual(result.status, 0, result.err)
        self.assertGreater(requests, 3)
        whole = (folders / "0" / (in_place or "out.docx")).read_bytes()

        def judged(at):
            try:
                return self.judge(kind, at, folders / str(at), command, in_place, whole)
            except AssertionError as error:
                return str(error)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as runs:
            statuses = list(runs.map(judged, range(1, requests + 1, every)))
        faults = [status for status in statuses if isinstance(status, str)]
        self.assertFalse(faults, f"{len(faults)} of {len(statuses)}:\n" + "\n".join(faults[:10]))
        return statuses

    def test_memory_that_is_not_there(self):
        for command, in_place in ((("index", "contract.docx", "-o", "out.docx", "--force", "--report", "report.json"), None),
                                  (("remove", "indexed.docx", "--in-place"), "indexed.docx"),
                                  (("check", "contract.docx"), None)):
            with self.subTest(command=command):
                statuses = self.fail_each("memory", EVERY, command, in_place)
                self.assertIn(3, statuses)

    def test_a_disk_that_takes_no_more(self):
        for command, in_place in ((("index", "contract.docx", "-o", "out.docx", "--force", "--report", "report.json"), None),
                                  (("update", "indexed.docx", "--in-place"), "indexed.docx"),
                                  (("remove", "indexed.docx", "-o", "out.docx", "--force"), None)):
            with self.subTest(command=command):
                statuses = self.fail_each("disk", 1, command, in_place)
                self.assertIn(3, statuses)


if __name__ == "__main__":
    program.main()
