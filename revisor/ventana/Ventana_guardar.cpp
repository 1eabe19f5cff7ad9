// SPDX-License-Identifier: MIT
// What the window asks of the disk: a folder or a copy to look at, a place for a report or a copy.
#include "Ventana.h"
#include "platform/nombresNativos.h"
#include "revisor/copia.h"
#include "revisor/informe.h"
#include "rutas.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QSaveFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QString programa()
{
    return QStringLiteral("parvanel-revisor " PARVANEL_VERSION);
}

QString carpetaDeDocumentos()
{
    const QString documentos = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documentos).isDir()
               ? documentos
               : QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
}

// A dialog of the window's own that is gone once it has been closed; nobody waits for it.
QFileDialog *dialogoDe(QWidget *ventana, const QString &titulo)
{
    auto *dialogo = new QFileDialog(ventana, titulo, carpetaDeDocumentos());
    dialogo->setAttribute(Qt::WA_DeleteOnClose);
    return dialogo;
}

// An archive is only read: a report does not become a part of it.
bool estaDentro(const QString &archivo, const QString &carpeta)
{
    const QString donde = QFileInfo(QFileInfo(archivo).path()).canonicalFilePath();
    return nombresNativos::desdeRaiz(QFileInfo(carpeta).canonicalFilePath(), donde).has_value();
}

// In words what came of writing the report.
QString escribirInforme(const QString &archivo, const Resultado &resultado, bool puedeReemplazar)
{
    if (estaDentro(archivo, rutas::enTexto(resultado.carpeta)))
        return u"No se guardó el informe: elija una carpeta fuera del histórico."_s;
    if (!puedeReemplazar && QFileInfo::exists(archivo))
        return u"No se guardó el informe: ya hay un archivo con ese nombre."_s;
    const QByteArray pagina = informe::enHtml(
        {resultado}, {.programa = programa(), .cuando = QDateTime::currentDateTime()});
    const QString nombre = informe::legible(QDir::toNativeSeparators(archivo));
    QSaveFile salida(archivo);
    if (!salida.open(QIODevice::WriteOnly) || salida.write(pagina) != pagina.size()
        || !salida.commit())
        return u"No se guardó el informe: no se puede escribir %1. Revise que el disco tenga "
               u"espacio y no esté protegido."_s.arg(nombre);
    return u"Informe guardado: "_s + nombre;
}

// What the copy says of itself, and what of the folder is not in it.
QString textoDe(const copia::Guardada &guardada)
{
    QStringList otros;
    for (const copia::Omitido &uno : guardada.omitidos) {
        if (uno.motivo != copia::Omitido::Motivo::Resto)
            otros.append(informe::legible(uno.nombre));
    }
    QString texto = informe::legible(guardada.texto);
    if (guardada.final != copia::Guardada::Final::Hecha || otros.isEmpty())
        return texto;
    constexpr qsizetype losPrimeros = 3;
    const QString nombres = QStringList(otros.mid(0, losPrimeros)).join(u", "_s);
    texto += otros.size() > losPrimeros
                 ? u" No se copiaron, porque no son archivos: %1 y %2 más."_s.arg(
                     nombres, QString::number(otros.size() - losPrimeros))
                 : u" No se copió, porque no es un archivo: %1."_s.arg(nombres);
    return texto;
}

} // namespace

void Ventana::pedirCarpeta()
{
    QFileDialog *dialogo = dialogoDe(this, u"Otra carpeta"_s);
    dialogo->setFileMode(QFileDialog::Directory);
    dialogo->setOption(QFileDialog::ShowDirsOnly);
    connect(dialogo, &QFileDialog::fileSelected, this, &Ventana::agregarCarpeta);
    dialogo->open();
}

void Ventana::pedirZip()
{
    QFileDialog *dialogo = dialogoDe(this, u"Comprobar copia"_s);
    dialogo->setFileMode(QFileDialog::ExistingFile);
    dialogo->setNameFilters({u"Copias (*.zip *.ZIP)"_s, u"Todos los archivos (*)"_s});
    connect(dialogo, &QFileDialog::fileSelected, this, &Ventana::comprobar);
    dialogo->open();
}

