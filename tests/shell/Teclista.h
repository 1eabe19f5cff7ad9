// SPDX-License-Identifier: MIT
// Somebody who works the window without a mouse: keys go to the window, as the display server gives
// them, and from there to whatever has the focus.
#pragma once

#include "shell/VentanaDePrueba.h"

#include <QRadioButton>
#include <QWindow>

class Teclista : public VentanaDePrueba {
public:
    explicit Teclista(const TamanoEscuela &tamano = Escenario::pequena()) : VentanaDePrueba(tamano)
    {
        activar();
    }

    // As a window manager does when the window opens, and when a box before it has gone.
    void activar()
    {
        form.activateWindow();
        QTRY_VERIFY(form.isActiveWindow());
    }

    void tecla(Qt::Key tecla, Qt::KeyboardModifiers con = Qt::NoModifier) const
    {
        QTest::keyClick(form.windowHandle(), tecla, con);
    }

    // The element that gets what is typed, by its name.
    QByteArray foco() const
    {
        const QWidget *elemento = form.focusWidget();
        return elemento ? elemento->objectName().toLatin1() : QByteArray();
    }

    // The mode chosen, once its panel and no other is seen.
    QByteArray modo() const
    {
        QByteArray elegido;
        for (int indice = 0; indice < 4; ++indice) {
            const QByteArray numero = QByteArray::number(indice);
            const bool marcado = elemento<QRadioButton>("Option1_" + numero)->isChecked();
            if (marcado != visible("Frame" + QByteArray::number(indice + 1)))
                return "marcado y panel no concuerdan";
            if (marcado)
                elegido += "Option1_" + numero;
        }
        return elegido;
    }

    using VentanaDePrueba::elemento;
    template <typename Elemento = QWidget>
    Elemento *elemento(const QByteArray &nombre) const
    {
        return VentanaDePrueba::elemento<Elemento>(nombre.constData());
    }
    using VentanaDePrueba::visible;
    bool visible(const QByteArray &nombre) const
    {
        return VentanaDePrueba::visible(nombre.constData());
    }
};
