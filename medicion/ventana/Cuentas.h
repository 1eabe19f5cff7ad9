// SPDX-License-Identifier: MIT
// Counts the events that the application delivers, by kind: paints, layout passes and the like.
#pragma once

#include <QEvent>
#include <QJsonObject>
#include <QObject>

#include <functional>
#include <unordered_map>

class Cuentas : public QObject {
public:
    // Looks at every event from now on, until it is destroyed.
    Cuentas();

    // From now on counted from 0.
    void empezar() { m_cuantos.clear(); }
    // How many of each kind, by its name.
    QJsonObject tomar() const;

    // Called for each event before it is delivered; may be empty.
    std::function<void(QObject *, QEvent *)> alVer;

protected:
    bool eventFilter(QObject *objeto, QEvent *suceso) override;

private:
    std::unordered_map<int, int> m_cuantos; // by QEvent::Type
};
