// SPDX-License-Identifier: MIT
#include "shell/Form1.h"
#include "Teclado.h"
#include "archive/historico.h"
#include "ingreso.h"
#include "lineaElegida.h"
#include "listaHistoricos.h"
#include "platform/Verbos.h"
#include "service/archivos.h"
#include "shell/CuadroMensaje.h"
#include "ui_Form1.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int twipsPorPixel = 15; // at 96 dpi
constexpr int anchoTwips = 9350;
constexpr int altoTwips = 7260;
// What a desktop puts around a window, at the most that one meets; before the window is shown
// nobody knows.
constexpr QSize marco(16, 40);

} // namespace

Form1::Form1(Entorno &entorno, Verbos &verbos, std::function<void()> terminar,
             EmpezarFaena empezarFaena)
    : Salones(entorno), Alumnos(entorno), m_entorno(entorno), m_verbos(verbos),
      m_terminar(std::move(terminar)), m_empezarFaena(std::move(empezarFaena)),
      ui(std::make_unique<Ui::Form1>())
{
    ui->setupUi(this);
    unirElementos();
    Form_Load();
}

Form1::~Form1()
{
    m_entorno.progreso = Progreso();
}

// Ties the elements to their handlers and to the handle that the download procedures write.
void Form1::unirElementos()
{
    m_entorno.progreso = {.barra1 = ui->barra1,
                          .barra2 = ui->barra2,
                          .estadoTS = ui->estadoTS,
                          .estadoHS = ui->estadoHS};
    ui->Dir1->ponerDisco(&m_entorno.disco);
    disponer();

    const QList<QRadioButton *> modos = {ui->Option1_0, ui->Option1_1, ui->Option1_2,
                                         ui->Option1_3};
    for (int indice = 0; indice < modos.size(); ++indice)
        connect(modos[indice], &QRadioButton::toggled, this, [this, indice](bool elegido) {
            if (elegido)
                Option1_Click(indice);
        });
    new Teclado(this, modos, {ui->List1, ui->lstHistoricos});

    connect(&Salones, &tcSalones::nuevaDescarga, this, &Form1::Salones_nuevaDescarga);
    connect(&Salones, &tcSalones::nuevaLinea, this,
            [this](const QString &linea) { ui->List1->addItem(linea); });
    connect(&Alumnos, &tcAlumnos::nuevaDescarga, this, &Form1::Alumnos_nuevaDescarga);

    atenderDeAUna(ui->Command1, &Form1::Command1_Click);
    atenderDeAUna(ui->Command2, &Form1::Command2_Click);
    atenderDeAUna(ui->Command3, &Form1::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &Form1::Command4_Click);
    const QList<QWidget *> conReturn = {ui->txtUser, ui->txtPwd, ui->Command1, ui->Command2,
                                        ui->Command3};
    for (QWidget *elemento : conReturn)
        elemento->installEventFilter(this);
    for (QComboBox *lista : {ui->ComboTipo, ui->Combo1})
        lista->installEventFilter(this);
    connect(ui->txtUser, &QLineEdit::returnPressed, ui->Command1, &QPushButton::click);
    connect(ui->txtPwd, &QLineEdit::returnPressed, ui->Command1, &QPushButton::click);
    connect(ui->ComboTipo, &QComboBox::activated, this, &Form1::ComboTipo_Click);
    // By mouse or by keyboard; a list that only gets the focus has nothing chosen yet.
    connect(ui->lstHistoricos, &QListWidget::itemSelectionChanged, this, [this] {
        if (!ui->lstHistoricos->selectedItems().isEmpty())
            lstHistoricos_Click();
    });
}

// What the form's file cannot say.
void Form1::disponer()
{
    for (RotuloPlegado *estado : {ui->estadoTS, ui->estadoHS})
        estado->apagar(true);
    for (QLabel *detalle : {static_cast<QLabel *>(ui->Label6_2), ui->Label3})
        detalle->setForegroundRole(QPalette::PlaceholderText);
    // What comes and goes leaves its place empty, so that nothing else jumps.
    const QList<QWidget *> conLugar = {ui->Label5, ui->Combo1,   ui->Option2_0, ui->Option2_1,
                                       ui->Barra3, ui->Command2, ui->Command3};
    for (QWidget *elemento : conLugar) {
        QSizePolicy trato = elemento->sizePolicy();
        trato.setRetainSizeWhenHidden(true);
        elemento->setSizePolicy(trato);
    }
    // The focus also goes to where no Tab leads it.
    connect(qApp, &QApplication::focusChanged, ui->cuerpo,
            [cuerpo = ui->cuerpo, rollo = ui->rollo](QWidget *, QWidget *ahora) {
                if (ahora && cuerpo->isAncestorOf(ahora))
                    rollo->ensureWidgetVisible(ahora);
            });
}

void Form1::atenderDeAUna(QPushButton *boton, void (Form1::*manejador)())
{
    connect(boton, &QPushButton::clicked, this, [this, manejador, enCurso = false]() mutable {
        if (enCurso)
            return;
        const QScopedValueRollback curso(enCurso, true);
        (this->*manejador)();
    });
}

