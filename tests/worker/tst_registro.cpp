// SPDX-License-Identifier: MIT
#include "escenario/VariablesIntactas.h"
#include "worker/Registro.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

class tst_registro : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void texto_seEscapa_data();
    void texto_seEscapa();
    void linea_llevaHoraRutaYResultado();
    void carpeta_esLaDeEstadoDelUsuario();
    void casaQueNoEsRuta_cedeALaDeLaCuenta();
    void carpetasQueFaltan_seHacen();
    void tuberiaEnSuLugar_seSigueSinEl();
    void archivo_esSoloDelUsuario();
    void registroLleno_pasaASerElViejo();
    void registroQueNoSePuedeEscribir_seSigueSinEl();
};

namespace {

QByteArray contenido(const QString &ruta)
{
    QFile archivo(ruta);
    return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray("(missing)");
}

} // namespace

void tst_registro::texto_seEscapa_data()
{
    QTest::addColumn<QByteArray>("texto");
    QTest::addColumn<QByteArray>("limpio");
    const auto fila = [](const char *nombre, const QByteArray &texto, const QByteArray &limpio) {
        QTest::newRow(nombre) << texto << limpio;
    };
    fila("ordinary", "/a b/%20#~.html", "/a b/%20#~.html");
    fila("accents", "/\xC3\xB1\xC3\xA1.html", "/\xC3\xB1\xC3\xA1.html");
    fila("four bytes", "\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80");
    fila("tab and return", "a\tb\rc\nd", "a\\x09b\\x0Dc\\x0Ad");
    fila("terminal sequence", "\x1B[2J", "\\x1B[2J");
    fila("delete", "\x7F", "\\x7F");
    fila("backslash", "a\\x09", "a\\x5Cx09");
    fila("null", QByteArray("a\0b", 3), "a\\x00b");
    fila("code page 1252", "Nu\xF1o", "Nu\\xF1o");
    fila("cut off", "\xC3", "\\xC3");
    fila("overlong", "\xC0\xAF", "\\xC0\\xAF");
    fila("overlong of three", "\xE0\x80\xAF", "\\xE0\\x80\\xAF");
    fila("surrogate", "\xED\xA0\x80", "\\xED\\xA0\\x80");
    fila("too high", "\xF4\x90\x80\x80", "\\xF4\\x90\\x80\\x80");
    fila("control of 8 bits", "\xC2\x9B", "\\xC2\\x9B");
    fila("line separator", "\xE2\x80\xA8", "\\xE2\\x80\\xA8");
    fila("reversing mark", "\xE2\x80\xAE", "\\xE2\\x80\\xAE");
}

void tst_registro::texto_seEscapa()
{
    QFETCH(QByteArray, texto);
    QFETCH(QByteArray, limpio);
    QCOMPARE(QByteArray::fromStdString(registro::limpio(texto.toStdString())), limpio);
}

void tst_registro::linea_llevaHoraRutaYResultado()
{
    // The test runs in Bogota's time, five hours behind.
    const auto cuando = std::chrono::system_clock::from_time_t(1290801846);
    QCOMPARE(registro::linea(cuando, "/a\tb", "trabajo 7"),
             std::string("2010-11-26T15:04:06-0500\t/a\\x09b\ttrabajo 7"));
}

void tst_registro::carpeta_esLaDeEstadoDelUsuario()
{
    const VariablesIntactas intactas{"HOME", "XDG_STATE_HOME"};
    qputenv("HOME", "/casa/ana");
    qputenv("XDG_STATE_HOME", "/estado");
    QCOMPARE(registro::archivoDelUsuario().string(), std::string("/estado/parvanel/print.log"));
    qputenv("XDG_STATE_HOME", "relativa");
    QCOMPARE(registro::archivoDelUsuario().string(),
             std::string("/casa/ana/.local/state/parvanel/print.log"));
    qunsetenv("XDG_STATE_HOME");
    QCOMPARE(registro::archivoDelUsuario().string(),
             std::string("/casa/ana/.local/state/parvanel/print.log"));
}

