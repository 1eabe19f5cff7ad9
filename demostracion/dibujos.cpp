#include "demostracion/dibujos.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <numbers>

using namespace Qt::StringLiterals;

namespace {

const QColor azul(0x1f, 0x3a, 0x68);
const QColor oro(0xc9, 0xa2, 0x27);
const QColor oscuro(0x1d, 0x27, 0x33);

QImage lienzo(int ancho, int alto)
{
    QImage imagen(ancho, alto, QImage::Format_ARGB32_Premultiplied);
    imagen.fill(Qt::transparent);
    return imagen;
}

QByteArray png(const QImage &imagen)
{
    QByteArray bytes;
    QBuffer memoria(&bytes);
    memoria.open(QIODevice::WriteOnly);
    imagen.save(&memoria, "PNG");
    return bytes;
}

QFont letra(int pixeles, bool negrita)
{
    QFont fuente(u"DejaVu Sans"_s);
    fuente.setStyleHint(QFont::SansSerif);
    fuente.setPixelSize(pixeles);
    fuente.setBold(negrita);
    return fuente;
}

// The largest size, up to `pixeles`, at which the text is no wider than `ancho`.
QFont letraQueCabe(const QString &texto, int pixeles, double ancho)
{
    while (pixeles > 8 && QFontMetricsF(letra(pixeles, true)).horizontalAdvance(texto) > ancho)
        --pixeles;
    return letra(pixeles, true);
}

QPainterPath estrella(QPointF centro, double radio)
{
    QPainterPath trazo;
    for (int i = 0; i < 10; ++i) {
        const double r = i % 2 == 0 ? radio : radio * 0.42;
        const double angulo = -std::numbers::pi / 2 + i * std::numbers::pi / 5;
        const QPointF punto = centro + QPointF(r * std::cos(angulo), r * std::sin(angulo));
        if (i == 0)
            trazo.moveTo(punto);
        else
            trazo.lineTo(punto);
    }
    trazo.closeSubpath();
    return trazo;
}

QPainterPath contornoEscudo(double margen)
{
    const double i = 40 + margen;
    const double d = 360 - margen;
    QPainterPath trazo(QPointF(i, 40 + margen));
    trazo.quadTo(200, 14 + margen, d, 40 + margen);
    trazo.lineTo(d, 215);
    trazo.cubicTo(d, 310 - margen * 0.5, 260, 352 - margen, 200, 386 - margen * 1.3);
    trazo.cubicTo(140, 352 - margen, i, 310 - margen * 0.5, i, 215);
    trazo.closeSubpath();
    return trazo;
}

void dibujarLibro(QPainter &p, QPointF centro, double ancho)
{
    const double m = ancho / 2;
    const double alto = ancho * 0.42;
    for (const int lado : {-1, 1}) {
        QPainterPath hoja(centro);
        hoja.cubicTo(centro + QPointF(lado * m * 0.35, -alto * 0.22),
                     centro + QPointF(lado * m * 0.7, -alto * 0.16), centro + QPointF(lado * m, 0));
        hoja.lineTo(centro + QPointF(lado * m, alto));
        hoja.cubicTo(centro + QPointF(lado * m * 0.7, alto * 0.84),
                     centro + QPointF(lado * m * 0.35, alto * 0.78), centro + QPointF(0, alto));
        hoja.closeSubpath();
        p.setPen(QPen(azul, ancho * 0.025));
        p.setBrush(Qt::white);
        p.drawPath(hoja);
        p.setPen(QPen(QColor(0x8a, 0x9a, 0xb3), ancho * 0.018));
        for (int r = 1; r <= 3; ++r) {
            const double y = alto * (0.12 + 0.19 * r);
            p.drawLine(centro + QPointF(lado * m * 0.2, y), centro + QPointF(lado * m * 0.82, y));
        }
    }
}

} // namespace

namespace demo {

QByteArray dibujarRotulo(const QString &texto)
{
    QString visible = texto;
    if (visible.startsWith("NOTA"_L1) && visible.size() > 4) {
        visible.remove(0, 4);
        if (visible.startsWith(u':'))
            visible.remove(0, 1);
    }
    constexpr int ancho = 44;
    constexpr int alto = 352;
    QImage imagen = lienzo(ancho, alto);
    QPainter p(&imagen);
    p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    p.translate(0, alto);
    p.rotate(-90);
    p.setFont(letraQueCabe(visible, 25, alto - 12));
    p.setPen(oscuro);
    p.drawText(QRectF(6, 0, alto - 6, ancho), Qt::AlignLeft | Qt::AlignVCenter, visible);
    p.end();
    return png(imagen);
}

QByteArray dibujarEscudo()
{
    QImage imagen = lienzo(400, 400);
    QPainter p(&imagen);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(oro);
    p.drawPath(contornoEscudo(0));
    QLinearGradient fondo(0, 30, 0, 380);
    fondo.setColorAt(0, QColor(0x2d, 0x55, 0x94));
    fondo.setColorAt(1, azul);
    p.setBrush(fondo);
    p.drawPath(contornoEscudo(11));

    p.save();
    p.setClipPath(contornoEscudo(11));
    p.setBrush(QColor(0xf2, 0xcf, 0x63));
    p.drawEllipse(QPointF(200, 152), 46, 46);
    p.setPen(QPen(QColor(0xf2, 0xcf, 0x63), 7, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 9; ++i) {
        const double a = std::numbers::pi * (1.0 + i / 8.0);
        p.drawLine(QPointF(200 + 60 * std::cos(a), 152 + 60 * std::sin(a)),
                   QPointF(200 + 80 * std::cos(a), 152 + 80 * std::sin(a)));
    }
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x2b, 0x7a, 0x5b));
    p.drawPolygon(QPolygonF({{20, 262}, {118, 142}, {176, 206}, {252, 118}, {390, 262}}));
    p.setBrush(Qt::white);
    p.drawPolygon(
        QPolygonF({{252, 118}, {226, 148}, {243, 158}, {254, 148}, {268, 160}, {281, 149}}));
    p.setBrush(QColor(0x17, 0x2c, 0x50));
    p.drawRect(QRectF(0, 232, 400, 170));
    p.restore();

