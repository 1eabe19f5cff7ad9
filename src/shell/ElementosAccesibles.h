// SPDX-License-Identifier: MIT
// The elements of which the library's own account misleads a screen reader.
#pragma once

#include <QAccessibleWidget>

class QComboBox;

// An element of another role than its class has, and nothing else.
class ElementoAccesible : public QAccessibleWidget {
public:
    ElementoAccesible(QWidget *elemento, QAccessible::Role papel);
};

// A part of the window that holds others. Those that are only drawn are not among them.
class GrupoAccesible : public QAccessibleWidget {
public:
    GrupoAccesible(QWidget *grupo, QAccessible::Role papel);

    int childCount() const override;
    QAccessibleInterface *child(int indice) const override;
    int indexOfChild(const QAccessibleInterface *hijo) const override;

private:
    QList<QWidget *> hijos() const;
};

// What is only drawn: there is nothing to say of it.
class DibujoAccesible : public QAccessibleWidget {
public:
    explicit DibujoAccesible(QWidget *dibujo);

    QString text(QAccessible::Text que) const override;
    QAccessible::State state() const override;
};

// A box whose text nobody may read or hear, nor count: it has a name and can be written into.
class ClaveAccesible : public QAccessibleWidget {
public:
    explicit ClaveAccesible(QWidget *caja);

    QString text(QAccessible::Text que) const override;
    QAccessible::State state() const override;
};

// A drop-down list keeps its name; what has been chosen is its text, which is what readers say as
// its value. The whole of it counts as selected: a reader says of a text that comes by itself only
// what is.
class DesplegableAccesible : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit DesplegableAccesible(QComboBox *desplegable);

    int childCount() const override;
    QAccessibleInterface *child(int indice) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface *hijo) const override;
    QString text(QAccessible::Text que) const override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType tipo) override;
    QStringList actionNames() const override;
    void doAction(const QString &accion) override;

    void selection(int indice, int *desde, int *hasta) const override;
    int selectionCount() const override;
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int desde, int hasta) const override;
    int characterCount() const override;
    QRect characterRect(int indice) const override;
    int offsetAtPoint(const QPoint &punto) const override;
    void scrollToSubstring(int, int) override {}
    QString attributes(int indice, int *desde, int *hasta) const override;

private:
    QComboBox *desplegable() const;
    QString elegido() const;
};
