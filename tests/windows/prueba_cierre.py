# SPDX-License-Identifier: MIT
"""Closing the window of the Windows program ends the process at once, whatever it is doing, with
exit code 0.

At once is well under a second; the limit here only guards against a process that goes on with what
it is doing, on a machine that may be busy.
"""

import unittest

from escena_windows import ARCHIVO, EscenaWindows, entrar_en_red_propia

LIMITE = 20.0  # seconds; a download takes longer, and so does a request that is never answered


def setUpModule():  # pylint: disable=invalid-name
    entrar_en_red_propia()


class Cierre(EscenaWindows):
    def setUp(self):
        self.servir()
        self.preparar()
        self.abrir()

    def cerrar_y_comprobar(self):
        self.ventana.cerrar(LIMITE)
        self.assertEqual(self.ventana.proceso.returncode, 0)
        pedidas = len(self.servicio.peticiones)
        # Nothing of it goes on.
        self.escritorio.esperar_todos()
        self.assertEqual(len(self.servicio.peticiones), pedidas)

    def test_cerrarEnReposo_termina(self):
        self.cerrar_y_comprobar()

    def test_cerrarEnMedioDeUnaPeticion_termina(self):
        self.servicio.callar("login.php")
        self.secretaria.escribir_cuenta()
        self.ventana.tecla("Return")
        self.ventana.esperar(lambda: self.servicio.peticiones, "nothing is asked for")
        self.cerrar_y_comprobar()

    def test_cerrarEnMedioDeLaPausaDeUnaDescarga_termina(self):
        # Photos are almost nothing but pauses, in which no handler runs.
        self.secretaria.entrar()
        self.secretaria.empezar_descarga()
        fotos = self.escritorio.c / ARCHIVO / "archivos" / "fotos"
        self.ventana.esperar(lambda: len(list(fotos.glob("*"))) > 1, "no photo comes", 180)
        self.cerrar_y_comprobar()
        self.assertFalse((fotos.parent / "images" / "labels").exists())

    def test_cerrarAnteUnMensaje_termina(self):
        self.secretaria.escribir_cuenta(clave="otra")
        self.ventana.tecla("Return")
        self.ventana.mensaje()
        self.cerrar_y_comprobar()


if __name__ == "__main__":
    unittest.main(verbosity=2)
