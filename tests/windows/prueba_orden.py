# SPDX-License-Identifier: MIT
"""The command that builds everything for Windows, with pretended tools: from which sources it builds,
and what it compares.
"""

import os
import shutil
import signal
import subprocess
import tempfile
import unittest
from pathlib import Path

PLAZO = 300  # seconds; only a guard
ORDEN = Path(__file__).resolve().parents[2] / "windows"
# Each makes what the real one would, of what it finds in the sources.
HERRAMIENTAS = {
    "cmake": """while [ $# -gt 0 ]; do
    case $1 in
    --preset) cp fuente.cpp compilada ;;
    -B) arbol=$2 ;;
    --build) construir=$2 ;;
    esac
    shift
done
[ -z "${arbol:-}" ] || [ ! -e compilada ] || mv compilada "$arbol"
[ -z "${construir:-}" ] || [ ! -e "$construir/compilada" ] || {
    mkdir -p "$construir/bin"
    cp "$construir/compilada" "$construir/bin/parvanel.exe"
    cp "$construir/compilada" "$construir/bin/parvanel-demo.exe"
}""",
    "pandoc": """for a; do case $a in --output=*) cp manual.md "${a#--output=}" ;; esac; done""",
    "makensis": """for a; do case $a in
-DFUENTE=*) fuente=${a#*=} ;;
-DSALIDA=*) salida=${a#*=} ;;
esac; done
cat "$fuente"/* > "$salida" """,
    "ctest": """for ((vez = 0; vez < 1000; ++vez)); do
    [ ! -s "$PARVANEL_WINEPREFIX.servidor" ] || exec echo probado
    sleep 0.05
done
exit 1""",
    # Ended by a signal it leaves alone what it serves; asked to end, it ends that first.
    "wineserver": """servidor=$WINEPREFIX.servidor
[ "$1" != --kill ] || {
    kill "$(cat "$servidor")"
    exec rm "$servidor"
}
echo $$ > "$servidor"
exec sleep 1000""",
}
FUENTES = {
    "CMakeLists.txt": "project(parvanel VERSION 4.0.0\n", "CHANGELOG.md": "", "LICENSE": "MIT\n",
    "fuente.cpp": "uno", "docs/manual.md": "# Manual\n",
    "scripts/install-packages": "#!/bin/sh\n",
    "paquete-windows/cadena": '#!/bin/sh\nmkdir -p "$PREFIJO/licencias"\n'
                              'touch "$PREFIJO/licencias/qt.txt"\necho "$PREFIJO"\n',
    "paquete-windows/con-wine": "#!/bin/sh\n",
}


