#include "archive/reemplazos.h"

QString localizar(QString pagina, const QList<Reemplazo> &reemplazos, const Valores &valores)
{
    for (const Reemplazo &fila : reemplazos) {
        const QString buscar = completar(fila.buscar, valores);
        const QString poner = completar(fila.poner, valores);
        if (fila.cuantos == Reemplazo::Todos) {
            pagina.replace(buscar, poner, fila.letras);
            continue;
        }
        const qsizetype primero = pagina.indexOf(buscar, 0, fila.letras);
        if (primero >= 0)
            pagina.replace(primero, buscar.size(), poner);
    }
    return pagina;
}

namespace reemplazos {

Reemplazo imagenesDelColegio(const QString &poner)
{
    return {QStringLiteral("{base}/images/colegios/{colegio}/"), poner};
}

// Before etiqueta(), which would leave the colon in the file name.
Reemplazo etiquetaNota()
{
    return {QStringLiteral("{base}/imgTXT.php?txt=NOTA:"), QStringLiteral("../images/labels/NOTA")};
}

Reemplazo etiqueta()
{
    return {QStringLiteral("{base}/imgTXT.php?txt="), QStringLiteral("../images/labels/")};
}

// The stamps alone stop after the first occurrence and regard letter case: that is how the
// archives have always been written.
Reemplazo promovido()
{
    return {QStringLiteral("{base}/images/promovido.png"),
            QStringLiteral("..\\images\\promovido.png"), Reemplazo::SoloElPrimero,
            Qt::CaseSensitive};
}

Reemplazo reprobado()
{
    return {QStringLiteral("{base}/images/reprobado.png"),
            QStringLiteral("..\\images\\reprobado.png"), Reemplazo::SoloElPrimero,
            Qt::CaseSensitive};
}

Reemplazo folio()
{
    return {QStringLiteral("Folio: \u00AEfolio\u00AE"), QStringLiteral("Folio: _______")};
}

Reemplazo foto()
{
    return {QStringLiteral("{base}/jup/images/{colegio}/"), QStringLiteral("..\\fotos\\")};
}

// Nothing stores the avatar in the photo folder (it stands with the other images), so this link
// leads to no file. Archives are read with it as it is, and it stays.
Reemplazo avatar()
{
    return {QStringLiteral("{base}/images/default-avatar.png"),
            QStringLiteral("..\\fotos\\default-avatar.png")};
}

} // namespace reemplazos
