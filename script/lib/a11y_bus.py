"""Leads a program on a bus of its own to the accessibility bus of the person's session.

    a11y_bus.py ADDRESS true|false      the bus, and whether a screen reader is wanted there

Qt asks its session bus for both, and ignores AT_SPI_BUS_ADDRESS. Ends with the bus that it is on.
"""

import sys

from gi.repository import Gio, GLib

INTERFACES = """
<node>
  <interface name="org.a11y.Bus">
    <method name="GetAddress"><arg type="s" direction="out"/></method>
  </interface>
  <interface name="org.a11y.Status">
    <property name="IsEnabled" type="b" access="read"/>
    <property name="ScreenReaderEnabled" type="b" access="read"/>
  </interface>
</node>
"""


def main(address, wanted):
    def call(_connection, _sender, _path, _interface, _method, _arguments, invocation):
        invocation.return_value(GLib.Variant("(s)", (address,)))

    def read(_connection, _sender, _path, _interface, _name):
        return GLib.Variant("b", wanted == "true")

    connection = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    for interface in Gio.DBusNodeInfo.new_for_xml(INTERFACES).interfaces:
        connection.register_object("/org/a11y/bus", interface, call, read, None)
    Gio.bus_own_name_on_connection(connection, "org.a11y.Bus", Gio.BusNameOwnerFlags.NONE, None,
                                   None)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main(*sys.argv[1:])
