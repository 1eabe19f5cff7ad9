# SPDX-License-Identifier: MIT
"""A page is drawn as it would be while connected: what it fetches from its service is there."""

import http.server
import socket
import subprocess
import threading
import unittest
from pathlib import Path

from dibujador import ConDibujador
from impresion import GUARDA, ROJO, VERDE, png, puntos
from servicio_prueba import Servicio, responder

BIBLIOTECA = Path("/usr/share/javascript/jquery/jquery.min.js")


def enviada(final, estado=302):
    """A reply that sends the asker elsewhere."""
    return lambda a: responder(a, b"", estado=estado, Location=final)


class Origen(ConDibujador):
    def setUp(self):
        super().setUp()
        self.servicio = Servicio()
        self.addCleanup(self.servicio.parar)
        self.origen = self.servicio.origen
        self.paginas = self.servicio.paginas

    def test_guionEstiloEImagenDelServicio_estanEnElPapel(self):
        self.paginas.update({
            "/jscript/b.js": b"function $(id) { return document.getElementById(id); }",
            "/estilo.css": b"@import 'otro.css'; p { color: rgb(20,160,20) }",
            "/otro.css": b"#caja { width: 200px; height: 200px; background: url(sello.png) }",
            "/sello.png": png(50, 50, ROJO)})
        papel = self.papel(f"<link rel=stylesheet href='{self.origen}/estilo.css'>"
                           f"<script src='{self.origen}/jscript/b.js'></script>"
                           "<div id=caja></div><p id=campo></p>"
                           "<script>$('campo').innerHTML = 'Colegio';</script>")
        self.assertIn("Colegio", papel)
        self.assertGreater(puntos(self.pdf, ROJO), 500)

    def test_imagenesDeGuiones_seEsperan(self):
        # The second is asked for when the first has come; the reply to each takes its time.
        def tarde(cual):
            return lambda a: (self.servicio.esperar(cual), responder(a, png(100, 100, ROJO)))
        self.paginas.update({"/1.png": tarde("/ya"), "/2.png": tarde("/1.png")})
        self.papel("<div id=d></div><script>onload = () => setTimeout(() => {"
                   f"const una = new Image(); una.onload = () => una.src = '{self.origen}/2.png';"
                   f"una.src = '{self.origen}/1.png'; document.getElementById('d').append(una);"
                   f"fetch('{self.origen}/ya'); }}, 0);</script>")
        self.assertGreater(puntos(self.pdf, ROJO), 500)
        self.assertIn("/2.png", self.servicio.pedidos)

    def test_boletin_recibeLosCamposDelColegio(self):
        # The script at the end is what a stored report card ends with: it brings no library, and
        # its first file exists nowhere.
        self.paginas["/jscript/jquery.tools.min.js"] = BIBLIOTECA.read_bytes()
        papel = self.papel(
            f"<html><head><script src='{self.origen}/jscript/jquery.tools.min.js'></script><script>"
            "var micolegio = 'Colegio Peñón', slogan = 'Lema', cdane = '1234', direccion = 'Calle 5',"
            "telefono = '678';</script></head><body><p id=cfgMICOLEGIO></p><p id=cfgSLOGAN></p>"
            "<p id=cfgCDANE></p><p id=cfgDIRECCION></p><p id=cfgTELEFONO></p></body></html>"
            "<script language='javascript' src='../../configuracion.txt'></script>"
            "<script type='text/javascript'>$(document).ready(function() {    "
            "$('#cfgMICOLEGIO').html(micolegio); $('#cfgSLOGAN').html(slogan);"
            "$('#cfgCDANE').html(cdane);$('#cfgDIRECCION').html(direccion);"
            "$('#cfgTELEFONO').html(telefono); });</script>",
            "Quorvela/1-2010/archivos/boletines/P2/1234.html")
        self.assertEqual(" ".join(papel.split()), "Colegio Peñón Lema 1234 Calle 5 678")

    def test_loQueTraenGuionesYMarcos_estaEnElPapel(self):
        # As in any browser, a script reads only what the service lets pages read.
        self.paginas.update({"/datos": lambda a: responder(
            a, "peñón".encode("utf-8"), **{"Access-Control-Allow-Origin": "*"}),
            "/marco.html": b"<p>enmarcado</p>"})
        papel = self.papel(f"<p id=d></p><iframe src='{self.origen}/marco.html'></iframe><script>"
                           f"const x = new XMLHttpRequest(); x.open('GET', '{self.origen}/datos',"
                           "false); x.send(); document.getElementById('d').innerText ="
                           "x.responseText;</script>")
        self.assertIn("peñón", papel)
        self.assertIn("enmarcado", papel)

    def test_marcoDelServicioQuePideUnArchivo_seLeNiega(self):
        propio = self.archivo("Quorvela/1-2010/propio.html", "<p>guardado</p>")
        self.paginas["/marco.html"] = (
            f"<p>enmarcado</p><iframe src='{propio.as_uri()}'></iframe><script>"
            f"fetch('{propio.as_uri()}').then(r => r.text()).then(t => document.write(t));"
            f"</script>").encode()
        self.paginas["/lejos.html"] = enviada(propio.as_uri())
        papel = self.papel(f"<iframe src='{self.origen}/marco.html'></iframe>"
                           f"<iframe src='{self.origen}/lejos.html'></iframe>")
        self.assertIn("enmarcado", papel)
        self.assertNotIn("guardado", papel)

    def test_redireccionDentroDelServicio_seSigue(self):
        self.paginas.update({"/a.png": enviada("/b.png"), "/b.png": png(100, 100, ROJO)})
        self.papel(f"<p>papel</p><img src='{self.origen}/a.png'>")
        self.assertGreater(puntos(self.pdf, ROJO), 500)

    def test_redireccionAOtraParte_seNiega(self):
        otro = Servicio()
        self.addCleanup(otro.parar)
        otro.paginas["/b.png"] = png(100, 100, ROJO)
        lejos = {301: f"{otro.origen}/b.png", 302: f"//localhost:{otro.puerto}/b.png",
                 307: f"http://localhost:{self.servicio.puerto}/b.png",
                 308: f"https://127.0.0.1:{self.servicio.puerto}/b.png", 303: "file:///etc/passwd"}
        self.paginas["/b.png"] = png(100, 100, ROJO)
        for estado, final in lejos.items():
            with self.subTest(final):
                self.paginas["/a.png"] = enviada(final, estado)
                self.paginas["/a.html"] = enviada(final, estado)
                papel = self.papel(f"<p>papel</p><img src='{self.origen}/a.png'>"
                                   f"<iframe src='{self.origen}/a.html'></iframe>"
                                   f"<script>fetch('{self.origen}/a.html').then(r => r.text())"
                                   ".then(t => document.body.append(t));</script>")
                self.assertIn("papel", papel)
                self.assertNotIn("root:", papel)
                self.assertEqual(puntos(self.pdf, ROJO), 0)
                self.assertEqual(otro.pedidos, [])
                self.assertNotIn("/b.png", self.servicio.pedidos)

    def test_otroProtocoloServidorOPuerto_seNiega(self):
        otro = Servicio()
        self.addCleanup(otro.parar)
        self.paginas["/a.png"] = otro.paginas["/a.png"] = png(100, 100, ROJO)
        for casa in (otro.origen, f"http://localhost:{self.servicio.puerto}",
                     f"https://127.0.0.1:{self.servicio.puerto}",
                     f"http://127.0.0.2:{self.servicio.puerto}"):
            with self.subTest(casa):
                self.assertIn("papel", self.papel(f"<p>papel</p><img src='{casa}/a.png'>"))
        self.assertEqual(self.servicio.pedidos + otro.pedidos, [])

    def test_respuestaQuePideClaveOFalla_esImagenQueFalta(self):
        for estado in (401, 404, 407, 500):
            with self.subTest(estado):
                self.paginas["/a.png"] = lambda a, e=estado: responder(
                    a, b"no", estado=e, **{"WWW-Authenticate": "Basic realm=a"})
                self.assertIn("papel", self.papel(f"<p>papel</p><img src='{self.origen}/a.png'>"))

    def test_pagina_empiezaSinGalletas(self):
        cookies = []

        def anotar(a):
            cookies.append(a.headers.get("Cookie"))
            responder(a, png(100, 100, VERDE), **{"Set-Cookie": "sesion=1; Max-Age=9999"})
        self.paginas["/a.png"] = anotar
        for _ in range(2):
            self.papel(f"<p>papel</p><img src='{self.origen}/a.png'>")
            self.assertGreater(puntos(self.pdf, VERDE), 500)
        self.assertEqual(cookies, [None, None])

    def test_servicioTrasElProxyDelUsuario_seAlcanzaPorEl(self):
        pedidos = []

        class Proxy(http.server.BaseHTTPRequestHandler):
            def do_CONNECT(self):
                pedidos.append(self.path)
                self.send_response(200)
                self.end_headers()
                self.wfile.flush()
                with socket.create_connection(destino) as fin:
                    ida = threading.Thread(target=pasar, args=(self.connection, fin))
                    ida.start()
                    pasar(fin, self.connection)
                    ida.join()

            def log_message(self, *_):
                pass

        def pasar(de, a):
            while trozo := de.recv(4096):
                a.sendall(trozo)
            a.shutdown(socket.SHUT_WR)

        destino = ("127.0.0.1", self.servicio.puerto)
        proxy = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Proxy)
        proxy.daemon_threads = True
        proxy.block_on_close = False
        threading.Thread(target=proxy.serve_forever, daemon=True).start()
        self.addCleanup(proxy.server_close)
        self.addCleanup(proxy.shutdown)
        self.paginas["/a.png"] = png(100, 100, ROJO)
        self.origen = "http://servicio.invalid:81"
        pagina = (f"<p>papel</p><img src='{self.origen}/a.png'>"
                  "<img src='http://otro.invalid/a.png'>")
        casa = f"http://127.0.0.1:{proxy.server_address[1]}"
        self.papel(pagina, http_proxy=casa)
        self.assertGreater(puntos(self.pdf, ROJO), 500)
        self.assertEqual(set(pedidos), {"servicio.invalid:81"})
        pedidos.clear()
        self.papel(pagina, http_proxy=casa, no_proxy="servicio.invalid")
        self.assertEqual(pedidos, [])


