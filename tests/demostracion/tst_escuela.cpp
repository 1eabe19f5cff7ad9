// SPDX-License-Identifier: MIT
#include "demostracion/Escuela.h"
#include "demostracion/calificaciones.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_escuela : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void mismaSemilla_mismaEscuela();
    void otraSemilla_otrosNombres();
    void porOmision_unAlumnoConcreto();
    void tamano_esElPedido_data();
    void tamano_esElPedido();
    void identificadores_sonUnicos();
    void nombres_sinComasNiSeparadores();
    void materias_muestranGuionAcentosYAreaCompartida();
    void materias_terminanConLaDefinitiva();
    void fotos_faltanAUnoDeCadaCinco();
    void notas_entreUnoYCincoConUnaDecimal();
    void alumnos_unosPasanOtrosNo();
    void ajustes_estanTodos();
    void promedio_seRedondeaHaciaArribaEnLaMitad();
};

static QString huella(const Escuela &escuela)
{
    QStringList partes;
    for (const AlumnoDemo &a : escuela.alumnos) {
        partes << a.id << a.nombre << a.salon << a.documento << a.nacimiento << a.direccion
               << a.acudiente;
        for (const QList<double> &materia : a.notas)
            for (const double nota : materia)
                partes << QString::number(nota);
    }
    for (const SalonDemo &s : escuela.salones)
        partes << s.id << s.nombre << s.director;
    for (const MateriaDemo &m : escuela.materias)
        partes << m.id << m.nombre << m.area << m.docente;
    return partes.join(u'|');
}

void tst_escuela::mismaSemilla_mismaEscuela()
{
    QCOMPARE(huella(generarEscuela({})), huella(generarEscuela({})));
}

void tst_escuela::otraSemilla_otrosNombres()
{
    TamanoEscuela otra;
    otra.semilla = 7;
    QVERIFY(huella(generarEscuela({})) != huella(generarEscuela(otra)));
}

// Written out: the school must not change from one machine or compiler to another.
void tst_escuela::porOmision_unAlumnoConcreto()
{
    const Escuela escuela = generarEscuela({});
    QCOMPARE(escuela.alumnos.first().nombre, u"BEDOYA PÉREZ JUAN SEBASTIÁN"_s);
    QCOMPARE(escuela.alumnos.first().documento, u"1075180236"_s);
}

void tst_escuela::tamano_esElPedido_data()
{
    QTest::addColumn<int>("salones");
    QTest::addColumn<int>("alumnos");
    QTest::addColumn<int>("materias");
    QTest::newRow("vacia") << 0 << 0 << 0;
    QTest::newRow("minima") << 1 << 1 << 1;
    QTest::newRow("grande") << 40 << 30 << 20;
}

void tst_escuela::tamano_esElPedido()
{
    QFETCH(int, salones);
    QFETCH(int, alumnos);
    QFETCH(int, materias);
    const Escuela escuela = generarEscuela({3, salones, alumnos, materias});
    QCOMPARE(escuela.salones.size(), salones);
    QCOMPARE(escuela.alumnos.size(), salones * alumnos);
    QCOMPARE(demo::materiasDictadas(escuela), materias);
    QCOMPARE(escuela.materias.size(), materias == 0 ? 0 : materias + 1);
    for (const AlumnoDemo &alumno : escuela.alumnos)
        QCOMPARE(alumno.notas.size(), materias);
}

void tst_escuela::identificadores_sonUnicos()
{
    const Escuela escuela = generarEscuela({1, 40, 30, 20});
    QSet<QString> alumnos, salones, materias;
    for (const AlumnoDemo &a : escuela.alumnos)
        alumnos.insert(a.id);
    for (const SalonDemo &s : escuela.salones)
        salones.insert(s.id);
    for (const MateriaDemo &m : escuela.materias)
        materias.insert(m.id);
    QCOMPARE(alumnos.size(), escuela.alumnos.size());
    QCOMPARE(salones.size(), escuela.salones.size());
    QCOMPARE(materias.size(), escuela.materias.size());
}

