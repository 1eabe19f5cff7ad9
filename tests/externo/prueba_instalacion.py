# SPDX-License-Identifier: MIT
"""An installation that stands where nobody said when it was built: its parts find each other.

PARVANEL_CONSTRUCCION is the build folder that is installed from; PARVANEL_HISTORICO names a home
folder that holds an archive, and PARVANEL_PRUEBAS_IMPRESION is the folder of the private print
server.
"""

import os
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

from escena import Escena
from escritorio import Escritorio
from secretaria import TITULO, Secretaria

sys.path.insert(0, os.environ["PARVANEL_PRUEBAS_IMPRESION"])
from cups_privado import CupsPrivado  # pylint: disable=wrong-import-position,import-error

CONSTRUCCION = os.environ["PARVANEL_CONSTRUCCION"]
HISTORICO = Path(os.environ["PARVANEL_HISTORICO"])
PROGRAMA = Path(os.environ["PARVANEL_DEMO"])
PLAZO = 120  # only a guard


class Instalacion(Escena):
    def setUp(self):
        self.cups = self.enterContext(CupsPrivado())
        self.cups.agregar_cola("lote")
        self.cups.poner_predeterminada("lote")
        self.escritorio = self.enterContext(Escritorio(entorno=self.cups.entorno()))
        shutil.copytree(HISTORICO / "Quorvela", self.escritorio.casa / "Quorvela")
        self.lugar = self.escritorio.carpeta / "otra parte ñ"
        subprocess.run(["cmake", "--install", CONSTRUCCION, "--prefix", self.lugar], check=True,
                       timeout=PLAZO, stdout=subprocess.DEVNULL)
        # The program that has its school with it stands in for the other.
        self.programa = self.lugar / "bin" / PROGRAMA.name

    def imprimir_con(self, programa):
        """Prints a classroom's enrolment sheets; where the program that drew or printed stood."""
        self.ventana = self.escritorio.abrir([programa], TITULO)
        self.secretaria = Secretaria(self.ventana)
        self.secretaria.entrar()
        self.secretaria.preparar_impresion(self.secretaria.salones()[0], "Hoja Matricula")
        antes = len(self.cups.capturados())
        self.secretaria.imprimir()
        cuantos = self.ventana.aceptar_mensaje(plazo=PLAZO).count("®")
        self.assertGreater(cuantos, 1)
        # The worker goes on for as long as there is a window, and its renderer for some seconds.
        obreros = self.ventana.esperar(lambda: self.de_la_instalacion(), "no worker runs")
        self.cups.esperar_capturados(antes + cuantos, plazo=PLAZO)
        self.ventana.cerrar()
        return obreros

    def de_la_instalacion(self):
        """The names of its programs that run besides the window, once both do."""
        libexec = self.lugar / "libexec" / "parvanel"
        nombres = set()
        for exe in Path("/proc").glob("[0-9]*/exe"):
            try:
                ruta = Path(os.readlink(exe))
            except OSError:
                continue
            if ruta.parent == libexec:
                nombres.add(ruta.name)
        return nombres if len(nombres) == 2 else None

    def test_instaladoEnOtraParte_imprime(self):
        self.assertFalse((self.lugar / "bin" / "parvanel-print").exists())
        self.assertTrue((self.lugar / "bin" / "parvanel").exists())
        self.assertEqual(self.imprimir_con(self.programa),
                         {"parvanel-print", "parvanel-print-render"})

    def test_llamadoPorUnEnlace_imprime(self):
        enlace = self.escritorio.previa / "mi-parvanel"
        enlace.symlink_to(self.programa)
        self.imprimir_con(enlace)


if __name__ == "__main__":
    unittest.main(verbosity=2)
