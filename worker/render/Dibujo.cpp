// SPDX-License-Identifier: MIT
#include "worker/render/Dibujo.h"

#include "worker/render/salida.h"

#include <QPageLayout>
#include <QSizeF>
#include <QWebEngineScript>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto entrePreguntas = 10ms;

// A document that was held back from going elsewhere may have been left unfinished by the engine,
// which says so to nobody.
constexpr std::chrono::milliseconds paciencia = 3s;

// True once the document is whole, two turns of the page's timers have passed, and fonts and
// images have settled. Scripts run "on ready" do so in a turn of a timer; what they add may take
// another. Images are looked at twice, for one that is complete has its load handlers still to run,
// and asked anew each time, for one whose address is taken away tells nobody. It runs in a world of
// its own, where page scripts neither see nor change it.
constexpr auto preguntaLista = R"js(
(function() {
    if (window.parvanelLista === undefined) {
        window.parvanelLista = false;
        const turno = () => new Promise(sigue => setTimeout(sigue, 0));
        const asentada = imagen => {
            imagen.loading = 'eager';
            return imagen.complete;
        };
        const mirar = yaEstaban => turno().then(turno).then(() => document.fonts.ready).then(() => {
            const estan = Array.from(document.images, asentada).every(Boolean);
            if (estan && yaEstaban)
                window.parvanelLista = true;
            else
                setTimeout(mirar, estan ? 0 : 10, estan);
        });
        mirar(false);
    }
    return window.parvanelLista && document.readyState !== 'loading';
})()
)js";

// The paper is the printer's, whatever size a page's own style names; a page that wants to lie on
// its side still does. %1 and %2 are the paper's width and height in millimetres. True when there
// is a document to print, and not only the empty page on which the engine came up.
constexpr auto imponerPapel = R"js(
(function() {
    let apaisada = false;
    for (const estilo of document.styleSheets) {
        try {
            for (const regla of estilo.cssRules)
                if (regla instanceof CSSPageRule && /landscape/.test(regla.style.size))
                    apaisada = true;
        } catch (ajena) {
        }
    }
    const papel = document.createElement('style');
    papel.textContent = '@page { size: ' + (apaisada ? '%2mm %1mm' : '%1mm %2mm') + ' !important; }';
    document.documentElement.appendChild(papel);
    return location.protocol === 'file:';
})()
)js";

} // namespace

Dibujo::Dibujo(QWebEngineProfile *perfil, std::chrono::milliseconds plazo, QObject *parent)
    : QObject(parent), pagina_(perfil)
{
    // Half the time is for fetching. What is left after it is for what the page makes of the answer
    // that nothing more comes (its scripts go on, its load ends), and the last quarter for the PDF.
    corte_.setSingleShot(true);
    corte_.setInterval(plazo / 2);
    connect(&corte_, &QTimer::timeout, this, &Dibujo::agotado);
    detencion_.setSingleShot(true);
    detencion_.setInterval(plazo * 3 / 4);
    connect(&detencion_, &QTimer::timeout, this, &Dibujo::detener);
    pregunta_.setSingleShot(true);
    pregunta_.setInterval(entrePreguntas);
    connect(&pregunta_, &QTimer::timeout, this, &Dibujo::preguntarSiLista);
    connect(&pagina_, &QWebEnginePage::loadFinished, this, &Dibujo::cargada);
    connect(&pagina_, &QWebEnginePage::pdfPrintingFinished, this,
            [this](const QString &, bool bien) {
                Q_EMIT
                terminado(bien ? salida::hecho : salida::sinPdf);
            });
    connect(&pagina_, &QWebEnginePage::renderProcessTerminated, this, [this] {
        Q_EMIT
        terminado(salida::motorCaido);
    });
}

void Dibujo::calentar()
{
    calentando_ = true;
    pagina_.load(QUrl(u"about:blank"_s));
}

void Dibujo::dibujar(const QString &html, const QString &pdf, const QPageLayout &hoja)
{
    html_ = html;
    pdf_ = pdf;
    hoja_ = hoja;
    corte_.start();
    detencion_.start();
    if (!calentando_)
        pagina_.abrir(html_);
}

void Dibujo::cargada(bool bien)
{
    if (calentando_) {
        calentando_ = false;
        if (!html_.isEmpty())
            pagina_.abrir(html_);
        return;
    }
    if (html_.isEmpty() || preguntando_ || imprimiendo_)
        return;
    // A document that asks for a program of another kind, or to be closed, is reported as failed
    // although it is there: whether there is one shows when it is to be printed.
    fallida_ = !bien;
    preguntando_ = true;
    desdeCarga_.start();
    preguntarSiLista();
}

// The wire being cut was of no avail, or the page waits for something that never happens.
void Dibujo::detener()
{
    imprimir();
    pagina_.triggerAction(QWebEnginePage::Stop);
}

void Dibujo::preguntarSiLista()
{
    pagina_.runJavaScript(
        QString::fromLatin1(preguntaLista), QWebEngineScript::ApplicationWorld,
        [this](const QVariant &lista) {
            if (lista.toBool()
                || ((fallida_ || pagina_.retenida()) && desdeCarga_.hasExpired(paciencia.count())))
                imprimir();
            else
                pregunta_.start();
        });
}

void Dibujo::imprimir()
{
    if (imprimiendo_)
        return;
    imprimiendo_ = true;
    const QSizeF papel = hoja_.pageSize().size(QPageSize::Millimeter);
    pagina_.runJavaScript(QString::fromLatin1(imponerPapel).arg(papel.width()).arg(papel.height()),
                          QWebEngineScript::ApplicationWorld, [this](const QVariant &hayDocumento) {
                              if (hayDocumento.toBool())
                                  pagina_.printToPdf(pdf_, hoja_);
                              else
                                  Q_EMIT
                              terminado(salida::sinPagina);
                          });
}
