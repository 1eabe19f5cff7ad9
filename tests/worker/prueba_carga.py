# SPDX-License-Identifier: MIT
"""A page that never ends its load is printed, whatever time it is given."""

import unittest
from concurrent.futures import ThreadPoolExecutor

from dibujador import HECHO, PLAZO_CORTO, ConDibujador

# What keeps a page loading, once it has been there. {yo} is the page's own name.
SIN_FIN = {
    "abierta": "document.open(); document.write('<p>papel</p>');",
    "marcos": "setInterval(() => {{ const m = document.createElement('iframe');"
              "m.src = '{yo}?' + Math.random(); document.body.append(m);"
              "if (m.previousElementSibling) m.previousElementSibling.remove(); }}, 1);",
    "imagenes": "const i = new Image(); document.body.append(i);"
                "setInterval(() => {{ i.src = 'data:image/png;base64,' + Math.random(); }}, 0);",
}


class Carga(ConDibujador):
    def test_paginaQueNuncaTerminaDeCargar_seImprime(self):
        with ThreadPoolExecutor(len(SIN_FIN)) as varios:
            hechos = {como: varios.submit(self.papelDe, como, guion)
                      for como, guion in SIN_FIN.items()}
        for como, hecho in hechos.items():
            with self.subTest(como):
                self.assertIn("papel", hecho.result())

    def papelDe(self, como, guion):
        pagina = ("<p>papel</p><script>if (top === self) onload = () => {"
                  + guion.format(yo=f"{como}.html") + "};</script>")
        return self.papel(pagina, f"Quorvela/{como}.html", self.temporal / f"{como}.pdf",
                          PARVANEL_PLAZO_DIBUJO=str(PLAZO_CORTO))

    def test_plazoQueNoEsNumero_valeElUsual(self):
        for plazo in (None, "", "x", "0", "-3", "99999999999"):
            with self.subTest(plazo):
                ruta = self.archivo("Quorvela/pagina.html", "<p>papel</p>")
                self.assertEqual(self.dibujar(ruta, PARVANEL_PLAZO_DIBUJO=plazo), HECHO)


if __name__ == "__main__":
    unittest.main(verbosity=2)
