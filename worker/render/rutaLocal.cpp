// SPDX-License-Identifier: MIT
#include "worker/render/rutaLocal.h"

#include "platform/nombresNativos.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The spelling that `nombre` has in the folder; empty when nothing there has that name.
QString enCarpeta(const QString &carpeta, const QString &nombre)
{
    const auto existe = [&](const QString &escritura) {
        return QFileInfo::exists(carpeta + u'/' + escritura);
    };
    if (existe(nombre))
        return nombre;
    const QStringList hay = QDir(carpeta).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                                    | QDir::NoDotAndDotDot);
    const QStringList candidatos = nombresNativos::candidatos(hay, nombre);
    const auto hallado = std::find_if(candidatos.begin(), candidatos.end(), existe);
    return hallado == candidatos.end() ? QString() : *hallado;
}

bool debajo(const QString &archivo, const QString &raiz)
{
    const auto nombres =
        nombresNativos::desdeRaiz(raiz.isEmpty() ? QString() : QFileInfo(raiz).canonicalFilePath(),
                                  QFileInfo(archivo).canonicalFilePath());
    return nombres && !nombres->isEmpty();
}

} // namespace

QString rutaLocal::existente(const QString &ruta)
{
    if (QFileInfo::exists(ruta))
        return ruta;
    // A name may hold a backslash on this system, which is why the path is tried as it stands
    // first.
    QString normal = ruta;
    normal.replace(u'\\', u'/');
    QString hallada;
    for (const QString &nombre : QDir::cleanPath(normal).split(u'/', Qt::SkipEmptyParts)) {
        const QString suyo = enCarpeta(hallada.isEmpty() ? u"/"_s : hallada, nombre);
        if (suyo.isEmpty())
            return {};
        hallada += u'/' + suyo;
    }
    return hallada;
}

QUrl rutaLocal::destino(const QUrl &pedido, const QString &raiz)
{
    if (!pedido.isLocalFile() || !pedido.host().isEmpty())
        return {};
    const QString hallada = existente(pedido.toLocalFile());
    if (hallada.isEmpty() || !QFileInfo(hallada).isFile() || !debajo(hallada, raiz))
        return {};
    return QUrl::fromLocalFile(hallada);
}
