// SPDX-License-Identifier: MIT
// The whole program before a service that fails, over a real connection, in every way that the
// service knows; and killed in the middle. What the review says is missing or damaged is what the
// service did not deliver.
#include "demostracion/ServicioDemo.h"
#include "revisor/Revision.h"
#include "revisor/destinos.h"

#include <QDir>
#include <QHash>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace {

constexpr int plazo = 120'000; // milliseconds; only a guard against a run that never ends
const QByteArray notaAjena = "<html><body><p>Estamos mejorando para usted.</p></body></html>";

// In every way but two, which end by the program's limit of two minutes. Not all of them keep a
// document from arriving.
const QList<QPair<Falla, bool>> maneras = {
    {{.clase = Falla::Vacia}, true},
    {{.clase = Falla::Cuerpo, .cuerpo = "ERROR"}, true},
    {{.clase = Falla::Cuerpo, .cuerpo = notaAjena}, true},
    {{.clase = Falla::Estado, .cuerpo = "<h1>Error 500</h1>", .estado = 500}, true},
    {{.clase = Falla::CierraAntes}, true},
    {{.clase = Falla::CierraEnMedio}, true},
    {{.clase = Falla::LargoErrado}, true},
    {{.clase = Falla::Basura}, true},
    {{.clase = Falla::Redireccion, .cuerpo = "/no-hay"}, true},
    {{.clase = Falla::Demora, .demora = 30ms}, false},
};

bool esDocumento(const QString &archivo)
{
    return archivo.endsWith(u".html") && archivo.startsWith(u"archivos/");
}

} // namespace

class tst_descargaReal : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        // What is asked for, and what comes of it, told by a run in which nothing fails.
        ServicioDemo servicio(escuela);
        const QTemporaryDir personal;
        descargar(servicio, personal.path());
        for (const Peticion &peticion : servicio.peticiones()) {
            const QString archivo = destinoEnArchivo(peticion.destino);
            const QByteArray propio = loPropio(peticion.destino);
            if (esDocumento(archivo) || peticion.destino.startsWith("/jup/images/"))
                m_archivos.insert(propio, archivo);
            if (esDocumento(archivo))
                m_orden.append(propio);
        }
        QVERIFY(m_archivos.size() > 50);
        const Resultado resultado = revisar(historicoEn(personal.path()));
        QVERIFY2(resultado.veredicto == Veredicto::Completo,
                 qPrintable(primeros(dichos(resultado), {})));
    }

    void servicioQueFalla_seDiceTodoYSoloEso_data()
    {
        QTest::addColumn<int>("semilla");
        for (const int semilla : {1, 2, 3})
            QTest::addRow("seed %d", semilla) << semilla;
    }
    void servicioQueFalla_seDiceTodoYSoloEso()
    {
        QFETCH(int, semilla);
        QRandomGenerator azar(static_cast<quint32>(semilla));
        ServicioDemo servicio(escuela);
        QSet<QString> noLlegaron;
        QList<QByteArray> destinos = m_archivos.keys();
        std::sort(destinos.begin(), destinos.end());
        for (const auto &[falla, impide] : maneras) {
            const QByteArray destino = destinos.takeAt(azar.bounded(int(destinos.size())));
            servicio.fallar(destino, falla);
            if (impide)
                noLlegaron.insert(m_archivos[destino]);
        }
        const QTemporaryDir personal;
        descargar(servicio, personal.path());
        const Resultado resultado = revisar(historicoEn(personal.path()));
        const QSet<QString> halladas = dichos(resultado);
        QVERIFY2(primeros(noLlegaron, halladas).isEmpty(),
                 qPrintable(u"not found: "_s + primeros(noLlegaron, halladas)));
        QVERIFY2(primeros(halladas, noLlegaron).isEmpty(),
                 qPrintable(u"false: "_s + primeros(halladas, noLlegaron)));
    }

    // The classrooms' pages have come, so that every student is known; then the service keeps one
    // document to itself, and the program is killed as it waits for it.
    void programaMuerto_pideTodoLoQueFalta_data()
    {
        QTest::addColumn<QByteArray>("ultimo");
        QList<QByteArray> orden = m_orden.sliced(int(escuela.salones));
        QRandomGenerator azar(2010);
        for (int vez = 0; vez < 4; ++vez) {
            const QByteArray ultimo = orden.takeAt(azar.bounded(int(orden.size())));
            QTest::newRow(ultimo.constData()) << ultimo;
        }
    }
    void programaMuerto_pideTodoLoQueFalta()
    {
        QFETCH(QByteArray, ultimo);
        ServicioDemo servicio(escuela);
        servicio.fallar(ultimo, {.clase = Falla::Retenida});
        const QTemporaryDir personal;
        QProcess programa;
        empezar(programa, servicio, personal.path());
        QTRY_VERIFY_WITH_TIMEOUT(ultimaPeticion(servicio) == ultimo, plazo);
        programa.kill();
        QVERIFY(programa.waitForFinished(plazo));
        QSet<QString> faltan;
        for (const QByteArray &destino : m_orden.sliced(m_orden.indexOf(ultimo)))
            faltan.insert(m_archivos[destino]);

        const Resultado resultado = revisar(historicoEn(personal.path()));
        QCOMPARE(resultado.veredicto, Veredicto::FaltanDocumentos);
        QSet<QString> halladas;
        for (const QString &archivo : dichos(resultado)) {
            if (esDocumento(archivo))
                halladas.insert(archivo);
        }
        QVERIFY2(halladas == faltan, qPrintable(u"not found: "_s + primeros(faltan, halladas)
                                                + u"; false: "_s + primeros(halladas, faltan)));
    }

