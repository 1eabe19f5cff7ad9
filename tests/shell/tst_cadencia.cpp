// SPDX-License-Identifier: MIT
// Painting and laying out are gathered; values and texts are not.
#include "shell/VentanaConCadencia.h"

#include <QElapsedTimer>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr qint64 cuadro = 16; // milliseconds

} // namespace

class tst_cadencia : public QObject, VentanaConCadencia {
    Q_OBJECT

private Q_SLOTS:
    void init() { abrir(); }
    void cleanup() { cerrar(); }

    void muchosCambios_unaPinturaPorCuadro()
    {
        m_testigo->pintados.clear();
        m_rotulo->veces = 0;
        m_columna->veces = 0;
        QElapsedTimer reloj;
        reloj.start();
        for (int vez = 1; vez <= cambios; ++vez) {
            m_barra->ponerValor(vez);
            m_rotulo->ponerTexto(QString::number(vez));
            QCOMPARE(m_barra->valor(), vez);
            QCOMPARE(m_rotulo->text(), QString::number(vez));
            QCoreApplication::processEvents();
        }
        const qint64 cuadros = reloj.elapsed() / cuadro + 2;
        QVERIFY2(m_testigo->pintados.size() <= cuadros,
                 qPrintable(u"%1 of %2"_s.arg(m_testigo->pintados.size()).arg(cuadros)));
        QVERIFY2(m_rotulo->veces <= cuadros,
                 qPrintable(u"%1 of %2"_s.arg(m_rotulo->veces).arg(cuadros)));
        // None of the texts is higher than the one before.
        QCOMPARE(m_columna->veces, 0);
        QTRY_COMPARE(m_testigo->ultimo(), cambios);
    }

    void alDia_pintaLoRetenido()
    {
        retenerUnCambio();
        m_cadencia->alDia();
        QCOMPARE(m_testigo->ultimo(), m_barra->valor());
    }

    void pausa_pintaAntesLoRetenido()
    {
        retenerUnCambio();
        int alPausar = -1;
        const auto pausa =
            m_cadencia->alDiaEn([&](std::chrono::nanoseconds) { alPausar = m_testigo->ultimo(); });
        pausa(500ms);
        QCOMPARE(alPausar, m_barra->valor());
    }

    void textoDeMasLineas_rotuloMasAlto()
    {
        const int antes = m_rotulo->height();
        m_rotulo->ponerTexto(u"palabra "_s.repeated(60));
        QTRY_VERIFY(tieneSuAlto(*m_rotulo) && m_rotulo->height() > 2 * antes);
    }

    void textoDeMasLineas_enPanelEscondido_rotuloMasAltoAlMostrarlo()
    {
        const int antes = m_rotulo->height();
        m_panel->hide();
        m_rotulo->ponerTexto(u"palabra "_s.repeated(60));
        m_cadencia->alDia();
        m_panel->show();
        QTRY_VERIFY(tieneSuAlto(*m_rotulo) && m_rotulo->height() > 2 * antes);
    }

    void otraLetra_rotuloConSuAlto()
    {
        m_rotulo->ponerTexto(u"palabra"_s);
        QTRY_VERIFY(m_rotulo->height() > 0 && tieneSuAlto(*m_rotulo));
        const int antes = m_rotulo->height();
        QFont letra = m_ventana->font();
        letra.setPointSize(3 * letra.pointSize());
        m_ventana->setFont(letra);
        QTRY_VERIFY(tieneSuAlto(*m_rotulo) && m_rotulo->height() > 2 * antes);
    }

    // The layout remembers the height that it was told for a width that is yet to come. It then
    // gives the text before that height, and the new text asks for the one that it had so far.
    void otroTextoYOtroAncho_rotuloConSuAlto()
    {
        QWidget marco(m_ventana.get());
        auto *columna = new QVBoxLayout(&marco);
        auto *caja = new CajaRotulo;
        auto *rotulo = new RotuloPlegado(caja);
        columna->addWidget(caja);
        columna->addStretch(1);
        Cadencia cadencia;
        cadencia.seguir(&marco);
        constexpr QSize angosto(300, 150);
        constexpr QSize ancho(320, 150);
        const int margen = columna->contentsMargins().left() + columna->contentsMargins().right();
        const auto alto = [&](QSize de) {
            return rotulo->heightForWidth(de.width() - margen);
        };
        QString texto = u"palabra"_s;
        while (alto(angosto) == alto(ancho))
            rotulo->ponerTexto(texto += u" i"_s);
        const int pedido = alto(angosto);
        marco.show();
        marco.resize(angosto);
        cadencia.alDia();
        QVERIFY(tieneSuAlto(*rotulo));
        QVERIFY(columna->heightForWidth(ancho.width()) > 0);
        while (alto(ancho) < pedido)
            rotulo->ponerTexto(texto += u" i"_s);
        marco.resize(ancho);
        QVERIFY(!tieneSuAlto(*rotulo));
        cadencia.alDia();
        QVERIFY(tieneSuAlto(*rotulo));
        QCOMPARE(rotulo->height(), pedido);
    }

    void ventanaQueTermina_nadaQueda()
    {
        retenerUnCambio();
        m_ventana.reset();
        m_cadencia->alDia();
    }
};

QTEST_MAIN(tst_cadencia)
#include "tst_cadencia.moc"
