# SPDX-License-Identifier: MIT
"""What the tests of the worker as a whole share: real pages, real renderers, a real print server.

The worker under test is the program that PARVANEL_PRINT names. Nothing is decided by how long
something takes: times are guards against a test that would never end.
"""

import os
import re
import shutil
import struct
import subprocess
import tempfile
import time
import unittest
import zlib
from pathlib import Path

from cups_privado import CupsPrivado

TRABAJADOR = os.environ["PARVANEL_PRINT"]
DIBUJADOR = Path(TRABAJADOR).parent / "parvanel-print-render"
GUARDA = 240


def png(ancho, alto, color):
    """A PNG of one colour."""
    def trozo(clase, datos):
        return (struct.pack(">I", len(datos)) + clase + datos
                + struct.pack(">I", zlib.crc32(clase + datos)))
    fila = b"\0" + bytes(color) * ancho
    return (b"\x89PNG\r\n\x1a\n"
            + trozo(b"IHDR", struct.pack(">IIBBBBB", ancho, alto, 8, 2, 0, 0, 0))
            + trozo(b"IDAT", zlib.compress(fila * alto)) + trozo(b"IEND", b""))


def texto(pdf):
    return subprocess.run(["pdftotext", "-enc", "UTF-8", pdf, "-"], check=True, timeout=GUARDA,
                          capture_output=True).stdout.decode("utf-8")


def medida(pdf):
    """Width and height of the first page, in whole points."""
    dicho = subprocess.run(["pdfinfo", pdf], check=True, timeout=GUARDA, capture_output=True,
                           text=True).stdout
    ancho, alto = re.search(r"Page size:\s+([\d.]+) x ([\d.]+)", dicho).groups()
    return round(float(ancho)), round(float(alto))


def puntos(pdf, color, resolucion=36):
    """How many dots of about this colour the printed pages have."""
    ppm = subprocess.run(["pdftoppm", "-r", str(resolucion), pdf], check=True, timeout=GUARDA,
                         capture_output=True).stdout
    cuantos = 0
    while ppm:
        cabeza = re.match(rb"P6\s(\d+)\s(\d+)\s255\s", ppm)
        largo = 3 * int(cabeza[1]) * int(cabeza[2])
        datos = ppm[cabeza.end():cabeza.end() + largo]
        ppm = ppm[cabeza.end() + largo:]
        cuantos += sum(all(abs(datos[i + c] - color[c]) < 40 for c in range(3))
                       for i in range(0, largo, 3))
    return cuantos

ROJO = (200, 20, 20)
VERDE = (20, 160, 20)


