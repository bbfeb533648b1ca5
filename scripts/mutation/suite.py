"""The tests of one executable: several processes at a time, each with a list of tests of its own."""

import os
import re
import shutil
import signal
import tempfile
import time
from pathlib import Path

from mutation import processes

TIMED = re.compile(r"\[       OK \] (\S+) \((\d+) ms\)$", re.MULTILINE)
PASSED = re.compile(r"^\[  PASSED  \] (\d+) tests?\.$", re.MULTILINE)
FAILED = re.compile(r"^\[  FAILED  \] ([^\s,]+)", re.MULTILINE)
BEGUN = re.compile(r"^\[ RUN      \] (\S+)$", re.MULTILINE)
HANGS = (128 + signal.SIGKILL, -signal.SIGKILL, 128 + signal.SIGXCPU)
AT_ONCE = os.cpu_count() or 1


class Batch:
    """A process with some tests, in a folder that goes with it. It may take `limit` seconds of processor time, and so
    may each process that it starts; what waits for nothing is ended, too, but others may be at work on the machine."""

    def __init__(self, executable, tests, limit, scratch, environment):
        self.tests = tests
        self.folder = Path(tempfile.mkdtemp(dir=scratch))
        self.output = self.folder / "output"
        places = {name: str(self.folder) for name in ("HOME", "XDG_DATA_HOME", "TMPDIR", "TEST_TMPDIR")}
        command = ["timeout", "--signal=KILL", f"{60 + 4 * limit:.0f}", "prlimit", f"--cpu={limit:.0f}", executable,
                   "--gtest_fail_fast", "--gtest_color=no", "--gtest_filter=" + ":".join(tests)]
        with open(self.output, "wb") as output:
            self.process = processes.started(command, stdout=output, stderr=output, cwd=self.folder,
                                             env={**os.environ, **places, **environment})

    def has_ended(self):
        return processes.ended(self.process) is not None

    def text(self):
        return self.output.read_text(errors="replace")

    def caught(self):
        """The test that failed and how; "" when all have passed."""
        text, code = self.text(), self.process.returncode
        if code == 0 and PASSED.findall(text) == [str(len(self.tests))]:
            return ""
        if failed := FAILED.search(text):
            return failed.group(1)
        begun = BEGUN.findall(text)[-1:] or ["the start of the tests"]
        return f"{begun[0]} ({'hang' if code in HANGS else 'crash'})"

    def close(self):
        processes.kill(self.process)
        self.process.wait()
        processes.ended(self.process)
        shutil.rmtree(self.folder, ignore_errors=True)


def names(executable):
    """All tests of the executable; none when it does not start."""
    code, text = processes.output_of([executable, "--gtest_list_tests"])
    tests, suite = [], ""
    for line in text.splitlines():
        word = line.split("#")[0].strip()
        if line.startswith("  "):
            tests.append(suite + word)
        elif word.endswith("."):
            suite = word
    return [] if code else tests


class Suite:
    """`seconds`: test to the time that it takes without a fault; a process may take `patience` times as long."""

    def __init__(self, executable, scratch, seconds, patience=5):
        self.executable = executable
        self.scratch = scratch
        self.seconds = seconds
        self.patience = patience

    def time_of(self, tests):
        return sum(self.seconds[test] for test in tests)

    def shares(self, tests):
        """The tests in parts that take about as long as each other."""
        parts = [[] for _ in range(AT_ONCE)]
        for test in sorted(tests, key=self.seconds.get, reverse=True):
            min(parts, key=self.time_of).append(test)
        return [part for part in parts if part]

    def started(self, tests, environment):
        return [Batch(self.executable, part, 10 + self.patience * self.time_of(part), self.scratch, environment)
                for part in self.shares(tests)]

    def caught(self, tests, environment={}, tell=lambda text: None):
        """The first test that fails, and how; "" when all pass. Tells what a process printed whose tests pass."""
        left = self.started(tests, environment)
        try:
            while left:
                time.sleep(0.02)
                for batch in [batch for batch in left if batch.has_ended()]:
                    if caught := batch.caught():
                        return caught
                    tell(batch.text())
                    left.remove(batch)
                    batch.close()
            return ""
        finally:
            for batch in left:
                batch.close()


def timed(executable, scratch):
    """The suite, with the time that each test takes now; and which of them fails."""
    suite, seconds = Suite(executable, scratch, dict.fromkeys(names(executable), 1)), {}
    failed = suite.caught(suite.seconds, tell=lambda text: seconds.update(
        (test, int(milliseconds) / 1000) for test, milliseconds in TIMED.findall(text)))
    return Suite(executable, scratch, seconds), failed
