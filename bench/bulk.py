#!/usr/bin/env python3
"""Measures many files at once against two processes that share them: bulk.py PROGRAM [FILES [RUNS]]

FILES contracts (1,000 without a number) of some pages are indexed into a folder with --jobs 2, and by two processes at a time with
half of them each, in turn, RUNS times (3 without a number). It prints wall-clock and processor seconds, and the largest resident
set of the program itself after a tenth of the files and at the end. Then a run is interrupted and taken up again, and its results
and reports are compared with those of a run that was not.
"""

import json
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
KINDS = 10


def make_contracts(folder, count):
    folder.mkdir()
    kinds = []
    for kind in range(KINDS):
        kinds.append(folder / f"contract{kind:04}.docx")
        subprocess.run([sys.executable, HERE / "make_contract.py", str(3 + kind), str(20 + 5 * kind), kinds[-1]], check=True)
    for number in range(KINDS, count):
        shutil.copy(kinds[number % KINDS], folder / f"contract{number:04}.docx")
    return sorted(folder.iterdir())


def command(program, folder, *operands):
    return [program, "index", *map(str, operands), "--out-dir", str(folder / "out"), "--quiet", "--pages", "file",
            "--settings", str(folder / "kvx.ini")]


def fresh(folder, name="out"):
    shutil.rmtree(folder / name, ignore_errors=True)


def high_water(process):
    """The largest resident set so far, in KiB; 0 once it has ended."""
    try:
        for line in pathlib.Path(f"/proc/{process.pid}/status").read_text(encoding="ascii").splitlines():
            if line.startswith("VmHWM"):
                return int(line.split()[1])
    except OSError:
        pass
    return 0


def together(commands, watch=None):
    """Wall and processor seconds of processes that run at a time."""
    before, start = os.times(), time.perf_counter()
    processes = [subprocess.Popen(each, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL) for each in commands]
    while watch is not None and processes[0].poll() is None:
        watch(processes[0])
        time.sleep(0.05)
    if any(process.wait() != 0 for process in processes):
        sys.exit(f"{commands[0][0]} failed")
    after = os.times()
    return (time.perf_counter() - start,
            after.children_user + after.children_system - before.children_user - before.children_system)


def contents(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir()}


def reports(file):
    lines = [json.loads(line) for line in file.read_text(encoding="utf-8").splitlines()]
    for line in lines:
        del line["seconds"]
    return lines


def interrupted(program, folder, source, count):
    """Whether a run that is interrupted after a third of the files and taken up again comes to the same."""
    once = command(program, folder, source) + ["--jobs", "2", "--report", str(folder / "report.jsonl")]
    fresh(folder)
    together([once])
    whole, told = contents(folder / "out"), reports(folder / "report.jsonl")
    fresh(folder)
    process = subprocess.Popen(once, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
    while len(list((folder / "out").glob("*.docx") if (folder / "out").is_dir() else [])) < count // 3:
        if process.poll() is not None:
            sys.exit("the run was over before it could be interrupted")
        time.sleep(0.02)
    process.terminate()
    process.wait()
    done = len(list((folder / "out").glob("*.docx")))
    seconds, _ = together([once])
    same = contents(folder / "out") == whole and reports(folder / "report.jsonl") == told
    print(f"interrupted after {done} files, taken up in {seconds:.1f} s: {'the same' if same else 'NOT THE SAME'}")
    return same


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    program = str(pathlib.Path(sys.argv[1]).resolve())
    count, runs = int(sys.argv[2]) if len(sys.argv) > 2 else 1000, int(sys.argv[3]) if len(sys.argv) > 3 else 3
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        files = make_contracts(folder / "contracts", count)
        halves = []
        for half in range(2):
            halves.append(folder / f"half{half}")
            halves[-1].write_text("".join(f"{file}\n" for file in files[half::2]), encoding="utf-8")
        memory = []

        def watch(process):
            done = len(os.listdir(folder / "out")) if (folder / "out").is_dir() else 0
            if done >= count // 10 and not memory:
                memory.append(high_water(process))
            if memory:
                memory[1:] = [max([*memory[1:], high_water(process)])]

        one, two = [], []
        for _ in range(runs):
            fresh(folder)
            memory.clear()
            one.append(together([command(program, folder, folder / "contracts") + ["--jobs", "2"]], watch))
            fresh(folder)
            two.append(together([command(program, folder, f"@{half}") for half in halves]))
        (wall, cpu), (other, other_cpu) = ([statistics.median(run[i] for run in each) for i in range(2)] for each in (one, two))
        print("| files | --jobs 2: s (cpu) | two processes: s (cpu) | ratio | memory after a tenth, at the end: MiB |")
        print("|---:|---:|---:|---:|---:|")
        print(f"| {count:,} | {wall:.1f} ({cpu:.1f}) | {other:.1f} ({other_cpu:.1f}) | {wall / other:.2f} "
              f"| {memory[0] / 1024:.0f}, {memory[-1] / 1024:.0f} |", flush=True)
        if not interrupted(program, folder, folder / "contracts", count):
            sys.exit(1)


if __name__ == "__main__":
    main()
