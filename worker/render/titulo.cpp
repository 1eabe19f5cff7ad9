// SPDX-License-Identifier: MIT
#include "worker/render/titulo.h"

#include <algorithm>

QByteArray titulo::paraImpresora(QString dado)
{
    const auto deControl = [](QChar signo) {
        return signo.category() == QChar::Other_Control;
    };
    std::replace_if(dado.begin(), dado.end(), deControl, QChar(u' '));
    QByteArray texto = dado.simplified().toUtf8();
    if (texto.size() <= largoMaximo)
        return texto;
    const auto sigueUnSigno = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80U;
    };
    qsizetype fin = largoMaximo;
    while (sigueUnSigno(texto[fin]))
        --fin;
    texto.truncate(fin);
    return texto.trimmed();
}
