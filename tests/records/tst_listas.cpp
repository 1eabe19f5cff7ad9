// SPDX-License-Identifier: MIT
#include "escenario/Escenario.h"
#include "escenario/Turnos.h"
#include "records/tcAlumnos.h"
#include "records/tcMaterias.h"
#include "records/tcSalones.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_listas : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<Escenario> e;

private Q_SLOTS:
    void init() { e = std::make_unique<Escenario>(); }
    void cleanup() { e.reset(); }

    void dosSalones_danDosRegistrosYDosLineas()
    {
        tcSalones salones(e->entorno);
        QSignalSpy lineas(&salones, &tcSalones::nuevaLinea);
        salones.Fcargar(QStringLiteral("5,QUINTO A®6,SEXTO B"));
        QCOMPARE(salones.Count(), 2);
        QCOMPARE(salones.Item(1)->id, QStringLiteral("5"));
        QCOMPARE(salones.Item(1)->salon, QStringLiteral("QUINTO A"));
        QCOMPARE(salones.Item(QStringLiteral("6"))->salon, QStringLiteral("SEXTO B"));
        QCOMPARE(lineas.size(), 2);
        QCOMPARE(lineas[0][0].toString(), QStringLiteral("5   : QUINTO A"));
        QCOMPARE(lineas[1][0].toString(), QStringLiteral("6   : SEXTO B"));
    }

    void itemPorClaveYPorPosicion_esElMismoRegistro()
    {
        tcSalones salones(e->entorno);
        salones.Fcargar(QStringLiteral("5,QUINTO A®6,SEXTO B"));
        QCOMPARE(salones.Item(QStringLiteral("5")), salones.Item(1));
        QVERIFY(salones.Remove(QStringLiteral("5")));
        QCOMPARE(salones.Count(), 1);
        QCOMPARE(salones.Item(1)->id, QStringLiteral("6"));
        QVERIFY(!salones.Item(QStringLiteral("5")));
        QVERIFY(salones.Remove(1));
        QVERIFY(!salones.Remove(1));
        QCOMPARE(salones.Count(), 0);
    }

    void idConSalto_pierdeElSaltoPeroLaLineaLoConserva()
    {
        tcSalones salones(e->entorno);
        QSignalSpy lineas(&salones, &tcSalones::nuevaLinea);
        salones.Fcargar(QStringLiteral("7\r\n,SEPTIMO"));
        QCOMPARE(salones.Item(1)->id, QStringLiteral("7"));
        QVERIFY(salones.Item(QStringLiteral("7")));
        QCOMPARE(lineas[0][0].toString(), QStringLiteral("7\r\n   : SEPTIMO"));
    }

    void blancosAlrededor_seConservan()
    {
        tcAlumnos alumnos(e->entorno);
        alumnos.Fcargar(QStringLiteral(" 8, PEDRO"));
        QCOMPARE(alumnos.Item(QStringLiteral(" 8"))->nombre, QStringLiteral(" PEDRO"));
        QVERIFY(!alumnos.Item(QStringLiteral("8")));
    }

    void columnaDeMas_seIgnora()
    {
        tcAlumnos alumnos(e->entorno);
        alumnos.Fcargar(QStringLiteral("9,LUIS,X"));
        QCOMPARE(alumnos.Count(), 1);
        QCOMPARE(alumnos.Item(1)->nombre, QStringLiteral("LUIS"));
    }

    void salonDeUnSoloCampo_daNombreVacioYSuLinea()
    {
        tcSalones salones(e->entorno);
        QSignalSpy lineas(&salones, &tcSalones::nuevaLinea);
        salones.Fcargar(QStringLiteral("5"));
        QCOMPARE(salones.Item(1)->salon, QString());
        QCOMPARE(lineas[0][0].toString(), QStringLiteral("5   : "));
    }

    void filaVacia_noDaRegistroNiLinea()
    {
        tcSalones salones(e->entorno);
        QSignalSpy lineas(&salones, &tcSalones::nuevaLinea);
        salones.Fcargar(QString());
        salones.Fcargar(QStringLiteral("5,A®"));
        QCOMPARE(salones.Count(), 1);
        QCOMPARE(lineas.size(), 1);
    }

    void textoDeError_seLeeComoUnaFila()
    {
        tcSalones salones(e->entorno);
        salones.Fcargar(u"ERROR"_s);
        QCOMPARE(salones.Count(), 1);
        QCOMPARE(salones.Item(1)->id, u"ERROR"_s);
    }

    void filaDeSoloUnSalto_daRegistroConIdVacio()
    {
        tcAlumnos alumnos(e->entorno);
        alumnos.Fcargar(u"1,ANA®\r\n"_s);
        QCOMPARE(alumnos.Count(), 2);
        QCOMPARE(alumnos.Item(2)->id, QString());
    }

    void claveRepetida_dejaElPrimeroPeroSuLineaSale()
    {
        tcSalones salones(e->entorno);
        QSignalSpy lineas(&salones, &tcSalones::nuevaLinea);
        salones.Fcargar(QStringLiteral("a1,PRIMERO®A1,SEGUNDO"));
        QCOMPARE(salones.Count(), 1);
        QCOMPARE(salones.Item(QStringLiteral("A1"))->salon, QStringLiteral("PRIMERO"));
        QCOMPARE(lineas.size(), 2);
    }

    void claveConOtraLetraAcentuada_esLaMisma()
    {
        tcAlumnos alumnos(e->entorno);
        alumnos.Fcargar(QStringLiteral("Ñ1,UNO®ñ1,DOS®ß,TRES®ss,CUATRO"));
        QCOMPARE(alumnos.Count(), 3);
        QCOMPARE(alumnos.Item(QStringLiteral("ñ1"))->nombre, QStringLiteral("UNO"));
    }

    void addDeClaveRepetida_devuelveElRegistroRechazado()
    {
        tcAlumnos alumnos(e->entorno);
        alumnos.Add(QStringLiteral("1"), QStringLiteral("ANA"), QStringLiteral("1"));
        const auto otro =
            alumnos.Add(QStringLiteral("1"), QStringLiteral("EVA"), QStringLiteral("1"));
        QCOMPARE(otro->nombre, QStringLiteral("EVA"));
        QCOMPARE(alumnos.Item(1)->nombre, QStringLiteral("ANA"));
    }

    void cargarDosVeces_sumaLosRegistros()
    {
        tcAlumnos alumnos(e->entorno);
        alumnos.Fcargar(QStringLiteral("1,ANA"));
        alumnos.Fcargar(QStringLiteral("1,OTRA®2,EVA"));
        QCOMPARE(alumnos.Count(), 2);
        QCOMPARE(alumnos.Item(1)->nombre, QStringLiteral("ANA"));
    }

    void recorrido_vaEnElOrdenDeEntrada()
    {
        tcMaterias materias(e->entorno);
        materias.Fcargar(QStringLiteral("z,ZOO,B®a,ARTE,A®m"));
        QStringList textos;
        const auto registros = materias.NewEnum();
        for (const auto &materia : registros)
            textos.append(materia->id + u'/' + materia->nombre + u'/' + materia->area);
        QCOMPARE(textos, QStringList({QStringLiteral("z/ZOO/B"), QStringLiteral("a/ARTE/A"),
                                      QStringLiteral("m//")}));
    }

    void lineaDelSalon_saleAntesQueSuRegistro()
    {
        tcSalones salones(e->entorno);
        QList<int> alSalir;
        connect(&salones, &tcSalones::nuevaLinea, this, [&] { alSalir.append(salones.Count()); });
        salones.Fcargar(u"5,A®5,OTRA VEZ®6,B"_s);
        QCOMPARE(alSalir, QList<int>({0, 1, 1}));
    }

    void soloLasMaterias_cedenTrasCadaRegistro()
    {
        tcMaterias materias(e->entorno);
        QList<int> alCeder;
        {
            const Turnos turnos([&] { alCeder.append(materias.Count()); });
            materias.Fcargar(u"1,A,X®2,B,X®2,OTRA VEZ,X®3,C,X"_s);
        }
        QCOMPARE(alCeder, QList<int>({1, 2, 2, 3}));
        int otros = 0;
        const Turnos turnos([&] { ++otros; });
        tcSalones(e->entorno).Fcargar(u"5,A®6,B"_s);
        tcAlumnos(e->entorno).Fcargar(u"1,ANA®2,EVA"_s);
        QCOMPARE(otros, 0);
    }

    void cargar_noAnunciaDescargas()
    {
        tcSalones salones(e->entorno);
        QSignalSpy avisos(&salones, &tcLista::nuevaDescarga);
        salones.Fcargar(QStringLiteral("5,A®6,B"));
        QCOMPARE(avisos.size(), 0);
    }
};

QTEST_MAIN(tst_listas)
#include "tst_listas.moc"
