#!/usr/bin/env python3
"""Gathers what the program needs on Windows into one folder and makes a zip of it, and the lists of what an installer
puts down and removes (files.nsh).

Usage: bundle.py --build FOLDER --libraries FOLDER --system FOLDER --name NAME --output FOLDER

The libraries are found by what the programs import, and by what these import in turn. Whatever is neither among ours nor
among those of Windows is a fault; then nothing is packed and the exit code is 1. SOURCE_DATE_EPOCH dates the files.
"""

import argparse
import os
import re
import shutil
import subprocess
import sys
import time
import zipfile
from pathlib import Path

TARGET = "x86_64-w64-mingw32"
PROGRAMS = ("Kalvenor.exe", "kalvenor-run.exe")
# Loaded by Qt at run time, so nobody imports them. PNG files and text need none; tls is for the search for updates.
PLUGINS = ("platforms/qwindows.dll", "styles/qwindowsvistastyle.dll", "tls/qschannelbackend.dll",
           "tls/qcertonlybackend.dll")
DOCUMENTS = ("Kalvenor Pro Anleitung.mht", "Kalvenor Pro Anleitung.de.html", "Kalvenor Pro Anleitung.en.html", "kvd.ico")
# Without it Qt would look for plug-ins in the folder above, where anybody may have put some.
QT_CONF = "[Paths]\nPrefix=.\nPlugins=.\n"
# Package whose copyright file is taken, and what of it is carried along.
LICENCES = {"qt6-base-dev": "Qt (Core, Gui, Widgets, Network and their plug-ins)", "libxml2-dev": "libxml2",
            "gcc-mingw-w64-x86-64-posix-runtime": "libgcc and libstdc++, under GPL-3 with the GCC Runtime Library Exception",
            "mingw-w64-x86-64-dev": "mingw-w64 with winpthreads"}
COMMON_LICENCES = ("GPL-2", "GPL-3", "LGPL-2.1", "LGPL-3")
DEFAULT_DATE = 1767225600  # 2026-01-01: without SOURCE_DATE_EPOCH one date for every build


class Fault(Exception):
    """What keeps a bundle from being made."""


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def imports(binary):
    return re.findall(r"DLL Name: (\S+)", output_of(f"{TARGET}-objdump", "-p", binary))


def runtime_folders():
    library = output_of(f"{TARGET}-g++-posix", "-print-file-name=libstdc++-6.dll").strip()
    return [Path(library).parent, Path("/usr") / TARGET / "lib"]


def needed_libraries(binaries, folders, system):
    """Ours, by name, that the binaries need, directly or through others."""
    ours = {path.name.lower(): path for folder in reversed(folders) for path in folder.glob("*.dll")}
    windows = {path.name.lower() for path in system.glob("*.dll")}
    found, pending = {}, list(binaries)
    while pending:
        binary = pending.pop()
        for name in (name.lower() for name in imports(binary)):
            if name in ours and name not in found:
                found[name] = ours[name]
                pending.append(ours[name])
            elif name not in ours and name not in windows and not name.startswith("api-ms-win-"):  # no file has that name
                raise Fault(f"{binary} needs {name}, which is neither ours nor of Windows")
    return sorted(found.values())


def put_binary(source, target):
    target.parent.mkdir(parents=True, exist_ok=True)
    subprocess.run([f"{TARGET}-strip", "--strip-all", "-o", target, source], check=True)


def put_text(text, target):
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes("\r\n".join(text.splitlines() + [""]).encode("utf-8"))


def put_licences(target):
    lines = ["Kalvenor Pro uses these libraries. They come as separate files and may be replaced by others of the same",
             "interface. They were built from Debian's source packages without any change of ours; the sources are at",
             "https://snapshot.debian.org under the names and versions given here.", ""]
    for package, description in LICENCES.items():
        source = output_of("dpkg-query", "--show", "--showformat", "${source:Package} ${source:Version}", package)
        text = Path("/usr/share/doc", package, "copyright").read_text(encoding="utf-8", errors="replace")
        put_text(text, target / f"{source.split()[0]}.txt")
        lines.append(f"{source.split()[0]}.txt: {description}; source {source}")
    for name in COMMON_LICENCES:
        put_text(Path("/usr/share/common-licenses", name).read_text(encoding="utf-8"), target / f"{name}.txt")
    put_text("\n".join(lines), target / "README.txt")


