// SPDX-License-Identifier: MIT
// What the user has chosen in a list.
#pragma once

#include <QListWidget>

// The text of the chosen line; empty when none is chosen. A list that has only been given the
// focus has a current line but no chosen one.
inline QString lineaElegida(const QListWidget &lista)
{
    const QList<QListWidgetItem *> elegidas = lista.selectedItems();
    return elegidas.isEmpty() ? QString() : elegidas.first()->text();
}
