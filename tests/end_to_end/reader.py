"""Reads and works a program's window as a screen reader does, over the accessibility bus.

Speaks AT-SPI's D-Bus calls itself and sends the questions about a whole row of objects at once:
asked one by one, a window takes longer to read than a toast stays, on a machine that is busy.
"""

from collections import namedtuple
from itertools import takewhile

from private_session import LIMIT, Trouble, wait_until

ATSPI = "org.a11y.atspi."
ROOT = "/org/a11y/atspi/accessible/root"
CALL_LIMIT = 10_000  # milliseconds

# Roles and states by their numbers in the protocol.
STATE_ENABLED, STATE_FOCUSED, STATE_CHECKED, STATE_SHOWING, STATE_VISIBLE = 8, 12, 4, 25, 30
STATE_COLLAPSED, STATE_EXPANDED, STATE_FOCUSABLE = 5, 10, 11
STATE_SELECTED, STATE_SENSITIVE = 23, 24

PRESSABLE = ("push button", "button", "toggle button", "list item", "check box", "radio button",
             "page tab", "link", "menu item")

# One accessible object as it was when it was read.
Node = namedtuple("Node", "address path name role states depth")


class Reader:
    """Looks at the program that registered itself under `name` on the session's own bus."""

    def __init__(self, session, name):
        import gi
        gi.require_version("Gio", "2.0")
        from gi.repository import Gio, GLib
        self.gio, self.glib = Gio, GLib
        self.session = session
        self.name = name
        self.program = None
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
                 Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        bus = Gio.DBusConnection.new_for_address_sync(
            session.environment["DBUS_SESSION_BUS_ADDRESS"], flags, None, None)
        address = bus.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None,
                                None, Gio.DBusCallFlags.NONE, int(LIMIT * 1000), None).unpack()[0]
        bus.close_sync(None)
        self.bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self.bus.set_exit_on_close(False)

    def attach(self):
        self.program = wait_until(f"{self.name} on the accessibility bus", self._program)
        return self

    def _program(self):
        registry = (ATSPI + "Registry", ROOT)
        children = self._ask([(registry, "Accessible", "GetChildren", None)])[0] or [[]]
        names = self._names(children[0])
        return next((child for child, name in zip(children[0], names) if name == self.name), None)

    def _ask(self, questions):
        """Asks [(object, interface, method, arguments)] all at once; None where none came back:
        an object may go while it is looked at."""
        answers, waiting = [None] * len(questions), [len(questions)]
        loop = self.glib.MainLoop()

        def done(bus, result, index):
            try:
                answers[index] = bus.call_finish(result).unpack()
            except self.glib.Error:
                pass
            waiting[0] -= 1
            if waiting[0] == 0:
                loop.quit()

        for index, ((address, path), interface, method, arguments) in enumerate(questions):
            full = interface if "." in interface else ATSPI + interface
            self.bus.call(address, path, full, method, arguments, None,
                          self.gio.DBusCallFlags.NONE, CALL_LIMIT, None, done, index)
        if questions:
            loop.run()
        return answers

    def _names(self, objects):
        wanted = self.glib.Variant("(ss)", (ATSPI + "Accessible", "Name"))
        answers = self._ask([(entry, "org.freedesktop.DBus.Properties", "Get", wanted)
                             for entry in objects])
        return [answer[0] if answer else "" for answer in answers]

    def everything(self):
        """All objects that show, in the order of the tree. Bounded, so a circle cannot hold us."""
        wanted = self.glib.Variant("(ss)", (ATSPI + "Accessible", "Name"))
        level, children_of, nodes, seen = [tuple(self.program)], {}, {}, set()
        for depth in range(60):
            level = [entry for entry in dict.fromkeys(level) if entry not in seen]
            if not level or len(seen) > 20_000:
                break
            seen.update(level)
            answers = self._ask(
                [question for entry in level for question in (
                    (entry, "org.freedesktop.DBus.Properties", "Get", wanted),
                    (entry, "Accessible", "GetRoleName", None),
                    (entry, "Accessible", "GetState", None),
                    (entry, "Accessible", "GetChildren", None))])
            below = []
            for index, entry in enumerate(level):
                name, role, states, children = answers[4 * index:4 * index + 4]
                low, high = (states[0] + [0, 0])[:2] if states else (0, 0)
                node = Node(*entry, name[0] if name else "", role[0] if role else "",
                            low | high << 32, depth)
                if depth > 0 and not (self.has(node, STATE_VISIBLE) or
                                      self.has(node, STATE_SHOWING)):
                    continue
                nodes[entry] = node
                children_of[entry] = [tuple(child) for child in (children[0] if children else [])]
                below += children_of[entry]
            level = below
        return self._in_order(tuple(self.program), nodes, children_of)

    @staticmethod
    def _in_order(root, nodes, children_of):
        ordered, waiting = [], [root]
        while waiting:
            entry = waiting.pop()
            node = nodes.pop(entry, None)
            if node:
                ordered.append(node)
                waiting.extend(reversed(children_of[entry]))
        return ordered

    @staticmethod
    def has(node, state):
        return bool(node.states >> state & 1)

    def find_all(self, name=None, contains=None, roles=None):
        return [node for node in self.everything()
                if (name is None or node.name == name)
                and (contains is None or contains in node.name)
                and (roles is None or node.role in roles)]

    def find(self, name=None, contains=None, roles=None, limit=LIMIT):
        """The first such object, waited for."""
        what = f'"{name or contains}"' + (f" as {' or '.join(roles)}" if roles else "")
        try:
            return wait_until(what, lambda: next(iter(self.find_all(name, contains, roles)), None),
                              limit)
        except Trouble as trouble:
            raise Trouble(f"{trouble}; on screen:\n{self.outline()}") from None

    def rows(self, name):
        """The rows of the list of that name, from the top."""
        nodes = self.everything()
        start = next((index for index, node in enumerate(nodes)
                      if node.name == name and node.role == "list"), len(nodes))
        inside = takewhile(lambda node: node.depth > nodes[start].depth, nodes[start + 1:])
        return [node for node in inside if node.role == "list item"]

    def gone(self, name=None, contains=None, roles=None, limit=LIMIT):
        wait_until(f'"{name or contains}" to go',
                   lambda: not self.find_all(name, contains, roles), limit)

    def description(self, node):
        wanted = self.glib.Variant("(ss)", (ATSPI + "Accessible", "Description"))
        answer = self._ask([((node.address, node.path), "org.freedesktop.DBus.Properties", "Get",
                             wanted)])[0]
        return answer[0] if answer else ""

    def with_actions(self):
        """All objects that show, each with the names of what it offers to do."""
        nodes = self.everything()
        answers = self._ask([((node.address, node.path), "Action", "GetActions", None)
                             for node in nodes])
        return [(node, [action[0].lower() for action in answer[0]] if answer else [])
                for node, answer in zip(nodes, answers)]

    def press(self, node):
        """Presses through the object's own action, as assistive technology does."""
        place = (node.address, node.path)
        actions = self._ask([(place, "Action", "GetActions", None)])[0]
        for index, action in enumerate(actions[0] if actions else []):
            if action[0].lower() in ("press", "click", "toggle"):
                done = self._ask([(place, "Action", "DoAction",
                                   self.glib.Variant("(i)", (index,)))])[0]
                if not done or not done[0]:
                    raise Trouble(f'"{node.name}" refused to be pressed')
                return
        raise Trouble(f'"{node.name}" ({node.role}) offers nothing to press')

    def press_named(self, name, roles=PRESSABLE):
        self.press(self.find(name=name, roles=roles))

    def click(self, node, held=None):
        """Clicks in the middle of the object with the mouse, perhaps with a key held."""
        x, y, width, height = wait_until("a place to click", lambda: self._box(node))
        before, after = (("keydown", held), ("keyup", held)) if held else ((), ())
        # Not --sync, which waits for ever for a pointer that is there already.
        self.session.run("xdotool", "mousemove", str(x + width // 2), str(y + height // 2), *before,
                         "click", "1", *after)

    def _box(self, node):
        return self.boxes([node])[0]

    def boxes(self, nodes):
        """Where each of them is on the screen: left, top, width and height; None for nowhere."""
        on_screen = self.glib.Variant("(u)", (0,))
        boxes = self._ask([((node.address, node.path), "Component", "GetExtents", on_screen)
                           for node in nodes])
        return [box[0] if box and box[0][2] > 0 and box[0][3] > 0 else None for box in boxes]

    def key(self, *keys):
        self.session.run("xdotool", "key", "--clearmodifiers", *keys)

    def tab_to(self, name, roles, key="Tab", most=80):
        """Gives the keyboard to that object, as a person does who has no mouse."""
        for _ in range(most):
            if any(self.has(node, STATE_FOCUSED) for node in self.find_all(name=name, roles=roles)):
                return
            self.key(key)
        raise Trouble(f'no {key} came to "{name}"')

    def go_to_ticket(self, name, most=80):
        """Gives the keyboard to that row of the tickets, as a person does who has no mouse."""
        self.key("alt+Down")
        wait_until("the keyboard in the list", lambda: any(
            self.has(row, STATE_FOCUSED) for row in self.rows("Tickets")))
        self.key("Home")
        self.tab_to(name, ("list item",), "alt+Down", most)

    def type(self, text, pause=1):
        """With so many milliseconds between two keys."""
        self.session.run("xdotool", "type", "--delay", str(pause), text)

    def text(self, node):
        """What is written in a field."""
        whole = self.glib.Variant("(ii)", (0, -1))
        answer = self._ask([((node.address, node.path), "Text", "GetText", whole)])[0]
        return answer[0] if answer else None

    def outline(self):
        """What is on screen, for the report of a failure."""
        lines = [f"{'  ' * min(node.depth, 12)}{node.role}: {node.name[:120]}"
                 for node in self.everything() if node.name]
        return "\n".join(lines[:400]) or "  nothing"
