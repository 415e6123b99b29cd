#!/usr/bin/env python3
"""Measures whole runs of the program against merely unzipping and zipping the same file:
measure.py PROGRAM [RUNS [SECONDS [FILE...]]]

The files are contracts that are generated, of 100 to 1,000 pages, and those named behind the numbers. Each figure is the median
of so many runs (5 without a number). Times are wall-clock seconds, with processor seconds behind; memory is the largest resident
set of a run. The limit of memory is 64 MiB and 25 times the unpacked main part. The second table has the layout alone: what
`inspect` takes longer with it than with an estimate, for each page that comes out too. The third table has the same index made
by LibreOffice from a concordance file, which gets so many seconds for each contract (120 without a number). The last table has
whole runs that only search, for both kinds of search.
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
import zipfile

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))
import against_libreoffice  # noqa: E402

SIZES = [(100, 100), (300, 200), (1000, 400)]
MIB = 1 << 20


def timed(*command, cwd=None, out=None):
    """Wall seconds, processor seconds and peak memory in bytes."""
    start = time.perf_counter()
    process = subprocess.Popen(command, cwd=cwd, stdin=subprocess.DEVNULL, stdout=out)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"{command[0]} ended with status {process.returncode}")
    return time.perf_counter() - start, usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024


def index_command(program, source, folder):
    # Settings keep the kind of search of the run before.
    return [program, "index", str(source), "-o", str(folder / "out.docx"), "--force", "--quiet", "--search", "quoted",
            "--settings", str(folder / "kvx.ini"), "--pages"]


def index_run(program, source, folder, pages="file"):
    return timed(*index_command(program, source, folder), pages, "--report", str(folder / "report.json"))


def layout_run(program, source, folder):
    """What the layout adds to looking at the document: wall and processor seconds; and its pages."""
    runs = {}
    for pages in ("file", "layout"):
        with open(folder / "inspected.json", "wb") as out:
            runs[pages] = timed(program, "inspect", str(source), "--pages", pages, "--settings", str(folder / "kvx.ini"),
                                out=out)
    pages = json.loads((folder / "inspected.json").read_text(encoding="utf-8"))["pages"]
    return runs["layout"][0] - runs["file"][0], runs["layout"][1] - runs["file"][1], pages


def terms_run(program, source, folder, search):
    return timed(program, "terms", str(source), "--search", search, "--quiet", "--pages", "file",
                 "--settings", str(folder / "kvx.ini"), out=subprocess.DEVNULL)


def zip_run(source, folder):
    unpacked = folder / "unpacked"
    shutil.rmtree(unpacked, ignore_errors=True)
    (folder / "bare.zip").unlink(missing_ok=True)
    one = timed("unzip", "-q", str(source), "-d", str(unpacked))
    other = timed("zip", "-q", "-r", str(folder / "bare.zip"), ".", cwd=unpacked)
    return one[0] + other[0], one[1] + other[1]


def is_indexed(program, source, folder):
    """Whether the program indexes the file; it says why not."""
    return subprocess.run([*index_command(program, source, folder), "file"], stdin=subprocess.DEVNULL,
                          check=False).returncode == 0


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    program, runs = str(pathlib.Path(sys.argv[1]).resolve()), int(sys.argv[2]) if len(sys.argv) > 2 else 5
    limit = int(sys.argv[3]) if len(sys.argv) > 3 else 120
    searches = []
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        sources = []
        for pages, terms in SIZES:
            sources.append((f"{pages} pages", folder / f"contract{pages}.docx"))
            # In a process of its own: the peak memory of what is measured is at least this one's.
            subprocess.run([sys.executable, HERE / "make_contract.py", str(pages), str(terms), sources[-1][1]], check=True)
        for path in map(pathlib.Path, sys.argv[4:]):
            if is_indexed(program, path.resolve(), folder):
                sources.append((path.stem[:40], path.resolve()))
        print("| contract | terms | marked | index: s (cpu) | unzip + zip: s (cpu) | ratio | memory MiB | limit MiB |")
        print("|---|---:|---:|---:|---:|---:|---:|---:|", flush=True)
        for name, source in sources:
            with zipfile.ZipFile(source) as package:
                main_part = package.getinfo("word/document.xml").file_size
            # Taken in turn, so that what else the machine does falls on both.
            measured = [(index_run(program, source, folder), zip_run(source, folder)) for _ in range(runs)]
            wall, cpu, memory = (statistics.median(index[i] for index, _ in measured) for i in range(3))
            bare_wall, bare_cpu = (statistics.median(bare[i] for _, bare in measured) for i in range(2))
            report = json.loads((folder / "report.json").read_text(encoding="utf-8"))
            marked = sum(term["count"] for term in report["terms"])
            searches.append((name, bare_wall, [
                [statistics.median(run[i] for run in runs_of) for i in range(2)]
                for runs_of in ([terms_run(program, source, folder, search) for _ in range(runs)]
                                for search in ("quoted", "capitals"))]))
            print(f"| {name} | {len(report['chosen'])} | {marked:,} | {wall:.2f} ({cpu:.2f}) | {bare_wall:.2f} ({bare_cpu:.2f}) "
                  f"| {wall / bare_wall:.2f} | {memory / MIB:.0f} | {64 + 25 * main_part / MIB:.0f} |", flush=True)
        print("\n| contract | pages | layout: s (cpu) | a page: ms (cpu) |\n|---|---:|---:|---:|", flush=True)
        for name, source in sources:
            measured = [layout_run(program, source, folder) for _ in range(runs)]
            wall, cpu, laid = (statistics.median(run[i] for run in measured) for i in range(3))
            print(f"| {name} | {laid} | {wall:.2f} ({cpu:.2f}) | {1000 * wall / laid:.2f} ({1000 * cpu / laid:.2f}) |", flush=True)
        against_libreoffice.print_table(lambda source: index_run(program, source, folder, "layout"), sources, folder, runs, limit)
    print("\n| contract | terms --search quoted: s (cpu) | ratio | terms --search capitals: s (cpu) | ratio |")
    print("|---|---:|---:|---:|---:|")
    for name, bare_wall, ((quoted, quoted_cpu), (capitals, capitals_cpu)) in searches:
        print(f"| {name} | {quoted:.2f} ({quoted_cpu:.2f}) | {quoted / bare_wall:.2f} "
              f"| {capitals:.2f} ({capitals_cpu:.2f}) | {capitals / bare_wall:.2f} |")


if __name__ == "__main__":
    main()
