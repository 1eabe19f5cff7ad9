// SPDX-License-Identifier: MIT
// The demonstration school: names, classrooms, subjects, grades and settings, generated from a
// seed and a size. The same seed and size give the same school on every machine.
#pragma once

#include <QList>
#include <QMap>
#include <QString>

struct TamanoEscuela {
    unsigned semilla = 2010;
    int salones = 3;         // classrooms
    int alumnosPorSalon = 8; // students in each
    int materias = 8;        // subjects taught
};

struct CuentaDemo {
    QString usuario;
    QString clave;
    QString rol; // "SECRETARIA", "SUPERADMIN", "DOCENTE"
};

struct SalonDemo {
    QString id;
    QString nombre;
    int grado = 0;    // 1 to 11
    QString sede;     // the site that it belongs to
    QString director; // the teacher in charge
};

// The last subject of a school that has any is NOTADEFINITIVA: a column heading of the
// consolidated grades that is kept as a subject so that its label is among the others. Nobody
// teaches it, and no student has grades in it.
struct MateriaDemo {
    QString id;
    QString nombre;
    QString area;
    QString docente;
    int horas = 0; // a week
};

struct AlumnoDemo {
    QString id;
    QString nombre;
    QString salon; // the classroom's id
    bool conFoto = true;
    QList<QList<double>> notas; // [subject][period 0..3], 1.0 to 5.0
    QList<int> fallas;          // absences, by subject
    bool mujer = false;
    QString documento;  // number of the identity card
    QString nacimiento; // "14 de marzo de 1999"
    QString lugar;      // of birth
    QString acudiente;  // the adult in charge
    QString direccion;
    QString telefono;
};

struct Escuela {
    QString idColegio;              // "123"
    QMap<QString, QString> ajustes; // campo -> value: "ANOACTUAL", "USABOLETA2", "RECTOR", ...
    QList<CuentaDemo> cuentas;      // secretary first
    QList<SalonDemo> salones;
    QList<MateriaDemo> materias;
    QList<AlumnoDemo> alumnos;
};

Escuela generarEscuela(const TamanoEscuela &tamano);
