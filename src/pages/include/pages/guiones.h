// SPDX-License-Identifier: MIT
// Scripts appended to the end of stored pages, after the page's own closing tags. They fill the
// school's details in from the archive's configuration script.
#pragma once

#include <QStringView>

namespace guiones {

// Of student documents. The school's name and slogan go in as these two words, not as the
// variables of those names: their selectors match nothing in the service's pages, which write
// both themselves, and putting the variables in would change pages that have been read without.
inline constexpr QStringView documento =
    u"<script language='javascript' src='../../archivos/jscript/jquery.tools.min.js'></script>"
    u"<script language='javascript' src='../../configuracion.txt'></script>"
    u"<script type='text/javascript'>"
    u"$(document).ready(function() {"
    u"$('span span #cfgMICOLEGIO').html('micolegio');"
    u"$('span span #cfgSLOGAN').html('slogan');"
    u"$('#cfgCDANE').html(cdane);"
    u"$('#cfgDIRECCION').html(direccion);"
    u"$('#cfgTELEFONO').html(telefono); "
    u"$('#cfgSECRETARIA').html(secretaria); "
    u"$('#cfgRECTOR').html(rector); "
    u"});</script>";

// Of report cards. It reaches two folders up although a report card stands three below the
// archive folder, and loads no script library: both are the page's own to bring.
inline constexpr QStringView boletin =
    u"<script language='javascript' src='../../configuracion.txt'></script>"
    u"<script type='text/javascript'>$(document).ready(function() {    "
    u"$('#cfgMICOLEGIO').html(micolegio); $('#cfgSLOGAN').html(slogan);"
    u"$('#cfgCDANE').html(cdane);$('#cfgDIRECCION').html(direccion);"
    u"$('#cfgTELEFONO').html(telefono); });</script>";

} // namespace guiones
