// SPDX-License-Identifier: MIT
// Address -> reply: what the service answers, without any network.
#pragma once

#include "demostracion/Escuela.h"

#include <QByteArray>
#include <QHash>
#include <QMutex>

namespace demo {

struct Respuesta {
    int estado = 200;
    QByteArray tipo = "text/html; charset=windows-1252";
    QByteArray cuerpo;
};

// Query parameters and path segments arrive as the bytes of Windows-1252, some of them as %XX.
using Parametros = QList<QPair<QString, QString>>;
QString parametro(const Parametros &parametros, const QString &nombre);

class Rutas {
public:
    // `base`: scheme, host and port of the service's own addresses, without a trailing slash.
    Rutas(const Escuela &escuela, const QString &base);

    // For a request target as it came over the wire. Callable from several threads at once;
    // labels are drawn once and kept.
    Respuesta responder(const QByteArray &destino);

private:
    Respuesta consulta(const QString &pagina, const Parametros &parametros) const;
    Respuesta documento(const QStringList &tramos) const;
    Respuesta rotulo(const QString &texto);
    // A file that the service hands out as it is.
    Respuesta archivo(const QString &ruta) const;
    bool existe(const QString &direccion) const;
    const AlumnoDemo *alumnoDeFoto(const QString &ruta) const;

    const Escuela &m_escuela;
    QString m_base;
    QMutex m_cerrojo;
    QHash<QString, QByteArray> m_dibujados;
};

} // namespace demo
