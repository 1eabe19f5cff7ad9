// SPDX-License-Identifier: MIT
// What holds for a whole process: its environment, its descriptors, its libraries. Each is looked
// at in a process of its own, this program run once more.
#include "ServidorGuion.h"
#include "consultaEscuela.h"
#include "demostracion/ServicioDemo.h"
#include "sinProxy.h"

#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <cstdio>
#include <optional>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int plazo = 60'000; // milliseconds for a process that ought to take a moment

// Leaves room for so many further descriptors, for as long as it lives.
class PocosDescriptores {
public:
    explicit PocosDescriptores(int cuantos)
    {
        ::getrlimit(RLIMIT_NOFILE, &m_antes);
        const int siguiente = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        ::close(siguiente);
        rlimit limite = m_antes;
        limite.rlim_cur = static_cast<rlim_t>(siguiente + cuantos);
        ::setrlimit(RLIMIT_NOFILE, &limite);
    }
    ~PocosDescriptores() { ::setrlimit(RLIMIT_NOFILE, &m_antes); }
    PocosDescriptores(const PocosDescriptores &) = delete;
    PocosDescriptores &operator=(const PocosDescriptores &) = delete;

private:
    rlimit m_antes = {};
};

struct Salida {
    bool termino = false;
    QList<QByteArray> lineas;
};

Salida correr(const QStringList &argumentos, const QProcessEnvironment &entorno)
{
    QProcess programa;
    programa.setProcessEnvironment(entorno);
    programa.start(QCoreApplication::applicationFilePath(), argumentos);
    Salida salida;
    salida.termino = programa.waitForFinished(plazo)
                     && programa.exitStatus() == QProcess::NormalExit && programa.exitCode() == 0;
    salida.lineas = programa.readAllStandardOutput().split('\n');
    return salida;
}

Salida correr(const QStringList &argumentos)
{
    return correr(argumentos, QProcessEnvironment::systemEnvironment());
}

// The processes that are looked at. Each tells what it has seen in lines.

int pedirCifrado(const QByteArray &direccion, const QString &autoridad)
{
    HttpClient http(autoridad);
    std::printf("%s\n", http.get(direccion, {}).value_or("nada").constData());
    return 0;
}

int pedirConDescriptores(const QByteArray &direccion, const QString &autoridad, int cuantos,
                         bool desdeElPrincipio)
{
    std::optional<PocosDescriptores> pocos;
    if (desdeElPrincipio)
        pocos.emplace(cuantos);
    HttpClient http(autoridad);
    if (!desdeElPrincipio)
        pocos.emplace(cuantos);
    std::printf("%s\n", http.get(direccion, {}).value_or("nada").constData());
    return 0;
}

bool tieneLaBiblioteca()
{
    QFile mapas(u"/proc/self/maps"_s);
    return mapas.open(QIODevice::ReadOnly) && mapas.readAll().contains("libcurl");
}

int pedirConBiblioteca(const QByteArray &direccion)
{
    HttpClient http;
    const bool antes = tieneLaBiblioteca();
    const auto respuesta = http.get(direccion, {});
    std::printf("%d\n%s\n%d\n", antes, respuesta.value_or("nada").constData(), tieneLaBiblioteca());
    return 0;
}

// Once in vain, and once when nothing stands in the library's way any more.
int pedirDosVeces(const QByteArray &direccion, const QString &estorbo)
{
    HttpClient http;
    std::printf("%s\n", http.get(direccion, {}).value_or("nada").constData());
    std::printf("%d\n", QFile::remove(estorbo));
    std::printf("%s\n", http.get(direccion, {}).value_or("nada").constData());
    return 0;
}

} // namespace

class tst_HttpProceso : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void archivoDeLlaves_noSeEscribe();
    void pocosDescriptores_terminaSiempre_data();
    void pocosDescriptores_terminaSiempre();
    void biblioteca_vieneConLaPrimeraPeticion();
    void bibliotecaQueNoSeCarga_peticionFallidaHastaQueLaHay();

private:
    QTemporaryDir m_carpeta;
    ServicioDemo m_servicio{{}, ServicioDemo::Modo::Https};
    QString m_autoridad = m_carpeta.filePath(u"autoridad.pem"_s);
};

