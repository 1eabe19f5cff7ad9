// SPDX-License-Identifier: MIT
// While a screen reader runs, the library tells it of every key before the key reaches the window,
// over a bus that other programs of the session may listen to. Of a password's keys it tells so no
// more than that a key was pressed: a veiled one goes the library's way, and the real one takes
// its place when it comes back, in its order among the others. Keys that go with a reader's own
// (Insert, Caps Lock) are commands to it and pass as they are, as do those that write nothing.
// While a Tab is on its way nobody knows yet where the keys behind it will arrive: they are veiled
// as well.
#pragma once

#include <QKeyEvent>

#include <deque>
#include <functional>
#include <memory>

class QObject;
class QWidget;

class ClaveVelada {
public:
    // `hayLector`: whether a reader runs at this moment; where there is none, keys go as ever.
    explicit ClaveVelada(std::function<bool()> hayLector);
    ~ClaveVelada();
    ClaveVelada(const ClaveVelada &) = delete;
    ClaveVelada &operator=(const ClaveVelada &) = delete;

    // Whether what is typed into an element is nobody else's business.
    static bool guarda(const QWidget &elemento);

    // To be asked of every event before anybody else sees it: true when it has been dealt with.
    bool atender(QObject *objeto, QEvent *suceso);

private:
    class Velada;
    class Vuelta;

    bool seVela(const QKeyEvent &tecla) const;
    void velar(QObject *ventana, const QKeyEvent &tecla);
    bool revelar(QObject *ventana, const QKeyEvent &llegada);

    std::function<bool()> m_hayLector;
    struct Guardada {
        int senal; // what the veiled key bears instead
        std::unique_ptr<QEvent> tecla;
        bool trasMudanza; // behind a key that moves the focus
    };
    std::deque<Guardada> m_guardadas; // on their way, in their order
    int m_ultima = 0;
    bool m_ordenando = false; // a key of the reader's own is held down
    bool m_mudando = false;   // a key that moves the focus is on its way
    std::unique_ptr<Vuelta> m_vuelta;
};
