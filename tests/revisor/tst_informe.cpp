// SPDX-License-Identifier: MIT
// A review in words, as a page and as JSON.
#include "revisor/informe.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>
#include <QTimeZone>

using namespace Qt::StringLiterals;

class tst_informe : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void titulo_segunVeredicto_data();
    void titulo_segunVeredicto();
    void explicacion_cuantosYDeQuien_data();
    void explicacion_cuantosYDeQuien();
    void texto_renglonPorRenglon();
    void texto_diceDeQueSonTantos_data();
    void texto_diceDeQueSonTantos();
    void texto_sinLoQueMandaEnLaTerminal();
    void salonesYPersonas_enSuOrden();
    void pagina_muestraPeroNoHaceCasoDelMarcado();
    void pagina_noNecesitaNada();
    void pagina_diceTodo();
    void pagina_deVariosTieneIndice();
    void fechasPerdidas_seDice();
    void json_campoPorCampo();
    void json_loQueNoSeSabe_esNulo();
};

namespace {

const Regla falta = {u"falta-documento", Gravedad::Falta, u"Falta un documento.",
                     u"Vuelva a descargar."};
const Regla dano = {u"pagina-vacia", Gravedad::Danio, u"La página está vacía.",
                    u"Imprima de nuevo."};
const Regla nota = {u"resto", Gravedad::Nota, u"Quedó un resto.", u"Puede borrarlo."};

Hallazgo de(const Regla &regla, const QString &id, const QString &persona,
            const QString &idSalon = u"71"_s, const QString &salon = u"7-1"_s)
{
    return {.regla = &regla,
            .archivo = u"archivos/infoFinal/%1.html"_s.arg(id),
            .idPersona = id,
            .persona = persona,
            .idSalon = idSalon,
            .salon = salon};
}

Resultado ejemplo()
{
    Resultado resultado;
    resultado.veredicto = Veredicto::FaltanDocumentos;
    resultado.carpeta = "/casa/Quorvela/123-2010";
    resultado.nombre = u"123-2010"_s;
    resultado.hallazgos = {de(falta, u"9"_s, u"Ana Peña"_s),
                           de(dano, u"9"_s, u"Ana Peña"_s),
                           {.regla = &nota, .archivo = u"archivos/.descarga-1-2"_s, .veces = 3}};
    resultado.secciones = {{.nombre = u"Salones"_s,
                            .carpeta = u"archivos/salones"_s,
                            .esperados = 3,
                            .hay = 3,
                            .buenos = 3},
                           {.nombre = u"Informes finales"_s,
                            .carpeta = u"archivos/infoFinal"_s,
                            .esperados = 40,
                            .hay = 39,
                            .buenos = 38}};
    resultado.personas = 40;
    resultado.personasConFaltas = 1;
    resultado.salones = 3;
    resultado.salonesConFaltas = 1;
    resultado.fotos = 25;
    resultado.archivos = 120;
    resultado.bytes = 1234567;
    resultado.desde = QDateTime(QDate(2026, 11, 20), QTime(22, 5), QTimeZone::utc());
    resultado.hasta = QDateTime(QDate(2026, 11, 21), QTime(1, 30), QTimeZone::utc());
    return resultado;
}

informe::Sello sello()
{
    return {.programa = u"parvanel-revisor 4.0.0"_s,
            .cuando = QDateTime(QDate(2026, 11, 21), QTime(9, 30), QTimeZone::utc())};
}

} // namespace

void tst_informe::titulo_segunVeredicto_data()
{
    QTest::addColumn<Veredicto>("veredicto");
    QTest::addColumn<QString>("titulo");
    QTest::newRow("completo") << Veredicto::Completo << u"Completo"_s;
    QTest::newRow("faltan") << Veredicto::FaltanDocumentos << u"Faltan documentos"_s;
    QTest::newRow("no es") << Veredicto::NoEsHistorico << u"No es un histórico"_s;
    QTest::newRow("no se lee") << Veredicto::NoSeLee << u"No se puede leer"_s;
    QTest::newRow("detenida") << Veredicto::Detenida << u"Revisión detenida"_s;
}

