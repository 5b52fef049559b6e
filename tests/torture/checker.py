"""What a user may expect of a run, from the two trees before and after it. Knows nothing of how the program works."""
import os
from typing import NamedTuple

from trees import NOTHING, OWN_NAMES

COPY, MOVE, MIRROR = "0", "1", "3"


class Rules(NamedTuple):
    action: str = COPY
    overwrite: str = "Y"
    onlynew: str = "N"
    extensions: str = ""
    includesubdirs: str = "Y"

    def takes(self, path):
        endings = self.extensions.upper().encode().split(b";")
        return not self.extensions or path.upper().endswith(tuple(endings))

    def reaches(self, path):
        return self.includesubdirs == "Y" or b"/" not in path

    def replaces(self, old, new):
        """Nobody sits before the screen: the question whether an older file may replace a newer one is answered No."""
        if self.onlynew == "Y":
            return new.time > old.time
        return self.overwrite != "N" or new.time >= old.time


class Trees(NamedTuple):
    source: dict
    destination: dict


class Foreign:
    """What other programs did during the run: the contents that a path had, and those that must still be somewhere."""

    def __init__(self):
        self.had = {"source": {}, "destination": {}}
        self.kept = {}
        self.gone = set()  # contents that another program replaced or removed

    def saw(self, side, path, entry):
        self.had[side].setdefault(path, set()).add(entry.digest if entry else None)


def is_own(path):
    return any(name.startswith(OWN_NAMES) for name in path.split(b"/"))


def files_of(tree):
    return {path: entry for path, entry in tree.items() if entry.kind == "file" and not is_own(path)}


class Checker:
    """`Losses` holds after every run, whatever befell it; `Undone` after one that says that all went well."""

    def __init__(self, rules, before, after, foreign=None):
        self.rules, self.before, self.after = rules, before, after
        self.foreign = foreign or Foreign()
        self.sources, self.olds = files_of(before.source), files_of(before.destination)

    def may_replace(self, path):
        new, old = self.sources.get(path), self.olds[path]
        return bool(new) and self.rules.takes(path) and self.rules.reaches(path) and self.rules.replaces(old, new)

    def may_delete(self, path):
        return (self.rules.action == MIRROR and path not in self.before.source and self.rules.takes(path)
                and self.rules.reaches(path))

    def digests(self, side, path):
        """Every content that the path had before or during the run."""
        entry = getattr(self.before, side).get(path)
        return self.foreign.had[side].get(path, set()) | ({entry.digest} if entry and entry.kind == "file" else set())

    def is_touched(self, path):
        return any(path in had for had in self.foreign.had.values())

    def losses(self):
        yield from self.source_losses()
        yield from self.destination_losses()
        left = {entry.digest for tree in self.after for entry in tree.values() if entry.kind == "file"}
        must = {entry.digest: path for path, entry in self.sources.items()} | self.foreign.kept
        for digest, path in must.items():
            if digest not in left | self.foreign.gone | {NOTHING}:
                yield f"exists nowhere any more: {path}"

    def source_losses(self):
        now, there = self.after.source, self.after.destination
        for path, entry in self.sources.items():
            if self.is_touched(path) or (path in now and now[path].digest == entry.digest):
                continue
            if self.rules.action == MOVE and entry.is_link:
                continue  # the file that it leads to may have been moved before it
            if path in now or self.rules.action != MOVE:
                yield f"source changed: {path}"
            elif path not in there or there[path].digest != entry.digest:
                yield f"moved, but not there: {path}"
        if self.rules.action != MOVE:
            for path, entry in self.before.source.items():
                if path not in now and path not in self.foreign.had["source"]:
                    yield f"gone from the source: {path}"
            for path in now.keys() - self.before.source.keys():
                if path not in self.foreign.had["source"]:
                    yield f"new in the source: {path}"

    def destination_losses(self):
        there = self.after.destination
        for path, old in self.olds.items():
            if self.is_touched(path):
                continue
            if path not in there:
                if not self.may_delete(path):
                    yield f"gone from the destination: {path}"
            elif there[path].digest != old.digest and not self.may_replace(path):
                yield f"replaced against the rules: {path}"
        for path, entry in files_of(self.after.destination).items():
            if entry.digest not in self.digests("source", path) | self.digests("destination", path):
                yield f"neither old nor new: {path}"

    def undone(self, is_lasting=True):
        """For the plain rules; what a filter leaves out of a whole new folder is not judged."""
        there, left = files_of(self.after.destination), files_of(self.after.source)
        for path, entry in self.sources.items():
            if not self.rules.takes(path) or not self.rules.reaches(path):
                continue
            if (path in self.olds and not self.may_replace(path)) or (self.rules.action == MOVE and entry.is_link):
                continue
            if path not in there or there[path].digest != entry.digest:
                yield f"not transferred: {path}"
            elif there[path].time != entry.time:
                yield f"not the source's time: {path}"
            elif self.rules.action == MOVE and path in left:
                yield f"still in the source: {path}"
        for path in there if self.rules.action == MIRROR and is_lasting else []:
            if path not in self.sources and self.may_delete(path):
                yield f"surplus is still there: {path}"

    def leftovers(self):
        for tree in self.after:
            for path in tree:
                if is_own(os.path.basename(path)):
                    yield f"left behind: {path}"
