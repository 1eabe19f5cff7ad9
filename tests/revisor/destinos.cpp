// SPDX-License-Identifier: MIT
#include "revisor/destinos.h"

#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

QString destinoEnArchivo(const QByteArray &destino)
{
    const QString d = QString::fromLatin1(destino);
    const auto con = [&](const QString &patron) {
        return QRegularExpression(u"^"_s + patron).match(d);
    };
    const QString a = u"archivos/"_s;
    if (const auto m = con(u"/salones/123/2010/(infoFinal|certificado)\\d?/([^/]+)/"_s);
        m.hasMatch())
        return a + (m.captured(1) == u"certificado" ? u"certificados"_s : m.captured(1)) + u'/'
               + m.captured(2) + u".html"_s;
    if (const auto m = con(u"/alumnos/123/2010/hojaMatricula/([^/]+)/"_s); m.hasMatch())
        return a + u"matriculas/"_s + m.captured(1) + u".html"_s;
    if (const auto m = con(u"/querys/tessarin/infoAlumno.php.*idalumno=(.+)$"_s); m.hasMatch())
        return a + u"infoAlumnos/"_s + m.captured(1) + u".html"_s;
    if (const auto m = con(u"/notas/123/2010/consolidado(f?)/([^/]+)/"_s); m.hasMatch())
        return a + (m.captured(1).isEmpty() ? u"consolidadoN/"_s : u"consolidadoF/"_s)
               + m.captured(2) + u".html"_s;
    if (const auto m = con(u"/querys/tessarin/alumnos.php.*tipo=html&salon=(.+)$"_s); m.hasMatch())
        return a + u"salones/"_s + m.captured(1) + u".html"_s;
    if (con(u"/querys/tessarin/salones.php.*tipo=html"_s).hasMatch())
        return u"index.html"_s;
    if (const auto m = con(u"/jup/images/123/(.+)$"_s); m.hasMatch())
        return a + u"fotos/"_s + m.captured(1);
    if (const auto m = con(u"/querys/tessarin/existe.php.*/123/(.+)$"_s); m.hasMatch())
        return a + u"fotos/"_s + m.captured(1);
    if (con(u"/querys/tessarin/tomarValor.php"_s).hasMatch())
        return u"configuracion.txt"_s;
    if (const auto m = con(u"/imgTXT.php\\?txt=(.+)$"_s); m.hasMatch())
        return a + u"images/labels/"_s + m.captured(1).replace(u"%20"_s, u" "_s);
    if (const auto m = con(u"/jscript/([^?]+)"_s); m.hasMatch())
        return a + u"jscript/"_s + m.captured(1);
    if (const auto m = con(u"/images/(?:colegios/123/)?([^/]+)$"_s); m.hasMatch())
        return a + u"images/"_s + m.captured(1);
    return {};
}

QSet<QString> dichos(const Resultado &resultado)
{
    QSet<QString> archivos;
    for (const Hallazgo &h : resultado.hallazgos) {
        if (h.regla->gravedad != Gravedad::Nota
            || h.regla == &reglas::todas[reglas::ImagenSinTraer])
            archivos.insert(h.archivo);
    }
    return archivos;
}

QString primeros(QSet<QString> unos, const QSet<QString> &otros)
{
    QStringList lista = unos.subtract(otros).values();
    lista.sort();
    return lista.mid(0, 12).join(u' ');
}
