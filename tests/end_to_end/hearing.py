"""What a screen reader is told as it happens: the events of the accessibility bus."""

from reader import ATSPI, CALL_LIMIT, ROOT

# What a screen reader speaks by itself, wherever the person is, once it shows.
SPOKEN = ("alert", "alert message", "notification")


class Hearing:
    """Listens from now on. Asks each object that tells something for its name and role at once, as a
    screen reader does, since it may be gone soon."""

    def __init__(self, reader):
        self.reader = reader
        self.told = []
        registry = (ATSPI + "Registry", "/org/a11y/atspi/registry")
        event = reader.glib.Variant("(s)", ("object:",))
        reader._ask([(registry, "Registry", "RegisterEvent", event)])
        reader.bus.signal_subscribe(reader.program[0], ATSPI + "Event.Object", None, None, None,
                                    reader.gio.DBusSignalFlags.NONE, self._take)

    def _take(self, _bus, sender, path, _interface, signal, arguments):
        detail, first = arguments.unpack()[:2]
        entry = {"signal": signal, "detail": detail, "value": first, "name": None, "role": None,
                 "path": path}
        self.told.append(entry)
        wanted = self.reader.glib.Variant("(ss)", (ATSPI + "Accessible", "Name"))
        for key, interface, method, question in (
                ("name", "org.freedesktop.DBus.Properties", "Get", wanted),
                ("role", ATSPI + "Accessible", "GetRoleName", None)):
            self.reader.bus.call(sender, path, interface, method, question, None,
                                 self.reader.gio.DBusCallFlags.NONE, CALL_LIMIT, None,
                                 self._named, (entry, key))

    def _named(self, bus, result, place):
        entry, key = place
        try:
            entry[key] = bus.call_finish(result).unpack()[0]
        except self.reader.glib.Error:
            entry[key] = ""

    def _catch_up(self):
        context = self.reader.glib.MainContext.default()
        while context.iteration(False):
            pass

    def all(self):
        """Everything told so far that is known by name and role."""
        self._catch_up()
        return [entry for entry in self.told if entry["name"] is not None
                and entry["role"] is not None]

    def spoken(self):
        """The words of what was spoken by itself, in order."""
        return [entry["name"] for entry in self.all()
                if (entry["signal"], entry["detail"], entry["value"]) == ("StateChanged", "showing", 1)
                and entry["role"] in SPOKEN]

    def changes(self, node, detail):
        """The values that a state of that object was told to have, in order."""
        return [entry["value"] for entry in self.all()
                if entry["signal"] == "StateChanged" and entry["detail"] == detail
                and entry["path"] == node.path]

    def focused(self):
        """The names of what got the keyboard, in order."""
        return [entry["name"] for entry in self.all()
                if (entry["signal"], entry["detail"], entry["value"]) == ("StateChanged", "focused", 1)]
