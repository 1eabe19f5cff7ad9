// SPDX-License-Identifier: MIT
#include "worker/render/rutaLocal.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

class tst_rutaLocal : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void ruta_hallaElArchivoExistente_data();
    void ruta_hallaElArchivoExistente();
    void direccion_seVuelveLaDelArchivo_data();
    void direccion_seVuelveLaDelArchivo();
    void direccionSinArchivo_seRechaza_data();
    void direccionSinArchivo_seRechaza();
    void direccionFueraDeLaRaiz_seRechaza_data();
    void direccionFueraDeLaRaiz_seRechaza();
    void raiz_puedeSerEnlace();
    void raizQueFalta_nadaTieneDebajo();

private:
    void crear(const QString &relativa);

    QTemporaryDir m_carpeta;
};

void tst_rutaLocal::initTestCase()
{
    for (const char *relativa : {"Archivos/Images/Logo.png", "Archivos/Images/logo.png",
                                 "Archivos/Images/Ñandú 100%#1.PNG", "Archivos/x\\y.png",
                                 "Otra/Foto.jpg", "Otra/firma.jpg", "Archivos2/Foto.jpg"})
        crear(QString::fromUtf8(relativa));
    QVERIFY(QFile::link("../Otra/Foto.jpg", m_carpeta.filePath("Archivos/enlace.jpg")));
    QVERIFY(QFile::link("../Otra", m_carpeta.filePath("Archivos/salida")));
    QVERIFY(QFile::link("nada", m_carpeta.filePath("Otra/FIRMA.jpg")));
    QVERIFY(QFile::link("Images", m_carpeta.filePath("Archivos/Figuras")));
    QVERIFY(QFile::link("Archivos", m_carpeta.filePath("disco")));
}

void tst_rutaLocal::crear(const QString &relativa)
{
    const QString ruta = m_carpeta.filePath(relativa);
    QVERIFY(QDir().mkpath(QFileInfo(ruta).path()));
    QFile archivo(ruta);
    QVERIFY(archivo.open(QIODevice::WriteOnly));
}

void tst_rutaLocal::ruta_hallaElArchivoExistente_data()
{
    QTest::addColumn<QString>("pedida");
    QTest::addColumn<QString>("hallada");
    const auto fila = [](const char *nombre, const QString &pedida, const QString &hallada) {
        QTest::newRow(nombre) << pedida << hallada;
    };
    fila("as it is", "Otra/Foto.jpg", "Otra/Foto.jpg");
    fila("other case", "OTRA/foto.JPG", "Otra/Foto.jpg");
    fila("exact spelling wins", "archivos/images/logo.png", "Archivos/Images/logo.png");
    fila("accents, other case", "Archivos/Images/ñANDÚ 100%#1.png",
         "Archivos/Images/Ñandú 100%#1.PNG");
    fila("neither spelling", "Archivos/Images/LOGO.png", "Archivos/Images/Logo.png");
    fila("past a link to nothing", "Otra/Firma.jpg", "Otra/firma.jpg");
    fila("backslashes", "archivos\\images\\Logo.png", "Archivos/Images/Logo.png");
    fila("a name with a backslash", "Archivos/x\\y.png", "Archivos/x\\y.png");
    fila("up and down", "otra/../OTRA/foto.jpg", "Otra/Foto.jpg");
    fila("up with backslashes", "Otra\\..\\archivos\\images\\logo.png", "Archivos/Images/logo.png");
    fila("doubled separators", "OTRA//foto.jpg", "Otra/Foto.jpg");
    fila("missing", "Otra/Foto.png", "");
    fila("missing folder", "Nada/Foto.jpg", "");
}

void tst_rutaLocal::ruta_hallaElArchivoExistente()
{
    QFETCH(QString, pedida);
    QFETCH(QString, hallada);
    QCOMPARE(rutaLocal::existente(m_carpeta.filePath(pedida)),
             hallada.isEmpty() ? QString() : m_carpeta.filePath(hallada));
}

