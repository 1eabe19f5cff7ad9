# SPDX-License-Identifier: MIT
"""Nothing that goes wrong loses the documents around it."""

import os
import shutil
import signal
import socket
import unittest

from impresion import GUARDA, ConCups


class Fallas(ConCups):
    # A limit must not be one that a good page could reach: it may be drawn on a busy machine.

    def test_documentosMalos_noDetienenALosOtros(self):
        rutas = [self.archivo(f"{i}.html", f"<p>{i}</p>") for i in range(2)]
        rutas[1:1] = [self.casa / "falta.html", self.casa, "relativa.html", "/" + "x" * 5000]
        anotado = self.imprimir(self.cups.entorno(), rutas)
        self.assertEqual([a[0][:200] for a in anotado], [str(r)[:200] for r in rutas])
        self.assertImpresos([anotado[0], anotado[-1]], [rutas[0], rutas[-1]])
        self.assertEqual([a[1] for a in anotado[1:-1]],
                         ["el archivo no existe", "no es un archivo", "la ruta no es absoluta",
                          "la ruta es demasiado larga"])
        self.assertEqual([s.titulo for s in self.salidos(2)], ["0.html", "1.html"])

    def test_paginaSinFin_seAbandonaYSigueLaProxima(self):
        bucle = self.archivo("bucle.html", "<p>nunca</p><script>while(true){}</script>")
        bien = self.archivo("bien.html", "<p>bien</p>")
        anotado = self.imprimir(self.cups.entorno(), [bucle, bien], "--plazo-dibujo", "20")
        self.assertEqual(anotado[0], (str(bucle), "la página no terminó de dibujarse en 20 s"))
        self.assertImpresos(anotado[1:], [bien])

    def test_masPaginasSinFinQueDibujadores_tambienTerminan(self):
        self.conDibujador("#!/bin/sh\nIFS= read -r papel; IFS= read -r html; IFS= read -r pdf\n"
                          "case $html in *bucle*) exec sleep 3600;; esac\n"
                          "printf '%%PDF-1.4\\n' > \"$pdf\"\n")
        rutas = [self.archivo(f"bucle{i}.html", "") for i in range(3)]
        rutas.append(self.archivo("bien.html", ""))
        anotado = self.imprimir(self.cups.entorno(), rutas, "--plazo-dibujo", "5")
        self.assertEqual(anotado[:3], [(str(r), "la página no terminó de dibujarse en 5 s")
                                       for r in rutas[:3]])
        self.assertImpresos(anotado[3:], rutas[3:])

    def test_paginaCuyoMotorMuere_seDibujaOtraVez(self):
        for muerte in ("kill -9 $$", "exit 5", "exit 127"):
            with self.subTest(muerte):
                shutil.rmtree(self.casa / "programa", ignore_errors=True)
                (self.casa / "tomadas").unlink(missing_ok=True)
                self.empezarDeNuevo()
                self.conPercance(f"case $html in */1.html) mkdir '{self.casa}/murio' && {muerte};;"
                                 " esac 2>/dev/null")
                rutas = [self.archivo(f"{i}.html", f"<p>{i}</p>") for i in range(3)]
                self.assertImpresos(self.imprimir(self.cups.entorno(), rutas), rutas)
                self.assertEqual([s.titulo for s in self.salidos(3)], [r.name for r in rutas])
                self.assertEqual(self.tomadas(), ["0.html", "1.html", "1.html", "2.html"])
                (self.casa / "murio").rmdir()

    def test_paginaCuyoMotorMuereOtraVez_seAbandona(self):
        self.conPercance("case $html in */1.html) kill -9 $$;; esac")
        rutas = [self.archivo(f"{i}.html", f"<p>{i}</p>") for i in range(3)]
        anotado = self.imprimir(self.cups.entorno(), rutas)
        self.assertEqual(anotado[1], (str(rutas[1]), "el dibujante murió por la señal 9"))
        self.assertImpresos([anotado[0], anotado[2]], [rutas[0], rutas[2]])
        self.assertEqual(self.tomadas(), ["0.html", "1.html", "1.html", "2.html"])

    def test_paginaQueDiceQueNo_noSeRepite(self):
        for codigo, motivo in ((3, "no se pudo cargar la página"), (4, "no se pudo escribir el PDF")):
            with self.subTest(codigo):
                shutil.rmtree(self.casa / "programa", ignore_errors=True)
                (self.casa / "tomadas").unlink(missing_ok=True)
                self.empezarDeNuevo()
                self.conPercance(f"exit {codigo}")
                ruta = self.archivo("a.html", "<p>a</p>")
                self.assertEqual(self.imprimir(self.cups.entorno(), [ruta]), [(str(ruta), motivo)])
                self.assertEqual(self.tomadas(), ["a.html"])

    def test_servidorQueAceptaYNoContesta_seAbandona(self):
        rutas = [self.archivo(f"{i}.html", "<p>a</p>") for i in range(2)]
        with socket.create_server(("127.0.0.1", 0)) as mudo:
            cups = {"CUPS_SERVER": f"127.0.0.1:{mudo.getsockname()[1]}"}
            anotado = self.imprimir(cups, rutas, "--plazo-servidor", "1",
                                    "--plazo-ausencia", "1")
        mudo_ = "el servidor de impresión no contestó en 1 s"
        self.assertEqual(anotado, [(str(rutas[0]), f"{mudo_}; se espera hasta 1 s a que vuelva"),
                                   *((str(r), mudo_) for r in rutas)])

    def test_quienEscribe_nuncaEspera(self):
        # Far more than a pipe holds, while the print server keeps the worker waiting.
        ruta = self.archivo("a.html", "<p>a</p>")
        with socket.create_server(("127.0.0.1", 0)) as mudo:
            proceso = self.trabajador({"CUPS_SERVER": f"127.0.0.1:{mudo.getsockname()[1]}"})
            self.addCleanup(proceso.kill)
            with proceso.stdin as entrada:
                for _ in range(20):
                    entrada.write(f"{ruta}\n".encode() * 1000)
                    entrada.flush()
            self.assertIsNone(proceso.poll())
            proceso.send_signal(signal.SIGTERM)
            self.assertEqual(proceso.wait(GUARDA), 1)

    def test_dibujadorAusente_seAnota(self):
        self.conDibujador("#!/nada/que/exista\n")
        ruta = self.archivo("a.html", "<p>a</p>")
        anotado = self.imprimir(self.cups.entorno(), [ruta] * 2)
        self.assertEqual(anotado, [(str(ruta), "no se pudo arrancar el dibujante")] * 2)

    def test_dibujadorQueMuereAlArrancar_seAnota(self):
        self.conDibujador("#!/bin/sh\nexit 127\n")
        ruta = self.archivo("a.html", "<p>a</p>")
        anotado = self.imprimir(self.cups.entorno(), [ruta] * 5)
        self.assertEqual(anotado, [(str(ruta), "el dibujante terminó con el código 127")] * 5)

    def test_carpetaDelObreroMuerto_laQuitaElSiguienteYNingunaOtra(self):
        bucle = self.archivo("bucle.html", "<script>while(true){}</script>")
        carpetas = []
        for _ in range(2):
            proceso = self.trabajador(self.cups.entorno(), "--plazo-dibujo", "3600")
            self.addCleanup(proceso.wait)
            self.addCleanup(proceso.kill)
            proceso.stdin.write(f"{self.archivo('a.html', '<p>a</p>')}\n{bucle}\n".encode())
            proceso.stdin.flush()
            self.salidos(1)
            self.empezarDeNuevo()
            nuevas = set(os.listdir(self.temporal)) - set(carpetas)
            self.assertEqual(len(nuevas), 1)
            carpetas += nuevas
            if len(carpetas) == 1:
                proceso.kill()
                proceso.wait()
        # A link and a file that are called as such folders are, and a folder that is not.
        ajena = self.archivo("ajena/nota.txt", "x").parent
        (self.temporal / "parvanel-print-enlace").symlink_to(ajena)
        (self.temporal / "parvanel-print-nofold").touch()
        (self.temporal / "parvanel-print-otra-carpeta").mkdir()
        bien = self.trabajador(self.cups.entorno())
        self.addCleanup(bien.kill)
        bien.communicate(timeout=GUARDA)
        self.assertEqual(bien.returncode, 0)
        self.assertEqual(sorted(os.listdir(self.temporal)),
                         sorted([carpetas[1], "parvanel-print-enlace", "parvanel-print-nofold",
                                 "parvanel-print-otra-carpeta"]))
        self.assertTrue((ajena / "nota.txt").exists())

    def test_dibujador_sabeSuPlazoYLoQueSabeElObrero(self):
        self.conDibujador('#!/bin/sh\nIFS= read -r papel; IFS= read -r html; IFS= read -r pdf\n'
                          'echo "$PARVANEL_PLAZO_DIBUJO $PARVANEL_ORIGEN $PARVANEL_RAIZ" > "$pdf"\n')
        self.imprimir(self.cups.entorno(), [self.archivo("a.html", "")], "--plazo-dibujo", "77",
                      PARVANEL_ORIGEN="http://127.0.0.1:8", PARVANEL_RAIZ="/casa/Quorvela")
        self.assertEqual(self.salidos(1)[0].archivo.read_text(),
                         "77 http://127.0.0.1:8 /casa/Quorvela\n")

    def test_registro_noPasaDeSuTope(self):
        rutas = [self.casa / f"falta{'a' * 150}{i}.html" for i in range(4000)]
        self.imprimir(self.cups.entorno(), rutas)
        carpeta = self.registro.parent
        self.assertEqual(sorted(os.listdir(carpeta)), ["print.log", "print.log.1"])
        for nombre in os.listdir(carpeta):
            self.assertLessEqual((carpeta / nombre).stat().st_size, 256 * 1024)
        self.assertEqual(self.anotado()[-1], (str(rutas[-1]), "el archivo no existe"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
