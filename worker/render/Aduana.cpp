// SPDX-License-Identifier: MIT
#include "worker/render/Aduana.h"

#include "worker/render/rutaLocal.h"

#include <utility>

Aduana::Aduana(QString raiz, std::optional<Origen> origen, QObject *parent)
    : QWebEngineUrlRequestInterceptor(parent), raiz_(std::move(raiz)), origen_(std::move(origen))
{
}

void Aduana::interceptRequest(QWebEngineUrlRequestInfo &pedido)
{
    const QUrl direccion = pedido.requestUrl();
    const QString esquema = direccion.scheme();
    if (esquema == QLatin1String("data") || esquema == QLatin1String("blob"))
        return;
    if (esquema != QLatin1String("file")) {
        pedido.block(!origen_ || !origen_->tiene(direccion));
        return;
    }
    const QUrl destino = rutaLocal::destino(direccion, raiz_);
    if (destino.isEmpty())
        pedido.block(true);
    else if (destino.toLocalFile() != direccion.toLocalFile())
        pedido.redirect(destino);
}
