# SPDX-License-Identifier: MIT
"""What a desktop knows a program by: the name of its desktop file, in every window's class, so that
its windows stand under its own icon. People read another name."""

import os
import re
import unittest

from escritorio import Escritorio
from secretaria import TITULO, Secretaria

PROGRAMAS = (
    (os.environ["PARVANEL_PROGRAMA"], TITULO, "example.parvanel.parvanel", "Parvanel"),
    (os.environ["PARVANEL_DEMO"], TITULO, "example.parvanel.demo", "Parvanel"),
    (os.environ["PARVANEL_REVISOR"], "Revisor de Históricos", "example.parvanel.revisor",
     "parvanel-revisor"),
)


class Identidad(unittest.TestCase):
    def clases(self, numero):
        """The window's class, as far as it is told in the two parts of the property."""
        dicho = self.escritorio.pantalla.orden("xprop", "-id", numero, "WM_CLASS")
        return re.findall(r'"([^"]*)"', dicho)

    def abrir(self, programa, titulo):
        self.escritorio = self.enterContext(Escritorio())
        self.ventana = self.escritorio.abrir([programa], titulo)

    def test_ventanas_sonDeLaClaseDelArchivoDeEscritorio(self):
        for programa, titulo, identidad, nombre in PROGRAMAS:
            with self.subTest(identidad):
                self.abrir(programa, titulo)
                self.assertEqual(self.clases(self.ventana.x),
                                 [os.path.basename(programa), identidad])
                self.assertEqual(self.ventana.nombre_del_programa(), nombre)

    def test_mensajes_deLaMismaClaseYConElNombreDeSiempre(self):
        self.abrir(os.environ["PARVANEL_DEMO"], TITULO)
        Secretaria(self.ventana).escribir_cuenta(clave="otra")
        self.ventana.tecla("Return")
        self.ventana.mensaje("Parvanel")
        numero = self.escritorio.pantalla.ventana("^Parvanel$", self.ventana.proceso.pid)
        self.assertEqual(self.clases(numero), ["parvanel-demo", "example.parvanel.demo"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
