// SPDX-License-Identifier: MIT
#include "platform/Vigilia.h"

#include "ventanaPropia_windows.h"

#include <QGuiApplication>
#include <QSessionManager>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <list>
#include <string>

namespace {

// Both, as the first is not enough for a computer that sleeps with its screen off and works on.
constexpr auto sinDormirse = {PowerRequestSystemRequired, PowerRequestExecutionRequired};

// A request of its own, which ends with the process at the latest. Null where it cannot be had.
HANDLE pedirDesvelo(std::wstring motivo)
{
    REASON_CONTEXT contexto = {};
    contexto.Version = POWER_REQUEST_CONTEXT_VERSION;
    contexto.Flags = POWER_REQUEST_CONTEXT_SIMPLE_STRING;
    contexto.Reason.SimpleReasonString = motivo.data();
    HANDLE pedido = PowerCreateRequest(&contexto);
    if (pedido == INVALID_HANDLE_VALUE)
        return nullptr;
    for (const POWER_REQUEST_TYPE que : sinDormirse)
        static_cast<void>(PowerSetRequest(pedido, que)); // what it has no means for it leaves
    return pedido;
}

} // namespace

// What speaks against the end of the session: a window has room for one reason, and there may be
// several. There is one object of it at the most, the application's, while there is a reason.
class Motivos : public QObject {
    Q_OBJECT
public:
    using Lugar = std::list<std::wstring>::iterator;

    static Motivos &de(QGuiApplication *aplicacion)
    {
        auto *motivos = aplicacion->findChild<Motivos *>(QString(), Qt::FindDirectChildrenOnly);
        return motivos != nullptr ? *motivos : *new Motivos(aplicacion);
    }

    Lugar poner(const std::wstring &motivo)
    {
        const Lugar lugar = m_motivos.insert(m_motivos.end(), motivo);
        mostrar();
        return lugar;
    }

    void quitar(Lugar lugar)
    {
        m_motivos.erase(lugar);
        mostrar();
        if (m_motivos.empty())
            delete this;
    }

private:
    explicit Motivos(QGuiApplication *aplicacion) : QObject(aplicacion)
    {
        // Windows asks each window, and shows the reason of one that does not agree.
        connect(
            aplicacion, &QGuiApplication::commitDataRequest, this,
            [](QSessionManager &sesion) { sesion.cancel(); }, Qt::DirectConnection);
    }

    // The latest reason. Without a window there is nowhere to show one: it is asked all the same.
    void mostrar()
    {
        const HWND ventana = ventanaPropia();
        if (ventana == nullptr)
            return;
        static_cast<void>(ShutdownBlockReasonDestroy(ventana)); // there may have been none
        if (!m_motivos.empty())
            static_cast<void>(ShutdownBlockReasonCreate(ventana, m_motivos.back().c_str()));
    }

    std::list<std::wstring> m_motivos;
};

class Vigilia::Interno {
public:
    explicit Interno(const std::wstring &motivo)
        : m_desvelo(pedirDesvelo(motivo)), m_lugar(Motivos::de(qGuiApp).poner(motivo))
    {
    }
    ~Interno()
    {
        if (m_desvelo != nullptr)
            CloseHandle(m_desvelo); // takes back what was asked for by it
        Motivos::de(qGuiApp).quitar(m_lugar);
    }
    Interno(const Interno &) = delete;
    Interno &operator=(const Interno &) = delete;

private:
    HANDLE m_desvelo;
    Motivos::Lugar m_lugar;
};

Vigilia::Vigilia(const QString &motivo) : d(new Interno(motivo.toStdWString())) {}

Vigilia::~Vigilia()
{
    delete d;
}

#include "Vigilia_windows.moc"
