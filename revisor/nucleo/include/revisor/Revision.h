// SPDX-License-Identifier: MIT
// The review of one archive: a folder goes in, what it holds and what it lacks comes out. It only
// reads: nothing is written, no script of a page runs, no connection is opened, and no link is
// followed that leads out of the folder.
#pragma once

#include "revisor/reglas.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <stop_token>

// One thing that was found. Texts are for showing: a file's name that is no valid text is shown
// as near as can be. What is not known is empty.
struct Hallazgo {
    const Regla *regla = nullptr; // a row of reglas::todas, which lives as long as the program
    QString archivo{};   // its path in the archive, with "/": "archivos/fotos/7-alumno.jpg"
    QString idPersona{}; // the student concerned
    QString persona{};   // by name where a page tells it, else the id
    QString idSalon{};   // the classroom concerned: the student's own, or the page's
    QString salon{};     // by name where a page tells it, else the id
    QString detalle{};   // what is particular to this one, in Spanish: which value, what link
    // Of how many of a kind it is one: pages that show the same, links of the page, files of the
    // folder.
    int veces = 1;
};

enum class Veredicto {
    Completo,         // nothing but remarks
    FaltanDocumentos, // something is missing or damaged
    NoEsHistorico,    // a folder that holds no archive
    NoSeLee,          // no such folder, or one that cannot be read
    Detenida,         // asked to stop before the end: nothing is said of the archive
};

// The documents of one kind: "Informes finales". Whatever only print jobs make has nothing
// expected of it: `esperados` is then what is there.
struct Seccion {
    QString nombre;  // for showing
    QString carpeta; // "archivos/infoFinal"; empty for the front page
    int esperados = 0;
    int hay = 0;
    int buenos = 0; // of those that are there
};

struct Resultado {
    Veredicto veredicto = Veredicto::NoSeLee;
    std::filesystem::path carpeta; // as it was given
    QString nombre;                // the folder's own: "123-2010"
    QList<Hallazgo> hallazgos;     // in the order of the rules, then by classroom, person and file
    QList<Seccion> secciones;      // in the order of a download
    int personas = 0;              // students that the archive knows of
    int personasConFaltas = 0;     // of them, those of whom something is missing or damaged
    int salones = 0;
    int salonesConFaltas = 0;
    int fotos = 0;            // photos that are there
    int archivos = 0;         // files that are there, of any kind
    qint64 bytes = 0;         // their lengths together
    QDateTime desde;          // the oldest file of the last download; invalid when nothing tells
    QDateTime hasta;          // its newest file
    bool fechasUtiles = true; // false: a copy whose time stamps say nothing of the download

    int cuantos(Gravedad gravedad) const;
};

// Called with what is done and what there is to do, never more often than a screen is drawn and
// at the end, from any of the review's threads but never from two at once.
using Avance = std::function<void(std::size_t hechos, std::size_t total)>;

// Reviews the archive in `carpeta`. Uses as many threads as there are processors, at most four,
// and returns when all have ended; what fails is a finding or the verdict, nothing is thrown.
// Asking `parar` to stop ends it within the reading of one file.
Resultado revisar(const std::filesystem::path &carpeta, const Avance &avance = {},
                  const std::stop_token &parar = {});
