// SPDX-License-Identifier: MIT
#include "platform/BarraTareas.h"

#include "ventanaPropia_windows.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <shobjidl.h>

#include <algorithm>
#include <memory>

namespace {

struct Soltar {
    void operator()(IUnknown *barra) const { barra->Release(); }
};
using Barra = std::unique_ptr<ITaskbarList3, Soltar>;

// Null where there is no task bar, and where nothing has readied this thread for such objects, as
// a window's application does. Made anew each time, which is a matter of microseconds: the task
// bar itself may start anew as well.
Barra barraDelSistema()
{
    void *hecha = nullptr;
    if (CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList3,
                         &hecha)
        != S_OK)
        return nullptr;
    Barra barra(static_cast<ITaskbarList3 *>(hecha));
    return SUCCEEDED(barra->HrInit()) ? std::move(barra) : nullptr;
}

} // namespace

void BarraTareas::mostrar(int centesimas)
{
    const int nuevas = std::clamp(centesimas, 0, 100);
    if (nuevas == m_vistas)
        return;
    m_vistas = nuevas;
    const HWND ventana = ventanaPropia();
    const Barra barra = ventana != nullptr ? barraDelSistema() : nullptr;
    if (!barra)
        return;
    // A button that is not there yet shows it at the next number.
    static_cast<void>(barra->SetProgressState(ventana, TBPF_NORMAL));
    static_cast<void>(barra->SetProgressValue(ventana, static_cast<ULONGLONG>(nuevas), 100));
}

void BarraTareas::quitar()
{
    if (m_vistas == ninguna)
        return;
    m_vistas = ninguna;
    const HWND ventana = ventanaPropia();
    if (const Barra barra = ventana != nullptr ? barraDelSistema() : nullptr)
        static_cast<void>(barra->SetProgressState(ventana, TBPF_NOPROGRESS)); // or gone already
}
