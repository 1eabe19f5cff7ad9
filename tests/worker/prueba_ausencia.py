# SPDX-License-Identifier: MIT
"""A print server that goes away, and what becomes of the documents."""

import os
import socket
import threading
import time
import unittest

from cups_privado import CupsPrivado
from impresion import GUARDA, Prueba

ESPERA = "; se espera hasta {} s a que vuelva"
NO_ATIENDE = "el servidor de impresión no atiende"

# The start of a request in the printing protocol: its version and what it asks for.
ENVIAR_DOCUMENTO = b"\x02\x00\x00\x06"


class Cortado:
    """A way to a print server that breaks off: once, at the document or at the answer to it; or,
    for some time, at each request, from the first on or from when a document has been taken."""

    VECES = {"documento": 1, "respuesta": 1, "principio": 9, "medio": 9}

    def __init__(self, carpeta, cups, donde):
        self.ruta = carpeta / "cortado.sock"
        self.cortes = 0
        self._tomado = False
        self._cups = cups
        self._donde = donde
        self._oyente = socket.socket(socket.AF_UNIX)
        self._oyente.bind(os.path.relpath(self.ruta))
        self._oyente.listen()
        threading.Thread(target=self._atender, daemon=True).start()

    def cerrar(self):
        self._oyente.close()

    def _atender(self):
        while True:
            try:
                cliente, _ = self._oyente.accept()
            except OSError:
                return
            servidor = socket.socket(socket.AF_UNIX)
            servidor.connect(str(self._cups.zocalo))
            enviado = threading.Event()
            for de, a in ((cliente, servidor), (servidor, cliente)):
                threading.Thread(target=self._pasar, args=(de, a, de is cliente, enviado),
                                 daemon=True).start()

    def _pasar(self, de, a, es_pedido, enviado):
        try:
            while datos := de.recv(65536):
                if self.cortes < self.VECES[self._donde] and self._corta(datos, es_pedido, enviado):
                    self.cortes += 1
                    break
                if es_pedido and ENVIAR_DOCUMENTO in datos:
                    enviado.set()
                a.sendall(datos)
                self._tomado = self._tomado or (enviado.is_set() and not es_pedido
                                                and datos.startswith(b"HTTP/1.1 200"))
        except OSError:
            pass
        self._cerrar(de, a)

    def _corta(self, datos, es_pedido, enviado):
        if self._donde == "documento":
            return es_pedido and ENVIAR_DOCUMENTO in datos
        if self._donde == "respuesta":
            return not es_pedido and enviado.is_set() and datos.startswith(b"HTTP/1.1 200")
        return es_pedido and (self._donde == "principio" or self._tomado)

    @staticmethod
    def _cerrar(de, a):
        for zocalo in (de, a):
            try:
                zocalo.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass


