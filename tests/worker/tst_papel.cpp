// SPDX-License-Identifier: MIT
#include "escenario/VariablesIntactas.h"
#include "worker/papel.h"

#include <QtTest>

class tst_papel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nombreDePapel_daSuMedida_data();
    void nombreDePapel_daSuMedida();
    void sinMedida_nadaDa_data();
    void sinMedida_nadaDa();
    void lugar_daSuPapel_data();
    void lugar_daSuPapel();
    void entorno_valeLaPrimeraVariable();
    void opcionDelUsuario_valeMasQueColaYLugar();
    void nombreDeLaCola_valeMasQueSuMedidaYElLugar();
    void medidaDeLaCola_valeMasQueElLugar();
    void nombresDesconocidos_valeElLugar();
    void margenes_noMenoresQueLosDeLaImpresora();
    void margenes_dejanPagina();
};

void tst_papel::nombreDePapel_daSuMedida_data()
{
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<int>("ancho");
    QTest::addColumn<int>("alto");
    QTest::newRow("self-describing") << "na_letter_8.5x11in" << 21590 << 27940;
    QTest::newRow("short") << "A4" << 21000 << 29700;
    QTest::newRow("short lower case") << "a4" << 21000 << 29700;
    QTest::newRow("Letter") << "Letter" << 21590 << 27940;
    QTest::newRow("Legal") << "Legal" << 21590 << 35560;
    QTest::newRow("one's own") << "Custom.210x330mm" << 21000 << 33000;
    QTest::newRow("oficio, self-describing") << "om_oficio_216x330mm" << 21600 << 33000;
    QTest::newRow("size and tray") << "A5,Tray2" << 14800 << 21000;
    QTest::newRow("tray and size") << ",tray-2,A5" << 14800 << 21000;
}

void tst_papel::nombreDePapel_daSuMedida()
{
    QFETCH(QString, nombre);
    const auto medida = papel::porNombre(nombre.toStdString());
    QVERIFY(medida);
    QTEST(medida->ancho, "ancho");
    QTEST(medida->alto, "alto");
}

void tst_papel::sinMedida_nadaDa_data()
{
    QTest::addColumn<QString>("nombre");
    QTest::newRow("nothing") << "";
    QTest::newRow("comma") << ",";
    QTest::newRow("unknown") << "unknown";
    QTest::newRow("a tray") << "Tray2";
    QTest::newRow("smaller than its margins") << "Custom.10x10mm";
    QTest::newRow("larger than life") << "Custom.5000x5000mm";
}

void tst_papel::sinMedida_nadaDa()
{
    QFETCH(QString, nombre);
    QVERIFY(!papel::porNombre(nombre.toStdString()));
}

void tst_papel::lugar_daSuPapel_data()
{
    QTest::addColumn<QString>("localizacion");
    QTest::addColumn<int>("ancho");
    for (const char *carta :
         {"es_CO.UTF-8", "es_CO", "es_MX.utf8", "en_US", "es_VE@bolivar", "fr_CA.ISO-8859-1"})
        QTest::newRow(carta) << carta << 21590;
    for (const char *a4 : {"es_ES.UTF-8", "es_EC.UTF-8", "de_DE@euro", "C", "C.UTF-8", "POSIX", "",
                           "es", "xx_", "CO"})
        QTest::addRow("'%s'", a4) << a4 << 21000;
}

void tst_papel::lugar_daSuPapel()
{
    QFETCH(QString, localizacion);
    QTEST(papel::porLocalizacion(localizacion.toStdString()).ancho, "ancho");
}

void tst_papel::entorno_valeLaPrimeraVariable()
{
    const VariablesIntactas intactas{"LANG", "LC_PAPER", "LC_ALL"};
    qputenv("LANG", "es_CO.UTF-8");
    qputenv("LC_PAPER", "de_DE.UTF-8");
    qputenv("LC_ALL", "es_MX.UTF-8");
    QCOMPARE(papel::localizacionDelEntorno(), std::string("es_MX.UTF-8"));
    qputenv("LC_ALL", "");
    QCOMPARE(papel::localizacionDelEntorno(), std::string("de_DE.UTF-8"));
    qunsetenv("LC_PAPER");
    QCOMPARE(papel::localizacionDelEntorno(), std::string("es_CO.UTF-8"));
}

void tst_papel::opcionDelUsuario_valeMasQueColaYLugar()
{
    papel::Fuentes fuentes;
    fuentes.mediaUsuario = "Legal";
    fuentes.mediaCola = "iso_a5_148x210mm";
    fuentes.colMediaCola = papel::Medida{29700, 42000};
    QCOMPARE(papel::elegir(fuentes, "es_ES").alto, 35560);
}

void tst_papel::nombreDeLaCola_valeMasQueSuMedidaYElLugar()
{
    papel::Fuentes fuentes;
    fuentes.mediaCola = "iso_a5_148x210mm";
    fuentes.colMediaCola = papel::Medida{29700, 42000};
    QCOMPARE(papel::elegir(fuentes, "es_ES").alto, 21000);
}

void tst_papel::medidaDeLaCola_valeMasQueElLugar()
{
    papel::Fuentes fuentes;
    fuentes.mediaCola = "unknown";
    fuentes.colMediaCola = papel::Medida{29700, 42000};
    QCOMPARE(papel::elegir(fuentes, "es_ES").alto, 42000);
}

void tst_papel::nombresDesconocidos_valeElLugar()
{
    papel::Fuentes fuentes;
    fuentes.mediaUsuario = "nada";
    fuentes.mediaCola = "unknown";
    fuentes.colMediaCola = papel::Medida{0, 0};
    const Papel elegido = papel::elegir(fuentes, "es_CO.UTF-8");
    QVERIFY(elegido == (Papel{21590, 27940, 1000, 1000, 1000, 1000}));
}

void tst_papel::margenes_noMenoresQueLosDeLaImpresora()
{
    papel::Fuentes fuentes;
    fuentes.bordes = {1800, 423, 0, 1201};
    const Papel elegido = papel::elegir(fuentes, "es_ES");
    QVERIFY(elegido == (Papel{21000, 29700, 1800, 1000, 1000, 1201}));
}

void tst_papel::margenes_dejanPagina()
{
    papel::Fuentes fuentes;
    fuentes.bordes = {90000, 90000, 90000, 90000};
    const Papel elegido = papel::elegir(fuentes, "es_ES");
    QVERIFY(elegido.izquierdo + elegido.derecho < elegido.ancho);
    QVERIFY(elegido.arriba + elegido.abajo < elegido.alto);
}

QTEST_GUILESS_MAIN(tst_papel)
#include "tst_papel.moc"
