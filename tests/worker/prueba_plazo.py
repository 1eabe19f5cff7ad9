# SPDX-License-Identifier: MIT
"""A service that is down, silent or endless costs a page part of its time and never the page."""

import itertools
import socket
import unittest
from concurrent.futures import ThreadPoolExecutor

from dibujador import PLAZO_CORTO, ConDibujador
from impresion import GUARDA, ROJO, VERDE, png, puntos
from servicio_prueba import Servicio

# What a page may wait for, each in its own way. {u} is the address that never comes.
ESPERAS = {
    "guion": "<script src='{u}'></script>",
    "guion-modulo": "<script type=module src='{u}'></script>",
    "guion-escrito": "<script>document.write(\"<script src='{u}'><\\/script>\");</script>",
    "estilo": "<link rel=stylesheet href='{u}'><script>1;</script>",
    "estilo-importado": "<style>@import '{u}';</style>",
    "imagen": "<img src='{u}'>",
    "imagen-perezosa": "<img loading=lazy src='{u}'>",
    "imagen-de-fondo": "<div style='background:url({u})'>.</div>",
    "letra": "<style>@font-face {{ font-family: a; src: url({u}) }}</style>"
             "<p style='font-family:a'>letra</p>",
    "marco": "<iframe src='{u}'></iframe>",
    "objeto": "<object data='{u}'></object>",
    "xhr-sincrono": "<script>for (let i = 0; i < 3; ++i) try {{ const x = new XMLHttpRequest();"
                    "x.open('GET', '{u}', false); x.send(); }} catch (e) {{ }}</script>",
    "insistente": "<script>(function otra() {{ const i = new Image();"
                  "i.onerror = () => setTimeout(otra, 1); i.src = '{u}?' + Math.random();"
                  "document.body.append(i); }})();</script>",
    "video": "<video src='{u}'></video>",
}


def callar(atencion):
    """Takes the request and never answers."""
    atencion.connection.settimeout(None)
    while atencion.connection.recv(4096):
        pass
    atencion.close_connection = True


def gotear(tipo, comienzo, gota):
    """Answers without end."""
    def sinFin(atencion):
        atencion.send_response(200)
        atencion.send_header("Content-Type", tipo)
        atencion.end_headers()
        try:
            atencion.wfile.write(comienzo)
            while True:
                atencion.wfile.write(gota)
                atencion.wfile.flush()
                atencion.server.pausa.wait(0.05)
        except OSError:
            atencion.close_connection = True
    return sinFin



class Plazo(ConDibujador):
    def servido(self, respuesta):
        servicio = Servicio()
        self.addCleanup(servicio.parar)
        servicio.paginas["/nunca"] = respuesta
        return servicio

    def impresa(self, espera, origen, plazo=PLAZO_CORTO):
        """Prints a page that waits, and gives what is to be read of it and its PDF."""
        numero = next(self.numeros)
        pdf = self.temporal / f"{numero}.pdf"
        pagina = (f"<p>antes</p>{espera.format(u=origen + '/nunca')}<p>despues</p><p id=d></p>"
                  "<script>document.getElementById('d').innerText = 'escrito';</script>")
        papel = self.papel(pagina, f"Quorvela/{numero}.html", pdf, PARVANEL_ORIGEN=origen,
                           PARVANEL_PLAZO_DIBUJO=str(plazo))
        return papel, pdf

    def setUp(self):
        super().setUp()
        self.numeros = itertools.count()

    def comprobar(self, papel):
        """The page is printed whole: what stands before the wait, and what follows it."""
        for dicho in ("antes", "despues", "escrito"):
            self.assertIn(dicho, papel)

    def aLaVez(self, casos, plazo=PLAZO_CORTO):
        """Checks each case, its name to what waits and the service, side by side: a page that
        waits costs nothing. No more than four are on the way to their wait."""
        enCamino = []
        with ThreadPoolExecutor(len(casos)) as varios:
            hechos = {}
            for como, (espera, servicio) in casos.items():
                if len(enCamino) == 4:
                    enCamino.pop(0).esperar("/nunca")
                hechos[como] = varios.submit(self.impresa, espera, servicio.origen, plazo)
                enCamino.append(servicio)
        for como, hecho in hechos.items():
            with self.subTest(como):
                self.comprobar(hecho.result()[0])
                self.assertIn("/nunca", casos[como][1].pedidos)

    def test_servicioMudo_laPaginaSeImprime(self):
        self.aLaVez({como: (espera, self.servido(callar)) for como, espera in ESPERAS.items()})

    def test_respuestaSinFin_laPaginaSeImprime(self):
        respuestas = {"imagen": gotear("image/png", png(100, 100, ROJO)[:-12], b"\0"),
                      "guion": gotear("text/javascript", b"var a = 1;", b"a = 2;\n"),
                      "estilo": gotear("text/css", b"p { margin: 0 }", b"p { margin: 1px }\n"),
                      "marco": gotear("text/html", b"<p>marco</p>", b"<p>x</p>"),
                      "xhr-sincrono": gotear("text/plain", b"a", b"a")}
        self.aLaVez({como: (ESPERAS[como], self.servido(r)) for como, r in respuestas.items()})

    def test_servicioCaido_nadaCuesta(self):
        with socket.socket() as nadie:
            nadie.bind(("127.0.0.1", 0))  # taken, and not listened at
            origen = f"http://127.0.0.1:{nadie.getsockname()[1]}"
            with ThreadPoolExecutor(2) as varios:
                # A page that waited would wait for longer than the guard.
                hechos = {como: varios.submit(self.impresa, espera, origen, 10 * GUARDA)
                          for como, espera in ESPERAS.items() if como != "insistente"}
        for como, hecho in hechos.items():
            with self.subTest(como):
                self.comprobar(hecho.result()[0])

    def test_servicioQueNoAtiende_seAbandona(self):
        with socket.create_server(("127.0.0.1", 0), backlog=0) as lleno:
            # The queue is full: whoever calls now waits for an answer to the first word.
            for una in [socket.socket() for _ in range(4)]:
                self.addCleanup(una.close)
                una.setblocking(False)
                una.connect_ex(lleno.getsockname())
            casa = f"http://127.0.0.1:{lleno.getsockname()[1]}"
            self.comprobar(self.impresa(ESPERAS["guion"], casa)[0])

    def test_loQueLlegoATiempo_seImprime(self):
        servicio = self.servido(callar)
        servicio.paginas["/sello.png"] = png(100, 100, VERDE)
        papel, pdf = self.impresa(f"<img src='{servicio.origen}/sello.png'>" + ESPERAS["guion"],
                                  servicio.origen)
        self.comprobar(papel)
        self.assertGreater(puntos(pdf, VERDE), 500)


if __name__ == "__main__":
    unittest.main(verbosity=2)
