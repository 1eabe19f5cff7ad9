# SPDX-License-Identifier: MIT
"""Plays the secretary's work on the real window, with real clicks and typing, and leaves what
came of it in a folder: the archive, a picture of each mode and of the running download, and, with
a print server at hand, a printed report card.

    jugar.py PROGRAM FOLDER

Exits with another code than 0 if anything went wrong.
"""

import contextlib
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

import navegador
from escritorio import Escritorio
from procesos import esperar
from secretaria import CLAVE, PAGINAS_EN_MARCHA, TITULO, USUARIO, Secretaria

PRUEBAS_IMPRESION = Path(__file__).resolve().parent.parent / "worker"
DOCUMENTOS = ("salones", "consolidadoN", "consolidadoF", "infoFinal", "certificados",
              "matriculas", "infoAlumnos", "fotos")


class Funcion:
    """One performance of the whole, its steps in order."""

    def __init__(self, programa, carpeta, cups):
        self.programa = Path(programa).resolve()
        self.carpeta = Path(carpeta).resolve()
        self.cups = cups
        self.historico = self.carpeta / "casa" / "Quorvela" / "123-2010"
        self.inicio = time.monotonic()

    def correr(self):
        entorno = self.cups.entorno() if self.cups else {}
        with Escritorio(casa=self.carpeta / "casa", entorno=entorno) as self.escritorio:
            navegador.poner_de_omision(self.escritorio)
            self.ventana = self.escritorio.abrir([self.programa], TITULO)
            self.secretaria = Secretaria(self.ventana)
            try:
                self.entrar()
                self.descargar()
                self.abrir_historico()
                self.imprimir()
                self.decir("Cierra la ventana")
                self.ventana.cerrar()
            except BaseException:
                self.ultima_imagen()
                raise
            if self.ventana.proceso.returncode != 0:
                raise AssertionError(f"the program ended with {self.ventana.proceso.returncode}")

    def entrar(self):
        self.decir(f"Entra con el usuario {USUARIO}")
        self.secretaria.escribir_cuenta(USUARIO, CLAVE)
        self.retratar("1-login")
        self.ventana.tecla("Return")
        self.secretaria.conectada()
        self.retratar("2-conectado")

    def descargar(self):
        self.secretaria.ir_a("Descargar Historicos")
        self.retratar("3-descargar-historicos")
        self.decir("Descarga el histórico: medio minuto")
        self.secretaria.empezar_descarga()
        self.ventana.esperar_rotulo(PAGINAS_EN_MARCHA, plazo=120)
        self.retratar("4-descargando", quieta=False)
        if self.ventana.mensaje(plazo=120) != "Listo Historico":
            raise AssertionError("the download does not end with its message")
        self.retratar("5-listo")
        self.ventana.aceptar_mensaje()
        vacias = [d for d in DOCUMENTOS if not list((self.historico / "archivos" / d).glob("*"))]
        if vacias or not (self.historico / "index.html").stat().st_size:
            raise AssertionError(f"the archive lacks {vacias or 'its front page'}")

    def abrir_historico(self):
        self.decir("Abre el histórico en el navegador")
        self.secretaria.ver_historico(r"C:\Quorvela\123-2010")
        self.retratar("6-ver-mis-historicos")
        pantalla = self.escritorio.pantalla
        # Its title is the front page's.
        navegando = esperar(lambda: pantalla.ventana("Sedes y salones"), 60,
                            "no browser shows the archive's front page")
        pantalla.retratar(navegando, self.carpeta / "7-historico-abierto.png")
        self.ventana.al_frente()

    def imprimir(self):
        self.secretaria.preparar_impresion(self.secretaria.salones()[0], "Boletines", periodo=2)
        self.retratar("8-imprimir-en-lote")
        if not self.cups:
            self.decir("Sin servidor de impresión a mano, no imprime")
            return
        self.decir("Imprime los boletines de un salón")
        cuantos = self.alumnos_del_primer_salon()
        self.secretaria.imprimir()
        impresos = self.cups.esperar_capturados(cuantos, plazo=120)
        if len(impresos) != cuantos:
            raise AssertionError(f"{len(impresos)} printed instead of {cuantos}")
        shutil.copy(impresos[0].archivo, self.carpeta / "boletin.pdf")
        subprocess.run(["pdftoppm", "-png", "-r", "80", "-f", "1", "-singlefile",
                        self.carpeta / "boletin.pdf", self.carpeta / "boletin"],
                       check=True, timeout=60)

    # A report card was stored for each student before it was printed.
    def alumnos_del_primer_salon(self):
        salon = self.secretaria.salones()[0].split()[0]
        pagina = (self.historico / "archivos" / "salones" / f"{salon}.html").read_bytes()
        return pagina.count(b"../infoAlumnos/")

    def retratar(self, nombre, quieta=True):
        self.ventana.retratar(self.carpeta / f"{nombre}.png", quieta)

    def ultima_imagen(self):
        with contextlib.suppress(Exception):
            self.retratar("al-fallar", quieta=False)

    def decir(self, texto):
        print(f"[{time.monotonic() - self.inicio:5.1f} s] {texto}", flush=True)


@contextlib.contextmanager
def servidor_de_impresion(programa):
    """A print server that keeps what it prints; None where the print worker was not built."""
    if not (Path(programa).resolve().parent / "parvanel-print").exists():
        yield None
        return
    sys.path.insert(0, str(PRUEBAS_IMPRESION))
    from cups_privado import CupsPrivado  # pylint: disable=import-outside-toplevel,import-error
    with CupsPrivado() as cups:
        cups.agregar_cola("lote", media="na_letter_8.5x11in")
        cups.poner_predeterminada("lote")
        yield cups


def principal():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    programa, carpeta = sys.argv[1:]
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))  # so that everything is ended
    with servidor_de_impresion(programa) as cups:
        Funcion(programa, carpeta, cups).correr()


if __name__ == "__main__":
    principal()
