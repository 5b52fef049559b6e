"""Random trees on a disk, and what stands in a tree. Names are bytes: some of them are no text in any encoding."""
import os
import stat
from hashlib import blake2b
from pathlib import Path
from typing import NamedTuple

PRESENT = 1_700_000_000  # the times of made-up files lie some days around it
DAY = 86_400 * 10**9
OWN_NAMES = b".kalvenor-"  # how the program's own temporary names begin
NAMES = [b"a", b"report", b".hidden", "Übung größe".encode(), b"no\xfftext\xe4", b"two  words ", b"[x]'&<>",
         b"long" * 40]
ENDINGS = [b"", b".txt", b".TXT", b".doc", b".txt~"]


class Entry(NamedTuple):
    kind: str  # file, folder, link or other; a link to a file counts as the file
    digest: bytes = b""
    time: int = 0
    link: bytes = b""


def digest_of(content):
    return blake2b(content, digest_size=16).digest()


NOTHING = digest_of(b"")  # an empty file holds nothing that could be lost


def entry_at(path):
    """None for what is not there."""
    try:
        mode = os.lstat(path).st_mode
        link = os.readlink(path) if stat.S_ISLNK(mode) else b""
        if os.path.isfile(path):
            with open(path, "rb") as file:
                return Entry("file", digest_of(file.read()), os.stat(path).st_mtime_ns, link)
        return Entry("link" if link else "folder" if stat.S_ISDIR(mode) else "other", link=link)
    except FileNotFoundError:
        return None


def tree_of(root):
    """Every entry below the folder, by its path from there."""
    found = {}
    for folder, folders, files in os.walk(os.fsencode(root)):
        for name in folders + files:
            path = os.path.join(folder, name)
            if entry := entry_at(path):
                found[os.path.relpath(path, os.fsencode(root))] = entry
    return found


class Planter:
    """Fills a source and a destination. `budget` bytes at most."""

    def __init__(self, random, source, destination, budget=20_000_000, with_links=True):
        self.random, self.budget, self.with_links = random, budget, with_links
        self.source, self.destination = os.fsencode(source), os.fsencode(destination)
        self.count = 0

    def content(self):
        """Never twice the same, sometimes nothing."""
        size = self.random.choice([0, 30, 30, 30, 500, 500, 4_096, 5_000, 70_000, 300_000])
        if self.random.random() < 0.04:
            size = self.random.randrange(6_000_000)
        size = min(size, self.budget // 2)
        self.budget -= size
        self.count += 1
        return b"%d %s" % (self.count, self.random.randbytes(size)) if size else b""

    def name(self):
        self.count += 1
        return b"%s%d%s" % (self.random.choice(NAMES), self.count, self.random.choice(ENDINGS))

    def write(self, path, content, days):
        os.makedirs(os.path.dirname(path), exist_ok=True)
        Path(os.fsdecode(path)).write_bytes(content)
        time = PRESENT * 10**9 + days * DAY + self.random.randrange(10**9)
        os.utime(path, ns=(time, time))
        return time

    def file(self, folder):
        where = self.random.choice(["new", "new", "both", "both", "surplus"])
        path, content = os.path.join(folder, self.name()), self.content()
        destination = os.path.join(self.destination, path)
        if where == "surplus":
            self.write(destination, content, 1)
            return
        time = self.write(os.path.join(self.source, path), content, 0)
        os.chmod(os.path.join(self.source, path), self.random.choice([0o644, 0o600, 0o755, 0o444]))
        self.sources.append(path)
        if where == "both":
            self.write(destination, self.random.choice([content, self.content()]), self.random.choice([-1, 1]))
            if self.random.random() < 0.3:
                os.utime(destination, ns=(time, time))

    def link(self, folder):
        """A soft link to a file, to a folder or to nothing, a second hard link, or a pipe."""
        path = os.path.join(self.source, folder, self.name())
        kind = self.random.choice(["soft", "hard", "folder", "nothing", "pipe"])
        if kind == "pipe":
            os.mkfifo(path)
        elif kind in ("folder", "nothing"):
            os.symlink(b"." if kind == "folder" else b"no such file", path)
        else:
            target = os.path.join(self.source, self.random.choice(self.sources))
            if kind == "hard":
                os.link(target, path)
            else:
                os.symlink(os.path.relpath(target, os.path.dirname(path)), path)

    def plant(self, files):
        self.sources = []
        folders = [b""]
        for _ in range(self.random.randrange(6)):
            folders.append(os.path.join(self.random.choice(folders), self.name()))
            for root in self.random.choice([[self.source], [self.source, self.destination], [self.destination]]):
                os.makedirs(os.path.join(root, folders[-1]), exist_ok=True)
        for _ in range(files):
            self.file(self.random.choice(folders))
        for _ in range(self.random.randrange(4) if self.with_links and self.sources else 0):
            self.link(os.path.dirname(self.random.choice(self.sources)))
