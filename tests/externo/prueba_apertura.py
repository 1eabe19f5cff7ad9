# SPDX-License-Identifier: MIT
"""An archive is opened where nothing can open it: nothing is shown, nothing hangs, nothing is left.

PARVANEL_HISTORICO names a home folder that holds an archive; the tests work in a copy.
"""

import os
import shutil
import unittest
from pathlib import Path

from escena import Escena
from procesos import descendientes, esperar

HISTORICO = Path(os.environ["PARVANEL_HISTORICO"])
CARPETA = r"C:\Quorvela\123-2010"
SIN_NAVEGADOR = 3  # "a required tool could not be found"


class Apertura(Escena):
    def setUp(self):
        self.preparar()
        shutil.copytree(HISTORICO / "Quorvela", self.escritorio.casa / "Quorvela")
        self.notas = self.escritorio.carpeta / "abiertos"
        self.abridor = self.escritorio.previa / "xdg-open"
        self.abridor.write_text(
            f"#!/bin/sh\necho \"$1\" >> '{self.notas}'\n"
            f"echo 'xdg-open: no method available' >&2\nexit {SIN_NAVEGADOR}\n", encoding="utf-8")
        self.abridor.chmod(0o755)
        self.abrir_programa()

    def ventanas(self):
        """All windows of the program that can be seen."""
        return self.escritorio.pantalla.orden(
            "xdotool", "search", "--onlyvisible", "--all", "--pid", self.ventana.proceso.pid,
            "--name", "", estricta=False).split()

    def abiertos(self):
        return self.notas.read_text(encoding="utf-8").splitlines() if self.notas.exists() else []

    def test_abridorQueFalla_nadaSeVeNiQueda(self):
        self.secretaria.entrar()
        antes = self.ventanas()
        self.secretaria.ver_historico(CARPETA)
        esperar(lambda: len(self.abiertos()) == 1, falla="nothing was opened")
        for veces in (2, 3):
            self.ventana.pulsar("push button", "Ver Historico Año Seleccionado")
            esperar(lambda v=veces: len(self.abiertos()) == v, falla="nothing was opened")
        portada = self.escritorio.casa / "Quorvela" / "123-2010" / "index.html"
        self.assertEqual(set(self.abiertos()), {str(portada)})
        # It has ended, nobody waits for it, and it is buried.
        esperar(lambda: not descendientes(self.ventana.proceso.pid, directos=True),
                falla="a process is left behind")
        # The window goes on, and answers at once.
        self.secretaria.ir_a("Imprimir en Lote")
        self.secretaria.ir_a("Ver mis Historicos")
        self.assertEqual(self.ventanas(), antes)
        self.ventana.cerrar()
        self.assertEqual(self.ventana.proceso.returncode, 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
