#!/usr/bin/env python3
"""Kills runs with --in-place at random moments, so many that it kills, and looks whether their documents are readable:
kill_runs.py [COUNT] [SEED]

Each document must be the one from before the run or the one that a run which nobody kills gives, to the byte; it is also opened as
a package and its XML is read. The program is $KELVARIN or the release build.
"""

import os
import pathlib
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import zipfile
from xml.etree import ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
KELVARIN = os.environ.get("KELVARIN", str(ROOT / "build/release/apps/kelvarin/kelvarin"))
SAMPLE = ROOT / "samples/share_purchase_agreement.docx"


def start(file, environment):
    return subprocess.Popen([KELVARIN, "index", str(file), "--in-place", "--quiet"], env=environment,
                            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def seconds_of_a_run(file, environment):
    begin = time.perf_counter()
    if start(file, environment).wait() != 0:
        sys.exit(f"{KELVARIN} does not index {SAMPLE}")
    return time.perf_counter() - begin


def fault(file, before, after):
    """Why the document is none any more; empty: it is one."""
    content = file.read_bytes()
    if content not in (before, after):
        return f"it is neither the old document nor the new one ({len(content)} bytes)"
    with zipfile.ZipFile(file) as package:
        if package.testzip():
            return "its package is damaged"
        for name in package.namelist():
            if name.endswith((".xml", ".rels")):
                ElementTree.fromstring(package.read(name))
    return ""


def main():
    count = int(sys.argv[1]) if len(sys.argv) > 1 else 500
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else random.randrange(1 << 32)
    pick = random.Random(seed)
    faults = 0
    outcomes = {"before": 0, "after": 0, "ended by itself": 0}
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "tmp").mkdir()
        environment = {"HOME": name, "TMPDIR": str(folder / "tmp"), "LC_ALL": "C.UTF-8"}
        environment |= {key: os.environ[key] for key in ("PATH", "LSAN_OPTIONS") if key in os.environ}
        whole = folder / "whole.docx"
        lengths = []
        for _ in range(3):
            shutil.copy(SAMPLE, whole)
            lengths.append(seconds_of_a_run(whole, environment))
        before, after = SAMPLE.read_bytes(), whole.read_bytes()
        if before == after:
            sys.exit("a run changes nothing")
        longest = 1.1 * sorted(lengths)[1]
        runs = 0
        # A run that came to its end before it was killed shows nothing, and on a busy machine many do.
        while outcomes["before"] + outcomes["after"] < count and runs < 4 * count:
            runs += 1
            file = folder / f"{runs}.docx"
            shutil.copy(SAMPLE, file)
            process = start(file, environment)
            time.sleep(pick.uniform(0, longest))
            process.send_signal(signal.SIGKILL)
            ended = process.wait()
            why = fault(file, before, after)
            if why:
                faults += 1
                print(f"{file.name}: {why}")
            is_old = file.read_bytes() == before
            outcomes["ended by itself" if ended == 0 else "before" if is_old else "after"] += 1
            file.unlink()
    killed = outcomes["before"] + outcomes["after"]
    print(f"seed {seed}: {runs} runs, {killed} killed ({outcomes['before']} before the document was replaced, "
          f"{outcomes['after']} after), {outcomes['ended by itself']} came to their end; {faults} documents damaged")
    sys.exit(1 if faults or killed < count else 0)


if __name__ == "__main__":
    main()
