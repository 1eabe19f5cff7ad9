#include "printing/guionBoletin.h"

QString guionBoletin()
{
    // It reaches two folders up although a report card stands three below the archive folder,
    // and loads no script library: report cards have always carried exactly this text.
    return QStringLiteral("<script language='javascript' src='../../configuracion.txt'></script>"
                          "<script type='text/javascript'>$(document).ready(function() {    "
                          "$('#cfgMICOLEGIO').html(micolegio); $('#cfgSLOGAN').html(slogan);"
                          "$('#cfgCDANE').html(cdane);$('#cfgDIRECCION').html(direccion);"
                          "$('#cfgTELEFONO').html(telefono); });</script>");
}
