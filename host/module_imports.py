#!/usr/bin/env python3
"""What a module imports.

module_imports.py OBJDUMP MODULE --options OUT   linker options that import the same, for a response file
module_imports.py OBJDUMP MODULE --like OTHER    exit code 1 when the other one imports something else
"""

import os
import re
import subprocess
import sys


def imports(objdump, module):
    """The (DLL, function) pairs of the import table."""
    text = subprocess.run([objdump, "-p", module], capture_output=True, text=True, check=True,
                          env={**os.environ, "LC_ALL": "C"}).stdout
    table = text.partition("The Import Tables")[2].partition("The Export Tables")[0]
    found = set()
    for dll in table.split("DLL Name: ")[1:]:
        name = dll.split(maxsplit=1)[0].lower()
        found |= {(name, line[1]) for line in re.finditer(r"^\t[0-9a-f]+\s+\d+\s+(\S+)", dll, re.M)}
    return found


def main():
    objdump, module, action, other = sys.argv[1:]
    ours = imports(objdump, module)
    if not ours:
        sys.exit(f"no imports found in {module}")
    if action == "--options":
        with open(other, "w", encoding="ascii") as options:
            options.writelines(f"-Wl,--undefined=__imp_{name}\n" for _, name in sorted(ours))
    elif different := ours ^ imports(objdump, other):
        sys.exit(f"{module} and {other} differ in {sorted(different)}")


if __name__ == "__main__":
    main()
