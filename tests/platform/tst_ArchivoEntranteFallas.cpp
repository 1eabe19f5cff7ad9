// SPDX-License-Identifier: MIT
// Files that cannot be received or added to: a folder that goes away, permissions, a full disk.
#include "UnidadDePrueba.h"
#include "escenario/DiscoLleno.h"
#include "escenario/SinPermiso.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

class tst_ArchivoEntranteFallas : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void carpetaDesaparecida_noSePublica();
    void sinPermiso_todoFalla();
    void archivoSinPermiso_noSeAgrega();
    void limite_noSePublica_data();
    void limite_noSePublica();
    void limite_agregarDejaLoEscrito();
    void discoLleno_noSePublica();
    void discoLleno_agregarFalla();

private:
    QString carpeta() const { return m_casa->ruta(u"Quorvela"_s); }
    // A temporary folder is its owner's alone; here somebody else has to reach what is in it.
    void abrirLaCasa() const
    {
        QFile::setPermissions(m_casa->ruta(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
                                                  | QFile::ReadGroup | QFile::ExeGroup
                                                  | QFile::ReadOther | QFile::ExeOther);
    }
};

void tst_ArchivoEntranteFallas::carpetaDesaparecida_noSePublica()
{
    auto entrante = m_disco->recibir(u"C:\\Quorvela\\logo.png"_s);
    QVERIFY(entrante);
    entrante->dispositivo().write("x");
    QVERIFY(QDir(carpeta()).removeRecursively());
    QVERIFY(!entrante->publicar());
    entrante.reset();
    QVERIFY(m_casa->entradas().isEmpty());
}

void tst_ArchivoEntranteFallas::sinPermiso_todoFalla()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "a"));
    abrirLaCasa();
    {
        const SinPermiso sinPermiso(carpeta());
        QVERIFY(!m_disco->crearCarpeta(u"C:\\Quorvela\\notas"_s));
        QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\b.txt"_s, "b"));
        QVERIFY(!m_disco->recibir(u"C:\\Quorvela\\b.txt"_s));
        QVERIFY(!m_disco->recibir(u"C:\\Quorvela\\a.txt"_s));
        QVERIFY(!m_disco->borrar(u"C:\\Quorvela\\a.txt"_s));
        QCOMPARE(m_disco->largo(u"C:\\Quorvela\\A.txt"_s), 1); // reading goes on
        QCOMPARE(m_disco->carpetas(u"C:\\Quorvela"_s), QStringList());
    }
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.txt"_s});
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\b.txt"_s, "b")); // and nothing is remembered of it
}

void tst_ArchivoEntranteFallas::archivoSinPermiso_noSeAgrega()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "a"));
    abrirLaCasa();
    {
        const SinPermiso sinPermiso(m_casa->ruta(u"Quorvela/a.txt"_s));
        QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "b"));
    }
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("a"));
}

void tst_ArchivoEntranteFallas::limite_noSePublica_data()
{
    QTest::addColumn<int>("trozo");
    QTest::newRow("de una vez") << 50000;
    QTest::newRow("por trozos que pasan sin espera") << 25000;
    QTest::newRow("por trozos que se juntan") << 1000;
    QTest::newRow("la falta en el ultimo trozo") << 39999;
}

void tst_ArchivoEntranteFallas::limite_noSePublica()
{
    QFETCH(int, trozo);
    QVERIFY(m_casa->escribir(u"Quorvela/a.jpg"_s, "anterior"));
    {
        const LimiteDeArchivo limite(40000);
        auto entrante = m_disco->recibir(u"C:\\Quorvela\\a.jpg"_s);
        QVERIFY(entrante);
        // Whether a write notices, or only the end, is the device's matter.
        for (int falta = 50000; falta > 0; falta -= trozo) {
            [[maybe_unused]] const qint64 escritos =
                entrante->dispositivo().write(QByteArray(std::min(trozo, falta), 'x'));
        }
        QVERIFY(!entrante->publicar());
    }
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.jpg"_s});
    QCOMPARE(m_casa->leer(u"Quorvela/a.jpg"_s), QByteArray("anterior"));
}

void tst_ArchivoEntranteFallas::limite_agregarDejaLoEscrito()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "0123456789"));
    {
        const LimiteDeArchivo limite(15);
        QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "abcdefghij"));
    }
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("0123456789abcde"));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\a.txt"_s, "f"));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("0123456789abcdef"));
}

void tst_ArchivoEntranteFallas::discoLleno_noSePublica()
{
    const DiscoPequeno lleno(carpeta(), 64);
    if (!lleno.montado())
        QSKIP("mounting a disk takes an administrator");
    auto grande = m_disco->recibir(u"C:\\Quorvela\\grande.jpg"_s);
    QVERIFY(grande);
    [[maybe_unused]] const qint64 escritos = grande->dispositivo().write(QByteArray(200000, 'x'));
    QVERIFY(!grande->publicar());
    grande.reset();
    QVERIFY(m_casa->entradas(u"Quorvela"_s).isEmpty());

    // What was taken up is free again.
    const auto pequeno = m_disco->recibir(u"C:\\Quorvela\\pequeno.jpg"_s);
    QVERIFY(pequeno);
    QCOMPARE(pequeno->dispositivo().write(QByteArray(20000, 'y')), 20000);
    QVERIFY(pequeno->publicar());
    QCOMPARE(m_casa->leer(u"Quorvela/pequeno.jpg"_s), QByteArray(20000, 'y'));
}

void tst_ArchivoEntranteFallas::discoLleno_agregarFalla()
{
    const DiscoPequeno lleno(carpeta(), 64);
    if (!lleno.montado())
        QSKIP("mounting a disk takes an administrator");
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\grande.txt"_s, QByteArray(200000, 'x')));
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\grande.txt"_s, "y"));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\grande.txt"_s));
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\grande.txt"_s, "z"));
    QCOMPARE(m_casa->leer(u"Quorvela/grande.txt"_s), QByteArray("z"));
}

QTEST_GUILESS_MAIN(tst_ArchivoEntranteFallas)
#include "tst_ArchivoEntranteFallas.moc"
