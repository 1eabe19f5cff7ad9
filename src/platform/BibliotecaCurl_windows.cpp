// SPDX-License-Identifier: MIT
#include "BibliotecaCurl.h"

// The library is a part of the program here: nothing has to be brought in, and nothing can lack.
std::optional<BibliotecaCurl> BibliotecaCurl::traer()
{
    BibliotecaCurl curl;
    curl.global_init = &curl_global_init;
    curl.free = &curl_free;
    curl.easy_init = &curl_easy_init;
    curl.easy_cleanup = &curl_easy_cleanup;
    curl.easy_reset = &curl_easy_reset;
    curl.easy_setopt = &curl_easy_setopt;
    curl.easy_getinfo = &curl_easy_getinfo;
    curl.multi_init = &curl_multi_init;
    curl.multi_cleanup = &curl_multi_cleanup;
    curl.multi_setopt = &curl_multi_setopt;
    curl.multi_add_handle = &curl_multi_add_handle;
    curl.multi_remove_handle = &curl_multi_remove_handle;
    curl.multi_socket_action = &curl_multi_socket_action;
    curl.multi_info_read = &curl_multi_info_read;
    curl.share_init = &curl_share_init;
    curl.share_cleanup = &curl_share_cleanup;
    curl.share_setopt = &curl_share_setopt;
    curl.slist_append = &curl_slist_append;
    curl.slist_free_all = &curl_slist_free_all;
    curl.url = &curl_url;
    curl.url_cleanup = &curl_url_cleanup;
    curl.url_set = &curl_url_set;
    curl.url_get = &curl_url_get;
    return curl;
}
