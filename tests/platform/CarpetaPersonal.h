// SPDX-License-Identifier: MIT
// A home folder of the test's own, with the native side of what stands in it: what DriveC does
// is looked at from outside, by native paths and bytes.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <filesystem>
#include <optional>
#include <system_error>

class CarpetaPersonal {
public:
    QString ruta(const QString &dentro = QString()) const
    {
        return dentro.isEmpty() ? m_ruta : m_ruta + u'/' + dentro;
    }

    // The same as the shell is given it.
    QString nativa(const QString &dentro) const { return QDir::toNativeSeparators(ruta(dentro)); }

    bool hacerCarpeta(const QString &dentro) const { return QDir().mkpath(ruta(dentro)); }

    bool escribir(const QString &dentro, const QByteArray &bytes) const
    {
        QFile archivo(ruta(dentro));
        return archivo.open(QIODevice::WriteOnly) && archivo.write(bytes) == bytes.size();
    }

    // Nothing when there is no such file.
    std::optional<QByteArray> leer(const QString &dentro) const
    {
        QFile archivo(ruta(dentro));
        if (!archivo.open(QIODevice::ReadOnly))
            return std::nullopt;
        return archivo.readAll();
    }

    bool enlazar(const QString &destino, const QString &dentro) const
    {
        return QFile::link(destino, ruta(dentro));
    }

    // What a link holds; empty when it is none.
    QByteArray enlace(const QString &dentro) const
    {
        const std::filesystem::path enlace = ruta(dentro).toStdU16String();
        std::error_code ninguno;
        const std::filesystem::path destino = std::filesystem::read_symlink(enlace, ninguno);
        return QString::fromStdU16String(destino.u16string()).toUtf8();
    }

    // Every entry of a folder, hidden ones and dangling links too.
    QStringList entradas(const QString &dentro = QString()) const
    {
        return QDir(ruta(dentro))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDir::Name);
    }

private:
    QTemporaryDir m_carpeta;
    QString m_ruta = QDir(m_carpeta.path()).canonicalPath();
};
