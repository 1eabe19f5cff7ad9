# SPDX-License-Identifier: MIT
"""The rows that count: parts of a page's way, system calls, instructions."""

import json
import re
import shutil

from banco import BIN, Cifra, Escuela, correr


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
