# SPDX-License-Identifier: MIT
"""A screen reader on the virtual desktop: Orca, as the distribution has it, with a voice that
writes down what it would say.

    lector = Lector(escritorio)
    lector.esperar("Usuario text.")

Run as a program this is Orca itself, under another name, so that neither it nor an Orca of the
person who runs the tests takes the other for a second one of its own:

    lector.py FILE

The file gets one line for each utterance: what kind it is ("habla" for text, "tecla" for the name
of a key that was pressed, "letra" for a character that was read) and a JSON string.
"""

import json
import sys

PLAZO = 120  # only a guard


def coincide(esperada, dicha):
    """Whether that is what was said; `esperada` is a text or a pattern of the whole."""
    return dicha == esperada if isinstance(esperada, str) else bool(esperada.fullmatch(dicha))


class Lector:
    """Starts the reader with settings of its own; it is up when this returns. It ends with the
    desktop."""

    def __init__(self, escritorio):
        from procesos import esperar  # pylint: disable=import-outside-toplevel
        self._esperar = esperar
        self._registro = escritorio.carpeta / "dicho"
        self._registro.touch()
        self._errores = escritorio.carpeta / "lector-errores"
        with open(self._errores, "ab") as errores:
            self._proceso = escritorio.lanzar(
                ["/usr/bin/python3", "-B", __file__, self._registro],
                stdout=errores, stderr=errores)
        self.esperar("Screen reader on.")

    def todo(self):
        """All that has come from the reader so far: (kind, text)."""
        # Its last line may still be in the writing.
        lineas = self._registro.read_text(encoding="utf-8").rpartition("\n")[0].splitlines()
        return [(clase, json.loads(texto)) for clase, texto in
                (linea.split(" ", 1) for linea in lineas)]

    def frases(self):
        """What has been said, without the keys that were pressed and the letters read out."""
        return [texto for clase, texto in self.todo() if clase == "habla"]

    def esperar(self, *frases, desde=0):
        """Waits until all of these (texts, or patterns of whole ones) have been said after the
        first `desde` phrases, in whatever order."""
        def faltan():
            dichas = self.frases()[desde:]
            return [f for f in frases if not any(coincide(f, d) for d in dichas)]

        def dicho():
            if self._proceso.poll() is not None:
                raise RuntimeError(f"the reader has ended:\n{self._errores.read_text()}")
            return not faltan()
        self._esperar(dicho, PLAZO, lambda: f"not said: {faltan()}; but {self.todo()[-30:]}")


def _servidor_de_voz(registro):
    """What Orca takes for a speech server."""
    from orca import speechserver  # pylint: disable=import-outside-toplevel,import-error
    salida = open(registro, "a", buffering=1, encoding="utf-8")  # pylint: disable=R1732

    def anotar(clase, texto):
        if texto:
            salida.write(f"{clase} {json.dumps(texto)}\n")

    class SpeechServer(speechserver.SpeechServer):
        """Its only voice."""

        @staticmethod
        def getFactoryName():
            return "registro"

        @staticmethod
        def getSpeechServer(info=None):  # pylint: disable=unused-argument
            return SpeechServer()

        @staticmethod
        def getSpeechServers():
            return [SpeechServer()]

        @staticmethod
        def shutdownActiveServers():
            pass

        def getInfo(self):
            return ["registro", "registro"]

        def getVoiceFamilies(self):
            return []

        def speak(self, text=None, acss=None, interrupt=True):
            anotar("habla", text)

        def speakKeyEvent(self, event, acss=None):
            anotar("tecla", event.getKeyName())

        def speakCharacter(self, character, acss=None):
            anotar("letra", character)

        def sayAll(self, utteranceIterator, progressCallback):
            for contexto, _ in utteranceIterator:
                anotar("habla", contexto.utterance)

        def stop(self):
            pass

        def shutdown(self):
            pass

    return SpeechServer


def principal(registro):
    """Orca's own program but for the search for others of its name, and the voice."""
    import types  # pylint: disable=import-outside-toplevel
    import gi  # pylint: disable=import-outside-toplevel
    gi.require_version("Gdk", "3.0")
    gi.require_version("Gtk", "3.0")
    from orca import orca  # pylint: disable=import-outside-toplevel,import-error

    voz = types.ModuleType("voz_anotada")
    voz.SpeechServer = _servidor_de_voz(registro)
    sys.modules["voz_anotada"] = voz
    ajustes = orca.getSettingsManager()
    ajustes.activate(None, {"speechServerFactory": "voz_anotada", "enableBraille": False,
                            "enableBrailleMonitor": False, "enableSound": False})
    return orca.main()


if __name__ == "__main__":
    # The modules of the tests are none of Orca's.
    sys.path[:] = [p for p in sys.path if p != __file__.rpartition("/")[0]]
    sys.exit(principal(sys.argv[1]))
