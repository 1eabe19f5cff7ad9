// SPDX-License-Identifier: MIT
#include "Teclado.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QRadioButton>
#include <QShortcut>

namespace {

void elegirModo(QRadioButton *modo)
{
    if (!modo->isVisible() || modo->isChecked())
        return;
    // First: the panel that the click hides would hand the focus on to anything.
    modo->setFocus(Qt::ShortcutFocusReason);
    modo->click();
}

// Where an arrow leads: 1 onwards, -1 back; 0 for any other key.
int paso(int tecla)
{
    switch (tecla) {
    case Qt::Key_Right:
    case Qt::Key_Down:
        return 1;
    case Qt::Key_Left:
    case Qt::Key_Up:
        return -1;
    default:
        return 0;
    }
}

// Whether a key that goes through a list, or that takes what is there, stays on the current row.
bool eligeLaActual(const QListWidget &lista, const QKeyEvent &tecla)
{
    switch (tecla.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return !tecla.isAutoRepeat(); // held down since it pressed something else
    case Qt::Key_Home:
    case Qt::Key_PageUp:
        return lista.currentRow() == 0;
    case Qt::Key_End:
    case Qt::Key_PageDown:
        return lista.currentRow() == lista.count() - 1;
    default:
        return paso(tecla.key()) != 0;
    }
}

} // namespace

Teclado::Teclado(QWidget *ventana, const QList<QRadioButton *> &modos,
                 const QList<QListWidget *> &listas)
    : QObject(ventana), m_modos(modos), m_listas(listas)
{
    int numero = Qt::Key_1;
    for (QRadioButton *modo : modos) {
        modo->installEventFilter(this);
        auto *atajo =
            new QShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(numero++)), ventana);
        atajo->setAutoRepeat(false);
        connect(atajo, &QShortcut::activated, modo, [modo] { elegirModo(modo); });
    }
    for (QListWidget *lista : listas)
        lista->installEventFilter(this);
}

bool Teclado::eventFilter(QObject *objeto, QEvent *suceso)
{
    if (suceso->type() != QEvent::KeyPress)
        return false;
    const auto *tecla = static_cast<QKeyEvent *>(suceso);
    if ((tecla->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    return enModo(objeto, *tecla) || enLista(objeto, *tecla);
}

// The buttons' own arrows go by where each stands and stop at the last one.
bool Teclado::enModo(QObject *objeto, const QKeyEvent &tecla) const
{
    const int adonde = paso(tecla.key());
    const auto desde = m_modos.indexOf(qobject_cast<QRadioButton *>(objeto));
    if (desde < 0 || adonde == 0)
        return false;
    const auto cuantos = m_modos.size();
    for (qsizetype lejos = 1; lejos < cuantos; ++lejos) {
        QRadioButton *modo = m_modos[(desde + adonde * lejos + cuantos) % cuantos];
        if (!modo->isVisible())
            continue;
        elegirModo(modo);
        break;
    }
    return true;
}

bool Teclado::enLista(QObject *objeto, const QKeyEvent &tecla) const
{
    auto *lista = qobject_cast<QListWidget *>(objeto);
    if (!lista || !m_listas.contains(lista))
        return false;
    const QListWidgetItem *actual = lista->currentItem();
    if (!actual || actual->isSelected() || !eligeLaActual(*lista, tecla))
        return false;
    lista->setCurrentRow(lista->currentRow(), QItemSelectionModel::ClearAndSelect);
    return true;
}
