# SPDX-License-Identifier: MIT
"""The window of the Windows program at the scales and in the colours that Windows is set to.

PARVANEL_RETRATOS names a folder for pictures of every mode in each of them, to be looked at.
"""

import unittest
from pathlib import Path

from escena_windows import RETRATOS, WINDOWS, EscenaWindows, entrar_en_red_propia
from secretaria import MODOS

ANCHO, ALTO = 623, 484
ESCALAS = {"100": 96, "150": 144, "200": 192}  # per cent, and what Windows has for it
TEMAS = r"HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize"


def setUpModule():  # pylint: disable=invalid-name
    entrar_en_red_propia()


class Apariencia(EscenaWindows):
    def setUp(self):
        self.servir()
        self.preparar(ancho=1400, alto=1100)

    def poner(self, puntos=96, claro=True):
        self.escritorio.registrar(
            (r"HKEY_CURRENT_USER\Control Panel\Desktop", "LogPixels", puntos),
            (TEMAS, "AppsUseLightTheme", int(claro)), (TEMAS, "SystemUsesLightTheme", int(claro)))

    def claridad(self):
        """Of the whole window, from 0 to 1."""
        imagen = self.escritorio.carpeta / "claridad.png"
        self.ventana.retratar(imagen, quieta=False)
        return float(self.escritorio.pantalla.orden(
            "convert", imagen, "-colorspace", "Gray", "-format", "%[fx:mean]", "info:"))

    def esperar_colores(self, claro):
        self.ventana.esperar(lambda: (self.claridad() > 0.5) == claro, "other colours")

    def test_escalasYColores_sonLosDeWindows(self):
        for escala, puntos in ESCALAS.items():
            for claro in (True, False):
                with self.subTest(escala=escala, claro=claro):
                    self.poner(puntos, claro)
                    self.escritorio.esperar_todos()  # the scale is what a session starts with
                    self.abrir()
                    self.esperar_colores(claro)
                    ancho, alto = self.ventana.tamano()
                    self.assertAlmostEqual(ancho, ANCHO * puntos / 96, delta=2)
                    self.assertAlmostEqual(alto, ALTO * puntos / 96, delta=2)
                    self.secretaria.entrar()
                    for modo in MODOS:
                        self.secretaria.ir_a(modo)
                        self.retratar(f"{escala}-{'claro' if claro else 'oscuro'}-{modo}")
                    self.cerrar()

    def test_cambioDeColoresDeWindows_seSigueAlMomento(self):
        self.poner(claro=True)
        self.abrir()
        self.esperar_colores(True)
        for claro in (False, True):
            self.poner(claro=claro)
            self.escritorio.correr(WINDOWS / "tests/bin/avisa.exe")
            self.esperar_colores(claro)

    def retratar(self, nombre):
        if RETRATOS:
            Path(RETRATOS).mkdir(parents=True, exist_ok=True)
            self.ventana.retratar(Path(RETRATOS) / f"{nombre.replace(' ', '-').lower()}.png")


if __name__ == "__main__":
    unittest.main(verbosity=2)
