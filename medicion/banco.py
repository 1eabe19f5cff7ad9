# SPDX-License-Identifier: MIT
"""What measures: the service, the display, homes, processes, and the figures that come of them."""

import contextlib
import ctypes
import json
import os
import signal
import statistics
import subprocess
import tempfile
import threading
import time
from dataclasses import dataclass
from pathlib import Path

AQUI = Path(__file__).resolve().parent
RAIZ = AQUI.parent
BIN = RAIZ / "build" / "bench" / "bin"
AUTORIDADES = Path("/etc/ssl/certs/ca-certificates.crt")
PAUSA = 0.5  # seconds after each file download
PLAZO = 3600  # seconds; only a guard against a run that never ends

libc = ctypes.CDLL(None)


# -- what is measured -----------------------------------------------------------------------------

@dataclass
class Escuela:
    """The size of a school; the first is the one of 2,849 requests."""

    salones: int = 18
    alumnos: int = 500
    materias: int = 6
    pagina: int = 10 * 1024
    foto_cada: int = 2

    def orden(self):
        return (f"escuela {self.salones} {self.alumnos} {self.materias} {self.pagina}"
                f" {self.foto_cada}")


@dataclass
class Cifra:
    """One line of the table. `alcance` is the most that it may be; None: told, not judged."""

    que: str
    medido: float
    alcance: float = None
    unidad: str = ""
    nota: str = ""

    def texto(self, valor):
        if valor is None:
            return "-"
        if self.unidad == "x":
            return f"{valor:.3f} x" if valor < 10 else f"{valor:.1f} x"
        return f"{valor:,.0f} {self.unidad}" if valor >= 1000 else f"{valor:.3g} {self.unidad}"

    def juicio(self):
        if self.alcance is None:
            return ""
        return "yes" if self.medido <= self.alcance else "NO"


class Serie(list):
    """The same figure of several runs."""

    @property
    def mediana(self):
        return statistics.median(self)

    def __str__(self):
        return f"{min(self):.3g} / {self.mediana:.3g} / {max(self):.3g}"


def series(corridas, campo):
    return Serie(una[campo] for una in corridas)


def razon(que, unas, otras, campo, alcance):
    """The ratio of two medians, with the spread of either beside it."""
    estas, aquellas = series(unas, campo), series(otras, campo)
    return Cifra(que, estas.mediana / aquellas.mediana, alcance, "x",
                 f"{estas} s to {aquellas} s")


# -- processes ------------------------------------------------------------------------------------

def morir_con_esta():
    PR_SET_PDEATHSIG = 1
    libc.prctl(PR_SET_PDEATHSIG, signal.SIGKILL)


def lanzar(argumentos, **opciones):
    return subprocess.Popen([str(a) for a in argumentos], preexec_fn=morir_con_esta, **opciones)


def correr(argumentos, entorno, salida=subprocess.PIPE):
    """Runs a program to its end: what it printed, its wall and processor time in seconds,
    the most memory in MB that was ever resident."""
    antes = time.monotonic()
    proceso = lanzar(argumentos, env=entorno, stdin=subprocess.DEVNULL, stdout=salida,
                     stderr=subprocess.DEVNULL)
    guarda = threading.Timer(PLAZO, proceso.kill)
    guarda.start()
    try:
        dicho = proceso.stdout.read() if proceso.stdout else b""
        if proceso.stdout:
            proceso.stdout.close()
        # Not proceso.wait(): the processor time of the process and of its children comes with it.
        _, estado, uso = os.wait4(proceso.pid, 0)
        proceso.returncode = os.waitstatus_to_exitcode(estado)
    finally:
        guarda.cancel()
    return {"dicho": dicho, "codigo": proceso.returncode, "pared": time.monotonic() - antes,
            "cpu": uso.ru_utime + uso.ru_stime, "memoria": uso.ru_maxrss / 1024}


def cpu_de(pid):
    campos = Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    return (int(campos[11]) + int(campos[12])) / os.sysconf("SC_CLK_TCK")


