// SPDX-License-Identifier: MIT
// Watches how long the event loop goes without turning: a thread of its own sends an event every
// millisecond, once the one before has been delivered, and the longest wait for one is noted.
// It costs the window a little processor time, so that it runs only where that is what is
// measured.
#pragma once

#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <thread>

class Vigia : public QObject {
public:
    // `donde` says what the window is doing; it is asked when a wait was the longest so far.
    explicit Vigia(std::function<QString()> donde);
    ~Vigia() override;

    // The longest wait so far in seconds, and what the window was doing.
    double peor() const { return m_peor; }
    const QString &peorEn() const { return m_peorEn; }

    bool event(QEvent *suceso) override;

private:
    void avisar();

    std::function<QString()> m_donde;
    std::atomic<double> m_enviado = 0; // when the event under way was sent; 0: none is
    std::atomic<bool> m_termina = false;
    double m_peor = 0;
    QString m_peorEn;
    std::thread m_hilo;
};
