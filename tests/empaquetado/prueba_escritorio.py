# SPDX-License-Identifier: MIT
"""The desktop's files as they are installed: the validators find nothing in them, and find what is
broken in them on purpose; and all of a program's files bear its one id.

PARVANEL_CONSTRUIDO is the build folder, PARVANEL_VERSION the project's version.
"""

import configparser
import os
import struct
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ET
from pathlib import Path

CONSTRUIDO = Path(os.environ["PARVANEL_CONSTRUIDO"])
PROGRAMAS = {"example.parvanel.parvanel": "parvanel", "example.parvanel.demo": "parvanel-demo",
             "example.parvanel.revisor": "parvanel-revisor"}
DESCRITOS = ("example.parvanel.parvanel", "example.parvanel.revisor")
LADOS = (16, 22, 24, 32, 48, 64, 128, 256, 512)
IDIOMA = "{http://www.w3.org/XML/1998/namespace}lang"

# The one thing that there is to say: a domain of this kind belongs to nobody, on purpose.
RESERVADO = "I: {id}:4: cid-maybe-not-rdns {id}"

# What is put in the place of what, and what the validator calls it.
ENTRADAS_ROTAS = (
    ("Type=Application\n", "", "Type"),
    ("Terminal=false", "Terminal=no", "Terminal"),
    ("Categories=Education;", "Categories=Education;Office;", "more than one main category"),
    ("Categories=Education;", "Categories=Escuela;", "Escuela"),
    ("Exec=", "Exec=%y ", "Exec"),
    ("Keywords=", "Palabras=", "Palabras"),
)
DESCRIPCIONES_ROTAS = (
    ("<metadata_license>MIT</metadata_license>", "", "metadata-license-missing"),
    ("documents of a school year</summary>", "documents of a school year.</summary>",
     "summary-has-dot-suffix"),
    ("https://parvanel.example/capturas/", "http://parvanel.example/capturas/", "http"),
    ('<content_rating type="oars-1.1"/>', "", "content-rating-missing"),
    ("<category>Education</category>", "<category>Escuela</category>", "category-invalid"),
    ("<id>example.parvanel.parvanel</id>", "<id>example.parvanel.Parvanel</id>",
     "cid-contains-uppercase-letter"),
    ('date="', 'date="ayer ', "date"),
    ("</launchable>", "</lanzable>", "xml"),
)


def instalar(donde):
    """Puts the desktop's files below that folder."""
    subprocess.run(["cmake", "--install", CONSTRUIDO, "--component", "escritorio", "--prefix",
                    donde], check=True, timeout=60, stdout=subprocess.DEVNULL)


def dicho(*orden):
    """Exit code and all that a validator says."""
    hecho = subprocess.run([str(o) for o in orden], timeout=60, stdin=subprocess.DEVNULL,
                           stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                           env={**os.environ, "LC_ALL": "C.UTF-8"}, check=False)
    return hecho.returncode, hecho.stdout.strip()


def juzgar_entrada(archivo):
    return dicho("desktop-file-validate", archivo)


def juzgar_descripcion(archivo):
    """Nothing is fetched: the pictures' addresses are looked at, not asked for."""
    return dicho("appstreamcli", "validate", "--pedantic", "--no-net", "--no-color", archivo)


