// SPDX-License-Identifier: MIT
#include "estilo/Estilo.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal redondez = 4;
constexpr int aLosLados = 4; // of a field's text, in pixels, beside what the library leaves

// The outline of a rectangle, wholly within it.
void bordear(QPainter &pintor, const QRect &lugar, const QColor &color, qreal grueso,
             const QBrush &relleno = Qt::NoBrush)
{
    const qreal medio = grueso / 2;
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setPen(grueso > 0 ? QPen(color, grueso) : QPen(Qt::NoPen));
    pintor.setBrush(relleno);
    pintor.drawRoundedRect(QRectF(lugar).adjusted(medio, medio, -medio, -medio), redondez,
                           redondez);
}

// The focus is shown to whoever came by keyboard, and on fields, where one writes, always.
bool conFoco(const QStyleOption &opcion)
{
    return opcion.state.testFlag(QStyle::State_HasFocus)
           && opcion.state.testFlag(QStyle::State_Enabled);
}

// Pressed or under the mouse, a surface changes by a little.
double cuantoCambia(const QStyleOption &opcion)
{
    if (!opcion.state.testFlag(QStyle::State_Enabled))
        return 0;
    if (opcion.state.testFlag(QStyle::State_Sunken))
        return 0.22;
    return opcion.state.testFlag(QStyle::State_MouseOver) ? 0.1 : 0;
}

bool esPrincipal(const QStyleOptionButton &boton)
{
    return boton.features.testFlag(QStyleOptionButton::DefaultButton);
}

} // namespace

Estilo::Estilo() : QProxyStyle(u"fusion"_s) {}

void Estilo::polish(QPalette &paleta)
{
    const tonos::Tonos t = tonos::de(paleta);
    paleta.setColor(QPalette::Highlight, t.acento);
    paleta.setColor(QPalette::HighlightedText, t.sobreAcento);
    paleta.setColor(QPalette::PlaceholderText, t.apagado);
    for (const auto papel : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        const QColor apagado = paleta.color(QPalette::Disabled, papel);
        paleta.setColor(QPalette::Disabled, papel,
                        tonos::apartado(apagado, {t.ventana, t.base}, tonos::legible));
    }
}

const tonos::Tonos &Estilo::tonosDe(const QStyleOption &opcion) const
{
    const QPalette::ColorGroup grupo =
        opcion.state.testFlag(State_Enabled) ? QPalette::Active : QPalette::Disabled;
    if (m_ultimos.clave != opcion.palette.cacheKey() || m_ultimos.grupo != grupo)
        m_ultimos = {opcion.palette.cacheKey(), grupo, tonos::de(opcion.palette, grupo)};
    return m_ultimos.tonos;
}

void Estilo::drawPrimitive(PrimitiveElement cual, const QStyleOption *opcion, QPainter *pintor,
                           const QWidget *elemento) const
{
    // Tool buttons ask for the same panel and are no such buttons.
    const auto *boton = qstyleoption_cast<const QStyleOptionButton *>(opcion);
    if (cual == PE_PanelButtonCommand && !boton) {
        QProxyStyle::drawPrimitive(cual, opcion, pintor, elemento);
        return;
    }
    if (const auto *fila = qstyleoption_cast<const QStyleOptionViewItem *>(opcion)) {
        const QStyleOptionViewItem otra = conAcento(*fila);
        QProxyStyle::drawPrimitive(cual, &otra, pintor, elemento);
        return;
    }
    pintor->save();
    switch (cual) {
    case PE_PanelLineEdit:
    case PE_FrameLineEdit:
        pintarCampo(*opcion, *pintor);
        break;
    case PE_Frame:
        // Of a list: a field too. Others have no frame.
        bordear(*pintor, opcion->rect, tonosDe(*opcion).borde, 1);
        if (conFoco(*opcion))
            bordear(*pintor, opcion->rect, tonosDe(*opcion).marca, 2);
        break;
    case PE_IndicatorRadioButton:
        pintarRadio(*opcion, *pintor);
        break;
    case PE_PanelButtonCommand:
        pintarBoton(*boton, *pintor);
        break;
    case PE_FrameFocusRect:
        // The current row, and whatever else has the focus and no edge of its own: an outline,
        // never a fill. On a chosen row it stands on the accent.
        bordear(*pintor, opcion->rect,
                opcion->state.testFlag(State_Selected) ? tonosDe(*opcion).sobreAcento
                                                       : tonosDe(*opcion).marca,
                1.5);
        break;
    default:
        pintor->restore();
        QProxyStyle::drawPrimitive(cual, opcion, pintor, elemento);
        return;
    }
    pintor->restore();
}

