// SPDX-License-Identifier: MIT
// Writing a copy where there are links, names of any bytes and accounts of little right; what
// stands in it, seen by other people's programs.
#include "HistoricoDePrueba.h"

#include "escenario/SinPermiso.h"

#include <QTest>

#include <clocale>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using Final = copia::Guardada::Final;
using Motivo = copia::Omitido::Motivo;

class tst_copiaLinux : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void copia_laLeenOtrosProgramas();
    void cualquierIdioma_mismosBytes_data();
    void cualquierIdioma_mismosBytes();
    void copia_lasSumasConOtroPrograma();
    void nombreDeVariasLineas_codificado();
    void enlaces_quedanFuera();
    void carpetaPorUnEnlace_esLaMisma();
    void destinoDentroPorUnEnlace_rechazado_data();
    void destinoDentroPorUnEnlace_rechazado();
    void nombreQueNoSirve_rechazado_data();
    void nombreQueNoSirve_rechazado();
    void carpetaQueNoSeLee_rechazada();
    void historico_noSeToca();
};

void tst_copiaLinux::copia_laLeenOtrosProgramas()
{
    const HistoricoDePrueba historico;
    const copia::Guardada guardada = historico.guardar();
    QCOMPARE(guardada.texto, u"Copia guardada: "_s + historico.texto("copias/mi copia.zip"));
    QCOMPARE(guardada.final, Final::Hecha);
    QCOMPARE(guardada.archivos, 8);
    QVERIFY(guardada.omitidos.isEmpty());
    const QString zip = historico.texto("copias/mi copia.zip");
    QCOMPARE(historico.correr("unzip", {u"-tq"_s, zip}), 0);
    QCOMPARE(historico.correr("bsdtar", {u"-xOf"_s, zip, u"--exclude"_s, u"*.jpg"_s}), 0);
    QByteArray lista;
    QCOMPARE(historico.correr("unzip", {u"-Z1"_s, zip}, {}, &lista), 0);
    QCOMPARE(lista.split('\n'),
             (QList<QByteArray>{
                 "mi copia/bagit.txt", "mi copia/LEAME.txt", "mi copia/data/archivos/",
                 "mi copia/data/archivos/config/", "mi copia/data/archivos/foto.jpg",
                 "mi copia/data/archivos/salones/", "mi copia/data/archivos/salones/7.html",
                 "mi copia/data/archivos/salones/cafe\xCC\x81.html",
                 "mi copia/data/archivos/salones/caf\xC3\xA9.html",
                 "mi copia/data/archivos/salones/vacia.html",
                 "mi copia/data/archivos/salones/Ñandú 8.html", "mi copia/data/configuracion.txt",
                 "mi copia/data/index.html", "mi copia/bag-info.txt",
                 "mi copia/manifest-sha256.txt", "mi copia/tagmanifest-sha256.txt", ""}));
}

void tst_copiaLinux::cualquierIdioma_mismosBytes_data()
{
    QTest::addColumn<QByteArray>("idioma");
    QTest::newRow("C") << QByteArray("C");
    QTest::newRow("POSIX") << QByteArray("POSIX");
    QTest::newRow("C.UTF-8") << QByteArray("C.UTF-8");
}

void tst_copiaLinux::cualquierIdioma_mismosBytes()
{
    QFETCH(QByteArray, idioma);
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, Final::Hecha);
    const QByteArray primera = historico.leer(historico.zip());
    // The names are marked as UTF-8: without that, other systems take them for their own.
    const qsizetype linea = primera.lastIndexOf("PK\1\2", primera.lastIndexOf("Ñandú"));
    QVERIFY(linea > 0);
    QCOMPARE(primera.at(linea + 9) & 0x08, 0x08);

    QVERIFY(std::setlocale(LC_ALL, idioma.constData()) != nullptr);
    copia::Encargo otra = historico.encargo();
    otra.reemplazar = true;
    QCOMPARE(copia::guardar(otra, {}, {}).final, Final::Hecha);
    QVERIFY(historico.leer(historico.zip()) == primera);
    QVERIFY(std::setlocale(LC_ALL, idioma.constData()) != nullptr);
    QCOMPARE(historico.comprobar().veredicto, copia::Comprobacion::Veredicto::Intacta);
}

void tst_copiaLinux::copia_lasSumasConOtroPrograma()
{
    const HistoricoDePrueba historico;
    QCOMPARE(historico.guardar().final, Final::Hecha);
    const QString carpeta = textoDe(historico.sacar());
    QCOMPARE(historico.correr("sha256sum", {u"-c"_s, u"manifest-sha256.txt"_s}, carpeta), 0);
    QCOMPARE(historico.correr("sha256sum", {u"-c"_s, u"tagmanifest-sha256.txt"_s}, carpeta), 0);
}

void tst_copiaLinux::nombreDeVariasLineas_codificado()
{
    const HistoricoDePrueba historico;
    historico.escribir("archivos/dos\nlineas\r.html", "dos");
    QCOMPARE(historico.guardar().final, Final::Hecha);
    const QByteArray manifiesto = historico.leer(historico.sacar() / "manifest-sha256.txt");
    QVERIFY(manifiesto.contains("  data/archivos/dos%0Alineas%0D.html\n"));
    QCOMPARE(historico.comprobar().veredicto, copia::Comprobacion::Veredicto::Intacta);
}

