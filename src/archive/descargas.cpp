// SPDX-License-Identifier: MIT
#include "archive/descargas.h"
#include "pages/rutasArchivo.h"
#include "records/tcAlumnos.h"
#include "records/tcSalones.h"
#include "service/archivos.h"
#include "service/frmCargador.h"
#include "service/limpieza.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

// Stores one record's item; its path comes without the extension.
using GuardarUno = std::function<void(const FilaDocumento &fila, Valores &valores,
                                      const QString &archivo, frmCargador &cargador)>;

// Makes the row's folders and walks the list, driving the progress elements. A step that fails is
// passed over and the next record follows.
void recorrer(filasDescarga::Cual cual, tcLista &lista, Entorno &entorno, const GuardarUno &guardar)
{
    const FilaDescarga &fila = filasDescarga::todas[cual];
    Valores valores = rutasArchivo::valores(entorno);
    ponerValores(fila.documento, entorno.sesion, valores);
    crearCarpetas(fila.documento, valores, entorno);

    const Progreso &progreso = entorno.progreso;
    progreso.barra1->ponerMaximo(lista.Count());
    progreso.barra1->ponerValor(0);
    progreso.barra2->avanzar();
    progreso.estadoTS->ponerTexto(fila.titulo.toString());

    frmCargador cargador(entorno);
    for (int posicion = 1; posicion <= lista.Count(); ++posicion) {
        const tcLista::Elemento elemento = lista.elemento(posicion);
        valores.poner(Lugar::Id, elemento.id);
        Q_EMIT
        lista.nuevaDescarga(
            textoDescarga(fila.prefijo, elemento.id, elemento.nombre, posicion, lista.Count()));
        guardar(fila.documento, valores, sinSaltos(valores.valor(Lugar::Salida)) + elemento.id,
                cargador);
        progreso.barra1->avanzar();
        ceder();
    }
}

void descargarPaginas(filasDescarga::Cual cual, tcLista &lista, Entorno &entorno)
{
    recorrer(cual, lista, entorno,
             [&](const FilaDocumento &fila, const Valores &valores, const QString &archivo,
                 frmCargador &cargador) {
                 guardarDocumento(fila, valores, true, archivo + u".html"_s, cargador, entorno);
             });
}

void descargarFotos(tcLista &lista, Entorno &entorno)
{
    recorrer(filasDescarga::FotosAlumno, lista, entorno,
             [&](const FilaDocumento &fila, Valores &valores, const QString &archivo,
                 frmCargador &cargador) {
                 const QString foto = completar(filasDescarga::direccionDeFoto, valores);
                 valores.poner(Lugar::Foto, foto);
                 const QString existe = cargador.conectar(
                     completar(fila.url, valores), completar(fila.parametros, valores), true);
                 // The whole reply and nothing else: a photo that the service is not sure of is
                 // not fetched.
                 if (existe != u"SI")
                     return;
                 // One that does not arrive is missing in the archive.
                 [[maybe_unused]] const bool llego =
                     descargarArchivo(entorno, foto, archivo + u"-alumno.jpg"_s);
             });
}

} // namespace

QString textoDescarga(QStringView prefijo, const QString &id, const QString &nombre, int posicion,
                      int cuantos)
{
    return prefijo.toString() + id + u"): "_s + nombre + u" - "_s + QString::number(posicion)
           + u" de "_s + QString::number(cuantos);
}

void tcSalones::downSalones()
{
    descargarPaginas(filasDescarga::Salones, *this, m_entorno);
}
void tcSalones::downConsolidadoN()
{
    descargarPaginas(filasDescarga::ConsolidadoN, *this, m_entorno);
}
void tcSalones::downConsolidadoF()
{
    descargarPaginas(filasDescarga::ConsolidadoF, *this, m_entorno);
}

void tcAlumnos::downInfoFinal()
{
    descargarPaginas(filasDescarga::InfoFinal, *this, m_entorno);
}
void tcAlumnos::downCertificado()
{
    descargarPaginas(filasDescarga::Certificado, *this, m_entorno);
}
void tcAlumnos::downHojaMat()
{
    descargarPaginas(filasDescarga::HojaMat, *this, m_entorno);
}
void tcAlumnos::downInfoAlumno()
{
    descargarPaginas(filasDescarga::InfoAlumno, *this, m_entorno);
}
void tcAlumnos::downFotosAlumno()
{
    descargarFotos(*this, m_entorno);
}