def gather(arguments, root, folder):
    plugins = arguments.libraries / "plugins"
    binaries = [arguments.build / name for name in PROGRAMS] + [plugins / name for name in PLUGINS]
    folders = [arguments.libraries / "bin"] + runtime_folders()
    for library in needed_libraries(binaries, folders, arguments.system):
        put_binary(library, folder / library.name)
    for name in PROGRAMS:
        put_binary(arguments.build / name, folder / name)
    for name in PLUGINS:
        put_binary(plugins / name, folder / name)
    for name in DOCUMENTS:
        shutil.copyfile(arguments.build / name, folder / name)
    put_text(QT_CONF, folder / "qt.conf")
    readme = (root / "README.md").read_text(encoding="utf-8")
    put_text("".join(line for line in readme.splitlines(True) if not line.startswith("![")), folder / "README.txt")
    put_text((root / "CHANGELOG.md").read_text(encoding="utf-8"), folder / "CHANGELOG.txt")
    for page in ("SECURITY.md", "docs/OPERATING.md", "docs/ACTIVITY-FILE.md"):  # they link to each other
        put_text((root / page).read_text(encoding="utf-8"), folder / page)
    put_licences(folder / "licences")


def set_dates(files):
    date = int(os.environ.get("SOURCE_DATE_EPOCH") or DEFAULT_DATE)
    for path in files:
        path.chmod(0o644)
        os.utime(path, (date, date))
    return time.gmtime(date)[:6]


def make_zip(target, folder, files, date):
    with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for path in files:
            entry = zipfile.ZipInfo(f"{folder.name}/{path.relative_to(folder).as_posix()}", date)
            entry.compress_type = zipfile.ZIP_DEFLATED
            archive.writestr(entry, path.read_bytes())


def nsis_lists(folder, files):
    """Two macros: what is put down, and the same removed by name; a folder goes only when it is empty."""
    names = [path.relative_to(folder) for path in files]
    folders = sorted({name.parent for name in names if name.parent != Path(".")}, reverse=True)

    def windows(path):
        return str(path).replace("/", "\\")

    put, current = [], None
    for name in names:
        if name.parent != current:
            current = name.parent
            put.append(f'SetOutPath "$INSTDIR\\{windows(current)}"' if current != Path(".") else 'SetOutPath "$INSTDIR"')
        put.append(f'File "{folder / name}"')
    remove = [f'Delete "$INSTDIR\\{windows(name)}"' for name in names]
    remove += [f'RMDir "$INSTDIR\\{windows(name)}"' for name in folders]
    macros = {"PutFiles": put, "RemoveFiles": remove}
    return "".join(f"!macro {name}\n" + "".join(f"    {line}\n" for line in lines) + "!macroend\n"
                   for name, lines in macros.items())


def main():
    parser = argparse.ArgumentParser(description="Gathers what the program needs on Windows.")
    parser.add_argument("--build", type=Path, required=True, help="the release build")
    parser.add_argument("--libraries", type=Path, required=True, help="the cross-built libraries")
    parser.add_argument("--system", type=Path, required=True, help="a folder with the libraries of Windows itself")
    parser.add_argument("--name", required=True, help="of the folder in the zip")
    parser.add_argument("--output", type=Path, required=True)
    arguments = parser.parse_args()
    folder = arguments.output.resolve() / arguments.name
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    try:
        gather(arguments, Path(__file__).resolve().parents[2], folder)
    except (Fault, OSError) as fault:
        print(f"bundle.py: {fault}", file=sys.stderr)
        return 1
    except subprocess.CalledProcessError as fault:
        print(f"bundle.py: {fault}\n{fault.stderr or ''}", file=sys.stderr)
        return 1
    files = sorted((path for path in folder.rglob("*") if path.is_file()), key=lambda path: (path.parent, path))
    date = set_dates(files)
    make_zip(arguments.output / f"{arguments.name}.zip", folder, files, date)
    (arguments.output / "files.nsh").write_text(nsis_lists(folder, files), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
