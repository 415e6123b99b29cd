#!/usr/bin/env python3
"""Looks into the libraries of the add-in: what they give to Windows and what they need of it.

test_libraries.py BUILD...: folders of builds for Windows.
"""

import pathlib
import re
import subprocess
import sys
import unittest

BUILDS = []
# Word brings none with it, and a user has no other.
OF_WINDOWS = {"advapi32", "comctl32", "comdlg32", "gdi32", "kernel32", "msvcrt", "ole32", "oleaut32", "psapi", "shell32",
              "user32", "version"}
# Undecorated, as Windows asks for them in 32-bit programs, too.
GIVEN = ["DllCanUnloadNow", "DllGetClassObject", "DllInstall", "DllRegisterServer", "DllUnregisterServer"]


class Libraries(unittest.TestCase):
    def each(self):
        for build in BUILDS:
            for name in ("KVXDLLCOM", "TermMarker"):
                path = build / "apps" / name / (name + ".dll")
                with self.subTest(path=str(path)):
                    done = subprocess.run(["objdump", "-p", path], capture_output=True, text=True, check=True)
                    yield build, done.stdout

    def test_need_nothing_but_windows(self):
        for _, text in self.each():
            needed = {name.lower() for name in re.findall(r"DLL Name: (\S+)\.dll", text, re.IGNORECASE)}
            self.assertIn("kernel32", needed)
            self.assertEqual(needed - OF_WINDOWS, set())

    def test_give_what_a_library_with_a_class_has(self):
        for _, text in self.each():
            table = text[text.index("[Ordinal/Name Pointer] Table"):]
            self.assertEqual(re.findall(r"^\s*\[\s*\d+\] (\S+)$", table, re.MULTILINE), GIVEN)

    def test_are_of_their_builds_kind(self):
        for build, text in self.each():
            self.assertIn("pei-i386" if build.name.endswith("x86") else "pei-x86-64", text)


if __name__ == "__main__":
    BUILDS = [pathlib.Path(build).resolve() for build in sys.argv[1:]]
    unittest.main(argv=sys.argv[:1])
