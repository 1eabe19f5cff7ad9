// SPDX-License-Identifier: MIT
#include "nombresZip.h"
#include "revisor/copia.h"

#include <array>
#include <clocale>
#include <cwchar>

namespace copia {

namespace {

bool entiendeUtf8()
{
    constexpr std::array<char, 2> enye = {'\xC3', '\xB1'};
    wchar_t letra = 0;
    std::mbstate_t estado = {};
    return std::mbrtowc(&letra, enye.data(), enye.size(), &estado) == enye.size()
           && letra == L'\u00F1';
}

} // namespace

bool nombresEnUtf8()
{
    // Wide names go by no encoding of the process.
    if (nombresZip::anchos || entiendeUtf8())
        return true;
    // Whether it could be had is seen by what it does.
    static_cast<void>(std::setlocale(LC_CTYPE, "C.UTF-8"));
    return entiendeUtf8();
}

} // namespace copia
