# SPDX-License-Identifier: MIT
"""How scripts/lib/packages.sh installs packages, with the real apt-get in a temporary folder: a
repository with one package, and a dpkg that only notes what it is to install."""

import fcntl
import hashlib
import os
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts/lib/packages.sh"
PACKAGE = "tkm-package-of-this-test"
WAITING = "Waiting until another package manager has finished"

CONFIGURATION = """
Dir "{root}/";
Dir::State::status "{root}/var/lib/dpkg/status";
Dir::Bin::dpkg "{root}/bin/dpkg";
APT::Sandbox::User "";
"""
FOLDERS = (
    "etc/apt/apt.conf.d", "etc/apt/preferences.d", "etc/apt/sources.list.d",
    "var/lib/apt/lists/partial", "var/cache/apt/archives/partial", "var/lib/dpkg", "var/log/apt",
)
LOCKS = (
    "var/lib/apt/lists/lock", "var/cache/apt/archives/lock", "var/lib/dpkg/lock-frontend", "var/lib/dpkg/lock",
)
CONTROL = "Package: {name}\nVersion: 1\nArchitecture: all\nMaintainer: T <t@example.org>\nDescription: test\n"


class Lock:
    """Holds a lock as apt-get and dpkg do."""

    def __init__(self, path):
        self._file = open(path, "a")

    def __enter__(self):
        fcntl.lockf(self._file, fcntl.LOCK_EX)

    def __exit__(self, *_):
        self._file.close()


class Packages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for name in FOLDERS:
            (self.root / name).mkdir(parents=True)
        self.write("apt.conf", CONFIGURATION.format(root=self.root))
        self.write("etc/apt/sources.list", "deb [trusted=yes] file:%s/repository ./\n" % self.root)
        self.write("var/lib/dpkg/status", "")
        self.program("dpkg", 'case "$*" in *.deb*) echo "$@" >>"%s/installed" ;; esac' % self.root)
        self.program("sudo", 'exec "$@"')
        self.make_repository()

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def program(self, name, command):
        self.write("bin/" + name, "#!/bin/sh\n" + command + "\n")
        (self.root / "bin" / name).chmod(0o755)

    def make_repository(self):
        control = CONTROL.format(name=PACKAGE)
        self.write("package/DEBIAN/control", control)
        archive = self.root / "repository/package.deb"
        archive.parent.mkdir()
        subprocess.run(["dpkg-deb", "--build", self.root / "package", archive], check=True, capture_output=True)
        content = archive.read_bytes()
        self.write("repository/Packages", "%sFilename: ./package.deb\nSize: %d\nSHA256: %s\n" % (
            control, len(content), hashlib.sha256(content).hexdigest()))

    def start(self, command, timeout):
        environment = dict(
            os.environ,
            APT_CONFIG=str(self.root / "apt.conf"),
            LOCK_TIMEOUT_SECONDS=str(timeout),
            PATH="%s/bin:%s" % (self.root, os.environ["PATH"]),
        )
        return subprocess.Popen(
            ["bash", "-c", 'set -euo pipefail; source "%s"; %s' % (SCRIPT, command)],
            env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
        )

    def run_to_its_end(self, command, timeout=60):
        process = self.start(command, timeout)
        output, errors = process.communicate()
        return process.returncode, output + errors

    def installed(self):
        path = self.root / "installed"
        return path.read_text() if path.exists() else ""

    def test_missing_packages_are_installed(self):
        status, output = self.run_to_its_end("require_packages " + PACKAGE)

        self.assertEqual(status, 0, output)
        self.assertIn("Missing packages: %s\n" % PACKAGE, output)
        self.assertNotIn(WAITING, output)
        self.assertIn("package.deb", self.installed())

    def test_installing_waits_until_a_lock_is_free(self):
        for lock in LOCKS:
            with self.subTest(lock=lock):
                (self.root / "installed").unlink(missing_ok=True)

                with Lock(self.root / lock):
                    process = self.start("require_packages " + PACKAGE, timeout=60)
                    time.sleep(2)
                    ended_early = process.poll() is not None
                    installed_early = self.installed()
                output = "".join(process.communicate())

                self.assertFalse(ended_early, output)
                self.assertNotIn("package.deb", installed_early)
                self.assertEqual(process.returncode, 0, output)
                self.assertIn("package.deb", self.installed())

    def test_dpkg_is_run_again_until_a_lock_is_free(self):
        # as dpkg says it; a real one would lock the packages of this machine
        self.program("busy", "[ -e '%s/free' ] || { echo 'dpkg: error: dpkg frontend lock was locked by "
                             "another process with pid 1' >&2; exit 2; }" % self.root)
        process = self.start("when_unlocked busy", timeout=60)
        time.sleep(2)
        ended_early = process.poll() is not None
        self.write("free", "")
        output = "".join(process.communicate())

        self.assertFalse(ended_early, output)
        self.assertEqual(process.returncode, 0, output)
        self.assertEqual(output.count(WAITING), 1, output)

    def test_waiting_has_an_end(self):
        with Lock(self.root / LOCKS[0]):
            status, output = self.run_to_its_end("require_packages " + PACKAGE, timeout=2)

        self.assertNotEqual(status, 0)
        self.assertIn(WAITING, output)
        self.assertIn("Could not get lock", output)
        self.assertEqual(self.installed(), "")

    def test_other_failures_end_at_once(self):
        status, output = self.run_to_its_end("require_packages no-such-package")

        self.assertNotEqual(status, 0)
        self.assertNotIn(WAITING, output)
        self.assertIn("Unable to locate package no-such-package", output)


if __name__ == "__main__":
    unittest.main()
