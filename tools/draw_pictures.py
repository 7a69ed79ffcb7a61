#!/usr/bin/env python3
"""Draws the buttons' pictures, data/pictures/*.png, "@2x" of each and "-dark" of both, and the program's icon,
data/practice_desk.ico.

Every picture is a list of ImageMagick drawing commands on a 32 by 32 field, drawn four times as large as it is
wanted and scaled down. Needs ImageMagick's `convert`.
"""
import pathlib
import subprocess
import tempfile

INK, BLUE, LIGHT, GREEN, RED, GOLD, PAPER = "#37474f", "#1e6fb8", "#cfe3f5", "#2e8b57", "#c0392b", "#e0a526", "#ffffff"
NOTE, SIGN = "#fff3c4", "white"
# What stands for these on a dark ground.
DARK = {INK: "#dfe6ea", BLUE: "#74b9f5", LIGHT: "#3b5a78", GREEN: "#3fae74", RED: "#e05a4b", GOLD: "#e8b64a",
        PAPER: "#3a4146", NOTE: "#6b5d2e"}


def shape(fill, stroke, command, width=1.6):
    return [f"fill {fill} stroke {stroke} stroke-width {width} stroke-linecap round stroke-linejoin round {command}"]


def line(command, stroke=INK, width=1.8):
    return shape("none", stroke, command, width)


def page(fill=PAPER):
    return shape(fill, INK, "path 'M 8,4 L 19,4 L 25,10 L 25,28 L 8,28 Z'") + line("path 'M 19,4 L 19,10 L 25,10'", width=1.4)


def rows(*ys, start=11, end=22):
    return [c for y in ys for c in line(f"line {start},{y} {end},{y}", BLUE, 1.6)]


def person(x=16, fill=LIGHT):
    return shape(fill, INK, f"circle {x},10 {x},5") + shape(
        fill, INK, f"path 'M {x - 9},27 C {x - 9},14 {x + 9},14 {x + 9},27 Z'")


def badge(color, *lines):
    return shape(color, color, "circle 24,24 24,18") + [c for l in lines for c in line(l, SIGN, 2.2)]


def envelope():
    return shape(PAPER, INK, "roundrectangle 3,8 29,25 2,2") + line("path 'M 4,10 L 16,18 L 28,10'")


def printer(paper_rows=True):
    parts = shape(PAPER, INK, "rectangle 9,4 23,13") + shape(LIGHT, INK, "roundrectangle 4,11 28,23 2,2")
    parts += shape(PAPER, INK, "rectangle 9,19 23,28")
    return parts + (rows(22, 25, start=12, end=20) if paper_rows else [])


def table():
    return shape(PAPER, INK, "roundrectangle 4,6 28,26 2,2") + shape(LIGHT, INK, "rectangle 4,6 28,12") + line(
        "line 4,19 28,19", width=1.3) + line("line 12,12 12,26", width=1.3) + line("line 20,12 20,26", width=1.3)


def coin():
    return shape(GOLD, INK, "circle 16,16 16,5") + line("path 'M 20,12 C 18,9 12,10 13,14 C 14,17 20,15 19,19 C 18,23 12,22 12,19'",
                                                       width=2) + line("line 16,8 16,24", width=1.6)


def chain(gap):
    left = shape("none", BLUE, "path 'M 14,11 L 9,11 C 3,11 3,21 9,21 L 14,21'", 3)
    right = shape("none", BLUE, "path 'M 18,11 L 23,11 C 29,11 29,21 23,21 L 18,21'", 3)
    return left + right + (line("line 12,27 15,22", RED, 2) + line("line 17,10 20,5", RED, 2) if gap else
                           line("line 11,16 21,16", BLUE, 3))


