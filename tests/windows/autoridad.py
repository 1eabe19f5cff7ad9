# SPDX-License-Identifier: MIT
"""A certificate authority for one run, and what it vouches for. Files in PEM, made by openssl."""

import subprocess
from pathlib import Path

# Of elliptic curves Wine takes about one signature in sixty for a wrong one: that in which one of the
# two numbers happens to be shorter than the other.
CLAVE_NUEVA = ("-newkey", "rsa:2048", "-nodes")


class Autoridad:
    def __init__(self, carpeta):
        self._carpeta = Path(carpeta)
        self.certificado, self._clave = self.por_si_mismo("autoridad", "Autoridad de pruebas")

    def por_si_mismo(self, nombre, de_quien, *mas):
        """A certificate that vouches for itself, and its key."""
        certificado, clave = self._archivo(nombre, "crt"), self._archivo(nombre, "key")
        _openssl("req", "-x509", *CLAVE_NUEVA, "-keyout", clave, "-out", certificado, "-days", "7",
                 "-subj", f"/CN={de_quien}", *mas)
        return certificado, clave

    def avalar(self, nombre, anfitrion, dias=7):
        """A certificate for that host, and its key; with a negative `dias` its time is over."""
        pedido, clave = self._archivo(nombre, "csr"), self._archivo(nombre, "key")
        certificado, datos = self._archivo(nombre, "crt"), self._archivo(nombre, "ext")
        datos.write_text(f"subjectAltName=DNS:{anfitrion}\nbasicConstraints=CA:FALSE\n"
                         "extendedKeyUsage=serverAuth\n", encoding="ascii")
        _openssl("req", "-new", *CLAVE_NUEVA, "-keyout", clave, "-out", pedido, "-subj",
                 f"/CN={anfitrion}")
        _openssl("x509", "-req", "-in", pedido, "-CA", self.certificado, "-CAkey", self._clave,
                 "-CAcreateserial", "-extfile", datos, "-days", dias, "-out", certificado)
        return certificado, clave

    def _archivo(self, nombre, clase):
        return self._carpeta / f"{nombre}.{clase}"


def _openssl(*argumentos):
    subprocess.run(["openssl", *map(str, argumentos)], check=True, timeout=60,
                   stdin=subprocess.DEVNULL, capture_output=True)
