#!/usr/bin/env python3
"""Times one run of an activity by kalvenor-run against cp -a and rsync -a on the same tree, taking turns, in one go.

usage: compare.py KALVENOR_RUN FOLDER [--before KALVENOR_RUN] [--floor PROGRAM] [--files N] [--big MIB] [--rounds N]

FOLDER should lie on a quiet file system of its own (a loop-mounted image, a tmpfs); everything is made and removed
below FOLDER/kalvenor-bench. Prints medians and their ratio to the floor, or to cp -a (rsync -a where cp has no such
job). PROGRAM is called as "PROGRAM copy|mirror SOURCE TARGET" and does the least that the job needs.
"""
import argparse
import functools
import os
import pathlib
import random
import shutil
import statistics
import subprocess
import time

ACTIVITY = """<?xml version="1.0" encoding="ISO-8859-1"?>
<items><Bench><sourcedir>{source}</sourcedir><targetdir>{target}</targetdir><type>0</type><intervall>60</intervall>
<action>{action}</action><overwrite>Y</overwrite><onlynew>Y</onlynew><includesubdirs>Y</includesubdirs>
<logfile>{log}</logfile><activ>1</activ><exceedtime></exceedtime></Bench></items>
"""


def make_tree(root, files, big_mib):
    """Seeded: files of 1 to 8 KiB, 50 to a folder, and one big file."""
    source = random.Random(42)
    blob = source.randbytes(1 << 20)
    for number in range(files):
        folder = root / f"t{number // 1000:03d}" / f"s{number // 50 % 20:02d}"
        folder.mkdir(parents=True, exist_ok=True)
        start = source.randrange(len(blob) - 8192)
        path = folder / f"f{number:06d}.dat"
        path.write_bytes(blob[start:start + source.randint(1024, 8192)])
        stamp = 1_600_000_000_000_000_000 + source.getrandbits(56)
        os.utime(path, ns=(stamp, stamp))
    if big_mib:
        with open(root / "big.bin", "wb") as big:
            for _ in range(big_mib):
                big.write(source.randbytes(1 << 20))


def mutate(root):
    """One file in a hundred grows, another is deleted."""
    source = random.Random(7)
    files = sorted(path for path in root.rglob("*.dat"))
    picked = source.sample(files, max(2, len(files) // 50))
    for path in picked[::2]:
        with open(path, "ab") as file:
            file.write(b"changed")
    for path in picked[1::2]:
        path.unlink()


def timed(command, environment, target):
    """Seconds until the command has ended, and until everything is on disk."""
    os.sync()
    begin = time.monotonic()
    subprocess.run(command, check=True, env=environment, stdout=subprocess.DEVNULL)
    ended = time.monotonic() - begin
    subprocess.run(["sync", "-f", str(target)], check=True)
    return ended, time.monotonic() - begin


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", type=pathlib.Path)
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--before", type=pathlib.Path, help="an older build, measured in the same rounds")
    parser.add_argument("--floor", type=pathlib.Path, help="a program that does the least")
    parser.add_argument("--files", type=int, default=20000)
    parser.add_argument("--big", type=int, default=1024, metavar="MIB")
    parser.add_argument("--rounds", type=int, default=5)
    options = parser.parse_args()
    base = options.folder / "kalvenor-bench"
    shutil.rmtree(base, ignore_errors=True)
    settings = base / "settings" / "Kalvenor"
    settings.mkdir(parents=True)
    (settings / "Kalvenor.ini").write_text("[Options]\nAccepted=Yes\n")
    environment = {**os.environ, "XDG_CONFIG_HOME": str(base / "settings"), "XDG_RUNTIME_DIR": str(base / "settings"),
                   "XDG_STATE_HOME": str(base / "settings")}

    source, changed = base / "source", base / "changed"
    make_tree(source, options.files, options.big)
    subprocess.run(["cp", "-a", source, changed], check=True)
    mutate(changed)

    def kalvenor(program, job, origin, target):
        activity = base / f"{target.name}.kvd"
        log = base / f"{target.name}.log" if "log" in job else ""
        action = 3 if "mirror" in job else 0
        activity.write_text(ACTIVITY.format(source=origin, target=target, action=action, log=log))
        return [str(program.resolve()), str(activity)]

    def rsync(job, origin, target):
        return ["rsync", "-a", *(["--delete"] if "mirror" in job else []), f"{origin}/", f"{target}/"]

    def copy(job, origin, target):
        return None if "mirror" in job else ["cp", "-au", f"{origin}/.", str(target)]

    def floor(job, origin, target):
        return [str(options.floor.resolve()), "mirror" if "mirror" in job else "copy", str(origin), str(target)]

    peers = {"kalvenor": functools.partial(kalvenor, options.program)}
    if options.before:
        peers["before"] = functools.partial(kalvenor, options.before)
    if options.floor:
        peers["floor"] = floor
    for name, command in (("rsync -a", rsync), ("cp -a", copy)):
        if shutil.which(name.split()[0]):
            peers[name] = command
    jobs = [("first copy", source), ("unchanged", source), ("unchanged, with log", source),
            ("1 % changed, mirror", changed)]
    times, order = {}, list(peers.items())
    for number in range(options.rounds):
        first = number % len(peers)  # whoever follows another finds the disk differently busy
        for peer, command in order[first:] + order[:first]:
            target = base / ("target-" + peer.split()[0])
            shutil.rmtree(target, ignore_errors=True)
            target.mkdir()
            for job, origin in jobs:
                words = command(job, origin, target)
                if not words:
                    continue
                ended, on_disk = timed(words, environment, target)
                times.setdefault(job, {}).setdefault(peer, []).append(ended)
                if job == "first copy":
                    times.setdefault(f"{job}, on disk", {}).setdefault(peer, []).append(on_disk)
    for job in sorted(times):
        medians = {peer: statistics.median(values) for peer, values in times[job].items()}
        yardstick = next(peer for peer in ("floor", "cp -a", "rsync -a", "kalvenor") if peer in medians)
        print(f"{job}:")
        for peer, median in medians.items():
            print(f"  {peer:10} {median:8.3f} s   {median / medians[yardstick]:.2f} x {yardstick}")
    shutil.rmtree(base)


if __name__ == "__main__":
    main()
