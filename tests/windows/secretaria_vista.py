# SPDX-License-Identifier: MIT
"""What a school secretary does with the program's window by its keys, looking at what comes."""

from secretaria import CLAVE, MODOS, PLAZO_DESCARGA, TIPOS, USUARIO
from vista import parecidos

# What stands in each mode's panel and in no other, once logged in.
SENALES = {"Login": "Conectado OK:123", "Descargar Historicos": "Archivos a descargar",
           "Imprimir en Lote": "Seleccione un Salon",
           "Ver mis Historicos": "Seleccione el historico"}
SIN_ACCESO = "Usuario y/o Contraseña incorrectas, intentelo de nuevo"


class SecretariaVista:
    def __init__(self, ventana):
        self.ventana = ventana
        self._boton = None

    def escribir_cuenta(self, usuario=USUARIO, clave=CLAVE):
        """Fills in both boxes, as soon as the program is open: the first one has the focus."""
        self.ventana.esperar_texto("Usuario")
        self.ventana.teclear(usuario)
        self.ventana.tecla("Tab")
        self.ventana.teclear(clave)

    def entrar(self):
        self.escribir_cuenta()
        self.ventana.tecla("Return")
        self.ventana.esperar_texto(SENALES["Login"])

    def ir_a(self, modo):
        """Chooses one of the four modes; the focus is on its name."""
        self.ventana.tecla(f"ctrl+{MODOS.index(modo) + 1}")
        self.ventana.esperar_texto(SENALES[modo])

    def empezar_descarga(self):
        self.ir_a("Descargar Historicos")
        self.ventana.tecla("Tab", "Return")

    def descargar(self):
        """Downloads the whole archive and puts the last message away."""
        self.empezar_descarga()
        texto = self.ventana.cerrar_mensaje(plazo=PLAZO_DESCARGA * 2)
        if "Historico" not in texto:
            raise AssertionError(f"the run ended with «{texto}»")

    def imprimir(self, tipo, periodo=None):
        """Starts a job for the first classroom."""
        self.ir_a("Login")  # from where every key is known
        self.ir_a("Imprimir en Lote")
        self.ventana.tecla("Tab", "Home")
        self.ventana.tecla("Tab", "Home", *["Down"] * TIPOS.index(tipo))
        if periodo:
            self.ventana.tecla("Tab", "Home", *["Down"] * (periodo - 1))
        self.ventana.tecla("Tab", "Tab")
        self._boton = self.ventana.orla()
        self.ventana.tecla("Return")

    def puede_imprimir(self):
        """Whether the button for it is back, with the focus, as it was before it was pressed."""
        return self.ventana.orla() == self._boton

    def ver_historico(self):
        """Opens the first archive of the list."""
        self.ir_a("Ver mis Historicos")
        self.ventana.tecla("Tab", "Home", "Tab", "space")


def dice(texto, buscado):
    """Whether a text that has been read says this somewhere, over the ends of its lines too."""
    palabras, cuantas = texto.split(), len(buscado.split())
    return any(parecidos(" ".join(palabras[i:i + cuantas]), buscado)
               for i in range(len(palabras)))
