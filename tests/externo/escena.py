# SPDX-License-Identifier: MIT
"""What the tests of the window from outside share: the built program on a desktop of its own."""

import os
import unittest
from pathlib import Path

from escritorio import Escritorio
from secretaria import TITULO, Secretaria

PROGRAMA = os.environ.get("PARVANEL_DEMO", "")


class Escena(unittest.TestCase):
    """Each test opens the program anew; what it leaves running ends with it."""

    def abrir(self, **opciones):
        """Opens the program; options as for Escritorio."""
        self.preparar(**opciones)
        self.abrir_programa()

    def preparar(self, **opciones):
        self.escritorio = self.enterContext(Escritorio(**opciones))

    def abrir_programa(self):
        self.ventana = self.escritorio.abrir([PROGRAMA], TITULO)
        self.secretaria = Secretaria(self.ventana)


def programa_anotador(carpeta, nombre):
    """Puts a program of that name into the folder, which notes its arguments; the file it notes
    them in, each argument ended by a zero byte and each call by an empty one."""
    carpeta = Path(carpeta)
    carpeta.mkdir(parents=True, exist_ok=True)
    notas = carpeta / f"{nombre}.notas"
    programa = carpeta / nombre
    programa.write_text(f"#!/bin/sh\nprintf '%s\\0' \"$@\" '' >> '{notas}'\n", encoding="utf-8")
    programa.chmod(0o755)
    return notas
