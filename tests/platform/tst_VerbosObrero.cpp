// SPDX-License-Identifier: MIT
// A print worker that dies, ends by itself or reads no more: what it had not read is the next
// one's.
#include "ProgramasAnotados.h"
#include "platform/Verbos.h"

#include <QFile>
#include <QSet>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class tst_VerbosObrero : public QObject, ProgramasAnotados {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void obreroMuerto_seReemplaza();
    void obreroMuertoSinLeer_todoAlSiguiente();
    void obreroMuertoConElUltimo_pasaAlSiguiente();
    void obreroMuertoAMedias_loLeidoNoSeRepite();
    void obreroQueTerminaSiempre_pocosArranques();
    void obreroQueTerminaSiempre_trasElDescansoSePrueba();
    void obreroQueTermina_noQuedaComoZombi();
    void obreroReemplazado_noQuedaComoZombi();
    void obreroAtascado_noDetiene();
    void obreroAtascado_seReemplaza();
};

void tst_VerbosObrero::obreroMuerto_seReemplaza()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeUna);
    const QStringList rutas = {documento(u"uno.html"_s), documento(u"dos.html"_s),
                               documento(u"tres.html"_s)};
    QList<qint64> vistos;
    Verbos verbos;
    for (const QString &ruta : rutas) {
        verbos.imprimir(ruta);
        QTRY_VERIFY(otroQue(vistos) != 0);
        vistos << otroQue(vistos);
        QTRY_COMPARE(lineas(vistos.last()), QList<QByteArray>{ruta.toUtf8()});
        QTRY_VERIFY(haTerminado(vistos.last()));
    }
    QCOMPARE(inicios().size(), rutas.size());
}

// It has read nothing of what the pipe holds, and that is not to the end of a line.
void tst_VerbosObrero::obreroMuertoSinLeer_todoAlSiguiente()
{
    ponerPrograma(u"parvanel-print"_s, anota + esperaPermiso + terminaSiEsPrimero + leeTodo);
    const QStringList rutas = documentos(400); // about 80 KB, more than a pipe holds
    auto verbos = std::make_unique<Verbos>();
    for (const QString &ruta : rutas)
        verbos->imprimir(ruta);
    QTRY_COMPARE(inicios().size(), 1);
    const qint64 primero = inicios().first().pid;
    dejarSeguir();
    QTRY_COMPARE(inicios().size(), 2);
    const qint64 segundo = otroQue({primero});
    QTRY_VERIFY_WITH_TIMEOUT(lineas(segundo).size() >= rutas.size(), 60'000);
    verbos.reset();
    QTRY_VERIFY(haTerminado(segundo));
    QCOMPARE(lineas(segundo), enBytes(rutas));
}

// The last document of a batch is the one that nothing comes after.
void tst_VerbosObrero::obreroMuertoConElUltimo_pasaAlSiguiente()
{
    ponerPrograma(u"parvanel-print"_s, anota + terminaSiEsPrimero + leeTodo);
    const QString ruta = documento(u"uno.html"_s);
    Verbos verbos;
    verbos.imprimir(ruta);
    QTRY_COMPARE(inicios().size(), 2);
    QTRY_VERIFY(!otroConLineas().isEmpty());
    QCOMPARE(otroConLineas(), QList<QByteArray>{ruta.toUtf8()});
}

void tst_VerbosObrero::obreroMuertoAMedias_loLeidoNoSeRepite()
{
    ponerPrograma(u"parvanel-print"_s,
                  anota + esperaPermiso
                      + "mkdir \"$REGISTRO/primero\" 2>/dev/null && { IFS= read -r linea; exit; }\n"
                      + leeTodo);
    const QStringList rutas = documentos(20);
    Verbos verbos;
    for (const QString &ruta : rutas)
        verbos.imprimir(ruta);
    dejarSeguir();
    QTRY_COMPARE(otroConLineas().size(), rutas.size() - 1);
    QCOMPARE(otroConLineas(), enBytes(rutas.mid(1)));
}

void tst_VerbosObrero::obreroQueTerminaSiempre_pocosArranques()
{
    ponerPrograma(u"parvanel-print"_s, anota);
    Verbos verbos;
    for (const QString &ruta : documentos(20)) {
        verbos.imprimir(ruta);
        QTRY_VERIFY(hijos().isEmpty()); // however late it is noticed that it has ended
    }
    QCOMPARE(inicios().size(), 3);
}

void tst_VerbosObrero::obreroQueTerminaSiempre_trasElDescansoSePrueba()
{
    ponerPrograma(u"parvanel-print"_s, anota);
    Verbos verbos({}, {.descanso = std::chrono::milliseconds(0)});
    verbos.imprimir(documento(u"uno.html"_s));
    QTRY_COMPARE(inicios().size(), 3);
    QTRY_VERIFY(hijos().isEmpty());
    QVERIFY(QFile::remove(m_programas->ruta(u"parvanel-print"_s)));
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo);
    const QString ruta = documento(u"dos.html"_s);
    verbos.imprimir(ruta);
    QTRY_VERIFY(!otroConLineas().isEmpty());
    QCOMPARE(otroConLineas(), QList<QByteArray>{ruta.toUtf8()});
    QCOMPARE(inicios().size(), 4);
}

