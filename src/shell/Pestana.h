// SPDX-License-Identifier: MIT
// A mode's option button, drawn as a tab: its text over a line that is thick under the chosen one.
// All tabs of a row are of one width; where there is little room their texts take several lines.
#pragma once

#include <QRadioButton>

class Pestana : public QRadioButton {
    Q_OBJECT
public:
    explicit Pestana(QWidget *padre = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int ancho) const override;

protected:
    // The whole tab is pressed, not its text alone.
    bool hitButton(const QPoint &lugar) const override;
    void paintEvent(QPaintEvent *suceso) override;
    // The focus is shown to whoever works with the keyboard.
    void focusInEvent(QFocusEvent *suceso) override;
    void keyPressEvent(QKeyEvent *suceso) override;

private:
    int anchoDeLaMayor(bool porPalabras) const;

    bool m_porTeclado = false;
};