void tst_informe::titulo_segunVeredicto()
{
    QFETCH(Veredicto, veredicto);
    QFETCH(QString, titulo);
    Resultado resultado = ejemplo();
    resultado.veredicto = veredicto;
    QCOMPARE(informe::titulo(resultado), titulo);
    QCOMPARE(informe::renglon(resultado),
             u"123-2010: "_s + titulo + u". "_s + informe::explicacion(resultado));
    QVERIFY(informe::enHtml({resultado}, sello())
                .contains("<p class=\"palabra\">" + titulo.toUtf8() + "</p>"));
}

void tst_informe::explicacion_cuantosYDeQuien_data()
{
    QTest::addColumn<QList<Hallazgo>>("hallazgos");
    QTest::addColumn<QString>("explicacion");
    const Hallazgo ana = de(falta, u"1"_s, u"Ana %2"_s);
    const Hallazgo luis = de(falta, u"2"_s, u"Luis"_s);
    const Hallazgo eva = de(falta, u"3"_s, u"Eva"_s);
    const Hallazgo otraEva = de(falta, u"4"_s, u"Eva"_s);
    const Hallazgo zoe = de(falta, u"5"_s, u"Zoe"_s);
    QTest::newRow("una") << QList<Hallazgo>{ana} << u"Falta 1 archivo: de Ana %2."_s;
    QTest::newRow("dos de una")
        << QList<Hallazgo>{ana, de(dano, u"1"_s, u"Ana %2"_s)}
        << u"Falta 1 archivo y hay 1 dañado o distinto de lo que debía ser: "
           u"de Ana %2."_s;
    QTest::newRow("dos") << QList<Hallazgo>{luis, ana} << u"Faltan 2 archivos: de Ana %2 y Luis."_s;
    QTest::newRow("tres") << QList<Hallazgo>{ana, luis, eva}
                          << u"Faltan 3 archivos: de Ana %2, Eva y Luis."_s;
    QTest::newRow("cuatro") << QList<Hallazgo>{ana, luis, eva, otraEva}
                            << u"Faltan 4 archivos: de Ana %2, Eva, Eva y Luis."_s;
    QTest::newRow("cinco") << QList<Hallazgo>{ana, luis, eva, otraEva, zoe}
                           << u"Faltan 5 archivos: de Ana %2, Eva, Eva y 2 más."_s;
    QTest::newRow("de nadie") << QList<Hallazgo>{{.regla = &dano, .archivo = u"index.html"_s}}
                              << u"Hay 1 dañado o distinto de lo que debía ser."_s;
}

void tst_informe::explicacion_cuantosYDeQuien()
{
    QFETCH(QList<Hallazgo>, hallazgos);
    QFETCH(QString, explicacion);
    Resultado resultado = ejemplo();
    resultado.hallazgos = hallazgos;
    QCOMPARE(informe::explicacion(resultado), explicacion);
}

void tst_informe::texto_renglonPorRenglon()
{
    QCOMPARE(informe::enTexto(ejemplo()),
             u"123-2010: Faltan documentos\n"
             "  Falta 1 archivo y hay 1 dañado o distinto de lo que debía ser: de Ana Peña.\n"
             "  Carpeta: /casa/Quorvela/123-2010\n"
             "  Fotos: 25. Archivos: 120, 1,2 MB.\n"
             "  Descargado: del 20 de noviembre de 2026, 22:05 al 21 de noviembre de 2026, 1:30.\n"
             "\n"
             "                   se esperan        hay     buenos\n"
             "  Salones                   3          3          3\n"
             "  Informes finales         40         39         38\n"
             "\n"
             "  Salón 7-1 (71)\n"
             "    Ana Peña (9)\n"
             "      - Falta un documento.\n"
             "        archivos/infoFinal/9.html\n"
             "        Vuelva a descargar.\n"
             "      - La página está vacía.\n"
             "        archivos/infoFinal/9.html\n"
             "        Imprima de nuevo.\n"
             "\n"
             "  Notas\n"
             "      - Quedó un resto.\n"
             "        Puede borrarlo.\n"
             "        archivos/.descarga-1-2; en 3 páginas\n"_s);
}

void tst_informe::texto_diceDeQueSonTantos_data()
{
    QTest::addColumn<int>("regla");
    QTest::addColumn<QString>("lugar");
    QTest::newRow("pages") << int(reglas::FaltaImagen)
                           << u"a/b.html; Se busca en c.html; en 3 páginas\n"_s;
    QTest::newRow("links") << int(reglas::EnlaceRoto)
                           << u"a/b.html; Se busca en c.html; son 3 enlaces de la página\n"_s;
    QTest::newRow("files") << int(reglas::ArchivoAjeno)
                           << u"a/b.html; Se busca en c.html; son 3 archivos de la carpeta\n"_s;
}

