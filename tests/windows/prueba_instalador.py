# SPDX-License-Identifier: MIT
"""The installer and the portable folder, as people get them."""

import re
import unittest
import zipfile
from pathlib import Path

from escena_instalador import (ABIERTO, ARCHIVOS, REVISOR, SALIDA, TODOS, VERSION,
                               EscenaInstalador)
from escena_windows import ARCHIVO, contenido
from secretaria import TITULO
from secretaria_vista import SecretariaVista

PORTATIL = SALIDA / f"Parvanel-{VERSION}-portable.zip"
MENU = Path("ProgramData/Microsoft/Windows/Start Menu/Programs/Parvanel")
ENTRADAS = {"Parvanel", "Parvanel (demostración)", "Manual"} | ({"Revisor de Históricos"} if REVISOR
                                                               else set())


class Instalador(EscenaInstalador):
    def abrir_del_menu(self, entrada, titulo=TITULO):
        """Opens what the Start menu has under that name, and waits for its window of that title."""
        acceso = (self.escritorio.c / MENU / f"{entrada}.lnk").read_bytes()
        # Wine's `start` does not follow it, as Windows would: what it leads to is read out of
        # it. Its path stands there in letters of one byte, ended by a zero byte.
        destino = re.search(rb"C:\\[^\0]*\.exe(?=\0)", acceso).group().decode("ascii")
        self.ventana = self.escritorio.abrir([destino], titulo)
        self.secretaria = SecretariaVista(self.ventana)

    def hacer_un_historico(self):
        self.secretaria.entrar()
        self.secretaria.descargar()
        self.cerrar()
        historico = contenido(self.escritorio.c / ARCHIVO)
        self.assertGreater(len(historico), 100)
        self.assertTrue(historico["index.html"])

    def test_instalarUsarDesinstalar_quedanSoloLosHistoricos(self):
        self.escritorio.esperar_todos()
        antes = self.archivos()
        self.instalar()
        self.assertEqual({a.name for a in self.lugar.iterdir()}, ARCHIVOS)
        self.assertEqual({a.stem for a in (self.escritorio.c / MENU).iterdir()}, ENTRADAS)
        self.abrir_del_menu("Parvanel (demostración)")
        self.hacer_un_historico()
        # As Windows starts it, without a word of the folder.
        self.escritorio.correr(self.lugar / "desinstalar.exe", "/S")
        self.escritorio.esperar_todos()  # it goes on as a copy of itself
        self.assertEqual({a for a in self.archivos() - antes if a.parts[0] != "Quorvela"}, set())
        self.assertEqual(antes - self.archivos(), set())
        self.assertNotIn("parvanel", self.registro())
        self.assertGreater(len(contenido(self.escritorio.c / ARCHIVO)), 100)

    def test_instalado_esTambienElDelServicioDeVerdad(self):
        self.instalar()
        self.assertIn(f'"displayversion"="{VERSION}"', self.registro())
        self.abrir_del_menu("Parvanel")
        self.ventana.esperar_texto("Contraseña")
        self.cerrar()

    @unittest.skipUnless(REVISOR, "the reviewer is not among the programs")
    def test_instalado_revisaTambien(self):
        self.instalar()
        self.abrir_del_menu("Revisor de Históricos", "Revisor de Históricos")
        self.ventana.esperar_texto("Otra carpeta")
        self.cerrar()

    def test_instalarSobreSiMismo_quedaIgual(self):
        self.instalar()
        primero = contenido(self.lugar)
        (self.lugar / "parvanel.exe").write_bytes(b"una version de antes")
        self.instalar()
        self.assertEqual(contenido(self.lugar), primero)

    def test_instalarConElProgramaAbierto_loDiceYNoCambiaNada(self):
        self.instalar()
        (self.lugar / "manual.html").write_bytes(b"el de antes")
        antes = contenido(self.lugar)
        self.abrir_del_menu("Parvanel")
        self.assertEqual(self.instalar(estricta=False), ABIERTO)
        self.assertEqual(contenido(self.lugar), antes)
        self.ventana.esperar_texto("Contraseña")
        self.cerrar()
        self.instalar()
        self.assertNotEqual(contenido(self.lugar), antes)

    def test_desinstalarConElProgramaAbierto_loDiceYNoQuitaNada(self):
        self.instalar()
        antes = contenido(self.lugar)
        self.abrir_del_menu("Parvanel")
        self.assertEqual(self.desinstalar(estricta=False), ABIERTO)
        self.assertEqual(contenido(self.lugar), antes)
        self.assertTrue((self.c / MENU / "Parvanel.lnk").exists())
        self.assertIsNotNone(self.entrada(TODOS))
        self.cerrar()
        self.desinstalar()
        self.assertIsNone(self.entrada(TODOS))

    def test_portatil_funcionaDesdeCualquierCarpeta(self):
        carpeta = self.escritorio.c / "Mis programas del año"
        with zipfile.ZipFile(PORTATIL) as portatil:
            portatil.extractall(carpeta)
        programa = carpeta / f"Parvanel-{VERSION}" / "parvanel-demo.exe"
        self.assertTrue(programa.with_name("parvanel.exe").exists())
        self.ventana = self.escritorio.abrir([programa], TITULO)
        self.secretaria = SecretariaVista(self.ventana)
        traido = contenido(carpeta)
        self.hacer_un_historico()
        self.assertEqual(contenido(carpeta), traido)


if __name__ == "__main__":
    unittest.main(verbosity=2)
