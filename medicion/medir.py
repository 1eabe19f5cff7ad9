# SPDX-License-Identifier: MIT
"""Measures the program beside its yardsticks and prints where it stands; see README.md here.

    medir.py [--quick] [NAME...]      all rows, or those of these names

Nothing is judged by an exit code: a row that cannot be measured says why, and the rest goes on.
"""

import contextlib
import ctypes
import datetime
import json
import os
import platform
import re
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import threading
import time
from dataclasses import dataclass, replace
from pathlib import Path

AQUI = Path(__file__).resolve().parent
RAIZ = AQUI.parent
BIN = RAIZ / "build" / "bench" / "bin"
sys.path.insert(0, str(RAIZ / "tests" / "worker"))
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
    """Runs a program to its end: what it printed, its wall and processor time in seconds."""
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
            "cpu": uso.ru_utime + uso.ru_stime}


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


# -- the rows -------------------------------------------------------------------------------------

def por_peticion(corridas):
    """Microseconds of wall and processor time a request, of the median run."""
    cuantas = corridas[0]["peticiones"]
    return (f"{series(corridas, 'pared').mediana / cuantas * 1e6:.0f} us wall, "
            f"{series(corridas, 'cpu').mediana / cuantas * 1e6:.0f} us CPU a request")


def al_lado(banco, base, escuela, demora=0, ajenos=(), veces=None, muestra=0):
    """The window and the bare loop over the same addresses, in turn, and the tools over the first
    `muestra` of them."""
    banco.poner(escuela, demora)
    primera = banco.ventana(base)  # not counted: it warms caches and says the addresses
    direcciones = banco.carpeta / "medidas"
    shutil.copy(primera["direcciones"], direcciones)
    medidores = {"ventana": lambda: banco.ventana(base), "bucle": lambda: banco.bucle(direcciones)}
    for programa in ajenos:
        if shutil.which(programa):
            medidores[programa] = lambda p=programa: banco.ajeno(p, direcciones, muestra)
    corridas = banco.rotar(medidores, veces)
    if any(una["peticiones"] != primera["peticiones"] for una in corridas["ventana"]):
        raise RuntimeError("two runs did not ask for as much")
    return corridas


def cercano(banco, base, alcance_pared, alcance_cpu, muestra):
    corridas = al_lado(banco, base, Escuela(), ajenos=AJENOS, muestra=muestra)
    ventana, bucle = corridas["ventana"], corridas["bucle"]
    una, cuantas = ventana[0], ventana[0]["peticiones"]
    sucesos = una["sucesos"]
    cifras = [razon("wall", ventana, bucle, "pared", alcance_pared),
              razon("CPU", ventana, bucle, "cpu", alcance_cpu),
              Cifra("requests", cuantas, nota=f"window: {por_peticion(ventana)}; "
                                              f"bare loop: {por_peticion(bucle)}"),
              Cifra("drawn within the pauses, a request", una["enPausas"] / cuantas * 1e6,
                    unidad="us", nota="in the CPU above, and not in the wall time"),
              Cifra("paints a request", sucesos.get("Paint", 0) / cuantas),
              Cifra("layouts asked for a request", sucesos.get("LayoutRequest", 0) / cuantas),
              Cifra("CPU of the display", series(ventana, "cpu_xvfb").mediana, unidad="s"),
              Cifra("CPU of the service", series(ventana, "cpu_servicio").mediana, unidad="s")]
    for programa in AJENOS:
        if programa in corridas:
            cifras.append(razon(f"wall of {programa}", corridas[programa], bucle, "pared", None))
            cifras.append(razon(f"CPU of {programa}", corridas[programa], bucle, "cpu", None))
    return cifras


def llano(banco):
    return cercano(banco, banco.llano, 1.8, 2, 3000)


def cifrado(banco):
    return cercano(banco, banco.cifrado, 1.15, 1.3, 100)


