// SPDX-License-Identifier: MIT
// Archives made by the program itself, of the demonstration school or of one drawn at random. The
// service's replies come from the demonstration's own pages, without a network between.
#pragma once

#include "demostracion/Escuela.h"
#include "demostracion/rutas.h"
#include "escenario/HttpInmediato.h"
#include "revisor/nombres.h"

#include <QByteArray>
#include <QRandomGenerator>
#include <QString>

#include <filesystem>
#include <functional>
#include <optional>

// Odd ids, accents, classrooms without students, 0 to 50 students in all.
Escuela escuelaAlAzar(QRandomGenerator &azar);

class EscuelaDePrueba {
public:
    explicit EscuelaDePrueba(Escuela escuela);

    // What the service says instead of its own answer to a request for that target; nothing: its
    // own. An answer that is nothing itself is a request that failed.
    using Torcer =
        std::function<std::optional<std::optional<QByteArray>>(const QByteArray &destino)>;

    // Runs the download below the folder that stands for C:\, and gives the archive's folder.
    std::filesystem::path descargar(const QString &personal, const Torcer &torcer = {});
    // The same of all print jobs, for every classroom that has a number.
    void imprimir(const QString &personal);

    const Escuela escuela;

private:
    std::optional<QByteArray> responder(const QByteArray &direccion);

    demo::Rutas m_rutas;
    Torcer m_torcer;
    HttpInmediato m_http;
};

QByteArray leido(const std::filesystem::path &ruta);
void escrito(const std::filesystem::path &ruta, const QByteArray &bytes);
