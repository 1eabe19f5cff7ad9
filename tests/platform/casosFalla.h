// SPDX-License-Identifier: MIT
// What a text request comes to, by what the service does instead of answering properly.
#pragma once

#include "consultaEscuela.h"
#include "demostracion/ServicioDemo.h"

#include <QTest>

#include <chrono>
#include <optional>

namespace casosFalla {

// A silence is over soon where one is to come, and never comes to pass where none is.
inline HttpClient::Limites paraFalla(const Falla &falla)
{
    HttpClient::Limites limites;
    limites.silencio =
        falla.clase == Falla::Muda ? std::chrono::milliseconds(500) : std::chrono::seconds(120);
    return limites;
}

// Rows for a test: the fault, and the body that the client takes; none when the request fails.
inline void deTexto()
{
    QTest::addColumn<Falla>("falla");
    QTest::addColumn<std::optional<QByteArray>>("cuerpo");
    using Cuerpo = std::optional<QByteArray>;
    const auto fila = [](const char *nombre, const Falla &falla, const Cuerpo &cuerpo) {
        QTest::newRow(nombre) << falla << cuerpo;
    };
    fila("vacia", {Falla::Vacia}, "");
    fila("corta", {Falla::Cuerpo, "x"}, "x");
    fila("otros bytes", {Falla::Cuerpo, "\xD1\x80\r\n\x1A"}, "\xD1\x80\r\n\x1A");
    fila("estado 404", {Falla::Estado, "no hay", 404}, "no hay");
    fila("estado 500", {Falla::Estado, "se rompio", 500}, "se rompio");
    fila("estado 500 vacio", {Falla::Estado, {}, 500}, "");
    fila("demora", {Falla::Demora, {}, 0, std::chrono::milliseconds(50)}, valor);
    fila("cierra antes", {Falla::CierraAntes}, {});
    fila("cierra en medio", {Falla::CierraEnMedio}, {});
    fila("largo errado", {Falla::LargoErrado}, "305001");
    fila("basura", {Falla::Basura}, {});
    fila("muda", {Falla::Muda}, {});
}

} // namespace casosFalla
