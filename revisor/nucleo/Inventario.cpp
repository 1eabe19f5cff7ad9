// SPDX-License-Identifier: MIT
#include "Inventario.h"
#include "platform/nombresNativos.h"
#include "platform/recorrido.h"
#include "texto.h"

#include <QRegularExpression>

#include <algorithm>
#include <chrono>
#include <set>
#include <system_error>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr int hondoMaximo = 64;

qint64 enMilisegundos(fs::file_time_type cuando)
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(file_clock::to_sys(cuando).time_since_epoch()).count();
}

bool estaDentro(const fs::path &real, const fs::path &raiz)
{
    const auto [fin, resto] = std::mismatch(raiz.begin(), raiz.end(), real.begin(), real.end());
    return fin == raiz.end() && resto != real.end();
}

// Whether the link stands below the folder to which it leads.
bool leContiene(const fs::path &real, const fs::path &enlace)
{
    std::error_code error;
    const fs::path suya = fs::canonical(enlace.parent_path(), error);
    return !error && (suya == real || estaDentro(suya, real));
}

// What another system or program leaves beside a file: "._1001.html", ".picasa.ini".
bool esDeOtroPrograma(const QString &ruta)
{
    return ruta.mid(ruta.lastIndexOf(u'/') + 1).startsWith(u'.');
}

// A file in a folder of images that calls itself something else. Labels are named by their texts,
// which may have any letters after a full stop.
bool seLlamaOtraCosa(const QString &ruta)
{
    const QString nombre = ruta.mid(ruta.lastIndexOf(u'/') + 1);
    const QString fin = nombre.mid(nombre.lastIndexOf(u'.') + 1).toLower();
    const bool esEtiqueta = ruta.startsWith(u"archivos/images/labels/"_s, Qt::CaseInsensitive);
    static const QStringList deImagen = {u"png"_s, u"jpg"_s,  u"jpeg"_s, u"gif"_s,
                                         u"bmp"_s, u"webp"_s, u"ico"_s,  u"avif"_s};
    static const QStringList deEquipos = {u"db"_s, u"ini"_s};
    if (!nombre.contains(u'.'))
        return false;
    return esEtiqueta ? deEquipos.contains(fin) : !deImagen.contains(fin);
}

Entrada::Clase claseDe(const QString &ruta)
{
    const auto acaba = [&](QStringView fin) {
        return ruta.endsWith(fin, Qt::CaseInsensitive);
    };
    const auto empieza = [&](QStringView inicio) {
        return ruta.startsWith(inicio, Qt::CaseInsensitive);
    };
    if (ruta.mid(ruta.lastIndexOf(u'/') + 1).startsWith(u".descarga-"))
        return Entrada::Resto;
    if (esDeOtroPrograma(ruta))
        return Entrada::Otra;
    if (ruta.compare(u"configuracion.txt", Qt::CaseInsensitive) == 0)
        return Entrada::Configuracion;
    if (empieza(u"archivos/jscript/") && acaba(u".js"))
        return Entrada::Biblioteca;
    if (empieza(u"archivos/images/") || empieza(u"archivos/fotos/"))
        return seLlamaOtraCosa(ruta) ? Entrada::Otra : Entrada::Imagen;
    if (acaba(u".html") || acaba(u".htm"))
        return Entrada::Pagina;
    for (const QStringView fin : {u".jpg", u".jpeg", u".png", u".gif"}) {
        if (acaba(fin))
            return Entrada::Imagen;
    }
    return acaba(u".css") ? Entrada::Estilo : Entrada::Otra;
}

// Of "1001 - copia", "Copia de 1001", "1001 (2)" and what programs that keep two computers alike
// make of it: "1001"; else nothing.
QString idSinCopia(const QString &id)
{
    static const QRegularExpression copia(
        u"^(?:copia(?: \\(\\d+\\))? de |copy of )(.+)$"
        u"|^(.+?)(?: - (?:copia|copy))(?: ?\\(\\d+\\))?$"
        u"|^(.+?) ?\\(\\d+\\)$"
        u"|^(.+?)\\.sync-conflict-[\\w-]+$"
        u"|^(.+?) \\((?:copia en conflicto|.*conflicted copy).*\\)$"_s,
        QRegularExpression::CaseInsensitiveOption);
    const auto hallada = copia.match(id);
    return hallada.hasMatch() ? hallada.captured(hallada.lastCapturedIndex()) : QString();
}

} // namespace

