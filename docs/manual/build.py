#!/usr/bin/env python3
"""Builds the manual of the chapters in de/ and en/, with style and pictures inside: one web archive (RFC 2557) of both
languages, and beside it a page for each language, NAME.de.html and NAME.en.html, for browsers that show no archives.

Usage: build.py OUTPUT [--sources FOLDER] [--strings FOLDER]

A chapter is a well-formed fragment of HTML with one h2. Two elements are its own: <cap n="142"/> is the caption of a
control (without mnemonic and colon) and <msg n="258"/> the text of a message, both taken by number from the program's
string tables, so that the manual always says what the program shows. Every fault found is reported on standard error;
then nothing is written and the exit code is 1. The same sources give the same bytes; SOURCE_DATE_EPOCH sets the date.
"""

import argparse
import base64
import os
import re
import sys
import xml.etree.ElementTree as ElementTree
from dataclasses import dataclass, field
from email import charset, encoders, utils
from email.mime.base import MIMEBase
from email.mime.multipart import MIMEMultipart
from email.mime.text import MIMEText
from email.policy import compat32
from pathlib import Path
from urllib.parse import quote

LANGUAGES = {
    "de": {"name": "Deutsch", "title": "Kalvenor Pro – Anleitung", "contents": "Inhalt", "top": "Zum Inhalt",
           "other": "Read this chapter in English"},
    "en": {"name": "English", "title": "Kalvenor Pro – Manual", "contents": "Contents", "top": "To the contents",
           "other": "Dieses Kapitel auf Deutsch lesen"},
}
ELEMENTS = {"h2", "h3", "p", "ul", "ol", "li", "dl", "dt", "dd", "table", "thead", "tbody", "tr", "th", "td", "figure",
            "figcaption", "img", "pre", "code", "kbd", "em", "strong", "a", "br", "blockquote", "cap", "msg"}
ATTRIBUTES = {"id", "href", "src", "alt", "class", "n", "colspan", "rowspan"}
PICTURES = {".png": ("image", "png"), ".jpg": ("image", "jpeg"), ".svg": ("image", "svg+xml")}
BASE = "https://manual.invalid/"  # a name that never leads anywhere: the parts of the archive refer to each other by it
BOUNDARY = "----=_Kalvenor_Pro_Anleitung"
DEFAULT_DATE = 1767225600  # 2026-01-01: without SOURCE_DATE_EPOCH one date for every build


@dataclass
class Chapter:
    """One fragment; ids and links in it are without their language until the manual resolves them."""
    path: Path
    tree: ElementTree.Element
    ids: list = field(default_factory=list)

    def headings(self, tag):
        return list(self.tree.iter(tag))


