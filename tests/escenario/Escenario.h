// SPDX-License-Identifier: MIT
// What tests of the program's procedures stand on: the demonstration school as a real service on
// loopback, a drive C in a temporary folder, the session of its school, and progress elements
// that remember what was written to them. Only the pause is a pretence: it notes its length.
#pragma once

#include "demostracion/ServicioDemo.h"
#include "escenario/Historia.h"
#include "service/Entorno.h"

#include <QStringList>
#include <QTemporaryDir>

// A bar that keeps a history: "max 3", "0", "1". The common one has the bar's name before each.
class BarraAnotada : public Barra {
public:
    BarraAnotada(QString nombre, Historia &comun) : m_nombre(std::move(nombre)), m_comun(comun) {}

    int valor() const override { return m_valor; }
    void ponerValor(int valor) override;
    void ponerMaximo(int maximo) override;

    int maximo = 100;
    QStringList historia;

private:
    void anotar(const QString &suceso);

    int m_valor = 0;
    QString m_nombre;
    Historia &m_comun;
};

class RotuloAnotado : public Rotulo {
public:
    RotuloAnotado(QString nombre, Historia &comun) : m_nombre(std::move(nombre)), m_comun(comun) {}

    void ponerTexto(const QString &texto) override;
    QStringList historia;

private:
    QString m_nombre;
    Historia &m_comun;
};

class Escenario {
public:
    explicit Escenario(const TamanoEscuela &tamano = pequena());

    // One classroom, two students, three subjects.
    static TamanoEscuela pequena() { return {2010, 1, 2, 3}; }

    // The targets asked for so far, without their cache-busting numbers, as in Historia.
    QStringList destinos() const;

    // Puts an answer in place of the service's own for targets that contain the fragment.
    void responder(const QByteArray &fragmento, const QByteArray &cuerpo, int veces = -1);

    // A file of the archive, by its native path below the archive root; null when there is none.
    QByteArray leer(const QString &ruta) const;
    bool existe(const QString &ruta) const;
    QStringList listar(const QString &carpeta) const; // files and folders, sorted
    QString nativa(const QString &ruta) const;

    ServicioDemo demo;
    Historia historia{demo}; // requests, pauses ("pausa 500") and what the elements are given
    QTemporaryDir personal;
    HttpClient http;
    DriveC disco;
    Azar azar;
    QList<std::chrono::milliseconds> pausas;
    Module1 sesion;
    Progreso progreso;
    Entorno entorno;

    BarraAnotada barra1{QStringLiteral("barra1"), historia};
    BarraAnotada barra2{QStringLiteral("barra2"), historia};
    RotuloAnotado estadoTS{QStringLiteral("estadoTS"), historia};
    RotuloAnotado estadoHS{QStringLiteral("estadoHS"), historia};
};
