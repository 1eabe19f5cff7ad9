# SPDX-License-Identifier: MIT
"""The whole work by keys alone, from the login to the opened archive: what a person does who has no
mouse, or does not see its pointer. Nothing is pointed at here."""

import unittest

from escena import Escena, programa_anotador
from secretaria import CLAVE, PLAZO_DESCARGA, USUARIO

SIN_ACCESO = "Usuario y/o Contraseña incorrectas, intentelo de nuevo"


class Teclado(Escena):
    def setUp(self):
        self.abrir()

    def esperar_foco(self, rol, nombre):
        self.ventana.esperar(lambda: self.ventana.buscar(rol, nombre).enfocado,
                             f"the focus does not come to «{nombre}»")

    def esperar_elegida(self, fila):
        self.ventana.esperar(lambda: self.ventana.buscar("list item", fila).elegido,
                             f"«{fila}» is not chosen")

    def ir_con(self, combinacion, modo):
        self.ventana.tecla(combinacion)
        self.ventana.buscar("panel", modo)
        self.esperar_foco("radio button", modo)

    def test_todoElTrabajo_seHaceSinRaton(self):
        notas = programa_anotador(self.escritorio.previa, "xdg-open")
        self.entrar()
        self.descargar()
        self.imprimir()
        self.abrir_historico(notas)
        self.ventana.tecla("alt+F4")
        self.assertEqual(self.ventana.proceso.wait(30), 0)

    def entrar(self):
        self.esperar_foco("text", "Usuario")
        self.ventana.teclear(USUARIO)
        self.ventana.tecla("Tab")
        self.esperar_foco("text", "Contraseña")
        self.ventana.teclear("mal escrita")
        self.ventana.tecla("Return")
        self.assertEqual(self.ventana.cerrar_mensaje(), SIN_ACCESO)
        self.esperar_foco("text", "Contraseña")
        self.ventana.teclear(CLAVE)  # in place of what stands there
        self.ventana.tecla("Return")
        self.assertEqual(self.secretaria.conectada(), "123")

    def descargar(self):
        self.esperar_foco("radio button", "Login")
        self.ventana.tecla("Right")
        self.ventana.buscar("panel", "Descargar Historicos")
        self.ventana.tecla("Tab")
        self.esperar_foco("push button", "Descargar")
        self.ventana.tecla("Return")
        self.ventana.buscar("progress bar", "Avance de la descarga")
        self.assertEqual(self.ventana.cerrar_mensaje(plazo=PLAZO_DESCARGA), "Listo Historico")
        # Its button is gone for good.
        self.esperar_foco("radio button", "Descargar Historicos")
        self.ir_con("Left", "Login")
        self.ir_con("Up", "Ver mis Historicos")
        self.ir_con("Down", "Login")

    def imprimir(self):
        self.ir_con("ctrl+3", "Imprimir en Lote")
        salones = self.secretaria.salones()
        self.ventana.tecla("Tab")
        self.ventana.esperar(
            lambda: self.ventana.buscar("list item", salones[0]).enfocado, "no current row")
        self.assertFalse(self.ventana.buscar("list item", salones[0]).elegido)
        self.ventana.tecla("Down")
        self.esperar_elegida(salones[0])
        self.ventana.tecla("Tab", "Down")
        self.esperar_eleccion("Que Imprimir", "Boletines")
        self.ventana.tecla("Tab", "Down", "Down")
        self.esperar_eleccion("Periodo", "Periodo 2")
        self.ventana.tecla("Tab", "Down")
        self.esperar_foco("radio button", "Solo Descargar")
        self.ventana.tecla("Tab")
        self.imprimir_salon()
        # The next classroom: back to the list, down, and on to the button again.
        self.ventana.tecla("shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab", "Down")
        self.esperar_elegida(salones[1])
        self.ventana.tecla("Tab", "Tab", "Tab", "Tab")
        self.imprimir_salon()

    def esperar_eleccion(self, combo, texto):
        self.esperar_foco("combo box", combo)
        self.ventana.esperar(lambda: self.ventana.buscar("combo box", combo).texto == texto,
                             f"«{texto}» is not chosen")

    def imprimir_salon(self):
        """Presses the button that has the focus, and has it again once the job is over."""
        carpeta = self.escritorio.casa / "Quorvela" / "123-2010/archivos/boletines/P2"
        antes = len(list(carpeta.glob("*.html")))
        self.esperar_foco("push button", "Imprimir")
        self.ventana.tecla("Return")
        self.ventana.esperar(lambda: len(list(carpeta.glob("*.html"))) > antes, "nothing is stored")
        self.esperar_foco("push button", "Imprimir")

    def abrir_historico(self, notas):
        self.ir_con("ctrl+4", "Ver mis Historicos")
        self.ventana.tecla("Tab", "Return")
        self.esperar_elegida(r"C:\Quorvela\123-2010")
        self.ventana.tecla("Tab")
        self.esperar_foco("push button", "Ver Historico Año Seleccionado")
        self.ventana.tecla("space")
        self.ventana.esperar(lambda: notas.exists() and notas.read_bytes(), "nothing was opened")
        portada = self.escritorio.casa / "Quorvela" / "123-2010" / "index.html"
        self.assertEqual(notas.read_bytes(), bytes(portada) + b"\0\0")


if __name__ == "__main__":
    unittest.main(verbosity=2)
