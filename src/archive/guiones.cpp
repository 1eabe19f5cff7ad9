#include "archive/guiones.h"

#include <QStringList>

namespace guiones {

QString documento()
{
    // The school's name and slogan are put in as quoted words, not as the variables of those
    // names, and some strings end in a blank: stored archives have them so.
    static const QString guion =
        QStringList{
            QStringLiteral("<script language='javascript' "
                           "src='../../archivos/jscript/jquery.tools.min.js'></script>"),
            QStringLiteral("<script language='javascript' src='../../configuracion.txt'></script>"),
            QStringLiteral("<script type='text/javascript'>"),
            QStringLiteral("$(document).ready(function() {"),
            QStringLiteral("$('span span #cfgMICOLEGIO').html('micolegio');"),
            QStringLiteral("$('span span #cfgSLOGAN').html('slogan');"),
            QStringLiteral("$('#cfgCDANE').html(cdane);"),
            QStringLiteral("$('#cfgDIRECCION').html(direccion);"),
            QStringLiteral("$('#cfgTELEFONO').html(telefono); "),
            QStringLiteral("$('#cfgSECRETARIA').html(secretaria); "),
            QStringLiteral("$('#cfgRECTOR').html(rector); "),
            QStringLiteral("});</script>"),
        }
            .join(QString());
    return guion;
}

} // namespace guiones
