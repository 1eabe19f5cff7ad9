// SPDX-License-Identifier: MIT
// The library is loaded while the program runs, and finds these before its own.
#include "estorbos.h"

#include <cstdarg>

#include <curl/curl.h>
#include <dlfcn.h>

using namespace estorbos;

namespace {

template <class Funcion>
Funcion *deLaBiblioteca(const char *nombre)
{
    return reinterpret_cast<Funcion *>(::dlsym(RTLD_NEXT, nombre));
}

} // namespace

std::vector<CURLoption> estorbos::deProteccion()
{
    return {CURLOPT_SSL_VERIFYPEER, CURLOPT_SSL_VERIFYHOST, CURLOPT_SSLVERSION,
            CURLOPT_PROTOCOLS_STR,  CURLOPT_CAINFO,         CURLOPT_CAPATH};
}

#undef curl_easy_setopt
#undef curl_multi_setopt

// Every kind of argument (a number, an address) goes through as it came: each takes one register.
extern "C" CURLcode curl_easy_setopt(CURL *easy, CURLoption opcion, ...)
{
    va_list argumentos;
    va_start(argumentos, opcion);
    void *valor = va_arg(argumentos, void *);
    va_end(argumentos);
    return seNiega(opcion) ? CURLE_OUT_OF_MEMORY
                           : deLaBiblioteca<CURLcode(CURL *, CURLoption, ...)>("curl_easy_setopt")(
                               easy, opcion, valor);
}

extern "C" CURLMcode curl_multi_setopt(CURLM *multi, CURLMoption opcion, ...)
{
    va_list argumentos;
    va_start(argumentos, opcion);
    void *valor = va_arg(argumentos, void *);
    va_end(argumentos);
    return seNiega(opcion) ? CURLM_OUT_OF_MEMORY
                           : deLaBiblioteca<CURLMcode(CURLM *, CURLMoption, ...)>(
                               "curl_multi_setopt")(multi, opcion, valor);
}

extern "C" CURL *curl_easy_init()
{
    return negada == Negada::Manija ? nullptr : deLaBiblioteca<CURL *()>("curl_easy_init")();
}

extern "C" CURLM *curl_multi_init()
{
    return negada == Negada::Motor ? nullptr : deLaBiblioteca<CURLM *()>("curl_multi_init")();
}

extern "C" CURLSH *curl_share_init()
{
    return negada == Negada::Comun ? nullptr : deLaBiblioteca<CURLSH *()>("curl_share_init")();
}

extern "C" curl_slist *curl_slist_append(curl_slist *lista, const char *texto)
{
    return seNiegaCabecera(texto) ? nullptr
                                  : deLaBiblioteca<curl_slist *(curl_slist *, const char *)>(
                                      "curl_slist_append")(lista, texto);
}

extern "C" CURLMcode curl_multi_add_handle(CURLM *multi, CURL *easy)
{
    return negada == Negada::Entrada
               ? CURLM_OUT_OF_MEMORY
               : deLaBiblioteca<CURLMcode(CURLM *, CURL *)>("curl_multi_add_handle")(multi, easy);
}
