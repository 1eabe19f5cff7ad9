// SPDX-License-Identifier: MIT
#include "worker/render/motor.h"

#include "worker/render/Aduana.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <pwd.h>
#include <string_view>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

QString carpetaDelUsuario()
{
    QByteArray casa = qgetenv("HOME");
    if (!casa.startsWith('/')) {
        const passwd *cuenta = getpwuid(getuid());
        casa = cuenta ? cuenta->pw_dir : "";
    }
    return casa.startsWith('/') ? QFile::decodeName(casa) + u"/Quorvela"_s : QString();
}

QString raiz()
{
    if (!qEnvironmentVariableIsSet("PARVANEL_RAIZ"))
        return carpetaDelUsuario();
    const QByteArray dicha = qgetenv("PARVANEL_RAIZ");
    return dicha.startsWith('/') ? QFile::decodeName(dicha) : QString();
}

// Peer-to-peer connections, WebTransport and look-ups ahead of need are no requests, and pass the
// interceptor by. So the engine gets no network at all, but for the gateway: every connection goes
// there, no name is looked up here (addresses count as names), and no datagram is sent.
QByteArray sinRed(std::uint16_t pasarela)
{
    const QByteArray puerto = QByteArray::number(pasarela == 0 ? 1 : pasarela);
    return " --proxy-server=socks5://pasarela:"
           + puerto
           // The loopback is gone to by way of the proxy as well.
           + " --proxy-bypass-list=<-loopback>"
             " --host-resolver-rules=\"MAP pasarela 127.0.0.1, MAP * ~NOTFOUND\""
             " --disable-quic --disable-blink-features=WebTransport"
             " --force-webrtc-ip-handling-policy=disable_non_proxied_udp";
}

} // namespace

motor::Encargo motor::encargo()
{
    constexpr int deCostumbre = 20;
    const int segundos = qEnvironmentVariableIntValue("PARVANEL_PLAZO_DIBUJO");
    return {Origen::de(qgetenv("PARVANEL_ORIGEN")), raiz(),
            std::chrono::seconds(segundos > 0 ? segundos : deCostumbre)};
}

// SSLKEYLOGFILE has the keys of every connection written to a file; the others choose the engine's
// switches, its helper program, its data, or open it to a debugger.
void motor::limpiarEntorno()
{
    std::vector<QByteArray> ajenas;
    for (char **una = environ; *una; ++una) {
        const std::string_view nombre(*una, std::string_view(*una).find('='));
        for (const std::string_view comienzo :
             {"QTWEBENGINE", "QT_WEBENGINE", "CHROME_", "SSLKEYLOGFILE", "NSS_", "NSPR_"})
            if (nombre.starts_with(comienzo))
                ajenas.emplace_back(nombre.data(), static_cast<qsizetype>(nombre.size()));
    }
    for (const QByteArray &una : ajenas)
        qunsetenv(una.constData());
}

void motor::limitarMemoria()
{
    // The script engine's own limit leaves out typed arrays and WebAssembly. This one counts what a
    // process may write to; a page of ordinary size has a sixth of it. The address sanitizer's
    // tables alone are beyond any such limit.
#if !defined(__SANITIZE_ADDRESS__)
    constexpr rlim_t maximo = rlim_t{1} << 30;
    rlimit tope{maximo, maximo};
    // A tighter limit of the user's own stays.
    if (getrlimit(RLIMIT_DATA, &tope) == 0)
        tope = {std::min(tope.rlim_cur, maximo), std::min(tope.rlim_max, maximo)};
    // One that cannot be set leaves the watch of whoever started this program.
    [[maybe_unused]] const int puesto = setrlimit(RLIMIT_DATA, &tope);
#endif
}

void motor::prepararEntorno(std::uint16_t pasarela)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");

    QByteArray opciones = "--disable-gpu --disable-background-networking"
                          // No helper goes without the sandbox; none need be kept ready for that.
                          " --no-unsandboxed-zygote"
                          // A page that nobody looks at has timers that tick once a second, which
                          // would make each document wait for as long.
                          " --disable-background-timer-throttling"
                          // A report card is a small page: one that wants more is running wild.
                          " --js-flags=--max-old-space-size=256"
                          + sinRed(pasarela);
    // The engine refuses to run as root otherwise. Nobody else goes without the sandbox.
    if (geteuid() == 0)
        opciones += " --no-sandbox";
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", opciones);
}

std::unique_ptr<QWebEngineProfile> motor::perfil(const Encargo &encargo)
{
    // A profile without a name is off the record.
    auto perfil = std::make_unique<QWebEngineProfile>();
    perfil->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    perfil->setUrlRequestInterceptor(new Aduana(encargo.raiz, encargo.origen, perfil.get()));
    return perfil;
}
