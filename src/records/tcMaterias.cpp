#include "records/tcMaterias.h"
#include "records/matriz.h"
#include "service/archivos.h"

tcMaterias::Referencia tcMaterias::Add(const QString &id, const QString &nombre,
                                       const QString &area, const QString &sKey)
{
    return agregar({id, nombre, area}, sKey);
}

void tcMaterias::Fcargar(const QString &rta)
{
    const auto registros = matriz::registros(rta);
    for (const QStringList &campos : registros) {
        const QString clave = matriz::identificador(campos);
        Add(clave, campos.value(1), campos.value(2), clave);
        ceder();
    }
}

tcLista::Elemento tcMaterias::elemento(int posicion) const
{
    const auto registro = Item(posicion);
    return registro ? Elemento{registro->id, registro->nombre} : Elemento{};
}
