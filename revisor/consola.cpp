// SPDX-License-Identifier: MIT
#include "consola.h"

#include "opciones.h"
#include "revisor/comprobacion.h"
#include "revisor/copia.h"
#include "revisor/informe.h"

#include <QSaveFile>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <stop_token>
#include <system_error>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace consola {

namespace {

// Set by a signal, and by nothing else: Ctrl+C ends the work as "Detener" does, so that half a
// copy does not stay behind.
volatile std::sig_atomic_t interrumpido = 0;

void alInterrumpir(int senal)
{
    interrumpido = 1;
    // The second time it ends the process, whatever that is at.
    static_cast<void>(std::signal(senal, SIG_DFL));
}

void atenderInterrupciones()
{
    for (const int senal : {SIGINT, SIGTERM}) {
        if (std::signal(senal, alInterrumpir) == SIG_IGN)
            static_cast<void>(std::signal(senal, SIG_IGN)); // as whoever started it wanted
    }
}

// Both ways of asking to stop, the signal's looked at whenever something has been done.
class Parada {
public:
    std::stop_token parar() const { return m_fuente.get_token(); }
    void mirar()
    {
        if (interrumpido != 0)
            static_cast<void>(m_fuente.request_stop()); // asked for before is as good
    }

private:
    std::stop_source m_fuente;
};

bool escribir(std::FILE *salida, const QByteArray &texto)
{
    const auto largo = static_cast<std::size_t>(texto.size());
    return std::fwrite(texto.constData(), 1, largo, salida) == largo && std::fflush(salida) == 0;
}

// With the status that stands for what was done, or another when nobody could be told of it.
int decir(const QByteArray &texto, Salida salida)
{
    return escribir(stdout, texto) ? salida : std::max(salida, Ilegible);
}

int quejarse(const QString &texto, Salida salida)
{
    // With no place to complain there is nobody to tell; the status says it.
    static_cast<void>(escribir(stderr, "parvanel-revisor: " + texto.toUtf8() + '\n'));
    return salida;
}

QString programa()
{
    return u"parvanel-revisor " PARVANEL_VERSION ""_s;
}

Salida salidaDe(const Resultado &resultado)
{
    switch (resultado.veredicto) {
    case Veredicto::Completo:
        return Entero;
    case Veredicto::FaltanDocumentos:
        return ConHallazgos;
    case Veredicto::NoEsHistorico:
    case Veredicto::NoSeLee:
    case Veredicto::Detenida:
        break;
    }
    return Ilegible;
}

// Nothing is ever written into an archive, a report of it included.
bool quedaDentro(const fs::path &archivo, const std::vector<fs::path> &carpetas)
{
    std::error_code error;
    const fs::path real = fs::weakly_canonical(fs::absolute(archivo, error), error);
    return std::any_of(carpetas.begin(), carpetas.end(), [&](const fs::path &carpeta) {
        for (fs::path madre = real.parent_path(); madre.has_relative_path();
             madre = madre.parent_path()) {
            if (fs::equivalent(madre, carpeta, error))
                return true;
        }
        return false;
    });
}

QString texto(const fs::path &ruta)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(ruta.u8string().c_str()));
}

int guardarPagina(const Revisar &orden, const QByteArray &pagina, Salida salida)
{
    if (quedaDentro(orden.html, orden.carpetas))
        return quejarse(u"El informe no puede quedar dentro del histórico."_s, Ilegible);
    // Saving puts a new file in place of what has the name: never of a device or a pipe.
    std::error_code error;
    const bool otraCosa = fs::exists(orden.html, error) && !fs::is_regular_file(orden.html, error);
    QSaveFile archivo(texto(orden.html));
    if (otraCosa || !archivo.open(QIODevice::WriteOnly) || archivo.write(pagina) != pagina.size()
        || !archivo.commit())
        return quejarse(u"No se pudo guardar el informe en "_s + texto(orden.html), Ilegible);
    return salida;
}

