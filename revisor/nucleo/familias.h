// SPDX-License-Identifier: MIT
// The kinds of documents in an archive, one row each: where they stand, whose they are, and what
// a download does to their pages.
#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>
#include <span>

enum class De { Colegio, Salon, Alumno, Foto, Lote };

// An address of the service, without its scheme and host, that a download makes local.
struct Localizada {
    QStringView direccion; // "{colegio}" stands for the school's id
    Qt::CaseSensitivity letras = Qt::CaseInsensitive;
    QStringView enSuLugar{}; // of those of which only the first becomes local: what it becomes
};

struct Familia {
    QStringView carpeta{}; // below the archive, with "/": "archivos/infoFinal"; empty: the top
    QStringView nombre{};  // for showing
    De de = De::Colegio;
    QStringView guion{}; // the script at the end of each page; may be empty
    std::span<const Localizada> localizadas{};
};

namespace familias {

enum Cual {
    Portada,
    Salones,
    ConsolidadoN,
    ConsolidadoF,
    InfoFinal,
    Certificados,
    Matriculas,
    InfoAlumnos,
    Fotos,
    Boletines1,
    Boletines2,
    Boletines3,
    Boletines4,
    PazYSalvos,
    Planillas,
    Observador,
    Cuantas
};

extern const std::array<Familia, Cuantas> todas;

// The folders of the classrooms' pages, and of the students'.
inline constexpr std::array<Cual, 3> deSalon = {Salones, ConsolidadoN, ConsolidadoF};
inline constexpr std::array<Cual, 4> deAlumno = {InfoFinal, Certificados, Matriculas, InfoAlumnos};

// A document's place: its kind and the id in its name.
struct Lugar {
    Cual familia;
    QString id;
};

// Of a path in the archive ("archivos/infoFinal/1001.html"), whatever its letter case; nothing
// when it is no document's.
std::optional<Lugar> lugarDe(const QString &ruta);

// The path of a document of that kind.
QString rutaDe(Cual familia, const QString &id);

} // namespace familias
