#!/usr/bin/env python3
"""Draws the program's pictures, the SVG files of this folder, at the sizes in use: icons.qrc with PNG files for the
program, and kvd.ico for Windows, which shows no SVG.

Usage: build.py OUTPUT_FOLDER --converter RSVG_CONVERT

The same pictures give the same bytes. The first fault ends it with exit code 1.
"""

import argparse
import struct
import subprocess
import sys
from pathlib import Path

SIZES = (16, 20, 22, 24, 32, 44, 48, 64, 128)  # the lists, menus and toolbars of screens at scale 1 to 3
PROGRAM = "idle"  # the picture of the program and of its files
PROGRAM_SIZES = SIZES + (256,)
ICO_SIZES = (16, 20, 24, 32, 48, 64, 128, 256)


def draw(converter, picture, size, output):
    subprocess.run([converter, "--width", str(size), "--height", str(size), "--output", output, picture], check=True)


def collection(drawings):
    """The list that Qt's resource compiler reads: :/icons/NAME/SIZE.png."""
    files = "".join(f"    <file>{path.parent.name}/{path.name}</file>\n" for path in drawings)
    return f"<RCC>\n  <qresource prefix=\"/icons\">\n{files}  </qresource>\n</RCC>\n"


def ico(drawings):
    """A header, an entry of 16 bytes for each drawing, and the drawings as they are. A side of 256 is written as 0."""
    header = struct.pack("<HHH", 0, 1, len(drawings))
    entries, contents = b"", b""
    start = len(header) + 16 * len(drawings)
    for size, png in drawings:
        side = size % 256
        entries += struct.pack("<BBBBHHII", side, side, 0, 0, 1, 32, len(png), start + len(contents))
        contents += png
    return header + entries + contents


def main():
    parser = argparse.ArgumentParser(description="Draws the program's pictures at the sizes in use.")
    parser.add_argument("output", type=Path)
    parser.add_argument("--converter", default="rsvg-convert")
    arguments = parser.parse_args()
    drawings = []
    try:
        for picture in sorted(Path(__file__).resolve().parent.glob("*.svg")):
            folder = arguments.output / picture.stem
            folder.mkdir(parents=True, exist_ok=True)
            for size in PROGRAM_SIZES if picture.stem == PROGRAM else SIZES:
                drawings.append(folder / f"{size}.png")
                draw(arguments.converter, picture, size, drawings[-1])
        program = [(size, (arguments.output / PROGRAM / f"{size}.png").read_bytes()) for size in ICO_SIZES]
        (arguments.output / "kvd.ico").write_bytes(ico(program))
        (arguments.output / "icons.qrc").write_text(collection(drawings), encoding="utf-8")
    except (OSError, subprocess.CalledProcessError) as fault:
        print(f"build.py: {fault}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
