# SPDX-License-Identifier: MIT
"""A print server of the test's own: a real cupsd in a private folder, with a capturing backend.

    with CupsPrivado() as cups:
        cups.agregar_cola("lote", media="iso_a5_148x210mm")
        cups.poner_predeterminada("lote")
        subprocess.run([...], env={**os.environ, **cups.entorno()})
        for impreso in cups.esperar_capturados(3):
            print(impreso.trabajo, impreso.titulo, impreso.archivo)

It works for root and for an ordinary user, beside any print server of the machine, and as often
at once as one likes: it listens on a socket in its folder and nowhere else.
"""

import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

SERVIDOR = "/usr/sbin/cupsd"
PARTES_DEL_SISTEMA = Path("/usr/lib/cups")
PLAZO = 120  # seconds; only a guard against a server that is broken

# The whole job is written before its line appears in the list, so that whoever sees the line can
# read the file. A raw queue hands the document over unfiltered, as its sixth argument.
CAPTURA = """#!/bin/sh
[ $# -eq 0 ] && exit 0
carpeta="${DEVICE_URI#captura:}"
trabajo=$(printf %06d "$1")
cat ${6:+"$6"} > "$carpeta/$trabajo.parte" || exit 1
mv "$carpeta/$trabajo.parte" "$carpeta/$trabajo.pdf"
printf '%s\\t%s\\n' "$1" "$3" >> "$carpeta/orden"
"""

CUPSD_CONF = """Listen {carpeta}/cups.sock
LogLevel debug
Browsing No
WebInterface No
DefaultAuthType None
MaxJobs 0
JobRetryInterval 1
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
"""

CUPS_FILES_CONF = """ServerRoot {carpeta}/etc
ServerBin {carpeta}/lib
CacheDir {carpeta}/cache
StateDir {carpeta}/run
RequestRoot {carpeta}/spool
TempDir {carpeta}/spool/tmp
DocumentRoot {carpeta}/doc
DataDir /usr/share/cups
AccessLog {carpeta}/access_log
ErrorLog {carpeta}/error_log
PageLog {carpeta}/page_log
FileDevice Yes
"""


@dataclass
class Impreso:
    """A document that came out of a queue."""

    trabajo: int
    titulo: str
    archivo: Path


