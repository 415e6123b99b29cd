#!/usr/bin/env python3
"""Runs the set-up under Wine, in a prefix of its own: installs, looks at registry and folder, removes, looks again.

test_installer.py SETUP PROGRAM: the set-up's file, and a program that loads the add-in as Word does. It needs a display.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent.parent
SETUP = None
PROGRAM = None
ADDIN = r"Software\Microsoft\Office\Word\Addins\KVXDLLCOM.Connect"
CLASS = r"Software\Classes\KVXDLLCOM.Connect\CLSID"
COMPANION = r"Software\Classes\TermMarker.TermMarker\CLSID"
UNINSTALL = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\Kelvarin"
# What the add-in itself keeps for its user.
USERS_OWN = {r"Software\\Kelvarin", r"Software\\Kelvarin\\Settings"}
FILES = ["KVX Instructions A4.pdf", "KVX Instructions LTR.pdf", "KVXDLLCOM.dll", "Kelvarin3Help.chm", "TermMarker.dll",
         "kvxfaq.htm"]


class Installer(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.prefix = tempfile.TemporaryDirectory()
        cls.environment = dict(os.environ, WINEPREFIX=cls.prefix.name)
        cls.drive = pathlib.Path(cls.prefix.name) / "drive_c"
        cls.wine("cmd", "/c", "exit")

    @classmethod
    def tearDownClass(cls):
        cls.wait_for_all()
        cls.prefix.cleanup()

    @classmethod
    def wine(cls, *arguments):
        return cls.run_program(cls.environment, *arguments)

    @staticmethod
    def run_program(environment, *arguments):
        """What Wine starts for a program outlives it and would hold a pipe open, so it writes into a file."""
        with tempfile.TemporaryFile() as out:
            done = subprocess.run([ROOT / "scripts/wine", *arguments], env=environment, stdout=out,
                                  stderr=subprocess.DEVNULL, timeout=300)
            out.seek(0)
            return done.returncode, out.read().decode("utf-8", "replace")

    def value(self, root, key, name):
        """None when there is none."""
        arguments = ["reg", "query", root + "\\" + key, *(["/v", name] if name else ["/ve"])]
        status, out = self.wine(*arguments)
        if status != 0:
            return None
        return next((line.split("    ")[-1].strip() for line in out.splitlines() if "REG_" in line), None)

    def is_there(self, root, key):
        return self.wine("reg", "query", root + "\\" + key)[0] == 0

    def files(self, folder):
        return sorted(path.name for path in folder.glob("*")) if folder.exists() else None

    def kept_files(self):
        """All files of the drive but those that Wine itself changes."""
        return {path for path in self.drive.rglob("*") if path.is_file() and "windows/temp" not in str(path).lower()
                and "/Temp/" not in str(path)}

    def remove(self, folder):
        """The uninstaller works from a copy of itself, which it does not wait for."""
        status, _ = self.wine(str(folder / "uninstall.exe"), "/S")
        self.assertEqual(status, 0)
        self.wait_for_all()
        self.assertFalse(folder.exists())

    def windows_path(self, path):
        return "C:\\" + str(path.relative_to(self.drive)).replace("/", "\\")

    def load(self, folder):
        """Leaves the settings that a first run writes, which are the user's."""
        environment = dict(self.environment, KVX_INSTALLED=self.windows_path(folder))
        status, out = self.run_program(environment, PROGRAM)
        self.assertEqual(status, 0, out)

    @classmethod
    def wait_for_all(cls):
        """Until every program has ended and the registry is in its files."""
        subprocess.run(["wineserver", "-w"], env=cls.environment, check=False)

    def registry(self):
        """Every key of ours, wherever it stands."""
        self.wait_for_all()
        names = re.compile(r"^\[(.*(?:KVXDLLCOM|TermMarker|Kelvarin).*)\]", re.MULTILINE | re.IGNORECASE)
        files = (pathlib.Path(self.prefix.name) / name for name in ("system.reg", "user.reg"))
        return {key for file in files for key in names.findall(file.read_text("latin-1"))}

    def check(self, root, arguments, folder):
        before = self.kept_files()
        self.assertEqual(self.registry() - USERS_OWN, set())
        status, _ = self.wine(SETUP, "/S", *arguments)
        self.assertEqual(status, 0)
        self.assertEqual(self.files(folder / "x64"), sorted(FILES))
        self.assertEqual(self.files(folder / "x86"), sorted(FILES))
        self.assertEqual(self.value(root, ADDIN, "LoadBehavior"), "0x3")
        self.assertEqual(self.value(root, ADDIN, "FriendlyName"), "Kelvarin")
        for program in (CLASS, COMPANION):
            identity = self.value(root, program, None)
            self.assertIsNotNone(identity, program)
            server = self.value(root, "Software\\Classes\\CLSID\\" + identity + "\\InprocServer32", None)
            self.assertTrue(server.lower().startswith(self.windows_path(folder / "x64").lower()), server)
        self.assertIsNotNone(self.value(root, UNINSTALL, "UninstallString"))
        # Wine looks for classes among those for all users only.
        if root == "HKLM":
            self.load(folder / "x64")
        settings = self.drive / "users" / os.environ.get("USER", "root") / "AppData/Roaming/Brantholt/Kelvarin/kvx.ini"
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text("[Defaults]\r\n")
        self.remove(folder)
        for key in (ADDIN, CLASS, COMPANION, UNINSTALL):
            self.assertFalse(self.is_there(root, key), key)
        self.assertEqual(self.registry() - USERS_OWN, set())
        self.assertTrue(settings.exists())
        self.assertEqual(self.kept_files() - before - {settings}, set())
        settings.unlink()

    def test_for_one_user_and_leaves_nothing_but_settings(self):
        user = next(path for path in (self.drive / "users").iterdir() if path.name.lower() != "public")
        self.check("HKCU", [], user / "AppData/Local/Programs/Kelvarin")

    def test_for_all_users_and_leaves_nothing_but_settings(self):
        self.check("HKLM", ["/ALLUSERS"], self.drive / "Program Files/Kelvarin")


if __name__ == "__main__":
    SETUP = str(pathlib.Path(sys.argv.pop(1)).resolve())
    PROGRAM = str(pathlib.Path(sys.argv.pop(1)).resolve())
    unittest.main()
