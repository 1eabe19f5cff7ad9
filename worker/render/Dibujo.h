// SPDX-License-Identifier: MIT
// From a document to a PDF: load, let the scripts finish, print. Once for each object.
#pragma once

#include "worker/render/Pagina.h"

#include <QByteArray>
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

    // Ends the page's process at once. Nothing is told any more.
    void matar();

Q_SIGNALS:
    void agotado(); // the time for fetching is over: what is still being fetched should fail now
    void titulado(const QByteArray &titulo); // of titulo.h; before terminado(), if it has one
    void terminado(int codigo);              // of salida.h

private:
    void cargada(bool bien);
    void preguntarSiLista();
    void detener();
    void imprimir();

    Pagina m_pagina;
    QString m_html; // empty until dibujar()
    QString m_pdf;
    QPageLayout m_hoja;
    QElapsedTimer m_desdeCarga;
    QTimer m_pregunta;
    QTimer m_corte;
    QTimer m_detencion;
    bool m_calentando = false;
    bool m_preguntando = false;
    bool m_fallida = false;
    bool m_imprimiendo = false;
};
