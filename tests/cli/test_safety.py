import fcntl
import os
import random
import resource
import signal
import subprocess
import time

import program


class Safety(program.Case):
    def setUp(self):
        super().setUp()
        self.sample = program.SAMPLES / "share_purchase_agreement.docx"
        self.out = self.folder / "out.docx"
        self.check("index", self.sample, "-o", "whole.docx")
        self.whole = (self.folder / "whole.docx").read_bytes()

    def leftovers(self):
        known = {"home", "tmp", "whole.docx", "out.docx"}
        return [path.name for path in self.folder.iterdir() if path.name not in known]

    def seconds(self):
        start = time.monotonic()
        self.check("index", self.sample, "-o", self.out, "--force")
        return time.monotonic() - start

    def test_killed_at_any_moment_the_target_is_the_old_file_or_the_whole_new_one(self):
        # The quickest of some: later runs are killed before they would be over by it.
        duration = min(self.seconds() for _ in range(3))
        pick = random.Random(4)
        killed = 0
        for _ in range(40):
            self.out.write_bytes(b"the old file")
            process = subprocess.Popen([program.KELVARIN, "index", self.sample, "-o", self.out, "--force"],
                                       env=self.environment(), stderr=subprocess.DEVNULL)
            # Most of the moments near the end, where the writing is.
            time.sleep(duration * (1 - pick.random() ** 2 * 0.5))
            process.send_signal(signal.SIGKILL)
            killed += process.wait() == -signal.SIGKILL
            self.assertIn(self.out.read_bytes(), (b"the old file", self.whole))
        self.assertGreater(killed, 0)

    def test_what_a_killed_run_left_in_the_temporary_folder_is_taken_away_by_the_next(self):
        deadline = time.monotonic() + 30
        while not (left := list(self.temporary.iterdir())) and time.monotonic() < deadline:
            process = subprocess.Popen([program.KELVARIN, "index", self.sample, "-o", self.out, "--force"],
                                       env=self.environment(), stderr=subprocess.DEVNULL)
            while process.poll() is None and not any(self.temporary.iterdir()):
                time.sleep(0.001)
            process.kill()
            process.wait()
        used, old = self.temporary / "kelvarin-USED12", time.time() - 100
        used.mkdir()
        others = [self.temporary / "kelvarin-somebody", self.temporary / "kelvarin-LINK12"]
        others[0].mkdir()
        others[1].symlink_to(self.home)
        self.assertEqual(len(left), 1)
        self.check("terms", self.sample)
        self.assertTrue(left[0].exists(), "it is young")
        for folder in (left[0], used, others[0]):
            os.utime(folder, (old, old))
        handle = os.open(used, os.O_RDONLY)
        self.addCleanup(os.close, handle)
        fcntl.flock(handle, fcntl.LOCK_EX)
        self.check("terms", self.sample)
        self.assertEqual(sorted(self.temporary.iterdir()), sorted([used, *others]))
        self.assertTrue(self.home.is_dir())

    def meanwhile(self, change, *arguments):
        """Stops the program in the middle of its work, makes a change and lets it go on. Its messages."""
        process = subprocess.Popen([program.KELVARIN, "index", "contract.docx", *arguments], cwd=self.folder,
                                   env=self.environment(), stderr=subprocess.PIPE, text=True)
        deadline = time.monotonic() + 30
        while not any(self.temporary.iterdir()) and time.monotonic() < deadline:
            pass
        process.send_signal(signal.SIGSTOP)
        change()
        process.send_signal(signal.SIGCONT)
        err = process.communicate(timeout=60)[1]
        self.assertEqual(process.returncode, 3, err)
        return err

    def test_what_somebody_saves_while_the_document_is_worked_on_is_not_replaced(self):
        file = self.folder / "contract.docx"
        file.write_bytes(self.sample.read_bytes())
        saved = self.document("saved.docx").read_bytes()
        err = self.meanwhile(lambda: file.write_bytes(saved), "--in-place")
        self.assertEqual(err, "kelvarin: contract.docx: contract.docx was changed while the document was worked on, and "
                              "stays as it is\n")
        self.assertEqual(file.read_bytes(), saved)
        file.write_bytes(self.sample.read_bytes())
        err = self.meanwhile(lambda: self.out.write_bytes(saved), "-o", "out.docx")
        self.assertIn("out.docx was made by somebody else", err)
        self.assertEqual(self.out.read_bytes(), saved)
        self.assertEqual(list(self.folder.glob(".kvx-*")), [])

    def test_a_full_disk_leaves_the_old_file(self):
        self.out.write_bytes(b"the old file")
        for limit in (0, 100, len(self.whole) // 2, len(self.whole) - 1):
            def small(limit=limit):
                # As on a full disk, a write beyond the limit fails.
                signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
                resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit))
            result = self.kelvarin("index", self.sample, "-o", self.out, "--force", "--settings", "/dev/null", prepare=small)
            self.assertIn(result.status, (1, 3), f"{limit}: {result.err}")
            self.assertTrue(result.err)
            self.assertEqual(self.out.read_bytes(), b"the old file")
        self.assertEqual(self.leftovers(), [])

    def test_a_full_disk_below_the_target_leaves_the_old_file(self):
        mount = self.small_disk("24k")
        target = mount / "out.docx"
        target.write_bytes(b"the old file")
        result = self.check("index", self.sample, "-o", target, "--force", status=3)
        self.assertIn("No space left", result.err)
        self.assertEqual(target.read_bytes(), b"the old file")
        self.assertEqual([path.name for path in mount.iterdir()], ["out.docx"])

    def test_a_folder_without_write_permission_is_status_3(self):
        if os.geteuid() == 0:
            self.skipTest("the superuser may write everywhere")
        closed = self.folder / "closed"
        closed.mkdir(0o500)
        self.check("index", self.sample, "-o", closed / "out.docx", status=3)


if __name__ == "__main__":
    program.main()
