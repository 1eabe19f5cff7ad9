# SPDX-License-Identifier: MIT
"""The rows of requests: the window beside a bare loop over the same addresses."""

import shutil
from dataclasses import replace

from banco import AJENOS, PAUSA, Cifra, Escuela, razon, series


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
