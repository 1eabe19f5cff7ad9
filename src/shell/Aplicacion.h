// SPDX-License-Identifier: MIT
// The application of the program's windows. Nobody, the library included, sees a password's keys
// before it: what looks at the application's events may put itself first at any time.
#pragma once

#include "ClaveVelada.h"

#include <QAccessible>
#include <QApplication>

class Aplicacion : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject *objeto, QEvent *suceso) override
    {
        return m_clave.atender(objeto, suceso) || QApplication::notify(objeto, suceso);
    }

private:
    ClaveVelada m_clave{&QAccessible::isActive};
};