QStyleOptionViewItem Estilo::conAcento(const QStyleOptionViewItem &fila) const
{
    const tonos::Tonos &t = tonosDe(fila);
    QStyleOptionViewItem otra(fila);
    if (fila.palette.color(QPalette::Inactive, QPalette::Highlight) == t.acento
        && fila.palette.color(QPalette::Inactive, QPalette::HighlightedText) == t.sobreAcento)
        return otra;
    for (const auto grupo : {QPalette::Active, QPalette::Inactive}) {
        otra.palette.setColor(grupo, QPalette::Highlight, t.acento);
        otra.palette.setColor(grupo, QPalette::HighlightedText, t.sobreAcento);
    }
    return otra;
}

void Estilo::pintarCampo(const QStyleOption &opcion, QPainter &pintor) const
{
    const tonos::Tonos &t = tonosDe(opcion);
    const bool escribible = opcion.state.testFlag(State_Enabled);
    bordear(pintor, opcion.rect, conFoco(opcion) ? t.marca : t.borde, conFoco(opcion) ? 2 : 1,
            escribible ? t.base : t.ventana);
}

void Estilo::pintarRadio(const QStyleOption &opcion, QPainter &pintor) const
{
    const tonos::Tonos &t = tonosDe(opcion);
    const bool elegido = opcion.state.testFlag(State_On);
    const qreal lado = qMin(opcion.rect.width(), opcion.rect.height()) - 1.5;
    const QPointF centro = QRectF(opcion.rect).center();
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setPen(QPen(elegido ? t.marca : t.borde, 1.5));
    pintor.setBrush(tonos::mezcla(t.base, t.marca, cuantoCambia(opcion)));
    pintor.drawEllipse(centro, lado / 2, lado / 2);
    if (!elegido)
        return;
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(t.marca);
    pintor.drawEllipse(centro, lado / 4, lado / 4);
}

void Estilo::pintarBoton(const QStyleOptionButton &boton, QPainter &pintor) const
{
    const tonos::Tonos &t = tonosDe(boton);
    if (!esPrincipal(boton) || !boton.state.testFlag(State_Enabled)) {
        bordear(pintor, boton.rect, t.borde, 1,
                tonos::mezcla(boton.state.testFlag(State_Enabled) ? t.base : t.ventana, t.texto,
                              cuantoCambia(boton)));
        if (conFoco(boton))
            bordear(pintor, boton.rect, t.marca, 2);
        return;
    }
    // Away from its text, so that it stays legible.
    const QColor lejos = tonos::apartado(t.acento, {t.sobreAcento}, 21);
    bordear(pintor, boton.rect, {}, 0, tonos::mezcla(t.acento, lejos, cuantoCambia(boton)));
    if (conFoco(boton))
        bordear(pintor, boton.rect.adjusted(2, 2, -2, -2), t.sobreAcento, 1.5);
}

void Estilo::drawControl(ControlElement cual, const QStyleOption *opcion, QPainter *pintor,
                         const QWidget *elemento) const
{
    const tonos::Tonos &t = tonosDe(*opcion);
    if (const auto *marco = qstyleoption_cast<const QStyleOptionFrame *>(opcion);
        marco && marco->frameShape == QFrame::HLine) {
        const QRect linea(marco->rect.left(), marco->rect.center().y(), marco->rect.width(), 1);
        pintor->fillRect(linea, t.linea);
        return;
    }
    if (const auto *boton = qstyleoption_cast<const QStyleOptionButton *>(opcion)) {
        QStyleOptionButton otro(*boton);
        const bool relleno = cual == CE_PushButtonLabel && esPrincipal(*boton)
                             && boton->state.testFlag(State_Enabled);
        otro.palette.setColor(QPalette::ButtonText, relleno ? t.sobreAcento : t.texto);
        // The focus is drawn with the button's edge.
        if (cual == CE_PushButton)
            otro.state.setFlag(State_KeyboardFocusChange, false);
        QProxyStyle::drawControl(cual, &otro, pintor, elemento);
    } else if (const auto *fila = qstyleoption_cast<const QStyleOptionViewItem *>(opcion)) {
        const QStyleOptionViewItem otra = conAcento(*fila);
        QProxyStyle::drawControl(cual, &otra, pintor, elemento);
    } else if (const auto *lista = qstyleoption_cast<const QStyleOptionComboBox *>(opcion)) {
        // Nothing chosen yet: the prompt, dimmed and legible.
        QStyleOptionComboBox otra(*lista);
        const auto *desplegable = qobject_cast<const QComboBox *>(elemento);
        otra.palette.setColor(QPalette::ButtonText,
                              desplegable && desplegable->currentIndex() < 0 ? t.apagado : t.texto);
        QProxyStyle::drawControl(cual, &otra, pintor, elemento);
    } else {
        QProxyStyle::drawControl(cual, opcion, pintor, elemento);
    }
}