class CupsPrivado:
    def __init__(self):
        # Not below TMPDIR: the path of a socket may have 107 characters and no more.
        self.carpeta = Path(tempfile.mkdtemp(prefix="cups-", dir="/tmp"))
        self.zocalo = self.carpeta / "cups.sock"
        self._proceso = None

    def __enter__(self):
        self.iniciar()
        return self

    def __exit__(self, *_):
        self.parar()

    def iniciar(self):
        self._preparar()
        self.volver()

    def volver(self):
        """Starts the server, with the queues and jobs that it had when it was stopped."""
        self._proceso = subprocess.Popen(
            [SERVIDOR, "-f", "-c", str(self.carpeta / "cupsd.conf"),
             "-s", str(self.carpeta / "cups-files.conf")],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            preexec_fn=self._morir_con_la_prueba)
        try:
            self._esperar(self._atiende, "cupsd does not answer")
        except Exception:
            self.parar()
            raise

    def parar(self):
        """Stops the server and removes the folder."""
        self.detener()
        shutil.rmtree(self.carpeta, ignore_errors=True)

    def detener(self):
        """Ends the server, by its own process. Its folder stays."""
        if self._proceso:
            self._proceso.terminate()
            try:
                self._proceso.wait(PLAZO)
            except subprocess.TimeoutExpired:
                self._proceso.kill()
                self._proceso.wait()
            self._proceso = None

    def agregar_cola(self, nombre, media=None, ppd=None):
        """A raw queue: documents come out as they went in. `media` is its default medium. What an
        earlier queue of the name has let out counts no more.

        With `ppd`, the text of a printer description, the queue filters as that says; only one
        that takes PDF as it is leaves the text in the documents.
        """
        capturas = self._capturas(nombre)
        shutil.rmtree(capturas, ignore_errors=True)
        capturas.mkdir()
        controlador = ["-m", "raw"]
        if ppd:
            descripcion = self.carpeta / f"{nombre}.ppd"
            descripcion.write_text(ppd, encoding="latin-1")
            controlador = ["-P", str(descripcion)]
        opciones = ["-o", f"media-default={media}"] if media else []
        self._orden("lpadmin", "-p", nombre, "-E", "-v", f"captura:{capturas}", *controlador,
                    *opciones)

    def quitar_cola(self, nombre):
        self._orden("lpadmin", "-x", nombre)

    def rechazar(self, nombre):
        """From now on the queue refuses what it is given."""
        self._orden("cupsreject", nombre)

    def poner_predeterminada(self, nombre):
        self._orden("lpadmin", "-d", nombre)

    def entorno(self):
        """What a client needs to speak to this server, and to no other."""
        return {"CUPS_SERVER": str(self.zocalo), "CUPS_SERVERROOT": str(self.carpeta / "cliente")}

    def capturados(self, nombre="lote"):
        """What has come out of the queue so far, in the order in which it came."""
        orden = self._capturas(nombre) / "orden"
        if not orden.exists():
            return []
        impresos = []
        for linea in orden.read_text(encoding="utf-8").splitlines():
            trabajo, titulo = linea.split("\t", 1)
            archivo = orden.parent / f"{int(trabajo):06d}.pdf"
            impresos.append(Impreso(int(trabajo), titulo, archivo))
        return impresos

    def esperar_capturados(self, cuantos, nombre="lote", plazo=PLAZO):
        """The same, once there are that many; handing a job over does not wait for the printer."""
        self._esperar(lambda: len(self.capturados(nombre)) >= cuantos,
                      f"not {cuantos} documents, but {len(self.capturados(nombre))}", plazo)
        return self.capturados(nombre)

    def ultimo_trabajo(self):
        """The greatest number of a job that the server has taken; 0 for none."""
        lista = subprocess.run(["lpstat", "-W", "all", "-o"], env={**os.environ, **self.entorno()},
                               timeout=PLAZO, stdin=subprocess.DEVNULL, capture_output=True,
                               text=True, check=False).stdout
        return max((int(linea.split()[0].rsplit("-", 1)[1]) for linea in lista.splitlines()),
                   default=0)

    def _capturas(self, nombre):
        return self.carpeta / f"capturas-{nombre}"

    def _preparar(self):
        for nombre in ("etc", "lib/backend", "cache", "run/certs", "spool/tmp", "doc", "cliente"):
            (self.carpeta / nombre).mkdir(parents=True, exist_ok=True)
        for parte in PARTES_DEL_SISTEMA.iterdir():
            if parte.name != "backend":
                (self.carpeta / "lib" / parte.name).symlink_to(parte)
        captura = self.carpeta / "lib" / "backend" / "captura"
        captura.write_text(CAPTURA, encoding="utf-8")
        # A server run by root starts a backend that only root may run as root, and any other as
        # an unprivileged user, who could not write here.
        captura.chmod(0o700)
        for nombre, texto in (("cupsd.conf", CUPSD_CONF), ("cups-files.conf", CUPS_FILES_CONF)):
            (self.carpeta / nombre).write_text(texto.format(carpeta=self.carpeta),
                                               encoding="utf-8")
        # The unprivileged user has to pass through to its spool.
        self.carpeta.chmod(0o755)

    def _atiende(self):
        if self._proceso.poll() is not None:
            raise RuntimeError(f"cupsd ended with code {self._proceso.returncode}")
        return self.zocalo.exists() and self._orden("lpstat", "-r", estricto=False) == 0

    def _orden(self, *argumentos, estricto=True):
        hecho = subprocess.run(argumentos, env={**os.environ, **self.entorno()}, timeout=PLAZO,
                               stdin=subprocess.DEVNULL, capture_output=True, text=True)
        if estricto and hecho.returncode != 0:
            raise RuntimeError(f"{argumentos}: {hecho.stderr.strip()}")
        return hecho.returncode

    @staticmethod
    def _morir_con_la_prueba():
        # A test that is killed has no chance to stop its server.
        PR_SET_PDEATHSIG = 1
        ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGTERM)

    @staticmethod
    def _esperar(condicion, falla, plazo=PLAZO):
        tope = time.monotonic() + plazo
        while not condicion():
            if time.monotonic() > tope:
                raise TimeoutError(falla)
            time.sleep(0.02)
