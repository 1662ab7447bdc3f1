"""Runs tests in a root of their own, where what an update does to a machine reaches nobody's.

    in_a_root.py BUILD TESTS.py [unittest arguments]

Its /usr/bin has the few tools of a system that the scripts use, and stand-ins for those of the Mac;
its /Applications is empty; its network ends at itself. All of it goes with the tests.
"""

import os
import subprocess
import sys
import tempfile
from pathlib import Path

HERE = Path(__file__).resolve().parent
MAC_TOOLS = ["/usr/bin/hdiutil", "/usr/bin/codesign", "/usr/bin/ditto", "/usr/bin/xattr",
             "/usr/bin/open", "/usr/libexec/PlistBuddy"]
# Those that the scripts take from the path. They do their work, but can be told to go down in it.
WATCHED = ["/usr/bin/rm", "/usr/bin/mv", "/usr/bin/sleep"]
LIMIT = 400  # seconds for a file of tests


def root(build, scratch):
    """The arguments that make it."""
    closed = scratch / "closed"
    for folder in ("state", "read-only", "closed/Vellix.app"):
        (scratch / folder).mkdir(parents=True)
    arguments = ["--unshare-all", "--die-with-parent", "--new-session", "--clearenv",
                 "--ro-bind", "/usr/lib", "/usr/lib", "--symlink", "usr/lib", "/lib",
                 "--symlink", "usr/bin", "/bin", "--ro-bind", "/usr/bin", "/real/bin",
                 "--symlink", "/real/bin/sh", "/usr/bin/sh",
                 "--ro-bind", str(HERE), "/tests", "--ro-bind", str(build), "/build",
                 "--proc", "/proc", "--dev", "/dev", "--bind", str(scratch / "state"), "/state",
                 "--bind", str(scratch), "/scratch", "--dir", "/home", "--dir", "/tmp",
                 "--dir", "/Applications",
                 "--ro-bind", str(scratch / "read-only"), "/Volumes/Image",
                 "--bind", str(closed), "/Volumes/Closed",
                 "--ro-bind", str(closed / "Vellix.app"), "/Volumes/Closed/Vellix.app"]
    for folder in ("/usr/lib64", "/usr/lib32"):
        if Path(folder).is_dir():
            arguments += ["--ro-bind", folder, folder]
            arguments += ["--symlink", folder[1:], folder.replace("/usr", "")]
    for tool in MAC_TOOLS + WATCHED:
        arguments += ["--symlink", "/tests/stand_in.py", tool]
    environment = {"PATH": "/usr/bin:/bin", "HOME": "/home", "LANG": "C.UTF-8", "TMPDIR": "/tmp",
                   "XDG_CONFIG_HOME": "/home/config", "XDG_CACHE_HOME": "/home/caches",
                   "PYTHONDONTWRITEBYTECODE": "1"}
    for name, value in environment.items():
        arguments += ["--setenv", name, value]
    return arguments


def main():
    build, tests = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).name
    with tempfile.TemporaryDirectory(prefix="vellix-root-") as scratch:
        command = ["bwrap", *root(build, Path(scratch)), "/real/bin/python3", "-B",
                   f"/tests/{tests}", *sys.argv[3:]]
        return subprocess.run(command, stdin=subprocess.DEVNULL, timeout=LIMIT,
                              check=False).returncode


if __name__ == "__main__":
    os.environ.pop("LD_PRELOAD", None)
    sys.exit(main())
