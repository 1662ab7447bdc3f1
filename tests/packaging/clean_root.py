"""Fails when the package does not come into a clean Debian root, start there, be known to it by its
links and its name on the bus, and leave it as it was.

clean_root.py BUILD

The root is made by the archive's own tool, from the sources of Debian that this machine has. Packages
once fetched are kept in BUILD/tests/packaging/fetched. What is done in the root is in in_root.py.
"""

import os
import shlex
import subprocess
import sys
import tempfile
from pathlib import Path

from packing import PROJECT, pack, report

HERE = Path(__file__).resolve().parent
# What a desktop has, and asks about links and names on the bus.
DESKTOP = ["dbus-daemon", "libglib2.0-bin"]
SOURCE = "$(CREATED_BY)|$(ORIGIN)|$(REPO_URI)|$(RELEASE)|$(COMPONENT)|$(CODENAME)"
NEEDS = """It takes root, or for another user namespaces of users: newuidmap, and a range for that user in
/etc/subuid and /etc/subgid. It takes the sources of apt as well, as far as nothing is kept yet."""
WELL = ["in the root: all is well"]
UNREACHABLE = ("Temporary failure resolving", "Could not resolve", "Could not connect",
               "Unable to connect", "Network is unreachable", "Connection timed out")
SKIPPED = 77  # to ctest, which says so
ARCHIVES = "/var/cache/apt/archives"


class Trouble(Exception):
    """What stands in the way of the test; it has then not told whether the package is well."""


class Unreachable(Exception):
    """There is no way to the archive from this machine: nothing to be mended in the package."""


def said_by(*command):
    return subprocess.run(list(map(str, command)), check=True, capture_output=True, text=True).stdout


def sources():
    """This machine's sources of Debian's own packages, and the name of its release."""
    lines, names = [], set()
    for line in said_by("apt-get", "indextargets", "--format", SOURCE).splitlines():
        kind, origin, address, release, component, name = line.split("|")
        if kind == "Packages" and origin == "Debian":
            lines.append(f"deb {address} {release} {component}")
            names.add(name)
    if not lines:
        raise Trouble("apt has no lists of Debian's packages here: run apt-get update")
    return list(dict.fromkeys(lines)), min(names, key=len)


def proxies():
    lines = said_by("apt-config", "dump").splitlines()
    return [f"--aptopt={line}" for line in lines if line.startswith("Acquire::") and "Proxy" in line]


def needs_of(deb, folder):
    """A package that has nothing but the needs of the other, so that the root can be looked at with
    these and without it."""
    fields = said_by("dpkg-deb", "--field", deb, "Architecture", "Maintainer", "Depends")
    root = Path(folder, "needs")
    (root / "DEBIAN").mkdir(parents=True)
    depends = f"{', '.join(DESKTOP)}, "
    (root / "DEBIAN/control").write_text(
        "Package: vellix-needs\nVersion: 1\nDescription: What Vellix needs\n" +
        fields.replace("Depends: ", f"Depends: {depends}"))
    said_by("dpkg-deb", "--root-owner-group", "--build", root, Path(folder, "needs.deb"))
    return Path(folder, "needs.deb")


def hooks(folder, fetched):
    place = "/tmp/vellix"
    copied = [Path(folder, name) for name in ("needs.deb", "vellix.deb")] + [HERE / "in_root.py"]
    return [f"--setup-hook={hook}" for hook in (
        f'mkdir -p "$1{ARCHIVES}"', f"sync-in {shlex.quote(str(fetched))} {ARCHIVES}")
    ] + [f"--customize-hook={hook}" for hook in (
        f'mkdir -p "$1{place}"',
        f"copy-in {shlex.join(map(str, copied))} {place}",
        f'chroot "$1" apt-get install -y -q --no-install-recommends {place}/needs.deb',
        f"sync-out {ARCHIVES} {shlex.quote(str(fetched))}",
        f'/usr/bin/python3 -B "$1{place}/in_root.py" "$1" {place}/vellix.deb',
    )]


def made_root(folder, fetched):
    """The complaints of what is done in a root that is made for it."""
    lines, release = sources()
    # As a user of its own it may not reach what is the caller's alone.
    os.chmod(folder, 0o755)
    command = ["mmdebstrap", "--mode=auto", "--variant=minbase", "--format=null",
               "--skip=essential/unlink", "--aptopt=APT::Keep-Downloaded-Packages \"true\"",
               "--dpkgopt=force-unsafe-io", *proxies(), *hooks(folder, fetched), release, "/dev/null",
               *lines]
    ran = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                         stderr=subprocess.STDOUT, text=True, errors="replace", check=False,
                         env=os.environ | {"DEBIAN_FRONTEND": "noninteractive", "LC_ALL": "C.UTF-8"})
    said = [line for line in ran.stdout.splitlines() if line.startswith("in the root: ")]
    if not said and any(words in ran.stdout for words in UNREACHABLE):
        raise Unreachable("\n".join(line for line in ran.stdout.splitlines()
                                    if any(words in line for words in UNREACHABLE)))
    if not said or (said == WELL and ran.returncode):
        raise Trouble(f"mmdebstrap ends with {ran.returncode}:\n{ran.stdout[-4000:]}\n{NEEDS}")
    return [] if said == WELL else said


def main(build):
    fetched = Path(build, "tests", "packaging", "fetched").resolve()
    fetched.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="vellix-root-") as folder:
        deb, _ = pack(build, Path(folder, "packed"))
        deb.rename(Path(folder, "vellix.deb"))
        needs_of(Path(folder, "vellix.deb"), folder)
        try:
            return report(made_root(folder, fetched))
        except Unreachable as said:
            print(f"Skipped: the archive cannot be reached from here.\n{said}")
            return SKIPPED
        except Trouble as trouble:
            print(f"No clean root could be made, so nothing is known of the package. {trouble}")
            return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
