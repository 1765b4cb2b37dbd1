#!/usr/bin/env python3
"""Runs the commands of the documents.   run_commands.py ZNINSPECT DOCUMENT...

Every block that begins with ```sh is run line by line, in an empty folder with sample files; the
first command that fails ends it.
"""
import os
import subprocess
import sys
import tempfile
from pathlib import Path

SAMPLES = {
    "sample.pfj": "1\n0\n0\nComment=for the fair\nOUT_STPL=3\t\tEXT_NUP=2\t\t\nPageSize=A4\n",
    "other.pfj": "1\n0\n0\nComment=\nOUT_STPL=1\t\t\nPageSize=A3\n",
    "sample.cps": "HasOption_InputSlot=Tray1\nHasOption_ZNStaple=true\nWatermark10=CONFIDENTIAL\n",
}


def commands(document):
    inside = False
    for line in document.read_text(encoding="utf-8").splitlines():
        if line.startswith("```"):
            inside = line == "```sh"
        elif inside and line.strip():
            yield line


def main():
    inspector, *documents = (Path(word).resolve() for word in sys.argv[1:])
    environment = os.environ | {"PATH": f"{inspector.parent}:{os.environ['PATH']}"}
    root = Path(__file__).resolve().parents[2]
    count = 0
    with tempfile.TemporaryDirectory() as folder:
        for name, text in SAMPLES.items():
            Path(folder, name).write_text(text, encoding="cp932", newline="")
        sample = root / "host/sample"
        subprocess.run([sys.executable, sample / "generate_sample.py", sample / "options.txt", "--ppd",
                        Path(folder, "sample.ppd")], check=True)
        for document in documents:
            for command in commands(document):
                done = subprocess.run(["bash", "-c", command], cwd=folder, env=environment,
                                      capture_output=True, check=False)
                if done.returncode != 0:
                    sys.exit(f"{document.name}: {command}\n{done.stderr.decode(errors='replace')}")
                count += 1
    print(f"{count} commands")
    return 0 if count > 0 else 1


if __name__ == "__main__":
    sys.exit(main())