class Manual:
    """Reads all sources at once and gathers every fault, so that an author sees them together."""

    def __init__(self, sources, strings):
        self.sources = sources
        self.strings = strings
        self.faults = []
        self.pictures = {}
        self.chapters = {language: self._read(language) for language in LANGUAGES}
        self._compare()
        for language in LANGUAGES:
            self._resolve(language)

    def _fault(self, path, text):
        self.faults.append(f"{path}: {text}")

    def _read(self, language):
        chapters = []
        for path in sorted((self.sources / language).glob("*.html")):
            try:
                tree = ElementTree.fromstring(f"<section>{path.read_text(encoding='utf-8')}</section>")
            except (ElementTree.ParseError, UnicodeDecodeError) as error:
                self._fault(path, f"not well-formed: {error}")
                continue
            chapter = Chapter(path, tree)
            self._check_markup(chapter)
            chapters.append(chapter)
        if not chapters:
            self._fault(self.sources / language, "no chapters")
        return chapters

    def _check_markup(self, chapter):
        for element in chapter.tree.iter():
            if element is chapter.tree:
                continue
            if element.tag not in ELEMENTS:
                self._fault(chapter.path, f"element <{element.tag}> is not allowed")
            for name in sorted(set(element.keys()) - ATTRIBUTES):
                self._fault(chapter.path, f"attribute {name} of <{element.tag}> is not allowed")
        titles = chapter.headings("h2")
        if len(titles) != 1 or chapter.tree[0] is not titles[0] or not titles[0].get("id"):
            self._fault(chapter.path, "a chapter opens with its only h2, which has an id")
            return
        for number, heading in enumerate(chapter.headings("h3"), 1):
            heading.set("id", heading.get("id", f"{titles[0].get('id')}-{number}"))
        chapter.ids = [element.get("id") for element in chapter.tree.iter() if element.get("id")]

    def _compare(self):
        first, second = (
            {chapter.path.name: chapter for chapter in self.chapters[language]} for language in LANGUAGES)
        for name in sorted(first.keys() ^ second.keys()):
            self._fault(self.sources, f"{name} stands in one language only")
        for name in sorted(first.keys() & second.keys()):
            if first[name].ids != second[name].ids:
                self._fault(first[name].path, f"headings and ids differ from those of {second[name].path}: "
                                              f"{first[name].ids} and {second[name].ids}")

    def _texts(self, language):
        table = ElementTree.parse(self.strings / f"strings_{language}.ts")
        return {message.get("id"): message.findtext("translation") or "" for message in table.iter("message")}

    def _resolve(self, language):
        texts = self._texts(language)
        known = [name for chapter in self.chapters[language] for name in chapter.ids]
        for name in sorted({name for name in known if known.count(name) > 1}):
            self._fault(self.sources / language, f"id {name} is used twice")
        for chapter in self.chapters[language]:
            for element in chapter.tree.iter():
                if element.tag in ("cap", "msg"):
                    self._fill(chapter, element, texts)
                elif element.tag == "img":
                    self._embed(chapter, element)
                elif element.tag == "a":
                    target = element.get("href", "")
                    if not target.startswith("#") or target[1:] not in known:
                        self._fault(chapter.path, f"link {target!r} leads nowhere")
                    element.set("href", f"#{language}-{target[1:]}")
                if element.get("id"):
                    element.set("id", f"{language}-{element.get('id')}")

    def _fill(self, chapter, element, texts):
        text = texts.get(element.get("n", ""))
        if not text:
            self._fault(chapter.path, f"no text {element.get('n')} in the string table")
            return
        if element.tag == "cap":
            text = re.sub("&(.)", r"\1", text).strip().removesuffix(":")
            element.set("class", "caption")
        element.tag = "span"
        element.text = text
        element.attrib.pop("n")

    def _embed(self, chapter, element):
        """Pictures are named relative to the folder of the manual and lie in the documents' folder."""
        name = element.get("src", "")
        root = self.sources.parent.resolve()
        path = (self.sources / name).resolve()
        if not element.get("alt"):
            self._fault(chapter.path, f"picture {name} has no alternative text")
        if path.suffix not in PICTURES or root not in path.parents or not path.is_file():
            self._fault(chapter.path, f"picture {name} is missing")
            return
        location = BASE + path.relative_to(root).as_posix()
        self.pictures[location] = path
        element.set("src", location)

    def html(self):
        parts = [self._language(language) for language in LANGUAGES]
        return self._page("de", "Kalvenor Pro: Anleitung, Manual", "".join(parts))

    def page(self, language, files):
        """One language alone: `files` are the names of all pages, for the links from one to the other."""
        html = self._page(language, LANGUAGES[language]["title"], self._language(language))
        for other, name in files.items():
            if other != language:
                html = re.sub(f'href="#({other}["-])', lambda match, name=name: f'href="{quote(name)}#{match[1]}', html)
        for location, path in self.pictures.items():
            data = base64.b64encode(path.read_bytes()).decode("ascii")
            html = html.replace(f'"{location}"', f'"data:{"/".join(PICTURES[path.suffix])};base64,{data}"')
        return html

    def _page(self, language, title, body):
        style = (self.sources / "style.css").read_text(encoding="utf-8")
        return (f"<!DOCTYPE html>\n<html lang=\"{language}\">\n<head>\n<meta charset=\"utf-8\">\n"
                "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
                f"<title>{title}</title>\n"
                f"<style>\n{style}</style>\n</head>\n<body>\n" + switch() + body + "</body>\n</html>\n")

    def _language(self, language):
        words = LANGUAGES[language]
        other = next(name for name in LANGUAGES if name != language)
        contents, bodies = [], []
        for number, chapter in enumerate(self.chapters[language], 1):
            title = chapter.headings("h2")[0]
            name = title.get("id").removeprefix(f"{language}-")
            inner = "".join(f"<li>{link(heading)}</li>\n" for heading in chapter.headings("h3"))
            contents.append(f"<li>{link(title)}{f'<ul>{inner}</ul>' if inner else ''}</li>\n")
            title.text = f"{number} {title.text or ''}"
            body = ElementTree.tostring(chapter.tree, encoding="unicode", method="html")
            bodies.append(body + f"<p class=\"foot\"><a href=\"#{language}\">{words['top']}</a> · "
                                 f"<a href=\"#{other}-{name}\" lang=\"{other}\">{words['other']}</a></p>\n")
        return (f"<main id=\"{language}\" lang=\"{language}\">\n<h1>{words['title']}</h1>\n"
                f"<nav class=\"contents\">\n<p>{words['contents']}</p>\n<ol>\n{''.join(contents)}</ol>\n</nav>\n"
                f"{''.join(bodies)}</main>\n")

    def archive(self):
        archive = MIMEMultipart("related", BOUNDARY, type="text/html")
        archive["From"] = "Kalvenor Pro"
        archive["Subject"] = "Kalvenor Pro Anleitung"
        archive["Date"] = utils.formatdate(int(os.environ.get("SOURCE_DATE_EPOCH") or DEFAULT_DATE))
        utf8 = charset.Charset("utf-8")
        utf8.body_encoding = charset.QP
        page = MIMEText(self.html(), "html", utf8)
        page["Content-Location"] = BASE + "manual.html"
        archive.attach(page)
        for location, path in sorted(self.pictures.items()):
            picture = MIMEBase(*PICTURES[path.suffix])
            picture.set_payload(path.read_bytes())
            encoders.encode_base64(picture)
            picture["Content-Location"] = location
            archive.attach(picture)
        return archive.as_bytes(policy=compat32.clone(linesep="\r\n"))


