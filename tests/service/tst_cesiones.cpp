// SPDX-License-Identifier: MIT
// Where the procedures that write files turn the event loop, and what stands on the disk then.
#include "escenario/Escenario.h"
#include "escenario/HttpInmediato.h"
#include "escenario/Turnos.h"
#include "service/archivos.h"

#include "platform/DriveC.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_cesiones : public QObject {
    Q_OBJECT
private:
    static constexpr auto viejo = "el archivo viejo";

    // A file that stands there already.
    static QString preparar(Escenario &e)
    {
        crearCarpeta(e.entorno, u"C:\\Quorvela"_s);
        const QString archivo = u"C:\\Quorvela\\f.txt"_s;
        escribirTexto(e.entorno, QString::fromLatin1(viejo), archivo, true);
        return archivo;
    }

private Q_SLOTS:
    void escribirTexto_cedeUnaVezEntreBorrarYEscribir_data()
    {
        QTest::addColumn<bool>("borrar");
        QTest::addColumn<QByteArray>("alCeder");
        QTest::addColumn<QByteArray>("alFin");
        const QByteArray antes = viejo + QByteArray("\r\n");
        QTest::newRow("borrar") << true << QByteArray("no hay") << QByteArray("x\r\n");
        QTest::newRow("agregar") << false << antes << antes + "x\r\n";
    }
    void escribirTexto_cedeUnaVezEntreBorrarYEscribir()
    {
        QFETCH(bool, borrar);
        QFETCH(QByteArray, alCeder);
        QFETCH(QByteArray, alFin);
        Escenario e;
        const QString archivo = preparar(e);
        QByteArrayList vistos;
        {
            const Turnos turnos([&] {
                vistos.append(e.existe(u"f.txt"_s) ? e.leer(u"f.txt"_s) : QByteArray("no hay"));
            });
            escribirTexto(e.entorno, u"x"_s, archivo, borrar);
        }
        QCOMPARE(vistos, QByteArrayList({alCeder}));
        QCOMPARE(e.leer(u"f.txt"_s), alFin);
    }

    // Another window, another job of this one: whoever comes in between writes the same page.
    void escribirTexto_loQueOtroEscribioAlCeder_data()
    {
        QTest::addColumn<bool>("borrar");
        QTest::addColumn<QByteArray>("alFin");
        QTest::newRow("borrar") << true << QByteArray("x\r\n");
        QTest::newRow("agregar") << false << viejo + QByteArray("\r\notro\r\nx\r\n");
    }
    void escribirTexto_loQueOtroEscribioAlCeder()
    {
        QFETCH(bool, borrar);
        QFETCH(QByteArray, alFin);
        Escenario e;
        const QString archivo = preparar(e);
        bool escrito = false;
        {
            DriveC otro(e.personal.path());
            const Turnos turnos([&] { escrito = otro.agregar(archivo, "otro\r\n"); });
            escribirTexto(e.entorno, u"x"_s, archivo, borrar);
        }
        QVERIFY(escrito);
        QCOMPARE(e.leer(u"f.txt"_s), alFin);
    }

    void descargarArchivo_cedeBorraPideYPausa()
    {
        Escenario e;
        const QString archivo = preparar(e);
        QStringList pasos;
        const auto anotar = [&](const QString &paso) {
            pasos.append(paso + (e.existe(u"f.txt"_s) ? u", hay"_s : u", no hay"_s));
        };
        e.entorno.pausa = [&](std::chrono::milliseconds) {
            anotar(u"pausa"_s);
        };
        const HttpInmediato http([&](const QByteArray &) {
            anotar(u"pedido"_s);
            return QByteArray("123456789");
        });
        {
            const Turnos turnos([&] { anotar(u"turno"_s); });
            QVERIFY(descargarArchivo(e.entorno, u"http://s/f"_s, archivo));
        }
        QCOMPARE(pasos, QStringList({u"turno, hay"_s, u"pedido, no hay"_s, u"pausa, hay"_s}));
    }
};

QTEST_MAIN(tst_cesiones)
#include "tst_cesiones.moc"
