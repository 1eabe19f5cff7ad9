// SPDX-License-Identifier: MIT
// The yardstick of the start: a window of the same size with nothing in it.
//
//   bench-vacia --desde SECONDS    when the process was started, of the monotonic clock
//
// It prints the same as bench-ventana does of its start.
#include "consumo.h"

#include <QApplication>
#include <QJsonDocument>
#include <QWidget>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

class Vacia : public QWidget {
public:
    bool dibujada = false;

protected:
    void paintEvent(QPaintEvent *) override { dibujada = true; }
};

} // namespace

int main(int cuantos, char *argumentos[])
{
    QApplication aplicacion(cuantos, argumentos);
    Vacia ventana;
    ventana.resize(623, 484);
    ventana.show();
    while (!ventana.dibujada)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const double arranque = consumo::ahora() - QApplication::arguments().value(2).toDouble();
    QCoreApplication::processEvents();
    std::puts(QJsonDocument({{u"arranque"_s, arranque}, {u"enReposo"_s, consumo::memoria()}})
                  .toJson(QJsonDocument::Compact)
                  .constData());
}
