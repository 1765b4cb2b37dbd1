#!/usr/bin/env python3
"""Holds the tables built into zninspect against the frozen ones.   compare_tables.py ZNINSPECT

Each *.txt beside this script is a table of that name as "zninspect tables" prints it; lines that
begin with # are notes. Favourites and settings blocks that users have stored, and the printer
description, rely on every row: when one changes on purpose, its line here changes with it.
"""
import difflib
import subprocess
import sys
from pathlib import Path


def main():
    printed = subprocess.run([sys.argv[1], "tables"], capture_output=True, text=True, check=True).stdout
    built = {}
    for line in printed.splitlines():
        if line.startswith("# "):
            rows = built[line[2:line.index(":")]] = []
        else:
            rows.append(line)
    frozen = {}
    for path in Path(__file__).parent.glob("*.txt"):
        lines = path.read_text(encoding="ascii").splitlines()
        frozen[path.stem] = [line for line in lines if not line.startswith("#")]
    same = True
    for name in sorted(frozen.keys() | built.keys()):
        for line in difflib.unified_diff(frozen.get(name, []), built.get(name, []),
                                         f"frozen {name}", f"built {name}", n=0, lineterm=""):
            print(line)
            same = False
    print(f"{sum(map(len, frozen.values()))} rows of {len(frozen)} tables", "match" if same else "DIFFER")
    return 0 if same else 1


if __name__ == "__main__":
    sys.exit(main())
