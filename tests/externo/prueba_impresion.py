# SPDX-License-Identifier: MIT
"""Batch printing, from outside and down to paper: real clicks, a print server of the test's own,
and what came out of it, read as text and as a picture.

PARVANEL_HISTORICO names a home folder that holds an archive of the demonstration school; the
tests work in a copy. PARVANEL_PRUEBAS_IMPRESION is the folder of the private print server.
"""

import os
import re
import shutil
import subprocess
import sys
import time
import unittest
from pathlib import Path

from escena import Escena

sys.path.insert(0, os.environ["PARVANEL_PRUEBAS_IMPRESION"])
from cups_privado import CupsPrivado  # pylint: disable=wrong-import-position,import-error

HISTORICO = Path(os.environ["PARVANEL_HISTORICO"])
PLAZO = 120  # only a guard

# For each job: the folder of its documents, and the settings that its pages show.
TRABAJOS = {
    "Boletines": ("boletines/P2", ("micolegio", "direccion", "telefono", "cdane")),
    "Informe Final": ("infofinal", ("direccion", "telefono", "cdane", "rector", "secretaria")),
    "Certificado Final": ("certificados", ("direccion", "telefono", "cdane", "rector",
                                           "secretaria")),
    "Hoja Matricula": ("matriculas", ("direccion", "telefono", "cdane", "rector", "secretaria")),
}


def texto_de(pdf):
    texto = subprocess.run(["pdftotext", "-layout", pdf, "-"], check=True, timeout=60,
                           capture_output=True).stdout.decode("utf-8")
    return re.sub(r"\s+", " ", texto)


def colores_arriba_a_la_izquierda(pdf):
    """How many distinct colours stand in the corner of the first page where the logo is."""
    imagen = subprocess.run(["pdftoppm", "-r", "72", "-f", "1", "-singlefile", "-x", "20", "-y",
                             "20", "-W", "90", "-H", "90", pdf], check=True, timeout=60,
                            capture_output=True).stdout
    cabecera = re.match(rb"P6\s+\d+\s+\d+\s+255\s", imagen)
    puntos = imagen[cabecera.end():]
    return len({puntos[i:i + 3] for i in range(0, len(puntos), 3)})


