"""Nothing that goes wrong loses the documents around it."""

import os
import shutil
import signal
import socket
import subprocess
import unittest

from impresion import GUARDA, TRABAJADOR, ConCups


class Fallas(ConCups):
    def test_bad_documents_in_a_batch_do_not_hold_up_the_others(self):
        paginas = {
            "1.html": "<p>uno</p>",
            "bucle.html": "<p>nunca</p><script>while(true){}</script>",
            "2.html": "<p>dos</p>",
            "memoria.html": "<script>var a=[];while(true)a.push(new Array(9999).fill({}))</script>",
            "3.html": "<p>tres</p>",
        }
        rutas = [self.archivo(n, p) for n, p in paginas.items()]
        rutas[3:3] = [self.casa / "falta.html", self.casa, "relativa.html",
                      "/" + "x" * 5000]
        anotado = self.imprimir(self.cups.entorno(), rutas, "--plazo-dibujo", "6")
        self.assertEqual([a[0][:200] for a in anotado], [str(r)[:200] for r in rutas])
        uno, bucle, dos, falta, carpeta, relativa, larga, memoria, tres = (a[1] for a in anotado)
        self.assertEqual(bucle, "la página no terminó de dibujarse en 6 s")
        self.assertEqual(falta, "el archivo no existe")
        self.assertEqual(carpeta, "no es un archivo")
        self.assertEqual(relativa, "la ruta no es absoluta")
        self.assertEqual(larga, "la ruta es demasiado larga")
        self.assertEqual(memoria, "la página agotó el motor de dibujo")
        for impreso in (uno, dos, tres):
            self.assertRegex(impreso, r"^trabajo \d+ en lote$")
        self.assertEqual([s.titulo for s in self.salidos(3)], ["1.html", "2.html", "3.html"])

    def test_more_endless_pages_than_renderers_still_end(self):
        rutas = [self.archivo(f"bucle{i}.html", "<script>while(true){}</script>") for i in range(3)]
        rutas.append(self.archivo("bien.html", "<p>bien</p>"))
        anotado = self.imprimir(self.cups.entorno(), rutas, "--plazo-dibujo", "2")
        self.assertEqual([a[0] for a in anotado], [str(r) for r in rutas])
        self.assertRegex(anotado[-1][1], r"^trabajo \d+ en lote$")

    def test_server_down_is_logged_for_each_document(self):
        ruta = self.archivo("a.html", "<p>a</p>")
        anotado = self.imprimir({"CUPS_SERVER": str(self.casa / "no.sock")}, [ruta] * 3)
        self.assertEqual([a[0] for a in anotado], [str(ruta)] * 3)
        for _, motivo in anotado:
            self.assertEqual(motivo, "el servidor de impresión no atiende")

    def test_server_that_accepts_and_never_answers_is_given_up(self):
        rutas = [self.archivo(f"{i}.html", "<p>a</p>") for i in range(2)]
        with socket.create_server(("127.0.0.1", 0)) as mudo:
            cups = {"CUPS_SERVER": f"127.0.0.1:{mudo.getsockname()[1]}"}
            anotado = self.imprimir(cups, rutas, "--plazo-servidor", "1")
        self.assertEqual(anotado, [(str(r), "el servidor de impresión no contestó en 1 s")
                                   for r in rutas])

    def test_writer_is_never_held_up(self):
        # Far more than a pipe holds, while the print server keeps the worker waiting.
        ruta = self.archivo("a.html", "<p>a</p>")
        with socket.create_server(("127.0.0.1", 0)) as mudo:
            proceso = self.trabajador({"CUPS_SERVER": f"127.0.0.1:{mudo.getsockname()[1]}"})
            self.addCleanup(proceso.kill)
            with proceso.stdin as entrada:
                for _ in range(20):
                    entrada.write(f"{ruta}\n".encode() * 1000)
                    entrada.flush()
            self.assertIsNone(proceso.poll())
            proceso.send_signal(signal.SIGTERM)
            self.assertEqual(proceso.wait(GUARDA), 1)

    def test_missing_renderer_is_logged(self):
        copia = self.casa / "bin" / "parvanel-print"
        copia.parent.mkdir()
        shutil.copy2(TRABAJADOR, copia)
        (copia.parent / "parvanel-print-render").write_text("#!/nada/que/exista\n")
        (copia.parent / "parvanel-print-render").chmod(0o755)
        ruta = self.archivo("a.html", "<p>a</p>")
        proceso = subprocess.run([copia], input=f"{ruta}\n{ruta}\n".encode(), timeout=GUARDA,
                                 env=self.entorno(self.cups.entorno()))
        self.assertEqual(proceso.returncode, 0)
        self.assertEqual(self.anotado(), [(str(ruta), "no se pudo arrancar el dibujante")] * 2)

    def test_renderer_that_dies_at_its_start_is_logged(self):
        copia = self.casa / "bin" / "parvanel-print"
        copia.parent.mkdir()
        shutil.copy2(TRABAJADOR, copia)
        (copia.parent / "parvanel-print-render").write_text("#!/bin/sh\nexit 127\n")
        (copia.parent / "parvanel-print-render").chmod(0o755)
        ruta = self.archivo("a.html", "<p>a</p>")
        proceso = subprocess.run([copia], input=f"{ruta}\n".encode() * 5, timeout=GUARDA,
                                 env=self.entorno(self.cups.entorno()))
        self.assertEqual(proceso.returncode, 0)
        self.assertEqual(len(self.anotado()), 5)
        for _, motivo in self.anotado():
            self.assertEqual(motivo, "el dibujante terminó con el código 127")

    def test_log_stays_within_its_bound(self):
        rutas = [self.casa / f"falta{'a' * 150}{i}.html" for i in range(4000)]
        self.imprimir(self.cups.entorno(), rutas)
        carpeta = self.registro.parent
        self.assertEqual(sorted(os.listdir(carpeta)), ["print.log", "print.log.1"])
        for nombre in os.listdir(carpeta):
            self.assertLessEqual((carpeta / nombre).stat().st_size, 256 * 1024)
        self.assertEqual(self.anotado()[-1], (str(rutas[-1]), "el archivo no existe"))


if __name__ == "__main__":
    unittest.main()
