# SPDX-License-Identifier: MIT
"""Whatever a page asks of a person who is not there, it is printed, and nothing else happens."""

import unittest

from dibujador import HECHO, ConDibujador
from impresion import texto

# What a page may ask for or hold up with. None of these gets an answer that it would wait for.
PETICIONES = {
    "cajas": "alert('a'); confirm('b'); prompt('c');",
    "cajas al salir": "onbeforeunload = e => { e.preventDefault(); return 'no'; };"
                      "location = 'otra.html';",
    "impresion": "for (let i = 0; i < 3; ++i) print();",
    "impresion sin fin": "onafterprint = () => print(); print();",
    "descarga": "for (const u of ['data:application/zip,x', URL.createObjectURL(new Blob(['x'])),"
                " 'propio.txt']) { const a = document.body.appendChild(document.createElement('a'));"
                " a.download = 'bajado'; a.href = u; a.click(); }",
    "descarga en marco": "const m = document.body.appendChild(document.createElement('iframe'));"
                         "m.src = 'data:application/octet-stream,x';",
    "avisos": "Notification.requestPermission(); new Notification('a');",
    "posicion": "navigator.geolocation.getCurrentPosition(() => 0);",
    "camara": "navigator.mediaDevices.getUserMedia({video: true, audio: true});",
    "pantalla": "navigator.mediaDevices.getDisplayMedia();",
    "pantalla completa": "document.documentElement.requestFullscreen();",
    "portapapeles": "navigator.clipboard.readText(); navigator.clipboard.writeText('a');"
                    "document.execCommand('paste');",
    "raton": "document.body.requestPointerLock();",
    "archivos": "const i = document.createElement('input'); i.type = 'file'; i.click();"
                "showOpenFilePicker(); showSaveFilePicker(); showDirectoryPicker();",
    "protocolo": "navigator.registerProtocolHandler('web+a', location.href + '?%s', 'a');",
    "programa ajeno": "location = 'mailto:a@b.example'; open('tel:123'); location = 'xdg:a';",
    "aparatos": "navigator.usb.requestDevice({filters: []});",
    "puertos": "navigator.serial.requestPort();",
    "ventanas": "for (let i = 0; i < 20; ++i) open('pagina.html', 'v' + i, 'width=1');",
    "historia": "for (let i = 0; i < 300; ++i) history.pushState({}, '', '#' + i); history.back();",
    "cierre": "window.close(); top.close();",
    "recarga": "location.reload(); history.go(0);",
    "guardado": "localStorage.setItem('a', 'b');",
    "base de datos": "indexedDB.open('a'); openDatabase('a', '1', 'a', 1e9);",
    "cupo": "navigator.storage.persist();"
            "navigator.webkitPersistentStorage.requestQuota(1e9, () => 0);",
    "bloqueo": "navigator.locks.request('a', () => new Promise(() => 0));",
    "vigilia": "navigator.wakeLock.request('screen');",
    "clave": "navigator.credentials.get({publicKey: {challenge: new Uint8Array(9)}});",
    "obrero sin fin": "new Worker(URL.createObjectURL(new Blob(['while (true);'])));",
}


class Soltura(ConDibujador):
    def test_paginaQuePregunta_seImprimeYNadaMasPasa(self):
        self.archivo("Quorvela/propio.txt", "propio")
        for nombre, guion in PETICIONES.items():
            with self.subTest(nombre):
                # Each statement by itself, for many of these are not there or throw.
                pasos = "".join(f"try {{ {g}; }} catch (e) {{}}" if "{" not in guion else g + ";"
                                for g in (guion.split("; ") if "{" not in guion else [guion]))
                pagina = self.archivo(
                    "Quorvela/pagina.html",
                    "<p>papel</p><script>addEventListener('unhandledrejection', e =>"
                    f"e.preventDefault()); onload = () => {{ {pasos} }};</script>")
                antes = self.arbol()
                self.assertEqual(self.dibujar(pagina), HECHO)
                self.assertEqual(texto(self.pdf).strip(), "papel")
                self.assertEqual(self.arbol(), antes)


if __name__ == "__main__":
    unittest.main(verbosity=2)
