# SPDX-License-Identifier: MIT
"""A network that a test has for itself, in which everything that a program sends is seen.

Every address of the world is this machine's, every name is looked up at the test's own name
server, and every packet is recorded. It needs no rights: an ordinary account makes itself a user
namespace for it.
"""

import os
import socket
import struct
import subprocess
import sys
import tempfile
import threading
from pathlib import Path

GUARDA = 60
MARCA = "PARVANEL_RED_PRIVADA"
AJENA = "198.51.100.7"  # what every name means; it belongs to nobody
FIN = ("127.0.0.1", 9)  # where the test's own closing marks go

_PREPARAR = r"""
set -e
ip link set lo up
# All addresses lead here, also those that no name server was asked about.
ip route add local 0.0.0.0/0 dev lo
# A card beside the loopback, without which the engine takes the machine for unplugged.
if ip link add tarjeta0 type veth peer name tarjeta1 2>/dev/null; then
    ip address add 203.0.113.1/24 dev tarjeta0
    ip link set tarjeta0 up
    ip link set tarjeta1 up
fi
mount --make-rprivate /
for nombre in resolv.conf nsswitch.conf hosts; do
    [ ! -e /etc/$nombre ] || mount --bind "$1/$nombre" /etc/$nombre
done
"""


def entrar():
    """Starts this program again within such a network, unless it is there already.

    Gives the reason when this machine lets nobody make one, else None.
    """
    if os.environ.get(MARCA):
        return None
    maneras = [["unshare", "-rnm"]] + ([["unshare", "-nm"]] if os.geteuid() == 0 else [])
    for manera in maneras:
        if subprocess.run([*manera, "true"], capture_output=True, check=False).returncode == 0:
            os.execvpe(manera[0], [*manera, "--", sys.executable, "-B", *sys.argv],
                       {**os.environ, MARCA: "1"})
    return "this machine allows no namespaces of one's own (unshare -rnm)"


def preparar():
    """Lays the network out. Once, within it."""
    with tempfile.TemporaryDirectory() as carpeta:
        for nombre, dicho in (("resolv.conf", "nameserver 127.0.0.1\noptions timeout:1 attempts:1\n"),
                              ("nsswitch.conf", "hosts: files dns\n"),
                              ("hosts", "127.0.0.1 localhost\n")):
            Path(carpeta, nombre).write_text(dicho, encoding="ascii")
        subprocess.run(["sh", "-c", _PREPARAR, "sh", carpeta], check=True, timeout=GUARDA)


class Paquete:
    def __init__(self, clase, origen, destino, datos, bandera=0):
        self.clase, self.origen, self.destino = clase, origen, destino
        self.datos, self.bandera = datos, bandera

    @property
    def inicia(self):
        """Whether it opens a TCP connection."""
        return self.clase == "tcp" and self.bandera & 0x12 == 0x02

    def __repr__(self):
        return f"{self.clase} {self.origen} -> {self.destino} {self.datos[:80]!r}"


def _leido(crudo):
    version = crudo[0] >> 4
    if version == 4:
        clase, desde = crudo[9], 4 * (crudo[0] & 15)
        extremos = [socket.inet_ntop(socket.AF_INET, crudo[i:i + 4]) for i in (12, 16)]
    elif version == 6:
        clase, desde = crudo[6], 40
        extremos = [socket.inet_ntop(socket.AF_INET6, crudo[i:i + 16]) for i in (8, 24)]
    else:
        return None
    if clase not in (6, 17):
        return None  # what the system says by itself: neighbours, errors
    puertos = struct.unpack_from(">HH", crudo, desde)
    largo = 8 if clase == 17 else 4 * (crudo[desde + 12] >> 4)
    return Paquete("udp" if clase == 17 else "tcp", *zip(extremos, puertos),
                   crudo[desde + largo:], 0 if clase == 17 else crudo[desde + 13])


class Rastro:
    """Every TCP and UDP packet on every interface, from the moment it is made."""

    def __init__(self):
        self._oido = socket.socket(socket.AF_PACKET, socket.SOCK_DGRAM, socket.htons(3))
        self._oido.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 1 << 26)  # as much as it may
        self._voz = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self._novedad = threading.Condition()
        self._paquetes = []
        self._marcas = 0
        threading.Thread(target=self._escuchar, daemon=True).start()

    def _escuchar(self):
        while True:
            crudo, (_, _, modo, *_) = self._oido.recvfrom(1 << 16)
            if modo == socket.PACKET_OUTGOING:
                continue  # the loopback's other half
            paquete = _leido(crudo)
            if paquete:
                with self._novedad:
                    self._paquetes.append(paquete)
                    self._novedad.notify_all()

    def tomar(self):
        """All packets since the last time: what was sent before this call is among them."""
        self._marcas += 1
        marca = b"marca %d" % self._marcas
        self._voz.sendto(marca, FIN)
        with self._novedad:
            if not self._novedad.wait_for(lambda: any(p.datos == marca for p in self._paquetes),
                                          GUARDA):
                raise AssertionError("the record of packets has stopped")
            _, perdidos = struct.unpack("II", self._oido.getsockopt(263, 6, 8))  # the statistics
            if perdidos:
                raise AssertionError(f"{perdidos} packets were missed")
            tomados = [p for p in self._paquetes if p.destino != FIN]
            self._paquetes.clear()
        return tomados


class Nombres:
    """A name server for which every name exists."""

    def __init__(self):
        self._oido = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self._oido.bind(("127.0.0.1", 53))
        threading.Thread(target=self._servir, daemon=True).start()

    def _servir(self):
        while True:
            pregunta, quien = self._oido.recvfrom(4096)
            fin = pregunta.index(b"\0", 12) + 5
            direccion = pregunta[fin - 4:fin - 2] == b"\0\1"
            cabeza = pregunta[:2] + b"\x81\x80\0\1" + (b"\0\1" if direccion else b"\0\0") + b"\0" * 4
            cola = b"\xc0\x0c\0\1\0\1\0\0\0\1\0\4" + socket.inet_aton(AJENA) if direccion else b""
            self._oido.sendto(cabeza + pregunta[12:fin] + cola, quien)


def nombrePreguntado(datos):
    """The name that a look-up is about, or None when the bytes are none."""
    partes, i = [], 12
    while i < len(datos) and datos[i]:
        partes.append(datos[i + 1:i + 1 + datos[i]].decode("latin-1"))
        i += 1 + datos[i]
    return ".".join(partes).lower()
