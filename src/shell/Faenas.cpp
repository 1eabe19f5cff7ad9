// SPDX-License-Identifier: MIT
#include "shell/Faenas.h"
#include "platform/Vigilia.h"

#include <chrono>

using namespace std::chrono_literals;

struct Faenas::Una {
    Una(const QString &motivo, Avance deEsta) : vigilia(motivo), avance(std::move(deEsta)) {}

    const Vigilia vigilia;
    const Avance avance;
};

Faenas::Faenas()
{
    m_reloj.setInterval(250ms);
    connect(&m_reloj, &QTimer::timeout, this, &Faenas::mirar);
}

Faenas::~Faenas() = default;

Faena Faenas::empezar(const QString &motivo, const Avance &avance)
{
    const auto esta = m_enCurso.emplace(m_enCurso.end(), motivo, avance);
    m_reloj.start();
    mirar();
    return {&*esta, [this, esta](const Una *) {
                m_enCurso.erase(esta);
                mirar();
            }};
}

void Faenas::mirar()
{
    if (m_enCurso.empty()) {
        m_reloj.stop();
        m_barra.quitar();
        return;
    }
    m_barra.mostrar(static_cast<int>(m_enCurso.back().avance() * 100));
}
