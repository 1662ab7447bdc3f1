"""A session of its own: profile folders, buses, a display and a window manager.

Nothing here touches the person's settings, keyring or display. Every child is ended and every
file removed by close(), which runs whatever happened before.
"""

import os
import select
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

LIMIT = 30.0  # seconds any single thing may take on a busy machine

BUS_CONFIG = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <keep_umask/>
  <listen>unix:path={socket}</listen>
  <auth>EXTERNAL</auth>
  {services}
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""

# The one service the bus may start. A keyring or a settings daemon is never reached from here.
A11Y_SERVICE = """[D-BUS Service]
Name=org.a11y.Bus
Exec=/usr/libexec/at-spi-bus-launcher
"""


class Trouble(AssertionError):
    """What the test reports: a sentence about what was waited for and not seen."""


def wait_until(what, condition, limit=LIMIT, pause=0.05):
    """Returns the first true value of condition(), or raises Trouble naming what was missed."""
    end = time.monotonic() + limit
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Trouble(f"waited {limit:.0f} s for {what}")
        time.sleep(pause)


class PrivateSession:
    display_options = ()

    def __init__(self, size="1500x940"):
        self.size = size
        self.children = []
        self.folder = Path(tempfile.mkdtemp(prefix="vellix-session-"))
        self.environment = self._environment()

    def __enter__(self):
        try:
            self._start_bus()
            self._start_display()
            self._start_accessibility()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    def _environment(self):
        kept = {name: os.environ[name] for name in ("PATH", "LANG", "LC_ALL", "TZ", "USER", "LOGNAME")
                if name in os.environ}
        for variable, name in (("HOME", "home"), ("XDG_CONFIG_HOME", "config"),
                               ("XDG_CACHE_HOME", "cache"), ("XDG_DATA_HOME", "data"),
                               ("XDG_STATE_HOME", "state"), ("XDG_RUNTIME_DIR", "runtime")):
            path = self.folder / name
            path.mkdir(mode=0o700)
            kept[variable] = str(path)
        kept.setdefault("LANG", "C.UTF-8")
        kept.update({
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "QT_FORCE_STDERR_LOGGING": "1",
            "QT_QPA_PLATFORM": "xcb",
            "GSETTINGS_BACKEND": "memory",
            "NO_AT_BRIDGE": "0",
            # Nobody is there unless a test starts one: the machine's own is never reached.
            "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={self.folder}/system-bus",
        })
        return kept

    def start(self, name, command, **options):
        """Starts a child whose stderr goes to <folder>/<name>.err."""
        errors = open(self.folder / f"{name}.err", "wb")
        # setpriv: should this process be killed, its children go with it.
        child = subprocess.Popen(["setpriv", "--pdeathsig", "KILL", "--", *map(str, command)],
                                 env=self.environment, stderr=errors,
                                 stdin=options.pop("stdin", subprocess.DEVNULL),
                                 stdout=options.pop("stdout", subprocess.DEVNULL),
                                 start_new_session=True, **options)
        errors.close()
        child.name = name
        self.children.append(child)
        return child

    def errors_of(self, name):
        return (self.folder / f"{name}.err").read_text(encoding="utf-8", errors="replace")

    def read_line(self, child, what):
        """The next line a child writes to its stdout pipe, within the limit."""
        line = b""
        end = time.monotonic() + LIMIT
        while not line.endswith(b"\n"):
            left = end - time.monotonic()
            if left <= 0 or not select.select([child.stdout], [], [], left)[0]:
                raise Trouble(f"waited {LIMIT:.0f} s for {what}")
            byte = os.read(child.stdout.fileno(), 1)
            if not byte:
                raise Trouble(f"{child.name} ended before {what}: {self.errors_of(child.name)}")
            line += byte
        return line.decode().strip()

    def _start_bus(self):
        services = self.folder / "services"
        services.mkdir()
        (services / "org.a11y.Bus.service").write_text(A11Y_SERVICE)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_daemon(
            "bus", f"<servicedir>{services}</servicedir>")

    def start_system_bus(self):
        """Has nothing on it, and starts nothing."""
        self._start_daemon("system-bus", "")

    def _start_daemon(self, name, services):
        config = self.folder / f"{name}.conf"
        config.write_text(BUS_CONFIG.format(socket=self.folder / name, services=services))
        bus = self.start(name, ["dbus-daemon", f"--config-file={config}", "--nofork",
                                "--print-address=1"], stdout=subprocess.PIPE)
        return self.read_line(bus, f"the address of the {name}")

    def _start_display(self):
        # The server picks a free number itself, so sessions side by side never meet.
        server = self.start("display", ["Xvfb", "-displayfd", "1", "-screen", "0",
                                        f"{self.size}x24", "-nolisten", "tcp", "-noreset",
                                        *self.display_options],
                            stdout=subprocess.PIPE)
        self.environment["DISPLAY"] = ":" + self.read_line(server, "a display")
        # Without a window manager a window never gets the keyboard.
        self.start("manager", ["openbox", "--sm-disable", "--config-file",
                               Path(__file__).with_name("openbox.xml")])
        wait_until("the window manager",
                   lambda: self._run_quietly(["xdotool", "get_num_desktops"]).strip())

    def _start_accessibility(self):
        self.start("accessibility", ["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"])

    def _run_quietly(self, command):
        try:
            done = subprocess.run(command, env=self.environment, timeout=LIMIT,
                                  stdin=subprocess.DEVNULL, capture_output=True, check=False)
            return done.stdout.decode(errors="replace")
        except subprocess.TimeoutExpired:
            return ""

    def run(self, *command):
        """Runs a short command in the session and returns its output; its failure is Trouble."""
        try:
            done = subprocess.run(command, env=self.environment, timeout=LIMIT,
                                  stdin=subprocess.DEVNULL, capture_output=True, check=False)
        except subprocess.TimeoutExpired:
            raise Trouble(f"{command[0]} did not end within {LIMIT:.0f} s") from None
        if done.returncode != 0:
            raise Trouble(f"{' '.join(command)}: {done.stderr.decode(errors='replace').strip()}")
        return done.stdout.decode(errors="replace")

    def picture(self, path):
        self.run("import", "-window", "root", str(path))

    def close(self):
        for child in reversed(self.children):
            self._end(child)
        self.children.clear()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _end(self, child):
        for step in (signal.SIGTERM, signal.SIGKILL):
            # The group, since the accessibility launcher has a bus and a registry under it.
            try:
                os.killpg(child.pid, step)
            except ProcessLookupError:
                pass
            try:
                child.wait(timeout=5)
            except subprocess.TimeoutExpired:
                continue
        for pipe in (child.stdin, child.stdout):
            if pipe:
                pipe.close()
