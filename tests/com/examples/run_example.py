"""Runs an example of a host while somebody works in its windows.

run_example.py FOLDER FILE COMMAND...: the folder is emptied; the host makes its practice there. The file holds the
steps that are given to the person in the variable STEPS, a line "---", and then what the host must print and who must
be the last person in its practice."""
import os
import shutil
import sqlite3
import subprocess
import sys

folder, file, *command = sys.argv[1:]
with open(file) as text:
    steps, expected = text.read().split("---\n")
shutil.rmtree(folder, ignore_errors=True)
os.makedirs(folder)
run = subprocess.run(command, cwd=folder, env=os.environ | {"STEPS": steps}, stdout=subprocess.PIPE, text=True,
                     timeout=200, check=True)
seen = run.stdout.replace("\r\n", "\n")
with sqlite3.connect(os.path.join(folder, "demo.sqlite")) as practice:
    person = practice.execute("SELECT pLASNAM, pFIRNAM, pSEX, pBIRDAT, pADD1 FROM PATable"
                              " ORDER BY pID DESC LIMIT 1").fetchone()
seen += "last person: " + "|".join(str(value) for value in person) + "\n"
print(seen)
if seen != expected:
    sys.exit("It should have been:\n" + expected)