void tst_escuela::nombres_sinComasNiSeparadores()
{
    const Escuela escuela = generarEscuela({9, 20, 30, 20});
    QStringList nombres;
    for (const AlumnoDemo &a : escuela.alumnos)
        nombres << a.nombre;
    for (const SalonDemo &s : escuela.salones)
        nombres << s.nombre;
    for (const MateriaDemo &m : escuela.materias)
        nombres << m.nombre << m.area;
    for (const QString &nombre : nombres)
        QVERIFY2(!nombre.contains(u',') && !nombre.contains(u'®') && nombre == nombre.trimmed(),
                 qPrintable(nombre));
}

void tst_escuela::materias_muestranGuionAcentosYAreaCompartida()
{
    const Escuela escuela = generarEscuela({});
    QStringList nombres;
    bool compartida = false;
    for (const MateriaDemo &m : escuela.materias)
        nombres << m.nombre;
    for (const demo::AreaDemo &area : demo::areas(escuela))
        compartida = compartida || area.materias.size() > 1;
    QVERIFY(nombres.contains(u"CIENCIAS-NATURALES"_s));
    QVERIFY(nombres.contains(u"MATEMÁTICAS"_s));
    QVERIFY(nombres.contains(u"ESPAÑOL"_s));
    QVERIFY(nombres.contains(u"EDUCACIÓN FÍSICA"_s));
    QVERIFY(compartida);
}

void tst_escuela::materias_terminanConLaDefinitiva()
{
    QCOMPARE(generarEscuela({}).materias.last().nombre, u"NOTADEFINITIVA"_s);
}

void tst_escuela::fotos_faltanAUnoDeCadaCinco()
{
    const Escuela escuela = generarEscuela({4, 5, 20, 3});
    int sin = 0;
    for (const AlumnoDemo &a : escuela.alumnos)
        sin += a.conFoto ? 0 : 1;
    QCOMPARE(sin, 20);
}

void tst_escuela::notas_entreUnoYCincoConUnaDecimal()
{
    for (const AlumnoDemo &a : generarEscuela({5, 6, 20, 12}).alumnos)
        for (const QList<double> &materia : a.notas) {
            QCOMPARE(materia.size(), 4);
            for (const double n : materia) {
                QVERIFY(n >= 1.0 && n <= 5.0);
                QCOMPARE(n * 10, double(qRound(n * 10)));
            }
        }
}

void tst_escuela::alumnos_unosPasanOtrosNo()
{
    int pasan = 0;
    const Escuela escuela = generarEscuela({});
    for (const AlumnoDemo &a : escuela.alumnos)
        pasan += demo::promovido(a) ? 1 : 0;
    QVERIFY(pasan > 0 && pasan < escuela.alumnos.size());
}

void tst_escuela::ajustes_estanTodos()
{
    const Escuela escuela = generarEscuela({});
    QCOMPARE(escuela.ajustes.value(u"ANOACTUAL"_s), u"2010"_s);
    QCOMPARE(escuela.ajustes.value(u"USABOLETA2"_s), u"1"_s);
    QCOMPARE(escuela.ajustes.value(u"USAINFOFIN2"_s), u"SI"_s);
    QCOMPARE(escuela.ajustes.value(u"USACERTIFIN2"_s), u"2"_s);
    for (const char *campo :
         {"RECTOR", "SECRETARIA", "SLOGAN", "MICOLEGIO", "DIRECCION", "TELEFONO", "CDANE"})
        QVERIFY2(escuela.ajustes.value(QString::fromLatin1(campo)).size() >= 8, campo);
}

void tst_escuela::promedio_seRedondeaHaciaArribaEnLaMitad()
{
    AlumnoDemo alumno;
    alumno.notas = {{3.0, 3.1, 3.0, 3.1}, {2.9, 2.9, 3.0, 2.9}}; // 3.05 and 2.925
    QCOMPARE(demo::definitiva(alumno, 0), 3.1);
    QCOMPARE(demo::definitiva(alumno, 1), 2.9);
    QCOMPARE(demo::perdidas(alumno), 1);
}

QTEST_GUILESS_MAIN(tst_escuela)
#include "tst_escuela.moc"
