# SPDX-License-Identifier: MIT
"""A downloaded archive in a real browser, from its file:// address, without a connection.

PARVANEL_HISTORICO names the archive's folder, as the program left it.
"""

import os
import re
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "externo"))

from recorrido import DETALLES, Navegador, recorrer  # noqa: E402  pylint: disable=C0413

HISTORICO = Path(os.environ.get("PARVANEL_HISTORICO", "."))

# Pictures that no archive holds. Enrolment sheets of students without a photo show the default
# avatar from the photo folder, where nothing stores it: it is stored among the images.
IMAGENES_QUE_FALTAN = {"archivos/fotos/default-avatar.png"}

# What the pages of an archive themselves cause, as they stand: the same picture, reported by the
# browser as a file that is not there.
ERRORES_QUE_CAUSAN_LAS_PAGINAS = (
    re.compile(r"/archivos/fotos/default-avatar\.png - .*ERR_FILE_NOT_FOUND"),
)

SALONES, ALUMNOS = 3, 24
PAGINAS = {"": 1, "salones": SALONES, "consolidadoN": SALONES, "consolidadoF": SALONES,
           "infoFinal": ALUMNOS, "certificados": ALUMNOS, "matriculas": ALUMNOS,
           "infoAlumnos": ALUMNOS}
# Pages that a script at their end fills in with the school's details.
CON_GUION = ("infoFinal", "certificados", "matriculas")
# Pages that show the school's own logo.
CON_ESCUDO = ("", "salones", "consolidadoN", "consolidadoF", *CON_GUION)


class Historico(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with Navegador() as navegador:
            cls.paginas = recorrer(navegador, HISTORICO)

    def de(self, *clases):
        return [p for p in self.paginas if p.clase in clases]

    def relativa(self, direccion):
        """The address within the archive; the whole of it when it leads elsewhere."""
        return direccion.removeprefix(HISTORICO.resolve().as_uri() + "/")

    def test_todaPagina_seAlcanzaConEnlaces(self):
        self.assertEqual({c: len(self.de(c)) for c in PAGINAS}, PAGINAS)
        self.assertEqual(len({p.direccion for p in self.paginas}), len(self.paginas))
        fuera = [p.direccion for p in self.paginas
                 if not p.direccion.startswith(HISTORICO.resolve().as_uri() + "/")]
        self.assertEqual(fuera, [])

    def test_ningunaPeticion_saleAUnServidor(self):
        pedidas = [(p.nombre, d) for p in self.paginas for d in p.pedidas]
        # A log without the pages themselves would prove nothing.
        self.assertGreaterEqual(len(pedidas), len(self.paginas))
        self.assertEqual([p for p in pedidas if not p[1].startswith(("file:", "data:", "blob:"))],
                         [])

    def test_todaImagen_seVeMenosLasQueNingunHistoricoTiene(self):
        sin_ancho = {(p.nombre, self.relativa(d)) for p in self.paginas
                     for d, ancho in p.imagenes if ancho == 0}
        faltan = {imagen for _, imagen in sin_ancho}
        self.assertEqual(faltan - IMAGENES_QUE_FALTAN, set(), sorted(sin_ancho))
        # Were it there after all, the list above would have to be shortened.
        self.assertEqual(IMAGENES_QUE_FALTAN - faltan, set())

    def test_paginas_muestranLasImagenesQueDeben(self):
        for pagina in self.de(*CON_ESCUDO):
            self.assertIn("archivos/images/logo.png", self.imagenes(pagina), pagina.nombre)
        for pagina in self.de("consolidadoN", "consolidadoF"):
            rotulos = [i for i in self.imagenes(pagina) if i.startswith("archivos/images/labels/")]
            self.assertGreater(len(rotulos), 5, pagina.nombre)
        for pagina in self.de("infoFinal"):
            sellos = {"archivos/images/promovido.png", "archivos/images/reprobado.png"}
            self.assertEqual(len(sellos & set(self.imagenes(pagina))), 1, pagina.nombre)
            self.assertIn("archivos/images/rector.png", self.imagenes(pagina), pagina.nombre)
        con_foto = [p for p in self.de("matriculas")
                    if any(re.fullmatch(r"archivos/fotos/\d+-alumno\.jpg", i)
                           for i in self.imagenes(p))]
        self.assertGreater(len(con_foto), ALUMNOS / 2)

    def test_datosDelColegio_vienenDeLaConfiguracion(self):
        texto = (HISTORICO / "configuracion.txt").read_bytes().decode("cp1252")
        valores = dict(re.findall(r'^var (\w+) = "(.*)";\r$', texto, re.MULTILINE))
        esperados = {n: valores[n] for n in DETALLES}
        self.assertTrue(all(esperados.values()), esperados)
        for pagina in self.de(*CON_GUION):
            crudo = (HISTORICO / "archivos" / pagina.nombre).read_bytes().decode("cp1252")
            for nombre in DETALLES:
                # The stored page has only the places; what is seen there the script has put in.
                self.assertRegex(crudo, rf'id="cfg{nombre.upper()}"></', pagina.nombre)
            self.assertEqual(pagina.detalles, esperados, pagina.nombre)

    def test_acentosYEnes_seLeen(self):
        for pagina in self.paginas:
            self.assertEqual(pagina.juego, "windows-1252", pagina.nombre)
            self.assertNotIn("\ufffd", pagina.texto, pagina.nombre)
        portada, = self.de("")
        for nombre in ("Institución Educativa San Martín de la Peña", "SÉPTIMO A",
                       "Educación con corazón, razón y compañía"):
            self.assertIn(nombre, portada.texto)
        alumnos = {p.alumno for p in self.paginas}
        for nombre in ("IBÁÑEZ ESPAÑA JUAN SEBASTIÁN", "TOBÓN DÍAZ MÓNICA",
                       "ORDÓÑEZ HIGUITA NICOLÁS", "QUIÑONES QUIÑONES SARA MILENA"):
            self.assertIn(nombre, alumnos)
        for pagina in self.paginas:
            self.assertIn(pagina.alumno, pagina.texto, pagina.nombre)

    def test_guionesDeLasListas_corren(self):
        for pagina in self.de("salones"):
            self.assertEqual(pagina.ordenable, 4, pagina.nombre)

    def test_errores_soloLosQueCausanLasPaginas(self):
        errores = [(p.nombre, e) for p in self.paginas for e in p.errores]
        otros = [e for e in errores
                 if not any(r.search(e[1]) for r in ERRORES_QUE_CAUSAN_LAS_PAGINAS)]
        self.assertEqual(otros, [])

    def imagenes(self, pagina):
        return [self.relativa(d) for d, _ in pagina.imagenes]


if __name__ == "__main__":
    unittest.main(verbosity=2)
