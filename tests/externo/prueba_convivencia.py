# SPDX-License-Identifier: MIT
"""Two windows of the program at work on one archive: neither does the other's work any harm.

PARVANEL_HISTORICO names a home folder that holds the archive which one window alone has made.
"""

import os
import re
import shutil
import unittest
from pathlib import Path

from escena import PROGRAMA, Escena, programa_anotador
from secretaria import PLAZO_DESCARGA, TITULO, Secretaria

HISTORICO = Path(os.environ["PARVANEL_HISTORICO"])
DE_AL_LADO = 700  # pixels: farther than a window is wide


def contenido(carpeta):
    """Every entry below the folder: a file's bytes, where a link leads, None for a folder."""
    def de(ruta):
        if ruta.is_symlink():
            return os.readlink(ruta)
        return ruta.read_bytes() if ruta.is_file() else None
    return {str(r.relative_to(carpeta)): de(r) for r in sorted(carpeta.rglob("*"))}


class Convivencia(Escena):
    def setUp(self):
        self.preparar(ancho=2 * DE_AL_LADO)
        self.raiz = self.escritorio.casa / "Quorvela"

    def abrir_las_dos(self):
        self.primera = self.abrir_otra(0)
        self.segunda = self.abrir_otra(DE_AL_LADO)

    def abrir_otra(self, x):
        ventana = self.escritorio.abrir([PROGRAMA], TITULO)
        self.escritorio.pantalla.orden("xdotool", "windowmove", ventana.x, x, 20)
        ventana.esperar(lambda: abs(self.escritorio.pantalla.geometria(ventana.x)[0] - x) < 20,
                        "the window does not move")
        secretaria = Secretaria(ventana)
        secretaria.entrar()
        return secretaria

    def assert_entero(self, ademas=None):
        """The archive is that of one window, but for what matches the pattern besides."""
        uno, dos = contenido(HISTORICO / "Quorvela"), contenido(self.raiz)
        self.assertEqual([r for r in uno if r not in dos], [])
        self.assertEqual([r for r in dos if r not in uno and not (ademas and re.match(ademas, r))],
                         [])
        self.assertEqual([r for r in uno if uno[r] != dos[r]], [])

    def cerrar(self):
        for secretaria in (self.primera, self.segunda):
            secretaria.ventana.cerrar()
            self.assertEqual(secretaria.ventana.proceso.returncode, 0)

    def test_dosDescargasALaVez_dejanElArchivoDeUna(self):
        self.abrir_las_dos()
        for secretaria in (self.primera, self.segunda):
            secretaria.ir_a("Descargar Historicos")
        for secretaria in (self.primera, self.segunda):
            secretaria.ventana.pulsar("push button", "Descargar")
        for secretaria in (self.primera, self.segunda):
            self.assertEqual(secretaria.ventana.aceptar_mensaje(plazo=PLAZO_DESCARGA),
                             "Listo Historico")
        self.assert_entero()
        self.cerrar()

    def test_descargaMientrasLaOtraImprimeYMira_noEstorba(self):
        shutil.copytree(HISTORICO / "Quorvela", self.raiz, symlinks=True)
        notas = programa_anotador(self.escritorio.previa, "xdg-open")
        self.abrir_las_dos()
        self.primera.empezar_descarga()
        salon = self.segunda.salones()[0]
        self.trabajo(salon, "Informe Final", "infoFinal")  # pages of the run's own
        self.trabajo(salon, "Boletines", "boletines/P2", 2)
        self.segunda.ver_historico(r"C:\Quorvela\123-2010")
        self.segunda.ventana.esperar(lambda: notas.exists() and notas.read_bytes(),
                                     "nothing was opened")
        self.assertEqual(notas.read_bytes(), bytes(self.raiz / "123-2010/index.html") + b"\0\0")
        self.assertEqual(self.primera.ventana.aceptar_mensaje(plazo=PLAZO_DESCARGA),
                         "Listo Historico")
        # Besides: the report cards, what only a print job brings, and a link for the spelling
        # that it has of a folder.
        self.assert_entero(
            r"123-2010/archivos/(boletines\b|images/coordinacion\.png$|infofinal$)")
        self.cerrar()

    def trabajo(self, salon, tipo, carpeta, periodo=None):
        """Stores a classroom's pages, and waits until the job has ended."""
        ventana = self.segunda.ventana
        self.segunda.preparar_impresion(salon, tipo, periodo)
        ventana.pulsar("radio button", "Solo Descargar")
        self.segunda.imprimir()
        ventana.esperar(lambda: list((self.raiz / "123-2010/archivos" / carpeta).glob("*.html")),
                        "nothing is stored")
        ventana.buscar("push button", "Imprimir")


if __name__ == "__main__":
    unittest.main(verbosity=2)
