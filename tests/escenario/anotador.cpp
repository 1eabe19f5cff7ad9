// SPDX-License-Identifier: MIT
// The program that a kind of documents is opened and printed with in a test: it adds a line to the
// file that PARVANEL_ANOTADO names, with the moment it was started, its arguments and its working
// folder, in UTF-8 with tabulators between them.
#include <windows.h>

#include <shellapi.h>

#include <string>

namespace {

std::string enUtf8(const wchar_t *texto)
{
    const int largo = WideCharToMultiByte(CP_UTF8, 0, texto, -1, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(largo), '\0');
    WideCharToMultiByte(CP_UTF8, 0, texto, -1, bytes.data(), largo, nullptr, nullptr);
    bytes.resize(bytes.size() - 1);
    return bytes;
}

std::string inicio()
{
    FILETIME desde = {};
    FILETIME nada = {};
    GetProcessTimes(GetCurrentProcess(), &desde, &nada, &nada, &nada);
    const auto pasos =
        (static_cast<unsigned long long>(desde.dwHighDateTime) << 32U) + desde.dwLowDateTime;
    std::string cifras = std::to_string(pasos);
    return std::string(20 - cifras.size(), '0') + cifras;
}

} // namespace

int main()
{
    int cuantos = 0;
    wchar_t **partes = CommandLineToArgvW(GetCommandLineW(), &cuantos);
    std::string linea = inicio();
    for (int i = 1; i < cuantos; ++i)
        linea += '\t' + enUtf8(partes[i]);
    std::wstring carpeta(32768, L'\0');
    GetCurrentDirectoryW(static_cast<DWORD>(carpeta.size()), carpeta.data());
    linea += '\t' + enUtf8(carpeta.c_str()) + '\n';

    std::wstring archivo(32768, L'\0');
    GetEnvironmentVariableW(L"PARVANEL_ANOTADO", archivo.data(),
                            static_cast<DWORD>(archivo.size()));
    // One at a time: Wine finds the end of a file first and writes there then, where somebody else
    // may have written meanwhile.
    HANDLE turno = CreateMutexW(nullptr, FALSE, L"parvanel-anotador");
    WaitForSingleObject(turno, INFINITE);
    HANDLE salida =
        CreateFileW(archivo.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_ALWAYS, 0, nullptr);
    DWORD escritos = 0;
    const bool bien =
        WriteFile(salida, linea.data(), static_cast<DWORD>(linea.size()), &escritos, nullptr) != 0;
    CloseHandle(salida);
    ReleaseMutex(turno);
    return bien ? 0 : 1;
}
