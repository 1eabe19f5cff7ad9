// SPDX-License-Identifier: MIT
// What storing a page asks of the system: it is done for thousands of pages, on old computers, and
// one call that comes anew for each of them is felt.
#include "UnidadDePrueba.h"

#include <QFileInfo>
#include <QTest>

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// Calls made by drive C's own code, by what they are for.
struct Cuentas {
    int abrir = 0;  // a folder or a file
    int mirar = 0;  // what an entry is
    int seguir = 0; // where a link leads
    int escribir = 0;
    int borrar = 0;
    int cerrar = 0;
};
Cuentas hechas;

QString texto(const Cuentas &cuentas)
{
    return u"abrir %1, mirar %2, seguir %3, escribir %4, borrar %5, cerrar %6"_s.arg(cuentas.abrir)
        .arg(cuentas.mirar)
        .arg(cuentas.seguir)
        .arg(cuentas.escribir)
        .arg(cuentas.borrar)
        .arg(cuentas.cerrar);
}

bool hayOpenat2()
{
    open_how como = {};
    como.flags = O_PATH;
    const int numero = static_cast<int>(::syscall(SYS_openat2, AT_FDCWD, "/", &como, sizeof como));
    return numero >= 0 && ::close(numero) == 0;
}

} // namespace

// The linker leads the calls of drive C here (see CMakeLists.txt), and __real_... to the system.
// NOLINTBEGIN(bugprone-reserved-identifier): the linker's names
extern "C" {
int __real_open(const char *ruta, int como, ...);
int __real_openat(int carpeta, const char *ruta, int como, ...);
int __real_fstat(int numero, struct stat *datos);
int __real_fstatat(int carpeta, const char *ruta, struct stat *datos, int como);
ssize_t __real_readlinkat(int carpeta, const char *ruta, char *donde, size_t cuanto);
int __real_unlinkat(int carpeta, const char *ruta, int como);
ssize_t __real_write(int numero, const void *bytes, size_t cuantos);
int __real_close(int numero);
long __real_syscall(long cual, ...);

int __wrap_open(const char *ruta, int como, mode_t modo)
{
    ++hechas.abrir;
    return __real_open(ruta, como, modo);
}
int __wrap_openat(int carpeta, const char *ruta, int como, mode_t modo)
{
    ++hechas.abrir;
    return __real_openat(carpeta, ruta, como, modo);
}
int __wrap_fstat(int numero, struct stat *datos)
{
    ++hechas.mirar;
    return __real_fstat(numero, datos);
}
int __wrap_fstatat(int carpeta, const char *ruta, struct stat *datos, int como)
{
    ++hechas.mirar;
    return __real_fstatat(carpeta, ruta, datos, como);
}
ssize_t __wrap_readlinkat(int carpeta, const char *ruta, char *donde, size_t cuanto)
{
    ++hechas.seguir;
    return __real_readlinkat(carpeta, ruta, donde, cuanto);
}
int __wrap_unlinkat(int carpeta, const char *ruta, int como)
{
    ++hechas.borrar;
    return __real_unlinkat(carpeta, ruta, como);
}
ssize_t __wrap_write(int numero, const void *bytes, size_t cuantos)
{
    ++hechas.escribir;
    return __real_write(numero, bytes, cuantos);
}
int __wrap_close(int numero)
{
    ++hechas.cerrar;
    return __real_close(numero);
}
// openat2 alone comes this way: it has no function of its own.
long __wrap_syscall(long cual, int carpeta, const char *ruta, void *como, size_t cuanto)
{
    ++hechas.abrir;
    return __real_syscall(cual, carpeta, ruta, como, cuanto);
}
}
// NOLINTEND(bugprone-reserved-identifier)

class tst_DriveCLlamadas : public QObject, UnidadDePrueba {
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        empezar();
        // The temporary folder may stand below a link, which costs a look more.
        m_disco = std::make_unique<DriveC>(QFileInfo(m_casa->ruta()).canonicalFilePath());
        if (!hayOpenat2())
            QSKIP("this system does not know the call openat2: each name is looked up by itself");
        QVERIFY(m_casa->hacerCarpeta(u"Quorvela/123-2010/archivos/matriculas"_s));
        QVERIFY(guardar(u"1.html"_s)); // the folder's listing is read once
    }
    void cleanup() { acabar(); }

    // The deletion finds nothing; the page's folder is opened for either.
    void paginaNueva_treceLlamadas()
    {
        hechas = {};
        QVERIFY(guardar(u"2.html"_s));
        QCOMPARE(texto(hechas), u"abrir 3, mirar 6, seguir 0, escribir 1, borrar 0, cerrar 3"_s);
    }

    void paginaDeAntes_diecisieteLlamadas()
    {
        hechas = {};
        QVERIFY(guardar(u"1.html"_s));
        QCOMPARE(texto(hechas), u"abrir 3, mirar 9, seguir 0, escribir 1, borrar 1, cerrar 3"_s);
    }

    void carpetaDeMuchas_noCuestaMas()
    {
        for (int numero = 100; numero < 600; ++numero)
            QVERIFY(guardar(QString::number(numero) + u".html"_s));
        hechas = {};
        QVERIFY(guardar(u"2.html"_s));
        QCOMPARE(texto(hechas), u"abrir 3, mirar 6, seguir 0, escribir 1, borrar 0, cerrar 3"_s);
    }

private:
    // As the run stores a page.
    bool guardar(const QString &nombre)
    {
        const QString ruta = u"C:\\Quorvela\\123-2010\\archivos\\matriculas\\"_s + nombre;
        [[maybe_unused]] const bool borrado = m_disco->borrar(ruta);
        return m_disco->escribir(ruta, "bytes");
    }
};

QTEST_GUILESS_MAIN(tst_DriveCLlamadas)
#include "tst_DriveCLlamadas.moc"
