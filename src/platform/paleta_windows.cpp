// SPDX-License-Identifier: MIT
// The library gives light palettes alone, after the colours of Windows, and high contrast among
// them. It colours the windows' frames itself: dark when Windows is dark and the palette is.
#include "platform/paleta.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QGuiApplication>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

namespace {

// The palette that makes everything stand out is the user's, to be left as it is.
bool conContrasteAlto()
{
    HIGHCONTRASTW contraste = {};
    contraste.cbSize = sizeof contraste;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contraste, &contraste, 0) != 0
           && (contraste.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

// A Windows that does not say is light.
bool prefiereOscuro()
{
    DWORD claras = 1;
    DWORD cuantos = sizeof claras;
    const LSTATUS leido = RegGetValueW(
        HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
        L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &claras, &cuantos);
    return leido == ERROR_SUCCESS && claras == 0 && !conContrasteAlto();
}

} // namespace

class PaletaEscritorio::Interno : public QAbstractNativeEventFilter {
public:
    Interno()
    {
        aplicar();
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    // Each window of the program is told of each change of a setting. Which one it is of is not
    // looked at: to ask costs nothing, and high contrast comes under another name.
    bool nativeEventFilter(const QByteArray & /*clase*/, void *suceso, qintptr * /*nada*/) override
    {
        if (static_cast<const MSG *>(suceso)->message == WM_SETTINGCHANGE)
            aplicar();
        return false;
    }

private:
    void aplicar()
    {
        const bool oscuro = prefiereOscuro();
        if (oscuro == m_oscuro)
            return;
        m_oscuro = oscuro;
        QGuiApplication::setPalette(oscuro ? paletaOscura() : QPalette());
    }

    bool m_oscuro = false;
};

PaletaEscritorio::PaletaEscritorio() : d(std::make_unique<Interno>()) {}

PaletaEscritorio::~PaletaEscritorio() = default;
