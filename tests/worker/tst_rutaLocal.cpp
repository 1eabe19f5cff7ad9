#include "worker/render/rutaLocal.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class TstRutaLocal : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void path_findsTheExistingFile_data();
    void path_findsTheExistingFile();
    void address_isTurnedIntoTheFiles_data();
    void address_isTurnedIntoTheFiles();
    void address_withoutAFile_isRefused_data();
    void address_withoutAFile_isRefused();

private:
    void crear(const QString &relativa);

    QTemporaryDir carpeta_;
};

void TstRutaLocal::initTestCase()
{
    for (const char *relativa :
         {"Archivos/Images/Logo.png", "Archivos/Images/logo.png",
          "Archivos/Images/Ñandú 100%#1.PNG", "Archivos/x\\y.png", "Otra/Foto.jpg"})
        crear(QString::fromUtf8(relativa));
}

void TstRutaLocal::crear(const QString &relativa)
{
    const QString ruta = carpeta_.filePath(relativa);
    QVERIFY(QDir().mkpath(QFileInfo(ruta).path()));
    QFile archivo(ruta);
    QVERIFY(archivo.open(QIODevice::WriteOnly));
}

void TstRutaLocal::path_findsTheExistingFile_data()
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
    fila("backslashes", "archivos\\images\\Logo.png", "Archivos/Images/Logo.png");
    fila("a name with a backslash", "Archivos/x\\y.png", "Archivos/x\\y.png");
    fila("up and down", "otra/../OTRA/foto.jpg", "Otra/Foto.jpg");
    fila("up with backslashes", "Otra\\..\\archivos\\images\\logo.png", "Archivos/Images/logo.png");
    fila("doubled separators", "OTRA//foto.jpg", "Otra/Foto.jpg");
    fila("missing", "Otra/Foto.png", "");
    fila("missing folder", "Nada/Foto.jpg", "");
}

void TstRutaLocal::path_findsTheExistingFile()
{
    QFETCH(QString, pedida);
    QFETCH(QString, hallada);
    QCOMPARE(rutaLocal::existente(carpeta_.filePath(pedida)),
             hallada.isEmpty() ? QString() : carpeta_.filePath(hallada));
}

void TstRutaLocal::address_isTurnedIntoTheFiles_data()
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

void TstRutaLocal::address_isTurnedIntoTheFiles()
{
    QFETCH(QString, final);
    QFETCH(QString, archivo);
    const QUrl pedido("file://" + carpeta_.path() + '/' + final);
    QCOMPARE(rutaLocal::destino(pedido), QUrl::fromLocalFile(carpeta_.filePath(archivo)));
}

void TstRutaLocal::address_withoutAFile_isRefused_data()
{
    QTest::addColumn<QUrl>("direccion");
    QTest::newRow("missing") << QUrl("file:///nada/de/esto.png");
    QTest::newRow("folder") << QUrl::fromLocalFile(carpeta_.path());
    QTest::newRow("device") << QUrl("file:///dev/zero");
    QTest::newRow("another machine")
        << QUrl("file://servidor" + carpeta_.path() + "/Otra/Foto.jpg");
    QTest::newRow("a host") << QUrl("http://servidor/Otra/Foto.jpg");
    QTest::newRow("nothing") << QUrl();
}

void TstRutaLocal::address_withoutAFile_isRefused()
{
    QFETCH(QUrl, direccion);
    QCOMPARE(rutaLocal::destino(direccion), QUrl());
}

QTEST_GUILESS_MAIN(TstRutaLocal)
#include "tst_rutaLocal.moc"
