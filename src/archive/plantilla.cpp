#include "archive/plantilla.h"

QString completar(const QString &plantilla, const Valores &valores)
{
    QString texto;
    qsizetype leido = 0;
    while (leido < plantilla.size()) {
        const qsizetype abre = plantilla.indexOf(u'{', leido);
        const qsizetype cierra = abre < 0 ? -1 : plantilla.indexOf(u'}', abre);
        if (cierra < 0)
            break;
        const auto valor = valores.constFind(plantilla.mid(abre + 1, cierra - abre - 1));
        texto += plantilla.mid(leido, abre - leido);
        texto += valor == valores.cend() ? plantilla.mid(abre, cierra - abre + 1) : *valor;
        leido = cierra + 1;
    }
    return texto + plantilla.mid(leido);
}
