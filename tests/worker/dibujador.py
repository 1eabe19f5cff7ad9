# SPDX-License-Identifier: MIT
"""The renderer by itself, on pages of an archive, as the worker would start it."""

import os
import subprocess
from concurrent.futures import ThreadPoolExecutor

from impresion import DIBUJADOR, GUARDA, Prueba, texto

HECHO, MAL_USO, SIN_PAGINA, SIN_PDF, MOTOR_CAIDO = 0, 2, 3, 4, 5
# Far beyond what any page of a test needs, and within the tests' own guard.
PLAZO = 100
# The renderer's own limits are parts of this: short enough for a test that awaits them, and long
# enough for a page to be read and printed on a machine that has other things to do.
PLAZO_CORTO = 20


class ConDibujador(Prueba):
    """The archive root is the folder "Quorvela" in the test's home; what lies beside it is not
    the archive's."""

    origen = None

    def setUp(self):
        super().setUp()
        self.raiz = self.casa / "Quorvela"
        self.raiz.mkdir()
        self.pdf = self.temporal / "salida.pdf"

    def entorno(self, cups=None, **mas):
        propio = {k: v for k, v in super().entorno(cups or {}).items()
                  if not k.lower().endswith("_proxy") and not k.startswith("PARVANEL_")}
        if self.origen:
            propio["PARVANEL_ORIGEN"] = self.origen
        propio.update({"PARVANEL_RAIZ": str(self.raiz), "PARVANEL_PLAZO_DIBUJO": str(PLAZO)})
        propio.update(mas)
        return {k: v for k, v in propio.items() if v is not None}

    def dibujar(self, pagina, pdf=None, **mas):
        """The renderer's exit code for the page."""
        pdf = pdf or self.pdf
        pdf.unlink(missing_ok=True)
        return subprocess.run([DIBUJADOR, pagina, pdf], timeout=2 * GUARDA, check=False,
                              env=self.entorno(**mas), capture_output=True).returncode

    def dibujarALaVez(self, casos):
        """The exit codes for these, each a page and its variables, and the PDF files that there
        are. They are drawn side by side: what waits costs nothing."""
        def uno(numero, caso):
            return self.dibujar(caso[0], self.temporal / f"{numero}.pdf", **caso[1])
        with ThreadPoolExecutor(len(casos)) as varios:
            codigos = list(varios.map(uno, range(len(casos)), casos))
        return codigos, sorted(pdf.name for pdf in self.temporal.glob("*.pdf"))

    def papel(self, html, nombre="Quorvela/1-2010/pagina.html", pdf=None, **mas):
        """What is to be read on the page's paper."""
        self.assertEqual(self.dibujar(self.archivo(nombre, html), pdf, **mas), HECHO)
        return texto(pdf or self.pdf)

    def arbol(self):
        """All that lies in the home, but for the folder of temporary files."""
        return sorted(os.path.join(d, f) for d, ds, fs in os.walk(self.casa) for f in [*ds, *fs]
                      if not d.startswith(str(self.temporal)))