void tst_rutaLocal::direccion_seVuelveLaDelArchivo_data()
{
    QTest::addColumn<QString>("final");
    QTest::addColumn<QString>("archivo");
    QTest::newRow("plain") << "Otra/Foto.jpg"
                           << "Otra/Foto.jpg";
    QTest::newRow("escaped backslash") << "archivos%5Cimages%5clogo.png"
                                       << "Archivos/Images/logo.png";
    QTest::newRow("escaped letters") << "Archivos/Images/%C3%B1and%C3%BA%20100%25%231.png"
                                     << "Archivos/Images/Ñandú 100%#1.PNG";
    QTest::newRow("query") << "otra/foto.jpg?v=2"
                           << "Otra/Foto.jpg";
}

void tst_rutaLocal::direccion_seVuelveLaDelArchivo()
{
    QFETCH(QString, final);
    QFETCH(QString, archivo);
    const QUrl pedido("file://" + m_carpeta.path() + '/' + final);
    QCOMPARE(rutaLocal::destino(pedido, m_carpeta.path()),
             QUrl::fromLocalFile(m_carpeta.filePath(archivo)));
}

void tst_rutaLocal::direccionSinArchivo_seRechaza_data()
{
    QTest::addColumn<QUrl>("direccion");
    QTest::newRow("missing") << QUrl("file:///nada/de/esto.png");
    QTest::newRow("folder") << QUrl::fromLocalFile(m_carpeta.path());
    QTest::newRow("device") << QUrl("file:///dev/zero");
    QTest::newRow("another machine")
        << QUrl("file://servidor" + m_carpeta.path() + "/Otra/Foto.jpg");
    QTest::newRow("a host") << QUrl("http://servidor/Otra/Foto.jpg");
    QTest::newRow("nothing") << QUrl();
}

void tst_rutaLocal::direccionSinArchivo_seRechaza()
{
    QFETCH(QUrl, direccion);
    QCOMPARE(rutaLocal::destino(direccion, u"/"_s), QUrl());
}

void tst_rutaLocal::direccionFueraDeLaRaiz_seRechaza_data()
{
    QTest::addColumn<QString>("final");
    QTest::newRow("beside it") << "Otra/Foto.jpg";
    QTest::newRow("beside it, of a name that begins alike") << "Archivos2/Foto.jpg";
    QTest::newRow("up and down") << "Archivos/../Otra/Foto.jpg";
    QTest::newRow("escaped dots") << "Archivos/%2e%2e/Otra/Foto.jpg";
    QTest::newRow("escaped separators") << "Archivos%2f..%2fOtra%2fFoto.jpg";
    QTest::newRow("backslashes") << "Archivos%5C..%5Cotra%5Cfoto.jpg";
    QTest::newRow("link to a file") << "Archivos/enlace.jpg";
    QTest::newRow("link in another case") << "archivos/ENLACE.JPG";
    QTest::newRow("link to a folder") << "Archivos/salida/Foto.jpg";
    QTest::newRow("the root itself") << "Archivos";
}

void tst_rutaLocal::direccionFueraDeLaRaiz_seRechaza()
{
    QFETCH(QString, final);
    const QUrl pedido("file://" + m_carpeta.path() + '/' + final);
    QCOMPARE(rutaLocal::destino(pedido, m_carpeta.filePath("Archivos")), QUrl());
}

void tst_rutaLocal::raiz_puedeSerEnlace()
{
    const QUrl logo = QUrl::fromLocalFile(m_carpeta.filePath("disco/Images/Logo.png"));
    QCOMPARE(rutaLocal::destino(logo, m_carpeta.filePath("disco")), logo);
    // A link within the archive that stays in it is as good as what it leads to.
    const QUrl dentro = QUrl::fromLocalFile(m_carpeta.filePath("Archivos/Figuras/Logo.png"));
    QCOMPARE(rutaLocal::destino(dentro, m_carpeta.filePath("disco")), dentro);
}

void tst_rutaLocal::raizQueFalta_nadaTieneDebajo()
{
    const QUrl foto = QUrl::fromLocalFile(m_carpeta.filePath("Otra/Foto.jpg"));
    QCOMPARE(rutaLocal::destino(foto, m_carpeta.path()), foto);
    for (const QString &raiz : {QString(), m_carpeta.filePath("nada")})
        QCOMPARE(rutaLocal::destino(foto, raiz), QUrl());
}

QTEST_GUILESS_MAIN(tst_rutaLocal)
#include "tst_rutaLocal.moc"
