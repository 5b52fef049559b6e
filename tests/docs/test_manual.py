"""The manual as a reader's program gets it, and the faults at which its builder must stop."""

import email
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from html.parser import HTMLParser
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

# File, the text to replace in it (None deletes the file), its replacement, and what the complaint must name.
FAULTS = {
    "broken link": ("en/06-schedules.html", 'href="#command-line-run"', 'href="#nowhere"', "#nowhere"),
    "missing picture": ("de/03-first-activity.html", "de-monitoring.png", "lost.png", "lost.png"),
    "picture outside": ("de/03-first-activity.html", "../images/", "../../../", "de-monitoring.png"),
    "not well-formed": ("de/07-actions.html", "</table>", "", "07-actions.html"),
    "script": ("en/01-about.html", "<p>", "<script>1</script><p>", "script"),
    "outward link": ("en/02-first-start.html", 'href="#licence"', 'href="http://host.invalid/"', "host.invalid"),
    "chapter in one language": ("en/20-glossary.html", None, None, "20-glossary.html"),
    "heading in one language": ("de/10-logs.html", "<h3 id=\"logs-view\">", "<h3>A</h3><h3 id=\"logs-view\">", "logs-3"),
    "id twice": ("de/10-logs.html", 'id="logs-view"', 'id="files-missing"', "files-missing"),
    "unknown text": ("en/12-options.html", 'n="405"', 'n="104"', "104"),
}


def build(output, *arguments, sources=ROOT / "docs" / "manual", epoch="0"):
    return subprocess.run(
        [sys.executable, "-B", ROOT / "docs" / "manual" / "build.py", output, "--sources", sources, *arguments],
        env=os.environ | {"SOURCE_DATE_EPOCH": epoch}, capture_output=True, text=True, check=False)


class Page(HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.ids, self.links, self.pictures, self.sections = [], [], [], []
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        self.ids += [values["id"]] if "id" in values else []
        self.links += [values["href"]] if "href" in values else []
        self.pictures += [values["src"]] if "src" in values else []
        self.sections += [values["lang"]] if tag == "main" else []


class ManualTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.output = self.folder / "Manual of mine.mht"

    def test_archive(self):
        result = build(self.output)
        self.assertEqual((0, ""), (result.returncode, result.stderr))
        raw = self.output.read_bytes()
        build(self.output)
        self.assertEqual(raw, self.output.read_bytes())  # the same sources give the same bytes
        self.assertEqual(raw.count(b"\n"), raw.count(b"\r\n"))
        archive = email.message_from_bytes(raw)
        self.assertEqual("multipart/related", archive.get_content_type())
        self.assertEqual("Thu, 01 Jan 1970 00:00:00 -0000", archive["Date"])
        first, *others = archive.get_payload()
        self.assertEqual("text/html", first.get_content_type())
        self.assertEqual([], archive.defects + [part.get_content_type() for part in others
                                                if part.get_content_maintype() != "image"])

        page = Page(first.get_payload(decode=True).decode("utf-8"))
        self.assertEqual(["de", "en"], page.sections)
        self.assertEqual([], [link for link in page.links if link.removeprefix("#") not in page.ids])
        parts = {part["Content-Location"]: part.get_payload(decode=True) for part in others}
        self.assertEqual(len(others), len(parts))
        self.assertEqual(set(page.pictures), set(parts))
        self.assertIn((ROOT / "docs" / "images" / "de-monitoring.png").read_bytes(), parts.values())

        pages = {}
        for language in ("de", "en"):
            pages[language] = Page((self.folder / f"Manual of mine.{language}.html").read_text(encoding="utf-8"))
            self.assertEqual([language], pages[language].sections)
            self.assertEqual([], [name for name in pages[language].pictures if not name.startswith("data:image/")])
        for language, other in (("de", "en"), ("en", "de")):
            ids = [f"#{name}" for name in pages[language].ids]
            ids += [f"Manual%20of%20mine.{other}.html#{name}" for name in pages[other].ids]
            self.assertEqual([], [link for link in pages[language].links if link not in ids])

    def test_captions_are_those_of_the_program(self):
        strings = self.folder / "strings"
        shutil.copytree(ROOT / "src" / "resources", strings)
        table = strings / "strings_de.ts"
        text = table.read_text(encoding="utf-8")
        table.write_text(text.replace(">Überwachung starten<", ">Los &amp;geht es:<"), encoding="utf-8")
        self.assertEqual(0, build(self.output, "--strings", strings).returncode)
        page = email.message_from_bytes(self.output.read_bytes()).get_payload()[0]
        html = page.get_payload(decode=True).decode("utf-8")
        self.assertIn('<span class="caption">Los geht es</span>', html)
        self.assertNotIn('<span class="caption">Überwachung starten</span>', html)

    def test_faults(self):
        for title, (name, old, new, complaint) in FAULTS.items():
            with self.subTest(title):
                docs = self.folder / title
                shutil.copytree(ROOT / "docs", docs)
                file = docs / "manual" / name
                if old is None:
                    file.unlink()
                else:
                    text = file.read_text(encoding="utf-8")
                    self.assertIn(old, text)
                    file.write_text(text.replace(old, new, 1), encoding="utf-8")
                result = build(self.output, sources=docs / "manual")
                self.assertEqual(1, result.returncode)
                self.assertIn(complaint, result.stderr)
                self.assertNotIn("Traceback", result.stderr)
                self.assertFalse(self.output.exists())


if __name__ == "__main__":
    unittest.main()
