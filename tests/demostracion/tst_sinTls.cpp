// SPDX-License-Identifier: MIT
// Where the school was built with nothing to encrypt with.
#include "demostracion/ServicioDemo.h"

#include <QTest>

#include <stdexcept>

using namespace Qt::StringLiterals;

class tst_sinTls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void https_noSePuede_data();
    void https_noSePuede();
    void http_noTieneAutoridad();
};

void tst_sinTls::https_noSePuede_data()
{
    using Modo = ServicioDemo::Modo;
    QTest::addColumn<Modo>("modo");
    QTest::newRow("ahora") << Modo::Https;
    QTest::newRow("vencido") << Modo::HttpsVencido;
    QTest::newRow("por venir") << Modo::HttpsPorVenir;
}

void tst_sinTls::https_noSePuede()
{
    QFETCH(ServicioDemo::Modo, modo);
    QVERIFY_EXCEPTION_THROWN(ServicioDemo({}, modo), std::runtime_error);
}

void tst_sinTls::http_noTieneAutoridad()
{
    const ServicioDemo servicio;
    QVERIFY(servicio.autoridad().isEmpty());
    QVERIFY(servicio.base().startsWith(u"http://127.0.0.1:"_s));
}

QTEST_MAIN(tst_sinTls)
#include "tst_sinTls.moc"
