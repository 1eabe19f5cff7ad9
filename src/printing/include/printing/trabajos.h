// SPDX-License-Identifier: MIT
// The print jobs: six kinds of document are downloaded, stored and printed by one loop, a table
// row each; enrolment sheets, which are printed from the archive, stand beside it.
#pragma once

#include "pages/documento.h"
#include "pages/imagenes.h"

#include <QString>
#include <QStringView>

#include <array>
#include <span>

class PanelImpresion;
class Verbos;
struct Entorno;

// One downloading job. {id} in its texts is the first field of a row of its list.
struct FilaTrabajo {
    QStringView nombre{};    // the text of ComboTipo
    bool conPeriodo = false; // the period is asked for
    QStringView lista{};     // the list query's page
    QStringView separador{}; // of the fields of its rows
    FilaDocumento documento{};
    std::span<const Imagen> imagenes{}; // fetched after the loop
};

// All of them, in the order in which the kinds are compared.
extern const std::array<FilaTrabajo, 6> filasTrabajo;

// The job that prints what the archive holds already.
inline constexpr QStringView nombreMatriculas = u"Hoja Matricula";

// Runs the job of the kind, if there is one, to its end. Its checks show their messages on the
// panel; every other failure is passed over and the next document follows. What is handed in is
// borrowed for the call, during which the window's other handlers run.
void correrTrabajo(const QString &tipo, Entorno &entorno, PanelImpresion &panel, Verbos &verbos);
