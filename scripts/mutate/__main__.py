"""Runs mutation tests: changes the sources in one place at a time, builds, and runs the tests until
one fails.

A change (a mutant) survives if no test fails. A change that doesn't build doesn't count; one that
hangs or crashes is killed. The work is done in copies of the tree. Prints a line for each mutant
and a summary, and writes three files into build/mutate: all mutants, the survivors, and the
summary.
"""

import argparse
import concurrent.futures
import functools
import pathlib
import resource
import sys

import mutants
import report
import trees
from source import Source, find_sources

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "mutate"


def parse_arguments():
    parser = argparse.ArgumentParser(prog="mutate.sh", description=__doc__.split("\n\n")[0])
    parser.add_argument("--count", type=int, default=500, help="how many mutants to build (500)")
    parser.add_argument("--seed", type=int, default=1,
                        help="chooses among all that are possible (1)")
    parser.add_argument("--jobs", type=int, default=2, help="copies of the tree to work in (2)")
    parser.add_argument("--only", nargs="+", default=[], metavar="TEXT",
                        help="only sources with one of these in their names")
    parser.add_argument("--again", action="store_true",
                        help="only what lived the last time, to see whether new tests kill it")
    parser.add_argument("--list", action="store_true", help="list what is possible and stop")
    return parser.parse_args()


def try_all(sources, found, quotas, options):
    """Tries the quota of mutants of each file."""
    free_trees = [trees.Tree(WORK, number) for number in range(options.jobs)]
    results = report.Results(WORK, sum(map(len, found.values())), options.seed)

    def try_file(name):
        tree = free_trees.pop()
        try:
            order = mutants.shuffle(found[name], name, options.seed)
            for mutant, outcome in tree.try_out_some(order, quotas[name]):
                results.add(sources[name], mutant, outcome)
        finally:
            free_trees.append(tree)

    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        list(pool.map(functools.partial(trees.Tree.prepare, root=ROOT), free_trees))
        # A change to a header rebuilds most of the tree, so headers are last.
        names = sorted(quotas, key=lambda name: (name.endswith(".h"), -quotas[name]))
        list(pool.map(try_file, names))
    return results


def main():
    options = parse_arguments()
    sources = {name: Source(name, (ROOT / name).read_text(encoding="utf-8"))
               for name in find_sources(ROOT, options.only)}
    found = {name: mutants.find_mutants(source) for name, source in sources.items()}
    if options.list:
        for name, of_file in found.items():
            sys.stdout.write(report.table(report.columns(sources[name], m) for m in of_file))
        return 0

    WORK.mkdir(parents=True, exist_ok=True)
    if options.again:
        lived = set((WORK / "survivors.tsv").read_text(encoding="utf-8").splitlines())
        found = {name: [m for m in of_file
                        if "\t".join(report.columns(sources[name], m)) in lived]
                 for name, of_file in found.items()}
        quotas = {name: len(of_file) for name, of_file in found.items() if of_file}
    else:
        quotas = mutants.divide(found, options.count)

    results = try_all(sources, found, quotas, options)
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    print(results.summary())
    print(f"{(usage.ru_utime + usage.ru_stime) / 60:.0f} minutes of processor time")
    return 0


if __name__ == "__main__":
    sys.exit(main())
