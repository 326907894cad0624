# SPDX-License-Identifier: MIT
"""Lets each system call that saves a project fail once, with strace, and writes come to less than asked.

After each fault, the file has its old content or its new one, whole, and what the program says is true.
"""

import collections
import os
import re
import shutil
import subprocess

from documents import make_project, run
from report import require

ERRORS = ("EIO", "ENOSPC", "EACCES", "EINTR")
CALL = re.compile(r"^(?:\[pid +\d+\] )?(\w+)\(")
NOT_INJECTED = {"execve", "exit_group", "exit", "brk", "mmap", "munmap", "mprotect", "rt_sigreturn", "arch_prctl",
                "set_tid_address", "set_robust_list", "rseq", "prlimit64"}  # before main(), or of the allocator
COMMANDS = ["--command", "sort", "--command", "save"]


class Saving:
    """A folder with a project, and the program that changes and saves it."""

    def __init__(self, program, folder):
        self.program = program
        self.folder = folder
        self.project = make_project(program, folder)
        self.old = self.project.read_bytes()
        done = run(program, ["base.tkpc", *COMMANDS], folder)
        self.new = self.project.read_bytes()
        require(done.returncode == 0 and self.new != self.old, "the undisturbed program does not save",
                done.stderr.decode())

    def restore(self):
        for path in self.folder.iterdir():
            if path.name not in ("base.tkpc", "points.csv"):
                path.unlink()
        self.project.write_bytes(self.old)

    def check(self, done):
        """Checks what a run has left."""
        said = "it said %r" % (done.stdout + done.stderr).decode(errors="replace")
        content = self.project.read_bytes()
        require(done.returncode in (0, 1, 2), "it ended with status %d" % done.returncode, said)
        require(content in (self.old, self.new), "the file is not whole", said)
        if b"Saved" in done.stdout:
            require(content == self.new, "the file was told to be saved, and is the old one", said)
        if content == self.old:
            require(done.returncode != 0 and done.stderr, "it does not say that the file is not saved", said)
        require(run(self.program, ["base.tkpc", "--command", "show"], self.folder).returncode == 0,
                "the file cannot be opened", said)


def can_trace():
    """Whether strace is there, and may be used: containers often forbid it."""
    return shutil.which("strace") is not None and subprocess.run(
        ["strace", "-f", "-o", os.devnull, "true"], capture_output=True, check=False).returncode == 0


def trace(saving, log, *options):
    saving.restore()
    return run("strace", ["-o", str(log), *options, str(saving.program), "base.tkpc", *COMMANDS], saving.folder)


def calls_after_start(log):
    """Which calls the program makes from opening the project on, and as which of their kind: ("write", 3)."""
    counts = collections.Counter()
    has_started = False
    calls = []
    for line in log.read_text(errors="replace").splitlines():
        name = CALL.match(line)
        if not name:
            continue
        counts[name[1]] += 1
        has_started = has_started or "base.tkpc" in line and not line.startswith("execve")
        if has_started and name[1] not in NOT_INJECTED:
            calls.append((name[1], counts[name[1]]))
    return calls


def attack_writes(saving, settings, tally):
    """Lets each write write less than asked, and be interrupted in between: the file must be the new one."""

    def check(most):
        saving.restore()
        done = run(saving.program, ["base.tkpc", *COMMANDS], saving.folder, env={
            **os.environ, "LD_PRELOAD": str(settings.short_writes), "SHORT_WRITES": str(most)})
        require(saving.project.read_bytes() == saving.new, "the file is not the new one", done.stderr.decode())
        saving.check(done)

    for most in (1, 2, 7, 100, 511, 4095):
        label = "writes of %d bytes at most" % most
        if settings.only in label:
            tally.attempt(label, lambda: check(most))


def attack(settings, folder, tally):
    work = folder / "work"
    work.mkdir()
    saving = Saving(settings.point_collections, work)
    attack_writes(saving, settings, tally)
    if not can_trace():
        tally.skip("strace is missing, or may not trace other programs here; only short writes were tried")
        return
    log = folder / "calls.txt"
    trace(saving, log)
    calls = calls_after_start(log)
    require(any(name in ("fsync", "fdatasync") for name, _ in calls), "strace did not see the file being saved")
    tally.notes.append("%d calls from opening to the end: %s" % (
        len(calls), ", ".join(sorted({name for name, _ in calls}))))
    for name, number in calls:
        faults = ["error=" + error for error in ERRORS]
        for fault in faults[:1] if settings.quick else faults:
            label = "%s %d, %s" % (name, number, fault)
            if settings.only in label:
                option = "inject=%s:%s:when=%d" % (name, fault, number)
                tally.attempt(label, lambda: saving.check(trace(saving, log, "-e", option)))
