#include "records/tcSalones.h"
#include "records/matriz.h"

tcSalones::Referencia tcSalones::Add(const QString &id, const QString &salon, const QString &sKey)
{
    return agregar({id, salon}, sKey);
}

void tcSalones::Fcargar(const QString &rta)
{
    const auto registros = matriz::registros(rta);
    for (const QStringList &campos : registros) {
        const QString clave = matriz::identificador(campos);
        // The line shows the identifier as it came, line breaks included.
        Q_EMIT
        nuevaLinea(campos.value(0) + QStringLiteral("   : ") + campos.value(1));
        Add(clave, campos.value(1), clave);
    }
}

tcLista::Elemento tcSalones::elemento(int posicion) const
{
    const auto registro = Item(posicion);
    return registro ? Elemento{registro->id, registro->salon} : Elemento{};
}
