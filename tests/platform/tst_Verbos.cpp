// SPDX-License-Identifier: MIT
#include "platform/Verbos.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>

#include <poll.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// What a program of the test's notes of itself, in files named by its process number: how it was
// called, once it runs; each line of its input; that its input has ended.
const QByteArray anota = R"sh(#!/bin/sh
yo="$REGISTRO/$$"
printf '%s\n' "$0" "$#" "$(cut -d' ' -f6 /proc/$$/stat)" "$(readlink /proc/$$/fd/1)" \
    "$(readlink /proc/$$/fd/2)" "$@" > "$yo.nuevo"
mv "$yo.nuevo" "$yo.inicio"
)sh";
const QByteArray leeTodo =
    R"sh(while IFS= read -r linea; do printf '%s\n' "$linea" >> "$yo.lineas"; done
: > "$yo.fin"
)sh";
const QByteArray leeUna = R"sh(IFS= read -r linea; printf '%s\n' "$linea" > "$yo.lineas"
: > "$yo.fin"
)sh";
// Not for ever: a test that was broken off gives no leave.
const QByteArray esperaPermiso = R"sh(veces=0
while [ ! -e "$REGISTRO/sigue" ] && [ $veces -lt 1200 ]; do sleep 0.05; veces=$((veces + 1)); done
)sh";
const QByteArray terminaSiEsPrimero = R"sh(mkdir "$REGISTRO/primero" 2>/dev/null && exit 0
)sh";

struct Inicio {
    qint64 pid = 0;
    QByteArray programa;
    QByteArray cuantos; // arguments
    QByteArray sesion;
    QByteArray salida;
    QByteArray errores;
    QList<QByteArray> argumentos;
};

QList<QByteArray> lineasDe(const QString &nombre)
{
    QFile archivo(nombre);
    if (!archivo.open(QIODevice::ReadOnly))
        return {};
    QList<QByteArray> lineas = archivo.readAll().split('\n');
    lineas.removeLast(); // what follows the last line's end
    return lineas;
}

bool haTerminado(qint64 pid)
{
    const QList<QByteArray> campos = lineasDe(u"/proc/%1/stat"_s.arg(pid));
    return campos.isEmpty() || campos.first().contains(") Z ");
}

// This process's own, those that have ended and were not reaped included.
QList<qint64> todosLosHijos()
{
    QList<qint64> pids;
    for (const QString &nombre : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        const QByteArray estado = lineasDe(u"/proc/%1/stat"_s.arg(nombre)).value(0);
        // The second field, a name in parentheses, may hold blanks.
        const QList<QByteArray> campos = estado.mid(estado.lastIndexOf(')') + 2).split(' ');
        if (nombre.toLongLong() > 0 && campos.value(1).toLongLong() == ::getpid())
            pids << nombre.toLongLong();
    }
    return pids;
}

QList<QByteArray> entornoDe(qint64 pid)
{
    QFile archivo(u"/proc/%1/environ"_s.arg(pid));
    return archivo.open(QIODevice::ReadOnly) ? archivo.readAll().split('\0') : QList<QByteArray>();
}

QList<QByteArray> enBytes(const QStringList &rutas)
{
    QList<QByteArray> bytes;
    for (const QString &ruta : rutas)
        bytes << QFile::encodeName(ruta);
    return bytes;
}

} // namespace

class tst_Verbos : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void abrir_unArgumentoTalCual_data();
    void abrir_unArgumentoTalCual();
    void abrir_noEspera();
    void abrir_sinPrograma_calla();

    void imprimir_unaLineaPorDocumento();
    void imprimir_unSoloObrero_sinArgumentosYEnSuSesion();
    void imprimir_documentoAusente_seSalta();
    void imprimir_sinPrograma_calla_data();
    void imprimir_sinPrograma_calla();
    void imprimir_programaQueAparece_empieza();
    void obreroMuerto_seReemplaza();
    void obreroMuertoSinLeer_todoAlSiguiente();
    void obreroMuertoConElUltimo_pasaAlSiguiente();
    void obreroMuertoAMedias_loLeidoNoSeRepite();
    void obreroQueTerminaSiempre_pocosArranques();
    void obreroQueTerminaSiempre_trasElDescansoSePrueba();
    void obreroQueTermina_noQuedaComoZombi();
    void obreroReemplazado_noQuedaComoZombi();
    void obrero_sabeElOrigenYLaRaiz();
    void obreroAtascado_noDetiene();
    void obreroAtascado_seReemplaza();
    void finDelPrograma_terminaSuEntrada();
    void programaAbiertoDespues_noGuardaLaTuberia();

    void descriptorAbierto_noSeHereda();
    void tuberiaRota_noTerminaElPrograma();
    void tuberiaRota_terminaLoAbierto();

    void otroPrograma_obreroASuLado();
    void otroPrograma_obreroEnSuLibexec();
    void otroProgramaTermina_elObreroSigue();
    void otroProgramaTermina_loAbiertoSigue();

