// SPDX-License-Identifier: MIT
#include "revisor/danios.h"

namespace danios {

QList<Danio> deGuiones()
{
    const QString biblioteca = u"archivos/jscript/jquery.tools.min.js"_s;
    const auto enBiblioteca = [&](const char *nombre,
                                  const std::function<QByteArray(QByteArray)> &cambiar) {
        return ponerImagen(nombre, reglas::BibliotecaDanada, biblioteca, cambiar);
    };
    return {
        configurar("variable is missing", reglas::AjusteAusente,
                   [](QByteArray b) { return b.replace("var cdane", "var otra"); }),
        configurar("variable is empty", reglas::AjusteVacio,
                   [](const QByteArray &b) { return conValor(b, "telefono", ""); }),
        configurar("variable of blanks", reglas::AjusteVacio,
                   [](const QByteArray &b) { return conValor(b, "slogan", "   "); }),
        configurar(
            "quote in a value", reglas::AjusteRoto,
            [](const QByteArray &b) { return conValor(b, "micolegio", "I. E. \"La Paz\""); }),
        configurar("backslash at a value's end", reglas::AjusteRoto,
                   [](const QByteArray &b) { return conValor(b, "rector", "Ana\\"); }),
        configurar("backslash inside a value", reglas::AjusteRoto,
                   [](const QByteArray &b) { return conValor(b, "direccion", "Calle 1\\n"); }),
        configurar("page in place of a value", reglas::AjusteRoto,
                   [](const QByteArray &b) {
                       return conValor(b, "cdane", "<!DOCTYPE html><html>404</html>");
                   }),
        configurar("service word in place of a value", reglas::AjusteRoto,
                   [](const QByteArray &b) { return conValor(b, "secretaria", "ERROR"); }),
        configurar("settings do not run", reglas::ConfiguracionNoCorre,
                   [](const QByteArray &b) { return b + "var = ;\r\n"; }),
        configurar("settings cut off", reglas::ConfiguracionNoCorre,
                   [](const QByteArray &b) { return b.chopped(9); }),
        configurar("settings empty", reglas::AjusteAusente,
                   [](const QByteArray &) { return "\r\n"; }),
        configurar("page in place of the settings", reglas::ConfiguracionNoCorre,
                   [](const QByteArray &) { return paginaAusente; }),
        enBiblioteca("library of nothing but zeros",
                     [](const QByteArray &b) { return QByteArray(b.size(), '\0'); }),
        enBiblioteca(
            "library that ends in zeros",
            [](const QByteArray &b) { return b.left(b.size() / 2).leftJustified(b.size(), '\0'); }),
        enBiblioteca("library empty", [](const QByteArray &) { return "\r\n"; }),
        enBiblioteca("page in place of a library",
                     [](const QByteArray &) { return paginaAusente; }),
        enBiblioteca("library cut off", [](const QByteArray &b) { return b.left(b.size() / 2); }),
    };
}

} // namespace danios
