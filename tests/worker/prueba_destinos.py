# SPDX-License-Identifier: MIT
"""Which printer takes the documents, and on which paper."""

import unittest

from cups_privado import CupsPrivado
from impresion import ROJO, Prueba, medida, puntos, texto


# A printer that takes PDF as it is, on A5, and cannot print near the sides of the sheet.
PPD_ANCHOS = """*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "ANCHOS.PPD"
*Manufacturer: "Prueba"
*Product: "(Prueba)"
*ModelName: "Prueba"
*ShortNickName: "Prueba"
*NickName: "Prueba"
*PSVersion: "(3010.000) 0"
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize: PickOne
*DefaultPageSize: A5
*PageSize A5: "<</PageSize[420 595]>>setpagedevice"
*PageSize Letter: "<</PageSize[612 792]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*DefaultPageRegion: A5
*PageRegion A5: "<</PageSize[420 595]>>setpagedevice"
*PageRegion Letter: "<</PageSize[612 792]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A5
*ImageableArea A5: "60 10 360 585"
*ImageableArea Letter: "60 10 552 782"
*DefaultPaperDimension: A5
*PaperDimension A5: "420 595"
*PaperDimension Letter: "612 792"
"""


class Destinos(Prueba):
    """Which printer, and which paper."""

    @classmethod
    def setUpClass(cls):
        cls.cups = CupsPrivado()
        cls.cups.iniciar()
        cls.addClassCleanup(cls.cups.parar)

    def setUp(self):
        super().setUp()
        self.pagina = self.archivo("a.html", "<p>año</p>")

    def cola(self, nombre, **como):
        """A queue of this test's alone."""
        self.cups.agregar_cola(nombre, **como)
        self.addCleanup(self.cups.quitar_cola, nombre)

    def test_sinImpresora_cadaDocumentoSeAnotaConSuMotivo(self):
        anotado = self.imprimir(self.cups.entorno(), [self.pagina] * 2)
        self.assertEqual(anotado, [(str(self.pagina), "no hay impresora predeterminada")] * 2)

    def test_sinPredeterminada_loRecibeLaUnica(self):
        self.cola("unica")
        anotado = self.imprimir(self.cups.entorno(), [self.pagina])
        self.assertRegex(anotado[0][1], r"^trabajo \d+ en unica$")
        self.assertIn("año", texto(self.cups.esperar_capturados(1, "unica")[0].archivo))

    def test_sinPredeterminadaYConDos_noSeAdivina(self):
        self.cola("unica")
        self.cola("otra", media="iso_a5_148x210mm")
        anotado = self.imprimir(self.cups.entorno(), [self.pagina])
        self.assertEqual(anotado, [(str(self.pagina), "no hay impresora predeterminada")])

    def test_predeterminadaYPapelDelUsuario_valenMasQueLosDelServidor(self):
        self.cola("unica")
        self.cola("otra", media="iso_a5_148x210mm")
        self.cups.poner_predeterminada("unica")
        self.archivo(".cups/lpoptions", "Default otra media=Legal\n")
        anotado = self.imprimir(self.cups.entorno(), [self.pagina])
        self.assertRegex(anotado[0][1], r" en otra$")
        self.assertEqual(medida(self.cups.esperar_capturados(1, "otra")[0].archivo), (612, 1008))

    def test_colaSinPapel_recibeElDelLugar(self):
        self.cola("unica")
        self.cups.poner_predeterminada("unica")
        self.imprimir(self.cups.entorno(), [self.pagina], LC_ALL="", LANG="es_CO.UTF-8")
        self.imprimir(self.cups.entorno(), [self.pagina], LC_ALL="", LANG="es_EC.UTF-8")
        impresos = self.cups.esperar_capturados(2, "unica")
        self.assertEqual([medida(i.archivo) for i in impresos], [(612, 792), (595, 842)])

    def test_impresoraConControlador_conservaPapelYMargenes(self):
        self.cola("margenes", ppd=PPD_ANCHOS)
        self.cups.poner_predeterminada("margenes")
        roja = self.archivo("r.html", "<body style='margin:0;background:rgb(200,20,20)'><p>x</p>")
        self.imprimir(self.cups.entorno(), [roja])
        pdf = self.cups.esperar_capturados(1, "margenes")[0].archivo
        self.assertEqual(medida(pdf), (420, 595))
        # 60 points on the left and on the right of 420, 28 (10 mm, for the printer's 10 points)
        # above and below.
        self.assertAlmostEqual(puntos(pdf, ROJO, 72), 300 * (595 - 57), delta=2500)


if __name__ == "__main__":
    unittest.main(verbosity=2)
