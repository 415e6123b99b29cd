"""The same job by the program and by LibreOffice: an index of the same terms, with pages of a layout."""

import json
import pathlib
import shutil
import statistics
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent


def interpreter():
    """The Python that LibreOffice's interface is installed for; None: there is none, or no LibreOffice."""
    if shutil.which("soffice") is None:
        return None
    for python in (sys.executable, "/usr/bin/python3"):
        if subprocess.run([python, "-c", "import uno"], stderr=subprocess.DEVNULL, check=False).returncode == 0:
            return python
    return None


def libreoffice_run(python, source, terms, folder, limit):
    concordance = folder / "terms.sdi"
    concordance.write_text("".join(f"{term};{term};;;1;1\n" for term in terms), encoding="utf-8")
    out = subprocess.run([python, str(HERE / "libreoffice_index.py"), str(source), str(concordance),
                          str(folder / "libreoffice.docx"), str(limit)], capture_output=True, text=True, check=True).stdout
    return json.loads(out.splitlines()[-1])


def print_table(index_run, sources, folder, runs, limit):
    """@param index_run indexes a file, reports to report.json of the folder and gives its wall seconds first
    @param sources [(name, file)]"""
    python = interpreter()
    if python is None:
        print("\nLibreOffice or its Python interface (python3-uno) is not installed: nothing to compare with.")
        return
    print(f"\n| contract | index --pages layout: s | LibreOffice, limit {limit} s: s | marked | ratio |\n|---|---:|---:|---:|---:|", flush=True)
    for name, source in sources:
        ours = statistics.median(index_run(source)[0] for _ in range(runs))
        chosen = json.loads((folder / "report.json").read_text(encoding="utf-8"))["chosen"]
        theirs = libreoffice_run(python, source, chosen, folder, limit)
        least = "" if theirs["finished"] else "at least "
        print(f"| {name} | {ours:.2f} | {'' if theirs['finished'] else 'more than '}{theirs['seconds']:.0f} | {theirs['marked']:,} "
              f"| {least}{theirs['seconds'] / ours:.0f} |", flush=True)
