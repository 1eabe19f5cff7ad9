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
    std::unique_ptr<Escenario> m_e;

private Q_SLOTS:
    void init() { m_e = std::make_unique<Escenario>(); }
    void cleanup() { m_e.reset(); }

    void dosSalones_danDosRegistrosYDosLineas()
    {
        tcSalones salones(m_e->entorno);
        QSignalSpy lineas(&salones, &tcSalones::nuevaLinea);
        salones.Fcargar(u"5,QUINTO A®6,SEXTO B"_s);
        QCOMPARE(salones.Count(), 2);
        QCOMPARE(salones.Item(1)->id, u"5"_s);
        QCOMPARE(salones.Item(1)->salon, u"QUINTO A"_s);
        QCOMPARE(salones.Item(u"6"_s)->salon, u"SEXTO B"_s);
        QCOMPARE(lineas.size(), 2);
        QCOMPARE(lineas[0][0].toString(), u"5   : QUINTO A"_s);
        QCOMPARE(lineas[1][0].toString(), u"6   : SEXTO B"_s);
    }

    void itemPorClaveYPorPosicion_esElMismoRegistro()
    {
        tcSalones salones(m_e->entorno);
        salones.Fcargar(u"5,QUINTO A®6,SEXTO B"_s);
        QCOMPARE(salones.Item(u"5"_s), salones.Item(1));
        QVERIFY(salones.Remove(u"5"_s));
        QCOMPARE(salones.Count(), 1);
        QCOMPARE(salones.Item(1)->id, u"6"_s);
        QVERIFY(!salones.Item(u"5"_s));
        QVERIFY(salones.Remove(1));
        QVERIFY(!salones.Remove(1));
        QCOMPARE(salones.Count(), 0);
    }

    void idConSalto_pierdeElSaltoPeroLaLineaLoConserva()
    {
        tcSalones salones(m_e->entorno);
        QSignalSpy lineas(&salones, &tcSalones::nuevaLinea);
        salones.Fcargar(u"7\r\n,SEPTIMO"_s);
        QCOMPARE(salones.Item(1)->id, u"7"_s);
        QVERIFY(salones.Item(u"7"_s));
        QCOMPARE(lineas[0][0].toString(), u"7\r\n   : SEPTIMO"_s);
    }

    void blancosAlrededor_seConservan()
    {
        tcAlumnos alumnos(m_e->entorno);
        alumnos.Fcargar(u" 8, PEDRO"_s);
        QCOMPARE(alumnos.Item(u" 8"_s)->nombre, u" PEDRO"_s);
        QVERIFY(!alumnos.Item(u"8"_s));
    }

    void columnaDeMas_seIgnora()
    {
        tcAlumnos alumnos(m_e->entorno);
        alumnos.Fcargar(u"9,LUIS,X"_s);
        QCOMPARE(alumnos.Count(), 1);
        QCOMPARE(alumnos.Item(1)->nombre, u"LUIS"_s);
    }

    void salonDeUnSoloCampo_daNombreVacioYSuLinea()
    {
        tcSalones salones(m_e->entorno);
        QSignalSpy lineas(&salones, &tcSalones::nuevaLinea);
        salones.Fcargar(u"5"_s);
        QCOMPARE(salones.Item(1)->salon, QString());
        QCOMPARE(lineas[0][0].toString(), u"5   : "_s);
    }

    void filaVacia_noDaRegistroNiLinea()
    {
        tcSalones salones(m_e->entorno);
        QSignalSpy lineas(&salones, &tcSalones::nuevaLinea);
        salones.Fcargar(QString());
        salones.Fcargar(u"5,A®"_s);
        QCOMPARE(salones.Count(), 1);
        QCOMPARE(lineas.size(), 1);
    }

    void textoDeError_seLeeComoUnaFila()
    {
        tcSalones salones(m_e->entorno);
        salones.Fcargar(u"ERROR"_s);
        QCOMPARE(salones.Count(), 1);
        QCOMPARE(salones.Item(1)->id, u"ERROR"_s);
    }

    void filaDeSoloUnSalto_daRegistroConIdVacio()
    {
        tcAlumnos alumnos(m_e->entorno);
        alumnos.Fcargar(u"1,ANA®\r\n"_s);
        QCOMPARE(alumnos.Count(), 2);
        QCOMPARE(alumnos.Item(2)->id, QString());
    }

    void claveRepetida_dejaElPrimeroPeroSuLineaSale()
    {
        tcSalones salones(m_e->entorno);
        QSignalSpy lineas(&salones, &tcSalones::nuevaLinea);
        salones.Fcargar(u"a1,PRIMERO®A1,SEGUNDO"_s);
        QCOMPARE(salones.Count(), 1);
        QCOMPARE(salones.Item(u"A1"_s)->salon, u"PRIMERO"_s);
        QCOMPARE(lineas.size(), 2);
    }

    void claveConOtraLetraAcentuada_esLaMisma()
    {
        tcAlumnos alumnos(m_e->entorno);
        alumnos.Fcargar(u"Ñ1,UNO®ñ1,DOS®ß,TRES®ss,CUATRO"_s);
        QCOMPARE(alumnos.Count(), 3);
        QCOMPARE(alumnos.Item(u"ñ1"_s)->nombre, u"UNO"_s);
    }

    void addDeClaveRepetida_devuelveElRegistroRechazado()
    {
        tcAlumnos alumnos(m_e->entorno);
        alumnos.Add(u"1"_s, u"ANA"_s, u"1"_s);
        const auto otro = alumnos.Add(u"1"_s, u"EVA"_s, u"1"_s);
        QCOMPARE(otro->nombre, u"EVA"_s);
        QCOMPARE(alumnos.Item(1)->nombre, u"ANA"_s);
    }

    void cargarDosVeces_sumaLosRegistros()
    {
        tcAlumnos alumnos(m_e->entorno);
        alumnos.Fcargar(u"1,ANA"_s);
        alumnos.Fcargar(u"1,OTRA®2,EVA"_s);
        QCOMPARE(alumnos.Count(), 2);
        QCOMPARE(alumnos.Item(1)->nombre, u"ANA"_s);
    }

    void recorrido_vaEnElOrdenDeEntrada()
    {
        tcMaterias materias(m_e->entorno);
        materias.Fcargar(u"z,ZOO,B®a,ARTE,A®m"_s);
        QStringList textos;
        const auto registros = materias.NewEnum();
        for (const auto &materia : registros)
            textos.append(materia->id + u'/' + materia->nombre + u'/' + materia->area);
        QCOMPARE(textos, QStringList({u"z/ZOO/B"_s, u"a/ARTE/A"_s, u"m//"_s}));
    }

    void lineaDelSalon_saleAntesQueSuRegistro()
    {
        tcSalones salones(m_e->entorno);
        QList<int> alSalir;
        connect(&salones, &tcSalones::nuevaLinea, this, [&] { alSalir.append(salones.Count()); });
        salones.Fcargar(u"5,A®5,OTRA VEZ®6,B"_s);
        QCOMPARE(alSalir, QList<int>({0, 1, 1}));
    }

    void soloLasMaterias_cedenTrasCadaRegistro()
    {
        tcMaterias materias(m_e->entorno);
        QList<int> alCeder;
        {
            const Turnos turnos([&] { alCeder.append(materias.Count()); });
            materias.Fcargar(u"1,A,X®2,B,X®2,OTRA VEZ,X®3,C,X"_s);
        }
        QCOMPARE(alCeder, QList<int>({1, 2, 2, 3}));
        int otros = 0;
        const Turnos turnos([&] { ++otros; });
        tcSalones(m_e->entorno).Fcargar(u"5,A®6,B"_s);
        tcAlumnos(m_e->entorno).Fcargar(u"1,ANA®2,EVA"_s);
        QCOMPARE(otros, 0);
    }

    void cargar_noAnunciaDescargas()
    {
        tcSalones salones(m_e->entorno);
        QSignalSpy avisos(&salones, &tcLista::nuevaDescarga);
        salones.Fcargar(u"5,A®6,B"_s);
        QCOMPARE(avisos.size(), 0);
    }
};

QTEST_MAIN(tst_listas)
#include "tst_listas.moc"
