# SPDX-License-Identifier: MIT
"""The reviewer of archives from outside: real clicks and keys on the built program, with an archive
that the real program has downloaded.

PARVANEL_HISTORICO names a home folder that holds such an archive; the tests work in a copy.
PARVANEL_RETRATOS names a folder for pictures of every verdict in light and dark colours and at the
desktop's scales, to be looked at. docs/imagenes/revisor-NAME.png are those called light-1-NAME.
"""

import os
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

from escena import programa_anotador
from escritorio import Escritorio

PROGRAMA = os.environ["PARVANEL_REVISOR"]
HISTORICO = Path(os.environ["PARVANEL_HISTORICO"])
RETRATOS = os.environ.get("PARVANEL_RETRATOS")
PORTAL = Path(__file__).resolve().with_name("portal.py")
TITULO = "Revisor de Históricos"
CARPETA = r"C:\Quorvela\123-2010"


class Revisor(unittest.TestCase):
    def preparar(self, **opciones):
        self.escritorio = self.enterContext(Escritorio(**opciones))
        raiz = self.escritorio.casa / "Quorvela"
        shutil.copytree(HISTORICO / "Quorvela", raiz, symlinks=True)
        self.archivos = raiz / "123-2010" / "archivos"

    def abrir(self, **opciones):
        self.preparar(**opciones)
        self.abrir_programa()

    def abrir_programa(self):
        self.ventana = self.escritorio.abrir([PROGRAMA], TITULO)

    # What a person does

    def revisar(self, carpeta, veredicto):
        self.ventana.pulsar("list item", carpeta)
        self.esperar_activo("Revisar")
        self.ventana.pulsar("push button", "Revisar")
        self.ventana.esperar_rotulo(veredicto)

    def esperar_activo(self, boton):
        self.ventana.esperar(lambda: self.ventana.buscar("push button", boton).activo,
                             f"«{boton}» stays disabled")

    def escribir_nombre(self, titulo, nombre):
        """Types a file's name into the dialog of that title, and waits until it has gone."""
        pantalla = self.escritorio.pantalla
        dialogo = self.ventana.esperar(
            lambda: pantalla.ventana(f"^{titulo}", self.ventana.proceso.pid), f"no {titulo}")
        self.ventana.esperar(lambda: pantalla.enfocada() == dialogo, f"{titulo} has no focus")
        self.ventana.tecla("ctrl+a")
        self.ventana.teclear(str(nombre))
        self.ventana.tecla("Return")
        self.ventana.esperar(
            lambda: not pantalla.ventana(f"^{titulo}", self.ventana.proceso.pid),
            f"{titulo} stays")

    def esperar_foco(self):
        self.ventana.esperar(
            lambda: self.escritorio.pantalla.enfocada() == self.ventana.x, "no focus again")

    def guardar(self, boton, nombre):
        self.ventana.pulsar("push button", boton)
        self.escribir_nombre(boton, nombre)

    def comprobar(self, archivo):
        # The menu is a window of its own, of the same title, and on no accessibility tree.
        self.esperar_foco()
        self.ventana.tecla("alt+c")
        self.ventana.esperar(lambda: self.ventanas() > 1, "no menu")
        self.ventana.tecla("z")
        self.escribir_nombre("Comprobar copia", archivo)

    def ventanas(self):
        return len(self.escritorio.pantalla.orden(
            "xdotool", "search", "--onlyvisible", "--class", "example.parvanel.revisor").split())

    def danar(self):
        """Damage that everybody understands; the names of those concerned."""
        paginas = sorted((self.archivos / "infoFinal").glob("*.html"))
        paginas[0].unlink()
        paginas[1].write_bytes(b"\r\n")
        foto = sorted((self.archivos / "fotos").glob("*.jpg"))[0]
        foto.write_bytes(foto.read_bytes()[:200])
        return paginas


