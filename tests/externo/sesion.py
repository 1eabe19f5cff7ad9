# SPDX-License-Identifier: MIT
"""What a desktop does for a long job: it stays awake, and its task bar shows how far the job is.

    sesion.py portal|gestor|ninguno

Stays until it is ended, and tells what it hears, a line each: "toma MOTIVO" and "suelta" for what
is held, "cae" when the program that held it is gone, "avance HUNDREDTHS PROGRAM" and "sin avance"
for the task bar.
"""

import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402  pylint: disable=wrong-import-position

PORTAL = "org.freedesktop.portal.Desktop"
GESTOR = "org.gnome.SessionManager"
QUE = 1 | 4  # the session's end and going to sleep

DESCRIPCIONES = {
    PORTAL: """<node><interface name="org.freedesktop.portal.Inhibit">
  <method name="Inhibit"><arg direction="in" type="s"/><arg direction="in" type="u"/>
    <arg direction="in" type="a{sv}"/><arg direction="out" type="o"/></method>
</interface></node>""",
    GESTOR: f"""<node><interface name="{GESTOR}">
  <method name="Inhibit"><arg direction="in" type="s"/><arg direction="in" type="u"/>
    <arg direction="in" type="s"/><arg direction="in" type="u"/>
    <arg direction="out" type="u"/></method>
  <method name="Uninhibit"><arg direction="in" type="u"/></method>
</interface></node>""",
}
PETICION = """<node><interface name="org.freedesktop.portal.Request">
  <method name="Close"/></interface></node>"""


def decir(*palabras):
    print(*palabras, flush=True)


class Sesion:
    def __init__(self):
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.bus.signal_subscribe(None, "com.canonical.Unity.LauncherEntry", "Update", None, None,
                                  Gio.DBusSignalFlags.NONE, self._oir_barra)

    def servir(self, nombre, ruta):
        nodo = Gio.DBusNodeInfo.new_for_xml(DESCRIPCIONES[nombre])
        responder = self._al_portal if nombre == PORTAL else self._al_gestor
        self.bus.register_object(ruta, nodo.interfaces[0], responder, None, None)
        Gio.bus_own_name_on_connection(self.bus, nombre, Gio.BusNameOwnerFlags.NONE,
                                       lambda *_: decir("listo"), None)

    @staticmethod
    def _oir_barra(_bus, _quien, _ruta, _interfaz, _senal, dicho):
        programa, propiedades = dicho.unpack()
        if propiedades["progress-visible"]:
            decir("avance", round(propiedades["progress"] * 100), programa)
        else:
            decir("sin avance")

    def _tomar(self, quien, que, motivo):
        decir("toma" if que == QUE else f"toma {que}", motivo)
        self.bus.signal_subscribe("org.freedesktop.DBus", "org.freedesktop.DBus",
                                  "NameOwnerChanged", "/org/freedesktop/DBus", quien,
                                  Gio.DBusSignalFlags.NONE, lambda *_: decir("cae"))

    # pylint: disable=too-many-arguments
    def _al_portal(self, _bus, quien, _ruta, _interfaz, _metodo, pedido, llamada):
        _ventana, que, opciones = pedido.unpack()
        lugar = (f"/org/freedesktop/portal/desktop/request/{quien[1:].replace('.', '_')}/"
                 f"{opciones['handle_token']}")
        nodo = Gio.DBusNodeInfo.new_for_xml(PETICION)
        self.bus.register_object(lugar, nodo.interfaces[0], self._cerrar, None, None)
        self._tomar(quien, que, opciones["reason"])
        llamada.return_value(GLib.Variant("(o)", (lugar,)))

    @staticmethod
    def _cerrar(_bus, _quien, _ruta, _interfaz, _metodo, _pedido, llamada):
        decir("suelta")
        llamada.return_value(None)

    def _al_gestor(self, _bus, quien, _ruta, _interfaz, metodo, pedido, llamada):
        if metodo == "Uninhibit":
            decir("suelta")
            llamada.return_value(None)
            return
        _programa, _ventana, motivo, que = pedido.unpack()
        self._tomar(quien, que, motivo)
        llamada.return_value(GLib.Variant("(u)", (1,)))


def principal():
    sesion = Sesion()
    if sys.argv[1] == "portal":
        sesion.servir(PORTAL, "/org/freedesktop/portal/desktop")
    elif sys.argv[1] == "gestor":
        sesion.servir(GESTOR, "/org/gnome/SessionManager")
    else:
        decir("listo")
    GLib.MainLoop().run()


if __name__ == "__main__":
    principal()
