import os
import subprocess

import program
from test_hostile import body, package, slowness


def paragraph(content):
    return f"<w:p>{content}</w:p>"


def run(text):
    return f'<w:r><w:t xml:space="preserve">{text}</w:t></w:r>'


def mark(kind):
    return f'<w:r><w:fldChar w:fldCharType="{kind}"/></w:r>'


DEFINED = paragraph(run("“Buyer” means the buyer."))


class Growth(program.Case):
    """Four times as much takes about four times the time: a step that took the square would take sixteen."""

    def seconds(self, *arguments):
        """Of the processor, for the program itself."""
        best = None
        for _ in range(3):
            process = subprocess.Popen([program.KELVARIN, *arguments], cwd=self.folder, env=self.environment(),
                                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
            with process:
                error = process.stderr.read()
                _, ended, usage = os.wait4(process.pid, 0)
                process.returncode = os.waitstatus_to_exitcode(ended)
            self.assertEqual(process.returncode, 0, error)
            taken = usage.ru_utime + usage.ru_stime
            best = taken if best is None else min(best, taken)
        return best

    def grows_in_proportion(self, many, count, extra=lambda number: ()):
        """@param many blocks so many times"""
        count //= slowness()
        taken = []
        for number in (count, 4 * count):
            (self.folder / "contract.docx").write_bytes(package(body(DEFINED + many(number)), extra(number)))
            steps = [self.seconds("index", "contract.docx", "-o", "out.docx", "--force", "--quiet", "--pages", "layout"),
                     self.seconds("update", "out.docx", "-o", "updated.docx", "--force", "--quiet"),
                     self.seconds("remove", "out.docx", "-o", "removed.docx", "--force", "--quiet"),
                     self.seconds("check", "contract.docx")]
            taken.append(steps)
        for name, few, more in zip(("index", "update", "remove", "check"), *taken):
            # What a run costs in any case does not grow.
            self.assertLess(more, 8 * few + 0.1, f"{name}: {few:.2f} s, {more:.2f} s")

    def test_paragraphs(self):
        self.grows_in_proportion(lambda number: paragraph(run("The Buyer pays.")) * number, 4_000)

    def test_terms(self):
        self.grows_in_proportion(lambda number: "".join(paragraph(run(f"“Item {i}x” is {i}; Item {i}x.")) for i in range(number)),
                                 1_500)

    def test_terms_in_a_paragraph(self):
        self.grows_in_proportion(
            lambda number: paragraph("".join(run(f"He (the “Item {i}x”) and Item {i}xs, item {i}x, an Agent{i} Unit of an Agent{i} Unit ")
                                             for i in range(number))) + paragraph(""), 1_000)

    def test_occurrences_in_a_paragraph(self):
        self.grows_in_proportion(lambda number: paragraph(run("the Buyer and ") * number), 2_000)

    def test_fields(self):
        field = mark("begin") + "<w:r><w:instrText> REF x </w:instrText></w:r>" + mark("separate") + run("Buyer") + mark("end")
        self.grows_in_proportion(lambda number: paragraph(field) * number, 2_000)

    def test_bookmarks(self):
        self.grows_in_proportion(
            lambda number: "".join(paragraph(f'<w:bookmarkStart w:id="{i}" w:name="b{i}"/>' + run("Buyer")
                                             + f'<w:bookmarkEnd w:id="{i}"/>') for i in range(number)), 2_000)

    def test_bookmarks_of_one_id_without_end(self):
        self.grows_in_proportion(
            lambda number: "".join(paragraph(f'<w:bookmarkStart w:id="1" w:name="b{i}"/>' + run("Buyer")) for i in range(number)),
            2_000)

    def test_rows(self):
        cell = "<w:tc>" + paragraph(run("Buyer")) + "</w:tc>"
        self.grows_in_proportion(lambda number: "<w:tbl>" + f"<w:tr>{cell}{cell}</w:tr>" * number + "</w:tbl>" + paragraph(""), 1_000)

    def test_tracked_insertions(self):
        self.grows_in_proportion(
            lambda number: paragraph("".join(f'<w:ins w:id="{i}" w:author="A">' + run("the Buyer ") + "</w:ins>"
                                             for i in range(number))), 1_000)

    def test_sections(self):
        section = "<w:p><w:pPr><w:sectPr/></w:pPr>" + run("Buyer") + "</w:p>"
        self.grows_in_proportion(lambda number: section * number, 1_000)


if __name__ == "__main__":
    program.main()
