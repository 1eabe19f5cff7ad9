// The real main window before the demonstration school, its elements found by their names and
// worked with real clicks and keys.
#pragma once

#include "escenario/Escenario.h"
#include "platform/Verbos.h"
#include "shell/Form1.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

class VentanaDePrueba {
public:
    explicit VentanaDePrueba(const TamanoEscuela &tamano = Escenario::pequena())
        : e(tamano), form(e.servicio, verbos, [this] { ++cierres; })
    {
        form.show();
        [[maybe_unused]] const bool visible = QTest::qWaitForWindowExposed(&form);
    }

    template <typename Elemento = QWidget>
    Elemento *elemento(const char *nombre) const
    {
        auto *hallado = form.findChild<Elemento *>(QString::fromLatin1(nombre));
        if (!hallado)
            qFatal("no element %s of that kind", nombre);
        return hallado;
    }

    bool visible(const char *nombre) const { return elemento(nombre)->isVisible(); }

    void clic(const char *nombre) const { QTest::mouseClick(elemento(nombre), Qt::LeftButton); }

    // A radio button answers to a click on its indicator or text only.
    void elegir(const char *nombre) const
    {
        auto *boton = elemento(nombre);
        QTest::mouseClick(boton, Qt::LeftButton, {}, QPoint(8, boton->height() / 2));
    }

    void escribirCuenta(const QString &usuario, const QString &clave) const
    {
        elemento<QWidget>("txtUser")->setFocus();
        QTest::keyClicks(elemento("txtUser"), usuario);
        QTest::keyClicks(elemento("txtPwd"), clave);
    }

    // Logs in; boxes that come up meanwhile are closed, their texts noted.
    void ingresar(const QString &usuario = QStringLiteral("secretaria"),
                  const QString &clave = QStringLiteral("demo2010"))
    {
        escribirCuenta(usuario, clave);
        conCuadros([this] { clic("Command1"); });
    }

    // Runs something that may show message boxes: each is looked at and closed with its button.
    template <typename Hacer>
    void conCuadros(Hacer hacer)
    {
        QTimer reloj;
        QObject::connect(&reloj, &QTimer::timeout, &form, [this] {
            const auto ventanas = QApplication::topLevelWidgets();
            for (QWidget *ventana : ventanas) {
                auto *cuadro = qobject_cast<QMessageBox *>(ventana);
                if (!cuadro || !cuadro->isVisible())
                    continue;
                mensajes.append(cuadro->text());
                titulos.append(cuadro->windowTitle());
                botones.append(static_cast<int>(cuadro->standardButtons()));
                QTest::mouseClick(cuadro->button(QMessageBox::Ok), Qt::LeftButton);
            }
        });
        reloj.start(5);
        hacer();
    }

    Verbos verbos;
    int cierres = 0;
    QStringList mensajes;
    QStringList titulos;
    QList<int> botones;
    Escenario e;
    Form1 form;
};
