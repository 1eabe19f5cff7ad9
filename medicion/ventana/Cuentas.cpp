// SPDX-License-Identifier: MIT
#include "Cuentas.h"

#include <QCoreApplication>
#include <QMetaEnum>

Cuentas::Cuentas()
{
    QCoreApplication::instance()->installEventFilter(this);
}

QJsonObject Cuentas::tomar() const
{
    const auto clases = QMetaEnum::fromType<QEvent::Type>();
    QJsonObject cuentas;
    for (const auto &[clase, cuantos] : m_cuantos) {
        const char *nombre = clases.valueToKey(clase);
        cuentas[nombre ? QString::fromLatin1(nombre) : QString::number(clase)] = cuantos;
    }
    return cuentas;
}

bool Cuentas::eventFilter(QObject *objeto, QEvent *suceso)
{
    ++m_cuantos[suceso->type()];
    if (alVer)
        alVer(objeto, suceso);
    return false;
}
