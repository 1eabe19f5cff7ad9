#include "archive/historico.h"
#include "archive/recursos.h"
#include "archive/reemplazos.h"
#include "archive/rutasArchivo.h"
#include "records/tcAlumnos.h"
#include "records/tcMaterias.h"
#include "records/tcSalones.h"
#include "service/archivos.h"
#include "service/frmCargador.h"
#include "service/limpieza.h"
#include "shell/ElementosProgreso.h"
#include "shell/Module1.h"

namespace {

// The run has ten procedures that each advance the bar, two more than its maximum. The last two
// change nothing and the bar stays full: users know it so.
constexpr int pasosMostrados = 8;

class Corrida {
public:
    explicit Corrida(Servicio &servicio) : m_servicio(servicio), m_cargador(servicio) {}

    void crearCarpetas()
    {
        crearCarpeta(m_servicio, rutasArchivo::raiz());
        crearCarpeta(m_servicio, rutasArchivo::carpeta() + u'\\');
        crearCarpeta(m_servicio, rutasArchivo::documentos());
    }

    void guardarPortada()
    {
        const QString pagina = pedir(QStringLiteral("salones.php"), QStringLiteral("html"));
        const QList<Reemplazo> reemplazos = {
            reemplazos::imagenesDelColegio(QStringLiteral("archivos\\images\\"))};
        escribirTexto(m_servicio, localizar(pagina, reemplazos, rutasArchivo::valores(m_servicio)),
                      sinSaltos(rutasArchivo::carpeta()) + QStringLiteral("\\index.html"), true);
    }

    QString pedir(const QString &consulta, const QString &tipo)
    {
        return m_cargador.conectar(
            m_servicio.ServiceBase + QStringLiteral("/querys/tessarin/") + consulta,
            QStringLiteral("idcolegio=") + Module1::idColegio + QStringLiteral("&tipo=") + tipo,
            true);
    }

private:
    Servicio &m_servicio;
    frmCargador m_cargador;
};

} // namespace

void descargarHistorico(Servicio &servicio, tcSalones &salones, tcAlumnos &alumnos,
                        std::unique_ptr<tcMaterias> &materias)
{
    Corrida corrida(servicio);
    elementosProgreso.barra2->ponerMaximo(pasosMostrados);
    corrida.crearCarpetas();
    descargarRecursos(servicio, sinSaltos(rutasArchivo::documentos()));
    corrida.guardarPortada();

    salones.downSalones();
    salones.downConsolidadoN();
    salones.downConsolidadoF();

    alumnos.Fcargar(corrida.pedir(QStringLiteral("alumnos.php"), QStringLiteral("matrix")));
    alumnos.downInfoFinal();
    alumnos.downCertificado();
    alumnos.downHojaMat();
    alumnos.downInfoAlumno();
    alumnos.downFotosAlumno();

    const QString rta = corrida.pedir(QStringLiteral("materias.php"), QStringLiteral("matrix"));
    if (!materias)
        materias = std::make_unique<tcMaterias>(servicio);
    materias->Fcargar(rta);
    materias->downLabels();
}
