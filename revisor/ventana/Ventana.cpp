// SPDX-License-Identifier: MIT
#include "Ventana.h"
#include "PanelHallazgos.h"
#include "Renglon.h"
#include "platform/DriveC.h"
#include "platform/Verbos.h"
#include "revisor/informe.h"
#include "rutas.h"
#include "ui_Ventana.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QRegularExpression>
#include <QScreen>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize tamanoDeseado(980, 660);
// A disk that answers lets a job end within the reading of one file.
constexpr std::chrono::seconds plazoDelFinal(5);
constexpr int pasosDeLaBarra = 1000;
constexpr int rutaPropia = Qt::UserRole; // of a line that stands for any folder: its native path

// Of the lines of the archive root the last year's: the last one that ends as an archive's name
// does, "123-2010".
int elMasReciente(const QStringList &lineas)
{
    const QRegularExpression deUnAno(u".*-\\d{4}"_s);
    const auto fila = static_cast<int>(lineas.lastIndexOf(deUnAno));
    return fila >= 0 ? fila : static_cast<int>(lineas.size()) - 1;
}

QString textoDeFicha(const QString &titulo, qsizetype cuantos)
{
    return u"%1 (%2)"_s.arg(titulo, conPuntos(cuantos));
}

} // namespace

Ventana::Ventana(const DriveC &disco, Verbos &verbos, std::function<void()> terminar)
    : m_disco(disco), m_verbos(verbos), m_terminar(std::move(terminar)),
      ui(std::make_unique<Ui::Ventana>())
{
    ui->setupUi(this);
    QFont grande = ui->rotuloVeredicto->font();
    grande.setPointSizeF(QFontInfo(grande).pointSizeF() * 2);
    grande.setBold(true);
    ui->rotuloVeredicto->setFont(grande);
    ui->rotuloAviso->setBackgroundRole(QPalette::ToolTipBase);
    ui->rotuloAviso->setForegroundRole(QPalette::ToolTipText);
    unirElementos();
    unirFichas();
    decir({u"pregunta", ui->rotuloVeredicto->text(), ui->rotuloFrase->text(), {}});
    avisar({});
    alTerminar();
    llenarLista();
    ponerTamano();
    ui->listaHistoricos->setFocus();
}

Ventana::~Ventana() = default;

void Ventana::unirElementos()
{
    connect(ui->botonRevisar, &QPushButton::clicked, this, &Ventana::revisar);
    connect(ui->botonOtraCarpeta, &QPushButton::clicked, this, &Ventana::pedirCarpeta);
    connect(ui->botonDetener, &QPushButton::clicked, this, [this] {
        ui->botonDetener->setEnabled(false);
        m_tarea.detener();
    });
    connect(ui->botonAbrir, &QPushButton::clicked, this, &Ventana::abrirPagina);
    connect(ui->botonInforme, &QPushButton::clicked, this, [this] {
        pedirDestino(u"Guardar informe"_s, u"Informe "_s + m_resultado->nombre, u"html"_s,
                     &Ventana::guardarInforme);
    });
    connect(ui->botonCopia, &QPushButton::clicked, this, [this] {
        pedirDestino(u"Guardar copia"_s, m_resultado->nombre, u"zip"_s, &Ventana::guardarCopia);
    });
    auto *deQue = new QMenu(ui->botonComprobar);
    deQue->addAction(u"Un archivo &ZIP…"_s, this, &Ventana::pedirZip);
    deQue->addAction(u"Una &carpeta sacada del ZIP…"_s, this, &Ventana::pedirCarpetaDeCopia);
    ui->botonComprobar->setMenu(deQue);

    // What a double click does, Return does as well; a press that is held does it once.
    connect(ui->listaHistoricos, &QListWidget::itemDoubleClicked, this, &Ventana::revisar);
    for (const int tecla : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *atajo = new QShortcut(QKeySequence(tecla), ui->listaHistoricos, nullptr, nullptr,
                                    Qt::WidgetShortcut);
        atajo->setAutoRepeat(false);
        connect(atajo, &QShortcut::activated, this, &Ventana::revisar);
    }
    connect(ui->listaHistoricos, &QListWidget::itemSelectionChanged, this,
            &Ventana::actualizarBotones);
    m_luego.setSingleShot(true);
    connect(&m_luego, &QTimer::timeout, this, [this] { ui->rollo->ensureWidgetVisible(m_porVer); });
    connect(&m_tarea, &Tarea::avanzo, this, &Ventana::alAvanzar);
    connect(&m_tarea, &Tarea::termino, this, &Ventana::alTerminar);
    const auto botones = findChildren<QPushButton *>();
    for (QPushButton *boton : botones)
        boton->installEventFilter(this);
}

