#!/usr/bin/env python3
"""Lays out the driver package, from one list of files.

    make_package.py --out DIR --inf zn5050.inf.in --plug-in Zn55psu1.dll
                    --satellite Zn55psu1ENU.dll --ppd FILE SAMPLE...

The package's base name is that of the INF. It holds the plug-in with the symbols and the English
texts beside it, the printer description, .ini, .inf, the samples below samples/, and SHA256SUMS. Texts become what the
system reads: CR LF, code page 932.
"""
import argparse
import hashlib
import shutil
from pathlib import Path

SAMPLES = "samples"
TEXT_SUFFIXES = (".ppd", ".cps")


def installed_text(path):
    """A UTF-8 text as the drivers and the plug-in read it."""
    text = path.read_text(encoding="utf-8")  # with \n, whatever the file has
    text = text.replace("*LanguageEncoding: UTF-8", "*LanguageEncoding: 90ms-RKSJ")
    return text.replace("\n", "\r\n").encode("cp932")


def content(path):
    return installed_text(path) if path.suffix in TEXT_SUFFIXES else path.read_bytes()


def ascii_text(lines):
    return "\r\n".join([*lines, ""]).encode("ascii")


def fill(template, values):
    text = template.read_text(encoding="ascii")
    for name, value in values.items():
        text = text.replace(f"@{name}@", value)
    return ascii_text(text.splitlines())


def package(words):
    """The package: bytes by path below its folder."""
    base = words.inf.name.partition(".")[0]
    ini, ppd, plug_in = f"{base}.ini", f"{base}.ppd", words.plug_in.name
    samples = [path.name for path in words.samples]
    copied = [ppd, ini, plug_in, words.satellite.name]
    symbols = words.plug_in.with_name(plug_in + ".debug")
    files = {
        plug_in: content(words.plug_in),
        symbols.name: content(symbols),
        words.satellite.name: content(words.satellite),
        ppd: content(words.ppd),
        ini: ascii_text(["[OEMFiles]", f"OEMConfigFile1={plug_in}"]),
        f"{base}.inf": fill(words.inf, {
            "COPY_FILES": ",".join(f"@{name}" for name in copied),
            "DATA_FILE": ppd,
            "SAMPLES": "\n".join(f'"{name}"' for name in samples),
            "SOURCE_FILES": "\n".join([f"{name}=1" for name in copied] +
                                      [f'"{name}"=1,{SAMPLES}' for name in samples]),
        }),
    }
    files |= {f"{SAMPLES}/{path.name}": content(path) for path in words.samples}
    sums = [f"{hashlib.sha256(files[name]).hexdigest()}  {name}\n" for name in sorted(files)]
    return files | {"SHA256SUMS": "".join(sums).encode("ascii")}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    for name in ("--out", "--inf", "--plug-in", "--satellite", "--ppd"):
        parser.add_argument(name, type=Path, required=True)
    parser.add_argument("samples", type=Path, nargs="+")
    words = parser.parse_args()
    files = package(words)
    shutil.rmtree(words.out, ignore_errors=True)
    for name, data in files.items():
        path = words.out / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)


if __name__ == "__main__":
    main()
