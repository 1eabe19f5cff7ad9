// SPDX-License-Identifier: MIT
// The program itself, put together as it always is, as a process that a test may end in the middle:
// it logs in, downloads the archive below HOME and ends when the box says that it is done. The
// pauses alone are left out.
//
//   ventana-que-descarga BASE
#include "platform/HttpClient.h"
#include "shell/Form1.h"
#include "shell/Montaje.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

class CierraCuadros : public QObject {
    bool eventFilter(QObject *objeto, QEvent *suceso) override
    {
        auto *cuadro =
            suceso->type() == QEvent::Show ? qobject_cast<QMessageBox *>(objeto) : nullptr;
        if (cuadro)
            std::_Exit(cuadro->text() == u"Listo Historico" ? EXIT_SUCCESS : EXIT_FAILURE);
        return false;
    }
};

} // namespace

int main(int cuantos, char *argumentos[])
{
    QApplication aplicacion(cuantos, argumentos);
    CierraCuadros cuadros;
    aplicacion.installEventFilter(&cuadros);
    Montaje montaje({.ServiceBase = QApplication::arguments().value(1),
                     .autoridades = HttpClient::autoridadesDelSistema(),
                     .pausa = [](std::chrono::nanoseconds) {},
                     .terminar =
                         [] {
                             std::_Exit(EXIT_FAILURE);
                         }});
    Form1 &ventana = montaje.ventana();
    ventana.show();
    QTimer::singleShot(0, &ventana, [&] {
        ventana.findChild<QLineEdit *>(u"txtUser"_s)->setText(u"secretaria"_s);
        ventana.findChild<QLineEdit *>(u"txtPwd"_s)->setText(u"demo2010"_s);
        ventana.findChild<QPushButton *>(u"Command1"_s)->click();
        ventana.findChild<QRadioButton *>(u"Option1_1"_s)->click();
        ventana.findChild<QPushButton *>(u"Command3"_s)->click();
    });
    return QApplication::exec();
}
