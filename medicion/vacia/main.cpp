// SPDX-License-Identifier: MIT
// The yardstick of the start: a window of the same size with nothing in it.
//
//   bench-vacia --desde SECONDS [--palabra]
//
// --desde: when the process was started, of the monotonic clock. --palabra: with one word in it,
// which is what an empty window lacks of the cost of any other: the system's fonts have to be read.
// It prints the same as bench-ventana does of its start.
#include "consumo.h"

#include <QApplication>
#include <QJsonDocument>
#include <QLabel>
#include <QWidget>

#include <cstdio>
#include <optional>

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
    std::optional<QLabel> palabra;
    if (QApplication::arguments().contains(u"--palabra"_s))
        palabra.emplace(u"Parvanel"_s, &ventana);
    ventana.show();
    while (!ventana.dibujada)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const double arranque = consumo::ahora() - QApplication::arguments().value(2).toDouble();
    QCoreApplication::processEvents();
    std::puts(QJsonDocument({{u"arranque"_s, arranque}, {u"enReposo"_s, consumo::memoria()}})
                  .toJson(QJsonDocument::Compact)
                  .constData());
}
