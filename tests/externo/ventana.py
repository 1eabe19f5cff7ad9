# SPDX-License-Identifier: MIT
"""A program's window as a person has it: elements to look at and to point at, keys, a picture.

Clicks and keys are real ones of the display server, so that what is covered, hidden, disabled or
without the focus cannot be used here either.
"""

import time

from accesible import Desaparecido, Programa
from procesos import esperar

PLAZO = 30


class Ventana:
    """The window of that title of a process just started, once it can be used."""

    def __init__(self, escritorio, proceso, titulo, plazo=PLAZO):
        self._escritorio = escritorio
        self._pantalla = escritorio.pantalla
        self._programa = Programa(escritorio.bus_accesible, proceso.pid)
        self._conocidos = {}
        self._rotulos = []  # labels met so far
        self.proceso = proceso
        self.titulo = titulo
        self.esperar(self._programa.conectado, f"{titulo} is not on the bus", plazo)
        self.x = self.esperar(lambda: self._ventana(titulo), f"no window {titulo}", plazo)
        self.esperar(lambda: self._pantalla.enfocada() == self.x, f"{titulo} has no focus", plazo)

    def esperar(self, condicion, falla, plazo=PLAZO):
        """Waits for any condition, as long as the program lives; what it gave."""
        return esperar(lambda: self._si_vive(condicion), plazo, falla)

    def nombre_del_programa(self):
        """What assistive technology calls it."""
        return self._programa.nombre()

    # Finding

    def elementos(self):
        return self._programa.elementos()

    def buscar(self, rol, nombre, plazo=PLAZO):
        """The element of that role and name, waited for until it can be seen."""
        return self.esperar(lambda: self.a_la_vista(rol, nombre), f"no {rol} «{nombre}»", plazo)

    def a_la_vista(self, rol, nombre):
        """The element of that role and name if it can be seen at this moment, else None."""
        conocido = self._conocidos.get((rol, nombre))
        try:
            if conocido and conocido.nombre == nombre and conocido.a_la_vista:
                return conocido
        except Desaparecido:
            pass
        for elemento in self.elementos():
            # To go through the whole window takes seconds while the program pauses: what comes
            # into view later is asked for by itself.
            if elemento.rol != "list item":
                self._conocidos.setdefault((elemento.rol, elemento.nombre_visto), elemento)
            es_este = (elemento.rol, elemento.nombre_visto) == (rol, nombre)
            if es_este and elemento.estaba_a_la_vista:
                if rol != "list item":  # which does not know whether its list can be seen
                    self._conocidos[rol, nombre] = elemento
                return elemento
        return None

    def rotulos(self):
        """The texts of all labels that can be seen."""
        todos = [e for e in self.elementos() if e.rol == "label"]
        self._rotulos = todos
        return [e.nombre_visto for e in todos if e.estaba_a_la_vista]

    def esperar_rotulo(self, comienzo, plazo=PLAZO):
        """Waits for a label that begins so (or in one of several ways), and returns its text."""
        # Those met before are asked first: to go through the whole window takes seconds while the
        # program pauses, and a text may be gone by then.
        recorrer = time.monotonic() + plazo / 2

        def leer():
            textos = self._programa.nombres_a_la_vista(self._rotulos)
            hallado = next((t for t in textos if t.startswith(comienzo)), None)
            if hallado or (self._rotulos and time.monotonic() < recorrer):
                return hallado
            return next((t for t in self.rotulos() if t.startswith(comienzo)), None)
        return self.esperar(leer, f"no label «{comienzo}...»", plazo)

    # Acting

    def pulsar(self, rol, nombre, plazo=PLAZO):
        """Clicks in the middle of an element and returns it."""
        elemento = self.buscar(rol, nombre, plazo)
        self._pulsar(elemento, self.x)
        return elemento

    def teclear(self, texto):
        self._pantalla.teclear(texto)

    def tecla(self, *teclas):
        """Presses keys or combinations, one after another: "Tab", "ctrl+a"."""
        self._pantalla.tecla(*teclas)

    def escribir(self, rol, nombre, texto):
        """Clicks into a text box and replaces what stands there."""
        self.pulsar(rol, nombre)
        self.tecla("ctrl+a")
        self.teclear(texto)

    def elegir(self, combo, posicion):
        """Opens a combo box and chooses its item of that position, counted from 0."""
        self.pulsar("combo box", combo)
        self.tecla("Home", *["Down"] * posicion, "Return")

    # Message boxes: windows of their own, which hold back the main window's input

    def mensaje(self, titulo="Parvanel", plazo=PLAZO):
        """Waits for a message box and returns its text."""
        self.esperar(lambda: self._ventana(titulo), "no message box", plazo)
        boton = self.buscar("push button", "OK", plazo)
        return "\n".join(e.nombre_visto for e in self.elementos()
                         if e.rol == "label" and e.cima == boton.cima and e.nombre_visto)

    def aceptar_mensaje(self, titulo="Parvanel", plazo=PLAZO):
        """Presses OK in the message box, waits until it is gone, and returns its text."""
        texto = self.mensaje(titulo, plazo)
        self._pulsar(self.buscar("push button", "OK"), self._ventana(titulo))
        self.esperar(lambda: not self._ventana(titulo), "the message box stays", plazo)
        return texto

    def cerrar_mensaje(self, tecla="Return", titulo="Parvanel", plazo=PLAZO):
        """As aceptar_mensaje, by a key: of the window that has the focus, as every key is."""
        texto = self.mensaje(titulo, plazo)
        self.esperar(lambda: self._pantalla.enfocada() == self._ventana(titulo),
                     "the message box has no focus")
        self.tecla(tecla)
        self.esperar(lambda: not self._ventana(titulo), "the message box stays", plazo)
        self.esperar(lambda: self._pantalla.enfocada() == self.x, "the window has no focus")
        return texto

    def al_frente(self):
        """Brings the window before the others, as a click on the task bar would."""
        self._pantalla.orden("xdotool", "windowactivate", self.x)
        self.esperar(lambda: self._pantalla.enfocada() == self.x, "it does not come to the front")

    # Looking

    def tamano(self):
        """Width and height of the window's inside, in pixels."""
        return self._pantalla.geometria(self.x)[2:]

    def retratar(self, archivo, quieta=True):
        """Saves a picture of the window as PNG; `quieta`: once it stands still."""
        self._pantalla.retratar(self.x, archivo, quieta)

    # Closing

    def cerrar(self, plazo=5.0):
        """Presses the window's close button; seconds that it took the process to end."""
        x, y, ancho, _ = self._pantalla.geometria(self.x)
        _, derecha, arriba, _ = self._pantalla.marco(self.x)
        inicio = time.monotonic()
        # The last button of the title bar, about as wide as the bar is high.
        self._pantalla.pulsar(x + ancho + derecha - arriba * 0.55, y - arriba * 0.5)
        self.proceso.wait(plazo)
        return time.monotonic() - inicio

    def _pulsar(self, elemento, ventana):
        (x, y, ancho, alto), (logico, _) = elemento.lugar_en_ventana()
        izquierda, arriba, fisico, _ = self._pantalla.geometria(ventana)
        escala = fisico / logico
        self._pantalla.pulsar(izquierda + (x + ancho / 2) * escala,
                              arriba + (y + alto / 2) * escala)

    def _ventana(self, titulo):
        return self._pantalla.ventana(f"^{titulo}$", self.proceso.pid)

    # Waiting for a program that has ended is in vain, whatever is waited for.
    def _si_vive(self, condicion):
        if self.proceso.poll() is not None:
            raise RuntimeError(f"{self.titulo} ended with code {self.proceso.returncode}:\n"
                               f"{self._escritorio.salida()}")
        try:
            return condicion()
        except Desaparecido:
            return None
