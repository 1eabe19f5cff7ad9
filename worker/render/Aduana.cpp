// SPDX-License-Identifier: MIT
#include "worker/render/Aduana.h"

#include "worker/render/rutaLocal.h"

#include <utility>

using namespace Qt::StringLiterals;

Aduana::Aduana(QString raiz, std::optional<Origen> origen, QObject *parent)
    : QWebEngineUrlRequestInterceptor(parent), m_raiz(std::move(raiz)), m_origen(std::move(origen))
{
}

void Aduana::interceptRequest(QWebEngineUrlRequestInfo &pedido)
{
    const QUrl direccion = pedido.requestUrl();
    const QString esquema = direccion.scheme();
    if (esquema == "data"_L1 || esquema == "blob"_L1)
        return;
    if (esquema != "file"_L1) {
        pedido.block(!m_origen || !m_origen->tiene(direccion));
        return;
    }
    const QUrl destino = rutaLocal::destino(direccion, m_raiz);
    if (destino.isEmpty())
        pedido.block(true);
    else if (destino.toLocalFile() != direccion.toLocalFile())
        pedido.redirect(destino);
}
