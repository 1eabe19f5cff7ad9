# SPDX-License-Identifier: MIT
"""The secretary's work by ear: a screen reader speaks, and what it says is written out here.

By keyboard alone, each key after what the one before it made the reader say: while a reader runs,
keys go to it before they go to the window, and a click would overtake them.
"""

import re
import subprocess
import unittest

from escena import Escena, programa_anotador
from lector import Lector, coincide
from procesos import esperar
from secretaria import CLAVE, USUARIO

PLAZO = 240  # only a guard
ELEGIDO = "selected radio button"
PASOS = ("Descargando Scripts", "Descargando Configuracion", "Descargando Logotipos",
         "Descargando Salones", "Descargando Consolidado Notas", "Descargando Consolidado Fallas",
         "Descargando Informes Finales", "Descargando Certificados Finales",
         "Descargando Hojas de Matricula", "Descargando Informacion de Alumnos",
         "Descargando Imagenes de Alumnos", "Descargando Labels de Materias")

# What the reader says or not as its own clock has it.
DE_MAS = re.compile(r"(Progress bar \d+\. )?\d+ percent\.|Parvanel Version 4\.0( frame)?\."
                    r"|Screen reader on\.")
# A panel is entered: all its texts, in the order in which they are laid out.
TEXTOS_DESCARGA = re.compile("Con esta opcion usted descarga los archivos historicos .*"
                             "C:.Quorvela", re.DOTALL)
TEXTOS_IMPRESION = "Los Boletines descargados se almacenan en la carpeta Historicos"


class PorOido(Escena):
    def setUp(self):
        self.preparar()
        self.guion = []
        self.quizas = []  # what may be said in addition
        self.abrir_programa()
        # A program that starts after its reader may say that it has come before it is listened to.
        self.lector = Lector(self.escritorio)
        self.oir("Login panel.", "Usuario text.")

    def oir(self, *frases, tras=0):
        """Waits until these have been said, after the first `tras` phrases."""
        self.guion += frases
        self.lector.esperar(*frases, desde=tras)

    def pulsar(self, tecla, *frases):
        """Presses a key and waits until the reader has said what it makes it say."""
        hasta_aqui = len(self.lector.frases())
        self.ventana.tecla(tecla)
        self.oir(*frases, tras=hasta_aqui)

    def comprobar_nada_mas(self):
        """Whatever else has been said belongs to what a reader may say at any time."""
        pendientes = list(self.guion)
        sobran = []
        for dicha in self.lector.frases():
            esperada = next((f for f in pendientes if coincide(f, dicha)), None)
            if esperada is not None:
                pendientes.remove(esperada)
            elif dicha in self.quizas:
                self.quizas.remove(dicha)
            elif not DE_MAS.fullmatch(dicha):
                sobran.append(dicha)
        self.assertEqual(sobran, [])
        self.assertEqual(pendientes, [])

    def entrar(self):
        self.ventana.teclear(USUARIO)
        self.pulsar("Tab", "Contraseña password text.")
        callado = self.lector.todo()
        self.ventana.teclear(CLAVE)
        self.pulsar("Return", "notification Conectado OK:123.", "Login.", ELEGIDO)
        self.secretaria.conectada()
        letras = [t for c, t in self.lector.todo()[len(callado):] if c != "habla"]
        self.assertEqual([t for t in letras if t not in ("tab", "return")], [])

    def descargar(self):
        self.pulsar("Right", "Descargar Historicos.", ELEGIDO)
        self.pulsar("Tab", "Descargar Historicos panel.", TEXTOS_DESCARGA, "Descargar push button.")
        antes = len(self.lector.frases())
        anuncios = [f"notification {paso}." for paso in PASOS]
        # The focus goes back to the mode when the button is hidden.
        self.pulsar("space", "Descargar Historicos.", ELEGIDO, *anuncios, "alert Parvanel.",
                    "Listo Historico.", "OK push button.")
        dichas = self.lector.frases()[antes:]
        self.assertEqual([d for d in dichas if d.startswith("notification")], anuncios)
        self.assertLess(dichas.index(anuncios[-1]), dichas.index("Listo Historico."))
        self.pulsar("Return", "Descargar Historicos.", ELEGIDO)

    def ver_historico(self):
        abierto = programa_anotador(self.escritorio.previa, "xdg-open")
        self.pulsar("Right", "Imprimir en Lote.", ELEGIDO)
        self.pulsar("Right", "Ver mis Historicos.", ELEGIDO)
        self.pulsar("Tab", "Ver mis Historicos panel.", "Historicos almacenados.",
                    "List with 1 item.", "C:\\Quorvela\\123-2010.")
        self.pulsar("space", "selected")
        self.pulsar("Tab", "Ver Historico Año Seleccionado push button.")
        self.ventana.tecla("space")
        esperar(abierto.exists, PLAZO, "nothing is opened")

    def imprimir(self):
        self.pulsar("Tab", "Ver mis Historicos.", ELEGIDO)
        self.pulsar("Left", "Imprimir en Lote.", ELEGIDO)
        self.pulsar("Tab", "Imprimir en Lote panel.", TEXTOS_IMPRESION, "Seleccione un Salon.",
                    "List with 3 items.", "501   : QUINTO A.")
        self.pulsar("space", "selected")
        self.pulsar("Tab", "Que Imprimir combo box.", "Seleccione que Imprimir.")
        for tipo in ("Boletines", "Informe Final", "Certificado Final", "Paz Y Salvos",
                     "Certificado Final"):
            self.pulsar("Up" if tipo in self.lector.frases() else "Down", tipo)
        self.pulsar("Down", "Paz Y Salvos")
        self.pulsar("Tab", "Descargar e Imprimir.", ELEGIDO)
        self.pulsar("Down", "Solo Descargar.", ELEGIDO)
        self.pulsar("shift+Tab", "Que Imprimir combo box.", "Paz Y Salvos.")
        self.pulsar("Tab", "Solo Descargar.", ELEGIDO)
        self.pulsar("Tab", "Imprimir push button.")
        # The focus waits at the mode while the button is hidden: for so short that it is heard of
        # or not.
        self.pulsar("space", "notification Avance de la impresion: 100%")
        self.quizas += ["Imprimir en Lote.", ELEGIDO, "Imprimir push button."]

    def test_todoElTrabajo_seOyeComoEstaEscrito(self):
        self.entrar()
        self.descargar()
        self.ver_historico()
        self.imprimir()
        self.comprobar_nada_mas()
        carpeta = self.escritorio.casa / "Quorvela" / "123-2010" / "archivos" / "pazysalvos"
        self.assertTrue(list(carpeta.glob("*.html")))

    def test_ingresoRechazado_seOye(self):
        self.ventana.teclear(USUARIO)
        self.pulsar("Tab", "Contraseña password text.")
        self.ventana.teclear("otra")
        self.pulsar("Return", "alert Parvanel.",
                    "Usuario y/o Contraseña incorrectas, intentelo de nuevo.", "OK push button.")
        self.comprobar_nada_mas()


