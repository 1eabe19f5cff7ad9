# SPDX-License-Identifier: MIT
"""The password goes to the service and nowhere else: it is on no command line, in no environment
and in no file, whatever the secretary does after typing it.

PARVANEL_HISTORICO and PARVANEL_PRUEBAS_IMPRESION: as for printing.
"""

import os
import shutil
import sys
import unittest
from pathlib import Path

from escena import Escena
from procesos import descendientes, esperar
from secretaria import CLAVE

sys.path.insert(0, os.environ["PARVANEL_PRUEBAS_IMPRESION"])
from cups_privado import CupsPrivado  # pylint: disable=wrong-import-position,import-error

HISTORICO = Path(os.environ["PARVANEL_HISTORICO"])
PLAZO = 120  # only a guard
ERRADA = "Wq7-kobalto-93"  # refused by the service, and found nowhere by chance


class Clave(Escena):
    def setUp(self):
        cups = self.enterContext(CupsPrivado())
        cups.agregar_cola("lote")
        cups.poner_predeterminada("lote")
        self.cups = cups
        self.preparar(entorno=cups.entorno())
        # What goes through the temporary folder can be looked at as well.
        temporal = self.escritorio.carpeta / "tmp"
        temporal.mkdir()
        self.escritorio.entorno["TMPDIR"] = str(temporal)
        abridor = self.escritorio.previa / "xdg-open"
        self.abierto = self.escritorio.carpeta / "abierto"
        abridor.write_text(f"#!/bin/sh\n(echo \"$@\"; env) > '{self.abierto}.nuevo'\n"
                           f"mv '{self.abierto}.nuevo' '{self.abierto}'\n", encoding="utf-8")
        abridor.chmod(0o755)
        shutil.copytree(HISTORICO / "Quorvela", self.escritorio.casa / "Quorvela")
        self.abrir_programa()

    def ver_procesos(self):
        """Command lines and environments of all that runs now."""
        visto = b""
        for pid in descendientes(os.getpid()):
            for parte in ("cmdline", "environ"):
                try:
                    visto += (Path("/proc") / str(pid) / parte).read_bytes()
                except OSError:  # gone meanwhile
                    continue
        return visto

    def ver_archivos(self):
        """Every file of the desktop: home folder, XDG folders, temporary files, what programs
        have written to the terminal."""
        visto = b""
        for ruta in self.escritorio.carpeta.rglob("*"):
            # The demonstration itself tells its user and password on the terminal.
            try:
                datos = ruta.read_bytes() if ruta.is_file() else b""
            except OSError:
                continue
            if ruta.name == "salida":
                datos = datos.replace(f"Contraseña: {CLAVE}".encode(), b"", 1)
            visto += datos
        return visto

    def test_clave_noQuedaEnNingunaParte(self):
        procesos = b""
        self.secretaria.escribir_cuenta(clave=ERRADA)
        self.ventana.tecla("Return")
        procesos += self.ver_procesos()
        self.ventana.aceptar_mensaje()
        archivos = self.ver_archivos()
        self.secretaria.entrar()

        self.secretaria.ver_historico("C:\\Quorvela\\123-2010")
        esperar(self.abierto.exists, PLAZO, "nothing is opened")
        self.secretaria.preparar_impresion(self.secretaria.salones()[0], "Paz Y Salvos")
        self.secretaria.imprimir()

        def impreso():
            nonlocal procesos, archivos
            procesos += self.ver_procesos()
            archivos += self.ver_archivos()
            return self.cups.capturados() and b"parvanel-print-render" in procesos
        esperar(impreso, PLAZO, "nothing is printed")
        self.ventana.esperar(lambda: self.ventana.a_la_vista("push button", "Imprimir"),
                             "the job does not end", PLAZO)
        self.ventana.cerrar()
        archivos += self.ver_archivos()

        # What has been looked at is what was meant to be.
        self.assertIn(f"HOME={self.escritorio.casa}".encode(), procesos)
        self.assertIn(b"parvanel-print", procesos)
        self.assertIn(b"123-2010/index.html", self.abierto.read_bytes())
        self.assertIn(b"trabajo", (self.escritorio.xdg("STATE_HOME") / "parvanel" / "print.log")
                      .read_bytes())
        for clave in (ERRADA, CLAVE):
            for forma in (clave.encode(), clave.encode("utf-16-le")):
                self.assertNotIn(forma, procesos)
                self.assertNotIn(forma, archivos)


if __name__ == "__main__":
    unittest.main(verbosity=2)
