// SPDX-License-Identifier: MIT
// A small window whose painting and laying out are gathered, and what counts them.
#pragma once

#include "BarraProgreso.h"
#include "Cadencia.h"
#include "CajaRotulo.h"
#include "RotuloPlegado.h"

#include <QCoreApplication>
#include <QFrame>
#include <QTest>
#include <QVBoxLayout>

#include <functional>
#include <memory>

// Counts how often it is worked out.
class Columna : public QVBoxLayout {
public:
    using QVBoxLayout::QVBoxLayout;
    int veces = 0;

    void setGeometry(const QRect &lugar) override
    {
        ++veces;
        QVBoxLayout::setGeometry(lugar);
    }
};

// A window on its way to another size may be laid out once for the old width before it is so for
// the new one: what counts is the height that stays.
inline bool tieneSuAlto(const RotuloPlegado &rotulo)
{
    return rotulo.height() == rotulo.heightForWidth(rotulo.width());
}

// Counts how often it is measured.
class Medido : public RotuloPlegado {
public:
    using RotuloPlegado::RotuloPlegado;
    mutable int veces = 0;

    int heightForWidth(int ancho) const override
    {
        ++veces;
        return RotuloPlegado::heightForWidth(ancho);
    }
};

// Notes what a bar shows whenever it is painted.
class Testigo : public QObject {
public:
    QList<int> pintados;
    std::function<void()> alPintar;

    int ultimo() const { return pintados.isEmpty() ? -1 : pintados.last(); }

protected:
    bool eventFilter(QObject *objeto, QEvent *suceso) override
    {
        const auto *barra = qobject_cast<BarraProgreso *>(objeto);
        if (barra && suceso->type() == QEvent::Paint) {
            pintados.append(barra->value());
            if (alPintar)
                alPintar();
        }
        return false;
    }
};

// For a test class: a new window for each test, on the screen, with nothing left to be done.
class VentanaConCadencia {
protected:
    static constexpr int cambios = 400; // that its bar has room for

    void abrir()
    {
        m_ventana = std::make_unique<QWidget>();
        m_panel = new QFrame(m_ventana.get());
        auto *columna = new QVBoxLayout(m_ventana.get());
        columna->addWidget(m_panel);
        auto *dentro = m_columna = new Columna(m_panel);
        m_barra = new BarraProgreso;
        dentro->addWidget(m_barra);
        auto *caja = new CajaRotulo;
        m_rotulo = new Medido(caja);
        m_rotulo->ponerTexto(QStringLiteral("0")); // no text may be of another height than a line
        dentro->addWidget(caja);
        dentro->addStretch(1);
        m_barra->ponerMaximo(cambios);
        m_testigo = std::make_unique<Testigo>();
        m_barra->installEventFilter(m_testigo.get());
        m_cadencia = std::make_unique<Cadencia>();
        m_cadencia->seguir(m_ventana.get());
        m_ventana->resize(300, 200);
        m_ventana->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_ventana.get()));
        QTRY_VERIFY(!m_testigo->pintados.isEmpty());
        // Nothing is left to be measured or painted.
        QTRY_VERIFY(!porHacer());
    }

    void cerrar() { m_ventana.reset(); }

    // Whether bringing the window up to date still measured or painted something.
    bool porHacer()
    {
        m_testigo->pintados.clear();
        m_rotulo->veces = 0;
        m_cadencia->alDia();
        return m_rotulo->veces > 0 || !m_testigo->pintados.isEmpty();
    }

    // A change right after a picture waits for the next one; another has not even been asked for.
    void retenerUnCambio()
    {
        m_cadencia->alDia();
        m_barra->ponerValor(m_barra->valor() + 1);
        QCoreApplication::processEvents();
        m_barra->ponerValor(m_barra->valor() + 1);
    }

    std::unique_ptr<QWidget> m_ventana;
    QFrame *m_panel = nullptr;
    Columna *m_columna = nullptr;
    BarraProgreso *m_barra = nullptr;
    Medido *m_rotulo = nullptr;
    std::unique_ptr<Testigo> m_testigo;
    std::unique_ptr<Cadencia> m_cadencia;
};
