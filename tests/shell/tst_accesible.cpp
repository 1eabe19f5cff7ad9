// SPDX-License-Identifier: MIT
// What each element of the window is to assistive technology. (What is told of its changes:
// tst_avisos.cpp; how a reader speaks of it: tests/externo/prueba_lector.py.)
#include "Accesible.h"
#include "VentanaDePrueba.h"

#include <QAccessible>
#include <QLineEdit>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QStringList nombresDe(QAccessibleInterface *padre)
{
    QStringList nombres;
    for (int i = 0; i < padre->childCount(); ++i)
        nombres.append(padre->child(i)->object()->objectName());
    return nombres;
}

} // namespace

class tst_accesible : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { accesible::instalar(); }
    void init();
    void cleanup();

    void elemento_tieneSuPapelYSuNombre_data();
    void elemento_tieneSuPapelYSuNombre();
    void vinetas_noSonDelPanel();
    void hijos_conocenSuLugarYASuPadre();
    void clave_noTieneTextoPeroSiEstado();
    void desplegable_conservaSuNombreYDiceLoElegido();
    void desplegable_seAbrePorSuAccion();

private:
    QAccessibleInterface *interfaz(const char *nombre) const
    {
        return QAccessible::queryAccessibleInterface(nombre == QByteArray("Form1")
                                                         ? &m_ventana->form
                                                         : m_ventana->elemento<QWidget>(nombre));
    }

    std::unique_ptr<VentanaDePrueba> m_ventana;
};

void tst_accesible::init()
{
    m_ventana = std::make_unique<VentanaDePrueba>();
}

void tst_accesible::cleanup()
{
    m_ventana.reset();
}

void tst_accesible::elemento_tieneSuPapelYSuNombre_data()
{
    QTest::addColumn<QByteArray>("elemento");
    QTest::addColumn<QAccessible::Role>("papel");
    QTest::addColumn<QString>("nombre");

    const auto fila = [](const char *elemento, QAccessible::Role papel, const QString &nombre) {
        QTest::newRow(elemento) << QByteArray(elemento) << papel << nombre;
    };
    fila("Form1", QAccessible::Window, u"Parvanel Version 4.0"_s);
    fila("Image1", QAccessible::Graphic, u"Parvanel"_s);
    fila("Option1_0", QAccessible::RadioButton, u"Login"_s);
    fila("Frame1", QAccessible::Grouping, u"Login"_s);
    fila("Frame2", QAccessible::Grouping, u"Descargar Historicos"_s);
    fila("Frame3", QAccessible::Grouping, u"Imprimir en Lote"_s);
    fila("Frame4", QAccessible::Grouping, u"Ver mis Historicos"_s);
    fila("Line1", QAccessible::Separator, {});
    fila("Line2", QAccessible::Separator, {});
    fila("txtUser", QAccessible::EditableText, u"Usuario"_s);
    fila("txtPwd", QAccessible::EditableText, u"Contraseña"_s);
    fila("Label5", QAccessible::StaticText, u"Conectado OK:"_s);
    fila("estadoTS", QAccessible::StaticText, u".."_s);
    fila("ComboTipo", QAccessible::ComboBox, u"Que Imprimir"_s);
    fila("Combo1", QAccessible::ComboBox, u"Periodo"_s);
    fila("List1", QAccessible::List, u"Seleccione un Salon"_s);
    fila("lstHistoricos", QAccessible::List, u"Historicos almacenados"_s);
    fila("barra2", QAccessible::ProgressBar, u"Avance de la descarga"_s);
    fila("Command3", QAccessible::Button, u"Descargar"_s);
}

void tst_accesible::elemento_tieneSuPapelYSuNombre()
{
    QFETCH(const QByteArray, elemento);
    QFETCH(const QAccessible::Role, papel);
    QFETCH(const QString, nombre);

    QAccessibleInterface *const visto = interfaz(elemento.constData());
    QCOMPARE(visto->role(), papel);
    QCOMPARE(visto->text(QAccessible::Name), nombre);
}

