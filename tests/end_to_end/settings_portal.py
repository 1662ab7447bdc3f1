"""A settings portal on the session bus. Each line on stdin, "namespace key value", is a change.

settings_portal.py [namespace key value]...
"""

import sys
import threading

from gi.repository import Gio, GLib

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = "org.freedesktop.portal.Settings"
XML = f"""<node><interface name="{INTERFACE}">
<method name="ReadAll"><arg type="as" direction="in"/><arg type="a{{sa{{sv}}}}" direction="out"/>
</method>
<signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""

settings = {}


def variant(text):
    if text in ("true", "false"):
        return GLib.Variant("b", text == "true")
    return GLib.Variant("u", int(text))


def answer(_bus, _sender, _path, _interface, _method, _arguments, call):
    call.return_value(GLib.Variant("(a{sa{sv}})", (settings,)))


def change(bus, line):
    space, key, value = line.split()
    settings.setdefault(space, {})[key] = variant(value)
    bus.emit_signal(None, PATH, INTERFACE, "SettingChanged",
                    GLib.Variant("(ssv)", (space, key, variant(value))))


def listen(bus):
    for line in sys.stdin:
        GLib.idle_add(change, bus, line)
    GLib.idle_add(loop.quit)


for space, key, value in zip(*[iter(sys.argv[1:])] * 3):
    settings.setdefault(space, {})[key] = variant(value)
loop = GLib.MainLoop()
session = Gio.bus_get_sync(Gio.BusType.SESSION)
session.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(XML).interfaces[0], answer)
Gio.bus_own_name_on_connection(session, NAME, Gio.BusNameOwnerFlags.NONE,
                               lambda *_: print("ready", flush=True), None)
threading.Thread(target=listen, args=(session,), daemon=True).start()
loop.run()
