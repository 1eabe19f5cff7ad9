// SPDX-License-Identifier: MIT
#include "platform/rutaWindows.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_rutaWindows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void unidad_data();
    void unidad();
    void ruta_nombres_data();
    void ruta_nombres();
    void ruta_refusada_data();
    void ruta_refusada();
    void comoEnLista_data();
    void comoEnLista();
    void lugar_bajoLaRaiz_data();
    void lugar_bajoLaRaiz();
    void lugar_fueraDeLaRaiz_data();
    void lugar_fueraDeLaRaiz();
    void listado_porNombre_data();
    void listado_porNombre();
    void archivo_bajoLaRaiz_data();
    void archivo_bajoLaRaiz();
    void nombre_refusado_data();
    void nombre_refusado();
    void nombre_admitido_data();
    void nombre_admitido();
    void controles_refusados();
    void sinLimite_yDeVuelta_data();
    void sinLimite_yDeVuelta();
    void sinLimite_yaLoEs_quedaIgual();
};

void tst_rutaWindows::unidad_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::addColumn<bool>("enC");
    QTest::newRow("mayuscula") << u"C:\\Quorvela"_s << true;
    QTest::newRow("minuscula") << u"c:\\Quorvela"_s << true;
    QTest::newRow("barra inclinada") << u"c:/Quorvela"_s << true;
    QTest::newRow("raiz") << u"C:\\"_s << true;
    QTest::newRow("sin separador") << u"C:"_s << false;
    QTest::newRow("relativa a la unidad") << u"C:Quorvela"_s << false;
    QTest::newRow("otra unidad") << u"D:\\Quorvela"_s << false;
    QTest::newRow("red") << u"\\\\servidor\\c"_s << false;
    QTest::newRow("nativa") << u"/home/ana"_s << false;
    QTest::newRow("vacia") << QString() << false;
}

void tst_rutaWindows::unidad()
{
    QFETCH(QString, ruta);
    QFETCH(bool, enC);
    QCOMPARE(rutaWindows::enUnidadC(ruta), enC);
    QCOMPARE(rutaWindows::nombres(ruta).has_value(), enC);
}

void tst_rutaWindows::ruta_nombres_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::addColumn<QStringList>("nombres");
    const QStringList archivo = {u"Quorvela"_s, u"123-2010"_s, u"index.html"_s};
    QTest::newRow("raiz de la unidad") << u"C:\\"_s << QStringList();
    QTest::newRow("barras") << u"c:\\Quorvela\\123-2010\\index.html"_s << archivo;
    QTest::newRow("barras inclinadas") << u"C:/Quorvela/123-2010/index.html"_s << archivo;
    QTest::newRow("barras mezcladas") << u"C:/Quorvela\\123-2010/index.html"_s << archivo;
    QTest::newRow("repetidas") << u"C:\\\\Quorvela\\/\\123-2010//index.html"_s << archivo;
    QTest::newRow("al final") << u"C:\\Quorvela\\123-2010\\index.html\\"_s << archivo;
    QTest::newRow("punto") << u"C:\\.\\Quorvela\\.\\123-2010\\index.html\\."_s << archivo;
    QTest::newRow("dos puntos") << u"C:\\Quorvela\\otro\\..\\123-2010\\index.html"_s << archivo;
    // The name taken back need not exist, as little as on Windows.
    QTest::newRow("dos puntos al final")
        << u"C:\\Quorvela\\123-2010\\index.html\\x\\.."_s << archivo;
    QTest::newRow("encima de la unidad")
        << u"C:\\..\\..\\Quorvela\\123-2010\\index.html"_s << archivo;
    QTest::newRow("sale de la raiz") << u"C:\\Quorvela\\..\\otra"_s << QStringList{u"otra"_s};
    QTest::newRow("blancos y puntos al final")
        << u"C:\\Quorvela. \\123-2010 ..\\index.html . "_s << archivo;
    QTest::newRow("blancos al principio")
        << u"C:\\Quorvela\\ x"_s << QStringList{u"Quorvela"_s, u" x"_s};
    QTest::newRow("punto al principio")
        << u"C:\\Quorvela\\.x"_s << QStringList{u"Quorvela"_s, u".x"_s};
    QTest::newRow("letra como viene")
        << u"C:\\qUORVELA\\Ñandú"_s << QStringList{u"qUORVELA"_s, u"Ñandú"_s};
}

void tst_rutaWindows::ruta_nombres()
{
    QFETCH(QString, ruta);
    QFETCH(QStringList, nombres);
    const auto hallados = rutaWindows::nombres(ruta);
    QVERIFY(hallados);
    QCOMPARE(*hallados, nombres);
}

