# SPDX-License-Identifier: MIT
"""What a page can carry away: nothing reaches the wire but requests to the service."""

import socket
import unittest
from concurrent.futures import ThreadPoolExecutor

import red_privada
from dibujador import ConDibujador
from fugas import DOCUMENTOS, ELEMENTOS, GUIONES, PUERTOS, UTILES, hecha
from red_privada import AJENA, Nombres, Rastro, nombrePreguntado
from servicio_prueba import Servicio, responder

IMPEDIMENTO = None


def setUpModule():
    if IMPEDIMENTO:
        raise unittest.SkipTest(IMPEDIMENTO)
    red_privada.preparar()
    Fugas.nombres = Nombres()
    Fugas.rastro = Rastro()


def intento(nombre):
    """A script's own attempt, whose end is noted whatever it is."""
    orden = hecha(nombre, GUIONES[nombre], AJENA)
    orden = orden if orden.startswith("{") else f"return {orden}"
    return f"intentos.push((async () => {{ try {{ await (async () => {{ {orden} }})() }} catch (e) {{}}" \
           " dichos += 1; })());"


def todoALaVez():
    """A page with every way out, which stays open until each had its time."""
    elementos = "".join(f"<div>{hecha(n, m, AJENA)}</div>" for n, m in ELEMENTOS.items())
    intentos = "\n".join(intento(n) for n in GUIONES)
    # Some attempts never end. The pauses only give them more time to be noticed in: no test fails
    # for a pause being too short or too long.
    return (f"<p>papel</p><img src='ESPERA'>{elementos}<p id=cuenta></p><script>{UTILES}"
            f"const intentos = []; let dichos = 0;\n{intentos}\n"
            "Promise.race([Promise.all(intentos), pausa(4000)]).then(() => pausa(2000)).then(() => {"
            "document.getElementById('cuenta').innerText = 'intentos ' + intentos.length;"
            "new Image().src = 'FIN'; });</script>")


