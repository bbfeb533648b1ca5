#!/usr/bin/env python3
"""Prints the table of the benchmarks from their JSON output.

table.py [--strict] FILE

Of several repetitions the best one counts: other processes only ever make a run slower. Exit code 1 when host
calls, which are exact, grow beyond their limit; with --strict also when a ratio to the floor, a growth or a size is
above its limit. A time above its limit is told alone: machines differ. Exit code 2 when a benchmark did not run."""

import argparse
import json
import sys

GROWTH_LIMIT = 2.2  # what a doubling of the records may cost


class Figure:
    """What the repetitions of one benchmark tell."""

    def __init__(self, runs):
        self.name = runs[0].get("label") or runs[0]["run_name"]
        self.records = int(runs[0].get("records", 0))
        self.time = min(run["cpu_us"] for run in runs)
        self.time_limit = runs[0].get("limit_us")
        self.ratio_limit = runs[0].get("limit_ratio")
        self.floor = min((run["floor_us"] for run in runs if "floor_us" in run), default=None)
        self.calls = int(runs[0]["host_calls"]) if "host_calls" in runs[0] else None
        self.memory = runs[0].get("heap_bytes")
        self.resident = runs[0].get("resident_bytes")
        self.memory_limit = runs[0].get("limit_bytes")

        # The floor is measured in the same repetition: both are slow when the machine is.
        self.ratio = min((run["cpu_us"] / run["floor_us"] for run in runs if "floor_us" in run), default=None)

    def row(self):
        memory = self.resident if self.memory is None else self.memory
        ratio = "" if self.ratio is None else f"{self.ratio:.1f}"
        limits = [text for text in ("" if self.ratio_limit is None else f"ratio {self.ratio_limit:g}",
                                    time_text(self.time_limit), size_text(self.memory_limit)) if text]
        verdict = "" if not limits else "NO" if not self.holds() else "yes" if self.is_in_time() else "not the time"
        return [self.name, time_text(self.time), time_text(self.floor), ratio, count_text(self.calls),
                size_text(memory), ", ".join(limits), verdict]

    def holds(self):
        in_ratio = None in (self.ratio_limit, self.ratio) or self.ratio <= self.ratio_limit
        in_size = None in (self.memory_limit, self.resident) or self.resident <= self.memory_limit
        return in_ratio and in_size

    def is_in_time(self):
        return self.time_limit is None or self.time <= self.time_limit


class Growth:
    """One figure on more and more records. What counts are sizes that are twice the one before them."""

    def __init__(self, figures):
        self.figures = sorted(figures, key=lambda figure: figure.records)
        self.name = self.figures[0].name
        pairs = list(zip(self.figures, self.figures[1:]))
        if any(now.records != 2 * before.records for before, now in pairs):
            pairs = []  # some were left out by --benchmark_filter
        self.time_factors = [now.time / before.time for before, now in pairs]
        self.call_factors = [now.calls / max(before.calls, 1) for before, now in pairs]

    def mean(self):
        """Of the factors of time: single steps are as noisy as the machine."""
        whole = self.figures[-1].time / self.figures[0].time
        return whole ** (1 / len(self.time_factors))

    def time_holds(self):
        return self.mean() <= GROWTH_LIMIT

    def calls_hold(self):
        return max(self.call_factors) <= GROWTH_LIMIT

    def row(self):
        """The largest size, beside what a doubling may cost."""
        cells = self.figures[-1].row()
        cells[0] = f"{self.name}, {self.figures[-1].records:,} channels"
        if self.time_factors:
            holds = self.time_holds() and self.calls_hold()
            cells[6:] = [f"{GROWTH_LIMIT} a doubling", "yes" if holds else "NO"]
        return cells

    def detail(self):
        times = [time_text(figure.time) for figure in self.figures]
        steps = [f"{factor:.2f}" for factor in self.time_factors]
        calls = [f"{factor:.2f}" for factor in self.call_factors]
        return [[self.name, "time"] + times + ["a doubling"],
                ["", "factor of time", ""] + steps + [f"{self.mean():.2f}", mark(self.time_holds())],
                ["", "of host calls", ""] + calls + [f"{max(self.call_factors):.2f}", mark(self.calls_hold())]]


