#include "worker/render/SoloLocal.h"

#include "worker/render/rutaLocal.h"

void SoloLocal::interceptRequest(QWebEngineUrlRequestInfo &pedido)
{
    const QUrl direccion = pedido.requestUrl();
    const QString esquema = direccion.scheme();
    if (esquema == QLatin1String("data") || esquema == QLatin1String("blob"))
        return;
    if (esquema != QLatin1String("file")) {
        pedido.block(true);
        return;
    }
    const QUrl destino = rutaLocal::destino(direccion);
    if (destino.isEmpty())
        pedido.block(true);
    else if (destino.toLocalFile() != direccion.toLocalFile())
        pedido.redirect(destino);
}
