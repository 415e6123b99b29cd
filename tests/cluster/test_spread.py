#!/usr/bin/env python3
"""Spreads contracts with GNU parallel, interrupts it, lets it go on, and compares with one run over all. The program is
$KELVARIN or the release build."""

import json
import os
import pathlib
import signal
import subprocess
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "cli"))
import program  # noqa: E402

SPREAD = program.ROOT / "scripts/spread"


class Spread(program.Case):
    COUNT = 9

    def setUp(self):
        super().setUp()
        names = []
        for number in range(self.COUNT):
            path = self.folder / f"store/{number % 3}/{number // 3}.docx"
            path.parent.mkdir(parents=True, exist_ok=True)
            program.make_document(path, f"P “**Buyer {number}x**” means Acorn.\n" + program.TWO_TERMS)
            names.append(str(path))
        self.list = "".join(name + "\n" for name in names).encode()

    def spread(self):
        environment = self.environment() | {"KELVARIN": program.KELVARIN, "PARALLEL_OPTIONS": "--jobs 2"}
        process = subprocess.Popen([str(SPREAD), "3", "work", "index", "--base", "store", "--out-dir", "out"],
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   env=environment, cwd=self.folder, start_new_session=True)
        process.stdin.write(self.list)
        process.stdin.close()
        process.stdin = None
        return process

    def reports(self, text):
        lines = [json.loads(line) for line in text.splitlines()]
        return {line["file"]: {key: value for key, value in line.items() if key not in ("seconds", "output")}
                for line in lines}

    def results(self, folder):
        return {str(path.relative_to(self.folder / folder)): path.read_bytes()
                for path in (self.folder / folder).rglob("*.docx")}

    def kill_all(self):
        """Whatever works in the folder, until nothing does: jobs of GNU parallel are not in its process group."""
        working = True
        while working:
            working = False
            for entry in pathlib.Path("/proc").glob("[0-9]*"):
                try:
                    if os.readlink(entry / "cwd") != str(self.folder.resolve()):
                        continue
                    os.kill(int(entry.name), signal.SIGKILL)
                    working = True
                except OSError:  # it has ended, or is no process of ours
                    continue
            time.sleep(0.01)

    def test_parts_spread_go_on_and_make_one_report(self):
        whole = self.check("index", "store", "--out-dir", "whole", "--report", "-")
        process = self.spread()
        while process.poll() is None and len(self.results("out")) < 2:
            time.sleep(0.01)
        process.kill()
        self.kill_all()
        process.communicate()
        before = {path: path.stat().st_mtime_ns for path in (self.folder / "out").rglob("*.docx")}
        self.assertGreaterEqual(len(before), 2)
        process = self.spread()
        out, err = process.communicate()
        self.assertEqual(process.returncode, 0, (out, err))
        self.assertEqual(self.results("out"), self.results("whole"))
        untouched = [path for path, changed in before.items() if path.stat().st_mtime_ns == changed]
        self.assertGreaterEqual(len(untouched), len(before) - 2)
        merged = (self.folder / "work/report.jsonl").read_text()
        self.assertEqual(len(merged.splitlines()), self.COUNT)
        expected = {str(self.folder / name): report | {"file": str(self.folder / name)}
                    for name, report in self.reports(whole.out).items()}
        self.assertEqual(self.reports(merged), expected)
        with open(self.folder / "work/joblog", encoding="ascii") as log:
            self.assertEqual([line.split("\t")[6] for line in log][1:].count("0"), 3)

    def test_a_contract_that_fails_is_told_and_tried_again(self):
        bad = self.folder / "store/0/0.docx"
        good = bad.read_bytes()
        bad.write_text("no document")
        process = self.spread()
        process.communicate()
        self.assertEqual(process.returncode, 1)
        self.assertEqual(len(self.results("out")), self.COUNT - 1)
        bad.write_bytes(good)
        process = self.spread()
        process.communicate()
        self.assertEqual(process.returncode, 0)
        self.assertEqual(len(self.results("out")), self.COUNT)
        merged = self.reports((self.folder / "work/report.jsonl").read_text())
        self.assertEqual({report["status"] for report in merged.values()}, {"done"})


if __name__ == "__main__":
    unittest.main()
