#!/usr/bin/env python3
"""What two PostgreSQL servers cost: the same offices on one and on two.

two_servers.py BUILD/bin PATIENTS ONE NORTH SOUTH

ONE, NORTH and SOUTH are URLs of databases without tables, SOUTH on another server than the other two; psql is used.
Prints the ratio of two servers to one, medians of runs that take turns: of a desk's work, and of each statement of a
report that crosses servers.
"""
import re
import statistics
import subprocess
import sys

RUNS = 30
PATH = "SET search_path = offices, practice, public; SET enable_partitionwise_join = on; " \
       "SET enable_partitionwise_aggregate = on;"
STATEMENTS = {
    "another office's list, first 100 by name":
        "SELECT pid, plasnam, pfirnam, phompho FROM patable WHERE pTypPat >= '1' AND officeid = 2 "
        "ORDER BY plasnam NULLS FIRST, pfirnam NULLS FIRST LIMIT 100",
    "the same of all offices":
        "SELECT officeid, pid, plasnam, pfirnam FROM patable WHERE pTypPat >= '1' "
        "ORDER BY plasnam NULLS FIRST, pfirnam NULLS FIRST LIMIT 100",
    "another office's coverages, five tables joined, a name's first letters":
        "SELECT p.pid, p.plasnam, e.empnam, i.insconam FROM patable p "
        "JOIN patemptable h ON h.officeid = p.officeid AND h.patemppatid = p.pid "
        "JOIN eltable l ON l.officeid = h.officeid AND l.elid = h.patempelid "
        "JOIN emptable e ON e.officeid = l.officeid AND e.empind = l.elempid "
        "LEFT JOIN inscotable i ON i.officeid = l.officeid AND i.inscoind = l.elinsid "
        "WHERE p.officeid = 2 AND p.plasnam LIKE 'sm%'",
    "patients counted, office by office":
        "SELECT officeid, count(*) FROM patable WHERE pTypPat >= '1' GROUP BY officeid",
}


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def milliseconds(url, statement):
    script = f"{PATH}\n\\timing on\n{statement};\n" * 2  # the first run plans and warms
    return float(re.findall(r"Time: ([\d.]+) ms", run_script(url, script))[-1])


def run_script(url, script):
    return subprocess.run(["psql", "-X", "-q", "-o", "/dev/null", url], input=script, check=True, capture_output=True,
                          text=True).stdout


def main():
    programs, patients, one, north, south = sys.argv[1:]
    console = f"{programs}/practice_console"
    run(console, "offices", "create", "--server", f"north={one}")
    run(console, "offices", "create", "--server", f"north={north}")
    run(console, "offices", "add-server", "--database", north, "--server", f"south={south}")
    for url, home in ((one, "north"), (north, "south")):
        run(console, "offices", "add-office", "1", "--database", url, "--server", "north", "--demo", patients)
        run(console, "offices", "add-office", "2", "--database", url, "--server", home, "--demo", patients)
    for url in (one, north, south):
        run("psql", "-X", "-q", "-c", "ANALYZE", url)
    print(run(f"{programs}/two_practices_bench", "2", north, one), end="")
    for name, statement in STATEMENTS.items():
        times = {one: [], north: []}
        for _ in range(RUNS):
            for url, taken in times.items():
                taken.append(milliseconds(url, statement))
        here, across = statistics.median(times[one]), statistics.median(times[north])
        print(f"{across / here:6.2f}  {name} ({here:.1f} ms, {across:.1f} ms)")


if __name__ == "__main__":
    main()
