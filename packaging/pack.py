"""Packs what a build has: a Debian package and an archive. One commit gives the same bytes, wherever,
when and by whomever it is packed.

pack.py BUILD OUT

The time in both is SOURCE_DATE_EPOCH, without it that of the last commit.
"""

import gzip
import os
import re
import shutil
import subprocess
import sys
import tempfile
from email.utils import formatdate
from pathlib import Path
from string import Template

import imports

HERE = Path(__file__).resolve().parent
VERSION = re.compile(r"Vellix (\S+) \(build (\d+)\)\n")

CHANGES = Template("""vellix ($version) stable; urgency=medium

  * Build $build of Vellix $short.

 -- $maintainer  $date
""")


class Marks(Template):
    """As CMake's own files have them: @name@."""
    pattern = r"@(?:(?P<named>[a-z]+)|(?P<escaped>(?!))|(?P<braced>(?!))|(?P<invalid>(?!)))@"


def said_by(*command, **options):
    return subprocess.run(list(map(str, command)), check=True, stdout=subprocess.PIPE, text=True,
                          **options).stdout


def epoch():
    told = os.environ.get("SOURCE_DATE_EPOCH")
    if told is None:
        told = said_by("git", "-C", HERE, "log", "-1", "--format=%ct")
    return int(told)


def stage(build, root, prefix):
    """Installs the build below `root`, for a life in `prefix`; returns the program there."""
    said_by("cmake", "--install", Path(build, "packaging").resolve(), "--prefix", prefix,
            env=os.environ | {"DESTDIR": str(root)})
    program = root / prefix.lstrip("/") / "bin" / "vellix"
    said_by("strip", "--remove-section=.comment", "--remove-section=.note", program)
    return program


def settle(root, time):
    """Rights and times depend on nothing but what it is."""
    for path in [root, *root.rglob("*")]:
        path.chmod(0o755 if path.is_dir() or path.parent.name == "bin" else 0o644)
        os.utime(path, (time, time))


def version_of(program):
    said = said_by(program, "--version")
    short, build = VERSION.fullmatch(said).groups()
    return {"short": short, "build": build, "version": f"{short}.{build}"}


def linked(program, folder):
    """The packages of the libraries that the program is linked with; it lies in folder/debian/vellix."""
    (folder / "debian/control").write_text("Source: vellix\n\nPackage: vellix\nArchitecture: any\n")
    said = said_by("dpkg-shlibdeps", "-O", f"-e{program}", cwd=folder)
    return said.removeprefix("shlibs:Depends=").strip()


def control(template, values):
    """The fields, without the remarks; one that is given in several lines is one list."""
    fields, texts = {}, []
    for line in Marks(template).substitute(values).splitlines():
        if line.startswith("#"):
            continue
        if line.startswith(" "):
            texts.append(line)
            continue
        name, value = line.split(": ", 1)
        fields.setdefault(name, []).append(value)
    lines = [f"{name}: {', '.join(given)}" for name, given in fields.items()]
    return "\n".join(lines + texts) + "\n"


def compress(path, text):
    with gzip.GzipFile(path, "wb", compresslevel=9, mtime=0) as file:
        file.write(text)


def debian(build, out, folder, time):
    root = folder / "debian/vellix"
    (root / "DEBIAN").mkdir(parents=True)
    program = stage(build, root, "/usr")
    values = version_of(program) | {"date": formatdate(time)}
    page = root / "usr/share/man/man1/vellix.1"
    compress(page.with_suffix(".1.gz"), page.read_bytes())
    page.unlink()

    values["architecture"] = said_by("dpkg", "--print-architecture").strip()
    values["linked"] = linked(program, folder)
    values["imported"] = ", ".join(imports.packages(build))
    template = (HERE / "control.in").read_text(encoding="utf-8")
    values["maintainer"] = re.search("^Maintainer: (.*)$", template, re.MULTILINE)[1]
    changes = CHANGES.substitute(values).encode()
    compress(root / "usr/share/doc/vellix/changelog.gz", changes)
    files = sorted(path for path in root.rglob("*") if path.is_file())
    # As the archive's own packages count: a file in whole KiB, and one for each folder.
    values["size"] = sum(-(-path.stat().st_size // 1024) if path.is_file() else 1
                         for path in root.glob("usr/**/*")) + 1
    (root / "DEBIAN/control").write_text(control(template, values), encoding="utf-8")
    sums = said_by("md5sum", *[path.relative_to(root) for path in files], cwd=root)
    (root / "DEBIAN/md5sums").write_text(sums)
    settle(root, time)
    said_by("dpkg-deb", "--root-owner-group", "--threads-max=1", "--build", root,
            out / f"vellix_{values['version']}_{values['architecture']}.deb",
            env=os.environ | {"SOURCE_DATE_EPOCH": str(time)})


def archive(build, out, folder, time):
    """To be unpacked in /usr/local."""
    root = folder / "archive"
    program = stage(build, root, "/usr/local")
    name = f"vellix-{version_of(program)['version']}-linux-{os.uname().machine}"
    (root / "usr/local").rename(folder / name)
    settle(folder / name, time)
    said_by("tar", "--create", "--format=ustar", "--sort=name", f"--mtime=@{time}", "--owner=0",
            "--group=0", "--numeric-owner", f"--directory={folder}", f"--file={folder / 'tar'}", name)
    compress(out / f"{name}.tar.gz", (folder / "tar").read_bytes())


def main(build, out):
    os.umask(0o022)
    os.environ.update(LC_ALL="C", TZ="UTC")
    out = Path(out).resolve()
    shutil.rmtree(out, ignore_errors=True)
    out.mkdir(parents=True)
    time = epoch()
    with tempfile.TemporaryDirectory(prefix="vellix-pack-") as folder:
        debian(build, out, Path(folder), time)
        archive(build, out, Path(folder), time)
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
