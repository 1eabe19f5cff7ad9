#include "worker/impresora.h"

#include <array>
#include <cstdlib>
#include <cups/cups.h>
#include <memory>
#include <sstream>

namespace {

struct Cierra {
    void operator()(http_t *http) const { httpClose(http); }
    void operator()(cups_dest_t *destino) const { cupsFreeDests(1, destino); }
    void operator()(ipp_t *ipp) const { ippDelete(ipp); }
};
using Conexion = std::unique_ptr<http_t, Cierra>;
using Destino = std::unique_ptr<cups_dest_t, Cierra>;
using Respuesta = std::unique_ptr<ipp_t, Cierra>;

Conexion conectar(std::string &motivo)
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
        motivo = "el servidor de impresión no atiende";
    return http;
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

papel::Fuentes fuentes(http_t *http, const cups_dest_t &destino)
{
    papel::Fuentes fuentes;
    fuentes.mediaUsuario = opcion(destino, "media") + ',' + opcion(destino, "PageSize");
    const Respuesta respuesta = atributos(http, destino);
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

} // namespace

std::optional<Impresora> impresora::predeterminada(std::string &motivo)
{
    const Conexion http = conectar(motivo);
    if (!http)
        return {};
    Destino destino(cupsGetNamedDest(http.get(), nullptr, nullptr));
    if (!destino)
        destino = unicaInstalada(http.get());
    if (!destino) {
        motivo = "no hay impresora predeterminada";
        return {};
    }
    return Impresora{destino->name, destino->instance ? destino->instance : "",
                     papel::elegir(fuentes(http.get(), *destino), papel::localizacionDelEntorno())};
}

int impresora::imprimir(const Impresora &destino, const std::string &pdf, const std::string &titulo,
                        std::string &motivo)
{
    const Conexion http = conectar(motivo);
    if (!http)
        return 0;
    const char *instancia = destino.instancia.empty() ? nullptr : destino.instancia.c_str();
    Destino conOpciones(cupsGetNamedDest(http.get(), destino.nombre.c_str(), instancia));
    if (!conOpciones) {
        motivo = "la impresora " + destino.nombre + " ya no está";
        return 0;
    }
    conOpciones->num_options = cupsAddOption("document-format", "application/pdf",
                                             conOpciones->num_options, &conOpciones->options);
    const int trabajo =
        cupsPrintFile2(http.get(), destino.nombre.c_str(), pdf.c_str(), titulo.c_str(),
                       conOpciones->num_options, conOpciones->options);
    if (trabajo == 0)
        motivo = std::string("la impresora no lo aceptó: ") + cupsLastErrorString();
    return trabajo;
}

std::string impresora::aTexto(const std::optional<Impresora> &impresora, const std::string &motivo)
{
    if (!impresora)
        return '-' + motivo;
    const Papel &p = impresora->papel;
    std::ostringstream texto;
    texto << '+' << p.ancho << ' ' << p.alto << ' ' << p.izquierdo << ' ' << p.arriba << ' '
          << p.derecho << ' ' << p.abajo << ' ' << impresora->nombre << '\n'
          << impresora->instancia;
    return texto.str();
}

std::string impresora::aTexto(int trabajo, const std::string &motivo)
{
    return trabajo > 0 ? '+' + std::to_string(trabajo) : '-' + motivo;
}

std::optional<Impresora> impresora::deTexto(const std::string &texto)
{
    if (texto.empty() || texto.front() != '+')
        return {};
    std::istringstream campos(texto.substr(1));
    Impresora leida;
    Papel &p = leida.papel;
    campos >> p.ancho >> p.alto >> p.izquierdo >> p.arriba >> p.derecho >> p.abajo;
    campos.ignore(1);
    std::getline(campos, leida.nombre);
    std::getline(campos, leida.instancia);
    return leida.nombre.empty() ? std::nullopt : std::optional(leida);
}