void tst_HttpProceso::initTestCase()
{
    sinProxy();
    std::signal(SIGPIPE, SIG_IGN); // of clients that end in the middle of a greeting
    QFile archivo(m_autoridad);
    QVERIFY(archivo.open(QIODevice::WriteOnly));
    QCOMPARE(archivo.write(m_servicio.autoridad()), m_servicio.autoridad().size());
}

// A file with the keys of every connection would let others read along.
void tst_HttpProceso::archivoDeLlaves_noSeEscribe()
{
    const QString llaves = m_carpeta.filePath(u"llaves"_s);
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    entorno.insert(u"SSLKEYLOGFILE"_s, llaves);
    const Salida salida = correr(
        {u"--cifrado"_s, m_servicio.base() + QString::fromLatin1(consulta), m_autoridad}, entorno);
    QVERIFY(salida.termino);
    QCOMPARE(salida.lineas.value(0), QByteArray("305001012345")); // over TLS
    QVERIFY(!QFile::exists(llaves));
}

void tst_HttpProceso::pocosDescriptores_terminaSiempre_data()
{
    QTest::addColumn<QString>("desdeCuando");
    QTest::newRow("desde el principio") << u"principio"_s;
    QTest::newRow("desde la peticion") << u"peticion"_s;
}

// With no descriptor to be had a request fails; it must not wait for what cannot come.
void tst_HttpProceso::pocosDescriptores_terminaSiempre()
{
#if defined(__SANITIZE_ADDRESS__)
    QSKIP("The sanitizer needs descriptors of its own to look at an object.");
#endif
    QFETCH(QString, desdeCuando);
    const QString direccion = QString(m_servicio.base()).replace(u"127.0.0.1"_s, u"localhost"_s)
                              + QString::fromLatin1(consulta);
    QByteArray ultima;
    for (int cuantos = 0; cuantos <= 16; ++cuantos) {
        const Salida salida = correr(
            {u"--descriptores"_s, direccion, m_autoridad, QString::number(cuantos), desdeCuando});
        QVERIFY2(salida.termino, qPrintable(QString::number(cuantos)));
        ultima = salida.lineas.value(0);
        if (cuantos == 0)
            QCOMPARE(ultima, QByteArray("nada"));
        QVERIFY2(ultima == "nada" || ultima == "305001012345", ultima.constData());
    }
    QCOMPARE(ultima, QByteArray("305001012345")); // enough of them
}

// A window that nobody has logged in to has no use for it.
void tst_HttpProceso::biblioteca_vieneConLaPrimeraPeticion()
{
    const ServidorGuion guion("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nhola");
    const Salida salida = correr({u"--biblioteca"_s, QString::fromLatin1(guion.base() + "/")});
    QVERIFY(salida.termino);
    QCOMPARE(salida.lineas, QList<QByteArray>({"0", "hola", "1", ""}));
}

// What is found first under the library's name is no library.
void tst_HttpProceso::bibliotecaQueNoSeCarga_peticionFallidaHastaQueLaHay()
{
    const ServidorGuion guion("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nhola");
    QFile estorbo(m_carpeta.filePath(u"libcurl.so.4"_s));
    QVERIFY(estorbo.open(QIODevice::WriteOnly));
    estorbo.close();
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    entorno.insert(u"LD_LIBRARY_PATH"_s, m_carpeta.path());
    const Salida salida = correr(
        {u"--dos-veces"_s, QString::fromLatin1(guion.base() + "/"), estorbo.fileName()}, entorno);
    QVERIFY(salida.termino);
    QCOMPARE(salida.lineas, QList<QByteArray>({"nada", "1", "hola", ""}));
}

int main(int argc, char **argv)
{
    QGuiApplication aplicacion(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments();
    const QString como = argumentos.value(1);
    const QByteArray direccion = argumentos.value(2).toLatin1();
    if (como == u"--cifrado")
        return pedirCifrado(direccion, argumentos.value(3));
    if (como == u"--descriptores")
        return pedirConDescriptores(direccion, argumentos.value(3), argumentos.value(4).toInt(),
                                    argumentos.value(5) == u"principio");
    if (como == u"--biblioteca")
        return pedirConBiblioteca(direccion);
    if (como == u"--dos-veces")
        return pedirDosVeces(direccion, argumentos.value(3));
    tst_HttpProceso prueba;
    return QTest::qExec(&prueba, argc, argv);
}

#include "tst_HttpProceso.moc"