def mark(holds):
    return "yes" if holds else "NO"


def time_text(microseconds):
    if microseconds is None:
        return ""
    for unit, size in (("ms", 1000), ("us", 1)):
        if microseconds >= size:
            return f"{number_text(microseconds / size)} {unit}"
    return f"{number_text(microseconds * 1000)} ns"


def size_text(size):
    if size is None:
        return ""
    if size >= 1024 * 1024:
        return f"{number_text(size / 1024 / 1024)} MiB"
    return f"{number_text(size / 1024)} KiB"


def number_text(number):
    """Three digits, and none that tell nothing."""
    digits = 2 if number < 10 else 1 if number < 100 else 0
    text = f"{number:,.{digits}f}"
    return text.rstrip("0").rstrip(".") if "." in text else text


def count_text(count):
    return "" if count is None else f"{count:,}"


def print_table(rows, left):
    """Columns as wide as their widest cell; the first `left` of them start at the left."""
    columns = max(len(row) for row in rows)
    rows = [row + [""] * (columns - len(row)) for row in rows]
    widths = [max(len(row[i]) for row in rows) for i in range(columns)]
    for number, row in enumerate(rows):
        cells = [cell.ljust(width) if i < left else cell.rjust(width)
                 for i, (cell, width) in enumerate(zip(row, widths))]
        print("  ".join(cells).rstrip())
        if number == 0:
            print("  ".join("-" * width for width in widths))


def read_runs(path):
    """The runs by benchmark, in the order of the program; and what did not run."""
    with open(path, encoding="utf-8") as file:
        benchmarks = json.load(file)["benchmarks"]
    runs, failures = {}, []
    for run in benchmarks:
        if run.get("error_occurred"):
            failures.append(f"{run['name']}: {run['error_message']}")
        elif run["run_type"] == "iteration":
            runs.setdefault(run["run_name"], []).append(run)
    return runs, failures


def main():
    parser = argparse.ArgumentParser(description="Prints the table of the benchmarks.")
    parser.add_argument("--strict", action="store_true")
    parser.add_argument("file")
    arguments = parser.parse_args()
    runs, failures = read_runs(arguments.file)

    figures, families = [], {}
    for name, repetitions in runs.items():
        figure = Figure(repetitions)
        if figure.records:
            families.setdefault(name.split("/")[0], []).append(figure)
        else:
            figures.append(figure)
    growths = [Growth(family) for family in families.values()]

    heading = ["figure", "one run", "floor", "ratio", "host calls", "memory", "limit", "holds"]
    print_table([heading] + [row.row() for row in figures + growths], 1)
    growing = [growth for growth in growths if growth.time_factors]
    if growing:
        print("\nGrowth with the number of channels")
        sizes = max((growth.figures for growth in growing), key=len)
        rows = [["figure", ""] + [f"{figure.records:,}" for figure in sizes] + ["", "holds"]]
        for growth in growing:
            rows += growth.detail()
        print_table(rows, 2)
    print("\nProcessor time, best repetition; floor: the same host calls on a bare store; memory: most heap bytes "
          "at once above those\nbefore the run, of a process its resident ones. A doubling of records: time in the "
          "mean, host calls in each step.")

    for failure in failures:
        print(f"bench: did not run: {failure}", file=sys.stderr)
    wrong = [growth for growth in growing if not growth.calls_hold()]
    for growth in wrong:
        print(f"bench: host calls of \"{growth.name}\" grow by {max(growth.call_factors):.2f} in a doubling, at most "
              f"{GROWTH_LIMIT} are allowed", file=sys.stderr)
    slow = [figure.name for figure in figures if not figure.holds()]
    for figure in figures:
        if not figure.is_in_time():
            print(f"bench: {figure.name} takes {time_text(figure.time)}, should take {time_text(figure.time_limit)} on a "
                  "quiet machine", file=sys.stderr)
    slow += [growth.name for growth in growing if not growth.time_holds()]
    for name in slow:
        print(f"bench: above its limit: {name}", file=sys.stderr)
    if failures:
        return 2
    return 1 if wrong or (arguments.strict and slow) else 0


if __name__ == "__main__":
    sys.exit(main())
