# SPDX-License-Identifier: MIT
"""Of local files, a page reads those below the archive root and no others."""

import os
import unittest
from urllib.parse import quote

from dibujador import HECHO, SIN_PAGINA, ConDibujador
from impresion import ROJO, png, puntos, texto
from servicio_prueba import Servicio, responder

SECRETO = "secreto-de-la-casa"

# Ways to name a file. {d} is the folder outside the root, {c} the test's home, both escaped as
# addresses are; the page lies two folders below the root.
NOMBRES = {
    "entero": "file://{d}/secreto.EXT",
    "con host": "file://localhost{d}/secreto.EXT",
    "con otro host": "file://servidor{d}/secreto.EXT",
    "con cuatro barras": "file:////{d}/secreto.EXT",
    "hacia arriba": "../../../fuera/secreto.EXT",
    "con puntos escritos": "../%2e%2e/%2E%2e/fuera/secreto.EXT",
    "con barras escritas": "..%2f..%2f..%2ffuera%2fsecreto.EXT",
    "con barras de otro sistema": "..\\..\\..\\fuera\\secreto.EXT",
    "con barras de otro sistema escritas": "..%5C..%5C..%5Cfuera%5Csecreto.EXT",
    "en otras letras": "../../../FUERA/SECRETO.EXT",
    "por un enlace": "enlace.EXT",
    "por un enlace en otras letras": "ENLACE.EXT",
    "por un enlace a la carpeta": "../carpeta/secreto.EXT",
    "por un enlace a la carpeta en otras letras": "../CARPETA/secreto.EXT",
    "por el proceso": "file:///proc/self/root{d}/secreto.EXT",
    "por la carpeta del proceso": "file:///proc/self/cwd/fuera/secreto.EXT",
    "con vista de la fuente": "view-source:file://{d}/secreto.EXT",
    "por el sistema de archivos": "filesystem:file://{d}/secreto.EXT",
    "con consulta": "../../../fuera/secreto.EXT?a=b",
}

# Ways to read one, by the kind of file that each takes. {u} is its name.
LECTURAS = {
    "html": "<iframe src='{u}'></iframe><object data='{u}'></object><embed src='{u}'>"
            "<iframe srcdoc=\"<iframe src='{u}'></iframe>\"></iframe>"
            "<iframe srcdoc=\"<meta http-equiv=refresh content='0;url={u}'>\"></iframe>"
            "<link rel=import href='{u}'><portal src='{u}'></portal><video src='{u}'></video>",
    "txt": "<iframe src='{u}'></iframe><object data='{u}' type='text/plain'></object>"
           "<a id=bajar download href='{u}'></a>",
    "js": "<script src='{u}'></script><script type=module src='{u}'></script>",
    "css": "<link rel=stylesheet href='{u}'><style>@import '{u}';</style>",
    "svg": "<img src='{u}'><object data='{u}'></object><svg width=99 height=99>"
           "<use href='{u}#s'/><image width=99 height=99 href='{u}'/></svg>"
           "<div style='width:99px;height:99px;background:url(\"{u}\")'></div>"
           "<div style='width:99px;height:99px;content:url(\"{u}\")'></div>",
}

