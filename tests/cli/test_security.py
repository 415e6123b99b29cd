"""What SECURITY.md promises of documents that nobody trusts."""

import http.server
import os
import pathlib
import shutil
import stat
import subprocess
import threading
import time
import zipfile

import program
from test_hostile import GOOD, TYPES, W, package

R = 'xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships"'
OFFICE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/"
COMMANDS = (("index", "-o", "out.docx", "--force"), ("terms", "--json"), ("terms", "--search", "capitals"), ("check",), ("inspect",),
            ("remove", "-o", "out.docx", "--force"), ("update", "-o", "out.docx", "--force"))


class Asked(http.server.ThreadingHTTPServer):
    """A server that only counts who comes."""

    def __init__(self):
        self.requests = []

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(handler):
                self.requests.append(handler.path)
                handler.send_error(404)
            do_HEAD = do_OPTIONS = do_PROPFIND = do_GET

            def log_message(handler, *arguments):
                pass
        super().__init__(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def address(self, path):
        return f"http://127.0.0.1:{self.server_port}/{path}"


class Security(program.Case):
    def setUp(self):
        super().setUp()
        self.server = Asked()
        self.addCleanup(self.server.server_close)
        self.addCleanup(self.server.shutdown)
        # Whoever opens it waits for ever.
        self.trap = self.folder / "home/trap"
        os.mkfifo(self.trap)
        # Whatever the program would have the system open is written down.
        self.tools = self.folder / "home/tools"
        self.tools.mkdir()
        self.opened = self.folder / "home/opened"
        for name in ("xdg-open", "sh", "bash", "cmd.exe"):
            (self.tools / name).write_text(f'#!/usr/bin/env python3\nopen("{self.opened}", "a").write(" ".join(__import__("sys").argv) + "\\n")\n')
            (self.tools / name).chmod(0o755)

    def environment(self):
        own = super().environment()
        return own | {"PATH": f"{self.tools}:{own['PATH']}"} if hasattr(self, "tools") else own

    def run_all(self, name, commands=COMMANDS, status=0):
        known = {"out.docx", name, "home", "tmp"}
        for command, *options in commands:
            process = subprocess.run([program.KELVARIN, command, name, *options], cwd=self.folder, env=self.environment(),
                                     stdin=subprocess.DEVNULL, capture_output=True, timeout=60)
            self.assertEqual(process.returncode, status, (command, process.stderr))
            yield process.stdout.decode("utf-8", "replace")
            self.assertEqual({path.name for path in self.folder.iterdir()} - known, set())
            self.assertEqual(list(self.temporary.iterdir()), [])
        self.assertEqual(self.server.requests, [])
        self.assertFalse(self.opened.exists())

    def linked(self):
        """A document that would have its reader fetch and open all kinds of things."""
        relations = "".join(
            f'<Relationship Id="r{number}" Type="{OFFICE}{kind}" Target="{target}" TargetMode="External"/>'
            for number, (kind, target) in enumerate([
                ("hyperlink", self.server.address("link")), ("hyperlink", f"file://{self.trap}"),
                ("image", self.server.address("image.png")), ("image", f"file://{self.trap}"),
                ("attachedTemplate", self.server.address("template.dotm")), ("oleObject", f"file://{self.trap}"),
                ("subDocument", self.server.address("sub.docx")), ("frame", self.server.address("frame.html")),
                ("styles", self.server.address("styles.xml")), ("footnotes", f"file://{self.trap}")]))
        picture = ('<w:p><w:r><w:pict><v:shape xmlns:v="urn:schemas-microsoft-com:vml" style="width:10pt;height:10pt">'
                   f'<v:imagedata {R} r:id="r2" r:href="r2"/></v:shape></w:pict></w:r></w:p>')
        picture += ('<w:p><w:r><w:drawing><wp:inline xmlns:wp="http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing">'
                    '<wp:extent cx="900000" cy="900000"/><wp:docPr id="1" name="p"/>'
                    '<a:graphic xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main"><a:graphicData '
                    'uri="http://schemas.openxmlformats.org/drawingml/2006/picture"><pic:pic '
                    'xmlns:pic="http://schemas.openxmlformats.org/drawingml/2006/picture"><pic:nvPicPr><pic:cNvPr id="1" name="p"/>'
                    f'<pic:cNvPicPr/></pic:nvPicPr><pic:blipFill><a:blip r:link="r2"/><a:stretch><a:fillRect/></a:stretch>'
                    '</pic:blipFill><pic:spPr><a:xfrm><a:off x="0" y="0"/><a:ext cx="900000" cy="900000"/></a:xfrm>'
                    '<a:prstGeom prst="rect"/></pic:spPr></pic:pic></a:graphicData></a:graphic></wp:inline></w:drawing></w:r></w:p>')
        fields = "".join(f'<w:p><w:fldSimple w:instr="{code}"><w:r><w:t>x</w:t></w:r></w:fldSimple></w:p>' for code in (
            f"INCLUDETEXT &quot;{self.trap}&quot;", f"INCLUDEPICTURE &quot;{self.server.address('field.png')}&quot; \\d",
            f"DDEAUTO sh &quot;-c touch {self.folder}/run&quot;", "MACROBUTTON AutoOpen go", f"LINK Word.Document {self.trap}",
            f"HYPERLINK {self.server.address('field')}", f"DATABASE \\d {self.trap}"))
        document = GOOD.replace(W, f"{W} {R}").replace(
            "<w:body>", f'<w:body><w:p><w:hyperlink r:id="r0"><w:r><w:t>here</w:t></w:r></w:hyperlink></w:p>{picture}{fields}')
        relationships = f'<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">{relations}</Relationships>'
        settings = f'<w:settings {W} {R}><w:attachedTemplate r:id="r4"/></w:settings>'
        return package(document, {"word/_rels/document.xml.rels": relationships, "word/settings.xml": settings,
                                  "word/_rels/settings.xml.rels": relationships})

    def test_no_relationship_is_followed_and_no_field_is_run(self):
        (self.folder / "bad.docx").write_bytes(self.linked())
        for _ in self.run_all("bad.docx"):
            pass

    def test_no_other_program_that_lays_out_follows_them_either(self):
        if shutil.which("soffice") is None:
            self.skipTest("LibreOffice is not installed")
        (self.folder / "bad.docx").write_bytes(self.linked())
        result = subprocess.run([program.KELVARIN, "inspect", "bad.docx", "--pages", "libreoffice"], cwd=self.folder,
                                env=program.Case.environment(self), stdin=subprocess.DEVNULL, capture_output=True, timeout=120)
        self.assertIn(result.returncode, (0, 1), result.stderr)
        self.assertEqual(self.server.requests, [])
        self.assertFalse((self.folder / "run").exists())

    def test_no_external_entity_is_read(self):
        secret = self.folder / "home/secret"
        secret.write_text("secretwords")
        for where in (f"file://{secret}", self.server.address("entity"), str(self.trap)):
            for doctype in (f'<!DOCTYPE x [<!ENTITY e SYSTEM "{where}">]>', f'<!DOCTYPE x SYSTEM "{where}">',
                            f'<!DOCTYPE x [<!ENTITY % e SYSTEM "{where}"> %e;]>'):
                document = GOOD.replace("?>", "?>" + doctype, 1).replace("is the Buyer", "is &e;" if "ENTITY e" in doctype else "is")
                (self.folder / "bad.docx").write_bytes(package(document))
                for out in self.run_all("bad.docx", COMMANDS[1:2], status=3):
                    self.assertNotIn("secretwords", out)

    def test_no_macro_is_run_or_changed(self):
        macro = os.urandom(4000)
        types = TYPES.replace(
            "</Types>", '<Override PartName="/word/vbaProject.bin" ContentType="application/vnd.ms-office.vbaProject"/></Types>')
        (self.folder / "macro.docm").write_bytes(package(GOOD, {"[Content_Types].xml": types}))
        with zipfile.ZipFile(self.folder / "macro.docm", "a") as file:
            file.writestr("word/vbaProject.bin", macro)
        for _ in self.run_all("macro.docm"):
            pass
        self.assertEqual(program.parts(self.folder / "out.docx")["word/vbaProject.bin"], macro)

    def test_no_name_in_a_package_is_used_on_disk(self):
        outside = self.folder / "home/outside"
        for name in (f"{outside}", "../home/outside", "word/../../home/outside"):
            (self.folder / "bad.docx").write_bytes(package(GOOD, {name: "<x/>"}))
            for _ in self.run_all("bad.docx", COMMANDS[:2], status=3):
                pass
        self.assertFalse(outside.exists())
        # A part may have the name of a file here; it is none.
        (self.folder / "bad.docx").write_bytes(package(GOOD, {"home/trap": "<x/>"}))
        for _ in self.run_all("bad.docx"):
            pass

    def test_no_temporary_file_is_readable_by_others(self):
        """The program is held up in the middle of a run by a list of terms that does not come."""
        self.document("a.docx")
        self.document("b.docx")
        (self.folder / "report.jsonl").write_text("")
        (self.folder / "report.jsonl").chmod(0o600)
        before = {path for path in self.folder.rglob("*")}
        process = subprocess.Popen([program.KELVARIN, "index", "a.docx", "b.docx", "--out-dir", "out", "--load", str(self.trap),
                                    "--report", "report.jsonl"], cwd=self.folder, env=self.environment(),
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   preexec_fn=lambda: os.umask(0) and None)
        try:
            made = set()
            deadline = time.monotonic() + 30
            while len(made) < 4 and time.monotonic() < deadline:
                made = {path for path in self.folder.rglob("*")} - before
                time.sleep(0.01)
            kinds = {path.name.split("-")[0]: stat.S_IMODE(path.stat().st_mode) & 0o077 for path in made if path.name != "out"}
        finally:
            process.kill()
            process.wait()
        # The private folder, the report beside the one that only its owner reads, and the journal.
        self.assertEqual(kinds, {"kelvarin": 0, ".kvx": 0, ".kelvarin": 0})

    def test_settings_that_a_run_copies_are_its_own(self):
        file = pathlib.Path(self.temporary)
        self.document()
        process = subprocess.Popen([program.KELVARIN, "index", "contract.docx", "contract.docx", "./contract.docx", "--out-dir", "out",
                                    "--load", str(self.trap)], cwd=self.folder, env=self.environment(),
                                   stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL, preexec_fn=lambda: os.umask(0) and None)
        try:
            deadline = time.monotonic() + 30
            while not list(file.iterdir()) and time.monotonic() < deadline:
                time.sleep(0.01)
            self.assertEqual([stat.S_IMODE(path.stat().st_mode) for path in file.iterdir()], [0o700])
        finally:
            process.kill()
            process.wait()

    def test_a_journal_that_somebody_made_up_does_no_harm(self):
        precious = self.folder / "home/precious"
        precious.mkdir()
        self.document("a.docx")
        self.document("b.docx")
        command = ("index", "a.docx", "b.docx", "--out-dir", "out", "--journal", "j", "--force")
        self.check(*command)
        first = (self.folder / "j").read_text().splitlines()[0] + "\n"
        for line in ('{"folder":"%s"}' % precious, '{"folder":5}', '{"begun":[1]}', '{"done":{}}', '{"begun":"/x","process":"y"}', "[[[", '""',
                     '{"done":"%s/a.docx","report":7}' % self.folder, '{"folder":"%s"}' % self.folder):
            (self.folder / "j").write_text(first + line + "\n")
            self.check(*command)
        self.assertTrue(precious.exists())


if __name__ == "__main__":
    program.main()