void tst_VerbosObrero::obreroQueTermina_noQuedaComoZombi()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeUna);
    Verbos verbos;
    verbos.imprimir(documento(u"uno.html"_s));
    QTRY_COMPARE(inicios().size(), 1);
    QTRY_VERIFY(hijos().isEmpty());
}

void tst_VerbosObrero::obreroReemplazado_noQuedaComoZombi()
{
    ponerPrograma(u"parvanel-print"_s, anota + "mkdir \"$REGISTRO/primero\" 2>/dev/null && {\n"
                                           + esperaPermiso + "exit\n}\n" + leeTodo);
    Verbos verbos({}, {.atasco = std::chrono::milliseconds(300)});
    for (const QString &ruta : documentos(600)) // about 120 KB, twice what a pipe holds
        verbos.imprimir(ruta);
    QTRY_COMPARE(inicios().size(), 2);
    QCOMPARE(hijos().size(), 2);
    dejarSeguir();
    QTRY_COMPARE(hijos().size(), 1);
}

void tst_VerbosObrero::obreroAtascado_noDetiene()
{
    ponerPrograma(u"parvanel-print"_s, anota + esperaPermiso + leeTodo);
    const QStringList rutas = documentos(400);
    QList<QByteArray> esperadas;
    Verbos verbos;
    for (const QString &ruta : rutas) {
        verbos.imprimir(ruta); // the pipe is full long before the last
        esperadas << ruta.toUtf8();
    }
    QTRY_COMPARE(inicios().size(), 1);
    QVERIFY(lineas().isEmpty());
    dejarSeguir();
    QTRY_COMPARE_WITH_TIMEOUT(lineas().size(), rutas.size(), 30'000);
    QCOMPARE(lineas(), esperadas);
    QCOMPARE(inicios().size(), 1);
}

// The first worker never reads; what its pipe had no room for goes to the next one, beginning
// with the whole line that did not fit.
void tst_VerbosObrero::obreroAtascado_seReemplaza()
{
    ponerPrograma(
        u"parvanel-print"_s,
        anota
            + "mkdir \"$REGISTRO/primero\" 2>/dev/null && while [ ! -e \"$REGISTRO/sigue\" ]; "
              "do sleep 0.05; done\n"
            + leeTodo);
    const QStringList rutas = documentos(600); // about 120 KB, twice what a pipe holds
    Verbos verbos({}, {.atasco = std::chrono::milliseconds(300)});
    for (const QString &ruta : rutas)
        verbos.imprimir(ruta);
    QTRY_COMPARE(inicios().size(), 2);
    dejarSeguir();
    const auto entregadas = [this] {
        QSet<QByteArray> lineasDeTodos;
        for (const Inicio &inicio : inicios()) {
            for (const QByteArray &linea : lineas(inicio.pid))
                lineasDeTodos.insert(linea);
        }
        return lineasDeTodos;
    };
    QSet<QByteArray> esperadas;
    for (const QString &ruta : rutas)
        esperadas.insert(QFile::encodeName(ruta));
    QTRY_VERIFY(entregadas().contains(esperadas));
}

QTEST_GUILESS_MAIN(tst_VerbosObrero)
#include "tst_VerbosObrero.moc"
