// SPDX-License-Identifier: MIT
// From a document to a PDF: load, let the scripts finish, print. Once for each object.
#pragma once

#include "worker/render/Pagina.h"

#include <QElapsedTimer>
#include <QPageLayout>
#include <QString>
#include <QTimer>

#include <chrono>

class Dibujo : public QObject {
    Q_OBJECT

public:
    // `plazo`: how long after its order the page is given up by whoever ordered it. It is printed
    // before that, with what has come by then.
    Dibujo(QWebEngineProfile *perfil, std::chrono::milliseconds plazo, QObject *parent = nullptr);

    // Brings the engine up on an empty page, so that a later dibujar() has no start to wait for.
    void calentar();

    // `html` and `pdf` are absolute paths.
    void dibujar(const QString &html, const QString &pdf, const QPageLayout &hoja);

Q_SIGNALS:
    void agotado(); // the time for fetching is over: what is still being fetched should fail now
    void terminado(int codigo); // of salida.h

private:
    void cargada(bool bien);
    void preguntarSiLista();
    void detener();
    void imprimir();

    Pagina pagina_;
    QString html_; // empty until dibujar()
    QString pdf_;
    QPageLayout hoja_;
    QElapsedTimer desdeCarga_;
    QTimer pregunta_;
    QTimer corte_;
    QTimer detencion_;
    bool calentando_ = false;
    bool preguntando_ = false;
    bool fallida_ = false;
    bool imprimiendo_ = false;
};
