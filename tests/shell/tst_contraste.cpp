// SPDX-License-Identifier: MIT
// What can be told apart on pictures of the window: texts, and the edges of what is operated, in
// light and dark and with accents of several desktops.
#include "estilo/tonos.h"
#include "platform/paleta.h"
#include "shell/VentanaDePrueba.h"

#include <QAbstractButton>
#include <QHash>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

class tst_contraste : public QObject {
    Q_OBJECT
private:
    // The colour that most of a picture's part has.
    static QColor fondo(const QImage &imagen, const QRect &parte)
    {
        QHash<QRgb, int> veces;
        for (int y = parte.top(); y <= parte.bottom(); ++y) {
            for (int x = parte.left(); x <= parte.right(); ++x)
                ++veces[imagen.pixel(x, y)];
        }
        return std::max_element(
                   veces.keyValueBegin(), veces.keyValueEnd(),
                   [](const auto &uno, const auto &otro) { return uno.second < otro.second; })
            ->first;
    }

    // Of letters on what they stand on: their strokes' own colour is that of the pixels that stand
    // out most. A stroke that is thinner than a pixel has none; there are always some that are not.
    static double deLetras(const QImage &imagen, const QRect &parte)
    {
        const QColor detras = fondo(imagen, parte);
        double mayor = 1;
        for (int y = parte.top(); y <= parte.bottom(); ++y) {
            for (int x = parte.left(); x <= parte.right(); ++x)
                mayor = std::max(mayor, tonos::contraste(imagen.pixelColor(x, y), detras));
        }
        return mayor;
    }

    // Of the line that one crosses on the way into an element from its left, half way down: to what
    // is before it and to what is behind it, the lesser.
    static double deBorde(const QImage &imagen, const QRect &elemento)
    {
        const int y = elemento.center().y();
        const QColor fuera = imagen.pixelColor(elemento.left() - 2, y);
        const QColor dentro = imagen.pixelColor(elemento.left() + 3, y);
        double mayor = 1;
        for (int x = elemento.left() - 1; x <= elemento.left() + 2; ++x) {
            const QColor color = imagen.pixelColor(x, y);
            mayor = std::max(
                mayor, std::min(tonos::contraste(color, fuera), tonos::contraste(color, dentro)));
        }
        return mayor;
    }

    static QRect lugarDe(const VentanaDePrueba &v, const QWidget *elemento)
    {
        return {elemento->mapTo(&v.form, QPoint()), elemento->size()};
    }

