import re
import subprocess

import program

PACKAGING = program.ROOT / "packaging"


class Packaging(program.Case):
    def commands(self):
        help_text = self.check("--help").out
        return re.findall(r"^  ([a-z]+) {2,}", help_text[help_text.index("Subcommands:"):], re.MULTILINE)

    def options(self):
        return {command: set(re.findall(r"(?:^| |,)(--?[a-z][a-z-]*)", self.check(command, "--help").out))
                for command in self.commands()}

    def test_the_manual_is_set_without_a_warning_and_names_every_command(self):
        manual = (PACKAGING / "kelvarin.1").read_text(encoding="utf-8")
        result = subprocess.run(["groff", "-man", "-Tutf8", "-ww", "-z"], input=manual.encode(), capture_output=True, check=True)
        self.assertEqual(result.stderr, b"")
        for command in self.commands():
            self.assertRegex(manual, rf'(?m)^\.(B|BR|TP|I) .*\b{command}\b')

    def test_the_manual_names_no_option_that_there_is_not(self):
        text = (PACKAGING / "kelvarin.1").read_text(encoding="utf-8").replace("\\-", "-")
        known = set().union(*self.options().values()) | {"--help", "--version"}
        self.assertLessEqual(set(re.findall(r"(?<![\w-])--[a-z][a-z-]*", text)), known)

    def complete(self, *words):
        script = ('source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _kelvarin; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        result = subprocess.run(["bash", "-c", script, "bash", str(PACKAGING / "kelvarin.bash"), program.KELVARIN, *words],
                                capture_output=True, text=True, check=True, cwd=self.folder, env=self.environment())
        self.assertEqual(result.stderr, "")
        return set(result.stdout.split("\n")) - {""}

    def test_completion_offers_what_the_program_takes(self):
        self.document("a b.docx")
        (self.folder / "notes.txt").write_text("")
        self.assertEqual(self.complete(""), set(self.commands()) | {"--help", "--version"})
        self.assertEqual(self.complete("in"), {"index", "inspect"})
        for command, options in self.options().items():
            self.assertEqual(self.complete(command, "--"), {option for option in options if option.startswith("--")})
        self.assertEqual(self.complete("index", "--pages", ""), {"auto", "file", "layout", "libreoffice"})
        self.assertEqual(self.complete("run", "u"), {"unhighlight", "update"})
        self.assertEqual(self.complete("index", ""), {"a b.docx", "home", "tmp"})
        self.assertEqual(self.complete("index", "@n"), {"@notes.txt"})

    def test_the_menu_entry_is_whole(self):
        lines = (PACKAGING / "kelvarin.desktop").read_text(encoding="utf-8").splitlines()
        self.assertEqual(lines[0], "[Desktop Entry]")
        entry = dict(line.split("=", 1) for line in lines[1:])
        self.assertEqual((entry["Exec"], entry["Icon"]), ("kelvarin open %f", "kelvarin"))
        self.assertTrue((PACKAGING / "kelvarin.svg").exists())


if __name__ == "__main__":
    program.main()
