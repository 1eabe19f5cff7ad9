# SPDX-License-Identifier: MIT
"""The login panel, from outside: what is offered before and after, and every answer of it."""

import unittest

from escena import Escena
from secretaria import MODOS

MALAS = "Usuario y/o Contraseña incorrectas, intentelo de nuevo"
OTRO_ROL = "Nivel de acceso inadecuado, se requiere Usuario y Pasword de Secretaria"


class Ingreso(Escena):
    def setUp(self):
        self.abrir()

    def modos_ofrecidos(self):
        return [m for m in MODOS if self.ventana.a_la_vista("radio button", m)]

    def test_alAbrir_ofreceSoloLoginYEscribeEnUsuario(self):
        self.assertEqual(self.modos_ofrecidos(), ["Login"])
        self.assertEqual(self.ventana.tamano(), (623, 484))
        self.assertTrue(self.ventana.buscar("text", "Usuario").enfocado)
        self.ventana.teclear("ana")
        self.ventana.esperar(lambda: self.ventana.buscar("text", "Usuario").texto == "ana",
                             "what is typed does not reach the user box")

    def test_todoControl_tieneNombre(self):
        controles = ("push button", "radio button", "text", "combo box", "progress bar", "list")
        # The lists inside closed combo boxes are no controls of their own.
        combos = {h for e in self.ventana.elementos() if e.rol == "combo box" for h in e.hijos()}
        sin_nombre = [e for e in self.ventana.elementos() if e.rol in controles
                      and not e.nombre_visto and e.ruta not in combos]
        self.assertEqual(sin_nombre, [])

    def test_botonConectar_daPasoALosOtrosModos(self):
        self.assertEqual(self.secretaria.entrar(), "123")
        self.assertEqual(self.modos_ofrecidos(), list(MODOS))
        for rol, nombre in (("text", "Usuario"), ("text", "Contraseña"),
                            ("push button", "Conectar")):
            self.assertFalse(self.ventana.buscar(rol, nombre).activo, nombre)
        self.assertTrue(self.ventana.a_la_vista("panel", "Login"))
        for modo in MODOS:
            self.secretaria.ir_a(modo)
            self.assertEqual([m for m in MODOS if self.ventana.a_la_vista("panel", m)], [modo])

    def test_returnEnContrasena_conecta(self):
        self.secretaria.escribir_cuenta()
        self.ventana.tecla("Return")
        self.assertEqual(self.secretaria.conectada(), "123")

    def test_returnEnUsuario_conecta(self):
        self.ventana.escribir("text", "Contraseña", "demo2010")
        self.ventana.escribir("text", "Usuario", "secretaria")
        self.ventana.tecla("Return")
        self.assertEqual(self.secretaria.conectada(), "123")

    def test_contrasenaErrada_daMensajeYDejaVolverAIntentar(self):
        self.secretaria.escribir_cuenta(clave="otra")
        self.ventana.tecla("Return")
        self.assertEqual(self.ventana.aceptar_mensaje(), MALAS)
        self.assertEqual(self.modos_ofrecidos(), ["Login"])
        self.assertEqual(self.secretaria.entrar(), "123")

    def test_cuentaDeDocente_daMensajeYNoEntra(self):
        self.secretaria.escribir_cuenta(usuario="docente")
        self.ventana.tecla("Return")
        self.assertEqual(self.ventana.aceptar_mensaje(), OTRO_ROL)
        self.assertEqual(self.modos_ofrecidos(), ["Login"])

    def test_anteUnMensaje_laVentanaNoRecibeNada(self):
        self.secretaria.escribir_cuenta(usuario="nadie")
        self.ventana.tecla("Return")
        self.ventana.mensaje()
        self.ventana.pulsar("text", "Contraseña")
        self.ventana.teclear("xyz")
        self.assertEqual(self.ventana.aceptar_mensaje(), MALAS)
        # The password can be seen nowhere; it is still the right one if it is accepted.
        self.ventana.escribir("text", "Usuario", "secretaria")
        self.ventana.tecla("Return")
        self.assertEqual(self.secretaria.conectada(), "123")


if __name__ == "__main__":
    unittest.main(verbosity=2)
