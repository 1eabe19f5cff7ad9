# SPDX-License-Identifier: MIT
"""The desktop's default browser: Debian's Chromium, opened by the real xdg-open."""

import os

ARGUMENTOS = ["--no-first-run", "--no-default-browser-check", "--disable-gpu", "--disable-quic",
              "--disable-background-networking", "--disable-component-update", "--disable-sync",
              "--disable-features=Translate,TranslateUI", "--lang=es", "--password-store=basic"]


def argumentos(perfil):
    """For a browser with a profile of its own that speaks to no host by itself."""
    # Root has no use of the sandbox, and Chromium does not start as root with it.
    sin_cerca = ["--no-sandbox", "--test-type"] if os.geteuid() == 0 else []
    return [*ARGUMENTOS, *sin_cerca, f"--user-data-dir={perfil}"]


def poner_de_omision(escritorio):
    """Makes it what opens HTML files on that desktop, as a person would in its settings."""
    # It would offer to translate what it shows, and lay that over the page.
    ajustes = escritorio.carpeta / "navegador" / "Default" / "Preferences"
    ajustes.parent.mkdir(parents=True)
    ajustes.write_text('{"translate": {"enabled": false}}', encoding="utf-8")
    programa = escritorio.previa / "navegador-web"
    orden = " ".join(f"'{a}'" for a in argumentos(escritorio.carpeta / "navegador"))
    programa.write_text(f'#!/bin/sh\nexec chromium {orden} --window-size=1150,860 "$@" '
                        ">/dev/null 2>&1\n", encoding="utf-8")
    programa.chmod(0o755)
    aplicaciones = escritorio.xdg("DATA_HOME") / "applications"
    aplicaciones.mkdir(exist_ok=True)
    (aplicaciones / "navegador-web.desktop").write_text(
        "[Desktop Entry]\nType=Application\nName=Navegador web\n"
        f"Exec={programa} %U\nMimeType=text/html;\n", encoding="utf-8")
    (escritorio.xdg("CONFIG_HOME") / "mimeapps.list").write_text(
        "[Default Applications]\ntext/html=navegador-web.desktop\n", encoding="utf-8")
    # For machines on which xdg-open cannot tell a file's type.
    escritorio.entorno["BROWSER"] = str(programa)
