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
        is_reached = self.includesubdirs == "Y" or b"/" not in path
        return is_reached and (not self.extensions or path.upper().endswith(tuple(endings)))

    def replaces(self, old, new):
        """Nobody sits before the screen: the question whether an older file may replace a newer one is answered No."""
        if self.onlynew == "Y":
            return new.time > old.time
        return self.overwrite != "N" or new.time >= old.time


class Trees(NamedTuple):
    source: dict
    destination: dict


class Foreign:
    """What other programs did during the run: the entries that a path had, and those that must still be somewhere."""

    def __init__(self):
        self.had = {"source": {}, "destination": {}}
        self.kept = []  # side, path and entry
        self.gone = set()  # contents that another program replaced or removed


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
        return bool(new) and self.rules.takes(path) and self.rules.replaces(old, new)

    def may_delete(self, path):
        return self.rules.action == MIRROR and path not in self.before.source and self.rules.takes(path)

    def had(self, side, path):
        """Every file or link that the path was before or during the run."""
        entries = {getattr(self.before, side).get(path)} | self.foreign.had[side].get(path, set())
        return {entry for entry in entries if entry and entry.kind in ("file", "link")}

    def is_touched(self, path):
        return any(path in had for had in self.foreign.had.values())

    def losses(self):
        yield from self.source_losses()
        yield from self.destination_losses()
        left = {entry.digest for tree in self.after for entry in tree.values() if entry.kind == "file"}
        must = {entry.digest: path for path, entry in self.sources.items()}
        for side, path, old in self.foreign.kept:
            # What came to the source later may replace it.
            if side == "source" or not any(self.rules.replaces(old, new) for new in self.had("source", path)):
                must[old.digest] = path
        for digest, path in must.items():
            if digest not in left | self.foreign.gone | {NOTHING}:
                yield f"exists nowhere any more: {path}"

    def source_losses(self):
        now, there = self.after.source, self.after.destination
        for path, entry in self.sources.items():
            if self.is_touched(path) or (path in now and now[path].digest == entry.digest):
                continue
            if self.rules.action == MOVE and entry.link:
                continue  # the file that it leads to may have been moved before it
            if path in now or self.rules.action != MOVE:
                yield f"source changed: {path}"
            elif path not in there or there[path].digest != entry.digest:
                yield f"moved, but not there: {path}"
        if self.rules.action != MOVE:
            for path in (self.before.source.keys() ^ now.keys()) - self.foreign.had["source"].keys():
                yield f"{'new in' if path in now else 'gone from'} the source: {path}"

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
        for path, entry in files_of(there).items():
            had = self.had("source", path) | self.had("destination", path)
            # A link that is still the same, or was taken along with its folder, may lead to another file by now.
            if not any(entry.digest == one.digest or (entry.link and entry.link == one.link) for one in had):
                yield f"neither old nor new: {path}"

    def undone(self, is_lasting=True):
        """For the plain rules; what a filter leaves out of a whole new folder is not judged."""
        there, left = files_of(self.after.destination), files_of(self.after.source)
        for path, entry in self.sources.items():
            if not self.rules.takes(path) or (path in self.olds and not self.may_replace(path)):
                continue
            if self.rules.action == MOVE and entry.link:
                continue
            if path not in there or there[path].digest != entry.digest:
                yield f"not transferred: {path}"
            elif there[path].time != entry.time:
                yield f"not the source's time: {path}"
            elif self.rules.action == MOVE and path in left:
                yield f"still in the source: {path}"
        yield from (f"surplus is still there: {path}" for path in there.keys() - self.sources.keys()
                    if is_lasting and self.may_delete(path))

    def leftovers(self):
        yield from (f"left behind: {path}" for tree in self.after for path in tree if is_own(os.path.basename(path)))
