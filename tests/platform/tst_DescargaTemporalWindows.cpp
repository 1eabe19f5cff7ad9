// SPDX-License-Identifier: MIT
// The temporary files that downloads are written to: what already stands under such a name, and
// what becomes of them when a process is killed.
#include "EntradasDeWindows.h"
#include "UnidadDePrueba.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

// No process has this number: systems give smaller ones.
const QString sinProceso = u"2147483646"_s;

// Beside the archive; there once that process is at work.
QString senal(const QString &casa)
{
    return casa + u"/listo"_s;
}

// Another process that is receiving a file into the archive, until it is killed.
class OtraDescarga {
public:
    explicit OtraDescarga(const QString &casa)
    {
        m_proceso.setProcessChannelMode(QProcess::ForwardedChannels);
        m_proceso.start(QCoreApplication::applicationFilePath(), {u"--recibir"_s, casa});
        empezada = m_proceso.waitForStarted()
                   && QTest::qWaitFor([&] { return QFile::exists(senal(casa)); }, 60'000);
        m_numero = QString::number(m_proceso.processId());
    }
    ~OtraDescarga() { matar(); }
    OtraDescarga(const OtraDescarga &) = delete;
    OtraDescarga &operator=(const OtraDescarga &) = delete;

    QString numero() const { return m_numero; }
    void matar()
    {
        m_proceso.kill();
        m_proceso.waitForFinished(60'000);
    }

    bool empezada = false;

private:
    QProcess m_proceso;
    QString m_numero;
};

int recibirYEsperar(const QString &casa)
{
    DriveC disco(casa);
    const auto entrante = disco.recibir(u"C:\\Quorvela\\suyo.jpg"_s);
    if (!entrante || entrante->dispositivo().write(QByteArray(100000, 'x')) != 100000)
        return 1;
    QFile listo(senal(casa));
    if (!listo.open(QIODevice::WriteOnly))
        return 1;
    for (;;)
        QThread::sleep(1);
}

} // namespace

class tst_DescargaTemporalWindows : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void nombreTomado_tomaElSiguiente_data();
    void nombreTomado_tomaElSiguiente();
    void deProcesoMatado_seQuitaAlEmpezarOtra();
    void deProcesoMatado_enOtraCarpetaQueda();
    void deOtroProcesoVivo_seQueda();
    void deEsteProceso_seQueda();
    void numeroDadoAOtroProceso_seQuita();
    void numeroQueNoPuedeSer_seQuita_data();
    void numeroQueNoPuedeSer_seQuita();
    void abiertoPorOtro_seQueda();
    void soloLectura_seQuita();
    void noEsTemporal_seQueda_data();
    void noEsTemporal_seQueda();

private:
    // The name of the one temporary file in the archive.
    QString temporal() const
    {
        return m_casa->entradas(u"Quorvela"_s).filter(u".descarga-"_s).value(0);
    }
    // A whole download into a folder of the archive.
    bool descargar(const QString &carpeta = QString())
    {
        const auto entrante = m_disco->recibir(u"C:\\Quorvela\\"_s + carpeta + u"a.jpg"_s);
        return entrante && entrante->dispositivo().write("foto") == 4 && entrante->publicar();
    }
    // A file of the archive, last written in the year 2001 if it is an old one.
    enum class Edad { Vieja, DeAhora };
    bool poner(const QString &nombre, Edad edad)
    {
        QFile archivo(m_casa->ruta(u"Quorvela/"_s + nombre));
        return archivo.open(QIODevice::WriteOnly) && archivo.write("resto") == 5 && archivo.flush()
               && (edad == Edad::DeAhora
                   || archivo.setFileTime(QDateTime::fromSecsSinceEpoch(1'000'000'000),
                                          QFileDevice::FileModificationTime));
    }
};

void tst_DescargaTemporalWindows::nombreTomado_tomaElSiguiente_data()
{
    QTest::addColumn<bool>("carpeta");
    QTest::newRow("archivo") << false;
    QTest::newRow("carpeta") << true;
}

// The names are easily guessed: what somebody put there is not changed.
void tst_DescargaTemporalWindows::nombreTomado_tomaElSiguiente()
{
    QFETCH(bool, carpeta);
    auto anterior = m_disco->recibir(u"C:\\Quorvela\\a.jpg"_s);
    QVERIFY(anterior);
    const QString usado = temporal();
    anterior.reset();
    const QString prefijo = usado.section(u'-', 0, 1) + u'-';
    const int numero = usado.section(u'-', 2).toInt();
    QVERIFY(numero > 0);
    QStringList puestos;
    for (int siguiente = numero + 1; siguiente <= numero + 3; ++siguiente) {
        puestos.append(prefijo + QString::number(siguiente));
        const QString dentro = u"Quorvela/"_s + puestos.last();
        QVERIFY(carpeta ? m_casa->hacerCarpeta(dentro) : m_casa->escribir(dentro, "puesto"));
    }
    QVERIFY(descargar());
    QCOMPARE(m_casa->leer(u"Quorvela/a.jpg"_s), QByteArray("foto"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), puestos + QStringList{u"a.jpg"_s});
    if (!carpeta)
        QCOMPARE(m_casa->leer(u"Quorvela/"_s + puestos.first()), QByteArray("puesto"));
}

void tst_DescargaTemporalWindows::deProcesoMatado_seQuitaAlEmpezarOtra()
{
    OtraDescarga otra(m_casa->ruta());
    QVERIFY(otra.empezada);
    const QString suyo = temporal();
    QVERIFY2(suyo.contains(otra.numero()), qPrintable(suyo));
    otra.matar();
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{suyo}); // nobody cleaned up behind it
    const auto entrante = m_disco->recibir(u"C:\\Quorvela\\a.jpg"_s);
    QVERIFY(entrante);
    QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), 1); // gone at the beginning, not at the end
    QVERIFY(!m_casa->entradas(u"Quorvela"_s).contains(suyo));
}

