import program


class Settings(program.Case):
    new_user = True

    def test_a_run_does_not_make_a_persons_settings(self):
        self.document()
        self.check("index", "contract.docx", "-o", "out.docx")
        self.assertEqual(list(self.home.rglob("*.ini")), [])

    def test_a_persons_settings_are_read_and_left_as_they_are(self):
        self.user_file().parent.mkdir(parents=True)
        self.user_file().write_bytes(b"[Defaults]\r\nSearchType=SearchFlagged\r\nIndexCols=1\r\nIndexSep=\" - \"\r\n")
        before = self.user_file().read_bytes()
        self.document()
        self.check("index", "contract.docx", "-o", "out.docx", "--no-highlight")
        index = self.inspect(self.folder / "out.docx")["index"]
        self.assertEqual(index["columns"], 1)
        self.assertEqual(index["paragraphs"], ["Buyer - 1", "Seller - 1"])
        self.assertEqual(self.user_file().read_bytes(), before)

    def test_a_settings_file_is_made_with_every_key(self):
        self.document()
        self.check("index", "contract.docx", "-o", "out.docx", "--settings", "my.ini")
        text = (self.folder / "my.ini").read_text(encoding="cp1252")
        self.assertTrue(text.startswith("[Defaults]"))
        for key in ("SearchType", "Bold", "Highlight", "IgnoreWordsWithNums", "CaseSensitive", "IndexAllCaps", "OpenQuote",
                    "CloseQuote", "IndexCols", "IndexSep", "IncludeNotUsed", "IncludeNotFound", "ShowFormatReminder",
                    "ShowSearchChooser", "ShowHelp", "IndexWhat"):
            self.assertRegex(text, rf"(?m)^{key}=")

    def test_a_settings_file_keeps_what_a_run_chose(self):
        self.document()
        self.check("index", "contract.docx", "-o", "out.docx", "--settings", "my.ini", "--columns", "3", "--no-highlight")
        text = (self.folder / "my.ini").read_text(encoding="cp1252")
        self.assertIn("IndexCols=3", text)
        self.assertIn("Highlight=False", text)

    def test_with_several_files_the_settings_file_is_left_as_it_was(self):
        self.document("a.docx")
        self.document("b.docx")
        self.check("index", "a.docx", "-o", "out.docx", "--settings", "my.ini")
        before = (self.folder / "my.ini").read_bytes()
        self.check("index", "a.docx", "b.docx", "--out-dir", "out", "--settings", "my.ini", "--columns", "4")
        self.assertEqual((self.folder / "my.ini").read_bytes(), before)

    def test_nothing_stays_in_the_temporary_folder(self):
        self.document()
        self.check("index", "contract.docx", "-o", "out.docx")
        self.assertEqual(list(self.temporary.iterdir()), [])


if __name__ == "__main__":
    program.main()
