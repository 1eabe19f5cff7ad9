# SPDX-License-Identifier: MIT
"""One renderer draws documents one after another, and none of them finds anything of another."""

import os
import signal
import socket
import subprocess
import threading
import time
import unittest

from dibujador import HECHO, PLAZO, PLAZO_CORTO, ConDibujador
from impresion import DIBUJADOR, GUARDA, ConCups, texto
from servicio_prueba import Servicio, responder

A4 = "21000 29700 1000 1000 1000 1000"


class Serie(ConDibujador):
    def setUp(self):
        super().setUp()
        self.servicio = Servicio()
        self.addCleanup(self.servicio.parar)
        self.origen = self.servicio.origen

    def abrir(self, plazo=PLAZO):
        """A renderer with a socket for its standard input, as the worker starts it."""
        self.lado, suyo = socket.socketpair()
        self.addCleanup(self.lado.close)
        self.lado.settimeout(GUARDA)
        with suyo:
            self.proceso = subprocess.Popen(
                [DIBUJADOR, "--espera"], stdin=suyo, stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL, start_new_session=True,
                env=self.entorno(PARVANEL_PLAZO_DIBUJO=str(plazo)))
        self.addCleanup(self.cerrar)

    def cerrar(self):
        os.killpg(self.proceso.pid, signal.SIGKILL)
        self.proceso.wait()

    def pedir(self, html):
        """Orders a page; what is answered, empty when the renderer ends instead."""
        self.pdf.unlink(missing_ok=True)
        ruta = self.archivo("Quorvela/pagina.html", html)
        self.lado.sendall(f"{A4}\n{ruta}\n{self.pdf}\n".encode())
        return self.lado.recv(100)

    def assertDibuja(self, html, esperado):
        self.assertEqual(self.pedir(html), b"+")
        self.assertEqual(texto(self.pdf).strip(), esperado)

    def test_documentosSeguidos_unSoloMotorLosDibuja(self):
        self.abrir()
        for i in range(3):
            self.assertDibuja(f"<p>papel {i}</p>", f"papel {i}")
            self.assertIsNone(self.proceso.poll())
        self.lado.close()
        self.assertEqual(self.proceso.wait(GUARDA), HECHO)
        self.assertEqual([n for n in os.listdir(self.temporal) if n.startswith("parvanel")], [])

    def test_motorCansado_terminaConSuPaginaYEstaQuedaDibujada(self):
        self.abrir()
        for _ in range(63):
            self.assertDibuja("<p>papel</p>", "papel")
        self.assertEqual(self.pedir("<p>papel</p>"), b"")
        self.assertEqual(self.proceso.wait(GUARDA), HECHO)
        self.assertEqual(texto(self.pdf).strip(), "papel")

    def test_loQueGuardaUnDocumento_noLoHallaElSiguiente(self):
        cabezas = []

        def foto(atencion):
            cabezas.append(dict(atencion.headers))
            responder(atencion, b"", **{"Set-Cookie": "a=b; Max-Age=9999",
                                        "Cache-Control": "max-age=9999"})
        self.servicio.paginas["/foto.png"] = foto
        # A page in a frame is the service's own, and may keep what a file may not.
        self.servicio.paginas["/marco.html"] = (
            b"<script>let visto = 'nada'; try { visto = localStorage.a || document.cookie || 'nada';"
            b"localStorage.a = 'algo'; } catch (e) {} document.write('<p>' + visto + '</p>');"
            b"document.cookie = 'c=d; max-age=9999'; </script>")
        pagina = (f"<img src='{self.origen}/foto.png'><iframe src='{self.origen}/marco.html'></iframe>"
                  "<script>document.write('<p>nombre ' + window.name + history.length + '</p>');"
                  "window.name = 'guardado';</script>")
        self.abrir()
        papeles = []
        for _ in range(2):
            self.assertEqual(self.pedir(pagina), b"+")
            papeles.append(texto(self.pdf))
        self.assertEqual(papeles[0], papeles[1])
        self.assertEqual([("Cookie" in c or "If-None-Match" in c) for c in cabezas], [False, False])

    def test_documentoImpreso_nadaDiceAlIrseYSuProcesoTermina(self):
        adios = ("for (const s of ['pagehide', 'unload', 'beforeunload', 'visibilitychange'])"
                 " addEventListener(s, () => {{ navigator.sendBeacon('{0}/adios');"
                 " fetch('{0}/adios', {{keepalive: true}}); new Image().src = '{0}/adios'; }});"
                 ).format(self.origen)
        self.servicio.paginas["/marco.html"] = f"<script>{adios}</script>".encode()
        self.abrir()
        self.assertDibuja(f"<p>uno</p><iframe src='{self.origen}/marco.html'></iframe>"
                          f"<script>{adios} setInterval(() => fetch('{self.origen}/vivo'), 1);"
                          "</script>", "uno")
        for i in range(3):
            self.assertDibuja(f"<p>dos</p><img src='{self.origen}/img{i}.png'>", "dos")
        self.assertIn("/vivo", self.servicio.pedidos)
        self.assertNotIn("/adios", self.servicio.pedidos)
        # Nothing of the first page runs any more.
        despues = self.servicio.pedidos[self.servicio.pedidos.index("/img0.png"):]
        self.assertNotIn("/vivo", despues)

    def test_procesosDelMotor_noSonMasConCadaDocumento(self):
        self.abrir()
        self.assertDibuja("<p>papel</p>", "papel")
        # The next page's process may be there already, or not yet.
        cuantos = len(self.pidsVivos()) + 1
        for _ in range(5):
            self.assertDibuja("<p>papel</p>", "papel")
        tope = time.monotonic() + GUARDA
        while len(self.pidsVivos()) > cuantos:
            self.assertLess(time.monotonic(), tope, "processes of earlier pages live on")
            time.sleep(0.02)

    def test_motor_ningunProcesoSeGuardaParaIrSinEncierro(self):
        self.abrir()
        self.assertDibuja("<p>papel</p>", "papel")
        ordenes = self.procesosVivos()
        self.assertTrue([o for o in ordenes if b"--type=zygote" in o])
        self.assertEqual([o for o in ordenes if b"--no-zygote-sandbox" in o], [])

    def test_paginaQueAgotaSuTiempo_seLlevaSuMotor(self):
        self.servicio.paginas["/nunca.png"] = lambda a: self.fin.wait(GUARDA)
        self.fin = threading.Event()
        self.addCleanup(self.fin.set)
        self.abrir(PLAZO_CORTO)
        self.assertEqual(self.pedir(f"<p>papel</p><img src='{self.origen}/nunca.png'>"), b"")
        self.assertEqual(self.proceso.wait(GUARDA), HECHO)
        self.assertEqual(texto(self.pdf).strip(), "papel")

    def test_documentoQueFalta_esElUltimoDeSuMotor(self):
        self.abrir()
        self.lado.sendall(f"{A4}\n{self.raiz}/falta.html\n{self.pdf}\n".encode())
        self.assertEqual(self.lado.recv(1), b"")
        self.assertEqual(self.proceso.wait(GUARDA), 3)


