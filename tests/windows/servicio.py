# SPDX-License-Identifier: MIT
"""The demonstration school at the address that the programs were built for.

It runs by itself at an address of its own choosing; what is asked at the fixed one is handed to it
and back, each address that it tells being changed into the fixed one. Every request is noted.
"""

import contextlib
import re
import socket
import ssl
import subprocess
import threading
from urllib.parse import urlsplit

FIN_DE_CABECERA = b"\r\n\r\n"


class Servicio:
    """A context: `base` is the fixed address; `certificado` and `clave` (files in PEM) are what it
    shows of itself when that is one of https."""

    def __init__(self, programa, base, certificado=None, clave=None):
        self.peticiones = []  # request targets, in order of arrival
        self._base = base.encode()
        self._mudas = []
        self._cambios = []
        self._programa = programa
        self._parado = threading.Event()
        self._tls = None
        if certificado:
            self._tls = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
            self._tls.load_cert_chain(certificado, clave)

    def __enter__(self):
        self._escuela = subprocess.Popen([self._programa], stdin=subprocess.PIPE,
                                         stdout=subprocess.PIPE)
        self._propia = self._escuela.stdout.readline().strip()
        self._destino = urlsplit(self._propia.decode())
        # Its whole network is the test's own: nobody else can have it.
        self._zocalo = socket.create_server(("127.0.0.1", 443 if self._tls else 80), backlog=64)
        threading.Thread(target=self._atender, daemon=True).start()
        return self

    def __exit__(self, *_):
        self._parado.set()
        self._zocalo.shutdown(socket.SHUT_RDWR)  # ends the wait for the next one
        self._zocalo.close()
        self._escuela.stdin.close()
        self._escuela.stdout.close()
        self._escuela.wait(30)

    def callar(self, fragmento):
        """From now on a request whose target holds this is never answered."""
        self._mudas.append(fragmento.encode())

    def cambiar(self, propio, dicho):
        """From now on every reply says `dicho` where the school says `propio`, and a request for
        `dicho` is one for `propio`."""
        self._cambios.append((propio.encode(), dicho.encode()))

    def _atender(self):
        while not self._parado.is_set():
            try:
                conexion, _ = self._zocalo.accept()
            except OSError:
                return  # closed
            threading.Thread(target=self._servir, args=(conexion,), daemon=True).start()

    def _servir(self, conexion):
        # A client that goes away, or that does not like the certificate, is its own business.
        with contextlib.suppress(OSError):
            conexion.settimeout(120)
            if self._tls:
                conexion = self._tls.wrap_socket(conexion, server_side=True)
            with conexion:
                self._responder(conexion)

    def _responder(self, conexion):
        cabecera = _leer_cabecera(conexion)
        if not cabecera:
            return
        destino = cabecera.split(b" ", 2)[1]
        self.peticiones.append(destino.decode("latin-1"))
        if any(muda in destino for muda in self._mudas):
            self._parado.wait()
            return
        with socket.create_connection((self._destino.hostname, self._destino.port)) as escuela:
            escuela.sendall(self._hacia_la_escuela(cabecera))
            respuesta = b"".join(iter(lambda: escuela.recv(65536), b""))
        conexion.sendall(self._desde_la_escuela(respuesta))
        if self._tls:
            conexion.unwrap()

    def _hacia_la_escuela(self, cabecera):
        for propio, dicho in [(self._propia, self._base), *self._cambios]:
            cabecera = cabecera.replace(dicho, propio)
        # Bytes that are to be changed come as they are.
        return re.sub(rb"(?i)\r\nAccept-Encoding:[^\r]*", b"", cabecera)

    def _desde_la_escuela(self, respuesta):
        cabecera, _, cuerpo = respuesta.partition(FIN_DE_CABECERA)
        for propio, dicho in [(self._propia, self._base), *self._cambios]:
            cuerpo = cuerpo.replace(propio, dicho)
        largo = b"\r\nContent-Length: %d" % len(cuerpo)
        return re.sub(rb"(?i)\r\nContent-Length:[^\r]*", largo, cabecera) + FIN_DE_CABECERA + cuerpo


def _leer_cabecera(conexion):
    """A request's head with its empty line; empty when the client goes away before."""
    leido = b""
    while FIN_DE_CABECERA not in leido:
        trozo = conexion.recv(65536)
        if not trozo:
            return b""
        leido += trozo
    return leido
