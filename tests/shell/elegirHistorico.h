// SPDX-License-Identifier: MIT
// An archive picked in the window's list of them.
#pragma once

#include "shell/VentanaDePrueba.h"

#include <QListWidget>

// Clicks on the line of a folder of the archive root, which must be in the list.
inline void elegirHistorico(const VentanaDePrueba &v, const QString &carpeta)
{
    auto *lista = v.elemento<QListWidget>("lstHistoricos");
    const auto renglon =
        v.lineas("lstHistoricos").indexOf(QStringLiteral("C:\\Quorvela\\") + carpeta);
    QVERIFY2(renglon >= 0, qPrintable(carpeta));
    auto *elegido = lista->item(static_cast<int>(renglon));
    lista->scrollToItem(elegido);
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                      lista->visualItemRect(elegido).center());
}
