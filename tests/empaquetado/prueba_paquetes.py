# SPDX-License-Identifier: MIT
"""What the built packages say of themselves and hold.

PARVANEL_PAQUETES is the folder of the packages, PARVANEL_SERVICIO the address they were built for.
"""

import os
import re
import subprocess
import tempfile
import unittest
from html.parser import HTMLParser
from pathlib import Path

PAQUETES = Path(os.environ["PARVANEL_PAQUETES"])
SERVICIO = os.environ["PARVANEL_SERVICIO"]
NOMBRES = ("parvanel", "parvanel-demo", "parvanel-print")
DEL_SISTEMA = ("ca-certificates", "libcurl4", "qt6-qpa-plugins", "xdg-utils")
DEL_ESCRITORIO = ("parvanel-print", "qt6-gtk-platformtheme", "qt6-translations-l10n",
                  "qt6-wayland", "fonts-dejavu-core", "firefox-esr")

# As ./package calls it.
JUEZ = ["lintian", *(["--allow-root"] if os.geteuid() == 0 else []), "--fail-on", "error,warning",
        "--display-info"]


def dicho(*orden):
    return subprocess.run([str(o) for o in orden], check=True, timeout=120, text=True,
                          stdout=subprocess.PIPE).stdout


class Direcciones(HTMLParser):
    """What a page names."""

    def __init__(self, texto):
        super().__init__()
        self.imagenes, self.titulo = [], ""
        self._en_titulo = False
        self.feed(texto)

    def handle_starttag(self, tag, attrs):
        self._en_titulo = tag == "title"
        if tag == "img":
            self.imagenes.append(dict(attrs)["src"])

    def handle_endtag(self, tag):
        self._en_titulo = False

    def handle_data(self, data):
        if self._en_titulo:
            self.titulo += data


