// SPDX-License-Identifier: MIT
// What a screen reader is told of what happens in the window. A run changes its texts and bars many
// hundred times a second, and each change would be a message to the reader, which asks back: such
// changes are gathered and told once a second, as they are by then. What somebody waits for who
// does not see the window is announced as it happens: that the login was accepted, each step of a
// run, how far a print job came.
#pragma once

#include <QAccessible>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <functional>

class Aviso;
class QWidget;

class AvisosAccesibles : public QObject {
    Q_OBJECT
public:
    // Where what is left goes on to.
    using Lector = std::function<void(QAccessibleEvent *)>;

    // To the application's readers, for as long as the application lives.
    static void instalar();

    // One at a time; `aplicacion` is the application, which all events come from.
    AvisosAccesibles(QObject *aplicacion, Lector lector);
    ~AvisosAccesibles() override;

    // What the library has to tell of an element, before readers hear of it.
    void recibir(QAccessibleEvent *suceso);

protected:
    bool eventFilter(QObject *objeto, QEvent *suceso) override;

private:
    static void atender(QAccessibleEvent *suceso);
    static void alBus(QAccessibleEvent *suceso);

    void seguir(QWidget *elemento, QAccessible::Event que);
    void alEnfocar(QWidget *elemento);
    void anunciar(QWidget *ventana, const QString &texto);
    void juntar(QWidget *elemento);
    void contarJuntados();

    Lector m_lector;
    QTimer m_plazo;
    QList<QPointer<QWidget>> m_juntados;
    QString m_ingreso; // the last login that was announced
    QList<QPointer<Aviso>> m_avisos;
};
