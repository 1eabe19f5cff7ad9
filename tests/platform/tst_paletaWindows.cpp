// SPDX-License-Identifier: MIT
#include "platform/paleta.h"

#include <QAbstractEventDispatcher>
#include <QGuiApplication>
#include <QPalette>
#include <QTest>

#include <windows.h>

#include <memory>

using namespace Qt::StringLiterals;

class tst_paletaWindows : public QObject {
    Q_OBJECT

private:
    static constexpr auto ajustes =
        L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
    static constexpr auto claras = L"AppsUseLightTheme";

    static void elegir(DWORD valor)
    {
        QCOMPARE(
            RegSetKeyValueW(HKEY_CURRENT_USER, ajustes, claras, REG_DWORD, &valor, sizeof valor),
            ERROR_SUCCESS);
    }
    // As the library hands on what one of its windows is told.
    static void avisar(UINT que, const wchar_t *cual)
    {
        MSG aviso = {};
        aviso.message = que;
        aviso.lParam = reinterpret_cast<LPARAM>(cual);
        qintptr resultado = 0;
        QVERIFY(!QAbstractEventDispatcher::instance()->filterNativeEvent(
            QByteArrayLiteral("windows_generic_MSG"), &aviso, &resultado));
    }
    static bool oscura()
    {
        const QPalette paleta = QGuiApplication::palette();
        return paleta.color(QPalette::Window).lightness() < 128
               && paleta.color(QPalette::Text).lightness() > 128;
    }

private Q_SLOTS:
    void init()
    {
        RegDeleteKeyValueW(HKEY_CURRENT_USER, ajustes, claras);
        QGuiApplication::setPalette(QPalette());
    }
    void cleanupTestCase() { init(); }

    void alEmpezar_comoDiceWindows()
    {
        const QPalette suya = QGuiApplication::palette();
        QVERIFY(!oscura());
        {
            const PaletaEscritorio paleta; // a Windows that does not say
            QCOMPARE(QGuiApplication::palette(), suya);
        }
        elegir(1);
        {
            const PaletaEscritorio paleta;
            QCOMPARE(QGuiApplication::palette(), suya);
        }
        elegir(0);
        const PaletaEscritorio paleta;
        QVERIFY(oscura());
        QCOMPARE(QGuiApplication::palette().color(QPalette::Window),
                 paletaOscura().color(QPalette::Window));
    }

    void cambio_vaYVuelve()
    {
        const QPalette suya = QGuiApplication::palette();
        const PaletaEscritorio paleta;
        for (int vez = 0; vez < 2; ++vez) {
            elegir(0);
            QVERIFY(!oscura());
            avisar(WM_SETTINGCHANGE, L"ImmersiveColorSet");
            QVERIFY(oscura());
            elegir(1);
            avisar(WM_SETTINGCHANGE, L"ImmersiveColorSet");
            QCOMPARE(QGuiApplication::palette(), suya);
        }
    }

    void otroAviso_noCuenta()
    {
        const PaletaEscritorio paleta;
        elegir(0);
        avisar(WM_TIMECHANGE, nullptr);
        QVERIFY(!oscura());
    }

    void destruida_noSigue()
    {
        auto paleta = std::make_unique<PaletaEscritorio>();
        paleta.reset();
        elegir(0);
        avisar(WM_SETTINGCHANGE, L"ImmersiveColorSet");
        QVERIFY(!oscura());
    }
};

QTEST_MAIN(tst_paletaWindows)
#include "tst_paletaWindows.moc"