def certificado(carpeta, nombre, firma=None):
    """Paths of a new certificate for 127.0.0.1 and its key, signed by itself or by `firma`."""
    llave, hoja = carpeta / f"{nombre}.key", carpeta / f"{nombre}.pem"
    orden = ["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256",
             "-nodes", "-days", "30", "-subj", f"/CN={nombre}", "-keyout", llave, "-out", hoja]
    if firma:
        orden += ["-CA", firma[0], "-CAkey", firma[1], "-addext", "subjectAltName=IP:127.0.0.1",
                  "-addext", "basicConstraints=critical,CA:FALSE"]
    subprocess.run(orden, check=True, timeout=GUARDA, capture_output=True)
    return hoja, llave


class Cifrado(ConDibujador):
    def setUp(self):
        super().setUp()
        self.autoridad = certificado(self.temporal, "autoridad")
        self.servicio = Servicio(identidad=certificado(self.temporal, "servicio", self.autoridad))
        self.addCleanup(self.servicio.parar)
        self.origen = self.servicio.origen
        self.servicio.paginas["/a.png"] = png(100, 100, ROJO)
        self.html = f"<p>papel</p><img src='{self.origen}/a.png'>"

    def confiar(self):
        """Makes the authority one that this user's browsers trust."""
        base = self.casa / ".pki/nssdb"
        base.mkdir(parents=True)
        for orden in (["-N", "--empty-password"],
                      ["-A", "-n", "autoridad", "-t", "C,,", "-i", self.autoridad[0]]):
            subprocess.run(["certutil", "-d", f"sql:{base}", *orden], check=True, timeout=GUARDA,
                           capture_output=True)

    def test_certificadoSinAval_seRechaza(self):
        antes = self.arbol()
        self.assertIn("papel", self.papel(self.html, "p.html", PARVANEL_RAIZ=str(self.casa)))
        self.assertEqual(puntos(self.pdf, ROJO), 0)
        self.assertEqual(self.servicio.pedidos, [])
        self.assertEqual(self.arbol(), sorted([*antes, str(self.casa / "p.html")]))

    def test_certificadoDeAutoridadConocida_vale(self):
        self.confiar()
        self.papel(self.html)
        self.assertGreater(puntos(self.pdf, ROJO), 500)


if __name__ == "__main__":
    unittest.main(verbosity=2)
