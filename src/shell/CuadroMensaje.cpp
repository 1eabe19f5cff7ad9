// SPDX-License-Identifier: MIT
#include "shell/CuadroMensaje.h"

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

using namespace Qt::StringLiterals;

namespace {

// Keeps the user's input from a window while a box stands before it. A modal box would do the
// same but would also swallow the window's close button, and closing the window must end the
// program at any moment. The box itself is not put away by a key that is still held down from
// before it came: nobody would have read it.
class EntradaRetenida : public QObject {
public:
    EntradaRetenida(QWidget *ventana, QMessageBox *cuadro) : m_ventana(ventana), m_cuadro(cuadro)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *objeto, QEvent *suceso) override
    {
        // A shortcut is no element; it acts in that of which it is a child.
        auto *elemento =
            qobject_cast<QWidget *>(suceso->type() == QEvent::Shortcut ? objeto->parent() : objeto);
        if (elemento && elemento->window() == m_cuadro)
            return esRepeticion(suceso);
        if (elemento == m_ventana && suceso->type() == QEvent::WindowActivate)
            traerAlFrente();
        if (!elemento || elemento->window() != m_ventana || !esEntrada(suceso->type()))
            return false;
        if (suceso->type() == QEvent::MouseButtonPress)
            traerAlFrente();
        return true;
    }

private:
    // Of several boxes the one that came last: those below it wait for it.
    void traerAlFrente()
    {
        const auto cuadros =
            m_ventana->findChildren<QMessageBox *>(QString(), Qt::FindDirectChildrenOnly);
        if (!m_cuadro->isVisible() || cuadros.last() != m_cuadro)
            return;
        m_cuadro->raise();
        m_cuadro->activateWindow();
    }

    static bool esRepeticion(QEvent *suceso)
    {
        return suceso->type() == QEvent::KeyPress
               && static_cast<QKeyEvent *>(suceso)->isAutoRepeat();
    }

    static bool esEntrada(QEvent::Type tipo)
    {
        switch (tipo) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::ContextMenu:
            return true;
        default:
            return false;
        }
    }

    QWidget *m_ventana;
    QMessageBox *m_cuadro;
};

// The same room on every side of the text and the button: the library leaves some for a picture
// that is not there. A short text alone would make a box too narrow for its own title.
void disponer(QMessageBox &cuadro)
{
    constexpr int margen = 18;
    auto *rejilla = qobject_cast<QGridLayout *>(cuadro.layout());
    auto *rotulo = cuadro.findChild<QLabel *>(u"qt_msgbox_label"_s);
    if (!rejilla || !rotulo)
        return;
    for (int i = 0; i < rejilla->count(); ++i) {
        if (QSpacerItem *hueco = rejilla->itemAt(i)->spacerItem())
            hueco->changeSize(0, 0);
    }
    rejilla->setContentsMargins(margen, margen, margen, margen);
    rejilla->setSpacing(0);
    rejilla->setVerticalSpacing(margen);
    rotulo->setContentsMargins(0, 0, 0, 0);
    rotulo->setIndent(0);
    const int ancho = cuadro.fontMetrics().averageCharWidth() * 40;
    int fila = 0;
    int columna = 0;
    int filas = 0;
    int columnas = 0;
    rejilla->getItemPosition(rejilla->indexOf(rotulo), &fila, &columna, &filas, &columnas);
    rejilla->addItem(new QSpacerItem(ancho, 0), fila + filas, columna);
}

// A text too long for the screen scrolls, so that the button stays within reach.
void ajustarAlto(QMessageBox &cuadro)
{
    auto *rejilla = qobject_cast<QGridLayout *>(cuadro.layout());
    auto *rotulo = cuadro.findChild<QLabel *>(u"qt_msgbox_label"_s);
    const QSize pantalla = cuadro.screen()->availableSize();
    const QSize marco(qMin(cuadro.fontMetrics().averageCharWidth() * 80, pantalla.width() * 3 / 4),
                      pantalla.height() / 2);
    const QRect texto =
        cuadro.fontMetrics().boundingRect(QRect(QPoint(), marco), Qt::TextWordWrap, cuadro.text());
    if (!rejilla || !rotulo || texto.height() <= marco.height())
        return;
    auto *rollo = new QScrollArea(&cuadro);
    rollo->setFrameShape(QFrame::NoFrame);
    rollo->setWidgetResizable(true);
    rollo->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    rollo->setFixedSize(marco);
    delete rejilla->replaceWidget(rotulo, rollo);
    rotulo->setWordWrap(true);
    rollo->setWidget(rotulo);
}

// In front of its window, with the focus; but never before another program that somebody is at: a
// key that was meant for that one would put away what nobody has read. The window then asks for
// attention, and brings the box along when it is gone to.
void mostrar(QMessageBox &cuadro, QWidget *ventana)
{
    const bool delante = QGuiApplication::applicationState() == Qt::ApplicationActive;
    cuadro.setAttribute(Qt::WA_ShowWithoutActivating, !delante);
    cuadro.show(); // which closes an open drop-down list: it would go on taking keys
    if (delante)
        cuadro.activateWindow();
    else
        QApplication::alert(ventana);
}

} // namespace

void cuadroMensaje(QWidget *ventana, const QString &texto)
{
    QMessageBox cuadro(QMessageBox::NoIcon, QApplication::applicationName(), QString(),
                       QMessageBox::Ok, ventana);
    cuadro.setTextFormat(Qt::PlainText);
    cuadro.setText(texto);
    cuadro.setWindowModality(Qt::NonModal);
    cuadro.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                          | Qt::WindowCloseButtonHint);
    cuadro.button(QMessageBox::Ok)->setText(u"OK"_s); // in every language
    cuadro.button(QMessageBox::Ok)->setIcon(QIcon());
    cuadro.setDefaultButton(QMessageBox::Ok); // as it is measured already
    disponer(cuadro);
    ajustarAlto(cuadro);

    const EntradaRetenida retenida(ventana, &cuadro);
    QEventLoop espera;
    QObject::connect(&cuadro, &QDialog::finished, &espera, &QEventLoop::quit);
    mostrar(cuadro, ventana);
    espera.exec();
}
