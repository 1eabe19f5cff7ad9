# SPDX-License-Identifier: MIT
"""Measures the program beside its yardsticks and prints where it stands; see README.md here.

    medir.py [--quick] [NAME...]      all rows, or those of these names

Nothing is judged by an exit code: a row that cannot be measured says why, and the rest goes on.
"""

import datetime
import os
import platform
import re
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

from banco import AQUI, RAIZ, Banco, Cifra
from filas_cuentas import instrucciones, llamadas, partes
from filas_impresion import impresion
from filas_revision import revision
from filas_servicio import cifrado, crecimiento, lejano, llano, pausas
from filas_ventana import arranque, vueltas


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
    Fila("revision", "the review of an archive, beside checkers of links and of pages", revision),
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
                                 "wget", "wget2", "chromium", "wkhtmltopdf", "linkchecker",
                                 "zim-tools")),
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
