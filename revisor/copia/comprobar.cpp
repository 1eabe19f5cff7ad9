// SPDX-License-Identifier: MIT
#include "bolsa.h"
#include "fuentes.h"
#include "inventario.h"
#include "revisor/comprobacion.h"

#include <QCryptographicHash>

#include <algorithm>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <system_error>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace copia {

namespace {

using Clase = Diferencia::Clase;
using Veredicto = Comprobacion::Veredicto;

// The folder in which the bag stands, "" or with a "/" at its end; nothing when there is none or
// more than one.
std::optional<QByteArray> baseDe(const std::vector<Fuente::Entrada> &entradas)
{
    std::set<QByteArray> bases;
    for (const Fuente::Entrada &entrada : entradas) {
        const qsizetype fin = entrada.nombre.lastIndexOf('/') + 1;
        const QByteArray nombre = entrada.nombre.mid(fin);
        if (nombre == bolsa::declaracion || nombre == bolsa::manifiesto)
            bases.insert(entrada.nombre.left(fin));
    }
    // One that stands at the top may well hold others among its documents.
    if (bases.contains(QByteArray()))
        return QByteArray();
    std::erase_if(bases, [](const QByteArray &base) { return base.count('/') > 1; });
    return bases.size() == 1 ? std::optional(*bases.begin()) : std::nullopt;
}

bool esDeLaCarga(const bolsa::Sumas::value_type &suma)
{
    return suma.first.startsWith(bolsa::carga);
}

QString cuenta(qint64 cuantos, const QString &uno, const QString &varios)
{
    return u"%1 %2"_s.arg(cuantos).arg(cuantos == 1 ? uno : varios);
}

class Examen {
public:
    Examen(Fuente &fuente, const Avance &avance, const std::stop_token &parar)
        : m_fuente(fuente), m_avance(avance), m_parar(parar)
    {
    }

    Comprobacion hacer()
    {
        if (rechazada() || detenida() || !prepararse())
            return m_resultado;
        sumarTotal();
        for (std::size_t i = 0; i < m_fuente.entradas().size(); ++i) {
            if (!examinar(i))
                return m_resultado;
        }
        for (const QByteArray &extrana : m_fuente.extranas())
            sobra(extrana);
        for (const auto &[nombre, suma] : m_esperadas)
            anotar(nombre, Clase::Falta); // those that came have been taken out
        concluir();
        return m_resultado;
    }

private:
    bool acabar(Veredicto veredicto, const QString &texto)
    {
        m_resultado = {.veredicto = veredicto, .texto = texto};
        return false;
    }

    bool rechazada()
    {
        const QString motivo = m_fuente.rechazo();
        return !motivo.isEmpty() && !acabar(Veredicto::NoSeLee, motivo);
    }

    bool detenida()
    {
        return m_parar.stop_requested()
               && !acabar(Veredicto::Detenida, u"Se detuvo la comprobación."_s);
    }

    // Finds the bag and reads what it says of itself.
    bool prepararse()
    {
        const auto base = baseDe(m_fuente.entradas());
        if (!base)
            return acabar(Veredicto::NoEsCopia,
                          u"No es una copia guardada con este programa, o hay más de una."_s);
        m_base = *base;
        const auto documentos = lista(bolsa::manifiesto);
        if (!m_resultado.texto.isEmpty())
            return false;
        if (!documentos || !std::all_of(documentos->begin(), documentos->end(), esDeLaCarga))
            return acabar(Veredicto::NoEsCopia,
                          u"La lista de documentos de la copia (manifest-sha256.txt) falta o está "
                          u"dañada: no se puede comprobar."_s);
        m_esperadas = *documentos;
        tomarPropias();
        return m_resultado.texto.isEmpty();
    }

    // The bag's own files. Without their list it is said of that one only, and they are passed
    // over.
    void tomarPropias()
    {
        const auto propias = lista(bolsa::manifiestoPropio);
        m_hayPropias = propias && std::none_of(propias->begin(), propias->end(), esDeLaCarga);
        if (m_hayPropias)
            m_esperadas.insert(propias->begin(), propias->end());
        else
            anotar(bolsa::manifiestoPropio,
                   indice(bolsa::manifiestoPropio) ? Clase::Cambiado : Clase::Falta);
        if (!indice(bolsa::declaracion))
            anotar(bolsa::declaracion, Clase::Falta);
    }

    std::optional<std::size_t> indice(const QByteArray &nombre) const
    {
        const auto &entradas = m_fuente.entradas();
        const auto hallada =
            std::find_if(entradas.begin(), entradas.end(), [&](const Fuente::Entrada &entrada) {
                return entrada.nombre == m_base + nombre;
            });
        return hallada == entradas.end()
                   ? std::nullopt
                   : std::optional(static_cast<std::size_t>(hallada - entradas.begin()));
    }

    std::optional<bolsa::Sumas> lista(const QByteArray &nombre)
    {
        // A line is some hundred bytes: room for half a million documents.
        constexpr qsizetype mayor = 64 << 20;
        const auto lugar = indice(nombre);
        if (!lugar)
            return std::nullopt;
        QByteArray texto;
        const auto leida = m_fuente.leer(*lugar, [&](std::span<const char> bytes) {
            texto.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
            return texto.size() <= mayor && !m_parar.stop_requested();
        });
        if (detenida() || rechazada() || leida != Fuente::Lectura::Entera)
            return std::nullopt;
        return bolsa::leer(texto);
    }

