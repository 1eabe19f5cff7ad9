// SPDX-License-Identifier: MIT
// What pages link and is not there.
#include "Juicio.h"
#include "platform/rutaWindows.h"
#include "texto.h"

#include <algorithm>
#include <array>
#include <iterator>

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

// Fetched by the print job whose pages show them.
constexpr std::array<QStringView, 3> imagenesDelObservador = {u"archivos/images/apersonal.png",
                                                              u"archivos/images/aconvivencia.png",
                                                              u"archivos/images/aacademico.png"};

constexpr QStringView etiquetas = u"archivos/images/labels";

// A page may show any image of the school's; only those of these names ever come.
bool seDescarga(const QString &ruta)
{
    const auto esEsta = [&](QStringView una) {
        return ruta.compare(una, Qt::CaseInsensitive) == 0;
    };
    return std::any_of(imagenesDeSiempre.begin(), imagenesDeSiempre.end(), esEsta)
           || std::any_of(imagenesDelObservador.begin(), imagenesDelObservador.end(), esEsta);
}

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
        return seDescarga(ruta) ? reglas::FaltaImagen : reglas::ImagenQueNoSeDescarga;
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

// Whether a link to a file that is not there is that page's own affair.
bool Juicio::esRoto(const Lectura::Ausencia &ausencia) const
{
    const reglas::Cual regla = reglaDe(ausencia.ruta);
    const bool comun =
        std::any_of(bibliotecas.begin(), bibliotecas.end(), [&](QStringView biblioteca) {
            return ausencia.ruta.compare(biblioteca, Qt::CaseInsensitive) == 0;
        });
    return regla == reglas::ArchivoAjeno || (regla == reglas::FaltaBiblioteca && !comun);
}

// One finding for a page, however many of its links lead nowhere; one remark for all pages of a
// kind that the service makes so.
void Juicio::enlacesRotos()
{
    reunirHechura();
    std::array<Hallazgo, familias::Cuantas> deHechura;
    for (std::size_t i = 0; i < m_lecturas.size(); ++i) {
        const Entrada &entrada = m_inventario.archivos[i];
        QStringList propias;
        const auto agregar = [&](const QString &direccion) {
            if (!esDeHechura(i, direccion)) {
                propias.append(direccion);
                return;
            }
            Hallazgo &comun = deHechura[static_cast<std::size_t>(entrada.familia)];
            if (comun.regla == nullptr)
                comun = {.regla = &reglas::todas[reglas::EnlaceDelServicio],
                         .archivo = entrada.texto,
                         .detalle = direccion,
                         .veces = 0};
            ++comun.veces;
        };
        const auto avisarPropias = [&](reglas::Cual regla) {
            if (!propias.isEmpty())
                avisar(regla, entrada.texto, propias.first(), static_cast<int>(propias.size()));
            propias.clear();
        };
        for (const Lectura::Ausencia &ausencia : m_lecturas[i].ausencias) {
            if (esRoto(ausencia))
                agregar(ausencia.ruta);
        }
        avisarPropias(reglas::EnlaceRoto);
        for (const QString &direccion : m_lecturas[i].fuera)
            agregar(direccion);
        avisarPropias(reglas::EnlaceFuera);
    }
    std::copy_if(deHechura.begin(), deHechura.end(), std::back_inserter(m_resultado.hallazgos),
                 [](const Hallazgo &comun) { return comun.regla != nullptr; });
}