class Bus:
    """What goes over the accessibility bus, noted by a monitor of its own."""

    def __init__(self, escritorio):
        self._escritorio = escritorio
        self._archivo = escritorio.carpeta / "bus"
        with open(self._archivo, "wb") as salida:
            escritorio.lanzar(["dbus-monitor", "--address", escritorio.bus_accesible],
                              stdout=salida, stderr=subprocess.DEVNULL)
        self._marcas = 0
        # Not before it listens: a signal of our own comes through.
        esperar(lambda: self._senal("empieza"), PLAZO, "the bus is not monitored")

    def hasta_aqui(self):
        """All that has crossed so far, as text."""
        self._marcas += 1
        senal = f"marca{self._marcas}"
        self._senal(senal)
        esperar(lambda: f"member={senal}" in self._todo(), PLAZO, "the monitor falls behind")
        return self._todo()

    def _senal(self, nombre):
        self._escritorio.pantalla.orden(
            "dbus-send", f"--bus={self._escritorio.bus_accesible}", "--type=signal",
            "/prueba", f"prueba.Marca.{nombre}")
        return f"member={nombre}" in self._todo()

    def _todo(self):
        return self._archivo.read_text(encoding="utf-8", errors="replace")


TECLA = re.compile(r"member=NotifyListenersSync\n   struct \{\n      uint32 \d+\n"
                   r"      int32 (-?\d+)\n      int32 (-?\d+)\n      int32 (-?\d+)\n"
                   r"      int32 -?\d+\n      string \"(.*)\"")


class PorElBus(Escena):
    def setUp(self):
        self.preparar()
        self.abrir_programa()
        self.lector = Lector(self.escritorio)
        self.lector.esperar("Usuario text.")
        self.bus = Bus(self.escritorio)

    def test_clave_noCruzaElBus(self):
        inicio = len(self.bus.hasta_aqui())
        self.ventana.teclear(USUARIO)
        self.ventana.esperar(lambda: self.ventana.buscar("text", "Usuario").texto == USUARIO,
                             "the user's name does not arrive")
        usuario = self.bus.hasta_aqui()
        # That is how the name came: so this would see the password as well.
        self.assertEqual("".join(t for *_, t in TECLA.findall(usuario[inicio:]))[::2],
                         "".join(USUARIO))
        self.assertIn("member=TextChanged", usuario[inicio:])

        # Without a stop, as somebody types it who knows it by heart, with a slip.
        self.escritorio.pantalla.orden(
            "xdotool", "key", "--delay", "12", "Tab", *CLAVE[:3], "x", "BackSpace", *CLAVE[3:],
            "Return")
        self.lector.esperar("notification Conectado OK:123.")
        self.assertEqual(self.secretaria.conectada(), "123")
        clave = self.bus.hasta_aqui()[len(usuario):]
        teclas = TECLA.findall(clave)
        self.assertGreaterEqual(len(teclas), 2 * len(CLAVE))
        self.assertEqual({t for t in teclas if t[3] not in ("Tab", "BackSpace", "Return")
                          and t[0] not in ("65289", "65288", "65293")},
                         {("16777215", "0", "0", "")})
        self.assertNotIn("member=TextChanged", clave)
        self.assertNotIn("member=TextCaretMoved", clave)
        self.assertNotIn(CLAVE, clave)
        self.assertEqual([t for c, t in self.lector.todo() if c != "habla" and t in CLAVE
                          and t not in USUARIO], [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
