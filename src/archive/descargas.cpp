#include "archive/descargas.h"
#include "archive/guiones.h"
#include "archive/rutasArchivo.h"
#include "records/tcAlumnos.h"
#include "records/tcSalones.h"
#include "service/archivos.h"
#include "service/frmCargador.h"
#include "service/limpieza.h"

namespace {

// Everything of a row that is the same for all its records, filled in.
Valores valoresDe(const FilaDescarga &fila, const Entorno &entorno)
{
    Valores valores = rutasArchivo::valores(entorno);
    if (fila.tipo)
        valores.insert(QStringLiteral("tipo"), fila.tipo(entorno.sesion));
    valores.insert(QStringLiteral("salida"), completar(fila.salida, valores));
    return valores;
}

void guardarPagina(const FilaDescarga &fila, const QString &respuesta, const QString &archivo,
                   const Valores &valores, Entorno &entorno)
{
    QString pagina = localizar(respuesta, fila.reemplazos, valores);
    if (fila.conGuion)
        pagina += guiones::documento();
    escribirTexto(entorno, pagina, archivo + QStringLiteral(".html"), true);
}

void guardarFoto(const QString &respuesta, const QString &archivo, const Valores &valores,
                 Entorno &entorno)
{
    // The whole reply and nothing else: a photo that the service is not sure of is not fetched.
    if (respuesta != u"SI")
        return;
    // A photo that does not arrive is missing in the archive, and the next student follows.
    [[maybe_unused]] const bool llego = descargarArchivo(
        entorno, valores.value(QStringLiteral("foto")), archivo + QStringLiteral("-alumno.jpg"));
}

} // namespace

QString textoDescarga(const QString &prefijo, const QString &id, const QString &nombre,
                      int posicion, int cuantos)
{
    return prefijo + id + QStringLiteral("): ") + nombre + QStringLiteral(" - ")
           + QString::number(posicion) + QStringLiteral(" de ") + QString::number(cuantos);
}

void descargar(const FilaDescarga &fila, tcLista &lista, Entorno &entorno)
{
    Valores valores = valoresDe(fila, entorno);
    for (const QString &carpeta : fila.carpetas)
        crearCarpeta(entorno, completar(carpeta, valores));

    entorno.progreso.barra1->ponerMaximo(lista.Count());
    entorno.progreso.barra1->ponerValor(0);
    entorno.progreso.barra2->avanzar();
    entorno.progreso.estadoTS->ponerTexto(fila.titulo);

    frmCargador cargador(entorno);
    for (int posicion = 1; posicion <= lista.Count(); ++posicion) {
        const tcLista::Elemento elemento = lista.elemento(posicion);
        valores.insert(QStringLiteral("id"), elemento.id);
        valores.insert(QStringLiteral("foto"), completar(fila.foto, valores));
        Q_EMIT
        lista.nuevaDescarga(
            textoDescarga(fila.prefijo, elemento.id, elemento.nombre, posicion, lista.Count()));

        const QString respuesta = cargador.conectar(completar(fila.url, valores),
                                                    completar(fila.parametros, valores), true);
        const QString archivo = sinSaltos(valores.value(QStringLiteral("salida"))) + elemento.id;
        if (fila.foto.isEmpty())
            guardarPagina(fila, respuesta, archivo, valores, entorno);
        else
            guardarFoto(respuesta, archivo, valores, entorno);

        entorno.progreso.barra1->avanzar();
        ceder();
    }
}

void tcSalones::downSalones()
{
    descargar(filasDescarga::salones, *this, m_entorno);
}
void tcSalones::downConsolidadoN()
{
    descargar(filasDescarga::consolidadoN, *this, m_entorno);
}
void tcSalones::downConsolidadoF()
{
    descargar(filasDescarga::consolidadoF, *this, m_entorno);
}

void tcAlumnos::downInfoFinal()
{
    descargar(filasDescarga::infoFinal, *this, m_entorno);
}
void tcAlumnos::downCertificado()
{
    descargar(filasDescarga::certificado, *this, m_entorno);
}
void tcAlumnos::downHojaMat()
{
    descargar(filasDescarga::hojaMat, *this, m_entorno);
}
void tcAlumnos::downInfoAlumno()
{
    descargar(filasDescarga::infoAlumno, *this, m_entorno);
}
void tcAlumnos::downFotosAlumno()
{
    descargar(filasDescarga::fotosAlumno, *this, m_entorno);
}
