"""The desk without a display, for a browser."""
import contextlib
import os
import re
import subprocess


@contextlib.contextmanager
def desk(program, folder, log=None):
    """The desk on a fresh demo practice; gives its process and the address that it printed. `log` gets what it reports."""
    environment = {name: value for name, value in os.environ.items()
                   if name not in ("DISPLAY", "WAYLAND_DISPLAY", "BROADWAY_DISPLAY", "GDK_BACKEND")}
    environment.update(XDG_DATA_HOME=folder, XDG_RUNTIME_DIR=folder)
    with subprocess.Popen([program], env=environment, stdout=subprocess.PIPE, stderr=log, text=True) as process:
        try:
            address = re.search(r"http://127\.0\.0\.1:\d+/\?key=\w+", process.stdout.readline())
            assert address, "the desk printed no address"
            yield process, address[0]
        finally:
            process.terminate()
