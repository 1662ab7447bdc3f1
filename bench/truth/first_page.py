"""How long a proof's first page takes to be there while the check of it goes on."""

import json
import subprocess
import time
import urllib.request
from pathlib import Path

from checking import Trouble

LIMIT = 60  # seconds
ASIDE = 0.02  # between two questions


class Demo:
    """The demo service with one ticket, as its client asks it."""

    def __init__(self, service: Path, proof: Path, sent: Path):
        self.child = subprocess.Popen(
            [service, "--port", "0", "--until-stdin-closes", "--proof", proof, "--sent", sent],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        line = self.child.stdout.readline()
        if "http://" not in line:
            raise Trouble(f"the demo service said {line!r}")
        self.base = line.split()[-1]
        self.token = ""
        self.token = self.asked("api/login/exchange", {"code": "demo-renny"})["token"]

    def bytes_of(self, path: str, body: dict | None = None) -> bytes:
        request = urllib.request.Request(
            f"{self.base}/{path}", data=None if body is None else json.dumps(body).encode(),
            headers={"Content-Type": "application/json", "Authorization": f"Bearer {self.token}"})
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        with opener.open(request, timeout=LIMIT) as answer:
            return answer.read()

    def asked(self, path: str, body: dict | None = None):
        return json.loads(self.bytes_of(path, body))

    def close(self) -> None:
        self.child.stdin.close()
        self.child.wait(timeout=LIMIT)


def first_page(service: Path, proof: Path, sent: Path) -> float:
    """Seconds from the service's start until its ticket's first page has come as a picture."""
    began = time.monotonic()
    demo = Demo(service, proof, sent)
    try:
        while time.monotonic() - began < LIMIT:
            for ticket in demo.asked("api/state")["files"]:
                pages = demo.asked(f"api/files/{ticket['id']}")["file"].get("pages") or []
                if pages and demo.bytes_of(f"api/blob/{pages[0]['img']}"):
                    return time.monotonic() - began
            time.sleep(ASIDE)
    finally:
        demo.close()
    raise Trouble(f"the first page of {proof} did not come within {LIMIT} s")
