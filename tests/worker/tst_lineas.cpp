// SPDX-License-Identifier: MIT
#include "worker/Lineas.h"

#include <QtTest>

using Rutas = std::vector<std::string>;

class tst_lineas : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void variasLineasALaVez_seCortan();
    void lineaEnTrozos_seJunta();
    void lineasVacias_seDejan();
    void finSinSalto_esElResto();
    void lineaLarguisima_seCortaYLaProximaQuedaEntera();
};

void tst_lineas::variasLineasALaVez_seCortan()
{
    Lineas lineas(100);
    QCOMPARE(lineas.agregar("/a b\n/\xC3\xB1#%\n"), (Rutas{"/a b", "/\xC3\xB1#%"}));
    QCOMPARE(lineas.resto(), std::string());
}

void tst_lineas::lineaEnTrozos_seJunta()
{
    Lineas lineas(100);
    QCOMPARE(lineas.agregar("/un"), Rutas{});
    QCOMPARE(lineas.agregar("o.ht"), Rutas{});
    QCOMPARE(lineas.agregar("ml\n/d"), Rutas{"/uno.html"});
    QCOMPARE(lineas.agregar("os\n"), Rutas{"/dos"});
}

void tst_lineas::lineasVacias_seDejan()
{
    Lineas lineas(100);
    QCOMPARE(lineas.agregar("\n\n/a\n\n"), Rutas{"/a"});
}

void tst_lineas::finSinSalto_esElResto()
{
    Lineas lineas(100);
    QCOMPARE(lineas.agregar("/a\n/b"), Rutas{"/a"});
    QCOMPARE(lineas.resto(), std::string("/b"));
}

void tst_lineas::lineaLarguisima_seCortaYLaProximaQuedaEntera()
{
    Lineas lineas(4);
    QCOMPARE(lineas.agregar("/abcdef"), Rutas{});
    QCOMPARE(lineas.agregar("ghi\n/b\n"), (Rutas{"/abc", "/b"}));
}

QTEST_GUILESS_MAIN(tst_lineas)
#include "tst_lineas.moc"
