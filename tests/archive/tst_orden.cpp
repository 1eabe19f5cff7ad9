// SPDX-License-Identifier: MIT
// The one order in which the archive's procedures ask, show, store and let the window's other
// handlers run: requests, pauses, texts, bar steps, events of the lists and turns of the event
// loop in a single history.
#include "archive/casosDescarga.h"
#include "archive/historico.h"
#include "archive/recursos.h"
#include "escenario/HttpInmediato.h"
#include "escenario/RelojesQuietos.h"
#include "escenario/Turnos.h"
#include "records/tcMaterias.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace casosDescarga;

namespace {

const QString turno = u"turno"_s;
const QString pausa = u"pausa 500"_s;
const QString consultas = u"/querys/tessarin/"_s;
const QByteArray cualquiera = "una pagina cualquiera";

// What a text request, one that is also stored, and a file download leave in the history.
QStringList pedido(const QString &destino)
{
    return {turno, destino, turno};
}
QStringList pagina(const QString &destino)
{
    return pedido(destino) << turno;
}
QStringList archivo(const QString &destino)
{
    return {turno, destino, pausa};
}

// The procedures before a service that answers at once.
class Observado {
public:
    explicit Observado(HttpInmediato::Responder responder)
        : m_http([this, responder = std::move(responder)](const QByteArray &direccion) {
              e.historia.anotar(
                  Historia::sinAzar(direccion).remove(e.demo.base() + u'/').prepend(u'/'));
              return responder(direccion);
          })
    {
        for (tcLista *lista : {static_cast<tcLista *>(&salones), static_cast<tcLista *>(&alumnos)})
            QObject::connect(lista, &tcLista::nuevaDescarga, lista,
                             [this](const QString &texto) { e.historia.anotar(texto); });
    }

    template <typename Hacer>
    QStringList historia(Hacer hacer)
    {
        const RelojesQuietos quietos;
        const Turnos turnos([this] { e.historia.anotar(turno); });
        hacer();
        return e.historia.sucesos();
    }

    Escenario e;
    tcSalones salones{e.entorno};
    tcAlumnos alumnos{e.entorno};

private:
    HttpInmediato m_http;
};

} // namespace

class tst_orden : public QObject {
    Q_OBJECT
private:
    static QStringList recursos()
    {
        QStringList sucesos = {u"barra1 max 2"_s, u"barra1 1"_s, u"barra2 1"_s,
                               u"estadoTS: Descargando Scripts"_s};
        sucesos += pagina(u"/jscript/jquery.tools.min.js?azar=#&"_s);
        sucesos += pagina(u"/jscript/jquery.tablesorter.min.js?azar=#&"_s);
        sucesos += u"estadoTS: Descargando Configuracion"_s;
        for (const char *campo :
             {"RECTOR", "SECRETARIA", "SLOGAN", "MICOLEGIO", "DIRECCION", "TELEFONO", "CDANE"})
            sucesos += pedido(consultas
                              + u"tomarValor.php?azar=#&idcolegio=123&campo=%1&acutes=SI"_s.arg(
                                  QLatin1StringView(campo)));
        sucesos += {turno, u"barra1 2"_s, u"estadoTS: Descargando Logotipos"_s};
        for (const char *imagen :
             {"colegios/123/logo.png", "default-avatar.png", "bg.gif", "asc.gif", "desc.gif",
              "promovido.png", "reprobado.png", "colegios/123/rector.png"})
            sucesos += archivo(u"/images/"_s + QLatin1StringView(imagen));
        return sucesos;
    }

private Q_SLOTS:
    void metodo_anunciaPideGuardaAvanzaYCede_data() { casosComoDatos(); }
    void metodo_anunciaPideGuardaAvanzaYCede()
    {
        QFETCH(int, indice);
        const Caso &caso = casos[indice].second;
        Observado o([](const QByteArray &) { return cualquiera; });
        o.salones.Fcargar(u"13,6B®14,6A"_s);
        o.alumnos.Fcargar(u"13,6B®14,6A"_s);
        const QStringList historia = o.historia([&] { caso.metodo(o.salones, o.alumnos); });

        const QString texto13 =
            QString(caso.texto).replace(u"14"_s, u"13"_s).replace(u"6A - 2"_s, u"6B - 1"_s);
        QStringList esperada = {u"barra1 max 2"_s, u"barra1 0"_s, u"barra2 1"_s,
                                u"estadoTS: "_s + caso.titulo, texto13};
        esperada += pagina(QString(caso.destino).replace(u"14"_s, u"13"_s));
        esperada += {u"barra1 1"_s, turno, caso.texto};
        esperada += pagina(caso.destino);
        esperada += {u"barra1 2"_s, turno};
        QCOMPARE(historia, esperada);
    }

