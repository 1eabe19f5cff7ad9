// SPDX-License-Identifier: MIT
#include "worker/impresora.h"

#include <array>
#include <cstdlib>
#include <cups/cups.h>
#include <fstream>
#include <functional>
#include <memory>

namespace {

struct Cierra {
    void operator()(http_t *http) const { httpClose(http); }
    void operator()(cups_dest_t *destino) const { cupsFreeDests(1, destino); }
    void operator()(ipp_t *ipp) const { ippDelete(ipp); }
};
using Conexion = std::unique_ptr<http_t, Cierra>;
using Destino = std::unique_ptr<cups_dest_t, Cierra>;
using Respuesta = std::unique_ptr<ipp_t, Cierra>;

constexpr auto noAtiende = "el servidor de impresión no atiende";

Conexion conectar(impresora::Falla &falla)
{
    // Left alone, libcups asks for a password on the terminal.
    cupsSetPasswordCB2([](const char *, http_t *, const char *, const char *,
                          void *) -> const char * { return nullptr; },
                       nullptr);
    constexpr int cancelable = 1;
    constexpr int milisegundos = 10000;
    Conexion http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(),
                               cancelable, milisegundos, nullptr));
    if (!http)
        // What errno holds by now is of the last thing tried, and tells a reader nothing.
        falla = {noAtiende, true};
    return http;
}

// Whether what was asked last got no answer. An answer that the library could not make sense of
// counts as none: to wait in vain costs time, to take a breach for a refusal costs the document.
bool sinRespuesta()
{
    const ipp_status_t estado = cupsLastError();
    return estado == IPP_STATUS_ERROR_INTERNAL || estado == IPP_STATUS_ERROR_SERVICE_UNAVAILABLE
           || estado == IPP_STATUS_ERROR_TIMEOUT;
}

std::string opcion(const cups_dest_t &destino, const char *nombre)
{
    const char *valor = cupsGetOption(nombre, destino.num_options, destino.options);
    return valor ? valor : "";
}

// Printers that were merely seen on the network are no choice of the user's.
bool instalada(const cups_dest_t &destino)
{
    const unsigned long tipo = std::strtoul(opcion(destino, "printer-type").c_str(), nullptr, 10);
    return !(tipo & CUPS_PRINTER_DISCOVERED);
}

Destino unicaInstalada(http_t *http)
{
    cups_dest_t *todos = nullptr;
    const int cuantos = cupsGetDests2(http, &todos);
    const cups_dest_t *unica = nullptr;
    int instaladas = 0;
    for (int i = 0; i < cuantos; ++i) {
        if (instalada(todos[i]) && !todos[i].instance) {
            unica = &todos[i];
            ++instaladas;
        }
    }
    Destino copia;
    if (instaladas == 1) {
        cups_dest_t *uno = nullptr;
        cupsCopyDest(const_cast<cups_dest_t *>(unica), 0, &uno);
        copia.reset(uno);
    }
    cupsFreeDests(cuantos, todos);
    return copia;
}

// What the queue itself says about paper. Asked for here because the library's own question for a
// default medium passes over queues without a driver and options set on the server.
Respuesta atributos(http_t *http, const cups_dest_t &destino)
{
    std::string uri = opcion(destino, "printer-uri-supported");
    if (uri.empty()) {
        std::array<char, HTTP_MAX_URI> armada{};
        httpAssembleURIf(HTTP_URI_CODING_ALL, armada.data(), static_cast<int>(armada.size()), "ipp",
                         nullptr, "localhost", 0, "/printers/%s", destino.name);
        uri = armada.data();
    }
    ipp_t *pregunta = ippNewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES);
    ippAddString(pregunta, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.c_str());
    ippAddString(pregunta, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    constexpr std::array<const char *, 6> pedidos{"media-default",
                                                  "media-col-default",
                                                  "media-left-margin-supported",
                                                  "media-top-margin-supported",
                                                  "media-right-margin-supported",
                                                  "media-bottom-margin-supported"};
    ippAddStrings(pregunta, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(pedidos.size()), nullptr, pedidos.data());
    return Respuesta(cupsDoRequest(http, pregunta, "/"));
}

int entero(ipp_t *coleccion, const char *nombre)
{
    ipp_attribute_t *atributo = ippFindAttribute(coleccion, nombre, IPP_TAG_INTEGER);
    return atributo ? ippGetInteger(atributo, 0) : 0;
}

