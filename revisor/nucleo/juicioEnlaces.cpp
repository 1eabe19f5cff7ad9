// SPDX-License-Identifier: MIT
// What pages link and is not there.
#include "Juicio.h"
#include "platform/rutaWindows.h"
#include "texto.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 2> bibliotecas = {u"archivos/jscript/jquery.tools.min.js",
                                                    u"archivos/jscript/jquery.tablesorter.min.js"};

// Fetched by every download, whether a page shows them or not.
constexpr std::array<QStringView, 12> imagenesDeSiempre = {u"archivos/images/logo.png",
                                                           u"archivos/images/default-avatar.png",
                                                           u"archivos/images/bg.gif",
                                                           u"archivos/images/asc.gif",
                                                           u"archivos/images/desc.gif",
                                                           u"archivos/images/promovido.png",
                                                           u"archivos/images/reprobado.png",
                                                           u"archivos/images/rector.png",
                                                           u"archivos/images/labels/Puesto",
                                                           u"archivos/images/labels/Promedio",
                                                           u"archivos/images/labels/Nro Perdidas",
                                                           u"archivos/images/labels/Total Fallas"};

constexpr QStringView etiquetas = u"archivos/images/labels";

bool esDe(const QString &ruta, QStringView carpeta)
{
    return ruta.startsWith(carpeta, Qt::CaseInsensitive)
           && (ruta.size() == carpeta.size() || ruta[carpeta.size()] == u'/');
}

} // namespace

void Juicio::reunirAusentes()
{
    for (std::size_t i = 0; i < m_lecturas.size(); ++i) {
        for (const Lectura::Ausencia &ausencia : m_lecturas[i].ausencias) {
            Ausente &ausente = m_ausentes[texto::clave(ausencia.ruta)];
            if (ausente.veces++ == 0) {
                ausente.ruta = ausencia.ruta;
                ausente.primera = static_cast<int>(i);
            }
            ausente.recurso |= ausencia.recurso;
        }
    }
}

// The rule of a file that is missing; ArchivoAjeno stands for one that no rule of its own has.
reglas::Cual Juicio::reglaDe(const QString &ruta) const
{
    const auto es = [&](QStringView otra) {
        return ruta.compare(otra, Qt::CaseInsensitive) == 0;
    };
    if (es(u"configuracion.txt"))
        return reglas::FaltaConfiguracion;
    if (es(u"archivos/configuracion.txt"))
        return reglas::AjustesDeBoletin;
    if (es(u"archivos/fotos/default-avatar.png"))
        return reglas::AvatarSinFoto;
    if (const auto lugar = familias::lugarDe(ruta)) {
        switch (familias::todas[lugar->familia].de) {
        case De::Colegio:
            return reglas::FaltaPortada;
        case De::Salon:
            return reglas::FaltaSalon;
        case De::Alumno:
            return reglas::FaltaDocumento;
        case De::Foto:
            return reglas::FaltaFoto;
        case De::Lote:
            return reglas::ArchivoAjeno;
        }
    }
    if (esDe(ruta, etiquetas)) {
        // A name that the disk refuses is asked for and never stored.
        const QString nombre = ruta.mid(etiquetas.size() + 1);
        return nombre.contains(u'/') || rutaWindows::nombreRefusado(nombre)
                   ? reglas::EtiquetaImposible
                   : reglas::FaltaImagen;
    }
    if (esDe(ruta, u"archivos/images"))
        return reglas::FaltaImagen;
    return esDe(ruta, u"archivos/jscript") ? reglas::FaltaBiblioteca : reglas::ArchivoAjeno;
}

void Juicio::faltasDeEnlaces()
{
    for (const Ausente &ausente : std::as_const(m_ausentes))
        juzgarAusente(ausente);
    if (m_descargado)
        faltasComunes();
    enlacesRotos();
}

// One finding for a file, however many pages show it.
void Juicio::juzgarAusente(const Ausente &ausente)
{
    const reglas::Cual regla = reglaDe(ausente.ruta);
    const bool deOtros = regla == reglas::ArchivoAjeno || regla == reglas::FaltaPortada
                         || regla == reglas::FaltaConfiguracion || regla == reglas::FaltaBiblioteca;
    // People and classrooms have been asked for their documents already.
    const bool dePersonas = regla == reglas::FaltaSalon || regla == reglas::FaltaDocumento;
    if (deOtros || (dePersonas && m_descargado))
        return;
    const auto primera = static_cast<std::size_t>(ausente.primera);
    if (!m_descargado && dePersonas)
        return;
    avisar(regla, ausente.ruta, u"Se busca en %1."_s.arg(m_inventario.archivos[primera].texto),
           ausente.veces);
}

// What every archive has, whatever its pages say.
void Juicio::faltasComunes()
{
    const auto falta = [&](const QString &ruta) {
        return m_inventario.buscar(ruta).clase != Hallado::Archivo;
    };
    if (falta(u"index.html"_s))
        avisar(reglas::FaltaPortada, u"index.html"_s);
    if (falta(u"configuracion.txt"_s))
        avisar(reglas::FaltaConfiguracion, u"configuracion.txt"_s);
    for (const QStringView biblioteca : bibliotecas) {
        if (falta(biblioteca.toString()))
            avisar(reglas::FaltaBiblioteca, biblioteca.toString());
    }
    for (const QStringView imagen : imagenesDeSiempre) {
        const QString ruta = imagen.toString();
        if (falta(ruta) && !m_ausentes.contains(texto::clave(ruta)))
            avisar(reglas::ImagenSinTraer, ruta);
    }
}

// One finding for a page, however many of its links lead nowhere.
void Juicio::enlacesRotos()
{
    const auto esComun = [](const QString &ruta) {
        return std::any_of(bibliotecas.begin(), bibliotecas.end(), [&](QStringView biblioteca) {
            return ruta.compare(biblioteca, Qt::CaseInsensitive) == 0;
        });
    };
    for (std::size_t i = 0; i < m_lecturas.size(); ++i) {
        QString primera;
        int veces = 0;
        for (const Lectura::Ausencia &ausencia : m_lecturas[i].ausencias) {
            const reglas::Cual regla = reglaDe(ausencia.ruta);
            if (regla != reglas::ArchivoAjeno
                && (regla != reglas::FaltaBiblioteca || esComun(ausencia.ruta)))
                continue;
            if (veces++ == 0)
                primera = ausencia.ruta;
        }
        if (veces > 0)
            avisar(reglas::EnlaceRoto, m_inventario.archivos[i].texto, primera, veces);
    }
}
