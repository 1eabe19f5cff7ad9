// SPDX-License-Identifier: MIT
#include "worker/memoria.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

// Asked often: of processes outside of the group nothing is read.
std::vector<fs::path> procesosDe(pid_t grupo)
{
    std::vector<fs::path> procesos;
    std::error_code fin;
    for (fs::directory_iterator i("/proc", fin), ultimo; !fin && i != ultimo; i.increment(fin)) {
        const std::string &nombre = i->path().native();
        const char *numero = nombre.c_str() + std::string_view("/proc/").size();
        pid_t pid = 0;
        const char *final = nombre.c_str() + nombre.size();
        if (std::from_chars(numero, final, pid).ptr == final && getpgid(pid) == grupo)
            procesos.push_back(i->path());
    }
    return procesos;
}

// 0 for a process that is gone by now.
std::uintmax_t residente(const fs::path &proceso)
{
    std::uintmax_t total = 0;
    std::uintmax_t enMemoria = 0;
    std::ifstream(proceso / "statm") >> total >> enMemoria;
    return enMemoria * static_cast<std::uintmax_t>(sysconf(_SC_PAGESIZE));
}

// The sum of these lines, in bytes; nothing when there are none to read.
std::optional<std::uintmax_t> sumaDe(const fs::path &archivo,
                                     std::initializer_list<std::string_view> campos)
{
    std::ifstream lineas(archivo);
    std::optional<std::uintmax_t> suma;
    constexpr std::uintmax_t kilo = 1024;
    for (std::string linea; std::getline(lineas, linea);) {
        std::istringstream partes(linea);
        std::string campo;
        std::uintmax_t cuantos = 0;
        partes >> campo >> cuantos;
        if (std::find(campos.begin(), campos.end(), campo) != campos.end())
            suma = suma.value_or(0) + cuantos * kilo;
    }
    return suma;
}

// A sandboxed process shows its shares to nobody but root.
std::uintmax_t ocupado(const fs::path &proceso)
{
    if (const auto compartido = sumaDe(proceso / "smaps_rollup", {"Pss:"}))
        return *compartido;
    return sumaDe(proceso / "status", {"RssAnon:", "RssShmem:"}).value_or(0);
}

} // namespace

bool memoria::excede(pid_t grupo, std::uintmax_t limite)
{
    const std::vector<fs::path> procesos = procesosDe(grupo);
    // No share is more than the whole: an ordinary page is not looked at any closer.
    std::uintmax_t cota = 0;
    for (const fs::path &proceso : procesos)
        cota += residente(proceso);
    if (cota <= limite)
        return false;
    std::uintmax_t suma = 0;
    for (const fs::path &proceso : procesos)
        suma += ocupado(proceso);
    return suma > limite;
}