// Links of one page are not pages, nor are files.
void tst_informe::texto_diceDeQueSonTantos()
{
    QFETCH(int, regla);
    QFETCH(QString, lugar);
    Resultado resultado;
    resultado.veredicto = Veredicto::FaltanDocumentos;
    resultado.hallazgos = {{.regla = &reglas::todas.at(static_cast<std::size_t>(regla)),
                            .archivo = u"a/b.html"_s,
                            .detalle = u"Se busca en c.html."_s,
                            .veces = 3}};
    const QString texto = informe::enTexto(resultado);
    QVERIFY2(texto.contains(lugar), qPrintable(texto));
}

void tst_informe::texto_sinLoQueMandaEnLaTerminal()
{
    Resultado resultado = ejemplo();
    resultado.nombre = u"a\u001b[2Jb"_s;
    resultado.hallazgos.first().persona = u"Ana\n\u202eañeP"_s;
    resultado.hallazgos.first().archivo = u"x\r\u0007y\u2028z"_s;
    const QString texto = informe::enTexto(resultado);
    QVERIFY(texto.startsWith(u"a\ufffd[2Jb: "_s));
    QVERIFY(texto.contains(u"Ana\ufffd\ufffdañeP"_s));
    QVERIFY(texto.contains(u"x\ufffd\ufffdy\ufffdz"_s));
}

void tst_informe::salonesYPersonas_enSuOrden()
{
    Resultado resultado = ejemplo();
    resultado.hallazgos = {
        {.regla = &dano, .archivo = u"index.html"_s},
        de(falta, u"1"_s, u"Zoe"_s, u"s1"_s, u"10-1"_s),
        de(falta, u"2"_s, u"álvaro"_s, u"s1"_s, u"10-1"_s),
        de(falta, u"3"_s, u"Beto"_s, u"s1"_s, u"10-1"_s),
        {.regla = &dano, .archivo = u"salon.html"_s, .idSalon = u"s1"_s, .salon = u"10-1"_s},
        de(falta, u"4"_s, u""_s, u"s2"_s, u"8-2"_s)};
    const QString texto = informe::enTexto(resultado);
    qsizetype lugar = 0;
    for (const QString &parte :
         {u"  Salón 8-2 (s2)\n    4\n"_s, u"  Salón 10-1 (s1)\n      - La página"_s,
          u"salon.html"_s, u"    álvaro (2)\n"_s, u"    Beto (3)\n"_s, u"    Zoe (1)\n"_s,
          u"  De todo el histórico\n      - La página"_s, u"index.html"_s}) {
        const qsizetype hallado = texto.indexOf(parte, lugar);
        QVERIFY2(hallado >= 0, qUtf8Printable(parte + u" in "_s + texto));
        lugar = hallado + parte.size();
    }
}

void tst_informe::pagina_muestraPeroNoHaceCasoDelMarcado()
{
    const QString malo = u"<img src=x onerror='alert(1)'>\"&amp;"_s;
    Resultado resultado = ejemplo();
    resultado.nombre = malo;
    resultado.carpeta = "/<b>/\"";
    resultado.hallazgos = {{.regla = &dano,
                            .archivo = malo,
                            .idPersona = malo,
                            .persona = u"P"_s + malo,
                            .idSalon = malo,
                            .salon = u"S"_s + malo,
                            .detalle = malo + u"\u202e"_s},
                           {.regla = &nota, .archivo = malo, .detalle = malo}};
    resultado.secciones.first().nombre = malo;
    const QByteArray pagina = informe::enHtml({resultado, resultado}, sello());
    QVERIFY(!pagina.contains("<img"));
    QVERIFY(!pagina.contains("<b>"));
    QVERIFY(!pagina.contains("\u202e"));
    const QByteArray escapado = malo.toHtmlEscaped().toUtf8();
    QVERIFY(escapado.startsWith("&lt;img"));
    for (const QByteArray &lugar : {"<bdi>" + escapado, "<bdi>P" + escapado, "<bdi>S" + escapado,
                                    "<code>" + escapado, "<th scope=\"row\">" + escapado})
        QVERIFY2(pagina.contains(lugar), lugar);
}

