// SPDX-License-Identifier: MIT
// parvanel-print-render: draws local pages as PDF.
//
//     parvanel-print-render [--papel ANCHOxALTO] [--margenes IZQ,ARRIBA,DER,ABAJO] IN.html OUT.pdf
//     parvanel-print-render --espera
//
// Lengths are hundredths of a millimetre. With --espera it starts the engine and waits for three
// lines on its standard input: the six lengths separated by blanks, the page, the PDF. When that is
// a socket it may answer there that the page is drawn and wait for three more; else it ends with
// its page, and by itself when the input ends first. Environment: see motor.h; answers: see
// salida.h.

#include "worker/render/Pasarela.h"
#include "worker/render/Serie.h"
#include "worker/render/casa.h"
#include "worker/render/motor.h"
#include "worker/render/salida.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>

#include <array>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

std::optional<QPageLayout> hoja(const QList<QByteArray> &largos)
{
    constexpr int cuantos = 6;
    if (largos.size() != cuantos)
        return {};
    std::array<double, cuantos> mm{};
    for (qsizetype i = 0; i < cuantos; ++i) {
        bool bien = false;
        mm[static_cast<std::size_t>(i)] = largos[i].toInt(&bien) / 100.0;
        if (!bien)
            return {};
    }
    if (mm[0] <= 0 || mm[1] <= 0)
        return {};
    const QPageSize papel(QSizeF(mm[0], mm[1]), QPageSize::Millimeter);
    return QPageLayout(papel, QPageLayout::Portrait, QMarginsF(mm[2], mm[3], mm[4], mm[5]),
                       QPageLayout::Millimeter);
}

std::optional<Pedido> pedido(const QList<QByteArray> &largos, const QByteArray &html,
                             const QByteArray &pdf)
{
    const auto conHoja = hoja(largos);
    // The engine takes a path with a NUL in it for an address that never ends to load.
    const bool conNombres =
        !html.isEmpty() && !pdf.isEmpty() && !html.contains('\0') && !pdf.contains('\0');
    if (!conHoja || !conNombres)
        return {};
    return Pedido{QFileInfo(QFile::decodeName(html)).absoluteFilePath(),
                  QFileInfo(QFile::decodeName(pdf)).absoluteFilePath(), *conHoja};
}

std::optional<Pedido> deArgumentos(QList<QByteArray> argumentos)
{
    QByteArray papel("21000x29700");
    QByteArray margenes("1000,1000,1000,1000");
    while (argumentos.size() > 2 && argumentos[0].startsWith("--")) {
        if (argumentos[0] == "--papel")
            papel = argumentos[1];
        else if (argumentos[0] == "--margenes")
            margenes = argumentos[1];
        else
            return {};
        argumentos.remove(0, 2);
    }
    if (argumentos.size() != 2)
        return {};
    return pedido(papel.split('x') + margenes.split(','), argumentos[0], argumentos[1]);
}

// Orderly destruction costs a third of the time that a page takes, and the PDF is on disk: leave.
[[noreturn]] void salir(const QString &carpeta, int codigo)
{
    casa::desalojar(carpeta);
    std::_Exit(codigo);
}

} // namespace

int main(int argc, char **argv)
{
    const QList<QByteArray> argumentos(argv + 1, argv + argc);
    const bool espera = argumentos == QList<QByteArray>{"--espera"};
    const auto pedida = espera ? std::nullopt : deArgumentos(argumentos);
    if (!espera && !pedida) {
        std::cerr << "uso: parvanel-print-render [--papel ANCHOxALTO]"
                     " [--margenes IZQ,ARRIBA,DER,ABAJO] IN.html OUT.pdf\n";
        return salida::malUso;
    }
    if (espera)
        prctl(PR_SET_PDEATHSIG, SIGKILL); // of no use without the worker that started it

    motor::limpiarEntorno();
    motor::limitarMemoria();
    const motor::Encargo encargo = motor::encargo();
    const QString carpeta = casa::mudar();
    auto &pasarela = *new Pasarela(encargo.origen); // its threads end with the process
    motor::prepararEntorno(pasarela.puerto());
    int sinArgumentos = 1; // the engine would read the command line too
    const QGuiApplication aplicacion(sinArgumentos, argv);
    Serie serie(encargo, pasarela, [](const auto &largos, const auto &html, const auto &pdf) {
        return pedido(largos.simplified().split(' '), html, pdf);
    });
    QObject::connect(&serie, &Serie::terminada, &serie,
                     [carpeta](int codigo) { salir(carpeta, codigo); });
    if (espera)
        serie.esperar();
    else
        serie.dibujar(*pedida);
    return QGuiApplication::exec();
}