def link(heading):
    return f"<a href=\"#{heading.get('id')}\">{escape(''.join(heading.itertext()))}</a>"


def escape(text):
    return text.replace("&", "&amp;").replace("<", "&lt;")


def switch():
    links = (f"<a href=\"#{name}\" lang=\"{name}\">{words['name']}</a>" for name, words in LANGUAGES.items())
    return f"<nav class=\"languages\">{' · '.join(links)}</nav>\n"


def write(path, content):
    unfinished = path.with_name(path.name + ".new")
    unfinished.write_bytes(content)
    unfinished.replace(path)


def main():
    folder = Path(__file__).resolve().parent
    parser = argparse.ArgumentParser(description="Builds the manual: a web archive, and a page for each language.")
    parser.add_argument("output", type=Path)
    parser.add_argument("--sources", type=Path, default=folder)
    parser.add_argument("--strings", type=Path, default=folder.parent.parent / "src" / "resources")
    arguments = parser.parse_args()
    manual = Manual(arguments.sources, arguments.strings)
    if manual.faults:
        print("\n".join(manual.faults), file=sys.stderr)
        return 1
    write(arguments.output, manual.archive())
    files = {language: f"{arguments.output.stem}.{language}.html" for language in LANGUAGES}
    for language, name in files.items():
        write(arguments.output.with_name(name), manual.page(language, files).encode())
    return 0


if __name__ == "__main__":
    sys.exit(main())
