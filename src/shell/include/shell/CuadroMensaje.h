// SPDX-License-Identifier: MIT
// The program's message boxes.
#pragma once

#include <QString>

class QWidget;

// Shows the text as plain text in a box with one OK button, titled with the application's name,
// and returns when it has been closed. Meanwhile the window takes no input, but can be closed:
// that ends the process, so that `ventana` outlives the call.
void cuadroMensaje(QWidget *ventana, const QString &texto);
