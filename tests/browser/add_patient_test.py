#!/usr/bin/env python3
"""Adds a patient with a real browser: the desk without a display, a login, the home, the quick screen.

    add_patient_test.py PRACTICE_DESK [PICTURE]

A failure leaves what the browser showed in PICTURE.
"""
import base64
import contextlib
import pathlib
import sqlite3
import sys
import tempfile

from desk import desk
from webdriver import Browser, wait_until

# Windows that a person sees, the newest last; their numbers grow.
WINDOWS = "return Object.values(surfaces).filter(s => s.visible && !s.isTemp).map(s => s.id).sort((a, b) => a - b)"


class Windows:
    """The windows in the page, one after the other."""

    def __init__(self, browser):
        self.browser = browser
        self.last = 0

    def wait_for_next(self, what):
        def newest():
            shown = self.browser.run(WINDOWS)
            return shown[-1] if shown and shown[-1] > self.last else None
        self.last = wait_until(newest, what)
        return self.last

    def wait_for_only(self, window, what):
        wait_until(lambda: self.browser.run(WINDOWS) == [window], what)


def add_patient(browser, database, process):
    windows = Windows(browser)
    windows.wait_for_next("the login")
    browser.type("front", "Tab", "wrong", "Enter")
    browser.type(("Control", "a"), "front", "Enter")
    main_window = windows.wait_for_next("the main window")
    browser.type("Smith, John", ("Control", "n"))
    windows.wait_for_next("the patient screen")
    browser.type("Enter", "Enter", "m", "Enter", "Enter", "010280", "Tab", "Tab", "5550100", "Enter")
    browser.type(("Alt", "o"))
    windows.wait_for_next("the question whether to save")
    browser.type(("Alt", "y"))
    windows.wait_for_only(main_window, "the end of the patient screen")

    def row():
        with contextlib.closing(sqlite3.connect(database)) as practice:
            return practice.execute("SELECT pSEX, pBIRDAT, pHOMPHO, pTypPat FROM PATable "
                                    "WHERE pLASNAM = 'Smith' AND pFIRNAM = 'John'").fetchall()
    rows = wait_until(row, "the row")
    assert len(rows) == 1, rows
    sex, birth, phone, is_patient = rows[0]
    assert sex == "M" and birth.startswith("1980-01-02") and "555" in phone and is_patient == "1", rows

    browser.type("5550100", "Enter")
    windows.wait_for_next("the patient found by his phone")
    browser.type("Esc")
    windows.wait_for_only(main_window, "the home again")
    browser.type(("Control", "q"))
    wait_until(lambda: process.poll() is not None, "the end of the desk")
    assert process.returncode == 0, process.returncode


def main():
    program = pathlib.Path(sys.argv[1]).resolve()
    picture = pathlib.Path(sys.argv[2]) if len(sys.argv) > 2 else None
    with tempfile.TemporaryDirectory() as folder, desk(program, folder) as (process, address):
        with Browser(f"{folder}/profile") as browser:
            browser.open(address)
            try:
                add_patient(browser, f"{folder}/practice_desk/demo.sqlite", process)
            except BaseException:
                if picture:
                    picture.write_bytes(base64.b64decode(browser.screenshot()))
                raise


if __name__ == "__main__":
    main()
