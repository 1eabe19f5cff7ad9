# SPDX-License-Identifier: MIT
"""The reviewer's verdicts on Windows are those on Linux: on the archives of its own tests, whole
ones and one for each kind of damage, on its copies, and in its window.

What the two say is compared to the letter. Before that the folder's path is written in one way, as
each system has its own, and the moment of the review is left out. Links, and names that Windows
refuses, are passed over: Windows' own program makes neither.

PARVANEL_RETRATOS names a folder for pictures of the window, to be looked at.
"""

import hashlib
import json
import os
import re
import shutil
import subprocess
import tempfile
import unittest
import zipfile
from pathlib import Path

from escena_windows import LINUX, RETRATOS, WINDOWS, EscenaWindows

EN_LINUX, EN_WINDOWS = LINUX / "bin/parvanel-revisor", WINDOWS / "bin/parvanel-revisor.exe"
QUE_LOS_HACE = LINUX / "tests/bin/revisor.tst_danios"
TITULO = "Revisor de Históricos"
TEMAS = r"HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize"
PLAZO = 600
# By the names that they have where they are made.
SOLO_EN_LINUX = {"link that leads nowhere", "link that leads in a circle", "link that leads out",
                 "name that no stick takes", "name that is no text"}
COMPLETOS = {"demostracion", "al azar"}
CAMBIADO = "index.html"  # of a copy


