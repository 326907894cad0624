# SPDX-License-Identifier: MIT
"""Saves on a disk that is nearly full, with more room from try to try, until saving succeeds.

The disk is a tmpfs in a mount namespace of its own. This takes root, or a system that lets users make
namespaces.
"""

import shutil
import subprocess
import sys

from documents import make_project, points, run
from report import Defect, require

PAGE = 4096
DISK_PAGES = 64
IN_NAMESPACE = ["unshare", "--user", "--map-root-user", "--mount"]


def can_mount():
    return shutil.which("unshare") is not None and subprocess.run(
        [*IN_NAMESPACE, "mount", "-t", "tmpfs", "none", "/mnt"], capture_output=True, check=False).returncode == 0


def fill(program, disk, free_pages):
    """Runs in the namespace, where nobody else sees the disk. Saves once beside an old file, and once as
    a new one, and fails when that breaks a promise."""
    subprocess.run(["mount", "-t", "tmpfs", "-o", "size=%d" % (DISK_PAGES * PAGE), "none", disk], check=True)
    project = make_project(program, disk)
    old = project.read_bytes()
    (disk / "more.csv").write_text(points(["added %d" % number for number in range(200)]))
    room = shutil.disk_usage(disk).free
    (disk / "ballast").write_bytes(bytes(max(0, room - free_pages * PAGE)))
    for arguments in (["base.tkpc", "--command", "sort", "--command", "save"],
                      ["more.csv", "--command", "create New", "--command", "save new.tkpc"]):
        done = run(program, arguments, disk)
        said = "it said %r" % (done.stdout + done.stderr).decode(errors="replace")
        name = arguments[-1].split()[-1] if " " in arguments[-1] else arguments[0]
        content = (disk / name).read_bytes() if (disk / name).exists() else None
        has_saved = b"Saved" in done.stdout
        require(done.returncode in (0, 1), "it ended with status %d" % done.returncode, said)
        require((done.returncode == 0) == has_saved, "the status is wrong", said)
        require(has_saved == (content not in (None, old)), "what it says about the file is wrong", said)
        if content is not None:
            require(run(program, [name, "--command", "show"], disk).returncode == 0, "the file cannot be opened", said)
        rests = [path.name for path in disk.iterdir() if path.name.endswith(".tmp")]
        require(not rests, "it has left %s" % rests, said)
        print("saved" if has_saved else "full")


def attack(settings, folder, tally):
    if not can_mount():
        tally.skip("a full disk cannot be made here: it takes root, or a system that lets users make namespaces")
        return
    disk = folder / "disk"
    disk.mkdir()
    results = {"saved": 0, "full": 0}

    def check(pages):
        done = subprocess.run([*IN_NAMESPACE, sys.executable, __file__, str(settings.point_collections), str(disk), str(pages)],
                              capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise Defect(done.stderr.strip())
        for result in done.stdout.split():
            results[result] += 1

    for pages in range(0, 24, 4 if settings.quick else 1):
        if settings.only in "%d pages free" % pages:
            tally.attempt("%d pages free" % pages, lambda: check(pages))
    tally.notes.append("the disk was full %(full)d times, and had room %(saved)d times" % results)
    if not settings.only:
        require(results["full"] and results["saved"], "the disk was never full, or always")


if __name__ == "__main__":
    from pathlib import Path
    try:
        fill(sys.argv[1], Path(sys.argv[2]), int(sys.argv[3]))
    except Defect as defect:
        sys.exit(str(defect))
