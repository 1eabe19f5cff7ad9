# SPDX-License-Identifier: MIT
"""The rows of the window: how long it does not answer, and its start."""

import json
import time

from banco import BIN, Cifra, Escuela, Serie, correr, razon, series


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
