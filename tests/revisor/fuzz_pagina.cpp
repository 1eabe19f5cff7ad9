// SPDX-License-Identifier: MIT
// Any bytes as a page: the reader comes back, and what it brings can be walked through.
#include "direccion.h"
#include "pagina.h"

#include <QStringList>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *datos, std::size_t largo)
{
    const PaginaLeida pagina = leerPagina(
        QByteArray(reinterpret_cast<const char *>(datos), static_cast<qsizetype>(largo)));
    const QStringList carpeta = {QStringLiteral("archivos"), QStringLiteral("salones")};
    for (const Enlace &enlace : pagina.enlaces) {
        const Direccion direccion = leerDireccion(enlace.direccion, carpeta);
        if (direccion.arriba < 0
            || (direccion.clase == Direccion::Relativa
                && direccion.nombres.contains(QStringLiteral(".."))))
            __builtin_trap();
    }
    return 0;
}
