// SPDX-License-Identifier: MIT
// The library is a part of the program: the linker puts these in its place ("--wrap").
#include "estorbos.h"

#include <cstdarg>

#include <curl/curl.h>

using namespace estorbos;

extern "C" {
CURLcode __real_curl_easy_setopt(CURL *, CURLoption, ...);
CURLMcode __real_curl_multi_setopt(CURLM *, CURLMoption, ...);
CURL *__real_curl_easy_init();
CURLM *__real_curl_multi_init();
CURLSH *__real_curl_share_init();
curl_slist *__real_curl_slist_append(curl_slist *, const char *);
CURLMcode __real_curl_multi_add_handle(CURLM *, CURL *);
}

std::vector<CURLoption> estorbos::deProteccion()
{
    return {CURLOPT_SSL_VERIFYPEER, CURLOPT_SSL_VERIFYHOST, CURLOPT_SSLVERSION,
            CURLOPT_PROTOCOLS_STR, CURLOPT_SSL_OPTIONS};
}

#undef curl_easy_setopt
#undef curl_multi_setopt

// Every kind of argument (a number, an address) goes through as it came: each takes one register.
extern "C" CURLcode __wrap_curl_easy_setopt(CURL *easy, CURLoption opcion, ...)
{
    va_list argumentos;
    va_start(argumentos, opcion);
    void *valor = va_arg(argumentos, void *);
    va_end(argumentos);
    return seNiega(opcion) ? CURLE_OUT_OF_MEMORY : __real_curl_easy_setopt(easy, opcion, valor);
}

extern "C" CURLMcode __wrap_curl_multi_setopt(CURLM *multi, CURLMoption opcion, ...)
{
    va_list argumentos;
    va_start(argumentos, opcion);
    void *valor = va_arg(argumentos, void *);
    va_end(argumentos);
    return seNiega(opcion) ? CURLM_OUT_OF_MEMORY : __real_curl_multi_setopt(multi, opcion, valor);
}

extern "C" CURL *__wrap_curl_easy_init()
{
    return negada == Negada::Manija ? nullptr : __real_curl_easy_init();
}

extern "C" CURLM *__wrap_curl_multi_init()
{
    return negada == Negada::Motor ? nullptr : __real_curl_multi_init();
}

extern "C" CURLSH *__wrap_curl_share_init()
{
    return negada == Negada::Comun ? nullptr : __real_curl_share_init();
}

extern "C" curl_slist *__wrap_curl_slist_append(curl_slist *lista, const char *texto)
{
    return seNiegaCabecera(texto) ? nullptr : __real_curl_slist_append(lista, texto);
}

extern "C" CURLMcode __wrap_curl_multi_add_handle(CURLM *multi, CURL *easy)
{
    return negada == Negada::Entrada ? CURLM_OUT_OF_MEMORY
                                     : __real_curl_multi_add_handle(multi, easy);
}
