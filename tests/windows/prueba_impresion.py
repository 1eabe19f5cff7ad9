# SPDX-License-Identifier: MIT
"""What the Windows program hands to the verbs "print" and "open": the same documents in the same
order as the Linux program hands to its print worker and to the desktop, each once and whole."""

import unittest
from pathlib import PureWindowsPath

from escena_windows import (ARCHIVO, LINUX, WINDOWS, EscenaWindows, contenido,
                            entrar_en_red_propia)
from escritorio import Escritorio
from escritorio_wine import PLAZO
from procesos import esperar
from secretaria import TITULO, Secretaria

# The seven kinds in their order, and the folder of each one's documents.
TRABAJOS = {"Boletines": "boletines/P2", "Informe Final": "infofinal",
            "Certificado Final": "certificados", "Paz Y Salvos": "pazysalvos",
            "Observador": "observador", "Hoja Matricula": "matriculas",
            "Planilla Trabajo": "planillaT"}
# In the place of the Linux program's print worker: keeps what it is handed, and says when it ends.
OBRERO = "#!/bin/sh\ncat >> '{0}/notas'\ntouch '{0}/fin'\n"
CLASES = r"HKEY_LOCAL_MACHINE\Software\Classes"


def setUpModule():  # pylint: disable=invalid-name
    entrar_en_red_propia()


def periodo(tipo):
    return 2 if tipo == "Boletines" else None


def guardar_matriculas(historico):
    """What a download leaves, and the job of that kind only prints: a sheet for each student."""
    carpeta = historico / "archivos" / "matriculas"
    carpeta.mkdir(parents=True)
    for codigo in range(1001, 1025):
        (carpeta / f"{codigo}.html").write_text(f"Matricula {codigo}", encoding="ascii")


class Impresion(EscenaWindows):
    def setUp(self):
        self.servir()

    def test_losSieteTrabajos_entreganLoMismoQueEnLinux(self):
        esperados, guardado = self.imprimir_en_linux()
        self.preparar_con_anotador()
        guardar_matriculas(self.escritorio.c / ARCHIVO)
        self.abrir()
        self.secretaria.entrar()
        hechos = 0
        for tipo, carpeta in TRABAJOS.items():
            self.secretaria.imprimir(tipo, periodo(tipo))
            if tipo == "Hoja Matricula":  # says first what it has found
                self.ventana.cerrar_mensaje(plazo=PLAZO)
            hechos += sum(f"/{carpeta}/" in documento for documento in esperados)
            self.ventana.esperar(lambda: len(self.notas()) >= hechos, f"not all of {tipo}", PLAZO)
            self.ventana.esperar(self.secretaria.puede_imprimir, f"{tipo} goes on", PLAZO)
        self.cerrar()
        self.escritorio.esperar_todos()
        self.assertEqual([nota[:2] for nota in self.notas()],
                         [("print", documento) for documento in esperados])
        self.assertEqual(contenido(self.escritorio.c / "Quorvela"), guardado)
        for _, documento, copia in self.notas():
            self.assertEqual(copia, guardado[documento], f"{documento} was not whole")

    def test_verHistorico_abreSuPortada(self):
        self.preparar_con_anotador()
        portada = self.escritorio.c / ARCHIVO / "index.html"
        portada.parent.mkdir(parents=True)
        portada.write_bytes(b"portada")
        self.abrir()
        self.secretaria.entrar()
        self.secretaria.ver_historico()
        self.ventana.esperar(self.notas, "nothing is opened", PLAZO)
        self.cerrar()
        self.escritorio.esperar_todos()
        self.assertEqual(self.notas(), [("open", "123-2010/index.html", b"portada")])

    def imprimir_en_linux(self):
        """The documents that the Linux program prints for the seven kinds, in its order, by their
        paths below the archive root; and everything that it stores there."""
        escritorio = self.enterContext(Escritorio())
        guardar_matriculas(escritorio.casa / ARCHIVO)
        obrero, notas = escritorio.previa / "parvanel-print", escritorio.carpeta / "notas"
        obrero.write_text(OBRERO.format(escritorio.carpeta), encoding="utf-8")
        obrero.chmod(0o755)
        ventana = escritorio.abrir([LINUX / "tests/bin/parvanel-http"], TITULO)
        secretaria = Secretaria(ventana)
        secretaria.entrar()
        for tipo, carpeta in TRABAJOS.items():
            secretaria.preparar_impresion(secretaria.salones()[0], tipo, periodo(tipo))
            secretaria.imprimir()
            if tipo == "Hoja Matricula":
                ventana.aceptar_mensaje(plazo=PLAZO)
            ventana.esperar(lambda: notas.exists() and f"/{carpeta}/" in notas.read_text("utf-8"),
                            f"nothing of {tipo} is printed", PLAZO)
            ventana.buscar("push button", "Imprimir", PLAZO)
        ventana.cerrar()
        esperar((escritorio.carpeta / "fin").exists, PLAZO, "the worker goes on")
        lineas = notas.read_text("utf-8").splitlines()
        return ([linea.partition("/Quorvela/")[2] for linea in lineas],
                contenido(escritorio.casa / "Quorvela"))

    def preparar_con_anotador(self):
        """A drive C on which documents are opened and printed by a program that takes notes."""
        self.preparar()
        self.carpeta = self.escritorio.carpeta / "notas"
        self.carpeta.mkdir()
        self.escritorio.entorno["PARVANEL_ANOTADO"] = self.escritorio.de_windows(self.carpeta)
        programa = self.escritorio.de_windows(WINDOWS / "tests/bin/platform.anotador.exe")
        self.escritorio.registrar(
            (rf"{CLASES}\.html", None, "htmlfile"),
            *((rf"{CLASES}\htmlfile\shell\{verbo}\command", None,
               f'"{programa}" {verbo} "%1"') for verbo in ("open", "print")))

    def notas(self):
        """What has been noted so far, in the order of the calls: verb, document by its path below
        the archive root, and its bytes at that moment (None: there was no such document)."""
        leidas = []
        for nota in sorted(self.carpeta.glob("*.nota")):
            _, verbo, documento, _ = nota.read_text("utf-8").split("\t")
            copia = nota.with_suffix("")
            ruta = PureWindowsPath(documento).relative_to("C:\\Quorvela").as_posix()
            leidas.append((verbo, ruta, copia.read_bytes() if copia.exists() else None))
        return leidas


if __name__ == "__main__":
    unittest.main(verbosity=2)
