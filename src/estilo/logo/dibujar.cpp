// SPDX-License-Identifier: MIT
// Draws the mark in the sizes that the program shows it in, as a part of the build.
//
//   dibujar-marca DRAWING PICTURE...    each picture is a file named NAME-WIDTHxHEIGHT.argb or .png
//
// What is written in an .argb are the bytes of its pixels, as this computer holds them.
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <cstdlib>
#include <span>

using namespace Qt::StringLiterals;

namespace {

bool dibujar(QSvgRenderer &dibujo, const QString &archivo)
{
    static const QRegularExpression medidas(u"-(\\d+)x(\\d+)\\.(argb|png)$"_s);
    const QRegularExpressionMatch medida = medidas.match(archivo);
    QImage imagen(medida.captured(1).toInt(), medida.captured(2).toInt(),
                  QImage::Format_ARGB32_Premultiplied);
    imagen.fill(Qt::transparent);
    {
        QPainter pintor(&imagen);
        dibujo.render(&pintor);
    }
    if (medida.captured(3) == u"png"_s)
        return imagen.save(archivo);
    QFile salida(archivo);
    return salida.open(QIODevice::WriteOnly)
           && salida.write(reinterpret_cast<const char *>(imagen.constBits()), imagen.sizeInBytes())
                  == imagen.sizeInBytes();
}

} // namespace

int main(int cuantos, char *argumentos[])
{
    const std::span todos(argumentos, static_cast<std::size_t>(cuantos));
    if (todos.size() < 3)
        return EXIT_FAILURE;
    QSvgRenderer dibujo(QString::fromLocal8Bit(todos[1]));
    bool bien = dibujo.isValid();
    for (const char *archivo : todos.subspan(2))
        bien = bien && dibujar(dibujo, QString::fromLocal8Bit(archivo));
    return bien ? EXIT_SUCCESS : EXIT_FAILURE;
}
