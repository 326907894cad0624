#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Attacks point-collections with faults of the system below it, and checks that it keeps its promises.
scripts/attack builds everything and runs this."""

import argparse
import os
import random
import sys
import tempfile
import time
from pathlib import Path

import allocations
import archives
import calls
import full_disk
import kills
from report import Defect, Tally

PROGRAMS = ("point-collections", "failing-allocator", "short-writes", "archive-mutator", "project-mutator")
PASSED, FAILED, SKIPPED = 0, 1, 77  # CTest knows the last one
ATTACKS = {"allocations": allocations, "calls": calls, "kills": kills,
           "full-disk": full_disk, "archives": archives}


def settings_of(arguments):
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("attack", choices=[*ATTACKS, "all"])
    for program in PROGRAMS:
        parser.add_argument("--" + program, type=Path, required=True)
    parser.add_argument("--tests", type=Path, help="the folder with the test programs of the libraries")
    parser.add_argument("--quick", action="store_true", help="a sample that takes seconds")
    parser.add_argument("--seed", type=int, default=None, help="of everything that is chosen at random")
    parser.add_argument("--only", default="", help="only the faults whose name has this text")
    settings = parser.parse_args(arguments)
    for name, value in vars(settings).items():
        if isinstance(value, Path):
            setattr(settings, name, value.absolute())
    if settings.seed is None:
        settings.seed = random.SystemRandom().randrange(2 ** 32)
    return settings


def run_attack(name, settings):
    """@return the exit status for it"""
    tally = Tally()
    start = time.monotonic()
    with tempfile.TemporaryDirectory(prefix="attack-") as folder:
        try:
            ATTACKS[name].attack(settings, Path(folder), tally)
        except Defect as defect:
            tally.defects.append(str(defect))
    for note in tally.notes:
        print("%s: %s" % (name, note))
    for defect in tally.defects:
        print("%s: DEFECT at %s" % (name, defect))
    print("%s: %s in %.0f s, %s" % (
        name, "{:,} faults".format(tally.faults), time.monotonic() - start,
        "no defect" if not tally.defects else "%d defects; again: scripts/attack %s --seed %d --only TEXT, where TEXT "
        "is part of the name of the fault" % (len(tally.defects), name, settings.seed)), flush=True)
    if tally.defects:
        return FAILED
    return SKIPPED if tally.is_skipped else PASSED


def main(arguments):
    settings = settings_of(arguments)
    os.environ["LC_ALL"] = "C.UTF-8"  # what the program answers in English is compared
    names = ATTACKS if settings.attack == "all" else [settings.attack]
    results = [run_attack(name, settings) for name in names]
    if FAILED in results:
        return FAILED
    return SKIPPED if results == [SKIPPED] else PASSED


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
