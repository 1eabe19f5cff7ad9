# SPDX-License-Identifier: MIT
"""Where the installer installs, what it replaces, and what its uninstaller takes away: for all
accounts and for one, with the rights of an administrator and without.
"""

import subprocess
import unittest
from pathlib import Path

from escena_instalador import (ABIERTO, ARCHIVOS, CUENTA, ENTRADA, INSTALADOR, SALIDA, SIN_PERMISO,
                               TODOS, VERSION, EscenaInstalador)
from escena_windows import WINDOWS, contenido

NSI = Path(__file__).resolve().parents[2] / "paquete-windows" / "instalador.nsi"
MENU_TODOS = Path("ProgramData/Microsoft/Windows/Start Menu/Programs/Parvanel")
ICONO_TODOS = Path("users/Public/Desktop/Parvanel.lnk")
MENU = Path("AppData/Roaming/Microsoft/Windows/Start Menu/Programs")
OTRA = r"HKEY_USERS\.Default"  # another account's: Wine makes none but this one
CARPETAS = rf"{OTRA}\Software\Microsoft\Windows\CurrentVersion\Explorer\Shell Folders"


class Instalaciones(EscenaInstalador):
    def setUp(self):
        super().setUp()
        # The account's own folder; Wine calls it as Linux does.
        self.casa = next(c for c in (self.c / "users").iterdir() if c.name != "Public")
        self.propia = self.casa / "AppData/Local/Programs/Parvanel"

    def verificar_en(self, lugar):
        """That it is installed there, whole."""
        self.assertEqual(set(contenido(lugar)) & ARCHIVOS, ARCHIVOS)

    def verificar_unica(self, raiz, lugar):
        """That this is the one installation there is."""
        self.verificar_en(lugar)
        self.assertEqual(self.entrada(raiz)["InstallLocation"], self.en_c(lugar))
        self.assertIsNone(self.entrada(CUENTA if raiz == TODOS else TODOS))
        programas = {a for a in self.c.rglob("parvanel.exe")}
        self.assertEqual(programas, {lugar / "parvanel.exe"})
        self.assertEqual((self.c / MENU_TODOS).exists(), raiz == TODOS)
        self.assertEqual((self.casa / MENU / "Parvanel").exists(), raiz == CUENTA)

    def estado(self):
        """Everything that an installation is made of."""
        return self.archivos(), self.entrada(TODOS), self.entrada(CUENTA)

    def hacer_instalador(self, version, *programas):
        """An installer of that version, with these programs that are none."""
        fuente = self.escritorio.carpeta / f"fuente-{version}"
        fuente.mkdir()
        for nombre in (*programas, "manual.html", "licencias.txt"):
            (fuente / nombre).write_text(f"{nombre} {version}", encoding="ascii")
        salida = fuente / "instalador.exe"
        subprocess.run(["makensis", "-V1", f"-DVERSION={version}", f"-DFUENTE={fuente}",
                        "-DTAMANO=1", f"-DICONO={WINDOWS / 'src/parvanel.ico'}",
                        f"-DSALIDA={salida}", NSI], check=True, timeout=120)
        return salida

    # --- where

    def test_carpetaConBlancosYTildes_quedaAhi(self):
        lugar = self.c / "Mis programas del año"
        self.instalar("/D=" + self.en_c(lugar))
        self.verificar_unica(TODOS, lugar)
        self.desinstalar(lugar)
        self.assertEqual(set(contenido(lugar)), {"desinstalar.exe"})
        self.assertIsNone(self.entrada(TODOS))

    def test_carpetaConOtrasCosas_recibeUnaPropia(self):
        for pedida, lugar in ((self.c / "Cosas", self.c / "Cosas/Parvanel"),
                              (self.c / "Vacia", self.c / "Vacia"),
                              (self.c / "Mio/parvanel", self.c / "Mio/parvanel")):
            with self.subTest(pedida=pedida):
                pedida.mkdir(parents=True)
                if pedida.name != "Vacia":
                    (pedida / "manual.txt").write_text("no es de nadie", encoding="ascii")
                ajeno = contenido(pedida)
                self.instalar("/D=" + self.en_c(pedida))
                self.verificar_unica(TODOS, lugar)
                self.instalar("/D=" + self.en_c(lugar))
                self.verificar_unica(TODOS, lugar)
                self.desinstalar(lugar)
                (lugar / "desinstalar.exe").unlink()
                self.assertEqual(contenido(pedida), ajeno)

    def test_laRaizDeUnDisco_recibeUnaPropia(self):
        self.instalar("/D=C:\\")
        self.verificar_unica(TODOS, self.c / "Parvanel")

    def test_carpetaQueNoPuedeSer_noVaAOtraParte(self):
        antes = self.estado()
        for pedida in (r"Q:\Parvanel", "Parvanel", "C:"):
            self.assertEqual(self.instalar(f"/D={pedida}", estricta=False), ABIERTO)
            self.assertEqual(self.estado(), antes)

    def test_enOtraCarpeta_laDeAntesNoQueda(self):
        self.instalar()
        (self.lugar / "notas.txt").write_text("de la secretaria", encoding="ascii")
        self.instalar(r"/D=C:\Otra")
        self.verificar_unica(TODOS, self.c / "Otra")
        self.assertEqual(set(contenido(self.lugar)), {"notas.txt"})

    # Windows has junctions for that.
    def test_laMismaCarpetaPorOtroCamino_quedaEntera(self):
        (self.c / "Programas").mkdir()
        (self.c / "Enlace").symlink_to("Programas")
        self.instalar(r"/D=C:\Programas\Parvanel")
        self.instalar(r"/D=C:\Enlace\Parvanel")
        self.verificar_en(self.c / "Programas/Parvanel")
        self.assertEqual(self.entrada(TODOS)["InstallLocation"], r"C:\Enlace\Parvanel")

    def test_pasoAPaso_enCarpetaPropiaConSuIcono(self):
        (self.c / "Cosas").mkdir()
        (self.c / "Cosas/manual.txt").write_text("no es de nadie", encoding="ascii")
        ventana = self.escritorio.abrir([INSTALADOR], "Instalación de Parvanel *")
        enfocada = self.escritorio.pantalla.enfocada
        ventana.esperar_texto("Directorio de Destino")
        ventana.tecla("ctrl+a")
        ventana.teclear(r"C:\Cosas")
        ventana.tecla("Return")
        # What it says of the folder.
        ventana.esperar(lambda: enfocada() not in (None, ventana.x), "no question")
        ventana.tecla("Return")
        ventana.esperar(lambda: enfocada() == ventana.x, "the question stays")
        ventana.esperar_texto("Icono en el escritorio")
        ventana.tecla("Home", "Down", "space", "Return")
        ventana.esperar_texto("Completando el Asistente", plazo=300)
        ventana.tecla("Return")
        self.assertEqual(ventana.proceso.wait(timeout=100), 0)
        self.verificar_unica(TODOS, self.c / "Cosas/Parvanel")
        self.assertTrue((self.c / ICONO_TODOS).exists())

    # --- over an older one

    def test_sobreUnaAnterior_nadaDeEllaQueda(self):
        programas = ["parvanel.exe", "parvanel-demo.exe"]
        self.instalar(instalador=self.hacer_instalador("3.9.0", *programas,
                                                       "parvanel-revisor.exe"))
        self.assertEqual(self.entrada(TODOS)["DisplayVersion"], "3.9.0")
        self.assertTrue((self.c / MENU_TODOS / "Revisor de Históricos.lnk").exists())
        self.instalar(instalador=self.hacer_instalador("3.10.0", *programas))
        self.assertEqual(self.entrada(TODOS)["DisplayVersion"], "3.10.0")
        self.assertEqual(set(contenido(self.lugar)), ARCHIVOS - {"parvanel-revisor.exe"})
        self.assertEqual((self.lugar / "parvanel.exe").read_text("ascii"), "parvanel.exe 3.10.0")
        self.assertFalse((self.c / MENU_TODOS / "Revisor de Históricos.lnk").exists())

    def test_sinPreguntar_elIconoDelEscritorioSigueComoEstaba(self):
        self.instalar()
        self.assertFalse((self.c / ICONO_TODOS).exists())
        (self.c / ICONO_TODOS).write_bytes(b"el de antes")
        self.instalar(r"/D=C:\Otra")
        self.assertIn(rb"C:\Otra\parvanel.exe", (self.c / ICONO_TODOS).read_bytes())
        self.desinstalar(self.c / "Otra")
        self.assertFalse((self.c / ICONO_TODOS).exists())

    # --- for all and for one

    def test_paraUnaCuenta_quedaParaElla(self):
        antes = self.archivos()
        self.instalar("/CurrentUser")
        self.verificar_unica(CUENTA, self.propia)
        self.desinstalar(self.propia)
        self.assertIsNone(self.entrada(CUENTA))
        (self.propia / "desinstalar.exe").unlink()
        suyas = {a.relative_to(self.c) for a in (self.propia, self.propia.parent)}
        self.assertEqual(self.archivos() - antes - suyas, set())

    def test_deUnaParaTodos_unaSola(self):
        self.instalar("/CurrentUser")
        (self.casa / "Desktop/Parvanel.lnk").write_bytes(b"el suyo")
        self.instalar("/AllUsers")
        self.verificar_unica(TODOS, self.lugar)
        self.assertFalse((self.casa / "Desktop/Parvanel.lnk").exists())
        self.assertTrue((self.c / ICONO_TODOS).exists())

    def test_deTodosParaUna_unaSola(self):
        self.instalar()
        self.instalar("/CurrentUser")
        self.verificar_unica(CUENTA, self.propia)

    def test_deUnaParaTodosEnLaMismaCarpeta_unaSola(self):
        for opcion, raiz in (("/CurrentUser", CUENTA), ("/AllUsers", TODOS),
                             ("/CurrentUser", CUENTA)):
            self.instalar(opcion, r"/D=C:\Programas\Parvanel")
            self.verificar_unica(raiz, self.c / "Programas/Parvanel")

    # Who lends the rights is another account than the one that has it for itself.
    def test_paraTodos_laDeOtraCuentaNoQueda(self):
        lugar, suya = self.instalar_para_otra()
        self.instalar()
        self.verificar_unica(TODOS, self.lugar)
        self.assertFalse(lugar.exists())
        self.assertEqual(list(suya.rglob("*.lnk")), [])
        self.assertIsNone(self.entrada(OTRA))

    def test_paraUna_laDeOtraCuentaSigue(self):
        lugar, suya = self.instalar_para_otra()
        antes = contenido(suya)
        self.instalar("/CurrentUser")
        self.verificar_en(lugar)
        self.assertEqual(contenido(suya), antes)
        self.assertEqual(self.entrada(OTRA)["InstallLocation"], self.en_c(lugar))

    def instalar_para_otra(self):
        """An installation of another account: its folder, and the account's."""
        suya = self.c / "users/otra"
        lugar = suya / "Programas/Parvanel"
        self.instalar("/CurrentUser", "/D=" + self.en_c(lugar))
        (suya / MENU).mkdir(parents=True)
        (self.casa / MENU / "Parvanel").rename(suya / MENU / "Parvanel")
        (suya / "Desktop").mkdir()
        (suya / "Desktop/Parvanel.lnk").write_bytes(b"el suyo")
        self.escritorio.correr("reg", "delete", rf"{CUENTA}\{ENTRADA}", "/f")
        self.escritorio.registrar(
            (CARPETAS, "Programs", self.en_c(suya / MENU)),
            (CARPETAS, "Desktop", self.en_c(suya / "Desktop")),
            (rf"{OTRA}\{ENTRADA}", "InstallLocation", self.en_c(lugar)))
        return lugar, suya

    # --- with the rights of an administrator and without

    def test_sinPermisos_quedaParaLaCuenta(self):
        self.instalar(administrador=False)
        self.verificar_unica(CUENTA, self.propia)

    def test_sinPermisosParaTodos_loDiceYNoCambiaNada(self):
        antes = self.estado()
        self.assertEqual(self.instalar("/AllUsers", administrador=False, estricta=False),
                         SIN_PERMISO)
        self.assertEqual(self.estado(), antes)

    def test_sinPermisosSobreLaDeTodos_loDiceYNoCambiaNada(self):
        self.instalar()
        antes = self.estado()
        for opciones in ([], ["/CurrentUser"]):
            self.assertEqual(self.instalar(*opciones, administrador=False, estricta=False),
                             SIN_PERMISO)
            self.assertEqual(self.estado(), antes)

    def test_desinstalarLaDeTodosSinPermisos_loDiceYNoQuitaNada(self):
        self.instalar()
        antes = self.estado()
        self.assertEqual(self.desinstalar(administrador=False, estricta=False), SIN_PERMISO)
        self.assertEqual(self.estado(), antes)

    def test_desinstalarLaDeUnaConPermisos_quitaLaDeEllaYNadaMas(self):
        self.instalar(administrador=False)
        self.escritorio.registrar((rf"{TODOS}\{ENTRADA}", "InstallLocation", r"C:\Otra"))
        self.desinstalar(self.propia)
        self.assertEqual(set(contenido(self.propia)), {"desinstalar.exe"})
        self.assertFalse((self.casa / MENU / "Parvanel").exists())
        self.assertIsNone(self.entrada(CUENTA))
        self.assertIsNotNone(self.entrada(TODOS))

    def test_desinstalarLaDeOtraCuentaConPermisos_quitaLaDeElla(self):
        lugar, suya = self.instalar_para_otra()
        self.desinstalar(lugar)
        self.assertEqual(set(contenido(lugar)), {"desinstalar.exe"})
        self.assertEqual(list(suya.rglob("*.lnk")), [])
        self.assertIsNone(self.entrada(OTRA))

    def test_desinstalarLaQueNoEsDeNadie_loDiceYNoQuitaNada(self):
        self.instalar("/CurrentUser")
        self.escritorio.correr("reg", "delete", rf"{CUENTA}\{ENTRADA}", "/f")
        self.escritorio.registrar((rf"{TODOS}\{ENTRADA}", "InstallLocation", r"C:\Otra"))
        antes = self.estado()
        self.assertEqual(self.desinstalar(self.propia, estricta=False), SIN_PERMISO)
        self.assertEqual(self.estado(), antes)


if __name__ == "__main__":
    unittest.main(verbosity=2)