def lejano(banco):
    escuela = Escuela(salones=6, alumnos=30)
    veces = 1 if banco.rapido else 3
    cifras = []
    for nombre, base in (("plain", banco.llano), ("TLS", banco.cifrado)):
        cerca = al_lado(banco, base, escuela)
        lejos = al_lado(banco, base, escuela, demora=50, veces=veces)
        # A machine that sleeps between two replies wakes up with its caches cold: what the bare
        # loop spends more on that is none of the program's doing.
        cifras += [razon(f"{nombre}: wall", lejos["ventana"], lejos["bucle"], "pared", 1.01),
                   razon(f"{nombre}: CPU beside 0 ms", lejos["ventana"], cerca["ventana"], "cpu",
                         1.0),
                   razon(f"{nombre}: CPU of the bare loop beside 0 ms", lejos["bucle"],
                         cerca["bucle"], "cpu", None)]
    return cifras


def pausas(banco):
    # Once: it takes as long as its pauses, beside which nothing of it varies.
    banco.poner(Escuela(alumnos=60) if banco.rapido else Escuela())
    una = banco.ventana(banco.llano, "--pausas-reales")
    bucle = banco.bucle(una["direcciones"])
    return [Cifra("whole run", una["pared"] / (una["pausas"] * PAUSA + bucle["pared"]), 1.01, "x",
                  f"{una['pared']:.2f} s to {una['pausas']} pauses of {PAUSA} s + "
                  f"{bucle['pared']:.2f} s")]


def crecimiento(banco):
    cifras, de_500 = [], None
    for alumnos, alcance in ((500, 45), (5000, None), (50000, 65)):
        una = crecida(banco, alumnos)
        de_500 = de_500 or una
        cifras += [replace(cifra, que=f"{alumnos} students: {cifra.que}") for cifra in
                   (*memoria_de(una, alcance), *tiempo_de(una, de_500))]
    return cifras


def crecida(banco, alumnos):
    """The quickest run of a school of that size."""
    banco.poner(Escuela(alumnos=alumnos))
    opciones = ["--alumnos", alumnos]
    # The first 20,000 documents of the largest school tell as much as all 250,000 of them.
    if banco.rapido and alumnos > 5000:
        opciones = ["--alumnos", 4000, "--hasta", 20000]
    veces = 1 if alumnos > 5000 else banco.repeticiones
    return min((banco.ventana(banco.llano, *opciones) for _ in range(veces)),
               key=lambda una: una["pared"])


def memoria_de(una, alcance):
    primera, ultima = una["marcas"][0], una["marcas"][-1]
    antes, despues = primera["memoria"], ultima["memoria"]
    mas = ((despues["propia"] - antes["propia"]) * 2**20
           / (ultima["documentos"] - primera["documentos"]))
    return (Cifra("memory", una["memoria"]["rssMaxima"], alcance, "MB",
                  f"most ever resident; at the end PSS {una['memoria']['pss']:.3g} MB, own "
                  f"{una['memoria']['propia']:.3g} MB"),
            Cifra("memory at the last page beside the first", despues["rss"] / antes["rss"], 1.05,
                  "x", f"resident {antes['rss']:.1f} to {despues['rss']:.1f} MB; own memory grew "
                       f"by {mas:.0f} bytes a page"))


def tiempo_de(una, otra):
    def por_peticion_de(medida, campo):
        return medida[campo] / medida["peticiones"] * 1e6
    return [Cifra(f"{nombre} a request beside 500",
                  por_peticion_de(una, campo) / por_peticion_de(otra, campo), 1.05, "x",
                  f"{por_peticion_de(una, campo):.0f} us")
            for nombre, campo in (("wall", "pared"), ("CPU", "cpu"))]


