# SPDX-License-Identifier: MIT
"""The row of the reviewer: archives of two sizes, beside tools that look through the same pages."""

import shutil
import struct
import subprocess
import zlib

from banco import BIN, Cifra, correr, series

SALONES = 18
POR_SALON = {500: 28, 5000: 278}  # students to a classroom


def cuadro_azul():
    """What the packer of pages asks for: a picture of 48 x 48."""
    def trozo(clase, datos):
        return (struct.pack(">I", len(datos)) + clase + datos
                + struct.pack(">I", zlib.crc32(clase + datos)))
    filas = b"".join(b"\0" + b"\x20\x60\x90" * 48 for _ in range(48))
    return (b"\x89PNG\r\n\x1a\n" + trozo(b"IHDR", struct.pack(">IIBBBBB", 48, 48, 8, 2, 0, 0, 0))
            + trozo(b"IDAT", zlib.compress(filas)) + trozo(b"IEND", b""))


def hacer_historico(banco, casa, alumnos):
    """An archive of the program's own, of the demonstration school in that size."""
    subprocess.run([BIN / "bench-historico", casa, str(SALONES), str(POR_SALON[alumnos])],
                   env={**banco.entorno(casa), "QT_QPA_PLATFORM": "offscreen"}, check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return next((casa / "Quorvela").iterdir())


def revision(banco):
    cifras, por_alumno = [], {}
    for alumnos, alcance in ((500, 1), (5000, 10)):
        with banco.casa() as casa:
            historico = hacer_historico(banco, casa, alumnos)
            corridas = banco.rotar(medidores(banco, casa, historico, alumnos))
        propias = corridas.pop("parvanel-revisor")
        pared, cpu, memoria = (series(propias, campo) for campo in ("pared", "cpu", "memoria"))
        por_alumno[alumnos] = cpu.mediana / (SALONES * POR_SALON[alumnos])
        cifras += [Cifra(f"{alumnos} students: wall", pared.mediana, alcance, "s",
                         f"{pared}; CPU {cpu.mediana:.3g} s"),
                   Cifra(f"{alumnos} students: memory", memoria.mediana, 120, "MB", str(memoria))]
        for nombre, otras in corridas.items():
            pared = series(otras, "pared")
            cifras.append(Cifra(f"{alumnos} students: {nombre}", pared.mediana, None, "s",
                                f"{pared}; CPU {series(otras, 'cpu').mediana:.3g} s"))
    cifras.append(Cifra("CPU a student, 5000 beside 500", por_alumno[5000] / por_alumno[500], 1.1,
                        "x"))
    return cifras


def medidores(banco, casa, historico, alumnos):
    """The reviewer; and beside it, on the smaller archive, a checker of links and one of packed
    pages, which alone is not told what was packed how."""
    def correr_bien(argumentos, bien=(0,)):
        hecho = correr(argumentos, banco.entorno(casa), salida=subprocess.DEVNULL)
        if hecho["codigo"] not in bien:
            raise RuntimeError(f"{argumentos[0]} ended with {hecho['codigo']}")
        return hecho

    todos = {"parvanel-revisor": lambda: correr_bien([BIN / "parvanel-revisor", "--json",
                                                      historico])}
    if alumnos != min(POR_SALON):
        return todos
    if shutil.which("linkchecker"):
        # Run by root it goes on as nobody, who must be let in to read.
        for carpeta in (banco.carpeta, casa):
            carpeta.chmod(0o755)
        # It finds what leads nowhere by design, and says so by its exit code.
        todos["linkchecker"] = lambda: correr_bien(
            ["linkchecker", "-q", "--no-status", "--no-warnings", historico / "index.html"], (0, 1))
    if shutil.which("zimwriterfs") and shutil.which("zimcheck"):
        paquete = casa / "historico.zim"
        paginas = shutil.copytree(historico, casa / "paginas")
        (paginas / "cuadro.png").write_bytes(cuadro_azul())
        correr_bien(["zimwriterfs", "-j", "-w", "index.html", "-I", "cuadro.png", "-l", "spa", "-t",
                     "t", "-d", "d", "-c", "c", "-p", "p", paginas, paquete])
        todos["zimcheck"] = lambda: correr_bien(["zimcheck", "-A", paquete], (0, 1))
    return todos