int mostrar(const Revisar &orden, const QList<Resultado> &resultados, Salida salida)
{
    const informe::Sello sello = {.programa = programa(), .cuando = QDateTime::currentDateTime()};
    if (orden.forma == Revisar::Forma::Json)
        return decir(informe::enJson(resultados, sello), salida);
    QString palabras;
    for (const Resultado &resultado : resultados) {
        if (orden.forma == Revisar::Forma::Texto)
            palabras += (palabras.isEmpty() ? u""_s : u"\n"_s) + informe::enTexto(resultado);
        else
            palabras += informe::renglon(resultado) + u'\n';
    }
    if (orden.forma == Revisar::Forma::Html) {
        const int guardada = guardarPagina(orden, informe::enHtml(resultados, sello), salida);
        if (guardada != salida)
            return guardada;
    }
    return decir(palabras.toUtf8(), salida);
}

int hacer(const Revisar &orden)
{
    Parada parada;
    QList<Resultado> resultados;
    Salida peor = Entero;
    for (const fs::path &carpeta : orden.carpetas) {
        parada.mirar();
        resultados.append(revisar(
            carpeta, [&](std::size_t, std::size_t) { parada.mirar(); }, parada.parar()));
        peor = std::max(peor, salidaDe(resultados.last()));
    }
    return mostrar(orden, resultados, peor);
}

QString motivoDe(copia::Omitido::Motivo motivo)
{
    switch (motivo) {
    case copia::Omitido::Motivo::Enlace:
        return u"es un acceso que lleva a otro lugar"_s;
    case copia::Omitido::Motivo::Especial:
        return u"no es un archivo"_s;
    case copia::Omitido::Motivo::Resto:
        return u"es el resto de una descarga interrumpida"_s;
    }
    return {};
}

int hacer(const Copiar &orden)
{
    Parada parada;
    const copia::Guardada guardada = copia::guardar(
        {.carpeta = orden.carpeta,
         .destino = orden.destino,
         .reemplazar = orden.reemplazar,
         .cuando = QDateTime::currentDateTime(),
         .programa = programa()},
        [&](qint64, qint64) { parada.mirar(); }, parada.parar());
    if (guardada.final != copia::Guardada::Final::Hecha)
        return quejarse(informe::legible(guardada.texto), Ilegible);
    QString palabras = informe::legible(guardada.texto) + u'\n';
    Salida salida = Entero;
    for (const copia::Omitido &omitido : guardada.omitidos) {
        palabras += u"  Quedó fuera, porque %1: %2\n"_s.arg(motivoDe(omitido.motivo),
                                                            informe::legible(omitido.nombre));
        if (omitido.motivo != copia::Omitido::Motivo::Resto)
            salida = ConHallazgos;
    }
    return decir(palabras.toUtf8(), salida);
}

QString palabraDe(copia::Diferencia::Clase clase)
{
    switch (clase) {
    case copia::Diferencia::Clase::Cambiado:
        return u"Cambió: "_s;
    case copia::Diferencia::Clase::Falta:
        return u"Falta:  "_s;
    case copia::Diferencia::Clase::Sobra:
        return u"Sobra:  "_s;
    }
    return {};
}

int hacer(const Comprobar &orden)
{
    using enum copia::Comprobacion::Veredicto;
    Parada parada;
    const copia::Comprobacion comprobacion = copia::comprobar(
        orden.ruta, [&](qint64, qint64) { parada.mirar(); }, parada.parar());
    if (comprobacion.veredicto != Intacta && comprobacion.veredicto != Distinta)
        return quejarse(informe::legible(comprobacion.texto), Ilegible);
    QString palabras = comprobacion.texto + u'\n';
    for (const copia::Diferencia &diferencia : comprobacion.diferencias)
        palabras +=
            u"  "_s + palabraDe(diferencia.clase) + informe::legible(diferencia.nombre) + u'\n';
    return decir(palabras.toUtf8(), comprobacion.veredicto == Intacta ? Entero : ConHallazgos);
}

int hacer(const Ayuda & /*orden*/)
{
    return decir(ayuda().toUtf8(), Entero);
}

int hacer(const Version & /*orden*/)
{
    return decir(programa().toUtf8() + '\n', Entero);
}

int hacer(const MalUso &orden)
{
    return quejarse(informe::legible(orden.motivo) + u" Vea parvanel-revisor --ayuda"_s,
                    UsoEquivocado);
}

} // namespace

int correr(const std::vector<std::string> &argumentos)
{
    atenderInterrupciones();
    // Before the review has threads; copying and proving say so themselves if it cannot be had.
    static_cast<void>(copia::nombresEnUtf8());
    return std::visit([](const auto &orden) { return hacer(orden); }, leer(argumentos));
}

} // namespace consola
