# SPDX-License-Identifier: MIT
"""The engine's sandbox is on for whoever is not root."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from impresion import DIBUJADOR, GUARDA
from servicio_prueba import Servicio, responder

NADIE = 65534


class Encierro(unittest.TestCase):
    def setUp(self):
        # A place that the other account may enter, wherever the build tree lies.
        self.casa = Path(tempfile.mkdtemp(prefix="encierro "))
        self.addCleanup(shutil.rmtree, self.casa)
        self.dibujador = self.casa / "dibujador"
        shutil.copyfile(DIBUJADOR, self.dibujador)
        self.cuenta = {}
        if os.geteuid() == 0:
            self.cuenta = {"user": NADIE, "group": NADIE, "extra_groups": []}
            os.chown(self.casa, NADIE, NADIE)
        self.casa.chmod(0o755)
        self.dibujador.chmod(0o755)

    def paginas(self, sesion):
        """What is told of each living process of the session that draws a page.

        The engine splits them off a process that it keeps for that, and they keep its name: they
        are those of its descendants that have none of their own.
        """
        hallados = []
        for proceso in Path("/proc").glob("[0-9]*"):
            try:
                orden = (proceso / "cmdline").read_bytes()
                estado = (proceso / "status").read_text(encoding="ascii", errors="replace")
                suya = os.getsid(int(proceso.name)) == sesion
            except OSError:
                continue
            if b"--type=" in orden and b"--no-zygote-sandbox" not in orden and suya:
                hallados.append(dict(re.findall(r"^(\w+):\s*(.*)$", estado, re.M)))
        padres = {uno["PPid"] for uno in hallados}
        return [uno for uno in hallados
                if uno["Pid"] not in padres and uno["PPid"] != str(sesion)]

    def test_paginaDeUnaCuentaCorriente_quedaEncerrada(self):
        servicio = Servicio()
        self.addCleanup(servicio.parar)
        # While the image is awaited the page is alive, and has run its script.
        servicio.paginas["/espera.png"] = lambda a: (servicio.esperar("/visto"), responder(a, b""))
        pagina = self.casa / "p.html"
        pagina.write_text(f"<p>papel</p><img src='{servicio.origen}/espera.png'><script>"
                          f"new Image().src = '{servicio.origen}/vivo.png';</script>",
                          encoding="ascii")
        entorno = {"HOME": str(self.casa), "TMPDIR": str(self.casa), "PATH": os.environ["PATH"],
                   "LC_ALL": "C.UTF-8", "PARVANEL_RAIZ": str(self.casa),
                   "PARVANEL_ORIGEN": servicio.origen, "PARVANEL_PLAZO_DIBUJO": str(4 * GUARDA),
                   "QTWEBENGINE_DISABLE_SANDBOX": "1",
                   "QTWEBENGINE_CHROMIUM_FLAGS": "--no-sandbox",
                   "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "")}
        with subprocess.Popen([self.dibujador, pagina, self.casa / "p.pdf"], env=entorno,
                              stderr=subprocess.DEVNULL, start_new_session=True,
                              **self.cuenta) as proceso:
            try:
                self.assertTrue(servicio.esperar("/vivo.png"), "the page was never drawn")
                paginas = self.paginas(proceso.pid)
                with servicio.novedad:
                    servicio.pedidos.append("/visto")
                    servicio.novedad.notify_all()
                self.assertEqual(proceso.wait(GUARDA), 0)
            finally:
                proceso.kill()
        self.assertTrue(paginas, "the page's process was not found")
        for estado in paginas:
            self.assertEqual((estado["Seccomp"], estado["NoNewPrivs"]), ("2", "1"))
            self.assertNotEqual(estado["Uid"].split()[0], "0")


if __name__ == "__main__":
    unittest.main(verbosity=2)