def vueltas(banco):
    mega = 1024 * 1024
    casos = (("pages of 10 KB", Escuela(salones=6, alumnos=100), [], 16),
             ("pages of 1 MB", Escuela(salones=3, alumnos=20, pagina=mega), [], 16),
             ("pages of 50 MB", Escuela(salones=1, alumnos=1, pagina=50 * mega), [], 50),
             ("a list of 50,000 rows", Escuela(salones=3, alumnos=50000), ["--hasta", 50], 50))
    cifras = []
    for nombre, escuela, opciones, alcance in casos:
        banco.poner(escuela)
        corridas = [banco.ventana(banco.llano, "--vigilar", *opciones)
                    for _ in range(banco.repeticiones)]
        peores = Serie(1000 * una["peorVuelta"] for una in corridas)
        cifras.append(Cifra(nombre, peores.mediana, alcance, "ms",
                            f"{peores}; {corridas[-1]['peorEn'] or 'at the login'}"))
    banco.poner(Escuela())
    paneles = [[1000 * p for p in banco.ventana(banco.llano, "--paneles")["paneles"]]
               for _ in range(banco.repeticiones)]
    peores = Serie(map(max, paneles))
    cifras.append(Cifra("first showing of a panel", peores.mediana, 100, "ms",
                        f"{peores}; of the last run {', '.join(f'{p:.1f}' for p in paneles[-1])}"))
    return cifras


def arranque(banco):
    banco.poner(Escuela())

    def ventana():
        return aplanada(banco.ventana(banco.llano, "--abrir"))

    def vacia(*opciones):
        with banco.casa() as casa:
            hecho = correr([BIN / "bench-vacia", "--desde", time.monotonic(), *opciones],
                           banco.entorno(casa))
        return aplanada(json.loads(hecho["dicho"]))

    def aplanada(medida):
        return {"arranque": medida["arranque"], **medida["enReposo"]}

    corridas = banco.rotar({"ventana": ventana, "vacia": vacia,
                            "palabra": lambda: vacia("--palabra")}, 5 if banco.rapido else 20)
    unas, otras, palabras = corridas["ventana"], corridas["vacia"], corridas["palabra"]
    memoria = [Serie(una["pss"] for una in de) for de in (unas, otras)]
    propia = [Serie(una["propia"] for una in de).mediana for de in (unas, otras)]
    return [razon("to the first picture", unas, otras, "arranque", 1.15),
            Cifra("memory at rest", memoria[0].mediana / memoria[1].mediana, 1.35, "x",
                  f"PSS {memoria[0]} MB to {memoria[1]} MB; own {propia[0]:.3g} to "
                  f"{propia[1]:.3g} MB"),
            razon("to the first picture, beside one word", unas, palabras, "arranque", None),
            Cifra("memory at rest, beside one word",
                  memoria[0].mediana / series(palabras, "pss").mediana, None, "x",
                  f"PSS {memoria[0]} MB to {series(palabras, 'pss')} MB")]


class ArbolVigilado:
    """The memory of a process and of all that descends from it, looked at again and again."""

    def __init__(self, pid):
        self._pid = pid
        self._basta = threading.Event()
        self.maxima = 0.0
        self._hilo = threading.Thread(target=self._mirar)

    def __enter__(self):
        self._hilo.start()
        return self

    def __exit__(self, *_):
        self._basta.set()
        self._hilo.join()

    def _mirar(self):
        while not self._basta.wait(0.05):
            self.maxima = max(self.maxima, sum(map(self._pss, self._arbol(self._pid))))

    @classmethod
    def _arbol(cls, pid):
        """Each process once: a child changes over to another thread when the one that began it
        ends, and may be found with both."""
        arbol = {pid}
        with contextlib.suppress(OSError):  # it has ended meanwhile
            for tarea in os.listdir(f"/proc/{pid}/task"):
                with contextlib.suppress(OSError):
                    for hijo in Path(f"/proc/{pid}/task/{tarea}/children").read_text().split():
                        arbol |= cls._arbol(int(hijo))
        return arbol

    @staticmethod
    def _pss(pid):
        try:
            reparto = Path(f"/proc/{pid}/smaps_rollup").read_text()
            return int(re.search(r"^Pss: +(\d+)", reparto, re.M)[1]) / 1024
        except (OSError, TypeError):
            return 0.0  # it has ended meanwhile


