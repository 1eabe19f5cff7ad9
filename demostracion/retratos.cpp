#include "demostracion/dibujos.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <iterator>

namespace {

constexpr int ancho = 300;
constexpr int alto = 375;

const QColor pieles[] = {
    {0xf3, 0xd0, 0xb0}, {0xe3, 0xb4, 0x8c}, {0xc6, 0x8e, 0x62}, {0x8f, 0x5d, 0x3c}};
const QColor pelos[] = {
    {0x24, 0x1a, 0x15}, {0x3d, 0x28, 0x1b}, {0x5f, 0x3d, 0x22}, {0x14, 0x14, 0x18}};
const QColor fondos[] = {
    {0xcf, 0xe0, 0xf0}, {0xdd, 0xe6, 0xd8}, {0xe9, 0xe2, 0xd2}, {0xdc, 0xdc, 0xea}};

template <std::size_t N>
QColor uno(const QColor (&colores)[N], unsigned numero)
{
    return colores[numero % N];
}

void cuerpo(QPainter &p, const QColor &piel)
{
    p.setBrush(piel.darker(112));
    p.drawRoundedRect(QRectF(126, 220, 48, 70), 20, 20);
    QPainterPath saco(QPointF(28, 375));
    saco.cubicTo(32, 300, 80, 282, 122, 272);
    saco.quadTo(150, 300, 178, 272);
    saco.cubicTo(220, 282, 268, 300, 272, 375);
    saco.closeSubpath();
    p.setBrush(QColor(0x1f, 0x3a, 0x68));
    p.drawPath(saco);
    p.setBrush(Qt::white);
    p.drawPolygon(QPolygonF({{120, 270}, {150, 300}, {136, 326}, {106, 282}}));
    p.drawPolygon(QPolygonF({{180, 270}, {150, 300}, {164, 326}, {194, 282}}));
    p.setBrush(QColor(0xc9, 0xa2, 0x27));
    p.drawEllipse(QRectF(206, 326, 24, 28));
}

void cara(QPainter &p, const QColor &piel, const QColor &pelo, unsigned rasgos)
{
    p.setBrush(piel.darker(106));
    p.drawEllipse(QRectF(78, 158, 22, 36));
    p.drawEllipse(QRectF(200, 158, 22, 36));
    p.setBrush(piel);
    QPainterPath rostro(QPointF(88, 150));
    rostro.cubicTo(88, 78, 212, 78, 212, 150);
    rostro.cubicTo(212, 218, 180, 252, 150, 252);
    rostro.cubicTo(120, 252, 88, 218, 88, 150);
    p.drawPath(rostro);
    p.setBrush(QColor(0xe0, 0x6a, 0x5a, 46));
    p.drawEllipse(QRectF(96, 192, 30, 20));
    p.drawEllipse(QRectF(174, 192, 30, 20));
    for (const double x : {124.0, 176.0}) {
        p.setBrush(Qt::white);
        p.drawEllipse(QPointF(x, 170), 11, 8.5);
        p.setBrush(rasgos % 3 == 0 ? QColor(0x3f, 0x62, 0x3c) : QColor(0x3a, 0x22, 0x14));
        p.drawEllipse(QPointF(x, 170), 6.2, 6.6);
        p.setBrush(QColor(0x10, 0x0c, 0x0a));
        p.drawEllipse(QPointF(x, 170), 3, 3.2);
        p.setBrush(Qt::white);
        p.drawEllipse(QPointF(x + 2, 168), 1.6, 1.6);
    }
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(pelo, 4.4, Qt::SolidLine, Qt::RoundCap));
    p.drawArc(QRectF(108, 148, 32, 20), 35 * 16, 110 * 16);
    p.drawArc(QRectF(160, 148, 32, 20), 35 * 16, 110 * 16);
    p.setPen(QPen(piel.darker(135), 3, Qt::SolidLine, Qt::RoundCap));
    p.drawArc(QRectF(141, 188, 18, 14), 200 * 16, 140 * 16);
    p.setPen(QPen(QColor(0xa8, 0x45, 0x3d), 4, Qt::SolidLine, Qt::RoundCap));
    p.drawArc(QRectF(128, 200, 44, 30), 205 * 16, 130 * 16);
    if (rasgos % 5 == 1) {
        p.setPen(QPen(QColor(0x2a, 0x2a, 0x30), 3));
        p.drawRoundedRect(QRectF(105, 156, 38, 29), 11, 11);
        p.drawRoundedRect(QRectF(157, 156, 38, 29), 11, 11);
        p.drawLine(QPointF(143, 168), QPointF(157, 168));
    }
    p.setPen(Qt::NoPen);
}

