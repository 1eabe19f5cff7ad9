// SPDX-License-Identifier: MIT
// Another program at work on the same page, at the very moment at which that counts.
#include "UnidadDePrueba.h"

#include <QTest>

#include <cerrno>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Done instead of the next deletion of drive C's, once.
std::function<int()> enVezDeBorrar;

} // namespace

// The linker leads drive C's deletions here (see CMakeLists.txt), and __real_... to the system.
// NOLINTBEGIN(bugprone-reserved-identifier): the linker's names
extern "C" {
int __real_unlinkat(int carpeta, const char *ruta, int como);
int __wrap_unlinkat(int carpeta, const char *ruta, int como)
{
    const auto otra = std::exchange(enVezDeBorrar, nullptr);
    return otra ? otra() : __real_unlinkat(carpeta, ruta, como);
}
}
// NOLINTEND(bugprone-reserved-identifier)

class tst_DriveCOtroAntes : public QObject, UnidadDePrueba {
    Q_OBJECT
private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    // It has deleted the page first, and written its own by the time that one is looked for again:
    // neither page is added to the other.
    void otroBorraYEscribe_quedaUnaSolaPagina()
    {
        QVERIFY(m_casa->escribir(u"Quorvela/1.html"_s, "la de antes"));
        bool escrita = false;
        enVezDeBorrar = [&] {
            escrita = m_casa->escribir(u"Quorvela/1.html"_s, "la suya");
            errno = ENOENT;
            return -1;
        };
        QVERIFY(m_disco->escribir(u"C:\\Quorvela\\1.html"_s, "la propia"));
        QVERIFY(escrita);
        QCOMPARE(m_casa->leer(u"Quorvela/1.html"_s), QByteArray("la propia"));
    }

    // One that may not be deleted is added to, as ever.
    void noSeDejaBorrar_seAgrega()
    {
        QVERIFY(m_casa->escribir(u"Quorvela/1.html"_s, "la de antes"));
        enVezDeBorrar = [] {
            errno = EPERM;
            return -1;
        };
        QVERIFY(m_disco->escribir(u"C:\\Quorvela\\1.html"_s, "+"));
        QCOMPARE(m_casa->leer(u"Quorvela/1.html"_s), QByteArray("la de antes+"));
    }
};

QTEST_GUILESS_MAIN(tst_DriveCOtroAntes)
#include "tst_DriveCOtroAntes.moc"
