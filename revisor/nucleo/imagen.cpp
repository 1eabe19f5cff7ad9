// SPDX-License-Identifier: MIT
#include "imagen.h"
#include "imagenesDeFuera.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>

namespace {

bool empiezaComoPagina(const QByteArray &bytes)
{
    const QByteArray inicio = bytes.left(512).trimmed().toLower();
    if (!inicio.startsWith('<') || inicio.startsWith("<svg"))
        return false;
    return inicio.size() > 1
           && (inicio[1] == '!' || inicio[1] == '?' || (inicio[1] >= 'a' && inicio[1] <= 'z'));
}

EstadoImagen porQt(const QByteArray &bytes)
{
    QBuffer memoria;
    memoria.setData(bytes);
    if (!memoria.open(QIODevice::ReadOnly))
        return EstadoImagen::Danada;
    QImageReader lector(&memoria);
    // Drawings are no photos, and a reader of them does more than read.
    static const QList<QByteArray> formatos = {"bmp", "webp", "ico", "avif"};
    if (!lector.canRead() || !formatos.contains(lector.format()))
        return EstadoImagen::Danada;
    const QSize tamano = lector.size();
    if (tamano.isValid() && demasiadoGrande(tamano.width(), tamano.height()))
        return EstadoImagen::Enorme;
    return lector.read().isNull() ? EstadoImagen::Danada : EstadoImagen::Buena;
}

} // namespace

EstadoImagen estadoDeImagen(const QByteArray &bytes)
{
    // What a page that did not come leaves is a lone line end.
    if (bytes.size() <= 2 && bytes.trimmed().isEmpty())
        return EstadoImagen::Vacia;
    if (bytes.startsWith("\xFF\xD8\xFF"))
        return estadoJpeg(bytes);
    if (bytes.startsWith("\x89PNG\r\n\x1A\n"))
        return estadoPng(bytes);
    if (bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a"))
        return estadoGif(bytes);
    return empiezaComoPagina(bytes) ? EstadoImagen::EsPagina : porQt(bytes);
}
