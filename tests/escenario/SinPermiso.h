// SPDX-License-Identifier: MIT
// A place in which this program may not write, for the administrator too, whom no permission stops.
#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

#include <unistd.h>

// While it lives, nobody may write to the folder or file `ruta`, a native path. The administrator
// goes on as somebody else meanwhile: as the one whose `propias`, native paths too, become and
// stay, so that everything else can be written to. An ordinary account stays what it is. Whatever
// of this cannot be had ends the test program.
class SinPermiso {
public:
    explicit SinPermiso(const QString &ruta, const QStringList &propias = {})
        : m_ruta(ruta), m_eraAdministrador(::geteuid() == 0)
    {
        for (const QString &propia : propias) {
            if (m_eraAdministrador
                && ::chown(QFile::encodeName(propia).constData(), nadie, nadie) != 0)
                qFatal("no other owner for what is to be written");
        }
        if (!QFile::setPermissions(m_ruta, lectura))
            qFatal("no right to take away");
        if (m_eraAdministrador && ::seteuid(nadie) != 0)
            qFatal("no other user to go on as");
    }
    ~SinPermiso()
    {
        if (m_eraAdministrador && ::seteuid(0) != 0)
            qFatal("no way back to the administrator");
        QFile::setPermissions(m_ruta, lectura | QFile::WriteOwner);
    }
    SinPermiso(const SinPermiso &) = delete;
    SinPermiso &operator=(const SinPermiso &) = delete;

private:
    static constexpr uid_t nadie = 65534;
    static constexpr auto lectura = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup
                                    | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    QString m_ruta;
    bool m_eraAdministrador;
};