// The default medium's margin; where it names none, the least that the printer can do, which is
// the first unless that is the borderless 0.
int borde(ipp_t *respuesta, ipp_t *colMedia, const char *nombre)
{
    if (colMedia && ippFindAttribute(colMedia, nombre, IPP_TAG_INTEGER))
        return entero(colMedia, nombre);
    const std::string admitidos = std::string(nombre) + "-supported";
    ipp_attribute_t *atributo = ippFindAttribute(respuesta, admitidos.c_str(), IPP_TAG_INTEGER);
    int menor = 0;
    for (int i = 0; atributo && i < ippGetCount(atributo); ++i) {
        const int valor = ippGetInteger(atributo, i);
        if (valor > 0 && (menor == 0 || valor < menor))
            menor = valor;
    }
    return menor;
}

// Nothing when the server went away over it.
std::optional<papel::Fuentes> fuentes(http_t *http, const cups_dest_t &destino)
{
    papel::Fuentes fuentes;
    fuentes.mediaUsuario = opcion(destino, "media") + ',' + opcion(destino, "PageSize");
    const Respuesta respuesta = atributos(http, destino);
    if (!respuesta && sinRespuesta())
        return {};
    if (!respuesta)
        return fuentes; // the locale settles it; whether the printer works shows when it is used
    if (ipp_attribute_t *media = ippFindAttribute(respuesta.get(), "media-default", IPP_TAG_ZERO)) {
        if (const char *nombre = ippGetString(media, 0, nullptr))
            fuentes.mediaCola = nombre;
    }
    ipp_attribute_t *porDefecto =
        ippFindAttribute(respuesta.get(), "media-col-default", IPP_TAG_BEGIN_COLLECTION);
    ipp_t *colMedia = porDefecto ? ippGetCollection(porDefecto, 0) : nullptr;
    ipp_attribute_t *medida =
        colMedia ? ippFindAttribute(colMedia, "media-size", IPP_TAG_BEGIN_COLLECTION) : nullptr;
    if (ipp_t *lados = medida ? ippGetCollection(medida, 0) : nullptr)
        fuentes.colMediaCola =
            papel::Medida{entero(lados, "x-dimension"), entero(lados, "y-dimension")};
    fuentes.bordes = {borde(respuesta.get(), colMedia, "media-left-margin"),
                      borde(respuesta.get(), colMedia, "media-top-margin"),
                      borde(respuesta.get(), colMedia, "media-right-margin"),
                      borde(respuesta.get(), colMedia, "media-bottom-margin")};
    return fuentes;
}

// Whether the server answers at all, whatever it says.
bool contesta(http_t *http)
{
    return Respuesta(cupsDoRequest(http, ippNewRequest(IPP_OP_CUPS_GET_DEFAULT), "/")) != nullptr;
}

// The library says of a server that went away under it that the printer does not exist. Only what
// is said twice of a server that answers in between and afterwards counts as said.
Destino hallar(http_t *http, const std::function<Destino()> &buscar, impresora::Falla &siNoEsta)
{
    constexpr int veces = 2;
    for (int vez = 0; vez < veces; ++vez) {
        if (Destino hallado = buscar())
            return hallado;
        if (!contesta(http)) {
            siNoEsta = {noAtiende, true};
            return {};
        }
    }
    return {};
}

enum class Suerte { Tomado, Perdido, Ajeno, SinRespuesta };

