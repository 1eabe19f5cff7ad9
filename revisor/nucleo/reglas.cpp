// SPDX-License-Identifier: MIT
#include "revisor/reglas.h"

namespace reglas {
namespace {

constexpr QStringView vuelva = u"Vuelva a descargar el histórico.";
constexpr QStringView vuelvaOImprima =
    u"Vuelva a descargar el histórico; si es un documento impreso en lote, imprima de nuevo el "
    u"lote.";
constexpr QStringView nada = u"No tiene que hacer nada: es así en todos los históricos.";

} // namespace

constexpr std::array<Regla, Cuantas> todas = {{
    {u"solo-impresiones", Gravedad::Falta,
     u"La carpeta solo tiene documentos impresos en lote; el histórico no se ha descargado.",
     u"Descargue el histórico de este año."},
    {u"falta-portada", Gravedad::Falta, u"Falta la página de inicio del histórico.", vuelva},
    {u"falta-salon", Gravedad::Falta, u"Falta una página del salón.", vuelva},
    {u"falta-documento", Gravedad::Falta, u"Falta un documento del estudiante.", vuelva},
    {u"falta-foto", Gravedad::Falta, u"Falta la foto del estudiante.", vuelva},
    {u"falta-imagen", Gravedad::Falta, u"Falta una imagen que muestran las páginas.", vuelva},
    {u"falta-configuracion", Gravedad::Falta, u"Faltan los datos del colegio (configuracion.txt).",
     vuelva},
    {u"falta-biblioteca", Gravedad::Falta, u"Falta un programa que usan las páginas.", vuelva},

    {u"no-se-lee", Gravedad::Danio, u"No se puede leer.",
     u"Revise el disco y los permisos de la carpeta, y vuelva a revisar."},
    {u"pagina-vacia", Gravedad::Danio, u"La página está vacía.", vuelvaOImprima},
    {u"palabra-del-servicio", Gravedad::Danio,
     u"En lugar de la página hay una palabra del servicio.", vuelvaOImprima},
    {u"sin-html", Gravedad::Danio, u"El archivo no es una página.", vuelvaOImprima},
    {u"pagina-de-error", Gravedad::Danio, u"En lugar de la página hay un mensaje de error.",
     vuelvaOImprima},
    {u"pagina-cortada", Gravedad::Danio, u"La página está cortada: le falta el final.",
     vuelvaOImprima},
    {u"pagina-ajena", Gravedad::Danio, u"La página es igual a la de otra persona.", vuelvaOImprima},
    {u"sin-guion", Gravedad::Danio,
     u"A la página le falta la parte final que muestra los datos del colegio.", vuelvaOImprima},
    {u"pagina-enredada", Gravedad::Danio,
     u"La página es demasiado grande o enredada para revisarla.",
     u"Ábrala para ver si está bien; si no lo está, vuelva a descargar el histórico."},

    {u"pagina-borrada", Gravedad::Danio,
     u"La página está borrada en parte, como cuando se apaga el equipo al guardarla.",
     vuelvaOImprima},

    {u"imagen-vacia", Gravedad::Danio, u"La imagen está vacía.", vuelva},
    {u"imagen-es-pagina", Gravedad::Danio, u"En lugar de la imagen hay una página.", vuelva},
    {u"imagen-danada", Gravedad::Danio, u"La imagen está dañada o incompleta.", vuelva},
    {u"imagen-enorme", Gravedad::Danio, u"La imagen es demasiado grande para revisarla.",
     u"Ábrala para ver si está bien; si no lo está, cámbiela en el servicio y vuelva a descargar "
     u"el histórico."},

    {u"ajuste-ausente", Gravedad::Danio, u"Falta un dato del colegio en configuracion.txt.",
     vuelva},
    {u"ajuste-vacio", Gravedad::Danio, u"Un dato del colegio está vacío en configuracion.txt.",
     u"Escriba ese dato en el servicio si no lo tiene, y vuelva a descargar el histórico."},
    {u"ajuste-roto", Gravedad::Danio,
     u"Un dato del colegio no se puede mostrar: lleva comillas, una barra invertida, dos renglones "
     u"o una página.",
     u"Corrija ese dato en el servicio (en un renglón, sin comillas ni barras) y vuelva a "
     u"descargar el "
     u"histórico."},
    {u"configuracion-no-corre", Gravedad::Danio,
     u"Los datos del colegio (configuracion.txt) están dañados: las páginas no los muestran.",
     vuelva},
    {u"biblioteca-danada", Gravedad::Danio,
     u"Un programa que usan las páginas está vacío, cortado o no es un programa.", vuelva},

    {u"enlace-roto", Gravedad::Danio, u"La página enlaza un archivo que no está.", vuelva},
    {u"direccion-del-servicio", Gravedad::Danio,
     u"La página todavía busca en Internet algo que debía estar en el histórico.", vuelva},
    {u"enlace-fuera", Gravedad::Danio, u"La página enlaza un archivo de fuera del histórico.",
     u"Copie el archivo a su sitio o vuelva a descargar el histórico."},
    {u"carpeta-fuera", Gravedad::Danio,
     u"Una carpeta o un archivo del histórico está en realidad fuera de él, y no se revisó.",
     u"Ponga la carpeta dentro del histórico en lugar del acceso que lleva a ella."},

    {u"pagina-vieja", Gravedad::Danio,
     u"El documento es de una descarga anterior: la última no lo renovó.", vuelva},

    {u"avatar-sin-foto", Gravedad::Nota,
     u"Un estudiante sin foto muestra un marco vacío en su hoja de matrícula.", nada},
    {u"segundo-sello", Gravedad::Nota,
     u"De dos sellos iguales en un informe, el segundo se busca en Internet.", nada},
    {u"ajustes-de-boletin", Gravedad::Nota,
     u"Los boletines no encuentran los datos del colegio cuando se leen sin Internet.", nada},
    {u"guion-del-servicio", Gravedad::Nota,
     u"Los boletines buscan en Internet un programa que usan.", nada},
    {u"etiqueta-imposible", Gravedad::Nota,
     u"Un título del consolidado no se puede guardar como imagen por las letras que lleva.", nada},
    {u"enlace-por-la-raiz", Gravedad::Nota,
     u"Algunos documentos buscan sus imágenes por el nombre original de la carpeta, que ahora se "
     u"llama de otro modo.",
     u"Devuelva a la carpeta su nombre, el código del colegio y el año, como 123-2010."},
    {u"solo-windows", Gravedad::Nota,
     u"El nombre de un archivo difiere en mayúsculas o acentos: Windows lo encuentra, otros "
     u"sistemas no.",
     u"En Windows no tiene que hacer nada."},
    {u"imagen-sin-traer", Gravedad::Nota, u"Falta una imagen que ninguna página muestra.",
     u"Si el colegio la tiene en el servicio, vuelva a descargar el histórico."},
    {u"de-otra-descarga", Gravedad::Nota,
     u"El archivo es de una descarga anterior y ninguna página de la última lo enlaza.",
     u"No tiene que hacer nada; suele ser de alguien que ya no está en la lista."},
    {u"resto-de-descarga", Gravedad::Nota, u"Quedó un resto de una descarga interrumpida.",
     u"Puede borrarlo; la próxima descarga lo borra."},
    {u"enlace-sin-destino", Gravedad::Nota, u"Un acceso de la carpeta lleva a algo que ya no está.",
     u"Puede borrarlo."},
    {u"nombre-dificil", Gravedad::Nota,
     u"Una memoria USB, un CD o Windows no aceptan el nombre de este archivo.",
     u"Para llevarlo a otro equipo use «Guardar copia»."},
    {u"enlace-del-servicio", Gravedad::Nota,
     u"Las páginas de esta clase enlazan algo que solo está en el servicio.", nada},
    {u"imagen-que-no-se-descarga", Gravedad::Nota,
     u"Las páginas muestran una imagen que la descarga no trae.",
     u"No tiene que hacer nada; algunas llegan al imprimir en lote los informes finales."},
    {u"archivo-ajeno", Gravedad::Nota, u"Hay un archivo que no es del histórico.",
     u"Si no lo puso usted, puede borrarlo."},
}};

} // namespace reglas
