# SPDX-License-Identifier: MIT
"""What a school does with the installed programs inside another system's root.

    uso_instalado.py entrar|todo ROOT HOME FOLDER

`entrar` logs in at the demonstration school, which takes all that the programs cannot do without.
`todo` starts each from its entry in the desktop's menu: the demonstration through to paper, the
program and the reviewer to their windows.

Runs as an ordinary account, which HOME (a path inside ROOT) belongs to. The display, the session
and the print server are this machine's; of the programs, their libraries, fonts and tools nothing
is. Nothing but this machine's sockets can be reached from inside. What came of it is left in
FOLDER.
"""

import os
import subprocess
import sys
from pathlib import Path

from cups_privado import CupsPrivado
from escritorio import Escritorio
from jugar import Funcion
from procesos import descendientes, esperar
from secretaria import TITULO, Secretaria
from ventana import Ventana

PLAZO = 120  # only a guard


class Lanzado:
    """A process that another one has started for this one: what Ventana asks of a Popen."""

    def __init__(self, pid):
        self.pid = pid
        self.returncode = None

    def poll(self):
        if self.returncode is None:
            try:
                pid, estado = os.waitpid(self.pid, os.WNOHANG)
                if pid:
                    self.returncode = os.waitstatus_to_exitcode(estado)
            except ChildProcessError:
                # Until whoever started it has ended, it is that one's child.
                if not Path(f"/proc/{self.pid}").exists():
                    self.returncode = -1
        return self.returncode

    def wait(self, plazo):
        esperar(lambda: self.poll() is not None, plazo, "the process does not end")
        return self.returncode


class Sistema:
    """The other system, as the programs in it see it."""

    def __init__(self, raiz, casa, escritorio, cups):
        self.raiz = raiz
        self.casa = casa
        self.escritorio = escritorio
        self._fuera = ["/tmp/.X11-unix", str(escritorio.carpeta), str(cups.carpeta)]
        pasan = ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR",
                 "QT_LINUX_ACCESSIBILITY_ALWAYS_ON")
        self.entorno = {n: escritorio.entorno[n] for n in pasan} | cups.entorno()
        self.entorno |= {"HOME": casa, "PATH": "/usr/bin:/bin", "LANG": "C.UTF-8"}

    def orden(self, *orden):
        """A command line that runs this one inside."""
        atar = [a for carpeta in self._fuera for a in ("--bind", carpeta, carpeta)]
        poner = [a for par in self.entorno.items() for a in ("--setenv", *par)]
        return ["bwrap", "--bind", str(self.raiz), "/", "--bind", "/proc", "/proc", "--dev", "/dev",
                "--tmpfs", "/tmp", *atar, "--unshare-net", "--clearenv", *poner,
                "--chdir", self.casa, "--", *orden]

    def abrir(self, programa, titulo, *orden):
        """Runs a command line inside that starts this program; the program's window."""
        with (self.escritorio.carpeta / "salida").open("ab") as salida:
            self.escritorio.lanzar(self.orden(*orden), stdout=salida, stderr=salida)
        pid = esperar(lambda: self._pid(programa), PLAZO,
                      lambda: f"{orden} starts no {programa}:\n{self.escritorio.salida()}")
        return Ventana(self.escritorio, Lanzado(pid), titulo, PLAZO)

    def abrir_entrada(self, id_, programa, titulo):
        """The same with what the menu's entry of that id says."""
        return self.abrir(programa, titulo, "gtk-launch", id_)

    @staticmethod
    def _pid(programa):
        for pid in descendientes(os.getpid()):
            try:
                if os.readlink(f"/proc/{pid}/exe").endswith(f"/usr/bin/{programa}"):
                    return pid
            except OSError:
                pass  # gone in the meantime
        return None


class Demostracion(Funcion):
    """The demonstration's play, of the installed program."""

    def __init__(self, sistema, carpeta, cups):
        super().__init__("/usr/bin/parvanel-demo", carpeta, cups)
        self.sistema = sistema
        self.historico = sistema.raiz / sistema.casa[1:] / "Quorvela" / "123-2010"

    def correr(self):
        self.ventana = self.sistema.abrir_entrada("example.parvanel.demo", "parvanel-demo", TITULO)
        self.secretaria = Secretaria(self.ventana)
        try:
            self.entrar()
            self.sin_historicos()
            self.descargar()
            self.imprimir()
            self.ventana.cerrar()
        except BaseException:
            self.ultima_imagen()
            raise
        assert self.ventana.proceso.returncode == 0, self.ventana.proceso.returncode

    def sin_historicos(self):
        """Nothing of the computer's folders is taken for an archive."""
        self.secretaria.ir_a("Ver mis Historicos")
        self.retratar("sin-historicos")
        visibles = [e for e in self.ventana.elementos()
                    if e.rol == "list item" and e.estaba_a_la_vista]
        ofrecidos = [e.nombre_visto for e in visibles
                     if e.nombre_visto not in self.secretaria.salones()]
        self.decir(f"Históricos en la lista: {len(ofrecidos)}")
        assert not ofrecidos, ofrecidos


def revisar(sistema, carpeta):
    """The reviewer's own word on the archive; and its window, from the menu."""
    revisado = subprocess.run(
        sistema.orden("parvanel-revisor", "--texto", f"{sistema.casa}/Quorvela/123-2010"),
        stdout=subprocess.PIPE, text=True, timeout=PLAZO, check=False)
    (carpeta / "informe.txt").write_text(revisado.stdout, encoding="utf-8")
    assert revisado.returncode == 0, revisado.stdout
    ventana = sistema.abrir_entrada("example.parvanel.revisor", "parvanel-revisor",
                                    "Revisor de Históricos")
    ventana.buscar("list item", r"C:\Quorvela\123-2010")
    ventana.retratar(carpeta / "revisor.png")
    ventana.cerrar()


def abrir_programa(sistema, carpeta):
    ventana = sistema.abrir_entrada("example.parvanel.parvanel", "parvanel", TITULO)
    ventana.buscar("push button", "Conectar")
    ventana.retratar(carpeta / "parvanel.png")
    ventana.cerrar()


def entrar(sistema):
    ventana = sistema.abrir("parvanel-demo", TITULO, "parvanel-demo")
    assert Secretaria(ventana).entrar()
    ventana.cerrar()


def usar(sistema, carpeta, cups):
    abrir_programa(sistema, carpeta)
    Demostracion(sistema, carpeta, cups).correr()
    revisar(sistema, carpeta)
    # The worker goes on after the window, until all is printed.
    esperar(lambda: not [p for p in descendientes(os.getpid()) if _es_obrero(p)], PLAZO,
            "the print worker does not end")


def principal():
    que, raiz, casa, carpeta = sys.argv[1], Path(sys.argv[2]), sys.argv[3], Path(sys.argv[4])
    with CupsPrivado() as cups:
        cups.agregar_cola("lote", media="na_letter_8.5x11in")
        cups.poner_predeterminada("lote")
        with Escritorio(casa=carpeta / "casa") as escritorio:
            sistema = Sistema(raiz, casa, escritorio, cups)
            if que == "entrar":
                entrar(sistema)
            else:
                usar(sistema, carpeta, cups)


def _es_obrero(pid):
    try:
        return "/parvanel-print" in os.readlink(f"/proc/{pid}/exe")
    except OSError:
        return False


if __name__ == "__main__":
    principal()
