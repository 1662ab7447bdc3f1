"""Fails when lintian has anything to tell of the package, down to fine points and information.

lintian_accepts.py BUILD
"""

import subprocess
import sys
import tempfile

from packing import pack, report

# Information alone: it is compiled without the C library's own checks of sizes.
KNOWN = "I: vellix: hardening-no-fortify-functions [usr/bin/vellix]"


def main(build):
    with tempfile.TemporaryDirectory() as folder:
        deb, _ = pack(build, folder)
        looked = subprocess.run(["lintian", "--pedantic", "--display-info", "--show-overrides",
                                 "--allow-root", deb], stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                check=False)
    told = [line for line in looked.stdout.splitlines() if line != KNOWN]
    if looked.returncode and not told:
        told = [f"lintian ends with {looked.returncode}"]
    return report(told)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
