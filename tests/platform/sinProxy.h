// SPDX-License-Identifier: MIT
// The proxy variables of whoever runs the tests are not the tests'.
#pragma once

#include <QtGlobal>

inline void sinProxy()
{
    for (const char *variable : {"http_proxy", "https_proxy", "HTTPS_PROXY", "all_proxy",
                                 "ALL_PROXY", "no_proxy", "NO_PROXY"})
        qunsetenv(variable);
}
