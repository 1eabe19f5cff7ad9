// SPDX-License-Identifier: MIT
// How the windows' elements are drawn: the library's own style, with the edges, the focus and the
// chosen row in tones that can be told apart on any palette, light or dark (tonos.h), fields and
// lists alike in height, and the one main button of a panel (its `default` property) filled.
#pragma once

#include "estilo/tonos.h"

#include <QProxyStyle>
#include <QStyleOption>

class Estilo : public QProxyStyle {
    Q_OBJECT
public:
    Estilo();

    // Heights and widths in pixels, more where letters ask for it.
    static constexpr int altoDeFila = 26;
    static constexpr int altoDeCampo = 28;
    static constexpr int anchoDelPrincipal = 96;

    // The desktop's palette, where nothing else is set: what of it could not be read is moved until
    // it can, the texts of elements that are switched off included.
    void polish(QPalette &paleta) override;
    using QProxyStyle::polish;

    void drawPrimitive(PrimitiveElement cual, const QStyleOption *opcion, QPainter *pintor,
                       const QWidget *elemento) const override;
    void drawControl(ControlElement cual, const QStyleOption *opcion, QPainter *pintor,
                     const QWidget *elemento) const override;
    void drawComplexControl(ComplexControl cual, const QStyleOptionComplex *opcion,
                            QPainter *pintor, const QWidget *elemento) const override;
    // A text in the role PlaceholderText is dimmed, and legible.
    void drawItemText(QPainter *pintor, const QRect &lugar, int como, const QPalette &paleta,
                      bool encendido, const QString &texto,
                      QPalette::ColorRole papel) const override;
    QSize sizeFromContents(ContentsType cual, const QStyleOption *opcion, const QSize &contenido,
                           const QWidget *elemento) const override;
    QRect subElementRect(SubElement cual, const QStyleOption *opcion,
                         const QWidget *elemento) const override;
    QRect subControlRect(ComplexControl cual, const QStyleOptionComplex *opcion, SubControl parte,
                         const QWidget *elemento) const override;
    int pixelMetric(PixelMetric cual, const QStyleOption *opcion,
                    const QWidget *elemento) const override;
    int styleHint(StyleHint cual, const QStyleOption *opcion, const QWidget *elemento,
                  QStyleHintReturn *resultado) const override;

private:
    // The tones of what is drawn; the palette is mostly the one before.
    const tonos::Tonos &tonosDe(const QStyleOption &opcion) const;

    QStyleOptionViewItem conAcento(const QStyleOptionViewItem &fila) const;
    void pintarBoton(const QStyleOptionButton &boton, QPainter &pintor) const;
    void pintarCampo(const QStyleOption &opcion, QPainter &pintor) const;
    void pintarRadio(const QStyleOption &opcion, QPainter &pintor) const;
    void pintarLista(const QStyleOptionComboBox &lista, QPainter &pintor,
                     const QWidget *elemento) const;

    struct Ultimos {
        qint64 clave = 0;
        QPalette::ColorGroup grupo = QPalette::NColorGroups;
        tonos::Tonos tonos;
    };
    mutable Ultimos m_ultimos;
};
