// SPDX-License-Identifier: MIT
#include "worker/render/Pagina.h"

#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>

using namespace Qt::StringLiterals;

Pagina::Pagina(QWebEngineProfile *perfil, QObject *parent) : QWebEnginePage(perfil, parent)
{
    QWebEngineSettings *ajustes = settings();
    ajustes->setDefaultTextEncoding(u"windows-1252"_s);
    // Paper with "page not found" on it helps nobody; a page that fails ends in the log.
    ajustes->setAttribute(QWebEngineSettings::ErrorPageEnabled, false);
    ajustes->setAttribute(QWebEngineSettings::PrintElementBackgrounds, true);
    ajustes->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
    // Files may fetch files and addresses: without it the engine refuses a page its own images and
    // the service's. Which ones is decided elsewhere (Aduana, Pasarela).
    ajustes->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, true);
    ajustes->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, true);
    ajustes->setAttribute(QWebEngineSettings::LocalStorageEnabled, false);
    ajustes->setAttribute(QWebEngineSettings::PluginsEnabled, false);
    ajustes->setAttribute(QWebEngineSettings::PdfViewerEnabled, false);
    ajustes->setAttribute(QWebEngineSettings::AutoLoadIconsForPage, false);
    ajustes->setAttribute(QWebEngineSettings::WebRTCPublicInterfacesOnly, true);
    // The handler of another kind of address is a program on the user's screen.
    ajustes->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    callarImpresion();
    // Without a window it still counts as hidden to its scripts; what that would do to their timers
    // is switched off when the engine is started.
    setVisible(true);
}

// A page that prints itself whenever it has been printed would never be done.
void Pagina::callarImpresion()
{
    QWebEngineScript guion;
    guion.setSourceCode(u"window.print = () => {};"_s);
    guion.setInjectionPoint(QWebEngineScript::DocumentCreation);
    guion.setWorldId(QWebEngineScript::MainWorld);
    guion.setRunsOnSubFrames(true);
    scripts().insert(guion);
}

void Pagina::abrir(const QString &archivo)
{
    m_documento = QUrl::fromLocalFile(archivo);
    load(m_documento);
}

bool Pagina::acceptNavigationRequest(const QUrl &direccion, NavigationType clase,
                                     bool esMarcoPrincipal)
{
    if (!esMarcoPrincipal)
        return true; // frames fetch what the interceptor lets through
    // Neither elsewhere nor round and round: a script that reloads its page would never be done.
    const bool suya =
        clase == NavigationTypeTyped && (m_documento.isEmpty() || direccion == m_documento);
    m_retenida = m_retenida || !suya;
    return suya;
}

QWebEnginePage *Pagina::createWindow(WebWindowType)
{
    return nullptr;
}

QStringList Pagina::chooseFiles(FileSelectionMode, const QStringList &, const QStringList &)
{
    return {};
}

void Pagina::javaScriptAlert(const QUrl &, const QString &) {}

bool Pagina::javaScriptConfirm(const QUrl &, const QString &)
{
    return false;
}

bool Pagina::javaScriptPrompt(const QUrl &, const QString &, const QString &, QString *)
{
    return false;
}

void Pagina::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString &, int,
                                      const QString &)
{
}
