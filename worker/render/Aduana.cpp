// SPDX-License-Identifier: MIT
#include "worker/render/Aduana.h"

#include "worker/render/rutaLocal.h"

#include <utility>

using namespace Qt::StringLiterals;

Aduana::Aduana(QString raiz, std::optional<Origen> origen, QObject *parent)
    : QWebEngineUrlRequestInterceptor(parent), raiz_(std::move(raiz)), origen_(std::move(origen))
{
}

void Aduana::interceptRequest(QWebEngineUrlRequestInfo &pedido)
{
    const QUrl direccion = pedido.requestUrl();
    const QString esquema = direccion.scheme();
    if (esquema == "data"_L1 || esquema == "blob"_L1)
        return;
    if (esquema != "file"_L1) {
        pedido.block(!origen_ || !origen_->tiene(direccion));
        return;
    }
    const QUrl destino = rutaLocal::destino(direccion, raiz_);
    if (destino.isEmpty())
        pedido.block(true);
    else if (destino.toLocalFile() != direccion.toLocalFile())
        pedido.redirect(destino);
}
