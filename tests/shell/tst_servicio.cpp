// SPDX-License-Identifier: MIT
// The table of requests that the service's people are given, held against what the demonstration
// school has recorded: no request that is not in it, and no row that stands for none.
#include "shell/VentanaDePrueba.h"

#include <QComboBox>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr TamanoEscuela escuela{2010, 2, 3, 3};

struct Fila {
    QString direccion;
    QString cuantas; // the row's last column
    QRegularExpression patron;
    int vistas = 0;
};

// What may stand in a place of an address.
QString expresionDe(const QString &lugar, const Escenario &e)
{
    static const QHash<QString, QString> expresiones = {
        {u"azar"_s, u"[0-9]{4,7}"_s},
        {u"ajuste"_s, u"(ANOACTUAL|USABOLETA2|USAINFOFIN2|USACERTIFIN2)"_s},
        {u"dato"_s, u"(RECTOR|SECRETARIA|SLOGAN|MICOLEGIO|DIRECCION|TELEFONO|CDANE)"_s},
        {u"informe"_s, u"infoFinal2?"_s},
        {u"certificado"_s, u"certificado[23]?"_s},
        {u"boletin"_s, u"boletin2?"_s},
        {u"periodo"_s, u"[1-4]"_s},
        {u"texto"_s, u".+"_s}};
    if (lugar == u"colegio")
        return e.sesion.idColegio;
    if (lugar == u"base")
        return QRegularExpression::escape(e.demo.base());
    return expresiones.value(lugar, u"[^/?&]+"_s);
}

QRegularExpression patronDe(const QString &direccion, const Escenario &e)
{
    static const QRegularExpression unLugar(u"\\{(\\w+)\\}"_s);
    QString patron;
    qsizetype hasta = 0;
    for (const QRegularExpressionMatch &lugar : unLugar.globalMatch(direccion)) {
        patron += QRegularExpression::escape(direccion.mid(hasta, lugar.capturedStart() - hasta))
                  + expresionDe(lugar.captured(1), e);
        hasta = lugar.capturedEnd();
    }
    patron += QRegularExpression::escape(direccion.mid(hasta));
    return QRegularExpression(QRegularExpression::anchoredPattern(patron));
}

// The rows of the tables under a heading.
QList<Fila> filasDe(const QString &titulo, const Escenario &e)
{
    QFile documento(QStringLiteral(DOCUMENTO));
    if (!documento.open(QIODevice::ReadOnly))
        qFatal("no document");
    const QString texto = QString::fromUtf8(documento.readAll());
    const QString parte = texto.section(u"\n## "_s + titulo + u'\n', 1).section(u"\n## "_s, 0, 0);
    QList<Fila> filas;
    const QStringList lineas = parte.split(u'\n');
    for (const QString &linea : lineas) {
        if (!linea.startsWith(u"| `/"_s))
            continue;
        const QString direccion = linea.section(u'`', 1, 1);
        filas.append({direccion, linea.section(u" | "_s, -1).chopped(2), patronDe(direccion, e)});
    }
    return filas;
}

// The targets asked for; tries that follow one another are one.
QStringList pedidos(const VentanaDePrueba &v)
{
    static const QRegularExpression azar(u"azar=[0-9]+"_s);
    QStringList destinos;
    QString anterior;
    const auto peticiones = v.e.demo.peticiones();
    for (const Peticion &peticion : peticiones) {
        const QString destino = QString::fromLatin1(peticion.destino);
        QString comparable = destino;
        if (comparable.remove(azar) != anterior)
            destinos.append(destino);
        anterior = comparable;
    }
    return destinos;
}

// Counts each target in the one row that it matches; those that match none or several.
QStringList contar(QList<Fila> &filas, const QStringList &destinos)
{
    QStringList ajenos;
    for (const QString &destino : destinos) {
        QList<Fila *> suyas;
        for (Fila &fila : filas) {
            if (fila.patron.match(destino).hasMatch())
                suyas.append(&fila);
        }
        if (suyas.size() == 1)
            ++suyas.first()->vistas;
        else
            ajenos.append(destino);
    }
    return ajenos;
}

} // namespace

