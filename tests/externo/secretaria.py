# SPDX-License-Identifier: MIT
"""What a school secretary does with the program's window."""

import re

USUARIO, CLAVE = "secretaria", "demo2010"
TITULO = "Parvanel Version 4.0"
MODOS = ("Login", "Descargar Historicos", "Imprimir en Lote", "Ver mis Historicos")
TIPOS = ("Boletines", "Informe Final", "Certificado Final", "Paz Y Salvos", "Observador",
         "Hoja Matricula", "Planilla Trabajo")
# How the progress text of a running download begins while pages are fetched, one request after
# another without pauses. The photos, which are mostly pauses and take seconds, come last, so that
# a busy machine does not miss all of them.
PAGINAS_EN_MARCHA = ("Descargando Consolidado Notas (", "Informe Final (", "Certificado (",
                     "Hoja Matricula (", "InfoAlumno (", "Foto de alumno (")
PLAZO_DESCARGA = 180  # about 30 s, most of it the pauses between files


class Secretaria:
    def __init__(self, ventana):
        self.ventana = ventana

    def escribir_cuenta(self, usuario=USUARIO, clave=CLAVE):
        """Fills in both boxes, whatever stood in them."""
        self.ventana.escribir("text", "Usuario", usuario)
        self.ventana.escribir("text", "Contraseña", clave)

    def entrar(self):
        """Logs in; the school's id, as the window shows it."""
        self.escribir_cuenta()
        self.ventana.pulsar("push button", "Conectar")
        return self.conectada()

    def conectada(self):
        """Waits until the window says that the login was accepted; the school's id."""
        colegio = self.ventana.esperar_rotulo("Conectado OK:").partition(":")[2]
        # The last thing that a login does.
        self.ventana.esperar(self.salones, "the classrooms are not listed")
        return colegio

    def ir_a(self, modo):
        """Chooses one of the four modes."""
        self.ventana.pulsar("radio button", modo)
        self.ventana.buscar("panel", modo)

    def empezar_descarga(self):
        self.ir_a("Descargar Historicos")
        self.ventana.pulsar("push button", "Descargar")
        self.ventana.buscar("progress bar", "Avance de la descarga")

    def descargar(self):
        """Downloads the whole archive and puts the last message away."""
        self.empezar_descarga()
        texto = self.ventana.aceptar_mensaje(plazo=PLAZO_DESCARGA)
        if texto != "Listo Historico":
            raise AssertionError(f"the run ended with «{texto}»")

    def ver_historico(self, carpeta):
        """Picks an archive (its Windows path) and opens it."""
        self.ir_a("Ver mis Historicos")
        self.ventana.pulsar("list item", carpeta)
        self.ventana.esperar(
            lambda: self.ventana.buscar("push button", "Ver Historico Año Seleccionado").activo,
            "the button stays disabled")
        self.ventana.pulsar("push button", "Ver Historico Año Seleccionado")

    def salones(self):
        """The lines of the classroom list: number, hyphen, name."""
        return [e.nombre_visto for e in self.ventana.elementos()
                if e.rol == "list item" and re.match(r"\s*\d", e.nombre_visto)]

    def preparar_impresion(self, salon, tipo, periodo=None):
        """Makes the choices of the print panel; `salon` is a line of its list."""
        self.ir_a("Imprimir en Lote")
        self.ventana.pulsar("list item", salon)
        self.ventana.elegir("Que Imprimir", TIPOS.index(tipo))
        if periodo:
            self.ventana.elegir("Periodo", periodo - 1)

    def imprimir(self):
        """Starts the job that has been prepared. It may be over before anybody sees its bar."""
        self.ventana.pulsar("push button", "Imprimir")
