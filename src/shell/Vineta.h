// SPDX-License-Identifier: MIT
// The small shape before a line of a list.
#pragma once

#include <QWidget>

class Vineta : public QWidget {
    Q_OBJECT
public:
    explicit Vineta(QWidget *padre = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *suceso) override;
};
