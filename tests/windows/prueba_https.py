# SPDX-License-Identifier: MIT
"""The Windows program itself, over HTTPS, as it is handed out: at its service's own name, vouched
for by an authority of the test's own, which stands among those of this system, where Wine has the
ones of its drive from.
"""

import shutil
import tempfile
import unittest
from pathlib import Path

import red_propia
from autoridad import Autoridad
from escena_windows import (ARCHIVO, HTTPS, EscenaWindows, contenido, entrar_en_red_propia,
                            sin_azar)
from red_propia import ANFITRION
from secretaria_vista import dice

DEL_SISTEMA = "/etc/ssl/certs/ca-certificates.crt"


class Https(EscenaWindows):
    @classmethod
    def setUpClass(cls):
        entrar_en_red_propia()
        carpeta = tempfile.mkdtemp(prefix="autoridad-")
        cls.addClassCleanup(shutil.rmtree, carpeta)
        cls.autoridad = Autoridad(carpeta)
        red_propia.poner(DEL_SISTEMA, Path(cls.autoridad.certificado).read_bytes())

    def test_descarga_igualQueEnLinux(self):
        self.servir(HTTPS, *self.autoridad.avalar("buena", ANFITRION))
        escritorio, secretaria = self.en_linux("bin/parvanel")
        secretaria.entrar()
        secretaria.descargar()
        secretaria.ventana.cerrar()
        pedido, self.servicio.peticiones[:] = sin_azar(self.servicio.peticiones), []
        self.preparar()
        self.abrir("bin/parvanel.exe")
        self.secretaria.entrar()
        self.secretaria.descargar()
        self.cerrar()
        self.assertEqual(sin_azar(self.servicio.peticiones), pedido)
        guardado = contenido(self.escritorio.c / ARCHIVO)
        esperado = contenido(escritorio.casa / ARCHIVO)
        self.assertGreater(len(esperado), 100)
        self.assertEqual(sorted(guardado), sorted(esperado))
        self.assertEqual([n for n in esperado if guardado[n] != esperado[n]], [])

    def test_identidadQueNoVale_diceLoQueEnLinux(self):
        identidades = {"of another host": self.autoridad.avalar("ajena", "otro.parvanel.example"),
                       "expired": self.autoridad.avalar("vencida", ANFITRION, dias=-1),
                       "its own": self.autoridad.por_si_mismo(
                           "propia", ANFITRION, "-addext", f"subjectAltName=DNS:{ANFITRION}")}
        for cual, identidad in identidades.items():
            with self.subTest(cual):
                self.servir(HTTPS, *identidad)
                self.intentar_en_los_dos()
                # The name and the password are told to nobody of that kind.
                self.assertEqual(self.servicio.peticiones, [])
                self.doCleanups()

    def intentar_en_los_dos(self):
        _, secretaria = self.en_linux("bin/parvanel")
        secretaria.escribir_cuenta()
        secretaria.ventana.tecla("Return")
        dicho = secretaria.ventana.mensaje()
        self.preparar()
        self.abrir("bin/parvanel.exe")
        self.secretaria.escribir_cuenta()
        self.ventana.tecla("Return")
        leido = self.ventana.cerrar_mensaje()
        self.assertTrue(dice(leido, dicho), f"«{leido}» instead of «{dicho}»")
        self.cerrar()


if __name__ == "__main__":
    unittest.main(verbosity=2)
