// SPDX-License-Identifier: MIT
// One announcement to a screen reader: an element that is heard when it comes and is seen nowhere.
// Readers ask for its text a while after it has come, so that each has an element of its own.
#pragma once

#include <QAccessibleObject>
#include <QObject>
#include <QString>

class QWidget;

class Aviso : public QObject {
    Q_OBJECT
public:
    // It comes from that window and ends with it.
    Aviso(QWidget *ventana, const QString &texto);

    QWidget *ventana() const;
    QString texto() const { return m_texto; }

private:
    QString m_texto;
};

class AvisoAccesible : public QAccessibleObject {
public:
    explicit AvisoAccesible(Aviso *aviso);

    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QString text(QAccessible::Text que) const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QRect rect() const override;

private:
    const Aviso &aviso() const;
};
