#include "printing/trabajos.h"
#include "archive/rutasArchivo.h"
#include "printing/PanelImpresion.h"
#include "printing/matriculas.h"
#include "printing/pasosTrabajo.h"
#include "records/matriz.h"
#include "service/archivos.h"
#include "service/frmCargador.h"
#include "service/limpieza.h"
#include "shell/Module1.h"

namespace {

// Everything of a job that is the same for all its rows, filled in.
Valores valoresDe(const FilaTrabajo &fila, const Servicio &servicio, int periodo)
{
    Valores valores = rutasArchivo::valores(servicio);
    valores.insert(QStringLiteral("recortado"), rutasArchivo::raiz() + u'\\'
                                                    + recortar(Module1::idColegio) + u'-'
                                                    + recortar(Module1::anoActual));
    valores.insert(QStringLiteral("periodo"), QString::number(periodo));
    if (fila.tipo)
        valores.insert(QStringLiteral("tipo"), fila.tipo());
    valores.insert(QStringLiteral("salida"), completar(fila.salida, valores));
    return valores;
}

// Fetches, localises and stores one document; its path comes back.
QString guardarDocumento(const FilaTrabajo &fila, const QString &codigo, Valores valores,
                         Servicio &servicio)
{
    valores.insert(QStringLiteral("codigo"), codigo);
    valores.insert(QStringLiteral("azar"), QString::number(servicio.azar.numero()));
    frmCargador cargador(servicio);
    QString pagina = cargador.conectar(completar(fila.url, valores), QString(), false);
    pagina = localizar(pagina, fila.reemplazos, valores);
    if (fila.guion)
        pagina += fila.guion();
    const QString documento =
        valores.value(QStringLiteral("salida")) + codigo + QStringLiteral(".html");
    escribirTexto(servicio, pagina, documento, true);
    return documento;
}

void correr(const FilaTrabajo &fila, Servicio &servicio, PanelImpresion &panel, Verbos &verbos)
{
    const auto salon = pasosTrabajo::salonElegido(panel);
    if (!salon)
        return;
    const int periodo = fila.conPeriodo ? panel.periodo() : 0;
    if (fila.conPeriodo && periodo <= 0) {
        panel.mensaje(QStringLiteral("Seleccione el Periodo"));
        return;
    }

    const Valores valores = valoresDe(fila, servicio, periodo);
    for (const QString &carpeta : fila.carpetas)
        crearCarpeta(servicio, completar(carpeta, valores));
    const QString rta = pasosTrabajo::pedirLista(servicio, fila.lista, *salon);
    panel.empezar(static_cast<int>(matriz::cuantasFilas(rta)) - 1);
    for (const QStringView renglon : matriz::filas(rta)) {
        panel.avanzar();
        if (renglon.isEmpty())
            continue;
        const QString codigo = matriz::campo(renglon, 0, fila.separador);
        const QString documento = guardarDocumento(fila, codigo, valores, servicio);
        if (panel.descargarEImprimir())
            pasosTrabajo::imprimir(servicio, verbos, documento);
    }

    pasosTrabajo::traerImagenes(servicio, fila.imagenes);
    panel.terminar();
}

} // namespace

void correrTrabajo(const QString &tipo, Servicio &servicio, PanelImpresion &panel, Verbos &verbos)
{
    if (tipo == nombreMatriculas()) {
        imprimirMatriculas(servicio, panel, verbos);
        return;
    }
    for (const FilaTrabajo &fila : filasTrabajo) {
        if (fila.nombre == tipo) {
            correr(fila, servicio, panel, verbos);
            return;
        }
    }
}
