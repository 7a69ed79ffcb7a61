#!/usr/bin/env python3
"""The list of family heads beside DB Browser for SQLite on the table of persons in the same file, in one run.

    bench/beside_db_browser.py PRACTICE_DESK PRACTICE_FILE [PICTURES]

Both run one after the other on a display of their own (Xvfb) and are driven by xdotool; a general tool is no measure of a
list's rules, but it shows what a person is used to wait. Each time is from the last key or click until the rows have
their final look, read from the display's memory. The file is a demo practice of a million persons that may be written
to. Prints milliseconds, the median of some rounds, and their ratio; keeps a picture of each step in the folder PICTURES.
"""
import mmap
import os
import statistics
import struct
import subprocess
import sys
import tempfile
import time

DISPLAY = ":86"
ROUNDS = 3
QUIET = 6.0  # seconds without a change


class Display:
    def __init__(self, folder):
        self.server = subprocess.Popen(
            ["Xvfb", DISPLAY, "-screen", "0", "1400x900x24", "-fbdir", folder], stderr=subprocess.DEVNULL)
        time.sleep(2)
        with open(os.path.join(folder, "Xvfb_screen0"), "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        header = struct.unpack(">25I", self.memory[:100])
        self.line, self.start = header[12], header[0] + header[19] * 12

    def look(self, area):
        left, top, right, bottom = area
        return hash(tuple(
            self.memory[self.start + y * self.line + left * 4:self.start + y * self.line + right * 4]
            for y in range(top, bottom, 3)))

    def until_still(self, area, act):
        """Seconds from the act until the area has the look that it keeps."""
        shown = self.look(area)
        act()
        start = changed = time.monotonic()
        while time.monotonic() - max(changed, start) < QUIET:
            time.sleep(0.002)
            now = self.look(area)
            if now != shown:
                shown, changed = now, time.monotonic()
        return changed - start


def tool(*words):
    subprocess.run(["xdotool", *words], check=True)


def click(x, y):
    tool("mousemove", str(x), str(y), "sleep", "0.1", "mousedown", "1", "sleep", "0.05", "mouseup", "1")


def type_text(text):
    tool("type", "--delay", "60", text)


class Program:
    """Where a program has its rows, and what a person does there."""

    def __init__(self, display, pictures, words):
        self.display, self.pictures = display, pictures
        self.home = tempfile.TemporaryDirectory()
        self.program = subprocess.Popen(words, env=dict(os.environ, HOME=self.home.name),
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        time.sleep(8)

    def time_of(self, name, act):
        seconds = self.display.until_still(self.rows, act)
        if self.pictures:
            subprocess.run(["import", "-window", "root", f"{self.pictures}/{type(self).__name__}_{name}.png"], check=True)
        return seconds

    def round(self):
        times = {"first rows": self.time_of("first", self.open())}
        for name, text, anywhere in (("filter from the start", "Smi", False), ("filter anywhere", "mit", True),
                                     ("filter anywhere, nothing found", "qqz", True)):
            self.clear_filter(anywhere)
            times[name] = self.time_of(name.replace(" ", "_"), lambda: self.filter(text, anywhere))
        self.clear_filter(False)
        times["sorting"] = self.time_of("sorting", lambda: click(*self.head))
        self.close()
        return times

    def end(self):
        self.program.terminate()
        self.program.wait()


class Desk(Program):
    rows, head, cell = (185, 265, 1210, 670), (900, 215), (449, 246)

    def __init__(self, display, pictures, desk, file):
        super().__init__(display, pictures, [desk, "--database", "sqlite:" + file])
        for x, y in ((740, 413), (740, 446)):
            click(x, y)
            tool("key", "ctrl+a")
            type_text("admin")
        tool("key", "Return")
        time.sleep(5)

    def open(self):
        tool("key", "alt+l")
        time.sleep(1)
        return lambda: tool("key", "f")

    def clear_filter(self, anywhere):
        click(*self.cell)
        tool("key", "ctrl+a", "Delete")
        time.sleep(3)
        click(*((435, 698) if anywhere else (192, 698)))
        time.sleep(1)
        click(*self.cell)

    def filter(self, text, anywhere):
        type_text(text)

    def close(self):
        tool("key", "Escape")
        time.sleep(2)
        click(1100, 733)
        time.sleep(2)


class Browser(Program):
    rows, head, cell = (85, 205, 475, 640), (423, 151), (171, 174)

    def __init__(self, display, pictures, file):
        super().__init__(display, pictures, ["sqlitebrowser", "-t", "IDTypTable", file])

    def choose(self, table):
        click(125, 117)
        time.sleep(1)
        type_text(table)
        time.sleep(1)
        return lambda: tool("key", "Return")

    def open(self):
        return self.choose("PATable")

    def clear_filter(self, anywhere):
        click(*self.cell)
        tool("key", "ctrl+a", "Delete")
        time.sleep(QUIET)

    def filter(self, text, anywhere):
        type_text(text if anywhere else text + "%")

    def close(self):
        self.choose("IDTypTable")()
        time.sleep(QUIET)


def medians(program):
    rounds = [program.round() for _ in range(ROUNDS)]
    program.end()
    return {name: statistics.median(one[name] for one in rounds) for name in rounds[0]}


def main():
    desk, file = sys.argv[1:3]
    pictures = sys.argv[3] if len(sys.argv) > 3 else None
    os.environ["DISPLAY"] = DISPLAY
    os.environ.pop("WAYLAND_DISPLAY", None)
    with open(file, "rb") as whole:
        while whole.read(1 << 24):  # both find it in memory
            pass
    with tempfile.TemporaryDirectory() as folder:
        display = Display(folder)
        try:
            ours = medians(Desk(display, pictures, desk, file))
            theirs = medians(Browser(display, pictures, file))
        finally:
            display.server.terminate()
    for name, seconds in ours.items():
        if seconds == 0 or theirs[name] == 0:
            print(f"{name}: nothing was painted")
        else:
            print(f"{name}: {1000 * seconds:.0f} beside {1000 * theirs[name]:.0f}, {seconds / theirs[name]:.2f}")


main()