void Estilo::drawComplexControl(ComplexControl cual, const QStyleOptionComplex *opcion,
                                QPainter *pintor, const QWidget *elemento) const
{
    if (const auto *lista = qstyleoption_cast<const QStyleOptionComboBox *>(opcion);
        lista && cual == CC_ComboBox) {
        pintor->save();
        pintarLista(*lista, *pintor, elemento);
        pintor->restore();
        return;
    }
    QProxyStyle::drawComplexControl(cual, opcion, pintor, elemento);
}

void Estilo::pintarLista(const QStyleOptionComboBox &lista, QPainter &pintor,
                         const QWidget *elemento) const
{
    const tonos::Tonos &t = tonosDe(lista);
    pintarCampo(lista, pintor);
    const QRectF boton = subControlRect(CC_ComboBox, &lista, SC_ComboBoxArrow, elemento);
    const QPointF centro = boton.center();
    QPainterPath flecha;
    flecha.moveTo(centro + QPointF(-4, -2));
    flecha.lineTo(centro + QPointF(0, 2));
    flecha.lineTo(centro + QPointF(4, -2));
    pintor.setBrush(Qt::NoBrush);
    pintor.setPen(QPen(t.texto, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    pintor.drawPath(flecha);
}

void Estilo::drawItemText(QPainter *pintor, const QRect &lugar, int como, const QPalette &paleta,
                          bool encendido, const QString &texto, QPalette::ColorRole papel) const
{
    if (papel != QPalette::PlaceholderText) {
        QProxyStyle::drawItemText(pintor, lugar, como, paleta, encendido, texto, papel);
        return;
    }
    QPalette otra(paleta);
    otra.setColor(papel, tonos::de(paleta).apagado);
    QProxyStyle::drawItemText(pintor, lugar, como, otra, encendido, texto, papel);
}

QSize Estilo::sizeFromContents(ContentsType cual, const QStyleOption *opcion,
                               const QSize &contenido, const QWidget *elemento) const
{
    QSize medida = QProxyStyle::sizeFromContents(cual, opcion, contenido, elemento);
    switch (cual) {
    case CT_ItemViewItem:
        return {medida.width(), qMax(medida.height(), altoDeFila)};
    case CT_LineEdit:
    case CT_ComboBox:
        return {medida.width(), qMax(medida.height(), altoDeCampo)};
    case CT_PushButton: {
        medida.setHeight(qMax(medida.height(), altoDeCampo));
        const auto *boton = qstyleoption_cast<const QStyleOptionButton *>(opcion);
        if (boton && esPrincipal(*boton))
            medida.setWidth(qMax(medida.width() + 12, anchoDelPrincipal));
        return medida;
    }
    default:
        return medida;
    }
}

QRect Estilo::subElementRect(SubElement cual, const QStyleOption *opcion,
                             const QWidget *elemento) const
{
    const QRect lugar = QProxyStyle::subElementRect(cual, opcion, elemento);
    return cual == SE_LineEditContents ? lugar.adjusted(aLosLados, 0, -aLosLados, 0) : lugar;
}

QRect Estilo::subControlRect(ComplexControl cual, const QStyleOptionComplex *opcion,
                             SubControl parte, const QWidget *elemento) const
{
    const QRect lugar = QProxyStyle::subControlRect(cual, opcion, parte, elemento);
    return cual == CC_ComboBox && parte == SC_ComboBoxEditField
               ? lugar.adjusted(aLosLados - 1, 0, 0, 0)
               : lugar;
}

int Estilo::pixelMetric(PixelMetric cual, const QStyleOption *opcion, const QWidget *elemento) const
{
    switch (cual) {
    case PM_ButtonShiftHorizontal: // a pressed button's text stays where it is
    case PM_ButtonShiftVertical:
        return 0;
    case PM_DefaultFrameWidth:
        // Room within a list's edge for the focus.
        return qobject_cast<const QAbstractItemView *>(elemento)
                   ? 2
                   : QProxyStyle::pixelMetric(cual, opcion, elemento);
    default:
        return QProxyStyle::pixelMetric(cual, opcion, elemento);
    }
}

int Estilo::styleHint(StyleHint cual, const QStyleOption *opcion, const QWidget *elemento,
                      QStyleHintReturn *resultado) const
{
    // A drop-down list opens below its field, with rows like those of the other lists.
    if (cual == SH_ComboBox_Popup)
        return 0;
    return QProxyStyle::styleHint(cual, opcion, elemento, resultado);
}
