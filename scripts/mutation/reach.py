"""Which tests reach which lines of src/: one run of every test, in a process of its own, with the tier that counts."""

import hashlib
import json
import os
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from mutation import processes
from mutation.suite import AT_ONCE
from mutation.workplace import COUNTED, Failure

SUMMARY = 32  # bytes at the head of the counters of an object: its name and figures of the whole process


class Reach:
    """Lines of a file are the bits of a number."""

    def __init__(self, counted=None, reached=None):
        self.counted = counted or {}  # file to the lines that are counted at all
        self.reached = reached or {}  # test to file to the lines that it reaches

    def tests_at(self, file, line):
        """The tests that reach the line. Tables are not counted, but read by the code beside them: for a line that is
        not counted, all tests that reach its file."""
        lines = 1 << line if self.is_counted(file, line) else -1
        return [test for test, files in self.reached.items() if files.get(file, 0) & lines]

    def is_counted(self, file, line):
        return bool(self.counted.get(file, 0) >> line & 1)

    def misses(self, file, line):
        return self.is_counted(file, line) and not self.tests_at(file, line)

    def add(self, test, lines):
        reached = self.reached.setdefault(test, {})
        for file, (counted, reached_lines) in lines.items():
            self.counted[file] = self.counted.get(file, 0) | counted
            reached[file] = reached.get(file, 0) | reached_lines


class Counters:
    """What gcov tells of the counters that a test leaves. It is asked once about those that many tests leave alike."""

    def __init__(self, workplace):
        self.tree = workplace.tree
        self.objects = next(path for path in workplace.build.rglob(COUNTED) if path.is_dir())
        self.told = {}  # name and hash of the counters of an object to the lines in them

    def place(self, folder):
        """Makes the folder one for counters: gcov wants the notes of the compiler beside them."""
        for notes in self.objects.rglob("*.gcno"):
            beside = folder / notes.relative_to("/")
            beside.parent.mkdir(parents=True, exist_ok=True)
            beside.symlink_to(notes)

    def lines(self, folder):
        """File to the lines that are counted, and to those that were reached."""
        keys = {path: (path.relative_to(folder), hashlib.sha256(path.read_bytes()[SUMMARY:]).digest())
                for path in folder.rglob("*.gcda")}
        if new := [path for path, key in keys.items() if key not in self.told]:
            for path, lines in self.ask(new).items():
                self.told[keys[path]] = lines
        return [self.told[key] for key in keys.values()]

    def ask(self, paths):
        """The counters to their lines."""
        code, text = processes.output_of(["gcov", "--json-format", "--stdout", "--relative-only", "--source-prefix",
                                          self.tree, *paths])
        reports = [json.loads(line) for line in text.splitlines() if line.startswith("{")]
        if code or len(reports) != len(paths):
            raise Failure(f"{text[-1000:]}gcov does not tell what the tests reach")
        return {Path(report["data_file"]): self.bits(report) for report in reports}

    def bits(self, report):
        found = {}
        for file in report["files"]:
            name = os.path.relpath(os.path.join(report["current_working_directory"], file["file"]), self.tree)
            counted = sum(1 << line for line in {line["line_number"] for line in file["lines"]})
            reached = sum(1 << line for line in {line["line_number"] for line in file["lines"] if line["count"]})
            found[name] = (counted, reached)
        return found


def measured(workplace, suite):
    """The reach of all tests of a suite that is linked with the tier that counts."""
    reach, counters = Reach(), Counters(workplace)

    def measure(test):
        with tempfile.TemporaryDirectory(dir=suite.scratch) as folder:
            counters.place(Path(folder))
            caught = suite.caught([test], {"GCOV_PREFIX": folder, "GCOV_PREFIX_STRIP": "0"})
            return test, caught, counters.lines(Path(folder))

    tests = sorted(suite.seconds, key=suite.seconds.get, reverse=True)
    with ThreadPoolExecutor(AT_ONCE) as executor:
        for test, caught, objects in executor.map(measure, tests):
            if caught:
                raise Failure(f"{caught} fails with the tier that counts, without any fault put into it")
            for lines in objects:
                reach.add(test, lines)
    return reach
