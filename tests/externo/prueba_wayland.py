# SPDX-License-Identifier: MIT
"""What the windows are known by under Wayland: the id that the desktop's entries and icons are
named after.

PARVANEL_PROGRAMA and PARVANEL_REVISOR name the other two programs. The window system is one of the
test's own that draws nothing; what a window tells it of itself is read from the program's own
record of the conversation.
"""

import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

from procesos import Camada, esperar

PLAZO = 60  # only a guard
PROGRAMAS = ((os.environ["PARVANEL_PROGRAMA"], "example.parvanel.parvanel"),
             (os.environ["PARVANEL_DEMO"], "example.parvanel.demo"),
             (os.environ["PARVANEL_REVISOR"], "example.parvanel.revisor"))


class Wayland(unittest.TestCase):
    def setUp(self):
        self.carpeta = Path(self.enterContext(tempfile.TemporaryDirectory(prefix="wayland-")))
        self.camada = Camada()
        self.addCleanup(self.camada.terminar)
        self.entorno = {n: v for n, v in os.environ.items()
                        if n not in ("DISPLAY", "QT_QPA_PLATFORM")}
        self.entorno |= {"XDG_RUNTIME_DIR": str(self.carpeta), "HOME": str(self.carpeta),
                         "WAYLAND_DISPLAY": "prueba"}
        self.camada.lanzar(["weston", "--backend=headless-backend.so", "--socket=prueba"],
                           env=self.entorno, stdout=subprocess.DEVNULL,
                           stderr=subprocess.DEVNULL)
        esperar((self.carpeta / "prueba").exists, PLAZO, "weston does not start")

    def id_dicha(self, programa):
        conversacion = self.carpeta / f"{Path(programa).name}.txt"
        with conversacion.open("wb") as salida:
            self.camada.lanzar(
                [programa], stdout=subprocess.DEVNULL, stderr=salida,
                env={**self.entorno, "QT_QPA_PLATFORM": "wayland", "WAYLAND_DEBUG": "1"})
        dicha = esperar(
            lambda: re.search(r'set_app_id\("(.*)"\)', conversacion.read_text("utf-8", "replace")),
            PLAZO, "no window says whose it is")
        return dicha[1]

    def test_ventanas_dicenElIdDelArchivoDeEscritorio(self):
        for programa, id_ in PROGRAMAS:
            with self.subTest(programa=os.path.basename(programa)):
                self.assertEqual(self.id_dicha(programa), id_)


if __name__ == "__main__":
    unittest.main(verbosity=2)
