# SPDX-License-Identifier: MIT
# Debian's cross compiler for 64-bit Windows. What it links with lies in PARVANEL_WINDOWS_PREFIX
# (made by paquete-windows/cadena) and in the compiler's own root; nothing of the building system
# is ever found.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(_triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${_triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${_triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${_triplet}-windres)

if(NOT PARVANEL_WINDOWS_PREFIX)
    set(PARVANEL_WINDOWS_PREFIX $ENV{PARVANEL_WINDOWS_PREFIX})
endif()
set(CMAKE_FIND_ROOT_PATH ${PARVANEL_WINDOWS_PREFIX} /usr/${_triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${PARVANEL_WINDOWS_PREFIX}/lib/pkgconfig)
# A probe of a compiler's feature gets to know the prefix too.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PARVANEL_WINDOWS_PREFIX)
# Its library for sharing comes first otherwise.
set(ZLIB_USE_STATIC_LIBS ON)
