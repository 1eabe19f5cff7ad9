// SPDX-License-Identifier: MIT
// The jobs that the window is at, as the rest of the desktop is told of them: an archive run, a
// print job, the one begun within the other.
#pragma once

#include "platform/BarraTareas.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <list>
#include <memory>

// How much of a job is done, from 0 to 1; asked now and then while the job lasts.
using Avance = std::function<double()>;
// A job that goes on until this is destroyed.
using Faena = std::shared_ptr<void>;
// Begins one. `motivo` is what it does, a sentence in Spanish, shown to whoever would end the
// session meanwhile.
using EmpezarFaena = std::function<Faena(const QString &motivo, const Avance &avance)>;

// While there is a job the computer stays awake, and the task bar shows how much of it is done: of
// the innermost one, since those around it stand still. The jobs are looked at some times a second,
// so that they tell nobody of what they do. Must outlive them.
class Faenas : public QObject {
    Q_OBJECT
public:
    Faenas();
    ~Faenas() override;

    Faena empezar(const QString &motivo, const Avance &avance);

private:
    struct Una;

    void mirar();

    std::list<Una> m_enCurso; // the innermost last
    BarraTareas m_barra;
    QTimer m_reloj;
};
