// SPDX-License-Identifier: MIT
#include "AvisosAccesibles.h"
#include "Aviso.h"
#include "ClaveVelada.h"

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QListView>
#include <QProgressBar>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds cadaCuanto{1000};
constexpr qsizetype avisosVivos = 64; // some runs' worth: a busy reader asks late

QString textoDe(const QWidget &rotulo)
{
    return static_cast<const QLabel &>(rotulo).text();
}

// "Avance de la impresion: 100%"
QString avanceDe(const QProgressBar &barra)
{
    const QString cuanto = barra.text();
    return cuanto.isEmpty() ? barra.accessibleName() : barra.accessibleName() + u": "_s + cuanto;
}

// What changes far more often than anybody can hear.
bool cambiaMucho(const QAccessibleEvent &suceso)
{
    return (suceso.type() == QAccessible::NameChanged && qobject_cast<QLabel *>(suceso.object()))
           || (suceso.type() == QAccessible::ValueChanged
               && qobject_cast<QProgressBar *>(suceso.object()));
}

// What is typed into a guarded box, how much of it and where: nothing to tell.
bool esReservado(const QAccessibleEvent &suceso)
{
    switch (suceso.type()) {
    case QAccessible::TextInserted:
    case QAccessible::TextRemoved:
    case QAccessible::TextUpdated:
    case QAccessible::TextCaretMoved:
    case QAccessible::TextSelectionChanged:
    case QAccessible::ValueChanged:
        break;
    default:
        return false;
    }
    const auto *elemento = qobject_cast<QWidget *>(suceso.object());
    return elemento && ClaveVelada::guarda(*elemento);
}

} // namespace

AvisosAccesibles::AvisosAccesibles(QObject *aplicacion, Lector lector)
    : QObject(aplicacion), m_lector(std::move(lector))
{
    m_plazo.setSingleShot(true);
    m_plazo.setInterval(cadaCuanto);
    connect(&m_plazo, &QTimer::timeout, this, &AvisosAccesibles::contarJuntados);
    QAccessible::installUpdateHandler(&AvisosAccesibles::atender);
}

AvisosAccesibles::~AvisosAccesibles()
{
    QAccessible::installUpdateHandler(nullptr);
}

void AvisosAccesibles::instalar()
{
    new AvisosAccesibles(qApp, &AvisosAccesibles::alBus);
}

// The library asks a plain function, and only while there is a reader.
void AvisosAccesibles::atender(QAccessibleEvent *suceso)
{
    // With changes of a list the library has dealt before it comes here; readers hear nothing of
    // them.
    if (!suceso->object() || suceso->type() == QAccessible::TableModelChanged)
        return;
    if (auto *avisos = qApp->findChild<AvisosAccesibles *>({}, Qt::FindDirectChildrenOnly))
        avisos->recibir(suceso);
}

// The library tells the readers itself when nobody has put himself before it.
void AvisosAccesibles::alBus(QAccessibleEvent *suceso)
{
    QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(suceso);
    QAccessible::installUpdateHandler(&AvisosAccesibles::atender);
}

void AvisosAccesibles::recibir(QAccessibleEvent *suceso)
{
    auto *elemento = qobject_cast<QWidget *>(suceso->object());
    if (esReservado(*suceso))
        return;
    if (elemento && cambiaMucho(*suceso))
        juntar(elemento);
    else
        m_lector(suceso);
    if (elemento)
        seguir(elemento, suceso->type());
}

// What follows from an event beside it.
void AvisosAccesibles::seguir(QWidget *elemento, QAccessible::Event que)
{
    const QString nombre = elemento->objectName();
    if (que == QAccessible::Focus)
        alEnfocar(elemento);
    else if (que == QAccessible::NameChanged && nombre == "estadoTS"_L1)
        anunciar(elemento->window(), textoDe(*elemento));
    else if (que == QAccessible::ObjectShow && nombre == "Barra3"_L1)
        elemento->installEventFilter(this);
    else if (que == QAccessible::ObjectShow && nombre == "Label5"_L1) {
        // Once: a panel that is shown again brings no news.
        const QString ingreso = textoDe(*elemento);
        if (ingreso != std::exchange(m_ingreso, ingreso))
            anunciar(elemento->window(), ingreso);
    } else if (auto *desplegable = qobject_cast<QComboBox *>(elemento);
               desplegable && que == QAccessible::ValueChanged) {
        // Readers ask a drop-down list for no value: they say what becomes of its text.
        QAccessibleTextUpdateEvent cambio(desplegable, 0, QString(), desplegable->currentText());
        m_lector(&cambio);
    }
}

// A list that gets the focus has a current line, which the arrows start from.
void AvisosAccesibles::alEnfocar(QWidget *elemento)
{
    auto *lista = qobject_cast<QListView *>(elemento);
    if (!lista || !lista->currentIndex().isValid())
        return;
    QAccessibleEvent enLaLinea(lista, QAccessible::Focus);
    enLaLinea.setChild(lista->currentIndex().row());
    m_lector(&enLaLinea);
}

// A print job ends by hiding its bar, also while its panel cannot be seen.
bool AvisosAccesibles::eventFilter(QObject *objeto, QEvent *suceso)
{
    if (suceso->type() != QEvent::HideToParent)
        return false;
    auto *barra = static_cast<QProgressBar *>(objeto);
    barra->removeEventFilter(this);
    anunciar(barra->window(), avanceDe(*barra));
    return false;
}

void AvisosAccesibles::anunciar(QWidget *ventana, const QString &texto)
{
    m_avisos.append(new Aviso(ventana, texto));
    while (m_avisos.size() > avisosVivos)
        delete m_avisos.takeFirst();
    QAccessibleEvent llegada(m_avisos.last(), QAccessible::ObjectShow);
    m_lector(&llegada);
}

void AvisosAccesibles::juntar(QWidget *elemento)
{
    if (!m_juntados.contains(elemento))
        m_juntados.append(elemento);
    if (!m_plazo.isActive())
        m_plazo.start();
}

void AvisosAccesibles::contarJuntados()
{
    for (const QPointer<QWidget> &elemento : std::exchange(m_juntados, {})) {
        if (auto *barra = qobject_cast<QProgressBar *>(elemento)) {
            QAccessibleValueChangeEvent cambio(barra, barra->value());
            m_lector(&cambio);
        } else if (elemento) {
            QAccessibleEvent cambio(elemento, QAccessible::NameChanged);
            m_lector(&cambio);
        }
    }
}
