// SPDX-License-Identifier: MIT
#include "BibliotecaCurl.h"

#include <dlfcn.h>

namespace {

// As the linker would have found it: what the program itself defines by that name comes first.
template <class Funcion>
bool hallar(Funcion *&funcion, const char *nombre)
{
    funcion = reinterpret_cast<Funcion *>(::dlsym(RTLD_DEFAULT, nombre));
    return funcion != nullptr;
}

bool hallarTransferencias(BibliotecaCurl &curl)
{
    return hallar(curl.easy_init, "curl_easy_init")
           && hallar(curl.easy_cleanup, "curl_easy_cleanup")
           && hallar(curl.easy_reset, "curl_easy_reset")
           && hallar(curl.easy_setopt, "curl_easy_setopt")
           && hallar(curl.easy_getinfo, "curl_easy_getinfo");
}

bool hallarMotor(BibliotecaCurl &curl)
{
    return hallar(curl.multi_init, "curl_multi_init")
           && hallar(curl.multi_cleanup, "curl_multi_cleanup")
           && hallar(curl.multi_setopt, "curl_multi_setopt")
           && hallar(curl.multi_add_handle, "curl_multi_add_handle")
           && hallar(curl.multi_remove_handle, "curl_multi_remove_handle")
           && hallar(curl.multi_socket_action, "curl_multi_socket_action")
           && hallar(curl.multi_info_read, "curl_multi_info_read");
}

bool hallarLoDemas(BibliotecaCurl &curl)
{
    return hallar(curl.global_init, "curl_global_init") && hallar(curl.free, "curl_free")
           && hallar(curl.share_init, "curl_share_init")
           && hallar(curl.share_cleanup, "curl_share_cleanup")
           && hallar(curl.share_setopt, "curl_share_setopt")
           && hallar(curl.slist_append, "curl_slist_append")
           && hallar(curl.slist_free_all, "curl_slist_free_all") && hallar(curl.url, "curl_url")
           && hallar(curl.url_cleanup, "curl_url_cleanup") && hallar(curl.url_set, "curl_url_set")
           && hallar(curl.url_get, "curl_url_get");
}

} // namespace

std::optional<BibliotecaCurl> BibliotecaCurl::traer()
{
    // With every function that it calls itself found now: a library that lacks one is a failed
    // request here, and would be the end of the program later.
    if (!::dlopen("libcurl.so.4", RTLD_NOW | RTLD_GLOBAL))
        return std::nullopt;
    BibliotecaCurl curl;
    if (!hallarTransferencias(curl) || !hallarMotor(curl) || !hallarLoDemas(curl))
        return std::nullopt;
    return curl;
}