Respuesta estadoDeTrabajo(http_t *http, int trabajo)
{
    ipp_t *pregunta = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
    const std::string uri = "ipp://localhost/jobs/" + std::to_string(trabajo);
    ippAddString(pregunta, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri.c_str());
    ippAddString(pregunta, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    constexpr std::array<const char *, 3> pedidos{"job-state", "job-name", "number-of-documents"};
    ippAddStrings(pregunta, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(pedidos.size()), nullptr, pedidos.data());
    return Respuesta(cupsDoRequest(http, pregunta, "/jobs/"));
}

// What became of a job whose conversation broke off. The server counts a document once it has all
// of it; it may drop the documents of a finished job, but a completed one was printed. A number may
// have been given to somebody else's job by a server that forgot this one: then its title is
// another, or is hidden, as one's own never is.
Suerte suerteDe(http_t *http, int trabajo, const std::string &titulo)
{
    const Respuesta respuesta = estadoDeTrabajo(http, trabajo);
    if (!respuesta || ippGetStatusCode(respuesta.get()) >= IPP_STATUS_ERROR_BAD_REQUEST)
        return sinRespuesta() ? Suerte::SinRespuesta : Suerte::Perdido;
    ipp_attribute_t *nombre = ippFindAttribute(respuesta.get(), "job-name", IPP_TAG_ZERO);
    const char *suyo = nombre ? ippGetString(nombre, 0, nullptr) : nullptr;
    if (!suyo || titulo != suyo)
        return Suerte::Ajeno;
    ipp_attribute_t *estado = ippFindAttribute(respuesta.get(), "job-state", IPP_TAG_ENUM);
    const bool impreso = estado && ippGetInteger(estado, 0) == IPP_JSTATE_COMPLETED;
    return impreso || entero(respuesta.get(), "number-of-documents") > 0 ? Suerte::Tomado
                                                                         : Suerte::Perdido;
}

impresora::Falla noAceptado(const char *respuesta, bool ausente)
{
    return {std::string("la impresora no lo aceptó: ") + respuesta, ausente};
}

// Nothing when the server has taken it. The library's own operation for the end of a document tells
// a connection that was lost apart from an answer only by what was answered before.
std::optional<impresora::Falla> enviarDocumento(http_t *http, const std::string &cola, int trabajo,
                                                const std::string &titulo, std::istream &pdf)
{
    constexpr int ultimo = 1;
    http_status_t estado =
        cupsStartDocument(http, cola.c_str(), trabajo, titulo.c_str(), "application/pdf", ultimo);
    std::array<char, 32768> trozo{};
    while (estado == HTTP_STATUS_CONTINUE && pdf) {
        pdf.read(trozo.data(), trozo.size());
        estado = cupsWriteRequestData(http, trozo.data(), static_cast<std::size_t>(pdf.gcount()));
    }
    if (estado != HTTP_STATUS_CONTINUE)
        return estado > HTTP_STATUS_CONTINUE
                   ? noAceptado(httpStatus(estado), estado >= HTTP_STATUS_SERVER_ERROR)
                   : impresora::Falla{noAtiende, true};
    const Respuesta respuesta(cupsGetResponse(http, ("/printers/" + cola).c_str()));
    const bool negado = cupsLastError() >= IPP_STATUS_ERROR_BAD_REQUEST;
    if (negado)
        return noAceptado(cupsLastErrorString(), sinRespuesta());
    return respuesta ? std::nullopt : std::optional(impresora::Falla{noAtiende, true});
}

// An empty job would wait in the queue for a document that never comes.
void anular(http_t *http, const Impresora &destino, int trabajo)
{
    constexpr int yOlvidar = 1;
    [[maybe_unused]] const ipp_status_t
        descartado = // the server drops an empty job by itself, later
        cupsCancelJob2(http, destino.nombre.c_str(), trabajo, yOlvidar);
}

} // namespace

std::optional<Impresora> impresora::predeterminada(Falla &falla)
{
    const Conexion http = conectar(falla);
    if (!http)
        return {};
    const auto buscar = [&] {
        Destino suya(cupsGetNamedDest(http.get(), nullptr, nullptr));
        return suya ? std::move(suya) : unicaInstalada(http.get());
    };
    falla = {"no hay impresora predeterminada"};
    const Destino destino = hallar(http.get(), buscar, falla);
    if (!destino)
        return {};
    const auto delServidor = fuentes(http.get(), *destino);
    if (!delServidor) {
        falla = {noAtiende, true};
        return {};
    }
    return Impresora{destino->name, destino->instance ? destino->instance : "",
                     papel::elegir(*delServidor, papel::localizacionDelEntorno())};
}

int impresora::imprimir(const Impresora &destino, const Entrega &entrega,
                        const std::function<void(int)> &empezado, Falla &falla)
{
    std::ifstream pdf(entrega.pdf, std::ios::binary);
    if (!pdf) {
        falla = {"no se pudo leer el PDF"};
        return 0;
    }
    const Conexion http = conectar(falla);
    if (!http)
        return 0;
    if (entrega.previo > 0) {
        const Suerte suerte = suerteDe(http.get(), entrega.previo, entrega.titulo);
        if (suerte == Suerte::Tomado)
            return entrega.previo;
        if (suerte == Suerte::SinRespuesta) {
            falla = {noAtiende, true};
            return 0;
        }
        if (suerte == Suerte::Perdido) // somebody else's is left alone
            anular(http.get(), destino, entrega.previo);
    }
    const char *instancia = destino.instancia.empty() ? nullptr : destino.instancia.c_str();
    const auto buscar = [&] {
        return Destino(cupsGetNamedDest(http.get(), destino.nombre.c_str(), instancia));
    };
    falla = {"la impresora " + destino.nombre + " ya no está"};
    const Destino conOpciones = hallar(http.get(), buscar, falla);
    if (!conOpciones)
        return 0;
    const int trabajo = cupsCreateJob(http.get(), destino.nombre.c_str(), entrega.titulo.c_str(),
                                      conOpciones->num_options, conOpciones->options);
    if (trabajo == 0) {
        falla = noAceptado(cupsLastErrorString(), sinRespuesta());
        return 0;
    }
    empezado(trabajo);
    const auto rechazo = enviarDocumento(http.get(), destino.nombre, trabajo, entrega.titulo, pdf);
    if (!rechazo)
        return trabajo;
    falla = *rechazo;
    if (!falla.ausente)
        anular(http.get(), destino, trabajo);
    return 0;
}
