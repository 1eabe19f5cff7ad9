#include "demostracion/hoja.h"

using namespace Qt::StringLiterals;

namespace {

const QString estiloComun = uR"(
@page { margin: 12mm 15mm; }
* { box-sizing: border-box; }
body { margin: 0; background: #e9edf2; color: #1d2733;
  font: 13px/1.45 "Segoe UI", "Liberation Sans", Arial, sans-serif; }
.hoja { max-width: 820px; margin: 24px auto; padding: 34px 42px 38px; background: #fff;
  border-top: 6px solid #1f3a68; box-shadow: 0 2px 14px rgba(20, 40, 70, .16); }
.ancha { width: fit-content; min-width: min(1120px, 96%); max-width: none; }
.membrete { display: flex; align-items: center; gap: 20px; padding-bottom: 14px;
  border-bottom: 2px solid #c9a227; }
.membrete img { width: 84px; height: 84px; }
.membrete .colegio { font: bold 21px/1.25 Georgia, "Liberation Serif", serif; color: #1f3a68;
  min-height: 26px; }
.membrete .lema { font: italic 13px/1.4 Georgia, "Liberation Serif", serif; color: #7a6316;
  min-height: 18px; }
.membrete .senas { margin-top: 3px; font-size: 11.5px; color: #53606f; }
h1 { margin: 20px 0 14px; font: bold 18px/1.3 Georgia, "Liberation Serif", serif;
  text-align: center; letter-spacing: .4px; color: #1f3a68; }
h2 { margin: 20px 0 8px; font-size: 13.5px; text-transform: uppercase; letter-spacing: .8px;
  color: #1f3a68; }
a { color: #1d5aa6; text-decoration: none; }
a:hover { text-decoration: underline; }
table { border-collapse: collapse; width: 100%; }
.datos { margin: 10px 0 14px; background: #f6f8fb; border: 1px solid #d5dde7; }
.datos th { padding: 5px 6px 5px 12px; text-align: left; white-space: nowrap; width: 1%;
  font-weight: normal; color: #53606f; }
.datos td { padding: 5px 12px 5px 6px; font-weight: 600; }
.notas th { padding: 6px 7px; background: #1f3a68; color: #fff; font-size: 11.5px;
  font-weight: 600; white-space: nowrap; }
.notas td { padding: 5px 7px; border-bottom: 1px solid #dde3ea; text-align: center; }
.notas td.izq, .notas th.izq { text-align: left; }
.notas tr.area td { background: #e8eef6; font-weight: 600; color: #1f3a68; }
.bajo { color: #b3261e; font-weight: 700; }
.def { font-weight: 700; }
.firmas { display: flex; justify-content: space-around; align-items: flex-end; gap: 40px;
  margin-top: 34px; text-align: center; }
.firmas .firma { flex: 0 1 270px; }
.firmas img { display: block; height: 62px; margin: 0 auto -10px; }
.firmas .raya { border-top: 1px solid #1d2733; padding-top: 4px; min-height: 26px;
  font-weight: 600; }
.firmas .cargo { font-size: 11.5px; color: #53606f; }
.pie { margin-top: 22px; font-size: 11px; color: #6b7785; text-align: center; }
.navega { margin: 0 0 14px; font-size: 12.5px; }
@media print { body { background: #fff; font-size: 12px; line-height: 1.35; }
  h1 { margin: 12px 0 10px; }
  .hoja { margin: 0; padding: 0; max-width: none; box-shadow: none; border-top: 0; }
  .navega { display: none; }
  * { -webkit-print-color-adjust: exact; print-color-adjust: exact; } }
)"_s;

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
           + texto(titulo) + u"</title>\r\n<style>"_s + estiloComun + estilo + u"</style>\r\n"_s
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
