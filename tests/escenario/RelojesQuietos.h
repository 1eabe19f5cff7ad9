// SPDX-License-Identifier: MIT
// Keeps the loader's timers from ticking by themselves while a test counts turns of the event loop:
// each tick of the quick one is a turn of its own, and on a busy computer there is time for some.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

// While it lives. They are started and stopped as ever, and their signals can be sent.
class RelojesQuietos : public QObject {
public:
    RelojesQuietos() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *objeto, QEvent *suceso) override
    {
        return suceso->type() == QEvent::Timer && objeto->parent()
               && objeto->parent()->inherits("frmCargador");
    }
};
