// SPDX-License-Identifier: MIT
// The one order in which a print job asks, shows, stores and lets the window's other handlers run:
// requests, pauses, what the panel is told and turns of the event loop in a single history.
#include "escenario/Escenario.h"
#include "escenario/HttpInmediato.h"
#include "escenario/ImpresionAnotada.h"
#include "escenario/RelojesQuietos.h"
#include "escenario/Turnos.h"
#include "printing/casosTrabajo.h"
#include "printing/trabajos.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace casosTrabajo;

namespace {

const QString turno = u"turno"_s;

// What a text request, one that is also stored, and a file download leave in the history.
QStringList pedido(const QString &destino)
{
    return {turno, destino, turno};
}
QStringList documento(const QString &destino)
{
    return pedido(destino) << turno;
}
QStringList archivo(const QString &destino)
{
    return {turno, destino, u"pausa 500"_s};
}

QByteArray lista(const QString &trabajo)
{
    return trabajo == u"Planilla Trabajo" ? "77@|@ARTES\xAE"
                                            "78@|@X\xAE"
                                          : "77,ANA\xAE"
                                            "78,EVA\xAE";
}

// A job that downloads only, before a service that answers at once.
class Observado {
public:
    explicit Observado(const QString &trabajo) : m_trabajo(trabajo)
    {
        panel.imprimir = false;
        panel.comun = &e.historia;
    }

    QStringList historia()
    {
        Verbos verbos;
        const RelojesQuietos quietos;
        const Turnos turnos([this] { e.historia.anotar(turno); });
        correrTrabajo(m_trabajo, e.entorno, panel, verbos);
        return e.historia.sucesos();
    }

    Escenario e;
    PanelAnotado panel;
    QByteArrayList direcciones;

private:
    QByteArray responder(const QByteArray &direccion)
    {
        direcciones.append(direccion);
        e.historia.anotar(Historia::sinAzar(direccion).remove(e.demo.base()));
        return direccion.contains("tipo=matrix") ? lista(m_trabajo) : "una pagina cualquiera";
    }

    QString m_trabajo;
    HttpInmediato m_http{[this](const QByteArray &direccion) {
        return responder(direccion);
    }};
};

QStringList pedidoDeLista(const QString &pagina)
{
    return pedido(
        u"/querys/tessarin/%1.php?azar=#&idcolegio=123&tipo=matrix&salon=501"_s.arg(pagina));
}

} // namespace

class tst_orden : public QObject {
    Q_OBJECT
private:
    // Whether a folder below the root is there each time that a job asks for a list.
    static QList<bool> alPedirLaLista(const QString &trabajo, const QString &carpeta)
    {
        Escenario e;
        PanelAnotado panel;
        panel.imprimir = false;
        Verbos verbos;
        QList<bool> hay;
        const HttpInmediato http([&](const QByteArray &direccion) {
            if (direccion.contains("tipo=matrix"))
                hay.append(e.existe(carpeta));
            return QByteArray("una pagina cualquiera");
        });
        correrTrabajo(trabajo, e.entorno, panel, verbos);
        return hay;
    }

private Q_SLOTS:
    void trabajo_pideLaListaPreparaElPanelYVaFilaPorFila_data() { casosComoDatos(); }
    void trabajo_pideLaListaPreparaElPanelYVaFilaPorFila()
    {
        QFETCH(int, indice);
        const Caso caso = casos()[indice];
        Observado o(caso.nombre);
        QStringList esperada = pedidoDeLista(caso.lista);
        esperada += {u"empezar 2"_s, u"avanzar"_s};
        esperada += documento(caso.destino);
        esperada += u"avanzar"_s;
        esperada += documento(QString(caso.destino).replace(u"/77/"_s, u"/78/"_s));
        esperada += u"avanzar"_s; // the row behind the last separator
        for (const QString &imagen : caso.imagenes)
            esperada += archivo(imagen);
        esperada += u"terminar"_s;
        QCOMPARE(o.historia(), esperada);
    }

    void matriculas_muestranLaRespuestaAntesDePrepararElPanel()
    {
        Observado o(u"Hoja Matricula"_s);
        QStringList esperada = pedidoDeLista(u"alumnos"_s);
        esperada += {u"mensaje: 77,ANA®78,EVA®"_s, u"empezar 2"_s, u"avanzar"_s, u"avanzar"_s,
                     u"avanzar"_s};
        esperada += archivo(u"/images/colegios/123/logo.png"_s);
        esperada += u"terminar"_s;
        QCOMPARE(o.historia(), esperada);
    }

    void carpetas_estanHechasAlPedirLaLista_data() { casosComoDatos(); }
    void carpetas_estanHechasAlPedirLaLista()
    {
        QFETCH(int, indice);
        const Caso caso = casos()[indice];
        QCOMPARE(alPedirLaLista(caso.nombre, u"123-2010/archivos/"_s + caso.carpeta),
                 QList<bool>({true}));
    }

    // Whose sheets are printed from the archive, or there is none.
    void matriculas_noHacenCarpetaAntesDeLaLista()
    {
        QCOMPARE(alPedirLaLista(u"Hoja Matricula"_s, QString()), QList<bool>({false}));
    }

    // Drawn after the bar's step and before the request, from where the request before has left
    // the generator: a copy taken at the step gives the same number.
    void numero_seSorteaParaCadaFilaTrasSuAvance_data() { casosComoDatos(); }
    void numero_seSorteaParaCadaFilaTrasSuAvance()
    {
        QFETCH(int, indice);
        Observado o(casos()[indice].nombre);
        QStringList proximos;
        o.panel.alAvanzar = [&] {
            proximos.append(QString::number(Azar(o.e.azar).numero()));
        };
        o.historia();
        static const QRegularExpression forma(u"/tessarin/(\\d+)$"_s);
        QStringList numeros;
        for (const QByteArray &direccion : std::as_const(o.direcciones)) {
            const auto hallado = forma.match(QString::fromLatin1(direccion));
            if (hallado.hasMatch())
                numeros.append(hallado.captured(1));
        }
        QCOMPARE(numeros.size(), 2);
        QCOMPARE(numeros, proximos.mid(0, 2));
    }
};

QTEST_MAIN(tst_orden)
#include "tst_orden.moc"
