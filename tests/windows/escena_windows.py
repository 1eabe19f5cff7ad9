# SPDX-License-Identifier: MIT
"""What the tests of the Windows programs share: the school service at its real name on a network of
the test's own, a desktop with a drive C, and the Linux program on a desktop beside it.

PARVANEL_WINDOWS and PARVANEL_LINUX are the build folders of the two; each program stands in its
`bin` or, when made for the tests, in its `tests/bin`.
"""

import os
import re
import sys
import unittest
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[1] / "externo"))
# pylint: disable=wrong-import-position
import red_propia  # noqa: E402
from escritorio import Escritorio  # noqa: E402
from escritorio_wine import EscritorioWine  # noqa: E402
from secretaria import TITULO, Secretaria  # noqa: E402
from secretaria_vista import SecretariaVista  # noqa: E402
from servicio import Servicio  # noqa: E402

WINDOWS = Path(os.environ.get("PARVANEL_WINDOWS", ""))
LINUX = Path(os.environ.get("PARVANEL_LINUX", ""))
HTTP = f"http://{red_propia.ANFITRION}"
HTTPS = f"https://{red_propia.ANFITRION}"
ARCHIVO = Path("Quorvela") / "123-2010"
RETRATOS = os.environ.get("PARVANEL_RETRATOS")


def entrar_en_red_propia():
    """For setUpModule: passes the tests over where there is no network of their own to be had."""
    motivo = red_propia.entrar()
    if motivo:
        raise unittest.SkipTest(motivo)


class EscenaWindows(unittest.TestCase):
    def servir(self, base=HTTP, *identidad):
        """The school at that address; `identidad`: certificate and key, for one of https."""
        self.servicio = self.enterContext(
            Servicio(LINUX / "tests/bin/servicio-de-escuela", base, *identidad))

    def preparar(self, **opciones):
        """A desktop with a drive C; options as for EscritorioWine."""
        self.escritorio = self.enterContext(EscritorioWine(**opciones))
        self.addCleanup(self.retratar_la_falla)

    def abrir(self, programa="tests/bin/parvanel-http.exe"):
        """Opens one of the Windows programs on it."""
        self.ventana = self.escritorio.abrir([WINDOWS / programa], TITULO)
        self.secretaria = SecretariaVista(self.ventana)

    def cerrar(self):
        self.ventana.cerrar(plazo=30)
        self.assertEqual(self.ventana.proceso.returncode, 0)

    def en_linux(self, programa="tests/bin/parvanel-http", **opciones):
        """The Linux program on a desktop of its own: that desktop, and who works on it."""
        escritorio = self.enterContext(Escritorio(**opciones))
        return escritorio, Secretaria(escritorio.abrir([LINUX / programa], TITULO))

    def retratar_la_falla(self):
        """Leaves a picture of the screen where PARVANEL_RETRATOS says, when the test has failed."""
        resultado = self._outcome.result
        if RETRATOS and any(caso.id().startswith(self.id())
                                 for caso, _ in resultado.failures + resultado.errors):
            Path(RETRATOS).mkdir(parents=True, exist_ok=True)
            self.escritorio.pantalla.orden("import", "-window", "root",
                                           Path(RETRATOS) / f"falla-{self.id()}.png")


def contenido(carpeta):
    """Every file below a folder: its path there, and its bytes. Links are passed over: Linux has
    them for other spellings of a name, which Windows takes for the same."""
    archivos = (Path(lugar) / nombre for lugar, _, nombres in os.walk(carpeta)
                for nombre in nombres)
    return {str(a.relative_to(carpeta)): a.read_bytes() for a in archivos if not a.is_symlink()}


def sin_azar(destinos):
    """Request targets without the numbers that are never the same twice."""
    return [re.sub(r"(?<=azar=)[^&]*|(?<=tessarin/)[^/?]+$", "", d) for d in destinos]
