// SPDX-License-Identifier: MIT
// What of the window's events goes on to a screen reader, and what is announced to it.
#include "Accesible.h"
#include "Aviso.h"
#include "AvisosAccesibles.h"
#include "VentanaDePrueba.h"

#include <QAccessible>
#include <QLabel>
#include <QProgressBar>

using namespace Qt::StringLiterals;

namespace {

struct Contado {
    QString elemento; // objectName; of an announcement its text
    QAccessible::Event que;
    int hijo;
    QString texto; // of a text event: what has come

    friend bool operator==(const Contado &, const Contado &) = default;
};

Contado anotar(QAccessibleEvent *suceso)
{
    auto *aviso = qobject_cast<Aviso *>(suceso->object());
    const QString nombre = aviso ? aviso->texto() : suceso->object()->objectName();
    const int hijo = suceso->type() == QAccessible::Focus ? suceso->child() : -1;
    const QString texto = suceso->type() == QAccessible::TextUpdated
                              ? static_cast<QAccessibleTextUpdateEvent *>(suceso)->textInserted()
                              : QString();
    return {nombre, suceso->type(), hijo, texto};
}

} // namespace

class tst_avisos : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void claveTecleada_noSeCuenta();
    void textosDeUnaCorrida_seJuntan();
    void pasosDeUnaCorrida_seAnuncian();
    void ingresoAceptado_seAnunciaUnaVez();
    void trabajoTerminado_seAnunciaTambienDesdeOtroPanel();
    void eleccionEnUnDesplegable_seCuentaComoTexto();
    void listaEnfocada_cuentaSuLinea();

private:
    // As the library does while there is a reader, which here there is not.
    void suceder(const char *nombre, QAccessible::Event que)
    {
        QAccessibleEvent suceso(m_ventana->elemento(nombre), que);
        m_avisos->recibir(&suceso);
    }

    QList<Contado> contadosDe(const QString &elemento) const
    {
        QList<Contado> hallados;
        std::copy_if(m_contado.begin(), m_contado.end(), std::back_inserter(hallados),
                     [&](const Contado &uno) { return uno.elemento == elemento; });
        return hallados;
    }

    int anuncios(const QString &texto) const
    {
        return static_cast<int>(contadosDe(texto).count({texto, QAccessible::ObjectShow, -1, {}}));
    }

    std::unique_ptr<AvisosAccesibles> m_avisos;
    std::unique_ptr<VentanaDePrueba> m_ventana;
    QList<Contado> m_contado; // what a reader was told, in its order
};

void tst_avisos::initTestCase()
{
    accesible::instalar();
    // One at a time: the test's own listens in its place.
    delete qApp->findChild<AvisosAccesibles *>();
}

void tst_avisos::init()
{
    m_avisos = std::make_unique<AvisosAccesibles>(
        qApp, [this](QAccessibleEvent *suceso) { m_contado.append(anotar(suceso)); });
    m_ventana = std::make_unique<VentanaDePrueba>();
    m_contado.clear();
}

void tst_avisos::cleanup()
{
    m_ventana.reset();
    m_avisos.reset();
}

void tst_avisos::claveTecleada_noSeCuenta()
{
    for (const char *nombre : {"txtUser", "txtPwd"}) {
        QWidget *const caja = m_ventana->elemento(nombre);
        QAccessibleTextInsertEvent puesto(caja, 0, u"d"_s);
        QAccessibleTextRemoveEvent quitado(caja, 0, u"d"_s);
        QAccessibleTextUpdateEvent cambiado(caja, 0, u"d"_s, u"e"_s);
        QAccessibleTextCursorEvent cursor(caja, 1);
        QAccessibleTextSelectionEvent marcado(caja, 0, 1);
        QAccessibleValueChangeEvent valor(caja, u"d"_s);
        for (QAccessibleEvent *suceso : std::initializer_list<QAccessibleEvent *>{
                 &puesto, &quitado, &cambiado, &cursor, &marcado, &valor})
            m_avisos->recibir(suceso);
        suceder(nombre, QAccessible::Focus);
    }
    QCOMPARE(contadosDe(u"txtUser"_s).size(), 7);
    QCOMPARE(contadosDe(u"txtPwd"_s), (QList<Contado>{{u"txtPwd"_s, QAccessible::Focus, -1, {}}}));
}

