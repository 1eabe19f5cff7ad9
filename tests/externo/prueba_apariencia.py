# SPDX-License-Identifier: MIT
"""The window at the desktop's scales and in its light and dark colours.

PARVANEL_RETRATOS names a folder for pictures of every mode in each of them, to be looked at.
"""

import os
import signal
import subprocess
import sys
import unittest
from pathlib import Path

from escena import Escena
from secretaria import MODOS

RETRATOS = os.environ.get("PARVANEL_RETRATOS")
PORTAL = Path(__file__).resolve().with_name("portal.py")
ANCHO, ALTO = 623, 484


class Apariencia(Escena):
    def abrir_a(self, escala, colores, ancho=1400, alto=1100):
        self.preparar(ancho=ancho, alto=alto, entorno={"QT_SCALE_FACTOR": str(escala)})
        self.portal = self.escritorio.lanzar([sys.executable, "-B", PORTAL, colores],
                                             stdout=subprocess.PIPE)
        self.addCleanup(self.portal.stdout.close)
        self.portal.stdout.readline()
        self.abrir_programa()

    def claridad(self):
        """Of the whole window, from 0 to 1."""
        imagen = self.escritorio.carpeta / "claridad.png"
        self.ventana.retratar(imagen, quieta=False)
        return float(self.escritorio.pantalla.orden(
            "convert", imagen, "-colorspace", "Gray", "-format", "%[fx:mean]", "info:"))

    def esperar_colores(self, colores):
        self.ventana.esperar(lambda: (self.claridad() < 0.5) == (colores == "dark"),
                             f"the colours are not {colores}")

    def test_escalasYColores_sonLosDelEscritorio(self):
        for escala in (1, 1.5, 2):
            for colores in ("light", "dark"):
                with self.subTest(escala=escala, colores=colores):
                    self.abrir_a(escala, colores)
                    self.esperar_colores(colores)
                    ancho, alto = self.ventana.tamano()
                    self.assertAlmostEqual(ancho, ANCHO * escala, delta=1)
                    self.assertAlmostEqual(alto, ALTO * escala, delta=1)
                    self.secretaria.entrar()
                    for modo in MODOS:
                        self.secretaria.ir_a(modo)
                        self.retratar(f"{colores}-{escala}-{modo}")
                    self.ventana.cerrar()

    def test_cambioDeColoresDelEscritorio_seSigueAlMomento(self):
        self.abrir_a(1, "light")
        self.esperar_colores("light")
        for colores in ("dark", "light"):
            self.portal.send_signal(signal.SIGUSR1)
            self.esperar_colores(colores)

    def test_pantallaChica_todoAlAlcance(self):
        for ancho, alto, escala in ((1366, 768, 2), (1024, 600, 1.5)):
            with self.subTest(ancho=ancho, alto=alto, escala=escala):
                self.abrir_a(escala, "light", ancho, alto)
                self.secretaria.entrar()
                self.caber(ancho, alto)
                for modo, boton in (("Descargar Historicos", "Descargar"),
                                    ("Imprimir en Lote", "Imprimir")):
                    self.secretaria.ir_a(modo)
                    self.retratar(f"chica-{ancho}-{modo}")
                    # The last of the mode's elements, as one gets there by keyboard.
                    while not self.ventana.buscar("push button", boton).enfocado:
                        self.ventana.tecla("Tab")
                    self.retratar(f"chica-{ancho}-{modo}-abajo")
                    self.estar_dentro(self.ventana.buscar("push button", boton))
                self.secretaria.ir_a("Descargar Historicos")
                self.ventana.buscar("push button", "Descargar")
                while not self.ventana.buscar("push button", "Descargar").enfocado:
                    self.ventana.tecla("Tab")
                self.ventana.pulsar("push button", "Descargar")
                self.estar_dentro(self.ventana.buscar("progress bar", "Avance del paso actual"))
                self.retratar(f"chica-{ancho}-en-marcha")
                self.caber(ancho, alto)
                self.ventana.cerrar()

    def caber(self, ancho, alto):
        """The window, its frame included, is on the screen."""
        x, y, *dentro = self.escritorio.pantalla.geometria(self.ventana.x)
        izquierda, derecha, arriba, abajo = self.escritorio.pantalla.marco(self.ventana.x)
        self.assertGreaterEqual(x - izquierda, 0)
        self.assertGreaterEqual(y - arriba, 0)
        self.assertLessEqual(x + dentro[0] + derecha, ancho)
        self.assertLessEqual(y + dentro[1] + abajo, alto)

    def estar_dentro(self, elemento):
        """The element's place is within the window's inside."""
        def dentro():
            (x, y, ancho, alto), (de_ancho, de_alto) = elemento.lugar_en_ventana()
            return x >= 0 and y >= 0 and x + ancho <= de_ancho and y + alto <= de_alto
        self.ventana.esperar(dentro, "it is out of the window")

    def retratar(self, nombre):
        if RETRATOS:
            Path(RETRATOS).mkdir(parents=True, exist_ok=True)
            self.ventana.retratar(Path(RETRATOS) / f"{nombre.replace(' ', '-').lower()}.png")


if __name__ == "__main__":
    unittest.main(verbosity=2)
