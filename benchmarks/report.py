#!/usr/bin/env python3
"""Runs the benchmark programs named as arguments and prints one table of all budgets.

Exit code 1 when a ratio is over its budget or a work of the table was not measured.
"""

import json
import subprocess
import sys

from budgets import BUDGETS

# The fastest of several interleaved runs counts: what other work on the machine adds falls away.
OPTIONS = [
    "--benchmark_format=json",
    "--benchmark_repetitions=7",
    "--benchmark_min_time=0.05",
    "--benchmark_enable_random_interleaving=true",
]
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def measure(program):
    """The least processor time in nanoseconds of each benchmark in `program`, by name."""
    output = subprocess.run([program, *OPTIONS], check=True, stdout=subprocess.PIPE).stdout
    times = {}
    for run in json.loads(output)["benchmarks"]:
        if run["run_type"] == "iteration" and not run.get("error_occurred", False):
            time = run["cpu_time"] * NANOSECONDS[run["time_unit"]]
            times[run["run_name"]] = min(time, times.get(run["run_name"], time))
    return times


def duration(nanoseconds):
    for unit, size in (("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:,.2f} {unit}"
    return f"{nanoseconds:,.1f} ns"


def main(programs):
    times = {}
    for program in programs:
        times.update(measure(program))

    print(f"{'work':<36} {'ours':>12} {'reference':>12} {'ratio':>8} {'budget':>8}")
    failed = False
    for row in BUDGETS:
        if row.ours not in times or row.reference not in times:
            print(f"{row.work:<36} not measured")
            failed = True
            continue
        ours, reference = times[row.ours], times[row.reference]
        over = ours / reference > row.ratio
        failed |= over
        print(
            f"{row.work:<36} {duration(ours):>12} {duration(reference):>12} "
            f"{ours / reference:>8.3g} {row.ratio:>8.3g}{'  OVER' if over else ''}"
        )
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
