// SPDX-License-Identifier: MIT
#include "pages/guiones.h"
#include "pages/reemplazos.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

Valores valores()
{
    Valores valores;
    valores.poner(Lugar::Base, u"https://s.co"_s);
    valores.poner(Lugar::Colegio, u"123"_s);
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
            << u"<img src=HTTPS://S.CO/Images/COLEGIOS/123/logo.png>"
               "<img src=https://s.co/images/colegios/123/rector.png>"_s
            << u"<img src=..\\images\\logo.png><img src=..\\images\\rector.png>"_s;
        QTest::newRow("another school's images stay")
            << colegio << u"https://s.co/images/colegios/1234/logo.png"_s
            << u"https://s.co/images/colegios/1234/logo.png"_s;
        QTest::newRow("label NOTA:, all, any case")
            << reemplazos::etiquetaNota
            << u"https://s.co/imgTXT.php?txt=NOTA:FINAL HTTPS://s.CO/IMGtxt.php?TXT=nota:x"_s
            << u"../images/labels/NOTAFINAL ../images/labels/NOTAx"_s;
        QTest::newRow("label, all, any case")
            << reemplazos::etiqueta
            << u"https://s.co/imgTXT.php?txt=Puesto HTTPS://s.CO/IMGtxt.php?TXT=NOTA:x"_s
            << u"../images/labels/Puesto ../images/labels/NOTA:x"_s;
        QTest::newRow("stamp, the first only")
            << reemplazos::promovido
            << u"https://s.co/images/promovido.png https://s.co/images/promovido.png"_s
            << u"..\\images\\promovido.png https://s.co/images/promovido.png"_s;
        QTest::newRow("stamp, exact case only")
            << reemplazos::promovido << u"HTTPS://S.CO/images/promovido.png"_s
            << u"HTTPS://S.CO/images/promovido.png"_s;
        QTest::newRow("other stamp, the first only")
            << reemplazos::reprobado
            << u"https://s.co/images/reprobado.png https://s.co/images/reprobado.png"_s
            << u"..\\images\\reprobado.png https://s.co/images/reprobado.png"_s;
        QTest::newRow("other stamp, exact case only")
            << reemplazos::reprobado << u"https://s.co/images/REPROBADO.png"_s
            << u"https://s.co/images/REPROBADO.png"_s;
        QTest::newRow("folio, all, any case")
            << reemplazos::folio << u"Folio: \u00AEfolio\u00AE y FOLIO: \u00AEFolio\u00AE"_s
            << u"Folio: _______ y Folio: _______"_s;
        QTest::newRow("no folio") << reemplazos::folio << u"Folio: 12"_s << u"Folio: 12"_s;
        QTest::newRow("photos, all, any case")
            << reemplazos::foto
            << u"https://s.co/jup/images/123/9-alumno.jpg https://s.co/JUP/images/123/"_s
            << u"..\\fotos\\9-alumno.jpg ..\\fotos\\"_s;
        QTest::newRow("avatar, all, any case")
            << reemplazos::avatar
            << u"https://s.co/images/default-avatar.png HTTPS://s.co/images/Default-Avatar.png"_s
            << u"..\\fotos\\default-avatar.png ..\\fotos\\default-avatar.png"_s;
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
        const QString pagina = u"https://s.co/imgTXT.php?txt=NOTA:A"_s;
        const Reemplazo notaAntes[] = {reemplazos::etiquetaNota, reemplazos::etiqueta};
        QCOMPARE(localizar(pagina, notaAntes, valores()), u"../images/labels/NOTAA"_s);
        const Reemplazo notaDespues[] = {reemplazos::etiqueta, reemplazos::etiquetaNota};
        QCOMPARE(localizar(pagina, notaDespues, valores()), u"../images/labels/NOTA:A"_s);
    }

    void guionDeDocumento_esElDeLosArchivos()
    {
        QCOMPARE(guiones::documento.toString(),
                 u"<script language='javascript' "
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
                 "});</script>"_s);
    }

    void guionDeBoletin_esElDeLosArchivos()
    {
        QCOMPARE(guiones::boletin.toString(),
                 u"<script language='javascript' src='../../configuracion.txt'></script><script "
                 "type='text/javascript'>$(document).ready(function() {    "
                 "$('#cfgMICOLEGIO').html(micolegio); $('#cfgSLOGAN').html(slogan);$('#cfgCDANE')."
                 "html(cdane);$('#cfgDIRECCION').html(direccion);$('#cfgTELEFONO').html(telefono); "
                 "});</script>"_s);
    }
};

QTEST_GUILESS_MAIN(tst_reemplazos)
#include "tst_reemplazos.moc"
