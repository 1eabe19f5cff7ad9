# SPDX-License-Identifier: MIT
"""The packages in a system that has nothing else: installed as anybody installs packages, used from
the desktop's menu, removed and purged, with nothing left of them but what their user made.

PARVANEL_PAQUETES is the folder of the packages, which also takes the log and pictures of what came
of it. Root alone can set such a system up.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

PRUEBAS = Path(__file__).resolve().parent.parent
PAQUETES = Path(os.environ["PARVANEL_PAQUETES"]).resolve()
RESULTADO = PAQUETES / "sistema-limpio"
ARCHIVOS = PAQUETES / "archivos-de-debian"  # kept for the next time
NOMBRES = ["parvanel", "parvanel-demo", "parvanel-print"]
CUENTA, NUMERO = "secretaria", 61184
CASA = f"/home/{CUENTA}"

# What Debian's own tools keep of whatever is installed and removed.
DE_DEBIAN = re.compile(r"/(proc|sys|dev|run|tmp|paquetes)(/|$)|"
                       r"/var/(lib/(apt|dpkg)|cache|log|tmp)(/|$)")


# What purged packages of Debian's own leave behind.
DE_OTROS = (r"/(etc/(hosts|machine-id|mtab|xml)|root/\.ssh|"
            r"var/lib/(private|systemd/(coredump|pstore)))$")


def texto(*orden):
    return subprocess.run([str(o) for o in orden], check=True, stdout=subprocess.PIPE, text=True,
                          timeout=120).stdout


def impedimento():
    """Why there can be no such system here, or nothing."""
    if os.geteuid() != 0:
        return "only root sets up a clean system"
    hecho = subprocess.run(["unshare", "--mount", "mount", "-t", "tmpfs", "none", "/mnt"],
                           stderr=subprocess.PIPE, text=True, timeout=60, check=False)
    return hecho.returncode and f"nothing can be mounted here: {hecho.stderr.strip()}"


def fuentes():
    """Debian's archives that this machine installs from, as lines of a sources.list; and the first
    of this release."""
    nombre = texto("sh", "-c", ". /etc/os-release && echo $VERSION_CODENAME").strip()
    datos = texto("apt-get", "indextargets", "--format", "$(REPO_URI) $(RELEASE) $(COMPONENT)",
                  "Created-By: Packages", "Origin: Debian").split("\n")
    lineas = [f"deb {linea}" for linea in sorted(set(datos)) if f" {nombre}" in linea]
    [base] = {linea.split()[1] for linea in lineas if linea.split()[2] == nombre}
    return lineas, nombre, base


class SistemaLimpio(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        porque = impedimento()
        if porque:
            raise unittest.SkipTest(porque)
        # An ordinary account has to reach it, wherever the sources lie.
        cls.carpeta = Path(tempfile.mkdtemp(prefix="sistema-limpio-", dir="/var/tmp"))
        cls.addClassCleanup(shutil.rmtree, cls.carpeta, ignore_errors=True)
        cls.carpeta.chmod(0o755)
        cls.raiz = cls.carpeta / "raiz"
        cls.registro = (PAQUETES / "sistema-limpio.log").open("w", encoding="utf-8")
        cls.addClassCleanup(cls.registro.close)
        cls.inicio = time.monotonic()
        cls.preparar()

    @classmethod
    def decir(cls, que):
        print(f"[{time.monotonic() - cls.inicio:5.1f} s] {que}", flush=True)

    @classmethod
    def hacer(cls, *orden, **opciones):
        opciones.setdefault("timeout", 1800)
        try:
            subprocess.run([str(o) for o in orden], check=True, stdin=subprocess.DEVNULL,
                           stdout=cls.registro, stderr=subprocess.STDOUT, **opciones)
        except subprocess.SubprocessError as falla:
            raise AssertionError(f"{falla}\n(see {cls.registro.name})") from None

    @classmethod
    def dentro(cls, orden):
        """Runs a line of the shell in there as root; what it mounts and starts ends with it."""
        cls.hacer("unshare", "--mount", "--pid", "--fork", "--kill-child", "sh", "-ec", """
            raiz=$1; archivos=$2; paquetes=$3; orden=$4
            mount -t proc proc "$raiz/proc"
            mount --bind "$archivos" "$raiz/var/cache/apt/archives"
            mount --bind -o ro "$paquetes" "$raiz/paquetes"
            exec env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \\
                DEBIAN_FRONTEND=noninteractive chroot "$raiz" sh -ec "$orden" """,
                  "sh", cls.raiz, ARCHIVOS, cls.carpeta / "repositorio", orden)

    @classmethod
    def preparar(cls):
        lineas, nombre, base = fuentes()
        ARCHIVOS.mkdir(exist_ok=True)
        cls.decir("A minimal system")
        cls.hacer("debootstrap", "--variant=minbase", f"--cache-dir={ARCHIVOS}", nombre, cls.raiz,
                  base)
        # The packages as a repository of their own, as a school would keep them.
        repositorio = cls.carpeta / "repositorio"
        repositorio.mkdir()
        (cls.raiz / "paquetes").mkdir()
        for nombre in NOMBRES:
            [archivo] = PAQUETES.glob(f"{nombre}_*.deb")
            shutil.copy(archivo, repositorio)
        (repositorio / "Packages").write_text(
            texto("sh", "-c",
                  f"cd {repositorio} && dpkg-scanpackages --multiversion . 2>/dev/null"),
            encoding="utf-8")
        lineas.append("deb [trusted=yes] file:/paquetes ./")
        (cls.raiz / "etc/apt/sources.list").write_text("\n".join(lineas) + "\n", encoding="utf-8")
        apoderado = texto("apt-config", "dump", "Acquire::http::Proxy", "Acquire::https::Proxy")
        (cls.raiz / "etc/apt/apt.conf.d/90prueba").write_text(
            apoderado + 'Acquire::Retries "3";\nDPkg::Options { "--force-unsafe-io"; };\n',
            encoding="utf-8")
        # No service is started in there.
        arranque = cls.raiz / "usr/sbin/policy-rc.d"
        arranque.write_text("#!/bin/sh\nexit 101\n", encoding="utf-8")
        arranque.chmod(0o755)
        cls.dentro(f"apt-get -q update && apt-get -q -y upgrade "
                   f"&& useradd --create-home --uid {NUMERO} {CUENTA}")

    def paquetes(self):
        return set(texto("dpkg-query", f"--admindir={self.raiz}/var/lib/dpkg", "-W", "-f",
                         "${Package} ${Status}\n").splitlines())

    def rutas(self):
        """Every path in there that is not of Debian's own book-keeping."""
        halladas = set()
        for carpeta, carpetas, archivos in os.walk(self.raiz):
            propia = carpeta[len(str(self.raiz)):]
            carpetas[:] = [c for c in carpetas if not DE_DEBIAN.match(f"{propia}/{c}")]
            halladas |= {f"{propia}/{n}" for n in carpetas + archivos}
        return halladas

    def usar(self, que):
        """As the account, with what of these tests it needs in a place that it can read."""
        taller = self.carpeta / "taller"
        shutil.rmtree(taller, ignore_errors=True)
        (taller / "salida").mkdir(parents=True)
        for origen in ("externo", "worker", "empaquetado"):
            for archivo in (PRUEBAS / origen).glob("*.py"):
                shutil.copy(archivo, taller)
        self.hacer("chown", "-R", f"{NUMERO}:{NUMERO}", taller)
        # The session's bus knows nobody whom this machine does not know.
        for nombre, linea in (("passwd", f"{CUENTA}:x:{NUMERO}:{NUMERO}::{taller}:/bin/sh"),
                              ("group", f"{CUENTA}:x:{NUMERO}:")):
            (taller / nombre).write_text(f"{Path('/etc', nombre).read_text('utf-8')}{linea}\n",
                                         encoding="utf-8")
        entorno = {"PATH": os.environ["PATH"], "HOME": str(taller), "LC_ALL": "C.UTF-8"}
        try:
            self.hacer("unshare", "--mount", "sh", "-ec", """
                mount --bind passwd /etc/passwd
                mount --bind group /etc/group
                numero=$1; shift
                exec setpriv --reuid=$numero --regid=$numero --clear-groups "$@" """,
                       "sh", NUMERO, "/usr/bin/python3", "-B", taller / "uso_instalado.py",
                       que, self.raiz, CASA, taller / "salida", env=entorno, cwd=taller)
        finally:
            shutil.rmtree(RESULTADO, ignore_errors=True)
            shutil.copytree(taller / "salida", RESULTADO)

    def test_instalarUsarYQuitar_noDejaMasQueLosHistoricos(self):
        paquetes, rutas = self.paquetes(), self.rutas()
        self.decir("Install what the programs depend on, and nothing else")
        self.dentro("apt-get -q -y install --no-install-recommends parvanel parvanel-demo")
        self.decir("Log in")
        self.usar("entrar")

        self.decir("Install as anybody does")
        self.dentro("apt-get -q -y remove parvanel parvanel-demo"
                    " && apt-get -q -y install parvanel parvanel-demo")
        instalados = {linea.split()[0] for linea in self.paquetes()}
        self.assertLessEqual(set(NOMBRES), instalados, "the first recommends the worker")
        self.dentro("dpkg --audit && apt-get -q check")
        self.decir("Use")
        self.usar("todo")
        papel = texto("pdftotext", RESULTADO / "boletin.pdf", "-")
        self.assertIn("BEDOYA PÉREZ JUAN SEBASTIÁN", papel)

        self.decir("Remove")
        self.dentro("apt-get -q -y remove parvanel parvanel-demo parvanel-print")
        self.decir("Purge")
        self.dentro("apt-get -q -y purge parvanel parvanel-demo parvanel-print"
                    " && apt-get -q -y autoremove --purge")
        # What Debian keeps because something else once might have use of it.
        self.dentro("apt-get -q -y -o APT::AutoRemove::RecommendsImportant=false"
                    " -o APT::AutoRemove::SuggestsImportant=false autoremove --purge")
        self.assertEqual(self.paquetes(), paquetes)
        self.comprobar_restos(self.rutas() - rutas)
        self.decir("Nothing is left but what the user made")

    def comprobar_restos(self, quedan):
        """`quedan`: what is there now and was not there before. Other packages' own leftovers are
        named one by one, so that none of these packages' hides among them."""
        de_casa = {q for q in quedan if q.startswith(CASA)}
        self.assertIn(f"{CASA}/Quorvela/123-2010/index.html", de_casa)
        # Of the account's own there are the archives and the worker's log, which tells of the
        # prints; the fonts' cache is their library's.
        propias = re.compile(CASA + r"/(Quorvela(/.*)?|\.cache(/fontconfig(/.*)?)?)")
        self.assertEqual({q for q in de_casa if not propias.fullmatch(q)},
                         {f"{CASA}/.local", f"{CASA}/.local/state",
                          f"{CASA}/.local/state/parvanel",
                          f"{CASA}/.local/state/parvanel/print.log"})
        self.assertEqual({q for q in quedan - de_casa if not re.match(DE_OTROS, q)}, set())


if __name__ == "__main__":
    unittest.main(verbosity=2)
