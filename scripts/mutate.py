"""Puts random faults into a copy of src/, one at a time, and tells which of them the tests let pass: scripts/mutate.sh.

What is kept in build/mutate: the copy (tree), its build, what each test reaches (tests.json), and the faults of the
last run that no test caught (survivors.json)."""

import argparse
import json
import resource
import shutil
import signal
import sys
import time
from collections import Counter
from itertools import islice
from pathlib import Path

from mutation import processes
from mutation.faults import KINDS, all_faults, drawn, short, still_standing
from mutation.reach import Reach, measured
from mutation.suite import Suite, timed
from mutation.workplace import Failure, Workplace, files_of

LEAST_CAUGHT = 0.95
QUICK = 1.0  # seconds of a test that runs before the slow ones
GIGABYTE = 1 << 30
UNCOUNTED = ("did not compile", "changed no code")


def tell(text):
    print(f"mutate: {text}", file=sys.stderr, flush=True)


class Tests:
    """The tests of the copy, their times and their reach, which are taken anew when something of it has changed. For a
    few faults the reach of before will do: it decides about the order alone."""

    def __init__(self, workplace, old_reach_will_do):
        self.workplace = workplace
        self.scratch = workplace.folder / "scratch"
        shutil.rmtree(self.scratch, ignore_errors=True)
        self.scratch.mkdir()
        self.kept = workplace.folder / "tests.json"
        workplace.configure()
        tell("building the tests without a fault")
        workplace.must_build("kd4410_tests")
        fingerprint = workplace.fingerprint()
        self.reach_is_old = self.load() != fingerprint
        if self.reach_is_old:
            self.time()
        if self.reach_is_old and not (old_reach_will_do and self.reach.reached):
            self.measure()
            self.save(fingerprint)

    def executable(self, name):
        return self.workplace.build / "tests" / name

    def load(self):
        """The fingerprint of what was kept."""
        kept = json.loads(self.kept.read_text()) if self.kept.is_file() else {}
        self.suite = Suite(self.executable("kd4410_tests"), self.scratch, kept.get("seconds", {}))
        self.reach = Reach(kept.get("counted"), kept.get("reached"))
        return kept.get("fingerprint")

    def time(self):
        tell("running the tests without a fault")
        self.suite, failed = timed(self.executable("kd4410_tests"), self.scratch)
        if failed or not self.suite.seconds:
            raise Failure(f"{failed or 'the start of the tests'} fails, and no fault was put in yet")
        tell(f"{len(self.suite.seconds)} tests take {self.suite.time_of(self.suite.seconds):.0f} s")

    def measure(self):
        self.workplace.must_build("kd4410_coverage_tests")
        tell("running each test with the tier that counts")
        begin = time.monotonic()
        self.reach = measured(self.workplace, Suite(self.executable("kd4410_coverage_tests"), self.scratch,
                                                    self.suite.seconds, patience=20))
        self.reach_is_old = False
        tell(f"what the tests reach took {time.monotonic() - begin:.0f} s to find out")

    def save(self, fingerprint):
        self.kept.write_text(json.dumps({"fingerprint": fingerprint, "seconds": self.suite.seconds,
                                         "counted": self.reach.counted, "reached": self.reach.reached}))

    def stages(self, fault):
        """All tests: first those that reach the fault or are new, and of them first the quick ones."""
        new = self.suite.seconds.keys() - self.reach.reached.keys()
        reaching = new.union(self.reach.tests_at(fault.file, fault.line))
        for reaches in (True, False):
            for quick in (True, False):
                yield [test for test, seconds in self.suite.seconds.items()
                       if (test in reaching) == reaches and (seconds < QUICK) == quick]

    def caught(self, fault):
        return next(filter(None, map(self.suite.caught, self.stages(fault))), "")

    def miss(self, fault):
        """Whether no test reaches it, as far as that is known."""
        return not self.reach_is_old and self.reach.misses(fault.file, fault.line)


class Run:
    """Faults one after the other, and what became of them."""

    def __init__(self, workplace, tests, untried):
        self.workplace = workplace
        self.tests = tests
        self.sound = workplace.objects()
        self.untried = untried  # survivors of the run before that are to be tried again
        self.survivors = []
        self.tried = Counter()
        self.caught = Counter()
        self.uncounted = Counter()

    def outcome(self, fault):
        """The test that catches the fault; "" when it survives; or why it does not count."""
        with self.workplace.with_fault(fault):
            if not self.workplace.builds("kd4410_tests"):
                return UNCOUNTED[0]
            if self.workplace.objects() == self.sound:
                return UNCOUNTED[1]
            return self.tests.caught(fault)

    def attempt(self, fault):
        begin = time.monotonic()
        outcome = self.outcome(fault)
        if outcome in UNCOUNTED:
            self.uncounted[outcome] += 1
            return
        self.tried[fault.kind] += 1
        self.caught[fault.kind] += outcome != ""
        if not outcome:
            self.survivors.append(fault)
        verdict = f"caught by {outcome}" if outcome else f"SURVIVED{self.unreached(fault)}"
        print(f"{self.tried.total():4} {fault}  {verdict}  {time.monotonic() - begin:.0f} s", flush=True)

    def unreached(self, fault):
        return " (no test reaches it)" if self.tests.miss(fault) else ""

    def attempt_all(self, faults, wanted):
        """As many as wanted of those that count, or all."""
        for fault in faults:
            self.attempt(fault)
            self.untried = [other for other in self.untried if other != fault]
            keep(self.workplace.folder, self.survivors + self.untried)
            if self.tried.total() == wanted:
                return
        if wanted:
            tell(f"there are no more than {self.tried.total()} faults that count")

    def summary(self):
        tried, caught = self.tried.total(), self.caught.total()
        kinds = ", ".join(f"{kind} {self.caught[kind]} of {self.tried[kind]}" for kind in KINDS if self.tried[kind])
        print(f"\n{caught} of {tried} faults caught, {100 * caught / max(tried, 1):.1f} %; others were not counted: "
              + ", ".join(f"{self.uncounted[why]} {why}" for why in UNCOUNTED) + f"\n{kinds}")
        for fault in self.survivors:
            print(f"SURVIVED {fault}{self.unreached(fault)}\n    {short(fault.text)}")

    def passed(self):
        return self.caught.total() >= LEAST_CAUGHT * self.tried.total()


