# SPDX-License-Identifier: MIT
"""The renderer by itself: its command line, and what its exit code says."""

import subprocess
import unittest

from dibujador import HECHO, MAL_USO, MOTOR_CAIDO, SIN_PAGINA, SIN_PDF
from impresion import DIBUJADOR, GUARDA, ROJO, Prueba, medida, puntos, texto


class Dibujo(Prueba):
    def setUp(self):
        super().setUp()
        self.pagina = self.archivo("a.html", "<p>año</p>")
        self.pdf = self.casa / "a.pdf"

    def dibujar(self, *argumentos, entrada=b""):
        return subprocess.run([DIBUJADOR, *argumentos], input=entrada, timeout=GUARDA,
                              env=self.entorno({}), cwd=self.casa, capture_output=True).returncode

    def test_pagina_seVuelvePdf(self):
        self.assertEqual(self.dibujar(self.pagina, self.pdf), HECHO)
        self.assertEqual(texto(self.pdf).strip(), "año")

    def test_nombresRelativos_sonDeLaCarpetaActual(self):
        self.assertEqual(self.dibujar("a.html", "b.pdf"), HECHO)
        self.assertTrue((self.casa / "b.pdf").exists())

    def test_papelYMargenes_seObedecen(self):
        roja = self.archivo("r.html", "<body style='margin:0;background:rgb(200,20,20)'><p>x</p>")
        self.assertEqual(self.dibujar("--papel", "21590x35560", "--margenes", "2540,0,0,0",
                                      roja, self.pdf), HECHO)
        self.assertEqual(medida(self.pdf), (612, 1008))
        # An inch less on one side.
        self.assertAlmostEqual(puntos(self.pdf, ROJO, 72), 540 * 1008, delta=2500)

    def test_papelDeLaPagina_cedeAlDeLaImpresora(self):
        for estilo, esperada in (("size: A3", (612, 1008)), ("size: letter; margin: 1cm", (612, 1008)),
                                 ("size: letter landscape", (1008, 612))):
            with self.subTest(estilo):
                propia = self.archivo("p.html", f"<style>@page {{ {estilo} }}</style><p>x</p>")
                self.assertEqual(self.dibujar("--papel", "21590x35560", propia, self.pdf), HECHO)
                self.assertEqual(medida(self.pdf), esperada)

    def test_paginaQueNoSePuedeCargar_noHacePdf(self):
        for falta in (self.casa / "falta.html", self.casa):
            self.assertEqual(self.dibujar(falta, self.pdf), SIN_PAGINA)
            self.assertFalse(self.pdf.exists())

    def test_pdfQueNoSePuedeEscribir_seDice(self):
        for imposible in ("/dev/full", self.casa / "no" / "a.pdf"):
            self.assertEqual(self.dibujar(self.pagina, imposible), SIN_PDF)

    def test_dibujadorEnEspera_dibujaLaQueRecibe(self):
        pedido = f"14800 21000 1000 1000 1000 1000\n{self.pagina}\n{self.pdf}\n"
        self.assertEqual(self.dibujar("--espera", entrada=pedido.encode()), HECHO)
        self.assertEqual(texto(self.pdf).strip(), "año")

    def test_dibujadorEnEspera_terminaConSuEntrada(self):
        self.assertEqual(self.dibujar("--espera"), HECHO)

    def test_sinSentido_seRechaza(self):
        for argumentos in ([], ["a.html"], ["a.html", "b.pdf", "c"], ["--papel", "A4", "a", "b"],
                           ["--papel", "0x0", "a", "b"], ["--margenes", "1,2,3", "a", "b"],
                           ["--otra", "1", "a", "b"]):
            self.assertEqual(self.dibujar(*argumentos), MAL_USO, argumentos)
        for pedido in ("a b c\nx\ny\n", "1 2 3\nx\ny\n"):
            self.assertEqual(self.dibujar("--espera", entrada=pedido.encode()), MAL_USO)

    @unittest.skipIf(b"__asan_init" in DIBUJADOR.read_bytes(),
                     "the address sanitizer's own tables are beyond the limit")
    def test_guionQueQuiereTodaLaMemoria_noLaRecibe(self):
        for clase, uno in (("typed array", "new Uint8Array(1 << 20).fill(1)"),
                           ("buffer", "new Uint32Array(new ArrayBuffer(1 << 20)).fill(1)"),
                           ("WebAssembly", "new Uint8Array(new WebAssembly.Memory({initial: 16,"
                                             "maximum: 16}).buffer).fill(1)")):
            with self.subTest(clase):
                pagina = self.archivo(
                    "m.html", "<p id=d>sin parar</p><script>const a = []; try {"
                    f"for (let i = 0; i < 1500; ++i) a.push({uno}); }} catch (e) {{ a.length = 0;"
                    "document.getElementById('d').innerText = 'parado'; }</script>")
                codigo = self.dibujar(pagina, self.pdf)
                if clase == "WebAssembly":
                    self.assertIn(codigo, (HECHO, MOTOR_CAIDO))  # the engine may not survive that
                else:
                    self.assertEqual(codigo, HECHO)
                if codigo == HECHO:
                    self.assertEqual(texto(self.pdf).strip(), "parado")

    def test_rutaConNulo_seRechaza(self):
        # No file can have such a name. The input stays open, as the worker leaves it: the answer
        # must not wait for its end.
        medidas = b"14800 21000 1000 1000 1000 1000"
        pagina, pdf = bytes(self.pagina), bytes(self.pdf)
        for lineas in ((medidas, pagina + b"\0", pdf), (medidas, b"\0" + pagina, pdf),
                       (medidas, pagina + b"\0.html", pdf), (medidas, b"\0", pdf),
                       (medidas, pagina, pdf + b"\0"), (medidas, b"", pdf), (medidas, pagina, b"")):
            with subprocess.Popen([DIBUJADOR, "--espera"], stdin=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL, env=self.entorno({})) as proceso:
                try:
                    proceso.stdin.write(b"\n".join(lineas) + b"\n")
                    proceso.stdin.flush()
                    self.assertEqual(proceso.wait(GUARDA), MAL_USO, lineas)
                finally:
                    proceso.kill()
            self.assertFalse(self.pdf.exists())


if __name__ == "__main__":
    unittest.main(verbosity=2)
