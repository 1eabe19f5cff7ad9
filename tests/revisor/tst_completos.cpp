// SPDX-License-Identifier: MIT
// Archives that nothing happened to: whatever the school, not one finding but those that every
// archive has by its making.
#include "revisor/EscuelaDePrueba.h"
#include "revisor/Revision.h"

#include <QElapsedTimer>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QSet<QString> porSuHechura = {u"avatar-sin-foto"_s, u"segundo-sello"_s,
                                    u"ajustes-de-boletin"_s, u"guion-del-servicio"_s,
                                    u"etiqueta-imposible"_s};

QStringList hallados(const Resultado &resultado)
{
    QStringList lineas;
    for (const Hallazgo &h : resultado.hallazgos) {
        if (!porSuHechura.contains(h.regla->nombre.toString()))
            lineas.append(h.regla->nombre.toString() + u" "_s + h.archivo + u" "_s + h.detalle);
    }
    return lineas.mid(0, 20);
}

int variable(const char *nombre, int siNo)
{
    bool hay = false;
    const int valor = qEnvironmentVariableIntValue(nombre, &hay);
    return hay ? valor : siNo;
}

} // namespace

class tst_completos : public QObject {
    Q_OBJECT
private:
    static void comparar(const Resultado &resultado, const Escuela &escuela)
    {
        QCOMPARE(hallados(resultado), QStringList());
        QCOMPARE(resultado.veredicto, Veredicto::Completo);
        QCOMPARE(resultado.personas, int(escuela.alumnos.size()));
        QCOMPARE(resultado.salones, int(escuela.salones.size()));
        QCOMPARE(resultado.personasConFaltas, 0);
        const auto conFoto = std::count_if(escuela.alumnos.begin(), escuela.alumnos.end(),
                                           [](const AlumnoDemo &a) { return a.conFoto; });
        QCOMPARE(resultado.fotos, int(conFoto));
        for (const Seccion &seccion : resultado.secciones) {
            QCOMPARE(seccion.hay, seccion.esperados);
            QCOMPARE(seccion.buenos, seccion.hay);
        }
        QCOMPARE(resultado.secciones[0].hay, 1);
        QCOMPARE(resultado.secciones[1].hay, int(escuela.salones.size()));
        QCOMPARE(resultado.secciones[4].hay, int(escuela.alumnos.size()));
    }

private Q_SLOTS:
    void demostracion_esCompleta()
    {
        EscuelaDePrueba escuela(generarEscuela({}));
        const QTemporaryDir personal;
        const auto carpeta = escuela.descargar(personal.path());
        const Resultado resultado = revisar(carpeta);
        comparar(resultado, escuela.escuela);
        QCOMPARE(resultado.nombre, u"123-2010"_s);
        QVERIFY(resultado.bytes > 100'000);
        QVERIFY(resultado.desde.isValid() && resultado.desde <= resultado.hasta);
    }

    void demostracionConLotes_esCompletaYAvisaDeLosBoletines()
    {
        EscuelaDePrueba escuela(generarEscuela({2010, 2, 4, 6}));
        const QTemporaryDir personal;
        const auto carpeta = escuela.descargar(personal.path());
        escuela.imprimir(personal.path());
        const Resultado resultado = revisar(carpeta);
        comparar(resultado, escuela.escuela);
        QStringList reglas;
        for (const Hallazgo &h : resultado.hallazgos)
            reglas.append(h.regla->nombre.toString());
        QCOMPARE(reglas, QStringList({u"avatar-sin-foto"_s, u"ajustes-de-boletin"_s,
                                      u"guion-del-servicio"_s}));
    }

    void escuelasAlAzar_sonCompletas()
    {
        const int cuantas = variable("PARVANEL_REVISOR_ARCHIVOS", 12);
        const auto semilla = quint32(variable("PARVANEL_REVISOR_SEMILLA", 20101));
        qInfo("%d schools from the seed %u", cuantas, semilla);
        for (int i = 0; i < cuantas; ++i) {
            QRandomGenerator azar(semilla + quint32(i));
            EscuelaDePrueba escuela(escuelaAlAzar(azar));
            const QTemporaryDir personal;
            const auto carpeta = escuela.descargar(personal.path());
            if (azar.bounded(3) == 0)
                escuela.imprimir(personal.path());
            const Resultado resultado = revisar(carpeta);
            comparar(resultado, escuela.escuela);
            if (QTest::currentTestFailed()) {
                qWarning("school %d of the seed %u", i, semilla);
                return;
            }
        }
    }
};

QTEST_MAIN(tst_completos)
#include "tst_completos.moc"