void melena(QPainter &p, const QColor &pelo)
{
    p.setBrush(pelo);
    QPainterPath atras(QPointF(72, 276));
    atras.cubicTo(56, 200, 58, 66, 150, 62);
    atras.cubicTo(242, 66, 244, 200, 228, 276);
    atras.quadTo(150, 300, 72, 276);
    p.drawPath(atras);
}

void flequillo(QPainter &p, const QColor &pelo, bool mujer, unsigned rasgos)
{
    p.setBrush(pelo);
    QPainterPath corte(QPointF(84, 168));
    corte.cubicTo(68, 50, 232, 50, 216, 168);
    if (rasgos % 2 == 0) {
        corte.cubicTo(210, 128, 190, 116, 168, 112);
        corte.cubicTo(140, 122, 100, 124, 84, 168);
    } else {
        corte.cubicTo(206, 134, 186, 124, 132, 108);
        corte.cubicTo(112, 120, 94, 134, 84, 168);
    }
    p.drawPath(corte);
    if (mujer && rasgos % 3 != 0) {
        p.setBrush(QColor(0xb3, 0x26, 0x4e));
        p.drawEllipse(QRectF(196, 96, 20, 20));
    }
}

} // namespace

namespace demo {

QByteArray dibujarFoto(const AlumnoDemo &alumno)
{
    const unsigned rasgos = alumno.documento.toUInt();
    const QColor piel = uno(pieles, rasgos / 7);
    const QColor pelo = uno(pelos, rasgos / 11);
    const QColor fondo = uno(fondos, rasgos / 3);
    QImage imagen(ancho, alto, QImage::Format_RGB32);
    QPainter p(&imagen);
    p.setRenderHint(QPainter::Antialiasing);
    QRadialGradient luz(150, 150, 260);
    luz.setColorAt(0, fondo.lighter(108));
    luz.setColorAt(1, fondo.darker(118));
    p.fillRect(imagen.rect(), luz);
    p.setPen(Qt::NoPen);
    if (alumno.mujer)
        melena(p, pelo);
    cuerpo(p, piel);
    cara(p, piel, pelo, rasgos);
    flequillo(p, pelo, alumno.mujer, rasgos);
    p.end();

    QByteArray bytes;
    QBuffer memoria(&bytes);
    memoria.open(QIODevice::WriteOnly);
    imagen.save(&memoria, "JPEG", 88);
    return bytes;
}

QByteArray dibujarSilueta()
{
    QImage imagen(ancho, alto, QImage::Format_ARGB32_Premultiplied);
    imagen.fill(QColor(0xe6, 0xea, 0xf0));
    QPainter p(&imagen);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xa9, 0xb5, 0xc4));
    p.drawEllipse(QRectF(92, 84, 116, 138));
    QPainterPath hombros(QPointF(30, 375));
    hombros.cubicTo(34, 286, 96, 252, 150, 252);
    hombros.cubicTo(204, 252, 266, 286, 270, 375);
    hombros.closeSubpath();
    p.drawPath(hombros);
    p.end();
    QByteArray bytes;
    QBuffer memoria(&bytes);
    memoria.open(QIODevice::WriteOnly);
    imagen.save(&memoria, "PNG");
    return bytes;
}

} // namespace demo
