// SPDX-License-Identifier: MIT
// The service's own origin: scheme, host and port, and nothing beside them.
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

class Origen {
public:
    // Of "https://host" or "http://host:port", in UTF-8. Empty when the text is anything else: of
    // another scheme, without a host, or with a user, a path, a query or a fragment.
    static std::optional<Origen> de(const QByteArray &texto);

    // Whether the address belongs to it; a port that is not written is the scheme's own.
    bool tiene(const QUrl &direccion) const;

    QString host() const { return m_host; } // in the form that goes into look-ups
    int puerto() const { return m_puerto; }
    bool cifrado() const; // whether it speaks TLS

private:
    QString m_esquema;
    QString m_host;
    int m_puerto = 0;
};