class Impresion(Escena):
    def setUp(self):
        self.cups = self.enterContext(CupsPrivado())
        self.cups.agregar_cola("lote", media="na_letter_8.5x11in")
        self.cups.poner_predeterminada("lote")

    def abrir_con_historico(self, **entorno):
        self.abrir(entorno={**self.cups.entorno(), **entorno})
        shutil.copytree(HISTORICO / "Quorvela", self.escritorio.casa / "Quorvela")
        self.archivo = self.escritorio.casa / "Quorvela" / "123-2010"
        configuracion = (self.archivo / "configuracion.txt").read_bytes().decode("cp1252")
        self.datos = dict(re.findall(r'var (\w+) = "(.*)";', configuracion))
        self.secretaria.entrar()
        self.salon = self.secretaria.salones()[0]

    def alumnos(self):
        """The classroom's students in their order, as code and name, from its stored page."""
        numero = self.salon.split()[0]
        pagina = (self.archivo / "archivos" / "salones" / f"{numero}.html").read_bytes()
        hallados = re.findall(r'<td class="num">(\d{4,})</td>\s*<td>([^<]+)</td>',
                              pagina.decode("cp1252"))
        self.assertGreater(len(hallados), 1)
        return hallados

    def imprimir(self, tipo, periodo=None):
        self.secretaria.preparar_impresion(self.salon, tipo, periodo)
        antes = len(self.cups.capturados())
        self.secretaria.imprimir()
        if tipo == "Hoja Matricula":
            self.assertIn("®", self.ventana.aceptar_mensaje(plazo=PLAZO))
        alumnos = self.alumnos()
        impresos = self.cups.esperar_capturados(antes + len(alumnos), plazo=PLAZO)[antes:]
        self.ventana.esperar(lambda: self.ventana.a_la_vista("push button", "Imprimir"),
                             "the buttons do not come back", PLAZO)
        self.assertEqual(len(impresos), len(alumnos))
        return list(zip(alumnos, impresos))

    def test_salon_saleEnPapelCompletoYEnOrden(self):
        self.abrir_con_historico()
        for tipo, (carpeta, datos) in TRABAJOS.items():
            with self.subTest(tipo):
                periodo = 2 if tipo == "Boletines" else None
                for (codigo, nombre), impreso in self.imprimir(tipo, periodo):
                    guardada = self.archivo / "archivos" / carpeta / f"{codigo}.html"
                    self.assertTrue(guardada.is_file())
                    texto = texto_de(impreso.archivo)
                    self.assertIn(nombre, texto)
                    for dato in datos:
                        self.assertIn(self.datos[dato], texto, dato)
                    self.assertGreater(colores_arriba_a_la_izquierda(impreso.archivo), 10)
        self.assertRegex("".join(nombre for _, nombre in self.alumnos()), "[ÁÉÍÓÚÑ]")

    def test_ventanaCerradaEnMedioDelLote_imprimeLoEntregado(self):
        self.abrir_con_historico()
        self.secretaria.preparar_impresion(self.salon, "Boletines", 2)
        self.secretaria.imprimir()
        carpeta = self.archivo / "archivos" / "boletines" / "P2"
        # As soon as some have been stored, and so handed over.
        self.ventana.esperar(lambda: len(list(carpeta.glob("*.html"))) >= 3, "nothing is stored")
        obrero, = self.entornos("parvanel-print")
        self.assertRegex(obrero["PARVANEL_ORIGEN"], r"^http://127\.0\.0\.1:\d+$")
        self.assertEqual(obrero["PARVANEL_RAIZ"], str(self.escritorio.casa / "Quorvela"))
        self.ventana.cerrar()
        self.assertEqual(self.ventana.proceso.returncode, 0)
        # A page is handed over after it has been stored: of the last one both may be true.
        guardados = len(list(carpeta.glob("*.html")))
        impresos = self.cups.esperar_capturados(guardados - 1, plazo=PLAZO)
        self.assertGreaterEqual(len(impresos), 2)
        for (codigo, _), impreso in zip(self.alumnos(), impresos):
            self.assertIn(codigo, texto_de(impreso.archivo))

    def test_soloDescargar_noArrancaElObrero(self):
        self.abrir_con_historico()
        self.secretaria.preparar_impresion(self.salon, "Paz Y Salvos")
        self.ventana.pulsar("radio button", "Solo Descargar")
        self.secretaria.imprimir()
        self.esperar_paz_y_salvos()
        self.assertEqual(self.hijos("parvanel-print"), [])
        self.ventana.cerrar()
        self.assertEqual(self.cups.capturados(), [])
        self.assertFalse((self.escritorio.xdg("STATE_HOME") / "parvanel").exists())

    def test_servidorDeImpresionCaido_noDetieneLaVentanaYSeLeEspera(self):
        self.cups.detener()
        self.abrir_con_historico()
        self.secretaria.preparar_impresion(self.salon, "Paz Y Salvos")
        self.secretaria.imprimir()
        self.esperar_paz_y_salvos()
        self.assertIsNone(self.ventana.a_la_vista("label", "Error"))
        self.ventana.cerrar()
        registro = self.escritorio.xdg("STATE_HOME") / "parvanel" / "print.log"
        tope = time.monotonic() + PLAZO
        while not registro.exists() or "se espera" not in registro.read_text():
            self.assertLess(time.monotonic(), tope, "nothing says that it waits")
            time.sleep(0.05)
        self.cups.volver()
        impresos = self.cups.esperar_capturados(len(self.alumnos()), plazo=PLAZO)
        self.assertEqual([i.titulo for i in impresos],
                         [f"Paz y salvo - {nombre}" for _, nombre in self.alumnos()])

    def esperar_paz_y_salvos(self):
        """Waits until the job has stored one for each student and has ended."""
        carpeta = self.archivo / "archivos" / "pazysalvos"
        self.ventana.esperar(lambda: len(list(carpeta.glob("*.html"))) == len(self.alumnos()),
                             "not all are stored")
        self.ventana.esperar(lambda: self.ventana.a_la_vista("push button", "Imprimir"),
                             "the buttons do not come back")

    def hijos(self, nombre):
        """Processes that the program has started and that bear this name."""
        padre = str(self.ventana.proceso.pid)
        hallados = subprocess.run(["ps", "-o", "comm=", "--ppid", padre], timeout=60,
                                  capture_output=True, text=True).stdout.split()
        return [h for h in hallados if h == nombre]

    def entornos(self, nombre):
        """The environments of those that are running."""
        padre = str(self.ventana.proceso.pid)
        pids = subprocess.run(["pgrep", "-x", "-P", padre, nombre], timeout=60,
                              capture_output=True, text=True).stdout.split()
        return [dict(v.split("=", 1) for v in Path(f"/proc/{pid}/environ").read_text().split("\0")
                     if v) for pid in pids]


if __name__ == "__main__":
    unittest.main(verbosity=2)
