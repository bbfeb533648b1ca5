"""A copy of the tree and its build. The tree itself is only read; whatever a killed run leaves in the copy, the next
one finds different from the tree and puts right."""

import fcntl
import hashlib
import os
import subprocess
from contextlib import contextmanager

from mutation import processes

TESTED = ("src/", "tests/", "workbench/", "data/", "samples/", "cmake/", "CMakeLists.txt")
# The optimizer lets all tests run in a quarter of the time, and adds a quarter to that of a compiler run.
OPTIONS = ["-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O1", "-DKD4410_TESTS=ON", "-DKD4410_COVERAGE=ON",
           *(f"-DCMAKE_{kind}_LINKER_FLAGS=-fuse-ld=lld" for kind in ("EXE", "SHARED", "MODULE"))]
COUNTED = "kd4410_counted_objects.dir"


class Failure(Exception):
    """It can not be done; the message tells the user why."""


def files_of(root):
    """What git knows of the tree and what it does not ignore, as far as it is there."""
    listing = subprocess.run(["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                             capture_output=True, text=True)
    if listing.returncode:
        raise Failure(f"{root}: {listing.stderr.strip()}")
    return sorted(file for file in set(listing.stdout.split("\0")) if (root / file).is_file())


class Workplace:
    def __init__(self, root, files):
        self.root = root
        self.files = files
        self.folder = root / "build" / "mutate"
        self.tree = self.folder / "tree"
        self.build = self.folder / "build"
        self.tree.mkdir(parents=True, exist_ok=True)
        self.seen = {}  # object file to when it was written and the hash of its content
        self.log = ""  # of the last build
        self.lock()

    def lock(self):
        """For as long as this process and those that it started live."""
        self.lock_file = open(self.folder / "lock", "w", encoding="utf-8")
        try:
            fcntl.flock(self.lock_file, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except OSError:
            raise Failure(f"another run is at work in {self.folder}") from None
        processes.inherited.append(self.lock_file.fileno())

    def refresh(self):
        """Writes what is different, with the time of now: ninja builds what is newer than its objects."""
        for file in self.files:
            original, copy = self.root / file, self.tree / file
            if not copy.is_file() or copy.read_bytes() != original.read_bytes():
                copy.parent.mkdir(parents=True, exist_ok=True)
                copy.write_bytes(original.read_bytes())
                copy.chmod(original.stat().st_mode)
        wanted = {self.tree / file for file in self.files}
        for path in list(self.tree.rglob("*")):
            if path.is_file() and path not in wanted:
                path.unlink()

    def fingerprint(self):
        """Of all that decides about the result of a test."""
        digest = hashlib.sha256(" ".join(OPTIONS).encode())
        for file in self.files:
            if file.startswith(TESTED):
                digest.update(file.encode() + b"\0" + (self.tree / file).read_bytes() + b"\0")
        return digest.hexdigest()

    def configure(self):
        code, text = processes.output_of(["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", *OPTIONS])
        if code:
            raise Failure(f"{text}the copy can not be configured")

    def builds(self, target):
        """Whether the target compiles and links. What fails for another reason is a failure."""
        code, self.log = processes.output_of(["ninja", "-C", self.build, "-j", os.cpu_count() or 1, target])
        if code and "error: " not in self.log:
            raise Failure(f"{self.log}{target} can not be built")
        return code == 0

    def must_build(self, target):
        if not self.builds(target):
            raise Failure(f"{self.log}{target} does not build, and no fault was put in yet")

    def objects(self):
        """Object file to the hash of its content, of all that the tests are made of."""
        for path in self.build.rglob("*.o"):
            written = path.stat().st_mtime_ns
            if COUNTED not in path.parts and self.seen.get(path, (0,))[0] != written:
                self.seen[path] = (written, hashlib.sha256(path.read_bytes()).digest())
        return {path: content for path, (_, content) in self.seen.items()}

    @contextmanager
    def with_fault(self, fault):
        path = self.tree / fault.file
        text = path.read_text(encoding="utf-8")
        path.write_text(fault.put_into(text), encoding="utf-8")
        try:
            yield
        finally:
            path.write_text(text, encoding="utf-8")
