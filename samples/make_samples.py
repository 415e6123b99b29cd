#!/usr/bin/env python3
"""Writes the sample contracts: make_samples.py [FOLDER], the folder of this script without one.

The same script gives the same documents, whatever machine it runs on (the zip's compression alone may differ).
"""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))
import awkward_licence  # noqa: E402
import docx_writer  # noqa: E402


def nda(path):
    document = docx_writer.Document("Mutual Non-Disclosure Agreement")
    document.add((HERE / "mutual_nda.txt").read_text(encoding="utf-8"))
    document.save(path, header="Mutual Non-Disclosure Agreement", footer="#")


def share_purchase_agreement(path):
    document = docx_writer.Document("Share Purchase Agreement")
    document.add((HERE / "share_purchase_agreement.txt").read_text(encoding="utf-8"))
    document.save(path, header="Signatures", footer="Page #", kind="nextPage")


def main():
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else HERE
    folder.mkdir(parents=True, exist_ok=True)
    nda(folder / "mutual_nda.docx")
    share_purchase_agreement(folder / "share_purchase_agreement.docx")
    awkward_licence.save(folder / "awkward_licence.docx", strict=False)
    awkward_licence.save(folder / "awkward_licence_strict.docx", strict=True)


if __name__ == "__main__":
    main()
