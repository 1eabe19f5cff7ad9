// SPDX-License-Identifier: MIT
#include "PanelHallazgos.h"
#include "ModeloHallazgos.h"
#include "ui_PanelHallazgos.h"

#include <QHeaderView>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

// Up to so many findings are all seen at once; of more the groups are shown first.
constexpr int conTodoAbierto = 200;
constexpr int renglonesDelDetalle = 6;

} // namespace

PanelHallazgos::PanelHallazgos(QWidget *padre)
    : QWidget(padre), ui(std::make_unique<Ui::PanelHallazgos>()),
      m_modelo(new ModeloHallazgos(this))
{
    ui->setupUi(this);
    ui->arbol->setModel(m_modelo);
    ui->arbol->header()->setStretchLastSection(true);
    const int renglon = ui->textoDetalle->fontMetrics().lineSpacing();
    ui->textoDetalle->setFixedHeight(renglonesDelDetalle * renglon + 2 * renglon / 3);
    ui->rotuloNinguno->setVisible(false);

    connect(ui->opcionSalon, &QRadioButton::toggled, this, &PanelHallazgos::agrupar);
    connect(ui->cajaBuscar, &QLineEdit::textChanged, this, &PanelHallazgos::buscar);
    connect(ui->arbol->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &PanelHallazgos::contar);
    connect(ui->arbol, &QTreeView::doubleClicked, this, [this] {
        if (elegido() != nullptr)
            activado();
    });
    for (const int tecla : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *atajo =
            new QShortcut(QKeySequence(tecla), ui->arbol, nullptr, nullptr, Qt::WidgetShortcut);
        atajo->setAutoRepeat(false);
        connect(atajo, &QShortcut::activated, this, [this] {
            const QModelIndex actual = ui->arbol->currentIndex();
            if (elegido() != nullptr)
                activado();
            else if (actual.isValid())
                ui->arbol->setExpanded(actual, !ui->arbol->isExpanded(actual));
        });
    }
}

PanelHallazgos::~PanelHallazgos() = default;

void PanelHallazgos::llamar(const QString &nombre)
{
    ui->arbol->setAccessibleName(nombre);
}

void PanelHallazgos::poner(const QList<Renglon> &renglones)
{
    ui->cajaBuscar->clear();
    m_modelo->poner(renglones);
    mostrarGrupos();
    ajustarColumnas();
    // The first one is told in full, so that one sees what the text below the list is for.
    ui->arbol->setCurrentIndex(m_modelo->index(0, 0, m_modelo->index(0, 0)));
    contar();
}

const Renglon *PanelHallazgos::elegido() const
{
    return m_modelo->renglon(ui->arbol->currentIndex());
}

void PanelHallazgos::agrupar()
{
    sinPerderElElegido([this] {
        m_modelo->agrupar(ui->opcionSalon->isChecked() ? ModeloHallazgos::Agrupado::PorSalon
                                                       : ModeloHallazgos::Agrupado::PorClase);
    });
    ajustarColumnas();
}

void PanelHallazgos::buscar(const QString &texto)
{
    sinPerderElElegido([&] { m_modelo->buscar(texto); });
}

template <typename Cambio>
void PanelHallazgos::sinPerderElElegido(const Cambio &cambio)
{
    const Renglon *antes = elegido();
    cambio();
    mostrarGrupos();
    if (antes != nullptr)
        ui->arbol->setCurrentIndex(m_modelo->indiceDe(antes));
    contar();
}

void PanelHallazgos::mostrarGrupos()
{
    for (int grupo = 0; grupo < m_modelo->rowCount(); ++grupo)
        ui->arbol->setFirstColumnSpanned(grupo, {}, true);
    if (m_modelo->mostrados() <= conTodoAbierto)
        ui->arbol->expandAll();
    ui->rotuloNinguno->setVisible(m_modelo->mostrados() == 0);
}

// What the groups say already needs no column.
void PanelHallazgos::ajustarColumnas()
{
    const bool porSalon = ui->opcionSalon->isChecked();
    ui->arbol->setColumnHidden(ModeloHallazgos::Salon, porSalon);
    ui->arbol->setColumnHidden(ModeloHallazgos::Que, !porSalon);
    const int letra = ui->arbol->fontMetrics().averageCharWidth();
    ui->arbol->setColumnWidth(ModeloHallazgos::Quien, 42 * letra);
    ui->arbol->setColumnWidth(ModeloHallazgos::Salon, 14 * letra);
    ui->arbol->setColumnWidth(ModeloHallazgos::Que, 39 * letra);
    ui->arbol->setColumnWidth(ModeloHallazgos::Detalle, 18 * letra);
}

void PanelHallazgos::contar()
{
    const Renglon *uno = elegido();
    QStringList renglones;
    if (uno != nullptr) {
        const bool conId = !uno->id.isEmpty() && uno->id != uno->quien;
        QStringList deQuien{conId ? u"%1 (%2)"_s.arg(uno->quien, uno->id) : uno->quien, uno->salon};
        deQuien.removeAll(QString());
        renglones = {deQuien.join(u", "_s), uno->que, uno->detalle, uno->archivo};
        renglones.removeAll(QString());
        renglones.append(u"Qué hacer: "_s + uno->queHacer);
    }
    ui->textoDetalle->setPlainText(renglones.join(u'\n'));
    cambioElElegido();
}