void tst_informe::pagina_noNecesitaNada()
{
    const QString pagina = QString::fromUtf8(informe::enHtml({ejemplo()}, sello()));
    QVERIFY(pagina.startsWith(u"<!DOCTYPE html>\n<html lang=\"es\">"_s));
    QVERIFY(pagina.contains(u"<meta charset=\"utf-8\">"_s));
    QVERIFY(pagina.contains(u"default-src 'none'; style-src 'unsafe-inline'"_s));
    static const QRegularExpression deFuera(u"<script|<link|src=|href=\"(?!#)|url\\(|@import"_s);
    QVERIFY(!pagina.contains(deFuera));
}

void tst_informe::pagina_diceTodo()
{
    const QString pagina = QString::fromUtf8(informe::enHtml({ejemplo()}, sello()));
    for (const QString &parte :
         {u"<title>Revisión del histórico 123-2010</title>"_s,
          u"21 de noviembre de 2026, 9:30 · parvanel-revisor 4.0.0"_s,
          u"<p class=\"palabra\">Faltan documentos</p><p>Falta 1 archivo y hay 1 dañado"_s,
          u"<dt>Descargado</dt><dd>del 20 de noviembre de 2026, 22:05 al 21 de noviembre"_s,
          u"<dt>Salones</dt><dd>3</dd>"_s, u"<dt>Estudiantes</dt><dd>40</dd>"_s,
          u"<dt>Fotos</dt><dd>25</dd>"_s, u"<dd>120 archivos, 1,2 MB</dd>"_s,
          u"<code>/<wbr>casa/<wbr>Quorvela/<wbr>123-2010</code>"_s,
          u"<tr><th scope=\"row\">Salones</th><td>3</td><td>3</td><td>3</td></tr>"_s,
          u"<tr class=\"incompleta\"><th scope=\"row\">Informes "
          u"finales</th><td>40</td><td>39</td><td>38</td></tr>"_s,
          u"<h4>Salón <bdi>7-1 (71)</bdi></h4>"_s, u"<bdi>Ana Peña (9)</bdi>"_s,
          u"<td>Falta un documento.<p "
          u"class=\"lugar\"><code>archivos/<wbr>infoFinal/<wbr>9.html</code></p></td>"
          u"<td>Vuelva a descargar.</td>"_s,
          u"Quedó un resto. <em>Puede borrarlo.</em>"_s, u".descarga-1-2</code> (en 3 páginas)"_s})
        QVERIFY2(pagina.contains(parte), qUtf8Printable(parte));
}

void tst_informe::pagina_deVariosTieneIndice()
{
    Resultado otro = ejemplo();
    otro.veredicto = Veredicto::NoSeLee;
    otro.nombre.clear();
    otro.carpeta = "/no/hay";
    const QByteArray pagina = informe::enHtml({ejemplo(), otro}, sello());
    QVERIFY(pagina.contains("<a href=\"#h1\"><bdi>123-2010</bdi></a>: Faltan documentos"));
    QVERIFY(pagina.contains("<a href=\"#h2\"><bdi>/no/hay</bdi></a>: No se puede leer"));
    QVERIFY(pagina.contains("<section id=\"h1\" aria-labelledby=\"t1\">"));
    QVERIFY(pagina.contains("<section id=\"h2\" aria-labelledby=\"t2\">"));
    QVERIFY(!informe::enHtml({ejemplo()}, sello()).contains("<nav"));
}

void tst_informe::fechasPerdidas_seDice()
{
    Resultado resultado = ejemplo();
    resultado.fechasUtiles = false;
    QCOMPARE(informe::descargado(resultado), u"no se sabe (al copiarlo se perdieron las fechas)"_s);
    resultado.fechasUtiles = true;
    resultado.hasta = resultado.desde.addSecs(20);
    QCOMPARE(informe::descargado(resultado), u"20 de noviembre de 2026, 22:05"_s);
    resultado.desde = {};
    QCOMPARE(informe::descargado(resultado), QString());
    QVERIFY(!informe::enTexto(resultado).contains(u"Descargado"_s));
}

