# SPDX-License-Identifier: MIT
"""Starting and ending processes so that none is left over, whatever happens.

Programs detach children of their own (a browser, the print worker), which no process handle of
ours reaches. This process therefore adopts orphaned descendants, and a `Camada` ends everything
that descends from it by process id, walking the process table; nothing is ever ended by name.
"""

import ctypes
import os
import signal
import subprocess
import time
from pathlib import Path

PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36
PLAZO_TERMINAR = 5  # seconds for an orderly end

_libc = ctypes.CDLL(None, use_errno=True)


def esperar(condicion, plazo=30.0, falla="", paso=0.03):
    """Waits until `condicion()` is true and returns its value; TimeoutError after `plazo` s."""
    tope = time.monotonic() + plazo
    while True:
        valor = condicion()
        if valor:
            return valor
        if time.monotonic() > tope:
            raise TimeoutError(f"{falla() if callable(falla) else falla} (after {plazo} s)")
        time.sleep(paso)


class Camada:
    """All processes started through it, and their descendants."""

    def __init__(self):
        _libc.prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        # Descendants of this process that were there before are none of ours.
        self._ajenos = set(descendientes(os.getpid()))
        self._procesos = []

    def lanzar(self, argumentos, **opciones):
        """As subprocess.Popen; the process ends with this one, should this one be killed."""
        opciones.setdefault("stdin", subprocess.DEVNULL)
        proceso = subprocess.Popen(
            [str(a) for a in argumentos],
            preexec_fn=lambda: _libc.prctl(PR_SET_PDEATHSIG, signal.SIGKILL, 0, 0, 0),
            **opciones)
        self._procesos.append(proceso)
        return proceso

    def terminar(self):
        """Ends what was started, last first, and then what descends from it."""
        for proceso in reversed(self._procesos):
            if proceso.poll() is None:
                proceso.terminate()
            try:
                proceso.wait(PLAZO_TERMINAR)
            except subprocess.TimeoutExpired:
                proceso.kill()
                proceso.wait()
        self._procesos.clear()
        for senal in (signal.SIGTERM, signal.SIGKILL):
            if self._terminar_huerfanos(senal):
                return

    def _terminar_huerfanos(self, senal):
        for pid in self._huerfanos():
            _senalar(pid, senal)
        try:
            esperar(lambda: not self._huerfanos(), PLAZO_TERMINAR)
        except TimeoutError:
            return False
        return True

    def _huerfanos(self):
        _recoger_muertos(self._ajenos)
        return [p for p in descendientes(os.getpid()) if p not in self._ajenos]


def _senalar(pid, senal):
    try:
        os.kill(pid, senal)
    except ProcessLookupError:
        pass


def _recoger_muertos(ajenos):
    for pid in descendientes(os.getpid(), directos=True):
        if pid in ajenos:
            continue
        try:
            os.waitpid(pid, os.WNOHANG)
        except ChildProcessError:
            pass


def descendientes(raiz, directos=False):
    """The processes that descend from this one; with `directos` its children alone."""
    hijos = {}
    for entrada in Path("/proc").iterdir():
        if not entrada.name.isdigit():
            continue
        try:
            # The command's name, in parentheses, may hold blanks and parentheses itself.
            campos = (entrada / "stat").read_text(errors="replace").rpartition(")")[2].split()
            padre = int(campos[1])
        except (OSError, IndexError):
            continue
        hijos.setdefault(padre, []).append(int(entrada.name))
    if directos:
        return hijos.get(raiz, [])
    pendientes, todos = [raiz], []
    while pendientes:
        de_este = hijos.get(pendientes.pop(), [])
        todos += de_este
        pendientes += de_este
    return todos
