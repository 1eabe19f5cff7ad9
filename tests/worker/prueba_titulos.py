# SPDX-License-Identifier: MIT
"""What a job is called at the printer: as its page is titled, else as its file is named."""

import unittest

from impresion import ConCups

PAGINAS = (
    ("<title>Paz y salvo - ÑÁÑEZ \xd3scar</title>", "Paz y salvo - ÑÁÑEZ Óscar"),
    ("", None),
    ("<title>  Certificado\r\n\t de   Ana </title>", "Certificado de Ana"),
    ("<title> \n </title>", None),
    ("<title>antes</title><script>document.title = 'después';</script>", "después"),
    ("<title>uno\x81dos&#10;tres&#7;</title>", "uno dos tres"),
    ("<title>+</title>", "+"),
    ("<title>de la página</title><form name='title'></form>", "de la página"),
    (f"<title>{'ñ' * 300}</title>", "ñ" * 127),
    ("<title>&lt;b&gt;Informe&lt;/b&gt; 100% 'a' \"b\" $c</title>",
     "<b>Informe</b> 100% 'a' \"b\" $c"),
    ("", None),
)


class Titulos(ConCups):
    def pagina(self, nombre, cabeza):
        return self.archivo(nombre, "<html><head><meta charset='windows-1252'>"
                            f"{cabeza}</head><body><p>{nombre}</p></body></html>".encode(
                                "cp1252", "surrogateescape"))

    def test_trabajo_seLlamaComoSuPagina(self):
        rutas = [self.pagina(f"{i}.html", cabeza.replace("\x81", "\udc81"))
                 for i, (cabeza, _) in enumerate(PAGINAS)]
        self.assertImpresos(self.imprimir(self.cups.entorno(), rutas), rutas)
        self.assertEqual([s.titulo for s in self.salidos(len(rutas))],
                         [titulo or f"{i}.html" for i, (_, titulo) in enumerate(PAGINAS)])

    def test_loteQueAgotaUnDibujante_conservaLosTitulos(self):
        # The last page that a renderer draws has its title told before the renderer ends.
        rutas = [self.pagina(f"{i}.html", f"<title>Boletín {i}</title>") for i in range(66)]
        self.assertImpresos(self.imprimir(self.cups.entorno(), rutas), rutas)
        self.assertEqual([s.titulo for s in self.salidos(len(rutas))],
                         [f"Boletín {i}" for i in range(66)])


if __name__ == "__main__":
    unittest.main(verbosity=2)
