// SPDX-License-Identifier: MIT
#include "ElementosAccesibles.h"
#include "Accesible.h"

#include <QAbstractItemView>
#include <QComboBox>

ElementoAccesible::ElementoAccesible(QWidget *elemento, QAccessible::Role papel)
    : QAccessibleWidget(elemento, papel)
{
}

GrupoAccesible::GrupoAccesible(QWidget *grupo, QAccessible::Role papel)
    : QAccessibleWidget(grupo, papel)
{
}

// As the library counts them, without the windows that belong to it (message boxes).
QList<QWidget *> GrupoAccesible::hijos() const
{
    QList<QWidget *> hallados;
    for (QObject *hijo : widget()->children()) {
        auto *elemento = qobject_cast<QWidget *>(hijo);
        if (elemento && !elemento->isWindow() && !accesible::soloDibujado(*elemento))
            hallados.append(elemento);
    }
    return hallados;
}

int GrupoAccesible::childCount() const
{
    return static_cast<int>(hijos().size());
}

QAccessibleInterface *GrupoAccesible::child(int indice) const
{
    return QAccessible::queryAccessibleInterface(hijos().value(indice));
}

int GrupoAccesible::indexOfChild(const QAccessibleInterface *hijo) const
{
    return hijo ? static_cast<int>(hijos().indexOf(qobject_cast<QWidget *>(hijo->object()))) : -1;
}

DibujoAccesible::DibujoAccesible(QWidget *dibujo) : QAccessibleWidget(dibujo, QAccessible::NoRole)
{
}

QString DibujoAccesible::text(QAccessible::Text) const
{
    return {};
}

QAccessible::State DibujoAccesible::state() const
{
    QAccessible::State estado = QAccessibleWidget::state();
    estado.invisible = true;
    return estado;
}

ClaveAccesible::ClaveAccesible(QWidget *caja) : QAccessibleWidget(caja, QAccessible::EditableText)
{
}

QString ClaveAccesible::text(QAccessible::Text que) const
{
    return que == QAccessible::Value ? QString() : QAccessibleWidget::text(que);
}

QAccessible::State ClaveAccesible::state() const
{
    QAccessible::State estado = QAccessibleWidget::state();
    estado.passwordEdit = true;
    estado.editable = true;
    return estado;
}

DesplegableAccesible::DesplegableAccesible(QComboBox *desplegable)
    : QAccessibleWidget(desplegable, QAccessible::ComboBox)
{
}

QComboBox *DesplegableAccesible::desplegable() const
{
    return static_cast<QComboBox *>(object());
}

QString DesplegableAccesible::elegido() const
{
    return desplegable()->currentIndex() < 0 ? desplegable()->placeholderText()
                                             : desplegable()->currentText();
}

// The lines that can be chosen, also while they are not shown.
int DesplegableAccesible::childCount() const
{
    return 1;
}

QAccessibleInterface *DesplegableAccesible::child(int indice) const
{
    return indice == 0 ? QAccessible::queryAccessibleInterface(desplegable()->view()) : nullptr;
}

QAccessibleInterface *DesplegableAccesible::childAt(int x, int y) const
{
    QAccessibleInterface *lista = child(0);
    return lista && lista->rect().contains(x, y) ? lista : nullptr;
}

int DesplegableAccesible::indexOfChild(const QAccessibleInterface *hijo) const
{
    return hijo && hijo->object() == desplegable()->view() ? 0 : -1;
}

QString DesplegableAccesible::text(QAccessible::Text que) const
{
    return que == QAccessible::Value ? elegido() : QAccessibleWidget::text(que);
}

QAccessible::State DesplegableAccesible::state() const
{
    QAccessible::State estado = QAccessibleWidget::state();
    estado.expandable = true;
    estado.hasPopup = true;
    estado.expanded = desplegable()->view()->isVisible();
    estado.collapsed = !estado.expanded;
    return estado;
}

void *DesplegableAccesible::interface_cast(QAccessible::InterfaceType tipo)
{
    if (tipo == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    return QAccessibleWidget::interface_cast(tipo);
}

QStringList DesplegableAccesible::actionNames() const
{
    return {showMenuAction(), pressAction()};
}

void DesplegableAccesible::doAction(const QString &accion)
{
    if (accion != showMenuAction() && accion != pressAction())
        return;
    if (desplegable()->view()->isVisible())
        desplegable()->hidePopup();
    else
        desplegable()->showPopup();
}

void DesplegableAccesible::selection(int indice, int *desde, int *hasta) const
{
    *desde = 0;
    *hasta = indice == 0 ? characterCount() : 0;
}

int DesplegableAccesible::selectionCount() const
{
    return 1;
}

QString DesplegableAccesible::text(int desde, int hasta) const
{
    return elegido().mid(desde, hasta - desde);
}

int DesplegableAccesible::characterCount() const
{
    return static_cast<int>(elegido().size());
}

QRect DesplegableAccesible::characterRect(int) const
{
    return rect();
}

int DesplegableAccesible::offsetAtPoint(const QPoint &punto) const
{
    return rect().contains(punto) ? 0 : -1;
}

QString DesplegableAccesible::attributes(int, int *desde, int *hasta) const
{
    *desde = 0;
    *hasta = characterCount();
    return {};
}
