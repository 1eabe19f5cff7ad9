// SPDX-License-Identifier: MIT
// The real main window before the demonstration school, its elements found by their names and
// worked with real clicks and keys.
#pragma once

#include "escenario/Escenario.h"
#include "estilo/Estilo.h"
#include "platform/Verbos.h"
#include "shell/Form1.h"

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <memory>

class VentanaDePrueba {
public:
    explicit VentanaDePrueba(const TamanoEscuela &tamano = Escenario::pequena())
        : e(tamano), form(
                         e.entorno, verbos, [this] { ++cierres; },
                         [this](const QString &motivo, const Avance &avance) {
                             return anotar(motivo, avance);
                         })
    {
        if (!qobject_cast<Estilo *>(QApplication::style()))
            QApplication::setStyle(new Estilo); // the application's own from now on
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

    // A radio button answers to a click on its indicator or text only; a tab everywhere.
    void elegir(const char *nombre) const
    {
        auto *boton = elemento(nombre);
        QTest::mouseClick(boton, Qt::LeftButton, {}, QPoint(8, boton->height() / 2));
    }

    // As a person picks from a drop-down list: by keyboard, which raises the same signal.
    void elegirEnLista(const char *nombre, const QString &texto) const
    {
        auto *combo = elemento<QComboBox>(nombre);
        const int indice = combo->findText(texto);
        QVERIFY2(indice >= 0, qPrintable(texto));
        combo->setFocus();
        for (int vueltas = 0; combo->currentIndex() != indice && vueltas < 20; ++vueltas)
            QTest::keyClick(combo, combo->currentIndex() < indice ? Qt::Key_Down : Qt::Key_Up);
        QCOMPARE(combo->currentText(), texto);
    }

    void elegirSalon(int fila = 0) const
    {
        auto *lista = elemento<QListWidget>("List1");
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                          lista->visualItemRect(lista->item(fila)).center());
    }

    QList<QMessageBox *> cuadrosAbiertos() const
    {
        QList<QMessageBox *> abiertos;
        const auto ventanas = QApplication::topLevelWidgets();
        for (QWidget *ventana : ventanas) {
            auto *cuadro = qobject_cast<QMessageBox *>(ventana);
            if (cuadro && cuadro->isVisible())
                abiertos.append(cuadro);
        }
        return abiertos;
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
            const auto cuadros = cuadrosAbiertos();
            for (QMessageBox *cuadro : cuadros) {
                if (alVerCuadro)
                    alVerCuadro();
                mensajes.append(cuadro->text());
                titulos.append(cuadro->windowTitle());
                botones.append(static_cast<int>(cuadro->standardButtons()));
                QTest::mouseClick(cuadro->button(QMessageBox::Ok), Qt::LeftButton);
            }
        });
        reloj.start(5);
        hacer();
    }

    // Runs something that asks for a target with the fragment. That request is held; once it is
    // there, a look is taken, and then it is let go.
    template <typename Hacer, typename Mirar>
    void reteniendo(const QByteArray &fragmento, Hacer hacer, Mirar mirar)
    {
        const auto cuantas = [this, fragmento] {
            const auto peticiones = e.demo.peticiones();
            return std::count_if(
                peticiones.begin(), peticiones.end(),
                [&](const Peticion &peticion) { return peticion.destino.contains(fragmento); });
        };
        Falla falla;
        falla.clase = Falla::Retenida;
        e.demo.fallar(fragmento, falla);
        const auto antes = cuantas();
        QTimer reloj;
        QObject::connect(&reloj, &QTimer::timeout, &form, [&] {
            if (cuantas() == antes)
                return;
            reloj.stop();
            mirar();
            e.demo.quitarFallas();
        });
        reloj.start(1);
        hacer();
        e.demo.quitarFallas();
    }

    // The entries of a list.
    QStringList lineas(const char *nombre) const
    {
        const auto *lista = elemento<QListWidget>(nombre);
        QStringList textos;
        for (int i = 0; i < lista->count(); ++i)
            textos.append(lista->item(i)->text());
        return textos;
    }

    // The motives of the jobs that have been begun and not ended.
    QStringList faenasEnCurso() const
    {
        QStringList motivos;
        for (const auto &una : faenas)
            if (!una->terminada)
                motivos.append(una->motivo);
        return motivos;
    }

    struct FaenaAnotada {
        QString motivo;
        Avance avance;
        QStringList dentroDe;
        bool terminada = false;
        double alTerminar = 0;
    };

    Verbos verbos;
    QList<std::shared_ptr<FaenaAnotada>> faenas; // in the order of their beginnings
    int cierres = 0;
    std::function<void()> alVerCuadro; // each time before a box is closed
    QStringList mensajes;
    QStringList titulos;
    QList<int> botones;
    Escenario e;
    Form1 form;

private:
    Faena anotar(const QString &motivo, const Avance &avance)
    {
        faenas.append(
            std::make_shared<FaenaAnotada>(FaenaAnotada{motivo, avance, faenasEnCurso()}));
        return {faenas.last().get(), [](FaenaAnotada *una) {
                    una->alTerminar = una->avance();
                    una->terminada = true;
                }};
    }
};