    void sumarTotal()
    {
        for (const Fuente::Entrada &entrada : m_fuente.entradas()) {
            const qint64 cabe = std::numeric_limits<qint64>::max() - m_total;
            if (entrada.nombre.startsWith(m_base) && m_esperadas.contains(enBolsa(entrada.nombre)))
                m_total += std::min(entrada.bytes, cabe);
        }
    }

    QByteArray enBolsa(const QByteArray &nombre) const { return nombre.mid(m_base.size()); }

    // False when nothing more is to be looked at.
    bool examinar(std::size_t lugar)
    {
        const QByteArray &nombre = m_fuente.entradas().at(lugar).nombre;
        const auto esperada =
            nombre.startsWith(m_base) ? m_esperadas.find(enBolsa(nombre)) : m_esperadas.end();
        if (esperada == m_esperadas.end()) {
            sobra(nombre);
            return true;
        }
        const std::optional<bool> igual = esIgual(lugar, esperada->second);
        if (!igual)
            return false;
        if (!*igual) {
            anotar(esperada->first, Clase::Cambiado);
        } else if (esDeLaCarga(*esperada)) {
            ++m_resultado.archivos;
            m_resultado.bytes += m_fuente.entradas().at(lugar).bytes;
        }
        m_esperadas.erase(esperada);
        return true;
    }

    // Nothing when the result stands already.
    std::optional<bool> esIgual(std::size_t lugar, const QByteArray &esperada)
    {
        QCryptographicHash suma(QCryptographicHash::Sha256);
        const auto leida = m_fuente.leer(lugar, [&](std::span<const char> bytes) {
            suma.addData(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
            m_hechos += static_cast<qint64>(bytes.size());
            if (m_avance)
                m_avance(std::min(m_hechos, m_total), m_total);
            return !m_parar.stop_requested() && m_hechos <= m_fuente.tope();
        });
        if (detenida() || rechazada())
            return std::nullopt;
        if (m_hechos > m_fuente.tope()) {
            acabar(Veredicto::NoSeLee,
                   u"No es una copia de fiar: dice contener más de lo que cabe en ella."_s);
            return std::nullopt;
        }
        return leida == Fuente::Lectura::Entera && suma.result() == esperada;
    }

    // Something that no list names.
    void sobra(const QByteArray &nombre)
    {
        if (!nombre.startsWith(m_base)) {
            anotar(nombre, Clase::Sobra);
            return;
        }
        const QByteArray propio = enBolsa(nombre);
        if (const auto esperada = m_esperadas.find(propio); esperada != m_esperadas.end()) {
            anotar(propio, Clase::Cambiado); // a link in place of the file
            m_esperadas.erase(esperada);
        } else if (propio != bolsa::manifiestoPropio
                   && (m_hayPropias || propio.startsWith(bolsa::carga))) {
            anotar(propio, Clase::Sobra);
        }
    }

    void anotar(const QByteArray &nombre, Clase clase) { m_diferencias.emplace(nombre, clase); }

    qint64 cuantas(Clase clase) const
    {
        return std::count_if(m_diferencias.begin(), m_diferencias.end(),
                             [&](const auto &diferencia) { return diferencia.second == clase; });
    }

    void concluir()
    {
        for (const auto &[nombre, clase] : m_diferencias)
            m_resultado.diferencias.append({.clase = clase, .nombre = QString::fromUtf8(nombre)});
        if (m_diferencias.empty()) {
            const QString reparo = m_fuente.reparo();
            if (detenida())
                return;
            if (!reparo.isEmpty()) {
                acabar(Veredicto::NoSeLee, reparo);
                return;
            }
            m_resultado.veredicto = Veredicto::Intacta;
            m_resultado.texto = u"La copia está intacta: %1, tal como se guardaron."_s.arg(
                cuenta(m_resultado.archivos, u"archivo"_s, u"archivos"_s));
            return;
        }
        m_resultado.veredicto = Veredicto::Distinta;
        m_resultado.texto = u"La copia no está como se guardó: %1, %2, %3."_s.arg(
            cuenta(cuantas(Clase::Cambiado), u"archivo cambió"_s, u"archivos cambiaron"_s),
            cuenta(cuantas(Clase::Falta), u"falta"_s, u"faltan"_s),
            cuenta(cuantas(Clase::Sobra), u"sobra"_s, u"sobran"_s));
    }

    Fuente &m_fuente;
    const Avance &m_avance;
    const std::stop_token &m_parar;
    QByteArray m_base;
    bolsa::Sumas m_esperadas;
    bool m_hayPropias = false;
    std::map<QByteArray, Clase> m_diferencias;
    qint64 m_hechos = 0;
    qint64 m_total = 0;
    Comprobacion m_resultado;
};

} // namespace

Comprobacion comprobar(const fs::path &ruta, const Avance &avance, const std::stop_token &parar)
{
    if (!nombresEnUtf8())
        return {.texto = u"Este sistema no admite nombres con acentos."_s};
    std::error_code error;
    const fs::file_status que = fs::status(ruta, error);
    if (!fs::is_directory(que) && !fs::is_regular_file(que))
        return {.texto = u"No hay tal archivo ni carpeta: "_s + paraMostrar(ruta)};
    const auto fuente = fs::is_directory(que) ? fuenteCarpeta(ruta, parar) : fuenteZip(ruta, parar);
    return Examen(*fuente, avance, parar).hacer();
}

} // namespace copia
