// SPDX-License-Identifier: MIT
// The functions of the library that speaks HTTP, libcurl. It is brought in by the first request and
// not with the program: with all that it leans on it would be a fifth of the memory of a window
// that nobody has logged in to, and an eighth of the time until that is seen.
#pragma once

#include <optional>

#include <curl/curl.h>

// Each member is the library's function of that name, without its "curl_"; none is ever null.
struct BibliotecaCurl {
    // Brings the library in, when it is not there yet. It stays until the process ends: a name
    // look-up that was left to itself may be at work in it. Nothing when it is not installed or
    // cannot be had now; another call tries again.
    static std::optional<BibliotecaCurl> traer();

    decltype(&curl_global_init) global_init = nullptr;
    decltype(&curl_free) free = nullptr;

    decltype(&curl_easy_init) easy_init = nullptr;
    decltype(&curl_easy_cleanup) easy_cleanup = nullptr;
    decltype(&curl_easy_reset) easy_reset = nullptr;
    decltype(&curl_easy_setopt) easy_setopt = nullptr;
    decltype(&curl_easy_getinfo) easy_getinfo = nullptr;

    decltype(&curl_multi_init) multi_init = nullptr;
    decltype(&curl_multi_cleanup) multi_cleanup = nullptr;
    decltype(&curl_multi_setopt) multi_setopt = nullptr;
    decltype(&curl_multi_add_handle) multi_add_handle = nullptr;
    decltype(&curl_multi_remove_handle) multi_remove_handle = nullptr;
    decltype(&curl_multi_socket_action) multi_socket_action = nullptr;
    decltype(&curl_multi_info_read) multi_info_read = nullptr;

    decltype(&curl_share_init) share_init = nullptr;
    decltype(&curl_share_cleanup) share_cleanup = nullptr;
    decltype(&curl_share_setopt) share_setopt = nullptr;

    decltype(&curl_slist_append) slist_append = nullptr;
    decltype(&curl_slist_free_all) slist_free_all = nullptr;

    decltype(&curl_url) url = nullptr;
    decltype(&curl_url_cleanup) url_cleanup = nullptr;
    decltype(&curl_url_set) url_set = nullptr;
    decltype(&curl_url_get) url_get = nullptr;
};
