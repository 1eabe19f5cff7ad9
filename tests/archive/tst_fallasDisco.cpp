// SPDX-License-Identifier: MIT
// The run on a disk that stands in its way: links out of the archive, a folder that may not be
// written to, no room left.
#include "archive/corridaConFallas.h"
#include "escenario/DiscoLleno.h"
#include "escenario/SinPermiso.h"

#include <QFile>

#include <optional>

using namespace Qt::StringLiterals;
using namespace corridaConFallas;

class tst_fallasDisco : public QObject {
    Q_OBJECT
private:
    QMap<QString, qint64> m_completo;

private Q_SLOTS:
    void initTestCase()
    {
        Escenario e;
        correr(e);
        m_completo = contenido(e);
        QVERIFY(m_completo.size() > 25);
    }

    void enlaceQueSaleDeLaRaiz_noSeSigue()
    {
        Escenario e;
        const QTemporaryDir fuera;
        QVERIFY(QDir().mkpath(e.nativa(u"123-2010/archivos"_s)));
        QVERIFY(QFile::link(fuera.path(), e.nativa(u"123-2010/archivos/salones"_s)));
        correr(e);
        QCOMPARE(QDir(fuera.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList());
        QVERIFY(e.existe(u"123-2010/archivos/consolidadoN/501.html"_s));
    }

    void carpetaSinPermiso_pierdeSoloLoSuyo()
    {
        Escenario e;
        const QString carpeta = e.nativa(u"123-2010/archivos/salones"_s);
        QVERIFY(QDir().mkpath(carpeta));
        {
            const SinPermiso sinPermiso(carpeta, {e.personal.path(), e.nativa(QString()),
                                                  e.nativa(u"123-2010"_s),
                                                  e.nativa(u"123-2010/archivos"_s), carpeta});
            correr(e);
        }
        QCOMPARE(diferencia(contenido(e), m_completo),
                 QStringList({u"Quorvela/123-2010/archivos/salones/501.html"_s}));
    }

    void discoLleno_terminaLaCorridaYNoDejaImagenesAMedias()
    {
        Escenario e;
        // A small file system of its own where that can be had; elsewhere every file hits a limit.
        QVERIFY(QDir().mkpath(e.nativa(QString())));
        QMap<QString, qint64> archivos;
        {
            const DiscoPequeno disco(e.nativa(QString()), 256);
            std::optional<LimiteDeArchivo> limite;
            if (!disco.montado())
                limite.emplace(2048);
            correr(e);
            archivos = contenido(e);
        }
        // What is there of the images is whole; what did not fit is missing.
        int imagenesQueFaltan = 0;
        for (auto it = m_completo.cbegin(); it != m_completo.cend(); ++it) {
            if (!it.key().contains(u"/images/"_s) && !it.key().contains(u"/fotos/"_s))
                continue;
            if (archivos.contains(it.key()))
                QCOMPARE(archivos.value(it.key()), it.value());
            else
                ++imagenesQueFaltan;
        }
        QVERIFY(imagenesQueFaltan > 0);
        QVERIFY(archivos.keys().filter(u".descarga-"_s).isEmpty());
    }
};

QTEST_MAIN(tst_fallasDisco)
#include "tst_fallasDisco.moc"