void tst_rutaWindows::ruta_refusada_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::newRow("nombre prohibido al final") << u"C:\\Quorvela\\a?b"_s;
    QTest::newRow("nombre prohibido en medio") << u"C:\\Quorvela\\a|b\\x"_s;
    QTest::newRow("dispositivo en medio") << u"C:\\Quorvela\\nul\\x"_s;
    QTest::newRow("otra unidad dentro") << u"C:\\Quorvela\\D:\\x"_s;
    QTest::newRow("tres puntos") << u"C:\\Quorvela\\...\\x"_s;
    QTest::newRow("solo blancos") << u"C:\\Quorvela\\  \\x"_s;
    QTest::newRow("dispositivo tras quitar puntos") << u"C:\\Quorvela\\CON.. ."_s;
    QTest::newRow("salto de linea") << u"C:\\Quorvela\\123\r\n-2010"_s;
}

void tst_rutaWindows::ruta_refusada()
{
    QFETCH(QString, ruta);
    QVERIFY(!rutaWindows::nombres(ruta));
}

void tst_rutaWindows::comoEnLista_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::addColumn<QString>("carpeta"); // empty: it cannot be read so
    QTest::addColumn<QStringList>("nombres");
    const QStringList portada = {u"index.html"_s};
    QTest::newRow("comun") << u"C:\\Quorvela\\123-2010/index.html"_s << u"123-2010"_s << portada;
    for (const auto &nombre : {u"con"_s, u"a:b"_s, u"punto."_s, u"blanco "_s, u" "_s, u"..."_s,
                               u"a\\b"_s, u"\\a"_s, u"a\\"_s, u"a\nb"_s, u"\"<|>\""_s})
        QTest::newRow(nombre.toLatin1().toPercentEncoding())
            << u"c:\\Quorvela\\%1/index.html"_s.arg(nombre) << nombre << portada;
    QTest::newRow("mas adentro") << u"C:\\Quorvela\\nul/a\\b./c"_s << u"nul"_s
                                 << QStringList{u"a"_s, u"b"_s, u"c"_s};
    QTest::newRow("sin documento") << u"C:\\Quorvela\\nul"_s << QString() << QStringList();
    QTest::newRow("punto") << u"C:\\Quorvela\\./index.html"_s << QString() << QStringList();
    QTest::newRow("dos puntos") << u"C:\\Quorvela\\../index.html"_s << QString() << QStringList();
    QTest::newRow("documento refusado")
        << u"C:\\Quorvela\\123-2010/a?b"_s << QString() << QStringList();
    QTest::newRow("otra unidad") << u"D:\\Quorvela\\123-2010/index.html"_s << QString()
                                 << QStringList();
    QTest::newRow("nativa") << u"/home/ana/index.html"_s << QString() << QStringList();
}

void tst_rutaWindows::comoEnLista()
{
    QFETCH(QString, ruta);
    QFETCH(QString, carpeta);
    QFETCH(QStringList, nombres);
    const auto leida = rutaWindows::comoEnLista(ruta);
    QCOMPARE(leida.has_value(), !carpeta.isEmpty());
    if (!leida)
        return;
    QCOMPARE(leida->madre, u"Quorvela"_s);
    QCOMPARE(leida->carpeta, carpeta);
    QCOMPARE(leida->nombres, nombres);
}

void tst_rutaWindows::lugar_bajoLaRaiz_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::addColumn<QStringList>("carpeta");
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<bool>("esRaiz");
    const auto fila = [](const char *titulo, const QString &ruta, const QStringList &carpeta,
                         const QString &nombre, bool esRaiz = false) {
        QTest::newRow(titulo) << ruta << carpeta << nombre << esRaiz;
    };
    fila("la raiz", u"C:\\Quorvela"_s, {}, u"Quorvela"_s, true);
    fila("la raiz, otra escritura", u"c:/QUORVELA/"_s, {}, u"QUORVELA"_s, true);
    fila("en la raiz", u"C:\\Quorvela\\a.txt"_s, {}, u"a.txt"_s);
    fila("mas abajo", u"C:\\quorvela\\1-2010\\Fotos\\a.jpg"_s, {u"1-2010"_s, u"Fotos"_s},
         u"a.jpg"_s);
    fila("sale y vuelve", u"C:\\Otra\\..\\Quorvela\\a.txt"_s, {}, u"a.txt"_s);
    fila("la raiz dentro de si", u"C:\\Quorvela\\Quorvela"_s, {}, u"Quorvela"_s);
}