class Fugas(ConDibujador):
    nombres = rastro = None

    def setUp(self):
        super().setUp()
        self.servicio = Servicio()
        self.addCleanup(self.servicio.parar)
        self.origen = self.servicio.origen
        self.rastro.tomar()

    def culpas(self):
        """Who called whom since the last look, leaving out the service and the way to it."""
        paquetes = self.rastro.tomar()
        deCasa = {p.destino[1] for p in paquetes
                  if p.destino[0] == "127.0.0.1" and p.datos == b"\5\1\0"} | {self.servicio.puerto}
        vias = {puerto: nombre for nombre, puerto in PUERTOS.items()}
        culpas = set()
        for p in paquetes:
            local = p.destino[0] == p.origen[0] == "127.0.0.1"
            if local and p.clase == "tcp" and deCasa & {p.destino[1], p.origen[1]}:
                continue
            preguntado = nombrePreguntado(p.datos) if p.clase == "udp" and p.destino[1] in (53, 5353) \
                else ""
            culpas.add((p.clase, vias.get(p.destino[1]) or preguntado or repr(p)))
        return culpas

    def test_registro_veTodaClaseDeLlamada(self):
        socket.getaddrinfo("a.fuga.example", 80, type=socket.SOCK_STREAM)
        for destino in ((AJENA, PUERTOS["imagen"]), ("127.0.0.1", PUERTOS["guion"])):
            with socket.socket() as uno:
                self.assertNotEqual(uno.connect_ex(destino), 0)
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as uno:
            uno.sendto(b"x", (AJENA, PUERTOS["webtransport"]))
            uno.sendto(b"\0" * 12 + b"\1b\5local\0\0\1\0\1", ("224.0.0.251", 5353))
        self.assertLessEqual({("udp", "a.fuga.example"), ("tcp", "imagen"), ("tcp", "guion"),
                              ("udp", "webtransport"), ("udp", "b.local")}, self.culpas())

    def test_pagina_llegaAlServicioYANadieMas(self):
        servicio = self.servicio
        servicio.paginas["/espera.png"] = lambda a: (servicio.esperar("/fin.png"),
                                                     responder(a, b""))
        pagina = todoALaVez().replace("ESPERA", f"{self.origen}/espera.png") \
                             .replace("FIN", f"{self.origen}/fin.png")
        papel = self.papel(pagina)
        self.assertIn(f"intentos {len(GUIONES)}", papel)
        self.assertIn("/fin.png", servicio.pedidos)
        self.assertEqual(self.culpas(), set())

    def test_paginaQueSeVolveriaOtra_aNadieLlega(self):
        def papelDe(nombre):
            return self.papel("<p>papel</p>" + hecha(nombre, DOCUMENTOS[nombre], AJENA),
                              f"Quorvela/1-2010/{nombre}.html", self.temporal / f"{nombre}.pdf")
        # Side by side, for each is waited for in vain; who is called by one has its name.
        with ThreadPoolExecutor(len(DOCUMENTOS)) as varios:
            papeles = dict(zip(DOCUMENTOS, varios.map(papelDe, DOCUMENTOS)))
        for nombre, papel in papeles.items():
            with self.subTest(nombre):
                self.assertIn("papel", papel)
        self.assertEqual(self.culpas(), set())

    def test_sinOrigen_niAlServicioSeLlega(self):
        for origen in (None, "", "servicio", f"{self.origen}/ruta", f"ftp{self.origen[4:]}",
                       self.origen.replace("//", "//u:c@"), f"{self.origen}?a", f"{self.origen} "):
            with self.subTest(origen):
                papel = self.papel(f"<p>papel</p><img src='{self.origen}/a.png'>"
                                   f"<script src='{self.origen}/a.js'></script>",
                                   PARVANEL_ORIGEN=origen)
                self.assertIn("papel", papel)
                self.assertEqual(self.servicio.pedidos, [])

    def test_servicioPorNombre_eseNombreSeBuscaYNingunOtro(self):
        with socket.create_server((AJENA, 0)) as oyente:
            puerto = oyente.getsockname()[1]
            self.servicio.puerto = puerto
            self.papel(f"<p>papel</p><img src='http://otro.example:{puerto}/'>"
                       f"<img src='http://servicio.example:{puerto}/'>",
                       PARVANEL_ORIGEN=f"http://servicio.example:{puerto}",
                       PARVANEL_PLAZO_DIBUJO="8")
            with self.subTest("the service is called"):
                oyente.settimeout(0)
                oyente.accept()[0].close()
        nombres = {quien for clase, quien in self.culpas() if clase == "udp" and ".example" in quien}
        self.assertEqual({n for n in nombres if "->" not in n}, {"servicio.example"})

    def test_variablesDelEntorno_noAbrenCamino(self):
        llaves = self.temporal / "llaves"
        guardado = self.temporal / "red.json"
        papel = self.papel(
            f"<p>papel</p><img src='http://{AJENA}:{PUERTOS['imagen']}/'>",
            SSLKEYLOGFILE=str(llaves), QTWEBENGINE_REMOTE_DEBUGGING="127.0.0.1:9229",
            QTWEBENGINE_CHROMIUM_FLAGS=f"--no-proxy-server --log-net-log={guardado}",
            QTWEBENGINEPROCESS_PATH="/bin/false", auto_proxy=f"http://{AJENA}/proxy.pac",
            all_proxy=f"socks5://{AJENA}:{PUERTOS['marco']}",
            http_proxy=f"http://{AJENA}:{PUERTOS['marco']}")
        self.assertIn("papel", papel)
        self.assertFalse(llaves.exists())
        self.assertFalse(guardado.exists())
        self.assertEqual(self.culpas(), set())

    def test_dibujar_nadaDejaEnLaCasa(self):
        pagina = self.archivo("Quorvela/1-2010/p.html",
                              f"<img src='{self.origen}/a.png'><script>document.cookie = 'a=b';"
                              "try { localStorage.a = 1; indexedDB.open('a'); } catch (e) {}"
                              "const a = document.body.appendChild(document.createElement('a'));"
                              "a.download = 'bajado'; a.href = 'data:,x'; a.click();</script>")
        antes = self.arbol()
        self.dibujar(pagina)
        self.assertEqual(self.arbol(), antes)


if __name__ == "__main__":
    IMPEDIMENTO = red_privada.entrar()
    unittest.main(verbosity=2)
