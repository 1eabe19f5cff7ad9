# SPDX-License-Identifier: MIT
"""A window that can only be looked at: its words are read off its picture.

For programs whose elements nothing tells of from outside. What is read is what a person sees;
letters that look alike may be taken for each other, so that words are compared with some leniency.
"""

import csv
import difflib
import io
import os
import subprocess
from dataclasses import dataclass

from ventana import PLAZO, Ventana

AUMENTO = 3  # a screen's letters are too small to be read as they are
PARECIDO = 0.8


@dataclass
class Palabra:
    """Its place is in pixels of the picture."""
    texto: str
    x: float
    y: float
    ancho: float
    alto: float

    @property
    def medio(self):
        return self.x + self.ancho / 2, self.y + self.alto / 2


class Lectura:
    """The words of a picture, a line after another."""

    def __init__(self, imagen):
        # Light on dark is read less surely than dark on light.
        oscura = float(_convertir(imagen, "-format", "%[fx:mean]", "info:")) < 0.5
        grande = _convertir(imagen, *["-negate"] * oscura, "-resize", f"{AUMENTO * 100}%", "png:-")
        # As words strewn over it, and as a page: the first passes over what stands in boxes, the
        # second over what stands alone.
        self._paginas = [_leer(grande, "11"), _leer(grande, "3")]
        self.palabras = [p for pagina in self._paginas for p in pagina]

    def texto(self):
        return " ".join(p.texto for p in self.palabras)

    def donde(self, buscado):
        """The middle of the words that stand beside each other so, or None."""
        cuantas = len(buscado.split())
        for linea in (r for pagina in self._paginas for r in _renglones(pagina)):
            for i in range(len(linea) - cuantas + 1):
                trozo = linea[i:i + cuantas]
                if parecidos(" ".join(p.texto for p in trozo), buscado):
                    puntos = [p.medio for p in trozo]
                    return (sum(x for x, _ in puntos) / cuantas,
                            sum(y for _, y in puntos) / cuantas)
        return None


def parecidos(leido, buscado):
    """Whether what was read is that text, a misread letter aside."""
    comparacion = difflib.SequenceMatcher(None, leido.casefold(), buscado.casefold())
    return comparacion.ratio() >= PARECIDO


def _convertir(imagen, *cambios):
    return subprocess.run(["convert", "png:-", "-colorspace", "Gray", *cambios], input=imagen,
                          check=True, timeout=60, capture_output=True).stdout


def _leer(imagen, reparto):
    # In one thread: several of them only get in each other's way on so small a picture.
    tabla = subprocess.run(["tesseract", "-", "-", "-l", "spa", "--psm", reparto, "tsv"],
                           input=imagen, check=True, timeout=120, capture_output=True,
                           env={**os.environ, "OMP_THREAD_LIMIT": "1"}).stdout.decode()
    filas = csv.DictReader(io.StringIO(tabla), delimiter="\t", quoting=csv.QUOTE_NONE)
    return [Palabra(f["text"], *(int(f[c]) / AUMENTO for c in ("left", "top", "width", "height")))
            for f in filas if f["text"] and f["text"].strip()]


# Which words stand on one line is told by where they stand.
def _renglones(palabras):
    renglones = []
    for palabra in sorted(palabras, key=lambda p: p.medio[1]):
        ultimo = renglones[-1] if renglones else None
        if ultimo and palabra.medio[1] - ultimo[-1].medio[1] < palabra.alto / 2:
            ultimo.append(palabra)
        else:
            renglones.append([palabra])
    return [sorted(r, key=lambda p: p.x) for r in renglones]


class VentanaVista(Ventana):
    """As Ventana, without anybody to ask for elements: what is waited for is seen."""

    def __init__(self, escritorio, proceso, titulo,  # pylint: disable=super-init-not-called
                 plazo=PLAZO):
        self._escritorio = escritorio
        self._pantalla = escritorio.pantalla
        self.proceso = proceso
        self.titulo = titulo
        self.x = self.esperar(lambda: self._ventana(titulo), f"no window {titulo}", plazo)
        self.esperar(lambda: self._pantalla.enfocada() == self.x, f"{titulo} has no focus", plazo)

    def leer(self):
        """What stands in the window at this moment."""
        return self._leer(self.x)

    def esperar_texto(self, *textos, plazo=PLAZO):
        """Waits until one of these can be read in the window; which one."""
        ultima = None

        def visto():
            nonlocal ultima
            ultima = self.leer()
            return next((t for t in textos if ultima.donde(t)), None)
        return self.esperar(visto, lambda: f"no {textos} in «{ultima.texto()}»", plazo)

    def orla(self):
        """The picture of the window's lower edge, once it stands still: colours alone."""
        archivo = self._escritorio.carpeta / "orla.png"
        self._pantalla.retratar(self.x, archivo)
        return subprocess.run(["convert", archivo, "-gravity", "South", "-crop", "100%x15%+0+0",
                               "rgb:-"], check=True, timeout=60, capture_output=True).stdout

    def pulsar_texto(self, texto):
        """Clicks on what is written so."""
        self.esperar_texto(texto)
        donde = self.leer().donde(texto)
        x, y, *_ = self._pantalla.geometria(self.x)
        izquierda, _, arriba, _ = self._pantalla.marco(self.x)
        self._pantalla.pulsar(x - izquierda + donde[0], y - arriba + donde[1])

    def mensaje(self, titulo="Parvanel", plazo=PLAZO):
        """Waits for a message box and returns what is written in it."""
        cuadro = self.esperar(lambda: self._ventana(titulo), "no message box", plazo)
        # It may not have been drawn yet.
        return self.esperar(lambda: self._leer(cuadro).texto(), "an empty message box")

    # By a key that is pressed for nothing else: Wine misses that it is let go when the box is gone
    # before, and takes its next press for one of a key held down.
    def cerrar_mensaje(self, tecla="Escape", titulo="Parvanel", plazo=PLAZO):
        texto = self.mensaje(titulo, plazo)
        self.esperar(lambda: self._pantalla.enfocada() == self._ventana(titulo),
                     "the message box has no focus")
        self.tecla(tecla)
        self.esperar(lambda: not self._ventana(titulo), "the message box stays", plazo)
        self.esperar(lambda: self._pantalla.enfocada() == self.x, "the window has no focus")
        return texto

    def _leer(self, ventana):
        archivo = self._escritorio.carpeta / "vista.png"
        self._pantalla.retratar(ventana, archivo, quieta=False)
        return Lectura(archivo.read_bytes())

    def _ventana(self, titulo):
        return self._pantalla.ventana(f"^{titulo}$")
