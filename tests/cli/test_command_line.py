import shutil
import subprocess

import program


class CommandLine(program.Case):
    def wrong(self, *arguments):
        result = self.check(*arguments, status=2)
        self.assertTrue(result.err.startswith("kelvarin: "), result.err)
        self.assertEqual(result.out, "")
        return result.err

    def test_version_and_help_are_results(self):
        self.assertRegex(self.check("--version").out, r"^kelvarin \d+\.\d+\.\d+\n$")
        for command in ("", "index", "terms", "remove", "run", "inspect"):
            self.assertIn("Usage: kelvarin", self.check(*command.split(), "--help").out)

    def test_what_is_wrong_is_said_with_status_2(self):
        file = self.document()
        self.wrong("index")
        self.wrong("index", file, "-o", "out.docx", "--frobnicate")
        self.wrong("index", file, "-o", "out.docx", "--columns", "5")
        self.wrong("index", file, "-o", "out.docx", "--open-quote", "34")
        self.wrong("index", file, "-o", "out.docx", "--what", "some")
        self.wrong("index", file, "-o", "out.docx", "--at", "middle")
        self.wrong("index", file, "-o", "out.docx", "--at", "char:-1")
        self.wrong("index", file, "-o", "out.docx", "--jobs", "0")
        self.wrong("inspect", file, file)
        self.wrong("run", "frobnicate", file)

    def test_an_unknown_option_is_named_and_its_value_is_not_taken_for_a_file(self):
        file = self.document()
        self.assertEqual(self.wrong("terms", file, "--out-dir", "x"),
                         "kelvarin: there is no option --out-dir; --help lists them\n")
        for command, option in (("check", "-o"), ("check", "--base"), ("inspect", "--html")):
            self.assertIn(f"no option {option};", self.wrong(command, file, option, "x"))

    def test_an_empty_name_is_wrong(self):
        file = self.document()
        for arguments, name in (((file, "-o", ""), "--out"), ((file, "--out-dir", ""), "--out-dir"),
                                ((file, "-o", "out.docx", "--report", ""), "--report"),
                                (("", "-o", "out.docx"), "FILE"), ((file, "", "--out-dir", "out"), "FILE")):
            self.assertEqual(self.wrong("index", *arguments).replace("-o,", ""), f"kelvarin: {name}: a name is expected\n")
        self.assertEqual({path.name for path in self.folder.iterdir()}, {"home", "tmp", "contract.docx"})

    def test_names_that_begin_with_a_dash_stand_behind_two(self):
        self.document("-o.docx")
        self.check("index", "--out-dir", "out", "--", "-o.docx")
        self.assertTrue((self.folder / "out/-o.docx").exists())

    def test_a_command_that_is_none_is_named(self):
        self.assertIn('"frobnicate" is no command', self.wrong("frobnicate", self.document()))
        for arguments in ((), ("--frobnicate",), ("--quiet", "index", "contract.docx", "-o", "out.docx")):
            self.assertIn("a command is expected", self.wrong(*arguments))

    def test_without_a_command_the_window_opens_where_there_is_a_display(self):
        copied = shutil.copy(program.KELVARIN, self.folder)
        display = self.environment() | {"DISPLAY": ":0"}
        run = lambda environment: subprocess.run([copied], env=environment, capture_output=True, text=True)
        without = run(display)
        self.assertEqual((without.returncode, without.stdout), (2, ""))
        self.assertIn("a command is expected", without.stderr)
        desktop = self.folder / "kelvarin-desktop"
        desktop.write_text("#!/bin/sh\necho shown $#\n")
        desktop.chmod(0o755)
        self.assertEqual(run(display).stdout, "shown 0\n")
        self.assertEqual(run(self.environment()).returncode, 2)

    def test_a_result_needs_one_place_to_go(self):
        file = self.document()
        self.assertIn("-o OUT, --out-dir DIR or --in-place", self.wrong("index", file))
        self.assertIn("only one", self.wrong("index", file, "-o", "out.docx", "--in-place"))
        self.assertIn("takes one input", self.wrong("index", file, file, "-o", "out.docx"))

    def test_two_inputs_of_one_name_do_not_go_to_one_folder(self):
        (self.folder / "other").mkdir()
        error = self.wrong("index", self.document(), self.document("other/contract.docx"), "--out-dir", "out")
        self.assertIn("the same name", error)
        self.assertFalse((self.folder / "out").exists())

    def test_pages_that_nothing_works_out_are_refused(self):
        self.assertIn("none of", self.wrong("index", self.document(), "-o", "out.docx", "--pages", "frobnicate"))

    def test_a_search_that_is_none_is_refused(self):
        self.assertIn("--search", self.wrong("index", self.document(), "-o", "out.docx", "--search", "frobnicate"))

    def test_the_last_of_two_switches_counts(self):
        self.document()
        report = self.report("index", "contract.docx", "-o", "out.docx", "--bold", "--no-bold")
        self.assertEqual(report["found"], ["Buyer", "Seller"])


if __name__ == "__main__":
    program.main()