void Ventana::unirFichas()
{
    ui->panelFaltas->llamar(u"Faltas y daños"_s);
    ui->panelNotas->llamar(u"Notas"_s);
    for (PanelHallazgos *panel : {ui->panelFaltas, ui->panelNotas}) {
        connect(panel, &PanelHallazgos::cambioElElegido, this, &Ventana::actualizarBotones);
        connect(panel, &PanelHallazgos::activado, ui->botonAbrir, &QPushButton::click);
    }
    connect(ui->fichas, &QTabWidget::currentChanged, this, &Ventana::actualizarBotones);
    auto *titulos = ui->tablaSecciones->header();
    titulos->setStretchLastSection(false);
    titulos->setSectionResizeMode(0, QHeaderView::Stretch);
    for (int columna = 1; columna < ui->tablaSecciones->columnCount(); ++columna) {
        titulos->setSectionResizeMode(columna, QHeaderView::ResizeToContents);
        ui->tablaSecciones->headerItem()->setTextAlignment(columna,
                                                           Qt::AlignRight | Qt::AlignVCenter);
    }
}

// The frame of the window belongs to it as well, and is not known before it is shown.
void Ventana::ponerTamano()
{
    const QSize marco(2 * fontMetrics().averageCharWidth(), 3 * fontMetrics().height());
    resize(tamanoDeseado.boundedTo(screen()->availableSize() - marco));
}

void Ventana::llenarLista()
{
    const QListWidgetItem *elegido = ui->listaHistoricos->currentItem();
    const QString antes = elegido != nullptr ? elegido->text() : QString();
    const QStringList lineas = m_disco.carpetas(u"C:\\Quorvela"_s).value_or(QStringList());
    QList<QListWidgetItem *> otras;
    for (int fila = ui->listaHistoricos->count() - 1; fila >= 0; --fila) {
        QListWidgetItem *linea = ui->listaHistoricos->takeItem(fila);
        if (linea->data(rutaPropia).isValid())
            otras.prepend(linea);
        else
            delete linea;
    }
    ui->listaHistoricos->addItems(lineas);
    for (QListWidgetItem *linea : otras)
        ui->listaHistoricos->addItem(linea);
    const auto hallados = ui->listaHistoricos->findItems(antes, Qt::MatchExactly);
    if (!hallados.isEmpty())
        ui->listaHistoricos->setCurrentItem(hallados.first());
    else if (antes.isEmpty() && !lineas.isEmpty())
        ui->listaHistoricos->setCurrentRow(elMasReciente(lineas));
    ui->rotuloSinHistoricos->setVisible(lineas.isEmpty());
    actualizarBotones();
}

void Ventana::agregarCarpeta(const QString &carpeta)
{
    auto *linea = new QListWidgetItem(informe::legible(QDir::toNativeSeparators(carpeta)),
                                      ui->listaHistoricos);
    linea->setData(rutaPropia, carpeta);
    ui->listaHistoricos->setCurrentItem(linea);
    ui->botonRevisar->setFocus();
}

PanelHallazgos *Ventana::panelALaVista() const
{
    return qobject_cast<PanelHallazgos *>(ui->fichas->currentWidget());
}

void Ventana::actualizarBotones()
{
    const bool libre = !m_tarea.enCurso();
    ui->botonRevisar->setEnabled(libre && !ui->listaHistoricos->selectedItems().isEmpty());
    ui->botonOtraCarpeta->setEnabled(libre);
    ui->botonComprobar->setEnabled(libre);
    ui->filaBotones->setVisible(m_resultado.has_value());
    ui->botonInforme->setEnabled(libre);
    ui->botonCopia->setEnabled(libre);
    const PanelHallazgos *panel = panelALaVista();
    const Renglon *elegido = panel != nullptr ? panel->elegido() : nullptr;
    ui->botonAbrir->setEnabled(elegido != nullptr && !elegido->ruta.isEmpty()
                               && QFileInfo(elegido->ruta).isFile());
}

