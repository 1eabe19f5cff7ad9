// SPDX-License-Identifier: MIT
// Gathers the painting of one window, and the measuring of its progress texts. A run changes its
// texts and bars many hundred times a second, and nobody sees more than some sixty pictures: the
// elements themselves change at once, what is drawn of them follows at the latest 16 ms behind, and
// never at once: the request that comes after a change goes out before the change is drawn.
#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <functional>

class CajaRotulo;

class Cadencia : public QObject {
    Q_OBJECT
public:
    Cadencia();

    // Gathers from now on. `ventana` is borrowed: it may end before this object, and must have all
    // of its elements by now.
    void seguir(QWidget *ventana);

    // Draws what has been held back.
    void alDia();

    // A pause during which the event loop does not turn. The window is brought up to date in it,
    // since what it shows then is seen for a long time: `duermeLoQueResta` is given what is left
    // after that. It must not outlive this object.
    using Pausa = std::function<void(std::chrono::milliseconds)>;
    using Sueno = std::function<void(std::chrono::nanoseconds)>;
    Pausa alDiaEn(Sueno duermeLoQueResta);

protected:
    bool eventFilter(QObject *objeto, QEvent *suceso) override;

private:
    void porMedir(CajaRotulo *caja);
    void retener();

    QPointer<QWidget> m_ventana;
    QList<QPointer<CajaRotulo>> m_porMedir; // the boxes of progress texts that have changed
    bool m_porPintar = false;
    bool m_soltando = false;
    QElapsedTimer m_desdePintura; // since the window was last painted
    QTimer m_plazo;               // of what is held back
};
