// SPDX-License-Identifier: MIT
#include "ClaveVelada.h"

#include <QApplication>
#include <QLineEdit>

#include <algorithm>

namespace {

// Codes that no key has: the library tells nobody of them.
constexpr int primeraSenal = 0x02000000;
constexpr int senales = 0x00ffffff;

constexpr quint32 teclaVacia = 0xffffff; // X11's name for a key that stands for nothing

bool esTecla(const QEvent &suceso)
{
    return suceso.type() == QEvent::KeyPress || suceso.type() == QEvent::KeyRelease;
}

// It writes something, or tells how the next one is written.
bool esDeEscribir(const QKeyEvent &tecla)
{
    constexpr auto deOrden = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (tecla.key() == Qt::Key_Shift || tecla.key() == Qt::Key_AltGr)
        return true;
    return !(tecla.modifiers() & deOrden) && !tecla.text().isEmpty()
           && tecla.text().front().isPrint();
}

bool esDelLector(const QKeyEvent &tecla)
{
    return tecla.key() == Qt::Key_Insert || tecla.key() == Qt::Key_CapsLock;
}

bool esDeMudar(const QKeyEvent &tecla)
{
    return tecla.type() == QEvent::KeyPress
           && (tecla.key() == Qt::Key_Tab || tecla.key() == Qt::Key_Backtab);
}

} // namespace

// Comes from the keyboard as the real one does, else the library would not hold it up.
class ClaveVelada::Velada : public QKeyEvent {
public:
    Velada(const QKeyEvent &tecla, int senal) : QKeyEvent(tecla)
    {
        m_key = senal;
        m_text.clear();
        m_scanCode = 0;
        m_virtualKey = teclaVacia;
        m_nativeModifiers = 0;
    }
};

// Where keys arrive: at the window itself, behind all that looks at the application's keys.
class ClaveVelada::Vuelta : public QObject {
public:
    explicit Vuelta(ClaveVelada &clave) : m_clave(clave) {}

    bool eventFilter(QObject *ventana, QEvent *suceso) override
    {
        return esTecla(*suceso) && m_clave.revelar(ventana, *static_cast<QKeyEvent *>(suceso));
    }

private:
    ClaveVelada &m_clave;
};

ClaveVelada::ClaveVelada(std::function<bool()> hayLector)
    : m_hayLector(std::move(hayLector)), m_vuelta(std::make_unique<Vuelta>(*this))
{
}

ClaveVelada::~ClaveVelada() = default;

bool ClaveVelada::guarda(const QWidget &elemento)
{
    const auto *caja = qobject_cast<const QLineEdit *>(&elemento);
    return caja && caja->echoMode() != QLineEdit::Normal;
}

bool ClaveVelada::atender(QObject *objeto, QEvent *suceso)
{
    if (suceso->type() == QEvent::FocusOut && objeto->isWindowType())
        m_ordenando = false; // the key may be let go in another window
    if (!esTecla(*suceso) || !suceso->spontaneous() || !objeto->isWindowType() || !m_hayLector())
        return false;
    const auto &tecla = *static_cast<QKeyEvent *>(suceso);
    if (tecla.key() >= primeraSenal)
        return false;
    objeto->installEventFilter(m_vuelta.get());
    if (esDelLector(tecla))
        m_ordenando = tecla.type() == QEvent::KeyPress;
    if (esDeMudar(tecla))
        m_mudando = true;
    if (!seVela(tecla))
        return false;
    velar(objeto, tecla);
    return true;
}

bool ClaveVelada::seVela(const QKeyEvent &tecla) const
{
    const QWidget *enfocado = QApplication::focusWidget();
    return esDeEscribir(tecla) && !m_ordenando && (m_mudando || (enfocado && guarda(*enfocado)));
}

void ClaveVelada::velar(QObject *ventana, const QKeyEvent &tecla)
{
    m_ultima = (m_ultima + 1) & senales;
    Velada velada(tecla, primeraSenal + m_ultima);
    m_guardadas.push_back({velada.key(), std::unique_ptr<QEvent>(tecla.clone()), m_mudando});
    // Not sendEvent(), which would make it one of the program's own. Whether anybody took it is
    // for the real one to tell.
    [[maybe_unused]] const bool tomada = qApp->notify(ventana, &velada);
}

// True: the real key has taken its place.
bool ClaveVelada::revelar(QObject *ventana, const QKeyEvent &llegada)
{
    if (esDeMudar(llegada))
        m_mudando = false;
    const auto hallada =
        std::find_if(m_guardadas.begin(), m_guardadas.end(),
                     [&](const Guardada &guardada) { return guardada.senal == llegada.key(); });
    if (hallada == m_guardadas.end())
        return false;
    // What went before it has arrived or was a command of the reader, which keeps those.
    if (hallada->trasMudanza)
        m_mudando = false;
    const std::unique_ptr<QEvent> tecla = std::move(hallada->tecla);
    m_guardadas.erase(m_guardadas.begin(), hallada + 1);
    QCoreApplication::sendEvent(ventana, tecla.get());
    return true;
}
