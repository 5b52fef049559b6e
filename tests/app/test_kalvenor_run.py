"""Runs the real kalvenor-run on real folders and checks exit codes, files and output."""
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = sys.argv.pop(1)


class KalvenorRun(unittest.TestCase):
    def setUp(self):
        self.root = Path(tempfile.mkdtemp(prefix="kalvenor-run-"))
        self.addCleanup(shutil.rmtree, self.root, True)
        for name in ("config", "data", "run", "home"):
            (self.root / name).mkdir(mode=0o700)
        self.environment = {
            **os.environ,
            "HOME": str(self.root / "home"),
            "XDG_CONFIG_HOME": str(self.root / "config"),
            "XDG_DATA_HOME": str(self.root / "data"),
            "XDG_STATE_HOME": str(self.root / "data"),
            "XDG_RUNTIME_DIR": str(self.root / "run"),
            "LANG": "C.UTF-8",
            "LANGUAGE": "en",
        }
        self.accept()
        self.file = self.root / "jobs.kvd"

    def accept(self):
        folder = self.root / "config" / "Kalvenor"
        folder.mkdir()
        (folder / "Kalvenor.ini").write_text("[Options]\nAccepted=Yes\n")

    def activity(self, name, activ="1", action="0", source=None):
        source = source or self.root / f"{name}-in"
        target = self.root / f"{name}-out"
        for folder in (self.root / f"{name}-in", target):
            folder.mkdir(exist_ok=True)
        (self.root / f"{name}-in" / "file.txt").write_text(f"content of {name}")
        return (
            f"<{name}><sourcedir>{source}</sourcedir><targetdir>{target}</targetdir><type>0</type>"
            f"<intervall>10</intervall><action>{action}</action><overwrite>Y</overwrite><onlynew>N</onlynew>"
            f"<alert>N</alert><includesubdirs>Y</includesubdirs><allfiles>1</allfiles><activ>{activ}</activ></{name}>"
        )

    def write(self, *activities):
        text = '<?xml version="1.0" encoding="ISO-8859-1"?><items>' + "".join(activities) + "</items>\r\n"
        self.file.write_text(text, encoding="latin-1")

    def run_program(self, *words):
        return subprocess.run(
            [PROGRAM, *map(str, words)], env=self.environment, capture_output=True, text=True, timeout=60,
            stdin=subprocess.DEVNULL)

    def copied(self, name):
        return sorted(path.name for path in (self.root / f"{name}-out").iterdir())

    def test_runs_active_activities(self):
        self.write(self.activity("A"), self.activity("B", activ="0"), self.activity("C", action="1"))
        before = self.file.read_bytes()
        result = self.run_program(self.file)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(self.copied("A"), ["file.txt"])
        self.assertEqual(self.copied("B"), [])
        self.assertEqual(self.copied("C"), ["file.txt"])
        self.assertFalse((self.root / "C-in" / "file.txt").exists())
        self.assertTrue((self.root / "A-in" / "file.txt").exists())
        self.assertIn("Activity 'A' - ", result.stdout)
        self.assertNotIn("Activity 'B' - ", result.stdout)
        self.assertEqual(self.file.read_bytes(), before)

    def test_runs_named_activities_even_if_not_active(self):
        self.write(self.activity("A"), self.activity("B", activ="0"))
        result = self.run_program(self.file, "B")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual((self.copied("A"), self.copied("B")), ([], ["file.txt"]))

    def test_missing_directory_fails_and_the_others_run(self):
        self.write(self.activity("A", source=self.root / "gone"), self.activity("B"))
        before = self.file.read_bytes()
        self.assertEqual(self.run_program(self.file).returncode, 1)
        self.assertEqual((self.copied("A"), self.copied("B")), ([], ["file.txt"]))
        self.assertEqual(self.file.read_bytes(), before)

    def test_unusable(self):
        self.write(self.activity("A"))
        damaged = self.root / "damaged.kvd"
        damaged.write_text("<items><A>")
        cases = {
            "no file named": [],
            "unknown option": ["--fast", self.file],
            "no such file": [self.root / "none.kvd"],
            "a folder": [self.root],
            "a damaged file": [damaged],
            "an unknown name": [self.file, "A", "Z"],
        }
        for case, words in cases.items():
            with self.subTest(case):
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

    def test_help_and_version(self):
        for word in ("--help", "--version"):
            result = self.run_program(word)
            self.assertEqual(result.returncode, 0)
            self.assertIn("kalvenor-run", result.stdout)

    def test_second_process_and_signal(self):
        source = self.root / "A-in"
        self.write(self.activity("A"))
        for number in range(400):
            (source / f"part{number:03}").write_bytes(os.urandom(1 << 18))
        first = subprocess.Popen([PROGRAM, str(self.file)], env=self.environment, stdout=subprocess.PIPE, text=True)
        self.addCleanup(first.kill)
        first.stdout.readline()  # it is at work now
        first.send_signal(signal.SIGSTOP)
        second = self.run_program(self.file)
        first.send_signal(signal.SIGTERM)
        first.send_signal(signal.SIGCONT)
        first.communicate(timeout=60)
        self.assertEqual(second.returncode, 4)
        self.assertEqual(first.returncode, 1)
        for path in (self.root / "A-out").iterdir():
            self.assertEqual(path.stat().st_size, (source / path.name).stat().st_size, path.name)
        self.assertLess(len(self.copied("A")), 400)
        self.assertEqual([p.name for p in (self.root / "A-out").iterdir() if p.name.startswith(".")], [])


if __name__ == "__main__":
    unittest.main()
