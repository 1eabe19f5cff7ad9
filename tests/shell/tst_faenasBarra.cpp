// SPDX-License-Identifier: MIT
// What the desktop's task bar is told of the window's jobs.
#include "platform/BusPrivado.h"
#include "platform/OidoBarra.h"
#include "shell/Faenas.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const auto descarga = u"Se está descargando un histórico"_s;
const auto lote = u"Se está imprimiendo un lote de documentos"_s;

bool hayBus = false;

} // namespace

class tst_faenasBarra : public QObject {
    Q_OBJECT
private:
    static QList<double> avances(const OidoBarra &oido)
    {
        QList<double> cuales;
        for (const auto &dicho : oido.dichos)
            cuales.append(dicho.visible ? dicho.avance : -1);
        return cuales;
    }

private Q_SLOTS:
    void init() { QGuiApplication::setDesktopFileName(u"example.parvanel.prueba"_s); }

    void barraDeTareas_sigueALaDeMasAdentro()
    {
        if (!hayBus)
            QSKIP("no dbus-daemon to talk to");
        const OidoBarra oido;
        Faenas faenas;
        double larga = 0.1;
        double corta = 0.5;
        Faena primera = faenas.empezar(descarga, [&] { return larga; });
        QTRY_COMPARE(avances(oido), QList<double>({0.1}));
        larga = 0.2;
        QTRY_COMPARE(avances(oido), QList<double>({0.1, 0.2}));
        Faena segunda = faenas.empezar(lote, [&] { return corta; });
        QTRY_COMPARE(avances(oido), QList<double>({0.1, 0.2, 0.5}));
        corta = 0.75;
        QTRY_COMPARE(avances(oido), QList<double>({0.1, 0.2, 0.5, 0.75}));
        segunda.reset();
        QTRY_COMPARE(avances(oido), QList<double>({0.1, 0.2, 0.5, 0.75, 0.2}));
        primera.reset();
        QTRY_COMPARE(avances(oido), QList<double>({0.1, 0.2, 0.5, 0.75, 0.2, -1}));
    }

    void avanceQueNoCambiaDeCentesima_noSeDice()
    {
        if (!hayBus)
            QSKIP("no dbus-daemon to talk to");
        const OidoBarra oido;
        Faenas faenas;
        int miradas = 0;
        {
            const Faena faena = faenas.empezar(descarga, [&] { return 0.5 + 0.0001 * miradas++; });
            QTRY_VERIFY(miradas > 4);
        }
        QTRY_VERIFY(!oido.dichos.isEmpty() && !oido.dichos.last().visible);
        QCOMPARE(avances(oido), QList<double>({0.5, -1}));
    }
};

int main(int argc, char *argv[])
{
    const BusPrivado bus; // before anything could ask for another
    hayBus = bus.corre();
    const QApplication aplicacion(argc, argv);
    tst_faenasBarra pruebas;
    return QTest::qExec(&pruebas, argc, argv);
}

#include "tst_faenasBarra.moc"
