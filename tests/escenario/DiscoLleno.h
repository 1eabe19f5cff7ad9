// SPDX-License-Identifier: MIT
// A disk that is soon full: a real one where that can be had, and what comes near it anywhere.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <csignal>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

// While it lives, no file of this process grows beyond `bytes`: writing more fails in the middle,
// as it does on a full disk. Any account may have it.
class LimiteDeArchivo {
public:
    explicit LimiteDeArchivo(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        if (::getrlimit(RLIMIT_FSIZE, &m_antes) != 0)
            qFatal("no limit to start from");
        const rlimit limite = {bytes, m_antes.rlim_max};
        if (::setrlimit(RLIMIT_FSIZE, &limite) != 0)
            qFatal("no limit for files");
    }
    ~LimiteDeArchivo() { ::setrlimit(RLIMIT_FSIZE, &m_antes); }
    LimiteDeArchivo(const LimiteDeArchivo &) = delete;
    LimiteDeArchivo &operator=(const LimiteDeArchivo &) = delete;

private:
    rlimit m_antes = {};
};

// While it lives, a new disk of `kilobytes` (of 1024 bytes) hides what the folder, a native path,
// holds. Only the thread that makes it sees it, and the threads which that starts later. It takes
// an administrator; whether it is there, montado() says.
class DiscoPequeno {
public:
    DiscoPequeno(const QString &carpeta, int kilobytes) : m_carpeta(QFile::encodeName(carpeta))
    {
        const QByteArray tamano = "size=" + QByteArray::number(kilobytes) + 'k';
        m_montado = ::unshare(CLONE_NEWNS) == 0
                    && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
                    && ::mount("tmpfs", m_carpeta.constData(), "tmpfs", 0, tamano.constData()) == 0;
    }
    ~DiscoPequeno()
    {
        if (m_montado)
            ::umount2(m_carpeta.constData(), MNT_DETACH);
    }
    DiscoPequeno(const DiscoPequeno &) = delete;
    DiscoPequeno &operator=(const DiscoPequeno &) = delete;

    bool montado() const { return m_montado; }

private:
    QByteArray m_carpeta;
    bool m_montado = false;
};
