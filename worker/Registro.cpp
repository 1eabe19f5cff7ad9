// SPDX-License-Identifier: MIT
#include "worker/Registro.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace fs = std::filesystem;

namespace {

void agregarEscapado(std::string &salida, unsigned char byte)
{
    std::array<char, 5> hex{};
    // It always fits.
    [[maybe_unused]] const int largo =
        std::snprintf(hex.data(), hex.size(), "\\x%02X", static_cast<unsigned>(byte));
    salida += hex.data();
}

// The length of the printable UTF-8 character at the start of `texto`, or 0 when its first byte
// has to be escaped. Overlong forms and surrogates count as broken.
std::size_t largoImprimible(std::string_view texto)
{
    const auto byte = [&](std::size_t i) {
        return static_cast<unsigned char>(texto[i]);
    };
    const unsigned primero = byte(0);
    if (primero < 0x80)
        return primero >= 0x20 && primero != 0x7F && primero != '\\' ? 1 : 0;
    const std::size_t largo = primero >= 0xF0 ? 4 : primero >= 0xE0 ? 3 : 2;
    if (primero < 0xC2 || primero > 0xF4 || texto.size() < largo)
        return 0;
    char32_t punto = primero & (0x7FU >> largo);
    for (std::size_t i = 1; i < largo; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U)
            return 0;
        punto = (punto << 6U) | (byte(i) & 0x3FU);
    }
    constexpr std::array<char32_t, 5> minimos{0, 0, 0xA0, 0x800, 0x10000}; // 0x80-0x9F are controls
    const bool sustituto = punto >= 0xD800 && punto <= 0xDFFF;
    // Line and paragraph separators, and marks that reverse the text that follows.
    const bool enganoso =
        (punto >= 0x2028 && punto <= 0x202E) || (punto >= 0x2066 && punto <= 0x2069);
    return punto < minimos[largo] || punto > 0x10FFFF || sustituto || enganoso ? 0 : largo;
}

fs::path carpetaPersonal()
{
    if (const char *home = std::getenv("HOME"); home && *home == '/')
        return home;
    const passwd *usuario = getpwuid(getuid());
    return usuario && usuario->pw_dir && *usuario->pw_dir == '/' ? fs::path(usuario->pw_dir)
                                                                 : fs::path();
}

} // namespace

std::string registro::limpio(std::string_view texto)
{
    std::string salida;
    while (!texto.empty()) {
        std::size_t largo = largoImprimible(texto);
        if (largo > 0) {
            salida += texto.substr(0, largo);
        } else {
            agregarEscapado(salida, static_cast<unsigned char>(texto[0]));
            largo = 1;
        }
        texto.remove_prefix(largo);
    }
    return salida;
}

std::string registro::linea(std::chrono::system_clock::time_point cuando, std::string_view ruta,
                            std::string_view resultado)
{
    const std::time_t segundos = std::chrono::system_clock::to_time_t(cuando);
    std::tm local{};
    localtime_r(&segundos, &local);
    std::array<char, 40> hora{};
    // It always fits.
    [[maybe_unused]] const std::size_t largo =
        std::strftime(hora.data(), hora.size(), "%Y-%m-%dT%H:%M:%S%z", &local);
    return std::string(hora.data()) + '\t' + limpio(ruta) + '\t' + limpio(resultado);
}

fs::path registro::archivoDelUsuario()
{
    const char *estado = std::getenv("XDG_STATE_HOME");
    fs::path base;
    if (estado && *estado == '/')
        base = estado;
    else if (const fs::path personal = carpetaPersonal(); !personal.empty())
        base = personal / ".local" / "state";
    return base.empty() ? base : base / "parvanel" / "print.log";
}

Registro::Registro(fs::path archivo, std::uintmax_t bytesMaximos)
    : m_archivo(std::move(archivo)), m_bytesMaximos(bytesMaximos)
{
}

void Registro::anotar(std::string_view ruta, std::string_view resultado)
{
    if (m_archivo.empty())
        return;
    const std::string linea =
        registro::linea(std::chrono::system_clock::now(), ruta, resultado) + '\n';

    std::error_code sinImportancia; // see the header: a log that fails is done without
    fs::create_directories(m_archivo.parent_path(), sinImportancia);
    const auto tamano = fs::file_size(m_archivo, sinImportancia);
    if (!sinImportancia && tamano + linea.size() > m_bytesMaximos)
        fs::rename(m_archivo, m_archivo.string() + ".1", sinImportancia);

    // One write with O_APPEND: two workers at once do not mix their lines.
    // A pipe of that name would be waited for.
    const int descriptor =
        open(m_archivo.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
             S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        return;
    struct stat datos {};
    if (fstat(descriptor, &datos) == 0 && S_ISREG(datos.st_mode)) {
        [[maybe_unused]] const ssize_t escritos = write(descriptor, linea.data(), linea.size());
    }
    close(descriptor);
}
