// SPDX-License-Identifier: MIT
// The download methods of the archive: one table row each, read by one loop. They are methods of
// the record lists (tcSalones::downSalones and the like).
#pragma once

#include "pages/documento.h"

#include <QString>
#include <QStringView>

#include <array>

struct FilaDescarga {
    QStringView titulo{};  // shown in estadoTS
    QStringView prefijo{}; // of each item's text in estadoHS
    FilaDocumento documento{};
};

// In the order of the run. The photos' row asks whether each exists.
namespace filasDescarga {

enum Cual {
    Salones,
    ConsolidadoN,
    ConsolidadoF,
    InfoFinal,
    Certificado,
    HojaMat,
    InfoAlumno,
    FotosAlumno,
    Cuantas
};

extern const std::array<FilaDescarga, Cuantas> todas;

// The address of a student's photo.
inline constexpr Plantilla direccionDeFoto = u"{base}/jup/images/{colegio}/{id}-alumno.jpg";

} // namespace filasDescarga

// The text of one item: "Descargando Salon (14): 6A - 3 de 12".
QString textoDescarga(QStringView prefijo, const QString &id, const QString &nombre, int posicion,
                      int cuantos);
