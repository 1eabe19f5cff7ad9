#include "worker/render/motor.h"

#include "worker/render/SoloLocal.h"

#include <QByteArray>

#include <unistd.h>

void motor::prepararEntorno()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");

    QByteArray opciones("--disable-gpu --disable-background-networking"
                        // A report card is a small page: one that wants more is running wild.
                        " --js-flags=--max-old-space-size=256"
                        // Peer-to-peer connections are not requests, and pass the interceptor by.
                        " --force-webrtc-ip-handling-policy=disable_non_proxied_udp");
    // The engine refuses to run as root otherwise. Nobody else goes without the sandbox.
    if (geteuid() == 0)
        opciones += " --no-sandbox";
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", opciones);
    qunsetenv("QTWEBENGINE_REMOTE_DEBUGGING");
    qunsetenv("QTWEBENGINE_DISABLE_SANDBOX");
}

std::unique_ptr<QWebEngineProfile> motor::perfil()
{
    // A profile without a name is off the record.
    auto perfil = std::make_unique<QWebEngineProfile>();
    perfil->setUrlRequestInterceptor(new SoloLocal(perfil.get()));
    return perfil;
}