class Paquetes(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        carpeta = tempfile.TemporaryDirectory(prefix="paquetes-")
        cls.addClassCleanup(carpeta.cleanup)
        cls.carpeta = Path(carpeta.name)
        cls.archivos = {}
        for nombre in NOMBRES:
            [cls.archivos[nombre]] = PAQUETES.glob(f"{nombre}_*.deb")
            subprocess.run(["dpkg-deb", "-x", cls.archivos[nombre], cls.carpeta / nombre],
                           check=True, timeout=120)

    def campo(self, paquete, nombre):
        return dicho("dpkg-deb", "-f", self.archivos[paquete], nombre).strip()

    def nombrados(self, paquete, campo):
        """The packages that a field names."""
        return set(re.findall(r"(?:^|[,|] *)([a-z0-9.+-]+)", self.campo(paquete, campo)))

    def contenido(self, paquete):
        base = self.carpeta / paquete
        return {str(r.relative_to(base)) for r in base.rglob("*") if not r.is_dir()}

    def test_soloEsos(self):
        self.assertEqual({a.name.partition("_")[0] for a in PAQUETES.glob("*.deb")}, set(NOMBRES))

    def test_dependencias_tambienLasQueNadieVe(self):
        for paquete in ("parvanel", "parvanel-demo"):
            with self.subTest(paquete):
                self.assertLessEqual(set(DEL_SISTEMA), self.nombrados(paquete, "Depends"))
                self.assertLessEqual(set(DEL_ESCRITORIO), self.nombrados(paquete, "Recommends"))
        self.assertLessEqual({"cups", "fonts-liberation"},
                             self.nombrados("parvanel-print", "Recommends"))

    def test_bibliotecaDeLasConexiones_esLaQueElProgramaCarga(self):
        """Nothing links it: its name stands in the program, and its package is named by hand."""
        for paquete in ("parvanel", "parvanel-demo"):
            programa = self.carpeta / paquete / "usr/bin" / paquete
            self.assertTrue(b"libcurl.so.4\0" in programa.read_bytes(), "another library")
            self.assertNotIn("libcurl", dicho("readelf", "-d", programa))
        self.assertIn("/libcurl.so.4\n", dicho("dpkg-query", "-L", "libcurl4"))

    def test_motorDePaginas_soloTrasElQueImprime(self):
        self.assertIn("libqt6webenginecore6", self.nombrados("parvanel-print", "Depends"))
        for paquete in ("parvanel", "parvanel-demo"):
            self.assertNotIn("webengine", self.campo(paquete, "Depends"))

    def test_servicio_esElPedido(self):
        self.assertEqual(re.findall(r"https?://.*", self.campo("parvanel", "Description")),
                         [SERVICIO])
        programa = (self.carpeta / "parvanel/usr/bin/parvanel").read_bytes()
        self.assertTrue((SERVICIO + "\0").encode("utf-16-le") in programa,
                        f"the program does not speak to {SERVICIO}")

    def test_manual_conSusImagenes(self):
        documentos = self.carpeta / "parvanel/usr/share/doc/parvanel"
        for nombre, titulo in (("manual", "Manual de Parvanel"),
                               ("install", "Installing Parvanel")):
            with self.subTest(nombre):
                pagina = Direcciones((documentos / f"{nombre}.html").read_text(encoding="utf-8"))
                self.assertEqual(pagina.titulo, titulo)
                for imagen in pagina.imagenes:
                    self.assertTrue((documentos / imagen).is_file(), imagen)
                if nombre == "manual":
                    self.assertGreater(len(pagina.imagenes), 2)

    def test_cadaProgramaTieneSuPaginaDeManual(self):
        for paquete in NOMBRES:
            programas = {Path(r).name for r in self.contenido(paquete)
                         if r.startswith("usr/bin/") or r.startswith("usr/libexec/")}
            paginas = {Path(r).name.removesuffix(".1.gz") for r in self.contenido(paquete)
                       if r.startswith("usr/share/man/man1/")}
            with self.subTest(paquete):
                self.assertGreater(len(programas), 0)
                # The renderer has no use but the worker's, which tells of it.
                self.assertEqual(paginas, programas - {"parvanel-print-render"})

    def test_carpetaDeEntrada_existeYEstaVacia(self):
        for paquete, programa in (("parvanel", "parvanel"), ("parvanel-demo", "demo")):
            entrada = (self.carpeta / paquete / "usr/share/applications"
                       / f"example.parvanel.{programa}.desktop").read_text(encoding="utf-8")
            [ruta] = re.findall(r"^Path=/(.*)$", entrada, re.MULTILINE)
            self.assertEqual(list((self.carpeta / paquete / ruta).iterdir()), [])

    def test_paqueteRoto_loNotaElJuez(self):
        """What judges the packages sees what is broken on purpose, an error and a warning."""
        for que, archivo, esto, por, como in (
                ("error", "DEBIAN/md5sums", "  usr/", "  otra/", "E: .*: md5sums-lists-nonexist"),
                ("warning", "DEBIAN/control", "Section:", "Cosa: una\nSection:",
                 "W: .*: unknown-field Cosa")):
            with self.subTest(que):
                arbol = self.carpeta / f"roto-{que}"
                roto = self.carpeta / f"roto-{que}.deb"
                subprocess.run(["dpkg-deb", "-R", self.archivos["parvanel-print"], arbol],
                               check=True, timeout=60)
                texto = (arbol / archivo).read_text(encoding="utf-8")
                self.assertIn(esto, texto)
                (arbol / archivo).write_text(texto.replace(esto, por), encoding="utf-8")
                subprocess.run(["dpkg-deb", "--root-owner-group", "-b", arbol, roto], check=True,
                               timeout=60, stdout=subprocess.DEVNULL)
                hecho = subprocess.run([*JUEZ, roto], timeout=300, text=True, check=False,
                                       stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
                self.assertRegex(hecho.stdout, como)
                self.assertEqual(hecho.returncode, 2, hecho.stdout)

    def test_nadaSeEjecutaAlInstalar(self):
        """No package needs a script of its own, so that none can fail on twenty computers."""
        for paquete in NOMBRES:
            with self.subTest(paquete):
                control = self.carpeta / f"{paquete}-control"
                subprocess.run(["dpkg-deb", "-e", self.archivos[paquete], control], check=True,
                               timeout=60)
                self.assertLessEqual({p.name for p in control.iterdir()},
                                     {"control", "md5sums", "shlibs", "triggers"})


if __name__ == "__main__":
    unittest.main(verbosity=2)
