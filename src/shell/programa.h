// The program from the application's start to its end, for the two mains.
#pragma once

#include <QString>

// Names the application, shows the window for the service at `ServiceBase` and turns the event
// loop. A QApplication exists. Does not return once the window has been closed.
int correrPrograma(const QString &ServiceBase);
