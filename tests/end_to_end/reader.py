"""Reads and works a program's window as a screen reader does, through AT-SPI."""

import os

from private_session import LIMIT, Trouble, wait_until

# What tells a person where they are, in the words of AT-SPI's role names.
PRESSABLE = ("push button", "button", "toggle button", "list item", "check box", "radio button",
             "page tab", "link", "menu item")


class Reader:
    """Looks at the program that registered itself under `name` on the session's own bus."""

    def __init__(self, session, name):
        # The library takes its bus and display from the process's environment, once.
        for variable in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"):
            os.environ[variable] = session.environment[variable]
        os.environ.pop("AT_SPI_BUS_ADDRESS", None)
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi, GLib
        self.atspi, self.glib = Atspi, GLib
        self.session = session
        Atspi.init()
        Atspi.set_timeout(5000, int(LIMIT * 1000))
        self.name = name
        self.program = None

    def attach(self):
        self.program = wait_until(f"{self.name} on the accessibility bus", self._program)
        return self

    def _program(self):
        desktop = self.atspi.get_desktop(0)
        # What is on screen is asked for afresh each time; a cache would need a loop of our own.
        desktop.set_cache_mask(self.atspi.Cache.NONE)
        for program in self._children(desktop):
            if self._quietly(program.get_name) == self.name:
                program.set_cache_mask(self.atspi.Cache.NONE)
                return program
        return None

    def _quietly(self, ask, *arguments):
        """An object may go while it is looked at; it then has no answer."""
        try:
            return ask(*arguments)
        except self.glib.Error:
            return None

    def _children(self, node):
        count = self._quietly(node.get_child_count) or 0
        for index in range(count):
            child = self._quietly(node.get_child_at_index, index)
            if child is not None:
                yield child

    def everything(self):
        """All objects that show, parents first. Bounded, so a circle cannot hold us."""
        waiting, seen = [self.program], 0
        while waiting and seen < 20000:
            node = waiting.pop()
            seen += 1
            if node is not self.program and not self.shows(node):
                continue
            yield node
            waiting.extend(reversed(list(self._children(node))))

    def shows(self, node):
        states = self._quietly(node.get_state_set)
        return states is not None and (states.contains(self.atspi.StateType.VISIBLE) or
                                       states.contains(self.atspi.StateType.SHOWING))

    def role(self, node):
        return self._quietly(node.get_role_name) or ""

    def words(self, node):
        return self._quietly(node.get_name) or ""

    def find_all(self, name=None, contains=None, roles=None):
        found = []
        for node in self.everything():
            words = self.words(node)
            if name is not None and words != name:
                continue
            if contains is not None and contains not in words:
                continue
            if roles is not None and self.role(node) not in roles:
                continue
            found.append(node)
        return found

    def find(self, name=None, contains=None, roles=None, limit=LIMIT):
        """The first such object, waited for."""
        what = f'"{name or contains}"' + (f" as {' or '.join(roles)}" if roles else "")
        try:
            return wait_until(what, lambda: next(iter(self.find_all(name, contains, roles)), None),
                              limit, pause=0.1)
        except Trouble as trouble:
            raise Trouble(f"{trouble}; on screen:\n{self.outline()}") from None

    def gone(self, name=None, contains=None, limit=LIMIT):
        wait_until(f'"{name or contains}" to go', lambda: not self.find_all(name, contains), limit)

    def press(self, node):
        """Presses through the object's own action, as assistive technology does."""
        for index in range(self._quietly(node.get_n_actions) or 0):
            if (self._quietly(node.get_action_name, index) or "").lower() in ("press", "click"):
                if not self._quietly(node.do_action, index):
                    raise Trouble(f'"{self.words(node)}" refused to be pressed')
                return
        raise Trouble(f'"{self.words(node)}" ({self.role(node)}) offers nothing to press')

    def press_named(self, name, roles=PRESSABLE):
        self.press(self.find(name=name, roles=roles))

    def click(self, node):
        """Clicks in the middle of the object with the mouse."""
        box = wait_until("a place to click", lambda: self._box(node))
        self.session.run("xdotool", "mousemove", "--sync", str(box.x + box.width // 2),
                         str(box.y + box.height // 2), "click", "1")

    def _box(self, node):
        box = self._quietly(node.get_extents, self.atspi.CoordType.SCREEN)
        return box if box and box.width > 0 and box.height > 0 else None

    def key(self, *keys):
        self.session.run("xdotool", "key", "--clearmodifiers", *keys)

    def enabled(self, node):
        states = self._quietly(node.get_state_set)
        return states is not None and states.contains(self.atspi.StateType.ENABLED)

    def outline(self, most=400):
        """What is on screen, for the report of a failure."""
        lines = []
        for node in self.everything():
            words = self.words(node)
            if words:
                lines.append(f"  {self.role(node)}: {words[:120]}")
            if len(lines) == most:
                lines.append("  ...")
                break
        return "\n".join(lines) or "  nothing"
