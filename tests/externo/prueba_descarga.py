# SPDX-License-Identifier: MIT
"""The main job, from outside: log in, download the archive, open it.

PARVANEL_CASA names the home folder to work in, and to leave the archive in for other tests; it
is emptied first. Without it the test has one of its own.
"""

import os
import shutil
import unittest
from pathlib import Path

from escena import Escena, programa_anotador

CASA = os.environ.get("PARVANEL_CASA")


class Descarga(Escena):
    def test_secretaria_descargaYAbreElHistorico(self):
        if CASA:
            shutil.rmtree(CASA, ignore_errors=True)
        self.abrir(casa=CASA)
        notas = programa_anotador(self.escritorio.previa, "xdg-open")
        self.assertEqual(self.secretaria.entrar(), "123")
        self.secretaria.empezar_descarga()
        self.comprobar_en_marcha()
        self.assertEqual(self.ventana.aceptar_mensaje(plazo=180), "Listo Historico")
        self.comprobar_terminada()
        self.secretaria.ver_historico(r"C:\Quorvela\123-2010")
        self.ventana.esperar(notas.exists, "nothing was opened")
        portada = self.escritorio.casa / "Quorvela" / "123-2010" / "index.html"
        self.assertEqual(notas.read_bytes(), bytes(portada) + b"\0\0")
        self.assertTrue(portada.is_file())
        self.ventana.cerrar()
        self.assertEqual(self.ventana.proceso.returncode, 0)
        # Nothing of the program's own anywhere else in the home folder.
        self.assertEqual([p.name for p in Path(self.escritorio.casa).iterdir()], ["Quorvela"])

    def comprobar_en_marcha(self):
        self.assertIsNone(self.ventana.a_la_vista("push button", "Descargar"))
        self.assertIsNone(self.ventana.a_la_vista("label", "Importante"))
        # The modes stay in use while it runs.
        self.secretaria.ir_a("Ver mis Historicos")
        self.secretaria.ir_a("Descargar Historicos")
        # The steps full of pauses, which last for seconds; the others may pass unseen.
        for titulo in ("Descargando Imagenes de Alumnos", "Descargando Labels de Materias"):
            self.ventana.esperar_rotulo(titulo, plazo=120)

    def comprobar_terminada(self):
        self.assertIsNone(self.ventana.a_la_vista("push button", "Descargar"))
        self.assertEqual(self.ventana.buscar("progress bar", "Avance de la descarga").valor, 8)
        self.assertTrue(self.ventana.a_la_vista("label", "Label: Total Fallas - 8 de 8"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
