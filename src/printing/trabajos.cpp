#include "printing/trabajos.h"
#include "archive/rutasArchivo.h"
#include "printing/PanelImpresion.h"
#include "printing/matriculas.h"
#include "printing/pasosTrabajo.h"
#include "records/matriz.h"
#include "service/archivos.h"
#include "service/frmCargador.h"
#include "service/limpieza.h"

namespace {

// Everything of a job that is the same for all its rows, filled in.
Valores valoresDe(const FilaTrabajo &fila, const Entorno &entorno, int periodo)
{
    Valores valores = rutasArchivo::valores(entorno);
    valores.insert(QStringLiteral("recortado"), rutasArchivo::raiz() + u'\\'
                                                    + recortar(entorno.sesion.idColegio) + u'-'
                                                    + recortar(entorno.sesion.anoActual));
    valores.insert(QStringLiteral("periodo"), QString::number(periodo));
    if (fila.tipo)
        valores.insert(QStringLiteral("tipo"), fila.tipo(entorno.sesion));
    valores.insert(QStringLiteral("salida"), completar(fila.salida, valores));
    return valores;
}

// Fetches, localises and stores one document; its path comes back.
QString guardarDocumento(const FilaTrabajo &fila, const QString &codigo, Valores valores,
                         Entorno &entorno)
{
    valores.insert(QStringLiteral("codigo"), codigo);
    valores.insert(QStringLiteral("azar"), QString::number(entorno.azar.numero()));
    frmCargador cargador(entorno);
    QString pagina = cargador.conectar(completar(fila.url, valores), QString(), false);
    pagina = localizar(pagina, fila.reemplazos, valores);
    if (fila.guion)
        pagina += fila.guion();
    const QString documento =
        valores.value(QStringLiteral("salida")) + codigo + QStringLiteral(".html");
    escribirTexto(entorno, pagina, documento, true);
    return documento;
}

void correr(const FilaTrabajo &fila, Entorno &entorno, PanelImpresion &panel, Verbos &verbos)
{
    const auto salon = pasosTrabajo::salonElegido(panel);
    if (!salon)
        return;
    const int periodo = fila.conPeriodo ? panel.periodo() : 0;
    if (fila.conPeriodo && periodo <= 0) {
        panel.mensaje(QStringLiteral("Seleccione el Periodo"));
        return;
    }

    const Valores valores = valoresDe(fila, entorno, periodo);
    for (const QString &carpeta : fila.carpetas)
        crearCarpeta(entorno, completar(carpeta, valores));
    const QString rta = pasosTrabajo::pedirLista(entorno, fila.lista, *salon);
    panel.empezar(static_cast<int>(matriz::cuantasFilas(rta)) - 1);
    for (const QStringView renglon : matriz::filas(rta)) {
        panel.avanzar();
        if (renglon.isEmpty())
            continue;
        const QString codigo = matriz::campo(renglon, 0, fila.separador);
        const QString documento = guardarDocumento(fila, codigo, valores, entorno);
        if (panel.descargarEImprimir())
            pasosTrabajo::imprimir(entorno, verbos, documento);
    }

    pasosTrabajo::traerImagenes(entorno, fila.imagenes);
    panel.terminar();
}

} // namespace

void correrTrabajo(const QString &tipo, Entorno &entorno, PanelImpresion &panel, Verbos &verbos)
{
    if (tipo == nombreMatriculas()) {
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