class Banco:
    """Service, display and homes; one for the whole measurement."""

    def __init__(self, rapido):
        self.repeticiones = 3 if rapido else 7
        self.rapido = rapido
        self._pila = contextlib.ExitStack()

    def __enter__(self):
        # On a disk, files made within seconds of the deletion of many others cost several times
        # more than they do later.
        memoria = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
        try:
            self.carpeta = Path(self._pila.enter_context(
                tempfile.TemporaryDirectory(prefix="bench-", dir=memoria)))
            self._pantalla()
            self._servicio()
        except BaseException:
            self._pila.close()
            raise
        return self

    def __exit__(self, *_):
        self._pila.close()

    def _pantalla(self):
        leer, escribir = os.pipe()
        self.xvfb = self._pila.enter_context(self._acabar(lanzar(
            ["Xvfb", "-displayfd", escribir, "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
            pass_fds=[escribir], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)))
        os.close(escribir)
        with os.fdopen(leer) as numero:
            self.pantalla = ":" + numero.readline().strip()

    def _servicio(self):
        autoridad = self.carpeta / "autoridad.pem"
        self.servicio = self._pila.enter_context(self._acabar(lanzar(
            [BIN / "bench-servicio", autoridad], env=self.entorno(self.carpeta), text=True,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE)))
        self.llano, self.cifrado = self.servicio.stdout.readline().split()
        # As large as a real one: a bundle that is read again for each request shows.
        self.autoridades = self.carpeta / "autoridades.pem"
        sistema = AUTORIDADES.read_bytes() if AUTORIDADES.exists() else b""
        self.autoridades.write_bytes(autoridad.read_bytes() + sistema)

    @staticmethod
    @contextlib.contextmanager
    def _acabar(proceso):
        try:
            yield proceso
        finally:
            proceso.kill()
            proceso.wait()

    def ordenar(self, orden):
        """A command to the service, and its answer."""
        self.servicio.stdin.write(orden + "\n")
        self.servicio.stdin.flush()
        respuesta = self.servicio.stdout.readline().split()
        if not respuesta or respuesta[0] != "ok":
            raise RuntimeError(f"the service did not take: {orden}")
        return respuesta[1:]

    def poner(self, escuela, demora=0):
        self.ordenar(escuela.orden())
        self.ordenar(f"demora {demora}")
        self.pedidas()

    def pedidas(self):
        """The file of the addresses asked for since the last call, and how many they are."""
        archivo = self.carpeta / "direcciones"
        return archivo, int(self.ordenar(f"volcar {archivo}")[0])

    @contextlib.contextmanager
    def casa(self):
        with tempfile.TemporaryDirectory(prefix="casa-", dir=self.carpeta) as carpeta:
            yield Path(carpeta)

    def entorno(self, casa):
        """Nothing of the caller's desktop, proxy or language."""
        return {"PATH": os.environ["PATH"], "HOME": str(casa), "LC_ALL": "C.UTF-8", "TZ": "UTC",
                "XDG_RUNTIME_DIR": str(casa), "DISPLAY": getattr(self, "pantalla", ""),
                "QT_QPA_PLATFORM": "xcb", "DBUS_SESSION_BUS_ADDRESS": "disabled:"}

    def ventana(self, base, *opciones, casa=None, delante=()):
        """A run of the real window: its own figures, and what display and service spent on it."""
        with contextlib.ExitStack() as pila:
            casa = casa or pila.enter_context(self.casa())
            self.pedidas()
            otros = {"xvfb": self.xvfb.pid, "servicio": self.servicio.pid}
            antes = {nombre: cpu_de(pid) for nombre, pid in otros.items()}
            hecho = correr([*delante, BIN / "bench-ventana", base, "--autoridades",
                            self.autoridades, "--desde", time.monotonic(), *opciones],
                           self.entorno(casa))
            if hecho["codigo"] != 0:
                raise RuntimeError(f"the window ended with {hecho['codigo']}")
            medida = json.loads(hecho["dicho"])
            medida["direcciones"], medida["peticiones"] = self.pedidas()
            for nombre, pid in otros.items():
                medida[f"cpu_{nombre}"] = cpu_de(pid) - antes[nombre]
            return medida

    def bucle(self, direcciones, delante=()):
        with self.casa() as casa:
            hecho = correr([*delante, BIN / "bench-bucle", direcciones, casa, self.autoridades],
                           self.entorno(casa))
        medida = json.loads(hecho["dicho"])
        if medida["fallidas"]:
            raise RuntimeError(f"{medida['fallidas']} requests of the bare loop failed")
        return medida

    def ajeno(self, programa, direcciones, muestra):
        """One of the tools that everybody knows, over the first of the same addresses; its times
        are brought up to all of them: some take minutes where the others take seconds."""
        todas = direcciones.read_text().splitlines()
        with self.casa() as casa:
            lista = casa / "direcciones"
            lista.write_text("".join(f"{una}\n" for una in todas[:muestra]))
            argumentos = AJENOS[programa](lista, casa, self.autoridades)
            hecho = correr(argumentos, self.entorno(casa), salida=subprocess.DEVNULL)
        if hecho["codigo"] != 0:
            raise RuntimeError(f"{programa} ended with {hecho['codigo']}")
        veces = len(todas) / min(len(todas), muestra)
        return {campo: hecho[campo] * veces for campo in ("pared", "cpu")}

    def rotar(self, medidores, veces=None):
        """Runs each of the named functions in turn, several times, beginning with another one
        each time, and gives the list of results of each."""
        nombres = list(medidores)
        corridas = {nombre: [] for nombre in nombres}
        for vez in range(veces or self.repeticiones):
            for i in range(len(nombres)):
                nombre = nombres[(vez + i) % len(nombres)]
                corridas[nombre].append(medidores[nombre]())
        return corridas


def orden_curl(direcciones, casa, autoridades):
    # A file of its own for each body, as the others write them.
    lista = casa / "lista"
    lista.write_text("".join(f'url = "{una}"\noutput = "{casa}/{i}"\n' for i, una in
                             enumerate(direcciones.read_text().splitlines())))
    return ["curl", "-q", "-s", "--globoff", "--noproxy", "*", "--cacert", autoridades, "-K",
            lista]


def orden_wget(programa, *mas):
    def orden(direcciones, casa, autoridades):
        return [programa, "-q", "--no-config", "--no-proxy", f"--ca-certificate={autoridades}",
                *mas, "-P", casa, "-i", direcciones]
    return orden


AJENOS = {
    "curl": orden_curl,
    "wget": orden_wget("wget"),
    "wget2": orden_wget("wget2", "--max-threads=1", "--no-robots"),
}
