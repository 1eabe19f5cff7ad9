// SPDX-License-Identifier: MIT
// The real window, put together as the program is, for a service and a
// certificate bundle of the caller's choice, with the pauses counted instead of slept. It works
// by itself and prints what it measured as one line of JSON.
//
//   bench-ventana BASE [--autoridades FILE] [--abrir | --paneles] [--vigilar] [--pausas-reales]
//                 [--alumnos N] [--hasta N] [--desde SECONDS]
//
// See Encargo for what they mean. The archive goes below HOME.
#include "Jornada.h"
#include "consumo.h"
#include "estilo/Estilo.h"
#include "estilo/Logotipo.h"
#include "platform/HttpClient.h"
#include "platform/pausa.h"
#include "shell/Form1.h"
#include "shell/Montaje.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QJsonDocument>
#include <QLibraryInfo>
#include <QLocale>
#include <QTimer>
#include <QTranslator>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

Encargo leerEncargo(const QStringList &argumentos)
{
    QCommandLineParser lector;
    lector.addPositionalArgument(u"base"_s, QString());
    const QStringList conValor = {u"autoridades"_s, u"alumnos"_s, u"hasta"_s, u"desde"_s};
    for (const QString &nombre : conValor)
        lector.addOption({nombre, QString(), nombre});
    const QStringList sinValor = {u"abrir"_s, u"paneles"_s, u"vigilar"_s, u"pausas-reales"_s};
    for (const QString &nombre : sinValor)
        lector.addOption(QCommandLineOption(nombre));
    lector.process(argumentos);
    return {.base = lector.positionalArguments().value(0),
            .autoridades = lector.value(u"autoridades"_s),
            .soloAbrir = lector.isSet(u"abrir"_s),
            .soloPaneles = lector.isSet(u"paneles"_s),
            .vigilar = lector.isSet(u"vigilar"_s),
            .pausasReales = lector.isSet(u"pausas-reales"_s),
            .alumnos = lector.value(u"alumnos"_s).toInt(),
            .hasta = lector.value(u"hasta"_s).toInt(),
            .desde = lector.value(u"desde"_s).toDouble()};
}

// Seconds from the start of the process until the window has been drawn.
double esperarDibujo(Form1 &ventana, Cuentas &cuentas, double desde)
{
    bool dibujada = false;
    cuentas.alVer = [&](QObject *objeto, QEvent *suceso) {
        dibujada = dibujada || (objeto == &ventana && suceso->type() == QEvent::Paint);
    };
    while (!dibujada)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return consumo::ahora() - desde;
}

} // namespace

int main(int cuantos, char *argumentos[])
{
    QApplication aplicacion(cuantos, argumentos);
    QApplication::setStyle(new Estilo);
    QApplication::setApplicationName(u"Parvanel"_s);
    QApplication::setWindowIcon(Logotipo::icono());
    const Encargo encargo = leerEncargo(QApplication::arguments());
    QTranslator traductor;
    if (traductor.load(QLocale(QLocale::Spanish), u"qtbase"_s, u"_"_s,
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&traductor);

    std::unique_ptr<Jornada> jornada;
    Cuentas cuentas;
    Montaje montaje({.ServiceBase = encargo.base,
                     .autoridades = encargo.autoridades.isEmpty()
                                        ? HttpClient::autoridadesDelSistema()
                                        : encargo.autoridades,
                     .pausa =
                         [&](std::chrono::nanoseconds queda) {
                             jornada->contarPausa(queda);
                             if (encargo.pausasReales)
                                 pausa(queda);
                         },
                     .terminar =
                         [] {
                             std::_Exit(EXIT_SUCCESS);
                         }});
    Form1 &ventana = montaje.ventana();
    ventana.show();
    const double arranque = esperarDibujo(ventana, cuentas, encargo.desde);
    jornada = std::make_unique<Jornada>(ventana, encargo, cuentas);
    QTimer::singleShot(0, &ventana, [&] {
        QJsonObject resultado = jornada->hacer();
        resultado[u"arranque"_s] = arranque;
        std::puts(QJsonDocument(resultado).toJson(QJsonDocument::Compact).constData());
        std::fflush(stdout);
        std::_Exit(EXIT_SUCCESS);
    });
    return QApplication::exec();
}
