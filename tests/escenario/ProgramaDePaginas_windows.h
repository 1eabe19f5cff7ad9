// SPDX-License-Identifier: MIT
// The program that Windows opens or prints pages with in a test: platform.anotador, which stands
// beside the test and notes what it is given.
#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

// What that program has noted in a folder, in the order in which its processes were started: with
// tabulators between them that moment, the verb, the document, further arguments and the working
// folder.
QStringList notasEn(const QString &carpeta);

// While one lives, in a process one at a time, pages go to that program with this verb. A test that
// cannot have it cannot go on: it is ended.
class ProgramaDePaginas {
public:
    explicit ProgramaDePaginas(const QString &verbo);
    ProgramaDePaginas(const ProgramaDePaginas &) = delete;
    ProgramaDePaginas &operator=(const ProgramaDePaginas &) = delete;

    // What was noted; see notasEn.
    QStringList lineas() const;
    // How many of those that this process has started still run.
    static int corren();

private:
    QTemporaryDir m_carpeta;
};