void Ventana::pedirCarpetaDeCopia()
{
    QFileDialog *dialogo = dialogoDe(this, u"Comprobar copia"_s);
    dialogo->setFileMode(QFileDialog::Directory);
    dialogo->setOption(QFileDialog::ShowDirsOnly);
    connect(dialogo, &QFileDialog::fileSelected, this, &Ventana::comprobar);
    dialogo->open();
}

void Ventana::pedirDestino(const QString &titulo, const QString &nombre, const QString &extension,
                           Guardar guardar)
{
    QFileDialog *dialogo = dialogoDe(this, titulo);
    dialogo->setAcceptMode(QFileDialog::AcceptSave);
    dialogo->setFileMode(QFileDialog::AnyFile);
    dialogo->setDefaultSuffix(extension);
    dialogo->setNameFilter(u"%1 (*.%1)"_s.arg(extension));
    // Asked here instead, of the name that is really written, with its ending.
    dialogo->setOption(QFileDialog::DontConfirmOverwrite);
    dialogo->selectFile(nombre + u'.' + extension);
    connect(dialogo, &QFileDialog::fileSelected, this,
            [this, guardar](const QString &archivo) { guardarSinPisar(archivo, guardar); });
    dialogo->open();
}

void Ventana::guardarSinPisar(const QString &archivo, Guardar guardar)
{
    if (!QFileInfo::exists(archivo)) {
        (this->*guardar)(archivo, Anterior::SeQueda);
        return;
    }
    auto *pregunta =
        new QMessageBox(QMessageBox::Question, windowTitle(),
                        u"Ya hay un archivo con el nombre %1. ¿Desea reemplazarlo?"_s.arg(
                            informe::legible(QFileInfo(archivo).fileName())),
                        QMessageBox::NoButton, this);
    pregunta->setAttribute(Qt::WA_DeleteOnClose);
    pregunta->setTextFormat(Qt::PlainText);
    auto *si = pregunta->addButton(u"&Reemplazar"_s, QMessageBox::AcceptRole);
    auto *no = pregunta->addButton(u"&Cancelar"_s, QMessageBox::RejectRole);
    pregunta->setDefaultButton(no);
    pregunta->setEscapeButton(no);
    connect(pregunta, &QMessageBox::buttonClicked, this,
            [this, si, archivo, guardar](const QAbstractButton *presionado) {
                if (presionado == si)
                    (this->*guardar)(archivo, Anterior::SeReemplaza);
            });
    pregunta->open();
}

void Ventana::guardarInforme(const QString &archivo, Anterior anterior)
{
    if (m_tarea.enCurso() || !m_resultado)
        return;
    const Resultado &resultado = *m_resultado;
    empezar(u"Guardando el informe…"_s,
            [this, archivo, anterior, resultado](const std::stop_token & /*parar*/,
                                                 Tarea::Marca & /*marca*/) {
                const QString palabras =
                    escribirInforme(archivo, resultado, anterior == Anterior::SeReemplaza);
                return [this, palabras] {
                    avisar(palabras);
                };
            });
}

void Ventana::guardarCopia(const QString &archivo, Anterior anterior)
{
    if (m_tarea.enCurso() || !m_resultado)
        return;
    const copia::Encargo encargo{.carpeta = m_resultado->carpeta,
                                 .destino = rutas::deTexto(archivo),
                                 .reemplazar = anterior == Anterior::SeReemplaza,
                                 .cuando = QDateTime::currentDateTime(),
                                 .programa = programa()};
    empezar(u"Guardando la copia…"_s, [this, encargo](const std::stop_token &parar,
                                                      Tarea::Marca &marca) {
        const QString palabras = textoDe(copia::guardar(
            encargo, [&marca](qint64 hechos, qint64 total) { marca.poner(hechos, total); }, parar));
        return [this, palabras] {
            avisar(palabras);
        };
    });
}
