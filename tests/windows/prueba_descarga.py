# SPDX-License-Identifier: MIT
"""The main job of the Windows program: what it asks for and what it stores is what the Linux
program asks for and stores."""

import contextlib
import os
import stat
import unittest

from escena_windows import (ARCHIVO, WINDOWS, EscenaWindows, contenido, entrar_en_red_propia,
                            sin_azar)
from escritorio_wine import PLAZO
from procesos import esperar

LARGO = "7" * 225  # a student's code that makes paths longer than 260 characters
RETENIDO, PROTEGIDO = "archivos/salones/601.html", "archivos/salones/501.html"
VIEJO = b"de antes"


def setUpModule():  # pylint: disable=invalid-name
    entrar_en_red_propia()


class Descarga(EscenaWindows):
    def descargar_en_linux(self):
        """What the Linux program stores, and what it asks for."""
        escritorio, secretaria = self.en_linux()
        secretaria.entrar()
        secretaria.descargar()
        secretaria.ventana.cerrar()
        pedido, self.servicio.peticiones[:] = sin_azar(self.servicio.peticiones), []
        return contenido(escritorio.casa / ARCHIVO), pedido

    def descargar(self):
        self.abrir()
        self.secretaria.entrar()
        self.secretaria.descargar()

    def test_deUsuarioConTildes_igualQueEnLinux(self):
        self.servir()
        esperado, pedido = self.descargar_en_linux()
        self.assertGreater(len(esperado), 100)
        self.preparar(usuario="José Ñandú")
        self.assertTrue((self.escritorio.c / "users" / "José Ñandú").is_dir())
        antes = self.fuera_del_historico()
        self.descargar()
        self.cerrar()
        self.assertEqual(sin_azar(self.servicio.peticiones), pedido)
        self.comparar(contenido(self.escritorio.c / ARCHIVO), esperado)
        self.assertEqual(self.fuera_del_historico(), antes)

    def test_conEstorbosYRutasLargas_guardaTodoLoDemas(self):
        self.servir()
        self.servicio.cambiar("1001", LARGO)
        esperado, _ = self.descargar_en_linux()
        self.assertTrue(any(LARGO in nombre for nombre in esperado))
        self.preparar()
        historico = self.escritorio.c / ARCHIVO
        (historico / "archivos/salones").mkdir(parents=True)
        for nombre in (RETENIDO, PROTEGIDO):
            (historico / nombre).write_bytes(VIEJO)
        (historico / PROTEGIDO).chmod(stat.S_IRUSR)
        with self.retener(historico / RETENIDO):
            self.descargar()
            self.cerrar()
        guardado = contenido(historico)
        self.assertEqual(guardado.pop(RETENIDO), VIEJO)
        esperado.pop(RETENIDO)
        self.comparar(guardado, esperado)

    @contextlib.contextmanager
    def retener(self, archivo):
        """Another program has it open meanwhile."""
        senal = self.escritorio.casa / "retenido"
        otro = self.escritorio.lanzar_wine(
            [WINDOWS / "tests/bin/sujeta.exe", *map(self.escritorio.de_windows, (archivo, senal))])
        esperar(senal.exists, PLAZO, "the file is not held")
        yield
        self.assertIsNone(otro.poll())
        otro.terminate()

    def comparar(self, guardado, esperado):
        self.assertEqual(sorted(guardado), sorted(esperado))
        # By name alone: nobody reads pages and pictures in a report.
        self.assertEqual([n for n in esperado if guardado[n] != esperado[n]], [])

    def fuera_del_historico(self):
        """The names of what there is on drive C besides the archives."""
        c = self.escritorio.c
        return {os.path.join(lugar, nombre) for lugar, carpetas, nombres in os.walk(c)
                for nombre in carpetas + nombres
                if not os.path.join(lugar, nombre).startswith(str(c / "Quorvela"))}


if __name__ == "__main__":
    unittest.main(verbosity=2)
