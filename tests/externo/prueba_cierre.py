# SPDX-License-Identifier: MIT
"""Closing the window ends the process at once, whatever it is doing, with exit code 0.

At once is well under a second; the limit here only guards against a process that goes on with
what it is doing, on a machine that may be busy. The time taken is reported.
"""

import unittest

from escena import Escena
from secretaria import PAGINAS_EN_MARCHA

LIMITE = 5.0  # seconds


class Cierre(Escena):
    def setUp(self):
        self.abrir()

    def cerrar(self, cuando):
        segundos = self.ventana.cerrar(LIMITE)
        print(f"closed {cuando}: {segundos * 1000:.0f} ms", flush=True)
        self.assertEqual(self.ventana.proceso.returncode, 0)

    def test_cerrarEnReposo_termina(self):
        self.cerrar("at rest")

    def test_cerrarEnMedioDeUnaPeticion_termina(self):
        self.secretaria.entrar()
        self.secretaria.empezar_descarga()
        self.ventana.esperar_rotulo(PAGINAS_EN_MARCHA, plazo=60)
        self.cerrar("in the middle of a request")

    def test_cerrarEnMedioDeLaPausaDeUnaDescarga_termina(self):
        # Photos are almost nothing but pauses, in which no handler runs.
        self.secretaria.entrar()
        self.secretaria.empezar_descarga()
        self.ventana.esperar_rotulo("Foto de alumno (", plazo=60)
        self.cerrar("in the middle of a pause")
        # What had been written stays as it is, and nothing more is written.
        archivos = self.escritorio.casa / "Quorvela" / "123-2010" / "archivos"
        self.assertEqual(len(list((archivos / "infoAlumnos").glob("*.html"))), 24)
        self.assertFalse((archivos / "images" / "labels").exists())

    def test_cerrarAnteUnMensaje_termina(self):
        self.secretaria.escribir_cuenta(clave="otra")
        self.ventana.tecla("Return")
        self.ventana.mensaje()
        self.cerrar("in the middle of a message box")


if __name__ == "__main__":
    unittest.main(verbosity=2)
