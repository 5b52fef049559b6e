"""The kinds of fault. Each takes a world, lets runs meet the fault, and leaves the world without it."""
import os
import shutil
import subprocess
import time
from collections import Counter
from signal import SIGTERM

from checker import COPY, MIRROR, MOVE, Checker, Foreign, Rules, Trees, files_of
from disks import Disk, shell
from program import Program, random_failure
from trees import NOTHING, Planter, entry_at, tree_of

KINDS = {}  # by name: the round, whether it needs disks of its own, and how often it comes


def kind(faults, weight, needs_disks=False):
    """`faults`: what the report calls them. A round says how many there were, and nothing where it is always one."""
    def note(function):
        def play(world):
            struck = function(world)
            world.faults[f"{faults}, {world.system}" if needs_disks else faults] += 1 if struck is None else struck
            world.finish()
        KINDS[function.__name__] = (play, needs_disks, weight)
    return note


def random_rules(random):
    if random.random() < 0.4:
        return Rules(random.choice([COPY, MOVE, MOVE, MIRROR]))
    return Rules(random.choice([COPY, MOVE, MIRROR]), random.choice("YYN"), random.choice("YN"),
                 random.choice(["", "", "txt", "doc;txt"]), random.choice("YYYN"))


class World:
    """The folders of one round, its activity, and what was found out."""

    def __init__(self, session, folder, random):
        self.session, self.folder, self.random = session, folder, random
        self.disk, self.findings, self.faults = None, [], Counter()
        self.rules = random_rules(random)
        self.notes = []

    def plant(self, place=None, files=None, with_links=True):
        """`place`: the destination in the same file system, in another one, or on a disk; or both on one disk."""
        random, session = self.random, self.session
        place = place or random.choice(["same", "same", "other", "disk", "both"])
        if not session.images and place in ("disk", "both"):
            place = "other"
        source = destination = self.folder
        if place in ("disk", "both"):
            self.system = random.choice(sorted(session.images))
            self.disk = Disk(self.folder / "d", session.images[self.system])
            destination = self.disk.point
            source = destination if place == "both" else source
        elif place == "other" and session.other:
            destination = session.other / self.folder.name
        self.source, self.destination = source / "source", destination / "destination"
        self.source.mkdir()
        self.destination.mkdir(parents=True)
        self.planter = Planter(random, self.source, self.destination, with_links=with_links)
        self.planter.plant(files if files is not None else random.choice([3, 12, 30, 50]))
        self.notes.append(f"{self.rules} {place} {self.system if self.disk else ''}")
        self.program = Program(session.build, self.folder / "home", str(self.source), str(self.destination), self.rules)
        self.trees = self.look()
        if self.disk:
            self.disk.sync()

    def more(self, files):
        """More work for the next run."""
        if files:
            self.planter.plant(files)
            self.trees = self.look()

    def look(self):
        return Trees(tree_of(self.source), tree_of(self.destination))

    def size(self):
        return sum(path.stat().st_size for path in self.source.rglob("*") if path.is_file())

    def run(self, faults=(), on_stop=None, remedy=None, foreign=None, is_lasting=True):
        """`is_lasting`: False where what was not on the disk yet is lost, even after the end of a good run: files that
        a mirror deleted may come back."""
        before, result = self.trees, self.program.run(faults, on_stop)
        if remedy:
            remedy()
        self.trees = self.look()
        checker = Checker(self.rules, before, self.trees, foreign)
        self.notes.append(f"run {' '.join(faults)}: exit {result.code}, {result.calls} calls, struck {result.struck}")
        self.find("loss", checker.losses(), result)
        if result.code is None:
            self.find("hang", ["it did not end"], result)
        elif result.code < 0 and not result.met("kill@") and not (result.met("term@") and result.code == -SIGTERM):
            self.find("crash", [f"signal {-result.code}"], result)
        elif result.code == 0 and not foreign:
            self.find("silent", checker.undone(is_lasting), result)
        elif result.code > 0 and not result.complains and not result.met("term@"):
            self.find("silent", [f"exit {result.code} without a line"], result)
        return result

    def finish(self):
        """Without the fault all must be done, and nothing of the dead runs be left."""
        result = self.run()
        if result.code != 0:
            self.find("unfinished", [f"exit {result.code} without a fault"], result)
        self.find("leftover", Checker(self.rules, self.trees, self.trees).leftovers(), result)
        if self.random.random() < 0.25:
            before = self.trees
            again = self.run()
            if again.code != 0 or self.trees != before:
                self.find("unfinished", ["a second run has still something to do"], again)

    def find(self, sort, texts, result):
        """Keeps the trees and what is known of the round, if there is a text."""
        found = [f"{sort}: {text}" for text in texts]
        if not found:
            return
        self.findings += found
        kept = self.session.keep / self.folder.name
        kept.mkdir(parents=True, exist_ok=True)
        number = sum(1 for _ in kept.glob("*.txt"))
        (kept / f"{number}.txt").write_text("\n".join([*self.notes, *self.findings, "", result.output]))
        for root in (self.source, self.destination):
            shell("cp", "-aT", root, kept / f"{number}-{root.name}")

    def remove(self):
        if self.disk:
            self.disk.remove()
        shutil.rmtree(self.folder, ignore_errors=True)
        if self.session.other:
            shutil.rmtree(self.session.other / self.folder.name, ignore_errors=True)

    def some_call(self):
        return int(10 ** self.random.uniform(1.5, 3.2))


