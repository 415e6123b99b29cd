#!/usr/bin/env python3
"""Has LibreOffice build an alphabetical index from a concordance file: libreoffice_index.py SOURCE.docx CONCORDANCE OUT.docx SECONDS

The concordance file is LibreOffice's own format, a line "term;entry;;;match case;whole words" for each term. LibreOffice applies such
files in a dialog only, so this does over its interface what the dialog does: it searches for each term and sets an index mark at each
place, inserts the index behind the text, updates it, and stores the document. Prints a JSON object: "seconds" of everything from
the start of the program until the document is stored, "loading", "marking" and "index" of its steps, "marked" places, and
"finished", which is false where the limit came first; then "seconds" is the time until then.
"""

import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

import uno
from com.sun.star.beans import PropertyValue
from com.sun.star.connection import NoConnectException


class OutOfTime(Exception):
    pass


class Office:
    def __init__(self, deadline):
        self.deadline = deadline
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="kelvarin-bench-"))
        pipe = f"kelvarin-bench-{self.folder.name[-8:]}"
        self.process = subprocess.Popen(
            ["soffice", "--headless", "--norestore", "--nologo", f"-env:UserInstallation={self.folder.as_uri()}",
             f"--accept=pipe,name={pipe};urp;"], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL, start_new_session=True)
        local = uno.getComponentContext()
        resolver = local.ServiceManager.createInstanceWithContext("com.sun.star.bridge.UnoUrlResolver", local)
        while True:
            self.check()
            try:
                context = resolver.resolve(f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")
                break
            except NoConnectException:
                time.sleep(0.05)
        self.desktop = context.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", context)

    def check(self):
        if time.monotonic() > self.deadline:
            raise OutOfTime

    def close(self):
        import os
        import signal
        os.killpg(self.process.pid, signal.SIGKILL)
        self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


def value(name, content):
    return PropertyValue(Name=name, Value=content)


def mark(office, document, concordance):
    """The number of marks that were set."""
    marked = 0
    for line in concordance.read_text(encoding="utf-8").splitlines():
        term, entry, _, _, match_case, whole_words = line.split(";")
        search = document.createSearchDescriptor()
        search.SearchString = term
        search.SearchCaseSensitive = match_case == "1"
        search.SearchWords = whole_words == "1"
        found = document.findAll(search)
        for number in range(found.Count):
            office.check()
            place = found.getByIndex(number)
            index_mark = document.createInstance("com.sun.star.text.DocumentIndexMark")
            if entry and entry != term:
                index_mark.AlternativeText = entry
            place.Text.insertTextContent(place, index_mark, True)
            marked += 1
    return marked


def main():
    source, concordance, out = map(pathlib.Path, sys.argv[1:4])
    start = time.monotonic()
    result = {"seconds": None, "loading": None, "marking": None, "index": None, "marked": 0, "finished": False}
    office = None

    # What hangs inside of a call is ended from outside.
    import signal

    def stop(*_):
        raise OutOfTime
    signal.signal(signal.SIGALRM, stop)
    signal.setitimer(signal.ITIMER_REAL, float(sys.argv[4]))
    try:
        office = Office(start + float(sys.argv[4]))
        begun = time.monotonic()
        document = office.desktop.loadComponentFromURL(source.resolve().as_uri(), "_blank", 0, (value("Hidden", True),))
        result["loading"] = time.monotonic() - begun
        begun = time.monotonic()
        document.lockControllers()
        result["marked"] = mark(office, document, concordance)
        document.unlockControllers()
        result["marking"] = time.monotonic() - begun
        begun = time.monotonic()
        index = document.createInstance("com.sun.star.text.DocumentIndex")
        index.IsCaseSensitive = True
        text = document.Text
        text.insertTextContent(text.createTextCursorByRange(text.End), index, False)
        index.update()
        result["index"] = time.monotonic() - begun
        document.storeToURL(out.resolve().as_uri(), (value("FilterName", "MS Word 2007 XML"),))
        result["finished"] = True
    except OutOfTime:
        pass
    result["seconds"] = time.monotonic() - start
    signal.setitimer(signal.ITIMER_REAL, 0)
    print(json.dumps(result), flush=True)
    if office is not None:
        office.close()


if __name__ == "__main__":
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    main()
