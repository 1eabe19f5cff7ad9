# SPDX-License-Identifier: MIT
"""A walk through a stored archive in a real browser, by clicking the links of its pages.

    with Navegador() as navegador:
        paginas = recorrer(navegador, carpeta)

What each page showed is kept as plain values, so that the tests look at them without the browser.
"""

import json
import tempfile
from dataclasses import dataclass, field
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import WebDriverWait

from navegador import argumentos

PLAZO = 30  # seconds for a page to load
PASO = 0.02  # seconds between two looks at whether it has

MIRAR = """
const texto = id => { const e = document.getElementById(id); return e ? e.textContent : null; };
return {
  titulo: document.title,
  juego: document.characterSet,
  texto: document.body.innerText,
  imagenes: [...document.images].map(i => [i.src, i.naturalWidth]),
  detalles: Object.fromEntries(arguments[0].map(n => [n, texto('cfg' + n.toUpperCase())])),
  ordenable: document.querySelectorAll('.tablesorter-header').length,
};
"""

# The variables of the school that the scripts of the pages write into them.
DETALLES = ("cdane", "direccion", "telefono", "secretaria", "rector")
# Link texts of a classroom's page, and the document folder that each leads to.
CONSOLIDADOS = {"Calificaciones": "consolidadoN", "Inasistencias": "consolidadoF"}
DOCUMENTOS = {"Informe final": "infoFinal", "Certificado": "certificados",
              "Matrícula": "matriculas", "Información": "infoAlumnos"}


@dataclass
class Pagina:
    """A page as it was seen. `clase` is its document folder, "" for the front page; `alumno` the
    student's name as the classroom's page gave it."""

    clase: str
    direccion: str
    titulo: str
    juego: str
    texto: str
    imagenes: list
    detalles: dict
    ordenable: int
    alumno: str = ""
    errores: list = field(default_factory=list)
    pedidas: list = field(default_factory=list)

    @property
    def nombre(self):
        """Its file, as in "matriculas/1001.html"."""
        return "/".join(self.direccion.rsplit("/", 2)[1:])


class Navegador:
    """Chromium without a window, with an empty profile of its own."""

    def __enter__(self):
        self._perfil = tempfile.TemporaryDirectory(prefix="perfil-",  # pylint: disable=R1732
                                                   ignore_cleanup_errors=True)
        opciones = webdriver.ChromeOptions()
        opciones.binary_location = "/usr/bin/chromium"
        for argumento in ["--headless=new", "--window-size=1150,860",
                          *argumentos(self._perfil.name)]:
            opciones.add_argument(argumento)
        opciones.set_capability("goog:loggingPrefs", {"performance": "ALL", "browser": "ALL"})
        try:
            self.chrome = webdriver.Chrome(service=Service("/usr/bin/chromedriver"),
                                           options=opciones)
        except BaseException:
            self._perfil.cleanup()
            raise
        self.chrome.set_page_load_timeout(PLAZO)
        # What the browser has shown of its own accord so far is none of the archive's.
        self.abrir("about:blank")
        self.mirar("")
        return self

    def __exit__(self, *_):
        self.chrome.quit()
        self._perfil.cleanup()

    def abrir(self, direccion):
        self.chrome.get(direccion)

    def pulsar(self, enlace):
        """Clicks a link and waits until the page that it leads to has loaded."""
        destino = enlace.get_property("href")
        enlace.click()
        WebDriverWait(self.chrome, PLAZO, PASO).until(
            lambda c: c.current_url == destino
            and c.execute_script("return document.readyState") == "complete")

    def volver(self):
        self.chrome.back()

    def enlaces(self, selector):
        return self.chrome.find_elements(By.CSS_SELECTOR, selector)

    def mirar(self, clase, alumno=""):
        """What the page shows, and what was asked for and went wrong since the last look."""
        visto = self.chrome.execute_script(MIRAR, DETALLES)
        errores = [e["message"] for e in self.chrome.get_log("browser") if e["level"] == "SEVERE"]
        pedidas = [m["params"]["request"]["url"] for m in self._mensajes()
                   if m["method"] == "Network.requestWillBeSent"]
        return Pagina(clase, self.chrome.current_url, alumno=alumno, errores=errores,
                      pedidas=pedidas, **visto)

    def _mensajes(self):
        return [json.loads(e["message"])["message"] for e in self.chrome.get_log("performance")]


def recorrer(navegador, carpeta):
    """Every page that can be reached by clicking, beginning at the front page of that archive."""
    portada = (Path(carpeta).resolve() / "index.html").as_uri()
    navegador.abrir(portada)
    paginas = [navegador.mirar("")]
    for salon in range(len(navegador.enlaces(".salones a"))):
        navegador.pulsar(navegador.enlaces(".salones a")[salon])
        paginas += _recorrer_salon(navegador)
        navegador.volver()
    return paginas


def _recorrer_salon(navegador):
    paginas = [navegador.mirar("salones")]
    enlaces = {e.text: e for e in navegador.enlaces("p a")}
    for texto, clase in CONSOLIDADOS.items():
        navegador.pulsar(enlaces[texto])
        paginas.append(navegador.mirar(clase))
        navegador.volver()
        enlaces = {e.text: e for e in navegador.enlaces("p a")}
    for fila in range(len(navegador.enlaces("#listado tbody tr"))):
        for texto, clase in DOCUMENTOS.items():
            celda = navegador.enlaces("#listado tbody tr")[fila]
            alumno = celda.find_element(By.CSS_SELECTOR, "td:nth-child(3)").text
            navegador.pulsar(celda.find_element(By.LINK_TEXT, texto))
            paginas.append(navegador.mirar(clase, alumno))
            navegador.volver()
    return paginas
