// SPDX-License-Identifier: MIT
#include "Accesible.h"
#include "Aviso.h"
#include "AvisosAccesibles.h"
#include "ClaveVelada.h"
#include "ElementosAccesibles.h"

#include <QComboBox>
#include <QFrame>
#include <QLineEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool llevaDibujos(const QWidget &elemento)
{
    const QObjectList &hijos = elemento.children();
    return std::any_of(hijos.begin(), hijos.end(), [](const QObject *hijo) {
        const auto *elemento = qobject_cast<const QWidget *>(hijo);
        return elemento && accesible::soloDibujado(*elemento);
    });
}

// Of a frame the library says "window". A line is one; all else groups what it holds.
QAccessibleInterface *describirMarco(QFrame *elemento)
{
    if (elemento->frameShape() == QFrame::HLine || elemento->frameShape() == QFrame::VLine)
        return new ElementoAccesible(elemento, QAccessible::Separator);
    return new GrupoAccesible(elemento, QAccessible::Grouping);
}

// Asked for each class that an element is of, from its own down to QObject, until there is an
// answer: the library gives its own where there is none here.
QAccessibleInterface *describir(const QString &clase, QObject *objeto)
{
    if (clase == "Aviso"_L1)
        return new AvisoAccesible(static_cast<Aviso *>(objeto));
    auto *elemento = qobject_cast<QWidget *>(objeto);
    if (!elemento)
        return nullptr;
    if (accesible::soloDibujado(*elemento))
        return new DibujoAccesible(elemento);
    if (clase == "Form1"_L1)
        return new GrupoAccesible(elemento, QAccessible::Window);
    if (clase == "Logotipo"_L1)
        return new ElementoAccesible(elemento, QAccessible::Graphic);
    if (clase == "QComboBox"_L1)
        return new DesplegableAccesible(static_cast<QComboBox *>(elemento));
    if (clase == "QLineEdit"_L1 && ClaveVelada::guarda(*elemento))
        return new ClaveAccesible(elemento);
    // Labels and lists are built upon frames, but have had an answer by now.
    if (clase == "QFrame"_L1)
        return describirMarco(static_cast<QFrame *>(elemento));
    if (clase == "QWidget"_L1 && llevaDibujos(*elemento))
        return new GrupoAccesible(elemento, QAccessible::Grouping);
    return nullptr;
}

} // namespace

bool accesible::soloDibujado(const QWidget &elemento)
{
    return elemento.objectName().startsWith("Shape1_"_L1);
}

void accesible::instalar()
{
    QAccessible::installFactory(&describir);
    AvisosAccesibles::instalar();
}
