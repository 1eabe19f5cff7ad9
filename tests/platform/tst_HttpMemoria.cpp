// SPDX-License-Identifier: MIT
// What a reply takes of a process' memory, looked at in one of its own: this program run once more.
#include "ServidorGuion.h"
#include "memoriaMayor.h"
#include "platform/HttpClient.h"
#include "sinProxy.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MiB = 1024 * 1024;
constexpr int plazo = 60'000; // milliseconds for a process that ought to take a moment

// The body itself, and room to grow in: a second copy of it would take as much again. Where growing
// is copying there is one for a moment, and no third.
qint64 tope()
{
    return (crecerEsCopiar() ? 160 : 96) * MiB;
}

struct Salida {
    bool termino = false;
    QList<QByteArray> lineas;
};

// The other process, which asks once.
Salida pedir(const ServidorGuion &guion)
{
    QProcess programa;
    programa.start(QCoreApplication::applicationFilePath(),
                   {u"--memoria"_s, QString::fromLatin1(guion.base() + "/")});
    Salida salida;
    salida.termino = programa.waitForFinished(plazo)
                     && programa.exitStatus() == QProcess::NormalExit && programa.exitCode() == 0;
    salida.lineas = programa.readAllStandardOutput().replace('\r', "").split('\n');
    return salida;
}

// It says the reply's length and by how much its memory grew.
int pedirConMemoria(const QByteArray &direccion)
{
    HttpClient http;
    const qint64 antes = memoriaMayor();
    const auto respuesta = http.get(direccion, {});
    std::printf("%lld\n%lld\n", static_cast<long long>(respuesta ? respuesta->size() : -1),
                static_cast<long long>(memoriaMayor() - antes));
    return 0;
}

} // namespace

class tst_HttpMemoria : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { sinProxy(); }
    void limiteDeTexto_loAcordado();
    void respuestaEnElLimite_unaSolaVezEnMemoria_data();
    void respuestaEnElLimite_unaSolaVezEnMemoria();
    void respuestaSinMedida_acotada();
};

void tst_HttpMemoria::limiteDeTexto_loAcordado()
{
    QCOMPARE(HttpClient::Limites().texto, 64 * MiB);
}

void tst_HttpMemoria::respuestaEnElLimite_unaSolaVezEnMemoria_data()
{
    QTest::addColumn<QByteArray>("respuesta");
    const QByteArray cuerpo(64 * MiB, 'x');
    const QByteArray comprimido = qCompress(cuerpo).mid(4); // which begins with a length
    QTest::newRow("con largo") << "HTTP/1.1 200 OK\r\nContent-Length: 67108864\r\n\r\n" + cuerpo;
    QTest::newRow("hasta el fin") << "HTTP/1.1 200 OK\r\n\r\n" + cuerpo;
    QTest::newRow("comprimida") << "HTTP/1.1 200 OK\r\nContent-Encoding: deflate\r\n\r\n"
                                       + comprimido;
}

void tst_HttpMemoria::respuestaEnElLimite_unaSolaVezEnMemoria()
{
#if defined(__SANITIZE_ADDRESS__)
    QSKIP("The sanitizer keeps what has been given back, so that memory is no measure here.");
#endif
    QFETCH(QByteArray, respuesta);
    const ServidorGuion guion(respuesta);
    const Salida salida = pedir(guion);
    QVERIFY(salida.termino);
    QCOMPARE(salida.lineas.value(0).toLongLong(), 64 * MiB);
    const qint64 crecio = salida.lineas.value(1).toLongLong();
    QVERIFY2(crecio >= 64 * MiB && crecio <= tope(), qPrintable(QString::number(crecio)));
}

// A quarter of a megabyte that would become 256: it is given up when it has become 64.
void tst_HttpMemoria::respuestaSinMedida_acotada()
{
#if defined(__SANITIZE_ADDRESS__)
    QSKIP("The sanitizer keeps what has been given back, so that memory is no measure here.");
#endif
    const ServidorGuion guion("HTTP/1.1 200 OK\r\nContent-Encoding: deflate\r\n\r\n"
                              + qCompress(QByteArray(256 * MiB, 'x')).mid(4));
    const Salida salida = pedir(guion);
    QVERIFY(salida.termino);
    QCOMPARE(salida.lineas.value(0), QByteArray("-1"));
    const qint64 crecio = salida.lineas.value(1).toLongLong();
    QVERIFY2(crecio <= tope(), qPrintable(QString::number(crecio)));
}

int main(int argc, char **argv)
{
    const QCoreApplication aplicacion(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments();
    if (argumentos.value(1) == u"--memoria")
        return pedirConMemoria(argumentos.value(2).toLatin1());
    tst_HttpMemoria prueba;
    return QTest::qExec(&prueba, argc, argv);
}

#include "tst_HttpMemoria.moc"