private:
    static fs::path historicoEn(const QString &personal)
    {
        return fs::path(personal.toStdString()) / "Quorvela" / "123-2010";
    }

    // What tells a target from all others, without the number that is drawn for it.
    static QByteArray loPropio(const QByteArray &destino)
    {
        const qsizetype azar = destino.indexOf("?azar=");
        if (azar < 0)
            return destino;
        const QByteArray camino = destino.first(azar);
        return camino.endsWith(".php") ? destino.mid(destino.indexOf('&', azar)) : camino;
    }

    static QByteArray ultimaPeticion(const ServicioDemo &servicio)
    {
        const QList<Peticion> hechas = servicio.peticiones();
        return hechas.isEmpty() ? QByteArray() : loPropio(hechas.last().destino);
    }

    static void empezar(QProcess &programa, const ServicioDemo &servicio, const QString &personal)
    {
        QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
        entorno.insert(u"HOME"_s, personal);
        entorno.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        for (const QString &nombre : {u"http_proxy"_s, u"HTTP_PROXY"_s, u"all_proxy"_s})
            entorno.remove(nombre);
        programa.setProcessEnvironment(entorno);
        programa.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        QVERIFY(QDir(personal).mkpath(u"Quorvela"_s));
        programa.start(QStringLiteral(PROGRAMA), {servicio.base()});
        QVERIFY(programa.waitForStarted(plazo));
    }

    static void descargar(const ServicioDemo &servicio, const QString &personal)
    {
        QProcess programa;
        empezar(programa, servicio, personal);
        QVERIFY(programa.waitForFinished(plazo));
        QCOMPARE(programa.exitStatus(), QProcess::NormalExit);
        QCOMPARE(programa.exitCode(), 0);
    }

    const TamanoEscuela escuela{2010, 3, 6, 5};
    // Documents and photos, by what tells the request that fetches them; the documents' requests in
    // their order.
    QHash<QByteArray, QString> m_archivos;
    QList<QByteArray> m_orden;
};

QTEST_MAIN(tst_descargaReal)
#include "tst_descargaReal.moc"
