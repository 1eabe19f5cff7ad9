// SPDX-License-Identifier: MIT
// The program that a kind of documents is opened and printed with in a test.
//
//   platform.anotador VERB DOCUMENT
//
// Each call leaves a note in the folder that PARVANEL_ANOTADO names, and beside it a copy of the
// document as it was then, where there is one. The note holds the moment at which the process was
// started, its arguments and its working folder, in UTF-8 with tabulators between them; it comes
// last, and is whole as soon as it is there. Names ("MOMENT-PROCESS.nota", and the copy's without
// an ending) sort in the order of the calls, whichever of them is quicker.
#include <windows.h>

#include <shellapi.h>

#include <string>

namespace {

constexpr DWORD masLargo = 32768; // of a path, and of a variable of the environment

std::string enUtf8(const wchar_t *texto)
{
    const int largo = WideCharToMultiByte(CP_UTF8, 0, texto, -1, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(largo), '\0');
    WideCharToMultiByte(CP_UTF8, 0, texto, -1, bytes.data(), largo, nullptr, nullptr);
    bytes.resize(bytes.size() - 1);
    return bytes;
}

std::wstring inicio()
{
    FILETIME desde = {};
    FILETIME nada = {};
    GetProcessTimes(GetCurrentProcess(), &desde, &nada, &nada, &nada);
    const auto pasos =
        (static_cast<unsigned long long>(desde.dwHighDateTime) << 32U) + desde.dwLowDateTime;
    const std::wstring cifras = std::to_wstring(pasos);
    return std::wstring(20 - cifras.size(), L'0') + cifras;
}

std::wstring carpetaDeTrabajo()
{
    std::wstring carpeta(masLargo, L'\0');
    carpeta.resize(GetCurrentDirectoryW(masLargo, carpeta.data()));
    return carpeta;
}

std::wstring carpetaDeNotas()
{
    std::wstring carpeta(masLargo, L'\0');
    carpeta.resize(GetEnvironmentVariableW(L"PARVANEL_ANOTADO", carpeta.data(), masLargo));
    return carpeta;
}

// Under another name until it is whole, since it is being waited for.
bool escribir(const std::wstring &archivo, const std::string &bytes)
{
    const std::wstring temporal = archivo + L".parte";
    HANDLE destino = CreateFileW(temporal.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD escritos = 0;
    const bool escrito =
        WriteFile(destino, bytes.data(), static_cast<DWORD>(bytes.size()), &escritos, nullptr) != 0;
    CloseHandle(destino);
    return escrito && MoveFileExW(temporal.c_str(), archivo.c_str(), 0) != 0;
}

} // namespace

int main()
{
    int cuantos = 0;
    wchar_t **partes = CommandLineToArgvW(GetCommandLineW(), &cuantos);
    const std::wstring momento = inicio();
    std::string linea = enUtf8(momento.c_str());
    for (int i = 1; i < cuantos; ++i)
        linea += '\t' + enUtf8(partes[i]);
    linea += '\t' + enUtf8(carpetaDeTrabajo().c_str());

    const std::wstring copia =
        carpetaDeNotas() + L'\\' + momento + L'-' + std::to_wstring(GetCurrentProcessId());
    if (cuantos > 2)
        CopyFileW(partes[2], copia.c_str(), FALSE); // no copy: there was nothing to be shown
    return escribir(copia + L".nota", linea) ? 0 : 1;
}
