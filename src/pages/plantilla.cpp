// SPDX-License-Identifier: MIT
#include "pages/plantilla.h"

QString Valores::valor(Lugar lugar) const
{
    const auto &valor = m_valores[static_cast<std::size_t>(lugar)];
    Q_ASSERT_X(valor, "Valores", "a place without a value");
    return valor.value_or(QString());
}

QString completar(const Plantilla &plantilla, const Valores &valores)
{
    const QStringView resto = plantilla.texto();
    QString texto;
    qsizetype leido = 0;
    for (qsizetype abre = resto.indexOf(u'{'); abre >= 0; abre = resto.indexOf(u'{', leido)) {
        const qsizetype cierra = resto.indexOf(u'}', abre);
        texto += resto.sliced(leido, abre - leido);
        texto += valores.valor(*lugares::deNombre(resto.sliced(abre + 1, cierra - abre - 1)));
        leido = cierra + 1;
    }
    texto += resto.sliced(leido);
    return texto;
}
