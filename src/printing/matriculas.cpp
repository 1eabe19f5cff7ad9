#include "printing/matriculas.h"
#include "archive/rutasArchivo.h"
#include "printing/PanelImpresion.h"
#include "printing/pasosTrabajo.h"
#include "records/matriz.h"
#include "service/Entorno.h"

QString nombreMatriculas()
{
    return QStringLiteral("Hoja Matricula");
}

void imprimirMatriculas(Entorno &entorno, PanelImpresion &panel, Verbos &verbos)
{
    const auto salon = pasosTrabajo::salonElegido(panel);
    if (!salon)
        return;
    const QString carpeta =
        rutasArchivo::documentos(entorno.sesion) + QStringLiteral("matriculas\\");
    const QString rta = pasosTrabajo::pedirLista(entorno, QStringLiteral("alumnos.php"), *salon);
    // The box is part of the job: the secretary sees whose sheets are about to be printed.
    panel.mensaje(rta);
    panel.empezar(static_cast<int>(matriz::cuantasFilas(rta)) - 1);
    for (const QStringView renglon : matriz::filas(rta)) {
        panel.avanzar();
        if (renglon.isEmpty())
            continue;
        // Whether printing is chosen is not asked: the sheets are there already, and printing
        // them is all that this job does.
        pasosTrabajo::imprimir(entorno, verbos,
                               carpeta + matriz::campo(renglon, 0) + QStringLiteral(".html"));
    }
    pasosTrabajo::traerImagenes(entorno, {imagenes::delColegio(QStringLiteral("logo.png"))});
    panel.terminar();
}
