#include "platform/DriveC.h"
#include "platform/codepage.h"
#include "platform/rutaWindows.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <cstdio>

#include <sys/stat.h>
#include <unistd.h>

namespace {

// Counts the temporary names of this process, so that two downloads that are under way at once
// never share one.
unsigned siguienteTemporal()
{
    static unsigned contador = 0;
    return ++contador;
}

QString plegado(const QString &nombre)
{
    return nombre.toCaseFolded();
}

// When a folder last changed: names may be looked up in a remembered listing for as long as this
// stays the same.
struct Momento {
    qint64 segundos = -1;
    qint64 nanosegundos = -1;
    bool operator==(const Momento &) const = default;
};

std::optional<Momento> cambioDe(const QString &carpeta)
{
    struct stat datos = {};
    if (::stat(QFile::encodeName(carpeta).constData(), &datos) != 0 || !S_ISDIR(datos.st_mode))
        return std::nullopt;
    return Momento{datos.st_mtim.tv_sec, datos.st_mtim.tv_nsec};
}

bool existeEntrada(const QString &nativa)
{
    struct stat datos = {};
    return ::lstat(QFile::encodeName(nativa).constData(), &datos) == 0;
}

bool esEnlace(const QString &nativa)
{
    struct stat datos = {};
    return ::lstat(QFile::encodeName(nativa).constData(), &datos) == 0 && S_ISLNK(datos.st_mode);
}

// A link that is only another spelling of its neighbour.
bool esOtraEscritura(const QFileInfo &entrada)
{
    if (!entrada.isSymLink())
        return false;
    const QString destino = QFile::symLinkTarget(entrada.filePath());
    return QFileInfo(destino).absolutePath() == entrada.absolutePath()
           && plegado(QFileInfo(destino).fileName()) == plegado(entrada.fileName());
}

} // namespace

class DriveC::Interno {
public:
    struct Listado {
        Momento cambio;
        QHash<QString, QString> nombres; // folded name -> spelling on the disk
    };

    QString personal;
    QString raiz;
    QHash<QString, Listado> listados; // native folder -> what it holds

