// SPDX-License-Identifier: MIT
#include "lecturaPagina.h"
#include "direccion.h"
#include "estilo.h"
#include "pages/guiones.h"
#include "pagina.h"
#include "platform/codepage.h"
#include "texto.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

// What a disk holds of a file that it never got: zeros, block after block. One alone may be the
// service's own.
constexpr qsizetype cerosDeUnCorte = 64;

bool esPalabraDelServicio(const QByteArray &cuerpo)
{
    const QByteArray palabra = cuerpo.trimmed().toUpper();
    return palabra == "ERROR" || palabra == "NO" || palabra == "SI";
}

bool diceError(const QString &titulo)
{
    static const QRegularExpression error(
        u"\\b(error\\s*[45]\\d\\d|[45]\\d\\d\\s*[-:]?\\s*(error|not found|forbidden|bad gateway|"
        u"service|gateway|internal|unauthorized)|not found|no encontrad[ao]|forbidden|"
        u"acceso denegado|internal server error|bad gateway|service unavailable|"
        u"gateway time-?out|error interno|fatal error)\\b|^\\s*error\\s*[!.]?\\s*$"_s,
        QRegularExpression::CaseInsensitiveOption);
    return error.match(titulo).hasMatch();
}

bool esDeNombre(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return std::isalnum(byte) != 0 || byte >= 0x80;
}

// Whether the id stands in the text by itself and not as part of a longer number.
bool menciona(const QByteArray &texto, const QByteArray &id)
{
    for (qsizetype lugar = texto.indexOf(id); lugar >= 0; lugar = texto.indexOf(id, lugar + 1)) {
        const qsizetype fin = lugar + id.size();
        if ((lugar == 0 || !esDeNombre(texto[lugar - 1]))
            && (fin == texto.size() || !esDeNombre(texto[fin])))
            return true;
    }
    return false;
}

// Whether the text ends in </html>. A server's remark or a counter's script after it is no part of
// the page; another page, begun and not ended, is.
bool cierra(const QByteArray &cuerpo)
{
    const QByteArray final = cuerpo.last(std::min<qsizetype>(cuerpo.size(), 4096)).toLower();
    return final.lastIndexOf("</html>") > final.lastIndexOf("<html");
}

// A link that goes out of the archive and comes in again by the name of its folder.
enum class PorLaRaiz { No, Adentro, PorOtroNombre };

PorLaRaiz porLaRaiz(const Direccion &direccion, const QStringList &nombres)
{
    if (direccion.arriba != 1 || direccion.nombres.size() < 2)
        return PorLaRaiz::No;
    const QString &primero = direccion.nombres.first();
    for (const QString &nombre : nombres) {
        if (texto::clave(nombre) == texto::clave(primero))
            return PorLaRaiz::Adentro;
    }
    static const QRegularExpression deArchivo(u"^.+-\\d{4}$"_s);
    return deArchivo.match(primero).hasMatch() ? PorLaRaiz::PorOtroNombre : PorLaRaiz::No;
}

// The scripts that the block at the end of a page loads.
const std::vector<Enlace> &enlacesDeGuion(const Familia &familia)
{
    const auto leidos = [](QStringView guion) {
        return leerPagina(codepage::aBytes(guion.toString())).enlaces;
    };
    static const std::vector<Enlace> deDocumento = leidos(guiones::documento);
    static const std::vector<Enlace> deBoletin = leidos(guiones::boletin);
    return familia.guion == guiones::boletin ? deBoletin : deDocumento;
}

class LectorDePagina {
public:
    LectorDePagina(const Entrada &entrada, const Contexto &contexto, Lectura &lectura)
        : m_entrada(entrada), m_contexto(contexto), m_l(lectura)
    {
        m_carpeta = entrada.texto.split(u'/');
        m_carpeta.removeLast();
    }

    void leer(const QByteArray &bytes)
    {
        m_bytes = &bytes;
        const Familia *familia = deFamilia();
        const Cuerpo cuerpo = familia ? cuerpoDe(bytes, *familia) : Cuerpo{bytes};
        if (familia && !tieneSentido(cuerpo.bytes))
            return;
        const PaginaLeida pagina = leerPagina(cuerpo.bytes);
        if (pagina.enredada) {
            senalar(reglas::PaginaEnredada);
            return;
        }
        if (familia)
            anotar(cuerpo, pagina);
        for (const Enlace &enlace : pagina.enlaces)
            seguir(enlace);
        if (cuerpo.conGuion) {
            for (const Enlace &enlace : enlacesDeGuion(*familia))
                seguir(enlace);
        }
        ordenar();
    }