    void fotos_preguntanTraenAvanzanYCeden()
    {
        int preguntas = 0;
        Observado o([&](const QByteArray &direccion) -> std::optional<QByteArray> {
            if (!direccion.contains("existe.php"))
                return cualquiera;
            // Every query after the first fails: that student's photo is not fetched.
            return ++preguntas == 1 ? std::optional<QByteArray>("SI") : std::nullopt;
        });
        o.alumnos.Fcargar(u"13,ANA®14,EVA"_s);
        const QStringList historia = o.historia([&] { o.alumnos.downFotosAlumno(); });

        const QString consulta = consultas + u"existe.php?azar=#&f="_s;
        const QString foto = u"/jup/images/123/%1-alumno.jpg"_s;
        // The address within the query loses its service in this test's history.
        QStringList esperada = {u"barra1 max 2"_s, u"barra1 0"_s, u"barra2 1"_s,
                                u"estadoTS: Descargando Imagenes de Alumnos"_s,
                                u"Foto de alumno (13): ANA - 1 de 2"_s};
        esperada += pedido(consulta + foto.arg(13).mid(1));
        esperada += archivo(foto.arg(13));
        esperada += {u"barra1 1"_s, turno, u"Foto de alumno (14): EVA - 2 de 2"_s};
        for (int intento = 1; intento <= 4; ++intento)
            esperada += pedido(consulta + foto.arg(14).mid(1));
        esperada += {u"barra1 2"_s, turno};
        QCOMPARE(historia, esperada);
    }

    void recursos_muestranCadaTituloAntesDeLoSuyo()
    {
        Observado o([](const QByteArray &) { return cualquiera; });
        QCOMPARE(o.historia([&] {
            descargarRecursos(o.e.entorno, u"c:\\Quorvela\\123-2010\\archivos\\"_s);
        }),
                 recursos());
    }

    // A yield after each subject, none of its own after an area: the downloads have theirs.
    void etiquetas_muestranCadaTextoAntesDeSuImagen()
    {
        Observado o([](const QByteArray &) { return cualquiera; });
        tcMaterias materias(o.e.entorno);
        materias.Fcargar(u"1,A,X®2,B,Y"_s);
        const QString imagen = u"/imgTXT.php?txt="_s;
        QStringList esperada = {u"barra1 max 2"_s, u"barra1 0"_s, u"barra2 1"_s,
                                u"estadoTS: Descargando Labels de Materias"_s,
                                u"estadoHS: Label: A - 1 de 2"_s};
        esperada += archivo(imagen + u'A');
        esperada += {u"barra1 1"_s, turno, u"estadoHS: Label: B - 2 de 2"_s};
        esperada += archivo(imagen + u'B');
        esperada += {u"barra1 2"_s, turno, u"barra1 max 3"_s, u"barra1 0"_s,
                     u"estadoHS: Label: X - 1 de 3"_s};
        esperada += archivo(imagen + u'X');
        esperada += {u"barra1 1"_s, u"estadoHS: Label: Y - 2 de 3"_s};
        esperada += archivo(imagen + u'Y');
        esperada += {u"barra1 2"_s, u"estadoHS: Label: Total Fallas - 3 de 3"_s};
        esperada += archivo(imagen + u"Total%20Fallas"_s);
        esperada += u"barra1 3"_s;
        for (const auto &titulo : {u"Nro%20Perdidas"_s, u"Promedio"_s, u"Puesto"_s})
            esperada += archivo(imagen + titulo);
        QCOMPARE(o.historia([&] { materias.downLabels(); }), esperada);
    }

    // With lists of no records, so that every line is one of the run's own steps.
    void corrida_llevaSusPasosEnOrden()
    {
        Observado o([](const QByteArray &direccion) {
            return direccion.contains("matrix") ? QByteArray(8, '\xAE') : cualquiera;
        });
        std::unique_ptr<tcMaterias> materias;
        const QStringList historia =
            o.historia([&] { descargarHistorico(o.e.entorno, o.salones, o.alumnos, materias); });

        QStringList esperada = QStringList{u"barra2 max 8"_s} + recursos();
        int paso = 1;
        const auto fila = [&](const QString &titulo) {
            esperada += {u"barra1 max 0"_s, u"barra1 0"_s};
            if (++paso <= 8) // the last two change nothing
                esperada += u"barra2 %1"_s.arg(paso);
            esperada += u"estadoTS: "_s + titulo;
        };
        const QString lista = consultas + u"%1.php?azar=#&idcolegio=123&tipo=%2"_s;
        esperada += pagina(lista.arg(u"salones"_s, u"html"_s));
        fila(u"Descargando Salones"_s);
        fila(u"Descargando Consolidado Notas"_s);
        fila(u"Descargando Consolidado Fallas"_s);
        esperada += pedido(lista.arg(u"alumnos"_s, u"matrix"_s));
        fila(u"Descargando Informes Finales"_s);
        fila(u"Descargando Certificados Finales"_s);
        fila(u"Descargando Hojas de Matricula"_s);
        fila(u"Descargando Informacion de Alumnos"_s);
        fila(u"Descargando Imagenes de Alumnos"_s);
        esperada += pedido(lista.arg(u"materias"_s, u"matrix"_s));
        fila(u"Descargando Labels de Materias"_s);
        esperada += {u"barra1 max 1"_s, u"barra1 0"_s, u"estadoHS: Label: Total Fallas - 1 de 1"_s};
        esperada += archivo(u"/imgTXT.php?txt=Total%20Fallas"_s);
        esperada += u"barra1 1"_s;
        for (const auto &titulo : {u"Nro%20Perdidas"_s, u"Promedio"_s, u"Puesto"_s})
            esperada += archivo(u"/imgTXT.php?txt="_s + titulo);
        QCOMPARE(historia, esperada);
    }
};

QTEST_MAIN(tst_orden)
#include "tst_orden.moc"
