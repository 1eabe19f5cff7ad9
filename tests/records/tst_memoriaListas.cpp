// SPDX-License-Identifier: MIT
// What the longest reply that is taken costs in memory once it is read into a list.
#include "escenario/Escenario.h"
#include "records/tcAlumnos.h"

#include <QTest>

#include <malloc.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype largoMaximo = qsizetype(64) * 1024 * 1024; // of a text reply
constexpr qint64 mebi = 1024 * 1024;

// A figure of this process in bytes: "VmHWM", the most that has been resident.
qint64 memoria(const QByteArray &nombre)
{
    QFile estado(u"/proc/self/status"_s);
    if (!estado.open(QIODevice::ReadOnly))
        return -1;
    const auto lineas = estado.readAll().split('\n');
    for (const QByteArray &linea : lineas) {
        if (linea.startsWith(nombre + ':'))
            return linea.mid(nombre.size() + 1).simplified().split(' ').first().toLongLong() * 1024;
    }
    return -1;
}

// From now on the most that is resident is counted anew.
bool contarDeNuevo()
{
    QFile marcas(u"/proc/self/clear_refs"_s);
    return marcas.open(QIODevice::WriteOnly) && marcas.write("5") == 1 && marcas.flush();
}

QString respuestaLarga(const QString &fila)
{
    QString texto;
    texto.reserve(largoMaximo);
    for (int id = 1000000; texto.size() + fila.size() + 8 < largoMaximo; ++id) {
        texto += QString::number(id);
        texto += fila;
    }
    return texto;
}

} // namespace

class tst_memoriaListas : public QObject {
    Q_OBJECT
private Q_SLOTS:
    // The records themselves and what keeps them in order and by key, 250 to 300 bytes each; rows
    // and fields that make no record cost nothing. The bounds leave a quarter and more of room.
    void listaDe64MiB_cuestaSoloSusRegistros_data()
    {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("the address sanitizer's guards around each block are counted as well");
#endif
        QTest::addColumn<QString>("fila");
        QTest::addColumn<qint64>("topeMiB");
        QTest::newRow("students") << u",APELLIDOS Y NOMBRES ENTEROS®"_s << qint64(640);
        QTest::newRow("many columns that nobody reads")
            << u",ANA"_s + QString(40, u',') + u'®' << qint64(384);
        QTest::newRow("empty rows") << QString(200, u'®') << qint64(128);
    }
    void listaDe64MiB_cuestaSoloSusRegistros()
    {
        QFETCH(QString, fila);
        QFETCH(qint64, topeMiB);
        const QString rta = respuestaLarga(fila);
        Escenario e;
        tcAlumnos alumnos(e.entorno);
        ::malloc_trim(0); // what the row before has left must not count as room
        QVERIFY(contarDeNuevo());
        const qint64 antes = memoria("VmRSS");
        alumnos.Fcargar(rta);
        const qint64 coste = memoria("VmHWM") - antes;
        qInfo("%d records, %lld MiB", alumnos.Count(), static_cast<long long>(coste / mebi));
        QVERIFY(coste < topeMiB * mebi);
    }
};

QTEST_MAIN(tst_memoriaListas)
#include "tst_memoriaListas.moc"
