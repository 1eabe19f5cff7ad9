// SPDX-License-Identifier: MIT
#include "pages/guiones.h"
#include "pages/reemplazos.h"

#include <QTest>

namespace {

Valores valores()
{
    Valores valores;
    valores.poner(Lugar::Base, QStringLiteral("https://s.co"));
    valores.poner(Lugar::Colegio, QStringLiteral("123"));
    return valores;
}

constexpr Reemplazo colegio = reemplazos::imagenesDelColegio(u"..\\images\\");

} // namespace

class tst_reemplazos : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void fila_cambiaLoSuyo_data()
    {
        QTest::addColumn<Reemplazo>("fila");
        QTest::addColumn<QString>("pagina");
        QTest::addColumn<QString>("localizada");
        QTest::newRow("school images, all, any case")
            << colegio
            << QStringLiteral("<img src=HTTPS://S.CO/Images/COLEGIOS/123/logo.png>"
                              "<img src=https://s.co/images/colegios/123/rector.png>")
            << QStringLiteral("<img src=..\\images\\logo.png><img src=..\\images\\rector.png>");
        QTest::newRow("another school's images stay")
            << colegio << QStringLiteral("https://s.co/images/colegios/1234/logo.png")
            << QStringLiteral("https://s.co/images/colegios/1234/logo.png");
        QTest::newRow("label NOTA:, all, any case")
            << reemplazos::etiquetaNota
            << QStringLiteral(
                   "https://s.co/imgTXT.php?txt=NOTA:FINAL HTTPS://s.CO/IMGtxt.php?TXT=nota:x")
            << QStringLiteral("../images/labels/NOTAFINAL ../images/labels/NOTAx");
        QTest::newRow("label, all, any case")
            << reemplazos::etiqueta
            << QStringLiteral(
                   "https://s.co/imgTXT.php?txt=Puesto HTTPS://s.CO/IMGtxt.php?TXT=NOTA:x")
            << QStringLiteral("../images/labels/Puesto ../images/labels/NOTA:x");
        QTest::newRow("stamp, the first only")
            << reemplazos::promovido
            << QStringLiteral("https://s.co/images/promovido.png https://s.co/images/promovido.png")
            << QStringLiteral("..\\images\\promovido.png https://s.co/images/promovido.png");
        QTest::newRow("stamp, exact case only")
            << reemplazos::promovido << QStringLiteral("HTTPS://S.CO/images/promovido.png")
            << QStringLiteral("HTTPS://S.CO/images/promovido.png");
        QTest::newRow("other stamp, the first only")
            << reemplazos::reprobado
            << QStringLiteral("https://s.co/images/reprobado.png https://s.co/images/reprobado.png")
            << QStringLiteral("..\\images\\reprobado.png https://s.co/images/reprobado.png");
        QTest::newRow("other stamp, exact case only")
            << reemplazos::reprobado << QStringLiteral("https://s.co/images/REPROBADO.png")
            << QStringLiteral("https://s.co/images/REPROBADO.png");
        QTest::newRow("folio, all, any case")
            << reemplazos::folio
            << QStringLiteral("Folio: \u00AEfolio\u00AE y FOLIO: \u00AEFolio\u00AE")
            << QStringLiteral("Folio: _______ y Folio: _______");
        QTest::newRow("no folio") << reemplazos::folio << QStringLiteral("Folio: 12")
                                  << QStringLiteral("Folio: 12");
        QTest::newRow("photos, all, any case")
            << reemplazos::foto
            << QStringLiteral(
                   "https://s.co/jup/images/123/9-alumno.jpg https://s.co/JUP/images/123/")
            << QStringLiteral("..\\fotos\\9-alumno.jpg ..\\fotos\\");
        QTest::newRow("avatar, all, any case")
            << reemplazos::avatar
            << QStringLiteral(
                   "https://s.co/images/default-avatar.png HTTPS://s.co/images/Default-Avatar.png")
            << QStringLiteral("..\\fotos\\default-avatar.png ..\\fotos\\default-avatar.png");
    }
    void fila_cambiaLoSuyo()
    {
        QFETCH(Reemplazo, fila);
        QFETCH(QString, pagina);
        QFETCH(QString, localizada);
        QCOMPARE(localizar(pagina, {&fila, 1}, valores()), localizada);
    }

    void filas_vanEnSuOrden()
    {
        const QString pagina = QStringLiteral("https://s.co/imgTXT.php?txt=NOTA:A");
        const Reemplazo notaAntes[] = {reemplazos::etiquetaNota, reemplazos::etiqueta};
        QCOMPARE(localizar(pagina, notaAntes, valores()), QStringLiteral("../images/labels/NOTAA"));
        const Reemplazo notaDespues[] = {reemplazos::etiqueta, reemplazos::etiquetaNota};
        QCOMPARE(localizar(pagina, notaDespues, valores()),
                 QStringLiteral("../images/labels/NOTA:A"));
    }

    void guionDeDocumento_esElDeLosArchivos()
    {
        QCOMPARE(
            guiones::documento.toString(),
            QStringLiteral("<script language='javascript' "
                           "src='../../archivos/jscript/jquery.tools.min.js'></script>"
                           "<script language='javascript' src='../../configuracion.txt'></script>"
                           "<script type='text/javascript'>"
                           "$(document).ready(function() {"
                           "$('span span #cfgMICOLEGIO').html('micolegio');"
                           "$('span span #cfgSLOGAN').html('slogan');"
                           "$('#cfgCDANE').html(cdane);"
                           "$('#cfgDIRECCION').html(direccion);"
                           "$('#cfgTELEFONO').html(telefono); "
                           "$('#cfgSECRETARIA').html(secretaria); "
                           "$('#cfgRECTOR').html(rector); "
                           "});</script>"));
    }

    void guionDeBoletin_esElDeLosArchivos()
    {
        QCOMPARE(
            guiones::boletin.toString(),
            QStringLiteral(
                "<script language='javascript' src='../../configuracion.txt'></script><script "
                "type='text/javascript'>$(document).ready(function() {    "
                "$('#cfgMICOLEGIO').html(micolegio); $('#cfgSLOGAN').html(slogan);$('#cfgCDANE')."
                "html(cdane);$('#cfgDIRECCION').html(direccion);$('#cfgTELEFONO').html(telefono); "
                "});</script>"));
    }
};

QTEST_GUILESS_MAIN(tst_reemplazos)
#include "tst_reemplazos.moc"
