// SPDX-License-Identifier: MIT
// What is started, with what, and what it leaves to itself.
#include "ProgramasAnotados.h"
#include "escenario/VariablesIntactas.h"
#include "platform/Verbos.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <memory>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_Verbos : public QObject, ProgramasAnotados {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void abrir_unArgumentoTalCual_data();
    void abrir_unArgumentoTalCual();
    void abrir_noEspera();
    void abrir_sinPrograma_calla();
    void abrir_programaQueFalla_noDejaNada();
    void imprimir_unaLineaPorDocumento();
    void imprimir_unSoloObrero_sinArgumentosYEnSuSesion();
    void imprimir_documentoAusente_seSalta();
    void imprimir_sinPrograma_calla_data();
    void imprimir_sinPrograma_calla();
    void imprimir_programaQueAparece_empieza();
    void obrero_sabeElOrigenYLaRaiz();
    void finDelPrograma_terminaSuEntrada();
    void programaAbiertoDespues_noGuardaLaTuberia();
    void descriptorAbierto_noSeHereda();
    void tuberiaRota_noTerminaElPrograma();
    void tuberiaRota_terminaLoAbierto();

    void otroPrograma_obreroASuLado();
    void otroPrograma_obreroEnSuLibexec();
    void otroProgramaTermina_elObreroSigue();
    void otroProgramaTermina_loAbiertoSigue();
};

void tst_Verbos::abrir_unArgumentoTalCual_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::newRow("sencilla") << u"/home/ana/Quorvela/123-2010/index.html"_s;
    QTest::newRow("con blancos") << u"/home/ana/Mis Cosas/a  b.html"_s;
    QTest::newRow("con acentos") << u"/home/íñigo/Ñandú.html"_s;
    QTest::newRow("para un interprete") << u"/x/$(touch y);`z`&'\"|*?.html"_s;
    QTest::newRow("para una direccion") << u"/x/100%25#parte?a=b.html"_s;
    QTest::newRow("que no existe") << u"/index.html"_s;
}

void tst_Verbos::abrir_unArgumentoTalCual()
{
    QFETCH(QString, ruta);
    ponerPrograma(u"xdg-open"_s, anota);
    Verbos verbos;
    verbos.abrir(ruta);
    QTRY_COMPARE(inicios().size(), 1);
    QCOMPARE(inicios().first().argumentos, QList<QByteArray>{ruta.toUtf8()});
}

void tst_Verbos::abrir_noEspera()
{
    ponerPrograma(u"xdg-open"_s, anota + esperaPermiso);
    Verbos verbos;
    verbos.abrir(u"/a.html"_s);
    verbos.abrir(u"/b.html"_s);
    QTRY_COMPARE(inicios().size(), 2); // both run, and this goes on
    for (const Inicio &inicio : inicios())
        QVERIFY(!haTerminado(inicio.pid));
}

void tst_Verbos::abrir_sinPrograma_calla()
{
    m_programas->quitarLosDemas();
    Verbos verbos;
    verbos.abrir(u"/a.html"_s);
    QVERIFY(inicios().isEmpty());
}

// No browser is there, say: it ends with 3.
void tst_Verbos::abrir_programaQueFalla_noDejaNada()
{
    ponerPrograma(u"xdg-open"_s, anota + "exit 3\n");
    Verbos verbos;
    for (int vez = 1; vez <= 3; ++vez) {
        verbos.abrir(u"/a.html"_s);
        QTRY_COMPARE(inicios().size(), vez);
    }
    for (const Inicio &inicio : inicios())
        QTRY_VERIFY(haTerminado(inicio.pid));
    QCOMPARE(::waitpid(-1, nullptr, WNOHANG), -1); // no child, dead or alive
    QCOMPARE(errno, ECHILD);
}

