#include "worker/render/Dibujo.h"

#include "worker/render/salida.h"

#include <QPageLayout>
#include <QSizeF>
#include <QWebEngineScript>

#include <chrono>

using namespace std::chrono_literals;

namespace {

// How long after its load a page may still be waiting for fonts and images that its scripts asked
// for; it is printed as it stands then.
constexpr std::chrono::milliseconds paciencia = 3s;
constexpr auto entrePreguntas = 10ms;

// True once the document is whole, two turns of the page's timers have passed, and fonts and
// images have settled. Scripts run "on ready" do so in a turn of a timer; what they add may take
// another. It runs in a world of its own, where page scripts neither see nor change it.
constexpr auto preguntaLista = R"js(
(function() {
    if (window.parvanelLista === undefined) {
        window.parvanelLista = false;
        const turno = () => new Promise(sigue => setTimeout(sigue, 0));
        const asentada = imagen => {
            imagen.loading = 'eager';
            return imagen.complete ? null : new Promise(sigue => {
                imagen.addEventListener('load', sigue);
                imagen.addEventListener('error', sigue);
            });
        };
        turno().then(turno)
            .then(() => Promise.all([document.fonts.ready,
                                     ...Array.from(document.images, asentada)]))
            .then(() => { window.parvanelLista = true; });
    }
    return window.parvanelLista && document.readyState !== 'loading';
})()
)js";

// The paper is the printer's, whatever size a page's own style names; a page that wants to lie on
// its side still does. %1 and %2 are the paper's width and height in millimetres.
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
})()
)js";

} // namespace

Dibujo::Dibujo(QWebEngineProfile *perfil, QObject *parent) : QObject(parent), pagina_(perfil)
{
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
    pagina_.load(QUrl(QStringLiteral("about:blank")));
}

void Dibujo::dibujar(const QString &html, const QString &pdf, const QPageLayout &hoja)
{
    html_ = html;
    pdf_ = pdf;
    hoja_ = hoja;
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
    if (html_.isEmpty())
        return;
    if (!bien && !pagina_.retenida()) {
        Q_EMIT
        terminado(salida::sinPagina);
        return;
    }
    if (!desdeCarga_.isValid()) {
        desdeCarga_.start();
        preguntarSiLista();
    }
}

void Dibujo::preguntarSiLista()
{
    pagina_.runJavaScript(QString::fromLatin1(preguntaLista), QWebEngineScript::ApplicationWorld,
                          [this](const QVariant &lista) {
                              if (lista.toBool() || desdeCarga_.hasExpired(paciencia.count()))
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
                          QWebEngineScript::ApplicationWorld,
                          [this](const QVariant &) { pagina_.printToPdf(pdf_, hoja_); });
}
