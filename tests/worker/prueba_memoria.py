# SPDX-License-Identifier: MIT
"""A page that wants more memory than one page may have is given up, and the next is printed."""

import re
import threading
import unittest
from contextlib import contextmanager
from pathlib import Path

from impresion import ROJO, ConCups, png


class Memoria(ConCups):
    # The limit of time is none: it must be the memory that ends a page.

    def test_paginaQueAgotaElMotor_seAbandonaYSigueLaProxima(self):
        memoria = self.archivo(
            "memoria.html", "<script>var a=[];while(true)a.push(new Array(9999).fill({}))</script>")
        bien = self.archivo("bien.html", "<p>bien</p>")
        anotado = self.imprimir(self.cups.entorno(), [memoria, bien], "--plazo-dibujo", "3600")
        self.assertEqual(anotado[0], (str(memoria), "la página agotó el motor de dibujo"))
        self.assertImpresos(anotado[1:], [bien])

    def test_paginaQueQuiereTodaLaMemoria_noLaRecibeYSiguenLasProximas(self):
        gula = self.archivo("gula.html", "<p>a</p><script>let a = [];"
                            "for (;;) a.push(new Uint8Array(1 << 26).fill(1));</script>")
        bien = [self.archivo(f"bien{i}.html", "<p>bien</p>") for i in range(3)]
        mayor = [0]
        with self.midiendo(mayor):
            anotado = self.imprimir(self.cups.entorno(), [gula, *bien], "--plazo-dibujo", "3600")
        # A renderer built with the sanitizers is refused nothing by itself: there it is ended.
        self.assertRegex(anotado[0][1], r"^(trabajo \d+ en lote|la página pidió demasiada memoria)$")
        self.assertImpresos(anotado[1:], bien)
        self.assertGreater(mayor[0], 1 << 29)  # it has been seen at all
        self.assertLess(mayor[0], 3 << 30)

    def test_dibujadorQueTomaDemasiadaMemoria_seTerminaYSiguenLasProximas(self):
        # What the engine takes by itself is refused to no script.
        self.conDibujador("#!/usr/bin/python3\nimport sys, time\n"
                          "html, pdf = [sys.stdin.readline().rstrip() for _ in range(3)][1:]\n"
                          "lleno = []\n"
                          "while 'gula' in html:\n"
                          "    lleno.append(b'x' * (1 << 24)) if len(lleno) < 160 else time.sleep(1)\n"
                          "open(pdf, 'w').write('%PDF-1.4\\n')\n")
        gula = self.archivo("gula.html", "")
        bien = [self.archivo(f"bien{i}.html", "") for i in range(3)]
        mayor = [0]
        with self.midiendo(mayor):
            anotado = self.imprimir(self.cups.entorno(), [gula, *bien], "--plazo-dibujo", "3600")
        self.assertEqual(anotado[0], (str(gula), "la página pidió demasiada memoria"))
        self.assertImpresos(anotado[1:], bien)
        self.assertGreater(mayor[0], 1 << 29)
        self.assertLess(mayor[0], 3 << 30)

    def test_paginaConMuchasImagenes_noPideDemasiadaMemoria(self):
        self.archivo("foto.png", png(1500, 1500, ROJO))
        fotos = "".join(f"<img width=200 src='foto.png?{i}'>" for i in range(30))
        ruta = self.archivo("fotos.html", fotos)
        self.assertImpresos(self.imprimir(self.cups.entorno(), [ruta], "--plazo-dibujo", "3600"),
                            [ruta])

    @contextmanager
    def midiendo(self, mayor):
        """Notes the most memory that this test's processes hold at a time, as far as is seen."""
        fin = threading.Event()

        def medir():
            while not fin.wait(0.05):
                suma = 0
                for pid in self.pidsVivos():
                    try:
                        estado = Path(f"/proc/{pid}/status").read_text(encoding="utf-8")
                    except OSError:
                        continue
                    suma += sum(int(k) for k in re.findall(r"RssAnon:\s+(\d+)", estado)) * 1024
                mayor[0] = max(mayor[0], suma)
        hilo = threading.Thread(target=medir)
        hilo.start()
        try:
            yield
        finally:
            fin.set()
            hilo.join()


if __name__ == "__main__":
    unittest.main(verbosity=2)
