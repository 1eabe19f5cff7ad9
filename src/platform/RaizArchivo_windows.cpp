// SPDX-License-Identifier: MIT
#include "RaizArchivo_windows.h"
#include "platform/nombresNativos.h"
#include "platform/rutaWindows.h"

#include <QDir>

using namespace Qt::StringLiterals;
using aperturas::insistir;

namespace {

// Of "C:/" and "//server/share" and no other form.
QString personalDe(const QString &pedida)
{
    const QString limpia = QDir::cleanPath(pedida);
    const bool conUnidad =
        limpia.size() >= 3 && limpia[0].isLetter() && limpia[1] == u':' && limpia[2] == u'/';
    if (!conUnidad && !limpia.startsWith(u"//"_s))
        return {};
    return limpia.endsWith(u'/') ? limpia.chopped(1) : limpia;
}

// The spelling of the last name of a path; empty when there is no such entry.
QString escrituraDe(const QString &ruta)
{
    WIN32_FIND_DATAW hallado = {};
    HANDLE busqueda =
        ::FindFirstFileExW(rutaWindows::sinLimite(ruta).toStdWString().c_str(), FindExInfoBasic,
                           &hallado, FindExSearchNameMatch, nullptr, 0);
    if (busqueda == INVALID_HANDLE_VALUE)
        return {};
    // It was only read.
    [[maybe_unused]] const BOOL cerrada = ::FindClose(busqueda);
    return QString::fromWCharArray(hallado.cFileName);
}

} // namespace

bool CarpetaAbierta::enLaRaiz(const QString &otra) const
{
    // Both as they are spelled on the disk: a folder may be one that regards letter case.
    return otra == raiz || otra.startsWith(raiz + u'\\');
}

RaizArchivo::RaizArchivo(const QString &personal, const QString &nombre)
    : m_personal(personalDe(personal)), m_nombre(nombre)
{
}

bool RaizArchivo::esRaiz(const QString &nombre) const
{
    return nombresNativos::plegado(nombre) == nombresNativos::plegado(m_nombre);
}

Manija RaizArchivo::abrirPersonal(Paciencia &paciencia) const
{
    if (!hayUnidad())
        return {};
    const QString ruta = rutaWindows::sinLimite(m_personal + u'/');
    return insistir(paciencia, [&] { return aperturas::abrirCarpeta(ruta); }).manija;
}

CarpetaAbierta RaizArchivo::abrirCarpeta(const QStringList &nombres, Paciencia &paciencia) const
{
    if (!hayUnidad())
        return {};
    const QString ruta = rutaWindows::sinLimite(m_personal + u'/' + m_nombre);
    Manija raiz = insistir(paciencia, [&] { return aperturas::abrirCarpeta(ruta); }).manija;
    const auto deLaRaiz = aperturas::datosDe(raiz);
    if (!deLaRaiz)
        return {};
    if (nombres.isEmpty())
        return {std::move(raiz), deLaRaiz->ruta, deLaRaiz->ruta};
    const QString dentro = nombres.join(u'\\');
    CarpetaAbierta carpeta{
        insistir(paciencia, [&] { return aperturas::abrirCarpeta(raiz, dentro); }).manija,
        {},
        deLaRaiz->ruta};
    const auto datos = aperturas::datosDe(carpeta.manija);
    if (!datos || !carpeta.enLaRaiz(datos->ruta))
        return {};
    carpeta.ruta = datos->ruta;
    return carpeta;
}

QString RaizArchivo::ruta(const QStringList &nombres) const
{
    return m_personal + u'/' + nombres.join(u'/');
}

QString RaizArchivo::rutaNativa(const QStringList &pedidos) const
{
    QString ruta = m_personal;
    for (const QString &pedido : pedidos) {
        const QString escritura = escrituraDe(ruta + u'/' + pedido);
        ruta += u'/' + (escritura.isEmpty() ? pedido : escritura);
    }
    if (pedidos.isEmpty())
        ruta += u'/';
    return ruta.size() < MAX_PATH ? QDir::toNativeSeparators(ruta) : rutaWindows::sinLimite(ruta);
}

std::optional<QString> RaizArchivo::rutaNativa(const QString &carpeta,
                                               const QStringList &pedidos) const
{
    const auto leida = rutaWindows::nombres(u"C:\\"_s + carpeta);
    // Nor is what stands after a ":" a folder's name: it would be asked of a file of that folder.
    if (leida == QStringList{carpeta} || carpeta.contains(u'\\') || carpeta.contains(u':'))
        return std::nullopt;
    Paciencia paciencia;
    const CarpetaAbierta raiz = abrirCarpeta({}, paciencia);
    const auto datos = aperturas::datosDe(
        aperturas::mirar(raiz.manija, carpeta, aperturas::Enlace::Seguido).manija);
    if (!datos || !datos->esCarpeta)
        return std::nullopt;
    return rutaWindows::sinLimite(ruta(QStringList{m_nombre, carpeta} + pedidos));
}
