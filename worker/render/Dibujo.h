// From a document to a PDF: load, let the scripts finish, print. Once for each object.
#pragma once

#include "worker/render/Pagina.h"

#include <QElapsedTimer>
#include <QPageLayout>
#include <QString>
#include <QTimer>

class Dibujo : public QObject {
    Q_OBJECT

public:
    explicit Dibujo(QWebEngineProfile *perfil, QObject *parent = nullptr);

    // Brings the engine up on an empty page, so that a later dibujar() has no start to wait for.
    void calentar();

    // `html` and `pdf` are absolute paths.
    void dibujar(const QString &html, const QString &pdf, const QPageLayout &hoja);

signals:
    void terminado(int codigo); // of salida.h

private:
    void cargada(bool bien);
    void preguntarSiLista();
    void imprimir();

    Pagina pagina_;
    QString html_; // empty until dibujar()
    QString pdf_;
    QPageLayout hoja_;
    QElapsedTimer desdeCarga_;
    QTimer pregunta_;
    bool calentando_ = false;
    bool imprimiendo_ = false;
};
