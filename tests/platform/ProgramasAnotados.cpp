// SPDX-License-Identifier: MIT
#include "ProgramasAnotados.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QList<QByteArray> lineasDe(const QString &nombre)
{
    QFile archivo(nombre);
    if (!archivo.open(QIODevice::ReadOnly))
        return {};
    QList<QByteArray> lineas = archivo.readAll().split('\n');
    lineas.removeLast(); // what follows the last line's end
    return lineas;
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

} // namespace

bool haTerminado(qint64 pid)
{
    const QList<QByteArray> campos = lineasDe(u"/proc/%1/stat"_s.arg(pid));
    return campos.isEmpty() || campos.first().contains(") Z ");
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

void ProgramasAnotados::empezar()
{
    if (QFileInfo::exists(QCoreApplication::applicationDirPath() + u"/parvanel-print"_s))
        qFatal("a worker beside the test would be taken for the test's own");
    m_programas = std::make_unique<ProgramasEnPath>();
    m_carpeta = std::make_unique<QTemporaryDir>();
    m_hijosDeAntes = todosLosHijos();
    for (const auto &una : {u"lado"_s, u"registro"_s, u"documentos"_s}) {
        if (!QDir(m_carpeta->path()).mkdir(una))
            qFatal("no folder for the test");
    }
    qputenv("REGISTRO", QFile::encodeName(m_carpeta->filePath(u"registro"_s)));
}

void ProgramasAnotados::acabar()
{
    dejarSeguir();
    for (const Inicio &inicio : inicios())
        QTRY_VERIFY(haTerminado(inicio.pid));
    m_carpeta.reset();
    m_programas.reset();
}

void ProgramasAnotados::ponerPrograma(const QString &nombre, const QByteArray &guion) const
{
    m_programas->poner(nombre, guion);
}

void ProgramasAnotados::ponerProgramaEn(const QString &carpeta, const QString &nombre,
                                        const QByteArray &guion) const
{
    ::ponerPrograma(m_carpeta->filePath(carpeta + u'/' + nombre), guion);
}

QString ProgramasAnotados::documento(const QString &nombre) const
{
    const QString ruta = m_carpeta->filePath(u"documentos/"_s + nombre);
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly))
        qFatal("no document to print");
    return ruta;
}

QStringList ProgramasAnotados::documentos(int cuantos) const
{
    QStringList rutas;
    for (int i = 0; i < cuantos; ++i)
        rutas << documento(u"%1 %2.html"_s.arg(i).arg(u'x', 180));
    return rutas;
}

void ProgramasAnotados::dejarSeguir() const
{
    QFile permiso(m_carpeta->filePath(u"registro/sigue"_s));
    if (!permiso.open(QIODevice::WriteOnly))
        qFatal("no leave to give");
}

bool ProgramasAnotados::correrCopia(const QString &verbo, const QString &cual) const
{
    const QString copia = m_carpeta->filePath(u"lado/copia"_s);
    return QFile::copy(QCoreApplication::applicationFilePath(), copia)
           && QProcess::execute(copia, {u"--encargo"_s, verbo, cual}) == 0;
}

QList<Inicio> ProgramasAnotados::inicios() const
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

qint64 ProgramasAnotados::otroQue(const QList<qint64> &vistos) const
{
    for (const Inicio &inicio : inicios()) {
        if (!vistos.contains(inicio.pid))
            return inicio.pid;
    }
    return 0;
}

QList<QByteArray> ProgramasAnotados::lineas(qint64 pid) const
{
    return lineasDe(m_carpeta->filePath(u"registro/%1.lineas"_s.arg(pid)));
}

QList<QByteArray> ProgramasAnotados::lineas() const
{
    const QList<Inicio> lista = inicios();
    return lista.size() == 1 ? lineas(lista.first().pid) : QList<QByteArray>();
}

QList<QByteArray> ProgramasAnotados::otroConLineas() const
{
    for (const Inicio &inicio : inicios()) {
        if (const QList<QByteArray> suyas = lineas(inicio.pid); !suyas.isEmpty())
            return suyas;
    }
    return {};
}

bool ProgramasAnotados::terminados() const
{
    const QDir registro(m_carpeta->filePath(u"registro"_s));
    const auto cuantos = registro.entryList({u"*.inicio"_s}, QDir::Files).size();
    return cuantos > 0 && registro.entryList({u"*.fin"_s}, QDir::Files).size() == cuantos;
}

QList<qint64> ProgramasAnotados::hijos() const
{
    QList<qint64> pids = todosLosHijos();
    pids.removeIf([this](qint64 pid) { return m_hijosDeAntes.contains(pid); });
    return pids;
}