class Instalado(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        carpeta = tempfile.TemporaryDirectory(prefix="escritorio-")
        cls.addClassCleanup(carpeta.cleanup)
        cls.carpeta = Path(carpeta.name)
        cls.datos = cls.carpeta / "prefijo" / "share"
        instalar(cls.carpeta / "prefijo")

    def entrada(self, programa):
        return self.datos / "applications" / f"{programa}.desktop"

    def descripcion(self, programa):
        return self.datos / "metainfo" / f"{programa}.metainfo.xml"

    def claves(self, programa):
        lector = configparser.RawConfigParser(interpolation=None)
        lector.optionxform = str
        lector.read(self.entrada(programa), encoding="utf-8")
        return dict(lector["Desktop Entry"])

    def copia(self, original, cambios, nombre=None):
        """A changed copy of a file; each change must find what it changes."""
        texto = original.read_text(encoding="utf-8")
        for esto, por in cambios:
            self.assertIn(esto, texto)
            texto = texto.replace(esto, por)
        copia = Path(self.enterContext(tempfile.TemporaryDirectory(dir=self.carpeta)))
        copia = copia / (nombre or original.name)
        copia.write_text(texto, encoding="utf-8")
        return copia


class Validadores(Instalado):
    def test_entradas_sinReparos(self):
        for programa in PROGRAMAS:
            with self.subTest(programa):
                self.assertEqual(juzgar_entrada(self.entrada(programa)), (0, ""))

    def test_entradaRota_seNota(self):
        for esto, por, como in ENTRADAS_ROTAS:
            with self.subTest(como):
                rota = self.copia(self.entrada("example.parvanel.parvanel"), [(esto, por)])
                self.assertIn(como, juzgar_entrada(rota)[1])

    def test_descripciones_soloQueElDominioEsReservado(self):
        for programa in DESCRITOS:
            with self.subTest(programa):
                codigo, texto = juzgar_descripcion(self.descripcion(programa))
                self.assertEqual(codigo, 0)
                self.assertEqual([linea for linea in texto.splitlines() if linea],
                                 [RESERVADO.format(id=programa),
                                  "✔ Validation was successful: infos: 1"])

    def test_descripcionesEnOtroDominio_sinReparos(self):
        for programa in DESCRITOS:
            with self.subTest(programa):
                otro = programa.replace("example.", "net.", 1)
                copia = self.copia(self.descripcion(programa), [(programa, otro)],
                                   f"{otro}.metainfo.xml")
                self.assertEqual(juzgar_descripcion(copia), (0, "✔ Validation was successful."))

    def test_descripcionRota_seNota(self):
        programa = "example.parvanel.parvanel"
        for esto, por, como in DESCRIPCIONES_ROTAS:
            with self.subTest(como):
                rota = self.copia(self.descripcion(programa), [(esto, por)])
                lineas = [linea for linea in juzgar_descripcion(rota)[1].splitlines()
                          if linea and linea != RESERVADO.format(id=programa)]
                self.assertIn(como, "\n".join(lineas))


class UnaSolaIdentidad(Instalado):
    def test_entradas_llevanElNombreDeSuPrograma(self):
        self.assertEqual({e.stem for e in (self.datos / "applications").iterdir()},
                         set(PROGRAMAS))
        for programa, orden in PROGRAMAS.items():
            with self.subTest(programa):
                claves = self.claves(programa)
                self.assertEqual((claves["Icon"], claves["StartupWMClass"], claves["Exec"]),
                                 (programa, programa, orden))
                self.assertTrue((CONSTRUIDO / "bin" / orden).exists())

    def test_entradas_enEspanolTambien(self):
        for programa in PROGRAMAS:
            for clave in ("GenericName", "Comment", "Keywords"):
                with self.subTest(programa=programa, clave=clave):
                    claves = self.claves(programa)
                    self.assertNotEqual(claves[clave], claves[f"{clave}[es]"])

    def test_programasConListaDeHistoricos_empiezanEnUnaCarpetaVacia(self):
        for programa in ("example.parvanel.parvanel", "example.parvanel.demo"):
            with self.subTest(programa):
                ruta = self.claves(programa)["Path"]
                self.assertTrue(ruta.startswith("/") and ruta.endswith("/share/parvanel/vacia"),
                                ruta)
        self.assertEqual(list((self.datos / "parvanel" / "vacia").iterdir()), [])

    def test_iconos_enTodosLosTamanos(self):
        iconos = self.datos / "icons" / "hicolor"
        for programa in PROGRAMAS:
            self.assertEqual(ET.parse(iconos / "scalable/apps" / f"{programa}.svg").getroot().tag,
                             "{http://www.w3.org/2000/svg}svg")
            for lado in LADOS:
                with self.subTest(programa=programa, lado=lado):
                    imagen = iconos / f"{lado}x{lado}" / "apps" / f"{programa}.png"
                    bytes_ = imagen.read_bytes()
                    self.assertEqual(bytes_[:8], b"\x89PNG\r\n\x1a\n")
                    self.assertEqual(struct.unpack(">II", bytes_[16:24]), (lado, lado))
                    colores = int(dicho("identify", "-format", "%k", imagen)[1])
                    self.assertGreater(colores, 3, "nothing is drawn")
        self.assertEqual({c.name for c in iconos.iterdir()},
                         {"scalable"} | {f"{lado}x{lado}" for lado in LADOS})

    def test_descripciones_deEsteProgramaYEstaVersion(self):
        self.assertEqual({d.name for d in (self.datos / "metainfo").iterdir()},
                         {f"{programa}.metainfo.xml" for programa in DESCRITOS})
        for programa in DESCRITOS:
            with self.subTest(programa):
                raiz = ET.parse(self.descripcion(programa)).getroot()
                self.assertEqual(
                    (raiz.findtext("id"), raiz.findtext("launchable"), raiz.findtext("icon"),
                     raiz.findtext("provides/binary"),
                     raiz.find("releases/release").get("version")),
                    (programa, f"{programa}.desktop", programa, PROGRAMAS[programa],
                     os.environ["PARVANEL_VERSION"]))

    def test_descripciones_cadaTextoEnLosDosIdiomas(self):
        for programa in DESCRITOS:
            raiz = ET.parse(self.descripcion(programa)).getroot()
            for clase in ("summary", "p", "li", "caption", "keyword"):
                with self.subTest(programa=programa, clase=clase):
                    idiomas = [e.get(IDIOMA) for e in raiz.iter(clase)]
                    self.assertEqual(idiomas, [None, "es"] * (len(idiomas) // 2))


if __name__ == "__main__":
    unittest.main(verbosity=2)
