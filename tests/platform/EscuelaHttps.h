// SPDX-License-Identifier: MIT
// The demonstration school over TLS, for the test classes that ask it, and the file with the
// authority that vouches for it.
#pragma once

#include "demostracion/ServicioDemo.h"
#include "sinProxy.h"

#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

class EscuelaHttps {
protected:
    // Before each test: no proxy, no faults, no requests so far.
    void empezar()
    {
        sinProxy();
        m_servicio.quitarFallas();
        m_servicio.olvidarPeticiones();
    }

    // The native path of a new file of that name with these bytes.
    QString archivoDe(const QByteArray &pem, const QString &nombre) const
    {
        QFile archivo(m_carpeta.filePath(nombre));
        if (!archivo.open(QIODevice::WriteOnly) || archivo.write(pem) != pem.size())
            qFatal("no file of authorities");
        return archivo.fileName();
    }

    QTemporaryDir m_carpeta;
    ServicioDemo m_servicio{{}, ServicioDemo::Modo::Https};
    QByteArray m_base = m_servicio.base().toLatin1();
    int m_puerto = QUrl(m_servicio.base()).port();
    QString m_autoridad = archivoDe(m_servicio.autoridad(), QStringLiteral("autoridad.pem"));
};