void tst_accesible::vinetas_noSonDelPanel()
{
    const QList<QWidget *> vinetas =
        m_ventana->form.findChildren<QWidget *>(QRegularExpression(u"^Shape1_\\d$"_s));
    QCOMPARE(vinetas.size(), 6);
    for (QWidget *vineta : vinetas) {
        QAccessibleInterface *const visto = QAccessible::queryAccessibleInterface(vineta);
        QVERIFY(visto->state().invisible);
        QCOMPARE(visto->text(QAccessible::Name), QString());
        QAccessibleInterface *const padre = visto->parent();
        QVERIFY(!nombresDe(padre).contains(vineta->objectName()));
        QCOMPARE(padre->indexOfChild(visto), -1);
    }
}

void tst_accesible::hijos_conocenSuLugarYASuPadre()
{
    for (const char *nombre : {"Form1", "Frame1", "Frame2", "Frame3", "Frame4"}) {
        QAccessibleInterface *const grupo = interfaz(nombre);
        QVERIFY(grupo->childCount() > 0);
        for (int i = 0; i < grupo->childCount(); ++i) {
            QCOMPARE(grupo->indexOfChild(grupo->child(i)), i);
            QCOMPARE(grupo->child(i)->parent(), grupo);
        }
        QCOMPARE(grupo->child(grupo->childCount()), nullptr);
    }
    // Message boxes are windows of their own.
    QMessageBox cuadro(&m_ventana->form);
    QVERIFY(!nombresDe(interfaz("Form1")).contains(cuadro.objectName()));
}

void tst_accesible::clave_noTieneTextoPeroSiEstado()
{
    m_ventana->elemento<QLineEdit>("txtPwd")->setText(u"demo2010"_s);
    QAccessibleInterface *const clave = interfaz("txtPwd");
    QVERIFY(clave->state().passwordEdit);
    QVERIFY(clave->state().editable);
    QVERIFY(clave->state().focusable);
    QCOMPARE(clave->textInterface(), nullptr);
    QCOMPARE(clave->editableTextInterface(), nullptr);
    for (int que = QAccessible::Name; que <= QAccessible::DebugDescription; ++que)
        QVERIFY(!clave->text(QAccessible::Text(que)).contains(u"demo2010"_s));
    QCOMPARE(clave->text(QAccessible::Value), QString());
    QVERIFY(interfaz("txtUser")->textInterface());
    QVERIFY(!interfaz("txtUser")->state().passwordEdit);
}

void tst_accesible::desplegable_conservaSuNombreYDiceLoElegido()
{
    m_ventana->ingresar();
    m_ventana->elegir("Option1_2");
    QAccessibleInterface *const tipo = interfaz("ComboTipo");
    QCOMPARE(tipo->text(QAccessible::Value), u"Seleccione que Imprimir"_s);
    m_ventana->elegirEnLista("ComboTipo", u"Paz Y Salvos"_s);
    QCOMPARE(tipo->text(QAccessible::Name), u"Que Imprimir"_s);
    QCOMPARE(tipo->text(QAccessible::Value), u"Paz Y Salvos"_s);
    QCOMPARE(tipo->textInterface()->text(0, tipo->textInterface()->characterCount()),
             u"Paz Y Salvos"_s);
    QCOMPARE(tipo->editableTextInterface(), nullptr);
    // Its lines can be reached, too.
    QCOMPARE(tipo->childCount(), 1);
    QCOMPARE(tipo->child(0)->childCount(), 7);
    QCOMPARE(tipo->indexOfChild(tipo->child(0)), 0);
}

void tst_accesible::desplegable_seAbrePorSuAccion()
{
    m_ventana->ingresar();
    m_ventana->elegir("Option1_2");
    QAccessibleInterface *const tipo = interfaz("ComboTipo");
    QVERIFY(tipo->state().collapsed);
    tipo->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QTRY_VERIFY(tipo->state().expanded);
    tipo->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QTRY_VERIFY(tipo->state().collapsed);
}

QTEST_MAIN(tst_accesible)
#include "tst_accesible.moc"
