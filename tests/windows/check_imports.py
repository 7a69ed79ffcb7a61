#!/usr/bin/env python3
"""Proves that Windows 7 can load the programs: they import its own libraries alone, and no function that came later.

    check_imports.py COMPILER OBJDUMP FILE...
"""

import re
import subprocess
import sys

# What every Windows since 7 has.
LIBRARIES = {"advapi32", "bcrypt", "comctl32", "comdlg32", "crypt32", "gdi32", "gdiplus", "imm32", "kernel32", "msimg32",
             "msvcrt", "odbc32", "ole32", "oleacc", "oleaut32", "rpcrt4", "shell32", "shlwapi", "user32", "uuid", "uxtheme",
             "version", "winmm", "winspool.drv", "ws2_32"}
HEADERS = ["winsock2.h", "windows.h", "bcrypt.h", "wincrypt.h", "commctrl.h", "commdlg.h", "oleacc.h", "ole2.h",
           "oleauto.h", "shlobj.h", "shlwapi.h", "uxtheme.h", "winspool.h", "time.h", "stdio.h"]
# Later functions that the headers declare for every version.
LATER = {"AddDllDirectory", "CopyFile2", "GetOverlappedResultEx", "GetSystemTimePreciseAsFileTime", "GetTempPath2A",
         "GetTempPath2W", "QueryInterruptTimePrecise", "QueryUnbiasedInterruptTimePrecise", "RemoveDllDirectory",
         "SetDefaultDllDirectories", "SetThreadDescription", "WaitOnAddress", "WakeByAddressAll", "WakeByAddressSingle"}


def declared(compiler, version):
    """Every word of the system's headers as they are for a version of Windows."""
    text = "".join(f"#include <{header}>\n" for header in HEADERS)
    done = subprocess.run([compiler, f"-D_WIN32_WINNT={version}", f"-DWINVER={version}", "-E", "-x", "c++", "-"],
                          input=text, capture_output=True, text=True, check=True)
    return set(re.findall(r"\w+", done.stdout))


def imports(objdump, file):
    said = subprocess.run([objdump, "-p", file], capture_output=True, text=True, check=True).stdout
    library, found = "", set()
    for line in said.splitlines():
        if match := re.match(r"\s*DLL Name: (\S+)", line):
            library = match.group(1).lower().removesuffix(".dll")
        elif library and (match := re.match(r"\s*[0-9a-f]+\s+\d+\s+(\w+)\s*$", line)):
            found.add((library, match.group(1)))
    return found


def main():
    compiler, objdump, *files = sys.argv[1:]
    later = (declared(compiler, "0x0A00") - declared(compiler, "0x0601")) | LATER
    wrong = False
    for file in files:
        found = imports(objdump, file)
        for library, function in sorted(found):
            if library not in LIBRARIES or function in later:
                wrong = True
                print(f"{file} imports {function} of {library}, which Windows 7 lacks")
        print(f"{file}: {len(found)} functions imported")
        wrong = wrong or not found
    # Headers that tell no version from another would find nothing.
    return 1 if wrong or "GetDpiForWindow" not in later else 0


if __name__ == "__main__":
    sys.exit(main())
