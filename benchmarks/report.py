"""Prints what a run of the benchmarks has reached, and writes it into docs/measured/.

    report.py BUILD_FOLDER [--check]

The folder holds the results of one run. With --check nothing is written, and the exit status is 1
if a ratio is not reached.
"""

import json
import os
import re
import statistics
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

import chart

MEASURED = Path(__file__).resolve().parent.parent / "docs" / "measured"
SECONDS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}
PACKAGES = ["libbenchmark-dev", "libre2-dev", "libhyperscan-dev", "nlohmann-json3-dev"]
QUERIES = ["domain_ids", "domain_names", "active_domain", "sort_index", "by_type", "by_types",
           "field_values", "check_info"]
PAGE = """# Measured costs

Written by `scripts/bench.sh`, to be read with [performance.md](../performance.md), which says what
is measured and how.

{machine}

## Ratios

{verdict}

{ratios}

## The cost of a lookup

![Cost of a lookup over the number of patterns](lookup.svg)

A lookup, warm:

{lookup_warm}

A lookup, first pass:

{lookup_first}

From patterns to readiness; for this library that is the section parsed and its index built:

{lookup_build}
"""


@dataclass
class Row:
    """A figure of the library beside that of another contestant, or of itself at another size."""
    what: str
    against: str
    ours: float
    other: float
    at_most: float | None = None  # times the other's
    faster: float | None = None  # times than the other
    unit: str = "s"
    least: float | None = None  # what no contestant can go below

    def ratio(self):
        return self.other / self.ours if self.faster else self.ours / self.other

    def reached(self):
        if self.faster:
            return self.ratio() >= self.faster
        return self.at_most is None or self.ratio() <= self.at_most

    def in_reach(self):
        """Whether the least work that there is would reach it."""
        return not self.least or self.other / self.least >= self.faster

    def ratio_text(self):
        if not self.faster:
            return f"{self.ratio():.3g} times"
        if self.ratio() >= 1:
            return f"{self.ratio():.3g} times faster"
        return f"{1 / self.ratio():.3g} times slower"

    def cells(self):
        aim, verdict = "shown", ""
        if self.faster:
            aim = "faster" if self.faster == 1 else f"{self.faster:g} times faster"
        elif self.at_most:
            aim = f"at most {self.at_most:g}"
        if aim != "shown":
            verdict = "yes" if self.reached() else "**no**" if self.in_reach() else "out of reach"
        return [self.what, self.against, quantity(self.ours, self.unit),
                quantity(self.other, self.unit), self.ratio_text(), aim, verdict]


def quantity(value, unit):
    """A figure with three digits and a fitting unit."""
    steps = ([(1e-9, "ns"), (1e-6, "µs"), (1e-3, "ms"), (1, "s")] if unit == "s" else
             [(1e3, "kB"), (1e6, "MB"), (1e9, "GB")])
    scale, name = next((step for step in reversed(steps) if value >= step[0]), steps[0])
    value /= scale
    return f"{value:.0f} {name}" if value >= 100 else f"{value:.3g} {name}"


def read_times(folder):
    """The median time of each case, by its name. It is the processor's time: of a case that tells
    its own time this is what it has told."""
    runs = {}
    for path in folder.glob("*.json"):
        for run in json.loads(path.read_text())["benchmarks"]:
            if run["run_type"] != "iteration":
                continue
            field = "real_time" if "/manual_time" in run["run_name"] else "cpu_time"
            name = "/".join(run["run_name"].split("/")[:3])
            runs.setdefault(name, []).append(run[field] * SECONDS[run["time_unit"]])
    return {name: statistics.median(times) for name, times in runs.items()}


def read_memory(path):
    """Growth and size of each file that was loaded, in bytes."""
    lines = [line.split() for line in path.read_text().splitlines()]
    return {name: (int(growth), int(size)) for name, growth, size in lines}


def best(times, row, size):
    """Name and time of the faster of the peers that take part at this size."""
    names = {"re2": "RE2::Set", "hyperscan": "Hyperscan"}
    return min((times[f"{row}/{peer}/{size}"], name) for peer, name in names.items()
               if f"{row}/{peer}/{size}" in times)


