#!/usr/bin/env python3
"""Runs a program for as long as a PostgreSQL server of its own, with an ODBC connection string as its last argument.

    on_a_server.py PROGRAM [ARGUMENT...]
"""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time


def programs():
    found = sorted(pathlib.Path("/usr/lib/postgresql").glob("*/bin/initdb"), key=lambda path: int(path.parts[-3]))
    return found[-1].parent


def main():
    folder = tempfile.mkdtemp(prefix="on_a_server-", dir="/tmp")
    # The server refuses to be root's, and ends with this process.
    prefix = ["setpriv", "--pdeathsig", "QUIT"]
    if os.geteuid() == 0:
        shutil.chown(folder, "postgres", "postgres")
        prefix += ["--reuid=postgres", "--regid=postgres", "--clear-groups"]
    server = None
    try:
        subprocess.run([*prefix, programs() / "initdb", "-D", f"{folder}/data", "-U", "practice", "-A", "trust", "-E",
                        "UTF8", "--locale=C.UTF-8", "--no-sync"], cwd=folder, check=True, stdout=subprocess.DEVNULL)
        with open(f"{folder}/log", "wb") as log:
            server = subprocess.Popen([*prefix, programs() / "postgres", "-D", f"{folder}/data", "-k", folder, "-c",
                                       "listen_addresses=", "-c", "fsync=off"], cwd=folder, stdout=log, stderr=log)
        ready = [programs() / "pg_isready", "-q", "-h", folder]
        while server.poll() is None and subprocess.run(ready, check=False).returncode != 0:
            time.sleep(0.05)
        return subprocess.run([*sys.argv[1:], "Driver={PostgreSQL Unicode};Servername=" + folder +
                               ";Database=postgres;Username=practice"], check=False).returncode
    finally:
        if server is not None:
            server.send_signal(signal.SIGQUIT)
            server.wait()
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main())
