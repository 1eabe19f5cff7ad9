// SPDX-License-Identifier: MIT
#include "archive/historico.h"
#include "archive/recursos.h"
#include "pages/reemplazos.h"
#include "pages/rutasArchivo.h"
#include "platform/codepage.h"
#include "records/tcAlumnos.h"
#include "records/tcMaterias.h"
#include "records/tcSalones.h"
#include "service/archivos.h"
#include "service/frmCargador.h"
#include "service/limpieza.h"

using namespace Qt::StringLiterals;

namespace {

// The run has ten procedures that each advance the bar, two more than its maximum. The last two
// change nothing, and the bar is full while they go on: the end is told by the message alone.
constexpr int pasosMostrados = 8;

constexpr Reemplazo dePortada[] = {reemplazos::imagenesDelColegio(u"archivos\\images\\")};

class Corrida {
public:
    explicit Corrida(Entorno &entorno) : m_entorno(entorno), m_cargador(entorno) {}

    void crearCarpetas()
    {
        crearCarpeta(m_entorno, rutasArchivo::raiz());
        crearCarpeta(m_entorno, rutasArchivo::carpeta(m_entorno.sesion) + u'\\');
        crearCarpeta(m_entorno, rutasArchivo::documentos(m_entorno.sesion));
    }

    void guardarPortada()
    {
        escribirBytes(m_entorno,
                      localizar(traer(u"salones.php"_s, u"html"_s), dePortada,
                                rutasArchivo::valores(m_entorno)),
                      sinSaltos(rutasArchivo::carpeta(m_entorno.sesion)) + u"\\index.html"_s, true);
    }

    QString pedir(const QString &consulta, const QString &tipo)
    {
        return codepage::aTexto(traer(consulta, tipo));
    }

private:
    QByteArray traer(const QString &consulta, const QString &tipo)
    {
        return m_cargador.traer(m_entorno.ServiceBase + u"/querys/tessarin/"_s + consulta,
                                u"idcolegio="_s + m_entorno.sesion.idColegio + u"&tipo="_s + tipo,
                                true);
    }

    Entorno &m_entorno;
    frmCargador m_cargador;
};

} // namespace

void descargarHistorico(Entorno &entorno, tcSalones &salones, tcAlumnos &alumnos,
                        std::unique_ptr<tcMaterias> &materias)
{
    Corrida corrida(entorno);
    entorno.progreso.barra2->ponerMaximo(pasosMostrados);
    corrida.crearCarpetas();
    descargarRecursos(entorno, sinSaltos(rutasArchivo::documentos(entorno.sesion)));
    corrida.guardarPortada();

    salones.downSalones();
    salones.downConsolidadoN();
    salones.downConsolidadoF();

    alumnos.Fcargar(corrida.pedir(u"alumnos.php"_s, u"matrix"_s));
    alumnos.downInfoFinal();
    alumnos.downCertificado();
    alumnos.downHojaMat();
    alumnos.downInfoAlumno();
    alumnos.downFotosAlumno();

    const QString rta = corrida.pedir(u"materias.php"_s, u"matrix"_s);
    if (!materias)
        materias = std::make_unique<tcMaterias>(entorno);
    materias->Fcargar(rta);
    materias->downLabels();
}