def imprimir(banco, casa, documentos):
    """Through a print server of its own: seconds of wall and processor time, MB of the tree."""
    from cups_privado import CupsPrivado
    with CupsPrivado() as cups:
        cups.agregar_cola("lote")
        cups.poner_predeterminada("lote")
        entorno = {**banco.entorno(casa), **cups.entorno(), "PARVANEL_ORIGEN": banco.llano,
                   "PARVANEL_RAIZ": str(casa / "Quorvela"), "TMPDIR": str(banco.carpeta)}
        antes = time.monotonic()
        proceso = lanzar([BIN / "parvanel-print"], env=entorno, stdin=subprocess.PIPE,
                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        with ArbolVigilado(proceso.pid) as arbol:
            proceso.stdin.write("".join(f"{d}\n" for d in documentos).encode())
            proceso.stdin.close()
            salidos = len(cups.esperar_capturados(len(documentos), plazo=PLAZO))
            pared = time.monotonic() - antes
        _, estado, uso = os.wait4(proceso.pid, 0)
        proceso.returncode = os.waitstatus_to_exitcode(estado)
    if salidos != len(documentos):
        raise RuntimeError(f"{salidos} documents came out")
    return {"pared": pared / salidos, "cpu": (uso.ru_utime + uso.ru_stime) / salidos,
            "memoria": arbol.maxima}


def impresion(banco):
    banco.poner(Escuela(salones=2, alumnos=40, pagina=5 * 1024))
    dibujantes = {
        "chromium": lambda d, pdf, casa: [
            "chromium", "--headless=new", "--no-sandbox", "--disable-gpu", "--no-first-run",
            f"--user-data-dir={casa}/perfil", f"--print-to-pdf={pdf}", f"file://{d}"],
        "wkhtmltopdf": lambda d, pdf, casa: [
            "wkhtmltopdf", "-q", "--enable-local-file-access", d, pdf]}
    with banco.casa() as casa:
        banco.ventana(banco.llano, casa=casa)
        documentos = sorted((casa / "Quorvela").glob("*/archivos/infoFinal/*.html"))[:40]
        if len(documentos) != 40:
            raise RuntimeError(f"{len(documentos)} documents to print")

        def ajeno(nombre):
            corridas = [correr(dibujantes[nombre](d, casa / "salida.pdf", casa),
                               banco.entorno(casa), salida=subprocess.DEVNULL)
                        for d in documentos[:5]]
            return {campo: series(corridas, campo).mediana for campo in ("pared", "cpu")}

        medidores = {"parvanel-print": lambda: imprimir(banco, casa, documentos)}
        for nombre in dibujantes:
            if shutil.which(nombre):
                medidores[nombre] = lambda n=nombre: ajeno(n)
        corridas = banco.rotar(medidores, 1 if banco.rapido else 3)
    propias = corridas.pop("parvanel-print")
    pared, memoria, cpu = (series(propias, campo) for campo in ("pared", "memoria", "cpu"))
    cifras = [Cifra("wall a document", pared.mediana, 0.18, "s", str(pared)),
              Cifra("memory of the tree", memoria.mediana, 160, "MB", str(memoria)),
              Cifra("CPU a document", cpu.mediana, 0.25, "s", str(cpu))]
    for nombre, otras in corridas.items():
        cifras.append(Cifra(f"{nombre}: wall a document", series(otras, "pared").mediana, None, "s",
                            f"CPU {series(otras, 'cpu').mediana:.3g} s; one process a document"))
    return cifras


def partes(banco):
    with banco.casa() as casa:
        hecho = correr([BIN / "bench-partes", "--benchmark_format=json",
                        f"--benchmark_repetitions={max(3, banco.repeticiones)}",
                        "--benchmark_report_aggregates_only=true",
                        f"--benchmark_min_time={0.05 if banco.rapido else 0.2}"],
                       banco.entorno(casa))
    cifras = []
    for una in json.loads(hecho["dicho"])["benchmarks"]:
        if una["aggregate_name"] == "median":
            entera = una["run_name"].startswith("entera/")
            por = {"ns": 1e-3, "us": 1, "ms": 1e3}[una["time_unit"]]
            cifras.append(Cifra(una["run_name"], una["cpu_time"] * por, 60 if entera else None,
                                "us"))
    return cifras


def llamadas(banco):
    """System calls and events a request: of a larger school what it has more than a smaller."""
    if not shutil.which("strace"):
        raise RuntimeError("strace is not installed")
    cuentas, peticiones, sucesos = {}, [], []
    for vez, alumnos in enumerate((20, 120)):
        banco.poner(Escuela(alumnos=alumnos))
        lista = banco.carpeta / "llamadas"
        contar = ["strace", "-f", "-c", "-o", lista]
        una = banco.ventana(banco.llano, delante=contar)
        cuentas["window", vez] = leer_strace(lista)
        banco.bucle(una["direcciones"], delante=contar)
        cuentas["bare loop", vez] = leer_strace(lista)
        peticiones.append(una["peticiones"])
        sucesos.append(una["sucesos"])
    entre = peticiones[1] - peticiones[0]

    def por_una(mas, menos):
        cada = {n: (mas[n] - menos.get(n, 0)) / entre for n in mas}
        return sorted(((n, c) for n, c in cada.items() if c >= 0.02), key=lambda par: -par[1])

    cifras = []
    for quien in ("window", "bare loop"):
        cada = por_una(cuentas[quien, 1], cuentas[quien, 0])
        cifras.append(Cifra(f"{quien}: system calls a request", sum(c for _, c in cada), None, "",
                            ", ".join(f"{n} {c:.2f}" for n, c in cada)))
    cada = por_una(sucesos[1], sucesos[0])
    cifras.append(Cifra("events a request", sum(c for _, c in cada), None, "",
                        ", ".join(f"{n} {c:.2f}" for n, c in cada)))
    return cifras


def leer_strace(lista):
    cuentas = {}
    for linea in lista.read_text().splitlines():
        campos = linea.split()
        if len(campos) >= 5 and campos[0][0].isdigit() and campos[-1] != "total":
            cuentas[campos[-1]] = int(campos[3])
    return cuentas


def instrucciones(banco):
    """Machine instructions a request, of the program's own process without the system's."""
    if not shutil.which("valgrind"):
        raise RuntimeError("valgrind is not installed")
    totales, peticiones = {}, []
    for vez, alumnos in enumerate((20, 120)):
        banco.poner(Escuela(alumnos=alumnos))
        salida = banco.carpeta / "callgrind"
        contar = ["valgrind", "--tool=callgrind", f"--callgrind-out-file={salida}"]
        una = banco.ventana(banco.llano, delante=contar)
        totales["window", vez] = leer_callgrind(salida)
        banco.bucle(una["direcciones"], delante=contar)
        totales["bare loop", vez] = leer_callgrind(salida)
        peticiones.append(una["peticiones"])
    entre = peticiones[1] - peticiones[0]
    cada = {quien: (totales[quien, 1] - totales[quien, 0]) / entre / 1000
            for quien in ("window", "bare loop")}
    return [Cifra("window", cada["window"], None, "thousand a request"),
            Cifra("bare loop", cada["bare loop"], None, "thousand a request"),
            Cifra("beside each other", cada["window"] / cada["bare loop"], None, "x")]


def leer_callgrind(salida):
    return int(re.search(r"^(?:summary|totals): (\d+)", salida.read_text(), re.M)[1])


@dataclass
class Fila:
    nombre: str
    que: str
    medir: object


FILAS = (
    Fila("llano", "plain, 0 ms, beside the bare loop", llano),
    Fila("cifrado", "TLS, 0 ms, beside the bare loop", cifrado),
    Fila("lejano", "50 ms a reply, beside the bare loop", lejano),
    Fila("pausas", "whole run with its pauses, beside pauses + bare loop", pausas),
    Fila("crecimiento", "500, 5,000 and 50,000 students", crecimiento),
    Fila("vueltas", "longest time that the event loop does not turn", vueltas),
    Fila("arranque", "start, beside an empty window", arranque),
    Fila("impresion", "40 documents through a print server", impresion),
    Fila("partes", "a page of 40 KB in, rewritten and out (entera), and other parts", partes),
    Fila("llamadas", "what a request costs in system calls and events", llamadas),
    Fila("instrucciones", "what a request costs in instructions", instrucciones),
)


# -- what is told ---------------------------------------------------------------------------------

def dicho_por(*argumentos):
    try:
        hecho = subprocess.run(argumentos, stdin=subprocess.DEVNULL, capture_output=True,
                               text=True, check=False, cwd=RAIZ)
        return (hecho.stdout + hecho.stderr).strip()
    except OSError:
        return "not there"


def versiones():
    procesador = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text())
    carga = " ".join(f"{c:.1f}" for c in os.getloadavg())
    return [
        ("date", datetime.datetime.now(datetime.timezone.utc).strftime("%Y-%m-%d %H:%M UTC")),
        ("commit", dicho_por("git", "describe", "--always", "--dirty")),
        ("machine", f"{os.cpu_count()} x {procesador[1] if procesador else platform.machine()}, "
                    f"Linux {platform.release()}, load {carga}"),
        ("libraries", dicho_por("dpkg-query", "-W", "-f", "${Package} ${Version}; ",
                                "libqt6core6", "libcurl4", "libssl3", "g++")),
        ("yardsticks", dicho_por("dpkg-query", "-W", "-f", "${Package} ${Version}; ", "curl",
                                 "wget", "wget2", "chromium", "wkhtmltopdf")),
    ]