    dibujarLibro(p, QPointF(200, 256), 160);
    p.setPen(Qt::NoPen);
    p.setBrush(oro);
    for (const double x : {112.0, 200.0, 288.0})
        p.drawPath(estrella(QPointF(x, x == 200.0 ? 50 : 68), 14));
    p.end();
    return png(imagen);
}

QByteArray dibujarFirma(unsigned semilla)
{
    QImage imagen = lienzo(520, 190);
    QPainter p(&imagen);
    p.setRenderHint(QPainter::Antialiasing);
    // Loops that grow smaller to the right, as a hurried hand writes a long name.
    const double fase = (semilla % 7) * 0.45;
    QPainterPath trazo;
    for (int i = 0; i <= 340; ++i) {
        const double t = i / 340.0;
        const double giro = t * 2 * std::numbers::pi * (6 + semilla % 3) + fase;
        const double tamano = 52 * (1 - 0.72 * t) * (0.7 + 0.3 * std::sin(t * 17 + fase));
        const QPointF punto(62 + 330 * t + tamano * 0.75 * std::sin(giro),
                            98 - tamano * std::cos(giro * 0.98) - 10 * std::sin(t * 3));
        if (i == 0)
            trazo.moveTo(punto);
        else
            trazo.lineTo(punto);
    }
    trazo.cubicTo(440, 70, 500, 60, 506, 84);
    QPainterPath rubrica(QPointF(506, 84));
    rubrica.cubicTo(430, 128, 190, 150, 46, 152);
    rubrica.cubicTo(20, 152, 60, 134, 150, 132);
    rubrica.cubicTo(270, 130, 380, 142, 470, 164);
    const QColor tinta(0x1b, 0x2f, 0x7a);
    p.setPen(QPen(tinta, 3.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(trazo);
    p.setPen(QPen(tinta, 2.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(rubrica);
    p.end();
    return png(imagen);
}

QByteArray dibujarSello(const QString &texto, const QColor &tinta)
{
    QImage imagen = lienzo(420, 190);
    QPainter p(&imagen);
    p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    p.translate(210, 95);
    p.rotate(-7);
    p.setPen(QPen(tinta, 7));
    p.setBrush(QColor(tinta.red(), tinta.green(), tinta.blue(), 18));
    p.drawRoundedRect(QRectF(-190, -58, 380, 116), 16, 16);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(tinta, 2.4));
    p.drawRoundedRect(QRectF(-179, -47, 358, 94), 10, 10);
    QFont fuente = letraQueCabe(texto, 50, 300);
    fuente.setLetterSpacing(QFont::AbsoluteSpacing, 2);
    p.setFont(fuente);
    p.setPen(tinta);
    p.drawText(QRectF(-175, -46, 350, 92), Qt::AlignCenter, texto);
    p.end();
    return png(imagen);
}

QByteArray dibujarAspecto(Aspecto aspecto)
{
    QImage imagen = lienzo(128, 128);
    QPainter p(&imagen);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    const auto figura = [&](double x, double escala, const QColor &color) {
        p.setBrush(color);
        p.drawEllipse(QPointF(x, 64 - 20 * escala), 15 * escala, 15 * escala);
        QPainterPath hombros;
        hombros.addRoundedRect(QRectF(x - 27 * escala, 64, 54 * escala, 50 * escala), 24 * escala,
                               24 * escala);
        QPainterPath bajo;
        bajo.addRect(QRectF(0, 0, 128, 64 + 32 * escala));
        p.drawPath(hombros.intersected(bajo));
    };
    switch (aspecto) {
    case Aspecto::Personal:
        p.setBrush(QColor(0x2b, 0x7a, 0x5b));
        p.drawEllipse(QRectF(2, 2, 124, 124));
        figura(64, 1.05, Qt::white);
        break;
    case Aspecto::Convivencia:
        p.setBrush(QColor(0xc4, 0x6a, 0x1f));
        p.drawEllipse(QRectF(2, 2, 124, 124));
        figura(43, 0.8, QColor(0xff, 0xe2, 0xc4));
        figura(83, 0.8, Qt::white);
        break;
    case Aspecto::Academico:
        p.setBrush(azul);
        p.drawEllipse(QRectF(2, 2, 124, 124));
        dibujarLibro(p, QPointF(64, 50), 80);
        break;
    }
    p.end();
    return png(imagen);
}

} // namespace demo