    const Listado &listadoDe(const QString &carpeta, const Momento &cambio)
    {
        Listado &listado = listados[carpeta];
        if (listado.cambio == cambio)
            return listado;
        listado.cambio = cambio;
        listado.nombres.clear();
        const QStringList entradas = QDir(carpeta).entryList(
            QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
        for (const QString &entrada : entradas) {
            // A link of another spelling never stands for the name: the entry it means does.
            const QString clave = plegado(entrada);
            if (!listado.nombres.contains(clave) || !esEnlace(carpeta + u'/' + entrada))
                listado.nombres.insert(clave, entrada);
        }
        return listado;
    }

    enum class Queda { Anotado, Olvidado, Igual };

    // Changes a folder through `hacer` and takes the change over into the remembered listing, so
    // that a folder of many files is not read again for each of them. A listing that somebody
    // else has overtaken stays out of date and is read again at its next use; one overtaken
    // within the file system's clock tick may be believed until the folder's next change. Names
    // in their exact spelling are always looked up on the disk.
    template <typename Hacer>
    bool cambiar(const QString &carpeta, const QString &nombre, Queda queda, Hacer hacer)
    {
        const auto antes = cambioDe(carpeta);
        const auto listado = listados.find(carpeta);
        const bool alDia = antes && listado != listados.end() && listado->cambio == *antes;
        if (!hacer())
            return false;
        if (!alDia)
            return true;
        if (queda == Queda::Anotado)
            listado->nombres.insert(plegado(nombre), nombre);
        else if (queda == Queda::Olvidado)
            listado->nombres.remove(plegado(nombre));
        listado->cambio = cambioDe(carpeta).value_or(Momento());
        return true;
    }

    // The native path of an entry: its existing spelling, or the asked-for one.
    QString buscar(const QString &carpeta, const QString &nombre)
    {
        const QString exacta = carpeta + u'/' + nombre;
        if (existeEntrada(exacta))
            return exacta;
        const auto cambio = cambioDe(carpeta);
        if (!cambio)
            return exacta;
        const QString hallado = listadoDe(carpeta, *cambio).nombres.value(plegado(nombre), nombre);
        return carpeta + u'/' + hallado;
    }

    QString nativa(const QStringList &nombres)
    {
        QString ruta = personal;
        for (const QString &nombre : nombres)
            ruta = buscar(ruta, nombre);
        return ruta;
    }

    struct Lugar {
        QString carpeta; // native, exists, inside the archive root (or the home folder itself)
        QString nombre;  // as asked for
        QString nativa;  // the existing spelling, or the asked-for one
        bool esRaiz = false;

        QString nombreExistente() const { return nativa.mid(carpeta.size() + 1); }
    };

    // Where a path leads, when the program may write there.
    std::optional<Lugar> lugar(const QString &ruta)
    {
        const auto nombres = rutaWindows::nombres(ruta);
        if (!nombres || nombres->isEmpty() || plegado(nombres->first()) != plegado(raiz))
            return std::nullopt;
        Lugar resultado;
        resultado.esRaiz = nombres->size() == 1;
        resultado.carpeta = nativa(nombres->first(nombres->size() - 1));
        resultado.nombre = nombres->last();
        if (!resultado.esRaiz && !dentroDeLaRaiz(resultado.carpeta))
            return std::nullopt;
        resultado.nativa = buscar(resultado.carpeta, resultado.nombre);
        return resultado;
    }

    // Whether an existing entry, with every link followed, stands in the archive root.
    bool dentroDeLaRaiz(const QString &ruta)
    {
        const QString real = QFileInfo(ruta).canonicalFilePath();
        const QString realRaiz = QFileInfo(buscar(personal, raiz)).canonicalFilePath();
        return !real.isEmpty() && !realRaiz.isEmpty()
               && (real == realRaiz || real.startsWith(realRaiz + u'/'));
    }

    // A file (or nothing yet) that may be written.
    std::optional<Lugar> archivo(const QString &ruta)
    {
        const auto resultado = lugar(ruta);
        if (!resultado || resultado->esRaiz)
            return std::nullopt;
        if (existeEntrada(resultado->nativa) && !dentroDeLaRaiz(resultado->nativa))
            return std::nullopt;
        return resultado;
    }
};

namespace {

// A file that remembers a write cut short: on a full disk QFile reports the bytes that still went
// in, and no error.
class ArchivoTemporal final : public QFile {
public:
    using QFile::QFile;

    bool entero() const { return m_entero; }

protected:
    qint64 writeData(const char *datos, qint64 cuantos) override
    {
        const qint64 escritos = QFile::writeData(datos, cuantos);
        m_entero = m_entero && escritos == cuantos;
        return escritos;
    }

private:
    bool m_entero = true;
};

class ArchivoEntranteLinux final : public ArchivoEntrante {
public:
    using Queda = DriveC::Interno::Queda;

    ArchivoEntranteLinux(DriveC::Interno &disco, const QString &carpeta, const QString &nombre)
        : m_disco(disco), m_carpeta(carpeta), m_nombre(nombre),
          m_temporal(QStringLiteral("%1/.descarga-%2-%3")
                         .arg(carpeta)
                         .arg(::getpid())
                         .arg(siguienteTemporal()))
    {
    }

    ~ArchivoEntranteLinux() override
    {
        if (m_abierto && !m_publicado)
            m_disco.cambiar(m_carpeta, {}, Queda::Igual, [this] { return m_temporal.remove(); });
    }

    bool abrir()
    {
        m_abierto = m_disco.cambiar(m_carpeta, {}, Queda::Igual, [this] {
            return m_temporal.open(QIODevice::WriteOnly | QIODevice::Truncate);
        });
        return m_abierto;
    }

    QIODevice &dispositivo() override { return m_temporal; }

