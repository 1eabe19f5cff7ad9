// SPDX-License-Identifier: MIT
#include "Jornada.h"
#include "consumo.h"
#include "shell/Form1.h"

#include <QApplication>
#include <QJsonDocument>
#include <QLabel>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int documentosPorAlumno = 5;
constexpr int marcasPorCorrida = 20;

void raton(QWidget *donde, QPoint punto, QEvent::Type clase, Qt::MouseButtons quedan)
{
    QMouseEvent suceso(clase, punto, donde->mapToGlobal(punto), Qt::LeftButton, quedan,
                       Qt::NoModifier);
    QCoreApplication::sendEvent(donde, &suceso);
}

} // namespace

Jornada::Jornada(Form1 &ventana, const Encargo &encargo, Cuentas &cuentas)
    : m_ventana(ventana), m_encargo(encargo), m_cuentas(cuentas)
{
    m_cuentas.alVer = [this](QObject *objeto, QEvent *suceso) {
        alVer(objeto, suceso);
    };
    QObject::connect(&ventana.Alumnos, &tcAlumnos::nuevaDescarga, &ventana,
                     [this] { alDescargar(); });
}

QJsonObject Jornada::hacer()
{
    // At rest: the window has drawn itself and has nothing left to do.
    QCoreApplication::processEvents();
    m_resultado[u"enReposo"_s] = consumo::memoria();
    if (m_encargo.soloAbrir)
        return m_resultado;
    if (m_encargo.vigilar)
        m_vigia = std::make_unique<Vigia>([this] { return haciendo(); });
    m_cuentas.empezar();
    m_empieza = consumo::ahora();
    m_cpuAntes = consumo::cpu();
    escribir("txtUser", u"secretaria"_s);
    escribir("txtPwd", u"demo2010"_s);
    pulsar("Command1");
    m_resultado[u"ingreso"_s] = consumo::ahora() - m_empieza;
    if (m_encargo.soloPaneles) {
        QJsonArray paneles;
        for (const int indice : {1, 2, 3, 0})
            paneles.append(mostrarPanel(indice));
        m_resultado[u"paneles"_s] = paneles;
        return m_resultado;
    }
    static_cast<void>(mostrarPanel(1));
    pulsar("Command3"); // returns when the box at the end has been closed
    return m_resultado;
}

QWidget *Jornada::elemento(const char *nombre) const
{
    auto *hallado = m_ventana.findChild<QWidget *>(QString::fromLatin1(nombre));
    if (!hallado)
        qFatal("no element %s", nombre);
    return hallado;
}

void Jornada::escribir(const char *nombre, const QString &texto) const
{
    QWidget *donde = elemento(nombre);
    donde->setFocus();
    for (const QChar letra : texto) {
        for (const auto clase : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent tecla(clase, 0, Qt::NoModifier, QString(letra));
            QCoreApplication::sendEvent(donde, &tecla);
        }
    }
}

// A radio button answers to a click on its indicator or text only.
void Jornada::pulsar(const char *nombre) const
{
    QWidget *donde = elemento(nombre);
    const QPoint punto(8, donde->height() / 2);
    raton(donde, punto, QEvent::MouseButtonPress, Qt::LeftButton);
    raton(donde, punto, QEvent::MouseButtonRelease, Qt::NoButton);
}

// Seconds from the click until the panel has been drawn.
double Jornada::mostrarPanel(int indice)
{
    const QByteArray boton = "Option1_" + QByteArray::number(indice);
    const QByteArray panel = "Frame" + QByteArray::number(indice + 1);
    QWidget *mostrado = elemento(panel.constData());
    bool dibujado = false;
    m_cuentas.alVer = [&](QObject *objeto, QEvent *suceso) {
        dibujado = dibujado || (objeto == mostrado && suceso->type() == QEvent::Paint);
    };
    const double antes = consumo::ahora();
    pulsar(boton.constData());
    while (!dibujado)
        QCoreApplication::processEvents();
    // The others of the same drawing follow in this turn.
    QCoreApplication::processEvents();
    const double despues = consumo::ahora();
    m_cuentas.alVer = [this](QObject *objeto, QEvent *suceso) {
        alVer(objeto, suceso);
    };
    return despues - antes;
}

// The run is over when its box comes up.
void Jornada::alVer(QObject *objeto, QEvent *suceso)
{
    auto *cuadro = suceso->type() == QEvent::Show ? qobject_cast<QMessageBox *>(objeto) : nullptr;
    if (!cuadro)
        return;
    const QJsonObject hasta = tramo();
    for (auto uno = hasta.begin(); uno != hasta.end(); ++uno)
        m_resultado[uno.key()] = uno.value();
    QTimer::singleShot(0, cuadro, [cuadro] { cuadro->button(QMessageBox::Ok)->click(); });
}

void Jornada::alDescargar()
{
    if (m_encargo.alumnos > 0) {
        const int cadaCuantas =
            std::max(1, m_encargo.alumnos * documentosPorAlumno / marcasPorCorrida);
        if (m_hechas % cadaCuantas == 0)
            marcar(m_hechas);
    }
    ++m_hechas;
    if (m_encargo.hasta == 0 || m_hechas < m_encargo.hasta)
        return;
    QJsonObject resultado = tramo();
    resultado[u"enReposo"_s] = m_resultado[u"enReposo"_s];
    std::puts(QJsonDocument(resultado).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS);
}

void Jornada::marcar(int hechas)
{
    m_marcas.append(QJsonObject{{u"documentos"_s, hechas},
                                {u"pared"_s, pared()},
                                {u"cpu"_s, consumo::cpu() - m_cpuAntes},
                                {u"memoria"_s, consumo::memoria()}});
}

void Jornada::contarPausa(std::chrono::nanoseconds queda)
{
    constexpr std::chrono::nanoseconds pausa = std::chrono::milliseconds(500);
    ++m_pausas;
    m_enPausas += std::chrono::duration<double>(pausa - queda).count();
}

// Wall time from the first click up to now.
double Jornada::pared() const
{
    return consumo::ahora() - m_empieza - (m_encargo.pausasReales ? 0 : m_enPausas);
}

QJsonObject Jornada::tramo() const
{
    QJsonObject medido{{u"pared"_s, pared()},
                       {u"enPausas"_s, m_enPausas},
                       {u"cpu"_s, consumo::cpu() - m_cpuAntes},
                       {u"pausas"_s, m_pausas},
                       {u"sucesos"_s, m_cuentas.tomar()},
                       {u"memoria"_s, consumo::memoria()},
                       {u"marcas"_s, m_marcas}};
    if (m_vigia) {
        medido[u"peorVuelta"_s] = m_vigia->peor();
        medido[u"peorEn"_s] = m_vigia->peorEn();
    }
    return medido;
}

QString Jornada::haciendo() const
{
    return static_cast<QLabel *>(elemento("estadoTS"))->text();
}