def sizes_of(times, row):
    """The sizes at which the library took part in a row, numbers first."""
    sizes = [name.split("/")[2] for name in times if name.startswith(f"{row}/ours/")]
    return sorted(sizes, key=lambda size: (not size.isdigit(), int(size) if size.isdigit() else 0))


def thousands(size):
    return f"{int(size):,}" if size.isdigit() else size


def among(size):
    return f"{thousands(size)} patterns" if size.isdigit() else "the titles of real tables"


def lookup_rows(times):
    kinds = {"lookup_warm": "warm", "lookup_first": "first pass"}
    for row, kind in kinds.items():
        yield Row(f"`GetClaccificatorCodeId`, 100,000 patterns, {kind}", "itself among 100",
                  times[f"{row}/ours/100000"], times[f"{row}/ours/100"], at_most=4)
    yield Row("`GetClaccificatorCodeId`, 10,000 patterns, warm",
              "the plain walk, capitals made once",
              times["lookup_warm/ours/10000"], times["lookup_warm/walk/10000"], faster=200)
    for row, kind in kinds.items():
        for size in sizes_of(times, row):
            what = f"`GetClaccificatorCodeId`, {among(size)}, {kind}"
            other, name = best(times, row, size)
            few = size.isdigit() and int(size) < 10000
            ours = times[f"{row}/ours/{size}"]
            yield Row(what, name, ours, other, faster=1 if few else 2)
            yield Row(what, "capitals and cutting alone", ours, times[f"{row}/floor/{size}"],
                      at_most=1 if row == "lookup_warm" else 1.5)
    for size in sizes_of(times, "lookup_build"):
        other, name = best(times, "lookup_build", size)
        yield Row(f"its index, with all that a load makes of the section, {among(size)}", name + ", built",
                  times[f"lookup_build/ours/{size}"], other, faster=10)


def mapping_rows(times):
    for row, kind, limit in [("mapping_warm", "warm", 3), ("mapping_first", "first pass", None)]:
        yield Row(f"`GetMappingStr`, 10,000 patterns, {kind}", "the lookup, and a copy of the result",
                  times[f"{row}/ours/10000"], times[f"{row}/floor/10000"], at_most=limit)


def color_rows(times):
    for row, call in [("color_num", "GetColorNum"), ("color", "GetColor")]:
        yield Row(f"`{call}`, 10,000 key texts", "a sorted array",
                  times[f"{row}/ours/10000"], times[f"{row}/floor/10000"], at_most=2)


def growth_row(times, what, row, who, small, large):
    return Row(f"{what}, linear", "itself at half the size",
               times[f"{row}/{who}/{large}"], times[f"{row}/{who}/{small}"], at_most=3)


def text_load_rows(times):
    loads = [("classificator", "`CreateClassificator`", " MB", size, 5)
             for size in ("1", "10", "100")]
    loads.append(("domain_text", "`CreateDomen` of text", " properties", "10000", 7.5))
    for row, call, unit, size, limit in loads:
        what = f"{call}, {thousands(size)}{unit}"
        ours, floor = times[f"{row}/ours/{size}"], times[f"{row}/floor/{size}"]
        yield Row(what, "reading and decoding alone", ours, floor, at_most=limit)
        yield Row(what, "`std::wifstream` and `getline`", ours,
                  times[f"{row}/wide_stream/{size}"], faster=3, least=floor)
    for row, call, unit, small, large in [
            ("classificator", "`CreateClassificator`", " MB", "10", "20"),
            ("classificator", "`CreateClassificator`", " MB", "50", "100"),
            ("domain_text", "`CreateDomen` of text", " properties", "10000", "20000")]:
        yield growth_row(times, f"{call}, {thousands(large)}{unit}", row, "ours", small, large)


def json_rows(times):
    for row, what in [("json_load", "`CreateDomen` of `.json`"),
                      ("json_plain", "`CreateDomen` of `.json` without comments and blanks"),
                      ("json_export", "`ExportJson`"),
                      ("json_replace", "`ExportJson` over an earlier export")]:
        yield Row(f"{what}, 10,000 properties", "nlohmann::json", times[f"{row}/ours/10000"],
                  times[f"{row}/nlohmann/10000"], at_most=1.5)
        yield growth_row(times, f"{what}, 20,000 properties", row, "ours", "10000", "20000")


