# SPDX-License-Identifier: MIT
"""A classroom's documents from hand-over to paper."""

import os
import shutil
import signal
import unittest
from pathlib import Path

from impresion import GUARDA, ROJO, TRABAJADOR, ConCups, medida, png, puntos, texto


class Lote(ConCups):
    media = "iso_a5_148x210mm"

    def boletin(self, i):
        return self.archivo(
            f"1-2010/archivos/boletines/P2/{1000 + i}.html",
            "<html><head><meta http-equiv='Content-Type' content='text/html; charset=windows-1252'>"
            f"</head><body><img src='../../../archivos\\images\\logo.png'>"
            f"<h1>Boletín de Íñigo Núñez número {i}</h1><p id='cfgMICOLEGIO'></p>"
            f"<script src='../../configuracion.txt'></script>"
            f"<script>document.addEventListener('DOMContentLoaded', function() {{ setTimeout("
            f"function() {{ document.getElementById('cfgMICOLEGIO').innerHTML = micolegio; }}, 0);"
            f"}});</script></body></html>")

    def test_loteDe40_saleEnteroYEnOrden(self):
        self.archivo("1-2010/archivos/images/logo.png", png(100, 100, ROJO))
        self.archivo("1-2010/archivos/configuracion.txt", "var micolegio='Colegio Peñón';")
        rutas = [self.boletin(i) for i in range(40)]
        self.assertImpresos(self.imprimir(self.cups.entorno(), rutas), rutas)
        salidos = self.salidos(40)
        self.assertEqual([s.titulo for s in salidos], [r.name for r in rutas])
        for i, salido in enumerate(salidos):
            leido = " ".join(texto(salido.archivo).split())
            self.assertEqual(leido, f"Boletín de Íñigo Núñez número {i} Colegio Peñón")
            self.assertEqual(medida(salido.archivo), (419, 595), "not the queue's A5")
        for salido in (salidos[0], salidos[-1]):
            self.assertGreater(puntos(salido.archivo, ROJO), 500, "the logo is missing")

    def test_rutasDeUnaEnUna_seImprimenAntesDelFin(self):
        proceso = self.trabajador(self.cups.entorno())
        self.addCleanup(proceso.kill)
        for i in range(3):
            proceso.stdin.write(f"{self.boletin(i)}\n".encode())
            proceso.stdin.flush()
            self.salidos(i + 1)
        proceso.stdin.close()
        self.assertEqual(proceso.wait(GUARDA), 0)

    def test_entradaCerradaAntes_loEntregadoSeImprime(self):
        rutas = [self.boletin(i) for i in range(5)]
        proceso = self.trabajador(self.cups.entorno())
        self.addCleanup(proceso.kill)
        # The last line has lost its end, as when the window closes in the middle of it.
        proceso.stdin.write("\n".join(map(str, rutas)).encode())
        proceso.stdin.close()
        self.assertEqual(proceso.wait(GUARDA), 0)
        self.assertImpresos(self.anotado(), rutas)
        self.assertEqual([s.titulo for s in self.salidos(5)], [r.name for r in rutas])

    def test_instalacionTrasladada_imprime(self):
        # In either layout: the two side by side, and the worker in a folder for programs.
        for propia in ("libexec/parvanel", "bin"):
            with self.subTest(propia):
                raiz = self.casa / propia.replace("/", "-")
                for nombre, carpeta in (("parvanel-print", propia),
                                        ("parvanel-print-render", "libexec/parvanel")):
                    (raiz / carpeta).mkdir(parents=True, exist_ok=True)
                    shutil.copy2(Path(TRABAJADOR).parent / nombre, raiz / carpeta / nombre)
                self.programa = raiz / propia / "parvanel-print"
                self.empezarDeNuevo()
                rutas = [self.boletin(0)]
                self.assertImpresos(self.imprimir(self.cups.entorno(), rutas), rutas)

    def test_sinEntrada_terminaAlMomento(self):
        self.assertEqual(self.imprimir(self.cups.entorno(), []), [])

    def test_obreroTerminado_nadaDeja(self):
        bucle = self.archivo("bucle.html", "<script>while(true){}</script>")
        # So that the endless page does not end first.
        proceso = self.trabajador(self.cups.entorno(), "--plazo-dibujo", "3600")
        self.addCleanup(proceso.kill)
        proceso.stdin.write(f"{self.boletin(0)}\n{bucle}\n{self.boletin(1)}\n".encode())
        proceso.stdin.flush()
        self.salidos(1)
        proceso.send_signal(signal.SIGTERM)
        proceso.stdin.close()
        self.assertEqual(proceso.wait(GUARDA), 1)
        self.assertEqual(os.listdir(self.temporal), [])
        self.assertEqual(self.procesosVivos(), [])
        self.assertIn("se interrumpió la impresión", self.anotado()[-1][1])

    def test_imprimir_enLaCasaSoloEscribeElRegistro(self):
        ruta = self.boletin(0)
        self.imprimir(self.cups.entorno(), [ruta])
        hay = {str(p.relative_to(self.casa)) for p in self.casa.rglob("*") if p.is_file()}
        self.assertEqual(hay, {str(ruta.relative_to(self.casa)), "estado/parvanel/print.log"})


if __name__ == "__main__":
    unittest.main(verbosity=2)
