"""A home of its own for each test, and the real kalvenor-run in it."""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = sys.argv.pop(1)


class RunFixture(unittest.TestCase):
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
        self.settings("Kalvenor", "[Options]\nAccepted=Yes\n")
        self.file = self.root / "jobs.kvd"

    def settings(self, application, text):
        folder = self.root / "config" / application
        folder.mkdir(exist_ok=True)
        (folder / f"{application}.ini").write_text(text, encoding="utf-8")

    def activity(self, name, source=None, **fields):
        source = source or self.root / f"{name}-in"
        target = self.root / f"{name}-out"
        for folder in (self.root / f"{name}-in", target):
            folder.mkdir(exist_ok=True)
        (self.root / f"{name}-in" / "file.txt").write_text(f"content of {name}")
        record = {
            "sourcedir": source, "targetdir": target, "type": "0", "intervall": "10", "action": "0", "overwrite": "Y",
            "onlynew": "N", "alert": "N", "includesubdirs": "Y", "allfiles": "1", "activ": "1", **fields}
        return f"<{name}>" + "".join(f"<{key}>{value}</{key}>" for key, value in record.items()) + f"</{name}>"

    def write(self, *activities):
        text = '<?xml version="1.0" encoding="ISO-8859-1"?><items>' + "".join(activities) + "</items>\r\n"
        self.file.write_bytes(text.encode("latin-1", "xmlcharrefreplace"))

    def run_program(self, *words):
        return subprocess.run(
            [PROGRAM, *map(str, words)], env=self.environment, capture_output=True, text=True, timeout=60,
            stdin=subprocess.DEVNULL)

    def copied(self, name):
        return sorted(path.name for path in (self.root / f"{name}-out").iterdir())
