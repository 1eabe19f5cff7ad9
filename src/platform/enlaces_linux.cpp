// SPDX-License-Identifier: MIT
#include "platform/enlaces.h"

bool enlaces::esEnlace(const std::filesystem::directory_entry &entrada)
{
    std::error_code error;
    return entrada.is_symlink(error);
}
