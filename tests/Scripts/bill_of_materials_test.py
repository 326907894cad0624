#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests scripts/lib/bill_of_materials.py on packages made for it."""

import hashlib
import json
import os
import shutil
import subprocess
import sys
import tarfile
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).parents[2] / "scripts/lib/bill_of_materials.py"


class BillOfMaterials(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.packages = self.folder / "packages"
        self.packages.mkdir()

    def make_debian_package(self, name, depends):
        root = self.folder / name
        (root / "DEBIAN").mkdir(parents=True)
        (root / "DEBIAN/control").write_text(
            f"Package: {name}\nVersion: 1.0\nArchitecture: all\nMaintainer: A <a@b.invalid>\n"
            f"Depends: {depends}\nDescription: for a test\n")
        file = self.packages / f"{name}_1.0_all.deb"
        subprocess.run(["dpkg-deb", "--build", "--root-owner-group", root, file], check=True,
                       capture_output=True)
        return file

    def bill(self, *compiled_in):
        result = subprocess.run([sys.executable, SCRIPT, self.packages, "1.0", *compiled_in], check=True,
                                capture_output=True, text=True,
                                env={**os.environ, "SOURCE_DATE_EPOCH": "86400"})
        return json.loads(result.stdout)

    @staticmethod
    def related(bill, name, kind):
        ids = {package["SPDXID"]: package["name"] for package in bill["packages"]}
        return {ids[relationship["relatedSpdxElement"]] for relationship in bill["relationships"]
                if ids.get(relationship["spdxElementId"]) == name
                and relationship["relationshipType"] == kind}

    def test_names_each_package_with_its_checksum(self):
        file = self.make_debian_package("point-collections", "libc6")
        own = self.bill()["packages"][0]
        self.assertEqual(own["packageFileName"], file.name)
        self.assertEqual(own["checksums"][0]["checksumValue"],
                         hashlib.sha256(file.read_bytes()).hexdigest())

    def test_names_what_a_package_depends_on_with_its_version(self):
        self.make_debian_package("libtkmservice1", "libc6 (>= 2.34), libstdc++6 (>= 12) | other")
        bill = self.bill()
        self.assertEqual(self.related(bill, "libtkmservice1", "DEPENDS_ON"), {"libc6", "libstdc++6"})
        versions = {package["name"]: package.get("versionInfo") for package in bill["packages"]}
        self.assertEqual(versions["libc6"], ">= 2.34")

    def test_relates_own_packages_to_each_other(self):
        self.make_debian_package("libtkmservice1", "libc6")
        self.make_debian_package("libtkmservice-dev", "libtkmservice1 (= 1.0)")
        bill = self.bill()
        self.assertEqual(self.related(bill, "libtkmservice-dev", "DEPENDS_ON"), {"libtkmservice1"})
        self.assertEqual([package["name"] for package in bill["packages"]].count("libtkmservice1"), 1)

    def test_names_what_is_compiled_into_the_program(self):
        self.make_debian_package("point-collections", "libc6")
        bill = self.bill("dpkg=GPL-2.0-or-later")
        self.assertEqual(self.related(bill, "point-collections", "STATIC_LINK"), {"dpkg"})

    def test_finds_what_the_programs_in_an_archive_need(self):
        with tarfile.open(self.packages / "all.tar.gz", "w:gz") as archive:
            archive.add(os.path.realpath(shutil.which("true")), "bin/true")
        self.assertEqual(self.related(self.bill(), "all.tar.gz", "DEPENDS_ON"), {"libc6"})

    def test_has_all_that_the_format_wants(self):
        self.make_debian_package("point-collections", "libc6")
        bill = self.bill("dpkg=GPL-2.0-or-later")
        self.assertEqual((bill["spdxVersion"], bill["dataLicense"], bill["SPDXID"]),
                         ("SPDX-2.3", "CC0-1.0", "SPDXRef-DOCUMENT"))
        self.assertEqual(bill["creationInfo"]["created"], "1970-01-02T00:00:00Z")
        ids = [package["SPDXID"] for package in bill["packages"]]
        self.assertEqual(len(ids), len(set(ids)))
        for package in bill["packages"]:
            self.assertLessEqual({"name", "SPDXID", "downloadLocation", "licenseDeclared"}, set(package))
        for relationship in bill["relationships"]:
            self.assertIn(relationship["relatedSpdxElement"], ids)

    def test_is_the_same_for_the_same_packages(self):
        self.make_debian_package("point-collections", "libc6, libstdc++6")
        self.assertEqual(self.bill(), self.bill())


if __name__ == "__main__":
    unittest.main()
