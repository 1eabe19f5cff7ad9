// SPDX-License-Identifier: MIT
// The print panel's handlers of the main window.
#include "FocoPrestado.h"
#include "lineaElegida.h"
#include "platform/Verbos.h"
#include "printing/PanelImpresion.h"
#include "printing/trabajos.h"
#include "shell/CuadroMensaje.h"
#include "shell/Form1.h"
#include "ui_Form1.h"

using namespace Qt::StringLiterals;

namespace {

// What the panel shows for a kind; the last row is for every other kind.
struct FilaTipo {
    QStringView tipo;
    QStringView titulo; // of Label7_2
    bool conPeriodo;
};

constexpr FilaTipo filasTipo[] = {
    {.tipo = u"Boletines", .titulo = u"Imprimir Boletines del Periodo", .conPeriodo = true},
    {.tipo = u"Informe Final",
     .titulo = u"Imprimir Informes Finales del Salon",
     .conPeriodo = false},
    {.tipo = u"Certificado Final",
     .titulo = u"Imprimir Certificados Finales del Salon",
     .conPeriodo = false},
    {.tipo = u"Paz Y Salvos", .titulo = u"Imprimir Paz y salvos", .conPeriodo = false},
};

// Observer reports, enrolment sheets and work sheets have no caption of their own, although they
// can be printed.
constexpr FilaTipo otroTipo = {
    .tipo = u"", .titulo = u"Seleccione que Imprimir", .conPeriodo = false};

class PanelDeForm1 : public PanelImpresion {
public:
    PanelDeForm1(QWidget *ventana, Ui::Form1 &ui, const EmpezarFaena &empezarFaena)
        : m_ventana(ventana), m_ui(ui), m_empezarFaena(empezarFaena),
          m_botones({ui.Option2_0, ui.Option2_1, ui.Command2}, ui.Option1_2)
    {
    }

    QString lineaSalon() const override { return lineaElegida(*m_ui.List1); }
    int periodo() const override { return m_ui.Combo1->currentIndex() + 1; }
    bool descargarEImprimir() const override { return m_ui.Option2_0->isChecked(); }
    void mensaje(const QString &texto) override { cuadroMensaje(m_ventana, texto); }

    void empezar(int maximo) override
    {
        m_ui.Barra3->ponerMaximo(maximo);
        m_ui.Barra3->ponerValor(0);
        m_ui.Barra3->setVisible(true);
        m_botones.esconder();
        m_faena = m_empezarFaena(u"Se está imprimiendo un lote de documentos"_s,
                                 [this] { return m_ui.Barra3->parte(); });
    }
    void avanzar() override { m_ui.Barra3->avanzar(); }
    void terminar() override
    {
        m_faena.reset();
        m_ui.Barra3->setVisible(false);
        m_botones.devolver();
    }

private:
    QWidget *m_ventana;
    Ui::Form1 &m_ui;
    const EmpezarFaena &m_empezarFaena;
    Faena m_faena; // while the bar is shown: a box of the checks before that is no work
    FocoPrestado m_botones;
};

} // namespace

void Form1::ComboTipo_Click()
{
    FilaTipo elegida = otroTipo;
    for (const FilaTipo &fila : filasTipo) {
        if (fila.tipo == ui->ComboTipo->currentText())
            elegida = fila;
    }
    ui->Label7_2->setText(elegida.titulo.toString());
    ui->Combo1->setVisible(elegida.conPeriodo);
}

void Form1::Command2_Click()
{
    PanelDeForm1 panel(this, *ui, m_empezarFaena);
    correrTrabajo(ui->ComboTipo->currentText(), m_entorno, panel, m_verbos);
}
