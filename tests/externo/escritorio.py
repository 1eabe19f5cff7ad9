# SPDX-License-Identifier: MIT
"""A virtual desktop of its own for driving a program from outside, as a person would.

    with Escritorio() as escritorio:
        ventana = escritorio.abrir([programa], "Parvanel Version 4.0")
        ventana.pulsar("push button", "Conectar")

It has its own display, window manager, session bus, accessibility bus, home folder and XDG
folders, so that any number of them run side by side on one machine, with or without a real
desktop. Everything started is ended with it, by process id.
"""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

from pantalla import Pantalla
from procesos import Camada, esperar
from ventana import Ventana

# What a person's own session would pass on, and what would make a run differ from another.
AJENAS = ("DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY", "DBUS_", "AT_SPI_", "XDG_", "LC_", "LANG",
          "QT_", "GTK_", "GDK_", "KDE_", "GNOME_", "DESKTOP_SESSION", "BROWSER", "CUPS_",
          "http_proxy", "https_proxy", "all_proxy", "no_proxy",
          "HTTP_PROXY", "HTTPS_PROXY", "ALL_PROXY", "NO_PROXY")

# A bus without activation: a service that nobody started is simply not there, and every process
# of the desktop is one that this module started.
BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={ruta}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


class Escritorio:
    """`casa` is the home folder that programs see; one of its own, removed at the end, unless
    given. `entorno` holds further variables for them. Programs put into the folder `previa` come
    before the machine's own."""

    def __init__(self, casa=None, ancho=1280, alto=1024, entorno=None):
        self.carpeta = Path(tempfile.mkdtemp(prefix="escritorio-"))
        self.casa = Path(casa) if casa else self.carpeta / "casa"
        self._tamano = f"{ancho}x{alto}x24"
        self.previa = self.carpeta / "bin"
        self._extra = dict(entorno or {})
        self._camada = Camada()
        self.entorno = {}
        self.bus_accesible = None
        self.pantalla = None

    def __enter__(self):
        try:
            self._iniciar()
        except BaseException:
            self.parar()
            raise
        return self

    def __exit__(self, *_):
        self.parar()

    def parar(self):
        self._camada.terminar()
        shutil.rmtree(self.carpeta, ignore_errors=True)

    def lanzar(self, argumentos, **opciones):
        """Starts a program on this desktop: subprocess.Popen with its environment."""
        opciones.setdefault("env", self.entorno)
        opciones.setdefault("cwd", self.casa)
        return self._camada.lanzar(argumentos, **opciones)

    def abrir(self, argumentos, titulo, plazo=30):
        """Starts a program and returns its window of that title once it can be used."""
        salida = open(self.carpeta / "salida", "ab")  # pylint: disable=consider-using-with
        proceso = self.lanzar(argumentos, stdout=salida, stderr=salida)
        salida.close()
        return Ventana(self, proceso, titulo, plazo)

    def xdg(self, nombre):
        """One of the XDG folders: "CONFIG_HOME", "DATA_HOME", "STATE_HOME", ..."""
        return Path(self.entorno[f"XDG_{nombre}"])

    def salida(self):
        """What the programs of the desktop have written so far."""
        return (self.carpeta / "salida").read_text(encoding="utf-8", errors="replace")

    def _iniciar(self):
        self._preparar_carpetas()
        self._iniciar_pantalla()
        self.pantalla = Pantalla(self.entorno)
        self.entorno["DBUS_SESSION_BUS_ADDRESS"] = self._iniciar_sesion()
        self.bus_accesible = self._iniciar_accesibilidad()
        self._iniciar_gestor()

    def _preparar_carpetas(self):
        # Beside the home folder, so that whatever appears in it is of the program under test.
        carpetas = {f"XDG_{nombre}": self.carpeta / nombre.lower() for nombre in
                    ("CONFIG_HOME", "DATA_HOME", "STATE_HOME", "CACHE_HOME", "RUNTIME_DIR")}
        for carpeta in carpetas.values():
            carpeta.mkdir(mode=0o700)
        self.previa.mkdir()
        self.casa.mkdir(parents=True, exist_ok=True)
        self.entorno = {n: v for n, v in os.environ.items() if not n.startswith(AJENAS)}
        self.entorno |= {n: str(r) for n, r in carpetas.items()}
        self.entorno |= {"HOME": str(self.casa), "LC_ALL": "C.UTF-8", "TZ": "UTC",
                         "PATH": f"{self.previa}:{os.environ['PATH']}",
                         "QT_QPA_PLATFORM": "xcb", "QT_ACCESSIBILITY": "1",
                         "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        self.entorno |= self._extra

    def _iniciar_pantalla(self):
        leer, escribir = os.pipe()
        self._camada.lanzar(
            ["Xvfb", "-displayfd", escribir, "-screen", "0", self._tamano, "-dpi", "96",
             "-nolisten", "tcp", "-noreset"],
            pass_fds=[escribir], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(escribir)
        with os.fdopen(leer) as tubo:
            numero = tubo.readline().strip()  # empty when the server ended without starting
        if not numero:
            raise RuntimeError("Xvfb does not start")
        self.entorno["DISPLAY"] = f":{numero}"

    def _iniciar_sesion(self):
        zocalo = self.carpeta / "sesion"
        reglas = self.carpeta / "sesion.conf"
        reglas.write_text(BUS.format(ruta=zocalo), encoding="utf-8")
        self._servidor("dbus-daemon", "--nofork", "--nosyslog", f"--config-file={reglas}")
        esperar(zocalo.exists, falla="dbus-daemon does not start")
        return f"unix:path={zocalo}"

    # Qt shows its elements only to a bus that this launcher answers for.
    def _iniciar_accesibilidad(self):
        self._servidor("/usr/libexec/at-spi-bus-launcher", "--launch-immediately")
        return esperar(lambda: self.pantalla.orden(
            "dbus-send", "--session", "--print-reply=literal", "--dest=org.a11y.Bus",
            "/org/a11y/bus", "org.a11y.Bus.GetAddress", estricta=False).strip(),
            falla="no accessibility bus")

    def _iniciar_gestor(self):
        self._servidor("openbox")
        senal = "_NET_SUPPORTING_WM_CHECK"
        esperar(lambda: "window id" in self.pantalla.orden("xprop", "-root", senal),
                falla="openbox does not start")

    def _servidor(self, *argumentos):
        self._camada.lanzar(argumentos, env=self.entorno, stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL)
