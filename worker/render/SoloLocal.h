// Keeps a page on this machine: files, and data that the page itself carries; nothing else.
#pragma once

#include <QWebEngineUrlRequestInterceptor>

class SoloLocal : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    // Blocked requests fail at once: a page that refers to a host prints as promptly as any other.
    // A file asked for in another spelling is fetched under its own.
    void interceptRequest(QWebEngineUrlRequestInfo &pedido) override;
};