    void leerEstilo(const QByteArray &bytes)
    {
        m_bytes = &bytes;
        const std::string_view css(bytes.constData(), static_cast<std::size_t>(bytes.size()));
        for (std::string &direccion : direccionesDeEstilo(css))
            seguir({std::move(direccion), Enlace::Recurso});
        ordenar();
    }

private:
    const Familia *deFamilia() const
    {
        return m_entrada.familia < 0
                   ? nullptr
                   : &familias::todas[static_cast<std::size_t>(m_entrada.familia)];
    }

    bool tieneSentido(const QByteArray &cuerpo)
    {
        if (cuerpo.trimmed().isEmpty())
            senalar(reglas::PaginaVacia);
        else if (esPalabraDelServicio(cuerpo))
            senalar(reglas::PalabraDelServicio, QString::fromLatin1(cuerpo.trimmed()));
        else if (cuerpo.contains(QByteArray(cerosDeUnCorte, '\0')))
            senalar(reglas::PaginaBorrada);
        else
            return true;
        return false;
    }

    void anotar(const Cuerpo &cuerpo, const PaginaLeida &pagina)
    {
        if (!pagina.conElementos) {
            senalar(reglas::SinHtml);
            return;
        }
        m_l.comparable = true;
        m_l.conGuion = cuerpo.conGuion;
        m_l.cierra = cierra(cuerpo.bytes);
        m_l.abreHtml = cuerpo.bytes.left(4096).toLower().contains("<html");
        m_l.diceError = diceError(pagina.titulo) || diceError(pagina.encabezado);
        m_l.mencionaSuId =
            !m_entrada.id.isEmpty() && menciona(cuerpo.bytes, codepage::aBytes(m_entrada.id));
        m_l.huella = std::hash<std::string_view>()(
            {cuerpo.bytes.constData(), static_cast<std::size_t>(cuerpo.bytes.size())});
        m_l.largo = cuerpo.bytes.size();
        m_l.titulo = pagina.titulo;
        m_l.marcas = pagina.marcas;
    }

    void seguir(const Enlace &enlace)
    {
        const Direccion direccion = leerDireccion(enlace.direccion, m_carpeta);
        switch (direccion.clase) {
        case Direccion::Nada:
            return;
        case Direccion::EnLaRed:
            seguirEnLaRed(direccion.completa);
            return;
        case Direccion::Fuera:
            salir(direccion.completa);
            return;
        case Direccion::Relativa:
            seguirRelativa(direccion, enlace);
        }
    }

    void seguirRelativa(Direccion direccion, const Enlace &enlace)
    {
        if (direccion.arriba > 0) {
            const PorLaRaiz como = porLaRaiz(direccion, m_contexto.nombres);
            if (como == PorLaRaiz::No) {
                salir(QString::fromStdString(enlace.direccion));
                return;
            }
            if (como == PorLaRaiz::PorOtroNombre)
                senalar(reglas::EnlacePorLaRaiz, direccion.nombres.first());
            direccion.nombres.removeFirst();
        }
        const Hallado hallado = m_contexto.inventario.buscar(direccion.nombres);
        const QString ruta = direccion.nombres.join(u'/');
        nombrar(ruta, enlace);
        if (hallado.clase == Hallado::Ninguno && esEtiquetaCortada(enlace, ruta)) {
            senalar(reglas::EtiquetaImposible, QString::fromStdString(enlace.direccion));
        } else if (hallado.clase == Hallado::Ninguno) {
            faltar(ruta, enlace.clase == Enlace::Recurso);
        } else if (hallado.clase == Hallado::Carpeta) {
            if (enlace.clase == Enlace::Recurso)
                faltar(ruta, true);
        } else {
            m_l.hacia.push_back(hallado.entrada);
        }
        if (hallado.clase != Hallado::Ninguno && (!hallado.exacto || direccion.deWindows))
            senalar(reglas::SoloWindows, QString::fromStdString(enlace.direccion));
    }

    // A label's text with a question mark or a number sign in it: browsers end the name there.
    static bool esEtiquetaCortada(const Enlace &enlace, const QString &ruta)
    {
        return enlace.direccion.find_first_of("?#") != std::string::npos
               && ruta.startsWith(u"archivos/images/labels/"_s, Qt::CaseInsensitive);
    }

    void faltar(const QString &ruta, bool recurso)
    {
        if (m_faltan.contains(ruta))
            return;
        m_faltan.insert(ruta);
        m_l.ausencias.push_back({ruta, recurso});
    }