class Prueba(unittest.TestCase):
    """A home of its own for each test, and a way to run the worker in it."""

    def setUp(self):
        # The name has everything in it that a careless address would trip over.
        self.casa = Path(tempfile.mkdtemp(prefix="casa ñ #1 100% ")).resolve()
        self.addCleanup(shutil.rmtree, self.casa)
        self.temporal = self.casa / "tmp"
        self.temporal.mkdir()
        self.registro = self.casa / "estado" / "parvanel" / "print.log"
        self.programa = TRABAJADOR

    def entorno(self, cups, **mas):
        limpio = {k: v for k, v in os.environ.items()
                  if not k.startswith(("CUPS_", "LC_", "XDG_"))
                  and k not in ("LPDEST", "PRINTER", "LANG", "IPP_PORT")}
        return {**limpio, "HOME": str(self.casa), "XDG_STATE_HOME": str(self.casa / "estado"),
                "TMPDIR": str(self.temporal), "TZ": "UTC", "LC_ALL": "C.UTF-8",
                "PARVANEL_RAIZ": str(self.casa), **cups, **mas}

    def archivo(self, nombre, contenido):
        ruta = self.casa / nombre
        ruta.parent.mkdir(parents=True, exist_ok=True)
        if isinstance(contenido, str):
            contenido = contenido.encode("cp1252")
        ruta.write_bytes(contenido)
        return ruta

    def trabajador(self, cups, *opciones, **mas):
        return subprocess.Popen([self.programa, *opciones], stdin=subprocess.PIPE,
                                env=self.entorno(cups, **mas), start_new_session=True)

    def conDibujador(self, guion):
        """From now on the worker is a copy that finds this script as its renderer."""
        carpeta = self.casa / "programa"
        carpeta.mkdir()
        self.programa = carpeta / "parvanel-print"
        shutil.copy2(TRABAJADOR, self.programa)
        dibujador = carpeta / "parvanel-print-render"
        dibujador.write_text(guion, encoding="utf-8")
        dibujador.chmod(0o755)

    def conPercance(self, percance):
        """The same, with a renderer to which `percance`, lines of shell, happens after it has taken
        its page, `$html`, and which then draws like any other."""
        self.conDibujador(
            "#!/bin/sh\nIFS= read -r papel && IFS= read -r html && IFS= read -r pdf || exit 0\n"
            f"echo \"$html\" >> '{self.casa}/tomadas'\n"
            f"{percance}\n"
            f"printf '%s\\n' \"$papel\" \"$html\" \"$pdf\" | '{DIBUJADOR}' --espera\n")

    def tomadas(self):
        """The names of the pages that such renderers have taken, one for each time."""
        return sorted(Path(ruta).name for ruta in
                      (self.casa / "tomadas").read_text(encoding="utf-8").splitlines())

    def imprimir(self, cups, rutas, *opciones, **mas):
        """Hands the paths over, waits for the end, and checks what must be so after every run."""
        proceso = self.trabajador(cups, *opciones, **mas)
        try:
            proceso.communicate("".join(f"{r}\n" for r in rutas).encode("utf-8"), timeout=GUARDA)
        finally:
            proceso.kill()
        self.assertEqual(proceso.returncode, 0)
        self.assertEqual(os.listdir(self.temporal), [], "temporary files left behind")
        self.assertEqual(self.procesosVivos(), [], "processes left behind")
        return self.anotado()

    def procesosVivos(self):
        """The living processes that have this test's folder in their environment."""
        vivos = []
        for pid in self.pidsVivos():
            try:
                vivos.append(Path(f"/proc/{pid}/cmdline").read_bytes())
            except OSError:
                continue
        return vivos

    def pidsVivos(self):
        senal = f"TMPDIR={self.temporal}".encode()
        vivos = []
        for proceso in Path("/proc").glob("[0-9]*"):
            try:
                if senal in (proceso / "environ").read_bytes():
                    vivos.append(int(proceso.name))
            except OSError:
                continue
        return vivos

    def anotado(self):
        """The log as pairs of path and result."""
        if not self.registro.exists():
            return []
        pares = []
        for linea in self.registro.read_text(encoding="utf-8").splitlines():
            hora, ruta, resultado = linea.split("\t")
            self.assertRegex(hora, r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d[+-]\d{4}$")
            pares.append((ruta, resultado))
        return pares

    def assertImpresos(self, anotado, rutas):
        self.assertEqual([ruta for ruta, _ in anotado], [str(r) for r in rutas])
        for _, resultado in anotado:
            self.assertRegex(resultado, r"^trabajo \d+ en lote$")


class ConCups(Prueba):
    """One print server for the class, one fresh default queue for each test."""

    media = None

    @classmethod
    def setUpClass(cls):
        cls.cups = CupsPrivado()
        cls.cups.iniciar()
        cls.addClassCleanup(cls.cups.parar)
        cls.cups.agregar_cola("lote", media=cls.media)
        cls.cups.poner_predeterminada("lote")

    def setUp(self):
        super().setUp()
        self.empezarDeNuevo()

    def empezarDeNuevo(self):
        """What has been printed so far, or is still on its way out, counts no more."""
        self.registro.unlink(missing_ok=True)
        self.anterior = self.cups.ultimo_trabajo()

    def salidos(self, cuantos):
        """What this test has printed, once it is that many."""
        def suyos():
            return [c for c in self.cups.capturados() if c.trabajo > self.anterior]
        tope = time.monotonic() + GUARDA
        while len(suyos()) < cuantos:
            self.assertLess(time.monotonic(), tope, f"not {cuantos} documents: {suyos()}")
            time.sleep(0.02)
        return suyos()

    def unaPagina(self, html, nombre="pagina.html", *opciones):
        """Prints one page and gives its PDF."""
        ruta = self.archivo(nombre, html)
        self.assertImpresos(self.imprimir(self.cups.entorno(), [ruta], *opciones), [ruta])
        return self.salidos(1)[0].archivo
