// SPDX-License-Identifier: MIT
// What takes its time, off the window's thread: one job after another, never two at once.
#pragma once

#include <QObject>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <stop_token>
#include <thread>

class Tarea : public QObject {
    Q_OBJECT
public:
    // How far a job is; told by any of its threads, as often as it likes.
    class Marca {
    public:
        void poner(qint64 hechos, qint64 total);

    private:
        friend class Tarea;
        std::atomic<qint64> m_hechos = 0;
        std::atomic<qint64> m_total = 0;
    };
    // What is to be done with what a job has brought.
    using Entrega = std::function<void()>;
    // Runs in a thread of its own, and soon ends when it is asked to stop.
    using Trabajo = std::function<Entrega(const std::stop_token &parar, Marca &marca)>;

    explicit Tarea(QObject *padre = nullptr);
    // Stops the job and waits for its end; what it brings is dropped.
    ~Tarea() override;

    // Begins; none may be running. What `trabajo` gives back is called in this object's thread,
    // when `enCurso` is false again and `termino` has been told.
    void empezar(Trabajo trabajo);
    bool enCurso() const { return m_enCurso; }

    // Asks the job to stop and does not wait: it still delivers what it has to say.
    void detener();

    // Whether the job's thread has come to its end, or does so within that time.
    bool terminaEn(std::chrono::milliseconds plazo) const;

Q_SIGNALS:
    void empezo();
    // Some times a second while a job runs, when there is news.
    void avanzo(qint64 hechos, qint64 total);
    void termino();

private:
    void mirar();
    void entregar(const Entrega &entrega);

    Marca m_marca;
    QTimer m_mirada;
    qint64 m_dicho = -1;
    bool m_enCurso = false;
    std::future<void> m_fin;
    std::jthread m_hilo; // the last member: it ends before what it uses
};
