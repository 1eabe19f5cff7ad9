// SPDX-License-Identifier: MIT
#include "consumo.h"

#include <QFile>

#include <ctime>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

double segundos(const timeval &t)
{
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
}

// A line "Name:   1234 kB" of one of the system's lists, in MB; 0 when it has none.
double campo(const QByteArray &lista, const QByteArray &nombre)
{
    for (const QByteArray &linea : lista.split('\n')) {
        if (linea.startsWith(nombre + ':'))
            return linea.mid(nombre.size() + 1).simplified().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

QByteArray leer(const QString &archivo)
{
    QFile lista(archivo);
    return lista.open(QIODevice::ReadOnly) ? lista.readAll() : QByteArray();
}

} // namespace

double consumo::cpu()
{
    rusage uso = {};
    ::getrusage(RUSAGE_SELF, &uso);
    return segundos(uso.ru_utime) + segundos(uso.ru_stime);
}

QJsonObject consumo::memoria()
{
    const QByteArray reparto = leer(u"/proc/self/smaps_rollup"_s);
    return {{u"pss"_s, campo(reparto, "Pss")},
            {u"propia"_s, campo(reparto, "Anonymous")},
            {u"rss"_s, campo(reparto, "Rss")},
            {u"rssMaxima"_s, campo(leer(u"/proc/self/status"_s), "VmHWM")}};
}

double consumo::ahora()
{
    timespec t = {};
    ::clock_gettime(CLOCK_MONOTONIC, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}
