// SPDX-License-Identifier: MIT
// The temporary files that downloads are written to: what already stands under such a name, and
// what becomes of them when a process is killed.
#include "UnidadDePrueba.h"

#include <QTest>

#include <array>
#include <csignal>
#include <memory>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// No process has this number: systems give smaller ones.
const QString sinProceso = u"2147483646"_s;

// Another process that is receiving a file into the archive, until it is killed.
class OtraDescarga {
public:
    explicit OtraDescarga(const QString &casa)
    {
        std::array<int, 2> aviso = {-1, -1};
        if (::pipe2(aviso.data(), O_CLOEXEC) != 0)
            return;
        m_proceso = ::fork();
        if (m_proceso == 0)
            recibirYEsperar(casa, aviso[1]);
        ::close(aviso[1]);
        char listo = 0;
        empezada = ::read(aviso[0], &listo, 1) == 1;
        ::close(aviso[0]);
    }
    ~OtraDescarga()
    {
        matar();
        recoger();
    }
    OtraDescarga(const OtraDescarga &) = delete;
    OtraDescarga &operator=(const OtraDescarga &) = delete;

    QString numero() const { return QString::number(m_proceso); }

    // Returns when it is over, though its parent has not taken notice of it.
    void matar()
    {
        siginfo_t fin = {};
        if (m_proceso > 0 && ::kill(m_proceso, SIGKILL) == 0)
            ::waitid(P_PID, static_cast<id_t>(m_proceso), &fin, WEXITED | WNOWAIT);
    }
    void recoger()
    {
        if (m_proceso > 0)
            ::waitpid(m_proceso, nullptr, 0);
        m_proceso = -1;
    }

    bool empezada = false;

private:
    [[noreturn]] static void recibirYEsperar(const QString &casa, int aviso)
    {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        DriveC disco(casa);
        const auto entrante = disco.recibir(u"C:\\Quorvela\\suyo.jpg"_s);
        if (!entrante || entrante->dispositivo().write(QByteArray(100000, 'x')) != 100000
            || ::write(aviso, "x", 1) != 1)
            ::_exit(1);
        for (;;)
            ::pause();
    }

    pid_t m_proceso = -1;
};

} // namespace

class tst_DescargaTemporal : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void nombreTomado_tomaElSiguiente_data();
    void nombreTomado_tomaElSiguiente();
    void carpetaSacadaDelArchivo_noSePublica();

    void deProcesoMatado_seQuitaAlEmpezarOtra_data();
    void deProcesoMatado_seQuitaAlEmpezarOtra();
    void deProcesoMatado_enOtraCarpetaQueda();
    void deOtroProcesoVivo_seQueda();
    void deEsteProceso_seQueda();
    void numeroDadoAOtroProceso_seQuita_data();
    void numeroDadoAOtroProceso_seQuita();
    void conCandadoAjeno_seQueda();
    void noEsTemporal_seQueda_data();
    void noEsTemporal_seQueda();

private:
    // The name of the one temporary file in the archive.
    QString temporal() const;
    // A whole download into a folder of the archive.
    bool descargar(const QString &carpeta = QString());
    // A file of the archive, last written in the year 2001 if it is an old one.
    enum class Edad { Vieja, DeAhora };
    bool poner(const QString &nombre, Edad edad);
};

QString tst_DescargaTemporal::temporal() const
{
    return m_casa->entradas(u"Quorvela"_s).filter(u".descarga-"_s).value(0);
}

bool tst_DescargaTemporal::descargar(const QString &carpeta)
{
    const auto entrante = m_disco->recibir(u"C:\\Quorvela\\"_s + carpeta + u"a.jpg"_s);
    return entrante && entrante->dispositivo().write("foto") == 4 && entrante->publicar();
}