    void salir(const QString &direccion)
    {
        if (m_salidas.contains(direccion))
            return;
        m_salidas.insert(direccion);
        m_l.fuera.append(direccion);
    }

    void nombrar(const QString &ruta, const Enlace &enlace)
    {
        if (enlace.rotulo.isEmpty() && enlace.propio.isEmpty())
            return;
        auto lugar = familias::lugarDe(ruta);
        if (!lugar)
            return;
        const De de = familias::todas[lugar->familia].de;
        if (lugar->familia == familias::Salones && !enlace.propio.isEmpty())
            m_l.nombrados.push_back({std::move(*lugar), enlace.propio});
        else if (de == De::Alumno && !enlace.rotulo.isEmpty())
            m_l.nombrados.push_back({std::move(*lugar), enlace.rotulo});
    }

    void seguirEnLaRed(const QString &direccion)
    {
        const Familia *familia = deFamilia();
        if (!familia)
            return;
        const qsizetype equipo = direccion.indexOf(u"//"_s) + 2;
        const qsizetype barra = direccion.indexOf(u'/', equipo);
        if (barra < 0)
            return;
        const QStringView ruta = QStringView(direccion).sliced(barra);
        for (const Localizada &una : familia->localizadas) {
            if (!esDe(ruta, una))
                continue;
            // Of two stamps of one kind only the first became local.
            const bool segundo = !una.enSuLugar.isEmpty()
                                 && m_bytes->contains(codepage::aBytes(una.enSuLugar.toString()));
            senalar(segundo ? reglas::SegundoSello : reglas::DireccionDelServicio, direccion);
            return;
        }
        if (familia->de == De::Lote && ruta.startsWith(u"/jscript/"))
            senalar(reglas::GuionDelServicio, direccion);
    }

    // The school's id stands in the name of the archive's folder. Under another name, as in a copy,
    // any school's is taken for it.
    bool esDe(QStringView ruta, const Localizada &una) const
    {
        const qsizetype lugar = una.direccion.indexOf(u"{colegio}"_s);
        if (lugar < 0)
            return ruta.startsWith(una.direccion, una.letras);
        static const QRegularExpression deArchivo(u"^(.+)-\\d{4}$"_s);
        bool conId = false;
        for (const QString &nombre : m_contexto.nombres) {
            const auto partes = deArchivo.match(nombre);
            conId |= partes.hasMatch();
            QString esperada = una.direccion.toString();
            esperada.replace(u"{colegio}"_s, partes.captured(1));
            if (partes.hasMatch() && ruta.startsWith(esperada, una.letras))
                return true;
        }
        return !conId && ruta.startsWith(una.direccion.first(lugar), una.letras);
    }

    // Many of one rule in one file are one that says how many.
    void senalar(reglas::Cual regla, const QString &detalle = {})
    {
        for (Lectura::Senal &senal : m_l.senales) {
            if (senal.regla == regla) {
                ++senal.veces;
                return;
            }
        }
        m_l.senales.push_back({regla, detalle});
    }

    void ordenar()
    {
        std::sort(m_l.hacia.begin(), m_l.hacia.end());
        m_l.hacia.erase(std::unique(m_l.hacia.begin(), m_l.hacia.end()), m_l.hacia.end());
        m_l.hacia.shrink_to_fit();
    }

    const Entrada &m_entrada;
    const Contexto &m_contexto;
    Lectura &m_l;
    const QByteArray *m_bytes = nullptr;
    QStringList m_carpeta;
    QSet<QString> m_faltan;
    QSet<QString> m_salidas;
};

} // namespace

Cuerpo cuerpoDe(const QByteArray &bytes, const Familia &familia)
{
    if (familia.guion.isEmpty())
        return {bytes};
    const QByteArray guion = codepage::aBytes(familia.guion.toString());
    const qsizetype lugar = bytes.lastIndexOf(guion);
    if (lugar < 0 || !bytes.sliced(lugar + guion.size()).trimmed().isEmpty())
        return {bytes};
    return {bytes.first(lugar), true};
}

void leerPaginaDe(const Entrada &entrada, const QByteArray &bytes, const Contexto &contexto,
                  Lectura &lectura)
{
    LectorDePagina(entrada, contexto, lectura).leer(bytes);
}

void leerEstiloDe(const Entrada &entrada, const QByteArray &bytes, const Contexto &contexto,
                  Lectura &lectura)
{
    LectorDePagina(entrada, contexto, lectura).leerEstilo(bytes);
}
