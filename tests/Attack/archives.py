# SPDX-License-Identifier: MIT
"""Gives the libraries, and the reader of projects, archives with changed numbers and right checksums.

Each is refused with an error, or loaded and then saved to bytes that load as the same. It takes no
more memory and time than a file of its size may.
"""

import resource
import subprocess
from pathlib import Path

from report import Defect

CORPUS = Path(__file__).resolve().parents[2] / "fuzz" / "corpus"
CHUNK = 2000
MOST_MEMORY = 512 << 20
LONGEST_SECONDS = 60


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))


def fault_in(program, corpus, seed, first, count):
    """@return what went wrong; empty if nothing did"""
    try:
        done = subprocess.run([program, corpus, str(seed), str(first), str(count)], preexec_fn=limit_memory,
                              capture_output=True, timeout=LONGEST_SECONDS, check=False)
    except subprocess.TimeoutExpired:
        return "it takes more than %d s" % LONGEST_SECONDS
    return "" if done.returncode == 0 else "status %d: %s" % (
        done.returncode, done.stderr.decode(errors="replace").strip())


def attack(settings, _, tally):
    archives = 6000 if settings.quick else 200000
    for program, corpus in ((settings.archive_mutator, "ArchiveFuzzer"), (settings.project_mutator, "ProjectFuzzer")):
        for first in range(0, archives, CHUNK):
            tally.faults += CHUNK
            if not fault_in(program, CORPUS / corpus, settings.seed, first, CHUNK):
                continue
            for number in range(first, first + CHUNK):
                fault = fault_in(program, CORPUS / corpus, settings.seed, number, 1)
                if fault:
                    raise Defect("%s; again: %s %s %d %d 1" % (
                        fault, program, CORPUS / corpus, settings.seed, number))
            raise Defect("only several archives together fail; again: %s %s %d %d %d" % (
                program, CORPUS / corpus, settings.seed, first, CHUNK))