private:
    void ponerPrograma(const QString &nombre, const QByteArray &guion,
                       const QString &donde = u"bin"_s) const;
    QString documento(const QString &nombre) const;
    QStringList documentos(int cuantos) const;
    void dejarSeguir() const;
    // This test's own executable in another folder, in a role of its own (see main).
    bool correrCopia(const QString &verbo, const QString &cual) const;

    QList<Inicio> inicios() const;
    // The one that is not among `vistos`; 0 when there is none.
    qint64 otroQue(const QList<qint64> &vistos) const;
    QList<QByteArray> lineas(qint64 pid) const;
    QList<QByteArray> lineas() const;        // of the only one
    QList<QByteArray> otroConLineas() const; // of the one that has noted any
    bool terminados() const;
    QList<qint64> hijos() const; // that this test has started

    std::unique_ptr<QTemporaryDir> m_carpeta;
    QByteArray m_caminos = qgetenv("PATH");
    QList<qint64> m_hijosDeAntes; // a worker outlives the Verbos that started it
};

void tst_Verbos::init()
{
    QVERIFY2(!QFileInfo::exists(QCoreApplication::applicationDirPath() + u"/parvanel-print"_s),
             "a worker beside the test would be taken for the test's own");
    m_carpeta = std::make_unique<QTemporaryDir>();
    m_hijosDeAntes = todosLosHijos();
    for (const auto &una : {u"bin"_s, u"lado"_s, u"registro"_s, u"documentos"_s})
        QVERIFY(QDir(m_carpeta->path()).mkdir(una));
    qputenv("PATH", QFile::encodeName(m_carpeta->filePath(u"bin"_s)) + ':' + m_caminos);
    qputenv("REGISTRO", QFile::encodeName(m_carpeta->filePath(u"registro"_s)));
}

void tst_Verbos::cleanup()
{
    dejarSeguir();
    for (const Inicio &inicio : inicios())
        QTRY_VERIFY(haTerminado(inicio.pid));
    m_carpeta.reset();
    qputenv("PATH", m_caminos);
}

void tst_Verbos::ponerPrograma(const QString &nombre, const QByteArray &guion,
                               const QString &donde) const
{
    // Complete before it can be found.
    const QString entero = m_carpeta->filePath(donde + u"/nuevo"_s);
    QFile archivo(entero);
    QVERIFY(archivo.open(QIODevice::WriteOnly));
    QCOMPARE(archivo.write(guion), guion.size());
    archivo.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    archivo.close();
    QVERIFY(QFile::rename(entero, m_carpeta->filePath(donde + u'/' + nombre)));
}

QString tst_Verbos::documento(const QString &nombre) const
{
    const QString ruta = m_carpeta->filePath(u"documentos/"_s + nombre);
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly))
        qFatal("no document to print");
    return ruta;
}

QStringList tst_Verbos::documentos(int cuantos) const
{
    QStringList rutas;
    for (int i = 0; i < cuantos; ++i)
        rutas << documento(u"%1 %2.html"_s.arg(i).arg(u'x', 180));
    return rutas;
}

void tst_Verbos::dejarSeguir() const
{
    QFile permiso(m_carpeta->filePath(u"registro/sigue"_s));
    QVERIFY(permiso.open(QIODevice::WriteOnly));
}

bool tst_Verbos::correrCopia(const QString &verbo, const QString &cual) const
{
    const QString copia = m_carpeta->filePath(u"lado/copia"_s);
    return QFile::copy(QCoreApplication::applicationFilePath(), copia)
           && QProcess::execute(copia, {u"--encargo"_s, verbo, cual}) == 0;
}

QList<Inicio> tst_Verbos::inicios() const
{
    const QDir registro(m_carpeta->filePath(u"registro"_s));
    QList<Inicio> lista;
    for (const QString &nombre : registro.entryList({u"*.inicio"_s}, QDir::Files)) {
        const QList<QByteArray> campos = lineasDe(registro.filePath(nombre));
        lista.append({nombre.section(u'.', 0, 0).toLongLong(), campos.value(0), campos.value(1),
                      campos.value(2), campos.value(3), campos.value(4), campos.mid(5)});
    }
    return lista;
}

qint64 tst_Verbos::otroQue(const QList<qint64> &vistos) const
{
    for (const Inicio &inicio : inicios()) {
        if (!vistos.contains(inicio.pid))
            return inicio.pid;
    }
    return 0;
}

QList<QByteArray> tst_Verbos::lineas(qint64 pid) const
{
    return lineasDe(m_carpeta->filePath(u"registro/%1.lineas"_s.arg(pid)));
}

