// The service's pictures, drawn when asked for. Each returns the bytes of a whole file.
#pragma once

#include "demostracion/Escuela.h"

#include <QByteArray>
#include <QColor>

namespace demo {

// A column heading: the text, turned to read upwards, 44 by 352 pixels. PNG with a transparent
// ground. A leading "NOTA" or "NOTA:" is not drawn.
QByteArray dibujarRotulo(const QString &texto);
QByteArray dibujarEscudo();
QByteArray dibujarFirma(unsigned semilla);
// The stamp of a final report, slightly askew.
QByteArray dibujarSello(const QString &texto, const QColor &tinta);

enum class Aspecto { Personal, Convivencia, Academico };
QByteArray dibujarAspecto(Aspecto aspecto);

QByteArray dibujarFoto(const AlumnoDemo &alumno); // JPEG, 300 by 375
QByteArray dibujarSilueta();                      // PNG, 300 by 375

} // namespace demo
