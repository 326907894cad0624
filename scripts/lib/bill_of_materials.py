#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints the bill of materials of the packages in a folder, in SPDX 2.3 (JSON): each package with its
checksum, what it depends on, and the source packages whose code is compiled into the program.

    bill_of_materials.py FOLDER VERSION COMPILED_IN...

COMPILED_IN is NAME=LICENCE of an installed Debian package, such as libcli11-dev=BSD-3-Clause. The time
in it is SOURCE_DATE_EPOCH, so that the same packages have the same bill.
"""

import datetime
import hashlib
import json
import os
import re
import subprocess
import sys
import tarfile
import tempfile
from pathlib import Path

LICENCE = "MIT"
COPYRIGHT = "The TKMService authors"


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def spdx_id(kind, name):
    return f"SPDXRef-{kind}-" + re.sub(r"[^A-Za-z0-9.-]", "-", name)


def installed_version(package):
    return output("dpkg-query", "-W", "-f=${Version}", package)


def own_package(file, name, version):
    return {
        "SPDXID": spdx_id("Package", file.name),
        "name": name,
        "versionInfo": version,
        "packageFileName": file.name,
        "supplier": f"Organization: {COPYRIGHT}",
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": False,
        "checksums": [{"algorithm": "SHA256",
                       "checksumValue": hashlib.sha256(file.read_bytes()).hexdigest()}],
        "licenseConcluded": LICENCE,
        "licenseDeclared": LICENCE,
        "copyrightText": COPYRIGHT,
    }


def foreign_package(name, version, licence="NOASSERTION"):
    package = {
        "SPDXID": spdx_id("Debian", name),
        "name": name,
        "supplier": "Organization: Debian",
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": False,
        "licenseConcluded": licence,
        "licenseDeclared": licence,
        "copyrightText": "NOASSERTION",
        "externalRefs": [{"referenceCategory": "PACKAGE-MANAGER", "referenceType": "purl",
                          "referenceLocator": f"pkg:deb/debian/{name}"}],
    }
    if version:
        package["versionInfo"] = version
    return package


def debian_dependencies(file):
    """The packages that a .deb depends on, with the version that it wants, such as ">= 2.34"."""
    for dependency in filter(None, output("dpkg-deb", "--field", file, "Depends").strip().split(", ")):
        match = re.fullmatch(r"(\S+)(?: \((.+)\))?", dependency.split(" | ")[0])
        yield match[1], match[2] or ""


def archive_dependencies(file):
    """The packages of this machine that have the libraries which the files of an archive need."""
    with tempfile.TemporaryDirectory() as folder:
        with tarfile.open(file) as archive:
            archive.extractall(folder, filter="data")
        files = [path for path in Path(folder).rglob("*") if path.is_file() and not path.is_symlink()]
        binaries = [path for path in files if path.read_bytes()[:4] == b"\x7fELF"]
        own = {path.name for path in Path(folder).rglob("*")}
        needed = set()
        for binary in binaries:
            needed |= set(re.findall(r"NEEDED.*\[(.+)\]", output("readelf", "-dW", binary))) - own
    locations = dict(re.findall(r"^\s+(\S+) \(.*x86-64.*\) => (\S+)$", output("/sbin/ldconfig", "-p"),
                                re.MULTILINE))
    for soname in sorted(needed):
        owner = owner_of(locations.get(soname, soname))
        yield owner, installed_version(owner)


def owner_of(path):
    for candidate in (path, os.path.realpath(path), "/usr" + path, path.removeprefix("/usr")):
        found = subprocess.run(["dpkg", "-S", candidate], capture_output=True, text=True, check=False)
        if found.returncode == 0:
            return found.stdout.split(":")[0]
    raise SystemExit(f"error: no installed package has {path}")


def bill(folder, version, compiled_in):
    own, foreign, relationships = {}, {}, []
    files = sorted(file for file in folder.iterdir() if file.suffix in (".deb", ".ddeb", ".gz"))
    for file in files:
        is_debian = file.suffix != ".gz"
        name = output("dpkg-deb", "--field", file, "Package").strip() if is_debian else file.name
        own[name] = own_package(file, name, version)

    def relate(name, kind, other):
        relationships.append({"spdxElementId": own[name]["SPDXID"], "relationshipType": kind,
                              "relatedSpdxElement": other["SPDXID"]})

    for file, name in zip(files, own):
        dependencies = debian_dependencies(file) if file.suffix != ".gz" else archive_dependencies(file)
        for needed, wanted in sorted(set(dependencies)):
            if needed not in own:
                foreign.setdefault(needed, foreign_package(needed, wanted))
            relate(name, "DEPENDS_ON", own.get(needed) or foreign[needed])
        if name == "point-collections" or file.suffix == ".gz":
            for entry in compiled_in:
                package, licence = entry.split("=")
                foreign[package] = foreign_package(package, installed_version(package), licence)
                relate(name, "STATIC_LINK", foreign[package])

    identity = "".join(package["checksums"][0]["checksumValue"] for package in own.values())
    created = datetime.datetime.fromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]), datetime.timezone.utc)
    return {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": f"tkmservice-{version}",
        "documentNamespace": f"https://tkmservice.invalid/spdx/{version}/"
                             + hashlib.sha256(identity.encode()).hexdigest(),
        "creationInfo": {"created": created.strftime("%Y-%m-%dT%H:%M:%SZ"),
                         "creators": [f"Organization: {COPYRIGHT}", "Tool: bill_of_materials.py"]},
        "packages": [*own.values(), *(foreign[name] for name in sorted(foreign))],
        "relationships": [{"spdxElementId": "SPDXRef-DOCUMENT", "relationshipType": "DESCRIBES",
                           "relatedSpdxElement": package["SPDXID"]} for package in own.values()]
                         + relationships,
    }


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    print(json.dumps(bill(Path(sys.argv[1]), sys.argv[2], sys.argv[3:]), indent=2))