class Inventario::Recorrido {
public:
    Recorrido(Inventario &inventario, fs::path raiz, const std::stop_token &parar)
        : m_i(inventario), m_raiz(std::move(raiz)), m_parar(parar)
    {
        std::error_code error;
        m_real = fs::canonical(m_raiz, error);
        if (error)
            m_i.raizLegible = false;
        else
            m_i.raizLegible = carpeta({}, 0);
    }

private:
    // False when it cannot be listed.
    bool carpeta(const fs::path &relativa, int hondo)
    {
        return recorrido::porCarpeta(m_raiz / relativa, [&](const recorrido::Entrada &una) {
            if (m_parar.stop_requested())
                return false;
            entrada(una, relativa / una.nombre, hondo);
            return true;
        });
    }

    void entrada(const recorrido::Entrada &una, const fs::path &relativa, int hondo)
    {
        switch (una.clase) {
        case recorrido::Clase::Enlace:
            enlace(m_raiz / relativa, relativa, hondo);
            return;
        case recorrido::Clase::Carpeta:
            subcarpeta(relativa, hondo);
            return;
        case recorrido::Clase::Archivo:
            archivo(una, relativa);
            return;
        case recorrido::Clase::Otra:
            // Devices, pipes and the like are none of an archive's, and are never opened.
            if (!una.cierta)
                m_i.ilegibles.append(texto::deRuta(relativa));
            return;
        }
    }

    void subcarpeta(const fs::path &relativa, int hondo)
    {
        const QString texto = texto::deRuta(relativa);
        m_i.m_carpetas.insert(texto::clave(texto));
        m_i.m_carpetasExactas.insert(texto);
        if (hondo >= hondoMaximo || !carpeta(relativa, hondo + 1))
            m_i.ilegibles.append(texto);
    }

    void enlace(const fs::path &una, const fs::path &relativa, int hondo)
    {
        const QString texto = texto::deRuta(relativa);
        std::error_code error;
        const fs::path destino = fs::read_symlink(una, error);
        const bool entera = !error && fs::exists(una, error);
        const QString propio = texto::deRuta(relativa.filename());
        if (entera && nombresNativos::esOtraEscritura(propio, texto::deRuta(destino))
            && propio != texto::deRuta(destino)) {
            m_i.m_otrasEscrituras.insert(texto, texto::deRuta(relativa.parent_path() / destino));
            return;
        }
        const fs::path real = entera ? fs::canonical(una, error) : fs::path();
        const bool perdido = !entera || error;
        if (!perdido && real != m_real && !estaDentro(real, m_real))
            m_i.haciaFuera.append(texto);
        else if (perdido || leContiene(real, una)) // or it leads in a circle
            m_i.sinDestino.append(texto);
        else if (fs::is_regular_file(real, error))
            archivo(porElEnlace(real), relativa);
        else if (fs::is_directory(real, error) && m_seguidas.insert(real).second)
            subcarpeta(relativa, hondo);
    }

    // The file to which a link leads.
    static recorrido::Entrada porElEnlace(const fs::path &real)
    {
        std::error_code sinLargo;
        std::error_code sinFecha;
        recorrido::Entrada una;
        una.bytes = static_cast<qint64>(fs::file_size(real, sinLargo));
        una.escrito = fs::last_write_time(real, sinFecha);
        una.cierta = !sinLargo && !sinFecha;
        return una;
    }

    void archivo(const recorrido::Entrada &una, const fs::path &relativa)
    {
        Entrada nueva;
        nueva.ruta = relativa;
        nueva.texto = texto::deRuta(relativa);
        nueva.largo = una.bytes;
        if (!una.cierta) {
            m_i.ilegibles.append(nueva.texto);
            return;
        }
        nueva.fecha = enMilisegundos(una.escrito);
        nueva.clase = claseDe(nueva.texto);
        if (auto lugar = familias::lugarDe(nueva.texto); lugar && !esDeOtroPrograma(nueva.texto)) {
            nueva.familia = lugar->familia;
            nueva.id = std::move(lugar->id);
        }
        m_i.archivos.push_back(std::move(nueva));
    }

