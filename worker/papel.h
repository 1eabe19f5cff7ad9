// SPDX-License-Identifier: MIT
// Which paper a page is drawn for: a plain function of what the user, the queue and the locale
// say.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// Lengths in hundredths of a millimetre, as print servers count them.
struct Papel {
    int ancho = 0;
    int alto = 0;
    int izquierdo = 0;
    int arriba = 0;
    int derecho = 0;
    int abajo = 0;

    bool operator==(const Papel &) const = default;
};

namespace papel {

// The margin that pages get from a printer that needs less or tells nothing.
constexpr int margenUsual = 1000;

struct Medida {
    int ancho = 0;
    int alto = 0;
};

// The edges that the printer cannot reach; 0 where it tells nothing.
struct Bordes {
    int izquierdo = 0;
    int arriba = 0;
    int derecho = 0;
    int abajo = 0;
};

// What there is to choose from; whatever is not known stays empty.
struct Fuentes {
    std::string mediaUsuario;           // the user's "media" or "PageSize" option
    std::string mediaCola;              // the queue's "media-default"
    std::optional<Medida> colMediaCola; // the size in the queue's "media-col-default"
    Bordes bordes;
};

// The size that a media name stands for: self-describing ("na_letter_8.5x11in"), short ("Letter",
// "A4") or one's own ("Custom.210x330mm"). Of a list ("A4,Tray2") the first name that is a size.
std::optional<Medida> porNombre(std::string_view nombres);

// Letter where the territory uses it (es_CO, es_MX, en_US ...), else A4. `localizacion` is a POSIX
// locale name: "es_CO.UTF-8", "es_CO@euro", "C".
Medida porLocalizacion(std::string_view localizacion);

// The locale name that settles paper: LC_ALL, then LC_PAPER, then LANG.
std::string localizacionDelEntorno();

// The user's option, then the queue's default by name, then by size, then the locale. A source
// that names no paper that can be had is passed over.
Papel elegir(const Fuentes &fuentes, std::string_view localizacion);

} // namespace papel
