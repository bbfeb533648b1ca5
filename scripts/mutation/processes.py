"""Processes that end when we do, with all that they have started."""

import os
import signal
import subprocess
import time

running = set()
ending = False
inherited = []  # files that a process holds open as long as it lives, even if we were killed


def started(command, **options):
    """The process leads a group of its own: what the terminal sends is for us alone."""
    if ending:
        raise KeyboardInterrupt
    process = subprocess.Popen([str(word) for word in command], stdin=subprocess.DEVNULL, start_new_session=True,
                               pass_fds=inherited, **options)
    running.add(process)
    return process


def ended(process):
    """The exit code; None while it runs."""
    if process.poll() is not None:
        running.discard(process)
    return process.returncode


def kill(process, how=signal.SIGKILL):
    try:
        os.killpg(process.pid, how)
    except ProcessLookupError:
        pass


def end_all():
    """Gently at first: a build that is asked to end takes back what is half done."""
    global ending
    ending = True
    for process in list(running):
        kill(process, signal.SIGTERM)
    patience = time.monotonic() + 10
    while time.monotonic() < patience and any(ended(process) is None for process in list(running)):
        time.sleep(0.05)
    for process in list(running):
        kill(process)


def output_of(command):
    """Exit code and what it printed."""
    process = started(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    text, _ = process.communicate()
    return ended(process), text.decode(errors="replace")
