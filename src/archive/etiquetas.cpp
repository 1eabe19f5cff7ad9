#include "archive/etiquetas.h"
#include "archive/rutasArchivo.h"
#include "platform/codepage.h"
#include "records/tcMaterias.h"
#include "service/archivos.h"
#include "service/limpieza.h"
#include "shell/ElementosProgreso.h"

#include <QSet>

namespace etiquetas {

QString textoDe(const QString &nombre)
{
    return QString(nombre).replace(u'-', u' ');
}

QStringList distintas(const QStringList &textos)
{
    QStringList resultado;
    QSet<QString> vistas;
    for (const QString &texto : textos) {
        const QString plegado = codepage::enMinusculas(texto);
        if (vistas.contains(plegado))
            continue;
        vistas.insert(plegado);
        resultado.append(texto);
    }
    return resultado;
}

} // namespace etiquetas

namespace {

struct Rotulado {
    QString texto; // as the address carries it
    QString archivo;
};

const QList<Rotulado> titulosFijos = {
    {QStringLiteral("Nro%20Perdidas"), QStringLiteral("Nro Perdidas")},
    {QStringLiteral("Promedio"), QStringLiteral("Promedio")},
    {QStringLiteral("Puesto"), QStringLiteral("Puesto")},
};

void mostrar(const QString &texto, int posicion, int cuantas)
{
    elementosProgreso.estadoHS->ponerTexto(QStringLiteral("Label: ") + texto + QStringLiteral(" - ")
                                           + QString::number(posicion) + QStringLiteral(" de ")
                                           + QString::number(cuantas));
}

} // namespace

void tcMaterias::downLabels()
{
    const Valores valores = rutasArchivo::valores(m_servicio);
    for (const auto &carpeta :
         {QStringLiteral("{raiz}"), QStringLiteral("{archivo}\\"), QStringLiteral("{documentos}"),
          QStringLiteral("{imagenes}"), QStringLiteral("{imagenes}labels\\")})
        crearCarpeta(m_servicio, completar(carpeta, valores));
    const QString carpeta = sinSaltos(completar(QStringLiteral("{imagenes}labels\\"), valores));
    const QString direccion = completar(QStringLiteral("{base}/imgTXT.php?txt="), valores);
    // A label that does not arrive is missing in the archive, and the next one follows.
    const auto guardar = [&](const QString &url, const QString &archivo) {
        [[maybe_unused]] const bool llego = descargarArchivo(m_servicio, url, carpeta + archivo);
    };

    elementosProgreso.barra1->ponerMaximo(Count());
    elementosProgreso.barra1->ponerValor(0);
    elementosProgreso.barra2->avanzar();
    elementosProgreso.estadoTS->ponerTexto(QStringLiteral("Descargando Labels de Materias"));
    QStringList areas;
    for (int posicion = 1; posicion <= Count(); ++posicion) {
        const auto materia = Item(posicion);
        const QString texto = etiquetas::textoDe(materia->nombre);
        mostrar(texto, posicion, Count());
        // Blanks go into a subject's address as they are; only those of areas are escaped.
        guardar(direccion + texto, texto);
        areas.append(etiquetas::textoDe(materia->area));
        elementosProgreso.barra1->avanzar();
        ceder();
    }

    areas = etiquetas::distintas(areas);
    areas.append(QStringLiteral("Total Fallas"));
    const int cuantas = static_cast<int>(areas.size());
    elementosProgreso.barra1->ponerMaximo(cuantas);
    elementosProgreso.barra1->ponerValor(0);
    for (int posicion = 1; posicion <= cuantas; ++posicion) {
        const QString area = areas[posicion - 1];
        const QString url = QString(direccion + area).replace(u' ', QStringLiteral("%20"));
        mostrar(area, posicion, cuantas);
        // The colon is replaced by itself: file names have always been built so, and a label
        // with a colon cannot be stored.
        guardar(url, QString(area).replace(u':', u':'));
        elementosProgreso.barra1->avanzar();
    }

    for (const Rotulado &titulo : titulosFijos)
        guardar(direccion + titulo.texto, titulo.archivo);
}
