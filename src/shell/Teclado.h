// SPDX-License-Identifier: MIT
// What keys do in the window beyond what its elements make of them by themselves, so that the
// whole work can be done without a mouse:
//
// - Ctrl+1, Ctrl+2, ... choose the modes, as a click would; the number of a mode that is not
//   offered, or that is chosen already, does nothing.
// - The arrows go round the modes on offer, in both directions, from each end to the other.
#pragma once

#include <QList>
#include <QObject>

class QKeyEvent;
class QRadioButton;

class Teclado : public QObject {
    Q_OBJECT
public:
    // Owned by the window, as the elements are.
    Teclado(QWidget *ventana, const QList<QRadioButton *> &modos);

protected:
    bool eventFilter(QObject *objeto, QEvent *suceso) override;

private:
    // Whether the key has been used up.
    bool enModo(QObject *objeto, const QKeyEvent &tecla) const;

    QList<QRadioButton *> m_modos;
};
