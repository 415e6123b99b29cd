"""What the tests of whole runs share: a folder of their own, the program, and small documents made on the spot."""

import concurrent.futures
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile
from xml.etree import ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
SAMPLES = ROOT / "samples"
sys.path.insert(0, str(SAMPLES))
import docx_writer  # noqa: E402

KELVARIN = os.environ.get("KELVARIN", str(ROOT / "build/release/apps/kelvarin/kelvarin"))
TWO_TERMS = """
P “**Buyer**” means Acorn Limited and “**Seller**” means Bramble Limited.
P The Buyer pays the Seller. The Buyer’s money is good. BUYER BEWARE.
P Last words.
"""


def make_document(path, lines=TWO_TERMS):
    document = docx_writer.Document("Test")
    document.add(lines)
    document.save(path)
    return path


def parts(path):
    with zipfile.ZipFile(path) as package:
        return {name: package.read(name) for name in package.namelist()}


def canonical(path):
    """The parts, XML in the one spelling that the canonical form allows."""
    def spell(name, content):
        return ElementTree.canonicalize(content, with_comments=True) if name.endswith((".xml", ".rels")) else content
    return {name: spell(name, content) for name, content in parts(path).items()}


class Result:
    def __init__(self, status, out, err, peak):
        self.status = status
        self.out = out.decode("utf-8", "replace")
        self.err = err.decode("utf-8", "replace")
        self.peak = peak  # resident bytes at most


# Those of a new user, but for the prompts of a first run.
SETTINGS = b"""[Defaults]\r
SearchType=SearchFlagged\r
Bold=False\r
Highlight=True\r
IgnoreWordsWithNums=True\r
CaseSensitive=True\r
IndexAllCaps=True\r
OpenQuote=147\r
CloseQuote=148\r
IndexCols=2\r
IndexSep=":  {TAB}"\r
IncludeNotUsed=True\r
IncludeNotFound=True\r
ShowFormatReminder=False\r
ShowSearchChooser=False\r
ShowHelp=False\r
IndexWhat=IndexAll\r
"""


class Case(unittest.TestCase):
    # A new user has no settings yet, and is shown the prompts of a first run.
    new_user = False

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="kelvarin-test-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.home = self.folder / "home"
        self.temporary = self.folder / "tmp"
        self.home.mkdir()
        self.temporary.mkdir()
        if not self.new_user:
            self.user_file().parent.mkdir(parents=True)
            self.user_file().write_bytes(SETTINGS)

    def user_file(self):
        return self.home / ".config/Brantholt/Kelvarin/kvx.ini"

    def environment(self):
        own = {"HOME": str(self.home), "TMPDIR": str(self.temporary), "LC_ALL": "C.UTF-8"}
        return own | {name: os.environ[name] for name in ("PATH", "LSAN_OPTIONS") if name in os.environ}

    def kelvarin(self, *arguments, prepare=None, cwd=None, environment=None):
        process = subprocess.Popen([KELVARIN, *map(str, arguments)], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, env=environment or self.environment(), cwd=cwd or self.folder,
                                   preexec_fn=prepare)
        with process, concurrent.futures.ThreadPoolExecutor() as readers:
            texts = [readers.submit(pipe.read) for pipe in (process.stdout, process.stderr)]
            out, err = (text.result() for text in texts)
            _, ended, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(ended)
        result = Result(process.returncode, out, err, usage.ru_maxrss * 1024)
        # A sanitizer's report is never what a test expects.
        self.assertNotIn("Sanitizer", result.err)
        return result

    def check(self, *arguments, status=0):
        """Runs the program, which must end with the status."""
        result = self.kelvarin(*arguments)
        self.assertEqual(result.status, status, f"{arguments}\n{result.out}\n{result.err}")
        return result

    def document(self, name="contract.docx", lines=TWO_TERMS):
        return make_document(self.folder / name, lines)

    def small_disk(self, size):
        """A file system of so many bytes; the test is skipped where none can be mounted."""
        mount = self.folder / "small"
        mount.mkdir()
        mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={size}", "tmpfs", mount], capture_output=True)
        if mounted.returncode != 0:
            self.skipTest("no file system can be mounted here")
        self.addCleanup(subprocess.run, ["umount", mount])
        return mount

    def report(self, *arguments, status=0):
        """The one report of a run."""
        file = self.folder / "report.json"
        self.check(*arguments, "--report", file, status=status)
        return json.loads(file.read_text(encoding="utf-8"))

    def inspect(self, path, *arguments):
        return json.loads(self.check("inspect", path, *arguments).out)

    def events(self, path):
        return [json.loads(line) for line in path.read_text(encoding="utf-8").splitlines()]

    def without_menu(self, events):
        """What lies between connecting and disconnecting, which add the command menu and delete it."""
        return [event for event in events
                if event["event"] != "menu" and not event.get("member", "").startswith("CustomizationContext.")]


main = unittest.main
