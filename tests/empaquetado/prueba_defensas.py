# SPDX-License-Identifier: MIT
"""The programs that users get are built with the compiler's and linker's defences.

What a binary shows is read from the binary. Of two defences a binary shows only what its code
happens to call for (fortified calls, probes of large stack frames), so that these are looked for
where they are known to be, and their switches in every compilation.
"""

import json
import os
import re
import subprocess
import unittest
from pathlib import Path

ENTREGA = Path(os.environ["PARVANEL_ENTREGA"])
PROGRAMAS = ("parvanel", "parvanel-demo", "parvanel-print", "parvanel-print-render")
INTERRUPTORES = ("-fstack-protector-strong", "-fstack-clash-protection", "-fcf-protection=full",
                 "-D_FORTIFY_SOURCE=2", "-D_GLIBCXX_ASSERTIONS", "-O3")


def salida(*orden):
    return subprocess.run(orden, check=True, capture_output=True, text=True, timeout=120).stdout


class Defensas(unittest.TestCase):
    def cada(self):
        for programa in PROGRAMAS:
            with self.subTest(programa):
                yield str(ENTREGA / "bin" / programa)

    def test_programas_enCualquierDireccion(self):
        for programa in self.cada():
            self.assertRegex(salida("readelf", "-hW", programa), r"Type:\s+DYN")
            self.assertRegex(salida("readelf", "-dW", programa), r"\(FLAGS_1\).*\bPIE\b")

    def test_direcciones_seAtanAlComienzoYQuedanDeSoloLectura(self):
        for programa in self.cada():
            self.assertRegex(salida("readelf", "-dW", programa), r"\(FLAGS\).*\bBIND_NOW\b")
            self.assertRegex(salida("readelf", "-dW", programa), r"\(FLAGS_1\).*\bNOW\b")
            self.assertIn("GNU_RELRO", salida("readelf", "-lW", programa))

    def test_pila_noEsEjecutable(self):
        for programa in self.cada():
            self.assertRegex(salida("readelf", "-lW", programa), r"GNU_STACK(\s+0x\w+){5} RW ")

    def test_pila_guardadaYLaBibliotecaComprueba(self):
        for programa in self.cada():
            simbolos = salida("nm", "-D", programa)
            self.assertIn("__stack_chk_fail", simbolos)
            self.assertIn("__glibcxx_assert_fail", simbolos)

    def test_marcosGrandes_seSondean(self):
        for programa in self.cada():
            self.assertRegex(salida("objdump", "-d", "--no-show-raw-insn", programa),
                             r"\bor[lq]\s+\$0x0,\(%rsp\)")

    def test_llamadas_vanReforzadas(self):
        simbolos = salida("nm", "-D", str(ENTREGA / "bin" / "parvanel-print"))
        self.assertRegex(simbolos, r"__(?!stack_)\w+_chk@")

    def test_funciones_empiezanDondeUnSaltoPuedeCaer(self):
        for programa in self.cada():
            codigo = salida("objdump", "-d", "--no-show-raw-insn", programa)
            self.assertRegex(codigo, r"<main>:\n\s+\w+:\s+endbr64")

    def test_todaFuente_seCompilaConEllas(self):
        ordenes = json.loads((ENTREGA / "compile_commands.json").read_text())
        self.assertGreater(len(ordenes), 50)
        for orden in ordenes:
            interruptores = re.split(r"\s+", orden["command"])
            for interruptor in INTERRUPTORES:
                self.assertIn(interruptor, interruptores, orden["file"])
            for interruptor in ("-fno-stack-protector", "-fcf-protection=none", "-no-pie"):
                self.assertNotIn(interruptor, interruptores, orden["file"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
