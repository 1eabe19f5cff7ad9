#include "records/tcAlumnos.h"
#include "records/matriz.h"

tcAlumnos::Referencia tcAlumnos::Add(const QString &id, const QString &nombre, const QString &sKey)
{
    return agregar({id, nombre}, sKey);
}

void tcAlumnos::Fcargar(const QString &rta)
{
    const auto registros = matriz::registros(rta);
    for (const QStringList &campos : registros) {
        const QString clave = matriz::identificador(campos);
        Add(clave, campos.value(1), clave);
    }
}

tcLista::Elemento tcAlumnos::elemento(int posicion) const
{
    const auto registro = Item(posicion);
    return registro ? Elemento{registro->id, registro->nombre} : Elemento{};
}