def tabla(cifras):
    filas = [("row", "what", "measured", "reach", "within", "min / median / max, and more")]
    filas += [(nombre, c.que, c.texto(c.medido), c.texto(c.alcance), c.juicio(), c.nota)
              for nombre, c in cifras]
    anchos = [max(len(fila[i]) for fila in filas) for i in range(5)]
    filas.insert(1, tuple("-" * ancho for ancho in anchos) + ("---",))
    return "\n".join("| " + " | ".join([campo.ljust(ancho) for campo, ancho in
                                        zip(fila, anchos)] + [fila[5]]) + " |" for fila in filas)


def medir(fila, banco):
    print(f"== {fila.nombre}: {fila.que}", file=sys.stderr, flush=True)
    try:
        cifras = fila.medir(banco)
    except Exception as falla:  # the other rows still count
        print(f"   not measured: {falla!r}", file=sys.stderr, flush=True)
        return [(fila.nombre, Cifra("not measured", float("nan"), nota=repr(falla)))]
    for cifra in cifras:
        print(f"   {cifra.que}: {cifra.texto(cifra.medido)} {cifra.nota}".rstrip(),
              file=sys.stderr, flush=True)
    return [(fila.nombre, cifra) for cifra in cifras]


def main(argumentos):
    rapido = "--quick" in argumentos
    pedidas = [a for a in argumentos if a != "--quick"]
    nombres = [fila.nombre for fila in FILAS]
    if ajenas := [p for p in pedidas if p not in nombres]:
        print(f"usage: ./bench [--quick] [{' | '.join(nombres)}]...\n"
              f"no such row: {' '.join(ajenas)}", file=sys.stderr)
        return 2
    cabeza = versiones()
    with Banco(rapido) as banco:
        cifras = [par for fila in FILAS if not pedidas or fila.nombre in pedidas
                  for par in medir(fila, banco)]
    texto = "\n".join([*(f"- {que}: {valor}" for que, valor in cabeza), "", tabla(cifras), ""])
    print(texto)
    # A part of the rows does not take the place of all of them.
    if not pedidas:
        repetidas = "few runs of each (--quick)" if rapido else "medians of several runs"
        (AQUI / "results.md").write_text(
            f"# What ./bench measured\n\n{repetidas[0].upper()}{repetidas[1:]}; what each row is: "
            f"[README.md](README.md).\n\n{texto}", encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