class Ausencia(Prueba):
    def setUp(self):
        super().setUp()
        self.cups = CupsPrivado()
        self.cups.iniciar()
        self.addCleanup(self.cups.parar)
        self.cups.agregar_cola("lote")
        self.cups.poner_predeterminada("lote")

    def paginas(self, cuantas):
        return [self.archivo(f"{i:02d}.html", f"<p>documento {i}</p>") for i in range(cuantas)]

    def esperarQue(self, condicion, falla):
        tope = time.monotonic() + GUARDA
        while not condicion():
            self.assertLess(time.monotonic(), tope, falla)
            time.sleep(0.02)

    def titulosImpresos(self, cuantos):
        """The titles of the jobs in the order of printing.

        A server that is stopped over a job prints that job again: it is still one job.
        """
        def trabajos():
            return dict.fromkeys((c.trabajo, c.titulo) for c in self.cups.capturados())
        self.esperarQue(lambda: len(trabajos()) >= cuantos, "documents are missing")
        return [titulo for _, titulo in trabajos()]

    def assertTodosUnaVez(self, rutas):
        """In the log and out of the printer, each once and in order; gives the waiting lines."""
        esperas = [a for a in self.anotado() if "; se espera" in a[1]]
        self.assertImpresos([a for a in self.anotado() if a not in esperas], rutas)
        self.assertEqual(self.titulosImpresos(len(rutas)), [r.name for r in rutas])
        return esperas

    def empezar(self, rutas, *opciones):
        proceso = self.trabajador(self.cups.entorno(), *opciones)
        self.addCleanup(proceso.wait)
        self.addCleanup(proceso.kill)
        self.darle(proceso, rutas)
        return proceso

    def darle(self, proceso, rutas):
        proceso.stdin.write("".join(f"{r}\n" for r in rutas).encode())
        proceso.stdin.flush()

    def test_servidorReiniciadoEnMedioDelLote_nadaSePierdeNiSeRepite(self):
        rutas = self.paginas(25)
        proceso = self.empezar(rutas)
        self.cups.esperar_capturados(3)
        self.cups.detener()
        self.cups.volver()
        proceso.stdin.close()
        self.assertEqual(proceso.wait(GUARDA), 0)
        self.assertTodosUnaVez(rutas)

    def test_servidorAusente_seEsperaYSeAnotaUnaVez(self):
        rutas = self.paginas(12)
        proceso = self.empezar(rutas[:4])
        self.cups.esperar_capturados(4)
        self.cups.detener()
        self.darle(proceso, rutas[4:])
        proceso.stdin.close()
        self.esperarQue(lambda: any("; se espera" in a[1] for a in self.anotado()),
                        "nothing says that it waits")
        self.cups.volver()
        self.assertEqual(proceso.wait(GUARDA), 0)
        esperas = self.assertTodosUnaVez(rutas)
        self.assertEqual(esperas, [(str(rutas[4]), NO_ATIENDE + ESPERA.format(300))])

    def test_servidorAusenteAntesDelPrimero_seEspera(self):
        self.cups.detener()
        rutas = self.paginas(3)
        proceso = self.empezar(rutas)
        self.esperarQue(self.anotado, "nothing says that it waits")
        self.cups.volver()
        proceso.stdin.close()
        self.assertEqual(proceso.wait(GUARDA), 0)
        self.assertTodosUnaVez(rutas)

    def test_conversacionCortada_nadaSePierdeNiSeRepite(self):
        for donde, cortes in Cortado.VECES.items():
            with self.subTest(donde):
                self.registro.unlink(missing_ok=True)
                antes = len(self.cups.capturados())
                casa = os.getcwd()
                os.chdir(self.casa)  # the path of a socket may have 107 characters and no more
                self.addCleanup(os.chdir, casa)
                camino = Cortado(self.casa, self.cups, donde)
                rutas = self.paginas(3)
                self.imprimir({**self.cups.entorno(), "CUPS_SERVER": str(camino.ruta)}, rutas)
                camino.cerrar()
                camino.ruta.unlink()
                self.assertEqual(camino.cortes, cortes)
                self.assertImpresos([a for a in self.anotado() if "; se espera" not in a[1]], rutas)
                # A further one, so that a fourth job of the three would have come before it.
                self.imprimir(self.cups.entorno(), [self.archivo("fin.html", "<p>fin</p>")])
                salidos = self.cups.esperar_capturados(antes + 4)[antes:]
                self.assertEqual([s.titulo for s in salidos],
                                 [r.name for r in rutas] + ["fin.html"])

    def test_servidorQueNoVuelve_elLoteFallaTrasUnaEspera(self):
        # Forty waits one after the other would outlast the guard.
        rutas = self.paginas(40)
        nadie = {"CUPS_SERVER": str(self.casa / "no.sock")}
        anotado = self.imprimir(nadie, rutas, "--plazo-ausencia", "3")
        self.assertEqual(anotado, [(str(rutas[0]), NO_ATIENDE + ESPERA.format(3))]
                         + [(str(r), NO_ATIENDE) for r in rutas])

    def test_colaQueYaNoEsta_esRespuestaYNoAusencia(self):
        # The second page keeps the batch going, and its printer with it, until the queue is gone.
        self.conPercance(f"case $html in */01.html) while [ ! -e '{self.casa}/sigue' ];"
                         "do sleep 0.05; done;; esac")
        rutas = self.paginas(3)
        proceso = self.empezar(rutas, "--plazo-dibujo", "3600")
        self.cups.esperar_capturados(1)
        self.cups.quitar_cola("lote")
        (self.casa / "sigue").touch()
        proceso.stdin.close()
        self.assertEqual(proceso.wait(GUARDA), 0)
        self.assertImpresos(self.anotado()[:1], rutas[:1])
        self.assertEqual(self.anotado()[1:],
                         [(str(r), "la impresora lote ya no está") for r in rutas[1:]])

    def test_colaQueNadaRecibe_esRespuestaYNoAusencia(self):
        self.cups.rechazar("lote")
        rutas = self.paginas(2)
        anotado = self.imprimir(self.cups.entorno(), rutas)
        self.assertEqual([a[0] for a in anotado], [str(r) for r in rutas])
        for _, motivo in anotado:
            self.assertIn("la impresora no lo aceptó: ", motivo)


if __name__ == "__main__":
    unittest.main(verbosity=2)