def query_rows(times):
    for query in QUERIES:
        # These two walk over all properties of a domain, which stand far apart in memory.
        limit = 15 if query in ("sort_index", "check_info") else 5
        yield Row(f"domain query `{query}`", "a copy of each string",
                  times[f"query_{query}/ours/10000"], times[f"query_{query}/floor/10000"],
                  at_most=limit)


def copy_rows(times):
    yield Row("copy of an editor, 100,000 records", "its load", times["copy/ours/100000"],
              times["copy/load/100000"], at_most=0.5)


def check_rows(times):
    what, ours = "the check of a classificator, 100,000 patterns", times["check/ours/100000"]
    yield Row(what, "its load", ours, times["check/load/100000"])
    yield Row(what, "its load, and `GetMappingStr` of each pattern", ours,
              times["check/mapped/100000"], at_most=3)


def memory_rows(linux, windows):
    for system, loads, limit in [("Linux", linux, 20), ("Windows", windows, None)]:
        for name, (growth, size) in loads.items():
            yield Row(f"peak memory of loading `{name}`, {system}", "size of the file", growth,
                      size, at_most=limit, unit="B")


def table(header, rows):
    lines = ["| " + " | ".join(cells) + " |" for cells in [header, ["---"] * len(header), *rows]]
    return "\n".join(lines)


def cost_table(times, row):
    """What each contestant takes, by size."""
    sizes = sizes_of(times, row)
    names = {"ours": "`GetClaccificatorCodeId`" if row != "lookup_build" else "this library",
             "floor": "capitals and cutting alone", "re2": "RE2::Set", "hyperscan": "Hyperscan",
             "walk": "the plain walk"}
    rows = []
    for who, name in names.items():
        costs = [times.get(f"{row}/{who}/{size}") for size in sizes]
        if any(costs):
            rows.append([name] + [quantity(cost, "s") if cost else "" for cost in costs])
    return table([""] + [thousands(size) for size in sizes], rows)


def machine(build):
    cpu = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text()).group(1)
    compiler = next(build.glob("CMakeFiles/*/CMakeCXXCompiler.cmake")).read_text()
    name, version = (re.search(rf'CMAKE_CXX_COMPILER_{key} "(.*)"', compiler).group(1)
                     for key in ("ID", "VERSION"))
    packages = subprocess.run(["dpkg-query", "-W", "-f", "${Package} ${Version}, ", *PACKAGES],
                              capture_output=True, text=True, check=True).stdout.rstrip(", ")
    return (f"Made on {cpu}, {os.cpu_count()} cores, with {name} {version}, a release build, and "
            f"the packages {packages}.")


def verdict(rows):
    missed = [row for row in rows if not row.reached()]
    out_of_reach = sum(not row.in_reach() for row in missed)
    return (f"{len(rows)} rows, {len(missed) - out_of_reach} of them not reached, "
            f"{out_of_reach} out of reach")


def write_docs(times, rows, ratios, build):
    costs = {row: cost_table(times, row) for row in ["lookup_warm", "lookup_first", "lookup_build"]}
    page = PAGE.format(machine=machine(build), verdict=verdict(rows) + ".", ratios=ratios, **costs)
    (MEASURED / "performance.md").write_text(page)
    (MEASURED / "lookup.svg").write_text(chart.draw(times))


def main():
    build = Path(sys.argv[1])
    check = "--check" in sys.argv[2:]
    times = read_times(build / "results")
    rows = [*lookup_rows(times), *mapping_rows(times), *color_rows(times), *text_load_rows(times),
            *json_rows(times), *query_rows(times), *copy_rows(times), *check_rows(times),
            *memory_rows(read_memory(build / "results" / "memory_linux"),
                         read_memory(build / "results" / "memory_windows"))]
    header = ["what", "against", "ours", "theirs", "ratio", "to reach", "reached"]
    ratios = table(header, [row.cells() for row in rows])
    print(ratios)
    print(f"\n{verdict(rows)}")
    if not check:
        write_docs(times, rows, ratios, build)
    elif any(not row.reached() and row.in_reach() for row in rows):
        sys.exit(1)


if __name__ == "__main__":
    main()
