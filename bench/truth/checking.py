"""Runs the demo service's check on a pair and keeps what it told."""

import json
import subprocess
import time
from pathlib import Path

LIMIT = 900  # seconds


class Trouble(Exception):
    pass


def checked(service: Path, proof: Path, sent: Path) -> tuple[dict, float]:
    """What it found, and in how many seconds."""
    began = time.monotonic()
    done = subprocess.run([service, "--check", proof, sent], capture_output=True, timeout=LIMIT)
    took = time.monotonic() - began
    if done.returncode:
        raise Trouble(f"--check {proof} {sent} ended with {done.returncode}: "
                      f"{done.stderr.decode()[-400:]}")
    told = json.loads(done.stdout)
    proof.with_suffix(".json").write_text(json.dumps(told, indent=1, ensure_ascii=False))
    return told, took
