"""A login manager that tells of the machine's sleep, on the system bus of a private session."""

from private_session import wait_until

BUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus")
NAME = "org.freedesktop.login1"
PATH = "/org/freedesktop/login1"
MANAGER = NAME + ".Manager"
SLEEP = "PrepareForSleep"
OWNED = 1  # the answer of a bus that gives a name


class Logind:
    """Starts the bus; there ahead of the program."""

    def __init__(self, session):
        import gi
        gi.require_version("Gio", "2.0")
        from gi.repository import Gio, GLib
        self.gio, self.variant = Gio, GLib.Variant
        session.start_system_bus()
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
                 Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.bus = Gio.DBusConnection.new_for_address_sync(
            session.environment["DBUS_SYSTEM_BUS_ADDRESS"], flags, None, None)
        self.bus.set_exit_on_close(False)
        answer = self._ask("RequestName", GLib.Variant("(su)", (NAME, 0)))
        assert answer == OWNED, f"the name is not to be had: {answer}"

    def _ask(self, method, arguments=None, interface=BUS[0]):
        return self.bus.call_sync(*BUS, interface, method, arguments, None,
                                  self.gio.DBusCallFlags.NONE, 10_000, None).unpack()[0]

    def _heard(self):
        rules = self._ask("GetAllMatchRules", interface=BUS[0] + ".Debug.Stats")
        return any(SLEEP in rule for each in rules.values() for rule in each)

    def wake(self):
        """The machine sleeps and wakes, once the program listens."""
        wait_until("the program to listen for it", self._heard)
        for asleep in (True, False):
            self.bus.emit_signal(None, PATH, MANAGER, SLEEP, self.variant("(b)", (asleep,)))
        self.bus.flush_sync(None)