void Ventana::abrirPagina()
{
    m_verbos.abrir(panelALaVista()->elegido()->ruta);
}

void Ventana::revisar()
{
    const auto elegidos = ui->listaHistoricos->selectedItems();
    if (m_tarea.enCurso() || elegidos.isEmpty())
        return;
    const QListWidgetItem *linea = elegidos.first();
    const QVariant propia = linea->data(rutaPropia);
    // A line of the archive root means that very folder, whatever its name.
    const QString carpeta =
        propia.isValid() ? propia.toString()
                         : QFileInfo(m_disco.rutaNativa(linea->text() + u"/index.html"_s)).path();
    m_resultado.reset();
    ui->fichas->hide();
    decir({u"pregunta", u"Revisando…"_s, linea->text(), {}});
    empezar({}, [this, carpeta](const std::stop_token &parar, Tarea::Marca &marca) {
        const Resultado resultado = ::revisar(
            rutas::deTexto(carpeta),
            [&marca](std::size_t hechos, std::size_t total) {
                marca.poner(static_cast<qint64>(hechos), static_cast<qint64>(total));
            },
            parar);
        return [this, resultado] {
            mostrar(resultado);
        };
    });
}

void Ventana::mostrar(const Resultado &resultado)
{
    const bool esHistorico = resultado.veredicto == Veredicto::Completo
                             || resultado.veredicto == Veredicto::FaltanDocumentos;
    const QString nombre = ui->rotuloFrase->text();
    decir(palabrasDe(resultado, nombre));
    if (esHistorico) {
        m_resultado = resultado;
        const QList<Renglon> notas = renglonesDeNotas(resultado);
        ui->panelNotas->poner(notas);
        ui->fichas->setTabVisible(1, !notas.isEmpty());
        ui->fichas->setTabText(1, textoDeFicha(u"&Notas"_s, notas.size()));
        ui->fichas->setTabVisible(2, true);
        mostrarSecciones(resultado);
        mostrarFaltas(renglonesDeFaltas(resultado), u"&Faltas y daños"_s);
    }
    actualizarBotones();
    anunciar(ui->rotuloVeredicto);
}

void Ventana::mostrarFaltas(const QList<Renglon> &renglones, const QString &titulo)
{
    ui->panelFaltas->poner(renglones);
    ui->fichas->setTabVisible(0, !renglones.isEmpty());
    ui->fichas->setTabText(0, textoDeFicha(titulo, renglones.size()));
    ui->fichas->setCurrentIndex(renglones.isEmpty() ? 2 : 0);
    ui->fichas->show();
}

void Ventana::mostrarSecciones(const Resultado &resultado)
{
    ui->tablaSecciones->clear();
    for (const Seccion &seccion : resultado.secciones) {
        auto *linea = new QTreeWidgetItem(ui->tablaSecciones);
        linea->setText(0, informe::legible(seccion.nombre));
        int columna = 0;
        for (const int numero : {seccion.esperados, seccion.hay, seccion.buenos}) {
            linea->setText(++columna, conPuntos(numero));
            linea->setTextAlignment(columna, Qt::AlignRight | Qt::AlignVCenter);
        }
        QFont letra = ui->tablaSecciones->font();
        letra.setBold(seccion.buenos < seccion.esperados || seccion.buenos < seccion.hay);
        for (columna = 0; columna < ui->tablaSecciones->columnCount(); ++columna)
            linea->setFont(columna, letra);
    }
}

void Ventana::comprobar(const QString &ruta)
{
    if (m_tarea.enCurso())
        return;
    m_resultado.reset();
    ui->fichas->hide();
    const QString nombre = informe::legible(QDir::toNativeSeparators(ruta));
    decir({u"pregunta", u"Comprobando…"_s, nombre, {}});
    empezar({}, [this, ruta, nombre](const std::stop_token &parar, Tarea::Marca &marca) {
        const copia::Comprobacion comprobacion = copia::comprobar(
            rutas::deTexto(ruta),
            [&marca](qint64 hechos, qint64 total) { marca.poner(hechos, total); }, parar);
        return [this, comprobacion, nombre] {
            mostrarComprobacion(comprobacion, nombre);
        };
    });
}

