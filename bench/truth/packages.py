"""Files out of packages of Debian's archive, fetched once and unpacked beside the build."""

import gzip
import os
import shutil
import subprocess
from pathlib import Path

# What typesets, draws or reads here and is needed by nothing else: command and package.
TOOLS = {"pdflatex": "texlive-latex-base", "gropdf": "groff", "chromium": "chromium",
         "soffice": "libreoffice-writer-nogui", "weasyprint": "weasyprint",
         "rsvg-convert": "librsvg2-bin", "gs": "ghostscript", "qpdf": "qpdf",
         "pdftotext": "poppler-utils"}
RIVALS = {"diffpdf": "diffpdf", "comparepdf": "comparepdf"}

# This release is Debian 12; the one behind it is read from the same archive.
THIS_RELEASE, NEXT_RELEASE = "bookworm", "trixie"
KEYS = "/usr/share/keyrings/debian-archive-keyring.gpg"
MANUAL = "debian-reference-en"


def missing(tools: dict[str, str]) -> list[str]:
    return sorted({package for tool, package in tools.items() if not shutil.which(tool)})


def how_to_install(packages: list[str]) -> str:
    return f"apt-get install --no-install-recommends {' '.join(packages)}"


class Packages:
    """Unpacks into a folder of its own; nothing is installed."""

    def __init__(self, folder: Path):
        self.folder = folder

    def root(self, package: str) -> Path:
        return self._unpacked(self.folder / "this" / package, package, [])

    def text(self, package: str, path: str) -> str:
        file = self.root(package) / path
        data = file.read_bytes()
        return (gzip.decompress(data) if file.suffix == ".gz" else data).decode()

    def manual_twice(self) -> tuple[Path, Path]:
        """The same manual as two releases of Debian have it, the newer one first."""
        roots = (self._unpacked(self.folder / "next" / MANUAL, MANUAL, self._next_release()),
                 self.root(MANUAL))
        newer, older = (next(root.rglob("debian-reference.en.pdf")) for root in roots)
        return newer, older

    def _unpacked(self, root: Path, package: str, options: list[str]) -> Path:
        if not (root / ".whole").exists():
            shutil.rmtree(root, ignore_errors=True)
            root.mkdir(parents=True)
            apt("download", package, options=options, cwd=root)
            for file in root.glob("*.deb"):
                subprocess.run(["dpkg-deb", "-x", file, root], check=True)
            (root / ".whole").touch()
        return root

    def _next_release(self) -> list[str]:
        lists = self.folder / "next" / "apt"
        (lists / "lists" / "partial").mkdir(parents=True, exist_ok=True)
        sources = lists / "sources.list"
        options = ["-o", f"Dir::Etc::sourcelist={sources}", "-o", "Dir::Etc::sourceparts=-",
                   "-o", f"Dir::State::lists={lists / 'lists'}", "-o", f"Dir::Cache={lists}"]
        if not sources.exists():
            sources.write_text(f"deb [signed-by={KEYS}] {archive()} {NEXT_RELEASE} main\n")
            apt("update", options=options)
        return options


def archive() -> str:
    """Where this machine has its packages from."""
    told = subprocess.run(
        ["apt-get", "indextargets", "--format", "$(REPO_URI)", "Created-By: Packages",
         "Origin: Debian", f"Codename: {THIS_RELEASE}", "Component: main"],
        check=True, capture_output=True, text=True).stdout.split()
    if not told:
        raise RuntimeError(f"apt knows no archive of {THIS_RELEASE}; run apt-get update")
    return told[0]


def apt(*arguments: str, options: list[str], cwd: Path | None = None) -> None:
    subprocess.run(["apt-get", "-q", *options, *arguments], check=True, cwd=cwd,
                   capture_output=True, timeout=300, env={**os.environ, "LC_ALL": "C"})
