// SPDX-License-Identifier: MIT
// What the three record lists have in common: the progress event, and the two texts that the
// download procedures read of each record.
#pragma once

#include <QObject>
#include <QString>

class tcLista : public QObject {
    Q_OBJECT
public:
    struct Elemento {
        QString id;
        QString nombre; // the name shown in progress texts
    };

    virtual int Count() const = 0;
    // The record at a position counted from 1; empty texts when there is none.
    virtual Elemento elemento(int posicion) const = 0;

Q_SIGNALS:
    // Raised by the download methods once for each item that they are about to fetch.
    void nuevaDescarga(const QString &texto);
};
