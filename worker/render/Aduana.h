// SPDX-License-Identifier: MIT
// What a page's requests may reach: the files of the archive, the service's own origin, and data
// that the page itself carries; nothing else.
#pragma once

#include "worker/render/Origen.h"

#include <QString>
#include <QWebEngineUrlRequestInterceptor>

#include <optional>

class Aduana : public QWebEngineUrlRequestInterceptor {
public:
    // `raiz`: the archive root, an absolute path; empty: no file is read. Without an origin no
    // address is fetched.
    Aduana(QString raiz, std::optional<Origen> origen, QObject *parent);

    // Blocked requests fail at once: a page that refers to a host prints as promptly as any other.
    // A file asked for in another spelling is fetched under its own. A redirect is a request anew.
    void interceptRequest(QWebEngineUrlRequestInfo &pedido) override;

private:
    QString m_raiz;
    std::optional<Origen> m_origen;
};