@kind("kills", weight=5)
def killed(world):
    world.plant()
    kills = 0
    for number in range(world.random.randrange(1, 8)):
        world.more(world.random.choice([0, 12]) if number else 0)
        kills += world.run([f"kill@{world.some_call()}"]).met("kill@")
    return kills


@kind("terminations", weight=1)
def terminated(world):
    world.plant()
    return sum(len(world.run([f"term@{world.some_call()}"]).struck) for _ in range(2))


@kind("failed calls", weight=8)
def failed_calls(world):
    world.plant()
    struck = 0
    for number in range(6):
        world.more(12 if number else 0)
        faults = [random_failure(world.random) for _ in range(world.random.choice([4, 20]))]
        struck += len(world.run(faults).struck)
    return struck


@kind("full disks", weight=1, needs_disks=True)
def full_disk(world):
    world.plant("disk", 40)
    room = int(world.size() * world.random.random()) + 100_000
    facts = os.statvfs(world.disk.point)
    ballast = world.disk.point / "ballast"
    subprocess.run(["fallocate", "-l", str(max(facts.f_bavail * facts.f_frsize - room, 4096)), ballast], check=False,
                   stderr=subprocess.DEVNULL)
    world.disk.sync()
    world.run()
    ballast.unlink()
    world.disk.sync()


@kind("thin disks", weight=2, needs_disks=True)
def thin_disk(world):
    world.plant("disk", 60)
    world.disk.thin(int(world.size() * world.random.random()))
    world.run(remedy=world.disk.thicken)


@kind("power cuts", weight=3, needs_disks=True)
def power_cut(world):
    """The disk is set back to what it held at some call; the program and everything not written yet are gone."""
    world.plant(world.random.choice(["disk", "both"]))
    call = world.some_call()

    def restore():
        if not world.disk.saved.exists():
            world.disk.save_image()
        world.disk.restart()
    world.run([f"stop@{call}", f"kill@{call}"], world.disk.save_image, restore, is_lasting=False)


@kind("tear-outs", weight=3, needs_disks=True)
def torn_out(world):
    """The disk goes at some call, and the program goes on."""
    world.plant(world.random.choice(["disk", "both"]))
    is_shut = world.system != "btrfs" and world.random.random() < 0.5
    gone = []

    def tear():
        gone.append(True)
        world.disk.shut_down() if is_shut else world.disk.tear_out()

    def put_back():
        if gone:
            world.disk.restart()
    world.run([f"stop@{world.some_call()}"], tear, put_back, is_lasting=False)
    return len(gone)


@kind("pulled mounts", weight=1, needs_disks=True)
def pulled(world):
    """The disk is pulled during a run; the next one finds the bare folder and must leave everything alone."""
    world.plant("disk", 20)
    world.run()
    world.more(20)

    def put_back():
        world.disk.detach("-l")
        world.disk.attach()
    world.run([f"stop@{world.some_call()}"], lambda: world.disk.detach("-l"), put_back)
    before = world.trees
    world.disk.detach()
    world.destination.mkdir()
    world.trees = world.look()
    held = world.run()
    if held.code == 0 or any(world.trees.destination) or world.trees.source != before.source:
        world.find("loss", ["a bare mount point was worked on"], held)
    shutil.rmtree(world.destination)
    world.disk.attach()
    world.trees = world.look()


@kind("foreign acts", weight=3)
def foreign_writer(world):
    """Other programs work on the same files while the run goes on."""
    world.plant(with_links=False)
    foreign = Foreign()
    stops = sorted({world.some_call() for _ in range(world.random.choice([2, 6, 12]))})
    acts = []
    world.run([f"stop@{call}" for call in stops], lambda: acts.append(act(world, foreign)), foreign=foreign)
    return sum(acts)


def act(world, foreign):
    """One act of another program on one file of either side; False when there is none."""
    random = world.random
    side = random.choice(["source", "destination"])
    root = os.fsencode(getattr(world, side))
    paths = sorted(files_of(tree_of(root)))
    if not paths:
        return False
    path = random.choice(paths)
    full = os.path.join(root, path)
    time.sleep(0.01)  # the clock of the file system has moved on
    name = random.choice(["rewrite", "touch_back", "append", "rename", "delete", "recreate"])

    def see(seen):
        entry = entry_at(os.path.join(root, seen))
        foreign.had[side].setdefault(seen, set()).add(entry)
        return entry
    facts = os.stat(full)
    if (before := see(path)) and name != "rename":
        foreign.gone.add(before.digest)
    if name in ("delete", "recreate"):
        os.unlink(full)
    if name == "rename":
        os.rename(full, full + b"~")
        path += b"~"
    elif name != "delete":
        try:
            with open(full, "ab" if name == "append" else "wb") as file:
                file.write(b"more %d" % random.getrandbits(60) if name == "append" else
                           random.randbytes(facts.st_size) if name == "touch_back" else world.planter.content())
        except PermissionError:
            return False
    if name == "touch_back":
        os.utime(full, ns=(facts.st_atime_ns, facts.st_mtime_ns))
    world.notes.append(f"{name} {side} {path}")
    after = see(path)
    # A mirror may delete what is new there, and a content of the old time looks like the old one.
    is_kept = side == "source" or (world.rules.action != MIRROR and name != "touch_back")
    if after and after.digest != NOTHING and is_kept:
        foreign.kept.append((side, path, after))
    return True
