// SPDX-License-Identifier: MIT
#include "demostracion/plantilla.h"

#include <QFile>

#include <kainjow/mustache.hpp>

#include <map>
#include <string>

using namespace Qt::StringLiterals;
using namespace kainjow;

namespace {

QString leido(const QString &nombre)
{
    QFile archivo(u":/demo/paginas/"_s + nombre);
    if (!archivo.open(QIODevice::ReadOnly))
        qFatal("no page file %s", qPrintable(nombre));
    return QString::fromUtf8(archivo.readAll());
}

mustache::data dato(const QVariant &valor)
{
    switch (valor.typeId()) {
    case QMetaType::Bool:
        return mustache::data(valor.toBool());
    case QMetaType::QVariantList: {
        mustache::data lista(mustache::data::type::list);
        for (const QVariant &uno : valor.toList())
            lista.push_back(dato(uno));
        return lista;
    }
    case QMetaType::QVariantMap: {
        mustache::data mapa;
        const QVariantMap valores = valor.toMap();
        for (auto it = valores.cbegin(); it != valores.cend(); ++it)
            mapa.set(it.key().toStdString(), dato(it.value()));
        return mapa;
    }
    default:
        return mustache::data(valor.toString().toStdString());
    }
}

// The library leaves a place without a value empty, where a slip of the pen would go unnoticed.
class Lugares : public mustache::context<std::string> {
public:
    using context::context;

    const mustache::data *get(const std::string &nombre) const override
    {
        const mustache::data *hallado = context::get(nombre);
        if (!hallado)
            qFatal("no value for the place %s", nombre.c_str());
        return hallado;
    }

    const mustache::data *get_partial(const std::string &nombre) const override
    {
        const auto [it, nueva] = m_partes.try_emplace(nombre);
        if (nueva) {
            const QString texto = leido(u"partes/%1.html"_s.arg(QString::fromStdString(nombre)));
            it->second = texto.chopped(1).toStdString(); // the line goes on after it
        }
        return &it->second;
    }

private:
    mutable std::map<std::string, mustache::data> m_partes;
};

std::string escapado(const std::string &crudo)
{
    return QString::fromStdString(crudo).toHtmlEscaped().toStdString();
}

} // namespace

QString demo::llenar(const QString &pagina, const QVariantMap &valores)
{
    mustache::mustache plantilla(leido(pagina + u".html"_s).toStdString());
    plantilla.set_custom_escape(escapado);
    const mustache::data datos = dato(valores);
    Lugares lugares(&datos);
    QString llena = QString::fromStdString(plantilla.render(lugares));
    if (!plantilla.is_valid())
        qFatal("page file %s: %s", qPrintable(pagina), plantilla.error_message().c_str());
    // Last, because the style is as long as the page and has no places.
    llena.replace(u"@import url(\"comun.css\");\n"_s, leido(u"comun.css"_s));
    llena.replace(u"<meta charset=\"utf-8\">"_s, u"<meta charset=\"windows-1252\">"_s);
    return llena.replace(u'\n', u"\r\n"_s);
}
