// SPDX-License-Identifier: MIT
// What happened, in the one order in which it happened: the requests that the demonstration
// service received and whatever else a test's elements and listeners note. A procedure sends a
// request and waits for its reply, so that whatever it does next is noted after it.
#pragma once

#include <QStringList>

class ServicioDemo;

class Historia {
public:
    // Borrowed: the service must outlive it, and must not be told to forget its requests.
    explicit Historia(const ServicioDemo &demo) : m_demo(demo) {}

    // Adds an event, after the requests that have arrived since the one before it.
    void anotar(const QString &suceso);
    // All of them so far; a request as its target, without its cache-busting number ("azar=N&" is
    // "azar=#&", a trailing "/tessarin/N" is "/tessarin/#").
    QStringList sucesos();
    void olvidar();

    static QString sinAzar(const QByteArray &destino);

private:
    void recoger();

    const ServicioDemo &m_demo;
    QStringList m_sucesos;
    qsizetype m_recogidas = 0; // of the service's requests
};