class Revisor(EscenaWindows):
    """The archives are made once, in a folder with blanks and accents."""

    @classmethod
    def setUpClass(cls):
        lugar = Path(cls.enterClassContext(tempfile.TemporaryDirectory(prefix="revisor-")))
        cls.todos = lugar / "Año de José Ñandú"
        cls.todos.mkdir()
        entorno = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8", "TZ": "UTC",
                   "PARVANEL_REVISOR_HISTORICOS": str(cls.todos)}
        subprocess.run([QUE_LOS_HACE], env=entorno, check=True, timeout=PLAZO, capture_output=True)
        madres = sorted(m for m in cls.todos.iterdir() if m.name not in SOLO_EN_LINUX)
        cls.historicos = {madre.name: next(madre.iterdir()) for madre in madres}
        for madre in SOLO_EN_LINUX:
            shutil.rmtree(cls.todos / madre)
        # Linux' program makes some, for browsers that regard letter case.
        for carpeta in cls.historicos.values():
            for enlace in [a for a in carpeta.rglob("*") if a.is_symlink()]:
                enlace.unlink()

    def setUp(self):
        self.preparar(ancho=1400, alto=1100)
        self.escritorio.esperar_todos()  # or the server of what has just run refuses another
        # Each program would bring up the whole of Wine again.
        subprocess.run(["wineserver", "--persistent"], env=self.escritorio.entorno, check=True,
                       timeout=PLAZO)

    # The two programs, each told the same paths in its own way: how they end, and what they say.

    def en_windows(self, *argumentos):
        hecho = self.escritorio.correr(
            EN_WINDOWS, *(self.escritorio.de_windows(a) if isinstance(a, Path) else a
                          for a in argumentos), estricta=False)
        return hecho.returncode, self.sin_rutas(hecho.stdout.decode(), argumentos), \
            self.sin_rutas(hecho.stderr.decode(), argumentos)

    def en_linux_mismo(self, *argumentos):
        hecho = subprocess.run([EN_LINUX, *argumentos], env=self.escritorio.entorno, timeout=PLAZO,
                               check=False, capture_output=True)
        return hecho.returncode, hecho.stdout.decode(), hecho.stderr.decode()

    def sin_rutas(self, texto, rutas):
        """A text of the Windows program with the paths as Linux has them."""
        for ruta in (r for r in rutas if isinstance(r, Path)):
            texto = texto.replace(self.escritorio.de_windows(ruta), str(ruta))
        return texto

    # Reports

    def test_cadaHistorico_mismoVeredicto(self):
        self.assertGreaterEqual(len(self.historicos), 60)
        self.assertGreaterEqual(set(self.historicos), COMPLETOS)
        carpetas = list(self.historicos.values())
        salida, dicho, queja = self.en_linux_mismo("--json", *carpetas)
        suya, suyo, su_queja = self.en_windows("--json", *carpetas)
        self.assertEqual((suya, su_queja), (salida, queja))
        for carpeta in carpetas:
            suyo = self.sin_barras(suyo, carpeta)
        esperados, hallados = (json.loads(t)["historicos"] for t in (dicho, suyo))
        self.assertEqual(len(esperados), len(carpetas))
        for nombre, esperado, hallado in zip(self.historicos, esperados, hallados):
            with self.subTest(nombre):
                self.assertEqual(hallado, esperado)
                if nombre in COMPLETOS:
                    self.assertEqual(esperado["veredicto"], "completo")
        self.assertEqual({e["veredicto"] for e in esperados}, {"completo", "faltan-documentos"})

    def test_salida_laMismaParaCadaVeredicto(self):
        vacia = self.escritorio.casa / "vacía"
        vacia.mkdir()
        for carpeta, salida in ((self.historicos["demostracion"], 0),
                                (self.historicos["logo is missing"], 1), (vacia, 2)):
            hecho = self.en_windows("--texto", carpeta)
            self.assertEqual(hecho, self.en_linux_mismo("--texto", carpeta))
            self.assertEqual(hecho[0], salida)

    def sin_barras(self, texto, ruta):
        """As `sin_rutas`, where each separator is written twice."""
        return texto.replace(self.escritorio.de_windows(ruta).replace("\\", r"\\"), str(ruta))

    def test_todosEnPalabras_lasMismas(self):
        carpetas = list(self.historicos.values())
        self.assertEqual(self.en_windows("--texto", *carpetas),
                         self.en_linux_mismo("--texto", *carpetas))

    def test_todosEnUnaPagina_laMisma(self):
        carpetas = list(self.historicos.values())
        paginas = [self.escritorio.casa / f"informe de {cual}.html" for cual in ("uno", "otro")]
        una = self.en_linux_mismo("--html", paginas[0], *carpetas)
        otra = self.en_windows("--html", paginas[1], *carpetas)
        self.assertEqual(una, otra)
        esperada, hallada = (p.read_text("utf-8").replace("<wbr>", "") for p in paginas)
        self.assertGreater(len(esperada), 100_000)
        self.assertEqual(sin_sello(self.sin_rutas(hallada, carpetas)), sin_sello(esperada))

    def test_loQueNoEsUnHistorico_loMismo(self):
        vacia = self.escritorio.casa / "vacía"
        vacia.mkdir()
        for argumentos in (["--texto", vacia], ["--texto", vacia / "nada"], ["--texto"], ["--otra"],
                           ["--comprobar", vacia], ["--comprobar", vacia / "nada.zip"],
                           ["--version"], ["--ayuda"]):
            with self.subTest(argumentos):
                self.assertEqual(self.en_windows(*argumentos), self.en_linux_mismo(*argumentos))

    def test_carpetaDeRutaLarga_mismoVeredicto(self):
        carpeta = self.escritorio.casa / ("largo " * 20 + "x") / ("ñandú " * 20 + "x") / "123-2010"
        shutil.copytree(self.historicos["demostracion"], carpeta)
        self.assertGreater(len(str(carpeta)), 260)
        self.assertEqual(self.en_windows("--texto", carpeta),
                         self.en_linux_mismo("--texto", carpeta))
        zip_ = carpeta.parent / "copia.zip"
        self.assertEqual(self.en_windows("--copia", zip_, carpeta)[0], 0)
        self.assertEqual(self.en_windows("--comprobar", zip_)[0], 0)
        self.assertEqual(self.en_linux_mismo("--comprobar", zip_)[0], 0)

    # Copies

    def test_copiaDeUno_intactaParaElOtro(self):
        carpeta = self.historicos["al azar"]  # names with accents
        copias = self.escritorio.casa / "copias de mayo"
        copias.mkdir()
        programas = {"Windows": self.en_windows, "Linux": self.en_linux_mismo}
        contenidos = []
        for nombre, programa in programas.items():
            zip_ = copias / f"copia de {nombre}.zip"
            self.assertEqual(programa("--copia", zip_, carpeta),
                             (0, f"Copia guardada: {zip_}\n", ""))
            dichos = {n: p("--comprobar", zip_) for n, p in programas.items()}
            self.assertEqual(dichos["Windows"], dichos["Linux"])
            self.assertEqual(dichos["Linux"][0], 0)
            self.assertIn("La copia está intacta", dichos["Linux"][1])
            contenidos.append(self.de_otro_programa(zip_, zip_.stem + "/"))
        self.assertEqual(*contenidos)
        self.assertTrue(any(re.search("[^\0-\x7f]", n) for n in contenidos[0]))

    def de_otro_programa(self, zip_, base):
        """The documents of a copy, unpacked by another program, and what its list says of them."""
        subprocess.run(["unzip", "-tq", zip_], check=True, timeout=PLAZO, capture_output=True)
        with zipfile.ZipFile(zip_) as todo:
            lista = todo.read(base + "manifest-sha256.txt").decode().splitlines()
            sumas = {nombre: suma for suma, _, nombre in (r.partition("  ") for r in lista)}
            documentos = {n[len(base):]: todo.read(n) for n in todo.namelist()
                          if n.startswith(base + "data/") and not n.endswith("/")}
        self.assertEqual({n: hashlib.sha256(b).hexdigest() for n, b in documentos.items()}, sumas)
        return documentos

    def test_copiaCambiada_loMismoParaLosDos(self):
        carpeta, zip_ = self.historicos["demostracion"], self.escritorio.casa / "copia.zip"
        self.assertEqual(self.en_windows("--copia", zip_, carpeta)[0], 0)
        fuera = self.escritorio.casa / "fuera"
        with zipfile.ZipFile(zip_) as todo:
            todo.extractall(fuera)
        (fuera / "copia/data" / CAMBIADO).write_bytes(b"otra")
        (fuera / "copia/data/de más.html").write_bytes(b"x")
        zip_.write_bytes(zip_.read_bytes()[:-100])
        for ruta in (fuera, zip_):
            dicho = self.en_linux_mismo("--comprobar", ruta)
            self.assertEqual(self.en_windows("--comprobar", ruta), dicho)
            self.assertNotEqual(dicho[0], 0)

    # The window

    def test_ventana_dosVeredictosEnCadaColor(self):
        raiz = self.escritorio.c / "Quorvela"
        shutil.copytree(self.historicos["demostracion"], raiz / "123-2009")
        shutil.copytree(self.historicos["logo is missing"], raiz / "123-2010")
        antes = retrato(raiz)
        for color, claro in (("claro", 1), ("oscuro", 0)):
            with self.subTest(color):
                self.escritorio.registrar((TEMAS, "AppsUseLightTheme", claro),
                                          (TEMAS, "SystemUsesLightTheme", claro))
                self.ventana = self.escritorio.abrir([EN_WINDOWS], TITULO)
                self.ventana.esperar_texto("Revisar")
                self.ventana.tecla("Return")  # the last year's, which the list begins with
                self.ventana.esperar_texto("Faltan documentos")
                self.ventana.esperar_texto("archivos/images/logo.png")
                self.retratar(f"revisor-{color}-faltan")
                self.ventana.tecla("alt+h", "Home", "Return")  # the list again, and its first
                self.ventana.esperar_texto("Completo")
                self.retratar(f"revisor-{color}-completo")
                self.cerrar()
        self.assertEqual(retrato(raiz), antes)

    def retratar(self, nombre):
        if RETRATOS:
            Path(RETRATOS).mkdir(parents=True, exist_ok=True)
            self.ventana.retratar(Path(RETRATOS) / f"{nombre}.png")


def sin_sello(pagina):
    """A report without the moment of the review."""
    pagina, veces = re.subn(r'(?<=<p class="sello">).*? · ', "", pagina)
    assert veces == 1
    return pagina


def retrato(carpeta):
    """Whatever could change in a folder when something is written to it."""
    return {str(a): (a.stat().st_mtime_ns, a.stat().st_size) for a in carpeta.rglob("*")}


if __name__ == "__main__":
    unittest.main(verbosity=2)
