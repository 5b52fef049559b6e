"""Runs the real kalvenor-run on real folders and checks exit codes, files and output."""
import os
import shutil
import signal
import subprocess
import unittest

from RunFixture import PROGRAM, RunFixture


class KalvenorRun(RunFixture):
    def test_runs_active_activities(self):
        log = self.root / "A.log"
        self.write(self.activity("A", logfile=log), self.activity("B", activ="0"), self.activity("C", action="1"),
                   self.activity("A"))  # the name of the first one
        (self.root / "A-in" / "\x1b[2J\n").touch()
        before = self.file.read_bytes()
        result = self.run_program(self.file)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual([self.copied(name) for name in "ABC"], [["\x1b[2J\n", "file.txt"], [], ["file.txt"]])
        self.assertFalse((self.root / "C-in" / "file.txt").exists())
        self.assertTrue((self.root / "A-in" / "file.txt").exists())
        self.assertEqual(result.stdout.count("Activity 'A' - Checking starts"), 1)
        self.assertNotIn("Activity 'B' - ", result.stdout)
        # A name commands neither the terminal nor the log's reader, and adds no line.
        for text in (result.stdout, log.read_text(encoding="utf-8")):
            self.assertIn("\ufffd[2J ' [", text)
            self.assertNotIn("\x1b", text)
        self.assertEqual(self.file.read_bytes(), before)

    def test_missing_directory_fails_and_the_others_run_even_if_not_active(self):
        self.write(self.activity("A", source=self.root / "gone"), self.activity("B", activ="0"), self.activity("C"))
        before = self.file.read_bytes()
        self.assertEqual(self.run_program(self.file, "A", "B").returncode, 1)
        self.assertEqual([self.copied(name) for name in "ABC"], [[], ["file.txt"], []])
        self.assertEqual(self.file.read_bytes(), before)

    def test_unusable(self):
        self.write(self.activity("A"))
        damaged = self.root / "damaged.kvd"
        damaged.write_text("<items><A>")
        for words in ([], ["--fast", self.file], [self.root / "none.kvd"], [self.root], [damaged],
                      [self.file, "A", "unknown name"]):
            with self.subTest(words):
                result = self.run_program(*words)
                self.assertEqual(result.returncode, 2, result.stderr)
                self.assertNotEqual(result.stderr.strip(), "")
        self.assertEqual(self.copied("A"), [])
        self.assertEqual(damaged.read_text(), "<items><A>")
        self.assertEqual(list(self.root.glob("**/*.OLD")), [])

    def test_notice_not_accepted(self):
        shutil.rmtree(self.root / "config" / "Kalvenor")
        self.write(self.activity("A"))
        before = sorted(self.root.rglob("*"))
        result = self.run_program(self.file)
        self.assertEqual(result.returncode, 3)
        self.assertIn("Accepted=Yes", result.stderr)
        self.assertEqual(sorted(self.root.rglob("*")), before)

    def test_second_process_and_signal(self):
        source = self.root / "A-in"
        self.write(self.activity("A"))
        for number in range(400):
            (source / f"part{number:03}").write_bytes(os.urandom(1 << 18))
        first = subprocess.Popen([PROGRAM, str(self.file)], env=self.environment, stdout=subprocess.PIPE, text=True)
        self.addCleanup(first.kill)
        first.stdout.readline()  # it is at work now
        first.send_signal(signal.SIGSTOP)
        self.environment["XDG_RUNTIME_DIR"] = str(self.root / "home")  # as in another session
        link = self.root / "link.kvd"
        os.link(self.file, link)
        refused = [self.run_program(self.file), self.run_program(link)]
        state = self.root / "data" / "Kalvenor"
        state.rename(self.root / "moved")
        state.write_text("")
        unlockable = self.run_program(self.file)
        state.unlink()
        (self.root / "moved").rename(state)
        first.send_signal(signal.SIGTERM)
        first.send_signal(signal.SIGCONT)
        first.communicate(timeout=60)
        self.assertEqual([process.returncode for process in [*refused, unlockable]], [4, 4, 4])
        self.assertIn("Another process is using", refused[1].stderr)
        self.assertIn("No lock could be created", unlockable.stderr)
        self.assertEqual(first.returncode, 1)
        for path in (self.root / "A-out").iterdir():
            self.assertEqual(path.stat().st_size, (source / path.name).stat().st_size, path.name)
        self.assertLess(len(self.copied("A")), 400)
        self.assertEqual([p.name for p in (self.root / "A-out").iterdir() if p.name.startswith(".")], [])


if __name__ == "__main__":
    unittest.main()
