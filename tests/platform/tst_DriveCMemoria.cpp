// SPDX-License-Identifier: MIT
// What drive C keeps in memory of the files of an archive, which may be hundreds of thousands.
#include "UnidadDePrueba.h"

#include <QTest>

#include <malloc.h>

using namespace Qt::StringLiterals;

class tst_DriveCMemoria : public QObject, UnidadDePrueba {
    Q_OBJECT
private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    // Stored as the run stores them: an earlier one deleted, the bytes added.
    void archivosGuardados_noQuedanEnMemoria()
    {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("the address sanitizer has its own heap, which is not counted here");
#endif
        constexpr int cuantos = 2000;
        QVERIFY(guardar(0, 10)); // what is made once
        const auto antes = ::mallinfo2().uordblks;
        QVERIFY(guardar(10, cuantos));
        const auto despues = ::mallinfo2().uordblks;
        qInfo("%d bytes a file", static_cast<int>(despues - antes) / cuantos);
        QVERIFY(despues < antes + std::size_t(10) * cuantos);
    }

    // An archive that is there already, read again after another program has changed it.
    void archivosLeidos_noQuedanEnMemoria()
    {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("the address sanitizer has its own heap, which is not counted here");
#endif
        constexpr int cuantos = 2000;
        for (int numero = 0; numero < cuantos; ++numero)
            QVERIFY(m_casa->escribir(u"Quorvela/%1.html"_s.arg(numero), "a"));
        const auto antes = ::mallinfo2().uordblks;
        QVERIFY(guardar(cuantos, cuantos + 1));
        QVERIFY(::mallinfo2().uordblks < antes + std::size_t(10) * cuantos);
    }

private:
    bool guardar(int desde, int hasta)
    {
        for (int numero = desde; numero < hasta; ++numero) {
            const QString ruta = u"C:\\Quorvela\\%1.html"_s.arg(numero);
            if (m_disco->borrar(ruta) || !m_disco->agregar(ruta, "a"))
                return false;
        }
        return true;
    }
};

QTEST_GUILESS_MAIN(tst_DriveCMemoria)
#include "tst_DriveCMemoria.moc"
