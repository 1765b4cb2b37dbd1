#!/usr/bin/env python3
"""What the shipped DLL promises its host: check_dll.py OBJDUMP DLL."""

import os
import re
import subprocess
import sys

MOST_BYTES = 450 * 1024
EXPORTS = ["DllCanUnloadNow", "DllGetClassObject"]
SYSTEM_MODULES = {
    "ADVAPI32.DLL", "COMCTL32.DLL", "GDI32.DLL", "KERNEL32.DLL", "MSIMG32.DLL", "MSVCRT.DLL",
    "OLE32.DLL", "SHELL32.DLL", "USER32.DLL", "WINSPOOL.DRV",
}
DLL_CHARACTERISTICS = ["HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT"]


def faults(headers, size):
    if size >= MOST_BYTES:
        yield f"{size} bytes, allowed are fewer than {MOST_BYTES}"
    if "symbols stripped" not in headers:
        yield "not stripped"
    modules = {name.upper() for name in re.findall(r"DLL Name: (\S+)", headers)}
    if not modules:
        yield "no imports found"
    if modules - SYSTEM_MODULES:
        yield f"imports {sorted(modules - SYSTEM_MODULES)}"
    table = headers.partition("[Ordinal/Name Pointer] Table")[2].partition("\n\n")[0]
    exports = re.findall(r"\[ *\d+\] (?:\+base\[ *\d+\] *)?(?:[0-9a-f]+ )?(\S+)", table)
    if sorted(exports) != EXPORTS:
        yield f"exports {exports}"
    for flag in DLL_CHARACTERISTICS:
        if flag not in headers:
            yield f"flag {flag} is missing"


def main():
    objdump, dll = sys.argv[1:]
    headers = subprocess.run([objdump, "-p", dll], capture_output=True, text=True, check=True,
                             env={**os.environ, "LC_ALL": "C"}).stdout
    found = list(faults(headers, os.path.getsize(dll)))
    for fault in found:
        print(f"{os.path.basename(dll)}: {fault}")
    print(f"{os.path.getsize(dll)} bytes")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
