"""Installs the package in a root, looks at it, starts it in several ways, removes it, and says what is
not as it should be, in lines that begin with "in the root: ", or that all is well there.

in_root.py ROOT DEB      DEB as it is called in the root
"""

import hashlib
import os
import stat
import subprocess
import sys
from pathlib import Path

NAME = "example.tessarine.Vellix"
SCHEME = "x-scheme-handler/sorel"
HOME = "/home/person"
LIMIT = 120  # seconds for anything on a busy machine
PNG = b"\x89PNG\r\n\x1a\n"
SAMPLE = """{"board": {"rev": 1, "me": {"email": "renny@tessarine.example", "name": "Renny"},
"users": [], "files": [], "jobs": [], "reports": [], "events": []}, "details": {}}"""

# Other programs' own: what is fetched, logged and locked while packages come and go.
CHANGING = ("proc", "sys", "dev", "run", "tmp", HOME[1:], "var/cache/apt", "var/lib/apt", "var/log",
            "var/lib/dpkg/lock", "var/lib/dpkg/lock-frontend", "var/lib/dpkg/triggers/Lock",
            "var/lib/dpkg/status-old", "var/cache/ldconfig/aux-cache")

# On a bus of its own: the bus starts the program for a link, which it takes, is asked for its process,
# and a second start hands over to it and ends.
ON_THE_BUS = f"""set -e
call() {{ gdbus call --session --timeout {LIMIT} "$@"; }}
call --dest {NAME} --object-path /example/tessarine/Vellix \
  --method org.freedesktop.Application.Open "['sorel://nobody-waits']" '{{}}'
process=$(call --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
  --method org.freedesktop.DBus.GetConnectionUnixProcessID {NAME} | tr -dc '0-9 ' | tr -s ' ' |
  sed 's/^.*32 //')
trap 'kill "$process"' EXIT
readlink "/proc/$process/exe"
timeout {LIMIT} vellix
echo "handed over"
"""


class Root:
    def __init__(self, path):
        self.path = Path(path)
        self.complaints = []

    def expect(self, true, complaint):
        if not true:
            self.complaints.append(complaint)

    def run(self, *command, **environment):
        """As root; the exit code and all that it says."""
        return self._run(["chroot", self.path, *command],
                         {"DEBIAN_FRONTEND": "noninteractive"} | environment)

    def run_as_person(self, *command, **environment):
        ids = "--userspec=1000:1000"
        folders = {"HOME": HOME, "XDG_RUNTIME_DIR": f"{HOME}/run"}
        return self._run(["chroot", ids, self.path, *command], folders | environment)

    @staticmethod
    def _run(command, environment):
        path = "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin"
        try:
            ran = subprocess.run(list(map(str, command)), stdin=subprocess.DEVNULL, timeout=LIMIT,
                                 stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                 errors="replace", check=False,
                                 env={"PATH": path, "LC_ALL": "C.UTF-8"} | environment)
        except subprocess.TimeoutExpired:
            return None, f"did not end within {LIMIT} s"
        return ran.returncode, ran.stdout

    def packages(self):
        return self.run("dpkg-query", "--show", "--showformat=${Package} ${db:Status-Abbrev}\n")[1]

    def files(self):
        """What there is, by path: its kind, rights and owners, and its content or where it leads."""
        found = {}
        for folder, names, files in os.walk(self.path):
            inside = os.path.relpath(folder, self.path)
            names[:] = [name for name in names
                        if os.path.normpath(f"{inside}/{name}") not in CHANGING]
            for name in names + files:
                path = os.path.normpath(f"{inside}/{name}")
                if path not in CHANGING:
                    found[path] = described(Path(folder, name))
        return found


def described(path):
    about = path.lstat()
    content = None
    if stat.S_ISLNK(about.st_mode):
        content = os.readlink(path)
    elif stat.S_ISREG(about.st_mode):
        content = hashlib.sha1(path.read_bytes()).hexdigest()
    return about.st_mode, about.st_uid, about.st_gid, content


def install(root, deb):
    before = root.packages()
    code, said = root.run("apt-get", "install", "-y", "-q", "--no-install-recommends", deb)
    root.expect(code == 0, f"apt-get install ends with {code}: {said}")
    came = sorted(set(root.packages().splitlines()) - set(before.splitlines()))
    root.expect(came == ["vellix ii "], f"not the package alone came: {came}")
    code, said = root.run("dpkg", "--verify", "vellix")
    root.expect((code, said) == (0, ""), f"what came is not as it was packed: {said}")


