// SPDX-License-Identifier: MIT
#include "ArchivoEntrante_windows.h"
#include "RaizArchivo_windows.h"
#include "platform/DriveC.h"
#include "platform/rutaWindows.h"
#include "rutaNativa.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;
using aperturas::Datos;
using aperturas::Enlace;
using aperturas::Fin;
using aperturas::insistir;

namespace {

// How often a file that others go on writing is put in their place.
constexpr int vecesQueSeReemplaza = 100;

bool escribirYCerrar(Manija &archivo, const QByteArray &bytes)
{
    return aperturas::escribirTodo(archivo, bytes.constData(), bytes.size()) && archivo.cerrar();
}

} // namespace

class DriveC::Interno {
public:
    Interno(const QString &personal, const QString &nombreRaiz) : raiz(personal, nombreRaiz) {}

    RaizArchivo raiz;

    // A file, or nothing yet, in its open folder.
    struct Sitio {
        QStringList ruta;
        CarpetaAbierta carpeta;
        QString nombre;               // as it stands there, else as it was asked for
        bool esEnlace = false;        // what stands there leads to the file
        std::optional<Datos> archivo; // the file
    };
    // Nothing where no file can be.
    std::optional<Sitio> sitio(const QString &ruta, Paciencia &paciencia) const
    {
        const auto hallado = rutaWindows::archivoEn(raiz.nombre(), ruta);
        if (!hallado)
            return std::nullopt;
        Sitio resultado{hallado->carpeta,
                        raiz.abrirCarpeta(hallado->carpeta, paciencia),
                        hallado->nombre,
                        false,
                        {}};
        if (!resultado.carpeta || !mirar(resultado, paciencia))
            return std::nullopt;
        return resultado;
    }

    // A file of its own, or none: never one that somebody else has just made.
    static aperturas::Apertura crear(const Sitio &sitio, Paciencia &paciencia)
    {
        return insistir(paciencia, [&] {
            return aperturas::crearParaAgregar(sitio.carpeta.manija, sitio.nombre);
        });
    }

    static bool agregar(const Sitio &sitio, const QByteArray &bytes, Paciencia &paciencia)
    {
        auto archivo = sitio.archivo ? abrir(sitio, paciencia) : crear(sitio, paciencia);
        // Deleted before, and held by somebody who has let go of it only now.
        if (archivo.fin == Fin::Falta)
            archivo = crear(sitio, paciencia);
        return archivo && escribirYCerrar(archivo.manija, bytes);
    }

    static Fin borrar(const Sitio &sitio, Paciencia &paciencia)
    {
        if (!sitio.archivo)
            return Fin::Falta;
        const auto archivo = insistir(paciencia, [&] {
            return aperturas::abrirParaBorrar(sitio.carpeta.manija, sitio.nombre);
        });
        if (!archivo)
            return archivo.fin;
        // A link to a file goes itself; what it leads to stays. So it must be the entry of this
        // very folder that was opened. Of one that somebody else has just deleted nothing is told.
        const auto datos = aperturas::datosDe(archivo.manija);
        if (!datos)
            return Fin::Falta;
        if (datos->esCarpeta || datos->carpeta() != sitio.carpeta.ruta)
            return Fin::Fallo;
        return insistir(paciencia, [&] { return aperturas::borrar(archivo.manija); });
    }

private:
    // What stands in the place; false when that is no file and leads to none in the root.
    static bool mirar(Sitio &sitio, Paciencia &paciencia)
    {
        const Manija &carpeta = sitio.carpeta.manija;
        const auto mira = [&](Enlace enlace) {
            return insistir(paciencia, [&] {
                auto mirada = aperturas::mirar(carpeta, sitio.nombre, enlace);
                // A deletion that came to its end just then: what stands there now is looked for.
                if (mirada && !aperturas::datosDe(mirada.manija))
                    mirada = {{}, Fin::Ocupado};
                return mirada;
            });
        };
        const auto entrada = mira(Enlace::ElMismo);
        if (entrada.fin == Fin::Falta)
            return true;
        const auto datos = aperturas::datosDe(entrada.manija);
        if (!datos)
            return false;
        sitio.archivo = datos;
        sitio.esEnlace = datos->esEnlace || datos->carpeta() != sitio.carpeta.ruta;
        if (!sitio.esEnlace)
            sitio.nombre = datos->nombre();
        else
            sitio.archivo = aperturas::datosDe(mira(Enlace::Seguido).manija);
        return sitio.archivo && esDelArchivo(sitio, *sitio.archivo);
    }

    static bool esDelArchivo(const Sitio &sitio, const Datos &datos)
    {
        return datos.esArchivo() && sitio.carpeta.enLaRaiz(datos.ruta);
    }

