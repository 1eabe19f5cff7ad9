// SPDX-License-Identifier: MIT
// The yardstick: a bare libcurl loop, the least that fetching can cost. It asks for a list of
// addresses one after the other, each over a connection of its own, with TLS sessions kept, the
// certificate bundle parsed once, and the same headers as the program, and writes each body to a
// file.
//
//   bench-bucle ADDRESSES FOLDER [BUNDLE]    one address a line; FOLDER must exist
//
// It prints one line of JSON: {"pared": s, "cpu": s, "peticiones": n, "fallidas": n, "bytes": n}
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <curl/curl.h>

namespace {

std::size_t bytes = 0;

// Straight to the file; a page comes in one or two pieces.
std::size_t escribir(char *datos, std::size_t, std::size_t cuantos, void *archivo)
{
    bytes += cuantos;
    return ::write(*static_cast<int *>(archivo), datos, cuantos) == static_cast<ssize_t>(cuantos)
               ? cuantos
               : 0;
}

double cpu()
{
    rusage uso = {};
    ::getrusage(RUSAGE_SELF, &uso);
    const auto segundos = [](const timeval &t) {
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
    };
    return segundos(uso.ru_utime) + segundos(uso.ru_stime);
}

// Pictures are fetched without the headers of a text request.
bool esDescarga(const std::string &direccion)
{
    const auto tiene = [&](const char *parte) {
        return direccion.find(parte) != direccion.npos;
    };
    return tiene("/imgTXT.php") || (tiene("/images/") && !tiene("existe.php"));
}

void preparar(CURL *easy, const char *autoridades)
{
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &escribir);
    curl_easy_setopt(easy, CURLOPT_PATH_AS_IS, 1L);
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    curl_easy_setopt(easy, CURLOPT_USERAGENT, "Parvanel/4.0");
    curl_easy_setopt(easy, CURLOPT_ACCEPT_ENCODING, "gzip, deflate");
    curl_easy_setopt(easy, CURLOPT_FRESH_CONNECT, 1L);
    curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_NOPROXY, "*");
    curl_easy_setopt(easy, CURLOPT_CAPATH, static_cast<const char *>(nullptr));
    if (autoridades)
        curl_easy_setopt(easy, CURLOPT_CAINFO, autoridades);
}

std::vector<std::string> leer(const char *archivo)
{
    std::vector<std::string> direcciones;
    std::ifstream entrada(archivo);
    for (std::string linea; std::getline(entrada, linea);)
        direcciones.push_back(linea);
    return direcciones;
}

bool pedir(CURL *easy, const std::string &direccion, curl_slist *cabeceras,
           const std::string &nombre)
{
    int archivo = ::open(nombre.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    curl_easy_setopt(easy, CURLOPT_URL, direccion.c_str());
    curl_easy_setopt(easy, CURLOPT_HTTPHEADER, esDescarga(direccion) ? nullptr : cabeceras);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, &archivo);
    const bool bien = curl_easy_perform(easy) == CURLE_OK;
    ::close(archivo);
    return bien;
}

} // namespace

int main(int cuantos, char *argumentos[])
{
    if (cuantos < 3) {
        std::cerr << "usage: bench-bucle ADDRESSES FOLDER [BUNDLE]\n";
        return 2;
    }
    const std::vector<std::string> direcciones = leer(argumentos[1]);
    const std::string carpeta = argumentos[2];
    curl_global_init(CURL_GLOBAL_ALL);
    CURL *easy = curl_easy_init();
    preparar(easy, cuantos > 3 ? argumentos[3] : nullptr);
    curl_slist *cabeceras = nullptr;
    for (const char *una : {"Content-type: application/x-www-form-urlencoded", "Content-length: 0",
                            "Connection: close"})
        cabeceras = curl_slist_append(cabeceras, una);

    const auto empieza = std::chrono::steady_clock::now();
    const double cpuAntes = cpu();
    int fallidas = 0;
    for (std::size_t i = 0; i < direcciones.size(); ++i) {
        if (!pedir(easy, direcciones[i], cabeceras, carpeta + '/' + std::to_string(i)))
            ++fallidas;
    }
    const std::chrono::duration<double> pared = std::chrono::steady_clock::now() - empieza;
    std::printf("{\"pared\": %.6f, \"cpu\": %.6f, \"peticiones\": %zu, \"fallidas\": %d, "
                "\"bytes\": %zu}\n",
                pared.count(), cpu() - cpuAntes, direcciones.size(), fallidas, bytes);
    curl_slist_free_all(cabeceras);
    curl_easy_cleanup(easy);
    curl_global_cleanup();
}
