# SPDX-License-Identifier: MIT
"""A desktop's settings portal that knows one setting: whether dark colours are preferred.

    portal.py light|dark

Stays until it is ended. SIGUSR1 changes the preference, and tells so, as a desktop does.
"""

import signal
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402  pylint: disable=wrong-import-position

INTERFAZ = "org.freedesktop.portal.Settings"
OBJETO = "/org/freedesktop/portal/desktop"
ESPACIO, CLAVE = "org.freedesktop.appearance", "color-scheme"
CLARO, OSCURO = 2, 1

DESCRIPCION = f"""<node><interface name="{INTERFAZ}">
  <method name="Read"><arg direction="in" type="s"/><arg direction="in" type="s"/>
    <arg direction="out" type="v"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""


def principal():
    preferencia = [OSCURO if sys.argv[1] == "dark" else CLARO]
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def responder(_bus, _quien, _ruta, _interfaz, _metodo, pedido, llamada):
        if pedido.unpack() != (ESPACIO, CLAVE):
            llamada.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")
            return
        # This method wraps the value twice, and always has.
        valor = GLib.Variant("v", GLib.Variant("u", preferencia[0]))
        llamada.return_value(GLib.Variant("(v)", (valor,)))

    def cambiar():
        preferencia[0] = CLARO if preferencia[0] == OSCURO else OSCURO
        bus.emit_signal(None, OBJETO, INTERFAZ, "SettingChanged", GLib.Variant(
            "(ssv)", (ESPACIO, CLAVE, GLib.Variant("u", preferencia[0]))))
        return True

    nodo = Gio.DBusNodeInfo.new_for_xml(DESCRIPCION)
    bus.register_object(OBJETO, nodo.interfaces[0], responder, None, None)
    GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, signal.SIGUSR1, cambiar)
    Gio.bus_own_name_on_connection(bus, "org.freedesktop.portal.Desktop",
                                   Gio.BusNameOwnerFlags.NONE,
                                   lambda *_: print("listo", flush=True), None)
    GLib.MainLoop().run()


if __name__ == "__main__":
    principal()