class tst_servicio : public QObject {
    Q_OBJECT
private:
    // How often a row's last column says, in this school.
    static int veces(const QString &cuantas, const Escuela &e)
    {
        const auto fotos = std::count_if(e.alumnos.begin(), e.alumnos.end(),
                                         [](const AlumnoDemo &alumno) { return alumno.conFoto; });
        QSet<QString> areas;
        for (const MateriaDemo &materia : e.materias)
            areas.insert(materia.area);
        const QHash<QString, qsizetype> conocidas = {
            {u"once"_s, 1},
            {u"each classroom"_s, e.salones.size()},
            {u"each student"_s, e.alumnos.size()},
            {u"each photo"_s, fotos},
            {u"each label"_s, e.materias.size() + areas.size() + 4}};
        return static_cast<int>(conocidas.value(cuantas, cuantas.toInt()));
    }

    static void comparar(QList<Fila> filas, const VentanaDePrueba &v)
    {
        QVERIFY(!filas.isEmpty());
        QCOMPARE(contar(filas, pedidos(v)), QStringList());
        for (const Fila &fila : filas) {
            const int esperadas = veces(fila.cuantas, v.e.demo.escuela());
            QVERIFY2(esperadas > 0, qPrintable(fila.cuantas));
            QVERIFY2(fila.vistas == esperadas,
                     qPrintable(
                         u"%1: %2, not %3"_s.arg(fila.direccion).arg(fila.vistas).arg(esperadas)));
        }
    }

private Q_SLOTS:
    void ingreso_pideLoQueDiceLaTabla()
    {
        VentanaDePrueba v(escuela);
        v.ingresar();
        comparar(filasDe(u"Login"_s, v.e), v);
    }

    void descarga_pideLoQueDiceLaTabla()
    {
        VentanaDePrueba v(escuela);
        v.ingresar();
        v.e.demo.olvidarPeticiones();
        v.elegir("Option1_1");
        v.conCuadros([&] { v.clic("Command3"); });
        QCOMPARE(v.mensajes, QStringList({u"Listo Historico"_s}));
        comparar(filasDe(u"Download of the archive"_s, v.e), v);
    }

    void trabajos_pidenLoQueDiceLaTabla()
    {
        VentanaDePrueba v(escuela);
        v.ingresar();
        v.e.demo.olvidarPeticiones();
        v.elegir("Option1_2");
        v.elegirSalon();
        v.elegirEnLista("Combo1", u"Periodo 2"_s);
        v.elegir("Option2_1");
        const auto *tipos = v.elemento<QComboBox>("ComboTipo");
        for (int tipo = 0; tipo < tipos->count(); ++tipo) {
            v.elegirEnLista("ComboTipo", tipos->itemText(tipo));
            v.conCuadros([&] { v.clic("Command2"); });
        }
        QCOMPARE(tipos->count(), 7);
        QList<Fila> filas = filasDe(u"Print jobs"_s, v.e);
        QVERIFY(!filas.isEmpty());
        QCOMPARE(contar(filas, pedidos(v)), QStringList());
        for (const Fila &fila : filas)
            QVERIFY2(fila.vistas > 0, qPrintable(fila.direccion));
    }

    void cabeceras_sonLasDeLaTabla()
    {
        VentanaDePrueba v(escuela);
        v.ingresar();
        v.elegir("Option1_1");
        v.conCuadros([&] { v.clic("Command3"); });
        const QByteArray ambas = "User-Agent: Parvanel/4.0\r\n"
                                 "Accept: */*\r\n"
                                 "Accept-Encoding: gzip, deflate\r\n";
        const QByteArray deTexto = ambas
                                   + "Content-type: application/x-www-form-urlencoded\r\n"
                                     "Content-length: 0\r\n"
                                     "Connection: close\r\n";
        const auto peticiones = v.e.demo.peticiones();
        for (const Peticion &peticion : peticiones) {
            const QByteArray &destino = peticion.destino;
            const bool imagen = destino.startsWith("/images/") || destino.startsWith("/jup/")
                                || destino.startsWith("/imgTXT.php");
            const QByteArray servidor = v.e.demo.base().mid(7).toLatin1();
            QCOMPARE(peticion.bytes, "GET " + destino + " HTTP/1.1\r\nHost: " + servidor + "\r\n"
                                         + (imagen ? ambas : deTexto) + "\r\n");
        }
    }
};

QTEST_MAIN(tst_servicio)
#include "tst_servicio.moc"
