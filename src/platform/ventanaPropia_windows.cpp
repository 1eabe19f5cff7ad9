// SPDX-License-Identifier: MIT
#include "ventanaPropia_windows.h"

#include <QGuiApplication>
#include <QWindow>

HWND__ *ventanaPropia()
{
    const QWindowList ventanas = QGuiApplication::topLevelWindows();
    for (const QWindow *ventana : ventanas) {
        if (ventana->isVisible() && ventana->type() == Qt::Window
            && ventana->transientParent() == nullptr)
            return reinterpret_cast<HWND__ *>(ventana->winId());
    }
    return nullptr;
}
