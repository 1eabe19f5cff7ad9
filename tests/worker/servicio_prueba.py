# SPDX-License-Identifier: MIT
"""A web service on the loopback that a test can have behave as it likes."""

import ssl
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

GUARDA = 60


class Servicio:
    """Answers each path with what `paginas` has for it: bytes, or a function of the connection's
    handler that answers by itself. Paths asked for are remembered; a query is no part of them.
    With an identity, the paths of a certificate and its key, it speaks TLS."""

    def __init__(self, direccion="127.0.0.1", identidad=None):
        servicio = self

        class Atencion(BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def do_GET(self):
                ruta = self.path.partition("?")[0]
                with servicio.novedad:
                    servicio.pedidos.append(ruta)
                    servicio.novedad.notify_all()
                respuesta = servicio.paginas.get(ruta, b"")
                if callable(respuesta):
                    respuesta(self)
                else:
                    responder(self, respuesta)

            do_POST = do_GET

            def log_message(self, *_):
                pass

        self.novedad = threading.Condition()
        self.pedidos = []
        self.paginas = {}
        self._servidor = ThreadingHTTPServer((direccion, 0), Atencion)
        self._servidor.daemon_threads = True
        self._servidor.block_on_close = False
        self._servidor.pausa = threading.Event()
        self.puerto = self._servidor.server_address[1]
        self.origen = f"http{'s' if identidad else ''}://{direccion}:{self.puerto}"
        if identidad:
            contexto = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
            contexto.load_cert_chain(*identidad)
            # A client that does not like the certificate must not keep others waiting.
            self._servidor.socket = contexto.wrap_socket(self._servidor.socket, server_side=True,
                                                         do_handshake_on_connect=False)
        threading.Thread(target=self._servidor.serve_forever, daemon=True).start()

    def parar(self):
        self._servidor.pausa.set()
        self._servidor.shutdown()
        self._servidor.server_close()

    def esperar(self, ruta):
        """Whether the path has been asked for, once it has."""
        with self.novedad:
            return self.novedad.wait_for(lambda: ruta in self.pedidos, GUARDA)


def responder(atencion, cuerpo, tipo=None, estado=200, **cabeceras):
    atencion.send_response(estado)
    clases = {"js": "text/javascript", "css": "text/css", "png": "image/png", "html": "text/html"}
    final = atencion.path.partition("?")[0].rpartition(".")[2]
    atencion.send_header("Content-Type", tipo or clases.get(final, "text/plain"))
    atencion.send_header("Content-Length", str(len(cuerpo)))
    for nombre, valor in cabeceras.items():
        atencion.send_header(nombre, valor)
    atencion.end_headers()
    atencion.wfile.write(cuerpo)
