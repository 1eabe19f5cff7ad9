// SPDX-License-Identifier: MIT
// What requests leave of a process' descriptors, and of one whose other end is gone.
#include "esperasHttp.h"
#include "sinProxy.h"

#include <QDir>
#include <QTest>

#include <csignal>

#include <unistd.h>

using namespace Qt::StringLiterals;
using Charla = ServidorGuion::Charla;

namespace {

qsizetype descriptoresAbiertos()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size();
}

} // namespace

class tst_HttpDescriptores : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { sinProxy(); }
    void muchasPeticiones_noDejanDescriptores();
    void tuberiaRota_noTerminaElPrograma();
};

void tst_HttpDescriptores::muchasPeticiones_noDejanDescriptores()
{
    // Closed by the client first, so that nothing of the server's is open afterwards.
    const ServidorGuion guion([](Charla &charla) {
        contestar(charla, charla.leerCabeza());
        charla.clienteCierra();
    });
    HttpClient http;
    QVERIFY(http.get(guion.base() + "/primera", {}));
    const qsizetype antes = descriptoresAbiertos();
    for (int i = 0; i < 100; ++i)
        QVERIFY(http.get(guion.base() + "/a", {}));
    QTRY_VERIFY(descriptoresAbiertos() <= antes);
}

void tst_HttpDescriptores::tuberiaRota_noTerminaElPrograma()
{
    std::signal(SIGPIPE, SIG_DFL);
    const HttpClient http;
    int extremos[2] = {-1, -1};
    QCOMPARE(::pipe(extremos), 0);
    ::close(extremos[0]);
    QCOMPARE(::write(extremos[1], "x", 1), ssize_t(-1));
    ::close(extremos[1]);
}

QTEST_GUILESS_MAIN(tst_HttpDescriptores)
#include "tst_HttpDescriptores.moc"