def tell_the_version(root):
    code, said = root.run_as_person("vellix", "--version")
    root.expect(code == 0 and said.startswith("Vellix "), f"--version ends with {code}: {said}")


def take_pictures(root):
    """Of the sign-in screen and of an empty board, in memory; without a warning of any kind."""
    (root.path / HOME[1:] / "sample").mkdir()
    (root.path / HOME[1:] / "sample/sample.json").write_text(SAMPLE)
    pictures = set()
    for name, flags in (("sign-in", ["--signin"]), ("board", ["--sample", f"{HOME}/sample"])):
        path = f"{HOME}/{name}.png"
        code, said = root.run_as_person("vellix", "--shot", path, *flags, QT_QPA_PLATFORM="offscreen")
        root.expect(code == 0, f"taking {name} ends with {code}: {said}")
        root.expect(said == "", f"taking {name} it says: {said}")
        pictures.add(picture(root, path))
    root.expect(len(pictures) == 2, "sign-in and board look the same")


def picture(root, path):
    file = root.path / path[1:]
    content = file.read_bytes() if file.is_file() else b""
    root.expect(content.startswith(PNG) and len(content) > 5_000, f"{path} is no picture")
    return content


def draw_on_a_display(root):
    """On an X server of this machine, which is reached without a file in the root."""
    read, write = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1500x940x24", "-ac",
                               "-nolisten", "tcp"], pass_fds=[write], stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(write)
    try:
        with os.fdopen(read) as number:
            display = ":" + number.readline().strip()
        path = f"{HOME}/display.png"
        code, said = root.run_as_person("vellix", "--shot", path, "--signin", DISPLAY=display,
                                        QT_QPA_PLATFORM="xcb")
        root.expect(code == 0, f"on a display it ends with {code}: {said}")
        picture(root, path)
    finally:
        server.terminate()
        server.wait()


def be_ready_for_wayland(root):
    """There is no such display here; the plugin that says so is there."""
    _, said = root.run_as_person("vellix", "--shot", f"{HOME}/none.png", QT_QPA_PLATFORM="wayland")
    root.expect("Failed to create wl_display" in said, f"no plugin for Wayland: {said}")


def be_known_by_links(root):
    code, said = root.run_as_person("gio", "mime", SCHEME)
    root.expect(code == 0 and f"{NAME}.desktop" in said.splitlines()[0], f"gio mime says: {said}")
    code, said = root.run_as_person("xdg-mime", "query", "default", SCHEME)
    root.expect(said == f"{NAME}.desktop\n", f"xdg-mime says: {said}")


def be_known_on_the_bus(root):
    code, said = root.run_as_person("dbus-run-session", "--", "sh", "-c", ON_THE_BUS,
                                    QT_QPA_PLATFORM="offscreen")
    lines = said.splitlines()
    for line in ("()", "/usr/bin/vellix", "handed over"):
        root.expect(line in lines, f"on the bus there is no {line}: {code} {said}")


def remove(root, files):
    code, said = root.run("apt-get", "purge", "-y", "-q", "vellix")
    root.expect(code == 0, f"apt-get purge ends with {code}: {said}")
    left = root.files()
    for path in sorted(files.keys() | left.keys()):
        if path not in files:
            root.expect(False, f"{path} is left")
        elif path not in left:
            root.expect(False, f"{path} is gone")
        else:
            root.expect(files[path] == left[path], f"{path} is another: {files[path]} {left[path]}")


def main(path, deb):
    root = Root(path)
    root.run("useradd", "--create-home", "--home-dir", HOME, "--uid", "1000", "person")
    (root.path / HOME[1:] / "run").mkdir(mode=0o700)
    os.chown(root.path / HOME[1:] / "run", 1000, 1000)
    files = root.files()
    install(root, deb)
    if not root.complaints:
        for step in (tell_the_version, take_pictures, draw_on_a_display, be_ready_for_wayland,
                     be_known_by_links, be_known_on_the_bus):
            step(root)
    remove(root, files)
    for complaint in root.complaints or ["all is well"]:
        print("in the root: " + complaint.strip().replace("\n", "\nin the root: "))
    return 1 if root.complaints else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