    static QImage retrato(VentanaDePrueba &v)
    {
        return v.form.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    // PARVANEL_RETRATOS names a folder for the pictures, to be looked at.
    static void guardar(const QImage &imagen, const QString &modo)
    {
        const QString carpeta = qEnvironmentVariable("PARVANEL_RETRATOS");
        const QString nombre =
            QString::fromLatin1(QTest::currentDataTag()).replace(u", "_s, u"-"_s);
        if (!carpeta.isEmpty())
            QVERIFY(imagen.save(u"%1/%2-%3.png"_s.arg(carpeta, nombre, modo)));
    }

    static void paletas()
    {
        QTest::addColumn<QPalette>("paleta");
        const QPalette clara = Estilo().standardPalette();
        const std::pair<const char *, QColor> acentos[] = {{"blue", QColor(0x30, 0x8c, 0xc6)},
                                                           {"orange", QColor(0xe9, 0x54, 0x20)},
                                                           {"green", QColor(0x73, 0xd2, 0x16)}};
        for (const auto &[nombre, acento] : acentos) {
            for (QPalette paleta : {clara, paletaOscura()}) {
                paleta.setColor(QPalette::Highlight, acento);
                QTest::addRow("%s, %s",
                              paleta.color(QPalette::Window).lightness() < 128 ? "dark" : "light",
                              nombre)
                    << paleta;
            }
        }
    }

    // A desktop's own palette has gone through the style by then; the program's dark one is set as
    // it is.
    static void poner(const QPalette &paleta)
    {
        QPalette puesta = paleta;
        if (paleta.color(QPalette::Window).lightness() >= 128)
            Estilo().polish(puesta);
        QApplication::setPalette(puesta);
    }

    static const QStringList &modos()
    {
        static const QStringList nombres = {u"Option1_0"_s, u"Option1_1"_s, u"Option1_2"_s,
                                            u"Option1_3"_s};
        return nombres;
    }

private Q_SLOTS:
    void cleanup() { QApplication::setPalette(QPalette()); }

    void cadaTexto_seLee_data() { paletas(); }
    void cadaTexto_seLee()
    {
        QFETCH(const QPalette, paleta);
        poner(paleta);
        VentanaDePrueba v;
        v.ingresar();
        // As during a run: of two dots, as at first, no pixel need be of the letters' own colour.
        v.e.progreso.estadoTS->ponerTexto(u"Descargando Salones"_s);
        v.e.progreso.estadoHS->ponerTexto(u"Foto de alumno (13): ANA - 1 de 2"_s);
        QSet<QString> vistos;
        for (const QString &modo : modos()) {
            v.elegir(modo.toLatin1().constData());
            const QImage imagen = retrato(v);
            guardar(imagen, modo);
            const auto elementos = v.form.findChildren<QWidget *>();
            for (const QWidget *elemento : elementos) {
                const bool conTexto = qobject_cast<const QLabel *>(elemento)
                                      || qobject_cast<const QAbstractButton *>(elemento)
                                      || qobject_cast<const QLineEdit *>(elemento)
                                      || qobject_cast<const QComboBox *>(elemento);
                if (!conTexto || !elemento->isVisible() || elemento->objectName().isEmpty())
                    continue;
                // Without the edges, which stand out for themselves.
                const QRect lugar = lugarDe(v, elemento);
                const int adorno = qobject_cast<const QRadioButton *>(elemento)
                                           && elemento->objectName().startsWith(u"Option2"_s)
                                       ? 22
                                       : 0;
                const QRect parte = qobject_cast<const QLabel *>(elemento)
                                        ? lugar
                                        : lugar.adjusted(6 + adorno, 4, -26, -5);
                QVERIFY2(!(parte & imagen.rect()).isEmpty(), qPrintable(elemento->objectName()));
                const double medido = deLetras(imagen, parte & imagen.rect());
                QVERIFY2(
                    medido >= tonos::legible,
                    qPrintable(u"%1 in %2: %3"_s.arg(elemento->objectName(), modo).arg(medido)));
                vistos.insert(elemento->objectName());
            }
        }
        QVERIFY2(vistos.size() >= 33, qPrintable(QString::number(vistos.size())));
    }

    void filaElegida_seLee_data() { paletas(); }
    void filaElegida_seLee()
    {
        QFETCH(const QPalette, paleta);
        poner(paleta);
        VentanaDePrueba v({.salones = 3, .alumnosPorSalon = 1});
        v.ingresar();
        v.elegir("Option1_2");
        v.elegirSalon(1);
        auto *lista = v.elemento<QListWidget>("List1");
        const auto fila = [&](int cual) {
            return lista->visualItemRect(lista->item(cual))
                .translated(lista->viewport()->mapTo(&v.form, QPoint()))
                .adjusted(2, 2, -2, -2);
        };
        for (const bool enLaLista : {true, false}) {
            enLaLista ? lista->setFocus() : v.elemento("Command2")->setFocus();
            const QImage imagen = retrato(v);
            QVERIFY(deLetras(imagen, fila(1)) >= tonos::legible);
            // And is seen to be the chosen one.
            QVERIFY(tonos::contraste(fondo(imagen, fila(1)), fondo(imagen, fila(0)))
                    >= tonos::visible);
        }
    }

    // As after a login that was refused. The box draws its selection itself, by the palette.
    void textoSeleccionado_seLee()
    {
        for (const QPalette &paleta : {Estilo().standardPalette(), paletaOscura()}) {
            poner(paleta);
            VentanaDePrueba v;
            auto *caja = v.elemento<QLineEdit>("txtUser");
            v.form.activateWindow();
            caja->setFocus();
            QTRY_VERIFY(caja->hasFocus());
            caja->setText(u"MMMMMMMMMMMMMMMMMMMM"_s);
            caja->selectAll();
            const QImage imagen = retrato(v);
            const QRect letras = lugarDe(v, caja).adjusted(12, 7, -caja->width() / 2, -7);
            const QColor detras = fondo(imagen, letras);
            QVERIFY(detras != tonos::de(paleta).base);
            QVERIFY(deLetras(imagen, letras) >= tonos::legible);
        }
    }

    void avance_seLeeLlenoYVacio_data() { paletas(); }
    void avance_seLeeLlenoYVacio()
    {
        QFETCH(const QPalette, paleta);
        poner(paleta);
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_1");
        auto *barra = v.elemento<QProgressBar>("barra2");
        barra->show();
        QCoreApplication::processEvents();
        for (const int valor : {0, 100}) {
            barra->setValue(valor);
            const QImage imagen = retrato(v);
            const QRect lugar = lugarDe(v, barra);
            QVERIFY(deLetras(imagen, lugar.adjusted(2, 2, -2, -2)) >= tonos::legible);
            QVERIFY(deBorde(imagen, lugar) >= tonos::visible || valor == 100);
        }
    }

    // The current row, which nobody has chosen yet, is an outline and not a fill.
    void filaActual_esUnContorno_data() { paletas(); }
    void filaActual_esUnContorno()
    {
        QFETCH(const QPalette, paleta);
        poner(paleta);
        VentanaDePrueba v({.salones = 3, .alumnosPorSalon = 1});
        v.ingresar();
        v.elegir("Option1_2");
        auto *lista = v.elemento<QListWidget>("List1");
        v.form.activateWindow();
        lista->setFocus(Qt::TabFocusReason);
        lista->setCurrentRow(1, QItemSelectionModel::NoUpdate);
        QTRY_VERIFY(lista->hasFocus());
        const QRect lugar = lista->visualItemRect(lista->item(1))
                                .translated(lista->viewport()->mapTo(&v.form, QPoint()));
        const QImage imagen = retrato(v);
        const QColor detras = fondo(imagen, lugar);
        QCOMPARE(detras, tonos::de(paleta).base);
        double contorno = 1;
        for (int y = lugar.top(); y <= lugar.top() + 2; ++y)
            contorno = std::max(contorno,
                                tonos::contraste(imagen.pixelColor(lugar.center().x(), y), detras));
        QVERIFY(contorno >= tonos::visible);
    }

    void cadaBorde_seVe_data() { paletas(); }
    void cadaBorde_seVe()
    {
        QFETCH(const QPalette, paleta);
        poner(paleta);
        VentanaDePrueba v;
        const auto mirar = [&](std::initializer_list<const char *> nombres) {
            const QImage imagen = retrato(v);
            for (const char *nombre : nombres) {
                const QRect lugar = lugarDe(v, v.elemento(nombre));
                const double medido = deBorde(imagen, lugar);
                QVERIFY2(medido >= tonos::visible,
                         qPrintable(u"%1: %2"_s.arg(QString::fromLatin1(nombre)).arg(medido)));
            }
        };
        mirar({"txtUser", "txtPwd"});
        v.ingresar();
        mirar({"txtUser", "txtPwd", "Command1"}); // switched off
        v.elegir("Option1_2");
        mirar({"List1", "ComboTipo", "Combo1"});
        v.elegir("Option1_3");
        mirar({"lstHistoricos", "Command4"});
    }

    void botonDeOpcion_seVe_data() { paletas(); }
    void botonDeOpcion_seVe()
    {
        QFETCH(const QPalette, paleta);
        poner(paleta);
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_2");
        const QImage imagen = retrato(v);
        for (const char *nombre : {"Option2_0", "Option2_1"}) {
            // The ring at its leftmost, whatever room the style leaves before it.
            const QRect lugar = lugarDe(v, v.elemento(nombre));
            const int y = lugar.center().y();
            const QColor detras = imagen.pixelColor(lugar.left() - 2, y);
            double mayor = 1;
            for (int x = lugar.left(); x < lugar.left() + 8; ++x)
                mayor = std::max(mayor, tonos::contraste(imagen.pixelColor(x, y), detras));
            QVERIFY2(mayor >= tonos::visible, nombre);
        }
    }

    // Whatever has the focus looks other than without it, by pixels that stand out from those
    // which stood there before.
    void foco_seVe_data() { paletas(); }
    void foco_seVe()
    {
        QFETCH(const QPalette, paleta);
        poner(paleta);
        VentanaDePrueba v;
        v.form.activateWindow();
        QTRY_COMPARE(QApplication::focusWidget(), v.elemento("txtUser"));
        const auto mirar = [&](std::initializer_list<const char *> nombres, const char *otro) {
            for (const char *nombre : nombres) {
                v.elemento(otro)->setFocus(Qt::TabFocusReason);
                const QImage sin = retrato(v);
                v.elemento(nombre)->setFocus(Qt::TabFocusReason);
                QCOMPARE(QApplication::focusWidget(), v.elemento(nombre));
                const QImage con = retrato(v);
                const QRect lugar = lugarDe(v, v.elemento(nombre));
                int pixeles = 0;
                for (int y = lugar.top(); y <= lugar.bottom(); ++y) {
                    for (int x = lugar.left(); x <= lugar.right(); ++x)
                        pixeles += tonos::contraste(con.pixelColor(x, y), sin.pixelColor(x, y))
                                   >= tonos::visible;
                }
                QVERIFY2(pixeles >= qMin(lugar.width(), 120),
                         qPrintable(u"%1: %2"_s.arg(QString::fromLatin1(nombre)).arg(pixeles)));
            }
        };
        mirar({"Option1_0", "txtUser", "txtPwd", "Command1"}, "rollo");
        v.ingresar();
        v.elegir("Option1_2");
        mirar({"Option1_1", "List1", "ComboTipo", "Combo1", "Option2_0", "Command2"}, "rollo");
    }
};

QTEST_MAIN(tst_contraste)
#include "tst_contraste.moc"
