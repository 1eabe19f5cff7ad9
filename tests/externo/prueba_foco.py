# SPDX-License-Identifier: MIT
"""Message boxes and the program that the person is at: a box takes the focus from none but its own
window."""

import signal
import subprocess
import unittest

from escena import Escena
from procesos import esperar
from secretaria import PLAZO_DESCARGA

OTRO = "Otro programa"


class Foco(Escena):
    def setUp(self):
        self.abrir()
        self.pantalla = self.escritorio.pantalla

    def abrir_otro(self):
        """Another program, which writes down its keys, comes to the front."""
        self.notas = self.escritorio.carpeta / "otro"
        with open(self.notas, "wb") as salida:
            self.escritorio.lanzar(["xev", "-name", OTRO, "-geometry", "300x200+900+700",
                                    "-event", "keyboard"],
                                   stdout=salida, stderr=subprocess.DEVNULL)
        self.otro = esperar(lambda: self.pantalla.ventana(f"^{OTRO}$"), falla="no other window")
        self.esperar_foco(self.otro)

    def esperar_foco(self, ventana):
        esperar(lambda: self.pantalla.enfocada() == ventana, 30,
                lambda: f"{self.pantalla.enfocada()} has the focus, not {ventana}")

    def returns_del_otro(self):
        """How often Return was pressed in the other program."""
        sucesos = self.notas.read_text(errors="replace").split("\n\n")
        return sum("KeyPress event" in s and "Return" in s for s in sucesos)

    def estado(self):
        return self.pantalla.orden("xprop", "-id", self.ventana.x, "_NET_WM_STATE")

    def pide_atencion(self):
        return "_NET_WM_STATE_DEMANDS_ATTENTION" in self.estado()

    def cuadro(self):
        return self.pantalla.ventana("^Parvanel$", self.ventana.proceso.pid)

    def esperar_cuadro(self):
        self.assertEqual(self.ventana.mensaje(plazo=PLAZO_DESCARGA), "Listo Historico")
        return self.cuadro()

    def teclear_return_en_otro(self):
        antes = self.returns_del_otro()
        self.pantalla.tecla("Return")
        esperar(lambda: self.returns_del_otro() == antes + 1, falla="the key went elsewhere")

    def descargar_desde_atras(self, antes=lambda: None):
        """A whole run, with the other program in front from its beginning. `antes` is done before
        that comes there. The program sleeps meanwhile: it cannot be done too soon."""
        self.secretaria.entrar()
        self.secretaria.ir_a("Descargar Historicos")
        self.ventana.pulsar("push button", "Descargar")
        self.ventana.proceso.send_signal(signal.SIGSTOP)
        try:
            antes()
            self.abrir_otro()
        finally:
            self.ventana.proceso.send_signal(signal.SIGCONT)

    def test_conOtroDelante_elCuadroLoDejaYLaVentanaPideAtencion(self):
        self.descargar_desde_atras()
        cuadro = self.esperar_cuadro()
        esperar(self.pide_atencion, falla="the window does not ask for attention")
        self.teclear_return_en_otro()
        self.assertEqual(self.pantalla.enfocada(), self.otro)
        self.assertEqual(self.cuadro(), cuadro)
        # Whoever comes back to the window finds the box before it, and Return is for it.
        self.pantalla.orden("xdotool", "windowactivate", self.ventana.x)
        self.esperar_foco(cuadro)
        self.pantalla.tecla("Return")
        self.ventana.esperar(lambda: not self.cuadro(), "the box stays")
        self.esperar_foco(self.ventana.x)
        esperar(lambda: not self.pide_atencion(), falla="it goes on asking for attention")
        self.assertEqual(self.returns_del_otro(), 1)

    def test_ventanaMinimizada_elCuadroEsperaConElla(self):
        self.descargar_desde_atras(
            lambda: self.pantalla.orden("xdotool", "windowminimize", self.ventana.x))
        esperar(self.pide_atencion, PLAZO_DESCARGA, "the window does not ask for attention")
        self.teclear_return_en_otro()
        self.assertEqual(self.pantalla.enfocada(), self.otro)
        self.pantalla.orden("xdotool", "windowactivate", self.ventana.x)
        cuadro = self.esperar_cuadro()
        self.esperar_foco(cuadro)
        self.pantalla.tecla("Return")
        self.ventana.esperar(lambda: not self.cuadro(), "the box stays")

    def test_conElProgramaDelante_elCuadroTieneElFoco(self):
        self.secretaria.escribir_cuenta(clave="otra")
        self.ventana.tecla("Return")
        self.ventana.mensaje()
        self.esperar_foco(self.cuadro())
        self.assertFalse(self.pide_atencion())
        self.pantalla.tecla("Return")
        self.ventana.esperar(lambda: not self.cuadro(), "the box stays")


if __name__ == "__main__":
    unittest.main(verbosity=2)
