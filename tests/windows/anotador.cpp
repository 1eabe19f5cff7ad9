// SPDX-License-Identifier: MIT
// What documents are opened and printed with in the tests: leaves in a folder, for each call, what
// it was called for and a copy of the document as it was at that moment.
//
//   anotador FOLDER VERB DOCUMENT
//
// The copy's name is when this process was started, so that the notes sort in the order of the
// calls, whichever of them is quicker; beside it, with ".nota" added, stands VERB, a tab and
// DOCUMENT in UTF-8, written last.
#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <shellapi.h>

#include <string>

namespace {

std::wstring inicio()
{
    FILETIME creado = {};
    FILETIME otro = {};
    GetProcessTimes(GetCurrentProcess(), &creado, &otro, &otro, &otro);
    const unsigned long long momento =
        (static_cast<unsigned long long>(creado.dwHighDateTime) << 32) | creado.dwLowDateTime;
    return std::to_wstring(momento) + L"-" + std::to_wstring(GetCurrentProcessId());
}

bool escribir(const std::wstring &archivo, const std::wstring &texto)
{
    std::string bytes(texto.size() * 3, '\0');
    const int largo =
        WideCharToMultiByte(CP_UTF8, 0, texto.data(), static_cast<int>(texto.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr);
    // Under another name until it is whole, since it is being waited for.
    const std::wstring temporal = archivo + L".parte";
    const HANDLE destino = CreateFileW(temporal.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                       FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD escritos = 0;
    const bool escrito =
        WriteFile(destino, bytes.data(), static_cast<DWORD>(largo), &escritos, nullptr) != 0;
    CloseHandle(destino);
    return escrito && MoveFileExW(temporal.c_str(), archivo.c_str(), 0) != 0;
}

} // namespace

int main()
{
    int cuantos = 0;
    wchar_t **argumentos = CommandLineToArgvW(GetCommandLineW(), &cuantos);
    if (!argumentos || cuantos != 4)
        return 2;
    const std::wstring nota = std::wstring(argumentos[1]) + L"\\" + inicio();
    CopyFileW(argumentos[3], nota.c_str(), FALSE); // no copy: there was nothing to be printed
    return escribir(nota + L".nota", std::wstring(argumentos[2]) + L"\t" + argumentos[3]) ? 0 : 1;
}
