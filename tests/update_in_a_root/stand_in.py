#!/real/bin/python3 -SE
"""Stands at the paths of the tools that an update calls, and behaves as they do.

One program under all their names. It notes every call, and obeys what the test has written down:
to fail, to hang, or to end with whoever called it before, in the midst of or after its work, which
is what a machine that goes down looks like.
"""

import hashlib
import json
import os
import shutil
import signal
import sys
import tarfile
import time

STATE = "/state"
PLIST_BUDDY = "PlistBuddy"
HANG = 120  # seconds; nobody waits that long


def note(call):
    with open(f"{STATE}/calls", "a", encoding="utf-8") as calls:
        calls.write(json.dumps(call) + "\n")


def order(name):
    """What the test wants of this call, if anything."""
    try:
        with open(f"{STATE}/orders", encoding="utf-8") as orders:
            return json.load(orders).get(name)
    except FileNotFoundError:
        return None


def go_down():
    """Everybody in the script's session ends at once."""
    os.killpg(0, signal.SIGKILL)


def say(text):
    sys.stdout.write(text + "\n")


def fail(text):
    sys.stderr.write(text + "\n")
    return 1


def digest(app):
    """Of all files of a bundle but for its signature."""
    told = hashlib.sha256()
    for folder, folders, files in os.walk(app):
        folders.sort()
        for name in sorted(files):
            path = os.path.join(folder, name)
            if name != "CodeSignature":
                told.update(os.path.relpath(path, app).encode() + b"\0")
                with open(path, "rb") as file:
                    told.update(file.read() + b"\0")
    return told.hexdigest()


def signature(app):
    try:
        with open(f"{app}/Contents/CodeSignature", encoding="utf-8") as file:
            return json.load(file)
    except (OSError, ValueError):
        return None


def is_whole(app):
    signed = signature(app)
    return signed is not None and signed["digest"] == digest(app)


def hdiutil(verb, *rest):
    return attach(*rest) if verb == "attach" else detach(*rest)


def attach(image, *rest):
    flags = list(rest)
    point = flags.pop()
    assert flags == ["-nobrowse", "-readonly", "-noautoopen", "-mountpoint"], flags
    if os.path.exists(f"{STATE}/mounted"):
        return fail("hdiutil: attach failed - Resource busy")
    try:
        with tarfile.open(image) as tree:
            with open(f"{STATE}/mounted", "w", encoding="utf-8") as mounted:
                mounted.write(point)
            tree.extractall(point)
    except (OSError, tarfile.TarError):
        return fail("hdiutil: attach failed - image not recognized")
    say(f"/dev/disk4          \tApple_HFS                      \t{point}")
    return 0


def detach(point, force):
    assert force == "-force"
    try:
        with open(f"{STATE}/mounted", encoding="utf-8") as mounted:
            there = mounted.read() == point
    except FileNotFoundError:
        there = False
    if not there:
        return fail("hdiutil: detach failed - No such file or directory")
    shutil.rmtree(point)
    os.remove(f"{STATE}/mounted")
    say('"disk4" ejected.')
    return 0


def codesign(first, *rest):
    app = rest[-1]
    signed = signature(app)
    if not os.path.isdir(app):
        return fail(f"{app}: No such file or directory")
    if signed is None:
        return fail(f"{app}: code object is not signed at all")
    if first == "--verify":
        assert rest[:-1] == ("--deep", "--strict"), rest
        return 0 if is_whole(app) else fail(f"{app}: a sealed resource is missing or invalid")
    assert (first, len(rest)) == ("-dv", 1)
    sys.stderr.write(f"""Executable={app}/Contents/MacOS/Vellix
Identifier={signed["identifier"]}
Format=app bundle with generic
CodeDirectory v=20500 size=1024 flags=0x10000(runtime) hashes=21+7 location=embedded
Signature size=8986
Info.plist entries=21
TeamIdentifier={signed["team"]}
Runtime Version=13.1.0
Sealed Resources version=2 rules=13 files=2
Internal requirements count=1 size=180
""")
    return 0


def ditto(source, target, half=False):
    if not os.path.exists(source):
        return fail(f"ditto: Cannot get the real path for source '{source}'")
    for folder, _, files in os.walk(source):
        there = os.path.join(target, os.path.relpath(folder, source))
        os.makedirs(there, exist_ok=True)
        for name in sorted(files)[:1 if half else None]:
            shutil.copy2(os.path.join(folder, name), os.path.join(there, name))
        if half:
            break
    return 0


def xattr(*arguments):
    assert arguments[:2] == ("-dr", "com.apple.quarantine"), arguments
    return 0 if os.path.exists(arguments[2]) else fail(f"xattr: No such file: {arguments[2]}")


def open_it(path):
    return 0 if os.path.exists(path) else fail(f"The file {path} does not exist.")


def plist_buddy(dash_c, command, path):
    import plistlib  # by this one alone: it takes its time
    assert (dash_c, command) == ("-c", "Print CFBundleVersion")
    try:
        with open(path, "rb") as file:
            entries = plistlib.load(file)
    except Exception:  # whatever is in that file
        return fail(f"Error Reading File: {path}")
    if "CFBundleVersion" not in entries:
        return fail('Print: Entry, ":CFBundleVersion", Does Not Exist')
    say(str(entries["CFBundleVersion"]))
    return 0


def real(name, arguments):
    return os.spawnv(os.P_WAIT, f"/real/bin/{name}", [name, *arguments])


def half_removed(path):
    """The first file that is there, and no more."""
    for folder, _, files in os.walk(path):
        for name in sorted(files)[:1]:
            os.remove(os.path.join(folder, name))
            return


TOOLS = {"hdiutil": hdiutil, "codesign": codesign, "ditto": ditto, "xattr": xattr, "open": open_it,
         PLIST_BUDDY: plist_buddy}


def midway(name, arguments):
    """As far as it came."""
    if name == "ditto":
        ditto(*arguments, half=True)
    if name == "rm":
        half_removed(arguments[-1])


def main():
    name, arguments = os.path.basename(sys.argv[0]), sys.argv[1:]
    steps = sum(1 for _ in open(f"{STATE}/calls", encoding="utf-8")) + 1
    note({"tool": name, "arguments": arguments, "process": os.getpid()})
    down = order("down")
    due = down["when"] if down and down["step"] == steps else None
    if due == "before":
        go_down()
    if due == "midway":
        midway(name, arguments)
        go_down()
    wanted = order(f"{name} {arguments[0]}" if name in ("hdiutil", "codesign") else name)
    status = 1
    if wanted == "hang":
        time.sleep(HANG)
    elif wanted == "fail":
        midway(name, arguments)
        fail(f"{name}: No space left on device")
    elif name in TOOLS:
        status = TOOLS[name](*arguments)
    else:
        status = real(name, arguments)
    if wanted == "work and hang":
        time.sleep(HANG)
    if due == "after":
        go_down()
    return status


if __name__ == "__main__":
    sys.exit(main())