void tst_informe::json_campoPorCampo()
{
    const QJsonObject raiz =
        QJsonDocument::fromJson(informe::enJson({ejemplo()}, sello())).object();
    QJsonObject historico = raiz[u"historicos"_s].toArray().at(0).toObject();
    QCOMPARE(raiz, (QJsonObject{{u"formato"_s, u"parvanel-revisor"_s},
                                {u"version"_s, 1},
                                {u"programa"_s, u"parvanel-revisor 4.0.0"_s},
                                {u"cuando"_s, u"2026-11-21T09:30:00Z"_s},
                                {u"historicos"_s, QJsonArray{historico}}}));
    const QJsonArray hallazgos = historico.take(u"hallazgos"_s).toArray();
    const QJsonArray secciones = historico.take(u"secciones"_s).toArray();
    QCOMPARE(historico, (QJsonObject{{u"carpeta"_s, u"/casa/Quorvela/123-2010"_s},
                                     {u"nombre"_s, u"123-2010"_s},
                                     {u"veredicto"_s, u"faltan-documentos"_s},
                                     {u"explicacion"_s, informe::explicacion(ejemplo())},
                                     {u"faltas"_s, 1},
                                     {u"danios"_s, 1},
                                     {u"notas"_s, 1},
                                     {u"personas"_s, 40},
                                     {u"personasConFaltas"_s, 1},
                                     {u"salones"_s, 3},
                                     {u"salonesConFaltas"_s, 1},
                                     {u"fotos"_s, 25},
                                     {u"archivos"_s, 120},
                                     {u"bytes"_s, 1234567},
                                     {u"desde"_s, u"2026-11-20T22:05:00Z"_s},
                                     {u"hasta"_s, u"2026-11-21T01:30:00Z"_s},
                                     {u"fechasUtiles"_s, true}}));
    QCOMPARE(secciones.size(), 2);
    QCOMPARE(secciones.at(1).toObject(), (QJsonObject{{u"nombre"_s, u"Informes finales"_s},
                                                      {u"carpeta"_s, u"archivos/infoFinal"_s},
                                                      {u"esperados"_s, 40},
                                                      {u"hay"_s, 39},
                                                      {u"buenos"_s, 38}}));
    QCOMPARE(hallazgos.size(), 3);
    QCOMPARE(hallazgos.at(0).toObject(),
             (QJsonObject{{u"regla"_s, u"falta-documento"_s},
                          {u"gravedad"_s, u"falta"_s},
                          {u"texto"_s, u"Falta un documento."_s},
                          {u"queHacer"_s, u"Vuelva a descargar."_s},
                          {u"archivo"_s, u"archivos/infoFinal/9.html"_s},
                          {u"idPersona"_s, u"9"_s},
                          {u"persona"_s, u"Ana Peña"_s},
                          {u"idSalon"_s, u"71"_s},
                          {u"salon"_s, u"7-1"_s},
                          {u"detalle"_s, u""_s},
                          {u"veces"_s, 1}}));
    QCOMPARE(hallazgos.at(1).toObject()[u"gravedad"_s], QJsonValue(u"danio"_s));
    QCOMPARE(hallazgos.at(2).toObject()[u"gravedad"_s], QJsonValue(u"nota"_s));
    QCOMPARE(hallazgos.at(2).toObject()[u"veces"_s], QJsonValue(3));
}

void tst_informe::json_loQueNoSeSabe_esNulo()
{
    const QMap<Veredicto, QString> palabras = {{Veredicto::Completo, u"completo"_s},
                                               {Veredicto::NoEsHistorico, u"no-es-historico"_s},
                                               {Veredicto::NoSeLee, u"no-se-lee"_s},
                                               {Veredicto::Detenida, u"detenida"_s}};
    for (auto palabra = palabras.begin(); palabra != palabras.end(); ++palabra) {
        Resultado resultado;
        resultado.veredicto = palabra.key();
        const QJsonObject historico = QJsonDocument::fromJson(informe::enJson({resultado}, sello()))
                                          .object()[u"historicos"_s]
                                          .toArray()
                                          .at(0)
                                          .toObject();
        QCOMPARE(historico[u"veredicto"_s], QJsonValue(palabra.value()));
        QVERIFY(historico[u"desde"_s].isNull());
        QVERIFY(historico[u"hasta"_s].isNull());
    }
}

QTEST_GUILESS_MAIN(tst_informe)
#include "tst_informe.moc"
