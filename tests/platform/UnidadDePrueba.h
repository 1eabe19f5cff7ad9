// SPDX-License-Identifier: MIT
// A drive C of the test's own, for the test classes that try one: a home folder with an empty
// archive root in it, new for each test.
#pragma once

#include "CarpetaPersonal.h"
#include "platform/DriveC.h"

#include <memory>

class UnidadDePrueba {
protected:
    void empezar()
    {
        m_casa = std::make_unique<CarpetaPersonal>();
        if (!m_casa->hacerCarpeta(QStringLiteral("Quorvela")))
            qFatal("no archive root");
        m_disco = std::make_unique<DriveC>(m_casa->ruta());
    }
    void acabar()
    {
        m_disco.reset();
        m_casa.reset();
    }

    std::unique_ptr<CarpetaPersonal> m_casa;
    std::unique_ptr<DriveC> m_disco;
};
