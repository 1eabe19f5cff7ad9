// SPDX-License-Identifier: MIT
#include "estilo/tonos.h"

#include <algorithm>
#include <cmath>

namespace tonos {

namespace {

// A thin line loses some of its colour where it is smoothed.
constexpr double porElSuavizado = 0.3;

// Of one channel, as light adds up (sRGB).
double lineal(double canal)
{
    return canal <= 0.04045 ? canal / 12.92 : std::pow((canal + 0.055) / 1.055, 2.4);
}

double luminancia(const QColor &color)
{
    return 0.2126 * lineal(color.redF()) + 0.7152 * lineal(color.greenF())
           + 0.0722 * lineal(color.blueF());
}

double menorContraste(const QColor &color, std::initializer_list<QColor> fondos)
{
    double menor = 21;
    for (const QColor &fondo : fondos)
        menor = std::min(menor, contraste(color, fondo));
    return menor;
}

// The chosen row is chosen also in a window that is not in front. Between letters and a background
// that are both light, or both dark, there is no room for an accent: it goes to the background's
// other side then, and the letters on it with it.
void ponerAcento(Tonos &t, const QPalette &paleta)
{
    const QColor elegido = paleta.color(QPalette::Active, QPalette::Highlight);
    t.sobreAcento = paleta.color(QPalette::Active, QPalette::HighlightedText);
    t.acento = apartado(elegido, {t.sobreAcento}, legible);
    if (menorContraste(t.acento, {t.ventana, t.base}) >= visible)
        return;
    t.acento = apartado(elegido, {t.ventana, t.base}, visible);
    t.sobreAcento = apartado(t.sobreAcento, {t.acento}, 21);
}

} // namespace

double contraste(const QColor &uno, const QColor &otro)
{
    const auto [menor, mayor] = std::minmax({luminancia(uno), luminancia(otro)});
    return (mayor + 0.05) / (menor + 0.05);
}

QColor mezcla(const QColor &fondo, const QColor &color, double parte)
{
    const auto canal = [parte](int de, int a) {
        return de + static_cast<int>(std::lround((a - de) * parte));
    };
    return {canal(fondo.red(), color.red()), canal(fondo.green(), color.green()),
            canal(fondo.blue(), color.blue())};
}

QColor apartado(const QColor &color, std::initializer_list<QColor> fondos, double minimo)
{
    constexpr int pasos = 32;
    const QColor extremo = menorContraste(Qt::white, fondos) > menorContraste(Qt::black, fondos)
                               ? Qt::white
                               : Qt::black;
    for (int paso = 0; paso < pasos; ++paso) {
        const QColor movido = mezcla(color, extremo, double(paso) / pasos);
        if (menorContraste(movido, fondos) >= minimo)
            return movido;
    }
    return extremo;
}

Tonos de(const QPalette &paleta, QPalette::ColorGroup grupo)
{
    const auto color = [&](QPalette::ColorRole papel) {
        return paleta.color(grupo, papel);
    };
    Tonos t;
    t.ventana = color(QPalette::Window);
    t.base = color(QPalette::Base);
    ponerAcento(t, paleta);
    t.tinte = mezcla(t.base, t.acento, 0.1);
    // What is switched off is dimmed by the desktop, and legible all the same.
    t.texto = apartado(color(QPalette::WindowText), {t.ventana, t.base, t.tinte}, legible);
    t.apagado = apartado(mezcla(t.base, t.texto, 0.6), {t.ventana, t.base}, legible);
    t.marca = apartado(t.acento, {t.ventana, t.base}, visible + porElSuavizado);
    t.borde = apartado(mezcla(t.base, t.texto, 0.4), {t.ventana, t.base}, visible + porElSuavizado);
    t.linea = mezcla(t.ventana, t.texto, 0.16);
    return t;
}

} // namespace tonos
