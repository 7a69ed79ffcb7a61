#!/usr/bin/env python3
"""Proves that a layer sees the layers under it and nothing else: no toolkit, no platform, no engine, no layer above.

    check_layers.py SOURCE-FOLDER BUILD-FOLDER

Each layer's own compile command is tried on one-line probes of which most must be refused, and what ninja saw every
source of the layer include is held against the same rule.
"""

import json
import pathlib
import re
import shlex
import subprocess
import sys

FIELDS = ["lookup", "people", "insurance", "recall", "locations"]
SEES = {"forms": [], "session": ["forms"], "data": ["forms", "session"],
        "editing": ["forms", "session", "data"]}
SEES |= {field: ["forms", "session", "data", "editing"] for field in FIELDS}
SEES["entry"] = ["forms", "session", "data", "editing", *FIELDS]
ABOVE = ["views", "com", "automation", "host"]

FOREIGN = ["wx/wx.h", "gtk/gtk.h", "windows.h", "sqlite3.h", "libpq-fe.h", "sql.h", "sqlext.h", "sodium.h"]
FOREIGN_PATH = re.compile(r"/(wx|gtk-[^/]*)/|/(windows|sqlite3|libpq-fe|sql|sqlext|sodium)\.h$")
REFUSED = re.compile(r"fatal error: [^\n]*No such file|forms to entry see no toolkit")

TOP, BUILD = (pathlib.Path(folder).resolve() for folder in sys.argv[1:3])
failures = []


def sources_of(layer):
    return sorted((TOP / "src" / layer).glob("*.cpp"))


def layer_of(path):
    """The layer that a file of ours belongs to; nothing for any other file."""
    real = pathlib.Path(path).resolve()
    if not real.is_relative_to(TOP) or real.is_relative_to(BUILD):
        return None
    parts = real.relative_to(TOP).parts
    return parts[1] if parts[0] == "src" else parts[0]


def probe(command, include):
    """What the preprocessor says to a source that includes this alone; empty when it takes it."""
    done = subprocess.run([*command, "-E", "-o", "/dev/null", "-x", "c++", "-"], input=f"#include <{include}>\n", text=True,
                          capture_output=True, cwd=BUILD)
    return "" if done.returncode == 0 else done.stderr or "refused without a word"


def probe_command(words):
    """The compile command of a source, without the source, its outputs and the precompiled header."""
    command, arguments = [], iter(words[next(i for i, word in enumerate(words) if "++" in word):])
    for word in arguments:
        if word in ("-o", "-c", "-include", "-MT", "-MF"):
            next(arguments)
        elif word not in ("-MD", "-Winvalid-pch"):
            command.append(word)
    return command


def check_probes(layer, command):
    for seen in [layer, *SEES[layer]]:
        header = next((TOP / "src" / seen).glob("*.h"), None)
        if header and (said := probe(command, f"{seen}/{header.name}")):
            failures.append(f"{layer} should see {seen}/{header.name}, but: {said}")
    unseen = [f"{other}/{header.name}" for other in [*SEES, *ABOVE] if other not in [layer, *SEES[layer]]
              for header in list((TOP / "src" / other).glob("*.h"))[:1]]
    unseen += [f"{folder.name}/{header.name}" for folder in (TOP / "host").iterdir() if folder.is_dir()
               for header in list(folder.glob("*.h"))[:1]]
    for include in [*FOREIGN, *unseen]:
        said = probe(command, include)
        if not REFUSED.search(said):
            failures.append(f"{layer} should not see {include}, but the compiler " + (f"says: {said}" if said else "takes it"))
    return len(FOREIGN) + len(unseen)


def seen_by_source():
    """Source to all the files that it was compiled from."""
    listing = subprocess.run(["ninja", "-C", BUILD, "-t", "deps"], check=True, capture_output=True, text=True).stdout
    for block in listing.split("\n\n"):
        paths = [str(BUILD / line.strip()) for line in block.strip().split("\n")[1:]]
        for path in paths:
            if path.endswith(".cpp"):
                yield pathlib.Path(path).resolve(), paths
                break


def check_includes():
    foreign_elsewhere = 0
    checked = 0
    for source, paths in seen_by_source():
        layer = layer_of(source)
        foreign = [path for path in paths if FOREIGN_PATH.search(path) and not layer_of(path)]
        if layer not in SEES:
            foreign_elsewhere += bool(foreign)
            continue
        checked += 1
        above = [path for path in paths if (other := layer_of(path)) and other not in [layer, *SEES[layer], "cmake"]]
        failures.extend(f"{source.relative_to(TOP)} includes {path}" for path in foreign + above)
    if not foreign_elsewhere:
        failures.append("no source anywhere is seen to include an engine or a toolkit: this check is blind")
    return checked


commands = {}
for entry in json.loads((BUILD / "compile_commands.json").read_text()):
    source = pathlib.Path(entry["directory"], entry["file"]).resolve()
    commands.setdefault(source, shlex.split(entry["command"]))

probes = 0
for layer in SEES:
    sources = sources_of(layer)
    if sources and sources[0] not in commands:
        failures.append(f"{layer} has sources that are not built")
    elif sources:
        probes += check_probes(layer, probe_command(commands[sources[0]]))
checked = check_includes()
if checked < len([source for layer in SEES for source in sources_of(layer)]):
    failures.append("not every source is built: build first")

print("\n".join(failures) or f"{probes} includes refused, {checked} sources include only what their layer sees")
sys.exit(1 if failures else 0)