void tst_rutaWindows::lugar_bajoLaRaiz()
{
    QFETCH(QString, ruta);
    QFETCH(QStringList, carpeta);
    QFETCH(QString, nombre);
    QFETCH(bool, esRaiz);
    const auto lugar = rutaWindows::lugarEn(u"Quorvela"_s, ruta);
    QVERIFY(lugar);
    QCOMPARE(lugar->carpeta, carpeta);
    QCOMPARE(lugar->nombre, nombre);
    QCOMPARE(lugar->esRaiz, esRaiz);
}

void tst_rutaWindows::lugar_fueraDeLaRaiz_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::newRow("la unidad") << u"C:\\"_s;
    QTest::newRow("otra carpeta") << u"C:\\Otra\\a.txt"_s;
    QTest::newRow("de nombre que empieza igual") << u"C:\\Quorvela2\\a.txt"_s;
    QTest::newRow("sale") << u"C:\\Quorvela\\..\\a.txt"_s;
    QTest::newRow("sale por encima") << u"C:\\Quorvela\\..\\..\\Otra\\a.txt"_s;
    QTest::newRow("otra unidad") << u"D:\\Quorvela\\a.txt"_s;
    QTest::newRow("nombre refusado") << u"C:\\Quorvela\\con"_s;
    QTest::newRow("nativa") << u"/home/ana/Quorvela/a.txt"_s;
}

void tst_rutaWindows::lugar_fueraDeLaRaiz()
{
    QFETCH(QString, ruta);
    QVERIFY(!rutaWindows::lugarEn(u"Quorvela"_s, ruta));
}

void tst_rutaWindows::listado_porNombre_data()
{
    QTest::addColumn<QString>("carpeta");
    QTest::addColumn<QStringList>("lineas");
    QTest::newRow("con separador")
        << u"C:\\"_s << QStringList{u"C:\\A"_s, u"C:\\a"_s, u"C:\\B"_s, u"C:\\c"_s};
    QTest::newRow("sin separador")
        << u"c:/x"_s << QStringList{u"c:/x\\A"_s, u"c:/x\\a"_s, u"c:/x\\B"_s, u"c:/x\\c"_s};
    QTest::newRow("otra unidad") << u"E:\\x"_s
                                 << QStringList{u"E:\\x\\A"_s, u"E:\\x\\a"_s, u"E:\\x\\B"_s,
                                                u"E:\\x\\c"_s};
    QTest::newRow("nativa") << u"/x"_s << QStringList{u"/x/A"_s, u"/x/a"_s, u"/x/B"_s, u"/x/c"_s};
    QTest::newRow("la nativa de arriba")
        << u"/"_s << QStringList{u"/A"_s, u"/a"_s, u"/B"_s, u"/c"_s};
}

void tst_rutaWindows::listado_porNombre()
{
    QFETCH(QString, carpeta);
    QFETCH(QStringList, lineas);
    QCOMPARE(rutaWindows::listado(carpeta, {u"c"_s, u"B"_s, u"a"_s, u"A"_s}), lineas);
    QCOMPARE(rutaWindows::listado(carpeta, {}), QStringList());
}

void tst_rutaWindows::archivo_bajoLaRaiz_data()
{
    QTest::addColumn<QString>("ruta");
    QTest::addColumn<bool>("puede");
    QTest::newRow("barra al final") << u"C:\\Quorvela\\MAT\\"_s << false;
    QTest::newRow("barra inclinada al final") << u"C:\\Quorvela\\MAT/"_s << false;
    QTest::newRow("solo en medio") << u"C:\\Quorvela/MAT"_s << true;
    QTest::newRow("un punto tras la barra") << u"C:\\Quorvela\\MAT\\."_s << true;
    QTest::newRow("la raiz") << u"C:\\Quorvela"_s << false;
    QTest::newRow("otra carpeta") << u"C:\\Otra\\MAT"_s << false;
    QTest::newRow("vacia") << QString() << false;
}

void tst_rutaWindows::archivo_bajoLaRaiz()
{
    QFETCH(QString, ruta);
    QFETCH(bool, puede);
    const auto archivo = rutaWindows::archivoEn(u"Quorvela"_s, ruta);
    QCOMPARE(archivo.has_value(), puede);
    if (archivo)
        QCOMPARE(archivo->nombre, u"MAT"_s);
}

