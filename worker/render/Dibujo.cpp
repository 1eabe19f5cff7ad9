// SPDX-License-Identifier: MIT
#include "worker/render/Dibujo.h"

#include "worker/render/codigo.h"
#include "worker/render/salida.h"
#include "worker/render/titulo.h"

#include <QPageLayout>
#include <QSizeF>
#include <QWebEngineScript>

#include <chrono>
#include <csignal>
#include <sys/types.h>

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
// its side still does. %1 and %2 are the paper's width and height in millimetres. Gives the
// document's title when there is a document to print, and not only the empty page on which the
// engine came up.
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
    return location.protocol === 'file:' ? [String(document.title)] : [];
})()
)js";

} // namespace

Dibujo::Dibujo(QWebEngineProfile *perfil, std::chrono::milliseconds plazo, QObject *parent)
    : QObject(parent), m_pagina(perfil)
{
    // Half the time is for fetching. What is left after it is for what the page makes of the answer
    // that nothing more comes (its scripts go on, its load ends), and the last quarter for the PDF.
    m_corte.setSingleShot(true);
    m_corte.setInterval(plazo / 2);
    connect(&m_corte, &QTimer::timeout, this, &Dibujo::agotado);
    m_detencion.setSingleShot(true);
    m_detencion.setInterval(plazo * 3 / 4);
    connect(&m_detencion, &QTimer::timeout, this, &Dibujo::detener);
    m_pregunta.setSingleShot(true);
    m_pregunta.setInterval(entrePreguntas);
    connect(&m_pregunta, &QTimer::timeout, this, &Dibujo::preguntarSiLista);
    connect(&m_pagina, &QWebEnginePage::loadFinished, this, &Dibujo::cargada);
    connect(&m_pagina, &QWebEnginePage::pdfPrintingFinished, this,
            [this](const QString &, bool bien) {
                Q_EMIT
                terminado(bien ? salida::hecho : salida::sinPdf);
            });
    connect(&m_pagina, &QWebEnginePage::renderProcessTerminated, this, [this] {
        Q_EMIT
        terminado(salida::motorCaido);
    });
}

void Dibujo::calentar()
{
    m_calentando = true;
    m_pagina.load(QUrl(u"about:blank"_s));
}

void Dibujo::dibujar(const QString &html, const QString &pdf, const QPageLayout &hoja)
{
    m_html = html;
    m_pdf = pdf;
    m_hoja = hoja;
    m_corte.start();
    m_detencion.start();
    if (!m_calentando)
        m_pagina.abrir(m_html);
}

void Dibujo::matar()
{
    m_pagina.disconnect(this);
    for (QTimer *reloj : {&m_pregunta, &m_corte, &m_detencion})
        reloj->stop();
    const auto proceso = static_cast<pid_t>(m_pagina.renderProcessPid());
    if (proceso > 0)
        kill(proceso, SIGKILL);
}

void Dibujo::cargada(bool bien)
{
    if (m_calentando) {
        m_calentando = false;
        if (!m_html.isEmpty())
            m_pagina.abrir(m_html);
        return;
    }
    if (m_html.isEmpty() || m_preguntando || m_imprimiendo)
        return;
    // A document that asks for a program of another kind, or to be closed, is reported as failed
    // although it is there: whether there is one shows when it is to be printed.
    m_fallida = !bien;
    m_preguntando = true;
    m_desdeCarga.start();
    preguntarSiLista();
}

// The wire being cut was of no avail, or the page waits for something that never happens.
void Dibujo::detener()
{
    imprimir();
    m_pagina.triggerAction(QWebEnginePage::Stop);
}

void Dibujo::preguntarSiLista()
{
    m_pagina.runJavaScript(QString::fromLatin1(preguntaLista), QWebEngineScript::ApplicationWorld,
                           [this](const QVariant &lista) {
                               if (lista.toBool()
                                   || ((m_fallida || m_pagina.retenida())
                                       && m_desdeCarga.hasExpired(paciencia.count())))
                                   imprimir();
                               else
                                   m_pregunta.start();
                           });
}

void Dibujo::imprimir()
{
    if (m_imprimiendo)
        return;
    m_imprimiendo = true;
    codigo::soltar(); // what loading took is not kept beside what printing takes
    const QSizeF papel = m_hoja.pageSize().size(QPageSize::Millimeter);
    const QString guion = QString::fromLatin1(imponerPapel).arg(papel.width()).arg(papel.height());
    m_pagina.runJavaScript(guion, QWebEngineScript::ApplicationWorld, [this](const QVariant &hay) {
        const QVariantList hallado = hay.toList();
        if (hallado.isEmpty()) {
            terminado(salida::sinPagina);
            return;
        }
        const QByteArray suyo = titulo::paraImpresora(hallado.first().toString());
        if (!suyo.isEmpty()) {
            Q_EMIT
            titulado(suyo);
        }
        m_pagina.printToPdf(m_pdf, m_hoja);
    });
}