void Ventana::mostrarComprobacion(const copia::Comprobacion &comprobacion, const QString &nombre)
{
    decir(palabrasDe(comprobacion, nombre));
    if (!comprobacion.diferencias.isEmpty()) {
        ui->fichas->setTabVisible(1, false);
        ui->fichas->setTabVisible(2, false);
        mostrarFaltas(renglonesDe(comprobacion), u"Di&ferencias"_s);
    }
    actualizarBotones();
    anunciar(ui->rotuloVeredicto);
}

void Ventana::decir(const Palabras &palabras)
{
    ui->dibujoVeredicto->poner(u":/revisor/iconos/%1"_s.arg(QStringView(palabras.dibujo)));
    ui->rotuloVeredicto->setText(palabras.veredicto);
    ui->rotuloFrase->setText(palabras.frase);
    ui->rotuloResumen->setText(palabras.resumen);
    ui->rotuloResumen->setVisible(!palabras.resumen.isEmpty());
    ui->rotuloVeredicto->setAccessibleName(
        u"%1. %2 %3"_s.arg(palabras.veredicto, palabras.frase, palabras.resumen).trimmed());
    avisar({});
}

void Ventana::avisar(const QString &aviso)
{
    ui->rotuloAviso->setText(aviso);
    ui->rotuloAviso->setVisible(!aviso.isEmpty());
    if (!aviso.isEmpty())
        anunciar(ui->rotuloAviso);
}

// A screen reader tells what gets the focus. It is only moved when the user has nothing else
// under way; the alert is for readers that speak of those.
void Ventana::anunciar(QLabel *rotulo)
{
    QAccessibleEvent alerta(rotulo, QAccessible::Alert);
    QAccessible::updateAccessibility(&alerta);
    if (m_esperado)
        rotulo->setFocus(Qt::OtherFocusReason);
    acercar(rotulo);
}

// Once the layout has made room for it.
void Ventana::acercar(QWidget *elemento)
{
    m_porVer = elemento;
    m_luego.start();
}

void Ventana::empezar(const QString &queSeHace, Tarea::Trabajo trabajo)
{
    avisar({});
    ui->rotuloAvance->setText(queSeHace);
    ui->rotuloAvance->setVisible(!queSeHace.isEmpty());
    ui->barraAvance->setRange(0, 0); // how much there is to do is not known yet
    ui->barraAvance->show();
    ui->botonDetener->setEnabled(true);
    ui->botonDetener->show();
    ui->botonDetener->setFocus();
    acercar(ui->botonDetener);
    m_tarea.empezar(std::move(trabajo));
    actualizarBotones();
}

void Ventana::alAvanzar(qint64 hechos, qint64 total)
{
    if (total <= 0)
        return;
    ui->barraAvance->setRange(0, pasosDeLaBarra);
    ui->barraAvance->setValue(static_cast<int>(static_cast<double>(hechos)
                                               / static_cast<double>(total) * pasosDeLaBarra));
}

void Ventana::alTerminar()
{
    m_esperado = focusWidget() == ui->botonDetener;
    ui->rotuloAvance->hide();
    ui->barraAvance->hide();
    ui->botonDetener->hide();
    if (!m_resultado)
        ui->fichas->hide();
    actualizarBotones();
}

// The window is gone at once. What a job has begun to write goes with it, for which it gets the
// time that a working disk needs.
void Ventana::closeEvent(QCloseEvent *suceso)
{
    m_tarea.detener();
    hide();
    if (!m_tarea.terminaEn(plazoDelFinal))
        m_terminar();
    suceso->accept();
}

// What has been downloaded meanwhile, in the other program, is in the list when one comes back.
void Ventana::changeEvent(QEvent *suceso)
{
    QWidget::changeEvent(suceso);
    if (suceso->type() == QEvent::ActivationChange && isActiveWindow() && !m_tarea.enCurso())
        llenarLista();
}

bool Ventana::eventFilter(QObject *objeto, QEvent *suceso)
{
    if (suceso->type() != QEvent::KeyPress)
        return QWidget::eventFilter(objeto, suceso);
    const auto *tecla = static_cast<QKeyEvent *>(suceso);
    const bool presiona = tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter;
    return presiona && tecla->isAutoRepeat();
}
