// SPDX-License-Identifier: MIT
// The program that pages are printed with here: platform.anotador, which stands beside the test.
#include "escenario/ObreroAnotado.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

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
        qFatal("no program to print with");
}

// Programs to print with that this process has started and that still run.
int hijos()
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

} // namespace

class ObreroAnotado::Interno {
public:
    Interno()
    {
        const QString lugar =
            QDir::toNativeSeparators(QCoreApplication::applicationDirPath() + u'/' + programa);
        poner(clase + u"\\shell\\print\\command"_s, u"\"%1\" print \"%2\""_s.arg(lugar, u"%1"_s));
        poner(u".html"_s, QString(clase));
        const std::wstring archivo =
            QDir::toNativeSeparators(carpeta.filePath(u"anotado"_s)).toStdWString();
        if (SetEnvironmentVariableW(L"PARVANEL_ANOTADO", archivo.c_str()) == 0)
            qFatal("no place to note in");
    }

    // A line begins with the moment at which its program was started.
    QStringList lineas() const
    {
        QFile archivo(carpeta.filePath(u"anotado"_s));
        QStringList todas;
        if (archivo.open(QIODevice::ReadOnly))
            todas = QString::fromUtf8(archivo.readAll()).split(u'\n', Qt::SkipEmptyParts);
        todas.sort();
        return todas;
    }

    QTemporaryDir carpeta;
};

ObreroAnotado::ObreroAnotado() : d(std::make_unique<Interno>()) {}

ObreroAnotado::~ObreroAnotado() = default;

bool ObreroAnotado::arrancado() const
{
    return hijos() > 0 || !d->lineas().isEmpty();
}

bool ObreroAnotado::terminado() const
{
    return hijos() == 0;
}

bool ObreroAnotado::lasVecesDebidas() const
{
    const QStringList todos = documentos();
    return todos.size() == QSet<QString>(todos.begin(), todos.end()).size();
}

QStringList ObreroAnotado::documentos() const
{
    QStringList todos;
    const QStringList lineas = d->lineas();
    for (const QString &linea : lineas)
        todos.append(QDir::fromNativeSeparators(linea.section(u'\t', 2, 2)));
    return todos;
}