void tst_Verbos::imprimir_unaLineaPorDocumento()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo);
    const QStringList rutas = {documento(u"uno.html"_s), documento(u"dos  con blancos .html"_s),
                               documento(u"Ñandú €.html"_s), documento(u"$(x);%41\\.html"_s),
                               documento(u"uno.html"_s)};
    Verbos verbos;
    for (const QString &ruta : rutas)
        verbos.imprimir(ruta);
    const QByteArray donde = m_carpeta->filePath(u"documentos"_s).toUtf8();
    QTRY_COMPARE(lineas(),
                 (QList<QByteArray>{donde + "/uno.html", donde + "/dos  con blancos .html",
                                    donde
                                        + "/\xC3\x91"
                                          "and\xC3\xBA \xE2\x82\xAC.html",
                                    donde + "/$(x);%41\\.html", donde + "/uno.html"}));
}

void tst_Verbos::imprimir_unSoloObrero_sinArgumentosYEnSuSesion()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo);
    const QStringList rutas = documentos(50);
    {
        Verbos verbos;
        QVERIFY(inicios().isEmpty()); // the first document starts it
        for (const QString &ruta : rutas) {
            verbos.imprimir(ruta);
            QCoreApplication::processEvents();
        }
        QTRY_COMPARE(lineas().size(), 50);
    }
    QTRY_VERIFY(terminados());
    QCOMPARE(inicios().size(), 1);
    const Inicio obrero = inicios().first();
    QCOMPARE(obrero.programa, m_programas->ruta(u"parvanel-print"_s).toUtf8());
    QCOMPARE(obrero.cuantos, QByteArray("0"));
    QCOMPARE(obrero.sesion, QByteArray::number(obrero.pid));
    QVERIFY(obrero.sesion != QByteArray::number(::getsid(0)));
    QCOMPARE(obrero.salida, QByteArray("/dev/null")); // it has no terminal of the program's
    QCOMPARE(obrero.errores, QByteArray("/dev/null"));
}

void tst_Verbos::imprimir_documentoAusente_seSalta()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo);
    const QString ruta = documento(u"uno.html"_s);
    {
        Verbos verbos;
        verbos.imprimir(m_carpeta->filePath(u"documentos/nada.html"_s));
        verbos.imprimir(m_carpeta->filePath(u"documentos"_s)); // a folder
        verbos.imprimir(QString());
        verbos.imprimir(ruta);
        verbos.imprimir(m_carpeta->filePath(u"documentos/nada.html"_s));
    }
    QTRY_VERIFY(terminados());
    QCOMPARE(lineas(), QList<QByteArray>{ruta.toUtf8()});
}

void tst_Verbos::imprimir_sinPrograma_calla_data()
{
    QTest::addColumn<QByteArray>("guion");
    QTest::addColumn<bool>("ejecutable");
    QTest::newRow("ninguno") << QByteArray() << false;
    QTest::newRow("sin permiso") << anota + leeTodo << false;
    QTest::newRow("no es un programa") << QByteArray("hola\n") << true;
    QTest::newRow("interprete ausente") << QByteArray("#!/no/existe\n") << true;
}

void tst_Verbos::imprimir_sinPrograma_calla()
{
    QFETCH(QByteArray, guion);
    QFETCH(bool, ejecutable);
    m_programas->quitarLosDemas();
    if (!guion.isEmpty())
        ponerPrograma(u"parvanel-print"_s, guion);
    if (!ejecutable)
        QFile::setPermissions(m_programas->ruta(u"parvanel-print"_s), QFile::ReadOwner);
    Verbos verbos;
    for (const QString &ruta : documentos(5)) {
        verbos.imprimir(ruta);
        QCoreApplication::processEvents();
    }
    QVERIFY(inicios().isEmpty());
}

void tst_Verbos::imprimir_programaQueAparece_empieza()
{
    const QString uno = documento(u"uno.html"_s);
    const QString dos = documento(u"dos.html"_s);
    Verbos verbos;
    verbos.imprimir(uno);
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo);
    verbos.imprimir(dos);
    QTRY_COMPARE(lineas(), QList<QByteArray>{dos.toUtf8()});
}