    Inventario &m_i;
    fs::path m_raiz;
    fs::path m_real;
    const std::stop_token &m_parar;
    // Folders to which links lead: each is gone through once by them, so that links which lead to
    // one another come to an end.
    std::set<fs::path> m_seguidas;
};

Inventario::Inventario(const fs::path &carpeta, const std::stop_token &parar)
{
    try {
        Recorrido(*this, carpeta, parar);
    } catch (const std::exception &) {
        // The library's own, out of memory or of a name that the system cannot turn into text.
        raizLegible = false;
    }
    std::sort(archivos.begin(), archivos.end(), [](const Entrada &una, const Entrada &otra) {
        return una.texto != otra.texto ? una.texto < otra.texto : una.ruta < otra.ruta;
    });
    for (QStringList *lista : {&ilegibles, &haciaFuera, &sinDestino})
        lista->sort();
    apartarCopias();
    m_exactos.reserve(static_cast<qsizetype>(archivos.size()));
    m_claves.reserve(static_cast<qsizetype>(archivos.size()));
    for (std::size_t i = archivos.size(); i-- > 0;) {
        m_exactos.insert(archivos[i].texto, static_cast<int>(i));
        m_claves.insert(texto::clave(archivos[i].texto), static_cast<int>(i));
    }
}

// Somebody's copy of a document stands beside it and is nobody's document.
void Inventario::apartarCopias()
{
    QSet<QString> documentos;
    for (const Entrada &entrada : archivos) {
        if (entrada.familia >= 0)
            documentos.insert(texto::clave(entrada.texto));
    }
    for (Entrada &entrada : archivos) {
        const QString original = entrada.familia < 0 ? QString() : idSinCopia(entrada.id);
        if (original.isEmpty()
            || !documentos.contains(texto::clave(
                familias::rutaDe(static_cast<familias::Cual>(entrada.familia), original))))
            continue;
        entrada.familia = -1;
        entrada.clase = Entrada::Otra;
        entrada.id.clear();
    }
}

// Whether each of its names stands there letter by letter, or a link of that spelling does.
bool Inventario::estaExacta(const QString &ruta) const
{
    QString real;
    for (const QString &nombre : ruta.split(u'/')) {
        if (!real.isEmpty())
            real += u'/';
        real += nombre;
        const auto escritura = m_otrasEscrituras.constFind(real);
        if (escritura != m_otrasEscrituras.constEnd())
            real = escritura.value();
    }
    return m_exactos.contains(real) || m_carpetasExactas.contains(real);
}

Hallado Inventario::buscar(const QString &ruta) const
{
    if (const auto exacto = m_exactos.constFind(ruta); exacto != m_exactos.constEnd())
        return {Hallado::Archivo, exacto.value(), true};
    const QString clave = texto::clave(ruta);
    if (const auto igual = m_claves.constFind(clave); igual != m_claves.constEnd())
        return {Hallado::Archivo, igual.value(), estaExacta(ruta)};
    if (m_carpetas.contains(clave))
        return {Hallado::Carpeta, -1, estaExacta(ruta)};
    return {};
}

Hallado Inventario::buscar(const QStringList &nombres) const
{
    const bool deCarpeta = !nombres.isEmpty() && nombres.last().isEmpty();
    QStringList propios = nombres;
    if (deCarpeta)
        propios.removeLast();
    if (propios.isEmpty())
        return {Hallado::Carpeta, -1, true};
    Hallado hallado = buscar(propios.join(u'/'));
    if (hallado.clase != Hallado::Ninguno) {
        if (deCarpeta && hallado.clase == Hallado::Archivo)
            return {};
        return hallado;
    }
    // Windows passes over dots and blanks at a name's end, as the program did that stored it.
    bool otros = false;
    for (QString &nombre : propios) {
        while (nombre.size() > 1 && (nombre.endsWith(u'.') || nombre.endsWith(u' '))) {
            nombre.chop(1);
            otros = true;
        }
    }
    if (!otros)
        return {};
    hallado = buscar(propios.join(u'/'));
    hallado.exacto = false;
    return hallado;
}