LARGE = {
    "New_32": page() + badge(GREEN, "line 24,20.5 24,27.5", "line 20.5,24 27.5,24"),
    "Edit_32": page() + rows(14, 18) + shape(GOLD, INK, "path 'M 14,25 L 25,13 L 29,17 L 18,28 L 13,29 Z'"),
    "Delete_32": page() + badge(RED, "line 21.5,21.5 26.5,26.5", "line 26.5,21.5 21.5,26.5"),
    "Rem_Filter_32": shape(LIGHT, INK, "path 'M 4,6 L 26,6 L 18,15 L 18,25 L 12,21 L 12,15 Z'") +
                     badge(RED, "line 21.5,21.5 26.5,26.5", "line 26.5,21.5 21.5,26.5"),
    "Print_32": printer(),
    "Pat_Info_32": person(),
    "Trans_32": coin(),
    "Trans_Hist_32": coin() + shape(PAPER, INK, "circle 24,24 24,18") + line("path 'M 24,20.5 L 24,24 L 27,25'"),
    "Fam_Table_32": person(11) + person(21, PAPER),
    "Aging_32": shape(PAPER, INK, "circle 16,16 16,4") + line("path 'M 16,8 L 16,16 L 22,19'", BLUE, 2.2),
    "Notes_32": shape(NOTE, INK, "path 'M 5,5 L 27,5 L 27,20 L 20,27 L 5,27 Z'") + line("path 'M 27,20 L 20,20 L 20,27'") +
                rows(10, 14, 18, start=9, end=22),
    "PrintEnv_32": printer(False) + shape(PAPER, INK, "rectangle 8,19 24,28") + line("path 'M 8,19 L 16,25 L 24,19'", width=1.4),
    "Print_Labels_32": shape(PAPER, INK, "path 'M 4,9 L 20,9 L 28,16 L 20,23 L 4,23 Z'") + shape(BLUE, INK, "circle 21,16 21,14.4") +
                       rows(14, 18, start=7, end=16),
    "Q_Letter_32": envelope() + line("path 'M 20,20 L 26,27 M 26,22 L 26,27 L 21,27'", GREEN, 2.2),
    "Image_32": shape(LIGHT, INK, "roundrectangle 4,6 28,26 2,2") + shape(GOLD, INK, "circle 11,12 11,9.6") +
                shape(GREEN, INK, "path 'M 5,25 L 13,17 L 17,21 L 22,14 L 27,20 L 27,25 Z'"),
    "Link_32": chain(False),
    "Unlink_32": chain(True),
    "Find_32": line("circle 13,13 13,5", INK, 2.4) + line("line 19,19 27,27", INK, 3.4),
    "Table_32": table(),
}
SMALL = {
    "SWAP-16X16": line("path 'M 9,4 L 9,26 M 3,10 L 9,4 L 15,10'", BLUE, 3.4) + line("path 'M 23,28 L 23,6 M 17,22 L 23,28 L 29,22'", GREEN, 3.4),
}


def draw(path, size, commands):
    scale = size * 4 / 32
    arguments = ["convert", "-size", f"{size * 4}x{size * 4}", "xc:none"]
    for command in commands:
        arguments += ["-draw", f"scale {scale},{scale} {command}"]
    subprocess.run([*arguments, "-resize", f"{size}x{size}", "-strip", "-define", "png:exclude-chunks=date,time",
                    f"PNG32:{path}"], check=True)


def on_dark(commands):
    for light, dark in DARK.items():
        commands = [command.replace(light, dark) for command in commands]
    return commands


def draw_sizes(path, size, commands):
    """The picture, twice as large, and both for a dark ground."""
    for look, parts in (("", commands), ("-dark", on_dark(commands))):
        for suffix, wanted in (("", size), ("@2x", 2 * size)):
            draw(path.with_name(path.stem + look + suffix + path.suffix), wanted, parts)


def draw_icon(path, commands):
    """A program's icon, in the sizes that Windows shows."""
    with tempfile.TemporaryDirectory() as folder:
        files = []
        for size in (16, 24, 32, 48, 64):
            files.append(f"{folder}/{size}.png")
            draw(files[-1], size, commands)
        subprocess.run(["convert", *files, "-strip", str(path)], check=True)


def main():
    folder = pathlib.Path(__file__).resolve().parent.parent / "data" / "pictures"
    for name, commands in LARGE.items():
        draw_sizes(folder / "ICO" / "Large" / f"{name}.png", 32, commands)
    for name, commands in SMALL.items():
        draw_sizes(folder / f"{name}.PNG", 16, commands)
    draw_icon(folder.parent / "practice_desk.ico", LARGE["Pat_Info_32"])


if __name__ == "__main__":
    main()
