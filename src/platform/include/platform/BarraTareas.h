// SPDX-License-Identifier: MIT
// The program's button on the desktop's task bar.
#pragma once

// Tells how much of a job is done, where the task bar shows such a thing; elsewhere it does
// nothing, and nothing says so. The desktop is told and never waited for. The program is known
// there by its desktop file's name, which must be set by the first call; an application must exist.
class BarraTareas {
public:
    // Shows that so many hundredths are done, from 0 to 100. A number that is shown already costs
    // nothing.
    void mostrar(int centesimas);
    // Shows no progress any more.
    void quitar();

private:
    int m_vistas = ninguna; // hundredths that are shown

    static constexpr int ninguna = -1;
};