void tst_avisos::textosDeUnaCorrida_seJuntan()
{
    auto *barra = m_ventana->elemento<QProgressBar>("barra1");
    for (int i = 0; i < 1000; ++i) {
        suceder("estadoHS", QAccessible::NameChanged);
        QAccessibleValueChangeEvent cambio(barra, i);
        m_avisos->recibir(&cambio);
    }
    QCOMPARE(m_contado, QList<Contado>());
    QTRY_COMPARE(m_contado.size(), 2);
    QCOMPARE(m_contado.at(0), (Contado{u"estadoHS"_s, QAccessible::NameChanged, -1, {}}));
    QCOMPARE(m_contado.at(1), (Contado{u"barra1"_s, QAccessible::ValueChanged, -1, {}}));
    // And again.
    suceder("estadoHS", QAccessible::NameChanged);
    QTRY_COMPARE(m_contado.size(), 3);
}

void tst_avisos::pasosDeUnaCorrida_seAnuncian()
{
    const auto empezar = [this](const QString &paso) {
        m_ventana->elemento<QLabel>("estadoTS")->setText(paso);
        suceder("estadoTS", QAccessible::NameChanged);
    };
    for (const QString &paso : {u"Descargando Scripts"_s, u"Descargando Salones"_s}) {
        empezar(paso);
        QCOMPARE(anuncios(paso), 1);
    }
    const QList<Aviso *> avisos = m_ventana->form.findChildren<Aviso *>();
    QCOMPARE(avisos.size(), 2);
    QAccessibleInterface *const visto = QAccessible::queryAccessibleInterface(avisos.first());
    QCOMPARE(visto->role(), QAccessible::Notification);
    QCOMPARE(visto->text(QAccessible::Name), u"Descargando Scripts"_s);
    QCOMPARE(visto->parent(), QAccessible::queryAccessibleInterface(&m_ventana->form));
    QVERIFY(!visto->state().invisible);
    QVERIFY(!visto->rect().isEmpty());
    for (int i = 0; i < 1000; ++i)
        empezar(QString::number(i));
    QCOMPARE(m_ventana->form.findChildren<Aviso *>().size(), 64);
}

void tst_avisos::ingresoAceptado_seAnunciaUnaVez()
{
    m_ventana->elemento<QLabel>("Label5")->setText(u"Conectado OK:123"_s);
    suceder("Label5", QAccessible::ObjectShow);
    QCOMPARE(anuncios(u"Conectado OK:123"_s), 1);
    suceder("Label5", QAccessible::ObjectShow); // its panel is chosen again
    QCOMPARE(anuncios(u"Conectado OK:123"_s), 1);
}

void tst_avisos::trabajoTerminado_seAnunciaTambienDesdeOtroPanel()
{
    const QString anuncio = u"Avance de la impresion: 100%"_s;
    m_ventana->ingresar();
    m_ventana->elegir("Option1_2");
    auto *barra = m_ventana->elemento<QProgressBar>("Barra3");
    for (const bool desdeOtro : {false, true}) {
        m_contado.clear();
        barra->setMaximum(4);
        barra->setValue(4);
        barra->show();
        suceder("Barra3", QAccessible::ObjectShow);
        if (desdeOtro)
            m_ventana->elegir("Option1_0");
        QCOMPARE(anuncios(anuncio), 0);
        barra->hide();
        QCOMPARE(anuncios(anuncio), 1);
    }
}

void tst_avisos::eleccionEnUnDesplegable_seCuentaComoTexto()
{
    auto *tipo = m_ventana->elemento<QComboBox>("ComboTipo");
    tipo->setCurrentText(u"Boletines"_s);
    QAccessibleValueChangeEvent cambio(tipo, tipo->currentText());
    m_avisos->recibir(&cambio);
    QCOMPARE(m_contado,
             (QList<Contado>{{u"ComboTipo"_s, QAccessible::ValueChanged, -1, {}},
                             {u"ComboTipo"_s, QAccessible::TextUpdated, -1, u"Boletines"_s}}));
}

void tst_avisos::listaEnfocada_cuentaSuLinea()
{
    suceder("lstHistoricos", QAccessible::Focus);
    QCOMPARE(m_contado,
             (QList<Contado>{{u"lstHistoricos"_s, QAccessible::Focus, -1, {}}})); // empty
    m_contado.clear();
    auto *lista = m_ventana->elemento<QListWidget>("List1");
    lista->addItems({u"501 - A"_s, u"601 - B"_s});
    lista->setCurrentRow(1, QItemSelectionModel::NoUpdate);
    suceder("List1", QAccessible::Focus);
    QCOMPARE(m_contado, (QList<Contado>{{u"List1"_s, QAccessible::Focus, -1, {}},
                                        {u"List1"_s, QAccessible::Focus, 1, {}}}));
}

QTEST_MAIN(tst_avisos)
#include "tst_avisos.moc"
