"""The desktop's side of org.freedesktop.Application, on a private session's bus."""

from private_session import LIMIT

NAME = "example.tessarine.Vellix"
PATH = "/example/tessarine/Vellix"

SERVICE = """[D-BUS Service]
Name={name}
Exec={program}
"""


class Desktop:
    def __init__(self, session):
        import gi
        gi.require_version("Gio", "2.0")
        from gi.repository import Gio, GLib
        self.gio, self.variant, self.session = Gio, GLib.Variant, session
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
                 Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.bus = Gio.DBusConnection.new_for_address_sync(
            session.environment["DBUS_SESSION_BUS_ADDRESS"], flags, None, None)
        self.bus.set_exit_on_close(False)

    def _call(self, name, path, interface, method, arguments):
        return self.bus.call_sync(name, path, interface, method, arguments, None,
                                  self.gio.DBusCallFlags.NONE, int(LIMIT * 1000), None).unpack()

    def _ask_bus(self, method, arguments):
        return self._call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                          method, arguments)

    def activate(self):
        self._call(NAME, PATH, "org.freedesktop.Application", "Activate",
                   self.variant("(a{sv})", ({},)))

    def open(self, urls):
        self._call(NAME, PATH, "org.freedesktop.Application", "Open",
                   self.variant("(asa{sv})", (urls, {})))

    def install(self, program):
        """Lets the bus start the program, on the session's display."""
        folder = self.session.folder / "services"
        (folder / f"{NAME}.service").write_text(SERVICE.format(name=NAME, program=program))
        self._ask_bus("ReloadConfig", None)
        self._ask_bus("UpdateActivationEnvironment",
                      self.variant("(a{ss})", (self.session.environment,)))

    def runs(self):
        return self._ask_bus("NameHasOwner", self.variant("(s)", (NAME,)))[0]
