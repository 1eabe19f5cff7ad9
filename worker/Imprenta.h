// SPDX-License-Identifier: MIT
// The worker's loop: takes paths in, has pages drawn ahead, hands the PDFs over in order.
//
// What fails on nobody's account is made up for: a page whose engine died is drawn once more, and
// documents that the print server was not there to take wait for it (Ausencia.h). What the page or
// the server itself says no to is logged and done with.
//
// It never blocks but in esperar(), so that whoever writes the paths never does either: drawing
// and talking to the print server happen in other processes, watched by deadlines.
#pragma once

#include "worker/Ausencia.h"
#include "worker/Cola.h"
#include "worker/Dibujante.h"
#include "worker/Encargo.h"
#include "worker/Lineas.h"
#include "worker/Registro.h"
#include "worker/Titulos.h"
#include "worker/impresora.h"
#include "worker/opciones.h"

#include <csignal>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

class Imprenta {
public:
    // `entrada` is a non-blocking descriptor; `dibujador` the renderer's program; `carpeta` takes
    // the PDFs between drawing and printing.
    Imprenta(int entrada, std::filesystem::path dibujador, std::filesystem::path carpeta,
             Registro registro, const Opciones &opciones);

    // Until the input has ended and every document of it is printed or logged as failed, or until
    // `interrumpido` is set by a signal handler. `senales` is the mask to wait under.
    void trabajar(const sigset_t &senales, const volatile std::sig_atomic_t &interrumpido);

private:
    using Reloj = std::chrono::steady_clock;

    struct Mesa { // a renderer and the document it has
        std::unique_ptr<Dibujante> dibujante;
        std::optional<Cola::Turno> turno;
        Reloj::time_point desde; // when it got the document
    };

    bool avanzar(); // one round of the steps below; false when nothing changed
    bool prepararSiguiente();
    bool darADibujar(const Cola::Documento &documento);
    bool sinDibujante(Cola::Turno turno);
    bool despacharPrimero();
    bool buscarImpresora();
    bool entregar(const Cola::Documento &primero);
    bool encargar(const Encargo::Trabajo &trabajo);
    bool abrirMesa();
    bool atascadasMenos(const Mesa *una) const;
    void cerrarMesasOciosas();

    void esperar(const sigset_t &senales, Reloj::time_point mirado);
    void leerEntrada();
    void revisarMesas();
    std::optional<Dibujante::Fin> finDe(Mesa &mesa, Reloj::time_point ahora) const;
    void concluirDibujo(Cola::Turno turno, Dibujante::Fin fin);
    void revisarEncargo();
    void concluirEncargo(const impresora::Contestacion &dicho);
    void faltaServidor(const std::string &motivo);

    std::filesystem::path pdfDe(Cola::Turno turno) const;
    Reloj::time_point proximoTope(Reloj::time_point mirado) const;

    int m_entrada;
    bool m_abierta = true;
    std::filesystem::path m_dibujador;
    std::filesystem::path m_carpeta;
    Registro m_registro;
    Titulos m_titulos;
    Opciones m_opciones;

    Lineas m_lineas;
    Cola m_cola;
    std::vector<Mesa> m_mesas;
    int m_arranquesFallidos = 0;          // renderers in a row that ended before they had a page
    std::unique_ptr<Encargo> m_encargo;   // looking for the printer, or printing the head
    std::optional<Impresora> m_impresora; // known while a batch lasts
    Ausencia m_ausencia;                  // of the print server
    Reloj::time_point m_proximoArranque;  // of a renderer, after one that could not be started
    Reloj::time_point m_ultimaActividad;
};
