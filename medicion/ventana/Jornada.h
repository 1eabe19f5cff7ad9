// SPDX-License-Identifier: MIT
// The work that is measured, done in the real window as its user does it: log in, look at the
// panels, press "Descargar", close the box at the end.
#pragma once

#include "Cuentas.h"
#include "Vigia.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>

class Form1;
class QWidget;

struct Encargo {
    QString base;              // the service's address
    QString autoridades;       // the certificate bundle; empty: the system's
    bool soloAbrir = false;    // up to the first showing of the window
    bool soloPaneles = false;  // log in and show each panel
    bool vigilar = false;      // watch the event loop
    bool pausasReales = false; // sleep them
    int alumnos = 0;           // of the school, for marks along the run; 0: no marks
    int hasta = 0;             // end after so many of the students' documents; 0: go on to the end
    double desde = 0;          // when the process was started, in seconds of consumo::ahora
};

class Jornada {
public:
    // All borrowed; `ventana` is shown already.
    Jornada(Form1 &ventana, const Encargo &encargo, Cuentas &cuentas);

    // Does it all and gives what was measured. With `hasta` it does not return: the result is
    // printed and the process ends.
    QJsonObject hacer();

    // Of each pause is told what is left of it when the window has been drawn in it. That drawing
    // costs a real run no time, since the pause goes on meanwhile, and is taken out with the pause.
    void contarPausa(std::chrono::nanoseconds queda);

private:
    QWidget *elemento(const char *nombre) const;
    void escribir(const char *nombre, const QString &texto) const;
    void pulsar(const char *nombre) const;
    double mostrarPanel(int indice);
    void alVer(QObject *objeto, QEvent *suceso);
    void alDescargar();
    void marcar(int hechas);
    double pared() const;
    QJsonObject tramo() const;
    QString haciendo() const;

    Form1 &m_ventana;
    const Encargo &m_encargo;
    Cuentas &m_cuentas;
    std::unique_ptr<Vigia> m_vigia;
    QJsonObject m_resultado;
    QJsonArray m_marcas;
    double m_empieza = 0;
    double m_cpuAntes = 0;
    int m_pausas = 0;
    double m_enPausas = 0; // seconds that were drawn in them
    int m_hechas = 0;      // of the students' documents
};
