// SPDX-License-Identifier: MIT
// What can be seen of it from outside: whether the program lets the session end, and that both it
// and the task bar's progress come and go with a window and without one.
#include "platform/BarraTareas.h"
#include "platform/Vigilia.h"

#include <QGuiApplication>
#include <QTest>
#include <QWindow>

#include <windows.h>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

class tst_VigiliaWindows : public QObject {
    Q_OBJECT

private:
    static constexpr QStringView motivo = u"Se está descargando un histórico";

    // Whether the window lets the session end, as Windows asks it at its end.
    static bool consiente(const QWindow &ventana)
    {
        const auto hwnd = reinterpret_cast<HWND>(ventana.winId());
        const bool si = SendMessageW(hwnd, WM_QUERYENDSESSION, 0, 0) != 0;
        SendMessageW(hwnd, WM_ENDSESSION, 0, 0); // it does not come to it
        return si;
    }

private Q_SLOTS:
    void initTestCase()
    {
        HWND ventana =
            CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
        QVERIFY2(ventana != nullptr, "there is no desktop that a window could be made on");
        DestroyWindow(ventana);
    }

    void enCurso_laSesionNoTerminaSinPreguntar()
    {
        QWindow ventana;
        ventana.show();
        QVERIFY(consiente(ventana));
        std::optional<Vigilia> una(std::in_place, motivo.toString());
        QVERIFY(!consiente(ventana));
        std::optional<Vigilia> otra(std::in_place, u"Se está imprimiendo"_s);
        una.reset();
        QVERIFY(!consiente(ventana));
        otra.reset();
        QVERIFY(consiente(ventana));
    }

    void deOtroModo_enOtroOrden()
    {
        QWindow ventana;
        ventana.show();
        auto una = std::make_unique<Vigilia>(motivo.toString());
        {
            const Vigilia dentro(u"Se está imprimiendo"_s);
            QVERIFY(!consiente(ventana));
        }
        QVERIFY(!consiente(ventana));
        una.reset();
        QVERIFY(consiente(ventana));
    }

    // The window that it was shown on may be gone, and there may have been none.
    void sinVentana_noFalla()
    {
        const Vigilia antes(motivo.toString());
        BarraTareas barra;
        barra.mostrar(10);
        std::optional<Vigilia> durante;
        {
            QWindow ventana;
            ventana.show();
            durante.emplace(u"Se está imprimiendo"_s);
            barra.mostrar(20);
            QVERIFY(!consiente(ventana));
        }
        barra.mostrar(30);
        durante.reset();
        barra.quitar();
        barra.quitar();
        QWindow otra;
        otra.show();
        QVERIFY(!consiente(otra)); // the first one holds still
    }
};

QTEST_MAIN(tst_VigiliaWindows)
#include "tst_VigiliaWindows.moc"
