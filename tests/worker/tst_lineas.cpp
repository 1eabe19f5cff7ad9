// SPDX-License-Identifier: MIT
#include "worker/Lineas.h"

#include <QtTest>

using Rutas = std::vector<std::string>;

class TstLineas : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void severalLinesAtOnce_areCut();
    void lineInPieces_isPutTogether();
    void emptyLines_areLeftOut();
    void endWithoutLineFeed_isTheRest();
    void overlongLine_isCutAndTheNextIsWhole();
};

void TstLineas::severalLinesAtOnce_areCut()
{
    Lineas lineas(100);
    QCOMPARE(lineas.agregar("/a b\n/\xC3\xB1#%\n"), (Rutas{"/a b", "/\xC3\xB1#%"}));
    QCOMPARE(lineas.resto(), std::string());
}

void TstLineas::lineInPieces_isPutTogether()
{
    Lineas lineas(100);
    QCOMPARE(lineas.agregar("/un"), Rutas{});
    QCOMPARE(lineas.agregar("o.ht"), Rutas{});
    QCOMPARE(lineas.agregar("ml\n/d"), Rutas{"/uno.html"});
    QCOMPARE(lineas.agregar("os\n"), Rutas{"/dos"});
}

void TstLineas::emptyLines_areLeftOut()
{
    Lineas lineas(100);
    QCOMPARE(lineas.agregar("\n\n/a\n\n"), Rutas{"/a"});
}

void TstLineas::endWithoutLineFeed_isTheRest()
{
    Lineas lineas(100);
    QCOMPARE(lineas.agregar("/a\n/b"), Rutas{"/a"});
    QCOMPARE(lineas.resto(), std::string("/b"));
}

void TstLineas::overlongLine_isCutAndTheNextIsWhole()
{
    Lineas lineas(4);
    QCOMPARE(lineas.agregar("/abcdef"), Rutas{});
    QCOMPARE(lineas.agregar("ghi\n/b\n"), (Rutas{"/abc", "/b"}));
}

QTEST_GUILESS_MAIN(TstLineas)
#include "tst_lineas.moc"
