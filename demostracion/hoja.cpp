#include "demostracion/hoja.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

QString estiloComun()
{
    QFile archivo(u":/demo/paginas/comun.css"_s);
    return archivo.open(QIODevice::ReadOnly) ? u'\n' + QString::fromUtf8(archivo.readAll())
                                             : QString();
}

} // namespace

namespace demo {

QString Contexto::imagenColegio(const QString &nombre) const
{
    return base + u"/images/colegios/"_s + escuela.idColegio + u'/' + nombre;
}

QString texto(const QString &crudo)
{
    return crudo.toHtmlEscaped();
}

QString pagina(const QString &titulo, const QString &estilo, const QString &cuerpo,
               const QString &cabeza)
{
    return u"<!DOCTYPE html>\r\n<html lang=\"es\">\r\n<head>\r\n<meta charset=\"windows-1252\">\r\n"
           "<title>"_s
           + texto(titulo) + u"</title>\r\n<style>"_s + estiloComun() + estilo + u"</style>\r\n"_s
           + cabeza + u"</head>\r\n<body>\r\n"_s + cuerpo + u"\r\n</body>\r\n</html>\r\n"_s;
}

// The ids are those that the scripts at the end of the archive's pages look for. Name and motto
// must not stand inside two spans: one of those scripts overwrites them there with bare words.
QString membrete(const Contexto &c, Membrete manera, const QString &titulo)
{
    const bool escrito = manera == Membrete::Escrito;
    const bool conNombre = manera != Membrete::TodoPorGuion;
    const auto campo = [&](QStringView id, const QString &nombre, bool lleno) {
        return u"<span id=\"cfg%1\">%2</span>"_s.arg(id,
                                                     lleno ? texto(c.ajuste(nombre)) : QString());
    };
    return u"<div class=\"membrete\"><img src=\""_s + c.imagenColegio(u"logo.png"_s)
           + u"\" alt=\"Escudo\"><div><div class=\"colegio\" id=\"cfgMICOLEGIO\">"_s
           + (conNombre ? texto(c.ajuste(u"MICOLEGIO"_s)) : QString())
           + u"</div><div class=\"lema\" id=\"cfgSLOGAN\">"_s
           + (conNombre ? texto(c.ajuste(u"SLOGAN"_s)) : QString())
           + u"</div><div class=\"senas\">Código DANE "_s + campo(u"CDANE", u"CDANE"_s, escrito)
           + u" &middot; "_s + campo(u"DIRECCION", u"DIRECCION"_s, escrito) + u" &middot; Tel. "_s
           + campo(u"TELEFONO", u"TELEFONO"_s, escrito) + u"</div></div></div>\r\n<h1>"_s
           + texto(titulo) + u"</h1>\r\n"_s;
}

QString datos(const QList<QPair<QString, QString>> &pares, int columnas)
{
    QString html = u"<table class=\"datos\">"_s;
    for (qsizetype i = 0; i < pares.size(); ++i) {
        if (i % columnas == 0)
            html += u"<tr>"_s;
        html += u"<th>"_s + texto(pares.at(i).first) + u"</th><td>"_s + texto(pares.at(i).second)
                + u"</td>"_s;
        if (i % columnas == columnas - 1 || i == pares.size() - 1)
            html += u"</tr>\r\n"_s;
    }
    return html + u"</table>\r\n"_s;
}

QString firmas(const Contexto &c, Membrete manera, bool conFirma)
{
    const bool escrito = manera == Membrete::Escrito;
    return u"<div class=\"firmas\"><div class=\"firma\">"_s
           + (conFirma
                  ? u"<img src=\""_s + c.imagenColegio(u"rector.png"_s) + u"\" alt=\"Firma\">"_s
                  : QString())
           + u"<div class=\"raya\" id=\"cfgRECTOR\">"_s
           + (escrito ? texto(c.ajuste(u"RECTOR"_s)) : QString())
           + u"</div><div class=\"cargo\">Rectoría</div></div><div class=\"firma\">"
             "<div class=\"raya\" id=\"cfgSECRETARIA\">"_s
           + (escrito ? texto(c.ajuste(u"SECRETARIA"_s)) : QString())
           + u"</div><div class=\"cargo\">Secretaría académica</div></div></div>\r\n"_s;
}

} // namespace demo
