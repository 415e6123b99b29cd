#!/usr/bin/env python3
"""Runs every command of the program over each file and says which runs did not end as a run has to.

every_command.py [--jobs N] [--seconds N] KELVARIN FILE-OR-FOLDER...

A file is inspected and checked, its terms are printed, and it is indexed with the search for quotes and with its three
commonest words; each indexed document is inspected, updated, unhighlighted and cleaned. A run ends well when its status
is 0, 1 or 3, in time (60 seconds unless told), with a result that is a package exactly when the status is 0, and with
messages of the program and nothing else on standard error, at least one when the status is not 0. A build with
sanitizers says other things there, and so is caught. The
table at the end counts the runs by command and status. Exit status 1 when any run ended in another way.
"""

import argparse
import concurrent.futures
import pathlib
import subprocess
import sys
import tempfile
import zipfile
from collections import Counter

import round_trip

STATUSES = (0, 1, 3)
CHANGES = ("update", "unhighlight", "remove")


class Runs:
    """The runs over one file."""

    def __init__(self, program, folder, seconds):
        self.program = program
        self.folder = folder
        self.seconds = seconds
        self.tally = Counter()
        self.faults = []

    def run(self, command, source, *options, target=None):
        """True when the run did its work."""
        arguments = [self.program, command, str(source), "--settings", str(self.folder / "kvx.ini"), *options]
        if target:
            arguments += ["-o", str(target), "--quiet"]
        try:
            done = subprocess.run(arguments, capture_output=True, check=False, timeout=self.seconds)
        except subprocess.TimeoutExpired:
            self.tally[command, "late"] += 1
            self.faults.append(f"{command} {' '.join(options)}: not done in {self.seconds} s")
            return False
        self.tally[command, done.returncode] += 1
        said = done.stderr.decode("utf8", "replace").strip()
        if done.returncode not in STATUSES:
            self.faults.append(f"{command} {' '.join(options)}: status {done.returncode}: {said}")
        elif not all(line.startswith("kelvarin: ") for line in said.splitlines()):
            self.faults.append(f"{command} {' '.join(options)}: says what is no message: {said}")
        elif done.returncode and not said:
            self.faults.append(f"{command} {' '.join(options)}: status {done.returncode} without a word")
        elif target and (done.returncode == 0) != zipfile.is_zipfile(target):
            self.faults.append(f"{command} {' '.join(options)}: status {done.returncode}, and the result is "
                               f"{'there' if target.exists() else 'missing or broken'}")
        return done.returncode == 0

    def index(self, path, way, *options):
        indexed = self.folder / f"{way}.docx"
        if not self.run("index", path, *options, target=indexed):
            return
        self.run("inspect", indexed)
        for command in CHANGES:
            self.run(command, indexed, target=self.folder / f"{way}-{command}.docx")


def run_all(program, path, seconds):
    with tempfile.TemporaryDirectory() as folder:
        runs = Runs(program, pathlib.Path(folder), seconds)
        if runs.run("inspect", path):
            words = round_trip.common_words(round_trip.Runner(program, folder), path)
            runs.index(path, "words", "--search", "capitals", "--only-added",
                       *(option for word in words for option in ("--add", word)))
        runs.run("check", path)
        runs.run("terms", path, "--search", "capitals")
        for command in CHANGES:
            runs.run(command, path, target=runs.folder / f"{command}.docx")
        runs.index(path, "quoted", "--search", "quoted")
    return runs.tally, runs.faults


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("files", nargs="+")
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--seconds", type=int, default=60)
    arguments = parser.parse_args()
    paths = list(round_trip.find_documents(arguments.files))
    tally, good = Counter(), True
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as workers:
        done = workers.map(lambda path: run_all(arguments.program, path, arguments.seconds), paths)
        for path, (file_tally, faults) in zip(paths, done):
            tally.update(file_tally)
            for fault in faults:
                good = False
                print(f"{path.name}: {fault}", flush=True)
    statuses = sorted({status for _, status in tally}, key=str)
    print(f"{len(paths)} files" + "".join(f"{status:>10}" for status in statuses))
    for command in sorted({command for command, _ in tally}):
        print(f"{command:12}" + "".join(f"{tally[command, status]:>10}" for status in statuses))
    sys.exit(0 if good and paths else 1)


if __name__ == "__main__":
    main()