void tst_DescargaTemporalWindows::deProcesoMatado_enOtraCarpetaQueda()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/fotos"_s));
    const QString resto = u".descarga-"_s + sinProceso + u"-1"_s;
    QVERIFY(poner(resto, Edad::DeAhora));
    QVERIFY(poner(u"fotos/"_s + resto, Edad::DeAhora));
    QVERIFY(descargar(u"fotos\\"_s));
    QCOMPARE(m_casa->entradas(u"Quorvela/fotos"_s), QStringList{u"a.jpg"_s});
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{resto, u"fotos"_s}));
    QVERIFY(descargar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"a.jpg"_s, u"fotos"_s}));
}

void tst_DescargaTemporalWindows::deOtroProcesoVivo_seQueda()
{
    OtraDescarga otra(m_casa->ruta());
    QVERIFY(otra.empezada);
    const QString suyo = temporal();
    QVERIFY(descargar());
    QVERIFY(descargar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{suyo, u"a.jpg"_s}));
    // In the same run, as soon as it lives no longer.
    otra.matar();
    QVERIFY(descargar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.jpg"_s});
}

void tst_DescargaTemporalWindows::deEsteProceso_seQueda()
{
    const auto uno = m_disco->recibir(u"C:\\Quorvela\\b.jpg"_s);
    QVERIFY(uno);
    DriveC otro(m_casa->ruta()); // which knows nothing of the first
    const auto dos = otro.recibir(u"C:\\Quorvela\\c.jpg"_s);
    QVERIFY(dos);
    QVERIFY(descargar());
    QVERIFY(uno->publicar());
    QVERIFY(dos->publicar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s}));
}