void tst_rutaWindows::nombre_refusado_data()
{
    QTest::addColumn<QString>("nombre");
    QTest::newRow("vacio") << QString();
    for (const char c : QByteArray("<>:\"|?*"))
        QTest::addRow("caracter %c", c) << u"a%1b"_s.arg(QLatin1Char(c));
    for (const auto &dispositivo :
         {u"CON"_s,  u"PRN"_s,  u"AUX"_s,  u"NUL"_s,  u"COM1"_s, u"COM2"_s, u"COM3"_s, u"COM4"_s,
          u"COM5"_s, u"COM6"_s, u"COM7"_s, u"COM8"_s, u"COM9"_s, u"LPT1"_s, u"LPT2"_s, u"LPT3"_s,
          u"LPT4"_s, u"LPT5"_s, u"LPT6"_s, u"LPT7"_s, u"LPT8"_s, u"LPT9"_s}) {
        QTest::newRow(qPrintable(dispositivo)) << dispositivo;
        QTest::addRow("%s.html", qPrintable(dispositivo)) << dispositivo + u".html"_s;
    }
    QTest::newRow("minusculas") << u"nul"_s;
    QTest::newRow("mezcla") << u"Com3.Txt"_s;
    QTest::newRow("varias extensiones") << u"aux.tar.gz"_s;
    QTest::newRow("blanco ante la extension") << u"con .txt"_s;
}

void tst_rutaWindows::nombre_refusado()
{
    QFETCH(QString, nombre);
    QVERIFY(rutaWindows::nombreRefusado(nombre));
}

void tst_rutaWindows::nombre_admitido_data()
{
    QTest::addColumn<QString>("nombre");
    for (const auto &nombre :
         {u"index.html"_s, u"123-2010"_s, u"Álgebra y Geometría.png"_s, u"CONO"_s, u"xCON"_s,
          u"CON1"_s, u"COM0"_s, u"COM10"_s, u"COM"_s, u"LPT"_s, u"LPT0"_s, u"a.con"_s,
          u"NULO.txt"_s, u"con con.txt"_s, u"a'b"_s, u"a&b=c;d,e"_s, u"(1) [2] {3}"_s,
          u"~$%#@!^`+"_s, u".oculto"_s})
        QTest::newRow(qPrintable(nombre)) << nombre;
}

void tst_rutaWindows::nombre_admitido()
{
    QFETCH(QString, nombre);
    QVERIFY(!rutaWindows::nombreRefusado(nombre));
}

void tst_rutaWindows::controles_refusados()
{
    for (char16_t c = 0; c < 0x20; ++c)
        QVERIFY2(rutaWindows::nombreRefusado(u"a"_s + QChar(c)), qPrintable(QString::number(c)));
}

void tst_rutaWindows::sinLimite_yDeVuelta_data()
{
    QTest::addColumn<QString>("escrita");
    QTest::addColumn<QString>("sinLimite");
    QTest::addColumn<QString>("conLimite");
    QTest::newRow("disco") << u"C:\\Quorvela\\1"_s << u"\\\\?\\C:\\Quorvela\\1"_s
                           << u"C:\\Quorvela\\1"_s;
    QTest::newRow("barra inclinada")
        << u"c:/Quorvela/1"_s << u"\\\\?\\c:\\Quorvela\\1"_s << u"c:\\Quorvela\\1"_s;
    QTest::newRow("servidor") << u"\\\\servidor\\notas\\1"_s << u"\\\\?\\UNC\\servidor\\notas\\1"_s
                              << u"\\\\servidor\\notas\\1"_s;
    QTest::newRow("servidor, barra inclinada")
        << u"//servidor/notas"_s << u"\\\\?\\UNC\\servidor\\notas"_s << u"\\\\servidor\\notas"_s;
    QTest::newRow("aparato") << u"\\\\.\\COM1"_s << u"\\\\.\\COM1"_s << u"\\\\.\\COM1"_s;
}

void tst_rutaWindows::sinLimite_yDeVuelta()
{
    QFETCH(QString, escrita);
    QTEST(rutaWindows::sinLimite(escrita), "sinLimite");
    QTEST(rutaWindows::conLimite(escrita), "conLimite");
    QTEST(rutaWindows::conLimite(rutaWindows::sinLimite(escrita)), "conLimite");
}

void tst_rutaWindows::sinLimite_yaLoEs_quedaIgual()
{
    for (const QString &ruta : {u"\\\\?\\C:\\Quorvela"_s, u"\\\\?\\UNC\\servidor\\notas"_s})
        QCOMPARE(rutaWindows::sinLimite(ruta), ruta);
    QCOMPARE(rutaWindows::conLimite(u"\\\\?\\unc\\servidor\\notas"_s), u"\\\\servidor\\notas"_s);
}

QTEST_GUILESS_MAIN(tst_rutaWindows)
#include "tst_rutaWindows.moc"
