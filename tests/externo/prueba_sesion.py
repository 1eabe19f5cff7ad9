# SPDX-License-Identifier: MIT
"""The desktop while the program works: it stays awake, and its task bar shows the progress."""

import subprocess
import sys
import threading
import unittest
from pathlib import Path

from escena import Escena
from procesos import esperar

SESION = Path(__file__).resolve().with_name("sesion.py")
TOMA = "toma Se está descargando un histórico"


class Sesion(Escena):
    def abrir_ante(self, servicio):
        """Opens the program on a desktop with such a service, and logs in."""
        self.preparar()
        self.dichos = []
        sesion = self.escritorio.lanzar([sys.executable, "-B", SESION, servicio],
                                        stdout=subprocess.PIPE, text=True)

        def leer():
            with sesion.stdout as tubo:
                self.dichos.extend(linea.rstrip("\n") for linea in iter(tubo.readline, ""))

        hilo = threading.Thread(target=leer)
        hilo.start()
        self.addCleanup(hilo.join)
        self.addCleanup(sesion.terminate)
        esperar(lambda: "listo" in self.dichos, falla="the session's service does not start")
        self.abrir_programa()
        self.secretaria.entrar()

    def sostenidos(self):
        return [d for d in self.dichos if d.partition(" ")[0] in ("toma", "suelta", "cae")]

    def avances(self):
        return [int(d.split()[1]) for d in self.dichos if d.startswith("avance ")]

    def esperar_dicho(self, *esperados):
        esperar(lambda: self.sostenidos() == list(esperados), 30,
                lambda: f"{self.sostenidos()}, not {esperados}")

    def descargar_a_medias(self):
        self.secretaria.ir_a("Descargar Historicos")
        self.ventana.pulsar("push button", "Descargar")

    def test_descargaEntera_tomaYSueltaYCuentaSuAvance(self):
        self.abrir_ante("portal")
        self.assertEqual((self.sostenidos(), self.avances()), ([], []))
        self.secretaria.descargar()
        self.esperar_dicho(TOMA, "suelta")
        esperar(lambda: self.dichos[-1] == "sin avance", falla="the progress stays")
        avances = self.avances()
        self.assertEqual(avances, sorted(set(avances)))
        self.assertEqual(avances[0], 0)
        # In the photos and labels, whose pauses leave time to be seen in.
        self.assertGreater(len([a for a in avances if a >= 72]), 5)

    def test_sinPortal_sostieneElGestorDeLaSesion(self):
        self.abrir_ante("gestor")
        self.descargar_a_medias()
        self.esperar_dicho(TOMA)

    def test_cerrar_loSuelta(self):
        for servicio in ("portal", "gestor"):
            with self.subTest(servicio):
                self.abrir_ante(servicio)
                self.descargar_a_medias()
                self.esperar_dicho(TOMA)
                self.ventana.cerrar()
                self.esperar_dicho(TOMA, "cae")

    def test_muerteDelPrograma_loSuelta(self):
        self.abrir_ante("portal")
        self.descargar_a_medias()
        self.esperar_dicho(TOMA)
        self.ventana.proceso.kill()
        self.esperar_dicho(TOMA, "cae")

    def test_sinNinguno_descargaIgual(self):
        self.abrir_ante("ninguno")
        self.descargar_a_medias()
        esperar(lambda: len(self.avances()) > 1, falla="no progress")
        self.assertEqual(self.sostenidos(), [])
        self.ventana.cerrar()


if __name__ == "__main__":
    unittest.main(verbosity=2)