void tst_Verbos::obrero_sabeElOrigenYLaRaiz()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo);
    const VariablesIntactas intactas{"PARVANEL_ORIGEN", "QUEDA"};
    qputenv("PARVANEL_ORIGEN", "http://otro.invalid");
    qputenv("QUEDA", "igual");
    {
        QString raiz = u"/home/íñigo/quorvela"_s;
        Verbos verbos({.origen = u"http://127.0.0.1:8080"_s, .raiz = [&raiz] {
                           return raiz;
                       }});
        raiz = u"/home/íñigo/Quorvela"_s; // as it is when the worker is started
        verbos.imprimir(documento(u"uno.html"_s));
        QTRY_COMPARE(inicios().size(), 1);
        const QList<QByteArray> entorno = entornoDe(inicios().first().pid);
        QVERIFY(entorno.contains("PARVANEL_ORIGEN=http://127.0.0.1:8080"));
        QVERIFY(!entorno.contains("PARVANEL_ORIGEN=http://otro.invalid"));
        QVERIFY(entorno.contains(QByteArray("PARVANEL_RAIZ=/home/\xC3\xAD\xC3\xB1igo/Quorvela")));
        QVERIFY(entorno.contains("QUEDA=igual"));
        QVERIFY(entorno.contains("REGISTRO=" + qgetenv("REGISTRO")));
    }
    QCOMPARE(qgetenv("PARVANEL_ORIGEN"), QByteArray("http://otro.invalid"));
    QVERIFY(!qEnvironmentVariableIsSet("PARVANEL_RAIZ"));
}

void tst_Verbos::finDelPrograma_terminaSuEntrada()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo);
    auto verbos = std::make_unique<Verbos>();
    verbos->imprimir(documento(u"uno.html"_s));
    QTRY_COMPARE(lineas().size(), 1);
    QVERIFY(!terminados());
    verbos.reset();
    QTRY_VERIFY(terminados());
}

void tst_Verbos::programaAbiertoDespues_noGuardaLaTuberia()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo);
    ponerPrograma(u"xdg-open"_s, anota + esperaPermiso);
    auto verbos = std::make_unique<Verbos>();
    verbos->imprimir(documento(u"uno.html"_s));
    QTRY_COMPARE(inicios().size(), 1);
    const qint64 obrero = inicios().first().pid;
    verbos->abrir(u"/a.html"_s);
    QTRY_COMPARE(inicios().size(), 2);
    const qint64 abierto = otroQue({obrero});
    verbos.reset();
    QTRY_VERIFY(haTerminado(obrero));
    QVERIFY(!haTerminado(abierto));
}

// Libraries open some without a thought for the programs that are started later.
void tst_Verbos::descriptorAbierto_noSeHereda()
{
    ponerPrograma(u"parvanel-print"_s, anota + esperaPermiso);
    ponerPrograma(u"xdg-open"_s, anota + esperaPermiso);
    int tuberia[2] = {-1, -1};
    QCOMPARE(::pipe(tuberia), 0);
    Verbos verbos;
    verbos.abrir(u"/a.html"_s);
    verbos.imprimir(documento(u"uno.html"_s));
    QTRY_COMPARE(inicios().size(), 2);
    ::close(tuberia[1]);
    // At an end as soon as nobody holds the other side.
    pollfd espera = {tuberia[0], POLLIN, 0};
    QCOMPARE(::poll(&espera, 1, 0), 1);
    ::close(tuberia[0]);
}

void tst_Verbos::tuberiaRota_noTerminaElPrograma()
{
    std::signal(SIGPIPE, SIG_DFL);
    const Verbos verbos;
    int tuberia[2] = {-1, -1};
    QCOMPARE(::pipe(tuberia), 0);
    ::close(tuberia[0]);
    QCOMPARE(::write(tuberia[1], "x", 1), ssize_t(-1));
    ::close(tuberia[1]);
}

