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
    origen.esquema_ = esquema;
    origen.host_ = hostDe(direccion);
    origen.puerto_ = puertoDe(direccion);
    const bool sola = direccion.userInfo().isEmpty() && direccion.path().isEmpty()
                      && !direccion.hasQuery() && !direccion.hasFragment();
    if (origen.host_.isEmpty() || origen.puerto_ <= 0 || !sola)
        return {};
    return origen;
}

bool Origen::tiene(const QUrl &direccion) const
{
    return direccion.scheme() == esquema_ && hostDe(direccion) == host_
           && puertoDe(direccion) == puerto_;
}

bool Origen::cifrado() const
{
    return esquema_ == "https"_L1;
}
