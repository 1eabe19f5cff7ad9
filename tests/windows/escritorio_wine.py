# SPDX-License-Identifier: MIT
"""A virtual desktop on which Windows programs run under Wine, with a drive C of its own.

    with EscritorioWine() as escritorio:
        ventana = escritorio.abrir([programa], "Parvanel Version 4.0")

PARVANEL_UNIDAD is the folder of a drive C as Wine makes it, made when it is not there; each desktop
works in a copy.
"""

import fcntl
import os
import struct
import subprocess
from pathlib import Path
from tempfile import TemporaryFile

from escritorio import Escritorio
from pantalla import Pantalla
from vista import VentanaVista

CON_WINE = Path(__file__).resolve().parents[2] / "paquete-windows" / "con-wine"
UNIDAD = Path(os.environ.get("PARVANEL_UNIDAD", ""))
PLAZO = 300  # only a guard: a first start makes the whole drive


class EscritorioWine(Escritorio):
    """`usuario`: the account's name, for whom a drive C is made from nothing."""

    def __init__(self, usuario=None, **opciones):
        super().__init__(**opciones)
        self._usuario = usuario
        self.unidad = self.carpeta / "unidad"
        self.c = self.unidad / "drive_c"

    def parar(self):
        if self.entorno.get("WINEPREFIX"):
            # At once and wholly, whatever runs there.
            subprocess.run(["wineserver", "-k"], env=self.entorno, timeout=PLAZO, check=False)
        super().parar()

    def abrir(self, argumentos, titulo, plazo=PLAZO):
        """Starts a Windows program and returns its window of that title once it can be used."""
        salida = open(self.carpeta / "salida", "ab")  # pylint: disable=consider-using-with
        proceso = self.lanzar_wine(argumentos, stdout=salida, stderr=salida)
        salida.close()
        return VentanaVista(self, proceso, titulo, plazo)

    def lanzar_wine(self, argumentos, **opciones):
        """Starts a Windows program: subprocess.Popen."""
        return self.lanzar([CON_WINE, *argumentos], **opciones)

    def correr(self, *argumentos, estricta=True):
        """Runs a Windows program to its end; subprocess.CompletedProcess."""
        # The first program brings up Wine's own, which outlive it: none gets a pipe of which
        # somebody waits for the end.
        with TemporaryFile() as salida, TemporaryFile() as quejas:
            hecho = subprocess.run([CON_WINE, *map(str, argumentos)], env=self.entorno,
                                   timeout=PLAZO, check=estricta, stdin=subprocess.DEVNULL,
                                   stdout=salida, stderr=quejas, cwd=self.casa)
            salida.seek(0)
            quejas.seek(0)
            hecho.stdout, hecho.stderr = salida.read(), quejas.read()
        return hecho

    def registrar(self, *entradas):
        """Writes into the registry: (key, name or None for its own value, text, number or
        bytes)."""
        lineas = ["Windows Registry Editor Version 5.00", ""]
        for clave, nombre, valor in entradas:
            dicho = (f"dword:{valor:08x}" if isinstance(valor, int) else
                     f"hex:{valor.hex(',')}" if isinstance(valor, bytes) else _citado(valor))
            lineas += [f"[{clave}]", f"{_citado(nombre) if nombre else '@'}={dicho}", ""]
        archivo = self.carpeta / "entradas.reg"
        archivo.write_text("\r\n".join(lineas), encoding="utf-16")
        self.correr("regedit", "/S", self.de_windows(archivo))

    def esperar_todos(self):
        """Waits until the last program of this drive has ended."""
        subprocess.run(["wineserver", "-w"], env=self.entorno, timeout=PLAZO, check=True)

    @staticmethod
    def de_windows(ruta):
        """What Windows programs call a native path."""
        return "Z:" + str(ruta).replace("/", "\\")

    def _iniciar(self):
        self._preparar_carpetas()
        self._iniciar_pantalla()
        self.pantalla = Pantalla(self.entorno)
        self._iniciar_gestor()
        self.entorno |= {"WINEPREFIX": str(self.unidad), "PARVANEL_WINEPREFIX": str(self.unidad)}
        if self._usuario:
            self.entorno["USER"] = self._usuario
        else:
            self._copiar_unidad()
        self.registrar(*((r"HKEY_CURRENT_USER\Control Panel\Desktop\WindowMetrics", f"{uso}Font",
                          _letra("DejaVu Sans")) for uso in ("Message", "Menu", "Status", "Icon")))

    def _copiar_unidad(self):
        UNIDAD.parent.mkdir(parents=True, exist_ok=True)
        with open(UNIDAD.with_suffix(".turno"), "w", encoding="ascii") as turno:
            fcntl.flock(turno, fcntl.LOCK_EX)
            if not (UNIDAD / "made").exists():
                self._hacer_unidad()
        subprocess.run(["cp", "-a", "--reflink=auto", UNIDAD, self.unidad], check=True,
                       timeout=PLAZO)

    # It is whole, and nothing writes into it any more, when the last program on it has ended.
    def _hacer_unidad(self):
        entorno = {**self.entorno, "WINEPREFIX": str(UNIDAD), "PARVANEL_WINEPREFIX": str(UNIDAD)}
        subprocess.run([CON_WINE, "cmd", "/c", "exit"], env=entorno, check=True, timeout=PLAZO,
                       stdin=subprocess.DEVNULL, capture_output=True)
        subprocess.run(["wineserver", "-w"], env=entorno, check=True, timeout=PLAZO)


# Wine's own setting is a name that stands for no font in particular, and Qt takes any for it.
def _letra(nombre, alto=12, peso=400):
    """A LOGFONTW, in which Windows keeps the choice of a font; `alto` in pixels at 96 dpi."""
    return struct.pack("<5i8B64s", -alto, 0, 0, 0, peso, 0, 0, 0, 1, 0, 0, 0, 0,
                       nombre.encode("utf-16-le"))


def _citado(texto):
    return '"' + texto.replace("\\", "\\\\").replace('"', '\\"') + '"'