# What scripts try on the text file; each gives what it could read.
GUIONES = (
    "fetch(u).then(r => r.text())",
    "fetch(u, {mode: 'no-cors'}).then(r => r.text())",
    "new Promise((s, f) => { const x = new XMLHttpRequest(); x.onload = () => s(x.responseText);"
    " x.onerror = f; x.open('GET', u); x.send(); })",
    "(() => { const x = new XMLHttpRequest(); x.open('GET', u, false); x.send();"
    " return x.responseText; })()",
    "import(u.replace('.txt', '.js'))",
    "obrero(`fetch('${u}').then(r => r.text())`)",
    "obrero(`(() => { const x = new XMLHttpRequest(); x.open('GET', '${u}', false); x.send();"
    " return x.responseText; })()`)",
    "obrero(`importScripts('${u.replace('.txt', '.js')}')`)",
    "new Promise(s => { const m = document.body.appendChild(document.createElement('iframe'));"
    " m.onload = () => s(m.contentDocument.documentElement.textContent); m.src = u; })",
    "new Promise(s => { const m = document.body.appendChild(document.createElement('object'));"
    " m.onload = m.onerror = () => s(m.contentDocument && m.contentDocument.body.textContent);"
    " m.data = u; })",
    "(() => { const a = document.getElementById('a'); a.href = u; a.click(); })()",
    "window.open(u).document.body.textContent",
    "new Promise((s, f) => { const e = new EventSource(u); e.onmessage = m => s(m.data);"
    " e.onerror = f; })",
    "new FontFace('x', `url(${u})`).load()",
    "(() => { const d = new DOMParser().parseFromString(`<!DOCTYPE a [<!ENTITY e SYSTEM '${u}'>]>"
    "<a>&e;</a>`, 'text/xml'); return d.documentElement.textContent; })()",
    "(() => { const p = new XSLTProcessor(); p.importStylesheet(new DOMParser().parseFromString("
    "`<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
    "<xsl:template match='/'><a><xsl:copy-of select=\"document('${u}')\"/></a></xsl:template>"
    "</xsl:stylesheet>`, 'text/xml')); return p.transformToFragment(new DOMParser()"
    ".parseFromString('<b/>', 'text/xml'), document).textContent; })()",
    "new Promise((s, f) => webkitRequestFileSystem(0, 99, s, f))",
    "new Promise((s, f) => webkitResolveLocalFileSystemURL(u, e => e.file(async a => "
    "s(await a.text())), f))",
)

OBRERO = """const obrero = guion => new Promise(sigue => {
    const uno = new Worker(URL.createObjectURL(new Blob([
        `(async () => { try { postMessage('' + await ${guion}); } catch (e) { postMessage(''); } })()`
    ])));
    uno.onmessage = e => sigue(e.data);
    uno.onerror = () => sigue('');
});"""

CONTENIDOS = {
    "html": f"<p>{SECRETO}</p>", "txt": SECRETO, "js": f"document.write('{SECRETO}')",
    "css": f"body::after {{ content: '{SECRETO}'; }}",
    "svg": "<svg xmlns='http://www.w3.org/2000/svg' width='99' height='99'>"
           "<g id='s'><rect width='99' height='99' fill='rgb(200,20,20)'/></g></svg>",
}


