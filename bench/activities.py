#!/usr/bin/env python3
"""What a long list of activities costs the window: start, memory, one check mark saved, one second of monitoring.

usage: activities.py KALVENOR [--before KALVENOR] [--activities N] [--rounds N] [--seconds N]

Needs Xvfb and xdotool. Everything is made and removed below a folder of its own in /tmp; the activities watch folders
that do not exist and are never due. Prints medians over the rounds, in which the builds take turns.
"""
import argparse
import contextlib
import os
import pathlib
import shutil
import statistics
import subprocess
import tempfile
import time

ACTIVITY = """  <Activity{n}>
    <sourcedir>/srv/data/project{n}/incoming</sourcedir>
    <targetdir>/srv/backup/project{n}/incoming</targetdir>
    <type>0</type>
    <intervall>59</intervall>
    <action>0</action>
    <overwrite>Y</overwrite>
    <onlynew>Y</onlynew>
    <alert>N</alert>
    <includesubdirs>Y</includesubdirs>
    <executeable></executeable>
    <allfiles>1</allfiles>
    <extensions></extensions>
    <logfile></logfile>
    <comment>Nightly copy number {n}</comment>
    <activ>1</activ>
    <sendmail>0</sendmail>
    <exceedtime></exceedtime>
    <daily>0</daily>
    <runningmode>0</runningmode>
  </Activity{n}>
"""
REST = 0.25  # seconds without work after which the process counts as idle


def cpu(pid):
    """CPU seconds of all threads."""
    total = 0
    for task in pathlib.Path(f"/proc/{pid}/task").iterdir():
        total += int((task / "schedstat").read_text().split()[0])
    return total / 1e9


def memory(pid):
    """Resident MiB that the process has for itself, and in all."""
    facts = dict(line.split(":", 1) for line in pathlib.Path(f"/proc/{pid}/status").read_text().splitlines())
    return [int(facts[key].split()[0]) / 1024 for key in ("RssAnon", "VmRSS")]


def wait_for_rest(pid):
    """The moment of the last work seen before the process rested."""
    last, before = time.monotonic(), cpu(pid)
    while time.monotonic() - last < REST:
        time.sleep(0.002)
        now = cpu(pid)
        if now - before > 0.0005:
            last = time.monotonic()
        before = now
    return last


@contextlib.contextmanager
def display():
    name = f":{1000 + os.getpid() % 30000}"
    server = subprocess.Popen(["Xvfb", name, "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset"],
                              stderr=subprocess.DEVNULL)
    socket = pathlib.Path(f"/tmp/.X11-unix/X{name[1:]}")
    try:
        while not socket.exists() and server.poll() is None:
            time.sleep(0.05)
        yield name
    finally:
        server.terminate()
        server.wait()


class Home:
    """A user's folders with the notice accepted and one activity file."""

    def __init__(self, root, x_display, activities, at_start):
        for part in ("config/Kalvenor", "data", "state", "run"):
            (root / part).mkdir(parents=True)
        os.chmod(root / "run", 0o700)
        (root / "config/Kalvenor/Kalvenor.ini").write_text(
            f"[Options]\nAccepted=Yes\nStartUp={int(at_start)}\nDone=1\n[AutoUpdate]\nAutoUpdate=0\n")
        self.file = root / "list.kvd"
        self.file.write_text('<?xml version="1.0" encoding="ISO-8859-1"?>\n<items>\n' +
                             "".join(ACTIVITY.format(n=n) for n in range(activities)) + "</items>\n")
        self.environment = {"PATH": os.environ["PATH"], "HOME": str(root), "DISPLAY": x_display,
                            "QT_QPA_PLATFORM": "xcb", "LANG": "C.UTF-8", "XDG_CONFIG_HOME": str(root / "config"),
                            "XDG_DATA_HOME": str(root / "data"), "XDG_STATE_HOME": str(root / "state"),
                            "XDG_RUNTIME_DIR": str(root / "run"), "DBUS_SESSION_BUS_ADDRESS": "disabled:"}

    def xdotool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], env=self.environment, capture_output=True, text=True).stdout


@contextlib.contextmanager
def window(build, home):
    """Yields the process, its window and the seconds until the list stood."""
    begin = time.monotonic()
    process = subprocess.Popen([build, str(home.file)], env=home.environment, stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=(home.file.parent / "errors").open("wb"))
    try:
        shown = ""
        while not shown and process.poll() is None:
            shown = home.xdotool("search", "--onlyvisible", "--name", r"Kalvenor Pro .*list\.kvd").strip()
        if process.poll() is not None:
            errors = (home.file.parent / "errors").read_text()
            raise SystemExit(f"{build} ended with code {process.returncode}\n{errors}")
        yield process, shown.split()[0], wait_for_rest(process.pid) - begin
    finally:
        process.terminate()
        process.wait()


def check_mark(process, shown, home):
    """Seconds from a click on a row's check mark until the file is saved and the window rests."""
    home.xdotool("windowfocus", "--sync", shown)
    home.xdotool("key", "Down")
    wait_for_rest(process.pid)
    before = home.file.stat().st_ino
    begin = time.monotonic()
    home.xdotool("key", "space")
    while home.file.stat().st_ino == before:  # a sync may take its time without any work
        if time.monotonic() - begin > 20:
            raise SystemExit("the check mark was not saved")
        time.sleep(0.002)
    return wait_for_rest(process.pid) - begin


def round_of(build, options, x_display, result):
    for at_start in (False, True):
        folder = pathlib.Path(tempfile.mkdtemp(prefix="kalvenor-bench-"))
        try:
            home = Home(folder, x_display, options.activities, at_start)
            with window(build, home) as (process, shown, seconds):
                if not at_start:
                    own, resident = memory(process.pid)
                    result["list shown, s"].append(seconds)
                    result["memory, MiB (its own)"].append(own)
                    result["memory, MiB (resident)"].append(resident)
                    result["one check mark saved, s"].append(check_mark(process, shown, home))
                else:
                    time.sleep(2)  # the first ticks read the records
                    before = cpu(process.pid)
                    time.sleep(options.seconds)
                    result["a second of monitoring, CPU ms"].append(
                        (cpu(process.pid) - before) / options.seconds * 1000)
        finally:
            shutil.rmtree(folder)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--before", metavar="KALVENOR")
    parser.add_argument("--activities", type=int, default=10_000)
    parser.add_argument("--rounds", type=int, default=3)
    parser.add_argument("--seconds", type=int, default=10)
    options = parser.parse_args()
    builds = {"before": options.before, "now": options.program} if options.before else {"now": options.program}
    names = ["list shown, s", "memory, MiB (its own)", "memory, MiB (resident)", "one check mark saved, s",
             "a second of monitoring, CPU ms"]
    results = {label: {name: [] for name in names} for label in builds}
    with display() as x_display:
        for _ in range(options.rounds):
            for label, build in builds.items():
                round_of(build, options, x_display, results[label])
    print(f"{options.activities} activities, {options.rounds} rounds".ljust(36) + "".join(f"{b:>10}" for b in builds))
    for name in names:
        print(name.ljust(36) + "".join(f"{statistics.median(results[b][name]):>10.2f}" for b in builds))


if __name__ == "__main__":
    main()
