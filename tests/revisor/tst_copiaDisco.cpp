// SPDX-License-Identifier: MIT
// A copy onto a disk that is soon full: it is said, and nothing is left.
#include "HistoricoDePrueba.h"

#include "escenario/DiscoLleno.h"

#include <QTest>

using namespace Qt::StringLiterals;
using Final = copia::Guardada::Final;

class tst_copiaDisco : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void discoLleno_seDice();
    void archivoDemasiadoGrande_seDice();
    void muchosBytes_pocaMemoria();
};

void tst_copiaDisco::discoLleno_seDice()
{
    const HistoricoDePrueba historico;
    const DiscoPequeno disco(historico.texto("copias"), 128);
    if (!disco.montado())
        QSKIP("only an administrator may mount a disk of this test's own");
    const copia::Guardada guardada = historico.guardar();
    QCOMPARE(guardada.final, Final::Fallo);
    QCOMPARE(guardada.texto, u"No se guardó la copia: el disco está lleno."_s);
    QVERIFY(historico.enCopias().isEmpty());
}

void tst_copiaDisco::archivoDemasiadoGrande_seDice()
{
    const HistoricoDePrueba historico;
    historico.escribirEn(historico.zip(), "anterior");
    copia::Encargo encargo = historico.encargo();
    encargo.reemplazar = true;
    // At the first block, in the middle, and in the list at its end.
    for (const rlim_t limite : {1000, 100000, 303000}) {
        copia::Guardada guardada;
        {
            const LimiteDeArchivo lleno(limite);
            guardada = copia::guardar(encargo, {}, {});
        }
        QCOMPARE(guardada.final, Final::Fallo);
        QVERIFY2(guardada.texto.startsWith(u"No se guardó la copia: "_s),
                 qUtf8Printable(guardada.texto));
        QCOMPARE(historico.enCopias(), QStringList{u"mi copia.zip"_s});
        QCOMPARE(historico.leer(historico.zip()), QByteArray("anterior"));
    }
}

// Of the process, in bytes, at its highest.
static qint64 memoria()
{
    struct rusage uso = {};
    if (::getrusage(RUSAGE_SELF, &uso) != 0)
        qFatal("no account of the memory");
    return static_cast<qint64>(uso.ru_maxrss) * 1024;
}

void tst_copiaDisco::muchosBytes_pocaMemoria()
{
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, Final::Hecha); // what is only ever taken once
    QCOMPARE(historico.comprobar().archivos, 8);
    constexpr qint64 grande = 64 << 20;
    std::filesystem::resize_file(historico.carpeta() / "archivos/foto.jpg", grande);
    const qint64 antes = memoria();
    copia::Encargo encargo = historico.encargo();
    encargo.reemplazar = true;
    QCOMPARE(copia::guardar(encargo, {}, {}).final, Final::Hecha);
    QCOMPARE(historico.comprobar().archivos, 8);
    const qint64 de_mas = memoria() - antes;
    QVERIFY2(de_mas < grande / 8, QByteArray::number(de_mas));
}

QTEST_GUILESS_MAIN(tst_copiaDisco)
#include "tst_copiaDisco.moc"