class Trabajo(Revisor):
    def test_secretaria_revisaGuardaYComprueba(self):
        self.abrir()
        self.revisar(CARPETA, "Completo")
        casa = self.escritorio.casa
        antes = sorted(self.archivos.rglob("*"))

        self.guardar("Guardar informe", casa / "informe.html")
        self.ventana.esperar_rotulo("Informe guardado: ")
        self.assertIn("Completo", (casa / "informe.html").read_text(encoding="utf-8"))

        self.guardar("Guardar copia", casa / "copia")  # the ending is added
        self.ventana.esperar_rotulo("Copia guardada")
        subprocess.run(["unzip", "-tq", casa / "copia.zip"], check=True, timeout=60,
                       stdout=subprocess.DEVNULL)

        self.comprobar(casa / "copia.zip")
        self.ventana.esperar_rotulo("La copia está intacta")
        self.assertEqual(sorted(self.archivos.rglob("*")), antes)
        self.ventana.cerrar()
        self.assertEqual(self.ventana.proceso.returncode, 0)
        # Nothing of the program's own beside what was asked for.
        self.assertEqual(sorted(p.name for p in casa.iterdir()),
                         ["Quorvela", "copia.zip", "informe.html"])

    def test_danos_seLeenYSeAbreLaPagina(self):
        self.preparar()
        notas = programa_anotador(self.escritorio.previa, "xdg-open")
        paginas = self.danar()
        self.abrir_programa()
        self.revisar(CARPETA, "Faltan documentos")
        # The missing page, which comes first, cannot be opened; the empty one can.
        self.assertFalse(self.ventana.buscar("push button", "Abrir página").activo)
        self.ventana.escribir("text", "Buscar", "VACIA")
        self.ventana.tecla("Tab", "Home", "Down")
        self.esperar_activo("Abrir página")
        self.ventana.pulsar("push button", "Abrir página")
        self.ventana.esperar(notas.exists, "nothing was opened")
        self.assertEqual(notas.read_bytes(), bytes(paginas[1]) + b"\0\0")

    def test_soloConTeclado_seRevisaYSeGuarda(self):
        self.preparar()
        self.danar()
        self.abrir_programa()
        self.ventana.tecla("Return")  # the last archive is chosen, and the list has the focus
        self.ventana.esperar_rotulo("Faltan documentos")
        informe = self.escritorio.casa / "informe.html"
        informe.write_text("de antes", encoding="utf-8")
        self.ventana.tecla("alt+i")
        self.escribir_nombre("Guardar informe", informe)
        # It is there already: nothing is written over unasked.
        self.ventana.buscar("push button", "Reemplazar")
        self.ventana.tecla("Escape")
        self.ventana.esperar(lambda: not self.ventana.a_la_vista("push button", "Reemplazar"),
                             "the question stays")
        self.esperar_foco()
        self.assertEqual(informe.read_text(encoding="utf-8"), "de antes")
        self.ventana.tecla("alt+i")
        self.escribir_nombre("Guardar informe", informe)
        self.ventana.buscar("push button", "Reemplazar")
        self.ventana.tecla("alt+r")
        self.ventana.esperar_rotulo("Informe guardado: ")
        self.assertIn("Faltan documentos", informe.read_text(encoding="utf-8"))

    def test_cerrarMientrasSeGuardaLaCopia_noDejaNada(self):
        self.preparar()
        # Enough to be copied for a while; it takes no room on the disk.
        with open(self.archivos / "enorme.bin", "wb") as enorme:
            enorme.truncate(20 << 30)
        self.abrir_programa()
        self.revisar(CARPETA, "Completo")
        self.guardar("Guardar copia", self.escritorio.casa / "copia.zip")
        self.ventana.esperar(
            lambda: self.ventana.buscar("progress bar", "Avance").valor > 0, "nothing is copied")
        self.ventana.cerrar(30)
        self.assertEqual(self.ventana.proceso.returncode, 0)
        self.assertEqual([p.name for p in self.escritorio.casa.iterdir()], ["Quorvela"])


class Retratos(Revisor):
    """Every verdict as it looks."""

    def test_cadaVeredicto_seVe(self):
        escenas = [(1, "light"), (1, "dark"), (1.5, "light"), (2, "light"), (2, "dark")]
        for escala, colores in escenas if RETRATOS else escenas[:1]:
            with self.subTest(escala=escala, colores=colores):
                self.abrir_a(escala, colores)
                self.retratar_veredictos(f"{colores}-{escala}")
                self.ventana.cerrar()

    def abrir_a(self, escala, colores):
        casa = Path(RETRATOS) / "maria" if RETRATOS else None  # its path is seen in pictures
        if casa:
            shutil.rmtree(casa, ignore_errors=True)
        self.preparar(casa=casa, ancho=round(1000 * escala), alto=round(720 * escala),
                      entorno={"QT_SCALE_FACTOR": str(escala)})
        self.ajena = self.escritorio.casa / "Quorvela" / "Fotos del paseo"
        self.ajena.mkdir()
        portal = self.escritorio.lanzar([sys.executable, "-B", PORTAL, colores],
                                        stdout=subprocess.PIPE)
        self.addCleanup(portal.stdout.close)
        portal.stdout.readline()
        self.abrir_programa()

    def retratar_veredictos(self, prefijo):
        self.retratar(f"{prefijo}-inicio")
        self.revisar(CARPETA, "Completo")
        self.retratar(f"{prefijo}-completo")
        self.danar()
        self.revisar(CARPETA, "Faltan documentos")
        self.retratar(f"{prefijo}-faltan")
        self.ventana.pulsar("radio button", "Agrupar por clase de hallazgo")
        self.retratar(f"{prefijo}-por-clase")
        self.revisar(r"C:\Quorvela\Fotos del paseo", "No es un histórico")
        self.retratar(f"{prefijo}-no-es-historico")
        self.ajena.rmdir()
        self.revisar(r"C:\Quorvela\Fotos del paseo", "No se puede leer")
        self.retratar(f"{prefijo}-no-se-lee")
        self.revisar(CARPETA, "Faltan documentos")
        self.guardar("Guardar copia", self.escritorio.casa / "123-2010.zip")
        self.ventana.esperar_rotulo("Copia guardada")
        self.retratar(f"{prefijo}-copia-guardada")
        self.comprobar(self.escritorio.casa / "123-2010.zip")
        self.ventana.esperar_rotulo("La copia está intacta")
        self.retratar(f"{prefijo}-copia-intacta")

    def retratar(self, nombre):
        if RETRATOS:
            Path(RETRATOS).mkdir(parents=True, exist_ok=True)
            self.ventana.retratar(Path(RETRATOS) / f"{nombre}.png")


if __name__ == "__main__":
    unittest.main(verbosity=2)
