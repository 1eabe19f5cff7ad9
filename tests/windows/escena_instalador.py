# SPDX-License-Identifier: MIT
"""What the tests of the installer share: it is run on a drive C of each test's own, by an account
that is an administrator as Wine's only one is, or as one that is not.

PARVANEL_SALIDA is the folder that it lies in, PARVANEL_VERSION what it is called by,
PARVANEL_CON_REVISOR "ON" where the reviewer is among what it installs.
"""

import os
from pathlib import Path

from escena_windows import WINDOWS, EscenaWindows

SALIDA, VERSION = Path(os.environ["PARVANEL_SALIDA"]), os.environ["PARVANEL_VERSION"]
INSTALADOR = SALIDA / f"Parvanel-{VERSION}-instalador.exe"
SIN_PERMISOS = WINDOWS / "tests/bin/sin-permisos.exe"
ENTRADA = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\Parvanel"
TODOS, CUENTA = "HKEY_LOCAL_MACHINE", "HKEY_CURRENT_USER"
# What the installer and the uninstaller end with.
ABIERTO = 2
SIN_PERMISO = 3
REVISOR = os.environ["PARVANEL_CON_REVISOR"] == "ON"
PROGRAMAS = {"parvanel.exe", "parvanel-demo.exe"} | ({"parvanel-revisor.exe"} if REVISOR else set())
ARCHIVOS = PROGRAMAS | {"manual.html", "licencias.txt", "desinstalar.exe"}


class EscenaInstalador(EscenaWindows):
    def setUp(self):
        self.preparar()
        self.c = self.escritorio.c
        self.lugar = self.c / "Program Files" / "Parvanel"

    def instalar(self, *opciones, instalador=INSTALADOR, administrador=True, estricta=True):
        """Runs it silently; its code. The last option may be /D=FOLDER."""
        return self._correr(instalador, opciones, administrador, estricta)

    def desinstalar(self, lugar=None, administrador=True, estricta=True):
        """Runs that folder's uninstaller silently, and waits for its end; its code. It leaves
        itself behind, as it may not be removed while it runs."""
        lugar = lugar or self.lugar
        return self._correr(lugar / "desinstalar.exe", ["_?=" + self.en_c(lugar)], administrador,
                            estricta)

    # An option with blanks in it, which Wine would put in quotes, goes as several: so the installer
    # gets it as from a script.
    def _correr(self, programa, opciones, administrador, estricta):
        orden = [self.escritorio.de_windows(programa), "/S", *" ".join(opciones).split(" ")]
        orden = [parte for parte in orden if parte]
        if not administrador:
            orden.insert(0, SIN_PERMISOS)
        return self.escritorio.correr(*orden, estricta=estricta).returncode

    def en_c(self, ruta):
        """What Windows calls a path on this drive C."""
        return "C:\\" + str(ruta.relative_to(self.c)).replace("/", "\\")

    def archivos(self):
        """What there is on drive C, but for what is temporary."""
        todos = {a.relative_to(self.c) for a in self.c.rglob("*")}
        return {a for a in todos if not {"Temp", "temp"} & set(a.parts)}

    def registro(self):
        """The whole registry as one text in small letters, once it has been written."""
        self.escritorio.esperar_todos()
        return "".join((self.escritorio.unidad / f"{parte}.reg").read_text("utf-8", "replace")
                       for parte in ("system", "user", "userdef")).casefold()

    def entrada(self, raiz):
        """What is registered of the installation there: the values by name, or None."""
        dicho = self.escritorio.correr("reg", "query", rf"{raiz}\{ENTRADA}", estricta=False)
        if dicho.returncode:
            return None
        renglones = (r.strip().split(None, 2) for r in dicho.stdout.decode("cp437").splitlines())
        return {r[0]: r[2] for r in renglones if len(r) == 3}
