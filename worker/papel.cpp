// SPDX-License-Identifier: MIT
#include "worker/papel.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <cups/cups.h> // pwg.h does not stand alone
#include <cups/pwg.h>

namespace {

constexpr papel::Medida carta{21590, 27940};
constexpr papel::Medida a4{21000, 29700};

// Where office paper is Letter, by the Unicode consortium's territory data.
constexpr std::array<std::string_view, 14> territoriosCarta{
    "BZ", "CA", "CL", "CO", "CR", "GT", "MX", "NI", "PA", "PH", "PR", "SV", "US", "VE"};

// A page has to hold its margins and be of this world.
bool imprimible(papel::Medida medida)
{
    constexpr int minimo = 5000;
    constexpr int maximo = 200000;
    return medida.ancho >= minimo && medida.alto >= minimo && medida.ancho <= maximo
           && medida.alto <= maximo;
}

std::optional<papel::Medida> deUnNombre(std::string nombre)
{
    const pwg_media_t *medio = pwgMediaForPWG(nombre.c_str());
    if (!medio)
        medio = pwgMediaForPPD(nombre.c_str());
    if (!medio)
        medio = pwgMediaForLegacy(nombre.c_str());
    if (!medio) {
        // "a4" and "letter", as people write them on the command line
        nombre[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(nombre[0])));
        medio = pwgMediaForPPD(nombre.c_str());
    }
    if (!medio)
        return {};
    const papel::Medida medida{medio->width, medio->length};
    return imprimible(medida) ? std::optional(medida) : std::nullopt;
}

papel::Medida medidaElegida(const papel::Fuentes &fuentes, std::string_view localizacion)
{
    if (const auto medida = papel::porNombre(fuentes.mediaUsuario))
        return *medida;
    if (const auto medida = papel::porNombre(fuentes.mediaCola))
        return *medida;
    if (fuentes.colMediaCola && imprimible(*fuentes.colMediaCola))
        return *fuentes.colMediaCola;
    return papel::porLocalizacion(localizacion);
}

// At least what the printer needs, at least the usual margin; but a printer that claims so much
// that no page is left is not believed.
int margen(int borde, int lado)
{
    return std::min(std::max(borde, papel::margenUsual), lado / 3);
}

} // namespace

std::optional<papel::Medida> papel::porNombre(std::string_view nombres)
{
    while (!nombres.empty()) {
        const auto coma = std::min(nombres.find(','), nombres.size());
        if (coma > 0) {
            if (const auto medida = deUnNombre(std::string(nombres.substr(0, coma))))
                return medida;
        }
        nombres.remove_prefix(std::min(coma + 1, nombres.size()));
    }
    return {};
}

papel::Medida papel::porLocalizacion(std::string_view localizacion)
{
    const auto raya = localizacion.find('_');
    if (raya == std::string_view::npos)
        return a4;
    const auto territorio =
        localizacion.substr(raya + 1, localizacion.find_first_of(".@", raya) - raya - 1);
    const bool usaCarta = std::find(territoriosCarta.begin(), territoriosCarta.end(), territorio)
                          != territoriosCarta.end();
    return usaCarta ? carta : a4;
}

std::string papel::localizacionDelEntorno()
{
    for (const char *variable : {"LC_ALL", "LC_PAPER", "LANG"}) {
        if (const char *valor = std::getenv(variable); valor && *valor)
            return valor;
    }
    return {};
}

Papel papel::elegir(const Fuentes &fuentes, std::string_view localizacion)
{
    const Medida medida = medidaElegida(fuentes, localizacion);
    return {medida.ancho,
            medida.alto,
            margen(fuentes.bordes.izquierdo, medida.ancho),
            margen(fuentes.bordes.arriba, medida.alto),
            margen(fuentes.bordes.derecho, medida.ancho),
            margen(fuentes.bordes.abajo, medida.alto)};
}
