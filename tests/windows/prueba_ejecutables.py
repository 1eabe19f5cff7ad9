# SPDX-License-Identifier: MIT
"""What Windows reads out of the programs' files before it runs them.

PARVANEL_WINDOWS is the build folder; `bibliotecas.txt` lists the libraries of Windows 10 that a
program may need, and there is nothing beside it that could be another.
"""

import os
import re
import subprocess
import unittest
from pathlib import Path
from xml.etree import ElementTree

BIN = Path(os.environ["PARVANEL_WINDOWS"]) / "bin"
BIBLIOTECAS = Path(__file__).with_name("bibliotecas.txt")
OBJDUMP = "x86_64-w64-mingw32-objdump"
LADOS = {16, 20, 24, 32, 40, 48, 64, 128, 256}
PEDIDOS = {  # of the manifest: what stands in which element
    "dpiAwareness": "PerMonitorV2, PerMonitor", "longPathAware": "true", "activeCodePage": "UTF-8"}
WINDOWS_10_Y_11 = "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"


def correr(*argumentos):
    return subprocess.run([str(a) for a in argumentos], check=True, timeout=60,
                          capture_output=True).stdout


def recurso(programa, clase):
    return correr("wrestool", "--extract", "--raw", f"--type={clase}", "--name=1", programa)


class Ejecutables(unittest.TestCase):
    def setUp(self):
        self.programas = sorted(BIN.glob("parvanel*.exe"))
        self.assertGreaterEqual({p.name for p in self.programas},
                                {"parvanel.exe", "parvanel-demo.exe"})

    def test_bibliotecas_soloLasDeWindows(self):
        conocidas = {b.casefold() for b in BIBLIOTECAS.read_text("ascii").split()}
        for programa in self.programas:
            tabla = correr(OBJDUMP, "-p", programa).decode()
            pedidas = {b.casefold() for b in re.findall(r"DLL Name: (\S+)", tabla)}
            self.assertIn("kernel32.dll", pedidas)
            self.assertEqual(pedidas - conocidas, set(), programa.name)

    def test_memoria_protegida(self):
        for programa in self.programas:
            tabla = correr(OBJDUMP, "-p", programa).decode()
            for senal in ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT"):
                self.assertRegex(tabla, rf"(?m)^\s+{senal}$", programa.name)
            # Without relocations the first two would be of no effect.
            self.assertNotIn("relocations stripped", tabla)
            self.assertRegex(tabla, r"Entry 5 \S+ (?!0{8})\S+ Base Relocation")
            self.assertRegex(tabla, r"(?m)^ImageBase\s+0*1[0-9a-f]{8}$")  # above 4 GiB

    def test_ventanas_sinConsola(self):
        tabla = correr(OBJDUMP, "-p", BIN / "parvanel.exe").decode()
        self.assertIn("(Windows GUI)", tabla)

    def test_manifiesto_pideLoSuyoYNoMas(self):
        for programa in self.programas:
            raiz = ElementTree.fromstring(recurso(programa, 24))
            dicho = {e.tag.partition("}")[2]: e for e in raiz.iter()}
            for elemento, valor in PEDIDOS.items():
                self.assertEqual(dicho[elemento].text, valor, programa.name)
            self.assertEqual(dicho["requestedExecutionLevel"].get("level"), "asInvoker")
            self.assertEqual(dicho["supportedOS"].get("Id"), WINDOWS_10_Y_11)
            controles, = (e for e in raiz.iter() if "Common-Controls" in e.get("name", ""))
            self.assertEqual(controles.get("version"), "6.0.0.0")

    def test_version_laDelPrograma(self):
        version = os.environ["PARVANEL_VERSION"]
        for programa in self.programas:
            datos = recurso(programa, 16).decode("utf-16-le", errors="replace")
            for nombre, valor in (("ProductName", "Parvanel"), ("ProductVersion", version),
                                  ("FileVersion", version), ("OriginalFilename", programa.name)):
                self.assertRegex(datos, f"{nombre}\0+{re.escape(valor)}\0", programa.name)

    def test_icono_enTodosLosLados(self):
        for programa in self.programas:
            grupo = recurso(programa, 14)
            # Each of 14 bytes after a head of 6; a side of 256 is written as 0.
            lados = {grupo[i] or 256 for i in range(6, len(grupo), 14)}
            self.assertEqual(lados, LADOS, programa.name)


if __name__ == "__main__":
    unittest.main(verbosity=2)
