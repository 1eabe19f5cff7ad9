// SPDX-License-Identifier: MIT
// One print worker: a process with a pipe to its standard input, and what it has taken of it.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
#include <memory>

#include <sys/types.h>

class QSocketNotifier;

class Obrero {
public:
    // Starts the program without arguments in a session of its own, so that neither a closed
    // terminal nor the end of this program ends it, with this program's environment and
    // `variables` ("NAME=value") in it. Null when it cannot be started. `alTerminar` is called from
    // the event loop when the process has ended and has been reaped; it may destroy this object,
    // and what it refers to must outlive it.
    static std::unique_ptr<Obrero> arrancar(const QString &programa,
                                            const QList<QByteArray> &variables,
                                            std::function<void()> alTerminar);
    // Closes the pipe: the process goes on with what it has been given. One that still runs is
    // reaped by nobody; whoever does not end with this object waits for `alTerminar`.
    ~Obrero();
    Obrero(const Obrero &) = delete;
    Obrero &operator=(const Obrero &) = delete;

    // The pipe's end, for waiting until it has room; -1 once it has been closed. It stays this
    // object's: who watches it stops before soltar(), or watches what is opened next under its
    // number.
    int tuberia() const { return m_tuberia; }

    enum class Escrito { Algo, Lleno, Cerrado };
    // Gives it the beginning of `lineas`, as much as there is room for, and takes that away.
    Escrito escribir(QByteArray &lineas);

    // Of what it was given, the lines that it has not read to their end.
    QByteArray sinTomar() const;
    // The beginning of a line whose end it has not been given.
    QByteArray lineaEmpezada() const;
    bool tomoAlgo() const;

    // It gets no more.
    void soltar();
    // Reaps the process if it has ended; true when it has.
    bool termino();

private:
    Obrero(pid_t pid, int tuberia, std::function<void()> alTerminar);
    qsizetype sinLeer() const; // bytes in the pipe
    void vigilar();

    pid_t m_pid;
    int m_tuberia;
    int m_testigo = -1; // readable once the process has ended
    std::function<void()> m_alTerminar;
    std::unique_ptr<QSocketNotifier> m_aviso;
    QByteArray m_dado; // the end of what it was given, from a line's start
    bool m_tomoAlgo = false;
};