    bool publicar() override
    {
        // No fsync: it would cost 4 to 6 ms a file, and an archive holds thousands.
        const bool escrito = m_temporal.flush() && m_temporal.entero();
        m_temporal.close();
        const QByteArray destino = QFile::encodeName(m_carpeta + u'/' + m_nombre);
        m_publicado = escrito && m_disco.cambiar(m_carpeta, m_nombre, Queda::Anotado, [&] {
            return std::rename(QFile::encodeName(m_temporal.fileName()).constData(),
                               destino.constData())
                   == 0;
        });
        return m_publicado;
    }

private:
    DriveC::Interno &m_disco;
    QString m_carpeta;
    QString m_nombre;
    ArchivoTemporal m_temporal;
    bool m_abierto = false;
    bool m_publicado = false;
};

} // namespace

DriveC::DriveC(const QString &carpetaPersonal, const QString &raiz) : d(std::make_unique<Interno>())
{
    d->personal = QDir::cleanPath(carpetaPersonal);
    d->raiz = raiz;
}

DriveC::~DriveC() = default;

bool DriveC::crearCarpeta(const QString &ruta)
{
    const auto lugar = d->lugar(ruta);
    if (!lugar)
        return false;
    const bool hecha = d->cambiar(lugar->carpeta, lugar->nombre, Interno::Queda::Anotado,
                                  [&] { return QDir().mkdir(lugar->nativa); });
    const QString existente = lugar->nombreExistente();
    // The root itself gets no second spelling: the link would stand outside of it.
    if (!hecha && !lugar->esRaiz && existente != lugar->nombre && QFileInfo(lugar->nativa).isDir())
        QFile::link(existente, lugar->carpeta + u'/' + lugar->nombre);
    return hecha;
}

bool DriveC::borrar(const QString &ruta)
{
    // A link that stands for a folder, or leads out of the archive, is no file of the archive's.
    const auto lugar = d->archivo(ruta);
    if (!lugar || QFileInfo(lugar->nativa).isDir())
        return false;
    return d->cambiar(lugar->carpeta, lugar->nombre, Interno::Queda::Olvidado,
                      [&] { return ::unlink(QFile::encodeName(lugar->nativa).constData()) == 0; });
}

std::optional<qint64> DriveC::largo(const QString &ruta) const
{
    const auto lugar = d->archivo(ruta);
    if (!lugar)
        return std::nullopt;
    const QFileInfo datos(lugar->nativa);
    if (!datos.isFile())
        return std::nullopt;
    return datos.size();
}

bool DriveC::agregar(const QString &ruta, const QByteArray &bytes)
{
    const auto lugar = d->archivo(ruta);
    if (!lugar)
        return false;
    QFile archivo(lugar->nativa);
    const bool abierto =
        d->cambiar(lugar->carpeta, lugar->nombreExistente(), Interno::Queda::Anotado,
                   [&] { return archivo.open(QIODevice::WriteOnly | QIODevice::Append); });
    return abierto && archivo.write(bytes) == bytes.size() && archivo.flush();
}

std::unique_ptr<ArchivoEntrante> DriveC::recibir(const QString &ruta)
{
    const auto lugar = d->archivo(ruta);
    if (!lugar || QFileInfo(lugar->nativa).isDir())
        return nullptr;
    auto archivo =
        std::make_unique<ArchivoEntranteLinux>(*d, lugar->carpeta, lugar->nombreExistente());
    if (!archivo->abrir())
        return nullptr;
    return archivo;
}

std::optional<QStringList> DriveC::carpetas(const QString &ruta) const
{
    const bool enC = rutaWindows::enUnidadC(ruta);
    QString carpeta = ruta;
    if (enC) {
        const auto nombres = rutaWindows::nombres(ruta);
        if (!nombres)
            return std::nullopt;
        carpeta = d->nativa(*nombres);
    }
    const QDir directorio(carpeta);
    if (!QFileInfo(carpeta).isDir())
        return std::nullopt;
    const QFileInfoList entradas = directorio.entryInfoList(
        QDir::Dirs | QDir::NoDotAndDotDot | (enC ? QDir::Hidden : QDir::Filters()));
    QStringList nombres;
    for (const QFileInfo &entrada : entradas) {
        if (!esOtraEscritura(entrada))
            nombres.append(entrada.fileName());
    }
    std::sort(nombres.begin(), nombres.end(), [](const QString &a, const QString &b) {
        const int orden = plegado(a).compare(plegado(b));
        return orden != 0 ? orden < 0 : a < b;
    });
    const QChar separador = enC ? u'\\' : u'/';
    QString prefijo = ruta;
    if (!prefijo.endsWith(separador))
        prefijo += separador;
    for (QString &nombre : nombres)
        nombre.prepend(prefijo);
    return nombres;
}

QString DriveC::rutaNativa(const QString &ruta) const
{
    const auto nombres = rutaWindows::nombres(ruta);
    return nombres ? d->nativa(*nombres) : ruta;
}
