# SPDX-License-Identifier: MIT
"""The row of printing, through a print server of its own."""

import contextlib
import os
import re
import shutil
import subprocess
import sys
import threading
import time
from pathlib import Path

from banco import BIN, PLAZO, RAIZ, Cifra, Escuela, correr, lanzar, series

sys.path.insert(0, str(RAIZ / "tests" / "worker"))
from cups_privado import CupsPrivado  # noqa: E402: stands with the worker's tests


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