class Orden(unittest.TestCase):
    def setUp(self):
        self.carpeta = Path(self.enterContext(tempfile.TemporaryDirectory()))
        for nombre, texto in HERRAMIENTAS.items():
            escribir(self.carpeta / "bin" / nombre, f"#!/bin/bash\nset -e\n{texto}\n")

    def preparar(self, nombre):
        """The sources in a folder of that name, without any history."""
        self.fuentes = self.carpeta / nombre
        for archivo, texto in FUENTES.items():
            escribir(self.fuentes / archivo, texto)
        shutil.copy(ORDEN, self.fuentes)

    def correr(self, *opciones):
        entorno = {"PATH": f"{self.carpeta / 'bin'}:{os.environ['PATH']}",
                   "PREFIJO": str(self.carpeta / "prefijo"), "HOME": str(self.carpeta),
                   "GIT_CEILING_DIRECTORIES": str(self.carpeta)}
        with subprocess.Popen([self.fuentes / "windows", *opciones], env=entorno, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              start_new_session=True) as orden:
            try:
                dicho, quejas = orden.communicate(timeout=PLAZO)
            except subprocess.TimeoutExpired:
                os.killpg(orden.pid, signal.SIGKILL)  # with all that it has started
                raise
        return subprocess.CompletedProcess(orden.args, orden.returncode, dicho, quejas)

    def git(self, *orden):
        subprocess.run(["git", "-c", "user.name=x", "-c", "user.email=x@y.example", *orden],
                       cwd=self.fuentes, check=True, timeout=60, capture_output=True)

    def confirmar(self):
        escribir(self.fuentes / ".gitignore", "build\n")
        self.git("init", "-q")
        self.git("add", "-A")
        self.git("commit", "-qm", "x")

    def test_sinHistoria_construyeLoQueHayYLoCompara(self):
        self.preparar("fuentes")
        hecho = self.correr("--check")
        self.assertEqual((hecho.returncode, hecho.stderr),
                         (0, self.sin_revisor()), hecho.stdout)
        self.assertIn("probado", hecho.stdout)
        salida = self.fuentes / "build" / "windows"
        self.assertTrue(salida.is_dir())
        self.assertFalse((salida / "wine.servidor").exists(), "what the server serves was left")

    def test_conHistoria_comparaLoConfirmado(self):
        self.preparar("fuentes")
        self.confirmar()
        hecho = self.correr("--check")
        self.assertEqual((hecho.returncode, hecho.stderr), (0, self.sin_revisor()), hecho.stdout)

    def test_loNoConfirmado_noSeComparaYSeDice(self):
        self.preparar("fuentes")
        self.confirmar()
        escribir(self.fuentes / "fuente.cpp", "dos")
        hecho = self.correr("--check")
        self.assertEqual(hecho.returncode, 0, hecho.stderr)
        self.assertIn("cannot be compared", hecho.stderr)
        self.assertIn("probado", hecho.stdout)

    def test_dosVecesDistinto_noPasa(self):
        self.preparar("fuentes")
        escribir(self.carpeta / "bin" / "pandoc", HERRAMIENTAS["pandoc"].replace(
            "cp manual.md", "date +%N >") + "\n")
        hecho = self.correr("--check")
        self.assertNotEqual(hecho.returncode, 0)
        self.assertNotIn("probado", hecho.stdout)

    def test_gitNoResponde_noPasaPorCambio(self):
        self.preparar("fuentes")
        self.confirmar()
        escribir(self.carpeta / "bin" / "git", "#!/bin/sh\n"
                 f'[ "$1" != diff ] || exit 128\nexec {shutil.which("git")} "$@"\n')
        hecho = self.correr("--check")
        self.assertNotEqual(hecho.returncode, 0)
        self.assertNotIn("cannot be compared", hecho.stderr)

    def test_servidorQueSeVa_terminaYLoDice(self):
        self.preparar("fuentes")
        escribir(self.carpeta / "bin" / "wineserver", "#!/bin/sh\n"
                 "[ $1 != --kill ] || exit 0\necho no puedo mas\nexit 3\n")
        escribir(self.carpeta / "bin" / "ctest", "#!/bin/sh\nexec sleep 1000\n")
        hecho = self.correr("--check")
        self.assertEqual(hecho.returncode, 1, hecho.stdout)
        self.assertIn("ended with 3 in the midst of the tests\nno puedo mas\n", hecho.stderr)

    def test_pruebasQueFallan_noPasa(self):
        self.preparar("fuentes")
        escribir(self.carpeta / "bin" / "ctest", "#!/bin/bash\n"
                 + HERRAMIENTAS["ctest"].replace("exec echo probado", "exit 8") + "\n")
        self.assertEqual(self.correr("--check").returncode, 8)

    def test_carpetaConBlancos_loDiceDeUnaVez(self):
        self.preparar("mis fuentes")
        hecho = self.correr()
        self.assertEqual(hecho.returncode, 2)
        self.assertEqual(hecho.stderr.splitlines(),
                         [f"windows: the tools for Windows take no blanks in the sources' path: "
                          f"{self.fuentes}"])
        self.assertFalse((self.fuentes / "build").exists())

    @staticmethod
    def sin_revisor():
        return "windows: sources that the reviewer needs were not to be had: it is left out\n"


def escribir(archivo, texto):
    archivo.parent.mkdir(parents=True, exist_ok=True)
    archivo.write_text(texto, encoding="utf-8")
    archivo.chmod(0o755)


if __name__ == "__main__":
    unittest.main(verbosity=2)
