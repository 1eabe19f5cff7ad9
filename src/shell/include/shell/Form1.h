// SPDX-License-Identifier: MIT
// The main window: four panels, one for each mode, and the handlers of their elements.
//
// Everything runs on the window's thread. Long runs let the window's other handlers run at their
// yields, so that one may begin within another; each of the three that wait for the service runs
// once at a time, which bounds how deep they nest.
#pragma once

#include "records/tcAlumnos.h"
#include "records/tcMaterias.h"
#include "records/tcSalones.h"
#include "shell/Faenas.h"

#include <QWidget>

#include <functional>
#include <memory>

class QPushButton;
class Verbos;
struct Entorno;

namespace Ui {
class Form1;
}

class Form1 : public QWidget {
    Q_OBJECT
public:
    // `terminar` ends the process; it is called when the window is closed and does not return
    // in the program itself. `entorno` and `verbos` are borrowed and must outlive the window,
    // which writes itself into `entorno.progreso` and so must outlive what runs with it.
    // `empezarFaena` is told of each run and print job; without it nobody is.
    Form1(Entorno &entorno, Verbos &verbos, std::function<void()> terminar,
          EmpezarFaena empezarFaena = sinAnunciar);
    ~Form1() override;

    // Fills the list of local archives.
    void cargaListaHistoricos();

    tcSalones Salones;
    tcAlumnos Alumnos;
    std::unique_ptr<tcMaterias> Materias; // made on first use; its event is not handled

protected:
    void closeEvent(QCloseEvent *suceso) override;
    // A key that is held down presses a button once: what its repetitions would begin after that
    // (one more login, the whole classroom on paper again) nobody has asked for.
    // The wheel scrolls the panel over a drop-down list as elsewhere: what it would choose there,
    // another kind of document or another period, nobody would notice before it is on paper.
    bool eventFilter(QObject *objeto, QEvent *suceso) override;

private:
    void Form_Load();
    void Form_QueryUnload();
    void Option1_Click(int indice);
    void Salones_nuevaDescarga(const QString &elem);
    void Alumnos_nuevaDescarga(const QString &elem);
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void ComboTipo_Click();
    void lstHistoricos_Click();

    // Tells why a login was refused, and has the password ready to be typed again.
    void rechazar(const QString &motivo);

    static Faena sinAnunciar(const QString & /*motivo*/, const Avance & /*avance*/) { return {}; }
    // Of the run that began when barra1 had been begun so often.
    double avanceDescarga(int comienzosDeAntes) const;
    void unirElementos();
    void disponer();
    // Ties a button to its handler. A press that comes while that very handler runs (a held key,
    // a double click) does nothing: it would be a second login, run or print job inside the first.
    void atenderDeAUna(QPushButton *boton, void (Form1::*manejador)());

    Entorno &m_entorno;
    Verbos &m_verbos;
    std::function<void()> m_terminar;
    EmpezarFaena m_empezarFaena;
    std::unique_ptr<Ui::Form1> ui;
};
