#include "archive/etiquetas.h"
#include "archive/rutasArchivo.h"
#include "platform/codepage.h"
#include "records/tcMaterias.h"
#include "service/archivos.h"
#include "service/limpieza.h"

#include <QSet>

namespace etiquetas {

QString textoDe(const QString &nombre)
{
    return QString(nombre).replace(u'-', u' ');
}

QString direccionDeMateria(const QString &ServiceBase, const QString &texto)
{
    return ServiceBase + QStringLiteral("/imgTXT.php?txt=") + texto;
}

QString direccionDeArea(const QString &ServiceBase, const QString &texto)
{
    return direccionDeMateria(ServiceBase, texto).replace(u' ', QStringLiteral("%20"));
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

const QStringList titulosFijos = {QStringLiteral("Nro Perdidas"), QStringLiteral("Promedio"),
                                  QStringLiteral("Puesto")};

void mostrar(Entorno &entorno, const QString &texto, int posicion, int cuantas)
{
    entorno.progreso.estadoHS->ponerTexto(QStringLiteral("Label: ") + texto + QStringLiteral(" - ")
                                          + QString::number(posicion) + QStringLiteral(" de ")
                                          + QString::number(cuantas));
}

} // namespace

void tcMaterias::downLabels()
{
    const Valores valores = rutasArchivo::valores(m_entorno);
    for (const auto &carpeta :
         {QStringLiteral("{raiz}"), QStringLiteral("{archivo}\\"), QStringLiteral("{documentos}"),
          QStringLiteral("{imagenes}"), QStringLiteral("{imagenes}labels\\")})
        crearCarpeta(m_entorno, completar(carpeta, valores));
    const QString carpeta = sinSaltos(completar(QStringLiteral("{imagenes}labels\\"), valores));
    const QString &base = m_entorno.ServiceBase;
    // A label that does not arrive is missing in the archive, and the next one follows.
    const auto guardar = [&](const QString &url, const QString &archivo) {
        [[maybe_unused]] const bool llego = descargarArchivo(m_entorno, url, carpeta + archivo);
    };

    m_entorno.progreso.barra1->ponerMaximo(Count());
    m_entorno.progreso.barra1->ponerValor(0);
    m_entorno.progreso.barra2->avanzar();
    m_entorno.progreso.estadoTS->ponerTexto(QStringLiteral("Descargando Labels de Materias"));
    QStringList areas;
    for (int posicion = 1; posicion <= Count(); ++posicion) {
        const auto materia = Item(posicion);
        const QString texto = etiquetas::textoDe(materia->nombre);
        mostrar(m_entorno, texto, posicion, Count());
        guardar(etiquetas::direccionDeMateria(base, texto), texto);
        areas.append(etiquetas::textoDe(materia->area));
        m_entorno.progreso.barra1->avanzar();
        ceder();
    }

    // The heading of the total-absences column comes last, unless an area has that very text.
    areas.append(QStringLiteral("Total Fallas"));
    areas = etiquetas::distintas(areas);
    const int cuantas = static_cast<int>(areas.size());
    m_entorno.progreso.barra1->ponerMaximo(cuantas);
    m_entorno.progreso.barra1->ponerValor(0);
    for (int posicion = 1; posicion <= cuantas; ++posicion) {
        const QString area = areas[posicion - 1];
        mostrar(m_entorno, area, posicion, cuantas);
        // The colon is replaced by itself: file names have always been built so, and a label
        // with a colon cannot be stored.
        guardar(etiquetas::direccionDeArea(base, area), QString(area).replace(u':', u':'));
        m_entorno.progreso.barra1->avanzar();
    }

    for (const QString &titulo : titulosFijos)
        guardar(etiquetas::direccionDeArea(base, titulo), titulo);
}
