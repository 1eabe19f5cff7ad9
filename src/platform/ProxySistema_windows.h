// SPDX-License-Identifier: MIT
// The proxy that the user has set in Windows, automatic configuration included.
#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <memory>
#include <optional>

class ProxySistema {
public:
    // Reads the user's settings, which lie on this computer.
    ProxySistema();

    // Whether it is known how to get to an address. An automatic configuration has to be found and
    // fetched: the first call that needs it begins to, in a thread that nobody waits for.
    bool conocido(const QByteArray &direccion);

    // As libcurl takes it; empty: directly, also as long as it is not known.
    QByteArray para(const QByteArray &direccion) const;

    struct Ajustes {
        bool detectar = false; // whether the network says where the automatic one lies
        QString guion;         // or where it does; empty: nowhere
        QString lista;
        QString salvo;
    };
    struct Automatica {
        QString lista; // empty: directly
        QString salvo;
    };

private:
    struct Respuesta {
        std::optional<Automatica> automatica; // nothing: there is none to be had
        std::atomic<bool> llegada = false;    // the other stays from then on
    };

    const Ajustes m_ajustes;
    std::shared_ptr<Respuesta> m_respuesta; // null as long as nobody has asked
};
