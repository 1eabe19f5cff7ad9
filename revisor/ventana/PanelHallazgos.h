// SPDX-License-Identifier: MIT
// A list of findings to be looked through: grouped, searched, one of them told in full.
#pragma once

#include "Renglon.h"

#include <QWidget>

#include <memory>

class ModeloHallazgos;

namespace Ui {
class PanelHallazgos;
}

class PanelHallazgos : public QWidget {
    Q_OBJECT
public:
    explicit PanelHallazgos(QWidget *padre = nullptr);
    ~PanelHallazgos() override;

    // What the list is called for who does not see it.
    void llamar(const QString &nombre);
    // Shows these instead of what was there; the search is emptied, the grouping stays.
    void poner(const QList<Renglon> &renglones);
    // The finding that is chosen; null when none is. Valid until the next `poner`.
    const Renglon *elegido() const;

Q_SIGNALS:
    void cambioElElegido();
    // Return or a double click on a finding.
    void activado();

private:
    void agrupar();
    void buscar(const QString &texto);
    // Makes a change of the model's after which the chosen finding is chosen again, if it is
    // still among those shown.
    template <typename Cambio>
    void sinPerderElElegido(const Cambio &cambio);
    void mostrarGrupos();
    void ajustarColumnas();
    void contar();

    std::unique_ptr<Ui::PanelHallazgos> ui;
    ModeloHallazgos *m_modelo;
};
