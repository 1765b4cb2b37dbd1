#!/usr/bin/env python3
"""Runs the benchmark programs named as arguments and the timed verbs of the driver host, and prints
one table of all budgets.

Every time is the median of rounds that alternate with those of the other works of the program, and
every ratio the median over several runs of it: a machine that is slow, busy or changes its clock
slows down both sides of a ratio. Exit code 1 when a ratio is over its
budget or a work of the table was not measured.
"""

import json
import operator
import re
import statistics
import subprocess
import sys

from budgets import BUDGETS

OPTIONS = [
    "--benchmark_format=json",
    "--benchmark_repetitions=9",
    "--benchmark_min_time=0.02",
    "--benchmark_enable_random_interleaving=true",
]
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}

RUNS = 5

HOST = ["scripts/wine-run", "build/windows/bin/znhost.exe"]
HOST_VERBS = [["install"], ["load", "500"], ["open", "30"], ["favorites", "8"]]


def output_of(command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout.decode("cp932")


def measure(program):
    """The processor time in nanoseconds of each benchmark in `program`, by name."""
    rounds = {}
    for run in json.loads(output_of([program, *OPTIONS]))["benchmarks"]:
        if run["run_type"] == "iteration" and not run.get("error_occurred", False):
            time = run["cpu_time"] * NANOSECONDS[run["time_unit"]]
            rounds.setdefault(run["run_name"], []).append(time)
    return {name: statistics.median(times) for name, times in rounds.items()}


def measure_host(verb):
    """What the verb reports of each work and of its reference, by name: times in nanoseconds, or
    counts."""
    measured = {}
    line = r"^(.+): (.+) (\w+), (.+): (.+) \3, ratio"
    for work, ours, unit, reference, theirs in re.findall(line, output_of(HOST + verb), re.MULTILINE):
        size = NANOSECONDS.get(unit, 1)
        measured |= {work: float(ours) * size, reference: float(theirs) * size}
    return measured


def duration(nanoseconds):
    for unit, size in (("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:,.2f} {unit}"
    return f"{nanoseconds:,.1f} ns"


def main(programs):
    times = {}
    for program in programs:
        runs = [measure(program) for _ in range(RUNS)]
        times |= {name: [run[name] for run in runs] for name in runs[0]}
    for verb in HOST_VERBS:  # they do many rounds
        times |= {name: [time] for name, time in measure_host(verb).items()}

    print(f"{'work':<40} {'ours':>12} {'reference':>12} {'ratio':>8} {'budget':>8}")
    failed = False
    for row in BUDGETS:
        if row.ours not in times or row.reference not in times:
            print(f"{row.work:<40} not measured")
            failed = True
            continue
        ours, reference = statistics.median(times[row.ours]), statistics.median(times[row.reference])
        ratio = statistics.median(map(operator.truediv, times[row.ours], times[row.reference]))
        over = ratio > row.ratio
        failed |= over
        print(
            f"{row.work:<40} {duration(ours):>12} {duration(reference):>12} "
            f"{ratio:>8.3g} {row.ratio:>8.3g}{'  OVER' if over else ''}"
        )
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
