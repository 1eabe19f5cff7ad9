// SPDX-License-Identifier: MIT
// What lies about in an archive's folder and is none of its documents.
#include "Juicio.h"
#include "platform/rutaWindows.h"
#include "texto.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype nombreMaximo = 64; // of a name on a CD

constexpr std::array<QStringView, 12> imagenesConocidas = {
    u"logo.png",      u"rector.png",       u"promovido.png",  u"reprobado.png",
    u"asc.gif",       u"desc.gif",         u"bg.gif",         u"default-avatar.png",
    u"apersonal.png", u"aconvivencia.png", u"aacademico.png", u"coordinacion.png"};

QString carpetaDe(const QString &ruta)
{
    return ruta.left(std::max<qsizetype>(ruta.lastIndexOf(u'/'), 0));
}

bool esImagenConocida(const Entrada &entrada)
{
    const QString carpeta = carpetaDe(entrada.texto).toCaseFolded();
    if (carpeta == u"archivos/images/labels")
        return entrada.clase == Entrada::Imagen;
    const QString nombre = entrada.texto.mid(carpeta.size() + 1);
    return carpeta == u"archivos/images"
           && std::any_of(imagenesConocidas.begin(), imagenesConocidas.end(), [&](QStringView una) {
                  return una.compare(nombre, Qt::CaseInsensitive) == 0;
              });
}

bool seExplica(const Entrada &entrada)
{
    return entrada.familia >= 0 || entrada.clase == Entrada::Configuracion
           || entrada.clase == Entrada::Biblioteca || entrada.clase == Entrada::Resto
           || esImagenConocida(entrada);
}

bool esDificil(const QString &nombre)
{
    return rutaWindows::nombreRefusado(nombre) || nombre.endsWith(u'.') || nombre.endsWith(u' ')
           || nombre.contains(u'\\') || nombre.contains(QChar(QChar::ReplacementCharacter))
           || nombre.size() > nombreMaximo;
}

} // namespace

void Juicio::restos()
{
    for (const QString &ruta : m_inventario.ilegibles)
        avisar(reglas::NoSeLee, ruta);
    for (const QString &ruta : m_inventario.haciaFuera)
        avisar(reglas::CarpetaFuera, ruta);
    for (const QString &ruta : m_inventario.sinDestino)
        avisar(reglas::EnlaceSinDestino, ruta);
    for (const Entrada &entrada : m_inventario.archivos) {
        if (entrada.clase == Entrada::Resto)
            avisar(reglas::RestoDeDescarga, entrada.texto);
    }
    ajenos();
    nombresDificiles();
}

// Many in one folder are one finding: it names the first.
void Juicio::ajenos()
{
    QMap<QString, Hallazgo> porCarpeta;
    for (std::size_t i = 0; i < m_lecturas.size(); ++i) {
        const Entrada &entrada = m_inventario.archivos[i];
        if (m_enlazadas[i] != 0 || seExplica(entrada))
            continue;
        Hallazgo &hallazgo = porCarpeta[carpetaDe(entrada.texto)];
        if (hallazgo.regla == nullptr)
            hallazgo = {.regla = &reglas::todas[reglas::ArchivoAjeno],
                        .archivo = entrada.texto,
                        .veces = 0};
        ++hallazgo.veces;
    }
    m_resultado.hallazgos.append(porCarpeta.values());
}

void Juicio::nombresDificiles()
{
    QMap<QString, Hallazgo> porCarpeta;
    QString anterior;
    QSet<QString> vistos;
    for (const Entrada &entrada : m_inventario.archivos) {
        const QString clave = texto::clave(entrada.texto);
        const bool repetido = vistos.contains(clave);
        vistos.insert(clave);
        const QStringList nombres = entrada.texto.split(u'/');
        if (!repetido && std::none_of(nombres.begin(), nombres.end(), esDificil))
            continue;
        Hallazgo &hallazgo = porCarpeta[carpetaDe(entrada.texto)];
        if (hallazgo.regla == nullptr)
            hallazgo = {.regla = &reglas::todas[reglas::NombreDificil],
                        .archivo = entrada.texto,
                        .veces = 0};
        ++hallazgo.veces;
    }
    m_resultado.hallazgos.append(porCarpeta.values());
}