void tst_registro::casaQueNoEsRuta_cedeALaDeLaCuenta()
{
    const VariablesIntactas intactas{"HOME", "XDG_STATE_HOME"};
    qunsetenv("XDG_STATE_HOME");
    const std::string delUsuario = getpwuid(getuid())->pw_dir;
    for (const char *casa : {"", "casa/ana", "."}) {
        qputenv("HOME", casa);
        QCOMPARE(registro::archivoDelUsuario().string(),
                 delUsuario + "/.local/state/parvanel/print.log");
    }
    qunsetenv("HOME");
    QCOMPARE(registro::archivoDelUsuario().string(),
             delUsuario + "/.local/state/parvanel/print.log");
}

void tst_registro::carpetasQueFaltan_seHacen()
{
    const QTemporaryDir carpeta;
    const QString archivo = carpeta.filePath("a/b/print.log");
    Registro(archivo.toStdString(), 1000).anotar("/a.html", "trabajo 1");
    QVERIFY(contenido(archivo).endsWith("\t/a.html\ttrabajo 1\n"));
}

void tst_registro::tuberiaEnSuLugar_seSigueSinEl()
{
    const QTemporaryDir carpeta;
    const std::string archivo = carpeta.filePath("print.log").toStdString();
    QCOMPARE(mkfifo(archivo.c_str(), 0600), 0);
    Registro(archivo, 1000).anotar("/a.html", "trabajo 1"); // and does not wait for a reader
    const int lector = open(archivo.c_str(), O_RDONLY | O_NONBLOCK);
    Registro(archivo, 1000).anotar("/a.html", "trabajo 1");
    char leido = 0;
    QCOMPARE(read(lector, &leido, 1), ssize_t(0)); // nor gives it anything
    close(lector);
}

void tst_registro::archivo_esSoloDelUsuario()
{
    const QTemporaryDir carpeta;
    const QString archivo = carpeta.filePath("print.log");
    Registro(archivo.toStdString(), 1000).anotar("/a.html", "trabajo 1");
    const auto deOtros =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QCOMPARE(QFileInfo(archivo).permissions() & deOtros, QFile::Permissions());
}

void tst_registro::registroLleno_pasaASerElViejo()
{
    const QTemporaryDir carpeta;
    const QString archivo = carpeta.filePath("print.log");
    constexpr int maximo = 500;
    Registro registro(archivo.toStdString(), maximo);
    for (int i = 0; i < 100; ++i)
        registro.anotar("/documento.html", "trabajo " + std::to_string(i));

    QVERIFY(contenido(archivo).endsWith("trabajo 99\n"));
    QVERIFY(QFileInfo(archivo).size() <= maximo);
    QVERIFY(QFileInfo(archivo + ".1").size() <= maximo);
    const auto juntos = contenido(archivo + ".1") + contenido(archivo);
    const auto numeros = juntos.count("trabajo ");
    QVERIFY(numeros > 7); // the older file is full, and nothing is lost between the two
    QVERIFY(juntos.contains("trabajo " + QByteArray::number(100 - numeros) + '\n'));
    QCOMPARE(QDir(carpeta.path()).entryList(QDir::Files).size(), 2);
}

void tst_registro::registroQueNoSePuedeEscribir_seSigueSinEl()
{
    const QTemporaryDir carpeta;
    const QString antes = QDir::currentPath();
    QVERIFY(QDir::setCurrent(carpeta.path()));
    Registro("", 1000).anotar("/a.html", "trabajo 1");
    Registro("/proc/no/print.log", 1000).anotar("/a.html", "trabajo 1");
    Registro(carpeta.path().toStdString(), 1000).anotar("/a.html", "trabajo 1"); // a folder
    QVERIFY(QDir::setCurrent(antes));
    QVERIFY(QDir(carpeta.path()).isEmpty()); // nor is anything written elsewhere instead
}

QTEST_GUILESS_MAIN(tst_registro)
#include "tst_registro.moc"