bool tst_DescargaTemporal::poner(const QString &nombre, Edad edad)
{
    const QString dentro = u"Quorvela/"_s + nombre;
    const timespec vieja = {1'000'000'000, 0};
    const std::array<timespec, 2> momentos = {vieja, vieja};
    return m_casa->escribir(dentro, "resto")
           && (edad == Edad::DeAhora
               || ::utimensat(AT_FDCWD, QFile::encodeName(m_casa->ruta(dentro)).constData(),
                              momentos.data(), 0)
                      == 0);
}

void tst_DescargaTemporal::nombreTomado_tomaElSiguiente_data()
{
    QTest::addColumn<QString>("clase");
    for (const auto &clase : {u"archivo"_s, u"enlace a un archivo"_s, u"enlace sin destino"_s,
                              u"carpeta"_s, u"tuberia"_s, u"casilla"_s})
        QTest::newRow(qPrintable(clase)) << clase;
}

// The names are easily guessed: what somebody put there is neither followed nor changed.
void tst_DescargaTemporal::nombreTomado_tomaElSiguiente()
{
    QFETCH(QString, clase);
    QVERIFY(m_casa->escribir(u"ajeno.txt"_s, "ajeno"));
    auto anterior = m_disco->recibir(u"C:\\Quorvela\\a.jpg"_s);
    QVERIFY(anterior);
    const QString usado = temporal();
    anterior.reset();
    const QString prefijo = usado.section(u'-', 0, 1) + u'-';
    const int numero = usado.section(u'-', 2).toInt();
    QVERIFY(numero > 0);
    QStringList puestos;
    for (int siguiente = numero + 1; siguiente <= numero + 3; ++siguiente) {
        const QString nombre = prefijo + QString::number(siguiente);
        const QString dentro = u"Quorvela/"_s + nombre;
        const QByteArray nativa = QFile::encodeName(m_casa->ruta(dentro));
        puestos.append(nombre);
        if (clase == u"archivo") {
            QVERIFY(m_casa->escribir(dentro, "puesto"));
        } else if (clase == u"enlace a un archivo") {
            QVERIFY(m_casa->enlazar(u"../ajeno.txt"_s, dentro));
        } else if (clase == u"enlace sin destino") {
            QVERIFY(m_casa->enlazar(u"../nuevo.txt"_s, dentro));
        } else if (clase == u"carpeta") {
            QVERIFY(m_casa->hacerCarpeta(dentro));
        } else {
            QCOMPARE(
                ::mknod(nativa.constData(), (clase == u"tuberia" ? S_IFIFO : S_IFSOCK) | 0600, 0),
                0);
        }
    }
    const auto entrante = m_disco->recibir(u"C:\\Quorvela\\a.jpg"_s);
    QVERIFY(entrante);
    QCOMPARE(entrante->dispositivo().write("foto"), 4);
    QVERIFY(entrante->publicar());
    QCOMPARE(m_casa->leer(u"Quorvela/a.jpg"_s), QByteArray("foto"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), puestos + QStringList{u"a.jpg"_s});
    QCOMPARE(m_casa->entradas(), (QStringList{u"Quorvela"_s, u"ajeno.txt"_s}));
    QCOMPARE(m_casa->leer(u"ajeno.txt"_s), QByteArray("ajeno"));
    if (clase == u"archivo")
        QCOMPARE(m_casa->leer(u"Quorvela/"_s + puestos.first()), QByteArray("puesto"));
}

// A download takes its time; the folder is somewhere else when it ends.
void tst_DescargaTemporal::carpetaSacadaDelArchivo_noSePublica()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/fotos"_s));
    QVERIFY(m_casa->hacerCarpeta(u"escritorio"_s));
    auto entrante = m_disco->recibir(u"C:\\Quorvela\\fotos\\a.jpg"_s);
    QVERIFY(entrante);
    entrante->dispositivo().write("foto");
    QVERIFY(QFile::rename(m_casa->ruta(u"Quorvela/fotos"_s), m_casa->ruta(u"escritorio/fotos"_s)));
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/fotos"_s));
    QVERIFY(!entrante->publicar());
    entrante.reset();
    QVERIFY(m_casa->entradas(u"Quorvela/fotos"_s).isEmpty());
    QVERIFY(m_casa->entradas(u"escritorio/fotos"_s).isEmpty());
}

void tst_DescargaTemporal::deProcesoMatado_seQuitaAlEmpezarOtra_data()
{
    QTest::addColumn<bool>("recogido");
    QTest::newRow("que ya no existe") << true;
    QTest::newRow("de cuyo fin nadie tomo nota") << false;
}

void tst_DescargaTemporal::deProcesoMatado_seQuitaAlEmpezarOtra()
{
    QFETCH(bool, recogido);
    OtraDescarga otra(m_casa->ruta());
    QVERIFY(otra.empezada);
    const QString suyo = temporal();
    QVERIFY2(suyo.contains(otra.numero()), qPrintable(suyo));
    otra.matar();
    if (recogido)
        otra.recoger();
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{suyo}); // nobody cleaned up behind it
    const auto entrante = m_disco->recibir(u"C:\\Quorvela\\a.jpg"_s);
    QVERIFY(entrante);
    QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), 1); // gone at the beginning, not at the end
    QVERIFY(!m_casa->entradas(u"Quorvela"_s).contains(suyo));
}

