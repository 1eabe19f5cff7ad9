// SPDX-License-Identifier: MIT
// What keys do in the window beyond what its elements make of them by themselves, so that the
// whole work can be done without a mouse:
//
// - Ctrl+1, Ctrl+2, ... choose the modes, as a click would; the number of a mode that is not
//   offered, or that is chosen already, does nothing.
// - The arrows go round the modes on offer, in both directions, from each end to the other.
// - In a list that has a current row and nothing chosen, a key that goes no further than that row
//   chooses it: an arrow, Return, or Home, End and the like at that end. The row looks as if it
//   were chosen, and an arrow would pass it over.
#pragma once

#include <QList>
#include <QObject>

class QKeyEvent;
class QListWidget;
class QRadioButton;

class Teclado : public QObject {
    Q_OBJECT
public:
    // Owned by the window, as the elements are.
    Teclado(QWidget *ventana, const QList<QRadioButton *> &modos,
            const QList<QListWidget *> &listas);

protected:
    bool eventFilter(QObject *objeto, QEvent *suceso) override;

private:
    // Each: whether the key has been used up.
    bool enModo(QObject *objeto, const QKeyEvent &tecla) const;
    bool enLista(QObject *objeto, const QKeyEvent &tecla) const;

    QList<QRadioButton *> m_modos;
    QList<QListWidget *> m_listas;
};
