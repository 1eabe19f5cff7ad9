// SPDX-License-Identifier: MIT
// The built program from its command line, where there are links, pipes, devices and signals.
#include "revisor/ConsolaDePrueba.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <csignal>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class tst_consolaLinux : public ConsolaDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { prepararse(); }
    void html_nuncaEnElHistoricoPorUnEnlace();
    void copia_elEnlaceQueQuedaFueraSeDice();
    void html_nuncaEnLugarDeUnaTuberia();
    void carpetaDeCualquierNombre_sirve();
    void salidaQueNoSePuedeEscribir_dos();
    void interrumpida_noDejaNada();
};

void tst_consolaLinux::html_nuncaEnLugarDeUnaTuberia()
{
    const std::string tuberia = lugar(u"tuberia"_s).toStdString();
    QCOMPARE(mkfifo(tuberia.c_str(), 0600), 0);
    const Respuesta respuesta = correr({u"--html"_s, u"tuberia"_s, historico()});
    QCOMPARE(respuesta.salida, 2);
    QVERIFY(respuesta.queja.contains(u"No se pudo guardar el informe en tuberia"_s));
    QVERIFY(std::filesystem::is_fifo(tuberia));
}

void tst_consolaLinux::html_nuncaEnElHistoricoPorUnEnlace()
{
    QVERIFY(QFile::link(historico() + u"/archivos"_s, lugar(u"puerta"_s)));
    const Respuesta respuesta = correr({u"--html"_s, u"puerta/informe.html"_s, historico()});
    QCOMPARE(respuesta.salida, 2);
    QVERIFY(respuesta.queja.contains(u"dentro del histórico"_s));
    QVERIFY(!QFile::exists(lugar(u"puerta/informe.html"_s)));
}

void tst_consolaLinux::copia_elEnlaceQueQuedaFueraSeDice()
{
    QVERIFY(QFile::link(u"/etc/passwd"_s, historico() + u"/archivos/claves"_s));
    const Respuesta guardada = correr({u"--copia"_s, u"dos.zip"_s, historico()});
    QCOMPARE(guardada.salida, 1);
    QVERIFY(guardada.dicho.contains(
        u"Quedó fuera, porque es un acceso que lleva a otro lugar: archivos/claves\n"_s));
}

void tst_consolaLinux::carpetaDeCualquierNombre_sirve()
{
    // Bytes that are no text; the shell hands them over as they are.
    QCOMPARE(QProcess::execute(u"/bin/sh"_s,
                               {u"-c"_s,
                                u"cd \"$1\" && n=$(printf 'Pe\\361a') && mv 123-2010 \"$n\" && "
                                u"\"$2\" --texto \"$n\" && \"$2\" --copia ../copia.zip \"$n\" && "
                                u"\"$2\" --comprobar ../copia.zip && mv \"$n\" 123-2010"_s,
                                u"sh"_s, lugar(u"Quorvela"_s), QStringLiteral(PARVANEL_REVISOR)}),
             0);
}

void tst_consolaLinux::salidaQueNoSePuedeEscribir_dos()
{
    QProcess proceso;
    proceso.setStandardOutputFile(u"/dev/full"_s);
    proceso.start(QStringLiteral(PARVANEL_REVISOR), {historico()});
    QVERIFY(proceso.waitForFinished(60000));
    QCOMPARE(proceso.exitCode(), 2);
}

void tst_consolaLinux::interrumpida_noDejaNada()
{
    // Nobody waits for the end of so much: it is seen at its work before that.
    QFile grande(historico() + u"/archivos/grande.bin"_s);
    QVERIFY(grande.open(QIODevice::WriteOnly) && grande.resize(qint64(64) << 30));
    grande.close();
    QVERIFY(QDir(lugar()).mkdir(u"copias"_s));
    const auto enCopias = [&] {
        return QDir(lugar(u"copias"_s)).entryList(QDir::Files | QDir::Hidden);
    };
    // Where the system can, the copy has no name at all as long as it is written.
    const auto escribe = [&](qint64 proceso) {
        std::error_code error;
        for (const auto &abierto : std::filesystem::directory_iterator(
                 "/proc/" + std::to_string(proceso) + "/fd", error)) {
            if (textoDe(std::filesystem::read_symlink(abierto, error))
                    .startsWith(lugar(u"copias/"_s)))
                return true;
        }
        return false;
    };
    QProcess proceso;
    proceso.start(QStringLiteral(PARVANEL_REVISOR),
                  {u"--copia"_s, lugar(u"copias/copia.zip"_s), historico()});
    QTRY_VERIFY_WITH_TIMEOUT(escribe(proceso.processId()), 60000);
    QVERIFY(!enCopias().contains(u"copia.zip"_s));
    QCOMPARE(::kill(static_cast<pid_t>(proceso.processId()), SIGINT), 0);
    QVERIFY(proceso.waitForFinished(60000));
    QCOMPARE(proceso.exitStatus(), QProcess::NormalExit);
    QCOMPARE(proceso.exitCode(), 2);
    QCOMPARE(enCopias(), QStringList());
}

QTEST_MAIN(tst_consolaLinux)
#include "tst_consolaLinux.moc"