// Numbers are given again: a process that began after the file was last written to is not its
// writer. Of this process' own age the system tells.
void tst_DescargaTemporalWindows::numeroDadoAOtroProceso_seQuita()
{
    const QString este = QString::number(QCoreApplication::applicationPid());
    const QString viejo = u".descarga-%1-900001"_s.arg(este);
    const QString deAhora = u".descarga-%1-900002"_s.arg(este);
    QVERIFY(poner(viejo, Edad::Vieja));
    QVERIFY(poner(deAhora, Edad::DeAhora));
    QVERIFY(descargar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{deAhora, u"a.jpg"_s}));
}

void tst_DescargaTemporalWindows::numeroQueNoPuedeSer_seQuita_data()
{
    QTest::addColumn<qint64>("numero");
    QTest::newRow("este y uno") << QCoreApplication::applicationPid() + 1;
    QTest::newRow("mayor que todos") << qint64(4'294'967'296) + QCoreApplication::applicationPid();
}

// Numbers of processes go by fours; the system takes those in between for the one before.
void tst_DescargaTemporalWindows::numeroQueNoPuedeSer_seQuita()
{
    QFETCH(qint64, numero);
    QVERIFY(poner(u".descarga-%1-1"_s.arg(numero), Edad::DeAhora));
    QVERIFY(descargar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.jpg"_s});
}

// A process of another computer, on a shared disk, has no number here; it has its file open.
void tst_DescargaTemporalWindows::abiertoPorOtro_seQueda()
{
    const QString nombre = u".descarga-"_s + sinProceso + u"-1"_s;
    QVERIFY(poner(nombre, Edad::Vieja));
    entradasDeWindows::Abierto ajeno(m_casa->ruta(u"Quorvela/"_s + nombre), GENERIC_WRITE,
                                     FILE_SHARE_READ);
    QVERIFY(ajeno);
    QVERIFY(descargar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{nombre, u"a.jpg"_s}));
    ajeno.soltar();
    QVERIFY(descargar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.jpg"_s});
}

void tst_DescargaTemporalWindows::soloLectura_seQuita()
{
    const QString nombre = u".descarga-"_s + sinProceso + u"-1"_s;
    QVERIFY(poner(nombre, Edad::Vieja));
    QVERIFY(
        entradasDeWindows::marcar(m_casa->ruta(u"Quorvela/"_s + nombre), FILE_ATTRIBUTE_READONLY));
    QVERIFY(descargar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.jpg"_s});
}

void tst_DescargaTemporalWindows::noEsTemporal_seQueda_data()
{
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<bool>("carpeta");
    const QString exacto = u".descarga-"_s + sinProceso + u"-1"_s;
    for (const auto &nombre :
         {u".descarga-"_s, u".descarga-"_s + sinProceso, exacto + u"x"_s, exacto + u".jpg"_s,
          u"x"_s + exacto, u".descarga--1"_s, u".descarga-x-1"_s, u".descarga-0-1"_s,
          u".descarga--5-1"_s, u".descarga-0"_s + sinProceso + u"-1"_s,
          u".Descarga-"_s + sinProceso + u"-1"_s, u".descarga-"_s + sinProceso + u"-"_s})
        QTest::newRow(qPrintable(nombre)) << nombre << false;
    QTest::newRow("carpeta") << exacto << true;
}

void tst_DescargaTemporalWindows::noEsTemporal_seQueda()
{
    QFETCH(QString, nombre);
    QFETCH(bool, carpeta);
    QVERIFY(carpeta ? m_casa->hacerCarpeta(u"Quorvela/"_s + nombre) : poner(nombre, Edad::Vieja));
    QVERIFY(descargar());
    QVERIFY(m_casa->entradas(u"Quorvela"_s).contains(nombre));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), 2);
}

int main(int cuantos, char **argumentos)
{
    QCoreApplication aplicacion(cuantos, argumentos);
    const QStringList dados = QCoreApplication::arguments();
    if (dados.value(1) == u"--recibir")
        return recibirYEsperar(dados.value(2));
    tst_DescargaTemporalWindows pruebas;
    return QTest::qExec(&pruebas, cuantos, argumentos);
}

#include "tst_DescargaTemporalWindows.moc"
