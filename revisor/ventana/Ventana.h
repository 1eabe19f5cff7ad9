// SPDX-License-Identifier: MIT
// The reviewer's window: the list of archives, and beside it what is known of the one that was
// reviewed last, or of the copy that was checked last.
//
// One job at a time runs in a thread of its own (`Tarea`); the window never waits for it, and shows
// what it brings when it has ended. The archive that the buttons below the findings mean is the
// one reviewed, whatever the list says meanwhile.
#pragma once

#include "Tarea.h"
#include "palabras.h"

#include <QTimer>
#include <QWidget>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

class DriveC;
class PanelHallazgos;
class QLabel;
class Verbos;
struct Renglon;

namespace Ui {
class Ventana;
}

class Ventana : public QWidget {
    Q_OBJECT
public:
    // `disco` and `verbos` are borrowed and must outlive the window. `terminar` ends the process;
    // it is called when the window has been closed and a job that was asked to stop does not end,
    // since the disk does not answer.
    Ventana(const DriveC &disco, Verbos &verbos, std::function<void()> terminar);
    ~Ventana() override;

    // What becomes of a file that stands where another is to be written.
    enum class Anterior { SeQueda, SeReemplaza };

    // What the buttons do once a person has chosen a file or folder, by its native path.
    void agregarCarpeta(const QString &carpeta);
    void comprobar(const QString &ruta);
    void guardarInforme(const QString &archivo, Anterior anterior);
    void guardarCopia(const QString &archivo, Anterior anterior);

protected:
    void closeEvent(QCloseEvent *suceso) override;
    void changeEvent(QEvent *suceso) override;
    // A key that is held down presses a button once.
    bool eventFilter(QObject *objeto, QEvent *suceso) override;

private:
    void unirElementos();
    void unirFichas();
    void ponerTamano();
    void llenarLista();
    void actualizarBotones();
    PanelHallazgos *panelALaVista() const;

    void revisar();
    void mostrar(const Resultado &resultado);
    void mostrarComprobacion(const copia::Comprobacion &comprobacion, const QString &nombre);
    void mostrarFaltas(const QList<Renglon> &renglones, const QString &titulo);
    void mostrarSecciones(const Resultado &resultado);
    void decir(const Palabras &palabras);
    // Has the text read out by whoever reads the window to its user.
    void anunciar(QLabel *rotulo);
    // Scrolls, where the window is smaller than what it holds, so that the element is seen.
    void acercar(QWidget *elemento);
    void avisar(const QString &aviso);
    void empezar(const QString &queSeHace, Tarea::Trabajo trabajo);
    void alAvanzar(qint64 hechos, qint64 total);
    void alTerminar();

    void abrirPagina();
    void pedirCarpeta();
    void pedirZip();
    void pedirCarpetaDeCopia();
    using Guardar = void (Ventana::*)(const QString &archivo, Anterior anterior);
    void pedirDestino(const QString &titulo, const QString &nombre, const QString &extension,
                      Guardar guardar);
    void guardarSinPisar(const QString &archivo, Guardar guardar);

    const DriveC &m_disco;
    Verbos &m_verbos;
    std::function<void()> m_terminar;
    std::unique_ptr<Ui::Ventana> ui;
    std::optional<Resultado> m_resultado; // of the archive that is shown, if it is one
    QTimer m_luego;                       // until the layout has been worked out
    QWidget *m_porVer = nullptr;          // which is of this window
    bool m_esperado = false;              // whether the user has stayed with the job until its end
    Tarea m_tarea; // after what its jobs' results are put into: it ends before them
};
