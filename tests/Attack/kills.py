# SPDX-License-Identifier: MIT
"""Kills point-collections at random moments while it saves. The file is then the old one or the new one."""

import random
import subprocess
import time

from documents import ELEMENTS, make_project, run
from report import require

ELEMENT_COUNT, POINTS_EACH = 250, 40


def attack(settings, folder, tally):
    chance = random.Random(settings.seed)
    names = ELEMENTS + ["element %d" % number for number in range(ELEMENT_COUNT)]
    project = make_project(settings.point_collections, folder, elements=names, points_each=POINTS_EACH)
    arguments = ["base.tkpc", "--quiet", "--command", "sort", "--command", "save"]
    old = project.read_bytes()

    def start():
        """@return the program, at the moment when it begins to save"""
        project.write_bytes(old)
        process = subprocess.Popen([settings.point_collections, *arguments], cwd=folder, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        process.stdout.readline()
        return process

    begin = time.monotonic()
    with start() as process:
        process.stdout.read()
    longest = 1.5 * (time.monotonic() - begin)
    new = project.read_bytes()
    require(new != old, "the undisturbed program does not save")
    found = {old: 0, new: 0}

    def kill(moment):
        with start() as process:
            time.sleep(moment)
            process.kill()
        content = project.read_bytes()
        require(content in found, "the file is not whole")
        found[content] += 1

    for number in range(60 if settings.quick else 1000):
        moment = chance.random() * longest
        tally.attempt("kill %d, %d µs after the start" % (number, moment * 1e6), lambda: kill(moment))
    rests = [path.name for path in folder.iterdir() if path.suffix not in (".tkpc", ".csv")]
    tally.notes.append("%d old files, %d new ones; %d unfinished files were left beside them" % (
        found[old], found[new], len(rests)))
    require(run(settings.point_collections, arguments, folder).returncode == 0, "saving fails afterwards")