void tst_DescargaTemporal::deProcesoMatado_enOtraCarpetaQueda()
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

void tst_DescargaTemporal::deOtroProcesoVivo_seQueda()
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

void tst_DescargaTemporal::deEsteProceso_seQueda()
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

void tst_DescargaTemporal::numeroDadoAOtroProceso_seQuita_data()
{
    QTest::addColumn<QString>("proceso");
    QTest::newRow("este") << QString::number(::getpid());
    QTest::newRow("otro") << QString::number(::getppid());
}

// Numbers are given again, most of all after a new start of the computer: a process that began
// after the file was last written to is not its writer.
void tst_DescargaTemporal::numeroDadoAOtroProceso_seQuita()
{
    QFETCH(QString, proceso);
    const QString viejo = u".descarga-%1-900001"_s.arg(proceso);
    const QString deAhora = u".descarga-%1-900002"_s.arg(proceso);
    QVERIFY(poner(viejo, Edad::Vieja));
    QVERIFY(poner(deAhora, Edad::DeAhora));
    QVERIFY(descargar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{deAhora, u"a.jpg"_s}));
}

// A process of another computer, on a shared disk, has no number here; it has its lock.
void tst_DescargaTemporal::conCandadoAjeno_seQueda()
{
    const QString nombre = u".descarga-"_s + sinProceso + u"-1"_s;
    QVERIFY(poner(nombre, Edad::Vieja));
    const int ajeno =
        ::open(QFile::encodeName(m_casa->ruta(u"Quorvela/"_s + nombre)).constData(), O_RDONLY);
    QVERIFY(ajeno >= 0);
    QCOMPARE(::flock(ajeno, LOCK_EX), 0);
    QVERIFY(descargar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), (QStringList{nombre, u"a.jpg"_s}));
    ::close(ajeno);
    QVERIFY(descargar());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.jpg"_s});
}

void tst_DescargaTemporal::noEsTemporal_seQueda_data()
{
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<QString>("clase");
    const QString exacto = u".descarga-"_s + sinProceso + u"-1"_s;
    for (const auto &nombre :
         {u".descarga-"_s, u".descarga-"_s + sinProceso, exacto + u"x"_s, exacto + u".jpg"_s,
          exacto + u"\n"_s, u"x"_s + exacto, u".descarga--1"_s, u".descarga-x-1"_s,
          u".descarga-0-1"_s, u".descarga--5-1"_s, u".descarga-0"_s + sinProceso + u"-1"_s,
          u".Descarga-"_s + sinProceso + u"-1"_s, u".descarga-"_s + sinProceso + u"-"_s})
        QTest::newRow(nombre.toLatin1().toPercentEncoding()) << nombre << u"archivo"_s;
    for (const auto &clase : {u"carpeta"_s, u"enlace"_s, u"tuberia"_s})
        QTest::newRow(qPrintable(clase)) << exacto << clase;
}

void tst_DescargaTemporal::noEsTemporal_seQueda()
{
    QFETCH(QString, nombre);
    QFETCH(QString, clase);
    const QString dentro = u"Quorvela/"_s + nombre;
    QVERIFY(m_casa->escribir(u"ajeno.txt"_s, "ajeno"));
    if (clase == u"archivo") {
        QVERIFY(poner(nombre, Edad::Vieja));
    } else if (clase == u"carpeta") {
        QVERIFY(m_casa->hacerCarpeta(dentro));
    } else if (clase == u"enlace") {
        QVERIFY(m_casa->enlazar(u"../ajeno.txt"_s, dentro));
    } else {
        QCOMPARE(::mkfifo(QFile::encodeName(m_casa->ruta(dentro)).constData(), 0600), 0);
    }
    QVERIFY(descargar());
    QVERIFY(m_casa->entradas(u"Quorvela"_s).contains(nombre));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), 2);
    QCOMPARE(m_casa->leer(u"ajeno.txt"_s), QByteArray("ajeno"));
}

QTEST_GUILESS_MAIN(tst_DescargaTemporal)
#include "tst_DescargaTemporal.moc"
