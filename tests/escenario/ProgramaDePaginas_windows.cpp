// SPDX-License-Identifier: MIT
#include "escenario/ProgramaDePaginas_windows.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <windows.h>

#include <tlhelp32.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto clase = "Parvanel.Pagina"_L1;
constexpr auto programa = "platform.anotador.exe"_L1;

// The same for every test, so that several at a time do each other no harm.
void poner(const QString &clave, const QString &valor)
{
    const std::wstring texto = valor.toStdWString();
    if (RegSetKeyValueW(HKEY_CLASSES_ROOT, clave.toStdWString().c_str(), nullptr, REG_SZ,
                        texto.c_str(), static_cast<DWORD>((texto.size() + 1) * sizeof(wchar_t)))
        != ERROR_SUCCESS)
        qFatal("no program for pages");
}

} // namespace

QStringList notasEn(const QString &carpeta)
{
    QStringList notas;
    const QStringList nombres = QDir(carpeta).entryList({u"*.nota"_s}, QDir::Files, QDir::Name);
    for (const QString &nombre : nombres) {
        QFile nota(carpeta + u'/' + nombre);
        if (nota.open(QIODevice::ReadOnly))
            notas.append(QString::fromUtf8(nota.readAll()));
    }
    return notas;
}

ProgramaDePaginas::ProgramaDePaginas(const QString &verbo)
{
    const QString lugar =
        QDir::toNativeSeparators(QCoreApplication::applicationDirPath() + u'/' + programa);
    poner(clase + u"\\shell\\"_s + verbo + u"\\command"_s,
          u"\"%1\" %2 \"%3\""_s.arg(lugar, verbo, u"%1"_s));
    poner(u".html"_s, QString(clase));
    const std::wstring carpeta = QDir::toNativeSeparators(m_carpeta.path()).toStdWString();
    if (SetEnvironmentVariableW(L"PARVANEL_ANOTADO", carpeta.c_str()) == 0)
        qFatal("no place to note in");
}

QStringList ProgramaDePaginas::lineas() const
{
    return notasEn(m_carpeta.path());
}

int ProgramaDePaginas::corren()
{
    HANDLE foto = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W proceso = {};
    proceso.dwSize = sizeof proceso;
    int cuantos = 0;
    for (BOOL hay = Process32FirstW(foto, &proceso); hay != 0; hay = Process32NextW(foto, &proceso))
        cuantos += proceso.th32ParentProcessID == GetCurrentProcessId()
                           && QString::fromWCharArray(proceso.szExeFile) == programa
                       ? 1
                       : 0;
    CloseHandle(foto);
    return cuantos;
}
