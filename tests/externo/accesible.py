# SPDX-License-Identifier: MIT
"""A running program's elements as assistive technology sees them: roles, names, states, places.

Speaks to the accessibility bus itself instead of through libatspi, which keeps a cache that goes
stale without a main loop and can know one bus only in the life of a process.

Questions of one kind go out all at once: a program that is busy answers whatever has arrived at
each of its yields, and asking one element after another would take hundreds of them.
"""

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402  pylint: disable=wrong-import-position

ACCESIBLE = "org.a11y.atspi.Accessible"
PROPIEDADES = "org.freedesktop.DBus.Properties"
RAIZ = "/org/a11y/atspi/accessible/root"
MARCADO, ACTIVO, ENFOCADO, ELEGIDO, A_LA_VISTA = 4, 8, 12, 23, 25  # bits of the state set
PLAZO_MS = 20000


class Desaparecido(Exception):
    """The program, or the element, is not there any more."""


def _tiene(palabras, bit):
    return bool(palabras[bit // 32] >> (bit % 32) & 1)


class Elemento:
    """One element of a program, known by its path on the bus for as long as it lives.

    `nombre_visto` and `estaba_a_la_vista` are as of when it was found; the properties ask anew,
    and raise Desaparecido when it is gone. `cima` is the path of its top-level window.
    """

    def __init__(self, programa, ruta, padre, rol="", nombre="", estado=(0, 0)):
        self._programa = programa
        self.ruta = ruta
        self.cima = padre and (padre.cima or ruta)
        self.rol = rol
        self.nombre_visto = nombre
        # The lines of a hidden list say of themselves that they can be seen.
        self.estaba_a_la_vista = not padre or (_tiene(estado, A_LA_VISTA)
                                               and padre.estaba_a_la_vista)

    def __repr__(self):
        return f"{self.rol} «{self.nombre_visto}»"

    @property
    def nombre(self):
        return self._programa.propiedad(self.ruta, ACCESIBLE, "Name")

    @property
    def a_la_vista(self):
        return self._estado(A_LA_VISTA)

    @property
    def activo(self):
        return self._estado(ACTIVO)

    @property
    def enfocado(self):
        return self._estado(ENFOCADO)

    @property
    def marcado(self):
        return self._estado(MARCADO)

    @property
    def elegido(self):
        return self._estado(ELEGIDO)

    @property
    def valor(self):
        return self._programa.propiedad(self.ruta, "org.a11y.atspi.Value", "CurrentValue")

    @property
    def texto(self):
        """The contents of a text box."""
        return self._programa.llamar(self.ruta, "org.a11y.atspi.Text", "GetText",
                                     GLib.Variant("(ii)", (0, -1)))[0]

    def hijos(self):
        """The paths of its children."""
        return [r for _, r in self._programa.llamar(self.ruta, ACCESIBLE, "GetChildren")[0]]

    def lugar_en_ventana(self):
        """(x, y, width, height) relative to its top-level window, and that window's own size.

        Positions on the screen are not asked for: they lag behind when the window manager has
        moved a window, and are in scaled units when the window is scaled.
        """
        (x, y, ancho, alto), (vx, vy, vancho, valto) = (
            self._programa.llamar(r, "org.a11y.atspi.Component", "GetExtents",
                                  GLib.Variant("(u)", (0,)))[0] for r in (self.ruta, self.cima))
        return (x - vx, y - vy, ancho, alto), (vancho, valto)

    def _estado(self, bit):
        return _tiene(self._programa.llamar(self.ruta, ACCESIBLE, "GetState")[0], bit)


class Programa:
    """The elements of one process."""

    def __init__(self, direccion_bus, pid):
        self._bus = Gio.DBusConnection.new_for_address_sync(
            direccion_bus,
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        # The bus going away is no reason for this process to end.
        self._bus.set_exit_on_close(False)
        self._pid = pid
        self._destino = None

    def conectado(self):
        """Whether the process has come to the bus."""
        if not self._destino:
            self._destino = next((n for n in self._nombres() if self._dueno(n) == self._pid), None)
        return self._destino is not None

    def nombre(self):
        """What the program as a whole is called."""
        return self.propiedad(RAIZ, ACCESIBLE, "Name")

    def elementos(self):
        """Every element of every window of the program, hidden ones too, level by level."""
        todos = []
        nivel = [Elemento(self, RAIZ, None)]
        while nivel:
            nivel = self._hijos(nivel)
            todos += nivel
        return todos

    def nombres_a_la_vista(self, elementos):
        """The names that these elements have now, of those that can be seen: all asked at once,
        since a program that pauses answers once in half a second."""
        nombre = GLib.Variant("(ss)", (ACCESIBLE, "Name"))
        preguntas = ((PROPIEDADES, "Get", nombre), (ACCESIBLE, "GetState", None))
        datos = self._todas([(e.ruta, *p) for p in preguntas for e in elementos])
        nombres, estados = datos[:len(elementos)], datos[len(elementos):]
        return [n[0] for n, e in zip(nombres, estados) if n and e and _tiene(e[0], A_LA_VISTA)]

    def _hijos(self, nivel):
        respuestas = self._todas([(e.ruta, ACCESIBLE, "GetChildren", None) for e in nivel])
        pares = [(ruta, padre) for padre, respuesta in zip(nivel, respuestas)
                 if respuesta for _, ruta in respuesta[0] if not ruta.endswith("/null")]
        nombre = GLib.Variant("(ss)", (ACCESIBLE, "Name"))
        preguntas = ((ACCESIBLE, "GetRoleName", None), (PROPIEDADES, "Get", nombre),
                     (ACCESIBLE, "GetState", None))
        datos = self._todas([(ruta, *p) for p in preguntas for ruta, _ in pares])
        columnas = [datos[i * len(pares):(i + 1) * len(pares)] for i in range(len(preguntas))]
        return [Elemento(self, ruta, padre, *(r[0] for r in respuestas))
                for (ruta, padre), *respuestas in zip(pares, *columnas) if all(respuestas)]

    def propiedad(self, ruta, interfaz, nombre):
        return self.llamar(ruta, PROPIEDADES, "Get",
                           GLib.Variant("(ss)", (interfaz, nombre)))[0]

    def llamar(self, ruta, interfaz, metodo, argumentos=None):
        respuesta = self._todas([(ruta, interfaz, metodo, argumentos)])[0]
        if respuesta is None:
            raise Desaparecido(f"{ruta} {metodo}")
        return respuesta

    # The answers, in order; None for what did not answer because it is gone.
    def _todas(self, preguntas):
        contexto = GLib.MainContext.new()
        contexto.push_thread_default()
        try:
            respuestas = [None] * len(preguntas)
            faltan = [len(preguntas)]

            def recibir(bus, resultado, indice):
                faltan[0] -= 1
                try:
                    respuestas[indice] = bus.call_finish(resultado).unpack()
                except GLib.Error:
                    pass

            for indice, (ruta, interfaz, metodo, argumentos) in enumerate(preguntas):
                self._bus.call(self._destino, ruta, interfaz, metodo, argumentos, None,
                               Gio.DBusCallFlags.NO_AUTO_START, PLAZO_MS, None, recibir, indice)
            while faltan[0]:
                contexto.iteration(True)
            return respuestas
        finally:
            contexto.pop_thread_default()

    def _nombres(self):
        return [n for n in self._al_bus("ListNames", None)[0] if n.startswith(":")]

    def _dueno(self, nombre):
        try:
            return self._al_bus("GetConnectionUnixProcessID", GLib.Variant("(s)", (nombre,)))[0]
        except GLib.Error:
            return None  # gone in the meantime

    def _al_bus(self, metodo, argumentos):
        return self._bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                   "org.freedesktop.DBus", metodo, argumentos, None,
                                   Gio.DBusCallFlags.NONE, PLAZO_MS, None).unpack()