void tst_copiaLinux::enlaces_quedanFuera()
{
    const HistoricoDePrueba historico;
    const std::filesystem::path archivos = historico.carpeta() / "archivos";
    std::filesystem::create_directory_symlink("salones", archivos / "SALONES");
    std::filesystem::create_symlink("salones/7.html", archivos / "7.html");
    std::filesystem::create_directory_symlink("..", archivos / "vuelta");
    std::filesystem::create_symlink("/etc/passwd", archivos / "claves");
    historico.escribir("archivos/.descarga-12-3", "medio");
    QCOMPARE(::mkfifo((archivos / "tubo").c_str(), 0600), 0);

    const copia::Guardada guardada = historico.guardar();
    QCOMPARE(guardada.final, Final::Hecha);
    QCOMPARE(guardada.archivos, 8);
    QCOMPARE(guardada.omitidos,
             (QList<copia::Omitido>{{u"archivos/.descarga-12-3"_s, Motivo::Resto},
                                    {u"archivos/7.html"_s, Motivo::Enlace},
                                    {u"archivos/claves"_s, Motivo::Enlace},
                                    {u"archivos/tubo"_s, Motivo::Especial},
                                    {u"archivos/vuelta"_s, Motivo::Enlace}}));
    QCOMPARE(historico.comprobar().archivos, 8);
}

void tst_copiaLinux::carpetaPorUnEnlace_esLaMisma()
{
    const HistoricoDePrueba historico;
    std::filesystem::create_directory_symlink(historico.carpeta(), historico.ruta("atajo"));
    copia::Encargo encargo = historico.encargo();
    encargo.carpeta = historico.ruta("atajo");
    const copia::Guardada guardada = copia::guardar(encargo, {}, {});
    QCOMPARE(guardada.final, Final::Hecha);
    QCOMPARE(guardada.archivos, 8);
    QVERIFY(historico.leer(historico.sacar() / "bag-info.txt")
                .contains("\nExternal-Identifier: 123-2010\n"));
}

void tst_copiaLinux::destinoDentroPorUnEnlace_rechazado_data()
{
    QTest::addColumn<QByteArray>("destino");
    QTest::newRow("de carpeta") << QByteArray("puerta/copia.zip");
    QTest::newRow("archivo que es un enlace") << QByteArray("copias/enlace.zip");
}

void tst_copiaLinux::destinoDentroPorUnEnlace_rechazado()
{
    QFETCH(QByteArray, destino);
    const HistoricoDePrueba historico;
    std::filesystem::create_directory_symlink(historico.carpeta() / "archivos",
                                              historico.ruta("puerta"));
    std::filesystem::create_symlink(historico.carpeta() / "index.html",
                                    historico.ruta("copias/enlace.zip"));
    copia::Encargo encargo = historico.encargo();
    encargo.destino = historico.ruta(destino.constData());
    encargo.reemplazar = true;
    const copia::Guardada guardada = copia::guardar(encargo, {}, {});
    QCOMPARE(guardada.final, Final::Fallo);
    QVERIFY(guardada.texto.contains(u"dentro del histórico"_s));
    QCOMPARE(historico.leer(historico.carpeta() / "index.html"),
             HistoricoDePrueba::documentos().at("index.html"));
}

void tst_copiaLinux::nombreQueNoSirve_rechazado_data()
{
    QTest::addColumn<QByteArray>("nombre");
    QTest::newRow("no es UTF-8") << QByteArray("archivos/Pe\xF1"
                                               "a.html");
    QTest::newRow("barra invertida") << QByteArray("archivos/..\\a.html");
}

void tst_copiaLinux::nombreQueNoSirve_rechazado()
{
    QFETCH(QByteArray, nombre);
    const HistoricoDePrueba historico;
    historico.escribir(nombre, "x");
    const copia::Guardada guardada = historico.guardar();
    QCOMPARE(guardada.final, Final::Fallo);
    QVERIFY2(guardada.texto.contains(u"Cambie este nombre"_s), qUtf8Printable(guardada.texto));
    QVERIFY(guardada.texto.contains(QString::fromUtf8(nombre)));
    QVERIFY(historico.enCopias().isEmpty());
}

void tst_copiaLinux::carpetaQueNoSeLee_rechazada()
{
    const HistoricoDePrueba historico;
    QFile::setPermissions(historico.texto("123-2010/archivos/foto.jpg"), QFile::Permissions());
    copia::Guardada guardada;
    {
        // The administrator goes on as somebody else, who owns the place for the copy.
        const SinPermiso otro(historico.texto("123-2010/archivos/config"),
                              {historico.texto("copias"), historico.texto("")});
        guardada = historico.guardar();
    }
    QCOMPARE(guardada.final, Final::Fallo);
    QVERIFY2(guardada.texto.contains(u"No se puede leer: "_s), qUtf8Printable(guardada.texto));
    QVERIFY(guardada.texto.contains(u"foto.jpg"_s));
    QVERIFY(historico.enCopias().isEmpty());
}

void tst_copiaLinux::historico_noSeToca()
{
    const HistoricoDePrueba historico;
    const auto retrato = [&] {
        QStringList lineas;
        for (const auto &entrada :
             std::filesystem::recursive_directory_iterator(historico.carpeta())) {
            struct stat datos = {};
            if (::stat(entrada.path().c_str(), &datos) != 0)
                qFatal("a file of the archive is gone");
            lineas.append(u"%1 %2 %3 %4 %5"_s.arg(QString::fromStdString(entrada.path().string()))
                              .arg(datos.st_size)
                              .arg(datos.st_mtim.tv_sec)
                              .arg(datos.st_mtim.tv_nsec)
                              .arg(datos.st_ctim.tv_nsec));
        }
        lineas.sort();
        return lineas;
    };
    const QStringList antes = retrato();
    QCOMPARE(historico.guardar().final, Final::Hecha);
    QCOMPARE(copia::comprobar(historico.carpeta(), {}, {}).veredicto,
             copia::Comprobacion::Veredicto::NoEsCopia);
    QCOMPARE(retrato(), antes);
}

QTEST_GUILESS_MAIN(tst_copiaLinux)
#include "tst_copiaLinux.moc"