def keep(folder, survivors):
    beside = folder / "survivors.new"
    beside.write_text(json.dumps([fault.record() for fault in survivors], indent=1))
    beside.replace(folder / "survivors.json")


def kept_survivors(folder, faults):
    """Those of the run before whose lines still stand."""
    path = folder / "survivors.json"
    if not path.is_file():
        raise Failure("there was no run before this one")
    records = json.loads(path.read_text())
    standing = [fault for record in records if (fault := still_standing(faults, record))]
    if len(standing) < len(records):
        tell(f"{len(records) - len(standing)} survivors are left out: their lines have changed")
    return standing


def whole_number(text):
    if not text.isdecimal() or int(text) == 0:
        raise argparse.ArgumentTypeError(f"{text!r} is not a whole number above 0")
    return int(text)


def parsed():
    parser = argparse.ArgumentParser(
        prog="scripts/mutate.sh", usage="%(prog)s N [SEED] [--only PATH] [--list] | --survivors",
        description="Puts N random faults into a copy of src/, one at a time, builds and tests each, and lists those "
        "that no test catches. The same SEED and the same tree give the same faults.",
        epilog="Exit code 0: at least 95 % were caught; 1: fewer were; 2: it could not be done.")
    parser.add_argument("N", type=whole_number, nargs="?", help="how many faults")
    parser.add_argument("SEED", type=whole_number, nargs="?", default=1, help="1 unless told")
    parser.add_argument("--only", metavar="PATH", default="src/", help="only files whose path starts with it")
    parser.add_argument("--list", action="store_true",
                        help="print the faults and build nothing; in a run, others replace those that do not count")
    parser.add_argument("--survivors", action="store_true",
                        help="try those again that survived the last run and whose lines still stand as they were")
    arguments = parser.parse_args()
    if arguments.survivors and (arguments.N or arguments.list or arguments.only != "src/"):
        parser.error("--survivors stands alone")
    if not arguments.survivors and not arguments.N:
        parser.error("N, the number of faults, is missing")
    return arguments


def candidates(arguments, tree, files):
    faults = all_faults(tree, [file for file in files if file.startswith(arguments.only)])
    if not faults:
        raise Failure(f"{arguments.only}: no source of the tier whose path starts so")
    return faults


def limit(what, most):
    """For us and all that we start."""
    _, hard = resource.getrlimit(what)
    resource.setrlimit(what, (most if hard == resource.RLIM_INFINITY else min(most, hard), hard))


def end(*_):
    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, signal.SIG_IGN)
    processes.end_all()
    raise KeyboardInterrupt


def attempted(arguments, root, files):
    """The exit code."""
    workplace = Workplace(root, files)
    workplace.refresh()
    faults = candidates(arguments, workplace.tree, files)
    again = kept_survivors(workplace.folder, faults) if arguments.survivors else []
    if arguments.survivors and not again:
        tell("the last run left no fault to be tried again")
        return 0
    run = Run(workplace, Tests(workplace, old_reach_will_do=arguments.survivors), again)
    try:
        run.attempt_all(again if arguments.survivors else drawn(faults, arguments.SEED), arguments.N)
    finally:
        run.summary()
    return 0 if run.passed() else 1


def main():
    arguments = parsed()
    root = Path(__file__).resolve().parent.parent
    files = files_of(root)
    if arguments.list:
        faults = drawn(candidates(arguments, root, files), arguments.SEED)
        for number, fault in enumerate(islice(faults, arguments.N), 1):
            print(f"{number:4} {fault}")
        return 0
    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, end)
    limit(resource.RLIMIT_AS, 4 * GIGABYTE)
    limit(resource.RLIMIT_FSIZE, GIGABYTE)
    limit(resource.RLIMIT_CORE, 0)
    return attempted(arguments, root, files)


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failure as failure:
        tell(failure)
        sys.exit(2)
    except KeyboardInterrupt:
        tell("interrupted")
        sys.exit(130)