class Lote(ConCups):
    def test_lote_seDibujaConUnMotor(self):
        # A renderer that notes its start and then is the real one.
        self.conDibujador(f"#!/bin/sh\necho x >> '{self.casa}/arranques'\n"
                          f"exec '{DIBUJADOR}' \"$@\"\n")
        rutas = [self.archivo(f"{i}.html", f"<p>{i}</p>") for i in range(12)]
        self.assertImpresos(self.imprimir(self.cups.entorno(), rutas), rutas)
        # One more for each page that a busy machine takes long over.
        arranques = (self.casa / "arranques").read_text(encoding="ascii").count("x")
        self.assertLessEqual(arranques, 6)

    def test_paginaLenta_noDetieneElDibujoDeLasOtras(self):
        # The first page waits for the second one to be drawn.
        self.conDibujador("#!/bin/sh\nIFS= read -r papel; IFS= read -r html; IFS= read -r pdf\n"
                          f"case $html in */lenta.html) until [ -e '{self.casa}/otra' ]; do"
                          f" sleep 0.1; done;; *) touch '{self.casa}/otra';; esac\n"
                          "printf '%%PDF-1.4\\n' > \"$pdf\"\n")
        rutas = [self.archivo(n, "") for n in ("lenta.html", "otra.html")]
        self.assertImpresos(self.imprimir(self.cups.entorno(), rutas, "--plazo-dibujo", "3600"),
                            rutas)


if __name__ == "__main__":
    unittest.main(verbosity=2)
