// SPDX-License-Identifier: MIT
#include "printing/trabajos.h"
#include "pages/rutasArchivo.h"
#include "platform/Verbos.h"
#include "printing/PanelImpresion.h"
#include "printing/numeroSalon.h"
#include "records/matriz.h"
#include "service/archivos.h"
#include "service/frmCargador.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

// The number of the chosen classroom; nothing, after the message, when none is chosen.
std::optional<double> salonElegido(PanelImpresion &panel)
{
    const double salon = numeroSalon(panel.lineaSalon());
    if (salon > 0)
        return salon;
    panel.mensaje(u"Seleccione un Salon"_s);
    return std::nullopt;
}

// The list of a classroom's students (or subjects), as the service sends it.
QString pedirLista(Entorno &entorno, QStringView pagina, double salon)
{
    frmCargador cargador(entorno);
    return cargador.conectar(entorno.ServiceBase + u"/querys/tessarin/"_s + pagina.toString(),
                             u"idcolegio="_s + entorno.sesion.idColegio + u"&tipo=matrix&salon="_s
                                 + enDecimal(salon),
                             true);
}

// After the last document: fetches the images that the documents share. Only then, so that what
// was printed in a school's first run may show no logo.
void traerImagenes(Entorno &entorno, std::span<const Imagen> imagenes)
{
    crearCarpeta(entorno, rutasArchivo::documentos(entorno.sesion) + u"images"_s);
    descargarImagenes(entorno, imagenes);
}

// Hands a stored document, named by its Windows path, to the shell's "print". Only what stands in
// the archive root: a code with ".." in it names nothing to print.
void imprimir(Entorno &entorno, Verbos &verbos, const QString &documento)
{
    if (entorno.disco.largo(documento))
        verbos.imprimir(entorno.disco.rutaNativa(documento));
}

// Shows the bar and takes the rows one by one; an empty one only advances the bar.
template <typename Hacer>
void porCadaFila(const QString &rta, PanelImpresion &panel, Hacer hacer)
{
    panel.empezar(static_cast<int>(matriz::cuantasFilas(rta)) - 1);
    for (const QStringView renglon : matriz::filas(rta)) {
        panel.avanzar();
        if (!renglon.isEmpty())
            hacer(renglon);
    }
}

void correr(const FilaTrabajo &fila, Entorno &entorno, PanelImpresion &panel, Verbos &verbos)
{
    const auto salon = salonElegido(panel);
    if (!salon)
        return;
    const int periodo = fila.conPeriodo ? panel.periodo() : 0;
    if (fila.conPeriodo && periodo <= 0) {
        panel.mensaje(u"Seleccione el Periodo"_s);
        return;
    }

    Valores valores = rutasArchivo::valores(entorno);
    valores.poner(Lugar::Periodo, QString::number(periodo));
    ponerValores(fila.documento, entorno.sesion, valores);
    crearCarpetas(fila.documento, valores, entorno);
    const QString rta = pedirLista(entorno, fila.lista, *salon);
    porCadaFila(rta, panel, [&](QStringView renglon) {
        const QString codigo = matriz::campo(renglon, 0, fila.separador);
        valores.poner(Lugar::Id, codigo);
        valores.poner(Lugar::Azar, QString::number(entorno.azar.numero()));
        const QString documento = valores.valor(Lugar::Salida) + codigo + u".html"_s;
        frmCargador cargador(entorno);
        guardarDocumento(fila.documento, valores, false, documento, cargador, entorno);
        if (panel.descargarEImprimir())
            imprimir(entorno, verbos, documento);
    });
    traerImagenes(entorno, fila.imagenes);
    panel.terminar();
}

void imprimirMatriculas(Entorno &entorno, PanelImpresion &panel, Verbos &verbos)
{
    static constexpr Imagen logo[] = {imagenes::delColegio(u"logo.png")};
    const auto salon = salonElegido(panel);
    if (!salon)
        return;
    const QString carpeta = rutasArchivo::documentos(entorno.sesion) + u"matriculas\\"_s;
    const QString rta = pedirLista(entorno, u"alumnos.php", *salon);
    // The box is part of the job: the secretary sees whose sheets are about to be printed.
    panel.mensaje(rta);
    // Whether printing is chosen is not asked: the sheets are there already, and printing them is
    // all that this job does.
    porCadaFila(rta, panel, [&](QStringView renglon) {
        imprimir(entorno, verbos, carpeta + matriz::campo(renglon, 0) + u".html"_s);
    });
    traerImagenes(entorno, logo);
    panel.terminar();
}

} // namespace

void correrTrabajo(const QString &tipo, Entorno &entorno, PanelImpresion &panel, Verbos &verbos)
{
    if (tipo == nombreMatriculas) {
        imprimirMatriculas(entorno, panel, verbos);
        return;
    }
    for (const FilaTrabajo &fila : filasTrabajo) {
        if (fila.nombre == tipo) {
            correr(fila, entorno, panel, verbos);
            return;
        }
    }
}
