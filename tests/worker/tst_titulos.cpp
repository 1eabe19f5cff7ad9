// SPDX-License-Identifier: MIT
#include "worker/Titulos.h"

#include <QTest>

class tst_titulos : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pagina_seLlamaComoSuTitulo()
    {
        Titulos titulos;
        QCOMPARE(titulos.deTrabajo("/casa/1001.html", "Informe - ANA"), "Informe - ANA");
        QCOMPARE(titulos.deTrabajo("/casa/1002.html", "Informe - EVA"), "Informe - EVA");
    }

    void sinTitulo_seLlamaComoSuArchivo()
    {
        Titulos titulos;
        QCOMPARE(titulos.deTrabajo("/casa/1001.html", ""), "1001.html");
    }

    // A whole classroom's report cards, say.
    void mismoTitulo_seDistinguenPorElArchivo()
    {
        Titulos titulos;
        QCOMPARE(titulos.deTrabajo("/casa/1001.html", "Boletín"), "Boletín");
        QCOMPARE(titulos.deTrabajo("/casa/1002.html", "Boletín"), "Boletín (1002.html)");
        QCOMPARE(titulos.deTrabajo("/casa/1003.html", "Boletín"), "Boletín (1003.html)");
    }

    // When it is handed over once more.
    void mismoDocumento_seLlamaSiempreIgual()
    {
        Titulos titulos;
        QCOMPARE(titulos.deTrabajo("/casa/1001.html", "Boletín"), "Boletín");
        QCOMPARE(titulos.deTrabajo("/casa/1002.html", "Boletín"), "Boletín (1002.html)");
        QCOMPARE(titulos.deTrabajo("/casa/1001.html", "Boletín"), "Boletín");
        QCOMPARE(titulos.deTrabajo("/casa/1002.html", "Boletín"), "Boletín (1002.html)");
    }

    void tituloLarguisimo_cabeYSeDistingue()
    {
        Titulos titulos;
        std::string largo;
        for (int i = 0; i < 127; ++i)
            largo += "ñ"; // two bytes
        QCOMPARE(titulos.deTrabajo("/casa/1001.html", largo), largo);
        const std::string otro = titulos.deTrabajo("/casa/1002.html", largo);
        QVERIFY(otro.size() <= 255);
        QVERIFY(otro.ends_with(" (1002.html)"));
        const QByteArray bytes = QByteArray::fromStdString(otro);
        QCOMPARE(QString::fromUtf8(bytes).toUtf8(), bytes); // no half of a character
    }
};

QTEST_GUILESS_MAIN(tst_titulos)
#include "tst_titulos.moc"
