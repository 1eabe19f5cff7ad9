// SPDX-License-Identifier: MIT
// Programs of a test's own where the real ones are looked for: the desktop's opener, the print
// worker.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

// Puts a script, for its owner to run, at the native path; it is complete before it can be found
// there. A test that cannot have its program cannot go on: it is ended.
inline void ponerPrograma(const QString &ruta, const QByteArray &guion)
{
    QFile archivo(ruta + QStringLiteral(".nuevo"));
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(guion) != guion.size()
        || !archivo.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        qFatal("no program to put in place");
    archivo.close();
    if (!archivo.rename(ruta))
        qFatal("no place to put a program in");
}

// While it lives, a folder that is empty at first comes before all others on PATH. It takes PATH
// back to what it was, and the folder away.
class ProgramasEnPath {
public:
    ProgramasEnPath() { qputenv("PATH", bytes(m_carpeta.path()) + ':' + m_antes); }
    ~ProgramasEnPath() { qputenv("PATH", m_antes); }
    ProgramasEnPath(const ProgramasEnPath &) = delete;
    ProgramasEnPath &operator=(const ProgramasEnPath &) = delete;

    void poner(const QString &nombre, const QByteArray &guion) const
    {
        ponerPrograma(ruta(nombre), guion);
    }
    // From now on no other program is found.
    void quitarLosDemas() const { qputenv("PATH", bytes(m_carpeta.path())); }
    // Of what stands, or may stand, in the folder.
    QString ruta(const QString &nombre) const { return m_carpeta.filePath(nombre); }
    // Nothing when there is no such file.
    QByteArray leer(const QString &nombre) const
    {
        QFile archivo(ruta(nombre));
        return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
    }

private:
    static QByteArray bytes(const QString &ruta) { return QFile::encodeName(ruta); }

    QByteArray m_antes = qgetenv("PATH");
    QTemporaryDir m_carpeta;
};
