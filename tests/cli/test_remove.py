import program


class Remove(program.Case):
    def test_a_document_that_was_never_indexed_is_written_as_it_is(self):
        for sample in sorted(program.SAMPLES.glob("*.docx")):
            out = self.folder / sample.name
            self.check("remove", sample, "-o", out)
            self.assertEqual(out.read_bytes(), sample.read_bytes(), sample.name)

    def test_index_then_remove_gives_the_xml_back(self):
        for sample in sorted(program.SAMPLES.glob("*.docx")):
            indexed, out = self.folder / ("i" + sample.name), self.folder / sample.name
            self.check("index", sample, "-o", indexed)
            self.assertNotEqual(program.parts(indexed), program.parts(sample))
            self.check("remove", indexed, "-o", out)
            before, after = program.canonical(sample), program.canonical(out)
            self.assertEqual(list(before), list(after), sample.name)
            for name, content in before.items():
                self.assertEqual(after[name], content, f"{sample.name}: {name}")

    def test_indexing_again_shows_the_same_document(self):
        self.document()
        self.check("index", "contract.docx", "-o", "once.docx")
        self.check("index", "once.docx", "-o", "twice.docx")
        self.assertEqual(self.inspect(self.folder / "once.docx"), self.inspect(self.folder / "twice.docx"))


if __name__ == "__main__":
    program.main()