QList<QByteArray> tst_Verbos::lineas() const
{
    const QList<Inicio> lista = inicios();
    return lista.size() == 1 ? lineas(lista.first().pid) : QList<QByteArray>();
}

bool tst_Verbos::terminados() const
{
    const QDir registro(m_carpeta->filePath(u"registro"_s));
    const auto cuantos = registro.entryList({u"*.inicio"_s}, QDir::Files).size();
    return cuantos > 0 && registro.entryList({u"*.fin"_s}, QDir::Files).size() == cuantos;
}

QList<qint64> tst_Verbos::hijos() const
{
    QList<qint64> pids = todosLosHijos();
    pids.removeIf([this](qint64 pid) { return m_hijosDeAntes.contains(pid); });
    return pids;
}

QList<QByteArray> tst_Verbos::otroConLineas() const
{
    for (const Inicio &inicio : inicios()) {
        if (const QList<QByteArray> suyas = lineas(inicio.pid); !suyas.isEmpty())
            return suyas;
    }
    return {};
}

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
    qputenv("PATH", QFile::encodeName(m_carpeta->filePath(u"bin"_s)));
    Verbos verbos;
    verbos.abrir(u"/a.html"_s);
    QVERIFY(inicios().isEmpty());
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
    QCOMPARE(obrero.programa, m_carpeta->filePath(u"bin/parvanel-print"_s).toUtf8());
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
    qputenv("PATH", QFile::encodeName(m_carpeta->filePath(u"bin"_s)));
    if (!guion.isEmpty())
        ponerPrograma(u"parvanel-print"_s, guion);
    if (!ejecutable)
        QFile::setPermissions(m_carpeta->filePath(u"bin/parvanel-print"_s), QFile::ReadOwner);
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

void tst_Verbos::obreroMuerto_seReemplaza()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeUna);
    const QStringList rutas = {documento(u"uno.html"_s), documento(u"dos.html"_s),
                               documento(u"tres.html"_s)};
    QList<qint64> vistos;
    Verbos verbos;
    for (const QString &ruta : rutas) {
        verbos.imprimir(ruta);
        QTRY_VERIFY(otroQue(vistos) != 0);
        vistos << otroQue(vistos);
        QTRY_COMPARE(lineas(vistos.last()), QList<QByteArray>{ruta.toUtf8()});
        QTRY_VERIFY(haTerminado(vistos.last()));
    }
    QCOMPARE(inicios().size(), rutas.size());
}

// It has read nothing of what the pipe holds, and that is not to the end of a line.
void tst_Verbos::obreroMuertoSinLeer_todoAlSiguiente()
{
    ponerPrograma(u"parvanel-print"_s, anota + esperaPermiso + terminaSiEsPrimero + leeTodo);
    const QStringList rutas = documentos(400); // about 80 KB, more than a pipe holds
    auto verbos = std::make_unique<Verbos>();
    for (const QString &ruta : rutas)
        verbos->imprimir(ruta);
    QTRY_COMPARE(inicios().size(), 1);
    const qint64 primero = inicios().first().pid;
    dejarSeguir();
    QTRY_COMPARE(inicios().size(), 2);
    const qint64 segundo = otroQue({primero});
    QTRY_VERIFY_WITH_TIMEOUT(lineas(segundo).size() >= rutas.size(), 60'000);
    verbos.reset();
    QTRY_VERIFY(haTerminado(segundo));
    QCOMPARE(lineas(segundo), enBytes(rutas));
}

// The last document of a batch is the one that nothing comes after.
void tst_Verbos::obreroMuertoConElUltimo_pasaAlSiguiente()
{
    ponerPrograma(u"parvanel-print"_s, anota + terminaSiEsPrimero + leeTodo);
    const QString ruta = documento(u"uno.html"_s);
    Verbos verbos;
    verbos.imprimir(ruta);
    QTRY_COMPARE(inicios().size(), 2);
    QTRY_VERIFY(!otroConLineas().isEmpty());
    QCOMPARE(otroConLineas(), QList<QByteArray>{ruta.toUtf8()});
}

void tst_Verbos::obreroMuertoAMedias_loLeidoNoSeRepite()
{
    ponerPrograma(u"parvanel-print"_s,
                  anota + esperaPermiso
                      + "mkdir \"$REGISTRO/primero\" 2>/dev/null && { IFS= read -r linea; exit; }\n"
                      + leeTodo);
    const QStringList rutas = documentos(20);
    Verbos verbos;
    for (const QString &ruta : rutas)
        verbos.imprimir(ruta);
    dejarSeguir();
    QTRY_COMPARE(otroConLineas().size(), rutas.size() - 1);
    QCOMPARE(otroConLineas(), enBytes(rutas.mid(1)));
}

void tst_Verbos::obreroQueTerminaSiempre_pocosArranques()
{
    ponerPrograma(u"parvanel-print"_s, anota);
    Verbos verbos;
    for (const QString &ruta : documentos(20)) {
        verbos.imprimir(ruta);
        QTRY_VERIFY(hijos().isEmpty()); // however late it is noticed that it has ended
    }
    QCOMPARE(inicios().size(), 3);
}

void tst_Verbos::obreroQueTerminaSiempre_trasElDescansoSePrueba()
{
    ponerPrograma(u"parvanel-print"_s, anota);
    Verbos verbos({}, {.descanso = std::chrono::milliseconds(0)});
    verbos.imprimir(documento(u"uno.html"_s));
    QTRY_COMPARE(inicios().size(), 3);
    QTRY_VERIFY(hijos().isEmpty());
    QVERIFY(QFile::remove(m_carpeta->filePath(u"bin/parvanel-print"_s)));
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo);
    const QString ruta = documento(u"dos.html"_s);
    verbos.imprimir(ruta);
    QTRY_VERIFY(!otroConLineas().isEmpty());
    QCOMPARE(otroConLineas(), QList<QByteArray>{ruta.toUtf8()});
    QCOMPARE(inicios().size(), 4);
}