class Raiz(ConDibujador):
    def setUp(self):
        super().setUp()
        self.fuera = self.casa / "fuera"
        for clase, contenido in CONTENIDOS.items():
            self.archivo(f"fuera/secreto.{clase}", contenido)
            self.archivo(f"Quorvela/1-2010/docs/propio.{clase}",
                         contenido.replace(SECRETO, "lo propio"))
            (self.raiz / "1-2010/docs" / f"enlace.{clase}").symlink_to(
                self.fuera / f"secreto.{clase}")
        (self.raiz / "1-2010/carpeta").symlink_to(self.fuera)

    def pagina(self, cuerpo):
        return self.papel(cuerpo, "Quorvela/1-2010/docs/pagina.html")

    def nombres(self, clase):
        return {como: u.replace("EXT", clase).format(d=quote(str(self.fuera)),
                                                     c=quote(str(self.casa)))
                for como, u in NOMBRES.items()}

    def lecturas(self, clase, u):
        return LECTURAS[clase].replace("{u}", u.replace("'", "%27"))

    def test_elementos_noMuestranArchivosDeFuera(self):
        for clase in LECTURAS:
            with self.subTest(clase):
                cuerpo = "".join(self.lecturas(clase, u) for u in self.nombres(clase).values())
                papel = self.pagina(f"<p>papel</p>{cuerpo}")
                self.assertIn("papel", papel)
                self.assertNotIn(SECRETO, papel)
                self.assertEqual(puntos(self.pdf, ROJO), 0)

    def test_elementos_muestranLosArchivosPropios(self):
        """The same elements, which shows that the other test looks at the right thing."""
        for clase in LECTURAS:
            with self.subTest(clase):
                papel = self.pagina(f"<p>papel</p>{self.lecturas(clase, 'propio.' + clase)}")
                if clase == "svg":
                    self.assertGreater(puntos(self.pdf, ROJO), 500)
                else:
                    self.assertIn("lo propio", papel)

    def leido(self, nombres):
        """What scripts could read of the text files of these names, one line each."""
        servicio = Servicio()
        self.addCleanup(servicio.parar)
        servicio.paginas["/espera.png"] = lambda a: (servicio.esperar("/fin.png"),
                                                     responder(a, b""))
        intentos = ",\n".join(f"async u => {guion}" for guion in GUIONES)
        self.origen = servicio.origen
        # A read that never ends read nothing: what comes early enough is all that there is.
        return self.pagina(
            f"<p>papel</p><a id=a download></a><pre id=d></pre><img src='{self.origen}/espera.png'>"
            f"<script>{OBRERO}\nconst dichos = [], hechos = [];"
            f"const pausa = () => new Promise(sigue => setTimeout(sigue, 3000));"
            f"for (const u of {nombres!r}) for (const i of [{intentos}])"
            f"hechos.push(Promise.race([i(u), pausa()]).then(d => dichos.push(d), e => dichos.push('')));"
            f"Promise.all(hechos).then(() => {{ document.getElementById('d').innerText ="
            f"hechos.length + ' intentos\\n' + dichos.join('\\n');"
            f"new Image().src = '{self.origen}/fin.png'; }});</script>")

    def test_guiones_noLeenArchivosDeFuera(self):
        nombres = [u for u in self.nombres("txt").values()] + ["file:///etc/passwd"]
        papel = self.leido(nombres)
        self.assertIn(f"{len(nombres) * len(GUIONES)} intentos", papel)
        self.assertNotIn(SECRETO, papel)
        self.assertNotIn("root:", papel)

    def test_guiones_leenLosArchivosPropios(self):
        self.assertGreater(self.leido(["propio.txt"]).count("lo propio"), 5)

    def test_documentoFueraDeLaRaiz_noSeDibuja(self):
        rutas = (self.fuera / "secreto.html", self.raiz / "1-2010/docs/enlace.html",
                 self.raiz / "1-2010/carpeta/secreto.html")
        self.assertEqual(self.dibujarALaVez([(ruta, {}) for ruta in rutas]),
                         ([SIN_PAGINA] * 3, []))

    def test_raizQueEsEnlace_sirve(self):
        enlace = self.casa / "Enlazada"
        enlace.symlink_to(self.raiz)
        self.archivo("Quorvela/1-2010/docs/logo.png", png(100, 100, ROJO))
        self.archivo("Quorvela/1-2010/docs/p.html", "<p>papel</p><img src='LOGO.png'>")
        self.assertEqual(self.dibujar(enlace / "1-2010/docs/p.html", PARVANEL_RAIZ=str(enlace)),
                         HECHO)
        self.assertGreater(puntos(self.pdf, ROJO), 500)

    def test_raizSinNombrar_esLaDeLaCasa(self):
        ruta = self.archivo("Quorvela/p.html", "<p>papel</p>")
        self.assertEqual(self.dibujar(ruta, PARVANEL_RAIZ=None), HECHO)
        self.assertEqual(texto(self.pdf).strip(), "papel")
        self.assertEqual(self.dibujar(self.fuera / "secreto.html", PARVANEL_RAIZ=None), SIN_PAGINA)

    def test_raizQueNoEsRutaAbsoluta_nadaContiene(self):
        ruta = self.archivo("Quorvela/p.html", "<p>papel</p>")
        raices = ("", "Quorvela", str(self.casa / "nada"), os.path.relpath(self.raiz))
        self.assertEqual(self.dibujarALaVez([(ruta, {"PARVANEL_RAIZ": raiz}) for raiz in raices]),
                         ([SIN_PAGINA] * 4, []))


if __name__ == "__main__":
    unittest.main(verbosity=2)
