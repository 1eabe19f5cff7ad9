// SPDX-License-Identifier: MIT
// Two programs at work on one archive: what each of them writes is whole, and stands there once.
#include "UnidadDePrueba.h"

#include <QTest>

#include <vector>

#include <fcntl.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

constexpr int procesos = 3;
constexpr int vueltas = 300;
constexpr int archivos = 4;

QString nombre(int cual)
{
    return u"%1.html"_s.arg(cual);
}

// Longer than what a page of memory holds, so that a write cut in two would show.
QByteArray contenido(int cual)
{
    return QByteArray(20'000, static_cast<char>('a' + cual)) + "\r\n";
}

// Writes every file over and over, as a run does, with a turn of somebody else's in between.
[[noreturn]] void escribirSinParar(const QString &casa)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    DriveC disco(casa);
    bool bien = true;
    for (int vuelta = 0; vuelta < vueltas; ++vuelta) {
        for (int cual = 0; cual < archivos; ++cual) {
            const QString ruta = u"C:\\Quorvela\\"_s + nombre(cual);
            [[maybe_unused]] const bool borrado = disco.borrar(ruta);
            ::sched_yield();
            bien = disco.escribir(ruta, contenido(cual)) && bien;
        }
    }
    ::_exit(bien ? 0 : 1);
}

} // namespace

class tst_DriveCDosProcesos : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void archivoQueNoSeDejaBorrar_recibeLoNuevoAlFinal();
    void enlaceDeOtroPrograma_noSeSigue();
    void losMismosArchivosALaVez_quedanEnteros();
};

// As on a shared folder in which everybody may delete what is his own only.
void tst_DriveCDosProcesos::archivoQueNoSeDejaBorrar_recibeLoNuevoAlFinal()
{
    const QByteArray carpeta = QFile::encodeName(m_casa->ruta(u"Quorvela"_s));
    QVERIFY(m_casa->escribir(u"Quorvela/a.html"_s, "viejo\r\n"));
    QCOMPARE(::chmod(carpeta.constData(), 0500), 0);
    if (::access(carpeta.constData(), W_OK) == 0) {
        QCOMPARE(::chmod(carpeta.constData(), 0700), 0);
        QSKIP("this account may write to any folder");
    }
    const bool escrito = m_disco->escribir(u"C:\\Quorvela\\a.html"_s, "uno\r\n");
    QCOMPARE(::chmod(carpeta.constData(), 0700), 0);
    QVERIFY(escrito);
    QCOMPARE(m_casa->leer(u"Quorvela/a.html"_s), QByteArray("viejo\r\nuno\r\n"));
}

void tst_DriveCDosProcesos::enlaceDeOtroPrograma_noSeSigue()
{
    QVERIFY(m_casa->escribir(u"Quorvela/otro.html"_s, "otro\r\n"));
    QVERIFY(m_casa->enlazar(u"otro.html"_s, u"Quorvela/a.html"_s));
    QVERIFY(m_disco->escribir(u"C:\\Quorvela\\a.html"_s, "uno\r\n"));
    QCOMPARE(m_casa->leer(u"Quorvela/a.html"_s), QByteArray("uno\r\n"));
    QCOMPARE(m_casa->leer(u"Quorvela/otro.html"_s), QByteArray("otro\r\n"));
}

void tst_DriveCDosProcesos::losMismosArchivosALaVez_quedanEnteros()
{
    std::vector<pid_t> hijos;
    for (int i = 0; i < procesos; ++i) {
        const pid_t hijo = ::fork();
        if (hijo == 0)
            escribirSinParar(m_casa->ruta());
        QVERIFY(hijo > 0);
        hijos.push_back(hijo);
    }
    for (const pid_t hijo : hijos) {
        int fin = -1;
        QCOMPARE(::waitpid(hijo, &fin, 0), hijo);
        QVERIFY(WIFEXITED(fin));
        QCOMPARE(WEXITSTATUS(fin), 0);
    }
    QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), archivos);
    for (int cual = 0; cual < archivos; ++cual)
        QCOMPARE(m_casa->leer(u"Quorvela/"_s + nombre(cual)), contenido(cual));
}

QTEST_GUILESS_MAIN(tst_DriveCDosProcesos)
#include "tst_DriveCDosProcesos.moc"
