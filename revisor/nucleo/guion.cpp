// SPDX-License-Identifier: MIT
#include "guion.h"
#include "platform/codepage.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

#include <duktape.h>

using namespace Qt::StringLiterals;

namespace guion {
namespace {

constexpr std::array<QStringView, 7> variables = {
    u"rector", u"secretaria", u"slogan", u"micolegio", u"direccion", u"telefono", u"cdane"};

enum class Compilado { Bien, Mal, MalAlFinal };

struct Cerrar {
    void operator()(duk_context *motor) const { duk_destroy_heap(motor); }
};

// `texto` is UTF-8.
Compilado compilar(const QByteArray &texto)
{
    const std::unique_ptr<duk_context, Cerrar> motor(duk_create_heap_default());
    if (!motor)
        return Compilado::Bien; // no memory: nothing can be said
    duk_context *const m = motor.get();
    if (duk_pcompile_lstring(m, 0, texto.constData(), static_cast<duk_size_t>(texto.size())) == 0)
        return Compilado::Bien;
    const QByteArray error = duk_safe_to_string(m, -1);
    return error.contains("end of input") ? Compilado::MalAlFinal : Compilado::Mal;
}

// The value as it stands between its quotes; nothing when there is no such line.
std::optional<QString> valorDe(const QString &guion, QStringView nombre)
{
    const QRegularExpression linea(
        u"^[ \\t]*var[ \\t]+%1[ \\t]*=[ \\t]*\"(.*)\"[ \\t]*;[ \\t]*\\r?$"_s.arg(nombre),
        QRegularExpression::MultilineOption);
    const auto hallada = linea.match(guion);
    return hallada.hasMatch() ? std::optional(hallada.captured(1)) : std::nullopt;
}

// Whether the value begins and goes on in the next line, as it does when the service's own has a
// line end in it. The last of all may also be cut off.
bool sigueEnOtraLinea(const QString &guion, QStringView nombre)
{
    const QRegularExpression linea(
        u"^[ \\t]*var[ \\t]+%1[ \\t]*=[ \\t]*\"[^\"\\n]*+\\n[^\"]*+\"[ \\t]*;"_s.arg(nombre),
        QRegularExpression::MultilineOption);
    return linea.match(guion).hasMatch();
}

// A quote ends the value early, a backslash makes another sign of what follows it.
bool rompe(const QString &valor)
{
    static const QRegularExpression pagina(u"<\\s*(!doctype|html|body|h1)\\b"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    return valor.contains(u'"') || valor.contains(u'\\') || valor == u"ERROR"
           || pagina.match(valor).hasMatch();
}

} // namespace

QList<FallaDeGuion> revisarConfiguracion(const QByteArray &bytes)
{
    const QString texto = codepage::aTexto(bytes);
    QList<FallaDeGuion> fallas;
    for (const QStringView nombre : variables) {
        const auto valor = valorDe(texto, nombre);
        const bool partido = !valor && sigueEnOtraLinea(texto, nombre);
        if (!valor && !partido)
            fallas.append({FallaDeGuion::Ausente, nombre.toString()});
        else if (partido || (!valor->trimmed().isEmpty() && rompe(*valor)))
            fallas.append({FallaDeGuion::Roto, nombre.toString()});
        else if (valor->trimmed().isEmpty())
            fallas.append({FallaDeGuion::Vacio, nombre.toString()});
    }
    const auto hay = [&](FallaDeGuion::Clase clase) {
        return std::count_if(fallas.begin(), fallas.end(),
                             [&](const FallaDeGuion &una) { return una.clase == clase; });
    };
    // A broken value is why it does not run, and is mended otherwise.
    if (hay(FallaDeGuion::Roto) > 0 || compilar(texto.toUtf8()) == Compilado::Bien)
        return fallas;
    // Where no value is left, that is one thing and not eight.
    if (hay(FallaDeGuion::Ausente) == static_cast<qsizetype>(variables.size()))
        fallas.clear();
    fallas.append({FallaDeGuion::NoCorre, QString()});
    return fallas;
}

EstadoBiblioteca estadoDeBiblioteca(const QByteArray &bytes)
{
    const QByteArray texto = bytes.trimmed();
    if (texto.isEmpty())
        return EstadoBiblioteca::Vacia;
    if (texto.startsWith('<') || texto == "ERROR" || texto == "NO" || texto == "SI")
        return EstadoBiblioteca::EsPagina;
    // A computer that went out while it was stored leaves zeros; no script has any.
    return bytes.contains('\0')
                   || compilar(codepage::aTexto(bytes).toUtf8()) == Compilado::MalAlFinal
               ? EstadoBiblioteca::Cortada
               : EstadoBiblioteca::Buena;
}

} // namespace guion
