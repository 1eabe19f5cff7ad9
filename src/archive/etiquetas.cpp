// SPDX-License-Identifier: MIT
#include "archive/etiquetas.h"
#include "pages/rutasArchivo.h"
#include "platform/codepage.h"
#include "records/tcMaterias.h"
#include "service/archivos.h"
#include "service/limpieza.h"

#include <QSet>

#include <array>

using namespace Qt::StringLiterals;

namespace etiquetas {

QString textoDe(const QString &nombre)
{
    return QString(nombre).replace(u'-', u' ');
}

QString direccionDeMateria(const QString &ServiceBase, const QString &texto)
{
    return ServiceBase + u"/imgTXT.php?txt="_s + texto;
}

QString direccionDeArea(const QString &ServiceBase, const QString &texto)
{
    return direccionDeMateria(ServiceBase, texto).replace(u' ', u"%20"_s);
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

constexpr std::array<Plantilla, 5> carpetasDeEtiquetas = {
    u"{raiz}", u"{archivo}\\", u"{documentos}", u"{imagenes}", u"{imagenes}labels\\"};

// Headings of the consolidated reports, fetched after the subjects and areas.
constexpr QStringView titulosFijos[] = {u"Nro Perdidas", u"Promedio", u"Puesto"};

void mostrar(Entorno &entorno, const QString &texto, int posicion, int cuantas)
{
    entorno.progreso.estadoHS->ponerTexto(u"Label: "_s + texto + u" - "_s
                                          + QString::number(posicion) + u" de "_s
                                          + QString::number(cuantas));
}

} // namespace

void tcMaterias::downLabels()
{
    const Valores valores = rutasArchivo::valores(m_entorno);
    for (const Plantilla &carpeta : carpetasDeEtiquetas)
        crearCarpeta(m_entorno, completar(carpeta, valores));
    const QString carpeta = sinSaltos(completar(carpetasDeEtiquetas.back(), valores));
    const QString &base = m_entorno.ServiceBase;
    // A label that does not arrive is missing in the archive, and the next one follows.
    const auto guardar = [&](const QString &url, const QString &archivo) {
        [[maybe_unused]] const bool llego = descargarArchivo(m_entorno, url, carpeta + archivo);
    };

    m_entorno.progreso.barra1->ponerMaximo(Count());
    m_entorno.progreso.barra1->ponerValor(0);
    m_entorno.progreso.barra2->avanzar();
    m_entorno.progreso.estadoTS->ponerTexto(u"Descargando Labels de Materias"_s);
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
    areas.append(u"Total Fallas"_s);
    areas = etiquetas::distintas(areas);
    const int cuantas = static_cast<int>(areas.size());
    m_entorno.progreso.barra1->ponerMaximo(cuantas);
    m_entorno.progreso.barra1->ponerValor(0);
    for (int posicion = 1; posicion <= cuantas; ++posicion) {
        const QString area = areas[posicion - 1];
        mostrar(m_entorno, area, posicion, cuantas);
        // A colon stays in the file's name, which the disk then refuses: a label with a colon is
        // asked for and not stored.
        guardar(etiquetas::direccionDeArea(base, area), area);
        m_entorno.progreso.barra1->avanzar();
    }

    for (const QStringView titulo : titulosFijos)
        guardar(etiquetas::direccionDeArea(base, titulo.toString()), titulo.toString());
}