    // Opens a file that stands there, and looks at what was opened: somebody may have put a link
    // in its place meanwhile, and a file with a second name would change under that name as well.
    static aperturas::Apertura abrir(const Sitio &sitio, Paciencia &paciencia)
    {
        auto archivo = insistir(paciencia, [&] {
            return aperturas::abrirParaAgregar(sitio.carpeta.manija, sitio.nombre);
        });
        if (!archivo)
            return archivo;
        const auto datos = aperturas::datosDe(archivo.manija);
        // A file marked as read-only is for the disk to refuse; one that lets it pass is not heard.
        if (!datos || !esDelArchivo(sitio, *datos) || datos->nombres > 1 || datos->soloLectura)
            return {};
        return archivo;
    }
};

QString DriveC::carpetaPersonal()
{
    return u"C:/"_s;
}

DriveC::DriveC(const QString &carpetaPersonal, const QString &raiz)
    : d(std::make_unique<Interno>(carpetaPersonal, raiz))
{
}

DriveC::~DriveC() = default;

bool DriveC::crearCarpeta(const QString &ruta)
{
    const auto lugar = rutaWindows::lugarEn(d->raiz.nombre(), ruta);
    if (!lugar)
        return false;
    Paciencia paciencia;
    const Manija madre = lugar->esRaiz ? d->raiz.abrirPersonal(paciencia)
                                       : d->raiz.abrirCarpeta(lugar->carpeta, paciencia).manija;
    return insistir(paciencia, [&] { return aperturas::crearCarpeta(madre, lugar->nombre); })
           == Fin::Hecho;
}

bool DriveC::borrar(const QString &ruta)
{
    Paciencia paciencia;
    const auto sitio = d->sitio(ruta, paciencia);
    return sitio && Interno::borrar(*sitio, paciencia) == Fin::Hecho;
}

std::optional<qint64> DriveC::largo(const QString &ruta) const
{
    Paciencia paciencia;
    const auto sitio = d->sitio(ruta, paciencia);
    if (!sitio || !sitio->archivo)
        return std::nullopt;
    return sitio->archivo->largo;
}

bool DriveC::agregar(const QString &ruta, const QByteArray &bytes)
{
    Paciencia paciencia;
    const auto sitio = d->sitio(ruta, paciencia);
    return sitio && Interno::agregar(*sitio, bytes, paciencia);
}

bool DriveC::escribir(const QString &ruta, const QByteArray &bytes)
{
    Paciencia paciencia;
    for (int vez = 0; vez < vecesQueSeReemplaza; ++vez) {
        const auto sitio = d->sitio(ruta, paciencia);
        if (!sitio)
            return false;
        if (!sitio->archivo) {
            auto nuevo = Interno::crear(*sitio, paciencia);
            if (nuevo)
                return escribirYCerrar(nuevo.manija, bytes);
            if (nuevo.fin != Fin::Existe)
                break;
            continue;
        }
        // One that somebody else has deleted first is gone as well.
        const Fin borrado = Interno::borrar(*sitio, paciencia);
        if (borrado != Fin::Hecho && borrado != Fin::Falta)
            break;
    }
    const auto sitio = d->sitio(ruta, paciencia);
    return sitio && Interno::agregar(*sitio, bytes, paciencia);
}

std::unique_ptr<ArchivoEntrante> DriveC::recibir(const QString &ruta)
{
    Paciencia paciencia;
    auto sitio = d->sitio(ruta, paciencia);
    if (!sitio)
        return nullptr;
    quitarTemporalesAbandonados(sitio->carpeta,
                                d->raiz.ruta(QStringList{d->raiz.nombre()} + sitio->ruta));
    return recibirEn(d->raiz, sitio->ruta, std::move(sitio->carpeta), sitio->nombre);
}

std::optional<QStringList> DriveC::carpetas(const QString &ruta) const
{
    const bool enC = rutaWindows::enUnidadC(ruta);
    QString carpeta = ruta;
    if (enC) {
        const auto nombres = rutaWindows::nombres(ruta);
        if (!nombres || !d->raiz.hayUnidad())
            return std::nullopt;
        carpeta = d->raiz.ruta(*nombres);
    }
    if (!QFileInfo(carpeta).isDir())
        return std::nullopt;
    const QStringList nombres = QDir(carpeta).entryList(QDir::Dirs | QDir::NoDotAndDotDot
                                                        | (enC ? QDir::Hidden : QDir::Filters()));
    return rutaWindows::listado(ruta, nombres);
}

QString DriveC::rutaNativa(const QString &ruta) const
{
    return rutaNativaDe(d->raiz, ruta);
}
