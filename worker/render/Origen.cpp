// SPDX-License-Identifier: MIT
#include "worker/render/Origen.h"

using namespace Qt::StringLiterals;

namespace {

QString hostDe(const QUrl &direccion)
{
    return direccion.host(QUrl::FullyEncoded).toLower();
}

int puertoDe(const QUrl &direccion)
{
    return direccion.port(direccion.scheme() == "https"_L1 ? 443 : 80);
}

} // namespace

std::optional<Origen> Origen::de(const QByteArray &texto)
{
    const QUrl direccion = QUrl::fromEncoded(texto, QUrl::StrictMode);
    const QString esquema = direccion.scheme();
    if (!direccion.isValid() || (esquema != "https"_L1 && esquema != "http"_L1))
        return {};
    Origen origen;
    origen.m_esquema = esquema;
    origen.m_host = hostDe(direccion);
    origen.m_puerto = puertoDe(direccion);
    const bool sola = direccion.userInfo().isEmpty() && direccion.path().isEmpty()
                      && !direccion.hasQuery() && !direccion.hasFragment();
    if (origen.m_host.isEmpty() || origen.m_puerto <= 0 || !sola)
        return {};
    return origen;
}

bool Origen::tiene(const QUrl &direccion) const
{
    return direccion.scheme() == m_esquema && hostDe(direccion) == m_host
           && puertoDe(direccion) == m_puerto;
}

bool Origen::cifrado() const
{
    return m_esquema == "https"_L1;
}
