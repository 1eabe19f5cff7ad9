// SPDX-License-Identifier: MIT
// The picture beside the verdict.
#pragma once

#include <QWidget>

class DibujoVeredicto : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    // By its name, as in estilo/dibujo.h; nothing is shown before.
    void poner(const QString &nombre);

protected:
    void paintEvent(QPaintEvent *suceso) override;

private:
    QString m_nombre;
};