bool Form1::eventFilter(QObject *objeto, QEvent *suceso)
{
    if (suceso->type() == QEvent::Wheel) {
        suceso->ignore(); // the panel's
        return true;
    }
    if (suceso->type() != QEvent::KeyPress)
        return QWidget::eventFilter(objeto, suceso);
    const auto *tecla = static_cast<QKeyEvent *>(suceso);
    const bool presiona = tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter;
    return presiona && tecla->isAutoRepeat();
}

void Form1::Form_Load()
{
    // A request made before a login would carry this as the school's id.
    m_entorno.sesion.idColegio = u"ERROR"_s;
    resize(QSize(anchoTwips / twipsPorPixel, altoTwips / twipsPorPixel)
               .boundedTo(screen()->availableSize() - marco));
    // The four panels share one cell of the window's layout: which one is seen is decided by
    // their visibility alone.
    const QList<QWidget *> ocultos = {ui->Frame2,    ui->Frame3,    ui->Frame4, ui->Option1_1,
                                      ui->Option1_2, ui->Option1_3, ui->Label5, ui->barra1,
                                      ui->barra2,    ui->Barra3,    ui->Dir1};
    for (QWidget *elemento : ocultos)
        elemento->setVisible(false);
    ui->txtUser->setFocus();
    cargaListaHistoricos();
}

void Form1::Option1_Click(int indice)
{
    const QList<QFrame *> paneles = {ui->Frame1, ui->Frame2, ui->Frame3, ui->Frame4};
    for (QFrame *panel : paneles)
        panel->setVisible(false);
    if (indice >= 0 && indice < paneles.size())
        paneles[indice]->setVisible(true);
    ui->rollo->verticalScrollBar()->setValue(0); // a panel is read from its top
}

void Form1::Salones_nuevaDescarga(const QString &elem)
{
    ceder();
    ui->estadoHS->ponerTexto(elem);
}

// Without a yield, unlike the classrooms' handler: a job that began in it would send its requests
// between a student's text and the request which that text announces.
void Form1::Alumnos_nuevaDescarga(const QString &elem)
{
    ui->estadoHS->ponerTexto(elem);
}

void Form1::closeEvent(QCloseEvent *suceso)
{
    suceso->accept();
    Form_QueryUnload();
}

// The process ends at once, whatever is running; files written in part stay as they are.
void Form1::Form_QueryUnload()
{
    m_terminar();
}

void Form1::Command1_Click()
{
    switch (ingreso::conectar(m_entorno, ui->txtUser->text(), ui->txtPwd->text())) {
    case ingreso::Resultado::CredencialesMalas:
        rechazar(u"Usuario y/o Contraseña incorrectas, intentelo de nuevo"_s);
        return;
    case ingreso::Resultado::RolInadecuado:
        rechazar(u"Nivel de acceso inadecuado, se requiere Usuario y "
                 "Pasword de Secretaria"_s);
        return;
    case ingreso::Resultado::Aceptado:
        break;
    }
    ui->Command1->setEnabled(false);
    ui->Label5->setText(ui->Label5->text() + m_entorno.sesion.idColegio);
    ui->Label5->setVisible(true);
    for (QRadioButton *modo : {ui->Option1_1, ui->Option1_2, ui->Option1_3})
        modo->setVisible(true);
    ui->txtUser->setEnabled(false);
    ui->txtPwd->setEnabled(false);
    ingreso::cargarSalones(m_entorno, Salones);
}

// What is typed next is another password.
void Form1::rechazar(const QString &motivo)
{
    cuadroMensaje(this, motivo);
    ui->txtPwd->setFocus();
    ui->txtPwd->selectAll();
}

void Form1::Command3_Click()
{
    for (QLabel *aviso : {ui->Label6_3, ui->Label6_10, ui->Label6_8, ui->Label6_9})
        aviso->setVisible(false);
    ui->aviso->setVisible(false); // what they stand on
    ui->barra1->setVisible(true);
    ui->barra2->setVisible(true);
    ui->Command3->setVisible(false);
    ui->Command2->setVisible(true);
    ui->Command4->setVisible(true);
    ceder();
    {
        const Faena faena = m_empezarFaena(
            u"Se está descargando un histórico"_s,
            [this, comienzos = ui->barra1->comienzos()] { return avanceDescarga(comienzos); });
        descargarHistorico(m_entorno, Salones, Alumnos, Materias);
    } // before the box, which may stand there all night
    cargaListaHistoricos();
    cuadroMensaje(this, u"Listo Historico"_s);
}

// By lists and not by barra2, which is full before the photos and the labels, the longest of all.
double Form1::avanceDescarga(int comienzosDeAntes) const
{
    const int empezadas = ui->barra1->comienzos() - comienzosDeAntes;
    return empezadas > 0 ? (empezadas - 1 + ui->barra1->parte()) / listasDeUnaCorrida : 0;
}

void Form1::cargaListaHistoricos()
{
    ui->Dir1->Path(u"C:\\Quorvela"_s);
    ui->Dir1->Refresh();
    ceder();
    ui->lstHistoricos->clear();
    for (int fila = 0, cuantas = ui->Dir1->count(); fila < cuantas; ++fila)
        ui->lstHistoricos->addItem(ui->Dir1->item(fila)->text());
}

void Form1::lstHistoricos_Click()
{
    ui->Command4->setEnabled(true);
}

void Form1::Command4_Click()
{
    m_verbos.abrir(m_entorno.disco.rutaNativa(portadaDe(lineaElegida(*ui->lstHistoricos))));
}