void tst_Verbos::obreroQueTermina_noQuedaComoZombi()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeUna);
    Verbos verbos;
    verbos.imprimir(documento(u"uno.html"_s));
    QTRY_COMPARE(inicios().size(), 1);
    QTRY_VERIFY(hijos().isEmpty());
}

void tst_Verbos::obreroReemplazado_noQuedaComoZombi()
{
    ponerPrograma(u"parvanel-print"_s, anota + "mkdir \"$REGISTRO/primero\" 2>/dev/null && {\n"
                                           + esperaPermiso + "exit\n}\n" + leeTodo);
    Verbos verbos({}, {.atasco = std::chrono::milliseconds(300)});
    for (const QString &ruta : documentos(600)) // about 120 KB, twice what a pipe holds
        verbos.imprimir(ruta);
    QTRY_COMPARE(inicios().size(), 2);
    QCOMPARE(hijos().size(), 2);
    dejarSeguir();
    QTRY_COMPARE(hijos().size(), 1);
}

void tst_Verbos::obrero_sabeElOrigenYLaRaiz()
{
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo);
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
    qunsetenv("PARVANEL_ORIGEN");
    qunsetenv("QUEDA");
}

void tst_Verbos::obreroAtascado_noDetiene()
{
    ponerPrograma(u"parvanel-print"_s, anota + esperaPermiso + leeTodo);
    const QStringList rutas = documentos(400);
    QList<QByteArray> esperadas;
    Verbos verbos;
    for (const QString &ruta : rutas) {
        verbos.imprimir(ruta); // the pipe is full long before the last
        esperadas << ruta.toUtf8();
    }
    QTRY_COMPARE(inicios().size(), 1);
    QVERIFY(lineas().isEmpty());
    dejarSeguir();
    QTRY_COMPARE_WITH_TIMEOUT(lineas().size(), rutas.size(), 30'000);
    QCOMPARE(lineas(), esperadas);
    QCOMPARE(inicios().size(), 1);
}

// The first worker never reads; what its pipe had no room for goes to the next one, beginning
// with the whole line that did not fit.
void tst_Verbos::obreroAtascado_seReemplaza()
{
    ponerPrograma(
        u"parvanel-print"_s,
        anota
            + "mkdir \"$REGISTRO/primero\" 2>/dev/null && while [ ! -e \"$REGISTRO/sigue\" ]; "
              "do sleep 0.05; done\n"
            + leeTodo);
    const QStringList rutas = documentos(600); // about 120 KB, twice what a pipe holds
    Verbos verbos({}, {.atasco = std::chrono::milliseconds(300)});
    for (const QString &ruta : rutas)
        verbos.imprimir(ruta);
    QTRY_COMPARE(inicios().size(), 2);
    dejarSeguir();
    const auto entregadas = [this] {
        QSet<QByteArray> lineasDeTodos;
        for (const Inicio &inicio : inicios()) {
            for (const QByteArray &linea : lineas(inicio.pid))
                lineasDeTodos.insert(linea);
        }
        return lineasDeTodos;
    };
    QSet<QByteArray> esperadas;
    for (const QString &ruta : rutas)
        esperadas.insert(QFile::encodeName(ruta));
    QTRY_VERIFY(entregadas().contains(esperadas));
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
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo, u"lado"_s);
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
    ponerPrograma(u"parvanel-print"_s, anota + leeTodo, u"libexec/parvanel"_s);
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
