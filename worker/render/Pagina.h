// SPDX-License-Identifier: MIT
// A page that nobody looks at: it opens no window, asks nothing, and stays on its document.
#pragma once

#include <QUrl>
#include <QWebEnginePage>

class Pagina : public QWebEnginePage {
    Q_OBJECT

public:
    explicit Pagina(QWebEngineProfile *perfil, QObject *parent = nullptr);

    // Loads a file of this machine; the only document that the page will ever show.
    void abrir(const QString &archivo);

    // Whether the document tried to go elsewhere and was held back. The engine reports its load as
    // failed then, although it is there.
    bool retenida() const { return m_retenida; }

protected:
    bool acceptNavigationRequest(const QUrl &direccion, NavigationType clase,
                                 bool esMarcoPrincipal) override;
    QWebEnginePage *createWindow(WebWindowType clase) override;
    QStringList chooseFiles(FileSelectionMode modo, const QStringList &anteriores,
                            const QStringList &tipos) override;
    void javaScriptAlert(const QUrl &origen, const QString &texto) override;
    bool javaScriptConfirm(const QUrl &origen, const QString &texto) override;
    bool javaScriptPrompt(const QUrl &origen, const QString &texto, const QString &propuesta,
                          QString *respuesta) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel nivel, const QString &texto,
                                  int linea, const QString &fuente) override;

private:
    void callarImpresion();

    QUrl m_documento;
    bool m_retenida = false;
};
