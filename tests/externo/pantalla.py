# SPDX-License-Identifier: MIT
"""What a person does with a screen whatever program is on it: point, type, look."""

import re
import subprocess
import time
from pathlib import Path


class Pantalla:
    """`entorno` names the display."""

    def __init__(self, entorno):
        self._entorno = entorno

    def orden(self, *argumentos, estricta=True):
        """Runs one of the desktop's tools and returns what it wrote."""
        hecho = subprocess.run([str(a) for a in argumentos], env=self._entorno, timeout=30,
                               stdin=subprocess.DEVNULL, capture_output=True, text=True,
                               check=False)
        if estricta and hecho.returncode != 0:
            raise RuntimeError(f"{argumentos}: {hecho.stderr.strip()}")
        return hecho.stdout

    def ventana(self, titulo, pid=None):
        """The window that can be seen and has that title (a regular expression), else None."""
        de = ["--all", "--pid", pid] if pid else []
        halladas = self.orden("xdotool", "search", "--onlyvisible", *de, "--name", titulo,
                              estricta=False).split()
        return int(halladas[0]) if halladas else None

    def enfocada(self):
        """The window that has the focus, or None."""
        numero = self.orden("xdotool", "getactivewindow", estricta=False).strip()
        return int(numero) if numero else None

    def geometria(self, ventana):
        """Place on the screen of the window's inside, and its size: x, y, width, height."""
        # Not asked of xdotool, which counts the frame of a decorated window twice.
        datos = self.orden("xwininfo", "-id", ventana)
        return tuple(int(re.search(rf"{campo}: +(-?\d+)", datos).group(1)) for campo in
                     ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))

    def marco(self, ventana):
        """Widths of the frame around the window: left, right, top, bottom."""
        datos = self.orden("xprop", "-id", ventana, "_NET_FRAME_EXTENTS")
        if "=" not in datos:
            return 0, 0, 0, 0  # it draws its own
        return tuple(int(n) for n in datos.partition("=")[2].split(","))

    def pulsar(self, x, y):
        """A click of the left button."""
        # Without xdotool's --sync, which waits for 15 s when the pointer is there already.
        self.orden("xdotool", "mousemove", round(x), round(y), "click", "1")

    def teclear(self, texto):
        self.orden("xdotool", "type", "--delay", "12", "--", texto)

    def tecla(self, *teclas):
        self.orden("xdotool", "key", "--delay", "30", *teclas)

    def retratar(self, ventana, archivo, quieta=True):
        """Saves a picture of the window with its frame as PNG; `quieta`: once it stands still."""
        imagen = self._imagen(ventana)
        if quieta:
            # Two equal pictures in a row: it has drawn what it was told to draw.
            tope = time.monotonic() + 5
            while (otra := self._imagen(ventana)) != imagen and time.monotonic() < tope:
                imagen = otra
        Path(archivo).write_bytes(imagen)

    # Cut out of the whole screen, so that it holds what a person sees there: a message box in
    # front of the window, too.
    def _imagen(self, ventana):
        x, y, ancho, alto = self.geometria(ventana)
        izquierda, derecha, arriba, abajo = self.marco(ventana)
        trozo = (f"{ancho + izquierda + derecha}x{alto + arriba + abajo}"
                 f"+{x - izquierda}+{y - arriba}")
        return subprocess.run(["import", "-window", "root", "-crop", trozo, "+repage", "-strip",
                               "png:-"], env=self._entorno, check=True, timeout=30,
                              stdin=subprocess.DEVNULL, capture_output=True).stdout
