// SPDX-License-Identifier: MIT
#include "pages/guiones.h"
#include "pages/reemplazos.h"
#include "platform/codepage.h"

#include <QTest>

#include <random>

using namespace Qt::StringLiterals;

namespace {

Valores valores()
{
    Valores valores;
    valores.poner(Lugar::Base, u"https://s.co"_s);
    valores.poner(Lugar::Colegio, u"123"_s);
    return valores;
}

QString reescrita(const QString &pagina, std::span<const Reemplazo> filas)
{
    return codepage::aTexto(localizar(codepage::aBytes(pagina), filas, valores()));
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
        QCOMPARE(reescrita(pagina, {&fila, 1}), localizada);
    }

    // Each byte beside each: those that are the same letter in texts, and no others.
    void letras_sonLasDeLosTextos()
    {
        QByteArray todos;
        for (int byte = 0; byte < 256; ++byte)
            todos.append(static_cast<char>(byte));
        const QString caracteres = codepage::aTexto(todos);
        constexpr Reemplazo cualquiera = {u"{colegio}", u"!"};
        constexpr Reemplazo exacto = {u"{colegio}", u"!", Reemplazo::Todos, Qt::CaseSensitive};
        for (const QChar c : caracteres) {
            Valores uno;
            uno.poner(Lugar::Colegio, QString(c));
            for (const Reemplazo &fila : {cualquiera, exacto})
                QCOMPARE(codepage::aTexto(localizar(todos, {&fila, 1}, uno)),
                         QString(caracteres).replace(QString(c), u"!"_s, fila.letras));
        }
    }

    // Texts that stand one within the other or begin in one another, in pages of few letters:
    // what is put in is shorter, as long and longer than what it stands for, or nothing.
    void lugares_sonLosDeLosTextos_data()
    {
        QTest::addColumn<QString>("buscado");
        for (const auto &buscado :
             {u"a"_s, u"aa"_s, u"aba"_s, u"aAbB"_s, u"abaab"_s, u"ÑaŸa"_s, u"baaaaaaaaaaaaaaaa"_s})
            QTest::newRow(qPrintable(buscado)) << buscado;
    }
    void lugares_sonLosDeLosTextos()
    {
        QFETCH(QString, buscado);
        constexpr Reemplazo filas[] = {{u"{colegio}", u""},
                                       {u"{colegio}", u"{anio}"},
                                       {u"{colegio}", u"<{colegio}a>"},
                                       {u"{colegio}", u"", Reemplazo::SoloElPrimero},
                                       {u"{colegio}", u"b", Reemplazo::Todos, Qt::CaseSensitive},
                                       {u"{colegio}", u"aaaaaaaaaaaaaaaaaaaaaaaaaa"}};
        Valores uno;
        uno.poner(Lugar::Colegio, buscado);
        uno.poner(Lugar::Anio, QString(buscado.size(), u'b'));
        std::mt19937 azar(4711);
        const QString letras = u"aaaaaAbBñÑÿŸ"_s;
        for (int vez = 0; vez < 500; ++vez) {
            QString pagina;
            for (auto largo = azar() % 80; largo > 0; --largo)
                pagina += letras[static_cast<qsizetype>(azar() % 12)];
            for (const Reemplazo &fila : filas) {
                const QString poner = completar(fila.poner, uno);
                QString otra = pagina;
                const qsizetype primero = pagina.indexOf(buscado, 0, fila.letras);
                if (fila.cuantos == Reemplazo::Todos)
                    otra.replace(buscado, poner, fila.letras);
                else if (primero >= 0)
                    otra.replace(primero, buscado.size(), poner);
                QCOMPARE(codepage::aTexto(localizar(codepage::aBytes(pagina), {&fila, 1}, uno)),
                         otra);
            }
        }
    }

    // No byte of the page can be what the code page has no byte for; what can is the other form of
    // such a character.
    void textoFueraDelCodigo_noEstaEnNingunaPagina()
    {
        constexpr Reemplazo fila = {u"{colegio}", u"x"};
        Valores uno;
        uno.poner(Lugar::Colegio, u"\u4E2D"_s);
        QCOMPARE(localizar("? \x84", {&fila, 1}, uno), QByteArray("? \x84"));
        uno.poner(Lugar::Colegio, u"\u017Fi"_s); // a long "s"
        QCOMPARE(localizar("Si", {&fila, 1}, uno), QByteArray("x"));
    }

    // A long page is in memory once.
    void pagina_seCambiaDondeEsta()
    {
        QByteArray pagina("<img src=https://s.co/images/colegios/123/logo.png>");
        pagina += QByteArray(1000, '-');
        const char *const donde = pagina.constData();
        const QByteArray localizada = localizar(std::move(pagina), {&colegio, 1}, valores());
        QVERIFY(localizada.startsWith("<img src=..\\images\\logo.png>---"));
        QCOMPARE(static_cast<const void *>(localizada.constData()),
                 static_cast<const void *>(donde));
    }

    // One that is kept elsewhere stays there as it is.
    void paginaPrestada_quedaComoEsta()
    {
        const QByteArray pagina("https://s.co/images/colegios/123/logo.png");
        QCOMPARE(localizar(pagina, {&colegio, 1}, valores()), QByteArray("..\\images\\logo.png"));
        QCOMPARE(pagina, QByteArray("https://s.co/images/colegios/123/logo.png"));
    }

    void filas_vanEnSuOrden()
    {
        const QString pagina = u"https://s.co/imgTXT.php?txt=NOTA:A"_s;
        const Reemplazo notaAntes[] = {reemplazos::etiquetaNota, reemplazos::etiqueta};
        QCOMPARE(reescrita(pagina, notaAntes), u"../images/labels/NOTAA"_s);
        const Reemplazo notaDespues[] = {reemplazos::etiqueta, reemplazos::etiquetaNota};
        QCOMPARE(reescrita(pagina, notaDespues), u"../images/labels/NOTA:A"_s);
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
