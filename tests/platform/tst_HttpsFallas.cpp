// SPDX-License-Identifier: MIT
// What a text request comes to when the service fails behind the encryption.
#include "EscuelaHttps.h"
#include "casosFalla.h"

#include <QGuiApplication>
#include <QTest>

class tst_HttpsFallas : public QObject, EscuelaHttps {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }

    void falla_deTexto_data() { casosFalla::deTexto(); }
    void falla_deTexto();
};

void tst_HttpsFallas::falla_deTexto()
{
    QFETCH(Falla, falla);
    QFETCH(std::optional<QByteArray>, cuerpo);
    HttpClient http(m_autoridad, casosFalla::paraFalla(falla));
    m_servicio.fallar("CDANE", falla, 1);
    QCOMPARE(http.get(m_base + consulta, cabecerasTexto), cuerpo);
    if (falla.clase == Falla::Muda)
        return;                                  // it may be given up before the greeting is over
    QCOMPARE(m_servicio.peticiones().size(), 1); // no request is repeated
    // The client has come to no harm.
    QCOMPARE(http.get(m_base + consulta, cabecerasTexto), valor);
}

QTEST_MAIN(tst_HttpsFallas)
#include "tst_HttpsFallas.moc"