// A script that writes into a closed pipe without end would keep the processor busy for ever.
void tst_Verbos::tuberiaRota_terminaLoAbierto()
{
    ponerPrograma(u"xdg-open"_s, anota + "sh -c 'kill -PIPE $$'\n[ $? -gt 128 ] && : > $yo.fin\n");
    Verbos verbos;
    verbos.abrir(u"/a.html"_s);
    QTRY_VERIFY(terminados());
}

void tst_Verbos::otroPrograma_obreroASuLado()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo);
    ponerProgramaEn(u"lado"_s, u"parvanel-print"_s, anota + leeTodo);
    const QString ruta = documento(u"uno.html"_s);
    QVERIFY(correrCopia(u"imprimir"_s, ruta));
    QTRY_VERIFY(terminados());
    QCOMPARE(inicios().size(), 1);
    QCOMPARE(inicios().first().programa, m_carpeta->filePath(u"lado/parvanel-print"_s).toUtf8());
    QCOMPARE(lineas(), QList<QByteArray>{ruta.toUtf8()});
}

// An installation that was moved, or unpacked somewhere: bin/ and libexec/parvanel/ side by side.
void tst_Verbos::otroPrograma_obreroEnSuLibexec()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo);
    QVERIFY(QDir(m_carpeta->path()).mkpath(u"libexec/parvanel"_s));
    ponerProgramaEn(u"libexec/parvanel"_s, u"parvanel-print"_s, anota + leeTodo);
    const QString ruta = documento(u"uno.html"_s);
    QVERIFY(correrCopia(u"imprimir"_s, ruta)); // the copy is in lado/, as a program in bin/
    QTRY_VERIFY(terminados());
    QCOMPARE(inicios().size(), 1);
    QVERIFY2(inicios().first().programa.endsWith("/libexec/parvanel/parvanel-print"),
             inicios().first().programa.constData());
    QCOMPARE(lineas(), QList<QByteArray>{ruta.toUtf8()});
}

// Nothing holds the program's end up, and nothing that it has handed over is lost by it.
void tst_Verbos::otroProgramaTermina_elObreroSigue()
{
    ponerPrograma(u"parvanel-print"_s, anota + esperaPermiso + leeTodo);
    const QString ruta = documento(u"uno.html"_s);
    QVERIFY(correrCopia(u"imprimir"_s, ruta));
    QTRY_COMPARE(inicios().size(), 1);
    QVERIFY(!haTerminado(inicios().first().pid));
    QVERIFY(lineas().isEmpty());
    dejarSeguir();
    QTRY_VERIFY(terminados());
    QCOMPARE(lineas(), QList<QByteArray>{ruta.toUtf8()});
}

void tst_Verbos::otroProgramaTermina_loAbiertoSigue()
{
    ponerPrograma(u"xdg-open"_s, anota + esperaPermiso);
    QVERIFY(correrCopia(u"abrir"_s, u"/a.html"_s));
    QTRY_COMPARE(inicios().size(), 1);
    QVERIFY(!haTerminado(inicios().first().pid));
    QVERIFY(inicios().first().sesion != QByteArray::number(::getsid(0)));
}

int main(int argc, char *argv[])
{
    QCoreApplication aplicacion(argc, argv);
    const QStringList argumentos = aplicacion.arguments();
    if (argumentos.value(1) == u"--encargo") {
        Verbos verbos;
        if (argumentos.value(2) == u"imprimir")
            verbos.imprimir(argumentos.value(3));
        else
            verbos.abrir(argumentos.value(3));
        ::_exit(0); // as closing the window does: no destructor runs
    }
    tst_Verbos pruebas;
    return QTest::qExec(&pruebas, argc, argv);
}

#include "tst_Verbos.moc"
