"""A reviewer's desk: the demo service and the real program, alone in a private session."""

import ctypes
import os
import re
import signal
import subprocess
import sys
import time
import traceback
from pathlib import Path

from browser import Browser
from private_session import LIMIT, PrivateSession, Trouble, wait_until
from reader import Reader
from service import Service

SIGNED_IN = "sorel://signed-in?code=demo-{}"

ATTEMPT_LIMIT = 150  # seconds; ctest's own limit leaves room for three attempts

# What QML or Qt says on stderr when a view is wrong. None of it may ever be said.
WARNINGS = re.compile(
    r"(qrc:|file:)\S*\.(qml|js|mjs)\b|Binding loop|TypeError|ReferenceError|QQml|Unable to assign"
    r"|Cannot assign|is not defined|Cannot read property|QObject::connect|QML \w+:"
    r"|Could not load|not installed|Required property|runtime error:|AddressSanitizer|ASSERT")


class Desk:
    """with Desk() as desk: ... desk.reader presses, desk.service remembers what was asked of it."""

    def __init__(self, build, reviewer="renny", program=None, service=None,
                 service_arguments=("--no-colleague",)):
        self.build = Path(build).resolve()
        self.program_binary = Path(program) if program else self.build / "vellix"
        self.service_binary = Path(service) if service else self.build / "vellix_demo_service"
        self.service_arguments = service_arguments
        self.reviewer = reviewer
        self.session = PrivateSession()
        self.program = None

    def __enter__(self):
        self.session.__enter__()
        try:
            self.service = Service(self.session, self.service_binary,
                                   self.service_arguments)
            self.browser = Browser(self.session)
            self._point_program_at(self.service.base)
            self.start_program(SIGNED_IN.format(self.reviewer) if self.reviewer else None)
        except BaseException:
            self.keep_evidence()
            self.session.close()
            raise
        return self

    def __exit__(self, kind, value, trace):
        try:
            if kind is not None:
                self.keep_evidence()
            else:
                self.no_warnings()
        finally:
            self.session.close()

    def _point_program_at(self, base):
        folder = Path(self.session.environment["XDG_CONFIG_HOME"]) / "vellix"
        folder.mkdir(parents=True)
        (folder / "defaults.ini").write_text(f"[General]\nServerURL={base}\n")

    def start_program(self, url=None):
        command = [str(self.program_binary)] + ([url] if url else [])
        self.program = self.session.start("program", command)
        self.reader = Reader(self.session, self.program_binary.name).attach()

    def second_start(self, url=None):
        """Starts the program once more, as a click on its icon or on a link does. It must end well."""
        command = [str(self.program_binary)] + ([url] if url else [])
        code = self.session.start("second", command).wait(timeout=LIMIT)
        if code != 0:
            raise Trouble(f"the second start ended with {code}")

    def close_window(self):
        """Closes the main window as a person does; the process must then end well."""
        self.reader.key("alt+F4")
        code = self.ended()
        if code != 0:
            raise Trouble(f"the program ended with {code}")

    def ended(self):
        """The code the program ends with by itself."""
        try:
            return self.program.wait(timeout=LIMIT)
        except subprocess.TimeoutExpired:
            raise Trouble(f"the program still ran after {LIMIT:.0f} s") from None

    def alive(self):
        code = self.program.poll()
        if code is not None:
            raise Trouble(f"the program ended with {code}")

    def no_warnings(self):
        # What the bus has started speaks through the bus.
        names = {child.name for child in self.session.children} & {"program", "second", "bus"}
        said = [line for name in names for line in self.session.errors_of(name).splitlines()
                if WARNINGS.search(line)]
        if said:
            raise Trouble("the program warned:\n  " + "\n  ".join(said[:40]))

    def keep_evidence(self):
        """Leaves a picture of the display and what was said where a person can look at it."""
        folder = self.build / "end_to_end" / Path(sys.argv[0]).stem
        folder.mkdir(parents=True, exist_ok=True)
        for child in self.session.children:
            (folder / f"{child.name}.err").write_text(self.session.errors_of(child.name))
        if "DISPLAY" in self.session.environment:
            try:
                self.session.picture(folder / "display.png")
            except Trouble as trouble:
                print(trouble, file=sys.stderr)
        print(f"A picture of the display and the programs' stderr lie in {folder}", file=sys.stderr)


def run(test):
    """Runs test(build folder) up to VELLIX_ATTEMPTS times. Says when a later attempt was needed."""
    build = Path(sys.argv[1]) if len(sys.argv) > 1 else Path("build/release")
    attempts = int(os.environ.get("VELLIX_ATTEMPTS", "1"))
    name = Path(sys.argv[0]).stem
    for attempt in range(1, attempts + 1):
        # Each attempt is a process of its own, so that nothing of a failed one is left.
        child = os.fork()
        if child == 0:
            os._exit(_attempt(test, build))
        code = os.waitstatus_to_exitcode(os.waitpid(child, 0)[1])
        if code == 0:
            if attempt > 1:
                _note(f"{name} passed at attempt {attempt} of {attempts}")
            return 0
        print(f"{name}: attempt {attempt} of {attempts} failed", file=sys.stderr)
    return 1


def _attempt(test, build):
    started = time.monotonic()
    # Ends with its parent, and in any case in time to clean up after itself.
    ctypes.CDLL(None).prctl(1, signal.SIGKILL)  # PR_SET_PDEATHSIG
    signal.signal(signal.SIGALRM, _out_of_time)
    signal.alarm(ATTEMPT_LIMIT)
    try:
        test(build)
        print(f"passed in {time.monotonic() - started:.1f} s")
        return 0
    except Trouble as trouble:
        traceback.print_tb(trouble.__traceback__, limit=4)
        print(f"FAILED: {trouble}", file=sys.stderr)
    except BaseException:  # pylint: disable=broad-except
        traceback.print_exc()
    finally:
        sys.stdout.flush()
        sys.stderr.flush()
    return 1


def _out_of_time(*_):
    raise Trouble(f"the whole test took more than {ATTEMPT_LIMIT} s")


def _note(line):
    print(line, file=sys.stderr)
    notes = os.environ.get("VELLIX_ATTEMPT_NOTES")
    if notes:
        with open(notes, "a", encoding="utf-8") as file:
            file.write(line + "\n")


def expect(condition, sentence):
    if not condition:
        raise Trouble(sentence)


__all__ = ["Desk", "Trouble", "expect", "run", "wait_until"]
