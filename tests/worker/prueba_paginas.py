# SPDX-License-Identifier: MIT
"""What a page may contain, and what comes out of it."""

import socket
import unittest

from impresion import ROJO, VERDE, ConCups, png, puntos, texto


class Paginas(ConCups):
    def test_sinDeclaracion_seLeeEnLaPagina1252(self):
        self.assertIn("Peñón – «Año» €", texto(self.unaPagina("<p>Peñón – «Año» €</p>")))

    def test_codificacionDeclarada_seObedece(self):
        pdf = self.unaPagina("<meta charset=utf-8><p>Peñón ✓</p>".encode("utf-8"))
        self.assertIn("Peñón ✓", texto(pdf))

    def test_nombresEnOtraLetra_seHallan(self):
        self.archivo("Images/Logo.png", png(100, 100, ROJO))
        self.archivo("JScript/Nombre.js", "document.write('guion hallado');")
        pdf = self.unaPagina("<img src='IMAGES/logo.PNG'>"
                             "<script src='jscript/nombre.js'></script>")
        self.assertGreater(puntos(pdf, ROJO), 500)
        self.assertIn("guion hallado", texto(pdf))

    def test_barrasInvertidas_separanCarpetas(self):
        self.archivo("images/logo.png", png(100, 100, ROJO))
        self.archivo("images/sello.png", png(100, 100, VERDE))
        pdf = self.unaPagina("<img src='..\\images\\logo.png'><img src='..%5CIMAGES%5csello.png'>",
                             "docs/pagina.html")
        self.assertGreater(puntos(pdf, ROJO), 500)
        self.assertGreater(puntos(pdf, VERDE), 500)

    def test_nombresRaros_seImprimenYAnotanTalCual(self):
        nombres = ["con blancos.html", "Ñandú.html", "100%.html", "%41.html", "n#1.html",
                   "q?a=1.html", "a\\b.html", "-e.html", "'\"$(x)`.html", "tab\taquí.html"]
        rutas = [self.archivo(n, f"<p>documento {i}</p>") for i, n in enumerate(nombres)]
        anotado = self.imprimir(self.cups.entorno(), rutas)
        escrito = [str(r).replace("\\", "\\x5C").replace("\t", "\\x09") for r in rutas]
        self.assertImpresos(anotado, escrito)
        for i, salido in enumerate(self.salidos(len(rutas))):
            self.assertIn(f"documento {i}\n", texto(salido.archivo))

    def test_cuadrosYVentanas_noSalen(self):
        pdf = self.unaPagina(
            "<p>antes</p><script>alert('a'); if (!confirm('b')) prompt('c');"
            "window.open('pagina.html'); window.print();"
            "document.write('<p>despues</p>');</script>")
        self.assertIn("despues", texto(pdf))

    def test_ningunaPeticion_saleDelEquipo(self):
        # This listener stands for every host there is: nobody must call.
        with socket.create_server(("127.0.0.1", 0)) as oyente:
            casa = f"127.0.0.1:{oyente.getsockname()[1]}"
            pdf = self.unaPagina(
                f"<p>local</p><img src='http://{casa}/a.png'>"
                f"<iframe src='http://{casa}/'></iframe>"
                f"<link rel=stylesheet href='http://{casa}/a.css'><script src='http://{casa}/a.js'>"
                f"</script><script>fetch('http://{casa}/').catch(e => 0);"
                f"new WebSocket('ws://{casa}'); new Image().src = 'http://{casa}/b.png';"
                f"navigator.sendBeacon('http://{casa}/', 'x');</script>")
            self.assertIn("local", texto(pdf))
            oyente.settimeout(0)
            with self.assertRaises(BlockingIOError):
                oyente.accept()

    def test_servidoresInalcanzables_noDetienenLaPagina(self):
        # Longer than the guard of one page, if anybody waited for these.
        fuera = "".join(f"<img src='http://10.255.255.{i}/a.png'>" for i in range(1, 9))
        pdf = self.unaPagina(f"<script src='http://no.such.host.invalid/a.js'></script>{fuera}"
                             "<p>solo</p>", "pagina.html", "--plazo-dibujo", "15")
        self.assertIn("solo", texto(pdf))

    def test_paginaQueSeVaAOtraParte_seImprimeElla(self):
        otra = self.archivo("otra.html", "<p>otra</p>")
        paginas = (f"<p>aqui</p><script>location.href='{otra.name}'</script>",
                   "<p>aqui</p><script>location.reload()</script>",
                   "<meta http-equiv=refresh content='0;url=http://h.invalid/'><p>aqui</p>")
        rutas = [self.archivo(f"{i}.html", pagina) for i, pagina in enumerate(paginas)]
        self.assertImpresos(self.imprimir(self.cups.entorno(), rutas), rutas)
        for salido in self.salidos(3):
            self.assertEqual(texto(salido.archivo).split(), ["aqui"])

    def test_imagenesDeGuiones_seImprimen(self):
        self.archivo("logo.png", png(100, 100, ROJO))
        pdf = self.unaPagina("<div id=d></div><script>window.onload = function() { setTimeout("
                             "function() { document.getElementById('d').innerHTML ="
                             "'<img loading=lazy src=logo.png>'; }, 0); };</script>")
        self.assertGreater(puntos(pdf, ROJO), 500)

    def test_fondos_seImprimenDentroDeLosMargenes(self):
        pdf = self.unaPagina("<body style='margin:0;background:rgb(200,20,20)'><p>x</p>")
        # A4 less 10 mm all round is 190 x 277 of 210 x 297 mm: 84 % of the dots.
        todos = 298 * 421
        self.assertAlmostEqual(puntos(pdf, ROJO) / todos, 0.84, delta=0.02)

    def test_papel_sinEncabezadoNiPie(self):
        pdf = self.unaPagina("<title>titulo oculto</title><p>cuerpo</p>")
        self.assertEqual(texto(pdf).split(), ["cuerpo"])

    def test_paginaVacia_esHojaEnBlanco(self):
        self.assertEqual(texto(self.unaPagina("")).strip(), "")


if __name__ == "__main__":
    unittest.main(verbosity=2)
